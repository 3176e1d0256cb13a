// SPDX-License-Identifier: MIT
// Page 3's main operations beside a bare read, or write, of the same bytes.
#include "config_editor/config_editor_page.h"

#include "app/services/services.h"
#include "benchmarks/tree.h"
#include "benchmarks/turns.h"
#include "platform/controls/list_box.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>

namespace
{

/// Page 3 in a window of its own.
struct Page {
    Page()
    {
        services.state.MorlenEDir = "C:\\Morlen\\";
        page.show();
    }

    FakeOutside outside;
    Services services{outside.outside()};
    ConfigEditorPage page{services};
};

void catalogue(const Sandbox &sandbox)
{
    Page shown;
    shown.page.showDirectory(benchmark_tree::aircraftDir);
    takeTurns("Page 3, 5,000 folders", 25,
              {{"bare walk", [&] { benchmark_tree::bareWalk(sandbox); }},
               {"Tab3LoadList", [&] { shown.page.Tab3LoadList(); }, {{"bare walk", 1.8}}}});
    if (findControl<ListBox>(shown.page, "Tab3List1")->count() != 5000) {
        qFatal("the list is not what the tree holds");
    }
}

void dump(const Sandbox &sandbox)
{
    Page shown;
    findControl<ListBox>(shown.page, "Tab3List7")
        ->setItems(QStringList(5000, QString(75, 'x') + "  \\some_aircraft_folder"));
    auto *const box = findControl<QCheckBox>(shown.page, "Tab3chkDumpList");
    box->setEnabled(true); // which a listed directory does
    box->click();
    const QByteArray bytes = sandbox.read("C:\\Morlen\\AircraftList.txt");
    takeTurns("Page 3, dump of 5,000 entries", 25,
              {{"bare write",
                [&] {
                    QFile file(sandbox.host("C:\\Morlen\\Bare.txt"));
                    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
                        qFatal("cannot write");
                    }
                }},
               // Answered No, which takes the tick away.
               {"dump", [&] { box->click(); }, {{"bare write", 15}}}});
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const Sandbox sandbox;
    benchmark_tree::make(sandbox);
    catalogue(sandbox);
    dump(sandbox);
    return 0;
}
