// SPDX-License-Identifier: MIT
// Page 0's main operations beside a bare read of the same bytes.
#include "aircraft_loader/aircraft_loader_page.h"
#include "aircraft_loader/aircraft_text_file.h"
#include "aircraft_loader/title_match.h"
#include "app/services/services.h"
#include "app/services/set_in_progress.h"
#include "benchmarks/tree.h"
#include "benchmarks/turns.h"
#include "platform/controls/list_box.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"

#include <QApplication>
#include <QBitArray>
#include <QRadioButton>

namespace
{

/// Page 0 in a window of its own, on the measured tree.
struct LoadedPage {
    LoadedPage()
    {
        page.showDirectory(benchmark_tree::aircraftDir);
        page.show();
        services.state.AircraftTextDir = benchmark_tree::textFile;
    }

    FakeOutside outside;
    Services services{outside.outside()};
    SetInProgress set;
    AircraftLoaderPage page{services, set};
};

void loadList(const Sandbox &sandbox)
{
    LoadedPage loaded;
    const auto walk = [&] { benchmark_tree::bareWalk(sandbox); };
    const auto grep = [&] { benchmark_tree::grep(sandbox); };
    const auto load = [&] { loaded.page.LoadList(); };
    const auto forget = [&] { benchmark_tree::dropFromCache(sandbox); };
    takeTurns("Page 0, 5,000 folders, 20,000 titles", 25,
              {{"bare walk", walk},
               {"grep", grep, {{"bare walk"}}},
               {"LoadList", load, {{"bare walk", 2}, {"grep", 0.7}}}});
    takeTurns("The same with no file in the cache", 7,
              {{"bare walk", walk, {}, forget},
               {"grep", grep, {{"bare walk"}}, forget},
               {"LoadList", load, {{"bare walk"}, {"grep", 1}}, forget}});
    if (findControl<ListBox>(loaded.page, "Tab0List2")->count() != 15000) {
        qFatal("the list is not what the tree holds");
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

void matching()
{
    const QStringList lines = benchmark_tree::existingLines();
    const QStringList available = benchmark_tree::availableEntries();
    QBitArray used;
    QBitArray usedAsNested;
    takeTurns("Page 0, matching 5,000 lines with 20,000 entries", 5,
              {{"nested search", [&] { usedAsNested = nestedSearch(lines, available); }},
               {"matchTitles",
                [&] { used = matchTitles(lines, available).used; },
                {{"nested search", 0.02}}}});
    if (used != usedAsNested) {
        qFatal("not what the nested search finds");
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
    SetInProgress set;
    AircraftLoaderPage page{services, set};
    ListBox *list = findControl<ListBox>(page, "Tab0List2");
};

void lists()
{
    FilledPage filled;
    const QStringList entries = filled.list->items();
    auto *const all = findControl<QRadioButton>(filled.page, "optAll");
    takeTurns("Page 0, 20,000 entries, painted", 25,
              {// As LoadList does it.
               {"hiding, filling, showing",
                [&] {
                    filled.showLists(false);
                    filled.list->setItems(entries);
                    filled.showLists(true);
                    QCoreApplication::processEvents();
                }},
               {"ticking all",
                [&] {
                    all->click();
                    QCoreApplication::processEvents();
                },
                {{"hiding, filling, showing"}}}});
    if (filled.list->selectedCount() != filled.list->count()) {
        qFatal("not all are ticked");
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const Sandbox sandbox;
    benchmark_tree::make(sandbox);
    loadList(sandbox);
    matching();
    lists();
    return 0;
}
