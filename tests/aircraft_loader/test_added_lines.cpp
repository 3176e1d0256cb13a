// SPDX-License-Identifier: MIT
#include "aircraft_loader/added_lines.h"

#include "aircraft_loader/aircraft_text_file.h"
#include "tests/support/steps.h"

#include <QLocale>
#include <QScopeGuard>
#include <QtTest>

#include <limits>

namespace
{

/// An addition to a file.
struct Addition {
    explicit Addition(std::int16_t aircraftCount = 0, std::int16_t number = 0)
    {
        file.AircraftCount = aircraftCount;
        file.Number = number;
    }

    QString ask(const QString &entry) { return lines.linesFor(entry, time, steps.step); }

    QString add(const QString &entry)
    {
        const QString asked = ask(entry);
        lines.written();
        return asked;
    }

    Steps steps;
    AircraftTextFile file;
    AddedLines lines{file};
    QDateTime time = QDateTime({2026, 11, 1}, {14, 3, 27}); // a Sunday
};

const QString usualComment =
    QStringLiteral("//AI Aircraft Added Sunday, November 01, 2026 14:03:27\r\n");

} // namespace

class TestAddedLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesAreNumberedOnBelowOneComment();
    void nextAdditionHasACommentOfItsOwnAndNumbersOn();
    void numberMovesOnOnlyWithALineThatWasWritten();
    void commentHoldsLongDateAndClock_data();
    void commentHoldsLongDateAndClock();
    void commentIsEnglishInEveryLocale();
    void entryIsTakenApartAtTheBlankBeforeItsSpeed_data();
    void entryIsTakenApartAtTheBlankBeforeItsSpeed();
    void speedOfFiveFiguresTakesTheValuesOfTheEntryBefore();
    void speedOfFiveFiguresFirstHasNoValues();
    void figureBeyond32767IsAnOverflow_data();
    void figureBeyond32767IsAnOverflow();
};

void TestAddedLines::linesAreNumberedOnBelowOneComment()
{
    Addition addition(3, 9);
    QCOMPARE(addition.add("Boeing 250"), usualComment + "AC#10,250,\"Boeing\"\r\n");
    QCOMPARE(addition.steps.ErrMsg, QString("Numbering Boeing"));
    QCOMPARE(addition.add("Airbus 454"), QString("AC#11,454,\"Airbus\"\r\n"));
}

void TestAddedLines::nextAdditionHasACommentOfItsOwnAndNumbersOn()
{
    Addition first;
    first.add("Boeing 250");
    Addition second(first.file.AircraftCount, first.file.Number);
    QCOMPARE(second.add("Airbus 454"), usualComment + "AC#2,454,\"Airbus\"\r\n");
}

void TestAddedLines::numberMovesOnOnlyWithALineThatWasWritten()
{
    Addition addition(3, 9);
    addition.ask("Boeing 250");
    QVERIFY(!addition.lines.any());
    QCOMPARE(addition.add("Airbus 454"), usualComment + "AC#10,454,\"Airbus\"\r\n");
    QVERIFY(addition.lines.any());
    addition.ask("Boeing 250");
    QCOMPARE(addition.file.Number, 10);
    QCOMPARE(addition.file.AircraftCount, 4);
    QCOMPARE(addition.file.lines, QStringList{"AC#10,454,\"Airbus\""});
}

void TestAddedLines::commentHoldsLongDateAndClock_data()
{
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<QString>("comment");
    QTest::newRow("one-figure day") << QDateTime({2026, 11, 1}, {14, 3, 27})
                                    << "//AI Aircraft Added Sunday, November 01, 2026 14:03:27";
    QTest::newRow("midnight") << QDateTime({2024, 2, 29}, {0, 0, 0})
                              << "//AI Aircraft Added Thursday, February 29, 2024 00:00:00";
    QTest::newRow("one-figure hour") << QDateTime({2026, 5, 31}, {9, 5, 4})
                                     << "//AI Aircraft Added Sunday, May 31, 2026 09:05:04";
}

void TestAddedLines::commentHoldsLongDateAndClock()
{
    QFETCH(QDateTime, time);
    QFETCH(QString, comment);
    Addition addition;
    addition.time = time;
    QCOMPARE(addition.add("Boeing 250"), comment + "\r\nAC#1,250,\"Boeing\"\r\n");
}

void TestAddedLines::commentIsEnglishInEveryLocale()
{
    const QLocale before;
    const auto restore = qScopeGuard([&] { QLocale::setDefault(before); });
    QLocale::setDefault(QLocale(QLocale::German));
    Addition addition;
    QVERIFY(addition.add("Boeing 250").startsWith(usualComment));
}

void TestAddedLines::entryIsTakenApartAtTheBlankBeforeItsSpeed_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("fields");
    QTest::newRow("one figure") << "Boeing 5"
                                << "5,\"Boeing\"";
    QTest::newRow("two figures") << "Boeing 55"
                                 << "55,\"Boeing\"";
    QTest::newRow("three figures") << "Boeing 555"
                                   << "555,\"Boeing\"";
    QTest::newRow("four figures") << "Boeing 5555"
                                  << "5555,\"Boeing\"";
    QTest::newRow("title ends in a short word") << "Boeing 7 250"
                                                << "250,\"Boeing 7\"";
    QTest::newRow("title ends in a figure") << "B 7 5"
                                            << "5,\"B 7\"";
    QTest::newRow("minus") << "Boeing -4"
                           << "-4,\"Boeing\"";
    QTest::newRow("title of one character") << "B 5"
                                            << "5,\"B\"";
}

void TestAddedLines::entryIsTakenApartAtTheBlankBeforeItsSpeed()
{
    QFETCH(QString, entry);
    QFETCH(QString, fields);
    Addition addition;
    addition.add("before 9");
    QCOMPARE(addition.add(entry), "AC#2," + fields + "\r\n");
}

void TestAddedLines::speedOfFiveFiguresTakesTheValuesOfTheEntryBefore()
{
    Addition addition;
    addition.add("Airbus 454");
    QCOMPARE(addition.add("Boeing 12345"), QString("AC#2,454,\"Airbus\"\r\n"));
}

void TestAddedLines::speedOfFiveFiguresFirstHasNoValues()
{
    Addition addition;
    QCOMPARE(addition.add("Boeing 12345"), usualComment + "AC#1,,\"\"\r\n");
}

void TestAddedLines::figureBeyond32767IsAnOverflow_data()
{
    QTest::addColumn<int>("aircraftCount");
    QTest::addColumn<int>("number");
    constexpr int most = std::numeric_limits<std::int16_t>::max();
    QTest::newRow("count") << most << 1;
    QTest::newRow("number") << 1 << most;
}

void TestAddedLines::figureBeyond32767IsAnOverflow()
{
    QFETCH(int, aircraftCount);
    QFETCH(int, number);
    Addition addition(static_cast<std::int16_t>(aircraftCount), static_cast<std::int16_t>(number));
    QCOMPARE(addition.steps.failureOf([&](Step &) { addition.add("Boeing 250"); }),
             QString("6 Overflow: Numbering Boeing"));
}

QTEST_APPLESS_MAIN(TestAddedLines)
#include "test_added_lines.moc"
