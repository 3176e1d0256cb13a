// SPDX-License-Identifier: MIT
// Page 0 in the hands of its user.
#pragma once

#include "aircraft_loader/aircraft_loader_page.h"
#include "platform/controls/dir_list_box.h"
#include "platform/controls/list_box.h"
#include "tests/support/page_driver.h"

class AircraftLoaderDriver : public PageDriver<AircraftLoaderPage>
{
public:
    static inline const QString aircraftDir = QStringLiteral("C:\\FS9\\Aircraft");
    static inline const QString textFile = QStringLiteral("C:\\TTools\\Aircraft_Set.txt");

    AircraftLoaderDriver() { sandbox.makeFolder(aircraftDir); }

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
        show();
    }

    /// Opens the page, points it at the aircraft directory and chooses the text file.
    void start()
    {
        open();
        window->showDirectory(aircraftDir);
        chooseTextFile(textFile);
    }

    /// Presses the text file's browse button; an empty path cancels the dialog.
    void chooseTextFile(const QString &path)
    {
        outside.dialogs.files = {path};
        press("cmdBrowseText");
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

private:
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
