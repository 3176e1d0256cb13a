// SPDX-License-Identifier: MIT
// Adding the ticked aircraft to the aircraft text file.
#include "app/services/services.h"
#include "tests/support/aircraft_loader_driver.h"
#include "tests/support/failing_calls.h"
#include "tests/support/host.h"

#include <QDir>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <cerrno>
#include <functional>

namespace
{

const QString backup1 = AircraftLoaderDriver::textFile + ".Backup1";
const QString backup2 = AircraftLoaderDriver::textFile + ".Backup2";
const QString allDone = QStringLiteral("Information, Add AI: All Done!  AI Aircraft Added");
const QString appendStep = QStringLiteral("Open C:\\TTools\\Aircraft_Set.txt for Append");
const QByteArray comment = "//AI Aircraft Added Sunday, November 01, 2026 14:03:27\r\n";
const QByteArray notInstalled = "AC#9,120,\"Not installed\"\r\n";

/// A megabyte of comments: a limit of its size is out of the way of everything else a test writes.
QByteArray longFile()
{
    return QByteArray("; an earlier line of the file\r\n").repeated(33'000);
}

/// Four titles of one aircraft, none of them used, and a text file with TTools beside it.
struct AddingPage : AircraftLoaderDriver {
    explicit AddingPage(const QByteArray &existingLines = notInstalled)
    {
        addAircraft("B734", {"Alpha", "Bravo", "Charlie", "Delta"}, "477");
        writeTextFile(existingLines);
        sandbox.write("C:\\TTools\\TTools.exe", "MZ");
        start();
    }

    void add(std::initializer_list<int> entries) const
    {
        for (const int entry : entries) {
            tick(entry);
        }
        press("cmdAddAI");
    }
};

} // namespace

class TestAddingAircraft : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void cleanup() { failing_calls::syncFails = nullptr; }

    void threeAircraftAfterNumber9Are10To12InListOrderBelowOneComment();
    void addingToAnEmptyFileStartsAt1AndMakesNoBackup();
    void numberFollowsTheLastLineNotTheLargest();
    void numberStartsAgainWhenAnotherFileIsLoaded();
    void commentIsWrittenOncePerPress();
    void commentHoldsTheMomentOfAdding();
    void onlyTickedAircraftAreAdded();
    void checkAllAddsEverything();
    void nothingCheckedLeavesTheFileAndStillShowsTheMessage();
    void fileIsBackedUpBeforeAnythingIsWritten();
    void secondAdditionKeepsTwoGenerations();
    void listsAreRebuiltFromTheFile();
    void messageComesBeforeTheListsAreRebuilt();
    void focusGoesToQuit();
    void setBeingFilledGetsControlBack();
    void pageTellsThatAircraftWereAdded();
    void speedOfFiveFiguresIsWrittenWithTheValuesOfTheEntryBefore();
    void speedOfFiveFiguresFirstIsWrittenWithEmptyValues();
    void fiveFiguresInTheNextPressKnowNothingOfTheLastOne();
    void speedsOfOneToFourFiguresAreWritten();
    void lastLineWithoutALineEndIsCompletedFirst_data();
    void lastLineWithoutALineEndIsCompletedFirst();
    void existingBytesAreNeverRewritten();
    void titleBytesAreWrittenAsTheyAreInTheCfg();
    void readOnlyFileIsReportedAndLeftAlone();
    void fullDiskIsReported();
    void diskThatFillsUpHalfWayKeepsWhatWasAddedBefore();
    void whatFailedHalfWayIsTriedAgainWithoutWhatIsWritten();
    void additionIsSyncedOnceBeforeItIsToldDone();
    void diskThatDoesNotTakeItIsReported();
    void failureLeavesTicksAndFocusForAnotherTry();
    void numbersFollowTheFileAsItIsNow();
    void ticksOfWhatTheFileHoldsNowAreDropped();
    void fileThatCannotBeReadAnyMoreGetsNothing();
    void numberBeyond32767IsReported();
    void countBeyond32767IsReported();
    void fileDeletedMeanwhileIsReportedAndBegunAnew();
    void folderDeletedMeanwhileIsReported();
    void backupThatFailsIsReportedAndTheAircraftAreAdded();
    void everyStepIsTraced();
    void failureIsTraced();
};

void TestAddingAircraft::threeAircraftAfterNumber9Are10To12InListOrderBelowOneComment()
{
    AddingPage user;
    user.add({3, 0, 2});
    QCOMPARE(user.textFileBytes(), notInstalled + comment +
                                       "AC#10,477,\"Alpha\"\r\n"
                                       "AC#11,477,\"Charlie\"\r\n"
                                       "AC#12,477,\"Delta\"\r\n");
    QCOMPARE(user.messages(), QStringList{allDone});
}

void TestAddingAircraft::addingToAnEmptyFileStartsAt1AndMakesNoBackup()
{
    AddingPage user("");
    user.add({1});
    QCOMPARE(user.textFileBytes(), comment + "AC#1,477,\"Bravo\"\r\n");
    QVERIFY(!user.sandbox.exists(backup1));
}

void TestAddingAircraft::numberFollowsTheLastLineNotTheLargest()
{
    AddingPage user("AC#7,120,\"Seven\"\r\nAC#2,120,\"Two\"\r\n");
    user.add({0});
    QCOMPARE(user.textFileBytes(),
             "AC#7,120,\"Seven\"\r\nAC#2,120,\"Two\"\r\n" + comment + "AC#3,477,\"Alpha\"\r\n");
}

void TestAddingAircraft::numberStartsAgainWhenAnotherFileIsLoaded()
{
    AddingPage user("AC#5,120,\"Five\"\r\n");
    user.sandbox.write("C:\\TTools\\Aircraft_New.txt", "short\r\n");
    user.chooseTextFile("C:\\TTools\\Aircraft_New.txt");
    user.add({0});
    QCOMPARE(user.sandbox.read("C:\\TTools\\Aircraft_New.txt"),
             "short\r\n" + comment + "AC#1,477,\"Alpha\"\r\n");
    QCOMPARE(user.textFileBytes(), QByteArray("AC#5,120,\"Five\"\r\n"));
}

void TestAddingAircraft::commentIsWrittenOncePerPress()
{
    AddingPage user;
    user.add({0, 1});
    user.add({0, 1}); // the other two, which have moved up
    QCOMPARE(user.textFileBytes(), notInstalled + comment +
                                       "AC#10,477,\"Alpha\"\r\n"
                                       "AC#11,477,\"Bravo\"\r\n" +
                                       comment +
                                       "AC#12,477,\"Charlie\"\r\n"
                                       "AC#13,477,\"Delta\"\r\n");
}

void TestAddingAircraft::commentHoldsTheMomentOfAdding()
{
    AddingPage user("");
    user.outside.clock.time = QDateTime({2024, 2, 9}, {0, 5, 0});
    user.add({0});
    QCOMPARE(user.textFileBytes(),
             QByteArray("//AI Aircraft Added Friday, February 09, 2024 00:05:00\r\n"
                        "AC#1,477,\"Alpha\"\r\n"));
}

void TestAddingAircraft::onlyTickedAircraftAreAdded()
{
    AddingPage user("");
    user.tick(0);
    user.tick(1);
    user.tick(0); // unticked again
    user.clickEntry("Tab0List2", 3);
    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(), comment + "AC#1,477,\"Bravo\"\r\n");
}

void TestAddingAircraft::checkAllAddsEverything()
{
    AddingPage user("");
    user.press("optAll");
    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(), comment + "AC#1,477,\"Alpha\"\r\n"
                                             "AC#2,477,\"Bravo\"\r\n"
                                             "AC#3,477,\"Charlie\"\r\n"
                                             "AC#4,477,\"Delta\"\r\n");
    QCOMPARE(user.available(), QStringList{"All Available Aircraft have been used"});
}

void TestAddingAircraft::nothingCheckedLeavesTheFileAndStillShowsTheMessage()
{
    AddingPage user;
    user.find<QPushButton>("cmdAddAI")->setEnabled(true);
    user.press("cmdAddAI");
    QCOMPARE(user.messages(), QStringList{allDone});
    QCOMPARE(user.textFileBytes(), notInstalled);
    QCOMPARE(user.sandbox.read(backup1), notInstalled);
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAddingAircraft::fileIsBackedUpBeforeAnythingIsWritten()
{
    AddingPage user;
    user.add({0});
    QCOMPARE(user.sandbox.read(backup1), notInstalled);
    QVERIFY(!user.sandbox.exists(backup2));
}

void TestAddingAircraft::secondAdditionKeepsTwoGenerations()
{
    AddingPage user;
    user.add({0});
    const QByteArray afterFirst = user.textFileBytes();
    user.add({0});
    QCOMPARE(user.sandbox.read(backup1), afterFirst);
    QCOMPARE(user.sandbox.read(backup2), notInstalled);
}

void TestAddingAircraft::listsAreRebuiltFromTheFile()
{
    AddingPage user;
    user.add({1, 2});
    QCOMPARE(user.existing(), (QStringList{"AC#9,120,\"Not installed\"", "AC#10,477,\"Bravo\"",
                                           "AC#11,477,\"Charlie\""}));
    QCOMPARE(user.available(), (QStringList{"Alpha 477", "Delta 477"}));
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: 2"));
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft in Aircraft_Set.txt: 3"));
    QCOMPARE(user.ticked(), QStringList());
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAddingAircraft::messageComesBeforeTheListsAreRebuilt()
{
    AddingPage user;
    QByteArray written;
    qsizetype listed = 0;
    int current = -1;
    user.outside.dialogs.whileShown = [&] {
        written = user.textFileBytes();
        listed = user.available().size();
        current = user.find<ListBox>("Tab0List2")->listIndex();
    };
    user.add({0});
    QCOMPARE(written, notInstalled + comment + "AC#10,477,\"Alpha\"\r\n");
    QCOMPARE(listed, 4);
    QCOMPARE(current, 3); // the list has stepped through its entries
}

void TestAddingAircraft::focusGoesToQuit()
{
    AddingPage user;
    user.add({0});
    QCOMPARE(user.focus(), QString("cmdQuit"));
}

void TestAddingAircraft::setBeingFilledGetsControlBack()
{
    AddingPage user;
    user.set.reLoadNewPlan = true;
    QStringList availableThen;
    connect(user.window.get(), &AircraftLoaderPage::aircraftAdded, this,
            [&] { availableThen = user.available(); });
    user.add({0});
    QCOMPARE(availableThen, (QStringList{"Bravo 477", "Charlie 477", "Delta 477"}));
    QVERIFY(user.focus() != "cmdQuit");
}

void TestAddingAircraft::pageTellsThatAircraftWereAdded()
{
    AddingPage user;
    const QSignalSpy added(user.window.get(), &AircraftLoaderPage::aircraftAdded);
    user.add({0});
    QCOMPARE(added.count(), 1);
}

void TestAddingAircraft::speedOfFiveFiguresIsWrittenWithTheValuesOfTheEntryBefore()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    user.addAircraft("B", {"Rocket"}, "12345");
    user.addAircraft("C", {"Cessna"}, "120");
    user.writeTextFile("");
    user.start();
    user.press("optAll");
    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(), comment + "AC#1,454,\"Airbus\"\r\n"
                                             "AC#2,454,\"Airbus\"\r\n"
                                             "AC#3,120,\"Cessna\"\r\n");
}

void TestAddingAircraft::speedOfFiveFiguresFirstIsWrittenWithEmptyValues()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    user.addAircraft("B", {"Rocket"}, "12345");
    user.writeTextFile("");
    user.start();
    user.tick(1);
    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(), comment + "AC#1,,\"\"\r\n");
}

void TestAddingAircraft::fiveFiguresInTheNextPressKnowNothingOfTheLastOne()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"Airbus"}, "454");
    user.addAircraft("B", {"Rocket"}, "12345");
    user.writeTextFile("");
    user.start();
    user.tick(0);
    user.press("cmdAddAI");
    user.tick(0);
    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(),
             comment + "AC#1,454,\"Airbus\"\r\n" + comment + "AC#2,,\"\"\r\n");
}

void TestAddingAircraft::speedsOfOneToFourFiguresAreWritten()
{
    AircraftLoaderDriver user;
    user.addAircraft("A", {"One 1"}, "5");
    user.addAircraft("B", {"Two 2"}, "55");
    user.addAircraft("C", {"Three 3"}, "555");
    user.addAircraft("D", {"Four 4"}, "5555");
    user.writeTextFile("");
    user.start();
    user.press("optAll");
    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(), comment + "AC#1,5,\"One 1\"\r\n"
                                             "AC#2,55,\"Two 2\"\r\n"
                                             "AC#3,555,\"Three 3\"\r\n"
                                             "AC#4,5555,\"Four 4\"\r\n");
}

void TestAddingAircraft::lastLineWithoutALineEndIsCompletedFirst_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("completed");
    const QByteArray line = "AC#9,120,\"Not installed\"";
    QTest::newRow("no line end") << line << line + "\r\n";
    QTest::newRow("CR LF") << line + "\r\n" << line + "\r\n";
    QTest::newRow("LF") << line + "\n" << line + "\n";
    QTest::newRow("CR") << line + "\r" << line + "\r";
}

void TestAddingAircraft::lastLineWithoutALineEndIsCompletedFirst()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, completed);
    AddingPage user(before);
    user.add({0, 1});
    QCOMPARE(user.textFileBytes(),
             completed + comment + "AC#10,477,\"Alpha\"\r\nAC#11,477,\"Bravo\"\r\n");
    QCOMPARE(user.sandbox.read(backup1), before);
}

void TestAddingAircraft::existingBytesAreNeverRewritten()
{
    QByteArray before = ";odd \x81\x90\xFF bytes\n\r\r\n\t\r\n";
    before += QByteArrayLiteral("NUL \0 here\r\nAC#9,12,\"Z\"\r\n");
    AddingPage user(before);
    user.add({0});
    QCOMPARE(user.textFileBytes(), before + comment + "AC#10,477,\"Alpha\"\r\n");
}

void TestAddingAircraft::titleBytesAreWrittenAsTheyAreInTheCfg()
{
    const QByteArray accents = "Caf\xE9 \x80 \x81\x8D\x9F \"<b>\" & \xFF, #1";
    const QByteArray utf8 = "A\xC3\xA9roport";
    const QByteArray nul = QByteArrayLiteral("Bo\0eing");
    AircraftLoaderDriver user;
    user.addAircraft("A", {accents, utf8, nul}, "477");
    user.writeTextFile("");
    user.start();
    user.press("optAll");
    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(), comment + "AC#1,477,\"" + accents + "\"\r\nAC#2,477,\"" + utf8 +
                                       "\"\r\nAC#3,477,\"" + nul + "\"\r\n");
    QCOMPARE(user.available(), QStringList{"All Available Aircraft have been used"});
}

void TestAddingAircraft::readOnlyFileIsReportedAndLeftAlone()
{
    NEEDS(permissions);
    AddingPage user;
    user.tick(0);
    const OrdinaryUser rights(user.sandbox);
    QVERIFY(
        QFile::setPermissions(user.sandbox.host(AircraftLoaderDriver::textFile), QFile::ReadOwner));
    const QSignalSpy added(user.window.get(), &AircraftLoaderPage::aircraftAdded);
    user.press("cmdAddAI");
    QCOMPARE(user.messages(), QStringList{"Critical, Add AI Error: " + appendStep +
                                          "\rError  75 Path/File access error"});
    QCOMPARE(user.textFileBytes(), notInstalled);
    QCOMPARE(user.sandbox.read(backup1), notInstalled);
    QCOMPARE(added.count(), 0);
}

void TestAddingAircraft::fullDiskIsReported()
{
    NEEDS(sizeLimit);
    const QByteArray before = longFile();
    AddingPage user(before);
    {
        const FileSizeLimit limit(before.size());
        user.add({0});
    }
    QCOMPARE(user.messages(),
             QStringList{"Critical, Add AI Error: " + appendStep + "\rError  61 Disk full"});
    QCOMPARE(user.available().size(), 4);
    QCOMPARE(user.textFileBytes(), before);
}

void TestAddingAircraft::diskThatFillsUpHalfWayKeepsWhatWasAddedBefore()
{
    NEEDS(sizeLimit);
    const QByteArray before = longFile();
    const QByteArray first = comment + "AC#1,477,\"Alpha\"\r\n";
    AddingPage user(before);
    {
        const FileSizeLimit limit(before.size() + first.size() + 7); // 7 bytes into the second line
        user.add({0, 1, 2});
    }
    QCOMPARE(user.messages(),
             QStringList{"Critical, Add AI Error: " + appendStep + "\rError  61 Disk full"});
    QCOMPARE(user.textFileBytes(), before + first);
    QCOMPARE(user.sandbox.read(backup1), before);
}

void TestAddingAircraft::whatFailedHalfWayIsTriedAgainWithoutWhatIsWritten()
{
    NEEDS(sizeLimit);
    const QByteArray before = longFile();
    const QByteArray first = comment + "AC#1,477,\"Alpha\"\r\n";
    AddingPage user(before);
    {
        const FileSizeLimit limit(before.size() + first.size() + 7);
        user.add({0, 2, 3});
    }
    QCOMPARE(user.available(), (QStringList{"Bravo 477", "Charlie 477", "Delta 477"}));
    QCOMPARE(user.ticked(), (QStringList{"Charlie 477", "Delta 477"}));
    QCOMPARE(user.existing(), QStringList{"AC#1,477,\"Alpha\""});
    QCOMPARE(user.label("Tab0Label1"), QString("Available Aircraft: 3"));
    QCOMPARE(user.label("Tab0Label2"), QString("Existing AI Aircraft in Aircraft_Set.txt: 1"));
    QCOMPARE(user.find<ListBox>("Tab0List2")->listIndex(), 1); // the one that failed
    QVERIFY(user.isEnabled("cmdAddAI"));

    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(), before + first + comment +
                                       "AC#2,477,\"Charlie\"\r\n"
                                       "AC#3,477,\"Delta\"\r\n");
    QCOMPARE(user.available(), QStringList{"Bravo 477"});
}

void TestAddingAircraft::additionIsSyncedOnceBeforeItIsToldDone()
{
    NEEDS(failingCalls);
    AddingPage user("");
    int syncs = 0;
    int syncsThen = -1;
    failing_calls::syncFails = [&] {
        ++syncs;
        return false;
    };
    user.outside.dialogs.whileShown = [&] { syncsThen = syncs; };
    user.add({0, 1});
    QCOMPARE(syncsThen, 1);
    QCOMPARE(syncs, 1);
}

void TestAddingAircraft::diskThatDoesNotTakeItIsReported()
{
    NEEDS(failingCalls);
    AddingPage user("");
    failing_calls::syncFails = [] { return true; };
    const QSignalSpy added(user.window.get(), &AircraftLoaderPage::aircraftAdded);
    const QSignalSpy some(user.window.get(), &AircraftLoaderPage::aircraftAddedInPart);
    user.add({0, 2});
    QCOMPARE(user.messages(),
             QStringList{"Critical, Add AI Error: " + appendStep + "\rError  57 Device I/O error"});
    QCOMPARE(added.count(), 0);
    QCOMPARE(some.count(), 1);                                           // a set keeps them
    QCOMPARE(user.available(), (QStringList{"Bravo 477", "Delta 477"})); // the others are written
    QCOMPARE(user.existing().size(), 2);
    QCOMPARE(user.ticked(), QStringList());
    QVERIFY(!user.isEnabled("cmdAddAI"));
}

void TestAddingAircraft::failureLeavesTicksAndFocusForAnotherTry()
{
    NEEDS(permissions);
    AddingPage user;
    user.tick(1);
    const OrdinaryUser rights(user.sandbox);
    QVERIFY(
        QFile::setPermissions(user.sandbox.host(AircraftLoaderDriver::textFile), QFile::ReadOwner));
    const QSignalSpy added(user.window.get(), &AircraftLoaderPage::aircraftAdded);
    user.press("cmdAddAI");
    QCOMPARE(user.find<ListBox>("Tab0List2")->listIndex(), 1); // the one that failed
    QCOMPARE(user.ticked(), QStringList{"Bravo 477"});
    QVERIFY(user.isEnabled("cmdAddAI"));
    QCOMPARE(user.focus(), QString("cmdAddAI"));
    QCOMPARE(user.existing(), QStringList{"AC#9,120,\"Not installed\""});
}

void TestAddingAircraft::numbersFollowTheFileAsItIsNow()
{
    AddingPage user;
    user.tick(0);
    user.tick(2);
    user.writeTextFile(notInstalled + "AC#40,120,\"Edited\"\r\n"); // by an editor, meanwhile
    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(), notInstalled + "AC#40,120,\"Edited\"\r\n" + comment +
                                       "AC#41,477,\"Alpha\"\r\n"
                                       "AC#42,477,\"Charlie\"\r\n");
    QCOMPARE(user.messages(), QStringList{allDone});
}

void TestAddingAircraft::ticksOfWhatTheFileHoldsNowAreDropped()
{
    // Of "Boeing" and "Boeing Red" the matching takes the first for the title "Boeing".
    AircraftLoaderDriver user;
    user.addAircraft("B734", {"Boeing Red", "Boeing", "Airbus", "Cessna"}, "477");
    user.writeTextFile("AC#1,120,\"Removed since\"\r\nAC#2,477,\"Cessna\"\r\n");
    user.start();
    QCOMPARE(user.available(), (QStringList{"Boeing Red 477", "Boeing 477", "Airbus 477"}));
    user.tick(1);
    user.tick(2);
    const QByteArray now = "AC#6,477,\"Boeing\"\r\n";
    user.writeTextFile(now);
    QStringList available;
    QStringList existing;
    user.outside.dialogs.whileShown = [&] {
        available = user.available();
        existing = user.existing();
    };
    user.press("cmdAddAI");
    QCOMPARE(user.textFileBytes(), now + comment + "AC#7,477,\"Airbus\"\r\n");
    QCOMPARE(available, (QStringList{"Boeing 477", "Airbus 477", "Cessna 477"}));
    QCOMPARE(existing, QStringList{"AC#6,477,\"Boeing\""});
}

void TestAddingAircraft::fileThatCannotBeReadAnyMoreGetsNothing()
{
    AddingPage user;
    const QByteArray now = "AC#one,120,\"No number\"\r\n";
    user.tick(1);
    user.writeTextFile(now);
    user.press("cmdAddAI");
    QCOMPARE(user.messages(),
             QStringList{"Critical, Add AI Error: Open C:\\TTools\\Aircraft_Set.txt"
                         "\rError  13 Type mismatch"});
    QCOMPARE(user.textFileBytes(), now);
    QCOMPARE(user.ticked(), QStringList{"Bravo 477"});
}

void TestAddingAircraft::numberBeyond32767IsReported()
{
    AddingPage user("AC#32766,120,\"Not installed\"\r\n");
    user.add({0, 1});
    QCOMPARE(user.messages(),
             QStringList{"Critical, Add AI Error: Numbering Bravo\rError  6 Overflow"});
    QCOMPARE(user.textFileBytes(),
             "AC#32766,120,\"Not installed\"\r\n" + comment + "AC#32767,477,\"Alpha\"\r\n");
}

void TestAddingAircraft::countBeyond32767IsReported()
{
    const QByteArray before = QByteArray("AC#1,9,\"None\"\r\n").repeated(32767);
    AddingPage user(before);
    user.add({0});
    QCOMPARE(user.messages(),
             QStringList{"Critical, Add AI Error: Numbering Alpha\rError  6 Overflow"});
    QCOMPARE(user.textFileBytes(), before);
}

void TestAddingAircraft::fileDeletedMeanwhileIsReportedAndBegunAnew()
{
    AddingPage user;
    QVERIFY(QFile::remove(user.sandbox.host(AircraftLoaderDriver::textFile)));
    user.add({0});
    QCOMPARE(user.messages(), (QStringList{"Exclamation, Backup Error: Error  53 File not found"
                                           "\rOpen C:\\TTools\\Aircraft_Set.txt",
                                           allDone}));
    QCOMPARE(user.textFileBytes(), comment + "AC#10,477,\"Alpha\"\r\n");
    QCOMPARE(user.existing(), QStringList{"AC#10,477,\"Alpha\""});
}

void TestAddingAircraft::folderDeletedMeanwhileIsReported()
{
    AddingPage user;
    QVERIFY(QDir(user.sandbox.host("C:\\TTools")).removeRecursively());
    user.add({0});
    QCOMPARE(user.messages(),
             (QStringList{"Exclamation, Backup Error: Error  76 Path not found"
                          "\rOpen C:\\TTools\\Aircraft_Set.txt",
                          "Critical, Add AI Error: " + appendStep + "\rError  76 Path not found"}));
}

void TestAddingAircraft::backupThatFailsIsReportedAndTheAircraftAreAdded()
{
    AddingPage user;
    user.sandbox.makeFolder(backup1);
    user.add({0});
    QCOMPARE(user.messages(),
             (QStringList{"Exclamation, Backup Error: Error  75 Path/File access error"
                          "\rOpen C:\\TTools\\Aircraft_Set.txt.Backup1",
                          allDone}));
    QCOMPARE(user.textFileBytes(), notInstalled + comment + "AC#10,477,\"Alpha\"\r\n");
}

void TestAddingAircraft::everyStepIsTraced()
{
    AddingPage user;
    user.trace();
    user.add({0, 2});
    const QStringList steps = {"Backing up C:\\TTools\\Aircraft_Set.txt",
                               appendStep,
                               "Adding //AI Aircraft Added Sunday, November 01, 2026 14:03:27",
                               "Adding AC#10,477,\"Alpha\"",
                               "Adding AC#11,477,\"Charlie\"",
                               "All Done!  AI Aircraft Added"};
    QCOMPARE(user.traced().first(steps.size()), steps);
}

void TestAddingAircraft::failureIsTraced()
{
    NEEDS(sizeLimit);
    const QByteArray before = longFile();
    const QByteArray first = comment + "AC#1,477,\"Alpha\"\r\n";
    AddingPage user(before);
    user.trace();
    {
        const FileSizeLimit limit(before.size() + first.size() + 7);
        user.add({0, 1});
    }
    QCOMPARE(user.traced().sliced(2),
             (QStringList{"Adding //AI Aircraft Added Sunday, November 01, 2026 14:03:27",
                          "Adding AC#1,477,\"Alpha\"", "Error  61 Disk full - " + appendStep}));
}

QTEST_MAIN(TestAddingAircraft)
#include "test_adding_aircraft.moc"
