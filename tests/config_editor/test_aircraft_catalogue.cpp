// SPDX-License-Identifier: MIT
#include "config_editor/aircraft_catalogue.h"

#include "app/services/aircraft_folders.h"
#include "tests/support/sandbox.h"
#include "tests/support/steps.h"

#include <QDir>
#include <QFile>
#include <QtTest>

namespace
{

const QByteArray fourKeys = "title=Baron\r\nui_manufacturer=Beech\r\n"
                            "ui_type=58\r\nui_variation=Red\r\n";

/// A directory of aircraft, and what walking it tells.
struct Walk {
    QString directory = QStringLiteral("C:\\FS9\\Aircraft");
    Sandbox sandbox;
    AircraftFolders aircraftFolders;
    AircraftCatalogue catalogue;
    Steps steps;
    QStringList failures;
    std::function<void()> beforeFirst = [] {}; ///< runs once the folders are listed

    void add(const QString &folder, const QByteArray &bytes,
             const QString &file = "aircraft.cfg") const
    {
        sandbox.write(directory + '\\' + folder + '\\' + file, bytes);
    }

    QString host(const QString &folder) const { return sandbox.host(directory + '\\' + folder); }

    /// Walks through the folders as the page does.
    void run()
    {
        catalogue = {};
        AircraftFolders::Walk walk = aircraftFolders.walk(directory, Content::Editor);
        beforeFirst();
        while (const AircraftFolder *folder = walk.next(steps.step)) {
            const QString failure = steps.failureOf([&](Step &step) {
                catalogue.take(*folder, aircraft_catalogue::rootOf(directory), step);
            });
            failures += failure.isEmpty() ? QStringList() : QStringList{failure};
        }
    }
};

} // namespace

class TestAircraftCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void folderTextIsCutAtPositionPlus10ForEveryRoot_data();
    void folderTextIsCutAtPositionPlus10ForEveryRoot();
    void rootGoesByTheLastWord_data();
    void rootGoesByTheLastWord();
    void listsStayIndexForIndexWhenFilesAreSkipped();
    void accentedLettersAreLostInNameAndListing();
    void everyAircraftReadIsOnTheListWithoutForceFeedback();
    void longNameIsCutInTheListingOnly();
    void unreadableFileIsReportedAndTheWalkGoesOn();
    void fileThatOpensButCannotBeReadIsReportedToo();
    void fileThatBreaksOffNamesTheLineReadLast();
    void folderThatIsGoneEndsTheWalk();
    void secondWalkStartsAnew();
};

void TestAircraftCatalogue::folderTextIsCutAtPositionPlus10ForEveryRoot_data()
{
    QTest::addColumn<QString>("cfgFile");
    QTest::addColumn<AircraftRoot>("root");
    QTest::addColumn<QString>("text");
    QTest::newRow("aircraft") << "C:\\FS9\\Aircraft\\b58\\aircraft.cfg" << AircraftRoot::Aircraft
                              << "b58";
    QTest::newRow("airplanes") << "C:\\FS9\\AIRPLANES\\b58\\Aircraft.CFG" << AircraftRoot::Airplanes
                               << "\\b58";
    QTest::newRow("rotorcraft") << "C:\\FSX\\Rotorcraft\\Bell\\aircraft.cfg"
                                << AircraftRoot::Rotorcraft << "t\\Bell";
    QTest::newRow("first of two") << "C:\\Aircraft Box\\Aircraft\\b58\\aircraft.cfg"
                                  << AircraftRoot::Aircraft << "Box\\Aircraft\\b58";
    QTest::newRow("another word") << "C:\\MyAircraft\\b58\\aircraft.cfg" << AircraftRoot::Aircraft
                                  << "b58";
}

void TestAircraftCatalogue::folderTextIsCutAtPositionPlus10ForEveryRoot()
{
    QFETCH(QString, cfgFile);
    QFETCH(AircraftRoot, root);
    QTEST(aircraft_catalogue::folderText(cfgFile, root), "text");
}

void TestAircraftCatalogue::rootGoesByTheLastWord_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<AircraftRoot>("root");
    QTest::newRow("aircraft") << "C:\\Airplanes\\Aircraft" << AircraftRoot::Aircraft;
    QTest::newRow("airplanes") << "C:\\FSX\\AirPlanes" << AircraftRoot::Airplanes;
    QTest::newRow("rotorcraft") << "C:\\FSX\\ROTORCRAFT" << AircraftRoot::Rotorcraft;
}

void TestAircraftCatalogue::rootGoesByTheLastWord()
{
    QFETCH(QString, directory);
    QTEST(aircraft_catalogue::rootOf(directory), "root");
}

void TestAircraftCatalogue::listsStayIndexForIndexWhenFilesAreSkipped()
{
    NEEDS(casesApart);
    Walk walk;
    walk.add("a", fourKeys + "panel=wide\r\n");
    walk.add("b", "");
    walk.add("c", "title=without the rest\r\npanel=lost\r\n");
    walk.add("d", "no configuration", "readme.txt");
    walk.add("e", fourKeys + "title=Other\r\nalias=a\r\n", "AirCraft.CFG");
    walk.run();
    QCOMPARE(walk.catalogue.names,
             (QStringList{"Beech - 58 - Red - Baron", "Beech - 58 - Red - Other"}));
    QCOMPARE(walk.catalogue.cfgFiles, (QStringList{"C:\\FS9\\Aircraft\\a\\aircraft.cfg",
                                                   "C:\\FS9\\Aircraft\\e\\AirCraft.CFG"}));
    QCOMPARE(walk.catalogue.aliases, (QStringList{"", "alias"}));
    QCOMPARE(walk.catalogue.panels, (QStringList{"wide", ""}));
    QCOMPARE(walk.catalogue.listing,
             (QStringList{"Beech - 58 - Red - Baron" + QString(51, ' ') + "  \\a",
                          "Beech - 58 - Red - Other" + QString(51, ' ') + "  \\e"}));
}

void TestAircraftCatalogue::accentedLettersAreLostInNameAndListing()
{
    Walk walk;
    walk.add("a", fourKeys + "title=Caf\xE9 {Baron}\r\n");
    walk.run();
    QCOMPARE(walk.catalogue.names, QStringList{"Beech - 58 - Red - Caf Baron"});
    QCOMPARE(walk.catalogue.listing,
             QStringList{"Beech - 58 - Red - Caf Baron" + QString(47, ' ') + "  \\a"});
}

void TestAircraftCatalogue::everyAircraftReadIsOnTheListWithoutForceFeedback()
{
    Walk walk;
    walk.add("a", fourKeys + "force feedback=1\r\n[forcefeedback]\r\n");
    walk.add("b", "");
    walk.add("d", "", "readme.txt");
    walk.run();
    QCOMPARE(walk.catalogue.folders, (QStringList{"C:\\FS9\\Aircraft\\a", "C:\\FS9\\Aircraft\\b"}));
    QCOMPARE(walk.catalogue.folderNames, (QStringList{"a", "b"}));
}

void TestAircraftCatalogue::longNameIsCutInTheListingOnly()
{
    Walk walk;
    walk.add("a", fourKeys + "title=" + QByteArray(100, 'x'));
    walk.run();
    const QString name = "Beech - 58 - Red - " + QString(100, 'x');
    QCOMPARE(walk.catalogue.names, QStringList{name});
    QCOMPARE(walk.catalogue.listing, QStringList{name.first(75) + "  \\a"});
}

void TestAircraftCatalogue::unreadableFileIsReportedAndTheWalkGoesOn()
{
    NEEDS(permissions);
    Walk walk;
    walk.add("a", fourKeys);
    walk.add("b", fourKeys);
    QFile::setPermissions(walk.sandbox.host("C:\\FS9\\Aircraft\\a\\aircraft.cfg"), {});
    const OrdinaryUser user(walk.sandbox);
    walk.run();
    QCOMPARE(walk.failures,
             QStringList{"75 Path/File access error: Opening C:\\FS9\\Aircraft\\a\\aircraft.cfg"});
    QCOMPARE(walk.catalogue.cfgFiles, QStringList{"C:\\FS9\\Aircraft\\b\\aircraft.cfg"});
    QCOMPARE(walk.catalogue.folderNames, (QStringList{"a", "b"}));
}

void TestAircraftCatalogue::fileThatOpensButCannotBeReadIsReportedToo()
{
    NEEDS(links);
    Walk walk;
    walk.add("b", fourKeys);
    QVERIFY(QDir(walk.host("b")).mkpath("../a"));
    QVERIFY(QFile::link("/proc/self/mem", walk.host("a\\aircraft.cfg")));
    walk.run();
    QCOMPARE(walk.failures, QStringList{"57 Device I/O error: Check for FF Code"});
    QCOMPARE(walk.catalogue.cfgFiles, QStringList{"C:\\FS9\\Aircraft\\b\\aircraft.cfg"});
    QCOMPARE(walk.catalogue.folderNames, (QStringList{"a", "b"}));
}

void TestAircraftCatalogue::fileThatBreaksOffNamesTheLineReadLast()
{
    AircraftFolder folder;
    folder.cfgFile = "C:\\FS9\\Aircraft\\a\\aircraft.cfg";
    folder.editor.failure = RuntimeError(ErrorNumber::DeviceIoError);
    folder.editor.lastLine = "title=Baron";
    Steps steps;
    AircraftCatalogue catalogue;
    QCOMPARE(
        steps.failureOf([&](Step &step) { catalogue.take(folder, AircraftRoot::Aircraft, step); }),
        QString("57 Device I/O error: Reading title=Baron"));
}

void TestAircraftCatalogue::folderThatIsGoneEndsTheWalk()
{
    Walk walk;
    walk.add("a", fourKeys);
    walk.add("b", fourKeys);
    walk.add("c", fourKeys);
    walk.beforeFirst = [&] { QVERIFY(QDir(walk.host("b")).removeRecursively()); };
    QCOMPARE(failureOf([&] { walk.run(); }), QString("76 Path not found"));
    QCOMPARE(walk.steps.ErrMsg, QString("Set path to C:\\FS9\\Aircraft\\b"));
    QCOMPARE(walk.catalogue.cfgFiles, QStringList{"C:\\FS9\\Aircraft\\a\\aircraft.cfg"});
}

void TestAircraftCatalogue::secondWalkStartsAnew()
{
    Walk walk;
    walk.add("a", fourKeys);
    walk.run();
    walk.run();
    QCOMPARE(walk.catalogue.names, QStringList{"Beech - 58 - Red - Baron"});
    QCOMPARE(walk.catalogue.folders, QStringList{"C:\\FS9\\Aircraft\\a"});
}

QTEST_GUILESS_MAIN(TestAircraftCatalogue)
#include "test_aircraft_catalogue.moc"
