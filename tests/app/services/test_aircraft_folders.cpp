// SPDX-License-Identifier: MIT
// Walking through the aircraft folders: alone, sharing one look, and with a look begun before.
#include "app/services/aircraft_folders.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QFile>
#include <QtTest>

namespace
{

using Content = AircraftFolders::Content;

const QString directory = QStringLiteral("C:\\FS9\\Aircraft");

struct Aircraft {
    Sandbox sandbox;
    AircraftFolders folders;
    QString step;
    QList<int> reached;

    void add(const QString &folder, const QByteArray &title) const
    {
        sandbox.write(directory + '\\' + folder + "\\aircraft.cfg",
                      "[fltsim.0]\r\ntitle=" + title +
                          "\r\nui_manufacturer=M\r\nui_type=T\r\nui_variation=V\r\n"
                          "cruise_speed=100\r\n");
    }

    /// "folder: titles for traffic, name for the editor", as told.
    QStringList walk(const QStringList &subFolders, Content wanted)
    {
        QStringList told;
        reached.clear();
        folders.walk(directory, subFolders, wanted, step,
                     {.folderReached = [this](int index) { reached += index; },
                      .cfgFound =
                          [&](const AircraftFolder &folder) {
                              told += folder.name + ": " + folder.traffic.titles.join('+') + ", " +
                                      folder.editor.displayName;
                          }});
        return told;
    }
};

} // namespace

class TestAircraftFolders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void foldersAreToldInOrder();
    void onlyWhatIsWantedIsParsed();
    void folderWithoutConfigurationIsReachedNotTold();
    void folderThatIsGoneEndsTheWalk();
    void stepNamesTheFolder();
    void walksThatShareOneLookAreToldTheSame();
    void walkBehindASharedLookSeesWhatIsThere();
    void sharedLookServesItsOwnFoldersOnly();
    void walkThatFailedIsNotShared();
    void lookAheadIsToldToTheFirstWalk();
    void lookAheadOfAnotherDirectoryIsLeftAlone();
    void lookAheadOfADirectoryThatIsGoneIsNoFailureOfItsOwn();
    void folderInstalledSinceTheLookAheadIsSeen();
    void lookAheadNobodyWantsIsGivenUp();
};

void TestAircraftFolders::foldersAreToldInOrder()
{
    Aircraft aircraft;
    QStringList names;
    QStringList expected;
    QList<int> indexes;
    for (int i = 0; i < 600; ++i) { // more than are visited at a time
        names += QStringLiteral("ai_%1").arg(i, 3, 10, QChar('0'));
        aircraft.add(names.last(), QByteArray::number(i));
        expected += names.last() + ": " + QString::number(i) + ", ";
        indexes += i;
    }
    QCOMPARE(aircraft.walk(names, Content::Traffic), expected);
    QCOMPARE(aircraft.reached, indexes);
}

void TestAircraftFolders::onlyWhatIsWantedIsParsed()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    QCOMPARE(aircraft.walk({"A"}, Content::Traffic), QStringList{"A: Baron, "});
    QCOMPARE(aircraft.walk({"A"}, Content::Editor), QStringList{"A: , M - T - V - Baron"});
    QCOMPARE(aircraft.walk({"A"}, Content::All), QStringList{"A: Baron, M - T - V - Baron"});
}

void TestAircraftFolders::folderWithoutConfigurationIsReachedNotTold()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.sandbox.makeFolder(directory + "\\B");
    QCOMPARE(aircraft.walk({"A", "B"}, Content::Traffic), QStringList{"A: Baron, "});
    QCOMPARE(aircraft.reached, (QList<int>{0, 1}));
}

void TestAircraftFolders::folderThatIsGoneEndsTheWalk()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.add("C", "Baron");
    QCOMPARE(failureOf([&] {
                 aircraft.walk({"A", "B", "C"}, Content::Traffic);
             }),
             QString("76 Path not found"));
    QCOMPARE(aircraft.reached, (QList<int>{0, 1}));
    QCOMPARE(aircraft.step, QString("Set path to C:\\FS9\\Aircraft\\B"));
}

void TestAircraftFolders::stepNamesTheFolder()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.walk({}, Content::Traffic);
    QCOMPARE(aircraft.step, QString("Loop through Aircraft Directories"));
    aircraft.walk({"A"}, Content::Traffic);
    QCOMPARE(aircraft.step, QString("Set path to C:\\FS9\\Aircraft\\A"));
}

void TestAircraftFolders::walksThatShareOneLookAreToldTheSame()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    const AircraftFolders::SharedLook look(aircraft.folders);
    const QStringList told = aircraft.walk({"A"}, Content::Editor);
    QCOMPARE(told, QStringList{"A: Baron, M - T - V - Baron"});
    aircraft.add("A", "Changed");
    QCOMPARE(aircraft.walk({"A"}, Content::Traffic), told);
    QCOMPARE(aircraft.reached, QList<int>{0});
    QCOMPARE(aircraft.walk({"A"}, Content::Traffic), told);
}

void TestAircraftFolders::walkBehindASharedLookSeesWhatIsThere()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    {
        const AircraftFolders::SharedLook look(aircraft.folders);
        aircraft.walk({"A"}, Content::Editor);
    }
    aircraft.add("A", "Changed");
    QCOMPARE(aircraft.walk({"A"}, Content::Traffic), QStringList{"A: Changed, "});
}

void TestAircraftFolders::sharedLookServesItsOwnFoldersOnly()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.add("B", "Second");
    const AircraftFolders::SharedLook look(aircraft.folders);
    aircraft.walk({"A"}, Content::Traffic);
    QCOMPARE(aircraft.walk({"B"}, Content::Traffic), QStringList{"B: Second, M - T - V - Second"});
}

void TestAircraftFolders::walkThatFailedIsNotShared()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    const AircraftFolders::SharedLook look(aircraft.folders);
    QCOMPARE(failureOf([&] {
                 aircraft.walk({"A", "B"}, Content::Traffic);
             }),
             QString("76 Path not found"));
    aircraft.add("B", "Back");
    QCOMPARE(aircraft.walk({"A", "B"}, Content::Traffic).size(), 2);
}

void TestAircraftFolders::lookAheadIsToldToTheFirstWalk()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.add("B", "Second");
    aircraft.folders.lookAhead(directory);
    const AircraftFolders::SharedLook look(aircraft.folders);
    const QStringList told = {"A: Baron, M - T - V - Baron", "B: Second, M - T - V - Second"};
    QCOMPARE(aircraft.walk({"A", "B"}, Content::Editor), told);
    QVERIFY(QFile::remove(aircraft.sandbox.host(directory + "\\A\\aircraft.cfg")));
    QCOMPARE(aircraft.walk({"A", "B"}, Content::Traffic), told);
}

void TestAircraftFolders::lookAheadOfAnotherDirectoryIsLeftAlone()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.sandbox.write("C:\\FSX\\Airplanes\\A\\aircraft.cfg", "[fltsim.0]\r\ntitle=Other\r\n");
    aircraft.folders.lookAhead("C:\\FSX\\Airplanes");
    const AircraftFolders::SharedLook look(aircraft.folders);
    QCOMPARE(aircraft.walk({"A"}, Content::Traffic), QStringList{"A: Baron, M - T - V - Baron"});
}

void TestAircraftFolders::lookAheadOfADirectoryThatIsGoneIsNoFailureOfItsOwn()
{
    Aircraft aircraft;
    aircraft.folders.lookAhead(directory);
    const AircraftFolders::SharedLook look(aircraft.folders);
    QCOMPARE(failureOf([&] { aircraft.walk({"A"}, Content::Traffic); }),
             QString("76 Path not found"));
}

void TestAircraftFolders::folderInstalledSinceTheLookAheadIsSeen()
{
    Aircraft aircraft;
    aircraft.add("A", "Baron");
    aircraft.folders.lookAhead(directory);
    const AircraftFolders::SharedLook look(aircraft.folders);
    aircraft.walk({"A"}, Content::Traffic);
    aircraft.add("B", "New");
    QCOMPARE(aircraft.walk({"A", "B"}, Content::Traffic).last(),
             QString("B: New, M - T - V - New"));
}

void TestAircraftFolders::lookAheadNobodyWantsIsGivenUp()
{
    Aircraft aircraft;
    for (int i = 0; i < 300; ++i) {
        aircraft.add(QString::number(i), "Baron");
    }
    aircraft.folders.lookAhead(directory);
    aircraft.folders.lookAhead(directory); // another one takes its place
    {
        const AircraftFolders::SharedLook look(aircraft.folders);
    }
    aircraft.add("0", "Changed");
    const AircraftFolders::SharedLook look(aircraft.folders);
    QCOMPARE(aircraft.walk({"0"}, Content::Traffic),
             QStringList{"0: Changed, M - T - V - Changed"});
}

QTEST_GUILESS_MAIN(TestAircraftFolders)
#include "test_aircraft_folders.moc"
