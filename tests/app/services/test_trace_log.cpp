// SPDX-License-Identifier: MIT
// What reaches the trace log, and when it is begun anew.
#include "app/services/trace_log.h"

#include "app/services/form_state.h"
#include "tests/support/failure.h"
#include "tests/support/fakes.h"
#include "tests/support/host.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QtTest>

namespace
{

const QString logFile = QStringLiteral("C:\\Morlen\\TraceLog.txt");
const QByteArray separator(80, '=');

/// A log on a sandbox, with tracing on or off.
struct Tracing {
    explicit Tracing(bool on)
    {
        state.MorlenEDir = "C:\\Morlen\\";
        state.TraceOn = on;
    }

    QByteArray bytes() const { return sandbox.read(logFile); }

    Sandbox sandbox;
    FormState state;
    FakeClock clock;
    FakeDialogs dialogs;
    TraceLog log{state, clock, dialogs};
};

} // namespace

class TestTraceLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    static void initMain() { qputenv("LC_ALL", "C"); }

    void logIsInTheProgramFolder();
    void withTracingOffNothingIsCreatedOrChanged();
    void entryIsTheTimeAndTheText_data();
    void entryIsTheTimeAndTheText();
    void textThatIsSetBeforeIsWritten();
    void textBeginningWithFiveEqualSignsHasNoTime_data();
    void textBeginningWithFiveEqualSignsHasNoTime();
    void logOf50000BytesReceivesTheNextEntry();
    void logOf50001BytesIsBegunAnewWithOnlyThatEntry_data();
    void logOf50001BytesIsBegunAnewWithOnlyThatEntry();
    void fileIsClosedAfterEveryEntry();
    void turningOnWritesTheOpeningBanner();
    void timeFormatHasNoTimeZone_data();
    void timeFormatHasNoTimeZone();
    void turningOnKeepsAnEarlierLog();
    void turningOffDiscardsTheTrace();
    void turningOnAndOffAgainLeavesThreeLines();
    void turningOffWithoutALogLeavesThreeLines();
    void restartDeletesTheLogAndTurnsTracingOff();
    void restartWithoutALogLeavesNone();
    void bannerHas69Characters_data();
    void bannerHas69Characters();
    void longTextIsCutTo69Characters_data();
    void longTextIsCutTo69Characters();
    void textOutsideTheCodePageTurnsTheLogIntoUtf8();
    void lastLineWithoutAnEndIsCompleted();
    void missingProgramFolderFails();
    void folderInPlaceOfTheLogFails();
    void readOnlyLogFailsAndStays();
    void readOnlyProgramFolderFails();
    void fullDiskFailsAndLeavesWholeEntries();
    void logThatCannotBeWrittenIsNoLongerTracedAfterTurningOff();
    void logThatCannotBeWrittenIsToldOnce();
    void turningOnALogThatCannotBeWrittenIsToldOnce();
};

void TestTraceLog::logIsInTheProgramFolder()
{
    const Tracing trace(true);
    QCOMPARE(trace.log.path(), QString("C:\\Morlen\\\\TraceLog.txt"));
}

void TestTraceLog::withTracingOffNothingIsCreatedOrChanged()
{
    Tracing trace(false);
    trace.log.write("Finding FSPath");
    QVERIFY(!trace.sandbox.exists(logFile));

    const QByteArray earlier(60'000, 'x');
    trace.sandbox.write(logFile, earlier);
    trace.log.write("Finding FSPath");
    QCOMPARE(trace.bytes(), earlier);
}

void TestTraceLog::entryIsTheTimeAndTheText_data()
{
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("afternoon") << QTime(14, 3, 27) << QByteArray("14:03:27 - Finding FSPath\r\n");
    QTest::newRow("midnight") << QTime(0, 0, 0) << QByteArray("00:00:00 - Finding FSPath\r\n");
    QTest::newRow("one figure") << QTime(9, 5, 3, 999)
                                << QByteArray("09:05:03 - Finding FSPath\r\n");
    QTest::newRow("last second") << QTime(23, 59, 59)
                                 << QByteArray("23:59:59 - Finding FSPath\r\n");
}

void TestTraceLog::entryIsTheTimeAndTheText()
{
    QFETCH(QTime, time);
    QFETCH(QByteArray, line);
    Tracing trace(true);
    trace.clock.time.setTime(time);
    trace.log.write("Finding FSPath");
    QCOMPARE(trace.bytes(), line);
}

void TestTraceLog::textThatIsSetBeforeIsWritten()
{
    Tracing trace(true);
    trace.state.TraceMsg = "one";
    trace.log.WriteToLog();
    trace.log.WriteToLog();
    trace.log.write("two");
    QCOMPARE(trace.bytes(), QByteArray("14:03:27 - one\r\n14:03:27 - one\r\n14:03:27 - two\r\n"));
    QCOMPARE(trace.state.TraceMsg, QString("two"));
}

void TestTraceLog::textBeginningWithFiveEqualSignsHasNoTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("five") << "=====" << QByteArray("=====\r\n");
    QTest::newRow("eighty") << QString(80, '=') << separator + "\r\n";
    QTest::newRow("words behind") << "===== and more" << QByteArray("===== and more\r\n");
    QTest::newRow("four") << "====" << QByteArray("14:03:27 - ====\r\n");
    QTest::newRow("blank before") << " =====" << QByteArray("14:03:27 -  =====\r\n");
    QTest::newRow("empty") << "" << QByteArray("14:03:27 - \r\n");
}

void TestTraceLog::textBeginningWithFiveEqualSignsHasNoTime()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, line);
    Tracing trace(true);
    trace.log.write(text);
    QCOMPARE(trace.bytes(), line);
}

void TestTraceLog::logOf50000BytesReceivesTheNextEntry()
{
    Tracing trace(true);
    const QByteArray earlier = QByteArray(49'998, 'x') + "\r\n";
    trace.sandbox.write(logFile, earlier);
    trace.log.write("one more");
    QCOMPARE(trace.bytes(), earlier + "14:03:27 - one more\r\n");
}

void TestTraceLog::logOf50001BytesIsBegunAnewWithOnlyThatEntry_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("50001") << 50'001;
    QTest::newRow("a megabyte") << 1'000'000;
}

void TestTraceLog::logOf50001BytesIsBegunAnewWithOnlyThatEntry()
{
    QFETCH(int, length);
    Tracing trace(true);
    trace.sandbox.write(logFile, QByteArray(length - 2, 'x') + "\r\n");
    trace.log.write("one more");
    QCOMPARE(trace.bytes(), QByteArray("14:03:27 - one more\r\n"));
    QCOMPARE(QDir(trace.sandbox.host("C:\\Morlen")).entryList(QDir::Files),
             QStringList{"TraceLog.txt"});
}

void TestTraceLog::fileIsClosedAfterEveryEntry()
{
    NEEDS(procFolder);
    Tracing trace(true);
    trace.log.write("one");
    const QString host = QFileInfo(trace.sandbox.host(logFile)).canonicalFilePath();
    const QFileInfoList open = QDir("/proc/self/fd").entryInfoList(QDir::Files | QDir::System);
    QVERIFY(!open.isEmpty());
    for (const QFileInfo &descriptor : open) {
        QVERIFY(descriptor.symLinkTarget() != host);
    }
    QVERIFY(QFile::remove(host));
    trace.log.write("two");
    QCOMPARE(trace.bytes(), QByteArray("14:03:27 - two\r\n"));
}

void TestTraceLog::turningOnWritesTheOpeningBanner()
{
    NEEDS(plainLocale);
    Tracing trace(false);
    trace.log.setTracing(true);
    QVERIFY(trace.state.TraceOn);
    QCOMPARE(trace.bytes(), separator + "\r\n14:03:27 - Trace Started 1 Nov 2026 14:03:27\r\n" +
                                separator + "\r\n");
}

void TestTraceLog::timeFormatHasNoTimeZone_data()
{
    QTest::addColumn<QString>("format");
    QTest::newRow("C") << "HH:mm:ss";
    QTest::newRow("de_DE") << "HH:mm:ss";
    QTest::newRow("es_ES") << "H:mm:ss"; // with the zone in brackets
}

void TestTraceLog::timeFormatHasNoTimeZone()
{
    QFETCH(QString, format);
    QCOMPARE(TraceLog::timeFormat(QLocale(QTest::currentDataTag())), format);
}

void TestTraceLog::turningOnKeepsAnEarlierLog()
{
    Tracing trace(false);
    trace.sandbox.write(logFile, "earlier\r\n");
    trace.log.setTracing(true);
    QVERIFY(trace.bytes().startsWith("earlier\r\n" + separator + "\r\n14:03:27 - Trace Started "));
}

void TestTraceLog::turningOffDiscardsTheTrace()
{
    NEEDS(plainLocale);
    Tracing trace(true);
    trace.log.write("traced");
    trace.log.setTracing(false);
    QVERIFY(!trace.state.TraceOn);
    QCOMPARE(trace.bytes(),
             separator + "\r\nTrace Ended 1 Nov 2026 14:03:27\r\n" + separator + "\r\n");
    trace.log.write("not traced");
    QCOMPARE(trace.bytes().count("\r\n"), 3);
}

void TestTraceLog::turningOnAndOffAgainLeavesThreeLines()
{
    NEEDS(plainLocale);
    Tracing trace(false);
    trace.log.setTracing(true);
    trace.log.write("traced");
    trace.log.setTracing(false);
    QCOMPARE(trace.bytes(),
             separator + "\r\nTrace Ended 1 Nov 2026 14:03:27\r\n" + separator + "\r\n");
}

void TestTraceLog::turningOffWithoutALogLeavesThreeLines()
{
    NEEDS(plainLocale);
    Tracing trace(true);
    trace.log.setTracing(false);
    QCOMPARE(trace.bytes(),
             separator + "\r\nTrace Ended 1 Nov 2026 14:03:27\r\n" + separator + "\r\n");
}

void TestTraceLog::restartDeletesTheLogAndTurnsTracingOff()
{
    Tracing trace(true);
    trace.log.write("traced in the last run");
    trace.log.reset();
    QVERIFY(!trace.state.TraceOn);
    QVERIFY(!trace.sandbox.exists(logFile));
}

void TestTraceLog::restartWithoutALogLeavesNone()
{
    Tracing trace(false);
    trace.log.reset();
    QVERIFY(!trace.sandbox.exists(logFile));
}

void TestTraceLog::bannerHas69Characters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("banner");
    QTest::newRow("short") << "Edit Tab Selected"
                           << "***Edit Tab Selected" + QString(49, '*');
    QTest::newRow("empty") << "" << QString(69, '*');
    QTest::newRow("just fits") << QString(66, 'x') << "***" + QString(66, 'x');
    QTest::newRow("too long") << QString(67, 'x') << "***" + QString(66, 'x');
}

void TestTraceLog::bannerHas69Characters()
{
    QFETCH(QString, text);
    QFETCH(QString, banner);
    QCOMPARE(TraceLog::banner(text), banner);
    QCOMPARE(TraceLog::banner(text).size(), 69);
}

void TestTraceLog::longTextIsCutTo69Characters_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("left");
    QTest::newRow("empty") << 0 << 0;
    QTest::newRow("as long") << 69 << 69;
    QTest::newRow("one more") << 70 << 69;
}

void TestTraceLog::longTextIsCutTo69Characters()
{
    QFETCH(int, length);
    QFETCH(int, left);
    QCOMPARE(TraceLog::cut(QString(length, 'x')), QString(left, 'x'));
}

void TestTraceLog::textOutsideTheCodePageTurnsTheLogIntoUtf8()
{
    Tracing trace(true);
    trace.log.write(QString::fromUtf8("café"));
    QCOMPARE(trace.bytes(), QByteArray("14:03:27 - caf\xE9\r\n"));
    trace.log.write(QString::fromUtf8("Самолёты"));
    const QByteArray both = "\xEF\xBB\xBF"
                            "14:03:27 - café\r\n14:03:27 - Самолёты\r\n";
    QCOMPARE(trace.bytes(), both);
    trace.log.write(QString::fromUtf8("é"));
    QCOMPARE(trace.bytes(), both + "14:03:27 - é\r\n");
}

void TestTraceLog::lastLineWithoutAnEndIsCompleted()
{
    Tracing trace(true);
    trace.sandbox.write(logFile, "cut off");
    trace.log.write("one more");
    QCOMPARE(trace.bytes(), QByteArray("cut off\r\n14:03:27 - one more\r\n"));
}

void TestTraceLog::missingProgramFolderFails()
{
    Tracing trace(true);
    trace.state.MorlenEDir = "C:\\Gone\\";
    QCOMPARE(failureOf([&] { trace.log.WriteToLog(); }), QString("76 Path not found"));
    QCOMPARE(failureOf([&] { trace.log.reset(); }), QString("76 Path not found"));
}

void TestTraceLog::folderInPlaceOfTheLogFails()
{
    Tracing trace(true);
    trace.sandbox.makeFolder(logFile);
    QCOMPARE(failureOf([&] { trace.log.WriteToLog(); }), QString("75 Path/File access error"));
    QCOMPARE(failureOf([&] { trace.log.setTracing(false); }), QString("75 Path/File access error"));
}

void TestTraceLog::readOnlyLogFailsAndStays()
{
    NEEDS(permissions);
    Tracing trace(true);
    trace.log.write("one");
    const OrdinaryUser user(trace.sandbox);
    QVERIFY(QFile::setPermissions(trace.sandbox.host(logFile), QFile::ReadOwner));
    QCOMPARE(failureOf([&] { trace.log.WriteToLog(); }), QString("75 Path/File access error"));
    QCOMPARE(failureOf([&] { trace.log.reset(); }), QString("75 Path/File access error"));
    QCOMPARE(trace.bytes(), QByteArray("14:03:27 - one\r\n"));
}

void TestTraceLog::readOnlyProgramFolderFails()
{
    NEEDS(permissions);
    Tracing trace(true);
    const OrdinaryUser user(trace.sandbox);
    QVERIFY(QFile::setPermissions(trace.sandbox.host("C:\\Morlen"),
                                  QFile::ReadOwner | QFile::ExeOwner));
    QCOMPARE(failureOf([&] { trace.log.WriteToLog(); }), QString("75 Path/File access error"));
    QVERIFY(!trace.sandbox.exists(logFile));
}

void TestTraceLog::fullDiskFailsAndLeavesWholeEntries()
{
    NEEDS(sizeLimit);
    Tracing trace(true);
    trace.log.write("one");
    const QByteArray before = trace.bytes();
    {
        const FileSizeLimit limit(before.size() + 7); // 7 bytes into the second entry
        QCOMPARE(failureOf([&] { trace.log.WriteToLog(); }), QString("61 Disk full"));
    }
    QCOMPARE(trace.bytes(), before);
    trace.log.write("three");
    QCOMPARE(trace.bytes(), before + "14:03:27 - three\r\n");
}

void TestTraceLog::logThatCannotBeWrittenIsNoLongerTracedAfterTurningOff()
{
    Tracing trace(true);
    trace.sandbox.makeFolder(logFile);
    QVERIFY(!failureOf([&] { trace.log.setTracing(false); }).isEmpty());
    QVERIFY(!trace.state.TraceOn);
    QCOMPARE(failureOf([&] { trace.log.WriteToLog(); }), QString());
}

void TestTraceLog::logThatCannotBeWrittenIsToldOnce()
{
    Tracing trace(true);
    trace.sandbox.makeFolder(logFile);
    const QSignalSpy switchedOff(&trace.log, &TraceLog::switchedOff);
    trace.log.write("one");
    trace.log.write("two");
    QVERIFY(!trace.state.TraceOn);
    QCOMPARE(switchedOff.size(), 1);
    QCOMPARE(trace.dialogs.boxes.size(), 1);
    const MessageBox box = trace.dialogs.boxes[0];
    QCOMPARE(box.title, QString("Trace Log Error"));
    QCOMPARE(box.prompt, QString("Error  75 Path/File access error\r"
                                 "Opening C:\\Morlen\\\\TraceLog.txt"));
    QCOMPARE(box.icon, MessageBox::Icon::Exclamation);
}

void TestTraceLog::turningOnALogThatCannotBeWrittenIsToldOnce()
{
    Tracing trace(false);
    trace.sandbox.makeFolder(logFile);
    trace.log.setTracing(true);
    QVERIFY(!trace.state.TraceOn);
    QCOMPARE(trace.dialogs.boxes.size(), 1);
}

QTEST_APPLESS_MAIN(TestTraceLog)
#include "test_trace_log.moc"
