// SPDX-License-Identifier: MIT
// The walk through the aircraft folders, and taking its entries apart again.
#include "aircraft_loader/available_aircraft.h"
#include "app/services/aircraft_folders.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "tests/support/sandbox.h"
#include "tests/support/steps.h"

#include <QDir>
#include <QFile>
#include <QtTest>

namespace
{

const QString directory = QStringLiteral("C:\\FS9\\Aircraft");

/// An aircraft directory, and what a walk through it reports.
struct Walk {
    Walk() { sandbox.makeFolder(directory); }

    void writeCfg(const QString &folder, const QByteArray &bytes,
                  const QString &name = "aircraft.cfg") const
    {
        sandbox.write(directory + '\\' + folder + '\\' + name, bytes);
    }

    void addAircraft(const QString &folder, const QStringList &titles,
                     const QByteArray &speed) const
    {
        QByteArray bytes;
        for (const QString &title : titles) {
            bytes += "[fltsim.0]\r\ntitle=" + title.toLatin1() + "\r\n";
        }
        writeCfg(folder, bytes + "cruise_speed=" + speed + "\r\n");
    }

    QString host(const QString &folder) const { return sandbox.host(directory + '\\' + folder); }

    /// Walks through the folders as the page does; returns what the walk ended with.
    QString run(AvailableAircraft::Layout layout = {})
    {
        reached.clear();
        stepsBehind.clear();
        failures.clear();
        available.clear();
        return failureOf([&] {
            steps.step.set("Loop through Aircraft Directories");
            AircraftFolders::Walk walk = aircraftFolders.walk(directory, Content::Traffic);
            beforeFirst();
            while (const AircraftFolder *folder = walk.next(steps.step)) {
                reached += walk.index();
                const QString failure =
                    steps.failureOf([&](Step &own) { available.take(*folder, layout, own); });
                failures += failure.isEmpty() ? QStringList() : QStringList{failure};
                stepsBehind += steps.ErrMsg;
            }
        });
    }

    Sandbox sandbox;
    AircraftFolders aircraftFolders;
    AvailableAircraft available;
    Steps steps;
    const QString &step = steps.ErrMsg;
    QList<int> reached;
    QStringList stepsBehind; ///< the step when each folder was done
    QStringList failures;
    std::function<void()> beforeFirst = [] {}; ///< runs once the folders are listed
};

QString inDirectory(const QString &folder)
{
    return directory + '\\' + folder;
}

} // namespace

class TestAvailableAircraft : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void directoryWithoutFoldersYieldsNothing();
    void everyTitleIsAnEntryWithTheSpeedOfItsFile();
    void foldersAreVisitedInTheOrderOfTheFolderList();
    void onlyImmediateSubFoldersAreVisited();
    void subFolderWithoutAircraftCfgIsPassedOver();
    void fileNameIsFoundInEveryCase();
    void folderOfTheFilesNameIsPassedOver();
    void sameTitleInTwoFoldersGivesTwoEntries();
    void titleWithAnEmptyValueIsNotListed();
    void speedOfZeroIsListed();
    void titlesWithoutSpeedLineYieldNoEntries();
    void onlyTheTitlesAboveTheSpeedLineAreListed();
    void emptyFileAfterAFolderWithDataAddsItsFolderButNoTitles();
    void emptyFileFirstOrAfterAFileWithoutDataAddsNothing();
    void cslFolderContributesNoTitlesInAnyCase_data();
    void cslFolderContributesNoTitlesInAnyCase();
    void haveDataLivesOnToTheNextWalk();
    void everyWalkStartsWithEmptyLists();
    void stepsAreNamedForTheErrorReport();
    void aircraftNameIsCutByTheLayout();
    void layoutGoesByTheEndOfTheDirectoryInEveryCase_data();
    void layoutGoesByTheEndOfTheDirectoryInEveryCase();
    void layoutFlagThatIsNotAskedAboutKeepsItsValue();
    void fileWith1502TitlesIsReportedAndTheWalkGoesOn();
    void fileEndingInAHeaderIsReportedAndTheWalkGoesOn();
    void failedFileAfterAFolderWithDataAddsItsFolderButNoTitles();
    void fileThatMayNotBeReadIsReportedAndTheWalkGoesOn();
    void linkToNowhereIsReportedAndTheWalkGoesOn();
    void folderThatMayNotBeReadEndsTheWalk();
    void folderThatDisappearsDuringTheWalkEndsIt();
    void fileThatDisappearsDuringTheWalkIsPassedOver();
    void directoryThatIsGoneEndsTheWalk();
    void folderThatIsALinkToItselfIsNoFolder();
    void linkToTheDirectoryItselfIsVisitedOnce();
    void linkToAnAircraftElsewhereIsFollowed();
    void titleBytesGoThroughUnchanged();
    void foldersWithUnusualNamesAreRead();
};

void TestAvailableAircraft::directoryWithoutFoldersYieldsNothing()
{
    Walk walk;
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.folders, QStringList());
    QCOMPARE(walk.available.entries, QStringList());
    QCOMPARE(walk.reached, QList<int>());
    QCOMPARE(walk.step, QString("Loop through Aircraft Directories"));
}

void TestAvailableAircraft::everyTitleIsAnEntryWithTheSpeedOfItsFile()
{
    Walk walk;
    walk.addAircraft("A320", {"Airbus Blue"}, "454.9");
    walk.addAircraft("B734", {"Boeing Red", "Boeing Blue"}, "477");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries,
             (QStringList{"Airbus Blue 454", "Boeing Red 477", "Boeing Blue 477"}));
    QCOMPARE(walk.available.folders, (QStringList{inDirectory("A320"), inDirectory("B734")}));
    QCOMPARE(walk.failures, QStringList());
}

void TestAvailableAircraft::foldersAreVisitedInTheOrderOfTheFolderList()
{
    Walk walk;
    walk.addAircraft("C172", {"Cessna"}, "120");
    walk.addAircraft("b734", {"Boeing"}, "477");
    walk.addAircraft("A320", {"Airbus"}, "454");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, (QStringList{"Airbus 454", "Boeing 477", "Cessna 120"}));
    QCOMPARE(walk.reached, (QList<int>{0, 1, 2}));
}

void TestAvailableAircraft::onlyImmediateSubFoldersAreVisited()
{
    Walk walk;
    walk.addAircraft("Boeing\\B734", {"Deeper"}, "477");
    walk.sandbox.write(directory + "\\aircraft.cfg",
                       "[fltsim.0]\r\ntitle=Above\r\ncruise_speed=1\r\n");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, QStringList());
    QCOMPARE(walk.available.folders, QStringList());
}

void TestAvailableAircraft::subFolderWithoutAircraftCfgIsPassedOver()
{
    Walk walk;
    walk.addAircraft("A320", {"Airbus"}, "454");
    walk.sandbox.makeFolder(inDirectory("Empty"));
    walk.writeCfg("Other", "[fltsim.0]\r\ntitle=Other\r\ncruise_speed=1\r\n", "aircraft.cfg.bak");
    walk.writeCfg("Panel", "[fltsim.0]\r\ntitle=Panel\r\ncruise_speed=1\r\n", "panel.cfg");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, QStringList{"Airbus 454"});
    QCOMPARE(walk.available.folders, QStringList{inDirectory("A320")});
    QCOMPARE(walk.reached, (QList<int>{0, 1, 2, 3}));
}

void TestAvailableAircraft::fileNameIsFoundInEveryCase()
{
    NEEDS(casesApart);
    Walk walk;
    walk.writeCfg("A320", "[fltsim.0]\r\ntitle=A\r\ncruise_speed=1\r\n", "AIRCRAFT.CFG");
    walk.writeCfg("B734", "[fltsim.0]\r\ntitle=B\r\ncruise_speed=2\r\n", "Aircraft.cfg");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, (QStringList{"A 1", "B 2"}));
    QCOMPARE(walk.step, "Get Aircraft Data in\r" + inDirectory("B734\\Aircraft.cfg"));
}

void TestAvailableAircraft::folderOfTheFilesNameIsPassedOver()
{
    Walk walk;
    walk.sandbox.makeFolder(inDirectory("A320\\aircraft.cfg"));
    walk.sandbox.makeFolder(inDirectory("A321\\AIRCRAFT.CFG"));
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.failures, QStringList());
    QCOMPARE(walk.available.folders, QStringList());
}

void TestAvailableAircraft::sameTitleInTwoFoldersGivesTwoEntries()
{
    Walk walk;
    walk.addAircraft("A", {"Boeing"}, "477");
    walk.addAircraft("B", {"Boeing"}, "477");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, (QStringList{"Boeing 477", "Boeing 477"}));
}

void TestAvailableAircraft::titleWithAnEmptyValueIsNotListed()
{
    Walk walk;
    walk.addAircraft("A", {"", "  ", "Boeing"}, "477");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, QStringList{"Boeing 477"});
}

void TestAvailableAircraft::speedOfZeroIsListed()
{
    Walk walk;
    walk.addAircraft("A", {"Boeing"}, "fast");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, QStringList{"Boeing 0"});
}

void TestAvailableAircraft::titlesWithoutSpeedLineYieldNoEntries()
{
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    walk.writeCfg("B", "[fltsim.0]\r\ntitle=Boeing\r\n");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, QStringList{"Airbus 454"});
    QCOMPARE(walk.available.folders, QStringList{inDirectory("A")});
}

void TestAvailableAircraft::onlyTheTitlesAboveTheSpeedLineAreListed()
{
    Walk walk;
    walk.writeCfg("A", "[fltsim.0]\r\ntitle=Above\r\ncruise_speed=9\r\n"
                       "[fltsim.1]\r\ntitle=Below\r\n");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, QStringList{"Above 9"});
}

void TestAvailableAircraft::emptyFileAfterAFolderWithDataAddsItsFolderButNoTitles()
{
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    walk.writeCfg("B", QByteArray());
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.folders, (QStringList{inDirectory("A"), inDirectory("B")}));
    QCOMPARE(walk.available.entries, QStringList{"Airbus 454"});
}

void TestAvailableAircraft::emptyFileFirstOrAfterAFileWithoutDataAddsNothing()
{
    Walk walk;
    walk.writeCfg("A", QByteArray());
    walk.addAircraft("B", {"Boeing"}, "477");
    walk.writeCfg("C", "[General]\r\n");
    walk.writeCfg("D", QByteArray());
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.folders, QStringList{inDirectory("B")});
}

void TestAvailableAircraft::cslFolderContributesNoTitlesInAnyCase_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("lower") << "csl_b744";
    QTest::newRow("upper") << "CSL_B744";
    QTest::newRow("mixed") << "my CsL model";
}

void TestAvailableAircraft::cslFolderContributesNoTitlesInAnyCase()
{
    QFETCH(QString, folder);
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    walk.addAircraft(folder, {"Online"}, "477");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, QStringList{"Airbus 454"});
    // It follows a folder with data, so its own folder is listed all the same.
    QCOMPARE(walk.available.folders, (QStringList{inDirectory("A"), inDirectory(folder)}));
    QCOMPARE(walk.step, QString("Get Aircraft Name"));
}

void TestAvailableAircraft::haveDataLivesOnToTheNextWalk()
{
    Walk walk;
    walk.writeCfg("A", QByteArray());
    walk.addAircraft("B", {"Boeing"}, "477");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.folders, QStringList{inDirectory("B")});
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.folders, (QStringList{inDirectory("A"), inDirectory("B")}));
    QCOMPARE(walk.available.entries, QStringList{"Boeing 477"});
}

void TestAvailableAircraft::everyWalkStartsWithEmptyLists()
{
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    QCOMPARE(walk.run(), QString());
    QVERIFY(QDir(walk.host("A")).removeRecursively());
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.folders, QStringList());
    QCOMPARE(walk.available.entries, QStringList());
}

void TestAvailableAircraft::stepsAreNamedForTheErrorReport()
{
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    walk.writeCfg("B", QByteArray());
    walk.addAircraft("csl", {"Online"}, "454");
    walk.sandbox.makeFolder(inDirectory("Empty"));
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.stepsBehind,
             (QStringList{"Get Aircraft Data in\r" + inDirectory("A\\aircraft.cfg"),
                          "Opening " + inDirectory("B\\aircraft.cfg"), "Get Aircraft Name",
                          "Set path to " + inDirectory("Empty")}));
}

void TestAvailableAircraft::aircraftNameIsCutByTheLayout()
{
    Walk walk;
    walk.addAircraft("B734", {"Boeing"}, "477");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.AirCraftName, QString("B734"));
    QCOMPARE(walk.run({.airplanes = false, .rotorcraft = true}), QString());
    QCOMPARE(walk.available.AirCraftName, QString("craft"));
    // Without the word in the path the cut is near its front too.
    QCOMPARE(walk.run({.airplanes = true, .rotorcraft = false}), QString());
    QCOMPARE(walk.available.AirCraftName, QString("rcraft"));
}

void TestAvailableAircraft::layoutGoesByTheEndOfTheDirectoryInEveryCase_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("airplanes");
    QTest::addColumn<bool>("rotorcraft");
    QTest::newRow("aircraft") << "C:\\FS9\\Aircraft" << false << false;
    QTest::newRow("airplanes") << "C:\\FSX\\SimObjects\\AirPlanes" << true << false;
    QTest::newRow("rotorcraft") << "C:\\FSX\\SimObjects\\ROTORCRAFT" << false << true;
    QTest::newRow("words further up") << "C:\\Airplanes\\Rotorcraft\\New" << false << false;
}

void TestAvailableAircraft::layoutGoesByTheEndOfTheDirectoryInEveryCase()
{
    QFETCH(QString, path);
    QFETCH(bool, airplanes);
    QFETCH(bool, rotorcraft);
    AvailableAircraft::Layout layout;
    layout.take(path);
    QCOMPARE(layout.airplanes, airplanes);
    QCOMPARE(layout.rotorcraft, rotorcraft);
}

void TestAvailableAircraft::layoutFlagThatIsNotAskedAboutKeepsItsValue()
{
    AvailableAircraft::Layout layout;
    layout.take("C:\\Airplanes");
    layout.take("C:\\Rotorcraft");
    QVERIFY(layout.airplanes);
    QVERIFY(layout.rotorcraft);
    layout.take("C:\\Aircraft");
    QVERIFY(!layout.airplanes);
    QVERIFY(!layout.rotorcraft);

    layout.take("C:\\Rotorcraft");
    layout.take("C:\\Airplanes");
    QVERIFY(layout.airplanes);
    QVERIFY(layout.rotorcraft);
}

void TestAvailableAircraft::fileWith1502TitlesIsReportedAndTheWalkGoesOn()
{
    Walk walk;
    walk.addAircraft("A", QStringList(1502, "Many"), "454");
    walk.addAircraft("B", QStringList(1501, "Much"), "477");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.failures, QStringList{"9 Subscript out of range: Get Aircraft Data in\r" +
                                        inDirectory("A\\aircraft.cfg")});
    QCOMPARE(walk.available.folders, QStringList{inDirectory("B")});
    QCOMPARE(walk.available.entries.size(), 1501);
    QCOMPARE(walk.available.entries.last(), QString("Much 477"));
}

void TestAvailableAircraft::fileEndingInAHeaderIsReportedAndTheWalkGoesOn()
{
    Walk walk;
    walk.writeCfg("A", "[fltsim.0]\r\ntitle=Airbus\r\n[fltsim.1]");
    walk.addAircraft("B", {"Boeing"}, "477");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.failures, QStringList{"62 Input past end of file: Get Aircraft Data in\r" +
                                        inDirectory("A\\aircraft.cfg")});
    QCOMPARE(walk.available.entries, QStringList{"Boeing 477"});
}

void TestAvailableAircraft::failedFileAfterAFolderWithDataAddsItsFolderButNoTitles()
{
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    walk.writeCfg("B", "[fltsim.0]\r\ntitle=Boeing\r\n[fltsim.1]");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.failures.size(), 1);
    QCOMPARE(walk.available.folders, (QStringList{inDirectory("A"), inDirectory("B")}));
    QCOMPARE(walk.available.entries, QStringList{"Airbus 454"});
}

void TestAvailableAircraft::fileThatMayNotBeReadIsReportedAndTheWalkGoesOn()
{
    NEEDS(permissions);
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    walk.writeCfg("B", "[fltsim.0]\r\ntitle=Boeing\r\ncruise_speed=1\r\n", "Aircraft.CFG");
    walk.addAircraft("C", {"Cessna"}, "120");
    const OrdinaryUser user(walk.sandbox);
    QVERIFY(QFile::setPermissions(walk.host("A/aircraft.cfg"), QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(walk.host("B/Aircraft.CFG"), QFile::WriteOwner));
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.failures,
             (QStringList{"75 Path/File access error: Opening " + inDirectory("A\\aircraft.cfg"),
                          "75 Path/File access error: Opening " + inDirectory("B\\Aircraft.CFG")}));
    QCOMPARE(walk.available.entries, QStringList{"Cessna 120"});
}

void TestAvailableAircraft::linkToNowhereIsReportedAndTheWalkGoesOn()
{
    NEEDS(links);
    Walk walk;
    walk.sandbox.makeFolder(inDirectory("A"));
    QVERIFY(QFile::link("nowhere.cfg", walk.host("A/aircraft.cfg")));
    walk.addAircraft("B", {"Boeing"}, "477");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.failures,
             QStringList{"53 File not found: Opening " + inDirectory("A\\aircraft.cfg")});
    QCOMPARE(walk.available.entries, QStringList{"Boeing 477"});
}

void TestAvailableAircraft::folderThatMayNotBeReadEndsTheWalk()
{
    NEEDS(permissions);
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    walk.addAircraft("B", {"Boeing"}, "477");
    walk.addAircraft("C", {"Cessna"}, "120");
    const OrdinaryUser user(walk.sandbox);
    QVERIFY(QFile::setPermissions(walk.host("B"), QFile::Permissions()));
    QCOMPARE(walk.run(), QString("75 Path/File access error"));
    QCOMPARE(walk.step, "Set path to " + inDirectory("B"));
    QCOMPARE(walk.available.entries, QStringList{"Airbus 454"});
    QCOMPARE(walk.available.folders, QStringList{inDirectory("A")});
}

void TestAvailableAircraft::folderThatDisappearsDuringTheWalkEndsIt()
{
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    walk.addAircraft("B", {"Boeing"}, "477");
    walk.beforeFirst = [&] { QVERIFY(QDir(walk.host("B")).removeRecursively()); };
    QCOMPARE(walk.run(), QString("76 Path not found"));
    QCOMPARE(walk.step, "Set path to " + inDirectory("B"));
    QCOMPARE(walk.available.entries, QStringList{"Airbus 454"});
}

void TestAvailableAircraft::fileThatDisappearsDuringTheWalkIsPassedOver()
{
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    walk.addAircraft("B", {"Boeing"}, "477");
    walk.addAircraft("C", {"Cessna"}, "120");
    walk.beforeFirst = [&] { QVERIFY(QFile::remove(walk.host("B/aircraft.cfg"))); };
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.failures, QStringList());
    QCOMPARE(walk.available.entries, (QStringList{"Airbus 454", "Cessna 120"}));
}

void TestAvailableAircraft::directoryThatIsGoneEndsTheWalk()
{
    Walk walk;
    QVERIFY(QDir(walk.sandbox.host(directory)).removeRecursively());
    QCOMPARE(walk.run(), QString("76 Path not found"));
    QCOMPARE(walk.step, QString("Loop through Aircraft Directories"));
}

void TestAvailableAircraft::folderThatIsALinkToItselfIsNoFolder()
{
    NEEDS(links);
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    QVERIFY(QFile::link("Circle", walk.host("Circle")));
    QCOMPARE(files::subFolders(directory), QStringList{"A"});
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, QStringList{"Airbus 454"});

    // Becomes one only after the folders were listed.
    QVERIFY(QFile::remove(walk.host("Circle")));
    walk.sandbox.makeFolder(inDirectory("Circle"));
    walk.beforeFirst = [&] {
        QVERIFY(QDir(walk.host("Circle")).removeRecursively());
        QVERIFY(QFile::link("Circle", walk.host("Circle")));
    };
    QCOMPARE(walk.run(), QString("76 Path not found"));
    QCOMPARE(walk.step, "Set path to " + inDirectory("Circle"));
}

void TestAvailableAircraft::linkToTheDirectoryItselfIsVisitedOnce()
{
    NEEDS(links);
    Walk walk;
    walk.addAircraft("A", {"Airbus"}, "454");
    QVERIFY(QFile::link(".", walk.host("Self")));
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.reached, (QList<int>{0, 1}));
    QCOMPARE(walk.available.entries, QStringList{"Airbus 454"});
}

void TestAvailableAircraft::linkToAnAircraftElsewhereIsFollowed()
{
    NEEDS(links);
    Walk walk;
    walk.sandbox.write("C:\\Elsewhere\\aircraft.cfg",
                       "[fltsim.0]\r\ntitle=Boeing\r\ncruise_speed=477\r\n");
    QVERIFY(QFile::link(walk.sandbox.host("C:\\Elsewhere"), walk.host("B734")));
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries, QStringList{"Boeing 477"});
    QCOMPARE(walk.available.folders, QStringList{inDirectory("B734")});
}

void TestAvailableAircraft::titleBytesGoThroughUnchanged()
{
    const QByteArray title = "Caf\xE9 \x80 \x81 \"<b>\" & \xFF";
    Walk walk;
    walk.writeCfg("A", "[fltsim.0]\r\ntitle=" + title + "\r\ncruise_speed=7\r\n");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.entries.size(), 1);
    QCOMPARE(code_page::encode(walk.available.entries[0]), title + " 7");
}

void TestAvailableAircraft::foldersWithUnusualNamesAreRead()
{
    const QString accents = QString::fromUtf8("A\u00e9roport & Co");
    Walk walk;
    walk.addAircraft(accents, {"Boeing"}, "477");
    walk.addAircraft("[x] {y} %1", {"Airbus"}, "454");
    QCOMPARE(walk.run(), QString());
    QCOMPARE(walk.available.folders,
             (QStringList{inDirectory("[x] {y} %1"), inDirectory(accents)}));
    QCOMPARE(walk.available.entries, (QStringList{"Airbus 454", "Boeing 477"}));
}

QTEST_GUILESS_MAIN(TestAvailableAircraft)
#include "test_available_aircraft.moc"
