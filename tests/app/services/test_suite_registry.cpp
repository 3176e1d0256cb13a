// SPDX-License-Identifier: MIT
// Registering this program, finding its companions, and launching them.
#include "app/services/suite_registry.h"

#include "platform/paths.h"
#include "tests/support/fakes.h"
#include "tests/support/sandbox.h"
#include "tests/support/steps.h"

#include <QtTest>

namespace
{

const QString caption = QStringLiteral("Morlen Utilities - Version 1.5.4");

/// A registry as the suite leaves it, and what was found in it.
struct Suite {
    void check()
    {
        found = suite_registry::CheckRegistry(registry, "C:\\Morlen\\", caption, steps.step);
    }

    void add(const QString &key, const QString &name, const QString &text)
    {
        registry.setValue(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel\\" + key, name, text);
    }

    QString text(const QString &key, const QString &name) const
    {
        return registry.text(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel\\" + key, name)
            .value_or("(none)");
    }

    FakeRegistry registry;
    Steps steps;
    suite_registry::Companions found;
};

} // namespace

class TestSuiteRegistry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstStartCreatesTheSuitesTwoKeys();
    void movedProgramLeavesTheRegisteredPathAndRefreshesTheCaption();
    void withoutPellarasKeysItsPathStaysEmpty();
    void companionsAreFound();
    void companionThatIsGoneIsForgotten();
    void folderIsThePathLessTheProgramsName_data();
    void folderIsThePathLessTheProgramsName();
    void runningCompanionIsRaisedInsteadOfStartedTwice();
    void companionThatDoesNotRunIsStartedInItsOwnFolder();
    void companionWithoutACaptionIsStarted();
    void companionWhoseFolderIsGoneIsAnError();
    void whatCannotBeReadIsNamed_data();
    void whatCannotBeReadIsNamed();
};

void TestSuiteRegistry::firstStartCreatesTheSuitesTwoKeys()
{
    Suite suite;
    suite.check();
    QCOMPARE(suite.text("Morlen Utilities\\Path", "Exe_Path"),
             QString("C:\\Morlen\\MorlenEditor.exe"));
    QCOMPARE(suite.text("Morlen Utilities\\Caption", "Caption"), caption);
    QCOMPARE(suite.steps.ErrMsg, QString("Check for Pellara Caption"));
}

void TestSuiteRegistry::movedProgramLeavesTheRegisteredPathAndRefreshesTheCaption()
{
    Suite suite;
    suite.add("Morlen Utilities\\Path", "Exe_Path", "D:\\Old\\MorlenEditor.exe");
    suite.add("Morlen Utilities\\Caption", "Caption", "Morlen Utilities - Version 1.4.0");
    suite.check();
    QCOMPARE(suite.text("Morlen Utilities\\Path", "Exe_Path"),
             QString("D:\\Old\\MorlenEditor.exe"));
    QCOMPARE(suite.text("Morlen Utilities\\Caption", "Caption"), caption);
}

void TestSuiteRegistry::withoutPellarasKeysItsPathStaysEmpty()
{
    Suite suite;
    suite.check();
    QCOMPARE(suite.found.PellaraPath, QString());
    QCOMPARE(suite.found.PellaraCaption, QString());
    QCOMPARE(suite.found.VarloPath, QString());
}

void TestSuiteRegistry::companionsAreFound()
{
    Suite suite;
    suite.add("Pellara\\Path", "Exe_Path", "C:\\Pellara\\Pellara.exe");
    suite.add("Pellara\\Caption", "Caption", "Pellara 2");
    suite.add("Varlo\\Path", "Exe_Path", "C:\\Varlo");
    suite.check();
    QCOMPARE(suite.found.PellaraPath, QString("C:\\Pellara\\Pellara.exe"));
    QCOMPARE(suite.found.PellaraCaption, QString("Pellara 2"));
    QCOMPARE(suite.found.VarloPath, QString("C:\\Varlo"));
}

void TestSuiteRegistry::companionThatIsGoneIsForgotten()
{
    Suite suite;
    suite.add("Pellara\\Path", "Exe_Path", "C:\\Pellara\\Pellara.exe");
    suite.check();
    suite.add("Pellara\\Path", "Exe_Path", QString());
    suite.check();
    QCOMPARE(suite.found.PellaraPath, QString());
}

void TestSuiteRegistry::folderIsThePathLessTheProgramsName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::newRow("program") << "C:\\Pellara\\Pellara.exe"
                             << "C:\\Pellara";
    QTest::newRow("any case") << "C:\\Suite\\PELLARA.EXE"
                              << "C:\\Suite";
    QTest::newRow("folder") << "C:\\Pellara"
                            << "C:\\Pellara";
    QTest::newRow("on the root") << "C:\\Pellara.exe"
                                 << "C:";
}

void TestSuiteRegistry::folderIsThePathLessTheProgramsName()
{
    QFETCH(QString, path);
    QFETCH(QString, folder);
    QCOMPARE(suite_registry::folderOf(path, "Pellara.exe"), folder);
}

void TestSuiteRegistry::runningCompanionIsRaisedInsteadOfStartedTwice()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\Pellara");
    FakeProcesses processes;
    processes.windows = {"Pellara 20", "Pellara 2"};
    suite_registry::launch(processes, "C:\\Pellara\\Pellara.exe", "Pellara.exe", "Pellara 2");
    QCOMPARE(processes.raised, QStringList{"Pellara 2"});
    QCOMPARE(processes.started, QStringList());
    QCOMPARE(paths::currentDirectory(), QString("C:\\Pellara"));
}

void TestSuiteRegistry::companionThatDoesNotRunIsStartedInItsOwnFolder()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\My Pellara");
    FakeProcesses processes;
    suite_registry::launch(processes, "C:\\My Pellara\\pellara.exe", "Pellara.exe", "Pellara 2");
    QCOMPARE(processes.started, QStringList{"\"C:\\My Pellara\\Pellara.exe\""});
    QCOMPARE(processes.windowStyles, QList<int>{1});
    QCOMPARE(paths::currentDirectory(), QString("C:\\My Pellara"));
}

void TestSuiteRegistry::companionWithoutACaptionIsStarted()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\Pellara");
    FakeProcesses processes;
    processes.windows = {""}; // somebody's window without a name
    suite_registry::launch(processes, "C:\\Pellara\\Pellara.exe", "Pellara.exe", "");
    QCOMPARE(processes.raised, QStringList());
    QCOMPARE(processes.started, QStringList{"\"C:\\Pellara\\Pellara.exe\""});
}

void TestSuiteRegistry::companionWhoseFolderIsGoneIsAnError()
{
    const Sandbox sandbox;
    FakeProcesses processes;
    processes.windows = {"P"};
    QCOMPARE(failureOf([&] {
                 suite_registry::launch(processes, "C:\\Gone\\Pellara.exe", "Pellara.exe", "P");
             }),
             QString("76 Path not found"));
    QCOMPARE(processes.started, QStringList());
    QCOMPARE(processes.raised, QStringList()); // the folder comes first
}

void TestSuiteRegistry::whatCannotBeReadIsNamed_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("registered");
    QTest::addColumn<QString>("step");
    QTest::newRow("path") << "Utilities\\Path" << true << "Check for MorlenE exe_Path";
    QTest::newRow("caption") << "Utilities\\Caption" << true << "Check for MorlenE Caption";
    QTest::newRow("Pellara") << "Pellara\\Path" << false << "Check for Pellara Exe_Path";
    QTest::newRow("its caption") << "Pellara\\Caption" << false << "Check for Pellara Caption";
}

void TestSuiteRegistry::whatCannotBeReadIsNamed()
{
    QFETCH(QString, key);
    QFETCH(bool, registered);
    QFETCH(QString, step);
    Suite suite;
    if (registered) {
        suite.add("Morlen Utilities\\Path", "Exe_Path", "C:\\Morlen\\MorlenEditor.exe");
    }
    suite.registry.failing = key;
    QCOMPARE(failureOf([&] { suite.check(); }) + ": " + suite.steps.ErrMsg,
             "57 Device I/O error: " + step);
}

QTEST_GUILESS_MAIN(TestSuiteRegistry)
#include "test_suite_registry.moc"
