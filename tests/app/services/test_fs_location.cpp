// SPDX-License-Identifier: MIT
// Where the simulator is installed, and which folder of it holds the aircraft.
#include "app/services/fs_location.h"
#include "app/services/path_display.h"
#include "tests/support/fakes.h"

#include <QtTest>

namespace
{

const QString usualFsX = QStringLiteral("C:\\Games\\Microsoft Flight Simulator X");
const QString games = QStringLiteral("SOFTWARE\\Microsoft\\Microsoft Games\\Flight Simulator\\");

/// The aircraft directory that a registry leads to; empty when it names no simulator.
QString aircraftDirectoryBy(const Registry &registry)
{
    const QString folder = fs_location::installation(registry);
    return folder.isEmpty() ? folder : fs_location::aircraftDirectory(folder);
}

} // namespace

class TestFsLocation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyFs9InstalledGivesItsFolderAndAircraft();
    void onlyFsXInstalledGivesItsFolderAndAirplanes();
    void neitherInstalledGivesNothing();
    void emptyFs9ValueFallsThroughToFsX();
    void noPathCountsAsNotInstalled();
    void fs9WinsOverFsX();
    void wordsInThePathDecideNotTheKey_data();
    void wordsInThePathDecideNotTheKey();
    void onlyTheTwoMachineValuesCount();
    void numberIsNoFolder();
    void directoryEndsInOneOfThreeWords_data();
    void directoryEndsInOneOfThreeWords();
    void pathNamesOneOfThreeWordsAnywhere_data();
    void pathNamesOneOfThreeWordsAnywhere();
    void longPathShowsItsEnd_data();
    void longPathShowsItsEnd();
};

void TestFsLocation::onlyFs9InstalledGivesItsFolderAndAircraft()
{
    FakeRegistry registry;
    registry.installFs9("C:\\FS9");
    QCOMPARE(fs_location::installation(registry), QString("C:\\FS9"));
    QCOMPARE(aircraftDirectoryBy(registry), QString("C:\\FS9\\Aircraft"));
}

void TestFsLocation::onlyFsXInstalledGivesItsFolderAndAirplanes()
{
    FakeRegistry registry;
    registry.installFsX(usualFsX);
    QCOMPARE(fs_location::installation(registry), usualFsX);
    QCOMPARE(aircraftDirectoryBy(registry), usualFsX + "\\Airplanes");
}

void TestFsLocation::neitherInstalledGivesNothing()
{
    QCOMPARE(fs_location::installation(FakeRegistry()), QString());
}

void TestFsLocation::emptyFs9ValueFallsThroughToFsX()
{
    FakeRegistry registry;
    registry.installFs9("");
    registry.installFsX(usualFsX);
    QCOMPARE(aircraftDirectoryBy(registry), usualFsX + "\\Airplanes");
}

void TestFsLocation::noPathCountsAsNotInstalled()
{
    FakeRegistry registry;
    registry.installFs9("No Path");
    registry.installFsX(usualFsX);
    QCOMPARE(fs_location::installation(registry), usualFsX);
    registry.installFsX("No Path");
    QCOMPARE(fs_location::installation(registry), QString());
}

void TestFsLocation::fs9WinsOverFsX()
{
    FakeRegistry registry;
    registry.installFs9("C:\\FS9");
    registry.installFsX(usualFsX);
    QCOMPARE(fs_location::installation(registry), QString("C:\\FS9"));
}

void TestFsLocation::wordsInThePathDecideNotTheKey_data()
{
    QTest::addColumn<QString>("fs9");
    QTest::addColumn<QString>("fsX");
    QTest::addColumn<QString>("directory");
    QTest::newRow("words under the FS9 key") << usualFsX << "" << usualFsX + "\\Airplanes";
    QTest::newRow("no words under the X key") << ""
                                              << "D:\\FSX"
                                              << "D:\\FSX\\Aircraft";
    QTest::newRow("lower case") << ""
                                << "c:\\flight simulator x"
                                << "c:\\flight simulator x\\Airplanes";
    QTest::newRow("within the path") << ""
                                     << "C:\\Flight Simulator X\\Main"
                                     << "C:\\Flight Simulator X\\Main\\Airplanes";
    QTest::newRow("another version") << "C:\\Flight Simulator 9"
                                     << ""
                                     << "C:\\Flight Simulator 9\\Aircraft";
    QTest::newRow("backslash at the end") << "C:\\FS9\\"
                                          << ""
                                          << "C:\\FS9\\\\Aircraft";
}

void TestFsLocation::wordsInThePathDecideNotTheKey()
{
    QFETCH(QString, fs9);
    QFETCH(QString, fsX);
    QFETCH(QString, directory);
    FakeRegistry registry;
    registry.installFs9(fs9);
    registry.installFsX(fsX);
    QCOMPARE(aircraftDirectoryBy(registry), directory);
}

void TestFsLocation::onlyTheTwoMachineValuesCount()
{
    FakeRegistry registry;
    const QString folder = "C:\\Elsewhere";
    registry.setValue(RegistryHive::CurrentUser, games + "9.0", "EXE Path", folder);
    registry.setValue(RegistryHive::LocalMachine, games + "9.0", "SetupPath", folder);
    registry.setValue(RegistryHive::LocalMachine, games + "10.0", "EXE Path", folder);
    registry.setValue(RegistryHive::LocalMachine, games + "8.0", "EXE Path", folder);
    QCOMPARE(fs_location::installation(registry), QString());
}

void TestFsLocation::numberIsNoFolder()
{
    FakeRegistry registry;
    registry.setValue(RegistryHive::LocalMachine, games + "9.0", "EXE Path", std::uint32_t{9});
    QCOMPARE(fs_location::installation(registry), QString());
}

void TestFsLocation::directoryEndsInOneOfThreeWords_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("good");
    QTest::newRow("aircraft") << "C:\\FS9\\Aircraft" << true;
    QTest::newRow("airplanes") << "C:\\FSX\\SimObjects\\AIRPLANES" << true;
    QTest::newRow("rotorcraft") << "C:\\FSX\\SimObjects\\rotorcraft" << true;
    QTest::newRow("end of a longer name") << "C:\\MyAircraft" << true;
    QTest::newRow("backslash at the end") << "C:\\FS9\\Aircraft\\" << false;
    QTest::newRow("sub-folder") << "C:\\FS9\\Aircraft\\B734" << false;
    QTest::newRow("another name") << "C:\\FS9" << false;
    QTest::newRow("empty") << "" << false;
}

void TestFsLocation::directoryEndsInOneOfThreeWords()
{
    QFETCH(QString, path);
    QFETCH(bool, good);
    QCOMPARE(fs_location::endsInAircraftFolder(path), good);
}

void TestFsLocation::pathNamesOneOfThreeWordsAnywhere_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("good");
    QTest::newRow("at the end") << "C:\\FS9\\Aircraft" << true;
    QTest::newRow("sub-folder") << "C:\\FSX\\AirPlanes\\B734" << true;
    QTest::newRow("within a name") << "C:\\my rotorcrafts\\x" << true;
    QTest::newRow("part of a word") << "C:\\Aircraf" << false;
    QTest::newRow("empty") << "" << false;
}

void TestFsLocation::pathNamesOneOfThreeWordsAnywhere()
{
    QFETCH(QString, path);
    QFETCH(bool, good);
    QCOMPARE(fs_location::namesAircraftFolder(path), good);
}

void TestFsLocation::longPathShowsItsEnd_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("shown");
    QTest::newRow("empty") << "" << 10 << "";
    QTest::newRow("shorter") << "C:\\FS9" << 10 << "C:\\FS9";
    QTest::newRow("as long") << "C:\\FS9\\Air" << 10 << "C:\\FS9\\Air";
    QTest::newRow("one more") << "C:\\FS9\\Airc" << 10 << "...:\\FS9\\Airc";
    QTest::newRow("much longer") << "C:\\Games\\Flight\\Aircraft" << 8 << "...Aircraft";
}

void TestFsLocation::longPathShowsItsEnd()
{
    QFETCH(QString, path);
    QFETCH(int, limit);
    QFETCH(QString, shown);
    QCOMPARE(shortenedPath(path, limit), shown);
}

QTEST_APPLESS_MAIN(TestFsLocation)
#include "test_fs_location.moc"
