// SPDX-License-Identifier: MIT
// Page 3's main operations beside a bare read, or write, of the same bytes.
#include "benchmarks/tree_benchmark.h"
#include "config_editor/config_editor_page.h"
#include "platform/controls/list_box.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"

#include <QCheckBox>
#include <QFile>

namespace
{

using tree_benchmark::bareWalk;
using tree_benchmark::sandbox;

/// Page 3 in a window of its own, on the measured tree.
struct LoadedPage {
    LoadedPage()
    {
        services.state.MorlenEDir = "C:\\Morlen\\";
        page.show();
        page.showDirectory(benchmark_tree::aircraftDir);
    }

    FakeOutside outside;
    Services services{outside.outside()};
    ConfigEditorPage page{services};
};

void tab3LoadList(benchmark::State &state)
{
    LoadedPage loaded;
    for ([[maybe_unused]] auto _ : state) {
        loaded.page.Tab3LoadList();
    }
    if (findControl<ListBox>(loaded.page, "Tab3List1")->count() != 5000) {
        state.SkipWithError("the list is not what the tree holds");
    }
}

QStringList fiveThousandEntries()
{
    return QStringList(5000, QString(75, 'x') + "  \\some_aircraft_folder");
}

void bareWrite(benchmark::State &state)
{
    LoadedPage loaded;
    findControl<ListBox>(loaded.page, "Tab3List7")->setItems(fiveThousandEntries());
    findControl<QCheckBox>(loaded.page, "Tab3chkDumpList")->click();
    const QByteArray bytes = sandbox->read("C:\\Morlen\\AircraftList.txt");
    const QString path = sandbox->host("C:\\Morlen\\Bare.txt");
    for ([[maybe_unused]] auto _ : state) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            state.SkipWithError("cannot write");
        }
    }
}

void dumpListing(benchmark::State &state)
{
    LoadedPage loaded;
    findControl<ListBox>(loaded.page, "Tab3List7")->setItems(fiveThousandEntries());
    auto *const box = findControl<QCheckBox>(loaded.page, "Tab3chkDumpList");
    for ([[maybe_unused]] auto _ : state) {
        box->click(); // answered No, which takes the tick away
    }
}

BENCHMARK(bareWalk)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(tab3LoadList)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bareWrite)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(dumpListing)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

int main(int argc, char *argv[])
{
    return tree_benchmark::run(argc, argv);
}
