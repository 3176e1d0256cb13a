// SPDX-License-Identifier: MIT
// The six lines that are remembered, as bytes.
#include "app/session.h"
#include "tests/support/failure.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace
{

const Settings usual = {
    "3",   "C:\\TTools\\ttools.exe", "c:", "C:\\FS9\\Aircraft", "C:\\TTools\\Aircraft_Set.txt",
    "True"};

const QByteArray usualBytes = "3\r\n"
                              "C:\\TTools\\ttools.exe\r\n"
                              "c:\r\n"
                              "C:\\FS9\\Aircraft\r\n"
                              "C:\\TTools\\Aircraft_Set.txt\r\n"
                              "True\r\n";

QStringList valuesOf(const Settings &settings)
{
    return {settings.lastTab,     settings.tToolsPath,       settings.drive,
            settings.aircraftDir, settings.aircraftTextFile, settings.showAddAirportHelp};
}

QStringList parsed(const QByteArray &bytes)
{
    Settings settings;
    settings_file::parse(bytes, settings);
    return valuesOf(settings);
}

} // namespace

class TestSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sixLinesAreWrittenInOrder();
    void sixLinesAreReadInOrder();
    void emptyValuesAreEmptyLines();
    void commaInAPathShiftsTheValuesThatFollow();
    void pathWithACommaIsWrittenWithoutQuotesAndComesBackShifted();
    void quotedValueMayHoldCommas();
    void blanksBeforeAValueAreSkippedThoseBehindKept();
    void lineEndsAreCrLfCrAndLf_data();
    void lineEndsAreCrLfCrAndLf();
    void lastLineNeedsNoEnd();
    void fewerThanSixValuesFail_data();
    void fewerThanSixValuesFail();
    void whatFollowsTheSixthValueIsIgnored();
    void fileIsInTheCodePage();
    void everyByteOfTheCodePageComesBack();
    void pathOutsideTheCodePageMakesTheFileUtf8();
    void binaryContentIsReadAsTextOrFails_data();
    void binaryContentIsReadAsTextOrFails();
    void valueOfAMegabyteIsOneValue();
};

void TestSession::sixLinesAreWrittenInOrder()
{
    QCOMPARE(settings_file::compose(usual), usualBytes);
}

void TestSession::sixLinesAreReadInOrder()
{
    QCOMPARE(parsed(usualBytes), valuesOf(usual));
}

void TestSession::emptyValuesAreEmptyLines()
{
    const Settings settings = {"0", "", "", "", "", "False"};
    QCOMPARE(settings_file::compose(settings), QByteArray("0\r\n\r\n\r\n\r\n\r\nFalse\r\n"));
    QCOMPARE(parsed("0\r\n\r\n\r\n\r\n\r\nFalse\r\n"), valuesOf(settings));
}

void TestSession::commaInAPathShiftsTheValuesThatFollow()
{
    QCOMPARE(parsed("0\r\nC:\\Tools, mine\\ttools.exe\r\nc:\r\nC:\\FS9\\Aircraft\r\n"
                    "C:\\a.txt\r\nTrue\r\n"),
             (QStringList{"0", "C:\\Tools", "mine\\ttools.exe", "c:", "C:\\FS9\\Aircraft",
                          "C:\\a.txt"}));
}

void TestSession::pathWithACommaIsWrittenWithoutQuotesAndComesBackShifted()
{
    Settings settings = usual;
    settings.aircraftTextFile = "C:\\a,b.txt";
    const QByteArray bytes = settings_file::compose(settings);
    QVERIFY(bytes.endsWith("\r\nC:\\a,b.txt\r\nTrue\r\n"));
    QCOMPARE(parsed(bytes).mid(4), (QStringList{"C:\\a", "b.txt"}));
}

void TestSession::quotedValueMayHoldCommas()
{
    QCOMPARE(parsed("\"0\"\r\n\"C:\\Tools, mine\\ttools.exe\"\r\n\"c:\",\"d\" x\r\ne\r\n\"True\""),
             (QStringList{"0", "C:\\Tools, mine\\ttools.exe", "c:", "d", "e", "True"}));
}

void TestSession::blanksBeforeAValueAreSkippedThoseBehindKept()
{
    QCOMPARE(parsed("  1\r\n   C:\\my tools \r\nc: ,  d\r\n e\r\n \"True\"\r\n"),
             (QStringList{"1", "C:\\my tools ", "c: ", "d", "e", "True"}));
}

void TestSession::lineEndsAreCrLfCrAndLf_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("CR LF") << QByteArray("\r\n");
    QTest::newRow("LF") << QByteArray("\n");
    QTest::newRow("CR") << QByteArray("\r");
}

void TestSession::lineEndsAreCrLfCrAndLf()
{
    QFETCH(QByteArray, end);
    QCOMPARE(parsed(QByteArray(usualBytes).replace("\r\n", end)), valuesOf(usual));
}

void TestSession::lastLineNeedsNoEnd()
{
    QCOMPARE(parsed(usualBytes.chopped(2)), valuesOf(usual));
}

void TestSession::fewerThanSixValuesFail_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("blanks only") << QByteArray("            ");
    QTest::newRow("one line") << QByteArray("just one long line\r\n");
    QTest::newRow("five lines") << QByteArray("0\r\nt\r\nc:\r\nd\r\nf\r\n");
    QTest::newRow("five lines and blanks") << QByteArray("0\r\nt\r\nc:\r\nd\r\nf\r\n   ");
    QTest::newRow("quote that is not closed") << QByteArray("0\r\n\"t\r\nc:\r\nd\r\nf\r\nTrue\r\n");
}

void TestSession::fewerThanSixValuesFail()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(failureOf([&] { parsed(bytes); }), QString("62 Input past end of file"));
}

void TestSession::whatFollowsTheSixthValueIsIgnored()
{
    QCOMPARE(parsed(usualBytes + "more\r\n\"even\0more"_ba), valuesOf(usual));
}

void TestSession::fileIsInTheCodePage()
{
    Settings settings = usual;
    settings.aircraftDir = QString::fromUtf8("C:\\Übung 5€\\Aircraft");
    const QByteArray bytes = settings_file::compose(settings);
    QVERIFY(bytes.contains("\r\nC:\\\xDC"
                           "bung 5\x80\\Aircraft\r\n"));
    QCOMPARE(parsed(bytes), valuesOf(settings));
}

void TestSession::everyByteOfTheCodePageComesBack()
{
    QByteArray bytes = usualBytes;
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n' && byte != ',') {
            all += static_cast<char>(byte);
        }
    }
    bytes.replace("C:\\FS9\\Aircraft", all);
    Settings settings;
    settings_file::parse(bytes, settings);
    QCOMPARE(settings_file::compose(settings), bytes);
}

void TestSession::pathOutsideTheCodePageMakesTheFileUtf8()
{
    Settings settings = usual;
    settings.aircraftTextFile = QString::fromUtf8("C:\\Самолёты\\é.txt");
    const QByteArray bytes = settings_file::compose(settings);
    QVERIFY(bytes.startsWith("\xEF\xBB\xBF"
                             "3\r\n"));
    QVERIFY(bytes.contains("\r\nC:\\Самолёты\\é.txt\r\n"));
    QCOMPARE(parsed(bytes), valuesOf(settings));
}

void TestSession::binaryContentIsReadAsTextOrFails_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("failure");
    QTest::newRow("NUL bytes") << QByteArray(4096, '\0') << "62 Input past end of file";
    QTest::newRow("broken UTF-8") << QByteArray("\xEF\xBB\xBF\xFF\xFE,\xC3,\xE2\x82,\xF0,\xFF")
                                  << "62 Input past end of file";
    QTest::newRow("commas") << QByteArray(4096, ',') << "";
    QTest::newRow("quotes") << QByteArray(4096, '"') << "62 Input past end of file";
    QTest::newRow("bytes of all kinds")
        << QByteArray("MZ\x90\0\x03,\xFF\xFF,\xB8\n\x80\r\"\0,\",\x7F", 19) << "";
}

void TestSession::binaryContentIsReadAsTextOrFails()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, failure);
    QCOMPARE(failureOf([&] { parsed(bytes); }), failure);
}

void TestSession::valueOfAMegabyteIsOneValue()
{
    Settings settings = usual;
    settings.tToolsPath = QString(1'000'000, 'x');
    QCOMPARE(parsed(settings_file::compose(settings)), valuesOf(settings));
}

QTEST_APPLESS_MAIN(TestSession)
#include "test_session.moc"
