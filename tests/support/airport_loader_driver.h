// SPDX-License-Identifier: MIT
// Page 1 in the hands of its user.
#pragma once

#include "airport_loader/airport_loader_page.h"
#include "platform/controls/drag_list_box.h"
#include "platform/controls/list_box.h"
#include "tests/support/airport_list.h"
#include "tests/support/page_driver.h"

#include <QFile>

class AirportLoaderDriver : public PageDriver<AirportLoaderPage>
{
public:
    static inline const QString textFile = QStringLiteral("C:\\TTools\\Airport_Set.txt");
    static inline const QString masterList = QStringLiteral("C:\\windows\\system32\\ZENTAM.OCX");
    static inline const QString filePrompt =
        QStringLiteral("Please Select Airport Text file to Edit --->");

    AirportLoaderDriver() { sandbox.write(masterList, smallAirportList); }

    // What is there before the user comes. Bytes are those of the files.

    void writeMasterList(const QByteArray &bytes) const { sandbox.write(masterList, bytes); }

    void removeMasterList() const { remove(masterList); }

    void writeTextFile(const QByteArray &bytes) const { sandbox.write(textFile, bytes); }

    QByteArray textFileBytes() const { return sandbox.read(textFile); }

    void removeTextFile() const { remove(textFile); }

    // What the user does.

    /// Opens the window with the page, empty as it is before the countries are loaded.
    void open()
    {
        window = std::make_unique<AirportLoaderPage>(services);
        window->resize(900, 600);
        show();
    }

    /// Opens the page with the countries in its list, as the program starts.
    void start()
    {
        open();
        window->LoadCountry();
    }

    /// Presses the text file's browse button; an empty path cancels the dialog.
    void chooseTextFile(const QString &path = textFile)
    {
        outside.dialogs.files = {path};
        press("Tab1cmdBrowse");
    }

    void clickEntry(const QString &list, const QString &text) const
    {
        auto *const box = visible<ListBox>(list);
        QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, entryPosition(*box, text));
    }

    /// Clicks a list where it has no entries.
    void clickBarePart(const QString &list) const
    {
        const QWidget *const viewport = visible<ListBox>(list)->viewport();
        QTest::mouseClick(visible<ListBox>(list)->viewport(), Qt::LeftButton, {},
                          viewport->rect().bottomLeft() + QPoint(5, -5));
    }

    /// Two clicks: a list takes the second for a double one only on the entry of the first.
    void descend(const QString &text) const
    {
        auto *const box = visible<ListBox>("Tab1List1");
        const QPoint position = entryPosition(*box, text);
        QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, position);
        QTest::mouseDClick(box->viewport(), Qt::LeftButton, {}, position);
    }

    /// Moves an available entry to "Airports to Add", as a drop does.
    void choose(const QString &text) const
    {
        clickEntry("Tab1List1", text);
        pressKey("Tab1List1", Qt::Key_Insert);
    }

    /// Moves an entry back to the available list, as a drop does.
    void takeBack(const QString &text) const
    {
        clickEntry("Tab1List2", text);
        pressKey("Tab1List2", Qt::Key_Delete);
    }

    // What the user sees.

    QStringList items(const QString &list) const { return find<ListBox>(list)->items(); }

    QStringList available() const { return items("Tab1List1"); }

    QStringList toAdd() const { return items("Tab1List2"); }

    /// What the hidden lists keep, each as "search text/country text".
    QStringList choices() const
    {
        const QStringList countries = items("Tab1lstCountry");
        QStringList texts = items("Tab1lstAICO");
        if (countries.size() != texts.size()) {
            throw std::runtime_error("the hidden lists are not parallel");
        }
        for (qsizetype i = 0; i < texts.size(); ++i) {
            texts[i] += '/' + countries[i];
        }
        return texts;
    }

    QStringList enabledSortOptions() const
    {
        return enabledOf({"Tab1Frame2", "Tab1optName", "Tab1optICAO"});
    }

    bool asksForTextFile() const
    {
        const auto *const text = find<QLabel>("Tab1lblAirportTextFileName");
        return text->text() == filePrompt && text->font().bold() &&
               text->palette().color(QPalette::WindowText) == QColor(255, 0, 0);
    }

    bool showsTextFile(const QString &path) const
    {
        const auto *const text = find<QLabel>("Tab1lblAirportTextFileName");
        return text->text() == path && !text->font().bold() &&
               text->palette().color(QPalette::WindowText) ==
                   QApplication::palette().color(QPalette::WindowText);
    }

private:
    void remove(const QString &path) const
    {
        if (!QFile::remove(sandbox.host(path))) {
            throw std::runtime_error("no file " + path.toStdString());
        }
    }

    static QPoint entryPosition(ListBox &list, const QString &text)
    {
        const QModelIndex index =
            list.model()->index(static_cast<int>(list.items().indexOf(text)), 0);
        if (!index.isValid()) {
            throw std::runtime_error("no entry " + text.toStdString());
        }
        list.scrollTo(index);
        const QRect entry = list.visualRect(index);
        return {entry.left() + 30, entry.center().y()};
    }
};
