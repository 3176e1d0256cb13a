// SPDX-License-Identifier: MIT
#include "platform/basic.h"
#include "tests/support/failure.h"

#include <QElapsedTimer>
#include <QLocale>
#include <QScopeGuard>
#include <QtTest>

class TestBasic : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valReadsALeadingNumberAsFarAsItGoes_data();
    void valReadsALeadingNumberAsFarAsItGoes();
    void valBeyondItsRangeOverflows_data();
    void valBeyondItsRangeOverflows();
    void millionsOfFiguresAreReadInNoTime_data();
    void millionsOfFiguresAreReadInNoTime();
    void strHasABlankWhereTheMinusWouldBe_data();
    void strHasABlankWhereTheMinusWouldBe();
    void wholeNumberTextIsDecimal_data();
    void wholeNumberTextIsDecimal();
    void midTakesWhatIsThere_data();
    void midTakesWhatIsThere();
    void midOfAnImpossiblePartIsAnInvalidCall_data();
    void midOfAnImpossiblePartIsAnInvalidCall();
    void inStrCountsFromOneAndGivesZeroForNothing_data();
    void inStrCountsFromOneAndGivesZeroForNothing();
    void trimTakesBlanksOnly_data();
    void trimTakesBlanksOnly();
    void integersAreSixteenBitsRoundedToEven_data();
    void integersAreSixteenBitsRoundedToEven();
    void textThatIsNoIntegerFails_data();
    void textThatIsNoIntegerFails();
    void sumsAreSixteenBits_data();
    void sumsAreSixteenBits();
    void datesAreEnglishInEveryLocale();
    void clockHasTwoFiguresEach();
};

void TestBasic::valReadsALeadingNumberAsFarAsItGoes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    const auto row = [](const char *text, double value) { QTest::newRow(text) << text << value; };
    row("", 0);
    row("250", 250);
    row("250.7", 250.7);
    row("-4.5", -4.5);
    row("+3", 3);
    row("- 3", -3);
    row("--3", 0);
    row("3-4", 3);
    row(" \t\n12", 12);
    row("1 615 198th Street", 1615198);
    row("2 4 and 57", 24);
    row("12\r3", 12);
    row("160 // knots", 160);
    row("250knots", 250);
    row("fast", 0);
    row("e5", 0);
    row(".", 0);
    row(".5", 0.5);
    row("5.", 5);
    row("1.2.3", 1.2);
    row("1,5", 1);
    row("1.5E2", 150);
    row("1.5e+2", 150);
    row("1.5D2", 150);
    row("15d-1", 1.5);
    row("1 E 2", 100);
    row("1.E2", 100);
    row("2e", 2);
    row("2e+", 2);
    row("2e+-1", 2);
    row("2e1e1", 20);
    row("2e1.5", 20);
    row("1e-400", 0);
    row("inf", 0);
    row("nan", 0);
    row("0x10", 0);
    row("&H1F", 31);
    row("&hfg", 15);
    row(" & H1F", 0);
    row("&H 1 F", 31);
    row("&HFFFF", -1);
    row("&H8000", -32768);
    row("&H10000", 65536);
    row("&HFFFFFFFF", -1);
    row("&O17", 15);
    row("&o18", 1);
    row("&H", 0);
    row("&X1", 0);
}

void TestBasic::valReadsALeadingNumberAsFarAsItGoes()
{
    QFETCH(QString, text);
    QTEST(basic::val(text), "value");
}

void TestBasic::valBeyondItsRangeOverflows_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("decimal") << "1e999";
    QTest::newRow("negative") << "-1e999";
    QTest::newRow("33 bits") << "&H100000000";
    QTest::newRow("400 figures") << QString(400, '9');
}

void TestBasic::valBeyondItsRangeOverflows()
{
    QFETCH(QString, text);
    QCOMPARE(failureOf([&] { basic::val(text); }), "6 Overflow");
}

void TestBasic::millionsOfFiguresAreReadInNoTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result"); // of toInteger16
    const QString zeros(2'000'000, '0');
    const QString ones(2'000'000, '1');
    QTest::newRow("too large") << ones << "6 Overflow";
    QTest::newRow("zeros in front") << zeros + "12"
                                    << "12";
    QTest::newRow("negative") << "-" + zeros + "12"
                              << "-12";
    QTest::newRow("small fraction") << "0." + zeros + "1"
                                    << "0";
    QTest::newRow("long fraction") << "12.4" + ones << "12";
    QTest::newRow("made small by its exponent") << "12" + zeros + "e-2000000"
                                                << "6 Overflow";
    QTest::newRow("exponent of many figures") << "1e" + ones << "6 Overflow";
    QTest::newRow("zeros in the exponent") << "12e" + zeros + "1"
                                           << "120";
    QTest::newRow("commas") << QString("1,").repeated(1'000'000) << "6 Overflow";
    QTest::newRow("no number") << ones + "x"
                               << "13 Type mismatch";
}

void TestBasic::millionsOfFiguresAreReadInNoTime()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    QElapsedTimer timer;
    timer.start();
    QString actual;
    const QString failure = failureOf([&] { actual = QString::number(basic::toInteger16(text)); });
    QCOMPARE(failure.isEmpty() ? actual : failure, result);
    QVERIFY2(timer.elapsed() < 2000, "far from linear"); // quadratic took minutes
}

void TestBasic::strHasABlankWhereTheMinusWouldBe_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("positive") << 53 << " 53";
    QTest::newRow("zero") << 0 << " 0";
    QTest::newRow("negative") << -53 << "-53";
}

void TestBasic::strHasABlankWhereTheMinusWouldBe()
{
    QFETCH(int, number);
    QTEST(basic::str(number), "text");
}

void TestBasic::wholeNumberTextIsDecimal_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0.0 << "0";
    QTest::newRow("negative zero") << -0.0 << "0";
    QTest::newRow("speed") << 250.0 << "250";
    QTest::newRow("negative") << -4.0 << "-4";
    QTest::newRow("fifteen figures") << 999999999999999.0 << "999999999999999";
    QTest::newRow("sixteen figures") << 1e15 << "1E+15";
    QTest::newRow("beyond 64 bits") << -1.5e20 << "-1.5E+20";
}

void TestBasic::wholeNumberTextIsDecimal()
{
    QFETCH(double, number);
    QTEST(basic::wholeNumberText(number), "text");
}

void TestBasic::midTakesWhatIsThere_data()
{
    QTest::addColumn<qsizetype>("position");
    QTest::addColumn<qsizetype>("count");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *name, qsizetype position, qsizetype count, const char *part) {
        QTest::newRow(name) << position << count << part;
    };
    row("start", 1, 2, "ab");
    row("middle", 2, 3, "bcd");
    row("more than there is", 4, 99, "de");
    row("last character", 5, 1, "e");
    row("behind the end", 6, 1, "");
    row("far behind the end", 99, 1, "");
    row("nothing", 2, 0, "");
}

void TestBasic::midTakesWhatIsThere()
{
    QFETCH(qsizetype, position);
    QFETCH(qsizetype, count);
    QTEST(basic::mid("abcde", position, count), "part");
}

void TestBasic::midOfAnImpossiblePartIsAnInvalidCall_data()
{
    QTest::addColumn<qsizetype>("position");
    QTest::addColumn<qsizetype>("count");
    QTest::newRow("position 0") << qsizetype(0) << qsizetype(1);
    QTest::newRow("negative position") << qsizetype(-1) << qsizetype(1);
    QTest::newRow("negative count") << qsizetype(1) << qsizetype(-1);
}

void TestBasic::midOfAnImpossiblePartIsAnInvalidCall()
{
    QFETCH(qsizetype, position);
    QFETCH(qsizetype, count);
    QCOMPARE(failureOf([&] { basic::mid("abcde", position, count); }),
             "5 Invalid procedure call or argument");
}

void TestBasic::inStrCountsFromOneAndGivesZeroForNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("needle");
    QTest::addColumn<qsizetype>("position");
    const auto row = [](const char *name, const char *text, const char *needle,
                        qsizetype position) { QTest::newRow(name) << text << needle << position; };
    row("first of two", "AC#12#", "#", 3);
    row("at the start", "#12", "#", 1);
    row("several characters", "C:\\fs9\\aircraft\\", "aircraft\\", 8);
    row("absent", "AC12", "#", 0);
    row("other case", "AC12", "c", 0);
    row("longer than the text", "a", "ab", 0);
    row("empty needle", "AC12", "", 1);
    row("empty text", "", "#", 0);
}

void TestBasic::inStrCountsFromOneAndGivesZeroForNothing()
{
    QFETCH(QString, text);
    QFETCH(QString, needle);
    QTEST(basic::inStr(text, needle), "position");
}

void TestBasic::trimTakesBlanksOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("trimmed");
    QTest::newRow("both ends") << "  Boeing 737  "
                               << "Boeing 737";
    QTest::newRow("tabs are text") << " \t7\t "
                                   << "\t7\t";
    QTest::newRow("hard blanks are text")
        << QString::fromUtf8(" \u00A07 ") << QString::fromUtf8("\u00A07");
    QTest::newRow("blanks only") << "   "
                                 << "";
    QTest::newRow("empty") << ""
                           << "";
}

void TestBasic::trimTakesBlanksOnly()
{
    QFETCH(QString, text);
    QFETCH(QString, trimmed);
    QCOMPARE(basic::trim(text), trimmed);
    QCOMPARE(basic::trim(QByteArrayView(text.toLatin1())).toByteArray(), trimmed.toLatin1());
}

void TestBasic::integersAreSixteenBitsRoundedToEven_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    const auto row = [](const char *text, int number) { QTest::newRow(text) << text << number; };
    row("0", 0);
    row("0007", 7);
    row(" 12 ", 12);
    row("+5", 5);
    row("-32768", -32768);
    row("32767", 32767);
    row("32767.4", 32767);
    row("-32768.5", -32768);
    row("0.5", 0);
    row("1.5", 2);
    row("2.5", 2);
    row("-1.5", -2);
    row("2.51", 3);
    row("1E3", 1000);
    row("1d3", 1000);
    row("1,000", 1000);
    row("&H10", 16);
    row("&HFFFF", -1);
    row(" &o17 ", 15);
}

void TestBasic::integersAreSixteenBitsRoundedToEven()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    int result = 0;
    QCOMPARE(failureOf([&] { result = basic::toInteger16(text); }), "");
    QCOMPARE(result, number);
}

void TestBasic::textThatIsNoIntegerFails_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("failure");
    const auto row = [](const char *text, const char *failure) {
        QTest::newRow(text) << text << failure;
    };
    for (const char *const text : {"", " ", "twelve", "12a", "1 2", "--1", "1e", "nan", "inf",
                                   "-infinity", "&", "&H", "&Hxy", "&O8", "&H12 knots"}) {
        row(text, "13 Type mismatch");
    }
    for (const char *const text : {"32768", "32767.5", "-32769", "-32768.6", "65536", "99999999999",
                                   "1e999", "&H10000", "&H100000000"}) {
        row(text, "6 Overflow");
    }
}

void TestBasic::textThatIsNoIntegerFails()
{
    QFETCH(QString, text);
    QTEST(failureOf([&] { basic::toInteger16(text); }), "failure");
}

void TestBasic::sumsAreSixteenBits_data()
{
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<QString>("result");
    QTest::newRow("small") << 2 << 1 << "3";
    QTest::newRow("highest") << 32766 << 1 << "32767";
    QTest::newRow("beyond the highest") << 32767 << 1 << "6 Overflow";
    QTest::newRow("lowest") << -32767 << -1 << "-32768";
    QTest::newRow("beyond the lowest") << -32768 << -1 << "6 Overflow";
}

void TestBasic::sumsAreSixteenBits()
{
    QFETCH(int, a);
    QFETCH(int, b);
    QString result;
    const QString failure =
        failureOf([&] { result = QString::number(basic::add16(static_cast<std::int16_t>(a), b)); });
    QTEST(result + failure, "result");
}

void TestBasic::datesAreEnglishInEveryLocale()
{
    const QLocale before;
    const auto restore = qScopeGuard([&] { QLocale::setDefault(before); });
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(basic::longDate(QDateTime({2026, 11, 1}, {14, 3, 27})), "Sunday, November 01, 2026");
    QCOMPARE(basic::longDate(QDateTime({987, 3, 12}, {0, 0})), "Monday, March 12, 0987");
}

void TestBasic::clockHasTwoFiguresEach()
{
    QCOMPARE(basic::clockTime(QDateTime({2026, 11, 1}, {0, 3, 7})), "00:03:07");
    QCOMPARE(basic::clockTime(QDateTime({2026, 11, 1}, {23, 59, 59, 999})), "23:59:59");
}

QTEST_APPLESS_MAIN(TestBasic)
#include "test_basic.moc"
