// SPDX-License-Identifier: MIT
// How the program comes up, with and without a previous run.
#include "app/cls_os.h"
#include "app/services/form_state.h"
#include "platform/controls/dir_list_box.h"
#include "platform/controls/drive_list_box.h"
#include "platform/controls/list_box.h"
#include "platform/paths.h"
#include "tests/support/program.h"

#include <QAction>
#include <QGroupBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

namespace
{

const QString directoryPrompt =
    QStringLiteral("<--- Please select your Flight Simulator Aircraft directory!");

/// The splash, when it is on the screen.
QWidget *shownSplash()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget *window) {
        return window->objectName() == "frmSplash" && window->isVisible();
    });
    return found == windows.end() ? nullptr : *found;
}

bool isSplashShown()
{
    return shownSplash() != nullptr;
}

} // namespace

class TestStartUp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void captionNamesProgramAndVersion();
    void systemIsNamedWithItsVersion();
    void splashStandsFromTheStartUntilTheWindowIsUp();
    void splashShowsHowFarTheCountriesAreLoaded();
    void splashIsGoneBeforeTheWindowIsUsedThoughAStepFailed();
    void programFolderIsTheCurrentDirectory();
    void developmentFolderWinsOverTheCurrentDirectory();
    void firstRunCreatesAnEmptySettingsFileAndShowsPage0();
    void firstRunSearchesTheSimulatorTwice();
    void settingsOfTenBytesCountAsAbsentElevenAreRead();
    void settingsThatCannotBeReadEndTheRestoringAlone();
    void previousRunIsRestored();
    void savedDirectoryWinsOverTheRegistry();
    void directoryWithoutAnAircraftWordIsNotApplied();
    void directoryWithTheWordElsewhereFillsOnlyAnEmptyLabel();
    void savedPage3OpensPage3EmptyOpensPage0();
    void savedPageThatIsNoPageIsReportedAndTheWindowIsUsable_data();
    void savedPageThatIsNoPageIsReportedAndTheWindowIsUsable();
    void tToolsPathOf50IsShownWholeOf51Shortened();
    void textFilePathOf60IsShownWholeOf61Shortened();
    void tToolsKnownEnablesNamingOfASet();
    void tToolsUnknownLeavesNamingDisabled();
    void runTToolsIsEnabledExactlyWhenTToolsStandsBesideTheTextFile();
    void everyStartDeletesTheTraceLog();
    void reminderFlagIsTrueOnlyForTheWordTrue_data();
    void reminderFlagIsTrueOnlyForTheWordTrue();
    void commaInAPathShiftsTheValuesThatFollow();
    void settingsWithOneLineAreReportedAndTheWindowIsUsable();
    void binarySettingsAreReportedOrIgnoredButNeverFatal();
    void savedDirectoryThatIsGoneIsReportedAndTheWindowIsUsable();
    void savedTextFileThatIsGoneIsReportedAndTheRestGoesOn();
    void savedDriveThatIsGoneIsReportedAndTheRestGoesOn();
    void savedDriveComesBackWhereverTheDirectoryLies();
    void whatWasNotRestoredIsSavedAsItWasRead_data();
    void whatWasNotRestoredIsSavedAsItWasRead();
    void whatTheUserChoosesInsteadIsSaved();
    void unwritableProgramFolderIsReportedOnceAndItsSettingsUsed();
    void settingsThatCouldNotBeReadAreNotWrittenOverUnseen_data();
    void settingsThatCouldNotBeReadAreNotWrittenOverUnseen();
    void quittingFromAnUnwritableProgramFolderEndsAfterItsMessage();
    void savedValuesThatNobodyWouldReadAreNoDelay_data();
    void savedValuesThatNobodyWouldReadAreNoDelay();
    void numberOfAMillionFiguresIsNoDelay();
    void registeredFolderThatIsGoneIsReported();
    void registryThatCannotBeReadIsReported_data();
    void registryThatCannotBeReadIsReported();
    void directoryIsAskedForWhenTheSimulatorsIsGone();
    void neitherSimulatorLeavesTheLabelEmptyAndThePickersAlone();
    void simulatorXGivesAirplanes();
    void registeredFolderMayEndInABackslash();
    void emptyFs9ValueFallsThroughToSimulatorX();
    void versionOptionsSearchAgainAndSwitchTheHint();
    void focusIsOnBrowseText();
    void page1AsksForAFileAndSaysHowToAdd();
    void currentDirectoryIsAcceptedWhenItIsTheAircraftDirectory();
    void stepsRunInTheirOrder_data();
    void stepsRunInTheirOrder();
    void page3AsksForTheDirectory();
};

void TestStartUp::captionNamesProgramAndVersion()
{
    Program program;
    QCOMPARE(program.start().windowTitle(), QString("Morlen Utilities - Version 1.5.4"));
}

void TestStartUp::systemIsNamedWithItsVersion()
{
    Program program;
    const clsOS os(systemVersion());
    QCOMPARE(program.start().state().osVersion, os.name() + ' ' + os.version());
}

void TestStartUp::splashStandsFromTheStartUntilTheWindowIsUp()
{
    // The searches for the simulator fail while the program loads: the box shows what is there.
    Program program;
    program.outside.registry.installFs9("C:\\Gone");
    QList<bool> splash;
    QList<bool> window;
    program.outside.dialogs.whileShown = [&] {
        splash += isSplashShown();
        window += program.window->isVisible();
    };
    program.start();
    QCOMPARE(splash, (QList<bool>{true, true}));
    QCOMPARE(window, (QList<bool>{false, false}));
    QVERIFY(!isSplashShown());
    QVERIFY(program.window->isVisible());
}

void TestStartUp::splashShowsHowFarTheCountriesAreLoaded()
{
    Program program;
    program.sandbox.write("C:\\windows\\system32\\ZENTAM.OCX",
                          QByteArray("Chad||Abeche|FTTC|Abeche|FTTC\r\n").repeated(24000));
    // A later step fails, and its box shows what is there.
    program.sandbox.write(Program::settingsFile, "just one long line\r\n");
    QString status;
    int maximum = 0;
    int value = 0;
    program.outside.dialogs.whileShown = [&] {
        const QWidget *splash = shownSplash();
        status = findControl<QLabel>(*splash, "lblStatus")->text();
        maximum = findControl<QProgressBar>(*splash, "ProgressBar1")->maximum();
        value = findControl<QProgressBar>(*splash, "ProgressBar1")->value();
    };
    program.start();
    QCOMPARE(status, QString("Loading...."));
    QCOMPARE(maximum, 24000);
    QCOMPARE(value, 24000);
    QCOMPARE(program.outside.dialogs.boxes.last().title, QString("Form Load Error"));
}

void TestStartUp::splashIsGoneBeforeTheWindowIsUsedThoughAStepFailed()
{
    Program program;
    program.remember("first", "", "q:", "", "", "True");
    QList<bool> splash;
    QList<bool> window;
    program.outside.dialogs.whileShown = [&] {
        splash += isSplashShown();
        window += program.window->isVisible();
    };
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.last().prompt,
             QString("Error  13 Type mismatch\rSelecting page first"));
    QCOMPARE(splash, (QList<bool>{true, false}));
    QCOMPARE(window, (QList<bool>{false, true}));
    QVERIFY(!isSplashShown());
}

void TestStartUp::programFolderIsTheCurrentDirectory()
{
    Program program;
    QCOMPARE(program.start().state().MorlenEDir, QString("C:\\Morlen\\"));
}

void TestStartUp::developmentFolderWinsOverTheCurrentDirectory()
{
    Program program;
    program.sandbox.makeFolder("C:\\Devel\\MorlenEditor");
    QCOMPARE(program.start().state().MorlenEDir, QString("C:\\devel\\MorlenEditor\\"));
    QVERIFY(program.sandbox.exists("C:\\Devel\\MorlenEditor\\MorlenE.ini"));
    QVERIFY(!program.sandbox.exists(Program::settingsFile));
}

void TestStartUp::firstRunCreatesAnEmptySettingsFileAndShowsPage0()
{
    Program program;
    program.start();
    QCOMPARE(program.sandbox.read(Program::settingsFile), QByteArray());
    QVERIFY(program.window->isVisible());
    QVERIFY(program.find<QTabWidget>("SSTab1")->isVisible());
    QCOMPARE(program.find<QTabWidget>("SSTab1")->currentIndex(), 0);
    QVERIFY(program.window->state().ShowAddAirportHelp);
    QCOMPARE(program.find<ListBox>("Tab0List2")->count(), 0);
    QCOMPARE(program.find<ListBox>("Tab0List3")->count(), 0);
    QCOMPARE(program.label("lblFSPath"), Program::aircraftDir);
    QCOMPARE(program.label("lblAircraftTextFile"), QString("Please select an Aircraft Text File"));
    QCOMPARE(program.outside.dialogs.boxes.size(), 0);
}

void TestStartUp::firstRunSearchesTheSimulatorTwice()
{
    // A folder that is not there is reported once per search.
    Program program;
    program.outside.registry.installFs9("C:\\Gone");
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 2);

    Program second;
    second.rememberUsualRun();
    second.outside.registry.installFs9("C:\\Gone");
    second.start();
    QCOMPARE(second.outside.dialogs.boxes.size(), 1);
}

void TestStartUp::settingsOfTenBytesCountAsAbsentElevenAreRead()
{
    Program program;
    program.sandbox.write(Program::settingsFile, "3,a,c:,b,c"); // 10 bytes
    program.start();
    QCOMPARE(program.find<QTabWidget>("SSTab1")->currentIndex(), 0);
    QCOMPARE(program.outside.dialogs.boxes.size(), 0);

    Program second;
    second.sandbox.write(Program::settingsFile, "3,a,c:,b,,d"); // 11 bytes
    second.start();
    QCOMPARE(second.find<QTabWidget>("SSTab1")->currentIndex(), 3);
    QCOMPARE(second.window->state().strTToolsPath, QString("a"));
    QVERIFY(!second.window->state().ShowAddAirportHelp);
}

void TestStartUp::settingsThatCannotBeReadEndTheRestoringAlone()
{
    Program program;
    program.sandbox.write(Program::settingsFile, "3\r\nC:\\TTools\\TTools.exe\r\n");
    program.sandbox.write(Program::logFile, "old");
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Form Load Error"));
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             QString("Error  62 Input past end of file\rOpening C:\\Morlen\\\\MorlenE.ini"));
    QCOMPARE(program.label("lblFSPath"), Program::aircraftDir);
    QVERIFY(!program.sandbox.exists(Program::logFile));
    QCOMPARE(program.find<QLabel>("Tab3Label6")->text(), QString("Varlo"));
    QCOMPARE(program.window->state().DefaultName, QString("FlightPlans_"));
    QCOMPARE(program.window->state().strTToolsPath, QString());
    QCOMPARE(program.find<ListBox>("Tab3List3")->items(), QStringList{directoryPrompt});
    QCOMPARE(program.find<QTabWidget>("SSTab1")->currentIndex(), 0);
}

void TestStartUp::previousRunIsRestored()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    QCOMPARE(program.label("lblAircraftTextFile"), Program::textFile);
    QCOMPARE(program.window->state().AircraftTextDir, Program::textFile);
    QCOMPARE(program.window->state().strTToolsDir, QString("C:\\TTools\\"));
    QCOMPARE(program.find<ListBox>("Tab0List3")->items(), QStringList{"AC#4,477,\"Boeing Blue\""});
    QCOMPARE(program.find<ListBox>("Tab0List2")->items(), QStringList{"Airbus Blue 454"});
    QVERIFY(program.find<QPushButton>("cmdEdit")->isEnabled());
    QVERIFY(!program.find<QLabel>("lblAircraftTextFile")->font().bold());
    QCOMPARE(program.find<DirListBox>("Tab3Dir1")->path(), Program::aircraftDir);
    QCOMPARE(program.outside.dialogs.boxes.size(), 0);
}

void TestStartUp::savedDirectoryWinsOverTheRegistry()
{
    Program program;
    program.sandbox.makeFolder("C:\\Other\\AIRPLANES");
    program.remember("0", "", "c:", "C:\\Other\\AIRPLANES", "", "True");
    program.start();
    QCOMPARE(program.label("lblFSPath"), QString("C:\\Other\\AIRPLANES"));
    QCOMPARE(program.window->state().AirCraftDir, QString("C:\\Other\\AIRPLANES"));
    QCOMPARE(program.find<DirListBox>("Dir1")->path(), QString("C:\\Other\\AIRPLANES"));
    QCOMPARE(program.find<DirListBox>("Tab3Dir1")->path(), QString("C:\\Other\\AIRPLANES"));
}

void TestStartUp::directoryWithoutAnAircraftWordIsNotApplied()
{
    Program program;
    program.sandbox.makeFolder("C:\\Planes");
    program.remember("0", "", "c:", "C:\\Planes", "", "True");
    program.start();
    QCOMPARE(program.find<DirListBox>("Dir1")->path(), Program::aircraftDir);
    QCOMPARE(program.find<DirListBox>("Tab3Dir1")->path(), Program::aircraftDir);
    QCOMPARE(program.label("lblFSPath"), Program::aircraftDir);
}

void TestStartUp::directoryWithTheWordElsewhereFillsOnlyAnEmptyLabel()
{
    Program program;
    program.sandbox.makeFolder("C:\\My Rotorcraft\\new");
    program.remember("0", "", "c:", "C:\\My Rotorcraft\\new", "", "True");
    program.start();
    QCOMPARE(program.label("lblFSPath"), Program::aircraftDir);
    QCOMPARE(program.find<DirListBox>("Tab3Dir1")->path(), QString("C:\\My Rotorcraft\\new"));

    Program second;
    second.outside.registry.installFs9("");
    second.sandbox.makeFolder("C:\\My Rotorcraft\\new");
    second.remember("0", "", "c:", "C:\\My Rotorcraft\\new", "", "True");
    second.start();
    QCOMPARE(second.label("lblFSPath"), QString("C:\\My Rotorcraft\\new"));
    QCOMPARE(second.find<DirListBox>("Dir1")->path(), QString("C:\\My Rotorcraft\\new"));
}

void TestStartUp::savedPage3OpensPage3EmptyOpensPage0()
{
    Program program;
    program.rememberUsualRun("3");
    program.start();
    QCOMPARE(program.find<QTabWidget>("SSTab1")->currentIndex(), 3);

    Program second;
    second.rememberUsualRun("");
    second.start();
    QCOMPARE(second.find<QTabWidget>("SSTab1")->currentIndex(), 0);
    QCOMPARE(second.outside.dialogs.boxes.size(), 0);
}

void TestStartUp::savedPageThatIsNoPageIsReportedAndTheWindowIsUsable_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("error");
    QTest::newRow("a word") << QByteArray("first") << "Error  13 Type mismatch";
    QTest::newRow("too large") << QByteArray("4") << "Error  5 Invalid procedure call or argument";
    QTest::newRow("far too large") << QByteArray("99999") << "Error  6 Overflow";
}

void TestStartUp::savedPageThatIsNoPageIsReportedAndTheWindowIsUsable()
{
    QFETCH(QByteArray, page);
    QFETCH(QString, error);
    Program program;
    program.rememberUsualRun(page);
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Form Load Error"));
    QCOMPARE(program.outside.dialogs.boxes[0].prompt, error + "\rSelecting page " + page);
    QVERIFY(program.find<QTabWidget>("SSTab1")->isVisible());
    QCOMPARE(program.find<ListBox>("Tab0List2")->count(), 1);
}

void TestStartUp::tToolsPathOf50IsShownWholeOf51Shortened()
{
    const QByteArray path50 = "C:\\" + QByteArray(36, 'x') + "\\TTools.exe";
    QCOMPARE(path50.size(), 50);
    Program program;
    program.remember("0", path50, "c:", "", "", "True");
    program.start();
    QCOMPARE(program.find<QLineEdit>("tab2txtTToolsDir")->text(), QString(path50.constData()));
    QCOMPARE(program.find<QGroupBox>("tab2TToolsDir")->title(), QString("TTools Directory"));

    const QByteArray path51 = "C:\\" + QByteArray(37, 'x') + "\\TTools.exe";
    Program second;
    second.remember("0", path51, "c:", "", "", "True");
    second.start();
    QCOMPARE(second.find<QLineEdit>("tab2txtTToolsDir")->text(),
             QString("..." + QString(path51.right(50).constData())));
}

void TestStartUp::textFilePathOf60IsShownWholeOf61Shortened()
{
    for (const int length : {60, 61}) {
        Program program;
        const QString path = "C:\\" + QString(length - 3 - 13, 'x') + "\\aircraft.txt";
        QCOMPARE(path.size(), length);
        program.sandbox.write(path, "");
        program.remember("0", "", "c:", Program::aircraftDir.toLatin1(), path.toLatin1(), "True");
        program.start();
        QCOMPARE(program.label("lblAircraftTextFile"), length == 60 ? path : "..." + path.last(60));
        QCOMPARE(program.window->state().AircraftTextDir, path);
        QCOMPARE(program.outside.dialogs.boxes.size(), 0);
    }
}

void TestStartUp::tToolsKnownEnablesNamingOfASet()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    QVERIFY(program.find<QGroupBox>("tab2Frame12")->isEnabled());
    QVERIFY(program.find<QGroupBox>("tab2Frame12")->font().bold());
    QCOMPARE(program.find<QGroupBox>("tab2Frame12")->palette().color(QPalette::WindowText),
             QColor(255, 0, 0));
    QVERIFY(program.find<QPushButton>("tab2Command2")->isEnabled());
    QVERIFY(program.find<QLineEdit>("tab2txtFltPlan")->isEnabled());
    QCOMPARE(program.find<QLineEdit>("tab2txtFltPlan")->text(), QString("FlightPlans_"));
    QCOMPARE(program.find<QLineEdit>("tab2txtFltPlan")->cursorPosition(), 12);
}

void TestStartUp::tToolsUnknownLeavesNamingDisabled()
{
    Program program;
    program.remember("0", "C:\\TTools\\Other.exe", "c:", "", "", "True");
    program.start();
    QVERIFY(!program.find<QGroupBox>("tab2Frame12")->isEnabled());
    QVERIFY(!program.find<QPushButton>("tab2Command2")->isEnabled());
    QVERIFY(!program.find<QLineEdit>("tab2txtFltPlan")->isEnabled());
    QCOMPARE(program.find<QGroupBox>("tab2TToolsDir")->title(),
             QString("Select yourTTools Directory"));
}

void TestStartUp::runTToolsIsEnabledExactlyWhenTToolsStandsBesideTheTextFile()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    QVERIFY(program.find<QPushButton>("cmdTtools")->isEnabled());

    Program second;
    second.sandbox.write("C:\\TTools\\TTools.exe", "");
    second.rememberUsualRun();
    second.start();
    QVERIFY(!second.find<QPushButton>("cmdTtools")->isEnabled());
}

void TestStartUp::everyStartDeletesTheTraceLog()
{
    Program program;
    program.sandbox.write(Program::logFile, "traced");
    program.start();
    QVERIFY(!program.sandbox.exists(Program::logFile));
    QVERIFY(!program.find<QAction>("mnuTrace")->isChecked());
    QVERIFY(!program.window->state().TraceOn);
}

void TestStartUp::reminderFlagIsTrueOnlyForTheWordTrue_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<bool>("shown");
    QTest::newRow("True") << QByteArray("True") << true;
    QTest::newRow("mixed case") << QByteArray("tRuE") << true;
    QTest::newRow("False") << QByteArray("False") << false;
    QTest::newRow("a number") << QByteArray("-1") << false;
}

void TestStartUp::reminderFlagIsTrueOnlyForTheWordTrue()
{
    QFETCH(QByteArray, word);
    QFETCH(bool, shown);
    Program program;
    program.remember("0", "", "c:", "", "", word);
    program.start();
    QCOMPARE(program.window->state().ShowAddAirportHelp, shown);
}

void TestStartUp::commaInAPathShiftsTheValuesThatFollow()
{
    Program program;
    program.remember("0", "C:\\Tools, mine\\TTools.exe", "c:", "C:\\x", "true", "False");
    program.start();
    QCOMPARE(program.window->state().strTToolsPath, QString("C:\\Tools"));
    // "mine\TTools.exe" is no drive
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             QString("Error  68 Device unavailable\rSetting drive to: mine\\TTools.exe"));
    program.quit(); // no line is what it was: nothing of them comes again
    QVERIFY(program.sandbox.read(Program::settingsFile)
                .startsWith("0\r\nC:\\Tools\r\nc:\r\nC:\\FS9\\Aircraft\r\n"));
}

void TestStartUp::settingsWithOneLineAreReportedAndTheWindowIsUsable()
{
    Program program;
    program.sandbox.write(Program::settingsFile, "just one long line\r\n");
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].icon, MessageBox::Icon::Exclamation);
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             QString("Error  62 Input past end of file\rOpening C:\\Morlen\\\\MorlenE.ini"));
    QVERIFY(program.window->isVisible());
    QVERIFY(program.find<QTabWidget>("SSTab1")->isVisible());
    QVERIFY(program.find<QPushButton>("cmdBrowseText")->isEnabled());
    QCOMPARE(program.sandbox.read(Program::settingsFile), QByteArray("just one long line\r\n"));
}

void TestStartUp::binarySettingsAreReportedOrIgnoredButNeverFatal()
{
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i) {
        bytes += static_cast<char>((i * 37) % 256);
    }
    Program program;
    program.sandbox.write(Program::settingsFile, bytes);
    program.start();
    QVERIFY(!program.outside.dialogs.boxes.isEmpty());
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Form Load Error"));
    QVERIFY(program.find<QTabWidget>("SSTab1")->isVisible());
    QCOMPARE(program.sandbox.read(Program::settingsFile), bytes);
}

void TestStartUp::savedDirectoryThatIsGoneIsReportedAndTheWindowIsUsable()
{
    Program program;
    program.remember("0", "", "c:", "C:\\Gone\\Aircraft", "", "True");
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Form Load Error"));
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             QString("Error  76 Path not found\rSetting FS path to: C:\\Gone\\Aircraft"));
    QVERIFY(program.window->isVisible());
    QVERIFY(program.find<QTabWidget>("SSTab1")->isVisible());
    QCOMPARE(program.label("lblFSPath"), Program::aircraftDir);
}

void TestStartUp::savedTextFileThatIsGoneIsReportedAndTheRestGoesOn()
{
    Program program;
    program.remember("3", "", "c:", Program::aircraftDir.toLatin1(),
                     "C:\\TTools\\aircraft_gone.txt", "True");
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("LoadList Error"));
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             QString("Error  53 File not found\rOpen C:\\TTools\\aircraft_gone.txt"));
    QCOMPARE(program.find<QTabWidget>("SSTab1")->currentIndex(), 3);
}

void TestStartUp::savedValuesThatNobodyWouldReadAreNoDelay_data()
{
    QTest::addColumn<int>("line");
    for (const int line : {0, 1, 2, 3, 4, 5}) {
        QTest::addRow("line %d", line + 1) << line;
    }
}

void TestStartUp::savedValuesThatNobodyWouldReadAreNoDelay()
{
    QFETCH(int, line);
    const QByteArray path = "C:\\" + QByteArray("aircraft\\").repeated(222'222) + "Aircraft";
    Program program;
    QByteArrayList values = {"0", "", "c:", "", Program::textFile.toLatin1(), "True"};
    values[line] = path;
    program.sandbox.write(Program::settingsFile, values.join("\r\n") + "\r\n");
    QElapsedTimer timer;
    timer.start();
    program.start();
    QVERIFY2(timer.elapsed() < 5000, "far from linear");
    for (const MessageBox &box : program.outside.dialogs.boxes) {
        QVERIFY(box.prompt.size() < 300);
    }
}

void TestStartUp::numberOfAMillionFiguresIsNoDelay()
{
    Program program;
    program.sandbox.write(Program::textFile,
                          "AC#" + QByteArray(1'000'000, '1') + ",477,\"Boeing Blue\"\r\n");
    program.rememberUsualRun();
    QElapsedTimer timer;
    timer.start();
    program.start();
    QVERIFY2(timer.elapsed() < 5000, "far from linear");
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QVERIFY(program.outside.dialogs.boxes[0].prompt.startsWith("Error  6 Overflow\r"));
}

void TestStartUp::savedDriveThatIsGoneIsReportedAndTheRestGoesOn()
{
    Program program;
    program.remember("3", "C:\\TTools\\TTools.exe", "q:", Program::aircraftDir.toLatin1(),
                     Program::textFile.toLatin1(), "False");
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Form Load Error"));
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             QString("Error  68 Device unavailable\rSetting drive to: q:"));
    QVERIFY(program.find<QGroupBox>("tab2Frame12")->isEnabled());
    QCOMPARE(program.window->state().strTToolsDir, QString("C:\\TTools\\"));
    QVERIFY(!program.window->state().ShowAddAirportHelp);
    QCOMPARE(program.find<ListBox>("Tab0List2")->count(), 1);
    QCOMPARE(program.find<QTabWidget>("SSTab1")->currentIndex(), 3);
}

void TestStartUp::savedDriveComesBackWhereverTheDirectoryLies()
{
    Program program;
    program.sandbox.makeFolder("C:\\Stick");
    program.sandbox.addDrive('d', "C:\\Stick");
    program.rememberUsualRun("3");
    program.start();
    program.find<DriveListBox>("Tab3Drive1")->setCurrentText("d:");
    QCOMPARE(program.find<DirListBox>("Tab3Dir1")->path(), QString("d:\\"));
    program.quit();
    program.start();
    QCOMPARE(program.find<DriveListBox>("Tab3Drive1")->drive(), QString("d:"));
    QCOMPARE(program.find<DirListBox>("Tab3Dir1")->path(), Program::aircraftDir);
    QCOMPARE(program.outside.dialogs.boxes.size(), 1); // the question at the end of the first run
}

void TestStartUp::whatWasNotRestoredIsSavedAsItWasRead_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArray stick = "C:\\TTools\\TTools.exe\r\nq:\r\nQ:\\FS9\\Aircraft\r\n"
                             "Q:\\Aircraft_Stick.txt\r\nFalse\r\n";
    QTest::newRow("all on a drive that is gone") << "3\r\n" + stick << "0\r\n" + stick;
    const QByteArray gone =
        "\r\nc:\r\nC:\\Gone\\Aircraft\r\nC:\\TTools\\Aircraft_Set.txt\r\nTrue\r\n";
    QTest::newRow("directory gone") << "3\r\n" + gone << "0\r\n" + gone;
    QTest::newRow("lines missing") << QByteArray("3\r\nC:\\TTools\\TTools.exe\r\n")
                                   << QByteArray("0\r\nC:\\TTools\\TTools.exe\r\nc:\r\n"
                                                 "C:\\FS9\\Aircraft\r\n\r\nTrue\r\n");
}

void TestStartUp::whatWasNotRestoredIsSavedAsItWasRead()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    Program program;
    program.sandbox.write(Program::settingsFile, before);
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    program.quit();
    QCOMPARE(program.sandbox.read(Program::settingsFile), after);
}

void TestStartUp::whatTheUserChoosesInsteadIsSaved()
{
    const QByteArray chosen = "0\r\n\r\nd:\r\nC:\\FS9\\Aircraft\r\nC:\\TTools\\Aircraft_Set.txt\r\n"
                              "True\r\n";
    Program program;
    program.remember("0", "", "q:", "Q:\\FS9\\Aircraft", "Q:\\Aircraft_Stick.txt", "True");
    program.start();
    program.sandbox.makeFolder("C:\\Stick");
    program.sandbox.addDrive('d', "C:\\Stick");
    // The directory is the registry's, which stood there already.
    Q_EMIT program.find<DirListBox>("Dir1")->folderChosen("C:\\FS9");
    Q_EMIT program.find<DirListBox>("Dir1")->folderChosen(Program::aircraftDir);
    program.outside.dialogs.files = {Program::textFile};
    program.find<QPushButton>("cmdBrowseText")->click();
    program.find<DriveListBox>("Tab3Drive1")->addItem("d:");
    program.find<DriveListBox>("Tab3Drive1")->setCurrentText("d:");
    program.quit();
    QCOMPARE(program.sandbox.read(Program::settingsFile), chosen);
}

void TestStartUp::unwritableProgramFolderIsReportedOnceAndItsSettingsUsed()
{
    NEEDS(permissions);
    for (const bool withSettings : {true, false}) {
        Program program;
        if (withSettings) {
            program.rememberUsualRun("3");
            QFile::setPermissions(program.sandbox.host(Program::settingsFile), QFile::ReadOwner);
        }
        QFile::setPermissions(program.sandbox.host("C:\\Morlen"),
                              QFile::ReadOwner | QFile::ExeOwner);
        const OrdinaryUser user(program.sandbox);
        program.start();
        QCOMPARE(program.outside.dialogs.boxes.size(), 1);
        QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Form Load Error"));
        QCOMPARE(program.outside.dialogs.boxes[0].prompt,
                 QString("Error  75 Path/File access error\rOpening C:\\Morlen\\\\TraceLog.txt"));
        QVERIFY(program.find<QTabWidget>("SSTab1")->isVisible());
        QCOMPARE(program.find<QTabWidget>("SSTab1")->currentIndex(), withSettings ? 3 : 0);
        QCOMPARE(program.find<ListBox>("Tab0List2")->count(), withSettings ? 1 : 0);
    }
}

void TestStartUp::settingsThatCouldNotBeReadAreNotWrittenOverUnseen_data()
{
    QTest::addColumn<bool>("later"); // they can be read
    QTest::newRow("read at the end") << true;
    QTest::newRow("never read") << false;
}

void TestStartUp::settingsThatCouldNotBeReadAreNotWrittenOverUnseen()
{
    NEEDS(permissions);
    QFETCH(bool, later);
    Program program;
    program.rememberUsualRun("3");
    const QString file = program.sandbox.host(Program::settingsFile);
    const QByteArray before = program.sandbox.read(Program::settingsFile);
    QFile::setPermissions(file, QFile::WriteOwner);
    const OrdinaryUser user(program.sandbox);
    program.start();
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Form Load Error"));
    if (later) {
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
    }
    program.quit();
    QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
    QCOMPARE(program.sandbox.read(Program::settingsFile), later ? "0" + before.sliced(1) : before);
    QCOMPARE(program.outside.dialogs.boxes.last().title,
             QString(later ? "Confirm Exit" : "Save Setting Error"));
}

void TestStartUp::quittingFromAnUnwritableProgramFolderEndsAfterItsMessage()
{
    NEEDS(permissions);
    Program program;
    program.rememberUsualRun("3");
    const QByteArray before = program.sandbox.read(Program::settingsFile);
    QFile::setPermissions(program.sandbox.host(Program::settingsFile), QFile::ReadOwner);
    QFile::setPermissions(program.sandbox.host("C:\\Morlen"), QFile::ReadOwner | QFile::ExeOwner);
    const OrdinaryUser user(program.sandbox);
    program.start();
    program.quit();
    QCOMPARE(program.outside.dialogs.boxes.size(), 3);
    QCOMPARE(program.outside.dialogs.boxes[2].title, QString("Save Setting Error"));
    QCOMPARE(program.outside.dialogs.boxes[2].prompt,
             QString("Error  75 Path/File access error\rOpen C:\\Morlen\\\\MorlenE.ini"));
    QVERIFY(!program.window->isVisible());
    QVERIFY(program.window->state().ended);
    QCOMPARE(program.sandbox.read(Program::settingsFile), before);
}

void TestStartUp::registeredFolderThatIsGoneIsReported()
{
    Program program;
    program.outside.registry.installFs9("C:\\Gone");
    program.rememberUsualRun();
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("FS Path Error"));
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             QString("Error  76 Path not found\rGet FlightSim Path"));
    QCOMPARE(program.find<ListBox>("Tab0List2")->count(), 1); // the saved directory is there
}

void TestStartUp::registryThatCannotBeReadIsReported_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("step");
    QTest::newRow("simulator") << "Flight Simulator"
                               << "FS Path Error"
                               << "Get FlightSim Path";
    QTest::newRow("suite") << "Ostrel"
                           << "Check Registry Errors"
                           << "Check for MorlenE exe_Path";
}

void TestStartUp::registryThatCannotBeReadIsReported()
{
    QFETCH(QString, key);
    QFETCH(QString, title);
    QFETCH(QString, step);
    Program program;
    program.outside.registry.failing = key;
    program.rememberUsualRun();
    program.start();
    const auto &boxes = program.outside.dialogs.boxes;
    QVERIFY(!boxes.isEmpty());
    QCOMPARE(boxes[0].title, title);
    QCOMPARE(boxes[0].prompt, "Error  57 Device I/O error\r" + step);
    QCOMPARE(program.find<ListBox>("Tab0List2")->count(), 1); // the rest goes on
}

void TestStartUp::directoryIsAskedForWhenTheSimulatorsIsGone()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    program.outside.registry.installFs9("C:\\Gone");
    QTest::mouseClick(program.find<QWidget>("opt2002"), Qt::LeftButton, {}, {8, 8});
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("FS Path Error"));
    QCOMPARE(program.label("lblFSPath"), QString());
    QVERIFY(program.find<QLabel>("noDirectoryLabel")->isVisible());
    QCOMPARE(program.find<ListBox>("Tab0List2")->count(), 0);
    QCOMPARE(program.find<ListBox>("Tab0List3")->count(), 0);
}

void TestStartUp::neitherSimulatorLeavesTheLabelEmptyAndThePickersAlone()
{
    Program program;
    program.outside.registry.installFs9("No Path");
    program.start();
    QCOMPARE(program.label("lblFSPath"), QString());
    QCOMPARE(program.find<DirListBox>("Dir1")->path(), QString("C:\\Morlen"));
    QCOMPARE(program.find<DirListBox>("Tab3Dir1")->path(), QString("C:\\Morlen"));
    QCOMPARE(program.outside.dialogs.boxes.size(), 0);
}

void TestStartUp::simulatorXGivesAirplanes()
{
    Program program;
    program.outside.registry.installFs9("");
    program.outside.registry.installFsX("C:\\Microsoft FLIGHT simulator x");
    program.sandbox.makeFolder("C:\\Microsoft FLIGHT simulator x\\Airplanes");
    program.start();
    QCOMPARE(program.label("lblFSPath"), QString("C:\\Microsoft FLIGHT simulator x\\Airplanes"));
    QCOMPARE(program.find<DriveListBox>("Tab3Drive1")->drive(), QString("c:"));
}

void TestStartUp::registeredFolderMayEndInABackslash()
{
    Program program;
    program.outside.registry.installFs9("C:\\FS9\\");
    program.start();
    QCOMPARE(program.window->state().AirCraftDir, Program::aircraftDir);
}

void TestStartUp::emptyFs9ValueFallsThroughToSimulatorX()
{
    Program program;
    program.outside.registry.installFs9("");
    program.outside.registry.installFsX("C:\\FS9"); // the words decide, not the key
    program.start();
    QCOMPARE(program.label("lblFSPath"), Program::aircraftDir);
}

void TestStartUp::versionOptionsSearchAgainAndSwitchTheHint()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    QCOMPARE(program.window->state().FSType, QString("2004"));
    program.find<QWidget>("opt2002")->setFocus();
    QTest::mouseClick(program.find<QWidget>("opt2002"), Qt::LeftButton, {}, {8, 8});
    QCOMPARE(program.window->state().FSType, QString("2002"));
    QVERIFY(!program.find<QLabel>("lblTextFileSets")->isEnabled());
    QCOMPARE(program.find<ListBox>("Tab0List2")->count(), 0); // emptied for the new location
    QCOMPARE(program.label("lblFSPath"), Program::aircraftDir);
    QTest::mouseClick(program.find<QWidget>("opt2004"), Qt::LeftButton, {}, {8, 8});
    QCOMPARE(program.window->state().FSType, QString("2004"));
    QVERIFY(program.find<QLabel>("lblTextFileSets")->isEnabled());
}

void TestStartUp::focusIsOnBrowseText()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    program.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(program.window.get()));
    QCOMPARE(program.window->focusWidget()->objectName(), QString("cmdBrowseText"));
}

void TestStartUp::page1AsksForAFileAndSaysHowToAdd()
{
    Program program;
    program.start();
    QCOMPARE(program.label("Tab1lblAirportTextFileName"),
             QString("Please Select Airport Text file to Edit --->"));
    QCOMPARE(program.label("Tab1lblDragnDrop"),
             QString("Drag and Drop Country, Province/Sate or City into the Airport List --->"));
    QCOMPARE(program.find<ListBox>("Tab1List1")->items(),
             (QStringList{"Canada", "Germany", "Jamaica"}));
}

void TestStartUp::currentDirectoryIsAcceptedWhenItIsTheAircraftDirectory()
{
    Program program;
    program.rememberUsualRun();
    paths::setCurrentDirectory(Program::aircraftDir);
    program.sandbox.write(Program::aircraftDir + "\\MorlenE.ini",
                          program.sandbox.read(Program::settingsFile));
    program.start();
    QCOMPARE(program.window->state().AirCraftDir, Program::aircraftDir);
    QCOMPARE(program.label("lblFSPath"), Program::aircraftDir);
}

void TestStartUp::stepsRunInTheirOrder_data()
{
    // Each start fails at one step: what stands before it has happened, what follows has not.
    QTest::addColumn<QString>("folderInTheWay");
    QTest::addColumn<QString>("errMsg");
    QTest::addColumn<bool>("logIsGone");
    QTest::newRow("log reset") << Program::logFile << "Opening C:\\Morlen\\\\TraceLog.txt" << false;
    QTest::newRow("settings") << Program::settingsFile << "Opening C:\\Morlen\\\\MorlenE.ini"
                              << true;
}

void TestStartUp::stepsRunInTheirOrder()
{
    QFETCH(QString, folderInTheWay);
    QFETCH(QString, errMsg);
    QFETCH(bool, logIsGone);
    Program program;
    program.sandbox.makeFolder(folderInTheWay);
    program.start();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             "Error  75 Path/File access error\r" + errMsg);
    QCOMPARE(program.label("lblFSPath"), Program::aircraftDir);
    QCOMPARE(program.find<ListBox>("Tab1List1")->count(), 3);
    QCOMPARE(program.window->state().DefaultName, QString("FlightPlans_"));
    QCOMPARE(!program.sandbox.exists(Program::logFile), logIsGone);
}

void TestStartUp::page3AsksForTheDirectory()
{
    Program program;
    program.start();
    QCOMPARE(program.find<ListBox>("Tab3List3")->items(), QStringList{directoryPrompt});
    QVERIFY(!program.find<QWidget>("Tab3chkDumpList")->isEnabled());
}

QTEST_MAIN(TestStartUp)
#include "test_start_up.moc"
