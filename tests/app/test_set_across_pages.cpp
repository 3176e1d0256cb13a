// SPDX-License-Identifier: MIT
// What the pages hand to each other while a flight plan set is made.
#include "airport_loader/airport_loader_page.h"
#include "app/services/form_state.h"
#include "platform/controls/dir_list_box.h"
#include "platform/controls/list_box.h"
#include "tests/support/failing_calls.h"
#include "tests/support/program.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <QtTest>

namespace
{

using Answer = MessageBox::Answer;

const QString airportPrompt = QStringLiteral("Please Select Airport Text file to Edit --->");

/// The program on page 2, with TTools known.
struct SetProgram : Program {
    explicit SetProgram(const QString &tToolsDir = "C:\\TTools",
                        const QByteArray &reminder = "False")
        : airports(tToolsDir + "\\Airports_New.txt"), aircraft(tToolsDir + "\\Aircraft_New.txt")
    {
        sandbox.write(tToolsDir + "\\TTools.exe", "#!/bin/sh\n");
        remember("2", tToolsDir.toLatin1() + "\\TTools.exe", "c:", aircraftDir.toLatin1(),
                 textFile.toLatin1(), reminder);
        start();
        nameSet();
    }

    void nameSet() const
    {
        find<QLineEdit>("tab2txtFltPlan")->setText("FlightPlans_New");
        press("tab2Command2");
    }

    void press(const QString &button) const { find<QAbstractButton>(button)->click(); }

    void createAirports() const
    {
        press("tab2optCreatefile");
        press("tab2cmdAirport");
    }

    void createAircraft() const
    {
        press("tab2optCreateNewAircraft");
        press("tab2cmdAircraft");
    }

    /// Drags the first country of page 1 to the airports to add.
    void choosePage1sFirst() const
    {
        auto *const list = find<ListBox>("Tab1List1");
        list->setFocus();
        list->setListIndex(0);
        QTest::keyClick(list, Qt::Key_Insert);
    }

    /// Ticks the first of page 0's aircraft and adds it.
    void addPage0sFirst() const
    {
        find<ListBox>("Tab0List2")->setSelected(0, true);
        find<QPushButton>("cmdAddAI")->setEnabled(true);
        press("cmdAddAI");
    }

    int page() const { return find<QTabWidget>("SSTab1")->currentIndex(); }

    bool isEnabled(const QString &name) const
    {
        return !find<QWidget>(name)->testAttribute(Qt::WA_ForceDisabled);
    }

    FormState &state() const { return window->state(); }

    QString airports;
    QString aircraft;
};

} // namespace

class TestSetAcrossPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void airportFileIsTakenOverByPage1();
    void aircraftFileIsTakenOverByPage0();
    void airportPageHasItsFileWhenItIsShown();
    void aircraftPageHasItsFileWhenItIsShownAndThenLoadsIt();
    void pathsOfASetShow60Characters();
    void reminderComesWhenAirportsAreToBeChosen();
    void airportsAddedLeadBackToPage2();
    void airportsCountAsSoonAsTheyAreWritten();
    void setBegunWhileAnothersAirportsAreViewedGoesOn();
    void setBegunWhileAnotherFileIsViewedGetsItsOwnAirports();
    void aircraftAddedLeadBackToPage2();
    void aircraftAddedBeforeAFailureAreNotEmptied();
    void quitMenuGoesToPage2WhileAirportsAreChosen();
    void airportsOfACreatedSetCanStillBeAdded();
    void setGivenUpLeavesPage1AsItWas();
    void fileThatPage1WentOnToIsLeftAlone();
    void fileThatPage1CameBackToIsForgotten();
    void copiedAircraftFileIsLoadedByPage0();
    void createdSetLeavesTheTicksOfPage0();
    void fileThatACreationEmptiedIsLoadedAnew();
    void fileThatACreationReplacedIsLoadedAnewThoughItFailed();
    void discardedAircraftFileIsForgottenByPage0();
    void anotherDirectoryMeanwhileKeepsTheSetsFile();
};

void TestSetAcrossPages::airportFileIsTakenOverByPage1()
{
    const SetProgram program;
    program.createAirports();
    QCOMPARE(program.page(), 1);
    QCOMPARE(program.state().AirportTextFile, program.airports);
    QCOMPARE(program.label("Tab1lblAirportTextFileName"), program.airports);
    QVERIFY(!program.isEnabled("Tab1cmdBrowse"));
    QVERIFY(program.isEnabled("Tab1List1"));
}

void TestSetAcrossPages::aircraftFileIsTakenOverByPage0()
{
    const SetProgram program;
    program.createAirports();
    program.createAircraft();
    QCOMPARE(program.page(), 0);
    QCOMPARE(program.state().AircraftTextDir, program.aircraft);
    QCOMPARE(program.label("lblAircraftTextFile"), program.aircraft);
    QCOMPARE(program.find<ListBox>("Tab0List2")->count(), 2);
    QCOMPARE(program.find<ListBox>("Tab0List3")->count(), 0);
}

void TestSetAcrossPages::airportPageHasItsFileWhenItIsShown()
{
    const SetProgram program;
    QString shown;
    connect(program.find<QTabWidget>("SSTab1"), &QTabWidget::currentChanged, this,
            [&] { shown = program.label("Tab1lblAirportTextFileName"); });
    program.find<QAction>("mnuTrace")->trigger();
    program.createAirports();
    QCOMPARE(shown, program.airports);
    const QByteArray log = program.sandbox.read(Program::logFile);
    const qsizetype selected = log.indexOf("AI Airport Tab Selected");
    QVERIFY(selected >= 0);
    QVERIFY(log.indexOf("Airport Text File = ") > selected);
}

void TestSetAcrossPages::aircraftPageHasItsFileWhenItIsShownAndThenLoadsIt()
{
    const SetProgram program;
    program.createAirports();
    QStringList seen;
    connect(program.find<QTabWidget>("SSTab1"), &QTabWidget::currentChanged, this, [&] {
        seen += program.label("lblAircraftTextFile");
        seen += program.find<ListBox>("Tab0List3")->items();
    });
    program.createAircraft();
    QCOMPARE(seen, (QStringList{program.aircraft, "AC#4,477,\"Boeing Blue\""}));
    QCOMPARE(program.find<ListBox>("Tab0List3")->count(), 0);
}

void TestSetAcrossPages::pathsOfASetShow60Characters()
{
    const SetProgram program("C:\\A folder with a rather long name");
    program.createAirports();
    program.createAircraft();
    QCOMPARE(program.airports.size(), 52); // more than the 50 of a file chosen there
    QCOMPARE(program.label("Tab1lblAirportTextFileName"), program.airports);
    QCOMPARE(program.label("lblAircraftTextFile"), program.aircraft);
}

void TestSetAcrossPages::reminderComesWhenAirportsAreToBeChosen()
{
    const SetProgram program("C:\\TTools", "True");
    QString shown;
    int pageThen = -1;
    QTimer::singleShot(0, program.window.get(), [&] {
        auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        shown = dialog ? dialog->objectName() : QString();
        pageThen = program.page();
        if (dialog) {
            dialog->reject();
        }
    });
    program.createAirports();
    QCOMPARE(shown, QString("frmAddAirportHelp"));
    QCOMPARE(pageThen, 1);
}

void TestSetAcrossPages::airportsAddedLeadBackToPage2()
{
    const SetProgram program;
    program.createAirports();
    program.choosePage1sFirst();
    program.press("Tab1cmdCreateFile");
    QCOMPARE(program.page(), 2);
    QCOMPARE(program.find<QLineEdit>("tab2txtAirport")->text(), QString("Airports_New.txt"));
    program.createAircraft();
    program.press("tab2cmdCreateNewFP");
    QVERIFY(program.sandbox.read(program.airports).contains("\r\nCYYC,"));
}

void TestSetAcrossPages::airportsCountAsSoonAsTheyAreWritten()
{
    SetProgram program;
    program.createAirports();
    program.choosePage1sFirst();
    program.outside.dialogs.answers = {Answer::Yes};
    program.outside.processes.whileRunning = [&] { program.press("tab2cmdCancel"); };
    program.press("Tab1cmdCreateFile");
    QVERIFY(!program.sandbox.exists(program.airports)); // given up while it was viewed
    QCOMPARE(program.label("Tab1lblAirportTextFileName"), airportPrompt);
    QVERIFY(program.isEnabled("Tab1cmdBrowse"));
    QCOMPARE(program.page(), 1);
}

void TestSetAcrossPages::setBegunWhileAnothersAirportsAreViewedGoesOn()
{
    SetProgram program;
    program.createAirports();
    program.choosePage1sFirst();
    program.outside.dialogs.answers = {Answer::Yes};
    program.outside.processes.whileRunning = [&] {
        program.press("tab2cmdCancel");
        program.nameSet();
        program.createAirports();
    };
    program.press("Tab1cmdCreateFile");
    QCOMPARE(program.page(), 1);
    QCOMPARE(program.label("Tab1lblAirportTextFileName"), program.airports);
    QVERIFY(program.isEnabled("Tab1List1"));
    QCOMPARE(program.find<ListBox>("Tab1List2")->count(), 0);
    program.sandbox.write(program.airports, "of the user");
    program.press("tab2cmdCancel"); // none were added to this one
    QVERIFY(program.sandbox.exists(program.airports));
}

void TestSetAcrossPages::setBegunWhileAnotherFileIsViewedGetsItsOwnAirports()
{
    SetProgram program;
    const QString other = "C:\\TTools\\Airports_Old.txt";
    program.sandbox.write(other, "");
    program.find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    program.outside.dialogs.files = {other};
    program.press("Tab1cmdBrowse");
    program.choosePage1sFirst();
    program.outside.dialogs.answers = {Answer::Yes};
    program.outside.processes.whileRunning = [&] { program.createAirports(); };
    program.press("Tab1cmdCreateFile");
    QCOMPARE(program.page(), 1);
    QCOMPARE(program.label("Tab1lblAirportTextFileName"), program.airports);
    QCOMPARE(program.find<ListBox>("Tab1List2")->count(), 0);
    QVERIFY(program.sandbox.read(other).contains("\r\nCYYC,"));
}

void TestSetAcrossPages::aircraftAddedLeadBackToPage2()
{
    const SetProgram program;
    program.createAirports();
    program.createAircraft();
    program.addPage0sFirst();
    QCOMPARE(program.page(), 2);
    QCOMPARE(QApplication::focusWidget(), program.find<QWidget>("tab2cmdCreateNewFP"));
    program.press("tab2cmdCreateNewFP");
    QVERIFY(program.sandbox.read(program.aircraft).contains("AC#1,"));

    program.find<QTabWidget>("SSTab1")->setCurrentIndex(0);
    program.addPage0sFirst();
    QCOMPARE(program.page(), 0); // no set is waiting any more
}

void TestSetAcrossPages::aircraftAddedBeforeAFailureAreNotEmptied()
{
    NEEDS(failingCalls);
    const SetProgram program;
    program.createAirports();
    program.createAircraft();
    failing_calls::syncFails = [] { return true; };
    program.addPage0sFirst();
    failing_calls::syncFails = nullptr;
    QCOMPARE(program.page(), 0);
    program.find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    program.press("tab2cmdCreateNewFP");
    QVERIFY(program.sandbox.read(program.aircraft).contains("AC#1,"));
}

void TestSetAcrossPages::quitMenuGoesToPage2WhileAirportsAreChosen()
{
    const SetProgram program;
    program.createAirports();
    program.find<QAction>("mnuQuit")->trigger();
    QCOMPARE(program.page(), 2);
    QCOMPARE(program.outside.dialogs.boxes.size(), 0);
    QVERIFY(program.window->isVisible());

    program.press("tab2cmdCancel");
    program.find<QAction>("mnuQuit")->trigger();
    QCOMPARE(program.outside.dialogs.boxes.size(), 1); // no set is waiting any more
}

void TestSetAcrossPages::airportsOfACreatedSetCanStillBeAdded()
{
    const SetProgram program;
    program.createAirports();
    program.choosePage1sFirst();
    program.createAircraft();
    program.press("tab2cmdCreateNewFP");
    QVERIFY(!program.sandbox.exists(program.airports));
    QCOMPARE(program.label("Tab1lblAirportTextFileName"), program.airports);
    QCOMPARE(program.find<ListBox>("Tab1List2")->items(), QStringList{"Canada"});
    QVERIFY(program.isEnabled("Tab1cmdBrowse"));

    program.find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    program.press("Tab1cmdCreateFile");
    QVERIFY(program.sandbox.read(program.airports).contains("\r\nCYYC,"));
    QCOMPARE(program.page(), 1); // no set is waiting any more
}

void TestSetAcrossPages::setGivenUpLeavesPage1AsItWas()
{
    const SetProgram program;
    program.createAirports();
    program.choosePage1sFirst();
    program.press("tab2cmdCancel");
    QCOMPARE(program.state().AirportTextFile, QString());
    QCOMPARE(program.label("Tab1lblAirportTextFileName"), airportPrompt);
    QCOMPARE(program.find<ListBox>("Tab1List2")->count(), 0);
    QVERIFY(program.isEnabled("Tab1cmdBrowse"));
    QVERIFY(!program.isEnabled("Tab1List1"));
    QVERIFY(program.find<QLabel>("Tab1lblDragnDrop")->isHidden());

    program.nameSet();
    program.createAirports();
    QVERIFY(program.isEnabled("Tab1List1"));
    QVERIFY(program.find<QLabel>("Tab1lblDragnDrop")->isVisible());
}

void TestSetAcrossPages::fileThatPage1WentOnToIsLeftAlone()
{
    SetProgram program;
    const QString other = "C:\\TTools\\Airports_Old.txt";
    program.sandbox.write(other, "CYYC,N51* 06.83',W114* 01.22',3557\r\n");
    program.createAirports();
    program.choosePage1sFirst();
    program.press("Tab1cmdCreateFile");
    QCOMPARE(program.page(), 2);
    program.outside.dialogs.files = {other};
    program.press("Tab1cmdBrowse");
    program.press("tab2cmdCancel");
    QCOMPARE(program.sandbox.exists(program.airports), false);
    QVERIFY(program.sandbox.exists(other));
    QCOMPARE(program.label("Tab1lblAirportTextFileName"), other);
    QCOMPARE(program.state().AirportTextFile, other);
}

void TestSetAcrossPages::fileThatPage1CameBackToIsForgotten()
{
    SetProgram program;
    program.createAirports();
    program.choosePage1sFirst();
    program.press("Tab1cmdCreateFile");
    program.outside.dialogs.files = {program.airports};
    program.press("Tab1cmdBrowse");
    program.press("tab2cmdCancel");
    QVERIFY(!program.sandbox.exists(program.airports));
    QCOMPARE(program.label("Tab1lblAirportTextFileName"), airportPrompt);
    QCOMPARE(program.state().AirportTextFile, QString());
}

void TestSetAcrossPages::copiedAircraftFileIsLoadedByPage0()
{
    SetProgram program;
    program.createAirports();
    program.press("tab2optCopyExistingAircraft");
    program.outside.dialogs.files = {Program::textFile};
    program.press("tab2cmdAircraft");
    program.sandbox.write(Program::textFile, "AC#8,454,\"Airbus Blue\"\r\n");
    program.press("tab2cmdCreateNewFP");
    QCOMPARE(program.label("lblAircraftTextFile"), program.aircraft);
    QCOMPARE(program.find<ListBox>("Tab0List3")->items(), QStringList{"AC#8,454,\"Airbus Blue\""});
}

void TestSetAcrossPages::createdSetLeavesTheTicksOfPage0()
{
    const SetProgram program;
    program.createAirports();
    program.createAircraft();
    program.find<ListBox>("Tab0List2")->setSelected(1, true);
    program.press("tab2cmdCreateNewFP");
    QVERIFY(program.find<ListBox>("Tab0List2")->selected(1));
    QCOMPARE(program.label("lblAircraftTextFile"), program.aircraft);
}

void TestSetAcrossPages::fileThatACreationEmptiedIsLoadedAnew()
{
    const SetProgram program;
    program.sandbox.write(program.aircraft, "AC#8,454,\"Airbus Blue\"\r\n");
    program.createAirports();
    program.createAircraft();
    QCOMPARE(program.find<ListBox>("Tab0List3")->count(), 1);
    program.press("tab2cmdCreateNewFP");
    QCOMPARE(program.sandbox.read(program.aircraft), QByteArray());
    QCOMPARE(program.find<ListBox>("Tab0List3")->count(), 0);
    QCOMPARE(program.find<ListBox>("Tab0List2")->count(), 2);
}

void TestSetAcrossPages::fileThatACreationReplacedIsLoadedAnewThoughItFailed()
{
    SetProgram program;
    program.createAirports();
    program.createAircraft();
    program.find<QTabWidget>("SSTab1")->setCurrentIndex(2);
    program.press("tab2cmdCancel");
    program.nameSet();
    program.createAirports();
    program.press("tab2optCopyExistingAircraft");
    program.outside.dialogs.files = {Program::textFile};
    program.press("tab2cmdAircraft");
    program.sandbox.makeFolder("C:\\TTools\\FlightPlans_New.txt"); // in the way of the last file
    program.press("tab2cmdCreateNewFP");
    QCOMPARE(program.outside.dialogs.boxes.last().title, QString("Create File Error"));
    QCOMPARE(program.label("lblAircraftTextFile"), program.aircraft);
    QCOMPARE(program.find<ListBox>("Tab0List3")->items(), QStringList{"AC#4,477,\"Boeing Blue\""});
}

void TestSetAcrossPages::discardedAircraftFileIsForgottenByPage0()
{
    const SetProgram program;
    program.createAirports();
    program.createAircraft();
    program.addPage0sFirst();
    QVERIFY(program.isEnabled("cmdTtools"));
    program.press("tab2cmdCancel");
    QVERIFY(!program.isEnabled("cmdTtools"));
    QVERIFY(!program.isEnabled("cmdEdit"));
    QVERIFY(!program.sandbox.exists(program.aircraft));
    QCOMPARE(program.label("lblAircraftTextFile"), QString("Please select an Aircraft Text File"));
    QCOMPARE(program.state().AircraftTextDir, QString());
    QCOMPARE(program.find<ListBox>("Tab0List3")->count(), 0);
}

void TestSetAcrossPages::anotherDirectoryMeanwhileKeepsTheSetsFile()
{
    const SetProgram program;
    program.sandbox.write("C:\\Other\\Aircraft\\C172\\aircraft.cfg",
                          "[fltsim.0]\r\ntitle=Cessna\r\ncruise_speed=120\r\n");
    program.createAirports();
    program.createAircraft();
    Q_EMIT program.find<DirListBox>("Dir1")->folderChosen("C:\\Other\\Aircraft");
    QCOMPARE(program.label("lblAircraftTextFile"), program.aircraft);
    QCOMPARE(program.find<ListBox>("Tab0List2")->items(), QStringList{"Cessna 120"});

    program.press("tab2cmdCancel");
    Q_EMIT program.find<DirListBox>("Dir1")->folderChosen(Program::aircraftDir);
    QCOMPARE(program.label("lblAircraftTextFile"), QString("Please select an Aircraft Text File"));
}

QTEST_MAIN(TestSetAcrossPages)
#include "test_set_across_pages.moc"
