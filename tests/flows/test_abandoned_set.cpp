// SPDX-License-Identifier: MIT
// A flight plan set that is refused, given up or left for a while, in a real window.
#include "tests/support/set_program.h"

#include <QPushButton>
#include <QtTest>

class TestAbandonedSet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clearHalfWayTakesTheNewFilesBack();
    void clearBeforeAnyAirportWasAddedDeletesNothing();
    void menuQuitLeadsBackWhileAirportsAreChosen();
    void quitOfPage1LeadsBackAndTheSetIsFinished();
    void nameInUseIsRefusedAndItsFilesStay();
};

void TestAbandonedSet::clearHalfWayTakesTheNewFilesBack()
{
    SetProgram program;
    // With a home, and a trash in it, on the disk of the set.
    const Environment home("HOME", QFile::encodeName(program.sandbox.prefix()));
    const Environment data("XDG_DATA_HOME", {});
    QString told;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        program.openNewAirports(user);
        program.addCountry(user, 2);
        user.click("tab2cmdCancel");
        told = user.box();
        user.answer("OK");
        user.clickTab(1);
        user.await("Browse", [&] {
            return findControl<QWidget>(*program.window, "Tab1cmdBrowse")->isEnabled();
        });
    });
    QCOMPARE(problem, QString());
    QCOMPARE(told, "Clear|Moved to the trash:\n\n" + airportPath);
    QVERIFY(!program.sandbox.exists(airportPath));
    QVERIFY(!program.sandbox.exists(flightPlanPath));
    QCOMPARE(program.label("Tab1lblAirportTextFileName"),
             QString("Please Select Airport Text file to Edit --->"));
}

void TestAbandonedSet::clearBeforeAnyAirportWasAddedDeletesNothing()
{
    SetProgram program;
    program.sandbox.write(airportPath, "KSEA,mine\r\n");
    const QStringList before = program.texts();
    QStringList usable;
    QStringList usableAgain;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        program.openNewAirports(user);
        RealUser::shoot("clear_page1");
        user.dragEntry("Tab1List1", 0, "Tab1List2"); // chosen, but never added
        user.clickTab(2);
        program.awaitPage(user, 2);
        RealUser::shoot("clear_before");
        user.click("tab2cmdCancel");
        program.awaitStart(user);
        usable = program.usable(user);
        RealUser::shoot("clear_after");
        user.type("Again"); // the name box has the keyboard, its caret at the end
        user.press("Return");
        program.awaitAirportStep(user);
        usableAgain = program.usable(user);
        user.clickTab(1);
        program.awaitPage(user, 1);
        RealUser::shoot("clear_page1_after");
    });
    QCOMPARE(problem, QString());
    QCOMPARE(program.texts(), before);
    QCOMPARE(usable, namingControls);
    QCOMPARE(program.name(), QString("FlightPlans_Again.txt"));
    QCOMPARE(usableAgain, (QStringList{"tab2optCreatefile", "tab2optCopyFile", "tab2cmdAirport"}));
    QCOMPARE(program.list("Tab1List2")->count(), 0);
    QVERIFY(findControl<QPushButton>(*program.window, "Tab1cmdBrowse")->isEnabled());
}

void TestAbandonedSet::menuQuitLeadsBackWhileAirportsAreChosen()
{
    SetProgram program;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        program.openNewAirports(user);
        user.press("ctrl+q");
        program.awaitPage(user, 2);
        user.clickTab(1);
        program.awaitPage(user, 1);
        user.click("Tab1Command2"); // Quit leads back too
        program.awaitPage(user, 2);
    });
    QCOMPARE(problem, QString());
    QVERIFY(program.window->isVisible());
}

void TestAbandonedSet::quitOfPage1LeadsBackAndTheSetIsFinished()
{
    SetProgram program;
    QStringList half;
    QString question;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        program.openNewAirports(user);
        user.dragEntry("Tab1List1", 0, "Tab1List2"); // Canada
        user.click("Tab1Command2");
        program.awaitPage(user, 2);
        RealUser::shoot("quit_page2");
        half = program.texts();
        user.clickTab(1);
        program.awaitPage(user, 1);
        RealUser::shoot("quit_page1_again");
        user.dragEntry("Tab1List2", 0, "Tab1List1");
        program.addCountry(user, 2); // Jamaica alone
        program.openNewAircraft(user);
        user.clickTab(2); // nothing is added
        program.awaitPage(user, 2);
        program.create(user);
        user.press("ctrl+q"); // with no set under way, this leaves
        question = user.box();
        user.answer("Yes");
        user.await("the end", [&] { return program.window->isHidden(); });
    });
    QCOMPARE(problem, QString());
    QCOMPARE(half, withExisting({}));
    QCOMPARE(program.texts(), withExisting({"Airports_New.txt=" + jamaica,
                                            "Aircraft_New.txt=", "FlightPlans_New.txt="}));
    QCOMPARE(question, QString("Confirm Exit|Do you really want to exit?"));
    QVERIFY(program.sandbox.read("C:\\Morlen\\MorlenE.ini").startsWith("2\r\n"));
}

void TestAbandonedSet::nameInUseIsRefusedAndItsFilesStay()
{
    SetProgram program;
    program.sandbox.write(airportPath, "KSEA,mine\r\n");
    program.sandbox.write(aircraftPath, "AC#1,454,\"Mine\"\r\n");
    program.sandbox.write(flightPlanPath, "AC#1,N1,mine");
    const QStringList before = program.texts();
    QString message;
    QStringList usable;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        message = user.box();
        RealUser::shoot("taken_box");
        user.answer("OK");
        program.awaitStart(user);
        usable = program.usable(user);
        RealUser::shoot("taken_after");
        user.type("Other"); // right where the message left off
        user.press("Return");
        program.awaitAirportStep(user);
    });
    QCOMPARE(problem, QString());
    QCOMPARE(message, QString("File Error|Sorry!  That name is already in use"));
    QCOMPARE(usable, namingControls);
    QCOMPARE(program.name(), QString("FlightPlans_Other.txt"));
    QCOMPARE(program.texts(), before);
}

QTEST_MAIN(TestAbandonedSet)
#include "test_abandoned_set.moc"
