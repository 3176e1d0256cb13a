// SPDX-License-Identifier: MIT
// Walking through the aircraft folders, alone and with what an earlier walk saw remembered.
#include "app/services/aircraft_folders.h"
#include "tests/support/failing_calls.h"
#include "tests/support/sandbox.h"
#include "tests/support/steps.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <functional>

namespace
{

const QString directory = QStringLiteral("C:\\FS9\\Aircraft");

struct Aircraft {
    Sandbox sandbox;
    AircraftFolders folders;
    Steps steps;
    QList<int> reached;
    QStringList stepsBehind;                   ///< the step when each folder was reached
    std::function<void()> beforeFirst = [] {}; ///< runs once the folders are listed

    QString host(const QString &folder) const { return sandbox.host(directory + '\\' + folder); }

    void add(const QString &folder, const QByteArray &title) const
    {
        sandbox.write(directory + '\\' + folder + "\\aircraft.cfg",
                      "[fltsim.0]\r\ntitle=" + title +
                          "\r\nui_manufacturer=M\r\nui_type=T\r\nui_variation=V\r\n"
                          "cruise_speed=100\r\n");
    }

    /// "folder: titles for traffic, name for the editor" of each folder that holds a file.
    QStringList walk(Content wanted, const QString &path = directory)
    {
        QStringList told;
        reached.clear();
        stepsBehind.clear();
        AircraftFolders::Walk walk = folders.walk(path, wanted);
        beforeFirst();
        while (const AircraftFolder *folder = walk.next(steps.step)) {
            reached += walk.index();
            stepsBehind += steps.ErrMsg;
            if (!folder->cfgFile.isEmpty()) {
                told += folder->name + ": " + folder->traffic.titles.join('+') + ", " +
                        folder->editor.displayName;
            }
        }
        return told;
    }
};

} // namespace

class TestAircraftFolders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void foldersComeInOrder();
    void countIsThatOfTheFolders();
    void onlyWhatIsWantedIsParsed();
    void folderWithoutConfigurationComesWithoutAFile();
    void folderThatIsGoneEndsTheWalk();
    void directoryThatIsGoneCannotBeWalked();
    void stepsNameTheFolderAndItsFile();
    void failuresToOpenAndToReadAreToldApart();
    void fileThatBreaksOffGivesTheLineReadLast();
    void rememberedWalkSeesWhatTheFirstOneSaw();
    void rememberedFoldersComeWithTheirSteps();
    void nothingIsRememberedUnlessWanted();
    void forgettingHasTheFoldersReadAnew();
    void anotherDirectoryIsRead();
    void directoryWithoutFoldersIsRememberedToo();
    void walkThatFailedIsNotRemembered();
    void walkGivenUpHalfWayIsNotRemembered();
};

void TestAircraftFolders::foldersComeInOrder()
{
    Aircraft aircraft;
    QStringList expected;
    QList<int> indexes;
    for (int i = 0; i < 600; ++i) {
        const QString name = QStringLiteral("ai_%1").arg(i, 3, 10, QChar('0'));
        aircraft.add(name, QByteArray::number(i));
        expected += name + ": " + QString::number(i) + ", ";
        indexes += i;
    }
    QCOMPARE(aircraft.walk(Content::Traffic), expected);
    QCOMPARE(aircraft.reached, indexes);
}

void TestAircraftFolders::countIsThatOfTheFolders()
{
    Aircraft aircraft;
    aircraft.sandbox.makeFolder(directory + "\\A");
    aircraft.add("B", "Baron");
    aircraft.folders.remember();
    QCOMPARE(aircraft.folders.walk(directory, Content::Traffic).count(), 2);
    aircraft.walk(Content::Traffic);
    QCOMPARE(aircraft.folders.walk(directory, Content::Traffic).count(), 2);
}

void TestAircraftFolders::onlyWhatIsWantedIsParsed()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    QCOMPARE(aircraft.walk(Content::Traffic), QStringList{"A: Baron, "});
    QCOMPARE(aircraft.walk(Content::Editor), QStringList{"A: , M - T - V - Baron"});
    QCOMPARE(aircraft.walk(Content::Both), QStringList{"A: Baron, M - T - V - Baron"});
}

void TestAircraftFolders::folderWithoutConfigurationComesWithoutAFile()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.sandbox.makeFolder(directory + "\\B");
    QCOMPARE(aircraft.walk(Content::Traffic), QStringList{"A: Baron, "});
    QCOMPARE(aircraft.reached, (QList<int>{0, 1}));
}

void TestAircraftFolders::folderThatIsGoneEndsTheWalk()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.add("B", "Baron");
    aircraft.add("C", "Baron");
    aircraft.beforeFirst = [&] { QVERIFY(QDir(aircraft.host("B")).removeRecursively()); };
    QCOMPARE(failureOf([&] { aircraft.walk(Content::Traffic); }), QString("76 Path not found"));
    QCOMPARE(aircraft.reached, QList<int>{0});
    QCOMPARE(aircraft.steps.ErrMsg, QString("Set path to C:\\FS9\\Aircraft\\B"));
}

void TestAircraftFolders::directoryThatIsGoneCannotBeWalked()
{
    Aircraft aircraft;
    QCOMPARE(failureOf([&] { aircraft.walk(Content::Traffic); }), QString("76 Path not found"));
}

void TestAircraftFolders::stepsNameTheFolderAndItsFile()
{
    NEEDS(casesApart);
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.sandbox.makeFolder(directory + "\\B");
    aircraft.sandbox.write(directory + "\\C\\AirCraft.CFG", "");
    aircraft.walk(Content::Traffic);
    QCOMPARE(aircraft.stepsBehind,
             (QStringList{"Check aircraft.cfg", "Set path to C:\\FS9\\Aircraft\\B",
                          "Check AirCraft.CFG"}));
}

void TestAircraftFolders::failuresToOpenAndToReadAreToldApart()
{
    NEEDS(links);
    const Aircraft aircraft;
    for (const char *name : {"A", "B"}) {
        aircraft.sandbox.makeFolder(directory + '\\' + name);
    }
    QVERIFY(QFile::link("nowhere", aircraft.host("A\\aircraft.cfg")));
    QVERIFY(QFile::link("/proc/self/mem", aircraft.host("B\\aircraft.cfg")));
    AircraftFolders folders;
    Steps steps;
    AircraftFolders::Walk walk = folders.walk(directory, Content::Traffic);
    const AircraftFolder notOpened = *walk.next(steps.step);
    QCOMPARE(notOpened.cfgFile, QString("C:\\FS9\\Aircraft\\A\\aircraft.cfg"));
    QCOMPARE(notOpened.failure->description(), QString("File not found"));
    const AircraftFolder notRead = *walk.next(steps.step);
    QVERIFY(!notRead.failure);
    QCOMPARE(notRead.traffic.failure->description(), QString("Device I/O error"));
    QCOMPARE(notRead.editor.failure->description(), QString("Device I/O error"));
    QVERIFY(!walk.next(steps.step));
}

void TestAircraftFolders::fileThatBreaksOffGivesTheLineReadLast()
{
    NEEDS(failingCalls);
    const Aircraft aircraft;
    aircraft.sandbox.write(directory + "\\A\\aircraft.cfg",
                           "title=Baron\r\nui_type=T" + QByteArray(100'000, 'x'));
    AircraftFolders folders;
    Steps steps;
    AircraftFolders::Walk walk = folders.walk(directory, Content::Editor);
    // The second read of each time that the file is opened.
    failing_calls::readFails = [reads = 0]() mutable { return ++reads % 2 == 0; };
    const AircraftFolder seen = *walk.next(steps.step);
    failing_calls::readFails = nullptr;
    QCOMPARE(seen.editor.failure->description(), QString("Device I/O error"));
    QVERIFY(seen.editor.lastLine.value_or(QString()).startsWith("ui_type=Txxx"));
    QCOMPARE(seen.editor.displayName, QString());
}

void TestAircraftFolders::rememberedWalkSeesWhatTheFirstOneSaw()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.sandbox.makeFolder(directory + "\\B");
    aircraft.folders.remember();
    const QStringList told = aircraft.walk(Content::Editor);
    QCOMPARE(told, QStringList{"A: Baron, M - T - V - Baron"});
    aircraft.add("A", "Changed");
    aircraft.add("C", "New");
    QCOMPARE(aircraft.walk(Content::Traffic), told);
    QCOMPARE(aircraft.reached, (QList<int>{0, 1}));
    QVERIFY(QDir(aircraft.sandbox.host(directory)).removeRecursively());
    QCOMPARE(aircraft.walk(Content::Editor), told);
}

void TestAircraftFolders::rememberedFoldersComeWithTheirSteps()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.sandbox.makeFolder(directory + "\\B");
    aircraft.folders.remember();
    aircraft.walk(Content::Editor);
    const QStringList steps = aircraft.stepsBehind;
    aircraft.walk(Content::Traffic);
    QCOMPARE(aircraft.stepsBehind, steps);
}

void TestAircraftFolders::nothingIsRememberedUnlessWanted()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.walk(Content::Traffic);
    aircraft.add("A", "Changed");
    QCOMPARE(aircraft.walk(Content::Traffic), QStringList{"A: Changed, "});
}

void TestAircraftFolders::forgettingHasTheFoldersReadAnew()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.folders.remember();
    aircraft.walk(Content::Editor);
    aircraft.folders.forget();
    aircraft.add("A", "Changed");
    aircraft.add("B", "New");
    QCOMPARE(aircraft.walk(Content::Traffic), (QStringList{"A: Changed, ", "B: New, "}));
}

void TestAircraftFolders::anotherDirectoryIsRead()
{
    const QString other = "C:\\FSX\\Airplanes";
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.sandbox.write(other + "\\A\\aircraft.cfg", "[fltsim.0]\r\ntitle=Other\r\n");
    aircraft.folders.remember();
    aircraft.walk(Content::Traffic);
    QCOMPARE(aircraft.walk(Content::Traffic, other), QStringList{"A: Other, "});
    // From now on that one is remembered.
    QVERIFY(QFile::remove(aircraft.sandbox.host(other + "\\A\\aircraft.cfg")));
    QCOMPARE(aircraft.walk(Content::Traffic, other), QStringList{"A: Other, "});
    aircraft.add("A", "Changed");
    QCOMPARE(aircraft.walk(Content::Traffic), QStringList{"A: Changed, M - T - V - Changed"});
}

void TestAircraftFolders::directoryWithoutFoldersIsRememberedToo()
{
    Aircraft aircraft;
    aircraft.sandbox.makeFolder(directory);
    aircraft.folders.remember();
    QCOMPARE(aircraft.walk(Content::Traffic), QStringList());
    aircraft.add("A", "New");
    QCOMPARE(aircraft.walk(Content::Traffic), QStringList());
}

void TestAircraftFolders::walkThatFailedIsNotRemembered()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.add("B", "Gone");
    aircraft.folders.remember();
    aircraft.beforeFirst = [&] { QVERIFY(QDir(aircraft.host("B")).removeRecursively()); };
    QCOMPARE(failureOf([&] { aircraft.walk(Content::Traffic); }), QString("76 Path not found"));
    aircraft.beforeFirst = [] {};
    aircraft.add("B", "Back");
    QCOMPARE(aircraft.walk(Content::Traffic).size(), 2);
}

void TestAircraftFolders::walkGivenUpHalfWayIsNotRemembered()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.add("B", "Second");
    aircraft.folders.remember();
    {
        AircraftFolders::Walk walk = aircraft.folders.walk(directory, Content::Traffic);
        walk.next(aircraft.steps.step);
    }
    aircraft.add("A", "Changed");
    QCOMPARE(aircraft.walk(Content::Traffic).first(), QString("A: Changed, M - T - V - Changed"));
}

QTEST_GUILESS_MAIN(TestAircraftFolders)
#include "test_aircraft_folders.moc"
