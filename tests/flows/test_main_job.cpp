// SPDX-License-Identifier: MIT
// The main job as a user does it: real window, real mouse, real folders, real programs.
#include "tests/support/whole_program.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QtTest>

namespace
{

const QString textFile = WholeProgram::textFile;
const QByteArray existing = WholeProgram::existing;

} // namespace

class TestMainJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tickedAircraftAreAddedToTheChosenFile();
    void checkAllAddsEverythingAndTheListSaysSo();
    void directoryIsPickedByDoubleClick();
    void textFileIsEditedInNotepadAndReadAgain();
    void tToolsRunsWhileTheWindowStaysAlive();
    void quittingWhileNotepadIsOpenEndsTheProgram();
    void closingTheWindowAsksOnceAndClosesOnNo();
    void linkTurnsBoldUnderTheMouse();
};

void TestMainJob::tickedAircraftAreAddedToTheChosenFile()
{
    WholeProgram program;
    QString done;
    const QString problem = program.use([&](RealUser &user) {
        RealUser::shoot("first_run");
        user.click("cmdBrowseText");
        user.chooseFile(program.sandbox.host(textFile));
        user.await("the lists", [&] { return program.list("Tab0List2")->count() == 2; });
        user.clickCheckBox("Tab0List2", 0);
        user.clickCheckBox("Tab0List2", 1);
        RealUser::shoot("ticked");
        user.click("cmdAddAI");
        done = user.box();
        RealUser::shoot("added");
        user.answer("OK");
        user.await("the lists", [&] { return program.list("Tab0List3")->count() == 3; });
        user.press("ctrl+q");
        user.answer("Yes");
    });
    QCOMPARE(problem, QString());
    QCOMPARE(done, QString("Add AI|All Done!  AI Aircraft Added"));
    const QByteArray bytes = program.sandbox.read(textFile);
    QVERIFY(bytes.startsWith(existing));
    const QRegularExpression added(
        "^//AI Aircraft Added [A-Z][a-z]+day, [A-Z][a-z]+ \\d\\d, \\d{4} \\d\\d:\\d\\d:\\d\\d\r\n"
        "AC#10,454,\"Airbus Blue\"\r\nAC#11,124,\"Cessna <b>&Blue\"\r\n$");
    QVERIFY2(added.match(bytes.sliced(existing.size())).hasMatch(), bytes.constData());
    QCOMPARE(program.sandbox.read(textFile + ".Backup1"), existing);
    QCOMPARE(
        program.sandbox.read("C:\\Morlen\\MorlenE.ini"),
        QByteArray("0\r\n\r\nc:\r\nC:\\FS9\\Aircraft\r\nC:\\TTools\\Aircraft_Set.txt\r\nTrue\r\n"));
}

void TestMainJob::checkAllAddsEverythingAndTheListSaysSo()
{
    WholeProgram program;
    program.remember();
    const QString problem = program.use([&](RealUser &user) {
        user.click("optAll");
        user.click("cmdAddAI");
        user.answer("OK");
        user.await("the notice", [&] {
            return program.list("Tab0List2")->items() ==
                   QStringList{"All Available Aircraft have been used"};
        });
        user.clickCheckBox("Tab0List2", 0);
        user.await("the tick", [&] { return program.list("Tab0List2")->selectedCount() == 1; });
        RealUser::shoot("all_used");
    });
    QCOMPARE(problem, QString());
    QVERIFY(!findControl<QPushButton>(*program.window, "cmdAddAI")->isEnabled());
    QCOMPARE(program.sandbox.read(textFile).count("AC#"), 3);
}

void TestMainJob::directoryIsPickedByDoubleClick()
{
    WholeProgram program;
    program.remember();
    program.sandbox.makeFolder("C:\\FS9\\Aircraft\\Mine\\Rotorcraft\\R22");
    const QString problem = program.use([&](RealUser &user) {
        user.click("cmdBrowseFSPath");
        // The open folder is the third line: the root, FS9, Aircraft, and its four sub-folders.
        user.clickEntry("Dir1", 6);
        RealUser::shoot("picker_open");
        user.doubleClickEntry("Dir1", 6);
        user.await("the folder", [&] {
            return findControl<QWidget>(*program.window, "frmDriveDialog")->isVisible();
        });
        user.doubleClickEntry("Dir1", 4);
        user.await("the choice", [&] {
            return !findControl<QWidget>(*program.window, "frmDriveDialog")->isVisible();
        });
    });
    QCOMPARE(problem, QString());
    QCOMPARE(program.label("lblFSPath"), QString("C:\\FS9\\Aircraft\\Mine\\Rotorcraft"));
    QCOMPARE(program.label("lblAircraftTextFile"), QString("Please select an Aircraft Text File"));
}

void TestMainJob::textFileIsEditedInNotepadAndReadAgain()
{
    NEEDS(shellScripts);
    WholeProgram program;
    program.remember();
    program.addProgram("C:\\windows\\system32\\NOTEPAD.EXE",
                       "printf 'AC#12,454,\"Airbus Blue\"\\r\\n' >> \"$1\"\n");
    QString question;
    const QString problem = program.use([&](RealUser &user) {
        user.doubleClickEntry("Tab0List3", 0);
        question = user.box();
        RealUser::shoot("edited");
        user.answer("Yes");
        user.await("the lists", [&] { return program.list("Tab0List3")->count() == 2; });
    });
    QCOMPARE(problem, QString());
    QCOMPARE(question,
             "Edit Aircraft Text File|Have you made changes to the " + textFile + " file? ");
    QCOMPARE(program.list("Tab0List2")->items(), QStringList{"Cessna <b>&Blue 124"});
}

void TestMainJob::tToolsRunsWhileTheWindowStaysAlive()
{
    NEEDS(shellScripts);
    WholeProgram program;
    program.remember();
    // Runs until it is told to end, and says when it did.
    program.addProgram("C:\\TTools\\TTools.exe", "cd \"$(dirname \"$0\")\"\necho run > started\n"
                                                 "while [ ! -e stop ]; do sleep 0.05; done\n"
                                                 "echo done > report.txt\n");
    const QString problem = program.use([&](RealUser &user) {
        user.click("cmdTtools");
        user.await("TTools", [&] { return program.sandbox.exists("C:\\TTools\\started"); });
        user.clickTab(2); // answered while the program waits
        user.await("page 2", [&] {
            return findControl<QTabWidget>(*program.window, "SSTab1")->currentIndex() == 2;
        });
        program.sandbox.write("C:\\TTools\\stop", "");
        user.await("the report", [&] { return program.sandbox.exists("C:\\TTools\\report.txt"); });
    });
    QCOMPARE(problem, QString());
}

void TestMainJob::quittingWhileNotepadIsOpenEndsTheProgram()
{
    NEEDS(shellScripts);
    WholeProgram program;
    program.remember();
    program.addProgram("C:\\windows\\system32\\NOTEPAD.EXE",
                       "echo open > \"$1.open\"\n"
                       "while [ -e \"$1.open\" ]; do sleep 0.1; done\n"); // until the sandbox goes
    const QString problem = program.use([&](RealUser &user) {
        user.click("cmdEdit");
        user.await("Notepad", [&] { return program.sandbox.exists(textFile + ".open"); });
        user.press("ctrl+q");
        user.answer("Yes");
        user.await("the end", [&] { return program.window->isHidden(); });
    });
    QCOMPARE(problem, QString());
    QVERIFY(!program.window->isVisible());
    QVERIFY(program.sandbox.read("C:\\Morlen\\MorlenE.ini").contains(textFile.toLatin1()));
}

void TestMainJob::closingTheWindowAsksOnceAndClosesOnNo()
{
    WholeProgram program;
    program.remember();
    const QByteArray before = program.sandbox.read("C:\\Morlen\\MorlenE.ini");
    QString question;
    const QString problem = program.use([&](RealUser &user) {
        user.closeWindow();
        question = user.box();
        user.answer("No");
        user.await("the window to close", [&] { return !program.window->isVisible(); });
    });
    QCOMPARE(problem, QString());
    QCOMPARE(question, QString("Confirm Exit|Do you really want to exit?"));
    QCOMPARE(program.sandbox.read("C:\\Morlen\\MorlenE.ini"), before);
}

void TestMainJob::linkTurnsBoldUnderTheMouse()
{
    WholeProgram program;
    program.remember();
    const auto bold = [&] {
        return findControl<QWidget>(*program.window, "lblHelp")->font().bold();
    };
    const QString problem = program.use([&](RealUser &user) {
        user.moveTo("lblHelp");
        user.await("a bold link", bold);
        user.moveTo("frmLeveler");
        user.await("a plain link", [&] { return !bold(); });
    });
    QCOMPARE(problem, QString());
}

QTEST_MAIN(TestMainJob)
#include "test_main_job.moc"
