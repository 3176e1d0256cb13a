// SPDX-License-Identifier: MIT
// Choosing the aircraft directory and the aircraft text file, and editing the file.
#include "app/services/services.h"
#include "platform/controls/drive_list_box.h"
#include "platform/controls/file_list_box.h"
#include "tests/support/aircraft_loader_driver.h"
#include "tests/support/failure.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>

namespace
{

const QString prompt = QStringLiteral("Please select an Aircraft Text File");
const QString noTextFile = QStringLiteral(
    "Exclamation, FlightSim Directory Error: Please select an Aircraft Text file to edit!");
const QString noDirectory = QStringLiteral(
    "Exclamation, FlightSim Directory Error: Please select the Flight Simulator Directory!");
const QString question =
    QStringLiteral("Information, Edit Aircraft Text File: Have you made changes to the "
                   "C:\\TTools\\Aircraft_Set.txt file? ");

/// Directories of all three names, a text file and TTools.
struct ChoosingPage : AircraftLoaderDriver {
    ChoosingPage()
    {
        addAircraft("B734", {"Boeing"}, "477");
        sandbox.makeFolder("C:\\FSX\\Airplanes");
        sandbox.makeFolder("C:\\FSX\\Rotorcraft");
        sandbox.makeFolder("C:\\FSX\\Scenery");
        writeTextFile("AC#1,120,\"Not installed\"\r\n");
        sandbox.write("C:\\TTools\\TTools.exe", "MZ");
    }

    /// Opens the folder picker and goes down from the drive's root by double-clicks.
    void browseTo(const QStringList &folders) const
    {
        press("cmdBrowseFSPath");
        openFolder("C:\\");
        for (const QString &folder : folders) {
            openFolder(folder);
        }
    }

    bool asksForTextFile() const
    {
        const auto *const text = find<QLabel>("lblAircraftTextFile");
        return text->text() == prompt && text->font().bold() &&
               text->palette().color(QPalette::WindowText) == QColor(255, 0, 0);
    }

    bool showsTextFile(const QString &path) const
    {
        const auto *const text = find<QLabel>("lblAircraftTextFile");
        return text->text() == path && !text->font().bold() &&
               text->palette().color(QPalette::WindowText) ==
                   QApplication::palette().color(QPalette::WindowText);
    }
};

/// The same with both choices made.
struct ChosenPage : ChoosingPage {
    ChosenPage() { start(); }
};

/// A path of so many characters whose file name is a valid one.
QString pathOfLength(qsizetype length)
{
    const QString start = "C:\\";
    const QString end = "\\aircraft.txt";
    return start + QString(length - start.size() - end.size(), 'x') + end;
}

} // namespace

class TestChoosingFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void browsingShowsThePickerInPlaceOfTheAvailableList();
    void browsingShowsTheDriveOfTheOpenFolder();
    void nothingIsListedOrAddedWhileThePickerIsOpen();
    void escapeClosesThePickerAndChangesNothing();
    void escapeForgetsADirectoryThatIsGoneMeanwhile();
    void listsThatAreLoadedCloseThePicker();
    void doubleClickIntoAFolderNamedAircraftClosesThePickerAndShowsThePath();
    void doubleClickIntoAnyOtherFolderKeepsThePickerOpen();
    void folderIsOpenedByEnterToo();
    void oneClickOpensNothing();
    void everyFolderEndingInOneOfTheWordsIsAccepted_data();
    void everyFolderEndingInOneOfTheWordsIsAccepted();
    void acceptedDirectoryIsShownAndTold();
    void otherDirectoryChangesNothingButHidesTheList();
    void everyChoiceOfADirectoryAsksForTheTextFileAgain();
    void directoryThatCannotBeOpenedIsReported();
    void directoryFromElsewhereIsShownAndNotTold();
    void directoryThatIsShownAlreadyKeepsTheTextFile();
    void directoryThatIsGoneIsShownAndRefused();
    void directoryIsAskedForWhileThereIsNone();
    void driveChangePointsThePickerAtTheDrive();
    void driveThatIsNotReadyIsReported();
    void closeButtonAcceptsAnAircraftFolder();
    void closeButtonRejectsAirplanesThatADoubleClickAccepts_data();
    void closeButtonRejectsAirplanesThatADoubleClickAccepts();
    void closeButtonRejectsAnyOtherFolder();
    void simulatorVersionDecidesWhichTextFilesAreOffered();
    void simulatorVersionIsTold();
    void clickOnTheVersionChosenDoesNothing();
    void dialogStartsInTheFolderOfTheFileInUse();
    void chosenTextFileFillsTheLists();
    void textFileIsAskedForWhileThereIsNone();
    void chosenPathOf50CharactersIsShownWholeOf51Shortened();
    void restoredPathOf60CharactersIsShownWholeOf61Shortened();
    void textFileWithoutADirectoryWaitsForIt();
    void textFileWithoutADirectoryForgetsTheCompilerOfTheOneBefore();
    void folderNamedAircraftMakesAnyFileValid();
    void cancellingTheDialogAsksForATextFile();
    void fileOfAnotherNameIsRefused_data();
    void fileOfAnotherNameIsRefused();
    void refusalForgetsTheFileChosenBefore();
    void everyChangeOfTheTextFileIsTold();
    void tToolsIsEnabledOnlyWhenItStandsBesideTheTextFile();
    void editIsEnabledEvenWhenTheListsCouldNotBeFilled();
    void editOpensNotepadAndAsks();
    void answeringYesReloadsTheLists();
    void answeringNoLeavesTheLists();
    void notepadThatDoesNotStartIsReportedAndTheQuestionStillAsked();
    void programQuittingMeanwhileAsksNothing();
    void textFileDeletedWhileEditingIsReported();
};

void TestChoosingFiles::browsingShowsThePickerInPlaceOfTheAvailableList()
{
    ChosenPage user;
    QVERIFY(!user.isShown("frmDriveDialog"));
    user.press("cmdBrowseFSPath");
    QVERIFY(user.isShown("frmDriveDialog"));
    QVERIFY(user.isShown("Drive1"));
    QVERIFY(user.isShown("Command1"));
    QVERIFY(!user.isShown("Tab0List2"));
    QVERIFY(user.isShown("Tab0List3"));
    QCOMPARE(user.focus(), QString("Dir1"));
}

void TestChoosingFiles::browsingShowsTheDriveOfTheOpenFolder()
{
    ChoosingPage user;
    user.sandbox.addDrive('d', "C:\\FSX");
    user.open();
    QCOMPARE(user.find<DriveListBox>("Drive1")->drive(), QString("c:"));
    user.window->showDirectory("D:\\Airplanes");
    user.press("cmdBrowseFSPath");
    QCOMPARE(user.find<DriveListBox>("Drive1")->drive(), QString("d:"));
    QCOMPARE(user.find<DirListBox>("Dir1")->path(), QString("D:\\Airplanes"));
}

void TestChoosingFiles::nothingIsListedOrAddedWhileThePickerIsOpen()
{
    ChosenPage user;
    user.tick(0);
    const QStringList buttons = {"cmdBrowseText", "cmdEdit", "optAll", "optClear", "cmdAddAI"};
    user.press("cmdBrowseFSPath");
    user.press("cmdBrowseFSPath"); // open already
    for (const QString &name : buttons) {
        QVERIFY2(!user.isEnabled(name), qPrintable(name));
    }
    user.press("Command1");
    for (const QString &name : buttons) {
        QVERIFY2(user.isEnabled(name), qPrintable(name));
    }
    user.press("optClear");
    user.press("cmdBrowseFSPath");
    user.openFolder("C:\\");
    user.press("Command1"); // refused
    QVERIFY(user.isEnabled("cmdBrowseText"));
    QVERIFY(!user.isEnabled("cmdAddAI"));
    QVERIFY(!user.isEnabled("cmdEdit"));
}

void TestChoosingFiles::escapeClosesThePickerAndChangesNothing()
{
    ChosenPage user;
    user.tick(0);
    user.browseTo({"FSX", "Scenery"});
    user.pressKey("Dir1", Qt::Key_Escape);
    QVERIFY(!user.isShown("frmDriveDialog"));
    QVERIFY(user.isShown("Tab0List2"));
    QCOMPARE(user.label("lblFSPath"), QString("C:\\FS9\\Aircraft"));
    QCOMPARE(user.find<DirListBox>("Dir1")->path(), QString("C:\\FS9\\Aircraft"));
    QVERIFY(user.showsTextFile(AircraftLoaderDriver::textFile));
    QCOMPARE(user.ticked(), QStringList{"Boeing 477"});
    QVERIFY(user.isEnabled("cmdAddAI"));
    QCOMPARE(user.messages(), QStringList());
    QCOMPARE(user.focus(), QString("cmdBrowseFSPath"));

    ChoosingPage first;
    first.open();
    first.press("cmdBrowseFSPath");
    first.pressKey("Drive1", Qt::Key_Escape);
    QVERIFY(!first.isShown("frmDriveDialog"));
    QVERIFY(first.isShown("noDirectoryLabel"));
    QCOMPARE(first.messages(), QStringList());
}

void TestChoosingFiles::escapeForgetsADirectoryThatIsGoneMeanwhile()
{
    ChosenPage user;
    user.browseTo({"FSX"});
    QVERIFY(QDir(user.sandbox.host("C:\\FS9")).removeRecursively());
    user.pressKey("Dir1", Qt::Key_Escape);
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, FlightSim Directory Error: Error  76 Path not found"
                         "\rSet path to C:\\FS9\\Aircraft"});
    QCOMPARE(user.label("lblFSPath"), QString());
    QVERIFY(user.isShown("noDirectoryLabel"));
    QVERIFY(!user.isShown("frmDriveDialog"));
    QCOMPARE(user.available(), QStringList());
    QVERIFY(!user.isEnabled("cmdEdit"));
}

void TestChoosingFiles::listsThatAreLoadedCloseThePicker()
{
    ChosenPage user;
    user.tick(0);
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    user.outside.processes.whileRunning = [&] { user.browseTo({"FSX", "Scenery"}); };
    user.press("cmdEdit");
    QVERIFY(!user.isShown("frmDriveDialog"));
    QVERIFY(user.isShown("Tab0List2"));
    QCOMPARE(user.available(), QStringList{"Boeing 477"}); // of the directory that is shown
    QVERIFY(!user.isEnabled("cmdAddAI"));
    QVERIFY(user.isEnabled("cmdEdit"));

    user.press("cmdBrowseFSPath");
    user.window->forgetFile(AircraftLoaderDriver::textFile);
    QVERIFY(!user.isShown("frmDriveDialog"));
    QVERIFY(!user.isEnabled("cmdEdit"));
}

void TestChoosingFiles::doubleClickIntoAFolderNamedAircraftClosesThePickerAndShowsThePath()
{
    ChoosingPage user;
    user.open();
    user.browseTo({"FS9", "Aircraft"});
    QVERIFY(!user.isShown("frmDriveDialog"));
    QVERIFY(user.isShown("Tab0List2"));
    QCOMPARE(user.label("lblFSPath"), QString("C:\\FS9\\Aircraft"));
    QVERIFY(user.asksForTextFile());
    QCOMPARE(user.messages(), QStringList());
}

void TestChoosingFiles::doubleClickIntoAnyOtherFolderKeepsThePickerOpen()
{
    ChoosingPage user;
    user.open();
    user.browseTo({"FSX", "Scenery"});
    QCOMPARE(user.find<DirListBox>("Dir1")->path(), QString("C:\\FSX\\Scenery"));
    QVERIFY(user.isShown("frmDriveDialog"));
    QVERIFY(!user.isShown("Tab0List2"));
    QCOMPARE(user.label("lblFSPath"), QString());
}

void TestChoosingFiles::folderIsOpenedByEnterToo()
{
    ChoosingPage user;
    user.open();
    user.browseTo({"FS9"});
    user.pressKey("Dir1", Qt::Key_Down); // from the open folder to the one within
    user.pressKey("Dir1", Qt::Key_Return);
    QVERIFY(!user.isShown("frmDriveDialog"));
    QCOMPARE(user.label("lblFSPath"), QString("C:\\FS9\\Aircraft"));
}

void TestChoosingFiles::oneClickOpensNothing()
{
    ChoosingPage user;
    user.open();
    user.browseTo({"FS9"});
    auto *const picker = user.find<DirListBox>("Dir1");
    const QModelIndex aircraft = picker->model()->index(2, 0);
    QCOMPARE(aircraft.data().toString(), QString("Aircraft"));
    QTest::mouseClick(picker->viewport(), Qt::LeftButton, {},
                      picker->visualRect(aircraft).center());
    QCOMPARE(picker->currentIndex(), aircraft);
    QCOMPARE(picker->path(), QString("C:\\FS9"));
    QVERIFY(user.isShown("frmDriveDialog"));
}

void TestChoosingFiles::everyFolderEndingInOneOfTheWordsIsAccepted_data()
{
    QTest::addColumn<QString>("directory");
    QTest::newRow("airplanes") << "C:\\FSX\\Airplanes";
    QTest::newRow("rotorcraft") << "C:\\FSX\\Rotorcraft";
    QTest::newRow("upper case") << "C:\\OLD\\AIRCRAFT";
    QTest::newRow("mixed case") << "C:\\Old\\AirPlanes";
    QTest::newRow("only the end counts") << "C:\\Old\\MyAircraft";
}

void TestChoosingFiles::everyFolderEndingInOneOfTheWordsIsAccepted()
{
    QFETCH(QString, directory);
    ChoosingPage user;
    user.sandbox.makeFolder(directory);
    user.open();
    user.browseTo(directory.mid(3).split('\\'));
    QCOMPARE(user.label("lblFSPath"), directory);
    QVERIFY(!user.isShown("frmDriveDialog"));
}

void TestChoosingFiles::acceptedDirectoryIsShownAndTold()
{
    ChoosingPage user;
    user.sandbox.write("C:\\FS9\\Aircraft\\aircraft.cfg", "");
    user.open();
    QSignalSpy chosen(user.window.get(), &AircraftLoaderPage::directoryChosen);
    user.browseTo({"FS9", "Aircraft"});
    QCOMPARE(user.window->shownDirectory(), QString("C:\\FS9\\Aircraft"));
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen[0][0].toString(), QString("C:\\FS9\\Aircraft"));
    QCOMPARE(user.find<FileListBox>("File1")->path(), QString("C:\\FS9\\Aircraft"));
    QVERIFY(!user.find<FileListBox>("File1")->currentIndex().isValid());
}

void TestChoosingFiles::otherDirectoryChangesNothingButHidesTheList()
{
    ChosenPage user;
    QSignalSpy chosen(user.window.get(), &AircraftLoaderPage::directoryChosen);
    user.browseTo({"FSX", "Scenery"});
    QVERIFY(!user.isShown("Tab0List2"));
    QCOMPARE(user.label("lblFSPath"), QString("C:\\FS9\\Aircraft"));
    QVERIFY(user.showsTextFile(AircraftLoaderDriver::textFile));
    QCOMPARE(user.available(), QStringList{"Boeing 477"});
    QCOMPARE(user.existing().size(), 1);
    QVERIFY(user.isEnabled("cmdTtools"));
    QCOMPARE(chosen.count(), 0);
}

void TestChoosingFiles::everyChoiceOfADirectoryAsksForTheTextFileAgain()
{
    ChosenPage user;
    for (const char *name : {"Airplanes", "Rotorcraft"}) {
        QVERIFY(user.showsTextFile(AircraftLoaderDriver::textFile));
        QVERIFY(user.isEnabled("cmdTtools"));
        QVERIFY(user.isEnabled("cmdEdit"));
        user.browseTo({"FSX", name});
        QVERIFY(user.asksForTextFile());
        QVERIFY(!user.isEnabled("cmdTtools"));
        QVERIFY(!user.isEnabled("cmdEdit"));
        QCOMPARE(user.available(), QStringList());
        QCOMPARE(user.existing(), QStringList());
        QCOMPARE(user.foldersWithData(), QStringList());
        QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: "));
        user.chooseTextFile(AircraftLoaderDriver::textFile);
    }
}

void TestChoosingFiles::directoryThatCannotBeOpenedIsReported()
{
    NEEDS(permissions);
    ChosenPage user;
    const OrdinaryUser rights(user.sandbox);
    QVERIFY(QFile::setPermissions(user.sandbox.host("C:\\FSX"), QFile::Permissions()));
    user.browseTo({"FSX"});
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, Directory Select Error: Error  75 Path/File access error"
                         "\rSet path to C:\\FSX"});
    QCOMPARE(user.find<DirListBox>("Dir1")->path(), QString("C:\\"));
    QVERIFY(user.isShown("frmDriveDialog"));
}

void TestChoosingFiles::directoryFromElsewhereIsShownAndNotTold()
{
    ChosenPage user;
    const QSignalSpy chosen(user.window.get(), &AircraftLoaderPage::directoryChosen);
    user.press("cmdBrowseFSPath");
    user.window->showDirectory("C:\\FSX\\Airplanes\\");
    QCOMPARE(user.label("lblFSPath"), QString("C:\\FSX\\Airplanes"));
    QCOMPARE(user.find<DirListBox>("Dir1")->path(), QString("C:\\FSX\\Airplanes"));
    QVERIFY(!user.isShown("frmDriveDialog"));
    QVERIFY(user.asksForTextFile());
    QVERIFY(!user.isEnabled("cmdTtools"));
    QVERIFY(!user.isEnabled("cmdEdit"));
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(chosen.count(), 0);
}

void TestChoosingFiles::directoryThatIsShownAlreadyKeepsTheTextFile()
{
    ChosenPage user;
    user.window->showDirectory("");
    user.window->showDirectory(AircraftLoaderDriver::aircraftDir);
    QCOMPARE(user.label("lblFSPath"), AircraftLoaderDriver::aircraftDir);
    QVERIFY(user.showsTextFile(AircraftLoaderDriver::textFile));
    QVERIFY(user.isEnabled("cmdEdit"));

    user.browseTo({"FSX"}); // the picker went elsewhere meanwhile
    user.window->showDirectory(AircraftLoaderDriver::aircraftDir);
    QVERIFY(user.asksForTextFile());
    QVERIFY(!user.isEnabled("cmdEdit"));
}

void TestChoosingFiles::directoryThatIsGoneIsShownAndRefused()
{
    ChosenPage user;
    QCOMPARE(failureOf([&] { user.window->showDirectory("C:\\Gone\\Aircraft"); }),
             QString("76 Path not found"));
    QCOMPARE(user.label("lblFSPath"), QString("C:\\Gone\\Aircraft"));
    QCOMPARE(user.find<DirListBox>("Dir1")->path(), AircraftLoaderDriver::aircraftDir);
}

void TestChoosingFiles::directoryIsAskedForWhileThereIsNone()
{
    ChoosingPage user;
    user.open();
    QCOMPARE(user.label("noDirectoryLabel"),
             QString("Please select your Flight Simulator Aircraft directory! --->"));
    QVERIFY(user.isShown("noDirectoryLabel"));
    user.browseTo({"FSX", "Airplanes"});
    QVERIFY(!user.isShown("noDirectoryLabel"));
    user.press("cmdBrowseFSPath");
    user.press("Command1"); // wants a folder named Aircraft
    QVERIFY(user.isShown("noDirectoryLabel"));
    user.window->showDirectory("C:\\FS9\\Aircraft");
    QVERIFY(!user.isShown("noDirectoryLabel"));
}

void TestChoosingFiles::driveChangePointsThePickerAtTheDrive()
{
    ChoosingPage user;
    user.sandbox.addDrive('d', "C:\\FSX");
    user.open();
    user.press("cmdBrowseFSPath");
    user.pressKey("Drive1", Qt::Key_Down);
    QCOMPARE(user.find<DriveListBox>("Drive1")->drive(), QString("d:"));
    QCOMPARE(user.find<DirListBox>("Dir1")->path(), QString("d:\\"));
    user.openFolder("Airplanes");
    QCOMPARE(user.label("lblFSPath"), QString("d:\\Airplanes"));
}

void TestChoosingFiles::driveThatIsNotReadyIsReported()
{
    ChoosingPage user;
    user.sandbox.addDrive('d', "C:\\FSX");
    user.open();
    QVERIFY(QDir(user.sandbox.host("C:\\FSX")).removeRecursively());
    user.press("cmdBrowseFSPath");
    user.pressKey("Drive1", Qt::Key_Down);
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, FlightSim Directory Error: Error  68 Device unavailable"
                         "\rSet path to d:"});
    QCOMPARE(user.find<DirListBox>("Dir1")->path(), QString("C:\\Morlen"));
    QCOMPARE(user.find<DriveListBox>("Drive1")->drive(), QString("c:"));
}

void TestChoosingFiles::closeButtonAcceptsAnAircraftFolder()
{
    ChosenPage user;
    user.window->showDirectory("");
    user.press("cmdBrowseFSPath");
    user.press("Command1");
    QCOMPARE(user.messages(), QStringList());
    QCOMPARE(user.label("lblFSPath"), QString("C:\\FS9\\Aircraft"));
    QVERIFY(!user.isShown("frmDriveDialog"));
    QVERIFY(user.isShown("Tab0List2"));
    QCOMPARE(user.available(), QStringList{"Boeing 477"});
    QVERIFY(user.isEnabled("cmdEdit"));
}

void TestChoosingFiles::closeButtonRejectsAirplanesThatADoubleClickAccepts_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("airplanes") << "Airplanes";
    QTest::newRow("rotorcraft") << "Rotorcraft";
}

void TestChoosingFiles::closeButtonRejectsAirplanesThatADoubleClickAccepts()
{
    QFETCH(QString, name);
    ChosenPage user;
    user.browseTo({"FSX", name});
    QCOMPARE(user.label("lblFSPath"), "C:\\FSX\\" + name);
    user.chooseTextFile(AircraftLoaderDriver::textFile);
    QCOMPARE(user.messages(), QStringList());
    QVERIFY(user.isEnabled("cmdEdit"));

    user.press("cmdBrowseFSPath");
    user.press("Command1");
    QCOMPARE(user.messages(), QStringList{noDirectory});
    QCOMPARE(user.label("lblFSPath"), QString());
    QVERIFY(!user.isShown("frmDriveDialog"));
    QVERIFY(user.isShown("Tab0List2"));
    QCOMPARE(user.existing(), QStringList());
    QVERIFY(!user.isEnabled("cmdEdit"));
}

void TestChoosingFiles::closeButtonRejectsAnyOtherFolder()
{
    ChosenPage user;
    user.browseTo({"FSX", "Scenery"});
    user.press("Command1");
    QCOMPARE(user.messages(), QStringList{noDirectory});
    QCOMPARE(user.label("lblFSPath"), QString());
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(user.existing(), QStringList());
    QVERIFY(!user.isEnabled("cmdEdit"));
    QVERIFY(!user.isShown("frmDriveDialog"));
    QVERIFY(user.isShown("Tab0List2"));
}

void TestChoosingFiles::simulatorVersionDecidesWhichTextFilesAreOffered()
{
    ChoosingPage user;
    user.open();
    user.press("cmdBrowseText");
    user.press("opt2002");
    user.press("cmdBrowseText");
    user.press("opt2004");
    user.press("cmdBrowseText");
    QStringList filters;
    for (const OpenFileDialog &dialog : user.outside.dialogs.fileDialogs) {
        filters += dialog.filter;
    }
    QCOMPARE(filters, (QStringList{"Aircraft Text Files (aircraft*.txt)|aircraft*.txt|",
                                   "Aircraft Text Files (aircraft.txt)|aircraft.txt|",
                                   "Aircraft Text Files (aircraft*.txt)|aircraft*.txt|"}));
}

void TestChoosingFiles::simulatorVersionIsTold()
{
    ChoosingPage user;
    user.open();
    QStringList told;
    connect(user.window.get(), &AircraftLoaderPage::simulatorVersionChosen, this,
            [&] { told += user.services.state.FSType; });
    user.press("opt2002");
    QVERIFY(!user.isEnabled("lblTextFileSets"));
    user.press("opt2004");
    QVERIFY(user.isEnabled("lblTextFileSets"));
    QCOMPARE(told, (QStringList{"2002", "2004"}));
}

void TestChoosingFiles::clickOnTheVersionChosenDoesNothing()
{
    ChoosingPage user;
    user.open();
    const QSignalSpy chosen(user.window.get(), &AircraftLoaderPage::simulatorVersionChosen);
    user.press("opt2004");
    QCOMPARE(chosen.count(), 0);
    user.press("opt2002");
    user.press("opt2002");
    QCOMPARE(chosen.count(), 1);
}

void TestChoosingFiles::dialogStartsInTheFolderOfTheFileInUse()
{
    ChosenPage user;
    user.press("cmdBrowseText");
    user.press("cmdBrowseText"); // the first was cancelled: no file is in use
    QCOMPARE(user.outside.dialogs.fileDialogs.size(), 3);
    QCOMPARE(user.outside.dialogs.fileDialogs[0].startFolder, QString());
    QCOMPARE(user.outside.dialogs.fileDialogs[1].startFolder, QString("C:\\TTools"));
    QCOMPARE(user.outside.dialogs.fileDialogs[2].startFolder, QString());
}

void TestChoosingFiles::chosenTextFileFillsTheLists()
{
    ChoosingPage user;
    user.open();
    user.browseTo({"FS9", "Aircraft"});
    user.chooseTextFile(AircraftLoaderDriver::textFile);
    QVERIFY(user.showsTextFile(AircraftLoaderDriver::textFile));
    QCOMPARE(user.services.state.AircraftTextDir, AircraftLoaderDriver::textFile);
    QCOMPARE(user.available(), QStringList{"Boeing 477"});
    QCOMPARE(user.existing(), QStringList{"AC#1,120,\"Not installed\""});
    QVERIFY(user.isEnabled("cmdEdit"));
    QVERIFY(user.isEnabled("cmdTtools"));
    QCOMPARE(user.messages(), QStringList());
}

void TestChoosingFiles::textFileIsAskedForWhileThereIsNone()
{
    ChoosingPage user;
    user.open();
    QVERIFY(user.asksForTextFile());
    user.window->restoreTextFile("");
    QVERIFY(user.asksForTextFile());
    user.window->restoreTextFile(AircraftLoaderDriver::textFile);
    QVERIFY(user.showsTextFile(AircraftLoaderDriver::textFile));
    user.window->restoreTextFile("");
    QVERIFY(user.asksForTextFile());
}

void TestChoosingFiles::chosenPathOf50CharactersIsShownWholeOf51Shortened()
{
    ChosenPage user;
    for (const int length : {50, 51, 60}) {
        const QString path = pathOfLength(length);
        QCOMPARE(path.size(), length);
        user.sandbox.write(path, "");
        user.chooseTextFile(path);
        QVERIFY(user.showsTextFile(length == 50 ? path : "..." + path.last(50)));
        QCOMPARE(user.services.state.AircraftTextDir, path);
    }
    QCOMPARE(user.messages(), QStringList());
}

void TestChoosingFiles::restoredPathOf60CharactersIsShownWholeOf61Shortened()
{
    ChosenPage user;
    for (const int length : {51, 60, 61}) {
        const QString path = pathOfLength(length);
        user.sandbox.write(path, "");
        user.window->restoreTextFile(path);
        QVERIFY(user.showsTextFile(length < 61 ? path : "..." + path.last(60)));
        QCOMPARE(user.services.state.AircraftTextDir, path);
    }
    QCOMPARE(user.messages(), QStringList());
}

void TestChoosingFiles::textFileWithoutADirectoryWaitsForIt()
{
    ChoosingPage user;
    user.open();
    user.chooseTextFile(AircraftLoaderDriver::textFile);
    QVERIFY(user.showsTextFile(AircraftLoaderDriver::textFile));
    QCOMPARE(user.existing(), QStringList());
    QCOMPARE(user.messages(), QStringList());
    QVERIFY(!user.isEnabled("cmdEdit"));
    QVERIFY(!user.isEnabled("cmdTtools"));
}

void TestChoosingFiles::textFileWithoutADirectoryForgetsTheCompilerOfTheOneBefore()
{
    ChoosingPage user;
    user.start();
    QVERIFY(user.isEnabled("cmdTtools"));
    user.press("cmdBrowseFSPath");
    user.find<DirListBox>("Dir1")->setPath("C:\\TTools");
    user.press("Command1"); // refused: no aircraft directory is chosen any more
    QVERIFY(user.isEnabled("cmdTtools"));
    user.chooseTextFile(AircraftLoaderDriver::textFile);
    QVERIFY(!user.isEnabled("cmdTtools"));
}

void TestChoosingFiles::folderNamedAircraftMakesAnyFileValid()
{
    ChosenPage user;
    user.sandbox.write("C:\\Aircraft Sets\\mine.txt", "AC#1,120,\"Mine\"\r\n");
    user.chooseTextFile("C:\\Aircraft Sets\\mine.txt");
    QCOMPARE(user.existing(), QStringList{"AC#1,120,\"Mine\""});
    QCOMPARE(user.messages(), QStringList());
}

void TestChoosingFiles::cancellingTheDialogAsksForATextFile()
{
    ChosenPage user;
    user.chooseTextFile("");
    QCOMPARE(user.messages(), QStringList{noTextFile});
    QVERIFY(user.asksForTextFile());
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(user.existing(), QStringList());
    QVERIFY(!user.isEnabled("cmdTtools"));
    QVERIFY(!user.isEnabled("cmdEdit"));
    QCOMPARE(user.services.state.AircraftTextDir, QString());
    QCOMPARE(user.label("lblFSPath"), QString("C:\\FS9\\Aircraft"));
}

void TestChoosingFiles::fileOfAnotherNameIsRefused_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("another word") << "C:\\TTools\\planes.txt";
    QTest::newRow("word not at the beginning") << "C:\\TTools\\MyAircraft.txt";
    QTest::newRow("no folder") << "aircraft.txt";
}

void TestChoosingFiles::fileOfAnotherNameIsRefused()
{
    QFETCH(QString, path);
    ChosenPage user;
    user.sandbox.write("C:\\TTools\\" + path.section('\\', -1), "AC#1,120,\"Other\"\r\n");
    user.chooseTextFile(path);
    QCOMPARE(user.messages(), QStringList{noTextFile});
    QVERIFY(user.asksForTextFile());
    QCOMPARE(user.existing(), QStringList());
    QVERIFY(!user.isEnabled("cmdTtools"));
    QVERIFY(!user.isEnabled("cmdEdit"));
}

void TestChoosingFiles::refusalForgetsTheFileChosenBefore()
{
    ChosenPage user;
    user.chooseTextFile("C:\\TTools\\planes.txt");
    QCOMPARE(user.services.state.AircraftTextDir, QString());
}

void TestChoosingFiles::everyChangeOfTheTextFileIsTold()
{
    ChosenPage user;
    const QString other = "C:\\TTools\\Aircraft_Other.txt";
    user.sandbox.write(other, "");
    QStringList told;
    connect(user.window.get(), &AircraftLoaderPage::textFileChanged, this,
            [&](const QString &path) {
                QCOMPARE(user.services.state.AircraftTextDir, path);
                told += path;
            });
    user.chooseTextFile(other);
    user.window->takeFileOfSet(AircraftLoaderDriver::textFile);
    user.window->forgetFile(other); // is not the one in use
    user.window->forgetFile(AircraftLoaderDriver::textFile.toUpper());
    user.window->restoreTextFile(other);
    user.chooseTextFile(""); // cancelled
    QCOMPARE(told, (QStringList{other, AircraftLoaderDriver::textFile, "", other, ""}));
}

void TestChoosingFiles::tToolsIsEnabledOnlyWhenItStandsBesideTheTextFile()
{
    ChosenPage user;
    QVERIFY(user.isEnabled("cmdTtools"));
    user.sandbox.write("C:\\Elsewhere\\Aircraft_1.txt", "");
    user.chooseTextFile("C:\\Elsewhere\\Aircraft_1.txt");
    QVERIFY(!user.isEnabled("cmdTtools"));
    QVERIFY(user.isEnabled("cmdEdit"));
}

void TestChoosingFiles::editIsEnabledEvenWhenTheListsCouldNotBeFilled()
{
    ChoosingPage user;
    user.writeTextFile("AC#99999,120,\"Too many\"\r\n");
    user.start();
    QCOMPARE(user.messages(), QStringList{"Exclamation, LoadList Error: Error  6 Overflow"
                                          "\rOpen C:\\TTools\\Aircraft_Set.txt"});
    QVERIFY(user.isEnabled("cmdEdit")); // Notepad is where the line can be mended
}

void TestChoosingFiles::editOpensNotepadAndAsks()
{
    ChosenPage user;
    QString step;
    user.outside.processes.whileRunning = [&] { step = user.services.state.ErrMsg; };
    user.press("cmdEdit");
    QCOMPARE(user.outside.processes.started,
             QStringList{"NOTEPAD.EXE C:\\TTools\\Aircraft_Set.txt"});
    QCOMPARE(user.outside.processes.windowStyles, QList<int>{1});
    QCOMPARE(step, QString("Command Edit Shelling Notepad"));
    QCOMPARE(user.outside.dialogs.boxes.size(), 1);
    const MessageBox box = user.outside.dialogs.boxes[0];
    QCOMPARE(box.buttons, MessageBox::Buttons::YesNo);
    QCOMPARE(box.defaultButton, MessageBox::Answer::No);
    QCOMPARE(user.messages(), QStringList{question});
}

void TestChoosingFiles::answeringYesReloadsTheLists()
{
    ChosenPage user;
    user.tick(0);
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    user.outside.processes.whileRunning = [&] {
        user.writeTextFile("AC#1,477,\"Other\"\r\nAC#2,477,\"Boeing\"\r\n");
    };
    user.press("cmdEdit");
    QCOMPARE(user.existing(), (QStringList{"AC#1,477,\"Other\"", "AC#2,477,\"Boeing\""}));
    QCOMPARE(user.available(), QStringList{"All Available Aircraft have been used"});
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestChoosingFiles::answeringNoLeavesTheLists()
{
    ChosenPage user;
    user.tick(0);
    user.outside.dialogs.answers = {MessageBox::Answer::No};
    user.outside.processes.whileRunning = [&] { user.writeTextFile(""); };
    user.press("cmdEdit");
    QCOMPARE(user.existing(), QStringList{"AC#1,120,\"Not installed\""});
    QCOMPARE(user.ticked(), QStringList{"Boeing 477"});
    QVERIFY(user.isEnabled("cmdAddAI"));
}

void TestChoosingFiles::notepadThatDoesNotStartIsReportedAndTheQuestionStillAsked()
{
    ChosenPage user;
    user.outside.processes.failure = RuntimeError(ErrorNumber::FileNotFound);
    user.press("cmdEdit");
    QCOMPARE(user.messages(),
             (QStringList{"Critical, ShellandWait Error: Error Handled. See log.", question}));
}

void TestChoosingFiles::programQuittingMeanwhileAsksNothing()
{
    ChosenPage user;
    user.outside.processes.exitCodes = {259};
    user.outside.processes.whileRunning = [&] { user.services.state.ended = true; };
    user.press("cmdEdit");
    QCOMPARE(user.messages(), QStringList());
}

void TestChoosingFiles::textFileDeletedWhileEditingIsReported()
{
    ChosenPage user;
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    user.outside.processes.whileRunning = [&] {
        QFile::remove(user.sandbox.host(AircraftLoaderDriver::textFile));
    };
    user.press("cmdEdit");
    QCOMPARE(user.messages(),
             (QStringList{question, "Exclamation, LoadList Error: Error  53 File not found"
                                    "\rOpen C:\\TTools\\Aircraft_Set.txt"}));
    QCOMPARE(user.existing(), QStringList());
    QCOMPARE(user.available(), QStringList());
}

QTEST_MAIN(TestChoosingFiles)
#include "test_choosing_files.moc"
