// SPDX-License-Identifier: MIT
// Which program a command line means.
#include "platform/prefix/host_command.h"

#include "app/services/notepad_substitutes.h"
#include "platform/paths.h"
#include "platform/prefix/prefix.h"
#include "tests/support/environment.h"
#include "tests/support/failure.h"
#include "tests/support/programs.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

namespace
{

/// The program and its arguments, what lies on C: shortened to "c:/...".
QStringList resolved(const QString &commandLine)
{
    const HostCommand command = resolveCommand(commandLine, notepadSubstitutes());
    QStringList words = QStringList(command.program) + command.arguments;
    for (QString &word : words) {
        const QString host = QFileInfo(word).absoluteFilePath();
        for (const QString &drive :
             {paths::prefix() + "/drive_c/", paths::prefix() + "/dosdevices/c:/"}) {
            if (QDir::isAbsolutePath(word) && host.startsWith(drive)) {
                word = "c:/" + host.sliced(drive.size());
            }
        }
    }
    return words;
}

} // namespace

class TestHostCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowsPathReachesANativeProgramAsTheHosts();
    void programPathMayHoldBlanks_data();
    void programPathMayHoldBlanks();
    void shortestLeadingPartThatIsAProgramIsTaken();
    void programIsLookedForInSystemFoldersThenOnThePath();
    void wholeLineThatIsAProgramIsTaken();
    void partsOfThePathThatDependOnWhereWeAreAreSkipped_data();
    void partsOfThePathThatDependOnWhereWeAreAreSkipped();
    void missingHelpersAreNamed();
    void currentDirectoryIsNotSearched();
    void windowsProgramRunsWithWine();
    void notepadOfTheSystemIsTaken();
    void editorStandsInForNotepad_data();
    void editorStandsInForNotepad();
};

void TestHostCommand::windowsPathReachesANativeProgramAsTheHosts()
{
    Programs programs;
    programs.sandbox.write("C:\\My Files\\Set; $(x).txt", "");
    programs.add("C:\\Bin\\tool");
    QCOMPARE(resolved("C:\\Bin\\tool c:\\my files\\SET; $(x).txt"),
             (QStringList{"c:/Bin/tool", "c:/My Files/Set; $(x).txt"}));
}

void TestHostCommand::programPathMayHoldBlanks_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");
    const QString tool = "c:/My Tools/a b; $(c).exe";
    QTest::newRow("alone") << "C:\\My Tools\\a b; $(c).exe" << QStringList{tool};
    QTest::newRow("argument") << "C:\\My Tools\\a b; $(c).exe x y" << QStringList{tool, "x y"};
    QTest::newRow("quoted") << "\"C:\\My Tools\\a b; $(c).exe\"" << QStringList{tool};
    QTest::newRow("quoted, argument")
        << "  \"C:\\My Tools\\a b; $(c).exe\"  \"x\" y " << QStringList{tool, "\"x\" y"};
    QTest::newRow("other case") << "c:\\MY TOOLS\\A B; $(C).EXE x" << QStringList{tool, "x"};
}

void TestHostCommand::programPathMayHoldBlanks()
{
    QFETCH(QString, line);
    QFETCH(QStringList, words);
    const Programs programs;
    programs.add("C:\\My Tools\\a b; $(c).exe");
    QCOMPARE(resolved(line), words);
}

void TestHostCommand::shortestLeadingPartThatIsAProgramIsTaken()
{
    const Programs programs;
    programs.add("C:\\Bin\\a");
    programs.add("C:\\Bin\\a b");
    QCOMPARE(resolved("C:\\Bin\\a b c"), (QStringList{"c:/Bin/a", "b c"}));
    QCOMPARE(resolved("\"C:\\Bin\\a b\" c"), (QStringList{"c:/Bin/a b", "c"}));
}

void TestHostCommand::programIsLookedForInSystemFoldersThenOnThePath()
{
    const Programs programs;
    programs.add("C:\\Path\\tool");
    QCOMPARE(resolved("tool x"), (QStringList{"c:/Path/tool", "x"}));
    programs.add("C:\\windows\\TOOL");
    QCOMPARE(resolved("tool x"), (QStringList{"c:/windows/TOOL", "x"}));
    programs.add("C:\\windows\\system32\\Tool");
    QCOMPARE(resolved("tool x"), (QStringList{"c:/windows/system32/Tool", "x"}));
}

void TestHostCommand::wholeLineThatIsAProgramIsTaken()
{
    const Programs programs;
    programs.add("C:\\Program");
    programs.add("C:\\Program Files\\TTools\\TTools.exe");
    QCOMPARE(resolved("C:\\Program Files\\TTools\\TTools.exe"),
             QStringList{"c:/Program Files/TTools/TTools.exe"});
    QCOMPARE(resolved("C:\\Program Files\\TTools\\TTools.exe x"),
             (QStringList{"c:/Program", "Files\\TTools\\TTools.exe x"}));
}

void TestHostCommand::partsOfThePathThatDependOnWhereWeAreAreSkipped_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("here") << QByteArray(".");
    QTest::newRow("empty part") << QByteArray("/nowhere::/nowhere");
    QTest::newRow("empty end") << QByteArray("/nowhere:");
    QTest::newRow("relative") << QByteArray("../Morlen:Morlen");
}

void TestHostCommand::partsOfThePathThatDependOnWhereWeAreAreSkipped()
{
    QFETCH(QByteArray, path);
    const Programs programs;
    programs.add("C:\\Morlen\\tool");
    programs.add("C:\\Morlen\\Morlen\\tool");
    const Environment searched("PATH", path);
    QCOMPARE(failureOf([&] { resolved("tool"); }), "53 File not found");
}

void TestHostCommand::missingHelpersAreNamed()
{
    const Programs programs;
    programs.add("C:\\TTools\\TTools.exe", "MZ\x90");
    QCOMPARE(failureOf([&] { resolved("C:\\TTools\\TTools.exe"); }), "53 File not found: wine");
    const QString noEditor = failureOf([&] { resolved("NOTEPAD.EXE C:\\a.txt"); });
    QCOMPARE(noEditor, "53 File not found: notepad, mousepad, gedit, gnome-text-editor, kate, "
                       "kwrite, featherpad, pluma, xed, leafpad");
}

void TestHostCommand::currentDirectoryIsNotSearched()
{
    const Programs programs;
    programs.add("C:\\Morlen\\tool");
    QCOMPARE(paths::currentDirectory(), QString("C:\\Morlen"));
    QCOMPARE(failureOf([&] { resolved("tool"); }), QString("53 File not found"));
}

void TestHostCommand::windowsProgramRunsWithWine()
{
    const Programs programs;
    programs.add("C:\\Path\\wine");
    programs.sandbox.write("C:\\TTools\\TTools.exe", "MZ\x90"); // needs no right to run
    QCOMPARE(resolved("C:\\TTools\\ttools.exe"),
             (QStringList{"c:/Path/wine", "c:/TTools/TTools.exe"}));
    // Its argument is for Windows: it stays as it is.
    QCOMPARE(resolved("C:\\TTools\\ttools.exe C:\\my set.txt"),
             (QStringList{"c:/Path/wine", "c:/TTools/TTools.exe", "C:\\my set.txt"}));
}

void TestHostCommand::notepadOfTheSystemIsTaken()
{
    const Programs programs;
    programs.add("C:\\Path\\gedit");
    programs.add("C:\\Path\\wine");
    programs.sandbox.write("C:\\windows\\notepad.exe", "MZ\x90");
    for (const char *name : {"NOTEPAD.EXE", "Notepad"}) { // the ending may be left out
        QCOMPARE(resolved(QString(name) + " C:\\my set.txt"),
                 (QStringList{"c:/Path/wine", "c:/windows/notepad.exe", "C:\\my set.txt"}));
    }
}

void TestHostCommand::editorStandsInForNotepad_data()
{
    QTest::addColumn<QStringList>("editors");
    QTest::addColumn<QStringList>("words");
    const QString set = "c:/TTools/my set.txt";
    QTest::newRow("mousepad") << QStringList{"mousepad"}
                              << QStringList{"c:/Path/mousepad", "--disable-server", set};
    QTest::newRow("gedit") << QStringList{"gedit"}
                           << QStringList{"c:/Path/gedit", "--standalone", "--wait", set};
    QTest::newRow("kate") << QStringList{"kate"} << QStringList{"c:/Path/kate", "--block", set};
    QTest::newRow("gnome-text-editor")
        << QStringList{"gnome-text-editor"}
        << QStringList{"c:/Path/gnome-text-editor", "--standalone", set};
    QTest::newRow("kwrite") << QStringList{"kwrite"} << QStringList{"c:/Path/kwrite", set};
    QTest::newRow("featherpad") << QStringList{"featherpad"}
                                << QStringList{"c:/Path/featherpad", "--standalone", set};
    QTest::newRow("pluma") << QStringList{"pluma"} << QStringList{"c:/Path/pluma", set};
    QTest::newRow("xed") << QStringList{"xed"} << QStringList{"c:/Path/xed", "--standalone", set};
    QTest::newRow("leafpad") << QStringList{"leafpad"} << QStringList{"c:/Path/leafpad", set};
    QTest::newRow("first of several")
        << QStringList{"leafpad", "kate", "kwrite"} << QStringList{"c:/Path/kate", "--block", set};
}

void TestHostCommand::editorStandsInForNotepad()
{
    QFETCH(QStringList, editors);
    QFETCH(QStringList, words);
    const Programs programs;
    programs.sandbox.write("C:\\TTools\\my set.txt", "");
    for (const QString &editor : editors) {
        programs.add("C:\\Path\\" + editor);
    }
    QCOMPARE(resolved("NOTEPAD.EXE C:\\TTools\\my set.txt"), words);
    QCOMPARE(resolved("Notepad C:\\TTools\\my set.txt"), words);
}

QTEST_GUILESS_MAIN(TestHostCommand)
#include "test_host_command.moc"
