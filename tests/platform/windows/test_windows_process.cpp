// SPDX-License-Identifier: MIT
// Programs started on Windows, and windows brought to the front.
#include "platform/process.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QFile>
#include <QtTest>

#include <windows.h>

namespace
{

/// The helper under another name, which it reports under.
struct Helper {
    explicit Helper(const QString &windowsPath) : path(windowsPath)
    {
        sandbox.write(path, {});
        QFile::remove(sandbox.host(path));
        if (!QFile::copy(QCoreApplication::applicationDirPath() + "/windows_helper.exe",
                         sandbox.host(path))) {
            qFatal("the helper is missing");
        }
    }

    /// "arguments|folder|show", once it is written.
    QString report() const
    {
        const QString written = path + ".txt";
        for (int i = 0; i < 100 && (!sandbox.exists(written) || sandbox.read(written).isEmpty());
             ++i) {
            QTest::qWait(50);
        }
        return QString::fromLocal8Bit(sandbox.read(written));
    }

    Sandbox sandbox;
    QString path;
};

int exitCodeOf(Process &process)
{
    for (int i = 0; i < 200 && process.exitCode() == Process::stillActive; ++i) {
        QTest::qWait(25);
    }
    return process.exitCode();
}

} // namespace

class TestWindowsProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void argumentsArriveAsTheyStand();
    void exitCodeIs259WhileItRuns();
    void blanksInThePathNeedNoQuotes();
    void wholeLineIsLookedForFirst();
    void programsWorkInTheirDocumentsFolder();
    void missingProgramFails();
    void currentFolderIsNotSearched();
    void windowIsRaisedByItsWholeCaption();
};

void TestWindowsProcess::argumentsArriveAsTheyStand()
{
    const Helper helper("C:\\TTools\\helper.exe");
    SystemProcesses processes{QList<Substitute>()};
    const auto process = processes.start("C:\\TTools\\helper.exe C:\\My \"quoted\" file, .txt", 3);
    QCOMPARE(exitCodeOf(*process), 0);
    const QStringList words = helper.report().split('|');
    QCOMPARE(words[0], QString("C:\\My \"quoted\" file, .txt"));
    QCOMPARE(words[2], QString("3"));
}

void TestWindowsProcess::exitCodeIs259WhileItRuns()
{
    const Helper helper("C:\\TTools\\exit7.exe");
    SystemProcesses processes{QList<Substitute>()};
    const auto process = processes.start("C:\\TTools\\exit7.exe wait", 1);
    QCOMPARE(process->exitCode(), 259);
    QCOMPARE(exitCodeOf(*process), 7);
}

void TestWindowsProcess::blanksInThePathNeedNoQuotes()
{
    const Helper helper("C:\\Program Files\\T Tools\\helper.exe");
    SystemProcesses processes{QList<Substitute>()};
    exitCodeOf(*processes.start("C:\\Program Files\\T Tools\\helper.exe one two", 1));
    QCOMPARE(helper.report().section('|', 0, 0), QString("one two"));
    QFile::remove(helper.sandbox.host(helper.path + ".txt"));
    exitCodeOf(*processes.start("\"C:\\Program Files\\T Tools\\helper\" one", 1));
    QCOMPARE(helper.report().section('|', 0, 0), QString("one"));
}

void TestWindowsProcess::wholeLineIsLookedForFirst()
{
    const Helper helper("C:\\Program Files\\TTools.exe");
    helper.sandbox.write("C:\\Program", "no program");
    SystemProcesses processes{QList<Substitute>()};
    exitCodeOf(*processes.start("C:\\Program Files\\TTools.exe", 1));
    QCOMPARE(helper.report().section('|', 0, 0), QString());
}

void TestWindowsProcess::programsWorkInTheirDocumentsFolder()
{
    const Helper helper("C:\\TTools\\helper.exe");
    helper.sandbox.makeFolder("C:\\Sets");
    SystemProcesses processes{QList<Substitute>()};
    exitCodeOf(*processes.start("C:\\TTools\\helper.exe C:\\Sets\\a.txt", 1));
    QVERIFY(helper.report().section('|', 1, 1).endsWith("\\drive_c\\Sets"));
    QFile::remove(helper.sandbox.host(helper.path + ".txt"));
    exitCodeOf(*processes.start("C:\\TTools\\helper.exe", 1));
    QVERIFY(helper.report().section('|', 1, 1).endsWith("\\drive_c\\TTools"));
}

void TestWindowsProcess::missingProgramFails()
{
    const Sandbox sandbox;
    SystemProcesses processes{QList<Substitute>()};
    QCOMPARE(failureOf([&] { processes.start("C:\\None\\a.exe", 1); }), "53 File not found");
    QCOMPARE(failureOf([&] { processes.openDocument("C:\\None\\a.htm"); }), "53 File not found");
    sandbox.write("C:\\Morlen\\text.exe", "no program");
    QVERIFY(failureOf([&] { processes.start("C:\\Morlen\\text.exe", 1); }).startsWith("75 "));
}

void TestWindowsProcess::currentFolderIsNotSearched()
{
    const Helper helper("C:\\Morlen\\helper.exe"); // the current folder
    SystemProcesses processes{QList<Substitute>()};
    QCOMPARE(failureOf([&] { processes.start("helper.exe", 1); }), "53 File not found");
}

void TestWindowsProcess::windowIsRaisedByItsWholeCaption()
{
    SystemProcesses processes{QList<Substitute>()};
    QVERIFY(!processes.raiseWindow("Morlen Test Window"));
    HWND window =
        ::CreateWindowExW(0, L"STATIC", L"Morlen Test Window", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                          0, 200, 100, nullptr, nullptr, nullptr, nullptr);
    if (window == nullptr) {
        QSKIP("no windows here");
    }
    ::ShowWindow(window, SW_MINIMIZE);
    QVERIFY(!processes.raiseWindow("Morlen Test"));
    QVERIFY(!processes.raiseWindow("morlen test window"));
    QVERIFY(processes.raiseWindow("Morlen Test Window"));
    QVERIFY(::IsIconic(window) == 0);
    ::DestroyWindow(window);
}

QTEST_GUILESS_MAIN(TestWindowsProcess)
#include "test_windows_process.moc"
