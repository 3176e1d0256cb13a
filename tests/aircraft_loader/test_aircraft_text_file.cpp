// SPDX-License-Identifier: MIT
// Reading and writing the lines of an aircraft text file.
#include "aircraft_loader/aircraft_text_file.h"
#include "platform/code_page.h"
#include "tests/support/failure.h"

#include <QtTest>

class TestAircraftTextFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyFileHasNoLines();
    void everyLineButCommentsIsListedInFileOrder();
    void lineBeginningWithSemicolonOrSlashesIsNeitherListedNorCounted_data();
    void lineBeginningWithSemicolonOrSlashesIsNeitherListedNorCounted();
    void commentMarkBehindABlankMakesNoComment();
    void singleSlashMakesNoComment();
    void blankLineIsListedNotCounted();
    void lineOfExactlyTenCharactersIsListedNotCounted();
    void lineOfElevenCharactersIsCounted();
    void numbers7Then2LeaveNumberAt2();
    void readingAgainStartsFromZero();
    void numberIsConvertedToSixteenBits_data();
    void numberIsConvertedToSixteenBits();
    void numberThatCannotBeReadFails_data();
    void numberThatCannotBeReadFails();
    void aircraftLineWithoutNumberSignOrCommaGivesAWrongNumberOrFails_data();
    void aircraftLineWithoutNumberSignOrCommaGivesAWrongNumberOrFails();
    void failureKeepsTheLinesBeforeAndTheLineItself();
    void lineEndsAreCrLfCrAndLf_data();
    void lineEndsAreCrLfCrAndLf();
    void utf8MarkIsPassedOver();
    void everyByteOfATitleComesBack();
    void nulBytesAreText();
    void lineOfTenMegabytesIsOneLine();
    void countEndsAt32767();
    void fileOf200000LinesIsReadWhole();
    void titleIsWhatFollowsTheFirstQuoteLessTheLastCharacter_data();
    void titleIsWhatFollowsTheFirstQuoteLessTheLastCharacter();
    void quoteAsLastCharacterIsNoTitle();
    void folderAndCaptionGoByTheFirstAircraftOfThePath_data();
    void folderAndCaptionGoByTheFirstAircraftOfThePath();
};

void TestAircraftTextFile::emptyFileHasNoLines()
{
    AircraftTextFile file;
    file.read("");
    QCOMPARE(file.lines, QStringList());
    QCOMPARE(file.AircraftCount, std::int16_t(0));
    QCOMPARE(file.Number, std::int16_t(0));
}

void TestAircraftTextFile::everyLineButCommentsIsListedInFileOrder()
{
    AircraftTextFile file;
    file.read("//AI Aircraft Added Sunday, November 01, 2026 14:03:27\r\n"
              "AC#12,250,\"Zulu\"\r\n"
              "\r\n"
              "; by hand\r\n"
              "AC#13,99,\"Alpha\"\r\n"
              "short\r\n");
    QCOMPARE(file.lines, (QStringList{"AC#12,250,\"Zulu\"", "", "AC#13,99,\"Alpha\"", "short"}));
    QCOMPARE(file.AircraftCount, std::int16_t(2));
    QCOMPARE(file.Number, std::int16_t(13));
}

void TestAircraftTextFile::lineBeginningWithSemicolonOrSlashesIsNeitherListedNorCounted_data()
{
    QTest::addColumn<QByteArray>("mark");
    QTest::newRow("semicolon") << QByteArray(";");
    QTest::newRow("two slashes") << QByteArray("//");
}

void TestAircraftTextFile::lineBeginningWithSemicolonOrSlashesIsNeitherListedNorCounted()
{
    QFETCH(QByteArray, mark);
    AircraftTextFile file;
    file.read("AC#3,100,\"One\"\r\n" + mark + "AC#12,250,\"Boeing 737 Blue\"\r\n");
    QCOMPARE(file.lines, QStringList{"AC#3,100,\"One\""});
    QCOMPARE(file.AircraftCount, std::int16_t(1));
    QCOMPARE(file.Number, std::int16_t(3));
}

void TestAircraftTextFile::commentMarkBehindABlankMakesNoComment()
{
    AircraftTextFile file;
    file.read(" ;AC#12,250,\"Boeing\"\r\n");
    QCOMPARE(file.lines, QStringList{" ;AC#12,250,\"Boeing\""});
    QCOMPARE(file.AircraftCount, std::int16_t(1));
}

void TestAircraftTextFile::singleSlashMakesNoComment()
{
    AircraftTextFile file;
    file.read("/AC#12,250,\"Boeing\"\r\n/\r\n");
    QCOMPARE(file.lines, (QStringList{"/AC#12,250,\"Boeing\"", "/"}));
    QCOMPARE(file.AircraftCount, std::int16_t(1));
}

void TestAircraftTextFile::blankLineIsListedNotCounted()
{
    AircraftTextFile file;
    file.read("\r\nAC#1,250,\"Boeing\"\r\n\r\n");
    QCOMPARE(file.lines, (QStringList{"", "AC#1,250,\"Boeing\"", ""}));
    QCOMPARE(file.AircraftCount, std::int16_t(1));
}

void TestAircraftTextFile::lineOfExactlyTenCharactersIsListedNotCounted()
{
    AircraftTextFile file;
    file.read("AC#9,25,\"A\r\n");
    QCOMPARE(file.lines, QStringList{"AC#9,25,\"A"});
    QCOMPARE(file.lines[0].size(), 10);
    QCOMPARE(file.AircraftCount, std::int16_t(0));
    QCOMPARE(file.Number, std::int16_t(0));
}

void TestAircraftTextFile::lineOfElevenCharactersIsCounted()
{
    AircraftTextFile file;
    file.read("AC#9,25,\"A\"\r\n");
    QCOMPARE(file.lines[0].size(), 11);
    QCOMPARE(file.AircraftCount, std::int16_t(1));
    QCOMPARE(file.Number, std::int16_t(9));
}

void TestAircraftTextFile::numbers7Then2LeaveNumberAt2()
{
    AircraftTextFile file;
    file.read("AC#7,250,\"Seven\"\r\nAC#2,250,\"Two\"\r\n");
    QCOMPARE(file.Number, std::int16_t(2));
    QCOMPARE(file.AircraftCount, std::int16_t(2));
}

void TestAircraftTextFile::readingAgainStartsFromZero()
{
    AircraftTextFile file;
    file.read("AC#7,250,\"Seven\"\r\n");
    file.read("short\r\n");
    QCOMPARE(file.lines, QStringList{"short"});
    QCOMPARE(file.AircraftCount, std::int16_t(0));
    QCOMPARE(file.Number, std::int16_t(0));
}

void TestAircraftTextFile::numberIsConvertedToSixteenBits_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<int>("expected");
    QTest::newRow("largest") << QByteArray("32767") << 32767;
    QTest::newRow("smallest") << QByteArray("-32768") << -32768;
    QTest::newRow("blanks around it") << QByteArray(" 12 ") << 12;
    QTest::newRow("leading zeros") << QByteArray("007") << 7;
    QTest::newRow("half below an odd number") << QByteArray("2.5") << 2;
    QTest::newRow("half below an even number") << QByteArray("3.5") << 4;
    QTest::newRow("rounds down to the largest") << QByteArray("32767.4") << 32767;
    QTest::newRow("exponent") << QByteArray("1E2") << 100;
}

void TestAircraftTextFile::numberIsConvertedToSixteenBits()
{
    QFETCH(QByteArray, number);
    QFETCH(int, expected);
    AircraftTextFile file;
    file.read("AC#" + number + ",250,\"Boeing\"\r\n");
    QCOMPARE(int(file.Number), expected);
}

void TestAircraftTextFile::numberThatCannotBeReadFails_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<QString>("failure");
    QTest::newRow("32768") << QByteArray("32768") << "6 Overflow";
    QTest::newRow("rounds up to 32768") << QByteArray("32767.5") << "6 Overflow";
    QTest::newRow("-32769") << QByteArray("-32769") << "6 Overflow";
    QTest::newRow("beyond any number") << QByteArray("1E999") << "6 Overflow";
    QTest::newRow("a word") << QByteArray("twelve") << "13 Type mismatch";
    QTest::newRow("figures and a letter") << QByteArray("12a") << "13 Type mismatch";
    QTest::newRow("nothing") << QByteArray("") << "13 Type mismatch";
    QTest::newRow("a blank") << QByteArray(" ") << "13 Type mismatch";
    QTest::newRow("no number by name") << QByteArray("nan") << "13 Type mismatch";
}

void TestAircraftTextFile::numberThatCannotBeReadFails()
{
    QFETCH(QByteArray, number);
    QFETCH(QString, failure);
    AircraftTextFile file;
    QCOMPARE(failureOf([&] { file.read("AC#" + number + ",250,\"Boeing\"\r\n"); }), failure);
}

void TestAircraftTextFile::aircraftLineWithoutNumberSignOrCommaGivesAWrongNumberOrFails_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<int>("number");
    QTest::newRow("no sign, figures first") << QByteArray("12,250,\"Boeing\"") << "" << 12;
    QTest::newRow("no sign, word first")
        << QByteArray("AC12,250,\"Boeing\"") << "13 Type mismatch" << 0;
    QTest::newRow("no comma") << QByteArray("AC#12 250 \"Boeing\"")
                              << "5 Invalid procedure call or argument" << 0;
    QTest::newRow("neither") << QByteArray("AC12 250 \"Boeing\"")
                             << "5 Invalid procedure call or argument" << 0;
    QTest::newRow("comma before the sign")
        << QByteArray("AC,12#250,\"Boeing\"") << "5 Invalid procedure call or argument" << 0;
    QTest::newRow("sign only in the title")
        << QByteArray("12,250,\"Boeing #1\"") << "5 Invalid procedure call or argument" << 0;
}

void TestAircraftTextFile::aircraftLineWithoutNumberSignOrCommaGivesAWrongNumberOrFails()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, failure);
    QFETCH(int, number);
    AircraftTextFile file;
    QCOMPARE(failureOf([&] { file.read(line); }), failure);
    QCOMPARE(int(file.Number), number);
}

void TestAircraftTextFile::failureKeepsTheLinesBeforeAndTheLineItself()
{
    AircraftTextFile file;
    QCOMPARE(failureOf([&] {
                 file.read("AC#5,250,\"Five\"\r\n\r\nAC#x,250,\"Bad\"\r\nAC#6,250,\"Six\"\r\n");
             }),
             QString("13 Type mismatch"));
    QCOMPARE(file.lines, (QStringList{"AC#5,250,\"Five\"", "", "AC#x,250,\"Bad\""}));
    QCOMPARE(file.Number, std::int16_t(5));
    QCOMPARE(file.AircraftCount, std::int16_t(1));
}

void TestAircraftTextFile::lineEndsAreCrLfCrAndLf_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("CR LF") << QByteArray("AC#1,250,\"One\"\r\n\r\nAC#2,250,\"Two\"\r\n");
    QTest::newRow("CR") << QByteArray("AC#1,250,\"One\"\r\rAC#2,250,\"Two\"\r");
    QTest::newRow("LF") << QByteArray("AC#1,250,\"One\"\n\nAC#2,250,\"Two\"\n");
    QTest::newRow("mixed") << QByteArray("AC#1,250,\"One\"\r\n\nAC#2,250,\"Two\"\r");
    QTest::newRow("none at the end") << QByteArray("AC#1,250,\"One\"\r\n\r\nAC#2,250,\"Two\"");
}

void TestAircraftTextFile::lineEndsAreCrLfCrAndLf()
{
    QFETCH(QByteArray, bytes);
    AircraftTextFile file;
    file.read(bytes);
    QCOMPARE(file.lines, (QStringList{"AC#1,250,\"One\"", "", "AC#2,250,\"Two\""}));
    QCOMPARE(file.AircraftCount, std::int16_t(2));
}

void TestAircraftTextFile::utf8MarkIsPassedOver()
{
    AircraftTextFile file;
    file.read("\xEF\xBB\xBF;comment\r\nAC#2,250,\"Two\"\r\n");
    QCOMPARE(file.lines, QStringList{"AC#2,250,\"Two\""});
}

void TestAircraftTextFile::everyByteOfATitleComesBack()
{
    QByteArray line = "AC#1,250,\"";
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n') {
            line += static_cast<char>(byte);
        }
    }
    line += '"';
    AircraftTextFile file;
    file.read(line + "\r\n");
    QCOMPARE(file.lines.size(), 1);
    QCOMPARE(code_page::encode(file.lines[0]), line);
}

void TestAircraftTextFile::nulBytesAreText()
{
    AircraftTextFile file;
    file.read(QByteArrayLiteral("AC#4,250,\"Bo\0eing\"\r\n"));
    QCOMPARE(file.lines, QStringList{QString::fromLatin1("AC#4,250,\"Bo\0eing\"", 18)});
    QCOMPARE(file.Number, std::int16_t(4));
}

void TestAircraftTextFile::lineOfTenMegabytesIsOneLine()
{
    const QByteArray title(10'000'000, 'x');
    AircraftTextFile file;
    file.read("AC#4,250,\"" + title + "\"\r\nAC#5,250,\"Five\"\r\n");
    QCOMPARE(file.lines.size(), 2);
    QCOMPARE(file.lines[0].size(), 10'000'011);
    QCOMPARE(file.AircraftCount, std::int16_t(2));
}

void TestAircraftTextFile::countEndsAt32767()
{
    const QByteArray lines = QByteArray("AC#1,250,\"B\"\r\n").repeated(32767);
    AircraftTextFile file;
    file.read(lines);
    QCOMPARE(file.AircraftCount, std::int16_t(32767));
    QCOMPARE(failureOf([&] { file.read(lines + "AC#2,250,\"C\"\r\nAC#3,250,\"D\"\r\n"); }),
             QString("6 Overflow"));
    QCOMPARE(file.AircraftCount, std::int16_t(32767));
    QCOMPARE(file.lines.size(), 32768);
    QCOMPARE(file.lines.last(), QString("AC#2,250,\"C\""));
}

void TestAircraftTextFile::fileOf200000LinesIsReadWhole()
{
    QByteArray bytes;
    for (int i = 0; i < 200'000; ++i) {
        bytes += i % 10 == 0 ? "AC#" + QByteArray::number(i / 10) + ",250,\"Boeing\"\r\n"
                             : QByteArray("short\r\n");
    }
    AircraftTextFile file;
    file.read(bytes);
    QCOMPARE(file.lines.size(), 200'000);
    QCOMPARE(file.AircraftCount, std::int16_t(20'000));
    QCOMPARE(file.Number, std::int16_t(19'999));
}

void TestAircraftTextFile::titleIsWhatFollowsTheFirstQuoteLessTheLastCharacter_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("title");
    QTest::newRow("usual") << "AC#12,250,\"Boeing 737 Blue\""
                           << "Boeing 737 Blue";
    QTest::newRow("nothing between the quotes") << "AC#12,250,\"\""
                                                << "";
    QTest::newRow("quotes within") << "AC#1,250,\"The \"Blue\" one\""
                                   << "The \"Blue\" one";
    QTest::newRow("no closing quote") << "AC#1,250,\"Boeing"
                                      << "Boein";
    QTest::newRow("blank behind the quote") << "AC#1,250,\"Boeing\" "
                                            << "Boeing\"";
    QTest::newRow("no quote at all") << "AC#1,250,Boeing"
                                     << "AC#1,250,Boein";
    QTest::newRow("blanks kept") << "AC#1,250,\" Boeing  \""
                                 << " Boeing  ";
    QTest::newRow("commas and signs") << "AC#1,250,\"A, #2 & <b>\""
                                      << "A, #2 & <b>";
}

void TestAircraftTextFile::titleIsWhatFollowsTheFirstQuoteLessTheLastCharacter()
{
    QFETCH(QString, line);
    QFETCH(QString, title);
    QCOMPARE(aircraft_text_file::titleIn(line), title);
}

void TestAircraftTextFile::quoteAsLastCharacterIsNoTitle()
{
    QCOMPARE(failureOf([] { aircraft_text_file::titleIn("AC#1,250,Boeing\""); }),
             QString("5 Invalid procedure call or argument"));
}

void TestAircraftTextFile::folderAndCaptionGoByTheFirstAircraftOfThePath_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("caption");
    QTest::newRow("file") << "C:\\TTools\\Aircraft_Set.txt"
                          << "C:\\TTools\\"
                          << "Aircraft_Set.txt";
    QTest::newRow("any case") << "C:\\TTOOLS\\AIRCRAFT.TXT"
                              << "C:\\TTOOLS\\"
                              << "AIRCRAFT.TXT";
    QTest::newRow("folder counts too") << "C:\\Aircraft Sets\\planes.txt"
                                       << "C:\\"
                                       << "Aircraft Sets\\planes.txt";
    QTest::newRow("first of two") << "C:\\aircraft\\Aircraft_1.txt"
                                  << "C:\\"
                                  << "aircraft\\Aircraft_1.txt";
    QTest::newRow("word within a name") << "C:\\TTools\\MyAircraft.txt"
                                        << ""
                                        << "C:\\TTools\\MyAircraft.txt";
    QTest::newRow("no such word") << "C:\\TTools\\planes.txt"
                                  << ""
                                  << "C:\\TTools\\planes.txt";
    QTest::newRow("no folder") << "aircraft.txt"
                               << ""
                               << "aircraft.txt";
    QTest::newRow("nothing") << ""
                             << ""
                             << "";
}

void TestAircraftTextFile::folderAndCaptionGoByTheFirstAircraftOfThePath()
{
    QFETCH(QString, path);
    QFETCH(QString, folder);
    QFETCH(QString, caption);
    QCOMPARE(aircraft_text_file::folderPart(path), folder);
    QCOMPARE(aircraft_text_file::captionName(path), caption);
}

QTEST_APPLESS_MAIN(TestAircraftTextFile)
#include "test_aircraft_text_file.moc"
