// SPDX-License-Identifier: MIT
// Page 1's main operations on the shipped list and on one ten times as long, beside two bare reads
// of the same file: whole, in one call, and line by line.
#include "airport_loader/airport_loader_page.h"
#include "app/services/services.h"

#include "platform/controls/drag_list_box.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"
#include "tests/support/sandbox.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>

#include <benchmark/benchmark.h>

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

/// Page 1 in a window of its own, with a list in place.
struct AirportPage {
    explicit AirportPage(int times)
    {
        sandbox.write(listPath, repeatedList(times));
        sandbox.write(textFile, "");
        page.LoadCountry();
        page.show();
    }

    void chooseFile()
    {
        outside.dialogs.files = {textFile};
        findControl<QPushButton>(page, "Tab1cmdBrowse")->click();
    }

    void open(const QString &entry)
    {
        available->setListIndex(static_cast<int>(available->items().indexOf(entry)));
        Q_EMIT available->entryDoubleClicked();
        QCoreApplication::processEvents();
    }

    void choose(const QString &entry)
    {
        available->setListIndex(static_cast<int>(available->items().indexOf(entry)));
        Q_EMIT chosen->dropped(entry);
    }

    void previous() { findControl<QPushButton>(page, "Tab1cmdPrevious")->click(); }

    Sandbox sandbox;
    FakeOutside outside;
    Services services{outside.outside()};
    AirportLoaderPage page{services};
    DragListBox *available = findControl<DragListBox>(page, "Tab1List1");
    DragListBox *chosen = findControl<DragListBox>(page, "Tab1List2");
};

void bareRead(benchmark::State &state)
{
    const AirportPage loaded(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        QFile file(loaded.sandbox.host(listPath));
        benchmark::DoNotOptimize(file.open(QIODevice::ReadOnly));
        benchmark::DoNotOptimize(file.readAll());
    }
}

void bareReadByLine(benchmark::State &state)
{
    const AirportPage loaded(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        QFile file(loaded.sandbox.host(listPath));
        benchmark::DoNotOptimize(file.open(QIODevice::ReadOnly));
        while (!file.atEnd()) {
            benchmark::DoNotOptimize(file.readLine());
        }
    }
}

void countryList(benchmark::State &state)
{
    AirportPage loaded(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        loaded.available->clear();
        loaded.page.LoadCountry();
        QCoreApplication::processEvents();
    }
}

/// Opens a country, without the way back.
void openCountry(benchmark::State &state, const QString &country)
{
    AirportPage loaded(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        loaded.open(country);
        state.PauseTiming();
        loaded.previous();
        state.ResumeTiming();
    }
}

void provinceList(benchmark::State &state)
{
    openCountry(state, "United States");
}

void airportList(benchmark::State &state)
{
    openCountry(state, "Brazil"); // the largest country without provinces
}

/// Presses the button with the choices made; the answer is not to view the file.
void append(benchmark::State &state, AirportPage &loaded, const std::function<void()> &choose)
{
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        loaded.sandbox.write(textFile, "");
        loaded.chooseFile();
        choose();
        state.ResumeTiming();
        findControl<QPushButton>(loaded.page, "Tab1cmdCreateFile")->click();
    }
}

void append1000Airports(benchmark::State &state)
{
    AirportPage loaded(static_cast<int>(state.range(0)));
    append(state, loaded, [&] {
        loaded.open("Brazil");
        for (int i = 0; i < 1000; ++i) {
            loaded.choose(loaded.available->text(0));
        }
    });
}

void appendLargestCountry(benchmark::State &state)
{
    AirportPage loaded(static_cast<int>(state.range(0)));
    append(state, loaded, [&] { loaded.choose("United States"); });
}

BENCHMARK(bareRead)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bareReadByLine)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(countryList)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(provinceList)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(airportList)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(append1000Airports)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(appendLargestCountry)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
