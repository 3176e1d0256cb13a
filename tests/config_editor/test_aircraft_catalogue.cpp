// SPDX-License-Identifier: MIT
#include "config_editor/aircraft_catalogue.h"

#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QFile>
#include <QtTest>

namespace
{

const QByteArray fourKeys = "title=Baron\r\nui_manufacturer=Beech\r\n"
                            "ui_type=58\r\nui_variation=Red\r\n";

QString nameOf(const QByteArray &bytes)
{
    return ConfigContent::parse(bytes).displayName;
}

QString panelOf(const QByteArray &bytes)
{
    return ConfigContent::parse(bytes).panel;
}

/// A directory of aircraft, and what walking it tells.
struct Walk {
    QString directory = QStringLiteral("C:\\FS9\\Aircraft");
    Sandbox sandbox;
    AircraftCatalogue catalogue;
    QString ErrMsg;
    QStringList read;
    QStringList failures;

    void add(const QString &folder, const QByteArray &bytes,
             const QString &file = "aircraft.cfg") const
    {
        sandbox.write(directory + '\\' + folder + '\\' + file, bytes);
    }

    void run(const QStringList &folders)
    {
        catalogue.run(directory, folders, ErrMsg,
                      {.folderReached = [](int) {},
                       .aircraftRead = [this](const QString &folder) { read += folder; },
                       .fileFailed =
                           [this](const RuntimeError &error) {
                               failures += error.description() + ": " + ErrMsg;
                           }});
    }
};

} // namespace

class TestAircraftCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameIsManufacturerTypeVariationAndTitle();
    void emptyFieldsAreShownAsDefaultOrUnknown_data();
    void emptyFieldsAreShownAsDefaultOrUnknown();
    void fileThatLacksOneOfTheFourKeysHasNoName_data();
    void fileThatLacksOneOfTheFourKeysHasNoName();
    void lastValueOfEachKeyWinsOverSeveralSections();
    void keysAreMatchedAtTheLineStartBlindToCase_data();
    void keysAreMatchedAtTheLineStartBlindToCase();
    void panelKeyHasNoBlankOrOneBeforeItsEqualsSign_data();
    void panelKeyHasNoBlankOrOneBeforeItsEqualsSign();
    void titleLosesOneQuoteAtEachEnd_data();
    void titleLosesOneQuoteAtEachEnd();
    void quotesOfOtherFieldsStay();
    void charactersAbove122AreDropped();
    void checkNameKeepsCodes32To122();
    void aliasAnywhereMarksTheConfiguration_data();
    void aliasAnywhereMarksTheConfiguration();
    void hundredThousandLinesAreRead();
    void folderTextIsCutAtPositionPlus10ForEveryRoot_data();
    void folderTextIsCutAtPositionPlus10ForEveryRoot();
    void rootGoesByTheLastWord_data();
    void rootGoesByTheLastWord();
    void listsStayIndexForIndexWhenFilesAreSkipped();
    void everyAircraftReadIsOnTheListWithoutForceFeedback();
    void longNameIsCutInTheListingOnly();
    void unreadableFileIsReportedAndTheWalkGoesOn();
    void folderThatIsGoneEndsTheWalk();
    void secondWalkStartsAnew();
};

void TestAircraftCatalogue::nameIsManufacturerTypeVariationAndTitle()
{
    QCOMPARE(nameOf(fourKeys), QString("Beech - 58 - Red - Baron"));
}

void TestAircraftCatalogue::emptyFieldsAreShownAsDefaultOrUnknown_data()
{
    QTest::addColumn<QByteArray>("lastLine");
    QTest::addColumn<QString>("name");
    QTest::newRow("variation") << QByteArray("ui_variation=") << "Beech - 58 - Default - Baron";
    QTest::newRow("key alone") << QByteArray("ui_variation") << "Beech - 58 - Default - Baron";
    QTest::newRow("blanks") << QByteArray("ui_variation =  ") << "Beech - 58 - Default - Baron";
    QTest::newRow("type") << QByteArray("ui_type=") << "Beech - _Unknown - Red - Baron";
    QTest::newRow("manufacturer") << QByteArray("ui_manufacturer") << "_Unknown - 58 - Red - Baron";
    QTest::newRow("title") << QByteArray("title") << "Beech - 58 - Red - _Unknown";
    QTest::newRow("quoted title") << QByteArray("title=\"\"") << "Beech - 58 - Red - _Unknown";
}

void TestAircraftCatalogue::emptyFieldsAreShownAsDefaultOrUnknown()
{
    QFETCH(QByteArray, lastLine);
    QTEST(nameOf(fourKeys + lastLine), "name");
}

void TestAircraftCatalogue::fileThatLacksOneOfTheFourKeysHasNoName_data()
{
    QTest::addColumn<QByteArray>("key");
    for (const char *key : {"title", "ui_manufacturer", "ui_type", "ui_variation"}) {
        QTest::newRow(key) << QByteArray(key);
    }
}

void TestAircraftCatalogue::fileThatLacksOneOfTheFourKeysHasNoName()
{
    QFETCH(QByteArray, key);
    QByteArray bytes = fourKeys;
    QCOMPARE(nameOf(bytes.replace(key + '=', "other=")), QString());
}

void TestAircraftCatalogue::lastValueOfEachKeyWinsOverSeveralSections()
{
    const ConfigContent content =
        ConfigContent::parse("[fltsim.0]\r\n" + fourKeys +
                             "panel=one\r\n[fltsim.1]\r\ntitle=Second\r\n"
                             "ui_variation=Blue\r\npanel=two\r\n[fltsim.2]\r\npanel=\r\n");
    QCOMPARE(content.displayName, QString("Beech - 58 - Blue - Second"));
    QCOMPARE(content.panel, QString());
}

void TestAircraftCatalogue::keysAreMatchedAtTheLineStartBlindToCase_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("name");
    QTest::newRow("capitals") << QByteArray("TITLE=New") << "Beech - 58 - Red - New";
    QTest::newRow("mixed") << QByteArray("Ui_Type = New") << "Beech - New - Red - Baron";
    QTest::newRow("blank before") << QByteArray(" title=New") << "Beech - 58 - Red - Baron";
    QTest::newRow("tab before") << QByteArray("\ttitle=New") << "Beech - 58 - Red - Baron";
    QTest::newRow("many signs") << QByteArray("title = == New ") << "Beech - 58 - Red - New";
    QTest::newRow("no sign: one character is lost")
        << QByteArray("titleNew") << "Beech - 58 - Red - ew";
    QTest::newRow("no line end") << QByteArray("ui_manufacturer=N") << "N - 58 - Red - Baron";
}

void TestAircraftCatalogue::keysAreMatchedAtTheLineStartBlindToCase()
{
    QFETCH(QByteArray, line);
    QTEST(nameOf(fourKeys + line), "name");
}

void TestAircraftCatalogue::panelKeyHasNoBlankOrOneBeforeItsEqualsSign_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("panel");
    QTest::newRow("none") << QByteArray("panel=xyz") << "xyz";
    QTest::newRow("one") << QByteArray("Panel = xyz ") << "xyz";
    QTest::newRow("two") << QByteArray("panel  =xyz") << "";
    QTest::newRow("tab") << QByteArray("panel\t=xyz") << "";
    QTest::newRow("leading blank") << QByteArray(" panel=xyz") << "";
    QTest::newRow("without a value") << QByteArray("panel=") << "";
    QTest::newRow("key alone") << QByteArray("panel") << "";
    QTest::newRow("comment") << QByteArray("//panel=xyz") << "";
}

void TestAircraftCatalogue::panelKeyHasNoBlankOrOneBeforeItsEqualsSign()
{
    QFETCH(QByteArray, line);
    QTEST(panelOf("[fltsim.0]\n" + line + "\nsound=\n"), "panel");
}

void TestAircraftCatalogue::titleLosesOneQuoteAtEachEnd_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QString>("shown");
    QTest::newRow("both") << QByteArray("\"A\"") << "A";
    QTest::newRow("start") << QByteArray("\"A") << "A";
    QTest::newRow("end") << QByteArray("A\"") << "A";
    QTest::newRow("two each") << QByteArray("\"\"A\"\"") << "\"A\"";
    QTest::newRow("inside") << QByteArray("A\"B") << "A\"B";
    QTest::newRow("one alone") << QByteArray("\"") << "_Unknown";
}

void TestAircraftCatalogue::titleLosesOneQuoteAtEachEnd()
{
    QFETCH(QByteArray, title);
    QFETCH(QString, shown);
    QCOMPARE(nameOf(fourKeys + "title=" + title), "Beech - 58 - Red - " + shown);
}

void TestAircraftCatalogue::quotesOfOtherFieldsStay()
{
    QCOMPARE(nameOf(fourKeys + "ui_type=\"58\""), QString("Beech - \"58\" - Red - Baron"));
}

void TestAircraftCatalogue::charactersAbove122AreDropped()
{
    QCOMPARE(nameOf(fourKeys + "title=Caf\xE9 {Z\xFCrich}|~ z\x80\tx"),
             QString("Beech - 58 - Red - Caf Zrich zx"));
}

void TestAircraftCatalogue::checkNameKeepsCodes32To122()
{
    QString all;
    for (char16_t code = 0; code < 300; ++code) {
        all += QChar(code);
    }
    QCOMPARE(aircraft_catalogue::CheckName(all), all.sliced(32, 91));
}

void TestAircraftCatalogue::aliasAnywhereMarksTheConfiguration_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("aliased");
    QTest::newRow("none") << QByteArray("title=x\nal ias=\naliAx") << false;
    QTest::newRow("key") << QByteArray("alias=x") << true;
    QTest::newRow("capitals") << QByteArray("title=x\n  ALIAS =x") << true;
    QTest::newRow("inside a word") << QByteArray("//isAliased") << true;
    QTest::newRow("over two lines") << QByteArray("al\nias") << false;
    QTest::newRow("cut off") << QByteArray("alia") << false;
    QTest::newRow("starts with its second letter") << QByteArray("lias") << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void TestAircraftCatalogue::aliasAnywhereMarksTheConfiguration()
{
    QFETCH(QByteArray, bytes);
    QTEST(ConfigContent::parse(bytes).aliased, "aliased");
}

void TestAircraftCatalogue::hundredThousandLinesAreRead()
{
    const QByteArray filler = QByteArray("station_load.0=170,-1.5,0,0\r\n").repeated(100000);
    QCOMPARE(nameOf("title\r\n" + filler + fourKeys + filler), QString("Beech - 58 - Red - Baron"));
}

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
    Walk walk;
    walk.add("a", fourKeys + "panel=wide\r\n");
    walk.add("b", "");
    walk.add("c", "title=without the rest\r\npanel=lost\r\n");
    walk.add("d", "no configuration", "readme.txt");
    walk.add("e", fourKeys + "title=Other\r\nalias=a\r\n", "AirCraft.CFG");
    walk.run({"a", "b", "c", "d", "e"});
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

void TestAircraftCatalogue::everyAircraftReadIsOnTheListWithoutForceFeedback()
{
    Walk walk;
    walk.add("a", fourKeys + "force feedback=1\r\n[forcefeedback]\r\n");
    walk.add("b", "");
    walk.add("d", "", "readme.txt");
    walk.run({"a", "b", "d"});
    QCOMPARE(walk.catalogue.folders, (QStringList{"C:\\FS9\\Aircraft\\a", "C:\\FS9\\Aircraft\\b"}));
    QCOMPARE(walk.catalogue.folderNames, (QStringList{"a", "b"}));
    QCOMPARE(walk.read, (QStringList{"a", "b"}));
}

void TestAircraftCatalogue::longNameIsCutInTheListingOnly()
{
    Walk walk;
    walk.add("a", fourKeys + "title=" + QByteArray(100, 'x'));
    walk.run({"a"});
    const QString name = "Beech - 58 - Red - " + QString(100, 'x');
    QCOMPARE(walk.catalogue.names, QStringList{name});
    QCOMPARE(walk.catalogue.listing, QStringList{name.first(75) + "  \\a"});
}

void TestAircraftCatalogue::unreadableFileIsReportedAndTheWalkGoesOn()
{
    Walk walk;
    walk.add("a", fourKeys);
    walk.add("b", fourKeys);
    QFile::setPermissions(walk.sandbox.host("C:\\FS9\\Aircraft\\a\\aircraft.cfg"), {});
    const OrdinaryUser user(walk.sandbox);
    walk.run({"a", "b"});
    QCOMPARE(walk.failures,
             QStringList{"Path/File access error: Opening C:\\FS9\\Aircraft\\a\\aircraft.cfg"});
    QCOMPARE(walk.catalogue.cfgFiles, QStringList{"C:\\FS9\\Aircraft\\b\\aircraft.cfg"});
    QCOMPARE(walk.catalogue.folderNames, (QStringList{"a", "b"}));
}

void TestAircraftCatalogue::folderThatIsGoneEndsTheWalk()
{
    Walk walk;
    walk.add("a", fourKeys);
    walk.add("c", fourKeys);
    QCOMPARE(failureOf([&] { walk.run({"a", "b", "c"}); }), QString("76 Path not found"));
    QCOMPARE(walk.ErrMsg, QString("Set path to C:\\FS9\\Aircraft\\b"));
    QCOMPARE(walk.catalogue.cfgFiles, QStringList{"C:\\FS9\\Aircraft\\a\\aircraft.cfg"});
}

void TestAircraftCatalogue::secondWalkStartsAnew()
{
    Walk walk;
    walk.add("a", fourKeys);
    walk.run({"a"});
    walk.run({"a"});
    QCOMPARE(walk.catalogue.names, QStringList{"Beech - 58 - Red - Baron"});
    QCOMPARE(walk.catalogue.folders, QStringList{"C:\\FS9\\Aircraft\\a"});
}

QTEST_GUILESS_MAIN(TestAircraftCatalogue)
#include "test_aircraft_catalogue.moc"
