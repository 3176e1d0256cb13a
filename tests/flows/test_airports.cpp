// SPDX-License-Identifier: MIT
// Choosing airports as a user does: genuine drags in a real window, and the file they end in.
#include "tests/support/whole_program.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QtTest>

namespace
{

const QString airportFile = QStringLiteral("C:\\TTools\\Airports_Set.txt");
const QByteArray existingAirport =
    "KSEA,N47* 26.88',W122* 18.62',433       //Seattle, Washington, United States\r\n";

/// The program on page 1, with an airport text file that holds one airport.
struct AirportProgram : WholeProgram {
    AirportProgram()
    {
        remember("1", "False");
        sandbox.write(airportFile, existingAirport);
    }

    void chooseFile(RealUser &user) const
    {
        user.click("Tab1cmdBrowse");
        user.chooseFile(sandbox.host(airportFile));
        user.await("the airport", [&] { return list("Tab1List2")->count() == 1; });
    }

    void awaitChosen(RealUser &user, int count) const
    {
        user.await(QString::number(count) + " chosen",
                   [&] { return list("Tab1List2")->count() == count; });
    }
};

} // namespace

class TestAirports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countryAndAirportAreDraggedAndAppended();
    void reminderComesOnceUntilItIsSwitchedOff();
    void choiceIsDraggedBack();
    void existingAirportCannotBeDragged();
    void dropElsewhereChangesNothing();
    void escapeCancelsADrag();
    void clickSelectsAndDoubleClickDescends();
    void choicesAreMovedByKeyAndByMenu();
};

void TestAirports::countryAndAirportAreDraggedAndAppended()
{
    AirportProgram program;
    QString question;
    const QString problem = program.use([&](RealUser &user) {
        program.chooseFile(user);
        RealUser::shoot("countries");
        user.dragEntry("Tab1List1", 2, "Tab1List2"); // Jamaica
        program.awaitChosen(user, 2);
        user.doubleClickEntry("Tab1List1", 1); // Germany
        user.await("the airports", [&] { return program.list("Tab1List1")->count() == 3; });
        RealUser::shoot("airports");
        user.beginDrag("Tab1List1", 2, "Tab1List2"); // M\u00fcnchen
        RealUser::shoot("dragging");
        user.drop();
        program.awaitChosen(user, 3);
        RealUser::shoot("chosen");
        user.click("Tab1cmdCreateFile");
        question = user.box();
        RealUser::shoot("appended");
        user.answer("No");
        user.await("the reset", [&] { return program.list("Tab1List2")->count() == 0; });
    });
    QCOMPARE(problem, QString());
    QCOMPARE(question, "AI Aircraft Loader|" + airportFile +
                           " Created Successfully!\n\nDo you want to view the file?");
    const QByteArray bytes = program.sandbox.read(airportFile);
    QVERIFY(bytes.startsWith(existingAirport));
    const QByteArray added = bytes.sliced(existingAirport.size());
    QVERIFY2(QRegularExpression("^//Airports Added - [A-Z][a-z]+day, [A-Z][a-z]+ \\d\\d, \\d{4} "
                                "\\d\\d:\\d\\d:\\d\\d\r\n")
                 .match(added)
                 .hasMatch(),
             added.constData());
    QCOMPARE(added.sliced(added.indexOf('\n') + 1),
             QByteArray("EDDM,N48* 21.22',E11* 47.17',1487       //M\xFCnchen, , Germany\r\n"
                        "MKJP,N17* 56.15',W76* 47.25',10         //Kingston, , Jamaica\r\n"));
}

void TestAirports::reminderComesOnceUntilItIsSwitchedOff()
{
    AirportProgram program;
    program.remember("1", "True");
    const QString problem = program.use([&](RealUser &user) {
        user.click("Tab1cmdBrowse");
        user.click("Check1");
        RealUser::shoot("reminder");
        user.click("Command1");
        user.chooseFile(program.sandbox.host(airportFile));
        user.await("the airport", [&] { return program.list("Tab1List2")->count() == 1; });
        program.chooseFile(user); // no reminder stands before the second dialog
        user.press("ctrl+q");
        user.answer("Yes");
    });
    QCOMPARE(problem, QString());
    QVERIFY(program.sandbox.read("C:\\Morlen\\MorlenE.ini").endsWith("\r\nFalse\r\n"));
}

void TestAirports::choiceIsDraggedBack()
{
    AirportProgram program;
    const QString problem = program.use([&](RealUser &user) {
        program.chooseFile(user);
        user.dragEntry("Tab1List1", 0, "Tab1List2");
        program.awaitChosen(user, 2);
        user.dragEntry("Tab1List2", 1, "Tab1List1");
        program.awaitChosen(user, 1);
    });
    QCOMPARE(problem, QString());
    QCOMPARE(program.list("Tab1List1")->items(), (QStringList{"Canada", "Germany", "Jamaica"}));
    QCOMPARE(program.label("lblT1Airport"), QString("Existing Airports: 1"));
}

void TestAirports::existingAirportCannotBeDragged()
{
    AirportProgram program;
    const QString problem = program.use([&](RealUser &user) {
        program.chooseFile(user);
        user.dragEntry("Tab1List2", 0, "Tab1List1");
        user.dragEntry("Tab1List1", 0, "Tab1List2"); // the next step sees that nothing hangs
        program.awaitChosen(user, 2);
    });
    QCOMPARE(problem, QString());
    QCOMPARE(program.list("Tab1List1")->items(), (QStringList{"Germany", "Jamaica"}));
}

void TestAirports::dropElsewhereChangesNothing()
{
    AirportProgram program;
    const QString problem = program.use([&](RealUser &user) {
        program.chooseFile(user);
        user.dragEntry("Tab1List1", 0, "Tab1lblAirportTextFileName");
        user.dragEntry("Tab1List1", 1, "Tab1List1"); // not into itself either
        user.dragEntry("Tab1List1", 2, "Tab1List2");
        program.awaitChosen(user, 2);
    });
    QCOMPARE(problem, QString());
    QCOMPARE(program.list("Tab1List1")->items(), (QStringList{"Canada", "Germany"}));
}

void TestAirports::escapeCancelsADrag()
{
    AirportProgram program;
    const QString problem = program.use([&](RealUser &user) {
        program.chooseFile(user);
        user.beginDrag("Tab1List1", 0, "Tab1List2");
        user.press("Escape");
        user.drop();
        user.dragEntry("Tab1List1", 2, "Tab1List2");
        program.awaitChosen(user, 2);
    });
    QCOMPARE(problem, QString());
    QCOMPARE(program.list("Tab1List1")->items(), (QStringList{"Canada", "Germany"}));
}

void TestAirports::clickSelectsAndDoubleClickDescends()
{
    AirportProgram program;
    const QString problem = program.use([&](RealUser &user) {
        program.chooseFile(user);
        user.clickEntry("Tab1List1", 1);
        user.await("the selection", [&] { return program.list("Tab1List1")->listIndex() == 1; });
        user.doubleClickEntry("Tab1List1", 0); // Canada
        user.await("the provinces", [&] {
            return program.list("Tab1List1")->items() == QStringList{"Alberta", "Ontario"};
        });
        RealUser::shoot("provinces");
        user.doubleClickEntry("Tab1List1", 0);
        user.await("the airports",
                   [&] { return program.label("Tab1Label1") == "Airports in Alberta  2"; });
        user.click("Tab1optICAO");
        user.await("the codes",
                   [&] { return program.list("Tab1List1")->text(0).startsWith("CYEG - "); });
        RealUser::shoot("airports_by_icao");
        user.click("Tab1cmdPrevious");
        user.await("the countries", [&] { return program.list("Tab1List1")->count() == 3; });
    });
    QCOMPARE(problem, QString());
}

void TestAirports::choicesAreMovedByKeyAndByMenu()
{
    AirportProgram program;
    const QString problem = program.use([&](RealUser &user) {
        program.chooseFile(user);
        user.clickEntry("Tab1List1", 0);
        user.press("Insert");
        program.awaitChosen(user, 2);
        user.clickEntry("Tab1List1", 0);
        user.press("Menu");
        user.press("Down");
        RealUser::shoot("menu");
        user.press("Return");
        program.awaitChosen(user, 3);
        user.clickEntry("Tab1List2", 1);
        user.press("Delete");
        program.awaitChosen(user, 2);
    });
    QCOMPARE(problem, QString());
    QCOMPARE(program.list("Tab1List1")->items(), (QStringList{"Canada", "Jamaica"}));
}

QTEST_MAIN(TestAirports)
#include "test_airports.moc"
