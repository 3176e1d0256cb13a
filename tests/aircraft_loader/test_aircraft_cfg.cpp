// SPDX-License-Identifier: MIT
// Reading titles and cruise speed out of an aircraft.cfg.
#include "aircraft_loader/available_aircraft.h"
#include "app/services/aircraft_folders.h"
#include "platform/code_page.h"
#include "tests/support/steps.h"

#include <QtTest>

namespace
{

const QString anyPath = QStringLiteral("C:\\FS9\\Aircraft\\B734\\aircraft.cfg");

AircraftFolder folderWith(const QByteArray &bytes, const QString &path = anyPath)
{
    AircraftFolder folder;
    folder.cfgFile = path;
    folder.traffic = cfg_content::parse(bytes, Content::Traffic).first;
    return folder;
}

/// Reads one more file.
void readNext(AvailableAircraft &cfg, const QByteArray &bytes, const QString &path = anyPath)
{
    Steps steps;
    cfg.CheckFile(folderWith(bytes, path), steps.step);
}

/// An aircraft.cfg as a whole, read after nothing else.
AvailableAircraft read(const QByteArray &bytes)
{
    AvailableAircraft cfg;
    readNext(cfg, bytes);
    return cfg;
}

/// `count` sections with the titles "Title 0", "Title 1" and so on.
QByteArray sections(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        bytes += "[fltsim." + number + "]\r\ntitle=Title " + number + "\r\n";
    }
    return bytes;
}

const QByteArray usualFile = "[fltsim.0]\r\n"
                             "title=Boeing 737 Blue\r\n"
                             "sim=B737\r\n"
                             "[fltsim.1]\r\n"
                             "title=Boeing 737 Red\r\n"
                             "[General]\r\n"
                             "[Reference Speeds]\r\n"
                             "cruise_speed=477\r\n"
                             "max_mach=0.8\r\n";

} // namespace

class TestAircraftCfg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titlesAndSpeedAreRead();
    void sectionHeaderIsRecognisedInEveryCase();
    void sectionHeaderMustStandAtTheBeginningOfItsLine();
    void sectionNumbersAreNotChecked();
    void titleIsTheLineBelowTheHeaderWhateverItsKey_data();
    void titleIsTheLineBelowTheHeaderWhateverItsKey();
    void commentLineBelowTheHeaderIsTakenForTheTitle_data();
    void commentLineBelowTheHeaderIsTakenForTheTitle();
    void secondHeaderBelowAHeaderIsItsTitle();
    void speedLineBelowAHeaderIsTitleAndSpeed();
    void sectionsBehindTheSpeedLineAreNotSeen();
    void onlyTheFirstSpeedLineCounts();
    void titlesWithoutASpeedLineYieldNoData();
    void speedWithoutTitlesIsData();
    void speedIsTheWholePartOfTheLeadingNumber_data();
    void speedIsTheWholePartOfTheLeadingNumber();
    void commentMakesTheSpeedTextAsLongAsTheCommentIs_data();
    void commentMakesTheSpeedTextAsLongAsTheCommentIs();
    void speedBeyondAnyNumberFails();
    void pathWithCslInAnyCaseIsNotEvenOpened_data();
    void pathWithCslInAnyCaseIsNotEvenOpened();
    void emptyFileLeavesHaveDataAsItWas();
    void cslFileLeavesHaveDataAsItWas();
    void fileWithOnlyAMarkIsNotEmpty();
    void everyFileStartsWithoutTitlesAndSpeed();
    void fileThatCannotBeOpenedKeepsTheOpeningStep();
    void fileThatCannotBeReadNamesTheReadingStep();
    void fileThatIsReadEndsInTheReadingStep();
    void headerAsLastLineIsPastTheEnd_data();
    void headerAsLastLineIsPastTheEnd();
    void exactly1501TitlesAreFine();
    void title1502IsOutOfRange();
    void lineEndsAreCrLfCrAndLf_data();
    void lineEndsAreCrLfCrAndLf();
    void utf8MarkBeforeTheFirstHeaderIsPassedOver();
    void everyByteOfATitleIsKept();
    void nulBytesAreText();
    void lineOfTenMegabytesIsPassedOver();
    void titleOfTenMegabytesIsATitle();
    void folderNameIsCutByTheLayout_data();
    void folderNameIsCutByTheLayout();
};

void TestAircraftCfg::titlesAndSpeedAreRead()
{
    const AvailableAircraft cfg = read(usualFile);
    QVERIFY(cfg.HaveData);
    QCOMPARE(cfg.AircraftTitles, (QStringList{"Boeing 737 Blue", "Boeing 737 Red"}));
    QCOMPARE(cfg.Speed, QString("477"));
}

void TestAircraftCfg::sectionHeaderIsRecognisedInEveryCase()
{
    const AvailableAircraft cfg =
        read("[FLTSIM.0]\r\nTITLE=A\r\n[FltSim.1]\r\nTitle=B\r\nCRUISE_Speed=9\r\n");
    QCOMPARE(cfg.AircraftTitles, (QStringList{"A", "B"}));
    QCOMPARE(cfg.Speed, QString("9"));
}

void TestAircraftCfg::sectionHeaderMustStandAtTheBeginningOfItsLine()
{
    const AvailableAircraft cfg =
        read(" [fltsim.0]\r\ntitle=A\r\n[fltsim]\r\ntitle=B\r\n;[fltsim.1]\r\n"
             "title=C\r\n cruise_speed=1\r\ncruise_speed=2\r\n");
    QCOMPARE(cfg.AircraftTitles, QStringList());
    QCOMPARE(cfg.Speed, QString("2"));
}

void TestAircraftCfg::sectionNumbersAreNotChecked()
{
    const AvailableAircraft cfg =
        read("[fltsim.7]\r\ntitle=Seven\r\n[fltsim.7]\r\ntitle=Again\r\n"
             "[fltsim.x]\r\ntitle=X\r\n[fltsim.0]\r\ntitle=Zero\r\ncruise_speed=1\r\n");
    QCOMPARE(cfg.AircraftTitles, (QStringList{"Seven", "Again", "X", "Zero"}));
}

void TestAircraftCfg::titleIsTheLineBelowTheHeaderWhateverItsKey_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("title");
    QTest::newRow("usual") << QByteArray("title=Boeing 737") << "Boeing 737";
    QTest::newRow("blanks around it") << QByteArray("title =  Boeing 737  ") << "Boeing 737";
    QTest::newRow("another key") << QByteArray("sim=B737") << "B737";
    QTest::newRow("no equals sign") << QByteArray("  Boeing 737 ") << "Boeing 737";
    QTest::newRow("two equals signs") << QByteArray("title=A=B") << "A=B";
    QTest::newRow("tabs are no blanks") << QByteArray("title=\tBoeing\t") << "\tBoeing\t";
    QTest::newRow("comment at its end") << QByteArray("title=Boeing // ours") << "Boeing // ours";
    QTest::newRow("nothing behind the sign") << QByteArray("title=") << "";
    QTest::newRow("empty line") << QByteArray("") << "";
    QTest::newRow("quotes") << QByteArray("title=\"Boeing\"") << "\"Boeing\"";
}

void TestAircraftCfg::titleIsTheLineBelowTheHeaderWhateverItsKey()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, title);
    const AvailableAircraft cfg = read("[fltsim.0]\r\n" + line + "\r\ncruise_speed=1\r\n");
    QCOMPARE(cfg.AircraftTitles, QStringList{title});
}

void TestAircraftCfg::commentLineBelowTheHeaderIsTakenForTheTitle_data()
{
    QTest::addColumn<QByteArray>("comment");
    QTest::addColumn<QString>("title");
    QTest::newRow("with an equals sign") << QByteArray("// livery = Blue ") << "Blue";
    QTest::newRow("without one") << QByteArray(" ; painted by hand ") << "; painted by hand";
}

void TestAircraftCfg::commentLineBelowTheHeaderIsTakenForTheTitle()
{
    QFETCH(QByteArray, comment);
    QFETCH(QString, title);
    const AvailableAircraft cfg =
        read("[fltsim.0]\r\n" + comment + "\r\ntitle=Boeing\r\ncruise_speed=1\r\n");
    QCOMPARE(cfg.AircraftTitles, QStringList{title});
}

void TestAircraftCfg::secondHeaderBelowAHeaderIsItsTitle()
{
    const AvailableAircraft cfg =
        read("[fltsim.0]\r\n[fltsim.1]\r\ntitle=Boeing\r\ncruise_speed=1\r\n");
    QCOMPARE(cfg.AircraftTitles, QStringList{"[fltsim.1]"});
}

void TestAircraftCfg::speedLineBelowAHeaderIsTitleAndSpeed()
{
    const AvailableAircraft cfg = read("[fltsim.0]\r\ncruise_speed=250\r\ntitle=Boeing\r\n");
    QVERIFY(cfg.HaveData);
    QCOMPARE(cfg.AircraftTitles, QStringList{"250"});
    QCOMPARE(cfg.Speed, QString("250"));
}

void TestAircraftCfg::sectionsBehindTheSpeedLineAreNotSeen()
{
    const AvailableAircraft cfg =
        read("[fltsim.0]\r\ntitle=Above\r\ncruise_speed=250\r\n[fltsim.1]\r\ntitle=Below\r\n");
    QCOMPARE(cfg.AircraftTitles, QStringList{"Above"});
    QVERIFY(cfg.HaveData);
}

void TestAircraftCfg::onlyTheFirstSpeedLineCounts()
{
    QCOMPARE(read("cruise_speed=250\r\ncruise_speed=300\r\n").Speed, QString("250"));
    QCOMPARE(read("cruise_speed_kias=210\r\ncruise_speed=300\r\n").Speed, QString("210"));
}

void TestAircraftCfg::titlesWithoutASpeedLineYieldNoData()
{
    const AvailableAircraft cfg = read("[fltsim.0]\r\ntitle=Boeing\r\n[Reference Speeds]\r\n");
    QVERIFY(!cfg.HaveData);
    QCOMPARE(cfg.Speed, QString());
    QCOMPARE(cfg.AircraftTitles, QStringList{"Boeing"});
}

void TestAircraftCfg::speedWithoutTitlesIsData()
{
    const AvailableAircraft cfg = read("cruise_speed=250");
    QVERIFY(cfg.HaveData);
    QCOMPARE(cfg.AircraftTitles, QStringList());
    QCOMPARE(cfg.Speed, QString("250"));
}

void TestAircraftCfg::speedIsTheWholePartOfTheLeadingNumber_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("speed");
    QTest::newRow("fraction") << QByteArray("cruise_speed=250.7") << "250";
    QTest::newRow("below zero rounds down") << QByteArray("cruise_speed=-3.2") << "-4";
    QTest::newRow("blanks") << QByteArray("cruise_speed =  160 ") << "160";
    QTest::newRow("blank within") << QByteArray("cruise_speed=1 60") << "160";
    QTest::newRow("tab") << QByteArray("cruise_speed=\t160") << "160";
    QTest::newRow("unit behind it") << QByteArray("cruise_speed=160 knots") << "160";
    QTest::newRow("comma") << QByteArray("cruise_speed=160,5") << "160";
    QTest::newRow("mixed case, no number") << QByteArray("Cruise_Speed=fast") << "0";
    QTest::newRow("nothing") << QByteArray("cruise_speed=") << "0";
    QTest::newRow("no equals sign") << QByteArray("cruise_speed 160") << "0";
    QTest::newRow("leading zeros") << QByteArray("cruise_speed=0160") << "160";
    QTest::newRow("fraction only") << QByteArray("cruise_speed=.9") << "0";
    QTest::newRow("exponent") << QByteArray("cruise_speed=1.6e2") << "160";
    QTest::newRow("exponent with D") << QByteArray("cruise_speed=1.6D2") << "160";
    QTest::newRow("hexadecimal") << QByteArray("cruise_speed=&HA0") << "160";
    QTest::newRow("octal") << QByteArray("cruise_speed=&O240") << "160";
    QTest::newRow("five figures") << QByteArray("cruise_speed=12345") << "12345";
    QTest::newRow("one slash is no comment") << QByteArray("cruise_speed=160/2") << "160";
}

void TestAircraftCfg::speedIsTheWholePartOfTheLeadingNumber()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, speed);
    QCOMPARE(read("[fltsim.0]\r\ntitle=A\r\n" + line + "\r\n").Speed, speed);
}

void TestAircraftCfg::commentMakesTheSpeedTextAsLongAsTheCommentIs_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("speed");
    QTest::newRow("long comment") << "cruise_speed = 160 // knots true airspeed"
                                  << "160";
    QTest::newRow("exactly long enough") << "cruise_speed = 160 //xx"
                                         << "160";
    QTest::newRow("one character short") << "cruise_speed = 160 //x"
                                         << "16";
    QTest::newRow("only the slashes") << "cruise_speed = 160 //"
                                      << "1";
    QTest::newRow("only the slashes, no blanks") << "cruise_speed=160//"
                                                 << "16";
    QTest::newRow("slashes before the equals sign") << "cruise_speed // = 160"
                                                    << "160";
    QTest::newRow("no equals sign") << "cruise_speed 160 // knots"
                                    << "0";
}

void TestAircraftCfg::commentMakesTheSpeedTextAsLongAsTheCommentIs()
{
    QFETCH(QString, line);
    QFETCH(QString, speed);
    QCOMPARE(cfg_content::speedIn(line), speed);
}

void TestAircraftCfg::speedBeyondAnyNumberFails()
{
    QCOMPARE(failureOf([] { read("[fltsim.0]\r\ntitle=A\r\ncruise_speed=1e999\r\n"); }),
             QString("6 Overflow"));
}

void TestAircraftCfg::pathWithCslInAnyCaseIsNotEvenOpened_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("lower case") << "C:\\FS9\\Aircraft\\csl_b744\\aircraft.cfg";
    QTest::newRow("upper case") << "C:\\FS9\\Aircraft\\CSL_B744\\aircraft.cfg";
    QTest::newRow("within a name") << "C:\\FS9\\Aircraft\\MyCslB744\\aircraft.cfg";
    QTest::newRow("a folder above") << "C:\\CSL\\Aircraft\\B744\\aircraft.cfg";
}

void TestAircraftCfg::pathWithCslInAnyCaseIsNotEvenOpened()
{
    QFETCH(QString, path);
    AvailableAircraft cfg;
    AircraftFolder folder = folderWith(usualFile, path);
    folder.failure = RuntimeError(ErrorNumber::FileNotFound);
    Steps steps;
    steps.step.set("Get Aircraft Name");
    cfg.CheckFile(folder, steps.step);
    QVERIFY(!cfg.HaveData);
    QCOMPARE(cfg.AircraftTitles, QStringList());
    QCOMPARE(steps.ErrMsg, QString("Get Aircraft Name"));
}

void TestAircraftCfg::emptyFileLeavesHaveDataAsItWas()
{
    AvailableAircraft cfg = read(usualFile);
    readNext(cfg, {});
    QVERIFY(cfg.HaveData);
    QCOMPARE(cfg.AircraftTitles, QStringList());
    QCOMPARE(cfg.Speed, QString());

    cfg = read("[General]\r\n");
    readNext(cfg, {});
    QVERIFY(!cfg.HaveData);
}

void TestAircraftCfg::cslFileLeavesHaveDataAsItWas()
{
    AvailableAircraft cfg = read(usualFile);
    readNext(cfg, usualFile, "C:\\Aircraft\\CSL\\aircraft.cfg");
    QVERIFY(cfg.HaveData);
    QCOMPARE(cfg.AircraftTitles, QStringList());
    QCOMPARE(cfg.Speed, QString());
}

void TestAircraftCfg::fileWithOnlyAMarkIsNotEmpty()
{
    AvailableAircraft cfg = read(usualFile);
    readNext(cfg, "\xEF\xBB\xBF");
    QVERIFY(!cfg.HaveData);
}

void TestAircraftCfg::everyFileStartsWithoutTitlesAndSpeed()
{
    AvailableAircraft cfg = read(usualFile);
    readNext(cfg, "[fltsim.0]\r\ntitle=Airbus\r\n");
    QCOMPARE(cfg.AircraftTitles, QStringList{"Airbus"});
    QCOMPARE(cfg.Speed, QString());
    QVERIFY(!cfg.HaveData);
}

void TestAircraftCfg::fileThatCannotBeOpenedKeepsTheOpeningStep()
{
    AvailableAircraft cfg = read(usualFile);
    AircraftFolder folder = folderWith(usualFile);
    folder.failure = RuntimeError(ErrorNumber::FileNotFound);
    Steps steps;
    QCOMPARE(steps.failureOf([&](Step &step) { cfg.CheckFile(folder, step); }),
             QString("53 File not found: Opening C:\\FS9\\Aircraft\\B734\\aircraft.cfg"));
    QCOMPARE(cfg.AircraftTitles, QStringList());
    QCOMPARE(cfg.Speed, QString());
}

void TestAircraftCfg::fileThatCannotBeReadNamesTheReadingStep()
{
    AvailableAircraft cfg = read(usualFile);
    AircraftFolder folder = folderWith("[General]\r\n");
    folder.traffic.failure = RuntimeError(ErrorNumber::DeviceIoError);
    Steps steps;
    QCOMPARE(steps.failureOf([&](Step &step) { cfg.CheckFile(folder, step); }),
             QString("57 Device I/O error: "
                     "Get Aircraft Data in\rC:\\FS9\\Aircraft\\B734\\aircraft.cfg"));
    QVERIFY(cfg.HaveData);
    QCOMPARE(cfg.Speed, QString());
}

void TestAircraftCfg::fileThatIsReadEndsInTheReadingStep()
{
    AvailableAircraft cfg;
    Steps steps;
    cfg.CheckFile(folderWith(usualFile), steps.step);
    QCOMPARE(steps.ErrMsg, QString("Get Aircraft Data in\rC:\\FS9\\Aircraft\\B734\\aircraft.cfg"));
}

void TestAircraftCfg::headerAsLastLineIsPastTheEnd_data()
{
    QTest::addColumn<QByteArray>("lastLine");
    QTest::newRow("with a line end") << QByteArray("[fltsim.1]\r\n");
    QTest::newRow("without one") << QByteArray("[fltsim.1]");
}

void TestAircraftCfg::headerAsLastLineIsPastTheEnd()
{
    QFETCH(QByteArray, lastLine);
    QCOMPARE(failureOf([&] { read("[fltsim.0]\r\ntitle=A\r\n" + lastLine); }),
             QString("62 Input past end of file"));
}

void TestAircraftCfg::exactly1501TitlesAreFine()
{
    const AvailableAircraft cfg = read(sections(1501) + "cruise_speed=250\r\n");
    QVERIFY(cfg.HaveData);
    QCOMPARE(cfg.AircraftTitles.size(), 1501);
    QCOMPARE(cfg.AircraftTitles.last(), QString("Title 1500"));
}

void TestAircraftCfg::title1502IsOutOfRange()
{
    QCOMPARE(failureOf([] { read(sections(1502) + "cruise_speed=250\r\n"); }),
             QString("9 Subscript out of range"));
}

void TestAircraftCfg::lineEndsAreCrLfCrAndLf_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("CR LF") << QByteArray("[fltsim.0]\r\ntitle=A\r\n\r\ncruise_speed=250\r\n");
    QTest::newRow("CR only") << QByteArray("[fltsim.0]\rtitle=A\r\rcruise_speed=250\r");
    QTest::newRow("LF only") << QByteArray("[fltsim.0]\ntitle=A\n\ncruise_speed=250\n");
    QTest::newRow("none at the end") << QByteArray("[fltsim.0]\r\ntitle=A\r\ncruise_speed=250");
}

void TestAircraftCfg::lineEndsAreCrLfCrAndLf()
{
    QFETCH(QByteArray, bytes);
    const AvailableAircraft cfg = read(bytes);
    QVERIFY(cfg.HaveData);
    QCOMPARE(cfg.AircraftTitles, QStringList{"A"});
    QCOMPARE(cfg.Speed, QString("250"));
}

void TestAircraftCfg::utf8MarkBeforeTheFirstHeaderIsPassedOver()
{
    const AvailableAircraft cfg = read("\xEF\xBB\xBF" + usualFile);
    QCOMPARE(cfg.AircraftTitles, (QStringList{"Boeing 737 Blue", "Boeing 737 Red"}));
}

void TestAircraftCfg::everyByteOfATitleIsKept()
{
    QByteArray title;
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n') {
            title += static_cast<char>(byte);
        }
    }
    const AvailableAircraft cfg = read("[fltsim.0]\r\ntitle=" + title + "\r\ncruise_speed=1\r\n");
    QCOMPARE(cfg.AircraftTitles.size(), 1);
    QCOMPARE(code_page::encode(cfg.AircraftTitles[0]), title);
}

void TestAircraftCfg::nulBytesAreText()
{
    const AvailableAircraft cfg = read(QByteArrayLiteral("\0[fltsim.0]\r\ntitle=No\r\n"
                                                         "[fltsim.1]\r\ntitle=Bo\0eing\r\n"
                                                         "\0\0\0\r\ncruise_speed=250\0\r\n"));
    QVERIFY(cfg.HaveData);
    QCOMPARE(cfg.AircraftTitles, QStringList{QString::fromLatin1("Bo\0eing", 7)});
    QCOMPARE(cfg.Speed, QString("250"));
}

void TestAircraftCfg::lineOfTenMegabytesIsPassedOver()
{
    const AvailableAircraft cfg = read(QByteArray(10'000'000, 'x') + "\r\n" + usualFile);
    QCOMPARE(cfg.AircraftTitles, (QStringList{"Boeing 737 Blue", "Boeing 737 Red"}));
    QCOMPARE(cfg.Speed, QString("477"));
}

void TestAircraftCfg::titleOfTenMegabytesIsATitle()
{
    const QByteArray title(10'000'000, 'x');
    const AvailableAircraft cfg = read("[fltsim.0]\r\ntitle=" + title + "\r\ncruise_speed=1\r\n");
    QCOMPARE(cfg.AircraftTitles, QStringList{QString::fromLatin1(title)});
}

void TestAircraftCfg::folderNameIsCutByTheLayout_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("airplanes");
    QTest::addColumn<bool>("rotorcraft");
    QTest::addColumn<QString>("name");
    QTest::newRow("aircraft") << "C:\\FS9\\Aircraft\\B734\\aircraft.cfg" << false << false
                              << "B734";
    QTest::newRow("aircraft, first of two")
        << "C:\\Aircraft\\B734\\Aircraft\\A320\\aircraft.cfg" << false << false << "B734";
    QTest::newRow("aircraft, one-letter folder")
        << "C:\\FS9\\Aircraft\\B\\aircraft.cfg" << false << false << "B";
    QTest::newRow("airplanes") << "C:\\FSX\\SimObjects\\AirPlanes\\B734\\aircraft.cfg" << true
                               << false << "B734";
    QTest::newRow("airplanes wins")
        << "C:\\Airplanes\\B734\\aircraft.cfg" << true << true << "B734";
    // The word is not in a rotorcraft path, so the cut begins at the 11th character of the path.
    QTest::newRow("rotorcraft is cut near the front")
        << "C:\\FSX\\SimObjects\\Rotorcraft\\Bell\\aircraft.cfg" << false << true << "Objects";
    QTest::newRow("rotorcraft below airplanes loses a letter")
        << "C:\\Airplanes\\Bell\\aircraft.cfg" << false << true << "ell";
}

void TestAircraftCfg::folderNameIsCutByTheLayout()
{
    QFETCH(QString, path);
    QFETCH(bool, airplanes);
    QFETCH(bool, rotorcraft);
    QFETCH(QString, name);
    QCOMPARE(available_aircraft::folderName(path, {airplanes, rotorcraft}), name);
}

QTEST_APPLESS_MAIN(TestAircraftCfg)
#include "test_aircraft_cfg.moc"
