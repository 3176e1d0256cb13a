// SPDX-License-Identifier: MIT
// The airport text file on page 1: choosing it, appending to it, editing it.
#include "app/services/services.h"
#include "tests/support/airport_loader_driver.h"
#include "tests/support/failing_calls.h"
#include "tests/support/host.h"

#include <QDir>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace
{

const QByteArray header = "//Airports Added - Sunday, November 01, 2026 14:03:27\r\n";
const QByteArray hamburgLine = "EDDH,N53* 37.82',E09* 59.30',53         //Hamburg, , Germany\r\n";
const QByteArray germanLines =
    "EDDF,N50* 01.60',E08* 32.58',364        //Frankfurt am Main, , Germany\r\n" + hamburgLine +
    "EDDM,N48* 21.22',E11* 47.17',1487       //M\xFCnchen, , Germany\r\n";
const QByteArray kingstonLine = "MKJP,N17* 56.15',W76* 47.25',10         //Kingston, , Jamaica\r\n";
const QByteArray seattleLine =
    "KSEA,N47* 26.88',W122* 18.62',433       //Seattle, Washington, United States\r\n";
const QString seattle = QStringLiteral("KSEA - Seattle, Washington, United States");
const QString existingChoice = seattle + '/' + seattle;
const QString created =
    QStringLiteral("None, AI Aircraft Loader: C:\\TTools\\Airport_Set.txt Created "
                   "Successfully!\r\rDo you want to view the file?");
const QString openFailed = QStringLiteral("Exclamation, Create File Error: Error  ");
const QString editFailed = QStringLiteral("Exclamation, Edit Airport Error: Error  ");
const QString openStep = QStringLiteral("\rOpen C:\\TTools\\Airport_Set.txt");
const QString caution = QStringLiteral(
    "None, Airport Edit Caution: CAUTION!\r\rThese Airports may be used in existing FlightPlans.  "
    "Editing or Deleting \rAirports may cause FlightPlan or TTools compiler errors.  Use caution "
    "when\rwhen altering Airport entries.\r\rAre you sure you want to continue?");

/// The countries, and an airport text file, chosen.
struct FilePage : AirportLoaderDriver {
    explicit FilePage(const QByteArray &bytes = seattleLine)
    {
        writeTextFile(bytes);
        start();
        chooseTextFile();
    }

    void append(const QStringList &entries) const
    {
        for (const QString &entry : entries) {
            choose(entry);
        }
        press("Tab1cmdCreateFile");
    }

    /// Edits the file in Notepad until it holds these bytes.
    void edit(const QByteArray &bytes)
    {
        outside.dialogs.answers = {MessageBox::Answer::Yes};
        outside.processes.whileRunning = [this, bytes] { writeTextFile(bytes); };
        press("Tab1cmdEdit");
    }
};

QByteArray record(const QByteArray &country, const QByteArray &province, const QByteArray &icao)
{
    return country + '|' + province + "|Field|Town|" + icao + '|' + icao + ",N1,E1,1\r\n";
}

/// The line that such a record becomes.
QByteArray line(const QByteArray &country, const QByteArray &province, const QByteArray &icao)
{
    return (icao + ",N1,E1,1").leftJustified(35) + "     //Town, " + province + ", " + country +
           "\r\n";
}

/// A path of so many characters whose file name is a valid one.
QString pathOfLength(qsizetype length)
{
    const QString start = "C:\\";
    const QString end = "\\airport.txt";
    return start + QString(length - start.size() - end.size(), 'x') + end;
}

/// What the page looks like while its progress bar comes up, and when it goes again.
class ProgressWatch : public QObject
{
public:
    explicit ProgressWatch(const AirportLoaderDriver &user)
        : m_user(user), m_bar(user.find<QProgressBar>("Tab1ProgressBar1"))
    {
        m_bar->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show) {
            seen += QString("shown %1 of %2").arg(m_bar->value()).arg(m_bar->maximum());
            for (const QString name : {"Tab1cmdPrevious", "Tab1lblDragnDrop", "Tab1cmdReset"}) {
                if (m_user.isShown(name)) {
                    seen += name;
                }
            }
        } else if (event->type() == QEvent::Hide) {
            seen += "hidden";
        }
        return QObject::eventFilter(watched, event);
    }

    QStringList seen;

private:
    const AirportLoaderDriver &m_user;
    QProgressBar *m_bar;
};

} // namespace

class TestAirportFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Choosing the file.
    void dialogOffersAirportTextFiles();
    void reminderComesBeforeTheDialog();
    void chosenFileListsItsAirports();
    void choosingIsTraced();
    void chosenFileEnablesTheAvailableListAgain();
    void fileWithoutAirportsEnablesEditOnly();
    void commentsAndEmptyLinesAreNotListed();
    void linesShorterThan43CharactersGiveACodeWithNothingBehind();
    void entryOfMoreThan35CharactersReadsBackShifted();
    void pathOf50CharactersIsShownWholeOf51Shortened();
    void choosingAgainListsTheFileBeforeTheChoices();
    void cancelledDialogLeavesNoFileChosen();
    void fileThatCannotBeReadIsReported_data();
    void fileThatCannotBeReadIsReported();
    void fileThatMayNotBeReadIsReported();
    void failureIsTraced();

    // Appending to it.
    void addWithoutAFileIsRefused();
    void addAfterACancelledDialogIsRefused();
    void chosenAirportIsAppendedBelowOneHeader();
    void chosenCountryAppendsAllItsAirportsInAscendingOrder();
    void headerIsWrittenOncePerPressAndFirst();
    void headerHoldsTheMomentOfAdding();
    void onlyExistingAirportsAppendNothingAndStillReportSuccess();
    void sameIcaoChosenTwiceIsWrittenTwice();
    void airportThatTheFileHoldsIsWrittenAgain();
    void countryIsMatchedAsAPlainPrefix();
    void codeIsMatchedAnywhereInTheLine();
    void matchingIsCaseSensitive();
    void countryWithAHyphenAtPosition6IsTakenForAnExistingAirport();
    void entryOf35CharactersOrMoreIsNeverCut_data();
    void entryOf35CharactersOrMoreIsNeverCut();
    void choicesFromBeforeTheFileWasChosenAgainAreAppended();
    void lastLineWithoutALineEndIsCompletedFirst();
    void existingBytesAreNeverRewritten();
    void appendingIsTraced();
    void progressIsShownMeanwhile();
    void hiddenPreviousStaysHiddenAndTheHintStays();
    void questionHasNoAsItsDefault();
    void answeringYesShowsTheFileInNotepad();
    void questionComesBeforeThePageIsReset();
    void pageIsResetAfterwards();
    void nextBatchNeedsNoNewChoiceOfTheFile();
    void programQuittingWhileTheFileIsViewedResetsNothing();
    void setBeingFilledGetsControlBack();
    void pageTellsWhetherAirportsWereAdded();
    void nothingIsAddedTwiceWhileTheFileIsViewed();
    void whatIsBegunWhileTheFileIsViewedGoesOn();
    void missingMasterListIsReportedAndNothingWritten();
    void malformedLineIsReportedAndNothingWritten();
    void emptyMasterListWritesNothing();
    void readOnlyFileIsReportedAndLeftAlone();
    void fileDeletedMeanwhileIsBegunAnew();
    void folderDeletedMeanwhileIsReported();
    void fileThatIsAFolderIsReported();
    void fullDiskLeavesTheBytesThatWereThere_data();
    void fullDiskLeavesTheBytesThatWereThere();
    void linesThatDoNotReachTheDiskAreReported();
    void failureLeavesTheChoicesForAnotherTry();

    // Editing it.
    void editAsksFirst();
    void answeringNoLeavesListsFileAndTraceLogUntouched();
    void editWithoutAFileIsRefused();
    void editOpensNotepadAndListsTheAirportsAgain();
    void editIsTraced();
    void editLeavesTheHeadingAlone();
    void editGivesTheFocusToQuit();
    void reloadedAirportsAreAddedToTheHiddenLists();
    void editLeavesTheChoicesThatAreNotTakenBack();
    void shortLineThatWasDraggedOutTakesNoChoiceAlong();
    void deletingAllAirportsLeavesTheListEmpty();
    void shortLineAddedByHandIsListedAsItsCode();
    void fileDeletedWhileEditingIsReported();
    void notepadThatDoesNotStartIsReported();
    void programQuittingMeanwhileReloadsNothing();
    void quitIsTold();
    void quitReturnsToTheSetBeingFilled();
};

void TestAirportFile::dialogOffersAirportTextFiles()
{
    FilePage user;
    QCOMPARE(user.outside.dialogs.fileDialogs.size(), 1);
    QCOMPARE(user.outside.dialogs.fileDialogs[0].filter,
             QString("Airport Text Files (*.txt)|airport*.txt|"));
    QCOMPARE(user.outside.dialogs.fileDialogs[0].startFolder, QString());
}

void TestAirportFile::reminderComesBeforeTheDialog()
{
    AirportLoaderDriver user;
    user.start();
    qsizetype dialogsThen = -1;
    connect(user.window.get(), &AirportLoaderPage::reminderDue, this,
            [&] { dialogsThen = user.outside.dialogs.fileDialogs.size(); });
    user.chooseTextFile("");
    QCOMPARE(dialogsThen, -1); // it has been shown already
    user.services.state.ShowAddAirportHelp = true;
    user.chooseTextFile("");
    QCOMPARE(dialogsThen, 1);
    QCOMPARE(user.outside.dialogs.fileDialogs.size(), 2);
}

void TestAirportFile::chosenFileListsItsAirports()
{
    FilePage user(seattleLine + kingstonLine);
    QCOMPARE(user.toAdd(), (QStringList{seattle, "MKJP - Kingston, , Jamaica"}));
    QCOMPARE(user.items("Tab1lstAICO"), user.toAdd());
    QCOMPARE(user.items("Tab1lstCountry"), user.toAdd());
    QVERIFY(user.showsTextFile(AirportLoaderDriver::textFile));
    QVERIFY(user.isEnabled("Tab1cmdEdit"));
    QVERIFY(user.isEnabled("Tab1cmdReset"));
    QVERIFY(!user.isEnabled("Tab1cmdCreateFile"));
    QVERIFY(user.isShown("Tab1lblDragnDrop"));
    QCOMPARE(user.label("lblT1Airport"), QString("Existing Airports: 2"));
    QCOMPARE(user.messages(), QStringList());
}

void TestAirportFile::choosingIsTraced()
{
    AirportLoaderDriver user;
    user.writeTextFile(seattleLine);
    user.start();
    user.trace();
    user.chooseTextFile();
    user.chooseTextFile("");
    QCOMPARE(user.traced(), (QStringList{"Selecting Airport Text File C:\\TTools\\Airport_Set.txt",
                                         "Selecting Airport Text File "}));
}

void TestAirportFile::chosenFileEnablesTheAvailableListAgain()
{
    FilePage user;
    user.press("Tab1cmdReset");
    QVERIFY(!user.isEnabled("Tab1List1"));
    QVERIFY(!user.isShown("Tab1lblDragnDrop"));
    user.chooseTextFile();
    QVERIFY(user.isEnabled("Tab1List1"));
    QVERIFY(user.isShown("Tab1lblDragnDrop"));
}

void TestAirportFile::fileWithoutAirportsEnablesEditOnly()
{
    FilePage user("");
    QCOMPARE(user.toAdd(), QStringList());
    QVERIFY(user.isEnabled("Tab1cmdEdit"));
    QVERIFY(!user.isEnabled("Tab1cmdReset"));
    QCOMPARE(user.label("lblT1Airport"), QString("Airports to Add"));
}

void TestAirportFile::commentsAndEmptyLinesAreNotListed()
{
    FilePage user("//comment\r\n\r\n \r\n" + seattleLine + "/x\n //y\r" + "EDDH");
    QCOMPARE(user.toAdd(), (QStringList{"  - ", seattle, "/x - ", " //y - ", "EDDH - "}));
}

void TestAirportFile::linesShorterThan43CharactersGiveACodeWithNothingBehind()
{
    FilePage user("EDDH\r\n" + QByteArray("EDDF,").leftJustified(42, 'x') + "\r\n" +
                  QByteArray("EDDM,").leftJustified(43, 'x') + "\r\nAB\r\n");
    QCOMPARE(user.toAdd(), (QStringList{"EDDH - ", "EDDF - ", "EDDM - x", "AB - "}));
}

void TestAirportFile::entryOfMoreThan35CharactersReadsBackShifted()
{
    const QByteArray entry = QByteArray("FTTJ,").leftJustified(38, '1');
    AirportLoaderDriver user;
    user.writeMasterList("Chad||Field|Town|FTTJ|" + entry + "\r\n");
    user.writeTextFile("");
    user.start();
    user.chooseTextFile();
    user.choose("Chad");
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(), header + entry + "     //Town, , Chad\r\n");
    user.chooseTextFile();
    QCOMPARE(user.toAdd(), QStringList{"FTTJ -  //Town, , Chad"});
}

void TestAirportFile::pathOf50CharactersIsShownWholeOf51Shortened()
{
    AirportLoaderDriver user;
    user.start();
    user.sandbox.write(pathOfLength(50), seattleLine);
    user.sandbox.write(pathOfLength(51), seattleLine);
    user.chooseTextFile(pathOfLength(50));
    QVERIFY(user.showsTextFile(pathOfLength(50)));
    user.chooseTextFile(pathOfLength(51));
    QVERIFY(user.showsTextFile("..." + pathOfLength(51).sliced(1)));
}

void TestAirportFile::choosingAgainListsTheFileBeforeTheChoices()
{
    FilePage user;
    user.descend("Germany");
    user.press("Tab1optICAO"); // whose entries look like the file's
    user.choose("EDDH - Hamburg Airport, Hamburg");
    user.press("Tab1cmdPrevious");
    user.choose("Jamaica");
    const QStringList chosen = {"EDDH - Hamburg Airport, Hamburg", "Jamaica"};
    user.writeTextFile(kingstonLine + seattleLine);
    user.chooseTextFile();
    QCOMPARE(user.toAdd(), QStringList({"MKJP - Kingston, , Jamaica", seattle}) + chosen);
    QCOMPARE(user.choices().mid(3), (QStringList{"EDDH/Germany", "Jamaica/Jamaica"}));
    QCOMPARE(user.label("lblT1Airport"), QString("Existing Airports: 4"));
    user.chooseTextFile("C:\\TTools\\Airport_Gone.txt");
    QCOMPARE(user.toAdd(), chosen);
    user.chooseTextFile();
    QCOMPARE(user.toAdd(), QStringList({"MKJP - Kingston, , Jamaica", seattle}) + chosen);
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(),
             kingstonLine + seattleLine + header + hamburgLine + kingstonLine);
}

void TestAirportFile::cancelledDialogLeavesNoFileChosen()
{
    FilePage user;
    user.chooseTextFile("");
    QVERIFY(user.asksForTextFile());
    QVERIFY(!user.isEnabled("Tab1cmdEdit"));
    QCOMPARE(user.toAdd(), QStringList{seattle}); // what needs a file is skipped
    QCOMPARE(user.choices(), QStringList{existingChoice});
    QCOMPARE(user.label("lblT1Airport"), QString("Existing Airports: 1"));
    QCOMPARE(user.messages(), QStringList());
}

void TestAirportFile::fileThatCannotBeReadIsReported_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no such file") << "C:\\TTools\\Airport.txt"
                                  << "53 File not found";
    QTest::newRow("no such folder") << "C:\\Gone\\Airport.txt"
                                    << "76 Path not found";
    QTest::newRow("a folder") << "C:\\TTools\\Airports"
                              << "75 Path/File access error";
}

void TestAirportFile::fileThatCannotBeReadIsReported()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    FilePage user;
    user.sandbox.makeFolder("C:\\TTools\\Airports");
    user.chooseTextFile(path);
    QCOMPARE(user.messages(), QStringList{openFailed + reason + "\rOpen " + path});
    QCOMPARE(user.toAdd(), QStringList());
}

void TestAirportFile::fileThatMayNotBeReadIsReported()
{
    NEEDS(permissions);
    FilePage user;
    const OrdinaryUser rights(user.sandbox);
    QVERIFY(
        QFile::setPermissions(user.sandbox.host(AirportLoaderDriver::textFile), QFile::WriteOwner));
    user.chooseTextFile();
    QCOMPARE(user.messages(), QStringList{openFailed + "75 Path/File access error" + openStep});
}

void TestAirportFile::failureIsTraced()
{
    AirportLoaderDriver user;
    user.start();
    user.sandbox.makeFolder("C:\\TTools");
    user.trace();
    user.chooseTextFile();
    QCOMPARE(user.traced(),
             (QStringList{"Selecting Airport Text File C:\\TTools\\Airport_Set.txt",
                          "Error  53 File not found - Open C:\\TTools\\Airport_Set.txt"}));
}

void TestAirportFile::addWithoutAFileIsRefused()
{
    AirportLoaderDriver user;
    user.start();
    user.choose("Germany");
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.outside.dialogs.boxes[0].buttons, MessageBox::Buttons::Ok);
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, Morlen Utilities: Missing Airport Text File name!"});
    QCOMPARE(user.toAdd(), QStringList{"Germany"});
    QCOMPARE(user.choices(), QStringList{"Germany/Germany"});
    QVERIFY(user.isEnabled("Tab1cmdCreateFile"));
    QVERIFY(user.isEnabled("Tab1cmdReset"));
}

void TestAirportFile::addAfterACancelledDialogIsRefused()
{
    FilePage user;
    user.choose("Germany");
    user.chooseTextFile("");
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, Morlen Utilities: Missing Airport Text File name!"});
    QCOMPARE(user.textFileBytes(), seattleLine);
}

void TestAirportFile::chosenAirportIsAppendedBelowOneHeader()
{
    FilePage user;
    user.descend("Germany");
    user.append({"Hamburg Airport, Hamburg - EDDH"});
    QCOMPARE(user.textFileBytes(), seattleLine + header + hamburgLine);
    QCOMPARE(user.messages(), QStringList{created});
}

void TestAirportFile::chosenCountryAppendsAllItsAirportsInAscendingOrder()
{
    FilePage user;
    user.append({"Germany"});
    QCOMPARE(user.textFileBytes(), seattleLine + header + germanLines);
}

void TestAirportFile::headerIsWrittenOncePerPressAndFirst()
{
    FilePage user("");
    user.append({"Jamaica", "Germany"});
    QCOMPARE(user.textFileBytes(), header + germanLines + kingstonLine);
    user.chooseTextFile();
    user.append({"Jamaica"});
    QCOMPARE(user.textFileBytes(), header + germanLines + kingstonLine + header + kingstonLine);
}

void TestAirportFile::headerHoldsTheMomentOfAdding()
{
    FilePage user("");
    user.outside.clock.time = QDateTime({2024, 2, 9}, {0, 5, 0});
    user.append({"Jamaica"});
    QCOMPARE(user.textFileBytes(),
             "//Airports Added - Friday, February 09, 2024 00:05:00\r\n" + kingstonLine);
}

void TestAirportFile::onlyExistingAirportsAppendNothingAndStillReportSuccess()
{
    FilePage user;
    user.find<QPushButton>("Tab1cmdCreateFile")->setEnabled(true);
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(), seattleLine);
    QCOMPARE(user.messages(), QStringList{created});
}

void TestAirportFile::sameIcaoChosenTwiceIsWrittenTwice()
{
    FilePage user("");
    user.descend("Jamaica");
    user.choose("Norman Manley International Airport, Kingston - MKJP");
    user.press("Tab1cmdPrevious");
    user.descend("Jamaica");
    user.append({"Norman Manley International Airport, Kingston - MKJP"});
    QCOMPARE(user.textFileBytes(), header + kingstonLine + kingstonLine);
}

void TestAirportFile::airportThatTheFileHoldsIsWrittenAgain()
{
    FilePage user(kingstonLine);
    user.append({"Jamaica"});
    QCOMPARE(user.textFileBytes(), kingstonLine + header + kingstonLine);
}

void TestAirportFile::countryIsMatchedAsAPlainPrefix()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Guinea", "", "GUCY") + record("Guinea-Bissau", "", "GGOV") +
                         record("Equatorial Guinea", "", "FGSL"));
    user.writeTextFile("");
    user.start();
    user.chooseTextFile();
    user.choose("Guinea");
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(),
             header + line("Guinea-Bissau", "", "GGOV") + line("Guinea", "", "GUCY"));
}

void TestAirportFile::codeIsMatchedAnywhereInTheLine()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "", "FTTJ") + record("Chad", "near FTTJ", "FTTX") +
                         record("Peru", "", "FTTJ") + record("Chad", "", "FTTY"));
    user.writeTextFile("");
    user.start();
    user.chooseTextFile();
    user.find<ListBox>("Tab1List1")->setItems({"Chad", "Field, Town - FTTJ"});
    user.choose("Chad"); // the country from now on
    user.takeBack("Chad");
    user.choose("Field, Town - FTTJ");
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(),
             header + line("Chad", "", "FTTJ") + line("Chad", "near FTTJ", "FTTX"));
}

void TestAirportFile::matchingIsCaseSensitive()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("chad", "", "FTTA") + record("Chad", "", "FTTJ") +
                         record("CHAD", "", "FTTC"));
    user.writeTextFile("");
    user.start();
    user.chooseTextFile();
    user.choose("Chad");
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(), header + line("Chad", "", "FTTJ"));
}

void TestAirportFile::countryWithAHyphenAtPosition6IsTakenForAnExistingAirport()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Timor-Leste", "", "WPDL"));
    user.writeTextFile("");
    user.start();
    user.chooseTextFile();
    user.choose("Timor-Leste");
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(), QByteArray());
    QCOMPARE(user.messages(), QStringList{created});
}

void TestAirportFile::entryOf35CharactersOrMoreIsNeverCut_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("blanks");
    QTest::newRow("34") << 34 << 6;
    QTest::newRow("35") << 35 << 5;
    QTest::newRow("36") << 36 << 5;
    QTest::newRow("60") << 60 << 5;
}

void TestAirportFile::entryOf35CharactersOrMoreIsNeverCut()
{
    QFETCH(int, length);
    QFETCH(int, blanks);
    const QByteArray entry = QByteArray("FTTJ|").leftJustified(length, '1');
    AirportLoaderDriver user;
    user.writeMasterList("Chad|Lac|Field|Town|FTTJ|" + entry + "\r\n");
    user.writeTextFile("");
    user.start();
    user.chooseTextFile();
    user.choose("Chad");
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(),
             header + entry + QByteArray(blanks, ' ') + "//Town, Lac, Chad\r\n");
}

void TestAirportFile::choicesFromBeforeTheFileWasChosenAgainAreAppended()
{
    FilePage user;
    user.choose("Jamaica");
    user.chooseTextFile(); // the hidden lists keep the choice
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(), seattleLine + header + kingstonLine);
}

void TestAirportFile::lastLineWithoutALineEndIsCompletedFirst()
{
    FilePage user("EDDH,by hand");
    user.append({"Jamaica"});
    QCOMPARE(user.textFileBytes(), "EDDH,by hand\r\n" + header + kingstonLine);
}

void TestAirportFile::existingBytesAreNeverRewritten()
{
    QByteArray before = "//odd \x81\x90\xFF bytes\n\r\r\n\t\r\n";
    before += QByteArrayLiteral("NUL \0 here\r\n");
    FilePage user(before);
    user.append({"Jamaica"});
    QCOMPARE(user.textFileBytes(), before + header + kingstonLine);
}

void TestAirportFile::appendingIsTraced()
{
    FilePage user;
    user.trace();
    user.append({"Jamaica"});
    QCOMPARE(user.traced(), (QStringList{"Adding Airports to C:\\TTools\\Airport_Set.txt",
                                         "Adding " + QString::fromLatin1(kingstonLine).trimmed(),
                                         "Finished Adding Airports"}));
}

void TestAirportFile::progressIsShownMeanwhile()
{
    FilePage user;
    user.descend("Canada");
    user.choose("Alberta");
    user.choose("Ontario");
    QVERIFY(user.isShown("Tab1cmdPrevious"));
    ProgressWatch watch(user);
    user.outside.dialogs.whileShown = [&] {
        watch.seen += "asked";
        for (const QString name : {"Tab1cmdPrevious", "Tab1lblDragnDrop", "Tab1cmdReset"}) {
            QVERIFY(user.isShown(name)); // they are back
        }
    };
    user.press("Tab1cmdCreateFile");
    QCOMPARE(watch.seen, (QStringList{"shown 0 of 3", "hidden", "asked"}));
}

void TestAirportFile::hiddenPreviousStaysHiddenAndTheHintStays()
{
    FilePage user;
    user.choose("Jamaica");
    ProgressWatch watch(user);
    user.outside.dialogs.whileShown = [&] {
        QVERIFY(!user.isShown("Tab1cmdPrevious"));
        QVERIFY(user.isShown("Tab1lblDragnDrop"));
        QVERIFY(user.isShown("Tab1cmdReset"));
    };
    user.press("Tab1cmdCreateFile");
    QCOMPARE(watch.seen, (QStringList{"shown 0 of 2", "Tab1lblDragnDrop", "hidden"}));
}

void TestAirportFile::questionHasNoAsItsDefault()
{
    FilePage user;
    user.append({"Jamaica"});
    const MessageBox box = user.outside.dialogs.boxes[0];
    QCOMPARE(box.buttons, MessageBox::Buttons::YesNo);
    QCOMPARE(box.defaultButton, MessageBox::Answer::No);
    QCOMPARE(user.messages(), QStringList{created});
    QCOMPARE(user.outside.processes.started, QStringList());
}

void TestAirportFile::answeringYesShowsTheFileInNotepad()
{
    FilePage user;
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    QStringList listedThen;
    user.outside.processes.whileRunning = [&] { listedThen = user.toAdd(); };
    user.append({"Jamaica"});
    QCOMPARE(user.outside.processes.started,
             QStringList{"NOTEPAD.EXE C:\\TTools\\Airport_Set.txt"});
    QCOMPARE(listedThen, (QStringList{seattle, "Jamaica"})); // waits for it
    QCOMPARE(user.toAdd(), QStringList());
}

void TestAirportFile::questionComesBeforeThePageIsReset()
{
    FilePage user;
    QStringList listedThen;
    QByteArray bytesThen;
    user.outside.dialogs.whileShown = [&] {
        listedThen = user.toAdd();
        bytesThen = user.textFileBytes();
    };
    user.append({"Jamaica"});
    QCOMPARE(listedThen, (QStringList{seattle, "Jamaica"}));
    QCOMPARE(bytesThen, seattleLine + header + kingstonLine);
}

void TestAirportFile::pageIsResetAfterwards()
{
    FilePage user;
    user.descend("Germany");
    user.append({"Hamburg Airport, Hamburg - EDDH"});
    QCOMPARE(user.available(), (QStringList{"Canada", "Germany", "Jamaica"}));
    QCOMPARE(user.toAdd(), QStringList());
    QCOMPARE(user.choices(), QStringList());
    QCOMPARE(user.items("Tab1ListSort"), QStringList());
    QCOMPARE(user.label("Tab1Label1"), QString("Country"));
    QCOMPARE(user.label("lblT1Airport"), QString("Airports to Add"));
    QVERIFY(user.asksForTextFile());
    QVERIFY(!user.isShown("Tab1lblDragnDrop"));
    QVERIFY(!user.isShown("Tab1cmdPrevious"));
    QVERIFY(!user.isShown("Tab1ProgressBar1"));
    QVERIFY(user.isShown("Tab1cmdReset"));
    QCOMPARE(user.enabledSortOptions(), QStringList());
    QCOMPARE(user.enabledOf({"Tab1List1", "Tab1cmdCreateFile", "Tab1cmdReset", "Tab1cmdEdit",
                             "Tab1cmdBrowse"}),
             QStringList{"Tab1cmdBrowse"});
}

void TestAirportFile::nextBatchNeedsNoNewChoiceOfTheFile()
{
    FilePage user("");
    user.append({"Jamaica"});
    user.find<ListBox>("Tab1List1")->setEnabled(true); // as choosing a file would do
    user.append({"Jamaica"});
    QCOMPARE(user.textFileBytes(), header + kingstonLine + header + kingstonLine);
}

void TestAirportFile::programQuittingWhileTheFileIsViewedResetsNothing()
{
    FilePage user;
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    user.outside.processes.exitCodes = {259};
    user.outside.processes.whileRunning = [&] { user.services.state.ended = true; };
    user.append({"Jamaica"});
    QCOMPARE(user.toAdd(), (QStringList{seattle, "Jamaica"}));
}

void TestAirportFile::setBeingFilledGetsControlBack()
{
    FilePage user;
    user.set.newAirportFlag = true;
    QStringList told;
    connect(user.window.get(), &AirportLoaderPage::airportsAdded, this,
            [&] { told += "added, " + user.label("lblT1Airport"); });
    connect(user.window.get(), &AirportLoaderPage::returnToSet, this,
            [&] { told += "return, " + user.label("lblT1Airport"); });
    const QSignalSpy quit(user.window.get(), &AirportLoaderPage::quitPressed);
    user.append({"Jamaica"});
    // They count as soon as they are written, whatever comes before the page is left.
    QCOMPARE(told, (QStringList{"added, Existing Airports: 2", "return, Airports to Add"}));
    QCOMPARE(quit.count(), 0);
}

void TestAirportFile::pageTellsWhetherAirportsWereAdded()
{
    FilePage user;
    QStringList told;
    connect(user.window.get(), &AirportLoaderPage::airportsAdded, this,
            [&](const QString &path) { told += path; });
    user.append({"Jamaica"});
    QCOMPARE(told, QStringList{AirportLoaderDriver::textFile});
    user.chooseTextFile();
    user.find<QPushButton>("Tab1cmdCreateFile")->setEnabled(true);
    user.press("Tab1cmdCreateFile");
    QCOMPARE(told, (QStringList{AirportLoaderDriver::textFile, ""}));
}

void TestAirportFile::nothingIsAddedTwiceWhileTheFileIsViewed()
{
    FilePage user;
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    QStringList enabledThen;
    user.outside.processes.whileRunning = [&] {
        enabledThen = user.enabledOf({"Tab1cmdCreateFile", "Tab1List1", "Tab1Command2"});
        user.find<QPushButton>("Tab1cmdCreateFile")->click();
    };
    user.append({"Jamaica"});
    QCOMPARE(enabledThen, QStringList{"Tab1Command2"});
    QCOMPARE(user.textFileBytes(), seattleLine + header + kingstonLine);
    QCOMPARE(user.messages(), QStringList{created});
}

void TestAirportFile::whatIsBegunWhileTheFileIsViewedGoesOn()
{
    const QString other = "C:\\TTools\\Airport_Other.txt";
    FilePage user;
    user.sandbox.write(other, "");
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    user.outside.processes.whileRunning = [&] {
        user.chooseTextFile(other);
        QCOMPARE(user.toAdd(), QStringList()); // what is written is chosen no more
        user.choose("Germany");
    };
    const QSignalSpy back(user.window.get(), &AirportLoaderPage::returnToSet);
    user.set.newAirportFlag = true;
    user.append({"Jamaica"});
    QVERIFY(user.showsTextFile(other));
    QCOMPARE(user.toAdd(), QStringList{"Germany"});
    QCOMPARE(back.count(), 0);
    user.outside.processes.whileRunning = {};
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.sandbox.read(other), header + germanLines);
    QCOMPARE(user.textFileBytes(), seattleLine + header + kingstonLine);
}

void TestAirportFile::missingMasterListIsReportedAndNothingWritten()
{
    FilePage user;
    user.removeMasterList();
    user.append({"Jamaica"});
    QCOMPARE(user.messages(), QStringList{openFailed + "53 File not found\rLoading "
                                                       "C:\\windows\\system32\\ZENTAM.OCX"});
    QCOMPARE(user.textFileBytes(), seattleLine);
}

void TestAirportFile::malformedLineIsReportedAndNothingWritten()
{
    FilePage user;
    user.writeMasterList(record("Jamaica", "", "MKJP") + "Jamaica|\r\n" +
                         record("Jamaica", "", "MKJS"));
    user.append({"Jamaica"});
    QCOMPARE(user.messages(),
             QStringList{openFailed + "5 Invalid procedure call or argument\rInput Data"});
    QCOMPARE(user.textFileBytes(), seattleLine);
    QCOMPARE(user.items("Tab1ListSort"), QStringList());
}

void TestAirportFile::emptyMasterListWritesNothing()
{
    FilePage user;
    user.writeMasterList("");
    user.append({"Jamaica"});
    QCOMPARE(user.textFileBytes(), seattleLine);
    QCOMPARE(user.messages(), QStringList{created});
}

void TestAirportFile::readOnlyFileIsReportedAndLeftAlone()
{
    NEEDS(permissions);
    FilePage user;
    const OrdinaryUser rights(user.sandbox);
    QVERIFY(
        QFile::setPermissions(user.sandbox.host(AirportLoaderDriver::textFile), QFile::ReadOwner));
    user.append({"Jamaica"});
    QCOMPARE(user.messages(), QStringList{openFailed + "75 Path/File access error" + openStep});
    QCOMPARE(user.textFileBytes(), seattleLine);
}

void TestAirportFile::fileDeletedMeanwhileIsBegunAnew()
{
    FilePage user;
    user.removeTextFile();
    user.append({"Jamaica"});
    QCOMPARE(user.textFileBytes(), header + kingstonLine);
    QCOMPARE(user.messages(), QStringList{created});
}

void TestAirportFile::folderDeletedMeanwhileIsReported()
{
    FilePage user;
    QVERIFY(QDir(user.sandbox.host("C:\\TTools")).removeRecursively());
    user.append({"Jamaica"});
    QCOMPARE(user.messages(), QStringList{openFailed + "76 Path not found" + openStep});
}

void TestAirportFile::fileThatIsAFolderIsReported()
{
    FilePage user;
    user.removeTextFile();
    user.sandbox.makeFolder(AirportLoaderDriver::textFile);
    user.append({"Jamaica"});
    QCOMPARE(user.messages(), QStringList{openFailed + "75 Path/File access error" + openStep});
}

void TestAirportFile::fullDiskLeavesTheBytesThatWereThere_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("full already") << 0;
    QTest::newRow("full within the header") << 7;
    QTest::newRow("full within an airport") << static_cast<int>(header.size()) + 7;
    QTest::newRow("full before the last byte")
        << static_cast<int>(header.size() + germanLines.size()) - 1;
}

void TestAirportFile::fullDiskLeavesTheBytesThatWereThere()
{
    NEEDS(sizeLimit);
    QFETCH(int, room);
    // A megabyte, so that the limit is out of the way of everything else the test writes.
    const QByteArray before = QByteArray("//an earlier line of the file\r\n").repeated(33'000);
    FilePage user(before);
    {
        const FileSizeLimit limit(before.size() + room);
        user.append({"Germany"});
    }
    QCOMPARE(user.messages(), QStringList{openFailed + "61 Disk full" + openStep});
    QCOMPARE(user.textFileBytes(), before);
}

void TestAirportFile::linesThatDoNotReachTheDiskAreReported()
{
    NEEDS(failingCalls);
    FilePage user;
    const QSignalSpy added(user.window.get(), &AirportLoaderPage::airportsAdded);
    failing_calls::syncFails = [] { return true; };
    user.append({"Germany"});
    failing_calls::syncFails = nullptr;
    QCOMPARE(user.messages(), QStringList{openFailed + "57 Device I/O error" + openStep});
    // They stand in the file all the same, and would do so twice after another try.
    QCOMPARE(user.textFileBytes(), seattleLine + header + germanLines);
    QCOMPARE(added.count(), 1);
    QCOMPARE(added[0][0].toString(), FilePage::textFile);
    QCOMPARE(user.toAdd(), QStringList());
    QVERIFY(!user.isEnabled("Tab1cmdCreateFile"));
}

void TestAirportFile::failureLeavesTheChoicesForAnotherTry()
{
    FilePage user;
    user.descend("Germany");
    user.choose("Hamburg Airport, Hamburg - EDDH");
    user.removeMasterList();
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.messages().size(), 1);
    QCOMPARE(user.toAdd(), (QStringList{seattle, "Hamburg Airport, Hamburg - EDDH"}));
    QVERIFY(!user.isShown("Tab1ProgressBar1"));
    for (const QString name : {"Tab1cmdPrevious", "Tab1lblDragnDrop", "Tab1cmdReset"}) {
        QVERIFY2(user.isShown(name), qPrintable(name));
    }
    user.writeMasterList(smallAirportList);
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(), seattleLine + header + hamburgLine);
}

void TestAirportFile::editAsksFirst()
{
    FilePage user;
    user.press("Tab1cmdEdit");
    const MessageBox box = user.outside.dialogs.boxes[0];
    QCOMPARE(box.buttons, MessageBox::Buttons::YesNo);
    QCOMPARE(box.defaultButton, MessageBox::Answer::No);
    QCOMPARE(user.messages(), QStringList{caution});
}

void TestAirportFile::answeringNoLeavesListsFileAndTraceLogUntouched()
{
    FilePage user;
    user.trace();
    user.outside.dialogs.answers = {MessageBox::Answer::No};
    user.press("Tab1cmdEdit");
    QCOMPARE(user.toAdd(), QStringList{seattle});
    QCOMPARE(user.choices(), QStringList{existingChoice});
    QCOMPARE(user.textFileBytes(), seattleLine);
    QCOMPARE(user.traced(), QStringList());
    QCOMPARE(user.outside.processes.started, QStringList());
}

void TestAirportFile::editWithoutAFileIsRefused()
{
    AirportLoaderDriver user;
    user.open();
    user.find<QPushButton>("Tab1cmdEdit")->setEnabled(true); // as taking a choice back does
    user.press("Tab1cmdEdit");
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, Morlen Utilities: Missing Airport Text File name!"});
    QCOMPARE(user.outside.processes.started, QStringList());
}

void TestAirportFile::editOpensNotepadAndListsTheAirportsAgain()
{
    FilePage user;
    user.edit("//mine\r\n\r\n" + kingstonLine + seattleLine);
    QCOMPARE(user.outside.processes.started,
             QStringList{"NOTEPAD.EXE C:\\TTools\\Airport_Set.txt"});
    QCOMPARE(user.outside.processes.windowStyles, QList<int>{1});
    QCOMPARE(user.toAdd(), (QStringList{"MKJP - Kingston, , Jamaica", seattle}));
    QCOMPARE(user.messages(), QStringList{caution});
    QVERIFY(!QApplication::overrideCursor());
}

void TestAirportFile::editIsTraced()
{
    FilePage user;
    user.trace();
    QString stepThen;
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    user.outside.processes.whileRunning = [&] { stepThen = user.services.state.ErrMsg; };
    user.press("Tab1cmdEdit");
    QCOMPARE(user.traced(), QStringList{"Edit Aircraft Listing Edit C:\\TTools\\Airport_Set.txt"});
    QCOMPARE(stepThen, QString("Edit C:\\TTools\\Airport_Set.txt"));
}

void TestAirportFile::editLeavesTheHeadingAlone()
{
    FilePage user;
    user.edit(seattleLine + kingstonLine);
    QCOMPARE(user.toAdd().size(), 2);
    QCOMPARE(user.label("lblT1Airport"), QString("Existing Airports: 1"));
}

void TestAirportFile::editGivesTheFocusToQuit()
{
    FilePage user;
    user.edit(seattleLine);
    QCOMPARE(user.focus(), QString("Tab1Command2"));
}

void TestAirportFile::reloadedAirportsAreAddedToTheHiddenLists()
{
    FilePage user;
    user.edit(seattleLine);
    QCOMPARE(user.choices(), (QStringList{existingChoice, existingChoice}));
    user.append({"Jamaica"}); // which does no harm
    QCOMPARE(user.textFileBytes(), seattleLine + header + kingstonLine);
}

void TestAirportFile::editLeavesTheChoicesThatAreNotTakenBack()
{
    FilePage user;
    user.choose("Jamaica");
    user.choose("Germany");
    user.takeBack("Jamaica"); // lets the file be edited
    user.edit(kingstonLine);
    QCOMPARE(user.toAdd(), (QStringList{"MKJP - Kingston, , Jamaica", "Germany"}));
    user.takeBack("Germany");
    QCOMPARE(user.toAdd(), QStringList{"MKJP - Kingston, , Jamaica"});
    QCOMPARE(user.available(), (QStringList{"Canada", "Germany", "Jamaica"}));
}

void TestAirportFile::shortLineThatWasDraggedOutTakesNoChoiceAlong()
{
    FilePage user("AB\r\n"); // too short for the hyphen that keeps an entry in its place
    user.choose("Jamaica");
    user.takeBack("AB - ");
    user.chooseTextFile();
    QCOMPARE(user.toAdd(), (QStringList{"AB - ", "Jamaica"}));
    user.takeBack("Jamaica");
    user.takeBack("AB - ");
    user.chooseTextFile();
    QCOMPARE(user.toAdd(), QStringList{"AB - "});
}

void TestAirportFile::deletingAllAirportsLeavesTheListEmpty()
{
    FilePage user;
    user.edit("//nothing left\r\n");
    QCOMPARE(user.toAdd(), QStringList());
    QCOMPARE(user.messages(), QStringList{caution});
}

void TestAirportFile::shortLineAddedByHandIsListedAsItsCode()
{
    FilePage user;
    user.edit(seattleLine + "EDDH,by hand\r\n");
    QCOMPARE(user.toAdd(), (QStringList{seattle, "EDDH - "}));
}

void TestAirportFile::fileDeletedWhileEditingIsReported()
{
    FilePage user;
    user.trace();
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    user.outside.processes.whileRunning = [&] { user.removeTextFile(); };
    user.press("Tab1cmdEdit");
    QCOMPARE(user.messages(), (QStringList{caution, editFailed + "53 File not found" + openStep}));
    QCOMPARE(user.traced().last(),
             QString("Error  53 File not found - Open C:\\TTools\\Airport_Set.txt"));
    QCOMPARE(user.toAdd(), QStringList());
    QVERIFY(!QApplication::overrideCursor());
}

void TestAirportFile::notepadThatDoesNotStartIsReported()
{
    FilePage user;
    user.outside.processes.failure = RuntimeError(ErrorNumber::FileNotFound);
    user.edit(seattleLine);
    QCOMPARE(user.messages(),
             (QStringList{caution, "Critical, ShellandWait Error: Error Handled. See log."}));
    QCOMPARE(user.toAdd(), QStringList{seattle});
}

void TestAirportFile::programQuittingMeanwhileReloadsNothing()
{
    FilePage user;
    user.outside.dialogs.answers = {MessageBox::Answer::Yes};
    user.outside.processes.exitCodes = {259};
    user.outside.processes.whileRunning = [&] {
        user.writeTextFile("");
        user.services.state.ended = true;
    };
    user.press("Tab1cmdEdit");
    QCOMPARE(user.toAdd(), QStringList{seattle});
}

void TestAirportFile::quitIsTold()
{
    FilePage user;
    const QSignalSpy quit(user.window.get(), &AirportLoaderPage::quitPressed);
    const QSignalSpy back(user.window.get(), &AirportLoaderPage::returnToSet);
    user.press("Tab1Command2");
    QCOMPARE(quit.count(), 1);
    QCOMPARE(back.count(), 0);
}

void TestAirportFile::quitReturnsToTheSetBeingFilled()
{
    FilePage user;
    user.set.newAirportFlag = true;
    const QSignalSpy quit(user.window.get(), &AirportLoaderPage::quitPressed);
    const QSignalSpy back(user.window.get(), &AirportLoaderPage::returnToSet);
    user.press("Tab1Command2");
    QCOMPARE(quit.count(), 0);
    QCOMPARE(back.count(), 1);
}

QTEST_MAIN(TestAirportFile)
#include "test_airport_file.moc"
