// SPDX-License-Identifier: MIT
#include "platform/controls/system_dialogs.h"

#include "platform/paths.h"
#include "platform/runtime_error.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QScopeGuard>
#include <QSettings>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace
{

QMessageBox::Icon iconOf(MessageBox::Icon icon)
{
    switch (icon) {
    case MessageBox::Icon::Information:
        return QMessageBox::Information;
    case MessageBox::Icon::Exclamation:
        return QMessageBox::Warning;
    case MessageBox::Icon::Critical:
        return QMessageBox::Critical;
    case MessageBox::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// A carriage return alone, or with a line feed, is a line break in a prompt.
QString withLineBreaks(const QString &prompt)
{
    return QString(prompt).replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
}

/// The drives, for the dialog's side bar: they are where the simulator lives.
QList<QUrl> driveUrls()
{
    QList<QUrl> urls;
    for (const QString &drive : paths::drives()) {
        urls += QUrl::fromLocalFile(paths::toHost(drive + u'\\'));
    }
    return urls;
}

/// The dialog hides the last brackets of a filter, and takes its pattern from them.
QStringList nameFilters(const QString &filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        filters += parts[i] + u" ("_s + parts[i + 1] + u')';
    }
    return filters;
}

} // namespace

MessageBox::Answer SystemDialogs::show(const MessageBox &box)
{
    const bool yesNo = box.buttons == MessageBox::Buttons::YesNo;
    QMessageBox window(iconOf(box.icon), box.title, withLineBreaks(box.prompt),
                       yesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, m_parent);
    window.setTextFormat(Qt::PlainText);
    if (yesNo) {
        window.setDefaultButton(box.defaultButton == MessageBox::Answer::No ? QMessageBox::No
                                                                            : QMessageBox::Yes);
        window.setEscapeButton(QMessageBox::No);
    }
    // A question asked in the middle of a long step is not itself to be waited for.
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    const auto restore = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    switch (window.exec()) {
    case QMessageBox::Yes:
        return MessageBox::Answer::Yes;
    case QMessageBox::No:
        return MessageBox::Answer::No;
    default:
        return MessageBox::Answer::Ok;
    }
}

QString SystemDialogs::openFile(const OpenFileDialog &dialog)
{
    // Where it was and its side bar the dialog keeps for all programs of the toolkit, in the user's
    // home. Ours are no business of others: its store is nowhere.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, u"/dev/null"_s);
    QFileDialog window(m_parent);
    // Desktop dialogs match patterns by case on some systems; file names here are blind to it.
    window.setOption(QFileDialog::DontUseNativeDialog);
    window.setSidebarUrls(driveUrls());
    window.setFileMode(QFileDialog::ExistingFile);
    window.setOption(QFileDialog::HideNameFilterDetails);
    window.setNameFilters(nameFilters(dialog.filter));
    try {
        window.setDirectory(paths::toHost(dialog.startFolder.isEmpty() ? paths::currentDirectory()
                                                                       : dialog.startFolder));
    } catch (const RuntimeError &) {
        // A folder that is gone is no reason to refuse the dialog: it opens where the user is.
        window.setDirectory(paths::toHost(paths::currentDirectory()));
    }
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty()) {
        return {};
    }
    return paths::fromHost(window.selectedFiles().first());
}
