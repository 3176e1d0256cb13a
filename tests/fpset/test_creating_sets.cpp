// SPDX-License-Identifier: MIT
// Page 2's last step and its Clear: which files a set leaves behind, whatever went before.
#include "tests/support/fpset_driver.h"
#include "tests/support/host.h"

namespace
{

const QString airports = FpSetDriver::airports;
const QString aircraft = FpSetDriver::aircraft;
const QString flightPlans = FpSetDriver::flightPlans;
const QString createdMessage =
    "Information, Create Files: FlightPlan file set " + flightPlans + " created successfully!";
const QString trashedMessage = "Information, Clear: Moved to the trash:\r";
const QByteArray oldAirportBytes = "// M\xFCnchen\r\nEDDM, N48";
const QByteArray oldAircraftBytes = "AC#9,477,\"Boeing \xC9\"";

/// A user with a set to copy from, who has named a new one.
struct NamingUser : FpSetDriver {
    NamingUser()
    {
        sandbox.write(oldAirports, oldAirportBytes);
        sandbox.write(oldAircraft, oldAircraftBytes);
        name();
    }

    /// The files in the directory, without those to copy from.
    QStringList newFiles() const
    {
        QStringList names = files();
        names.removeOne("Airports_Old.txt");
        names.removeOne("Aircraft_Old.txt");
        return names;
    }

    void create() const { press("tab2cmdCreateNewFP"); }
};

QString failure(const QString &error, const QString &step)
{
    return "Exclamation, Create File Error: Error  " + error + '\r' + step;
}

} // namespace

class TestCreatingSets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bothCreateNewGivesEmptyAircraftAndFlightPlansAndNoAirportFile();
    void airportsAndAircraftAddedOnTheWayAreKept();
    void existingAircraftFileWithNothingAddedIsEmptiedAndBackedUp();
    void bothCopiesAreExactAndOverwrittenFilesAreBackedUp();
    void accentedNameGivesThreeFiles();
    void creationReturnsToTheStartState();
    void creationIsTraced();
    void badSourceIsReportedAndWhatWasThereStays_data();
    void badSourceIsReportedAndWhatWasThereStays();
    void missingAircraftSourceLeavesTheAirportFileCreated();
    void cancelledAircraftDialogFailsAtTheCreation();
    void fullDiskIsReportedAndNothingIsLost();
    void goneDirectoryIsReported();
    void readOnlyDirectoryIsReported();
    void creationCanBeTriedAgain();
    void secondSetFollowsTheFirst();
    void clearAfterAirportsWereAddedDeletesThem();
    void clearBeforeAnyAirportWasAddedDeletesNothing();
    void clearAfterAircraftWereAddedDeletesThem();
    void clearTellsInOneNoticeWhatIsInTheTrash();
    void withoutATrashClearTellsOfNone();
    void clearLeavesTheNewAircraftFlagToo();
    void pathsOfANameInUseStaySet();
    void clearKeepsWhatWasToBeCopied();
    void clearAfterASuccessfulCreationDeletesNothing();
    void clearLeavesTheAircraftFlagsAlone();
    void clearReturnsToTheNamingState_data();
    void clearReturnsToTheNamingState();
    void clearWithoutTToolsReturnsToTheDirectoryState();
    void fileThatCannotBeDeletedIsReportedAndThePageClearedAllTheSame();
};

void TestCreatingSets::bothCreateNewGivesEmptyAircraftAndFlightPlansAndNoAirportFile()
{
    NamingUser user;
    user.createAirports();
    user.createAircraft();
    user.create();
    QCOMPARE(user.messages(), (QStringList{createdMessage}));
    QCOMPARE(user.newFiles(), (QStringList{"Aircraft_Alpha.txt", "FlightPlans_Alpha.txt"}));
    QCOMPARE(user.sandbox.read(aircraft), QByteArray());
    QCOMPARE(user.sandbox.read(flightPlans), QByteArray());
}

void TestCreatingSets::airportsAndAircraftAddedOnTheWayAreKept()
{
    NamingUser user;
    user.createAirports();
    user.addAirports();
    user.createAircraft();
    user.addAircraft();
    user.create();
    QCOMPARE(user.sandbox.read(airports), QByteArray("KSEA\r\n"));
    QCOMPARE(user.sandbox.read(aircraft), QByteArray("AC#1,454,\"Airbus\"\r\n"));
    QCOMPARE(user.sandbox.read(flightPlans), QByteArray());
    QCOMPARE(user.newFiles().size(), 3);
}

void TestCreatingSets::existingAircraftFileWithNothingAddedIsEmptiedAndBackedUp()
{
    NamingUser user;
    user.sandbox.write(aircraft, "AC#1,454,\"the user's own\"\r\n");
    user.createAirports();
    user.createAircraft();
    user.create();
    QCOMPARE(user.sandbox.read(aircraft), QByteArray());
    QCOMPARE(user.sandbox.read(aircraft + ".Backup1"),
             QByteArray("AC#1,454,\"the user's own\"\r\n"));
}

void TestCreatingSets::bothCopiesAreExactAndOverwrittenFilesAreBackedUp()
{
    NamingUser user;
    user.sandbox.write(airports, "the user's airports");
    user.sandbox.write(aircraft, "the user's aircraft");
    user.copyAirports(FpSetDriver::oldAirports);
    user.copyAircraft(FpSetDriver::oldAircraft);
    user.create();
    QCOMPARE(user.messages(), (QStringList{createdMessage}));
    QCOMPARE(user.sandbox.read(airports), oldAirportBytes);
    QCOMPARE(user.sandbox.read(aircraft), oldAircraftBytes);
    QCOMPARE(user.sandbox.read(flightPlans), QByteArray());
    QCOMPARE(user.sandbox.read(airports + ".Backup1"), QByteArray("the user's airports"));
    QCOMPARE(user.sandbox.read(aircraft + ".Backup1"), QByteArray("the user's aircraft"));
    QVERIFY(user.set.AddAircraftFlag);
    QCOMPARE(user.asked, (QStringList{"aircraft file " + aircraft, "created"}));
}

void TestCreatingSets::accentedNameGivesThreeFiles()
{
    FpSetDriver user;
    user.sandbox.write(FpSetDriver::oldAirports, oldAirportBytes);
    user.name(QString::fromUtf8("FlightPlans_\u00C9t\u00E9"));
    user.copyAirports(FpSetDriver::oldAirports);
    user.createAircraft();
    user.press("tab2cmdCreateNewFP");
    for (const char *const word : {"FlightPlans", "Airports", "Aircraft"}) {
        QVERIFY(user.files().contains(QString(word) + QString::fromUtf8("_\u00C9t\u00E9.txt")));
    }
}

void TestCreatingSets::creationReturnsToTheStartState()
{
    NamingUser user;
    const auto *const quit = user.find<QPushButton>("tab2cmdQuit");
    QString captionWithFocus;
    const auto watch = connect(qApp, &QApplication::focusChanged, this, [&](auto, auto now) {
        captionWithFocus = now == quit ? quit->text() : captionWithFocus;
    });
    user.createAirports();
    user.createAircraft();
    user.create();
    disconnect(watch);
    QCOMPARE(captionWithFocus, QString("All Done!")); // for a moment only
    QCOMPARE(user.caption("tab2cmdQuit"), QString("Quit"));
    QCOMPARE(user.enabled(),
             (QStringList{"tab2TToolsDir", "tab2txtTToolsDir", "tab2cmdFindTTools", "tab2Frame12",
                          "tab2txtFltPlan", "tab2Command2", "tab2cmdCancel", "tab2cmdQuit"}));
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame12"}));
    QCOMPARE(user.text("tab2txtFltPlan"), QString("FlightPlans_"));
    QCOMPARE(FpSetDriver::focus(), QString("tab2txtFltPlan"));
    QVERIFY(!user.set.newAirportFlag && !user.set.reLoadNewPlan);
}

void TestCreatingSets::creationIsTraced()
{
    NamingUser user;
    user.copyAirports(FpSetDriver::oldAirports);
    user.createAircraft();
    user.trace();
    user.create();
    QCOMPARE(user.traced(), (QStringList{"Creating New FlightPlan Set",
                                         "Copy " + FpSetDriver::oldAirports + " to " + airports,
                                         "Creating Aircraft File " + aircraft,
                                         "Creating FlightPlan File " + flightPlans}));
}

void TestCreatingSets::badSourceIsReportedAndWhatWasThereStays_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("error");
    QTest::newRow("missing") << "C:\\TTools\\Airports_Gone.txt"
                             << "53 File not found";
    QTest::newRow("a folder") << "C:\\TTools"
                              << "75 Path/File access error";
    QTest::newRow("the target itself") << "c:\\ttools\\airports_alpha.TXT"
                                       << "70 Permission denied";
}

void TestCreatingSets::badSourceIsReportedAndWhatWasThereStays()
{
    QFETCH(QString, source);
    QFETCH(QString, error);
    NamingUser user;
    user.sandbox.write(airports, "the user's airports");
    user.copyAirports(source);
    user.copyAircraft(FpSetDriver::oldAircraft);
    user.create();
    QCOMPARE(user.messages(), (QStringList{failure(error, "Copy " + source + " to " + airports)}));
    QCOMPARE(user.sandbox.read(airports), QByteArray("the user's airports"));
    QCOMPARE(user.newFiles(), (QStringList{"Airports_Alpha.txt"}));
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame4"}));
    QVERIFY(user.find<QWidget>("tab2cmdCreateNewFP")->isEnabled());
}

void TestCreatingSets::missingAircraftSourceLeavesTheAirportFileCreated()
{
    NamingUser user;
    user.copyAirports(FpSetDriver::oldAirports);
    user.copyAircraft("C:\\TTools\\Aircraft_Gone.txt");
    user.create();
    QCOMPARE(user.messages(),
             (QStringList{failure("53 File not found",
                                  "Copy C:\\TTools\\Aircraft_Gone.txt to " + aircraft)}));
    QCOMPARE(user.newFiles(), (QStringList{"Airports_Alpha.txt"}));
    QVERIFY(!user.set.AddAircraftFlag);
}

void TestCreatingSets::cancelledAircraftDialogFailsAtTheCreation()
{
    NamingUser user;
    user.createAirports();
    user.copyAircraft({});
    user.messages();
    user.create();
    QCOMPARE(user.messages(),
             (QStringList{failure("52 Bad file name or number", "Copy  to " + aircraft)}));
    QCOMPARE(user.newFiles(), QStringList());
}

void TestCreatingSets::fullDiskIsReportedAndNothingIsLost()
{
    NEEDS(sizeLimit);
    NamingUser user;
    user.sandbox.write(airports, "the user's airports");
    user.sandbox.write(FpSetDriver::oldAirports, QByteArray(5000, 'x'));
    user.copyAirports(FpSetDriver::oldAirports);
    user.copyAircraft(FpSetDriver::oldAircraft);
    {
        const FileSizeLimit full(1000);
        user.create();
    }
    QCOMPARE(user.messages(),
             (QStringList{
                 failure("61 Disk full", "Copy " + FpSetDriver::oldAirports + " to " + airports)}));
    QCOMPARE(user.sandbox.read(airports), QByteArray("the user's airports"));
}

void TestCreatingSets::goneDirectoryIsReported()
{
    NamingUser user;
    user.createAirports();
    user.createAircraft();
    QVERIFY(QDir(user.sandbox.host("C:\\TTools")).removeRecursively());
    user.create();
    QCOMPARE(user.messages(),
             (QStringList{failure("76 Path not found", "Creating Aircraft File " + aircraft)}));
}

void TestCreatingSets::readOnlyDirectoryIsReported()
{
    NEEDS(permissions);
    NamingUser user;
    user.createAirports();
    user.createAircraft();
    user.addAircraft();
    const OrdinaryUser ordinary(user.sandbox);
    QFile::setPermissions(user.sandbox.host("C:\\TTools"), QFile::ReadOwner | QFile::ExeOwner);
    user.create();
    QCOMPARE(user.messages(), (QStringList{failure("75 Path/File access error",
                                                   "Creating FlightPlan File " + flightPlans)}));
    QCOMPARE(user.sandbox.read(aircraft), QByteArray("AC#1,454,\"Airbus\"\r\n"));
}

void TestCreatingSets::creationCanBeTriedAgain()
{
    NamingUser user;
    user.sandbox.write(airports, "the user's airports");
    user.copyAirports(FpSetDriver::oldAirports);
    user.copyAircraft("C:\\TTools\\Aircraft_Late.txt");
    user.create();
    user.create();
    user.messages();
    user.sandbox.write("C:\\TTools\\Aircraft_Late.txt", "AC#1");
    user.create();
    QCOMPARE(user.messages(), (QStringList{createdMessage}));
    QCOMPARE(user.sandbox.read(aircraft), QByteArray("AC#1"));
    QCOMPARE(user.sandbox.read(airports + ".Backup1"), QByteArray("the user's airports"));
}

void TestCreatingSets::secondSetFollowsTheFirst()
{
    NamingUser user;
    user.copyAirports(FpSetDriver::oldAirports);
    user.copyAircraft(FpSetDriver::oldAircraft);
    user.create();
    user.verify("FlightPlans_Bravo");
    user.copyAirports(airports);
    user.createAircraft();
    user.create();
    QCOMPARE(user.messages().size(), 2);
    QCOMPARE(user.sandbox.read("C:\\TTools\\Airports_Bravo.txt"), oldAirportBytes);
    QVERIFY(user.sandbox.exists("C:\\TTools\\Aircraft_Bravo.txt"));
    QVERIFY(user.sandbox.exists("C:\\TTools\\FlightPlans_Bravo.txt"));
    QCOMPARE(user.sandbox.read(aircraft), oldAircraftBytes);
}

void TestCreatingSets::clearAfterAirportsWereAddedDeletesThem()
{
    NEEDS(trashFolder);
    NamingUser user;
    user.createAirports();
    user.addAirports();
    user.asked.clear();
    user.press("tab2cmdCancel");
    QCOMPARE(user.newFiles(), QStringList());
    QCOMPARE(user.trashed(), (QStringList{"Airports_Alpha.txt"}));
    QCOMPARE(user.messages(), QStringList{trashedMessage + '\r' + airports});
    QCOMPARE(user.asked, (QStringList{"given up " + airports}));
    QVERIFY(!user.set.AddAirportsFlag && !user.set.newAirportFlag);
}

void TestCreatingSets::clearBeforeAnyAirportWasAddedDeletesNothing()
{
    NamingUser user;
    user.sandbox.write(airports, "the user's airports");
    user.createAirports();
    user.createAircraft();
    user.press("tab2cmdCancel");
    QCOMPARE(user.newFiles(), (QStringList{"Aircraft_Alpha.txt", "Airports_Alpha.txt"}));
    QCOMPARE(user.trashed(), QStringList());
    QCOMPARE(user.messages(), QStringList());
    QVERIFY(!user.set.newAirportFlag && !user.set.reLoadNewPlan);
}

void TestCreatingSets::clearAfterAircraftWereAddedDeletesThem()
{
    NEEDS(trashFolder);
    NamingUser user;
    user.createAirports();
    user.createAircraft();
    user.addAircraft();
    user.press("tab2cmdCancel");
    QCOMPARE(user.newFiles(), QStringList());
    QCOMPARE(user.trashed(), (QStringList{"Aircraft_Alpha.txt"}));
    QVERIFY(!user.set.newAirportFlag && !user.set.reLoadNewPlan);
}

void TestCreatingSets::clearTellsInOneNoticeWhatIsInTheTrash()
{
    NamingUser user;
    user.createAirports();
    user.addAirports();
    user.createAircraft();
    user.addAircraft();
    QString frame;
    user.outside.dialogs.whileShown = [&] { frame = user.highlighted().join(' '); };
    user.press("tab2cmdCancel");
    QCOMPARE(user.messages(), QStringList{trashedMessage + '\r' + airports + '\r' + aircraft});
    QCOMPARE(frame, QString("tab2Frame12")); // the page is cleared by then
}

void TestCreatingSets::withoutATrashClearTellsOfNone()
{
    NEEDS(trashFolder);
    NamingUser user;
    user.sandbox.write("C:\\share\\Trash", "no folder");
    user.createAirports();
    user.addAirports();
    user.press("tab2cmdCancel");
    QCOMPARE(user.newFiles(), QStringList{"Airports_Alpha.txt.Backup1"});
    QCOMPARE(user.messages(), QStringList());
}

void TestCreatingSets::clearLeavesTheNewAircraftFlagToo()
{
    NEEDS(trashFolder);
    NamingUser user;
    user.createAirports();
    user.createAircraft();
    user.addAircraft();
    user.press("tab2cmdCancel");
    user.sandbox.write("C:\\TTools\\Aircraft_Bravo.txt", "of a set named, no further");
    user.verify("FlightPlans_Bravo");
    user.press("tab2cmdCancel");
    QCOMPARE(user.trashed(), (QStringList{"Aircraft_Alpha.txt", "Aircraft_Bravo.txt"}));
}

void TestCreatingSets::pathsOfANameInUseStaySet()
{
    NEEDS(trashFolder);
    NamingUser user;
    user.createAirports();
    user.createAircraft();
    user.addAircraft();
    user.press("tab2cmdCancel");
    user.sandbox.write("C:\\TTools\\FlightPlans_Main.txt", "");
    user.sandbox.write("C:\\TTools\\Aircraft_Main.txt", "of the set in use");
    user.verify("FlightPlans_Main");
    QCOMPARE(user.messages().last(),
             QString("Critical, File Error: Sorry!  That name is already in use"));
    user.press("tab2cmdCancel");
    QCOMPARE(user.trashed(), (QStringList{"Aircraft_Alpha.txt", "Aircraft_Main.txt"}));
}

void TestCreatingSets::clearKeepsWhatWasToBeCopied()
{
    NamingUser user;
    user.sandbox.write(aircraft, "the user's aircraft");
    user.window->continueWithAircraft(); // page 0 was used before
    user.copyAirports(FpSetDriver::oldAirports);
    user.copyAircraft(FpSetDriver::oldAircraft);
    user.press("tab2cmdCancel");
    QCOMPARE(user.newFiles(), (QStringList{"Aircraft_Alpha.txt"}));
    QCOMPARE(user.files().size(), 3);
    QCOMPARE(user.text("tab2txtAirport") + user.text("tab2txtAircraft"), QString());
}

void TestCreatingSets::clearAfterASuccessfulCreationDeletesNothing()
{
    NamingUser user;
    user.createAirports();
    user.addAirports();
    user.createAircraft();
    user.addAircraft();
    user.create();
    user.press("tab2cmdCancel");
    QCOMPARE(user.newFiles().size(), 3);
    // Nor does one half way through a later set: a set was created, and that stands.
    user.verify("FlightPlans_Bravo");
    user.createAirports();
    user.window->continueWithAirports("C:\\TTools\\Airports_Bravo.txt");
    user.createAircraft();
    user.press("tab2cmdCancel");
    QVERIFY(user.sandbox.exists("C:\\TTools\\Aircraft_Bravo.txt"));
    QCOMPARE(user.trashed(), QStringList());
}

void TestCreatingSets::clearLeavesTheAircraftFlagsAlone()
{
    NamingUser user;
    user.createAirports();
    user.createAircraft();
    user.addAircraft();
    user.press("tab2cmdCancel");
    QVERIFY(user.set.AddAircraftFlag);
    // So the next set's file counts as written, and is not emptied.
    user.sandbox.write("C:\\TTools\\Aircraft_Bravo.txt", "AC#1,454,\"the user's own\"\r\n");
    user.verify("FlightPlans_Bravo");
    user.createAirports();
    user.createAircraft();
    user.create();
    QCOMPARE(user.sandbox.read("C:\\TTools\\Aircraft_Bravo.txt"),
             QByteArray("AC#1,454,\"the user's own\"\r\n"));
}

void TestCreatingSets::clearReturnsToTheNamingState_data()
{
    QTest::addColumn<int>("steps");
    QTest::newRow("while naming") << 0;
    QTest::newRow("in the airport step") << 1;
    QTest::newRow("in the aircraft step") << 2;
    QTest::newRow("in the creation step") << 3;
}

void TestCreatingSets::clearReturnsToTheNamingState()
{
    QFETCH(int, steps);
    FpSetDriver user;
    user.knowTTools();
    const QStringList naming = user.enabled();
    user.verify(steps == 0 ? "FlightPlans_" : "FlightPlans_Alpha");
    if (steps > 2) {
        user.copyAirports(FpSetDriver::oldAirports);
    } else if (steps > 1) {
        user.createAirports();
    }
    if (steps > 2) {
        user.copyAircraft(FpSetDriver::oldAircraft);
    }
    user.press("tab2cmdCancel");
    QCOMPARE(user.enabled(), naming);
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame12"}));
    QCOMPARE(user.text("tab2txtFltPlan"), QString("FlightPlans_"));
    QVERIFY(user.caretIsAtEnd());
    QCOMPARE(FpSetDriver::focus(), QString("tab2txtFltPlan"));
    QCOMPARE(user.caption("tab2cmdAirport"), QString("Browse"));
    QCOMPARE(user.caption("tab2cmdAircraft"), QString("Browse"));
    for (const char *const option : {"tab2optCreatefile", "tab2optCopyFile",
                                     "tab2optCreateNewAircraft", "tab2optCopyExistingAircraft"}) {
        QVERIFY(!user.isChosen(option));
    }
}

void TestCreatingSets::clearWithoutTToolsReturnsToTheDirectoryState()
{
    FpSetDriver user;
    user.press("tab2cmdCancel");
    QCOMPARE(FpSetDriver::focus(), QString("tab2cmdFindTTools"));
    QCOMPARE(user.highlighted(), (QStringList{"tab2TToolsDir"}));
    // The box itself is enabled, but not the frame that it stands in.
    QVERIFY(user.enabled().contains("tab2txtFltPlan"));
    QVERIFY(!user.find<QWidget>("tab2txtFltPlan")->isEnabled());
    QVERIFY(!user.enabled().contains("tab2Command2"));
}

void TestCreatingSets::fileThatCannotBeDeletedIsReportedAndThePageClearedAllTheSame()
{
    NEEDS(permissions);
    NamingUser user;
    user.createAirports();
    user.addAirports();
    const OrdinaryUser ordinary(user.sandbox);
    QFile::setPermissions(user.sandbox.host("C:\\TTools"), QFile::ReadOwner | QFile::ExeOwner);
    user.press("tab2cmdCancel");
    const QStringList messages = user.messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith("Exclamation, Delete File Error: Error  75 "),
             qPrintable(messages[0]));
    QCOMPARE(user.sandbox.read(airports), QByteArray("KSEA\r\n"));
    QCOMPARE(user.highlighted(), (QStringList{"tab2Frame12"}));
}

QTEST_MAIN(TestCreatingSets)
#include "test_creating_sets.moc"
