// SPDX-License-Identifier: MIT
#include "app/services/notepad_substitutes.h"
#include "config_editor/config_editor_page.h"

#include "app/services/link_label.h"
#include "platform/controls/dir_list_box.h"
#include "platform/controls/drive_list_box.h"
#include "platform/controls/file_list_box.h"
#include "platform/controls/list_box.h"
#include "tests/support/failure.h"
#include "tests/support/page_driver.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace
{

using Answer = MessageBox::Answer;

const QString prompt =
    QStringLiteral("<--- Please select your Flight Simulator Aircraft directory!");
const QString noPanel =
    QStringLiteral("Information, Config Editor: This is an AI Aircraft and has no Panel!");

/// Page 3 in the hands of its user.
struct Editor : PageDriver<ConfigEditorPage> {
    explicit Editor(const QString &aircraftDir = "C:\\FS9\\Aircraft") : directory(aircraftDir)
    {
        sandbox.makeFolder(directory);
        window = std::make_unique<ConfigEditorPage>(services);
        window->show();
    }

    void add(const QString &folder, const QByteArray &more = {}) const
    {
        sandbox.write(directory + '\\' + folder + "\\aircraft.cfg",
                      "title=" + folder.toLatin1() +
                          "\r\nui_manufacturer=M\r\nui_type=T\r\nui_variation=V\r\n" + more);
    }

    void addPanel(const QString &path, const QByteArray &bytes) const
    {
        sandbox.write(directory + '\\' + path + "\\panel.cfg", bytes);
    }

    void start() const { choose(directory); }

    /// Opens a folder in the picker.
    void choose(const QString &folder) const
    {
        Q_EMIT find<DirListBox>("Tab3Dir1")->folderChosen(folder);
    }

    void select(int entry) const { list("Tab3List3")->setListIndex(entry); }

    void editPanelOf(int entry) const
    {
        select(entry);
        press("Tab3optPanel");
        press("Tab3cmdedit");
    }

    ListBox *list(const QString &name) const { return find<ListBox>(name); }

    QStringList items(const QString &name) const { return list(name)->items(); }

    bool isTicked() const { return find<QAbstractButton>("Tab3chkDumpList")->isChecked(); }

    const QStringList &started() const { return outside.processes.started; }

    QString directory;
};

QString changed(const QString &path)
{
    return "None, Edit Function: Have you made changes to " + path + " file?";
}

} // namespace

class TestConfigEditorPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasItsNameKindAndTexts_data();
    void everyControlHasItsNameKindAndTexts();
    void hiddenListsAreThere();
    void otherDirectoryAsksForOneAndDisablesEditAndDump();
    void acceptedDirectoryIsListedAndTold_data();
    void acceptedDirectoryIsListedAndTold();
    void directoryFromElsewhereIsListedAndNotTold();
    void currentDirectoryIsListedToo();
    void combatDirectoryCountsFoldersWithAConfigurationOnly();
    void emptyDirectoryHidesTheEditing();
    void loadingIsTraced();
    void loadingThatFailsIsReportedWithItsStep();
    void loadingIsShownInPlaceOfTheList();
    void driveLeadsTheFolderPicker();
    void driveThatIsNotReadyIsTakenBack();
    void selectionIsTheSameInTheHiddenLists();
    void aircraftCfgIsOpenedAndAskedAbout();
    void panelValueLeadsToItsOwnPanelFolder();
    void aircraftWithoutPanelGivesItsMessageAndNoFurtherQuestion();
    void aliasIsFollowedOrNot_data();
    void aliasIsFollowedOrNot();
    void aliasThatIsNoPathIsCutInItsQuestion();
    void aliasUnderRotorcraftHasNoSeparator();
    void noToBothAliasQuestionsGoesOnSuppressing();
    void questionsOfAnAliasAreWordedSo();
    void longAliasIsCutInTheQuestions_data();
    void longAliasIsCutInTheQuestions();
    void withoutAliasThePanelIsOpenedAtOnce_data();
    void withoutAliasThePanelIsOpenedAtOnce();
    void panelThatCannotBeReadIsReported();
    void changedFileReloadsTheListAndKeepsTheAircraft();
    void directoryThatIsGoneAfterAChangeIsReportedByTheLoading();
    void neitherOptionAsksAboutTheLastFile();
    void withoutAnAircraftNothingIsOpened();
    void promptIsNoAircraft();
    void notepadThatCannotBeStartedIsReported();
    void notepadTakesAnyNameAsOneArgument_data();
    void notepadTakesAnyNameAsOneArgument();
    void dumpWritesTheListingAndOffersIt();
    void dumpSelectsEachEntryAsItIsWritten();
    void dumpWithNoAircraftListedHasHeadingsRuleAndTitle();
    void viewedListingLeavesTheBoxTicked();
    void readOnlyListingIsReportedAndStaysAsItWas();
    void listingThatNotepadCannotShowLeavesTheBoxTicked();
    void folderNamedLikeTheNoticeIsAnAircraft();
    void varloIsALinkWhenInstalled();
};

void TestConfigEditorPage::everyControlHasItsNameKindAndTexts_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("Tab3Frame2") << "QGroupBox"
                                << "Edit"
                                << "";
    QTest::newRow("Tab3Frame3") << "QGroupBox"
                                << "Dump List:"
                                << "";
    QTest::newRow("Tab3optAircraft") << "QRadioButton"
                                     << "Aircraft"
                                     << " Edit Aircraft.cfg File";
    QTest::newRow("Tab3optPanel") << "QRadioButton"
                                  << "Panel"
                                  << " Edit Aircraft Panel.cfg File ";
    QTest::newRow("Tab3cmdedit") << "QPushButton"
                                 << "Edit"
                                 << " Click here to Edit ";
    QTest::newRow("Tab3chkDumpList") << "QCheckBox"
                                     << "To File"
                                     << " Save the Aircraft List to a Text file ";
    QTest::newRow("Tab3List3") << "ListBox"
                               << ""
                               << " Select Aircraft to Edit from this List ";
    QTest::newRow("Tab3Label2") << "QLabel"
                                << "Total Aircraft: "
                                << "";
    QTest::newRow("Tab3Label6") << "LinkLabel"
                                << ""
                                << "";
    QTest::newRow("tab3VarloHelp") << "LinkLabel"
                                   << "Help"
                                   << "";
}

void TestConfigEditorPage::everyControlHasItsNameKindAndTexts()
{
    const Editor editor;
    auto *const control = editor.find<QWidget>(QTest::currentDataTag());
    QTEST(QString(control->metaObject()->className()), "kind");
    const char *const property = control->inherits("QGroupBox") ? "title" : "text";
    QTEST(control->property(property).toString(), "text");
    QTEST(control->toolTip(), "toolTip");
    QVERIFY(control->isVisible());
}

void TestConfigEditorPage::hiddenListsAreThere()
{
    const Editor editor;
    for (const char *name :
         {"Tab3List1", "Tab3List2", "Tab3List4", "Tab3List5", "Tab3List6", "Tab3List7"}) {
        QVERIFY(!editor.list(name)->isVisible());
    }
    QCOMPARE(editor.list("Tab3List7")->font().family(), QString("Courier New"));
    QVERIFY(!editor.find<QWidget>("Tab3File1")->isVisible());
    QVERIFY(!editor.isEnabled("Tab3cmdedit"));
    QVERIFY(!editor.isEnabled("Tab3chkDumpList"));
}

void TestConfigEditorPage::otherDirectoryAsksForOneAndDisablesEditAndDump()
{
    Editor editor;
    editor.add("b58");
    editor.start();
    const QSignalSpy chosen(editor.window.get(), &ConfigEditorPage::directoryChosen);
    editor.choose("C:\\FS9");
    QCOMPARE(editor.items("Tab3List3"), QStringList{prompt});
    QCOMPARE(editor.items("Tab3List7"), QStringList());
    QCOMPARE(editor.label("Tab3Label2"), QString("Total Aircraft: "));
    QVERIFY(editor.isShown("Tab3cmdedit")); // no word on what the directory holds
    QVERIFY(!editor.isEnabled("Tab3cmdedit"));
    QVERIFY(!editor.isEnabled("Tab3chkDumpList"));
    QCOMPARE(chosen.count(), 0);
}

void TestConfigEditorPage::acceptedDirectoryIsListedAndTold_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("folderText");
    QTest::newRow("aircraft") << "C:\\FS9\\AIRCRAFT"
                              << "b58";
    QTest::newRow("airplanes") << "C:\\FSX\\Airplanes"
                               << "\\b58";
    QTest::newRow("rotorcraft") << "C:\\FSX\\rotorCraft"
                                << "t\\b58";
    QTest::newRow("last word of a longer name") << "C:\\FSX\\MyAircraft"
                                                << "b58";
}

void TestConfigEditorPage::acceptedDirectoryIsListedAndTold()
{
    QFETCH(QString, directory);
    QFETCH(QString, folderText);
    Editor editor(directory);
    editor.add("b58");
    editor.sandbox.makeFolder(directory + "\\empty");
    const QSignalSpy chosen(editor.window.get(), &ConfigEditorPage::directoryChosen);
    editor.start();
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen[0][0].toString(), directory);
    QCOMPARE(editor.items("Tab3List3"), QStringList{"M - T - V - b58"});
    QCOMPARE(editor.find<FileListBox>("Tab3File1")->path(), directory);
    QCOMPARE(editor.items("Tab3List7"),
             QStringList{"M - T - V - b58" + QString(60, ' ') + "  \\" + folderText});
    QCOMPARE(editor.label("Tab3Label2"), QString("Total Aircraft: 2"));
    QVERIFY(editor.isEnabled("Tab3cmdedit"));
    QVERIFY(editor.isEnabled("Tab3chkDumpList"));
    QVERIFY(editor.isShown("Tab3List3"));
    QCOMPARE(editor.messages(), QStringList());
}

void TestConfigEditorPage::directoryFromElsewhereIsListedAndNotTold()
{
    const Editor editor;
    editor.add("a");
    editor.add("b");
    const QSignalSpy chosen(editor.window.get(), &ConfigEditorPage::directoryChosen);
    editor.window->showDirectory(editor.directory + '\\');
    QCOMPARE(editor.window->directory(), editor.directory);
    QCOMPARE(editor.items("Tab3List3").size(), 2);
    QCOMPARE(editor.list("Tab3List3")->listIndex(), 0);
    editor.select(1);
    editor.add("c");
    editor.window->showDirectory(editor.directory); // is there already
    QCOMPARE(editor.items("Tab3List3").size(), 2);
    QCOMPARE(editor.list("Tab3List3")->listIndex(), 1);
    QCOMPARE(chosen.count(), 0);
}

void TestConfigEditorPage::currentDirectoryIsListedToo()
{
    Editor editor;
    editor.add("b58");
    QDir::setCurrent(editor.sandbox.host(editor.directory));
    editor.window = std::make_unique<ConfigEditorPage>(editor.services);
    editor.start();
    QCOMPARE(editor.items("Tab3List3"), QStringList{"M - T - V - b58"});
}

void TestConfigEditorPage::combatDirectoryCountsFoldersWithAConfigurationOnly()
{
    const Editor editor("C:\\Combat Sim\\Aircraft");
    editor.add("b58");
    editor.sandbox.makeFolder(editor.directory + "\\weapons");
    editor.start();
    QCOMPARE(editor.label("Tab3Label2"), QString("Total Aircraft: 1"));
}

void TestConfigEditorPage::emptyDirectoryHidesTheEditing()
{
    const Editor editor;
    editor.start();
    QCOMPARE(editor.items("Tab3List2"), QStringList{"All Aircraft Have Force Feedback"});
    QCOMPARE(editor.list("Tab3List2")->listIndex(), 0);
    for (const char *name : {"Tab3optAircraft", "Tab3optPanel", "Tab3cmdedit"}) {
        QVERIFY(!editor.isShown(name));
    }
    QVERIFY(editor.isShown("noAircraftLabel"));
    QCOMPARE(editor.label("noAircraftLabel"), QString("This directory holds no aircraft"));
    QCOMPARE(editor.toolTip("Tab3Label2"), QString());
    editor.sandbox.makeFolder("C:\\Other\\Aircraft");
    editor.sandbox.write("C:\\Other\\Aircraft\\x\\aircraft.cfg", "");
    editor.window->showDirectory("C:\\Other\\Aircraft");
    QCOMPARE(editor.items("Tab3List2"), QStringList{"x"});
    QCOMPARE(editor.list("Tab3List2")->listIndex(), -1);
    QVERIFY(!editor.isShown("noAircraftLabel"));
    QCOMPARE(editor.toolTip("Tab3Label2"), QString(" No Aircraft Have Force Feedback "));
    for (const char *name : {"Tab3optAircraft", "Tab3optPanel", "Tab3cmdedit"}) {
        QVERIFY(editor.isShown(name));
    }
}

void TestConfigEditorPage::loadingIsTraced()
{
    Editor editor;
    editor.add("b58");
    editor.add("c172");
    editor.trace();
    editor.start();
    QCOMPARE(editor.traced(), (QStringList{"Editor Path is C:\\FS9\\Aircraft",
                                           "Adding Aircraft b58", "Adding Aircraft c172"}));
}

void TestConfigEditorPage::loadingThatFailsIsReportedWithItsStep()
{
    NEEDS(permissions);
    Editor editor;
    for (const char *folder : {"a", "b", "c"}) {
        editor.add(folder);
    }
    const OrdinaryUser user(editor.sandbox);
    QFile::setPermissions(editor.sandbox.host("C:\\FS9\\Aircraft\\a\\aircraft.cfg"), {});
    QFile::setPermissions(editor.sandbox.host("C:\\FS9\\Aircraft\\c"), {});
    editor.start();
    QCOMPARE(editor.messages(),
             (QStringList{"Exclamation, Tab3CheckFile Error: Error  75 Path/File access error\r"
                          "Opening C:\\FS9\\Aircraft\\a\\aircraft.cfg",
                          "Exclamation, Tab3LoadList Error: Error  75 Path/File access error\r"
                          "Set path to C:\\FS9\\Aircraft\\c"}));
    QCOMPARE(editor.items("Tab3List3"), QStringList{"M - T - V - b"}); // as far as it came
    QVERIFY(editor.isShown("Tab3List3"));
}

void TestConfigEditorPage::loadingIsShownInPlaceOfTheList()
{
    NEEDS(permissions);
    Editor editor;
    const OrdinaryUser user(editor.sandbox);
    for (const char *folder : {"a", "b", "c"}) { // the message of each is shown half way
        editor.add(folder);
        QFile::setPermissions(
            editor.sandbox.host(editor.directory + '\\' + folder + "\\aircraft.cfg"), {});
    }
    const auto *const bar = editor.find<QProgressBar>("loadingBar");
    QStringList shown;
    editor.outside.dialogs.whileShown = [&] {
        for (const char *name : {"loadingLabel", "loadingBar", "Tab3List3"}) {
            shown += editor.isShown(name) ? name : "";
        }
        shown += QStringLiteral("%1 of %2").arg(bar->value()).arg(bar->maximum());
        QTest::qSleep(40); // the bar moves about 30 times a second
    };
    editor.start();
    QCOMPARE(shown,
             (QStringList{"loadingLabel", "loadingBar", "", "0 of 3", "loadingLabel", "loadingBar",
                          "", "1 of 3", "loadingLabel", "loadingBar", "", "2 of 3"}));
    QCOMPARE(editor.label("loadingLabel"), QString("Loading...."));
    QVERIFY(!editor.isShown("loadingLabel"));
    QVERIFY(!editor.isShown("loadingBar"));
    QVERIFY(editor.isShown("Tab3List3"));
}

void TestConfigEditorPage::driveThatIsNotReadyIsTakenBack()
{
    Editor editor;
    editor.sandbox.makeFolder("C:\\Gone");
    editor.sandbox.addDrive('d', "C:\\Gone");
    editor.window = std::make_unique<ConfigEditorPage>(editor.services);
    editor.window->show();
    editor.start();
    QVERIFY(QDir(editor.sandbox.host("C:\\Gone")).removeRecursively());
    QTest::keyClick(editor.find<DriveListBox>("Tab3Drive1"), Qt::Key_Down);
    QCOMPARE(editor.messages(),
             QStringList{"Exclamation, Directory Select Error: Error  68 Device unavailable\r"
                         "Set path to d:"});
    QCOMPARE(editor.window->drive(), QString("c:"));
    QCOMPARE(editor.window->directory(), editor.directory);
}

void TestConfigEditorPage::driveLeadsTheFolderPicker()
{
    const Editor editor;
    editor.start();
    editor.window->setDrive("z:");
    QCOMPARE(editor.find<DirListBox>("Tab3Dir1")->path(), QString("z:\\"));
    QCOMPARE(editor.items("Tab3List3"), QStringList{prompt});
    editor.window->showDirectory(editor.directory);
    QCOMPARE(editor.window->drive(), QString("c:"));
    QTest::keyClick(editor.find<DriveListBox>("Tab3Drive1"), Qt::Key_Down); // the user's choice
    QCOMPARE(editor.find<DirListBox>("Tab3Dir1")->path(), QString("z:\\"));
    editor.start();
    QCOMPARE(editor.window->drive(), QString("c:"));
    QCOMPARE(failureOf([&] { editor.window->setDrive("q:"); }), QString("68 Device unavailable"));
}

void TestConfigEditorPage::selectionIsTheSameInTheHiddenLists()
{
    const Editor editor;
    editor.add("a");
    editor.add("b");
    editor.start();
    editor.window->showFirstAircraft(); // as at start-up
    QCOMPARE(editor.list("Tab3List3")->listIndex(), 0);
    editor.select(1);
    for (const char *name : {"Tab3List4", "Tab3List5", "Tab3List6", "Tab3List7"}) {
        QCOMPARE(editor.list(name)->listIndex(), 1);
    }
}

void TestConfigEditorPage::aircraftCfgIsOpenedAndAskedAbout()
{
    Editor editor;
    editor.add("a");
    editor.add("b 58");
    editor.start();
    editor.trace();
    editor.select(1);
    editor.press("Tab3optAircraft");
    editor.press("Tab3cmdedit");
    const QString file = "C:\\FS9\\Aircraft\\b 58\\aircraft.cfg";
    QCOMPARE(editor.started(), QStringList{"Notepad " + file});
    QCOMPARE(editor.outside.processes.windowStyles, QList<int>{1});
    QCOMPARE(editor.outside.dialogs.boxes.value(0).defaultButton, Answer::No);
    QCOMPARE(editor.messages(), QStringList{changed(file)});
    QCOMPARE(editor.traced(), QStringList{"Edit Aircraft.cfg file Notepad " + file});
}

void TestConfigEditorPage::panelValueLeadsToItsOwnPanelFolder()
{
    Editor editor;
    editor.add("b58", "panel=xyz\r\n");
    editor.addPanel("b58\\Panel.xyz", "[fltsim]\r\n");
    editor.addPanel("b58\\Panel", "alias=never\r\n");
    editor.start();
    editor.trace();
    editor.editPanelOf(0);
    const QString file = "C:\\FS9\\Aircraft\\b58\\Panel.xyz\\panel.cfg";
    QCOMPARE(editor.started(), QStringList{"Notepad.exe " + file});
    QCOMPARE(editor.messages(), QStringList{changed(file)});
    QCOMPARE(editor.traced(),
             (QStringList{"Edit Panel.cfg file " + file, "Setting Panel Shell String"}));
}

void TestConfigEditorPage::aircraftWithoutPanelGivesItsMessageAndNoFurtherQuestion()
{
    Editor editor;
    editor.add("a");
    editor.add("b");
    editor.sandbox.makeFolder("C:\\FS9\\Aircraft\\b\\Panel\\panel.cfg"); // a folder is no panel
    editor.start();
    editor.editPanelOf(0);
    editor.editPanelOf(1);
    QCOMPARE(editor.started(), QStringList());
    QCOMPARE(editor.messages(), (QStringList{noPanel, noPanel}));
    editor.press("Tab3optAircraft"); // the next question is asked again
    editor.press("Tab3cmdedit");
    QCOMPARE(editor.messages(), QStringList{changed("C:\\FS9\\Aircraft\\b\\aircraft.cfg")});
}

void TestConfigEditorPage::aliasIsFollowedOrNot_data()
{
    QTest::addColumn<QByteArray>("alias");
    QTest::addColumn<QList<int>>("answers");
    QTest::addColumn<QString>("opened");
    const int yes = static_cast<int>(Answer::Yes);
    const int no = static_cast<int>(Answer::No);
    QTest::newRow("followed") << QByteArray("c172\\panel") << QList<int>{yes}
                              << "C:\\FS9\\Aircraft\\c172\\panel\\panel.cfg";
    QTest::newRow("to itself") << QByteArray("b58\\panel.x") << QList<int>{yes}
                               << "C:\\FS9\\Aircraft\\b58\\panel.x\\panel.cfg";
    QTest::newRow("out of the root")
        << QByteArray("..\\..\\x") << QList<int>{yes} << "C:\\FS9\\Aircraft\\..\\..\\x\\panel.cfg";
    QTest::newRow("no value") << QByteArray("") << QList<int>{yes}
                              << "C:\\FS9\\Aircraft\\\\panel.cfg";
    QTest::newRow("the original") << QByteArray("c172\\panel") << QList<int>{no, yes}
                                  << "C:\\FS9\\Aircraft\\b58\\\\panel\\panel.cfg";
    QTest::newRow("neither") << QByteArray("c172\\panel") << QList<int>{no, no} << "";
}

void TestConfigEditorPage::aliasIsFollowedOrNot()
{
    QFETCH(QByteArray, alias);
    QFETCH(QList<int>, answers);
    QFETCH(QString, opened);
    Editor editor;
    editor.add("b58", "panel=x\r\n");
    editor.addPanel("b58\\Panel.x", "[fltsim]\r\nalias=" + alias + "\r\n");
    editor.start();
    for (const int answer : answers) {
        editor.outside.dialogs.answers.push_back(static_cast<Answer>(answer));
    }
    editor.editPanelOf(0);
    const QStringList messages = editor.messages();
    QCOMPARE(messages.size(), answers.size() + (opened.isEmpty() ? 0 : 1));
    QCOMPARE(editor.started(),
             opened.isEmpty() ? QStringList() : QStringList{"Notepad.exe " + opened});
    if (!opened.isEmpty()) {
        QCOMPARE(messages.last(), changed(opened));
    }
}

void TestConfigEditorPage::aliasThatIsNoPathIsCutInItsQuestion()
{
    constexpr qsizetype tenMegabytes = 10'000'000;
    Editor editor;
    editor.add("b58");
    editor.addPanel("b58\\Panel", "alias=" + QByteArray(tenMegabytes, 'x') + "\r\n");
    editor.start();
    editor.outside.processes.failure = RuntimeError(ErrorNumber::BadFileName);
    editor.outside.dialogs.answers = {Answer::Yes};
    editor.editPanelOf(0);
    const QString shown = QString(200, 'x') + "...";
    QCOMPARE(editor.messages(),
             (QStringList{"Information, Aliased Panel: This Panel is Aiased to " + shown +
                              "\r\rDo you want to edit the aliased Panel?",
                          "Exclamation, Config Editor: Error  52 Bad file name or number\r" +
                              ("Notepad.exe C:\\FS9\\Aircraft\\" + shown).left(200) + "..."}));
}

void TestConfigEditorPage::aliasUnderRotorcraftHasNoSeparator()
{
    Editor editor("C:\\FSX\\Rotorcraft");
    editor.add("Bell");
    editor.addPanel("Bell\\panel", "alias=R22\\panel\r\n");
    editor.start();
    editor.outside.dialogs.answers = {Answer::Yes};
    editor.editPanelOf(0);
    QCOMPARE(editor.started(), QStringList{"Notepad.exe C:\\FSX\\RotorcraftR22\\panel\\panel.cfg"});
}

void TestConfigEditorPage::noToBothAliasQuestionsGoesOnSuppressing()
{
    Editor editor;
    editor.add("a");
    editor.addPanel("a\\panel", "alias=b\\panel\r\n");
    editor.add("b");
    editor.addPanel("b\\panel", "[fltsim]\r\n");
    editor.start();
    editor.outside.dialogs.answers = {Answer::No, Answer::No};
    editor.editPanelOf(0);
    QCOMPARE(editor.messages().size(), 2);
    editor.editPanelOf(1); // has no alias, so the answer is the one before
    QCOMPARE(editor.messages(), QStringList());
    QCOMPARE(editor.started(), QStringList());
    editor.outside.dialogs.answers = {Answer::Yes};
    editor.editPanelOf(0);
    editor.editPanelOf(1);
    QCOMPARE(editor.started(), (QStringList{"Notepad.exe C:\\FS9\\Aircraft\\b\\panel\\panel.cfg",
                                            "Notepad.exe C:\\FS9\\Aircraft\\b\\Panel\\panel.cfg"}));
}

void TestConfigEditorPage::questionsOfAnAliasAreWordedSo()
{
    Editor editor;
    editor.add("a");
    editor.addPanel("a\\panel", "alias= b\\panel \r\n");
    editor.start();
    editor.outside.dialogs.answers = {Answer::No, Answer::No};
    editor.editPanelOf(0);
    QCOMPARE(editor.messages(),
             (QStringList{"Information, Aliased Panel: This Panel is Aiased to  b\\panel \r\r"
                          "Do you want to edit the aliased Panel?",
                          "Information, Original Panel: Do you want to edit this non-aliased "
                          "Panel?\r\rC:\\FS9\\Aircraft\\a\\Panel\\panel.cfg"}));
}

void TestConfigEditorPage::longAliasIsCutInTheQuestions_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("alias");
    QTest::addColumn<QString>("question");
    const QString root = "C:\\FS9\\Aircraft\\";
    QTest::newRow("short") << 200 << QString(200, 'x')
                           << changed(root + QString(200, 'x') + "\\panel.cfg");
    QTest::newRow("one more") << 201 << QString(200, 'x') + "..."
                              << changed(root + QString(201, 'x') + "\\panel.cfg");
    QTest::newRow("10 MB") << 10'000'000 << QString(200, 'x') + "..."
                           << changed(root + QString(200 - root.size(), 'x') + "...");
}

void TestConfigEditorPage::longAliasIsCutInTheQuestions()
{
    QFETCH(int, length);
    QFETCH(QString, alias);
    QFETCH(QString, question);
    Editor editor;
    editor.add("a");
    editor.addPanel("a\\panel", "alias=" + QByteArray(length, 'x') + "\r\n");
    editor.start();
    editor.outside.dialogs.answers = {Answer::Yes};
    editor.editPanelOf(0);
    QCOMPARE(editor.messages(),
             (QStringList{"Information, Aliased Panel: This Panel is Aiased to " + alias +
                              "\r\rDo you want to edit the aliased Panel?",
                          question}));
}

void TestConfigEditorPage::withoutAliasThePanelIsOpenedAtOnce_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no alias") << QByteArray("[fltsim]\r\n");
    QTest::newRow("capital") << QByteArray("Alias=b\\panel\r\n");
    QTest::newRow("blank before it") << QByteArray(" alias=b\\panel\r\n");
    QTest::newRow("empty") << QByteArray();
}

void TestConfigEditorPage::withoutAliasThePanelIsOpenedAtOnce()
{
    QFETCH(QByteArray, bytes);
    Editor editor;
    editor.add("a");
    editor.addPanel("a\\panel", bytes);
    editor.start();
    editor.editPanelOf(0);
    const QString file = "C:\\FS9\\Aircraft\\a\\Panel\\panel.cfg";
    QCOMPARE(editor.started(), QStringList{"Notepad.exe " + file});
    QCOMPARE(editor.messages(), QStringList{changed(file)});
}

void TestConfigEditorPage::panelThatCannotBeReadIsReported()
{
    NEEDS(permissions);
    Editor editor;
    editor.add("a");
    editor.addPanel("a\\Panel", "alias=b\r\n");
    editor.start();
    QFile::setPermissions(editor.sandbox.host("C:\\FS9\\Aircraft\\a\\Panel\\panel.cfg"), {});
    const OrdinaryUser user(editor.sandbox);
    editor.editPanelOf(0);
    QCOMPARE(editor.messages(),
             QStringList{"Exclamation, Config Editor: Error  75 Path/File access error\rOpening "
                         "C:\\FS9\\Aircraft\\a\\Panel\\panel.cfg"});
    QCOMPARE(editor.started(), QStringList());
}

void TestConfigEditorPage::changedFileReloadsTheListAndKeepsTheAircraft()
{
    Editor editor;
    editor.add("b");
    editor.start();
    const QSignalSpy edited(editor.window.get(), &ConfigEditorPage::aircraftEdited);
    editor.select(0);
    editor.press("Tab3optAircraft");
    editor.press("Tab3cmdedit");
    QCOMPARE(edited.count(), 0);
    editor.add("b", "title=New\r\n");
    editor.add("a");
    editor.press("Tab3cmdedit"); // answered No: the list stays
    QCOMPARE(editor.items("Tab3List3"), QStringList{"M - T - V - b"});
    editor.outside.dialogs.answers = {Answer::Yes};
    editor.press("Tab3cmdedit");
    QCOMPARE(editor.items("Tab3List3"), (QStringList{"M - T - V - a", "M - T - V - New"}));
    QCOMPARE(editor.items("Tab3List1").size(), 2);
    QCOMPARE(editor.label("Tab3Label2"), QString("Total Aircraft: 2"));
    QCOMPARE(editor.list("Tab3List3")->listIndex(), 1);
    QCOMPARE(editor.items("Tab3Dir1"), (QStringList{"C:\\", "FS9", "Aircraft", "a", "b"}));
    QCOMPARE(edited.count(), 1);
}

void TestConfigEditorPage::directoryThatIsGoneAfterAChangeIsReportedByTheLoading()
{
    Editor editor;
    editor.add("a");
    editor.start();
    editor.select(0);
    editor.press("Tab3optAircraft");
    editor.outside.dialogs.answers = {Answer::Yes};
    editor.outside.dialogs.whileShown = [&] {
        QDir(editor.sandbox.host("C:\\FS9")).removeRecursively();
    };
    editor.press("Tab3cmdedit");
    QCOMPARE(editor.messages(),
             (QStringList{changed("C:\\FS9\\Aircraft\\a\\aircraft.cfg"),
                          "Exclamation, Tab3LoadList Error: Error  76 Path not found\r"
                          "Loop through Aircraft Directories"}));
    QCOMPARE(editor.items("Tab3List3"), QStringList());
    QCOMPARE(editor.label("Tab3Label2"), QString("Total Aircraft: "));
    QVERIFY(editor.isShown("Tab3List3"));
    QVERIFY(!editor.isShown("noAircraftLabel"));
}

void TestConfigEditorPage::neitherOptionAsksAboutTheLastFile()
{
    Editor editor;
    editor.add("a");
    editor.start();
    editor.select(0);
    editor.press("Tab3cmdedit");
    QCOMPARE(editor.messages(), QStringList{changed("")});
    QCOMPARE(editor.started(), QStringList());
}

void TestConfigEditorPage::withoutAnAircraftNothingIsOpened()
{
    Editor editor;
    editor.add("a");
    editor.start();
    editor.press("Tab3optAircraft");
    editor.press("Tab3cmdedit");
    QCOMPARE(editor.messages(),
             QStringList{"Information, Config Editor: Please select an Aircraft to edit!"});
    QCOMPARE(editor.started(), QStringList());
}

void TestConfigEditorPage::promptIsNoAircraft()
{
    Editor editor;
    editor.sandbox.write("C:\\FS9\\Aircraft\\x\\aircraft.cfg", "");
    editor.start();
    QVERIFY(editor.isEnabled("Tab3chkDumpList"));
    editor.window->showFirstAircraft(); // as at start-up, when nothing is listed
    QCOMPARE(editor.items("Tab3List3"), QStringList{prompt});
    QVERIFY(!editor.isEnabled("Tab3chkDumpList"));
    editor.editPanelOf(0);
    QCOMPARE(editor.messages(),
             QStringList{"Information, Config Editor: Please select an Aircraft to edit!"});
    QCOMPARE(editor.started(), QStringList());
}

void TestConfigEditorPage::notepadThatCannotBeStartedIsReported()
{
    Editor editor;
    editor.add("a");
    editor.start();
    editor.outside.processes.failure = RuntimeError(ErrorNumber::FileNotFound);
    editor.select(0);
    editor.press("Tab3optAircraft");
    editor.press("Tab3cmdedit");
    QCOMPARE(editor.messages(), QStringList{"Exclamation, Config Editor: Error  53 File not found\r"
                                            "Notepad C:\\FS9\\Aircraft\\a\\aircraft.cfg"});
}

void TestConfigEditorPage::notepadTakesAnyNameAsOneArgument_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("blanks") << "a  b c";
    QTest::newRow("quote") << "a'b' c";
    QTest::newRow("command") << "$(touch x)";
    QTest::newRow("semicolon") << "a; touch x";
    QTest::newRow("ampersand") << "a & touch x #`touch x`";
}

void TestConfigEditorPage::notepadTakesAnyNameAsOneArgument()
{
    NEEDS(permissions);
    NEEDS(shellScripts);
    QFETCH(QString, folder);
    Editor editor;
    editor.add(folder);
    editor.addPanel(folder + "\\Panel", "");
    editor.start();
    editor.select(0);
    editor.press("Tab3optAircraft");
    editor.press("Tab3cmdedit");
    editor.editPanelOf(0);
    // A real program in Notepad's place writes down what reaches it.
    const QString notepad = "C:\\windows\\system32\\NotePad.exe";
    editor.sandbox.write(notepad, "#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\" >seen\n");
    QFile::setPermissions(editor.sandbox.host(notepad), QFile::ReadOwner | QFile::ExeOwner);
    const QString aircraft = editor.directory + '\\' + folder;
    for (const QString &file : {aircraft + "\\aircraft.cfg", aircraft + "\\Panel\\panel.cfg"}) {
        SystemProcesses processes(notepadSubstitutes());
        const auto process = processes.start(editor.outside.processes.started.takeFirst(), 1);
        QTRY_COMPARE(process->exitCode(), 0);
        const QString workedIn = file.first(file.lastIndexOf('\\') + 1);
        QString seen = QString::fromUtf8(editor.sandbox.read(workedIn + "seen"));
        seen.replace("dosdevices/c:", "drive_c");
        QCOMPARE(seen, "1|" + editor.sandbox.host(file));
        QVERIFY(!editor.sandbox.exists(workedIn + "x"));
    }
}

void TestConfigEditorPage::dumpWritesTheListingAndOffersIt()
{
    Editor editor;
    editor.add("a");
    editor.add("b");
    editor.start();
    editor.trace();
    editor.sandbox.write("C:\\Morlen\\AircraftList.txt", QByteArray(5000, 'x'));
    editor.press("Tab3chkDumpList");
    const QList<QByteArray> lines = editor.sandbox.read("C:\\Morlen\\AircraftList.txt").split('\n');
    QCOMPARE(lines.size(), 8); // the last one is empty, behind the last line end
    QCOMPARE(lines[3], "M - T - V - a" + QByteArray(62, ' ') + "  \\a\r");
    QCOMPARE(lines[4], "M - T - V - b" + QByteArray(62, ' ') + "  \\b\r");
    QVERIFY(lines[6].startsWith("Varlo Aircraft Listing - Sunday, November, 01, 2026 "));
    const MessageBox box = editor.outside.dialogs.boxes.value(0);
    QCOMPARE(box.buttons, MessageBox::Buttons::YesNo);
    QCOMPARE(box.defaultButton, Answer::No);
    QCOMPARE(editor.messages(),
             QStringList{"Information, Aircraft Text Listing: Current Aircraft listing has been "
                         "saved to: \r\rC:\\Morlen\\AircraftList.txt\r\r"
                         "Do you want to view the Aircraft Listing now?"});
    QCOMPARE(editor.traced(),
             (QStringList{"Dumping Aircraft Listing to C:\\Morlen\\AircraftList.txt",
                          "Dump Completed"}));
    QVERIFY(!editor.isTicked());
    QCOMPARE(editor.started(), QStringList());
}

void TestConfigEditorPage::dumpSelectsEachEntryAsItIsWritten()
{
    const Editor editor;
    for (const char *folder : {"a", "b", "c"}) {
        editor.add(folder);
    }
    editor.start();
    const auto *const list = editor.list("Tab3List7");
    QList<int> selected;
    connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [&](const QModelIndex &entry) { selected += entry.row(); });
    editor.press("Tab3chkDumpList");
    QCOMPARE(selected, (QList<int>{0, 1, 2}));
    QCOMPARE(editor.list("Tab3List3")->listIndex(), -1); // the user's own selection stays
}

void TestConfigEditorPage::dumpWithNoAircraftListedHasHeadingsRuleAndTitle()
{
    const Editor editor;
    editor.start();
    editor.press("Tab3chkDumpList");
    const QList<QByteArray> lines = editor.sandbox.read("C:\\Morlen\\AircraftList.txt").split('\n');
    QCOMPARE(lines.size(), 6);
    QCOMPARE(lines[3], QByteArray(105, '=') + '\r');
}

void TestConfigEditorPage::viewedListingLeavesTheBoxTicked()
{
    Editor editor;
    editor.start();
    editor.outside.dialogs.answers = {Answer::Yes};
    editor.press("Tab3chkDumpList");
    QVERIFY(editor.isTicked());
    QCOMPARE(editor.started(), QStringList{"Notepad C:\\Morlen\\AircraftList.txt"});
    editor.press("Tab3chkDumpList"); // cleared: nothing is dumped
    QCOMPARE(editor.messages().size(), 1);
    editor.press("Tab3chkDumpList"); // ticked again: the second dump
    QCOMPARE(editor.messages().size(), 1);
}

void TestConfigEditorPage::readOnlyListingIsReportedAndStaysAsItWas()
{
    NEEDS(permissions);
    Editor editor;
    editor.add("a");
    editor.start();
    editor.sandbox.write("C:\\Morlen\\AircraftList.txt", "mine");
    QFile::setPermissions(editor.sandbox.host("C:\\Morlen\\AircraftList.txt"), QFile::ReadOwner);
    {
        const OrdinaryUser user(editor.sandbox);
        editor.press("Tab3chkDumpList");
    }
    QCOMPARE(editor.messages(),
             QStringList{"Exclamation, DumpList Error: Error  75 Path/File access error\r"
                         "Opening C:\\Morlen\\AircraftList.txt"});
    QCOMPARE(editor.sandbox.read("C:\\Morlen\\AircraftList.txt"), QByteArray("mine"));
    QVERIFY(!editor.isTicked());
}

void TestConfigEditorPage::listingThatNotepadCannotShowLeavesTheBoxTicked()
{
    Editor editor;
    editor.start();
    editor.outside.dialogs.answers = {Answer::Yes};
    editor.outside.processes.failure = RuntimeError(ErrorNumber::FileNotFound);
    editor.press("Tab3chkDumpList");
    QCOMPARE(editor.messages().last(), QString("Exclamation, DumpList Error: Error  53 File not "
                                               "found\rNotepad C:\\Morlen\\AircraftList.txt"));
    QVERIFY(editor.isTicked());
}

void TestConfigEditorPage::folderNamedLikeTheNoticeIsAnAircraft()
{
    const Editor editor;
    editor.add("All Aircraft Extra");
    editor.add("b58");
    editor.start();
    QCOMPARE(editor.items("Tab3List2"), (QStringList{"All Aircraft Extra", "b58"}));
    QVERIFY(editor.isShown("Tab3cmdedit"));
    QVERIFY(!editor.isShown("noAircraftLabel"));
}

void TestConfigEditorPage::varloIsALinkWhenInstalled()
{
    const Editor editor;
    const QSignalSpy wanted(editor.window.get(), &ConfigEditorPage::varloWanted);
    auto *const label = editor.find<LinkLabel>("Tab3Label6");
    editor.window->showVarlo();
    QCOMPARE(label->text(), QString("Varlo"));
    QCOMPARE(label->focusPolicy(), Qt::NoFocus);
    QVERIFY(label->testAttribute(Qt::WA_TransparentForMouseEvents));
    QCOMPARE(label->foregroundRole(), QPalette::WindowText);
    editor.window->offerVarlo(true);
    QCOMPARE(label->foregroundRole(), QPalette::Link);
    QCOMPARE(label->focusPolicy(), Qt::TabFocus);
    QVERIFY(!label->testAttribute(Qt::WA_TransparentForMouseEvents));
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(wanted.count(), 1);
}

QTEST_MAIN(TestConfigEditorPage)
#include "test_config_editor_page.moc"
