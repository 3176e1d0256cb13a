// SPDX-License-Identifier: MIT
// Page 0's lists: filling them, matching them, ticking their entries.
#include "tests/support/aircraft_loader_driver.h"

#include <QDir>
#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>

namespace
{

const QString allUsed = QStringLiteral("All Available Aircraft have been used");
const QByteArray anyTextFile = "AC#1,120,\"Not installed\"\r\n";

/// Two aircraft folders with three titles, one of them used already.
struct UsualPage : AircraftLoaderDriver {
    UsualPage()
    {
        addAircraft("B734", {"Boeing Red", "Boeing Blue"}, "477");
        addAircraft("A320", {"Airbus Blue"}, "454");
        writeTextFile("//by hand\r\nAC#4,477,\"Boeing Blue\"\r\nAC#9,300,\"Gone\"\r\n");
        start();
    }
};

/// Two aircraft, both used already.
struct AllUsedPage : AircraftLoaderDriver {
    AllUsedPage()
    {
        addAircraft("B734", {"Boeing Blue"}, "477");
        addAircraft("A320", {"Airbus Blue"}, "454");
        writeTextFile("AC#1,477,\"Boeing Blue\"\r\nAC#2,454,\"Airbus Blue\"\r\n");
        start();
    }
};

} // namespace

class TestAircraftLoaderPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlHasTheProductsNameAndKind_data();
    void controlHasTheProductsNameAndKind();
    void everyLabelShowsPlainText();
    void pageComesUpEmpty();
    void loadListFillsTheThreeLists();
    void loadListNamesFileAndCountsInTheCaptions();
    void captionGoesByTheFirstAircraftOfTheWholePath();
    void loadListEnablesTheOptionsAndLeavesBothUnset();
    void loadListChangesTheTooltips();
    void clearListsResetsEverything();
    void listsAreHiddenWhileTheyAreFilled();
    void barMovesWhileTheListsAreFilled();
    void pointerIsTheHourglassWhileTheListsAreFilled();
    void loadingIsTraced();
    void commentsAreNotListed();
    void entriesKeepTheirOrderAndDuplicates();
    void aircraftInstalledMeanwhileCountsAtTheNextLoad();
    void emptyTextFileLeavesEveryTitleAvailableAndShowsNoNotice();
    void firstLineBlankStopsTheMatchingAtOnce();
    void shortLineStopsTheMatchingOfTheLinesBelowIt();
    void titleThatIsAPrefixOfSeveralRemovesOnlyTheFirst();
    void matchingIsCaseSensitive();
    void twoFoldersWithOneTitleAndOneLineRemoveOnlyTheFirst();
    void everyTitleUsedShowsTheNoticeCountedAsOne();
    void noticeKeepsAddAircraftDisabledWhenClicked();
    void noticeKeepsAddAircraftDisabledWhenTicked();
    void noticeKeepsAddAircraftDisabledWhenAllAreChecked();
    void titleThatCannotBeCutEndsTheMatchingAndKeepsWhatWasRemoved();
    void foldersThatYieldedDataAreKept();
    void badCfgGivesOneMessageAndTheWalkGoesOn();
    void cfgOf1502TitlesGivesOneMessageAndTheWalkGoesOn();
    void cfgThatMayNotBeReadGivesOneMessageAndTheWalkGoesOn();
    void folderThatMayNotBeReadIsReportedAndTheListsStayAsFilled();
    void folderThatDisappearsDuringTheWalkIsReported();
    void directoryThatDisappearedIsReported_data();
    void directoryThatDisappearedIsReported();
    void missingTextFileIsReported();
    void textFileThatIsAFolderIsReported();
    void textFileThatMayNotBeReadIsReported();
    void numberBeyond32767IsReportedAndTheListsStayAsFilled();
    void numberThatIsNoneIsReported();
    void textFileOf200000LinesIsListed();
    void textFileOf200000AircraftIsAnOverflow();
    void markupInTitlesAndPathsIsTextLikeAnyOther();
    void tickingEnablesAddAircraftAndGivesItTheFocus();
    void untickingTheLastDisablesAddAircraft();
    void untickingOneOfTwoKeepsAddAircraftEnabled();
    void clickingAnEntryWithoutATickKeepsAddAircraftDisabled();
    void tickByTheSpaceBarEnablesAddAircraftAndLeavesTheFocus();
    void untickingByTheSpaceBarDisablesAddAircraft();
    void checkAllTicksEverythingAndEnablesAddAircraft();
    void checkNoneUnticksEverythingAndDisablesAddAircraft();
    void optionsWorkByKeyboardToo();
    void listsAreHiddenWhileTheirEntriesAreTicked();
    void barMovesWhileEntriesAreTicked();
    void optionsShowTheListsAgain();
    void doubleClickOnAnExistingAircraftOpensTheTextFile();
    void doubleClickDoesNothingWhileEditIsDisabled();
    void runTToolsRunsTheCompilerBesideTheTextFile();
    void quitAndHelpAreTold();
};

void TestAircraftLoaderPage::controlHasTheProductsNameAndKind_data()
{
    QTest::addColumn<QByteArray>("kind");
    const QList<QPair<QByteArray, QByteArrayList>> controls = {
        {"QRadioButton", {"opt2002", "opt2004", "optAll", "optClear"}},
        {"QLabel",
         {"lblFSPath", "lblAircraftTextFile", "Tab0Label1", "Tab0Label2", "Tab0Label9",
          "Tab0Help"}},
        {"QPushButton",
         {"cmdBrowseFSPath", "cmdBrowseText", "cmdEdit", "cmdAddAI", "cmdTtools", "cmdQuit",
          "Command1"}},
        {"QAbstractItemView", {"Tab0List1", "Tab0List2", "Tab0List3", "Dir1", "File1"}},
        {"QComboBox", {"Drive1"}},
        {"QGroupBox", {"frmDriveDialog", "optFrame"}},
        {"QProgressBar", {"ProgressBar1"}}};
    for (const auto &[kind, names] : controls) {
        for (const QByteArray &name : names) {
            QTest::newRow(name.constData()) << kind;
        }
    }
}

void TestAircraftLoaderPage::controlHasTheProductsNameAndKind()
{
    QFETCH(QByteArray, kind);
    AircraftLoaderDriver user;
    user.open();
    const auto controls = user.window->findChildren<QWidget *>(QTest::currentDataTag());
    QCOMPARE(controls.size(), 1);
    QVERIFY(controls[0]->inherits(kind.constData()));
}

void TestAircraftLoaderPage::everyLabelShowsPlainText()
{
    AircraftLoaderDriver user;
    user.open();
    for (const QLabel *label : user.window->findChildren<QLabel *>()) {
        QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->objectName()));
    }
}

void TestAircraftLoaderPage::pageComesUpEmpty()
{
    AircraftLoaderDriver user;
    user.open();
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(user.existing(), QStringList());
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: "));
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft: "));
    QCOMPARE(user.find<ListBox>("Tab0List2")->toolTip(),
             QString(" This list displays all Aircraft available for use as AI Aircraft "));
    QCOMPARE(user.find<ListBox>("Tab0List3")->toolTip(),
             QString(" This list displays all AI Aircraft presently in use "));
    QVERIFY(user.find<QRadioButton>("opt2004")->isChecked());
    for (const char *name :
         {"cmdAddAI", "cmdEdit", "cmdTtools", "optFrame", "optAll", "optClear"}) {
        QVERIFY2(!user.isEnabled(name), name);
    }
    for (const char *name :
         {"Tab0List1", "frmDriveDialog", "File1", "Tab0Label9", "ProgressBar1"}) {
        QVERIFY2(!user.isShown(name), name);
    }
    for (const char *name : {"Tab0List2", "Tab0List3", "Tab0Label1", "Tab0Label2", "cmdQuit"}) {
        QVERIFY2(user.isShown(name), name);
    }
}

void TestAircraftLoaderPage::loadListFillsTheThreeLists()
{
    UsualPage user;
    QCOMPARE(user.available(), (QStringList{"Airbus Blue 454", "Boeing Red 477"}));
    QCOMPARE(user.existing(), (QStringList{"AC#4,477,\"Boeing Blue\"", "AC#9,300,\"Gone\""}));
    QCOMPARE(user.foldersWithData(),
             (QStringList{"C:\\FS9\\Aircraft\\A320", "C:\\FS9\\Aircraft\\B734"}));
    QCOMPARE(user.messages(), QStringList());
    QCOMPARE(user.find<ListBox>("Tab0List2")->listIndex(), -1);
    QCOMPARE(user.find<ListBox>("Tab0List3")->listIndex(), -1);
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAircraftLoaderPage::loadListNamesFileAndCountsInTheCaptions()
{
    UsualPage user;
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: 2"));
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft in Aircraft_Set.txt: 2"));
}

void TestAircraftLoaderPage::captionGoesByTheFirstAircraftOfTheWholePath()
{
    AircraftLoaderDriver user;
    user.sandbox.write("C:\\Aircraft Sets\\aircraft.txt", anyTextFile + "\r\nshort\r\n");
    user.open();
    user.window->showDirectory(AircraftLoaderDriver::aircraftDir);
    user.chooseTextFile("C:\\Aircraft Sets\\aircraft.txt");
    QCOMPARE(user.label("Tab0Label2"),
             QString("Existing AI Aircraft in Aircraft Sets\\aircraft.txt: 1"));
}

void TestAircraftLoaderPage::loadListEnablesTheOptionsAndLeavesBothUnset()
{
    UsualPage user;
    QVERIFY(user.isEnabled("optFrame"));
    QVERIFY(user.isEnabled("optAll"));
    QVERIFY(user.isEnabled("optClear"));
    user.press("optAll");
    QVERIFY(user.find<QRadioButton>("optAll")->isChecked());
    user.window->LoadList();
    QVERIFY(!user.find<QRadioButton>("optAll")->isChecked());
    QVERIFY(!user.find<QRadioButton>("optClear")->isChecked());

    AircraftLoaderDriver nothingInstalled;
    nothingInstalled.writeTextFile("");
    nothingInstalled.start();
    QVERIFY(!nothingInstalled.isEnabled("optFrame"));
}

void TestAircraftLoaderPage::loadListChangesTheTooltips()
{
    UsualPage user;
    QCOMPARE(user.find<ListBox>("Tab0List2")->toolTip(),
             QString(" Check the Aircraft you with to add to the Aircraft text file "));
    QCOMPARE(user.find<ListBox>("Tab0List3")->toolTip(),
             QString(" Double Click to edit the Aircraft text file "));
}

void TestAircraftLoaderPage::clearListsResetsEverything()
{
    UsualPage user;
    user.tick(0);
    QVERIFY(user.isEnabled("cmdAddAI"));
    user.window->ClearLists();
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(user.existing(), QStringList());
    QCOMPARE(user.foldersWithData(), QStringList());
    QVERIFY(!user.isEnabled("cmdAddAI"));
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: "));
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft: "));
    QCOMPARE(user.find<ListBox>("Tab0List2")->toolTip(),
             QString(" This list displays all Aircraft available for use as AI Aircraft "));
    QCOMPARE(user.find<ListBox>("Tab0List3")->toolTip(),
             QString(" This list displays all AI Aircraft presently in use "));
}

void TestAircraftLoaderPage::listsAreHiddenWhileTheyAreFilled()
{
    AircraftLoaderDriver user;
    user.writeCfg("A320", "[fltsim.0]"); // its message is shown half way
    user.addAircraft("B734", {"Boeing"}, "477");
    user.writeTextFile(anyTextFile);
    QStringList shown;
    user.outside.dialogs.whileShown = [&] {
        for (const char *name :
             {"Tab0List2", "Tab0List3", "Tab0Label1", "Tab0Label2", "Tab0Label9", "ProgressBar1"}) {
            if (user.isShown(name)) {
                shown += name;
            }
        }
        shown += QString::number(user.find<QProgressBar>("ProgressBar1")->maximum());
    };
    user.start();
    QCOMPARE(shown, (QStringList{"Tab0Label9", "ProgressBar1", "2"}));
    for (const char *name : {"Tab0List2", "Tab0List3", "Tab0Label1", "Tab0Label2"}) {
        QVERIFY2(user.isShown(name), name);
    }
    QVERIFY(!user.isShown("Tab0Label9"));
    QVERIFY(!user.isShown("ProgressBar1"));
}

void TestAircraftLoaderPage::barMovesWhileTheListsAreFilled()
{
    AircraftLoaderDriver user;
    for (const char *folder : {"A", "B", "C"}) {
        user.writeCfg(folder, "[fltsim.0]"); // the message of each is shown half way
    }
    user.writeTextFile(anyTextFile);
    QList<int> values;
    user.outside.dialogs.whileShown = [&] {
        values += user.find<QProgressBar>("ProgressBar1")->value();
        QTest::qSleep(40); // the bar moves about 30 times a second
    };
    user.start();
    QCOMPARE(values, (QList<int>{0, 1, 2}));
}

void TestAircraftLoaderPage::pointerIsTheHourglassWhileTheListsAreFilled()
{
    AircraftLoaderDriver user;
    user.writeCfg("A320", "[fltsim.0]");
    user.writeTextFile(anyTextFile);
    bool hourglass = false;
    user.outside.dialogs.whileShown = [&] {
        const QCursor *const pointer = QApplication::overrideCursor();
        hourglass = pointer != nullptr && pointer->shape() == Qt::WaitCursor;
    };
    user.start();
    QVERIFY(hourglass);
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void TestAircraftLoaderPage::loadingIsTraced()
{
    UsualPage user;
    user.trace();
    user.window->LoadList();
    QCOMPARE(user.sandbox.read("C:\\Morlen\\TraceLog.txt"),
             QByteArray("14:03:27 - ***LoadList Function Started" + QByteArray(41, '*') +
                        "\r\n"
                        "14:03:27 - Open C:\\TTools\\Aircraft_Set.txt\r\n"
                        "14:03:27 - ***LoadList Function Completed" +
                        QByteArray(39, '*') + "\r\n"));
}

void TestAircraftLoaderPage::commentsAreNotListed()
{
    AircraftLoaderDriver user;
    user.writeTextFile(";AC#1,120,\"One\"\r\n//AC#2,120,\"Two\"\r\nAC#3,120,\"Three\"\r\n");
    user.start();
    QCOMPARE(user.existing(), QStringList{"AC#3,120,\"Three\""});
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft in Aircraft_Set.txt: 1"));
}

void TestAircraftLoaderPage::entriesKeepTheirOrderAndDuplicates()
{
    AircraftLoaderDriver user;
    user.addAircraft("b", {"Zulu", "Alpha", "Zulu"}, "9");
    user.addAircraft("A", {"Mike"}, "8");
    user.writeTextFile("AC#2,1,\"Y\"\r\n\r\nAC#1,1,\"X\"\r\nAC#2,1,\"Y\"\r\n");
    user.start();
    QCOMPARE(user.available(), (QStringList{"Mike 8", "Zulu 9", "Alpha 9", "Zulu 9"}));
    QCOMPARE(user.existing(), (QStringList{"AC#2,1,\"Y\"", "", "AC#1,1,\"X\"", "AC#2,1,\"Y\""}));
}

void TestAircraftLoaderPage::aircraftInstalledMeanwhileCountsAtTheNextLoad()
{
    UsualPage user;
    user.addAircraft("C172", {"Cessna"}, "120");
    user.window->LoadList();
    QCOMPARE(user.available(), (QStringList{"Airbus Blue 454", "Boeing Red 477", "Cessna 120"}));
}

void TestAircraftLoaderPage::emptyTextFileLeavesEveryTitleAvailableAndShowsNoNotice()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    user.writeTextFile("");
    user.start();
    QCOMPARE(user.available(), QStringList{"Airbus 454"});
    QCOMPARE(user.find<ListBox>("Tab0List2")->listIndex(), 0); // no matching takes it away
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: 1"));
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft in Aircraft_Set.txt: 0"));

    AircraftLoaderDriver nothingInstalled;
    nothingInstalled.writeTextFile("");
    nothingInstalled.start();
    QCOMPARE(nothingInstalled.available(), QStringList());
    QCOMPARE(nothingInstalled.label("Tab0Label1"), QString("Available Aircraft: 0"));
}

void TestAircraftLoaderPage::firstLineBlankStopsTheMatchingAtOnce()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus", "Boeing"}, "454");
    user.writeTextFile("\r\nAC#1,454,\"Airbus\"\r\nAC#2,454,\"Boeing\"\r\n");
    user.start();
    QCOMPARE(user.available(), (QStringList{"Airbus 454", "Boeing 454"}));
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: 2"));
}

void TestAircraftLoaderPage::shortLineStopsTheMatchingOfTheLinesBelowIt()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus", "Boeing", "Cessna"}, "454");
    user.writeTextFile("AC#1,454,\"Cessna\"\r\nnine char\r\nAC#2,454,\"Boeing\"\r\n");
    user.start();
    QCOMPARE(user.available(), (QStringList{"Airbus 454", "Boeing 454"}));
}

void TestAircraftLoaderPage::titleThatIsAPrefixOfSeveralRemovesOnlyTheFirst()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Boeing 737 Red", "Boeing 737", "Boeing 737 Blue"}, "477");
    user.writeTextFile("AC#1,477,\"Boeing 737\"\r\n");
    user.start();
    QCOMPARE(user.available(), (QStringList{"Boeing 737 477", "Boeing 737 Blue 477"}));
}

void TestAircraftLoaderPage::matchingIsCaseSensitive()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Boeing Blue"}, "477");
    user.writeTextFile("AC#1,477,\"Boeing BLUE\"\r\n");
    user.start();
    QCOMPARE(user.available(), QStringList{"Boeing Blue 477"});
}

void TestAircraftLoaderPage::twoFoldersWithOneTitleAndOneLineRemoveOnlyTheFirst()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Boeing"}, "477");
    user.addAircraft("B", {"Boeing"}, "488");
    user.writeTextFile("AC#1,477,\"Boeing\"\r\n");
    user.start();
    QCOMPARE(user.available(), QStringList{"Boeing 488"});
}

void TestAircraftLoaderPage::everyTitleUsedShowsTheNoticeCountedAsOne()
{
    AllUsedPage user;
    QCOMPARE(user.available(), QStringList{allUsed});
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: 1"));
}

void TestAircraftLoaderPage::noticeKeepsAddAircraftDisabledWhenClicked()
{
    AllUsedPage user;
    user.clickEntry("Tab0List2", 0);
    QCOMPARE(user.find<ListBox>("Tab0List2")->listIndex(), 0);
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAircraftLoaderPage::noticeKeepsAddAircraftDisabledWhenTicked()
{
    AllUsedPage user;
    user.tick(0);
    QCOMPARE(user.ticked(), QStringList{allUsed});
    QVERIFY(!user.isEnabled("cmdAddAI"));
    user.tick(0);
    user.tickByKey(0);
    QCOMPARE(user.ticked(), QStringList{allUsed});
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAircraftLoaderPage::noticeKeepsAddAircraftDisabledWhenAllAreChecked()
{
    AllUsedPage user;
    user.press("optAll");
    QCOMPARE(user.ticked(), QStringList{allUsed});
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAircraftLoaderPage::titleThatCannotBeCutEndsTheMatchingAndKeepsWhatWasRemoved()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus", "Boeing", "Cessna"}, "454");
    user.writeTextFile("AC#1,454,\"Boeing\"\r\nAC#2,454,Airbus\"\r\nAC#3,454,\"Cessna\"\r\n");
    user.start();
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, LoadList Error: Error  5 Invalid procedure call or argument"
                         "\rFind Available AI"});
    QCOMPARE(user.available(), (QStringList{"Airbus 454", "Cessna 454"}));
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: 2"));
    QCOMPARE(user.existing().size(), 3);
    QVERIFY(user.isShown("Tab0List2"));

    // The clicks of the list are listened to again.
    user.tick(0);
    QVERIFY(user.isEnabled("cmdAddAI"));
}

void TestAircraftLoaderPage::foldersThatYieldedDataAreKept()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    user.writeCfg("B", "");                   // empty: what the file before left still counts
    user.addAircraft("CSL", {"Online"}, "1"); // the same
    user.writeCfg("D", "[fltsim.0]\r\ntitle=No speed\r\n");
    user.writeCfg("E", "");
    user.sandbox.makeFolder(AircraftLoaderDriver::aircraftDir + "\\F");
    user.writeTextFile(anyTextFile);
    user.start();
    QCOMPARE(user.foldersWithData(), (QStringList{"C:\\FS9\\Aircraft\\A", "C:\\FS9\\Aircraft\\B",
                                                  "C:\\FS9\\Aircraft\\CSL"}));
    QCOMPARE(user.available(), QStringList{"Airbus 454"});
}

void TestAircraftLoaderPage::badCfgGivesOneMessageAndTheWalkGoesOn()
{
    AircraftLoaderDriver user;
    user.writeCfg("A", "[fltsim.0]\r\ntitle=Airbus\r\n[fltsim.1]\r\n");
    user.addAircraft("B", {"Boeing"}, "477");
    user.writeTextFile(anyTextFile);
    user.start();
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, Cfg File Error: Error  62 Input past end of file"
                         "\rGet Aircraft Data in\rC:\\FS9\\Aircraft\\A\\aircraft.cfg"});
    QCOMPARE(user.available(), QStringList{"Boeing 477"});
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: 1"));
}

void TestAircraftLoaderPage::cfgOf1502TitlesGivesOneMessageAndTheWalkGoesOn()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", QList<QByteArray>(1502, "Many"), "454");
    user.addAircraft("B", QList<QByteArray>(1501, "Much"), "477");
    user.writeTextFile(anyTextFile);
    user.start();
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, Cfg File Error: Error  9 Subscript out of range"
                         "\rGet Aircraft Data in\rC:\\FS9\\Aircraft\\A\\aircraft.cfg"});
    QCOMPARE(user.available(), QStringList(1501, "Much 477"));
}

void TestAircraftLoaderPage::cfgThatMayNotBeReadGivesOneMessageAndTheWalkGoesOn()
{
    NEEDS(permissions);
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    user.addAircraft("B", {"Boeing"}, "477");
    user.writeTextFile(anyTextFile);
    const OrdinaryUser rights(user.sandbox);
    QVERIFY(QFile::setPermissions(user.sandbox.host(AircraftLoaderDriver::cfgFile("A")),
                                  QFile::Permissions()));
    user.start();
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, Cfg File Error: Error  75 Path/File access error"
                         "\rOpening C:\\FS9\\Aircraft\\A\\aircraft.cfg"});
    QCOMPARE(user.available(), QStringList{"Boeing 477"});
}

void TestAircraftLoaderPage::folderThatMayNotBeReadIsReportedAndTheListsStayAsFilled()
{
    NEEDS(permissions);
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    user.addAircraft("B", {"Boeing"}, "477");
    user.writeTextFile("AC#1,454,\"Airbus\"\r\n");
    const OrdinaryUser rights(user.sandbox);
    QVERIFY(QFile::setPermissions(user.sandbox.host(AircraftLoaderDriver::aircraftDir + "\\B"),
                                  QFile::Permissions()));
    user.start();
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, LoadList Error: Error  75 Path/File access error"
                         "\rSet path to C:\\FS9\\Aircraft\\B"});
    // Used titles are only taken out afterwards, so that even a used one is still there.
    QCOMPARE(user.available(), QStringList{"Airbus 454"});
    QCOMPARE(user.foldersWithData(), QStringList{"C:\\FS9\\Aircraft\\A"});
    QCOMPARE(user.existing(), QStringList{"AC#1,454,\"Airbus\""});
    for (const char *name : {"Tab0List2", "Tab0List3", "Tab0Label1", "Tab0Label2"}) {
        QVERIFY2(user.isShown(name), name);
    }
    QVERIFY(!user.isShown("Tab0Label9"));
    QVERIFY(!user.isShown("ProgressBar1"));
}

void TestAircraftLoaderPage::folderThatDisappearsDuringTheWalkIsReported()
{
    AircraftLoaderDriver user;
    user.writeCfg("A", "[fltsim.0]"); // while its message is shown, a folder far below goes
    for (int i = 100; i < 200; ++i) {
        user.addAircraft("B" + QString::number(i), {}, "477");
    }
    user.addAircraft("C", {"Cessna"}, "120");
    user.writeTextFile(anyTextFile);
    user.outside.dialogs.whileShown = [&] {
        QDir(user.sandbox.host(AircraftLoaderDriver::aircraftDir + "\\C")).removeRecursively();
    };
    user.start();
    QCOMPARE(user.messages(),
             (QStringList{"Exclamation, Cfg File Error: Error  62 Input past end of file"
                          "\rGet Aircraft Data in\rC:\\FS9\\Aircraft\\A\\aircraft.cfg",
                          "Exclamation, LoadList Error: Error  76 Path not found"
                          "\rSet path to C:\\FS9\\Aircraft\\C"}));
    QCOMPARE(user.available(), QStringList());
}

void TestAircraftLoaderPage::directoryThatDisappearedIsReported_data()
{
    QTest::addColumn<bool>("pickerOpen");
    QTest::newRow("folder picker closed") << false;
    QTest::newRow("folder picker open") << true;
}

void TestAircraftLoaderPage::directoryThatDisappearedIsReported()
{
    QFETCH(bool, pickerOpen);
    UsualPage user;
    if (pickerOpen) {
        user.press("cmdBrowseFSPath");
    }
    QDir(user.sandbox.host("C:\\FS9")).removeRecursively();
    user.window->ClearLists();
    user.window->LoadList();
    QCOMPARE(user.messages(), QStringList{"Exclamation, LoadList Error: Error  76 Path not found"
                                          "\rLoop through Aircraft Directories"});
    QCOMPARE(user.existing().size(), 2);
    QCOMPARE(user.available(), QStringList());
}

void TestAircraftLoaderPage::missingTextFileIsReported()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    user.sandbox.makeFolder("C:\\TTools");
    user.start();
    QCOMPARE(user.messages(), QStringList{"Exclamation, LoadList Error: Error  53 File not found"
                                          "\rOpen C:\\TTools\\Aircraft_Set.txt"});
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft: "));
    QVERIFY(user.isShown("Tab0List2"));

    user.chooseTextFile("C:\\Nowhere\\Aircraft_Set.txt");
    QCOMPARE(user.messages(), QStringList{"Exclamation, LoadList Error: Error  76 Path not found"
                                          "\rOpen C:\\Nowhere\\Aircraft_Set.txt"});
}

void TestAircraftLoaderPage::textFileThatIsAFolderIsReported()
{
    AircraftLoaderDriver user;
    user.sandbox.makeFolder(AircraftLoaderDriver::textFile);
    user.start();
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, LoadList Error: Error  75 Path/File access error"
                         "\rOpen C:\\TTools\\Aircraft_Set.txt"});
}

void TestAircraftLoaderPage::textFileThatMayNotBeReadIsReported()
{
    NEEDS(permissions);
    AircraftLoaderDriver user;
    user.writeTextFile(anyTextFile);
    const OrdinaryUser rights(user.sandbox);
    QVERIFY(QFile::setPermissions(user.sandbox.host(AircraftLoaderDriver::textFile),
                                  QFile::WriteOwner));
    user.start();
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, LoadList Error: Error  75 Path/File access error"
                         "\rOpen C:\\TTools\\Aircraft_Set.txt"});
}

void TestAircraftLoaderPage::numberBeyond32767IsReportedAndTheListsStayAsFilled()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    user.writeTextFile(
        "AC#32767,454,\"Last\"\r\nAC#32768,454,\"Too many\"\r\nAC#3,1,\"Below\"\r\n");
    user.start();
    QCOMPARE(user.messages(), QStringList{"Exclamation, LoadList Error: Error  6 Overflow"
                                          "\rOpen C:\\TTools\\Aircraft_Set.txt"});
    QCOMPARE(user.existing(), (QStringList{"AC#32767,454,\"Last\"", "AC#32768,454,\"Too many\""}));
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: "));
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft: "));
    QVERIFY(user.isShown("Tab0List3"));
}

void TestAircraftLoaderPage::numberThatIsNoneIsReported()
{
    AircraftLoaderDriver user;
    user.writeTextFile("AC#one,454,\"First\"\r\n");
    user.start();
    QCOMPARE(user.messages(), QStringList{"Exclamation, LoadList Error: Error  13 Type mismatch"
                                          "\rOpen C:\\TTools\\Aircraft_Set.txt"});
    QCOMPARE(user.existing(), QStringList{"AC#one,454,\"First\""});
}

void TestAircraftLoaderPage::textFileOf200000LinesIsListed()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    QByteArray bytes;
    for (int i = 0; i < 200'000; ++i) {
        bytes += i % 8 == 0 ? "AC#" + QByteArray::number(i / 8) + ",250,\"Boeing\"\r\n"
                            : QByteArray("ten chars.\r\n");
    }
    user.writeTextFile(bytes);
    user.start();
    QCOMPARE(user.messages(), QStringList());
    QCOMPARE(user.existing().size(), 200'000);
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft in Aircraft_Set.txt: 25000"));
    QCOMPARE(user.available(), QStringList{"Airbus 454"});
}

void TestAircraftLoaderPage::textFileOf200000AircraftIsAnOverflow()
{
    AircraftLoaderDriver user;
    user.writeTextFile(QByteArray("AC#1,250,\"Boeing\"\r\n").repeated(200'000));
    user.start();
    QCOMPARE(user.messages(), QStringList{"Exclamation, LoadList Error: Error  6 Overflow"
                                          "\rOpen C:\\TTools\\Aircraft_Set.txt"});
    QCOMPARE(user.existing().size(), 32768);
}

void TestAircraftLoaderPage::markupInTitlesAndPathsIsTextLikeAnyOther()
{
    AircraftLoaderDriver user;
    const QString directory = "C:\\FS & Co\\Aircraft";
    const QString file = "C:\\T&T\\Aircraft_<b>.txt"; // a name that Windows refuses
    user.sandbox.write(directory + "\\A & B\\aircraft.cfg",
                       "[fltsim.0]\r\ntitle=<b>Bold</b> & Co\r\ncruise_speed=7\r\n");
    user.sandbox.write("C:\\T&T\\Aircraft_&.txt", "AC#1,7,\"<i>&amp;</i>\"\r\n");
    user.open();
    user.window->showDirectory(directory);
    user.chooseTextFile("C:\\T&T\\Aircraft_&.txt");
    QCOMPARE(user.label("lblFSPath"), directory);
    QCOMPARE(user.label("lblAircraftTextFile"), QString("C:\\T&T\\Aircraft_&.txt"));
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft in Aircraft_&.txt: 1"));
    QCOMPARE(user.available(), QStringList{"<b>Bold</b> & Co 7"});
    QCOMPARE(user.existing(), QStringList{"AC#1,7,\"<i>&amp;</i>\""});
    QCOMPARE(user.foldersWithData(), QStringList{directory + "\\A & B"});
    QCOMPARE(user.messages(), QStringList());

    user.chooseTextFile(file);
    QCOMPARE(user.label("lblAircraftTextFile"), file);
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, LoadList Error: Error  52 Bad file name or number\rOpen " +
                         file});
}

void TestAircraftLoaderPage::tickingEnablesAddAircraftAndGivesItTheFocus()
{
    UsualPage user;
    user.tick(1);
    QCOMPARE(user.ticked(), QStringList{"Boeing Red 477"});
    QVERIFY(user.isEnabled("cmdAddAI"));
    QCOMPARE(user.focus(), QString("cmdAddAI"));
}

void TestAircraftLoaderPage::untickingTheLastDisablesAddAircraft()
{
    UsualPage user;
    user.tick(1);
    user.tick(1);
    QCOMPARE(user.ticked(), QStringList());
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAircraftLoaderPage::untickingOneOfTwoKeepsAddAircraftEnabled()
{
    UsualPage user;
    user.tick(0);
    user.tick(1);
    user.tick(0);
    QCOMPARE(user.ticked(), QStringList{"Boeing Red 477"});
    QVERIFY(user.isEnabled("cmdAddAI"));
}

void TestAircraftLoaderPage::clickingAnEntryWithoutATickKeepsAddAircraftDisabled()
{
    UsualPage user;
    user.clickEntry("Tab0List2", 1);
    QCOMPARE(user.find<ListBox>("Tab0List2")->listIndex(), 1);
    QCOMPARE(user.ticked(), QStringList());
    QVERIFY(!user.isEnabled("cmdAddAI"));
    QVERIFY(user.focus() != "cmdAddAI");
}

void TestAircraftLoaderPage::tickByTheSpaceBarEnablesAddAircraftAndLeavesTheFocus()
{
    UsualPage user;
    user.tickByKey(1);
    QCOMPARE(user.ticked(), QStringList{"Boeing Red 477"});
    QVERIFY(user.isEnabled("cmdAddAI"));
    QCOMPARE(user.focus(), QString("Tab0List2"));
}

void TestAircraftLoaderPage::untickingByTheSpaceBarDisablesAddAircraft()
{
    UsualPage user;
    user.tickByKey(1);
    user.tickByKey(1);
    QCOMPARE(user.ticked(), QStringList());
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAircraftLoaderPage::checkAllTicksEverythingAndEnablesAddAircraft()
{
    UsualPage user;
    user.press("optAll");
    QCOMPARE(user.ticked(), (QStringList{"Airbus Blue 454", "Boeing Red 477"}));
    QVERIFY(user.isEnabled("cmdAddAI"));
    QCOMPARE(user.focus(), QString("cmdAddAI"));
    QCOMPARE(user.find<ListBox>("Tab0List2")->listIndex(), 1);
}

void TestAircraftLoaderPage::checkNoneUnticksEverythingAndDisablesAddAircraft()
{
    UsualPage user;
    user.tick(0);
    user.tick(1);
    user.press("optClear");
    QCOMPARE(user.ticked(), QStringList());
    QVERIFY(!user.isEnabled("cmdAddAI"));
    QVERIFY(user.find<QRadioButton>("optClear")->isChecked());
}

void TestAircraftLoaderPage::optionsWorkByKeyboardToo()
{
    UsualPage user;
    user.pressKey("optAll", Qt::Key_Space);
    QCOMPARE(user.ticked().size(), 2);
    QVERIFY(user.isEnabled("cmdAddAI"));
    user.pressKey("optAll", Qt::Key_Right);
    QVERIFY(user.find<QRadioButton>("optClear")->isChecked());
    QCOMPARE(user.ticked().size(), 0);
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAircraftLoaderPage::listsAreHiddenWhileTheirEntriesAreTicked()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"One", "Two", "Three"}, "454");
    user.writeTextFile("");
    user.start();
    const auto *const bar = user.find<QProgressBar>("ProgressBar1");
    for (const char *option : {"optAll", "optClear"}) {
        QStringList shown;
        int maximum = 0;
        const auto watch = QObject::connect(
            user.find<ListBox>("Tab0List2")->model(), &QAbstractItemModel::dataChanged, [&] {
                for (const char *name : {"Tab0List2", "Tab0List3", "Tab0Label1", "Tab0Label2",
                                         "Tab0Label9", "ProgressBar1"}) {
                    shown += user.isShown(name) ? QString(name) : QString();
                }
                maximum = bar->maximum();
            });
        user.press(option);
        QObject::disconnect(watch);
        shown.removeAll(QString());
        QCOMPARE(shown, (QStringList{"Tab0Label9", "ProgressBar1"}));
        QCOMPARE(maximum, 3);
    }
}

void TestAircraftLoaderPage::barMovesWhileEntriesAreTicked()
{
    AircraftLoaderDriver user;
    for (int folder = 0; folder < 8; ++folder) {
        user.addAircraft(QString::number(folder), QList<QByteArray>(1500, "Much"), "477");
    }
    user.writeTextFile("");
    user.start();
    QSignalSpy values(user.find<QProgressBar>("ProgressBar1"), &QProgressBar::valueChanged);
    QObject::connect(user.find<ListBox>("Tab0List2")->model(), &QAbstractItemModel::dataChanged,
                     user.window.get(), [] { QTest::qSleep(40); });
    user.press("optAll");
    QCOMPARE(values, (QList<QVariantList>{{5000}, {10000}, {0}}));
    QCOMPARE(user.ticked().size(), 12000);
}

void TestAircraftLoaderPage::optionsShowTheListsAgain()
{
    UsualPage user;
    for (const char *option : {"optAll", "optClear"}) {
        user.press(option);
        for (const char *name : {"Tab0List2", "Tab0List3", "Tab0Label1", "Tab0Label2"}) {
            QVERIFY2(user.isShown(name), name);
        }
        QVERIFY(!user.isShown("Tab0Label9"));
        QVERIFY(!user.isShown("ProgressBar1"));
    }
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: 2"));
}

void TestAircraftLoaderPage::doubleClickOnAnExistingAircraftOpensTheTextFile()
{
    UsualPage user;
    user.doubleClickExisting(1);
    QCOMPARE(user.outside.processes.started,
             QStringList{"NOTEPAD.EXE C:\\TTools\\Aircraft_Set.txt"});
}

void TestAircraftLoaderPage::doubleClickDoesNothingWhileEditIsDisabled()
{
    UsualPage user;
    user.find<QPushButton>("cmdEdit")->setEnabled(false);
    user.doubleClickExisting(1);
    QCOMPARE(user.outside.processes.started, QStringList());
}

void TestAircraftLoaderPage::runTToolsRunsTheCompilerBesideTheTextFile()
{
    AircraftLoaderDriver user;
    user.writeTextFile(anyTextFile);
    user.sandbox.write("C:\\TTools\\TTools.exe", "MZ");
    user.start();
    user.press("cmdTtools");
    QCOMPARE(user.outside.processes.started, QStringList{"C:\\TTools\\TTools.exe"});
    QCOMPARE(user.outside.processes.windowStyles, QList<int>{1});
    QCOMPARE(user.messages(), QStringList());
}

void TestAircraftLoaderPage::quitAndHelpAreTold()
{
    AircraftLoaderDriver user;
    user.open();
    const QSignalSpy quit(user.window.get(), &AircraftLoaderPage::quitPressed);
    const QSignalSpy help(user.window.get(), &AircraftLoaderPage::helpWanted);
    user.press("cmdQuit");
    QCOMPARE(quit.count(), 1);
    QTest::mouseClick(user.find<QWidget>("Tab0Help"), Qt::LeftButton);
    QCOMPARE(help.count(), 1);
}

QTEST_MAIN(TestAircraftLoaderPage)
#include "test_aircraft_loader_page.moc"
