// SPDX-License-Identifier: MIT
// Waiting for other programs, and finding files to run.
#include "app/services/services.h"
#include "platform/paths.h"
#include "tests/support/failure.h"
#include "tests/support/services_on_fakes.h"

#include <QDir>
#include <QTimer>
#include <QtTest>

namespace
{

const QString allBlanks(260, ' ');

/// A shell on a sandbox; programs and time are faked.
struct Running : ServicesOnFakes {
    /// Waits for a program that never ends well, from `start` on; at each look at its exit code the
    /// clock shows the next of `times`. Returns how many of them were needed.
    qsizetype looksUntilTimeOut(const QTime &start, int timeOut, const QList<QTime> &times)
    {
        qsizetype looks = 0;
        outside.clock.time.setTime(start);
        outside.processes.whileRunning = [&] {
            if (looks == times.size()) {
                services.state.ended = true; // the time-out that never came
                return;
            }
            outside.clock.time.setTime(times[looks]);
            ++looks;
        };
        return services.shell.Shellandwait("TTools.exe", timeOut, 1) ? looks : -1;
    }

    QString found() const
    {
        const QString &buffer = services.shell.searchBuffer();
        return buffer.first(buffer.indexOf(QChar(u'\0')));
    }
};

} // namespace

class TestShell : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandLineAndWindowStyleAreHandedOn();
    void exitCode0EndsTheWait();
    void exitCode1KeepsTheWaitGoingUntilTheTimeOut();
    void exitCode1WithoutTimeOutKeepsTheWaitGoing();
    void timeOutEndsTheWaitAtItsSecond();
    void timeOutCrossingMidnightEndsTheWaitOnlyAfterMidnight();
    void timeOutAtMidnightCrossesIt();
    void timeOutJustBeforeMidnightDoesNotCrossIt();
    void zeroOrNegativeTimeOutIsNone_data();
    void zeroOrNegativeTimeOutIsNone();
    void programThatCannotBeWatchedEndsTheWait();
    void windowLivesWhileWaiting();
    void quittingEndsTheWait();
    void missingProgramIsReportedAndLogged();
    void fileInTheTreeIsFound_data();
    void fileInTheTreeIsFound();
    void fileNotFoundLeavesTheBufferFullOfBlanks();
    void searchGoesDeepBeforeBroad();
    void folderOfTheNameIsNoMatch();
    void linkInACircleEndsTheSearch();
    void unreadableFolderIsPassedOver();
    void pathLongerThanTheBufferIsCut();
    void waitOfZeroReturnsAtOnce_data();
    void waitOfZeroReturnsAtOnce();
    void waitReturnsAfterSoManySeconds();
    void waitLetsNothingThrough();
    void tToolsIsLookedForBesideTheFile();
    void tToolsThatIsMissingOrEmptyIsNotThere_data();
    void tToolsThatIsMissingOrEmptyIsNotThere();
    void pathWithoutBackslashIsItselfTheCandidate();
    void documentIsOpenedFromTheProgramFolder();
    void documentWithoutProgramFolderFails();
};

void TestShell::commandLineAndWindowStyleAreHandedOn()
{
    Running run;
    QVERIFY(run.services.shell.Shellandwait("NOTEPAD.EXE C:\\my \"set\"; $(x).txt", 0, 3));
    QCOMPARE(run.outside.processes.started, QStringList{"NOTEPAD.EXE C:\\my \"set\"; $(x).txt"});
    QCOMPARE(run.outside.processes.windowStyles, QList<int>{3});
}

void TestShell::exitCode0EndsTheWait()
{
    Running run;
    int looks = 0;
    run.outside.processes.exitCodes = {Process::stillActive, Process::stillActive, 0};
    run.outside.processes.whileRunning = [&] { ++looks; };
    QVERIFY(run.services.shell.Shellandwait("TTools.exe", 0, 1));
    QCOMPARE(looks, 3);
    QCOMPARE(run.outside.dialogs.boxes.size(), 0);
}

void TestShell::exitCode1KeepsTheWaitGoingUntilTheTimeOut()
{
    Running run;
    run.outside.processes.exitCodes = {1};
    QCOMPARE(run.looksUntilTimeOut({14, 0, 0}, 10, {{14, 0, 1}, {14, 0, 5}, {14, 0, 30}}), 3);
}

void TestShell::exitCode1WithoutTimeOutKeepsTheWaitGoing()
{
    Running run;
    run.outside.processes.exitCodes = {1};
    int looks = 0;
    run.outside.processes.whileRunning = [&] {
        run.outside.clock.time = run.outside.clock.time.addDays(1);
        run.services.state.ended = ++looks == 5;
    };
    QVERIFY(!run.services.shell.Shellandwait("TTools.exe", 0, 1));
    QCOMPARE(looks, 5);
}

void TestShell::timeOutEndsTheWaitAtItsSecond()
{
    Running run;
    run.outside.processes.exitCodes = {Process::stillActive};
    QCOMPARE(run.looksUntilTimeOut({14, 0, 0}, 10, {{14, 0, 9, 999}, {14, 0, 10}, {14, 0, 11}}), 2);
}

void TestShell::timeOutCrossingMidnightEndsTheWaitOnlyAfterMidnight()
{
    Running run;
    run.outside.processes.exitCodes = {Process::stillActive};
    QCOMPARE(run.looksUntilTimeOut({23, 59, 50}, 20,
                                   {{23, 59, 55}, {23, 59, 59}, {0, 0, 9}, {0, 0, 10}, {0, 0, 11}}),
             4);
}

void TestShell::timeOutAtMidnightCrossesIt()
{
    Running run;
    run.outside.processes.exitCodes = {Process::stillActive};
    QCOMPARE(run.looksUntilTimeOut({23, 59, 50}, 10, {{23, 59, 59}, {0, 0, 0}, {0, 0, 1}}), 2);
}

void TestShell::timeOutJustBeforeMidnightDoesNotCrossIt()
{
    Running run;
    run.outside.processes.exitCodes = {Process::stillActive};
    QCOMPARE(run.looksUntilTimeOut({23, 59, 50}, 9, {{23, 59, 58}, {23, 59, 59}, {0, 0, 0}}), 2);
}

void TestShell::zeroOrNegativeTimeOutIsNone_data()
{
    QTest::addColumn<int>("timeOut");
    QTest::newRow("0") << 0;
    QTest::newRow("-1") << -1;
}

void TestShell::zeroOrNegativeTimeOutIsNone()
{
    QFETCH(int, timeOut);
    Running run;
    run.outside.processes.exitCodes = {259, 259, 259, 0};
    int looks = 0;
    run.outside.processes.whileRunning = [&] {
        ++looks;
        run.outside.clock.time = run.outside.clock.time.addSecs(qint64{7} * 3600);
    };
    QVERIFY(run.services.shell.Shellandwait("TTools.exe", timeOut, 1));
    QCOMPARE(looks, 4);
}

void TestShell::programThatCannotBeWatchedEndsTheWait()
{
    Running run;
    run.outside.processes.cannotBeWatched = true;
    run.outside.processes.exitCodes = {1};
    QVERIFY(run.services.shell.Shellandwait("TTools.exe", 0, 1));
}

void TestShell::windowLivesWhileWaiting()
{
    Running run;
    run.outside.processes.exitCodes = {Process::stillActive};
    QTimer user;
    QTimer::singleShot(0, &user, [&] { run.services.state.ended = true; });
    QVERIFY(!run.services.shell.Shellandwait("TTools.exe", 0, 1)); // else it waits for ever
}

void TestShell::quittingEndsTheWait()
{
    Running run;
    run.outside.processes.exitCodes = {Process::stillActive};
    run.services.state.ended = true;
    QVERIFY(!run.services.shell.Shellandwait("TTools.exe", 0, 1));
    QCOMPARE(run.outside.dialogs.boxes.size(), 0);
}

void TestShell::missingProgramIsReportedAndLogged()
{
    Running run;
    run.outside.processes.failure = RuntimeError(ErrorNumber::FileNotFound);
    run.services.state.TraceOn = true;
    run.services.state.ErrMsg = "Running TTools";
    QVERIFY(!run.services.shell.Shellandwait("TTools.exe", 0, 1));
    QCOMPARE(run.outside.dialogs.boxes.size(), 1);
    const MessageBox box = run.outside.dialogs.boxes[0];
    QCOMPARE(box.prompt, QString("Error Handled. See log."));
    QCOMPARE(box.title, QString("ShellandWait Error"));
    QCOMPARE(box.icon, MessageBox::Icon::Critical);
    QCOMPARE(box.buttons, MessageBox::Buttons::Ok);
    QCOMPARE(run.sandbox.read("C:\\Morlen\\TraceLog.txt"),
             QByteArray("14:03:27 - Error  53 File not found - Running TTools\r\n"));
}

void TestShell::fileInTheTreeIsFound_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("at the top") << "C:\\Tools\\TTools.exe";
    QTest::newRow("deep below") << "C:\\Tools\\a\\b c\\d\\TTools.exe";
    QTest::newRow("other case") << "C:\\Tools\\Bin\\ttools.EXE";
}

void TestShell::fileInTheTreeIsFound()
{
    QFETCH(QString, path);
    Running run;
    run.sandbox.write(path, "MZ");
    run.sandbox.makeFolder("C:\\Tools\\0");
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Tools", "TTools.exe"), QString("True"));
    QCOMPARE(run.services.shell.searchBuffer().size(), 260);
    QCOMPARE(run.found().toLower(), path.toLower());
    const qsizetype behind = path.size() + 1; // and the NUL
    QCOMPARE(run.services.shell.searchBuffer().sliced(behind), QString(260 - behind, ' '));
}

void TestShell::fileNotFoundLeavesTheBufferFullOfBlanks()
{
    Running run;
    QCOMPARE(run.services.shell.searchBuffer(), allBlanks);
    run.sandbox.write("C:\\Tools\\TTools.exe", "MZ");
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Tools", "TTools.exe"), QString("True"));
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Tools", "Other.exe"), QString("False"));
    QCOMPARE(run.services.shell.searchBuffer(), allBlanks);
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Gone", "TTools.exe"), QString("False"));
    QCOMPARE(run.services.shell.FileExistsInDirTree("Q:\\", "TTools.exe"), QString("False"));
    QCOMPARE(run.services.shell.searchBuffer(), allBlanks);
}

void TestShell::searchGoesDeepBeforeBroad()
{
    Running run;
    run.sandbox.write("C:\\Tools\\a\\deep\\TTools.exe", "MZ");
    run.sandbox.write("C:\\Tools\\b\\TTools.exe", "MZ");
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Tools", "TTools.exe"), QString("True"));
    QCOMPARE(run.found(), QString("C:\\Tools\\a\\deep\\TTools.exe"));
    run.sandbox.write("C:\\Tools\\TTools.exe", "MZ");
    run.services.shell.FileExistsInDirTree("C:\\Tools", "TTools.exe");
    QCOMPARE(run.found(), QString("C:\\Tools\\TTools.exe"));
}

void TestShell::folderOfTheNameIsNoMatch()
{
    Running run;
    run.sandbox.makeFolder("C:\\Tools\\TTools.exe");
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Tools", "TTools.exe"), QString("False"));
    run.sandbox.write("C:\\Tools\\TTools.exe\\TTools.exe", "MZ");
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Tools", "TTools.exe"), QString("True"));
    QCOMPARE(run.found(), QString("C:\\Tools\\TTools.exe\\TTools.exe"));
}

void TestShell::linkInACircleEndsTheSearch()
{
    NEEDS(links);
    Running run;
    run.sandbox.makeFolder("C:\\Tools\\a");
    QVERIFY(QFile::link("..", run.sandbox.host("C:\\Tools\\a\\up")));
    QVERIFY(QFile::link(".", run.sandbox.host("C:\\Tools\\self")));
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Tools", "TTools.exe"), QString("False"));
}

void TestShell::unreadableFolderIsPassedOver()
{
    NEEDS(permissions);
    Running run;
    run.sandbox.makeFolder("C:\\Tools\\a");
    run.sandbox.write("C:\\Tools\\b\\TTools.exe", "MZ");
    const OrdinaryUser user(run.sandbox);
    QVERIFY(QFile::setPermissions(run.sandbox.host("C:\\Tools\\a"), {}));
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Tools", "TTools.exe"), QString("True"));
    QCOMPARE(run.found(), QString("C:\\Tools\\b\\TTools.exe"));
}

void TestShell::pathLongerThanTheBufferIsCut()
{
    Running run;
    const QString path = "C:\\Tools\\" + QString(200, 'x') + '\\' + QString(60, 'y') + "\\a.exe";
    run.sandbox.write(path, "MZ");
    QCOMPARE(run.services.shell.FileExistsInDirTree("C:\\Tools", "a.exe"), QString("True"));
    QCOMPARE(run.services.shell.searchBuffer(), path.first(260));
}

void TestShell::waitOfZeroReturnsAtOnce_data()
{
    QTest::addColumn<int>("pause");
    QTest::newRow("0") << 0;
    QTest::newRow("-5") << -5;
}

void TestShell::waitOfZeroReturnsAtOnce()
{
    QFETCH(int, pause);
    Running run;
    run.services.shell.Wait(pause); // the clock stands still: any wait would be for ever
    QCOMPARE(run.outside.clock.time.time(), QTime(14, 3, 27));
}

void TestShell::waitReturnsAfterSoManySeconds()
{
    Running run;
    run.outside.clock.time.setTime({23, 59, 59});
    run.outside.clock.secondsPerLook = 1;
    run.services.shell.Wait(3);
    // Looked at 23:59:59, 0:00:00, :01 and :02; the next look would see :03.
    QCOMPARE(run.outside.clock.time.time(), QTime(0, 0, 3));
}

void TestShell::waitLetsNothingThrough()
{
    Running run;
    bool through = false;
    QTimer user;
    QTimer::singleShot(0, &user, [&] { through = true; });
    run.outside.clock.secondsPerLook = 1;
    run.services.shell.Wait(3);
    QVERIFY(!through);
}

void TestShell::tToolsIsLookedForBesideTheFile()
{
    Running run;
    run.sandbox.write("C:\\AI\\ttools.EXE", "MZ");
    QVERIFY(run.services.shell.CheckFileExists("C:\\AI\\Aircraft_Set.txt"));
    QCOMPARE(run.services.shell.tTools(), QString("C:\\AI\\TTools.exe"));
}

void TestShell::tToolsThatIsMissingOrEmptyIsNotThere_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("candidate");
    QTest::newRow("missing") << "C:\\AI\\sub\\a.txt"
                             << "C:\\AI\\sub\\TTools.exe";
    QTest::newRow("empty") << "C:\\Empty\\a.txt"
                           << "C:\\Empty\\TTools.exe";
    QTest::newRow("folder") << "C:\\Folder\\a.txt"
                            << "C:\\Folder\\TTools.exe";
    QTest::newRow("no such drive") << "Q:\\a.txt"
                                   << "Q:\\TTools.exe";
    QTest::newRow("no path") << ""
                             << "";
}

void TestShell::tToolsThatIsMissingOrEmptyIsNotThere()
{
    QFETCH(QString, file);
    QFETCH(QString, candidate);
    Running run;
    run.sandbox.write("C:\\AI\\TTools.exe", "MZ");
    run.sandbox.write("C:\\Empty\\TTools.exe", "");
    run.sandbox.makeFolder("C:\\Folder\\TTools.exe");
    QVERIFY(!run.services.shell.CheckFileExists(file));
    QCOMPARE(run.services.shell.tTools(), candidate);
}

void TestShell::pathWithoutBackslashIsItselfTheCandidate()
{
    Running run;
    run.sandbox.write("C:\\Morlen\\Aircraft.txt", "AC#1");
    QVERIFY(run.services.shell.CheckFileExists("Aircraft.txt"));
    QCOMPARE(run.services.shell.tTools(), QString("Aircraft.txt"));
}

void TestShell::documentIsOpenedFromTheProgramFolder()
{
    Running run;
    QVERIFY(QDir::setCurrent(run.sandbox.host("C:\\windows")));
    Step step(run.state().ErrMsg);
    run.services.shell.openDocument("Docs\\VarloHelp.htm", step);
    QCOMPARE(run.outside.processes.documents, QStringList{"C:\\Morlen\\Docs\\VarloHelp.htm"});
    QCOMPARE(paths::currentDirectory(), QString("C:\\Morlen"));
    QCOMPARE(run.services.state.ErrMsg, QString("Opening C:\\Morlen\\Docs\\VarloHelp.htm"));
}

void TestShell::documentWithoutProgramFolderFails()
{
    Running run;
    run.services.state.MorlenEDir = "C:\\Gone\\";
    Step step(run.state().ErrMsg);
    QCOMPARE(failureOf([&] { run.services.shell.openDocument("Donate.htm", step); }),
             QString("76 Path not found"));
    QCOMPARE(run.outside.processes.documents, QStringList());
}

QTEST_GUILESS_MAIN(TestShell)
#include "test_shell.moc"
