// SPDX-License-Identifier: MIT
// The box and the log entry of a failed step.
#include "app/services/error_report.h"

#include "app/services/form_state.h"
#include "app/services/trace_log.h"
#include "tests/support/fakes.h"
#include "tests/support/sandbox.h"

#include <QtTest>

#include <stdexcept>

namespace
{

/// A report on a sandbox, with everything it needs.
struct Reporting {
    Reporting() { state.MorlenEDir = "C:\\Morlen\\"; }

    [[noreturn]] void failIn(const QString &step, ErrorNumber number)
    {
        state.ErrMsg = step;
        throw RuntimeError(number);
    }

    Sandbox sandbox;
    FormState state;
    FakeClock clock;
    FakeDialogs dialogs;
    TraceLog log{state, clock, dialogs};
    ErrorReport errors{state.ErrMsg, log, dialogs};
};

const QString logFile = QStringLiteral("C:\\Morlen\\TraceLog.txt");

} // namespace

class TestErrorReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void boxHoldsNumberDescriptionAndStep();
    void everyNumberHasItsDescription_data();
    void everyNumberHasItsDescription();
    void stepIsTheOneUnderWay();
    void stepIsGivenBackWhenTheStepsAreDone();
    void failedSideStepNamesItself();
    void stepThatNobodyWouldReadIsCut();
    void successShowsNothing();
    void programGoesOnAfterAFailure();
    void failuresOfOtherKindsPass();
    void failureIsNotLoggedWithoutTracing();
    void failureIsOneEntryOfTheLogBeforeTheBox();
    void lineBreakOfAStepIsABlankInTheLog();
    void logThatCannotBeWrittenLeavesTheBox();
    void loggingAloneShowsNoBox();
};

void TestErrorReport::boxHoldsNumberDescriptionAndStep()
{
    Reporting report;
    const bool good = report.errors.run(
        "Backup Error", [&] { report.failIn("Open C:\\a.txt", ErrorNumber::FileNotFound); });
    QVERIFY(!good);
    QCOMPARE(report.dialogs.boxes.size(), 1);
    const MessageBox box = report.dialogs.boxes[0];
    QCOMPARE(box.title, QString("Backup Error"));
    QCOMPARE(box.prompt, QString("Error  53 File not found\rOpen C:\\a.txt"));
    QCOMPARE(box.icon, MessageBox::Icon::Exclamation);
    QCOMPARE(box.buttons, MessageBox::Buttons::Ok);
}

void TestErrorReport::everyNumberHasItsDescription_data()
{
    QTest::addColumn<ErrorNumber>("number");
    QTest::addColumn<QString>("text");
    const auto row = [](ErrorNumber number, const char *text) {
        QTest::newRow(text) << number << QString::fromLatin1(text);
    };
    row(ErrorNumber::InvalidProcedureCall, "Error  5 Invalid procedure call or argument");
    row(ErrorNumber::Overflow, "Error  6 Overflow");
    row(ErrorNumber::OutOfMemory, "Error  7 Out of memory");
    row(ErrorNumber::SubscriptOutOfRange, "Error  9 Subscript out of range");
    row(ErrorNumber::TypeMismatch, "Error  13 Type mismatch");
    row(ErrorNumber::BadFileName, "Error  52 Bad file name or number");
    row(ErrorNumber::FileNotFound, "Error  53 File not found");
    row(ErrorNumber::FileAlreadyOpen, "Error  55 File already open");
    row(ErrorNumber::DeviceIoError, "Error  57 Device I/O error");
    row(ErrorNumber::DiskFull, "Error  61 Disk full");
    row(ErrorNumber::InputPastEnd, "Error  62 Input past end of file");
    row(ErrorNumber::DeviceUnavailable, "Error  68 Device unavailable");
    row(ErrorNumber::PermissionDenied, "Error  70 Permission denied");
    row(ErrorNumber::PathFileAccess, "Error  75 Path/File access error");
    row(ErrorNumber::PathNotFound, "Error  76 Path not found");
}

void TestErrorReport::everyNumberHasItsDescription()
{
    QFETCH(ErrorNumber, number);
    QFETCH(QString, text);
    QCOMPARE(ErrorReport::describe(RuntimeError(number)), text);
    // what() is the description without the number in front.
    const QString plain = text.section(' ', 3);
    QCOMPARE(QString::fromLatin1(RuntimeError(number).what()), plain);
}

void TestErrorReport::stepIsTheOneUnderWay()
{
    Reporting report;
    report.errors.run("Form Load Error", [&] {
        report.state.ErrMsg = "FindFSPath 1";
        report.failIn("Opening C:\\Morlen\\\\MorlenE.ini", ErrorNumber::InputPastEnd);
    });
    QCOMPARE(report.dialogs.boxes[0].prompt,
             QString("Error  62 Input past end of file\rOpening C:\\Morlen\\\\MorlenE.ini"));
}

void TestErrorReport::stepIsGivenBackWhenTheStepsAreDone()
{
    Reporting report;
    report.state.ErrMsg = "before";
    report.errors.run("LoadList Error", [&](Step &step) {
        step.set("Open x");
        {
            Step side(step);
            side.set("Open x.Backup1");
            side.set("File Copy Backup");
            QCOMPARE(report.state.ErrMsg, QString("File Copy Backup"));
        }
        QCOMPARE(report.state.ErrMsg, QString("Open x"));
    });
    QCOMPARE(report.state.ErrMsg, QString("before"));
}

void TestErrorReport::failedSideStepNamesItself()
{
    Reporting report;
    report.state.ErrMsg = "before";
    report.errors.run("LoadList Error", [&](Step &step) {
        step.set("Open x");
        Step side(step);
        side.set("File Copy Backup");
        throw RuntimeError(ErrorNumber::DiskFull);
    });
    QCOMPARE(report.dialogs.boxes[0].prompt, QString("Error  61 Disk full\rFile Copy Backup"));
    QCOMPARE(report.state.ErrMsg, QString("before"));
}

void TestErrorReport::stepThatNobodyWouldReadIsCut()
{
    Reporting report;
    const auto promptFor = [&](qsizetype length) {
        report.errors.run("LoadList Error", [&](Step &step) {
            step.set(QString(length, 'x'));
            throw RuntimeError(ErrorNumber::BadFileName);
        });
        return report.dialogs.boxes.takeLast().prompt;
    };
    const QString error = "Error  52 Bad file name or number\r";
    QCOMPARE(promptFor(600), error + QString(600, 'x')); // two whole paths
    QCOMPARE(promptFor(601), error + QString(200, 'x') + "...");
}

void TestErrorReport::successShowsNothing()
{
    Reporting report;
    report.state.TraceOn = true;
    QVERIFY(report.errors.run("Backup Error", [] {}));
    QCOMPARE(report.dialogs.boxes.size(), 0);
    QVERIFY(!report.sandbox.exists(logFile));
}

void TestErrorReport::programGoesOnAfterAFailure()
{
    Reporting report;
    bool after = false;
    QVERIFY(!report.errors.run(
        "FS Path Error", [&] { report.failIn("Get FlightSim Path", ErrorNumber::DeviceIoError); }));
    QVERIFY(report.errors.run("FS Path Error", [&] { after = true; }));
    QVERIFY(after);
    QCOMPARE(report.dialogs.boxes.size(), 1);
}

void TestErrorReport::failuresOfOtherKindsPass()
{
    Reporting report;
    QVERIFY_THROWS_EXCEPTION(
        std::logic_error, report.errors.run("Backup Error", [] { throw std::logic_error("x"); }));
    QCOMPARE(report.dialogs.boxes.size(), 0);
}

void TestErrorReport::failureIsNotLoggedWithoutTracing()
{
    Reporting report;
    report.errors.run("Backup Error", [&] { report.failIn("Open x", ErrorNumber::FileNotFound); });
    QVERIFY(!report.sandbox.exists(logFile));
}

void TestErrorReport::failureIsOneEntryOfTheLogBeforeTheBox()
{
    Reporting report;
    report.state.TraceOn = true;
    QByteArray whileShown;
    report.dialogs.whileShown = [&] { whileShown = report.sandbox.read(logFile); };
    report.errors.run("Backup Error", [&] { report.failIn("Open x", ErrorNumber::FileNotFound); });
    QCOMPARE(whileShown, QByteArray("14:03:27 - Error  53 File not found - Open x\r\n"));
    QCOMPARE(report.sandbox.read(logFile), whileShown);
}

void TestErrorReport::lineBreakOfAStepIsABlankInTheLog()
{
    Reporting report;
    report.state.TraceOn = true;
    report.errors.run("Add AI Error",
                      [&] { report.failIn("Adding\rBoeing", ErrorNumber::DiskFull); });
    QCOMPARE(report.sandbox.read(logFile),
             QByteArray("14:03:27 - Error  61 Disk full - Adding Boeing\r\n"));
    QCOMPARE(report.dialogs.boxes[0].prompt, QString("Error  61 Disk full\rAdding\rBoeing"));
}

void TestErrorReport::logThatCannotBeWrittenLeavesTheBox()
{
    Reporting report;
    report.state.TraceOn = true;
    report.sandbox.makeFolder(logFile);
    QVERIFY(!report.errors.run("Backup Error",
                               [&] { report.failIn("Open x", ErrorNumber::FileNotFound); }));
    QCOMPARE(report.dialogs.boxes.size(), 2);
    QCOMPARE(report.dialogs.boxes[0].title, QString("Trace Log Error"));
    QCOMPARE(report.dialogs.boxes[1].prompt, QString("Error  53 File not found\rOpen x"));
}

void TestErrorReport::loggingAloneShowsNoBox()
{
    Reporting report;
    report.state.TraceOn = true;
    report.state.ErrMsg = "Open x";
    report.errors.log(RuntimeError(ErrorNumber::Overflow));
    QCOMPARE(report.sandbox.read(logFile), QByteArray("14:03:27 - Error  6 Overflow - Open x\r\n"));
    QCOMPARE(report.dialogs.boxes.size(), 0);
}

QTEST_APPLESS_MAIN(TestErrorReport)
#include "test_error_report.moc"
