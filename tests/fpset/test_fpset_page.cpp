// SPDX-License-Identifier: MIT
// Page 2, step by step: what each step enables, shows, writes and asks of the other pages.
#include "app/services/link_label.h"
#include "tests/support/fpset_driver.h"

namespace
{

using User = FpSetDriver;
const QString airports = User::airports;
const QString aircraft = User::aircraft;

// What is enabled while a set is named, TTools being known from an earlier run.
const QStringList naming = {"tab2TToolsDir", "tab2txtTToolsDir", "tab2cmdFindTTools",
                            "tab2Frame12",   "tab2txtFltPlan",   "tab2Command2",
                            "tab2cmdCancel", "tab2cmdQuit"};
const QStringList airportStep = {"tab2txtTToolsDir",  "tab2Frame12",     "tab2Frame2",
                                 "tab2optCreatefile", "tab2optCopyFile", "tab2cmdAirport",
                                 "tab2cmdCancel",     "tab2cmdQuit"};

const QStringList aircraftStep = {"tab2txtTToolsDir",
                                  "tab2Frame12",
                                  "tab2Frame2",
                                  "tab2Frame3",
                                  "tab2optCreateNewAircraft",
                                  "tab2optCopyExistingAircraft",
                                  "tab2cmdCancel",
                                  "tab2cmdQuit"};
const QStringList creationStep = {"tab2txtTToolsDir", "tab2Frame12", "tab2Frame2",
                                  "tab2Frame3",       "tab2Frame4",  "tab2cmdCreateNewFP",
                                  "tab2cmdCancel",    "tab2cmdQuit"};

} // namespace

class TestFpSetPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlHasItsDesignTexts_data();
    void controlHasItsDesignTexts();
    void pageComesUpAskingForTTools();
    void knownTToolsLetsASetBeNamed();

    void chosenTToolsLetsASetBeNamed();
    void longTToolsPathIsShownByItsLast50Characters_data();
    void longTToolsPathIsShownByItsLast50Characters();
    void programOfAnotherNameLengthGivesADirectoryCutAtTheWrongPlace();
    void cancelledOrMissingTToolsIsAskedForAgain_data();
    void cancelledOrMissingTToolsIsAskedForAgain();
    void cancelledBrowseForgetsTheDirectoryBefore();

    void prefixAloneAndShortNamesOnlyBeep_data();
    void prefixAloneAndShortNamesOnlyBeep();
    void nameWithoutExtensionGetsOneAndPasses();
    void enterInTheNameBoxVerifies();
    void invalidNameIsRefusedAndKept_data();
    void invalidNameIsRefusedAndKept();
    void upperCaseExtensionGetsASecondOneAndIsRefused();
    void nameInUseIsRefused();
    void existingAirportFileOfThatNameDoesNotBlockIt();
    void verifiedNameOpensTheAirportStep();

    void airportButtonWithNothingChosenWaits();
    void createNewAirportsDisablesTheAirportBox();
    void copyAirportsEnablesTheAircraftBox();
    void newAirportFileIsHandedToPage1();
    void reminderIsShownWhenItIsStillWanted();
    void cancelledAirportDialogChangesNothing();
    void chosenAirportFileOpensTheAircraftStep();
    void airportsWrittenShowTheFilesName();
    void airportsCountForASetThatWaitsForThem();

    void aircraftOptionsSetTheButtonAndTheBox();
    void newAircraftFileIsMadeAndHandedToPage0();
    void existingAircraftFileOfThatNameIsHandedOverUnchanged();
    void aircraftNameWindowsRefusesKeepsTheStep_data();
    void aircraftNameWindowsRefusesKeepsTheStep();
    void cancelledAircraftDialogGoesOnAllTheSame();
    void chosenAircraftFileOpensTheCreationStep();
    void aircraftAddedComeBackToTheCreationButton();
    void aircraftAddedWithoutASetAreRemembered();
    void readOnlyDirectoryKeepsTheAircraftStep();

    void quitThatSaysAllDoneClearsFirst();
    void quitAndHelpAreAsked();
    void traceThatCannotBeWrittenIsReported();
};

void TestFpSetPage::controlHasItsDesignTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    const auto add = [](const char *name, const char *text, const char *toolTip) {
        QTest::newRow(name) << QString(text) << QString(toolTip);
    };
    add("tab2TToolsDir", "Select yourTTools Directory", "");
    add("tab2txtTToolsDir", "", " TTools Directory Path ");
    add("tab2cmdFindTTools", "Browse", " Click to Browse for your TTools Directory ");
    add("tab2Frame12", " Name the new Flightplan Set ", "");
    add("tab2txtFltPlan", "FlightPlans_", " Enter a Name for the New FlightPlan Text File Set ");
    add("tab2Command2", "Verify", " Click to verify the new FlightPlan Name ");
    add("tab2Frame2", " Create new Airport.txt File ", "");
    add("tab2optCreatefile", "Create New", " Click to create a new Airport Text File ");
    add("tab2optCopyFile", "Copy existing File",
        " Click to copy the contents of an existing Airport Text file into the new Airport Text "
        "File ");
    add("tab2txtAirport", "", "");
    add("tab2cmdAirport", "Browse", "");
    add("tab2Frame3", " Create new Aircraft.txt File", "");
    add("tab2optCreateNewAircraft", "Create New",
        " Create an empty Aircraft Text file and add Aircraft to it later ");
    add("tab2optCopyExistingAircraft", "Copy existing File",
        " Click to copy the contents of an existing Aircraft Text file into the new Aircraft Text "
        "File ");
    add("tab2txtAircraft", "", "");
    add("tab2cmdAircraft", "Browse", "");
    add("tab2Frame4", " Create the new FlightPlan Set ", "");
    add("tab2cmdCreateNewFP", "Create New FlightPlan Set",
        " Click to create the new FlightPlan Set ");
    add("tab2cmdCancel", "Clear", " OOPS! ");
    add("tab2cmdQuit", "Quit", "");
}

void TestFpSetPage::controlHasItsDesignTexts()
{
    const User user;
    const auto *const control = user.find<QWidget>(QTest::currentDataTag());
    const QString kind = control->metaObject()->className();
    const char *const property = kind == "QGroupBox" ? "title" : "text";
    QTEST(control->property(property).toString(), "text");
    QTEST(control->toolTip(), "toolTip");
}

void TestFpSetPage::pageComesUpAskingForTTools()
{
    const User user;
    QCOMPARE(user.enabled(), (QStringList{"tab2TToolsDir", "tab2txtTToolsDir", "tab2cmdFindTTools",
                                          "tab2cmdCancel", "tab2cmdQuit"}));
    QCOMPARE(user.highlighted(), (QStringList{"tab2TToolsDir"}));
    QVERIFY(user.caretIsAtEnd());
    QCOMPARE(user.state().DefaultName, QString("FlightPlans_"));
}

void TestFpSetPage::knownTToolsLetsASetBeNamed()
{
    User user;
    user.knowTTools();
    QCOMPARE(user.text("tab2txtTToolsDir"), User::tTools);
    QCOMPARE(user.find<QGroupBox>("tab2TToolsDir")->title(), QString("TTools Directory"));
    QCOMPARE(user.enabled(), naming);
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame12"}));
}

void TestFpSetPage::chosenTToolsLetsASetBeNamed()
{
    User user;
    user.trace();
    user.chooseTTools(User::tTools);
    QCOMPARE(user.outside.dialogs.fileDialogs[0].filter,
             QString("Traffic Tools (TTools) (*.exe)|TTools*.exe|"));
    QCOMPARE(user.state().strTToolsPath, User::tTools);
    QCOMPARE(user.state().strTToolsDir, QString("C:\\TTools\\"));
    QCOMPARE(user.enabled(), (QStringList{"tab2TToolsDir", "tab2Frame12", "tab2txtFltPlan",
                                          "tab2Command2", "tab2cmdCancel", "tab2cmdQuit"}));
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame12"}));
    QCOMPARE(user.find<QGroupBox>("tab2TToolsDir")->title(), QString("TTools Directory"));
    QCOMPARE(User::focus(), QString("tab2txtFltPlan"));
    QCOMPARE(user.traced(), (QStringList{"TTools Path = C:\\TTools\\TTools.exe",
                                         "TTools Directory = C:\\TTools\\"}));
    QCOMPARE(user.messages(), QStringList());
}

void TestFpSetPage::longTToolsPathIsShownByItsLast50Characters_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("whole");
    QTest::newRow("50 characters") << 50 << true;
    QTest::newRow("51 characters") << 51 << false;
}

void TestFpSetPage::longTToolsPathIsShownByItsLast50Characters()
{
    QFETCH(int, length);
    QFETCH(bool, whole);
    const QString path = "C:\\" + QString(length - 14, 'd') + "\\TTools.exe";
    User user;
    user.sandbox.write(path, "MZ");
    user.chooseTTools(path);
    QCOMPARE(user.text("tab2txtTToolsDir"), whole ? path : "..." + path.last(50));
    QCOMPARE(user.state().strTToolsPath, path);
}

void TestFpSetPage::programOfAnotherNameLengthGivesADirectoryCutAtTheWrongPlace()
{
    User user;
    user.sandbox.write("C:\\TTools\\TTools210.exe", "MZ");
    user.chooseTTools("C:\\TTools\\TTools210.exe");
    QCOMPARE(user.state().strTToolsDir, QString("C:\\TTools\\TTo"));
    user.verify("FlightPlans_Alpha");
    user.createAirports();
    QCOMPARE(user.asked.first(), QString("airports C:\\TTools\\TToAirports_Alpha.txt"));
}

void TestFpSetPage::cancelledOrMissingTToolsIsAskedForAgain_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("cancelled") << "";
    QTest::newRow("missing") << "C:\\Gone\\TTools.exe";
    QTest::newRow("empty") << "C:\\Empty\\TTools.exe";
}

void TestFpSetPage::cancelledOrMissingTToolsIsAskedForAgain()
{
    QFETCH(QString, path);
    User user;
    user.sandbox.write("C:\\Empty\\TTools.exe", {});
    user.chooseTTools(path);
    QCOMPARE(user.messages(),
             (QStringList{"None, Morlen Utilities: Please select your TTools directory!"}));
    QCOMPARE(user.text("tab2txtTToolsDir"), QString());
    QCOMPARE(User::focus(), QString("tab2txtTToolsDir"));
    QCOMPARE(user.state().strTToolsPath, path);
    QVERIFY(!user.find<QWidget>("tab2txtFltPlan")->isEnabled());
    QCOMPARE(user.highlighted(), (QStringList{"tab2TToolsDir"}));
}

void TestFpSetPage::cancelledBrowseForgetsTheDirectoryBefore()
{
    User user;
    user.knowTTools();
    user.chooseTTools({});
    QCOMPARE(user.state().strTToolsDir, QString());
    QCOMPARE(user.highlighted(), (QStringList{"tab2TToolsDir"}));
    QVERIFY(!user.find<QWidget>("tab2Command2")->isEnabled());
}

void TestFpSetPage::prefixAloneAndShortNamesOnlyBeep_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("exactly the prefix") << "FlightPlans_";
    QTest::newRow("11 characters") << "FlightPlans";
    QTest::newRow("empty") << "";
}

void TestFpSetPage::prefixAloneAndShortNamesOnlyBeep()
{
    QFETCH(QString, name);
    User user;
    user.name(name);
    QCOMPARE(user.messages(), QStringList());
    QCOMPARE(user.text("tab2txtFltPlan"), QString("FlightPlans_"));
    QVERIFY(user.caretIsAtEnd());
    QCOMPARE(User::focus(), QString("tab2txtFltPlan"));
    QCOMPARE(user.enabled(), naming);
}

void TestFpSetPage::nameWithoutExtensionGetsOneAndPasses()
{
    User user;
    user.name("FlightPlans_Alpha");
    QCOMPARE(user.text("tab2txtFltPlan"), QString("FlightPlans_Alpha.txt"));
    QCOMPARE(user.enabled(), airportStep);
}

void TestFpSetPage::enterInTheNameBoxVerifies()
{
    User user;
    user.knowTTools();
    user.window->focusNameBox();
    QTest::keyClicks(QApplication::focusWidget(), "Alpha");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(user.text("tab2txtFltPlan"), QString("FlightPlans_Alpha.txt"));
    QCOMPARE(user.enabled(), airportStep);
}

void TestFpSetPage::invalidNameIsRefusedAndKept_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("kept");
    QTest::newRow("two dots") << "FlightPlans_v1.2.txt"
                              << "FlightPlans_v1.2.txt";
    QTest::newRow("a word before") << "MyFlightPlans_Alpha.txt"
                                   << "MyFlightPlans_Alpha.txt";
    QTest::newRow("another name") << "Alpha and Bravo"
                                  << "Alpha and Bravo.txt";
}

void TestFpSetPage::invalidNameIsRefusedAndKept()
{
    QFETCH(QString, name);
    User user;
    user.name(name);
    QCOMPARE(user.messages(), (QStringList{"Critical, Name Error: Invalid File Name!"}));
    QTEST(user.text("tab2txtFltPlan"), "kept");
    QVERIFY(user.caretIsAtEnd());
    QCOMPARE(User::focus(), QString("tab2txtFltPlan"));
    QCOMPARE(user.enabled(), naming);
}

void TestFpSetPage::upperCaseExtensionGetsASecondOneAndIsRefused()
{
    User user;
    user.name("FlightPlans_Alpha.TXT");
    QCOMPARE(user.messages(), (QStringList{"Critical, Name Error: Invalid File Name!"}));
    QCOMPARE(user.text("tab2txtFltPlan"), QString("FlightPlans_Alpha.TXT.txt"));
}

void TestFpSetPage::nameInUseIsRefused()
{
    User user;
    user.sandbox.write("C:\\TTools\\flightplans_ALPHA.txt", "AC#1\r\n");
    user.name();
    QCOMPARE(user.messages(),
             (QStringList{"Critical, File Error: Sorry!  That name is already in use"}));
    QCOMPARE(user.text("tab2txtFltPlan"), QString("FlightPlans_"));
    QVERIFY(user.caretIsAtEnd());
    QCOMPARE(User::focus(), QString("tab2txtFltPlan"));
    QCOMPARE(user.enabled(), naming);
}

void TestFpSetPage::existingAirportFileOfThatNameDoesNotBlockIt()
{
    User user;
    user.sandbox.write(airports, "KSEA\r\n");
    user.sandbox.write(aircraft, "AC#1\r\n");
    user.name();
    QCOMPARE(user.messages(), QStringList());
    QCOMPARE(user.enabled(), airportStep);
}

void TestFpSetPage::verifiedNameOpensTheAirportStep()
{
    User user;
    user.trace();
    user.name("flightplans_alpha.txt");
    QCOMPARE(user.enabled(), airportStep);
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame2"}));
    QVERIFY(!user.isChosen("tab2optCreatefile") && !user.isChosen("tab2optCopyFile"));
    QCOMPARE(user.find<QGroupBox>("tab2Frame2")->title(), QString(" Create a new Airports File"));
    QCOMPARE(user.find<QGroupBox>("tab2Frame3")->title(), QString(" Create a new Aircraft File"));
    QCOMPARE(user.find<QWidget>("tab2optCreatefile")->toolTip(),
             QString(" Click to create a new Airports File"));
    QCOMPARE(user.traced(), (QStringList{"FlightPlan File = C:\\TTools\\flightplans_alpha.txt"}));
    user.createAirports();
    QCOMPARE(user.asked.first(), QString("airports C:\\TTools\\Airports_alpha.txt"));
}

void TestFpSetPage::airportButtonWithNothingChosenWaits()
{
    User user;
    user.name();
    user.press("tab2cmdAirport");
    QCOMPARE(user.enabled(), airportStep);
    QCOMPARE(user.asked, QStringList());
    QCOMPARE(user.outside.dialogs.fileDialogs.size(), 0);
    QCOMPARE(User::focus(), QString("tab2optCreatefile"));
}

void TestFpSetPage::createNewAirportsDisablesTheAirportBox()
{
    User user;
    user.name();
    user.press("tab2optCreatefile");
    QCOMPARE(user.caption("tab2cmdAirport"), QString("OK"));
    QCOMPARE(User::focus(), QString("tab2cmdAirport"));
    QCOMPARE(user.enabled(), airportStep);
}

void TestFpSetPage::copyAirportsEnablesTheAircraftBox()
{
    User user;
    user.name();
    user.press("tab2optCreatefile");
    user.press("tab2optCopyFile");
    QCOMPARE(user.caption("tab2cmdAirport"), QString("Browse"));
    QCOMPARE(User::focus(), QString("tab2cmdAirport"));
    QVERIFY(user.enabled().contains("tab2txtAircraft"));
    QVERIFY(!user.enabled().contains("tab2txtAirport"));
}

void TestFpSetPage::newAirportFileIsHandedToPage1()
{
    User user;
    user.name();
    user.trace();
    user.createAirports();
    QCOMPARE(user.asked, (QStringList{"airports " + airports}));
    QVERIFY(user.set.newAirportFlag);
    QVERIFY(!user.set.AddAirportsFlag);
    QCOMPARE(user.traced(), (QStringList{"Airport Text File = " + airports}));
    QCOMPARE(user.text("tab2txtAirport"), QString());
    QCOMPARE(user.enabled(), aircraftStep);
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame3"}));
    QCOMPARE(user.files(), QStringList());
}

void TestFpSetPage::reminderIsShownWhenItIsStillWanted()
{
    User user;
    user.state().ShowAddAirportHelp = true;
    user.name();
    user.createAirports();
    QCOMPARE(user.asked, (QStringList{"airports " + airports, "reminder"}));
}

void TestFpSetPage::cancelledAirportDialogChangesNothing()
{
    User user;
    user.name();
    user.press("tab2optCopyFile");
    const QStringList before = user.enabled();
    user.press("tab2cmdAirport");
    QCOMPARE(user.messages(), (QStringList{"Exclamation, FlightSim Directory Error: Please select "
                                           "the Airports Text File!"}));
    QCOMPARE(user.enabled(), before);
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame2"}));
}

void TestFpSetPage::chosenAirportFileOpensTheAircraftStep()
{
    User user;
    user.name();
    user.trace();
    user.copyAirports(User::oldAirports);
    QCOMPARE(user.outside.dialogs.fileDialogs[0].filter,
             QString("Airport Text Files (*.txt)|airports*.txt|"));
    QCOMPARE(user.text("tab2txtAirport"), User::oldAirports);
    QCOMPARE(user.traced(), (QStringList{"Airport Text File = " + User::oldAirports}));
    QStringList expected = aircraftStep;
    expected.insert(expected.indexOf("tab2optCopyExistingAircraft") + 1, "tab2txtAircraft");
    QCOMPARE(user.enabled(), expected);
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame3"}));
    QVERIFY(user.isChosen("tab2optCopyFile"));
    QVERIFY(!user.isChosen("tab2optCreateNewAircraft"));
    QVERIFY(!user.isChosen("tab2optCopyExistingAircraft"));
    QCOMPARE(user.find<QWidget>("tab2optCreateNewAircraft")->toolTip(),
             QString(" Create an empty Aircraft File and add Aircraft to it later "));
    QCOMPARE(user.asked, QStringList());
    QVERIFY(!user.set.newAirportFlag);
}

void TestFpSetPage::airportsWrittenShowTheFilesName()
{
    User user;
    user.name();
    user.createAirports();
    user.addAirports();
    QCOMPARE(user.text("tab2txtAirport"), QString("Airports_Alpha.txt"));
}

void TestFpSetPage::airportsCountForASetThatWaitsForThem()
{
    User user;
    user.name();
    user.window->continueWithAirports(User::airports); // by a user who went there alone
    QVERIFY(!user.set.AddAirportsFlag);
    QCOMPARE(user.text("tab2txtAirport"), QString());
    user.createAirports();
    user.window->continueWithAirports({});
    QVERIFY(!user.set.AddAirportsFlag); // nothing was written
    user.window->continueWithAirports(User::oldAirports);
    QVERIFY(!user.set.AddAirportsFlag); // to another file
    user.window->continueWithAirports("c:\\ttools\\AIRPORTS_Alpha.txt");
    QVERIFY(user.set.AddAirportsFlag);
    user.window->continueWithAirports({});
    QVERIFY(user.set.AddAirportsFlag); // nothing more: the earlier ones still count
}

void TestFpSetPage::aircraftOptionsSetTheButtonAndTheBox()
{
    User user;
    user.name();
    user.createAirports();
    user.press("tab2optCopyExistingAircraft");
    QCOMPARE(user.caption("tab2cmdAircraft"), QString("Browse"));
    QCOMPARE(User::focus(), QString("tab2cmdAircraft"));
    QVERIFY(user.enabled().contains("tab2txtAircraft"));
    user.press("tab2optCreateNewAircraft");
    QCOMPARE(user.caption("tab2cmdAircraft"), QString("OK"));
    QCOMPARE(User::focus(), QString("tab2cmdAircraft"));
    QVERIFY(user.enabled().contains("tab2cmdAircraft"));
    QVERIFY(!user.enabled().contains("tab2txtAircraft"));
}

void TestFpSetPage::newAircraftFileIsMadeAndHandedToPage0()
{
    User user;
    user.name();
    user.createAirports();
    user.asked.clear();
    user.trace();
    user.createAircraft();
    QCOMPARE(user.asked, (QStringList{"aircraft " + aircraft}));
    QCOMPARE(user.traced(), (QStringList{"Creating  " + aircraft}));
    QCOMPARE(user.sandbox.read(aircraft), QByteArray());
    QVERIFY(user.set.reLoadNewPlan);
    QCOMPARE(user.enabled(), creationStep);
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame4"}));
    QCOMPARE(User::focus(), QString("tab2cmdCreateNewFP"));
}

void TestFpSetPage::existingAircraftFileOfThatNameIsHandedOverUnchanged()
{
    User user;
    user.sandbox.write(aircraft, "AC#1,454,\"Airbus\"");
    user.name();
    user.createAirports();
    user.createAircraft();
    QCOMPARE(user.sandbox.read(aircraft), QByteArray("AC#1,454,\"Airbus\""));
}

void TestFpSetPage::aircraftNameWindowsRefusesKeepsTheStep_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a character refused") << "FlightPlans_a?b";
    QTest::newRow("300 characters") << "FlightPlans_" + QString(284, 'x') + ".txt";
}

void TestFpSetPage::aircraftNameWindowsRefusesKeepsTheStep()
{
    QFETCH(QString, name);
    User user;
    user.name(name);
    user.createAirports();
    user.createAircraft();
    const QStringList messages = user.messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith("Exclamation, Create File Error: Error  52 Bad file name or "
                                    "number\rCreating  C:\\TTools\\Aircraft_"),
             qPrintable(messages[0]));
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame3"}));
    QCOMPARE(user.asked.filter("aircraft"), QStringList());
    QVERIFY(!user.set.reLoadNewPlan);
}

void TestFpSetPage::readOnlyDirectoryKeepsTheAircraftStep()
{
    NEEDS(permissions);
    User user;
    user.name();
    user.createAirports();
    const OrdinaryUser ordinary(user.sandbox);
    QFile::setPermissions(user.sandbox.host("C:\\TTools"), QFile::ReadOwner | QFile::ExeOwner);
    user.createAircraft();
    QCOMPARE(user.messages(), (QStringList{"Exclamation, Create File Error: Error  75 Path/File "
                                           "access error\rCreating  " +
                                           aircraft}));
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame3"}));
}

void TestFpSetPage::cancelledAircraftDialogGoesOnAllTheSame()
{
    User user;
    user.name();
    user.createAirports();
    user.copyAircraft({});
    QCOMPARE(user.messages(), (QStringList{"Exclamation, FlightSim Directory Error: Please select "
                                           "the Aircraft Text File!"}));
    QCOMPARE(user.text("tab2txtAircraft"), QString());
    QCOMPARE(user.enabled(), creationStep);
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame4"}));
}

void TestFpSetPage::chosenAircraftFileOpensTheCreationStep()
{
    User user;
    user.name();
    user.copyAirports(User::oldAirports);
    user.trace();
    user.copyAircraft(User::oldAircraft);
    QCOMPARE(user.outside.dialogs.fileDialogs[1].filter,
             QString("Aircraft Text Files (*.txt)|aircraft*.txt|"));
    QCOMPARE(user.text("tab2txtAircraft"), User::oldAircraft);
    QCOMPARE(user.traced(), (QStringList{"Aircraft Text File = " + User::oldAircraft}));
    QCOMPARE(user.enabled(), creationStep);
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame4"}));
    QCOMPARE(User::focus(), QString("tab2cmdCreateNewFP"));
    QVERIFY(!user.set.AddAircraftFlag); // only the copy itself sets it
}

void TestFpSetPage::aircraftAddedComeBackToTheCreationButton()
{
    User user;
    user.name();
    user.createAirports();
    user.createAircraft();
    user.find<QWidget>("tab2cmdQuit")->setFocus();
    user.asked.clear();
    user.addAircraft();
    QCOMPARE(user.asked, QStringList{"continues"});
    QVERIFY(user.set.AddAircraftFlag);
    QCOMPARE(user.text("tab2txtFltPlan"), QString("FlightPlans_Alpha.txt"));
    QCOMPARE(User::focus(), QString("tab2cmdCreateNewFP"));
}

void TestFpSetPage::aircraftAddedWithoutASetAreRemembered()
{
    User user;
    user.name();
    user.window->continueWithAircraft();
    QVERIFY(user.set.AddAircraftFlag);
    QCOMPARE(user.asked, QStringList());
}

void TestFpSetPage::quitThatSaysAllDoneClearsFirst()
{
    User user;
    user.name();
    user.find<QPushButton>("tab2cmdQuit")->setText("All Done!");
    user.press("tab2cmdQuit");
    QCOMPARE(user.asked, QStringList{"quit"});
    QCOMPARE(user.caption("tab2cmdQuit"), QString("Quit"));
    QCOMPARE(user.enabled(), naming);
}

void TestFpSetPage::quitAndHelpAreAsked()
{
    User user;
    user.name();
    const QStringList before = user.enabled();
    user.press("tab2cmdQuit");
    QTest::mouseClick(user.find<LinkLabel>("Tab2lblHelp"), Qt::LeftButton);
    QCOMPARE(user.asked, (QStringList{"quit", "help"}));
    QCOMPARE(user.enabled(), before); // Quit alone gives nothing up
}

void TestFpSetPage::traceThatCannotBeWrittenIsReported()
{
    User user;
    user.trace();
    user.sandbox.makeFolder("C:\\Morlen\\TraceLog.txt");
    user.name();
    QCOMPARE(user.messages(),
             (QStringList{"Exclamation, Trace Log Error: Error  75 Path/File access error\r"
                          "Opening C:\\Morlen\\\\TraceLog.txt"}));
    QCOMPARE(user.enabled(), airportStep); // the log is no reason to stop
}

QTEST_MAIN(TestFpSetPage)
#include "test_fpset_page.moc"
