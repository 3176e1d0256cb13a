// SPDX-License-Identifier: MIT
// A new flight plan set from its name to its files, across the pages, in a real window.
#include "tests/support/set_program.h"

#include <QtTest>

class TestNewSet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newAirportsAndAircraftAreAddedOnTheWay();
    void bothCopiesAreExactToTheByte();
    void secondSetLeavesTheFirstAlone();
    void airportsAndAircraftOfThatNameAreAddedTo();
    void tToolsIsPickedBeforeASetIsNamed();
};

void TestNewSet::newAirportsAndAircraftAreAddedOnTheWay()
{
    SetProgram program;
    QString done;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        RealUser::shoot("set_airports");
        program.openNewAirports(user);
        program.addCountry(user, 2); // Jamaica
        RealUser::shoot("set_aircraft");
        program.addFirstAircraft(user);
        RealUser::shoot("set_create");
        done = program.create(user);
    });
    QCOMPARE(problem, QString());
    QCOMPARE(done, created(flightPlanPath));
    QCOMPARE(program.texts(), withExisting({"Airports_New.txt=" + jamaica,
                                            "Aircraft_New.txt=" + airbus, "FlightPlans_New.txt="}));
}

void TestNewSet::bothCopiesAreExactToTheByte()
{
    SetProgram program;
    const QByteArray airports =
        QByteArrayLiteral("EDDM,N48* 21.22',E11* 47.17',1487 //M\xFCnchen\r\n\r\n;x\0y\n");
    const QByteArray aircraft = "AC#7,1,\"Odd\"\n// no end of line";
    program.sandbox.write("C:\\Mine\\Airports_Old.txt", airports);
    program.sandbox.write("C:\\Mine\\Aircraft_Old.txt", aircraft);
    QString done;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        user.click("tab2optCopyFile");
        RealUser::shoot("copy_airports");
        user.click("tab2cmdAirport");
        user.chooseFile(program.sandbox.host("C:\\Mine\\Airports_Old.txt"));
        user.click("tab2optCopyExistingAircraft");
        RealUser::shoot("copy_aircraft");
        user.click("tab2cmdAircraft");
        user.chooseFile(program.sandbox.host("C:\\Mine\\Aircraft_Old.txt"));
        user.click("tab2cmdCreateNewFP");
        done = user.box();
        RealUser::shoot("copy_created");
        user.answer("OK");
        program.awaitStart(user);
        RealUser::shoot("copy_after");
    });
    QCOMPARE(problem, QString());
    QCOMPARE(done, created(flightPlanPath));
    QCOMPARE(program.sandbox.read(airportPath), airports);
    QCOMPARE(program.sandbox.read(aircraftPath), aircraft);
    QCOMPARE(program.sandbox.read(flightPlanPath), QByteArray());
    QCOMPARE(program.texts().size(), 4);
    QCOMPARE(program.label("lblAircraftTextFile"), aircraftPath);
}

void TestNewSet::secondSetLeavesTheFirstAlone()
{
    SetProgram program;
    QStringList first;
    QStringList done;
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user);
        program.openNewAirports(user);
        program.addCountry(user, 2); // Jamaica
        program.addFirstAircraft(user);
        done += program.create(user);
        first = program.texts();
        SetProgram::nameSet(user, "Second");
        program.openNewAirports(user);
        RealUser::shoot("second_page1");
        program.addCountry(user, 0); // Canada
        program.addFirstAircraft(user);
        RealUser::shoot("second_create");
        done += program.create(user);
        RealUser::shoot("second_after");
        user.click("tab2cmdCancel"); // sets that were created stay
        user.clickTab(0);
        program.awaitPage(user, 0);
        RealUser::shoot("second_page0");
    });
    QCOMPARE(problem, QString());
    QCOMPARE(done,
             (QStringList{created(flightPlanPath), created("C:\\TTools\\FlightPlans_Second.txt")}));
    QCOMPARE(first, withExisting({"Airports_New.txt=" + jamaica, "Aircraft_New.txt=" + airbus,
                                  "FlightPlans_New.txt="}));
    const QString canada = "//Airports Added - NOW\r\n"
                           "CYEG,N53* 18.58',W113* 34.77',2373      //Edmonton, Alberta, Canada\r\n"
                           "CYYC,N51* 06.83',W114* 01.22',3557      //Calgary, Alberta, Canada\r\n"
                           "CYYZ,N43* 40.63',W79* 37.83',569        //Toronto, Ontario, Canada\r\n";
    QStringList both =
        first + QStringList{"Airports_Second.txt=" + canada, "Aircraft_Second.txt=" + airbus,
                            "FlightPlans_Second.txt="};
    both.sort();
    QCOMPARE(program.texts(), both);
}

void TestNewSet::airportsAndAircraftOfThatNameAreAddedTo()
{
    SetProgram program;
    program.sandbox.write(airportPath, "KSEA,mine\r\n");
    program.sandbox.write(aircraftPath, "AC#4,454,\"Mine\"\r\n");
    const QString problem = program.use([&](RealUser &user) {
        SetProgram::nameSet(user); // only a flight plan file makes a name taken
        program.openNewAirports(user);
        program.addCountry(user, 2);
        program.addFirstAircraft(user);
        program.create(user);
    });
    QCOMPARE(problem, QString());
    QCOMPARE(program.texts(), withExisting({"Airports_New.txt=KSEA,mine\r\n" + jamaica,
                                            "Aircraft_New.txt=AC#4,454,\"Mine\"\r\n" +
                                                QString(airbus).replace("AC#1,", "AC#5,"),
                                            "Aircraft_New.txt.Backup1=AC#4,454,\"Mine\"\r\n",
                                            "FlightPlans_New.txt="}));
}

void TestNewSet::tToolsIsPickedBeforeASetIsNamed()
{
    SetProgram program;
    program.remember("2", "False"); // without TTools
    QStringList usable;
    QStringList usableAfter;
    bool current = false;
    const QString problem = program.use([&](RealUser &user) {
        usable = program.usable(user);
        user.await("a look at the frame", [&] {
            current = findControl<QWidget>(*program.window, "tab2TToolsDir")->font().bold();
            return true;
        });
        RealUser::shoot("ttools_first");
        user.click("tab2cmdFindTTools");
        user.chooseFile(program.sandbox.host("C:\\TTools\\TTools.exe"));
        user.await("the name box", [&] {
            return findControl<QWidget>(*program.window, "tab2txtFltPlan")->hasFocus();
        });
        usableAfter = program.usable(user);
        RealUser::shoot("ttools_chosen");
        SetProgram::nameSet(user);
        program.openNewAirports(user);
        program.addCountry(user, 2);
        program.addFirstAircraft(user);
        program.create(user);
        RealUser::shoot("ttools_end");
    });
    QCOMPARE(problem, QString());
    QCOMPARE(usable, QStringList{"tab2cmdFindTTools"});
    QVERIFY(current);
    QCOMPARE(usableAfter, (QStringList{"tab2txtFltPlan", "tab2Command2"}));
    QCOMPARE(findControl<QLineEdit>(*program.window, "tab2txtTToolsDir")->text(),
             QString("C:\\TTools\\TTools.exe"));
    QCOMPARE(program.texts(), withExisting({"Airports_New.txt=" + jamaica,
                                            "Aircraft_New.txt=" + airbus, "FlightPlans_New.txt="}));
}

QTEST_MAIN(TestNewSet)
#include "test_new_set.moc"
