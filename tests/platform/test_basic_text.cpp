// SPDX-License-Identifier: MIT
// The text rules of the classic Basic runtime, and the errors it reports.
#include "platform/basic_text.h"
#include "tests/support/failure.h"

#include <QElapsedTimer>
#include <QLocale>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QtTest>

class TestBasicText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void errorsBearTheClassicNumbersAndDescriptions_data();
    void errorsBearTheClassicNumbersAndDescriptions();
    void valReadsALeadingNumberAsFarAsItGoes_data();
    void valReadsALeadingNumberAsFarAsItGoes();
    void valBeyondItsRangeOverflows_data();
    void valBeyondItsRangeOverflows();
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
    void lowerKeepsEveryPosition();
    void integersAreSixteenBitsRoundedToEven_data();
    void integersAreSixteenBitsRoundedToEven();
    void textThatIsNoIntegerFails_data();
    void textThatIsNoIntegerFails();
    void sumsAreSixteenBits_data();
    void sumsAreSixteenBits();
    void datesAreEnglishInEveryLocale();
    void clockHasTwoFiguresEach();
    void everyByteDecodesToItsCharacterAndBack();
    void windows1252CharactersAreThoseOfTheCodePage();
    void charactersTheCodePageLacksMakeTheFileUtf8_data();
    void charactersTheCodePageLacksMakeTheFileUtf8();
    void utf8BehindAMarkIsUnderstood();
    void lineEndsAreCrLfCrAndLf_data();
    void lineEndsAreCrLfCrAndLf();
    void lineReaderPassesOverAUtf8Mark();
    void lineReaderBeyondTheEndFails();
    void tenMegabyteLineIsOneLine();
    void millionLinesEndedByCrAloneAreReadInNoTime();
    void inputTakesValuesUpToCommaOrLineEnd_data();
    void inputTakesValuesUpToCommaOrLineEnd();
    void inputBeyondTheEndFails_data();
    void inputBeyondTheEndFails();
    void sortingIsBlindToCaseTiesByCode_data();
    void sortingIsBlindToCaseTiesByCode();
    void sortedPositionIsBehindEquals_data();
    void sortedPositionIsBehindEquals();
    void textsPutInOneByOneStandAsSorted();
};

void TestBasicText::errorsBearTheClassicNumbersAndDescriptions_data()
{
    QTest::addColumn<ErrorNumber>("error");
    QTest::addColumn<QString>("text");
    const auto row = [](ErrorNumber error, const char *text) {
        QTest::newRow(text) << error << QString(text);
    };
    row(ErrorNumber::InvalidProcedureCall, "5 Invalid procedure call or argument");
    row(ErrorNumber::Overflow, "6 Overflow");
    row(ErrorNumber::SubscriptOutOfRange, "9 Subscript out of range");
    row(ErrorNumber::TypeMismatch, "13 Type mismatch");
    row(ErrorNumber::BadFileName, "52 Bad file name or number");
    row(ErrorNumber::FileNotFound, "53 File not found");
    row(ErrorNumber::FileAlreadyOpen, "55 File already open");
    row(ErrorNumber::DeviceIoError, "57 Device I/O error");
    row(ErrorNumber::DiskFull, "61 Disk full");
    row(ErrorNumber::InputPastEnd, "62 Input past end of file");
    row(ErrorNumber::DeviceUnavailable, "68 Device unavailable");
    row(ErrorNumber::PermissionDenied, "70 Permission denied");
    row(ErrorNumber::PathFileAccess, "75 Path/File access error");
    row(ErrorNumber::PathNotFound, "76 Path not found");
}

void TestBasicText::errorsBearTheClassicNumbersAndDescriptions()
{
    QFETCH(ErrorNumber, error);
    QTEST(failureOf([&] { throw RuntimeError(error); }), "text");
    QCOMPARE(QString(RuntimeError(error).what()), RuntimeError(error).description());
}

void TestBasicText::valReadsALeadingNumberAsFarAsItGoes_data()
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

void TestBasicText::valReadsALeadingNumberAsFarAsItGoes()
{
    QFETCH(QString, text);
    QTEST(basic::val(text), "value");
}

void TestBasicText::valBeyondItsRangeOverflows_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("decimal") << "1e999";
    QTest::newRow("negative") << "-1e999";
    QTest::newRow("33 bits") << "&H100000000";
    QTest::newRow("400 figures") << QString(400, '9');
}

void TestBasicText::valBeyondItsRangeOverflows()
{
    QFETCH(QString, text);
    QCOMPARE(failureOf([&] { basic::val(text); }), "6 Overflow");
}

void TestBasicText::strHasABlankWhereTheMinusWouldBe_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("positive") << 53 << " 53";
    QTest::newRow("zero") << 0 << " 0";
    QTest::newRow("negative") << -53 << "-53";
}

void TestBasicText::strHasABlankWhereTheMinusWouldBe()
{
    QFETCH(int, number);
    QTEST(basic::str(number), "text");
}

void TestBasicText::wholeNumberTextIsDecimal_data()
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

void TestBasicText::wholeNumberTextIsDecimal()
{
    QFETCH(double, number);
    QTEST(basic::wholeNumberText(number), "text");
}

void TestBasicText::midTakesWhatIsThere_data()
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

void TestBasicText::midTakesWhatIsThere()
{
    QFETCH(qsizetype, position);
    QFETCH(qsizetype, count);
    QTEST(basic::mid("abcde", position, count), "part");
}

void TestBasicText::midOfAnImpossiblePartIsAnInvalidCall_data()
{
    QTest::addColumn<qsizetype>("position");
    QTest::addColumn<qsizetype>("count");
    QTest::newRow("position 0") << qsizetype(0) << qsizetype(1);
    QTest::newRow("negative position") << qsizetype(-1) << qsizetype(1);
    QTest::newRow("negative count") << qsizetype(1) << qsizetype(-1);
}

void TestBasicText::midOfAnImpossiblePartIsAnInvalidCall()
{
    QFETCH(qsizetype, position);
    QFETCH(qsizetype, count);
    QCOMPARE(failureOf([&] { basic::mid("abcde", position, count); }),
             "5 Invalid procedure call or argument");
}

void TestBasicText::inStrCountsFromOneAndGivesZeroForNothing_data()
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

void TestBasicText::inStrCountsFromOneAndGivesZeroForNothing()
{
    QFETCH(QString, text);
    QFETCH(QString, needle);
    QTEST(basic::inStr(text, needle), "position");
}

void TestBasicText::trimTakesBlanksOnly_data()
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

void TestBasicText::trimTakesBlanksOnly()
{
    QFETCH(QString, text);
    QFETCH(QString, trimmed);
    QCOMPARE(basic::trim(text), trimmed);
    QCOMPARE(basic::trim(QByteArrayView(text.toLatin1())).toByteArray(), trimmed.toLatin1());
}

void TestBasicText::lowerKeepsEveryPosition()
{
    QCOMPARE(basic::lower(u"C:\\AIRCRAFT\\[Fltsim.0] @`{"), "c:\\aircraft\\[fltsim.0] @`{");
    QCOMPARE(basic::lower(u"\u00C9\u00DC\u0178\u00DF"), u"\u00E9\u00FC\u00FF\u00DF");
    QCOMPARE(basic::lower(u"\u0130x").size(), 2); // the dotted I, longer when lowered as a word
}

void TestBasicText::integersAreSixteenBitsRoundedToEven_data()
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

void TestBasicText::integersAreSixteenBitsRoundedToEven()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    int result = 0;
    QCOMPARE(failureOf([&] { result = basic::toInteger16(text); }), "");
    QCOMPARE(result, number);
}

void TestBasicText::textThatIsNoIntegerFails_data()
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

void TestBasicText::textThatIsNoIntegerFails()
{
    QFETCH(QString, text);
    QTEST(failureOf([&] { basic::toInteger16(text); }), "failure");
}

void TestBasicText::sumsAreSixteenBits_data()
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

void TestBasicText::sumsAreSixteenBits()
{
    QFETCH(int, a);
    QFETCH(int, b);
    QString result;
    const QString failure =
        failureOf([&] { result = QString::number(basic::add16(static_cast<std::int16_t>(a), b)); });
    QTEST(result + failure, "result");
}

void TestBasicText::datesAreEnglishInEveryLocale()
{
    const QLocale before;
    const auto restore = qScopeGuard([&] { QLocale::setDefault(before); });
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(basic::longDate(QDateTime({2026, 11, 1}, {14, 3, 27})), "Sunday, November 01, 2026");
    QCOMPARE(basic::longDate(QDateTime({987, 3, 12}, {0, 0})), "Monday, March 12, 0987");
}

void TestBasicText::clockHasTwoFiguresEach()
{
    QCOMPARE(basic::clockTime(QDateTime({2026, 11, 1}, {0, 3, 7})), "00:03:07");
    QCOMPARE(basic::clockTime(QDateTime({2026, 11, 1}, {23, 59, 59, 999})), "23:59:59");
}

void TestBasicText::everyByteDecodesToItsCharacterAndBack()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const QString text = basic::decode(bytes);
    QCOMPARE(text.size(), 256);
    for (int byte = 0; byte < 256; ++byte) {
        if (byte < 0x80 || byte > 0x9F) {
            QCOMPARE(int(text[byte].unicode()), byte);
        }
    }
    QCOMPARE(basic::encode(text), bytes);
    QCOMPARE(basic::decodeCodePage(bytes), text);
}

void TestBasicText::windows1252CharactersAreThoseOfTheCodePage()
{
    QByteArray bytes;
    for (int byte = 0x80; byte < 0xA0; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const QString text = QString::fromUtf8("€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F"
                                           "\u0090‘’“”•–—˜™š›œ\u009DžŸ");
    QCOMPARE(basic::decode(bytes), text);
    QCOMPARE(basic::encode(text), bytes);
}

void TestBasicText::charactersTheCodePageLacksMakeTheFileUtf8_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Polish") << QString::fromUtf8("C:\\Gry\\Łódź");
    QTest::newRow("Japanese") << QString::fromUtf8("飛行機");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("a\U0001F6E9b");
    QTest::newRow("a control that is a character here") << QString(QChar(0x80));
}

void TestBasicText::charactersTheCodePageLacksMakeTheFileUtf8()
{
    QFETCH(QString, text);
    QCOMPARE(basic::encode(text), "\xEF\xBB\xBF" + text.toUtf8());
    QCOMPARE(basic::decode(basic::encode(text)), text);
}

void TestBasicText::utf8BehindAMarkIsUnderstood()
{
    QCOMPARE(basic::decode("\xEF\xBB\xBF\xC3\xA9\x00"), QString::fromUtf8("é"));
    QCOMPARE(basic::decode("\xEF\xBB\xBF"), "");
    QCOMPARE(basic::decode("\xC3\xA9"), QString::fromUtf8("Ã©")); // without one it is code page
    QCOMPARE(basic::decode("\xEF\xBB"), QString::fromUtf8("ï»"));
    QVERIFY(basic::isUtf8("\xEF\xBB\xBF"));
    QVERIFY(!basic::isUtf8("\xEF\xBB"));
    QCOMPARE(basic::encodeUtf8("a"), "\xEF\xBB\xBF"
                                     "a");
}

void TestBasicText::lineEndsAreCrLfCrAndLf_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char *name, const QByteArray &bytes, const QStringList &lines) {
        QTest::newRow(name) << bytes << lines;
    };
    row("empty", "", {});
    row("CR LF", "a\r\nb\r\n", {"a", "b"});
    row("LF", "a\nb\n", {"a", "b"});
    row("CR", "a\rb\r", {"a", "b"});
    row("mixed", "a\rb\nc\r\nd", {"a", "b", "c", "d"});
    row("no final line end", "a\r\nb", {"a", "b"});
    row("blank lines", "\r\n\r\na\r\n\r\n", {"", "", "a", ""});
    row("CR CR LF", "a\r\r\nb", {"a", "", "b"});
    row("LF CR", "a\n\rb", {"a", "", "b"});
    row("one line end", "\n", {""});
    row("CR at the very end", "a\nb\r", {"a", "b"});
    row("NUL bytes", QByteArray("a\0b\r\n\0", 6), {QString("a") + QChar(0) + 'b', QChar(0)});
    row("high bytes", "\xE9\x80\r\n\x85", {QString::fromUtf8("é€"), QString::fromUtf8("…")});
    row("end-of-file mark", "a\r\n\x1A", {"a", "\x1A"});
}

void TestBasicText::lineEndsAreCrLfCrAndLf()
{
    QFETCH(QByteArray, bytes);
    QTEST(basic::lines(bytes), "lines");
}

void TestBasicText::lineReaderPassesOverAUtf8Mark()
{
    QCOMPARE(basic::lines("\xEF\xBB\xBF[fltsim.0]\r\n\xC3\xA9"),
             (QStringList{"[fltsim.0]", QString::fromUtf8("Ã©")}));
    QCOMPARE(basic::lines("\xEF\xBB\xBF"), QStringList());
    QCOMPARE(basic::lines("a\n\xEF\xBB\xBF"), (QStringList{"a", QString::fromUtf8("ï»¿")}));
}

void TestBasicText::lineReaderBeyondTheEndFails()
{
    basic::LineReader reader("only\r\n");
    QCOMPARE(reader.next().toByteArray(), "only");
    QVERIFY(reader.atEnd());
    QCOMPARE(failureOf([&] { reader.next(); }), "62 Input past end of file");
}

void TestBasicText::tenMegabyteLineIsOneLine()
{
    const QByteArray line(10'000'000, 'x');
    const QByteArray bytes = line + "\r\nnext";
    basic::LineReader reader(bytes);
    QVERIFY(reader.next() == line);
    QCOMPARE(reader.next().toByteArray(), "next");
    QVERIFY(reader.atEnd());
}

void TestBasicText::millionLinesEndedByCrAloneAreReadInNoTime()
{
    constexpr int count = 1'000'000;
    const QByteArray bytes = QByteArray("AC#1,250,\"\"\r").repeated(count);
    basic::LineReader reader(bytes);
    QElapsedTimer timer;
    timer.start();
    int lines = 0;
    for (; !reader.atEnd() && timer.elapsed() < 10'000; ++lines) {
        reader.next();
    }
    QCOMPARE(lines, count); // a search to the end of the file at each line would take minutes
}

void TestBasicText::inputTakesValuesUpToCommaOrLineEnd_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("values");
    const auto row = [](const char *name, const QString &text, const QStringList &values) {
        QTest::newRow(name) << text << values;
    };
    row("nothing", "", {});
    row("CR LF", "0\r\nC:\\TTools\\TTools.exe\r\n", {"0", "C:\\TTools\\TTools.exe"});
    row("LF", "0\nc:\n", {"0", "c:"});
    row("CR", "0\rc:\r", {"0", "c:"});
    row("no final line end", "0\r\nc:", {"0", "c:"});
    row("empty lines", "\r\n\r\nc:\r\n", {"", "", "c:"});
    row("commas", "a,b c,,d", {"a", "b c", "", "d"});
    row("leading blanks", "  a,  b", {"a", "b"});
    row("trailing blanks", "a  ,b  \r\n", {"a  ", "b  "});
    row("quotes", "\"a,b\",c", {"a,b", "c"});
    row("quotes over lines", "\"a\r\nb\"\r\nc", {"a\r\nb", "c"});
    row("blanks behind quotes", "\"a\"  ,b", {"a", "b"});
    row("empty quotes", "\"\"\r\nb", {"", "b"});
    row("quotes that are not closed", "\"a,b", {"a,b"});
    row("quote at the end", "\"", {""});
    row("quote inside", "a\"b,c", {"a\"b", "c"});
    row("NUL", QString("a") + QChar(0) + "b,c", {QString("a") + QChar(0) + 'b', "c"});
}

void TestBasicText::inputTakesValuesUpToCommaOrLineEnd()
{
    QFETCH(QString, text);
    basic::SequentialInput input(text);
    QStringList values;
    QCOMPARE(failureOf([&] {
                 for (;;) {
                     values += input.next();
                 }
             }),
             "62 Input past end of file");
    QTEST(values, "values");
}

void TestBasicText::inputBeyondTheEndFails_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("blanks") << "   ";
}

void TestBasicText::inputBeyondTheEndFails()
{
    QFETCH(QString, text);
    basic::SequentialInput input(text);
    QCOMPARE(failureOf([&] { input.next(); }), "62 Input past end of file");
    QCOMPARE(failureOf([&] { input.next(); }), "62 Input past end of file");
}

void TestBasicText::sortingIsBlindToCaseTiesByCode_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("sorted");
    const auto row = [](const char *name, const QStringList &texts, const QStringList &sorted) {
        QTest::newRow(name) << texts << sorted;
    };
    row("empty", {}, {});
    row("one", {"b"}, {"b"});
    row("already sorted", {"a", "B", "c"}, {"a", "B", "c"});
    row("blind to case", {"b", "C", "A", "d"}, {"A", "b", "C", "d"});
    row("ties by code", {"mali", "MALI", "Mali"}, {"MALI", "Mali", "mali"});
    row("equals stay", {"b", "a", "b"}, {"a", "b", "b"});
    row("case tells only whole texts", {"ab", "AC", "aB"}, {"aB", "ab", "AC"});
    row("beginning first", {"Guinea-Bissau", "Guinea", ""}, {"", "Guinea", "Guinea-Bissau"});
    row("slash before figures and letters", {"KSEA", "0S9", "//Added", "a"},
        {"//Added", "0S9", "a", "KSEA"});
    row("underscore before letters", {"A", "_", "a"}, {"_", "A", "a"});
    row("accents behind the alphabet",
        {QString::fromUtf8("Écija"), "zulu", "Edam", QString::fromUtf8("éa")},
        {"Edam", "zulu", QString::fromUtf8("éa"), QString::fromUtf8("Écija")});
}

void TestBasicText::sortingIsBlindToCaseTiesByCode()
{
    QFETCH(QStringList, texts);
    basic::sortBlindToCase(texts);
    QTEST(texts, "sorted");
}

void TestBasicText::sortedPositionIsBehindEquals_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("text");
    QTest::addColumn<qsizetype>("position");
    const auto row = [](const char *name, const QStringList &texts, const char *text,
                        qsizetype position) { QTest::newRow(name) << texts << text << position; };
    row("empty list", {}, "a", 0);
    row("first", {"B", "c"}, "a", 0);
    row("between", {"A", "c"}, "B", 1);
    row("last", {"A", "b"}, "C", 2);
    row("behind equals", {"a", "b", "b", "c"}, "b", 3);
    row("before its lower case", {"a", "mali", "z"}, "MALI", 1);
    row("behind its upper case", {"a", "MALI", "z"}, "mali", 2);
}

void TestBasicText::sortedPositionIsBehindEquals()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, text);
    QTEST(basic::sortedPosition(texts, text), "position");
}

void TestBasicText::textsPutInOneByOneStandAsSorted()
{
    QRandomGenerator random(20);
    QStringList texts;
    QStringList inserted;
    for (int i = 0; i < 1000; ++i) {
        QString text;
        for (int length = random.bounded(5); length > 0; --length) {
            text += QString::fromUtf8("aAbBzéÉ/_0")[random.bounded(10)];
        }
        texts += text;
        inserted.insert(basic::sortedPosition(inserted, text), text);
    }
    basic::sortBlindToCase(texts);
    QCOMPARE(inserted, texts);
}

QTEST_APPLESS_MAIN(TestBasicText)
#include "test_basic_text.moc"
