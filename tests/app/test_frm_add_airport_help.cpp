// SPDX-License-Identifier: MIT
// The reminder of how airports are added, and the box that turns it off.
#include "app/frm_add_airport_help.h"
#include "tests/support/find_control.h"
#include "tests/support/host.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

class TestFrmAddAirportHelp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsTwoParagraphs();
    void questionAndCaptionsAreShown();
    void wholeTextIsVisible_data();
    void wholeTextIsVisible();
    void everyClickTurnsTheReminderOff();
    void spaceBarTurnsTheReminderOffToo();
    void withoutAClickTheReminderStays();
    void buttonClosesIt();
    void enterAndEscapeCloseIt_data();
    void enterAndEscapeCloseIt();
    void everythingIsReachedByTab();
    void blocksTheProgramWhileOpen();
};

void TestFrmAddAirportHelp::textIsTwoParagraphs()
{
    bool isDue = true;
    const frmAddAirportHelp help(isDue);
    QCOMPARE(findControl<QLabel>(help, "Label1")->text(),
             QString("Airports are added using a Drag and Drop method.  Click on the airport name "
                     "you wish to add and drag it to the Add Airports List and drop it in.  You "
                     "can also remove an Airport by Dragging from the Add Airports List and "
                     "dropping it back in \rthe Available Airports List."));
    QCOMPARE(findControl<QLabel>(help, "Label2")->text(),
             QString("When the program first loads a list of Countries will be displayed.  Double "
                     "click on a Country name and a list of Airports in that Country will be "
                     "displayed.  In the case of Australia, Canada and the United States a list of "
                     "Provinces/States will be displayed.   Double click on a Province or State to "
                     "view a list of the Airports in that Province or State.  Airports can be "
                     "added Country, Province/State or City.  Dragging a Country name will add all "
                     "the Airports in that Country to your new Airport text file. The same applies "
                     "to a Province or State.  When a list of Cities is displayed you can add only "
                     "those \rAirports that will be required for your new FlightPlans."));
}

void TestFrmAddAirportHelp::questionAndCaptionsAreShown()
{
    bool isDue = true;
    const frmAddAirportHelp help(isDue);
    QCOMPARE(help.objectName(), QString("frmAddAirportHelp"));
    QCOMPARE(findControl<QLabel>(help, "Label3")->text(), QString("Show this reminder again?"));
    QCOMPARE(findControl<QCheckBox>(help, "Check1")->text(),
             QString("Don't show this message again"));
    QVERIFY(!findControl<QCheckBox>(help, "Check1")->isChecked());
    QVERIFY(!findControl<QPushButton>(help, "Command1")->text().isEmpty());
    for (const QLabel *label : help.findChildren<QLabel *>()) {
        QCOMPARE(label->textFormat(), Qt::PlainText);
    }
}

void TestFrmAddAirportHelp::wholeTextIsVisible_data()
{
    QTest::addColumn<int>("points");
    QTest::newRow("small letters") << 8;
    QTest::newRow("large letters") << 16;
}

void TestFrmAddAirportHelp::wholeTextIsVisible()
{
    NEEDS(usualFonts);
    QFETCH(int, points);
    bool isDue = true;
    frmAddAirportHelp help(isDue);
    QFont font = help.font();
    font.setPointSize(points);
    help.setFont(font);
    help.show();
    QCoreApplication::processEvents(); // the layout follows the font
    for (const char *name : {"Label1", "Label2"}) {
        const auto *const label = findControl<QLabel>(help, name);
        QVERIFY(label->wordWrap());
        QVERIFY2(label->height() >= label->heightForWidth(label->width()), name);
        QVERIFY(help.rect().contains(QRect(label->mapTo(&help, QPoint()), label->size())));
    }
    QVERIFY2(help.width() <= 760, qPrintable(QString::number(help.width())));
    QVERIFY2(help.height() <= 700, qPrintable(QString::number(help.height())));
}

void TestFrmAddAirportHelp::everyClickTurnsTheReminderOff()
{
    bool isDue = true;
    frmAddAirportHelp help(isDue);
    help.show();
    auto *const box = findControl<QCheckBox>(help, "Check1");
    QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    QVERIFY(box->isChecked());
    QVERIFY(!isDue);

    isDue = true;
    QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    QVERIFY(!box->isChecked());
    QVERIFY(!isDue);
}

void TestFrmAddAirportHelp::spaceBarTurnsTheReminderOffToo()
{
    bool isDue = true;
    frmAddAirportHelp help(isDue);
    help.show();
    QTest::keyClick(findControl<QCheckBox>(help, "Check1"), Qt::Key_Space);
    QVERIFY(!isDue);
}

void TestFrmAddAirportHelp::withoutAClickTheReminderStays()
{
    bool isDue = true;
    frmAddAirportHelp help(isDue);
    help.show();
    QTest::mouseClick(findControl<QPushButton>(help, "Command1"), Qt::LeftButton);
    QVERIFY(isDue);

    isDue = false;
    frmAddAirportHelp again(isDue);
    again.show();
    again.close();
    QVERIFY(!isDue);
}

void TestFrmAddAirportHelp::buttonClosesIt()
{
    bool isDue = true;
    frmAddAirportHelp help(isDue);
    help.show();
    QTest::mouseClick(findControl<QPushButton>(help, "Command1"), Qt::LeftButton);
    QVERIFY(!help.isVisible());
}

void TestFrmAddAirportHelp::enterAndEscapeCloseIt_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void TestFrmAddAirportHelp::enterAndEscapeCloseIt()
{
    QFETCH(int, key);
    bool isDue = true;
    frmAddAirportHelp help(isDue);
    help.show();
    QTest::keyClick(&help, static_cast<Qt::Key>(key));
    QVERIFY(!help.isVisible());
    QVERIFY(isDue);
}

void TestFrmAddAirportHelp::everythingIsReachedByTab()
{
    bool isDue = true;
    frmAddAirportHelp help(isDue);
    help.show();
    help.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&help));
    QCOMPARE(help.focusWidget()->objectName(), QString("Command1"));
    QTest::keyClick(&help, Qt::Key_Tab);
    QCOMPARE(help.focusWidget()->objectName(), QString("Check1"));
}

void TestFrmAddAirportHelp::blocksTheProgramWhileOpen()
{
    bool isDue = true;
    QWidget window;
    window.show();
    frmAddAirportHelp help(isDue, &window);
    help.show();
    QCOMPARE(QApplication::activeModalWidget(), &help);
    help.close();
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

QTEST_MAIN(TestFrmAddAirportHelp)
#include "test_frm_add_airport_help.moc"
