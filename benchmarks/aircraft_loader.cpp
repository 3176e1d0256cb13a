// SPDX-License-Identifier: MIT
// Page 0's main operations beside a bare read of the same bytes.
#include "aircraft_loader/aircraft_loader_page.h"
#include "aircraft_loader/aircraft_text_file.h"
#include "aircraft_loader/title_match.h"
#include "benchmarks/tree_benchmark.h"
#include "platform/controls/list_box.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"

#include <QProcess>
#include <QRadioButton>

namespace
{

using tree_benchmark::bareWalk;
using tree_benchmark::sandbox;

/// Page 0 in a window of its own, on the measured tree.
struct LoadedPage {
    LoadedPage()
    {
        page.showDirectory(benchmark_tree::aircraftDir);
        page.show();
        page.restoreTextFile(benchmark_tree::textFile);
    }

    FakeOutside outside;
    Services services{outside.outside()};
    AircraftLoaderPage page{services};
};

void grep(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state) {
        QProcess process;
        process.start(
            "grep", {"-rihE", "^(title|cruise_speed)", sandbox->host(benchmark_tree::aircraftDir)});
        process.waitForFinished();
        benchmark::DoNotOptimize(process.readAllStandardOutput());
    }
}

void loadList(benchmark::State &state)
{
    LoadedPage loaded;
    for ([[maybe_unused]] auto _ : state) {
        loaded.page.LoadList();
    }
    if (findControl<ListBox>(loaded.page, "Tab0List2")->count() != 15000) {
        state.SkipWithError("the list is not what the tree holds");
    }
}

/// The search as one would write it down: every line through every entry.
QBitArray nestedSearch(const QStringList &lines, const QStringList &available)
{
    QBitArray used(available.size());
    for (const QString &line : lines) {
        const QString title = aircraft_text_file::titleIn(line);
        for (qsizetype i = 0; i < available.size(); ++i) {
            if (!used.testBit(i) && available[i].contains(title)) {
                used.setBit(i);
                break;
            }
        }
    }
    return used;
}

void matchNested(benchmark::State &state)
{
    const QStringList lines = benchmark_tree::existingLines();
    const QStringList available = benchmark_tree::availableEntries();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(nestedSearch(lines, available));
    }
}

void matchTitles(benchmark::State &state)
{
    const QStringList lines = benchmark_tree::existingLines();
    const QStringList available = benchmark_tree::availableEntries();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(matchTitles(lines, available));
    }
    if (matchTitles(lines, available).used != nestedSearch(lines, available)) {
        state.SkipWithError("not what the nested search finds");
    }
}

/// Page 0 in its window with the whole tree available, and nothing read.
struct FilledPage {
    FilledPage()
    {
        page.show();
        list->setItems(benchmark_tree::availableEntries());
        findControl<QWidget>(page, "optFrame")->setEnabled(true);
    }

    void showLists(bool visible) const
    {
        for (const char *name : {"Tab0List2", "Tab0List3", "Tab0Label1", "Tab0Label2"}) {
            findControl<QWidget>(page, name)->setVisible(visible);
        }
        for (const char *name : {"Tab0Label9", "ProgressBar1"}) {
            findControl<QWidget>(page, name)->setVisible(!visible);
        }
    }

    FakeOutside outside;
    Services services{outside.outside()};
    AircraftLoaderPage page{services};
    ListBox *list = findControl<ListBox>(page, "Tab0List2");
};

/// As LoadList does it: hidden, filled, shown and painted.
void fillList(benchmark::State &state)
{
    FilledPage filled;
    const QStringList entries = filled.list->items();
    for ([[maybe_unused]] auto _ : state) {
        filled.showLists(false);
        filled.list->setItems(entries);
        filled.showLists(true);
        QCoreApplication::processEvents();
    }
}

void checkAll(benchmark::State &state)
{
    FilledPage filled;
    auto *const all = findControl<QRadioButton>(filled.page, "optAll");
    for ([[maybe_unused]] auto _ : state) {
        all->click();
        QCoreApplication::processEvents();
    }
    if (filled.list->selectedCount() != filled.list->count()) {
        state.SkipWithError("not all are ticked");
    }
}

BENCHMARK(bareWalk)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(grep)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(loadList)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(matchNested)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(matchTitles)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(fillList)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(checkAll)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char *argv[])
{
    return tree_benchmark::run(argc, argv);
}
