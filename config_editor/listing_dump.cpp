// SPDX-License-Identifier: MIT
#include "config_editor/listing_dump.h"

#include "app/services/trace_log.h"
#include "platform/code_page.h"

#include <QStringBuilder>

namespace listing_dump
{

QString entry(const QString &name, const QString &folder)
{
    constexpr qsizetype nameWidth = 75;
    return name.leftJustified(nameWidth, ' ', true) % u"  \\" % folder;
}

QByteArray compose(const QStringList &entries, const QDateTime &time, const QLocale &locale)
{
    const QString rule = QString(105, '=') + "\r\n";
    QString text =
        rule + "AIRCRAFT NAME" + QString(64, ' ') + "LOCATION (AIRCRAFT FOLDER)\r\n" + rule;
    for (const QString &entry : entries) {
        text += entry % u"\r\n";
    }
    // Some locales set the narrow no-break space before "PM", which the code page lacks.
    const QString clock =
        locale.toString(time.time(), TraceLog::timeFormat(locale)).replace(QChar(0x202F), ' ');
    text += rule + "Varlo Aircraft Listing - " +
            QLocale::c().toString(time.date(), "dddd, MMMM, dd, yyyy") + ' ' + clock + "\r\n";
    return code_page::encode(text);
}

} // namespace listing_dump
