// SPDX-License-Identifier: MIT
// Page 1's main operations on the shipped list and on one ten times as long, beside a bare
// read of the same file, line by line.
#include "airport_loader/airport_loader_page.h"

#include "app/services/services.h"
#include "app/services/set_in_progress.h"
#include "benchmarks/turns.h"
#include "platform/controls/drag_list_box.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"
#include "tests/support/sandbox.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>

namespace
{

const QString listPath = QStringLiteral("C:\\windows\\system32\\ZENTAM.OCX");
const QString textFile = QStringLiteral("C:\\TTools\\Airports_Bench.txt");

/// The shipped list, each line as often as asked, so that countries and provinces stay together.
QByteArray repeatedList(int times)
{
    QFile shipped(MORLEN_AIRPORT_LIST);
    if (!shipped.open(QIODevice::ReadOnly)) {
        qFatal("no airport list");
    }
    QByteArray bytes;
    while (!shipped.atEnd()) {
        bytes += shipped.readLine().repeated(times);
    }
    return bytes;
}

/// Page 1 in a window of its own.
struct AirportPage {
    AirportPage()
    {
        page.LoadCountry();
        page.show();
    }

    /// Chooses an empty text file.
    void chooseFile(const Sandbox &sandbox)
    {
        sandbox.write(textFile, "");
        outside.dialogs.files = {textFile};
        findControl<QPushButton>(page, "Tab1cmdBrowse")->click();
    }

    void open(const QString &entry) const
    {
        available->setListIndex(static_cast<int>(available->items().indexOf(entry)));
        Q_EMIT available->entryDoubleClicked();
        QCoreApplication::processEvents();
    }

    void choose(const QString &entry) const
    {
        available->setListIndex(static_cast<int>(available->items().indexOf(entry)));
        Q_EMIT chosen->dropped(entry);
    }

    void goBack() const
    {
        auto *const previous = findControl<QPushButton>(page, "Tab1cmdPrevious");
        if (!previous->isHidden()) {
            previous->click();
        }
    }

    /// The answer is not to view the file.
    void append() const { findControl<QPushButton>(page, "Tab1cmdCreateFile")->click(); }

    FakeOutside outside;
    Services services{outside.outside()};
    SetInProgress set;
    AirportLoaderPage page{services, set};
    DragListBox *available = findControl<DragListBox>(page, "Tab1List1");
    DragListBox *chosen = findControl<DragListBox>(page, "Tab1List2");
};

void readByLine(const Sandbox &sandbox)
{
    QFile file(sandbox.host(listPath));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("no airport list");
    }
    while (!file.atEnd()) {
        file.readLine();
    }
}

void measure(const std::string &title, int times)
{
    const Sandbox sandbox;
    sandbox.write(listPath, repeatedList(times));
    AirportPage countries;
    AirportPage browsed;
    AirportPage single;
    AirportPage whole;
    const auto loadCountries = [&] {
        countries.page.LoadCountry();
        QCoreApplication::processEvents();
    };
    const auto choose1000 = [&] {
        single.chooseFile(sandbox);
        single.open("Brazil"); // the largest country without provinces
        for (int i = 0; i < 1000; ++i) {
            single.choose(single.available->text(0));
        }
    };
    const auto chooseLargest = [&] {
        whole.chooseFile(sandbox);
        whole.choose("United States");
    };
    const std::string read = "bare read by line";
    takeTurns(
        title, 15,
        {{read, [&] { readByLine(sandbox); }},
         {"country list", loadCountries, {{read, 3}}, [&] { countries.available->clear(); }},
         {"province list of the United States",
          [&] { browsed.open("United States"); },
          {{read, 3}},
          [&] { browsed.goBack(); }},
         {"airport list of Brazil",
          [&] { browsed.open("Brazil"); },
          {{read, 3}},
          [&] { browsed.goBack(); }},
         {"appending 1,000 airports one by one",
          [&] { single.append(); },
          {{read, 20}},
          choose1000},
         {"appending the United States", [&] { whole.append(); }, {{read, 5}}, chooseLargest}});
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    measure("Page 1, the shipped airport list", 1);
    measure("Page 1, a list ten times as long", 10);
    return 0;
}
