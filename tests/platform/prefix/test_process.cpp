// SPDX-License-Identifier: MIT
// Real child processes: what they get, and what they leave.
#include "app/services/services.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "tests/support/failure.h"
#include "tests/support/fakes.h"
#include "tests/support/programs.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <QtTest>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// A pipe with a name: a child reads from it until the test lets it go on.
class Gate
{
public:
    explicit Gate(const QString &hostFile) : m_name(QFile::encodeName(hostFile))
    {
        ::mkfifo(m_name.constData(), 0600);
        m_descriptor = ::open(m_name.constData(), O_RDWR | O_CLOEXEC);
    }

    ~Gate() { ::close(m_descriptor); }

    Gate(const Gate &) = delete;
    Gate &operator=(const Gate &) = delete;

    /// The shell command that waits.
    QByteArray wait() const { return "read go < '" + m_name + "'\n"; }

    bool open() const { return ::write(m_descriptor, "go\n", 3) == 3; }

private:
    QByteArray m_name;
    int m_descriptor;
};

/// Whether this process has a child, running or ended and not asked how.
bool hasChild()
{
    siginfo_t info = {};
    return ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
}

/// The shell with real programs; time, boxes and the registry are faked.
struct RealShell {
    explicit RealShell(Programs &programs)
        : services(Outside{fakes.registry, programs.processes, fakes.dialogs, fakes.clock})
    {
        services.state.MorlenEDir = "C:\\Morlen\\";
    }

    FakeOutside fakes;
    Services services;
};

} // namespace

class TestProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exitCodeIsTheChilds_data();
    void exitCodeIsTheChilds();
    void exitCodeIs259WhileTheChildRuns();
    void restOfTheLineIsOneArgument_data();
    void restOfTheLineIsOneArgument();
    void childWorksBesideItsDocumentElseBesideItself_data();
    void childWorksBesideItsDocumentElseBesideItself();
    void missingProgramFails_data();
    void missingProgramFails();
    void fileThatCannotBeRunFails_data();
    void fileThatCannotBeRunFails();
    void finishedChildLeavesNothingOver();
    void droppedChildRunsOn();
    void droppedChildLeavesNothingOver();
    void childHasTheUsualSignals();
    void waitEndsWithTheChild();
    void childThatFailsKeepsTheWaitGoingUntilTheTimeOut();
    void quittingWhileAChildRunsEndsTheWaitAndLeavesTheChild();
    void missingProgramIsReportedByTheWait();
    void documentIsOpenedAsAFile();
    void missingDocumentFails_data();
    void missingDocumentFails();
    void documentThatNothingOpensFails();
};

void TestProcess::exitCodeIsTheChilds_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("code");
    QTest::newRow("0") << QByteArray("exit 0") << 0;
    QTest::newRow("1") << QByteArray("exit 1") << 1;
    QTest::newRow("255") << QByteArray("exit 255") << 255;
    QTest::newRow("killed") << QByteArray("kill -9 $$") << 137;
}

void TestProcess::exitCodeIsTheChilds()
{
    QFETCH(QByteArray, lines);
    QFETCH(int, code);
    Programs programs;
    programs.addScript("C:\\Bin\\tool", lines);
    const auto child = programs.processes.start("C:\\Bin\\tool", 1);
    QTRY_VERIFY(child->exitCode() != Process::stillActive);
    QCOMPARE(child->exitCode(), code);
    QCOMPARE(child->exitCode(), code); // asked again, it is the same
}

void TestProcess::exitCodeIs259WhileTheChildRuns()
{
    Programs programs;
    const Gate gate(programs.sandbox.host("C:\\Bin\\gate"));
    programs.addScript("C:\\Bin\\tool", gate.wait() + "exit 4");
    const auto child = programs.processes.start("C:\\Bin\\tool", 1);
    QCOMPARE(child->exitCode(), 259);
    QCOMPARE(child->exitCode(), 259);
    QVERIFY(gate.open());
    QTRY_COMPARE(child->exitCode(), 4);
}

void TestProcess::restOfTheLineIsOneArgument_data()
{
    QTest::addColumn<QString>("rest");
    QTest::addColumn<QByteArray>("arguments");
    QTest::newRow("none") << "" << QByteArray("0|");
    QTest::newRow("blanks only") << "   " << QByteArray("0|");
    QTest::newRow("blanks") << " my  aircraft set.txt " << QByteArray("1|my  aircraft set.txt|");
    QTest::newRow("quotes") << " \"a\" 'b' \"" << QByteArray("1|\"a\" 'b' \"|");
    QTest::newRow("command in it") << " $(x) `y` $HOME" << QByteArray("1|$(x) `y` $HOME|");
    QTest::newRow("separators") << " a; exit 7 & b | c > d"
                                << QByteArray("1|a; exit 7 & b | c > d|");
    QTest::newRow("wildcards") << " * ? ~ [a] {b,c}" << QByteArray("1|* ? ~ [a] {b,c}|");
    QTest::newRow("backslashes") << " a\\b\\\\c %PATH%" << QByteArray("1|a\\b\\\\c %PATH%|");
    QTest::newRow("line break") << " a\nb" << QByteArray("1|a\nb|");
    QTest::newRow("accents") << QString::fromUtf8(" été €") << QByteArray("1|été €|");
    QTest::newRow("option") << " -n --help" << QByteArray("1|-n --help|");
}

void TestProcess::restOfTheLineIsOneArgument()
{
    QFETCH(QString, rest);
    QFETCH(QByteArray, arguments);
    Programs programs;
    programs.addScript("C:\\Bin\\tool", "printf '%s|' $# \"$@\" > \"$OUT\"");
    const auto child = programs.processes.start("C:\\Bin\\tool" + rest, 1);
    QTRY_COMPARE(child->exitCode(), 0);
    QCOMPARE(programs.sandbox.read(programs.out), arguments);
}

void TestProcess::childWorksBesideItsDocumentElseBesideItself_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("folder");
    QTest::newRow("no document") << "C:\\My Tools\\tool"
                                 << "C:\\My Tools";
    QTest::newRow("a document") << "C:\\My Tools\\tool C:\\My Sets\\Aircraft 1.txt"
                                << "C:\\My Sets";
    QTest::newRow("a new document") << "C:\\My Tools\\tool C:\\My Sets\\new.txt"
                                    << "C:\\My Sets";
    QTest::newRow("document in a folder that is gone")
        << "C:\\My Tools\\tool C:\\Gone\\Aircraft.txt"
        << "C:\\My Tools";
    QTest::newRow("an option") << "C:\\My Tools\\tool /report"
                               << "C:\\My Tools";
    QTest::newRow("a stand-in") << "Notepad C:\\My Sets\\Aircraft 1.txt"
                                << "C:\\My Sets";
    QTest::newRow("a Windows program") << "C:\\My Tools\\TTools.exe"
                                       << "C:\\My Tools";
    QTest::newRow("a Windows editor") << "C:\\My Tools\\TTools.exe C:\\My Sets\\Aircraft 1.txt"
                                      << "C:\\My Sets";
    QTest::newRow("Windows editor, no such drive") << "C:\\My Tools\\TTools.exe Q:\\Aircraft 1.txt"
                                                   << "C:\\My Tools";
}

void TestProcess::childWorksBesideItsDocumentElseBesideItself()
{
    QFETCH(QString, line);
    QFETCH(QString, folder);
    Programs programs;
    programs.sandbox.write("C:\\My Sets\\Aircraft 1.txt", "");
    programs.addScript("C:\\My Tools\\tool", "pwd -P > \"$OUT\"");
    programs.sandbox.write("C:\\My Tools\\TTools.exe", "MZ");
    for (const QString name : {"wine", "editor"}) {
        programs.addScript(QString("C:\\Path\\") + name, "pwd -P > \"$OUT\"");
    }
    SystemProcesses processes({{.program = "notepad", .commands = {{"editor", "--wait"}}}});
    const auto child = processes.start(line, 1);
    QTRY_COMPARE(child->exitCode(), 0);
    const QString host = QFileInfo(programs.sandbox.host(folder)).canonicalFilePath();
    QCOMPARE(programs.sandbox.read(programs.out), host.toUtf8() + '\n');
}

void TestProcess::missingProgramFails_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("nothing") << "";
    QTest::newRow("blanks") << "   ";
    QTest::newRow("missing") << "C:\\Bin\\missing.exe";
    QTest::newRow("missing, argument") << "C:\\Bin\\missing.exe C:\\Bin\\tool";
    QTest::newRow("name") << "missing.exe";
    QTest::newRow("missing folder") << "C:\\Gone\\tool";
    QTest::newRow("missing drive") << "Q:\\tool";
    QTest::newRow("folder") << "C:\\Bin";
    QTest::newRow("quoted with its argument") << "\"C:\\Bin\\tool x\"";
    QTest::newRow("quote that is not closed") << "\"C:\\Bin\\tool";
    QTest::newRow("empty quotes") << "\"\" C:\\Bin\\tool";
    QTest::newRow("name Windows refuses") << "C:\\Bin\\to|ol";
}

void TestProcess::missingProgramFails()
{
    QFETCH(QString, line);
    Programs programs;
    programs.add("C:\\Bin\\tool");
    QCOMPARE(failureOf([&] { programs.processes.start(line, 1); }), QString("53 File not found"));
    QVERIFY(!hasChild());
}

void TestProcess::fileThatCannotBeRunFails_data()
{
    QTest::addColumn<bool>("executable");
    QTest::newRow("a text") << true;
    QTest::newRow("no right to run it") << false;
}

void TestProcess::fileThatCannotBeRunFails()
{
    QFETCH(bool, executable);
    Programs programs;
    programs.add("C:\\Bin\\tool", executable ? "exit 0\n" : "#!/bin/sh\n");
    if (!executable) {
        QVERIFY(QFile::setPermissions(programs.sandbox.host("C:\\Bin\\tool"), QFile::ReadOwner));
    }
    QCOMPARE(failureOf([&] { programs.processes.start("C:\\Bin\\tool", 1); }),
             QString("75 Path/File access error"));
    QVERIFY(!hasChild());
}

void TestProcess::finishedChildLeavesNothingOver()
{
    Programs programs;
    programs.addScript("C:\\Bin\\tool", "exit 0");
    const auto child = programs.processes.start("C:\\Bin\\tool", 1);
    QVERIFY(hasChild());
    QTRY_COMPARE(child->exitCode(), 0);
    QVERIFY(!hasChild());
}

void TestProcess::droppedChildRunsOn()
{
    Programs programs;
    const Gate gate(programs.sandbox.host("C:\\Bin\\gate"));
    programs.addScript("C:\\Bin\\tool", gate.wait() + "echo done > \"$OUT\"");
    programs.processes.start("C:\\Bin\\tool", 1).reset();
    QVERIFY(hasChild() && !programs.sandbox.exists(programs.out));
    QVERIFY(gate.open());
    QTRY_VERIFY(!hasChild());
    QCOMPARE(programs.sandbox.read(programs.out), QByteArray("done\n"));
}

void TestProcess::droppedChildLeavesNothingOver()
{
    Programs programs;
    programs.addScript("C:\\Bin\\tool", "exit 0");
    programs.processes.start("C:\\Bin\\tool", 1).reset();
    QTRY_VERIFY(!hasChild());
}

/// What this process ignores for its own sake, a program it starts does not.
void TestProcess::childHasTheUsualSignals()
{
    prepareHost();
    Programs programs;
    programs.addScript("C:\\Bin\\tool", "kill -XFSZ $$");
    const auto child = programs.processes.start("C:\\Bin\\tool", 1);
    QTRY_COMPARE(child->exitCode(), 128 + SIGXFSZ);
}

void TestProcess::waitEndsWithTheChild()
{
    Programs programs;
    RealShell real(programs);
    const Gate gate(programs.sandbox.host("C:\\Bin\\gate"));
    programs.addScript("C:\\Bin\\tool", gate.wait() + "printf %s \"$1\" > \"$OUT\"");
    // Only a window that lives while waiting can let the child go on.
    QTimer::singleShot(0, this, [&] { QVERIFY(gate.open()); });
    QVERIFY(real.services.shell.Shellandwait("C:\\Bin\\tool a; $(b)", 0, 1));
    QCOMPARE(programs.sandbox.read(programs.out), QByteArray("a; $(b)"));
    QVERIFY(!hasChild());
}

void TestProcess::childThatFailsKeepsTheWaitGoingUntilTheTimeOut()
{
    Programs programs;
    RealShell real(programs);
    programs.addScript("C:\\Bin\\tool", "exit 1");
    real.fakes.clock.secondsPerLook = 1;
    const QDateTime start = real.fakes.clock.time;
    QVERIFY(real.services.shell.Shellandwait("C:\\Bin\\tool", 5, 1));
    QCOMPARE(real.fakes.clock.time, start.addSecs(6)); // the look that saw the fifth second
    QVERIFY(!hasChild());
}

void TestProcess::quittingWhileAChildRunsEndsTheWaitAndLeavesTheChild()
{
    Programs programs;
    RealShell real(programs);
    const Gate gate(programs.sandbox.host("C:\\Bin\\gate"));
    programs.addScript("C:\\Bin\\tool", gate.wait() + "echo done > \"$OUT\"");
    QTimer::singleShot(0, this, [&] { real.services.state.ended = true; });
    QVERIFY(!real.services.shell.Shellandwait("C:\\Bin\\tool", 0, 1));
    QCOMPARE(real.fakes.dialogs.boxes.size(), 0);
    QVERIFY(hasChild() && !programs.sandbox.exists(programs.out));
    QVERIFY(gate.open());
    QTRY_VERIFY(!hasChild());
    QVERIFY(programs.sandbox.exists(programs.out));
}

void TestProcess::missingProgramIsReportedByTheWait()
{
    Programs programs;
    RealShell real(programs);
    QVERIFY(!real.services.shell.Shellandwait("C:\\TTools\\TTools.exe", 0, 1));
    QCOMPARE(real.fakes.dialogs.boxes.size(), 1);
    QCOMPARE(real.fakes.dialogs.boxes[0].title, QString("ShellandWait Error"));
    QCOMPARE(real.fakes.dialogs.boxes[0].prompt, QString("Error Handled. See log."));
}

void TestProcess::documentIsOpenedAsAFile()
{
    Programs programs;
    programs.sandbox.write("C:\\Morlen\\Docs\\My #1 %20 help.htm", "");
    programs.addScript("C:\\Path\\xdg-open", "printf '%s|' $# \"$@\" > \"$OUT.part\"\n"
                                             "/bin/mv \"$OUT.part\" \"$OUT\"");
    QVERIFY(QDir::setCurrent("/"));
    programs.processes.openDocument("c:\\morlen\\docs\\my #1 %20 help.htm");
    QTRY_VERIFY(programs.sandbox.exists(programs.out));
    const QList<QByteArray> words = programs.sandbox.read(programs.out).split('|');
    QCOMPARE(words.value(0), QByteArray("1"));
    QCOMPARE(QFileInfo(QFile::decodeName(words.value(1))).canonicalFilePath(),
             QFileInfo(programs.sandbox.host("C:\\Morlen\\Docs\\My #1 %20 help.htm"))
                 .canonicalFilePath());
}

void TestProcess::missingDocumentFails_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("file") << "C:\\Morlen\\Donate.htm";
    QTest::newRow("folder") << "C:\\Morlen\\Docs\\MorlenEHelp.htm";
}

void TestProcess::missingDocumentFails()
{
    QFETCH(QString, path);
    Programs programs;
    programs.addScript("C:\\Path\\xdg-open", "exit 0");
    QCOMPARE(failureOf([&] { programs.processes.openDocument(path); }),
             QString("53 File not found"));
}

void TestProcess::documentThatNothingOpensFails()
{
    Programs programs; // no xdg-open on the PATH
    programs.sandbox.write("C:\\Morlen\\Donate.htm", "");
    QCOMPARE(failureOf([&] { programs.processes.openDocument("C:\\Morlen\\Donate.htm"); }),
             QString("53 File not found: xdg-open"));
}

QTEST_MAIN(TestProcess)
#include "test_process.moc"
