// SPDX-License-Identifier: MIT
// A new flight plan set from its name to its files, across the pages, in a real window.
#include "tests/support/whole_program.h"

#include <QLineEdit>
#include <QTabWidget>
#include <QtTest>

namespace
{

const QString airportPath = QStringLiteral("C:\\TTools\\Airports_New.txt");
const QString aircraftPath = QStringLiteral("C:\\TTools\\Aircraft_New.txt");
const QString flightPlanPath = QStringLiteral("C:\\TTools\\FlightPlans_New.txt");

/// The program on page 2, with TTools known.
struct SetProgram : WholeProgram {
    SetProgram()
    {
        addProgram("C:\\TTools\\TTools.exe", "");
        sandbox.write("C:\\Morlen\\MorlenE.ini", "2\r\nC:\\TTools\\TTools.exe\r\nc:\r\n" +
                                                     aircraftDir.toLatin1() + "\r\n" +
                                                     textFile.toLatin1() + "\r\nFalse\r\n");
    }

    void awaitPage(RealUser &user, int page) const
    {
        user.await("page " + QString::number(page), [&] {
            return findControl<QTabWidget>(*window, "SSTab1")->currentIndex() == page;
        });
    }

    static void nameSet(RealUser &user)
    {
        user.click("tab2txtFltPlan");
        user.press("End");
        user.type("New");
        user.click("tab2Command2");
    }
};

} // namespace

class TestNewSet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newAirportsAndAircraftAreAddedOnTheWay();
    void clearHalfWayTakesTheNewFilesBack();
    void menuQuitLeadsBackWhileAirportsAreChosen();
};

void TestNewSet::newAirportsAndAircraftAreAddedOnTheWay()
{
    SetProgram program;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        user.click("tab2optCreatefile");
        RealUser::shoot("set_airports");
        user.click("tab2cmdAirport");
        program.awaitPage(user, 1);
        user.dragEntry("Tab1List1", 2, "Tab1List2"); // Jamaica
        user.click("Tab1cmdCreateFile");
        user.answer("No");
        program.awaitPage(user, 2);
        user.click("tab2optCreateNewAircraft");
        RealUser::shoot("set_aircraft");
        user.click("tab2cmdAircraft");
        program.awaitPage(user, 0);
        user.clickCheckBox("Tab0List2", 0);
        user.click("cmdAddAI");
        user.answer("OK");
        program.awaitPage(user, 2);
        RealUser::shoot("set_create");
        user.click("tab2cmdCreateNewFP");
        user.answer("OK");
        user.await("the start state", [&] {
            return findControl<QLineEdit>(*program.window, "tab2txtFltPlan")->text() ==
                   "FlightPlans_";
        });
    });
    QCOMPARE(problem, QString());
    QVERIFY(program.sandbox.read(airportPath).contains("MKJP,"));
    QVERIFY(program.sandbox.read(aircraftPath).contains("AC#1,454,\"Airbus Blue\"\r\n"));
    QCOMPARE(program.sandbox.read(flightPlanPath), QByteArray());
}

void TestNewSet::clearHalfWayTakesTheNewFilesBack()
{
    SetProgram program;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        user.click("tab2optCreatefile");
        user.click("tab2cmdAirport");
        program.awaitPage(user, 1);
        user.dragEntry("Tab1List1", 2, "Tab1List2");
        user.click("Tab1cmdCreateFile");
        user.answer("No");
        program.awaitPage(user, 2);
        user.click("tab2cmdCancel");
        user.await("the file to go", [&] { return !program.sandbox.exists(airportPath); });
        user.clickTab(1);
        user.await("Browse", [&] {
            return findControl<QWidget>(*program.window, "Tab1cmdBrowse")->isEnabled();
        });
    });
    QCOMPARE(problem, QString());
    QVERIFY(!program.sandbox.exists(flightPlanPath));
    QCOMPARE(program.label("Tab1lblAirportTextFileName"),
             QString("Please Select Airport Text file to Edit --->"));
}

void TestNewSet::menuQuitLeadsBackWhileAirportsAreChosen()
{
    SetProgram program;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        user.click("tab2optCreatefile");
        user.click("tab2cmdAirport");
        program.awaitPage(user, 1);
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

QTEST_MAIN(TestNewSet)
#include "test_new_set.moc"
