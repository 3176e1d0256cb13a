// SPDX-License-Identifier: MIT
// Page 0 in the hands of its user: real files, real mouse and keys, everything outside faked.
#pragma once

#include "aircraft_loader/aircraft_loader_page.h"
#include "platform/dir_list_box.h"
#include "platform/list_box.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"
#include "tests/support/sandbox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QtTest>

#include <memory>
#include <stdexcept>

class AircraftLoaderDriver
{
public:
    static inline const QString aircraftDir = QStringLiteral("C:\\FS9\\Aircraft");
    static inline const QString textFile = QStringLiteral("C:\\TTools\\Aircraft_Set.txt");

    AircraftLoaderDriver()
    {
        sandbox.makeFolder(aircraftDir);
        services.state.MorlenEDir = "C:\\Morlen\\";
    }

    // What is there before the user comes. Bytes are those of the files.

    void addAircraft(const QString &folder, const QList<QByteArray> &titles,
                     const QByteArray &speed) const
    {
        QByteArray bytes;
        for (const QByteArray &title : titles) {
            bytes += "[fltsim.0]\r\ntitle=" + title + "\r\n";
        }
        writeCfg(folder, bytes + "[Reference Speeds]\r\ncruise_speed=" + speed + "\r\n");
    }

    void writeCfg(const QString &folder, const QByteArray &bytes) const
    {
        sandbox.write(cfgFile(folder), bytes);
    }

    static QString cfgFile(const QString &folder)
    {
        return aircraftDir + '\\' + folder + "\\aircraft.cfg";
    }

    void writeTextFile(const QByteArray &bytes) const { sandbox.write(textFile, bytes); }

    QByteArray textFileBytes() const { return sandbox.read(textFile); }

    // What the user does.

    /// Opens the window with the page.
    void open()
    {
        window = std::make_unique<AircraftLoaderPage>(services);
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowExposed(window.get()) ||
            !QTest::qWaitForWindowActive(window.get())) {
            throw std::runtime_error("the page does not show");
        }
    }

    /// Opens the page, points it at the aircraft directory and chooses the text file.
    void start()
    {
        open();
        window->openDirectory(aircraftDir);
        chooseTextFile(textFile);
    }

    /// Presses the text file's browse button; an empty path cancels the dialog.
    void chooseTextFile(const QString &path)
    {
        outside.dialogs.files = {path};
        press("cmdBrowseText");
    }

    /// Presses a button, or clicks an option where its mark is.
    void press(const QString &name) const
    {
        auto *const button = visible<QAbstractButton>(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(12, button->height() / 2));
    }

    void pressKey(const QString &name, Qt::Key key) const
    {
        visible<QWidget>(name)->setFocus();
        QTest::keyClick(visible<QWidget>(name), key);
    }

    /// Clicks the check mark of an available aircraft.
    void tick(int entry) const
    {
        auto *const list = visible<ListBox>("Tab0List2");
        QStyleOptionViewItem option;
        option.initFrom(list);
        option.rect = entryRect(*list, entry);
        option.features =
            QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
        option.text = list->text(entry);
        const QRect mark =
            list->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, list);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, mark.center());
    }

    /// Ticks an available aircraft with the space bar.
    void tickByKey(int entry) const
    {
        auto *const list = visible<ListBox>("Tab0List2");
        list->setFocus();
        list->setListIndex(entry);
        QTest::keyClick(list, Qt::Key_Space);
    }

    /// Clicks an entry beside its check mark.
    void clickEntry(const QString &list, int entry) const
    {
        auto *const box = visible<ListBox>(list);
        QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, besideMark(entryRect(*box, entry)));
    }

    void doubleClickExisting(int entry) const
    {
        auto *const box = visible<ListBox>("Tab0List3");
        doubleClick(*box, entry);
    }

    /// Double-clicks a folder of the folder picker; also one above the open one.
    void openFolder(const QString &name) const
    {
        auto *const picker = visible<DirListBox>("Dir1");
        for (int row = 0; row < picker->model()->rowCount(); ++row) {
            if (picker->model()->index(row, 0).data().toString() == name) {
                doubleClick(*picker, row);
                return;
            }
        }
        throw std::runtime_error("no folder " + name.toStdString());
    }

    // What the user sees.

    template <typename Control>
    Control *find(const QString &name) const
    {
        return findControl<Control>(*window, name);
    }

    QStringList available() const { return find<ListBox>("Tab0List2")->items(); }

    QStringList existing() const { return find<ListBox>("Tab0List3")->items(); }

    QStringList foldersWithData() const { return find<ListBox>("Tab0List1")->items(); }

    QStringList ticked() const
    {
        const auto *const list = find<ListBox>("Tab0List2");
        QStringList texts;
        for (int i = 0; i < list->count(); ++i) {
            if (list->selected(i)) {
                texts += list->text(i);
            }
        }
        return texts;
    }

    QString label(const QString &name) const { return find<QLabel>(name)->text(); }

    bool isShown(const QString &name) const { return find<QWidget>(name)->isVisible(); }

    bool isEnabled(const QString &name) const { return find<QWidget>(name)->isEnabled(); }

    static QString focus()
    {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }

    /// The boxes so far, each as "icon, title: prompt", and forgets them.
    QStringList messages()
    {
        static const QStringList icons = {"None", "Information", "Exclamation", "Critical"};
        QStringList texts;
        for (const MessageBox &box : std::exchange(outside.dialogs.boxes, {})) {
            texts += icons[static_cast<int>(box.icon)] + ", " + box.title + ": " + box.prompt;
        }
        return texts;
    }

    Sandbox sandbox;
    FakeOutside outside;
    Services services{outside.outside()};
    std::unique_ptr<AircraftLoaderPage> window;

private:
    /// A control that the user can see: what is hidden cannot be clicked.
    template <typename Control>
    Control *visible(const QString &name) const
    {
        auto *const control = find<Control>(name);
        if (!control->isVisible()) {
            throw std::runtime_error(name.toStdString() + " is hidden");
        }
        return control;
    }

    static QRect entryRect(QAbstractItemView &list, int entry)
    {
        const QModelIndex index = list.model()->index(entry, 0);
        if (!index.isValid()) {
            throw std::runtime_error("no entry " + std::to_string(entry));
        }
        list.scrollTo(index);
        return list.visualRect(index);
    }

    /// Two clicks: a list takes the second for a double one only on the entry of the first.
    static void doubleClick(QAbstractItemView &list, int entry)
    {
        const QPoint position = besideMark(entryRect(list, entry));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, position);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, position);
    }

    static QPoint besideMark(const QRect &entry) { return {entry.left() + 60, entry.center().y()}; }
};
