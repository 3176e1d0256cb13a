// SPDX-License-Identifier: MIT
// Pages, menus, links and quitting.
#include "app/services/form_state.h"
#include "app/services/link_label.h"
#include "platform/controls/dir_list_box.h"
#include "platform/controls/list_box.h"
#include "tests/support/host.h"
#include "tests/support/program.h"

#include <QAction>
#include <QFrame>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QtTest>

using Answer = MessageBox::Answer;

namespace
{

/// The mouse over a control, and nowhere between: QTest's own moves cross the form on their way.
void moveOver(QWidget *control, const QPoint &position = {3, 3},
              Qt::MouseButton pressed = Qt::NoButton)
{
    QMouseEvent event(QEvent::MouseMove, position, control->mapToGlobal(QPointF(position)),
                      Qt::NoButton, pressed, Qt::NoModifier);
    QApplication::sendEvent(control, &event);
}

/// From now on the log is traced, and cannot be written.
void loseLog(const Program &program)
{
    program.find<QAction>("mnuTrace")->trigger();
    QFile::remove(program.sandbox.host(Program::logFile));
    program.sandbox.makeFolder(Program::logFile);
}

/// Whether the user was told once that the log cannot be written, and sees that it is off.
bool isLossTold(const Program &program)
{
    const QList<MessageBox> &boxes = program.outside.dialogs.boxes;
    const auto told = [](const MessageBox &box) { return box.title == "Trace Log Error"; };
    return std::count_if(boxes.begin(), boxes.end(), told) == 1 &&
           !program.window->state().TraceOn && !program.find<QAction>("mnuTrace")->isChecked();
}

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasItsNameAndKind_data();
    void everyControlHasItsNameAndKind();
    void menusAndPagesAreNamed();
    void selectingAPageIsLoggedAs69Characters();
    void selectingAPageDoesNotChangeLastTab();
    void traceMenuTogglesTheLog();
    void quitButtonAlwaysStoresPage0();
    void quitMenuStoresThePageShown();
    void page2QuitStoresPage2();
    void quitAsksWithNoAsDefault();
    void answeringNoLeavesSettingsAndProgramAlone();
    void closingAsksOnceAndClosesEvenOnNo();
    void closingWithYesSavesOnce();
    void exitFlagEndsWithoutAskingOrSaving();
    void settingsAreSixLines();
    void quittingIsLoggedInOrder();
    void settingsThatCannotBeWrittenAreReportedAndTheProgramGoesOn();
    void readOnlySettingsAreReportedAndKept();
    void fullDiskIsReportedAndKeepsTheOldSettings();
    void traceLogThatCannotBeWrittenIsReported();
    void traceThatCannotBeEndedIsReportedAndOver();
    void lostLogDoesNotKeepTheUserFromQuitting();
    void lostLogLeavesPage3ItsAircraft();
    void lostLogDoesNotKeepAirportsFromBeingAdded();
    void lostLogDoesNotKeepAPageFromBeingSelected();
    void nextStartComesBackToTheSamePlace();
    void linkTurnsBoldUnderTheMouseUntilTheFormIsReached_data();
    void linkTurnsBoldUnderTheMouseUntilTheFormIsReached();
    void controlsTakeNoBoldAway();
    void selectingAPagePlacesTheFocus();
    void quitOfPage1StoresPage1();
    void frameOfTheCurrentStepLeavesItsControlsAlone();
    void withoutPellarasKeysItsLinkIsNotShown();
    void pellaraIsRaisedOrStarted();
    void companionWhoseFolderIsGoneIsReported();
    void helpLinksOpenTheirPages_data();
    void helpLinksOpenTheirPages();
    void helpChangesToTheProgramFolderFirst();
    void aboutShowsNameAndVersion();
    void directoryChosenOnPage0IsListedOnPage3();
    void directoryChosenOnPage3IsTakenOverByPage0();
    void directoryOfPage3IsTakenOverWherePage0StandsAlready();
    void changedAircraftPointsPage0AtNoFolder();
    void varloIsRaisedOrStarted();
    void quittingWhileAProgramRunsEndsTheWait();
};

void TestMainWindow::everyControlHasItsNameAndKind_data()
{
    QTest::addColumn<QString>("kind");
    const QList<std::pair<const char *, QStringList>> kinds = {
        {"QTabWidget", {"SSTab1"}},
        {"QFrame", {"frmLeveler"}},
        {"LinkLabel",
         {"lblHelp", "lblAbout", "lblPellara", "Tab0Help", "tab1Help", "Tab2lblHelp",
          "tab3VarloHelp", "Tab3Label6"}},
        {"QLabel", {"lblFSPath", "lblAircraftTextFile", "Tab0Label1", "Tab0Label2", "Tab0Label9"}},
        {"QPushButton",
         {"cmdQuit", "cmdAddAI", "cmdBrowseText", "cmdBrowseFSPath", "cmdEdit", "cmdTtools",
          "Command1", "tab2Command2", "tab2cmdCreateNewFP", "tab2cmdQuit"}},
        {"QRadioButton", {"opt2002", "opt2004", "optAll", "optClear"}},
        {"QGroupBox", {"optFrame", "frmDriveDialog", "tab2TToolsDir", "tab2Frame12"}},
        {"QLineEdit", {"tab2txtFltPlan", "tab2txtTToolsDir"}},
        {"ListBox", {"Tab0List1", "Tab0List2", "Tab0List3", "Tab3List3"}},
        {"DirListBox", {"Dir1", "Tab3Dir1"}},
        {"DriveListBox", {"Drive1", "Tab3Drive1"}},
        {"FileListBox", {"File1"}},
        {"QProgressBar", {"ProgressBar1"}},
        {"QCheckBox", {"Tab3chkDumpList"}},
        {"QAction", {"mnuTrace", "mnuQuit", "mnuHelpFile", "mnuDonations", "mnuAbout"}}};
    for (const auto &[kind, names] : kinds) {
        for (const QString &name : names) {
            QTest::newRow(qPrintable(name)) << QString(kind);
        }
    }
}

void TestMainWindow::everyControlHasItsNameAndKind()
{
    QFETCH(QString, kind);
    Program program;
    program.start();
    const QObject *control = program.window->findChild<QObject *>(QString(QTest::currentDataTag()));
    QVERIFY(control != nullptr);
    QCOMPARE(QString(control->metaObject()->className()), kind);
}

void TestMainWindow::menusAndPagesAreNamed()
{
    Program program;
    program.start();
    QCOMPARE(program.window->objectName(), QString("frmMorlenEditor"));
    QCOMPARE(program.find<QAction>("mnuTrace")->text(), QString("Enable Log File"));
    QCOMPARE(program.find<QAction>("mnuQuit")->text(), QString("Quit"));
    QCOMPARE(program.find<QMenu>("mnuFile")->title(), QString("File"));
    QCOMPARE(program.find<QMenu>("mnuHelp")->title(), QString("Help"));
    auto *tabs = program.find<QTabWidget>("SSTab1");
    QStringList names;
    for (int i = 0; i < tabs->count(); ++i) {
        names += tabs->tabText(i);
    }
    QCOMPARE(names, (QStringList{"AI Aircraft Loader", "AI Airport Loader", "Create a New FP Set",
                                 "Edit Aircraft or Panel"}));
}

void TestMainWindow::selectingAPageIsLoggedAs69Characters()
{
    Program program;
    program.start();
    program.find<QAction>("mnuTrace")->trigger();
    for (const int page : {1, 2, 3, 0}) {
        program.find<QTabWidget>("SSTab1")->setCurrentIndex(page);
    }
    const QList<QByteArray> lines = program.sandbox.read(Program::logFile).split('\n').sliced(3);
    const QList<QByteArray> texts = {"AI Airport Tab Selected", "Create FP Tab Selected",
                                     "Edit Tab Selected", "AI Aircraft Tab Selected"};
    for (int i = 0; i < texts.size(); ++i) {
        const QByteArray expected = "***" + texts[i] + QByteArray(69 - 3 - texts[i].size(), '*');
        QCOMPARE(lines[i], "14:03:27 - " + expected + '\r');
    }
}

void TestMainWindow::selectingAPageDoesNotChangeLastTab()
{
    Program program;
    program.start();
    program.find<QTabWidget>("SSTab1")->setCurrentIndex(3);
    QCOMPARE(program.window->state().LastTab, QString());
}

void TestMainWindow::traceMenuTogglesTheLog()
{
    Program program;
    program.start();
    auto *trace = program.find<QAction>("mnuTrace");
    trace->trigger();
    QVERIFY(program.window->state().TraceOn);
    QVERIFY(trace->isChecked());
    QCOMPARE(program.sandbox.read(Program::logFile).count("\r\n"), 3);
    trace->trigger();
    QVERIFY(!program.window->state().TraceOn);
    QVERIFY(!trace->isChecked());
    QVERIFY(program.sandbox.read(Program::logFile).contains("\r\nTrace Ended "));
}

void TestMainWindow::quitButtonAlwaysStoresPage0()
{
    Program program;
    program.rememberUsualRun("3");
    program.start();
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QPushButton>("cmdQuit")->click();
    QVERIFY(program.sandbox.read(Program::settingsFile).startsWith("0\r\n"));
    QVERIFY(!program.window->isVisible());
}

void TestMainWindow::quitMenuStoresThePageShown()
{
    Program program;
    program.start();
    program.find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QAction>("mnuQuit")->trigger();
    QVERIFY(program.sandbox.read(Program::settingsFile).startsWith("2\r\n"));
    QVERIFY(!program.window->isVisible());
}

void TestMainWindow::page2QuitStoresPage2()
{
    Program program;
    program.start();
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QPushButton>("tab2cmdQuit")->click();
    QVERIFY(program.sandbox.read(Program::settingsFile).startsWith("2\r\n"));
}

void TestMainWindow::quitAsksWithNoAsDefault()
{
    Program program;
    program.start();
    program.find<QPushButton>("cmdQuit")->click();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    const MessageBox box = program.outside.dialogs.boxes[0];
    QCOMPARE(box.prompt, QString("Do you really want to exit?"));
    QCOMPARE(box.title, QString("Confirm Exit"));
    QCOMPARE(box.icon, MessageBox::Icon::None);
    QCOMPARE(box.buttons, MessageBox::Buttons::YesNo);
    QCOMPARE(box.defaultButton, Answer::No);
}

void TestMainWindow::answeringNoLeavesSettingsAndProgramAlone()
{
    Program program;
    program.rememberUsualRun("3");
    program.start();
    const QByteArray before = program.sandbox.read(Program::settingsFile);
    program.outside.dialogs.answers = {Answer::No};
    program.find<QAction>("mnuQuit")->trigger();
    QCOMPARE(program.sandbox.read(Program::settingsFile), before);
    QVERIFY(program.window->isVisible());
    QVERIFY(!program.window->state().ended);
}

void TestMainWindow::closingAsksOnceAndClosesEvenOnNo()
{
    Program program;
    program.rememberUsualRun("3");
    program.start();
    const QByteArray before = program.sandbox.read(Program::settingsFile);
    program.outside.dialogs.answers = {Answer::No};
    program.window->close();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QVERIFY(!program.window->isVisible());
    QCOMPARE(program.sandbox.read(Program::settingsFile), before);
}

void TestMainWindow::closingWithYesSavesOnce()
{
    Program program;
    program.rememberUsualRun("3");
    program.start();
    program.outside.dialogs.answers = {Answer::Yes};
    program.window->close();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QVERIFY(!program.window->isVisible());
    QVERIFY(program.sandbox.read(Program::settingsFile).startsWith("0\r\n"));
}

void TestMainWindow::exitFlagEndsWithoutAskingOrSaving()
{
    Program program;
    program.rememberUsualRun("3");
    program.start();
    const QByteArray before = program.sandbox.read(Program::settingsFile);
    program.window->state().ExitFlag = true;
    program.find<QAction>("mnuQuit")->trigger();
    QCOMPARE(program.outside.dialogs.boxes.size(), 0);
    QVERIFY(!program.window->isVisible());
    QCOMPARE(program.sandbox.read(Program::settingsFile), before);
}

void TestMainWindow::settingsAreSixLines()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    program.window->state().ShowAddAirportHelp = false;
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QPushButton>("cmdQuit")->click();
    QCOMPARE(program.sandbox.read(Program::settingsFile),
             QByteArray("0\r\nC:\\TTools\\TTools.exe\r\nc:\r\nC:\\FS9\\Aircraft\r\n"
                        "C:\\TTools\\Aircraft_Set.txt\r\nFalse\r\n"));
}

void TestMainWindow::quittingIsLoggedInOrder()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    program.find<QAction>("mnuTrace")->trigger();
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QAction>("mnuQuit")->trigger();
    const QByteArray time = "14:03:27 - ";
    const QByteArray log = program.sandbox.read(Program::logFile);
    QCOMPARE(log.sliced(log.indexOf(time + "***Program")),
             time + "***Program Terminated by User***\r\n" + time +
                 "Opening C:\\Morlen\\\\MorlenE.ini\r\n" + time + "Last Tab = 0\r\n" + time +
                 "TTools Path = C:\\TTools\\TTools.exe\r\n" + time +
                 "Aircraft Directory = C:\\FS9\\Aircraft\r\n" + time +
                 "Aircraft Text File = C:\\TTools\\Aircraft_Set.txt\r\n" + time +
                 "Trace On = True\r\n" + time + "Show Add Airport Help = True\r\n" +
                 QByteArray(80, '=') + "\r\n");
}

void TestMainWindow::settingsThatCannotBeWrittenAreReportedAndTheProgramGoesOn()
{
    Program program;
    program.start();
    QFile::remove(program.sandbox.host(Program::settingsFile));
    program.sandbox.makeFolder(Program::settingsFile);
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QPushButton>("cmdQuit")->click();
    QCOMPARE(program.outside.dialogs.boxes.size(), 2);
    QCOMPARE(program.outside.dialogs.boxes[1].title, QString("Save Setting Error"));
    QCOMPARE(program.outside.dialogs.boxes[1].prompt,
             QString("Error  75 Path/File access error\rOpen C:\\Morlen\\\\MorlenE.ini"));
    QVERIFY(program.window->isVisible());
}

void TestMainWindow::readOnlySettingsAreReportedAndKept()
{
    NEEDS(permissions);
    Program program;
    program.rememberUsualRun("3");
    program.start();
    const QByteArray before = program.sandbox.read(Program::settingsFile);
    const OrdinaryUser user(program.sandbox);
    QVERIFY(QFile::setPermissions(program.sandbox.host(Program::settingsFile), QFile::ReadOwner));
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QPushButton>("cmdQuit")->click();
    QCOMPARE(program.outside.dialogs.boxes.size(), 2);
    QCOMPARE(program.outside.dialogs.boxes[1].prompt,
             QString("Error  75 Path/File access error\rOpen C:\\Morlen\\\\MorlenE.ini"));
    QCOMPARE(program.sandbox.read(Program::settingsFile), before);
    QVERIFY(program.window->isVisible());
}

void TestMainWindow::fullDiskIsReportedAndKeepsTheOldSettings()
{
    NEEDS(sizeLimit);
    Program program;
    program.rememberUsualRun("3");
    program.start();
    const QByteArray before = program.sandbox.read(Program::settingsFile);
    program.outside.dialogs.answers = {Answer::Yes};
    {
        const FileSizeLimit limit(20); // within the second line
        program.find<QPushButton>("cmdQuit")->click();
    }
    QCOMPARE(program.outside.dialogs.boxes.size(), 2);
    QCOMPARE(program.outside.dialogs.boxes[1].title, QString("Save Setting Error"));
    QCOMPARE(program.outside.dialogs.boxes[1].prompt,
             QString("Error  61 Disk full\rOpen C:\\Morlen\\\\MorlenE.ini"));
    QCOMPARE(program.sandbox.read(Program::settingsFile), before);
    QVERIFY(program.window->isVisible());
}

void TestMainWindow::traceLogThatCannotBeWrittenIsReported()
{
    Program program;
    program.start();
    program.sandbox.makeFolder(Program::logFile);
    program.find<QAction>("mnuTrace")->trigger();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Trace Log Error"));
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             QString("Error  75 Path/File access error\rOpening C:\\Morlen\\\\TraceLog.txt"));
    QVERIFY(!program.window->state().TraceOn);
    QVERIFY(!program.find<QAction>("mnuTrace")->isChecked());
}

void TestMainWindow::traceThatCannotBeEndedIsReportedAndOver()
{
    Program program;
    program.start();
    loseLog(program);
    program.find<QAction>("mnuTrace")->trigger();
    QVERIFY(isLossTold(program));
    program.find<QTabWidget>("SSTab1")->setCurrentIndex(1); // and no word of it
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
}

void TestMainWindow::lostLogDoesNotKeepTheUserFromQuitting()
{
    Program program;
    program.rememberUsualRun("3");
    program.start();
    loseLog(program);
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QPushButton>("cmdQuit")->click();
    QVERIFY(isLossTold(program));
    QCOMPARE(program.outside.dialogs.boxes.first().title, QString("Confirm Exit"));
    QCOMPARE(program.outside.dialogs.boxes.size(), 2);
    QVERIFY(program.sandbox.read(Program::settingsFile).startsWith("0\r\nC:\\TTools\\"));
    QVERIFY(program.window->isHidden());
}

void TestMainWindow::lostLogLeavesPage3ItsAircraft()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    loseLog(program);
    program.addAircraft("C172", "Cessna", "124");
    auto *const picker = program.find<DirListBox>("Tab3Dir1");
    Q_EMIT picker->folderChosen("C:\\");
    Q_EMIT picker->folderChosen(Program::aircraftDir);
    QVERIFY(isLossTold(program));
    QCOMPARE(program.find<ListBox>("Tab3List2")->items(), (QStringList{"A320", "B734", "C172"}));
}

void TestMainWindow::lostLogDoesNotKeepAirportsFromBeingAdded()
{
    const QString airports = "C:\\TTools\\Airports_Set.txt";
    Program program;
    program.sandbox.write(airports, "");
    program.remember("1", "", "c:", Program::aircraftDir.toLatin1(), "", "False");
    program.start();
    program.outside.dialogs.files = {airports};
    program.find<QPushButton>("Tab1cmdBrowse")->click();
    auto *const list = program.find<ListBox>("Tab1List1");
    list->setFocus();
    list->setListIndex(2); // Jamaica
    QTest::keyClick(list, Qt::Key_Insert);
    loseLog(program);
    program.find<QPushButton>("Tab1cmdCreateFile")->click();
    QVERIFY(isLossTold(program));
    QCOMPARE(program.sandbox.read(airports).count("MKJP,"), 1);
    QCOMPARE(program.find<ListBox>("Tab1List2")->count(), 0);
}

void TestMainWindow::lostLogDoesNotKeepAPageFromBeingSelected()
{
    Program program;
    program.start();
    loseLog(program);
    for (const int page : {1, 2}) {
        program.find<QTabWidget>("SSTab1")->setCurrentIndex(page);
        QCOMPARE(program.find<QTabWidget>("SSTab1")->currentIndex(), page);
        QVERIFY(isLossTold(program));
    }
}

void TestMainWindow::nextStartComesBackToTheSamePlace()
{
    Program program;
    program.sandbox.makeFolder("C:\\Other\\Aircraft");
    program.sandbox.write("C:\\Sets\\aircraft_2.txt", "AC#1,100,\"Other One\"\r\n");
    program.start();
    Q_EMIT program.find<DirListBox>("Dir1")->folderChosen("C:\\Other\\Aircraft");
    QCOMPARE(program.find<DirListBox>("Tab3Dir1")->path(), QString("C:\\Other\\Aircraft"));
    program.outside.dialogs.files = {"C:\\Sets\\aircraft_2.txt"};
    program.find<QPushButton>("cmdBrowseText")->click();
    program.find<QTabWidget>("SSTab1")->setCurrentIndex(3);
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QAction>("mnuQuit")->trigger();

    program.start();
    QCOMPARE(program.find<QTabWidget>("SSTab1")->currentIndex(), 3);
    QCOMPARE(program.label("lblFSPath"), QString("C:\\Other\\Aircraft"));
    QCOMPARE(program.label("lblAircraftTextFile"), QString("C:\\Sets\\aircraft_2.txt"));
    QCOMPARE(program.find<ListBox>("Tab0List3")->count(), 1);
}

void TestMainWindow::linkTurnsBoldUnderTheMouseUntilTheFormIsReached_data()
{
    QTest::addColumn<bool>("turnsBold");
    for (const char *link : {"lblAbout", "lblHelp", "lblPellara", "Tab0Help", "tab1Help",
                             "Tab2lblHelp", "tab3VarloHelp"}) {
        QTest::newRow(link) << true;
    }
    QTest::newRow("Tab3Label6") << false;
}

void TestMainWindow::linkTurnsBoldUnderTheMouseUntilTheFormIsReached()
{
    QFETCH(bool, turnsBold);
    Program program;
    program.start();
    const auto *other = program.find<LinkLabel>("lblHelp");
    auto *link = program.find<LinkLabel>(QTest::currentDataTag());
    moveOver(program.find<LinkLabel>("lblHelp"));
    moveOver(link);
    moveOver(link);
    QCOMPARE(link->font().bold(), turnsBold);
    QVERIFY(other->font().bold()); // only the bare form or the frame takes the bold away
    auto *frame = program.find<QFrame>("frmLeveler");
    moveOver(frame, {2, frame->height() / 2});
    QVERIFY(!link->font().bold());
    QVERIFY(!other->font().bold());
}

void TestMainWindow::controlsTakeNoBoldAway()
{
    Program program;
    program.start();
    auto *help = program.find<LinkLabel>("lblHelp");
    const QList<QWidget *> controls = {
        program.find<QPushButton>("cmdQuit"), program.find<QLabel>("lblFSPath"),
        program.find<QLineEdit>("tab2txtFltPlan"), program.find<QTabWidget>("SSTab1")->tabBar()};
    for (QWidget *control : controls) {
        moveOver(help);
        moveOver(control, {3, 3}, Qt::LeftButton); // which even controls without hover see
        QVERIFY2(help->font().bold(), qPrintable(control->objectName()));
    }
    for (const char *area : {"centralWidget", "aircraftLoaderPage"}) {
        moveOver(help);
        moveOver(program.find<QWidget>(area), {1, 1});
        QVERIFY2(!help->font().bold(), area);
    }
}

void TestMainWindow::selectingAPagePlacesTheFocus()
{
    Program program;
    program.remember("1", "C:\\TTools\\TTools.exe", "c:", Program::aircraftDir.toLatin1(),
                     Program::textFile.toLatin1(), "True");
    program.start();
    program.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(program.window.get()));
    auto *tabs = program.find<QTabWidget>("SSTab1");
    tabs->setCurrentIndex(0);
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("cmdBrowseText"));
}

void TestMainWindow::quitOfPage1StoresPage1()
{
    Program program;
    program.rememberUsualRun("3");
    program.start();
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QPushButton>("Tab1Command2")->click();
    QVERIFY(!program.window->isVisible());
    QVERIFY(program.sandbox.read(Program::settingsFile).startsWith("1\r\n"));
}

void TestMainWindow::frameOfTheCurrentStepLeavesItsControlsAlone()
{
    Program program;
    program.remember("2", "C:\\TTools\\TTools.exe", "c:", Program::aircraftDir.toLatin1(),
                     Program::textFile.toLatin1(), "True");
    program.start();
    const auto *frame = program.find<QGroupBox>("tab2Frame12");
    QVERIFY(frame->font().bold());
    QCOMPARE(frame->palette().color(QPalette::WindowText), QColor(Qt::red));
    const auto *button = program.find<QPushButton>("tab2Command2");
    QVERIFY(!button->font().bold());
    QVERIFY(button->palette().color(QPalette::ButtonText) != QColor(Qt::red));
}

void TestMainWindow::withoutPellarasKeysItsLinkIsNotShown()
{
    Program program;
    program.start();
    QVERIFY(!program.find<LinkLabel>("lblPellara")->isVisible());
    QCOMPARE(program.outside.registry.text(RegistryHive::CurrentUser,
                                           "SOFTWARE\\Ostrel\\Morlen Utilities\\Caption",
                                           "Caption"),
             QString("Morlen Utilities - Version 1.5.4"));
}

void TestMainWindow::pellaraIsRaisedOrStarted()
{
    Program program;
    program.sandbox.makeFolder("C:\\Pellara");
    for (const auto &[key, name, text] :
         {std::tuple("Path", "Exe_Path", "C:\\Pellara\\Pellara.exe"),
          std::tuple("Caption", "Caption", "Pellara 2")}) {
        program.outside.registry.setValue(RegistryHive::CurrentUser,
                                          QStringLiteral("SOFTWARE\\Ostrel\\Pellara\\") + key, name,
                                          QString(text));
    }
    program.start();
    auto *link = program.find<LinkLabel>("lblPellara");
    QVERIFY(link->isVisible());
    QCOMPARE(link->text(), QString("Launch Pellara"));
    QTest::mouseClick(link, Qt::LeftButton);
    QCOMPARE(program.outside.processes.started, QStringList{"\"C:\\Pellara\\Pellara.exe\""});
    program.outside.processes.windows = {"Pellara 2"};
    QTest::mouseClick(link, Qt::LeftButton);
    QCOMPARE(program.outside.processes.started.size(), 1);
    QCOMPARE(program.outside.processes.raised, QStringList{"Pellara 2"});
}

void TestMainWindow::companionWhoseFolderIsGoneIsReported()
{
    Program program;
    program.outside.registry.setValue(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel\\Pellara\\Path",
                                      "Exe_Path", QString("C:\\Gone\\Pellara.exe"));
    program.start();
    QTest::mouseClick(program.find<LinkLabel>("lblPellara"), Qt::LeftButton);
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Launch Error"));
    QCOMPARE(program.outside.dialogs.boxes[0].prompt,
             QString("Error  76 Path not found\rLaunching Pellara.exe"));
}

void TestMainWindow::helpLinksOpenTheirPages_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("lblHelp") << "Docs\\MorlenEHelp.htm";
    QTest::newRow("mnuHelpFile") << "Docs\\MorlenEHelp.htm";
    QTest::newRow("Tab0Help") << "Docs\\AIAircraftLoader.htm";
    QTest::newRow("tab1Help") << "Docs\\AIAirportLoader.htm";
    QTest::newRow("Tab2lblHelp") << "Docs\\MorlenEdit.htm";
    QTest::newRow("tab3VarloHelp") << "Docs\\VarloHelp.htm";
    QTest::newRow("mnuDonations") << "Donate.htm";
}

void TestMainWindow::helpLinksOpenTheirPages()
{
    QFETCH(QString, page);
    Program program;
    program.start();
    const QString name = QTest::currentDataTag();
    if (auto *action = program.window->findChild<QAction *>(name)) {
        action->trigger();
    } else {
        QTest::mouseClick(program.find<LinkLabel>(name), Qt::LeftButton, {}, {3, 3});
    }
    QCOMPARE(program.outside.processes.documents, QStringList{"C:\\Morlen\\" + page});
}

void TestMainWindow::helpChangesToTheProgramFolderFirst()
{
    Program program;
    program.start();
    QDir::setCurrent(program.sandbox.host("C:\\TTools"));
    program.find<QAction>("mnuHelpFile")->trigger();
    QCOMPARE(QDir::currentPath(), QDir(program.sandbox.host("C:\\Morlen")).canonicalPath());
}

void TestMainWindow::aboutShowsNameAndVersion()
{
    Program program;
    program.start();
    QString caption;
    QString version;
    QString system;
    QTimer::singleShot(0, program.window.get(), [&] {
        const QWidget *about = QApplication::activeModalWidget();
        caption = about->windowTitle();
        version = findControl<QLabel>(*about, "lblVersion")->text();
        system = findControl<QLabel>(*about, "lblOsVersion")->text();
        findControl<QPushButton>(*about, "cmdOK")->click();
    });
    program.find<QAction>("mnuAbout")->trigger();
    QCOMPARE(caption, QString("About Morlen Utilities"));
    QCOMPARE(version, QString("Version 1.5.4"));
    QCOMPARE(system, "Operating system: " + program.window->state().osVersion);
}

void TestMainWindow::directoryChosenOnPage0IsListedOnPage3()
{
    Program program;
    const QString directory = "C:\\Other\\Aircraft";
    for (const char *name : {"\\A", "\\B"}) {
        program.sandbox.write(directory + name + "\\aircraft.cfg",
                              "title=A\r\nui_manufacturer=B\r\nui_type=C\r\nui_variation=D\r\n");
    }
    program.rememberUsualRun();
    program.start();
    auto *const picker = program.find<DirListBox>("Dir1");
    auto *const list = program.find<ListBox>("Tab3List3");
    Q_EMIT picker->folderChosen(directory);
    QCOMPARE(program.window->state().AirCraftDir, directory);
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->listIndex(), 0);
    list->setListIndex(1);
    Q_EMIT picker->folderChosen("C:\\Other");
    Q_EMIT picker->folderChosen(directory); // page 3 is there already
    QCOMPARE(list->listIndex(), 0);
}

void TestMainWindow::directoryChosenOnPage3IsTakenOverByPage0()
{
    Program program;
    program.sandbox.makeFolder("C:\\Other\\Aircraft");
    program.rememberUsualRun();
    program.start();
    Q_EMIT program.find<DirListBox>("Tab3Dir1")->folderChosen("C:\\Other\\Aircraft");
    QCOMPARE(program.label("lblFSPath"), QString("C:\\Other\\Aircraft"));
    QCOMPARE(program.find<DirListBox>("Dir1")->path(), QString("C:\\Other\\Aircraft"));
    QCOMPARE(program.window->state().AirCraftDir, QString("C:\\Other\\Aircraft"));
    QCOMPARE(program.label("lblAircraftTextFile"), QString("Please select an Aircraft Text File"));
    QVERIFY(!program.find<QPushButton>("cmdEdit")->isEnabled());
    QVERIFY(!program.find<QPushButton>("cmdTtools")->isEnabled());
    QCOMPARE(program.find<ListBox>("Tab0List3")->count(), 0);
}

void TestMainWindow::directoryOfPage3IsTakenOverWherePage0StandsAlready()
{
    Program program;
    program.sandbox.makeFolder("C:\\FSX\\Airplanes");
    program.rememberUsualRun();
    program.start();
    auto *const picker = program.find<DirListBox>("Tab3Dir1");
    Q_EMIT picker->folderChosen("C:\\FSX\\Airplanes");
    program.find<QPushButton>("Command1")->click(); // wants a folder named Aircraft
    QCOMPARE(program.label("lblFSPath"), QString());
    Q_EMIT picker->folderChosen("C:\\FSX");
    Q_EMIT picker->folderChosen("C:\\FSX\\Airplanes");
    QCOMPARE(program.label("lblFSPath"), QString("C:\\FSX\\Airplanes"));
    program.outside.dialogs.files = {Program::textFile};
    program.find<QPushButton>("cmdBrowseText")->click();
    QVERIFY(program.find<QPushButton>("cmdEdit")->isEnabled());
    Q_EMIT picker->folderChosen("C:\\FSX");
    Q_EMIT picker->folderChosen("C:\\FSX\\Airplanes");
    QVERIFY(!program.find<QPushButton>("cmdEdit")->isEnabled());
}

void TestMainWindow::changedAircraftPointsPage0AtNoFolder()
{
    Program program;
    program.sandbox.write(Program::aircraftDir + "\\Own\\aircraft.cfg",
                          "title=A\r\nui_manufacturer=B\r\nui_type=C\r\nui_variation=D\r\n");
    program.rememberUsualRun("3");
    program.start();
    auto *const picker = program.find<DirListBox>("Dir1");
    picker->setCurrentIndex(picker->model()->index(0, 0));
    program.find<ListBox>("Tab3List3")->setListIndex(0);
    program.find<QRadioButton>("Tab3optAircraft")->setChecked(true);
    program.outside.dialogs.answers = {Answer::Yes};
    program.find<QPushButton>("Tab3cmdedit")->click();
    QVERIFY(!picker->currentIndex().isValid());
}

void TestMainWindow::varloIsRaisedOrStarted()
{
    Program program;
    program.sandbox.makeFolder("C:\\Varlo");
    program.outside.registry.setValue(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel\\Varlo\\Path",
                                      "Exe_Path", QString("C:\\Varlo\\varlo.exe"));
    program.rememberUsualRun("3");
    program.start();
    auto *const link = program.find<LinkLabel>("Tab3Label6");
    QTest::mouseClick(link, Qt::LeftButton);
    QCOMPARE(program.outside.processes.started, QStringList{"\"C:\\Varlo\\Varlo.exe\""});
    program.outside.processes.windows = {"Aircraft and Panel Configuration Editor"};
    QTest::mouseClick(link, Qt::LeftButton);
    QCOMPARE(program.outside.processes.started.size(), 1);
    QCOMPARE(program.outside.processes.raised,
             QStringList{"Aircraft and Panel Configuration Editor"});
}

void TestMainWindow::quittingWhileAProgramRunsEndsTheWait()
{
    Program program;
    program.rememberUsualRun();
    program.start();
    program.outside.processes.exitCodes = {Process::stillActive};
    program.outside.dialogs.answers = {Answer::Yes};
    QTimer::singleShot(50, program.window.get(),
                       [&] { program.find<QAction>("mnuQuit")->trigger(); });
    program.find<QPushButton>("cmdEdit")->click(); // returns only because the wait ends
    QVERIFY(program.window->state().ended);
    // The question about changes would come from a window that is gone.
    QCOMPARE(program.outside.dialogs.boxes.size(), 1);
    QCOMPARE(program.outside.dialogs.boxes[0].title, QString("Confirm Exit"));
}

QTEST_MAIN(TestMainWindow)
#include "test_main_window.moc"
