// SPDX-License-Identifier: MIT
// Walking the master airport list: countries, provinces, airports.
#include "tests/support/airport_loader_driver.h"

#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>

namespace
{

const QStringList countries = {"Canada", "Germany", "Jamaica"};
const QStringList germanByName = {"Frankfurt Airport, Frankfurt am Main - EDDF",
                                  "Hamburg Airport, Hamburg - EDDH",
                                  "M\u00FCnchen Airport, M\u00FCnchen - EDDM"};
const QStringList germanByIcao = {"EDDF - Frankfurt Airport, Frankfurt am Main",
                                  "EDDH - Hamburg Airport, Hamburg",
                                  "EDDM - M\u00FCnchen Airport, M\u00FCnchen"};
const QStringList albertan = {"Calgary International Airport, Calgary - CYYC",
                              "Edmonton International Airport, Edmonton - CYEG"};

/// The page as the program starts with it.
struct StartedPage : AirportLoaderDriver {
    StartedPage() { start(); }
};

QByteArray record(const QByteArray &country, const QByteArray &province, const QByteArray &icao)
{
    return country + '|' + province + "|Field|Town|" + icao + '|' + icao + ",N1,E1,1\r\n";
}

QString dropToolTip(const QString &level)
{
    return " To remove an Airport Drag and Drop it in the \"" + level + " \"List ";
}

} // namespace

class TestAirportLoaderPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlHasTheProductsNameAndKind_data();
    void controlHasTheProductsNameAndKind();
    void everyLabelShowsPlainText();
    void pageComesUpWithItsDesignTexts();
    void countriesAreListedInAscendingOrder();
    void countryListShowsItsHeadingAndHidesPrevious();
    void countriesTellTheirProgress();
    void pointerIsTheHourglassWhileCountriesLoad();
    void countryThatOccursInTwoRunsIsListedTwice();
    void listLongerThanExpectedIsReadToItsEnd();
    void emptyMasterListGivesEmptyLists();
    void countryWithProvincesListsThem();
    void countryWithoutProvincesListsItsAirports();
    void provinceListsItsAirports();
    void canadaWithoutProvincesListsItsAirportsDirectly();
    void otherCountryWithProvincesListsThemToo();
    void provinceInTwoRunsIsListedTwice();
    void airportsOfAProvinceOfThatNameInAnotherCountryAreListedToo();
    void sevenAirportsInAProvinceGiveACaptionWithTwoBlanks();
    void doubleClickOnAnAirportChangesNothing();
    void enterDescendsLikeADoubleClick();
    void oneClickDescendsNowhere();
    void previousReturnsToTheCountriesFromEveryLevel_data();
    void previousReturnsToTheCountriesFromEveryLevel();
    void icaoOptionListsByCodeAndDisablesAddAirports();
    void nameOptionListsByNameAgain();
    void optionChangedWhileProvincesAreShownWaitsForTheAirports();
    void optionChangedAmongCountriesDoesNothing();
    void clearAllResetsThePage();
    void clearAllKeepsTheChosenFile();
    void clearAllLeavesTheSortFrame();
    void missingMasterListAtStartUpIsReportedAndThePageUsable();
    void missingMasterListIsReportedAtEveryLevel();
    void masterListThatIsAFolderIsReported();
    void malformedLineInTheMiddleKeepsWhatCameBefore();
    void malformedLineIsReportedAtEveryLevel();
    void fieldSixMayHoldTheSeparator();
    void failureIsTraced();
    void stepsAreNamed();
};

void TestAirportLoaderPage::controlHasTheProductsNameAndKind_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<const QMetaObject *>("kind");
    const auto add = [](const QMetaObject &kind, const QStringList &names) {
        for (const QString &name : names) {
            QTest::newRow(qPrintable(name)) << name << &kind;
        }
    };
    add(QLabel::staticMetaObject,
        {"Tab1Label1", "Tab1lblDragnDrop", "Tab1lblAirportTextFileName", "lblT1Airport"});
    add(DragListBox::staticMetaObject, {"Tab1List1", "Tab1List2"});
    add(ListBox::staticMetaObject, {"Tab1lstAICO", "Tab1lstCountry", "Tab1ListSort"});
    add(QPushButton::staticMetaObject, {"Tab1cmdBrowse", "Tab1cmdEdit", "Tab1cmdPrevious",
                                        "Tab1cmdReset", "Tab1cmdCreateFile", "Tab1Command2"});
    add(QGroupBox::staticMetaObject, {"Tab1Frame2"});
    add(QRadioButton::staticMetaObject, {"Tab1optName", "Tab1optICAO"});
    add(QProgressBar::staticMetaObject, {"Tab1ProgressBar1"});
}

void TestAirportLoaderPage::controlHasTheProductsNameAndKind()
{
    QFETCH(QString, name);
    QFETCH(const QMetaObject *, kind);
    AirportLoaderDriver user;
    user.open();
    QVERIFY(user.find<QWidget>(name)->metaObject()->inherits(kind));
}

void TestAirportLoaderPage::everyLabelShowsPlainText()
{
    AirportLoaderDriver user;
    user.open();
    for (const QLabel *label : user.window->findChildren<QLabel *>()) {
        QVERIFY2(label->textFormat() == Qt::PlainText || label->objectName() == "tab1Help",
                 qPrintable(label->objectName()));
    }
}

void TestAirportLoaderPage::pageComesUpWithItsDesignTexts()
{
    AirportLoaderDriver user;
    user.open();
    QCOMPARE(user.label("Tab1Label1"), QString("Countries"));
    QCOMPARE(user.label("lblT1Airport"), QString("Airports to Add"));
    QCOMPARE(user.caption("Tab1cmdPrevious"), QString("<--- Previous List"));
    QCOMPARE(user.caption("Tab1cmdReset"), QString("Clear All"));
    QCOMPARE(user.caption("Tab1cmdEdit"), QString("Edit Airports"));
    QCOMPARE(user.caption("Tab1Command2"), QString("Quit"));
    QCOMPARE(user.caption("Tab1optName"), QString("Airport Name"));
    QCOMPARE(user.caption("Tab1optICAO"), QString("Airport ICAO"));
    QCOMPARE(user.find<QGroupBox>("Tab1Frame2")->title(), QString("Sort Cities by:"));
    QCOMPARE(user.toolTip("Tab1List1"),
             QString(" Drag selection and drop in the \"Airports to Add\" List "));
    QCOMPARE(user.toolTip("Tab1List2"),
             QString(" To remove an Airport Drag and Drop it in the \"Countries\" List"));
    QCOMPARE(user.toolTip("Tab1cmdPrevious"), QString(" Return to Previous list "));
    QCOMPARE(user.toolTip("Tab1cmdReset"),
             QString(" Clear all lists back to their default settings "));
    QCOMPARE(user.toolTip("Tab1optName"), QString(" Click here to sort the Airports by Name"));
    QCOMPARE(user.toolTip("Tab1optICAO"),
             QString(" Click here to sort the Airports by ICAO Code "));
    QVERIFY(user.asksForTextFile());
    QVERIFY(user.isEnabled("Tab1List1"));
    QVERIFY(user.find<QRadioButton>("Tab1optName")->isChecked());
    for (const QString hidden :
         {"Tab1lstAICO", "Tab1lstCountry", "Tab1ListSort", "Tab1ProgressBar1"}) {
        QVERIFY2(!user.isShown(hidden), qPrintable(hidden));
    }
    QCOMPARE(user.enabledOf({"Tab1Frame2", "Tab1optName", "Tab1optICAO", "Tab1cmdReset",
                             "Tab1cmdCreateFile", "Tab1cmdEdit", "Tab1cmdBrowse", "Tab1Command2"}),
             (QStringList{"Tab1cmdBrowse", "Tab1Command2"}));
}

void TestAirportLoaderPage::countriesAreListedInAscendingOrder()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Peru", "", "SPJC") + record("andorra", "", "LEAX") +
                         record("Peru", "", "SPZO") + record("Bhutan", "", "VQPR"));
    user.start();
    QCOMPARE(user.available(), (QStringList{"andorra", "Bhutan", "Peru", "Peru"}));
    QCOMPARE(user.messages(), QStringList());
}

void TestAirportLoaderPage::countryListShowsItsHeadingAndHidesPrevious()
{
    StartedPage user;
    QCOMPARE(user.available(), countries);
    QCOMPARE(user.label("Tab1Label1"), QString("Country"));
    QCOMPARE(user.toolTip("Tab1List2"),
             QString(" To remove an Airport Drag and Drop it in the \"Country \"List "));
    QVERIFY(!user.isShown("Tab1cmdPrevious"));
    QCOMPARE(user.caption("Tab1cmdPrevious"), QString("Clear List"));
    QCOMPARE(user.enabledSortOptions(), QStringList());
}

void TestAirportLoaderPage::countriesTellTheirProgress()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "", "FTTJ").repeated(120));
    user.open();
    const QSignalSpy loading(user.window.get(), &AirportLoaderPage::countriesLoading);
    QList<int> numbers;
    connect(user.window.get(), &AirportLoaderPage::countryLineRead, this, [&](int number) {
        QCOMPARE(loading.count(), 1); // the bar is set up before it moves
        numbers += number;
    });
    user.window->LoadCountry();
    QCOMPARE(loading.count(), 1);
    QCOMPARE(loading[0][0].toInt(), 24000);
    QCOMPARE(numbers, (QList<int>{50, 100}));
}

void TestAirportLoaderPage::pointerIsTheHourglassWhileCountriesLoad()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "", "FTTJ").repeated(120));
    user.open();
    QList<Qt::CursorShape> shapes;
    connect(user.window.get(), &AirportLoaderPage::countryLineRead, this, [&] {
        const QCursor *const pointer = QApplication::overrideCursor();
        shapes += pointer ? pointer->shape() : Qt::ArrowCursor;
    });
    user.window->LoadCountry();
    QCOMPARE(shapes, QList<Qt::CursorShape>(2, Qt::WaitCursor));
    QVERIFY(!QApplication::overrideCursor());
}

void TestAirportLoaderPage::countryThatOccursInTwoRunsIsListedTwice()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Malta", "", "LMML") + record("Chad", "", "FTTJ") +
                         record("Malta", "", "LMMG"));
    user.start();
    QCOMPARE(user.available(), (QStringList{"Chad", "Malta", "Malta"}));
    user.descend("Malta");
    QCOMPARE(user.available(), (QStringList{"Field, Town - LMMG", "Field, Town - LMML"}));
}

void TestAirportLoaderPage::listLongerThanExpectedIsReadToItsEnd()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "", "FTTJ").repeated(24'049) + record("Peru", "", "SPJC"));
    user.open();
    int last = 0;
    connect(user.window.get(), &AirportLoaderPage::countryLineRead, this,
            [&](int number) { last = number; });
    user.window->LoadCountry();
    QCOMPARE(last, 24'050);
    QCOMPARE(user.available(), (QStringList{"Chad", "Peru"}));
}

void TestAirportLoaderPage::emptyMasterListGivesEmptyLists()
{
    AirportLoaderDriver user;
    user.writeMasterList("");
    user.start();
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(user.label("Tab1Label1"), QString("Country"));
    QCOMPARE(user.messages(), QStringList());
}

void TestAirportLoaderPage::countryWithProvincesListsThem()
{
    StartedPage user;
    user.descend("Canada");
    QCOMPARE(user.available(), (QStringList{"Alberta", "Ontario"}));
    QCOMPARE(user.label("Tab1Label1"), QString("Province/State in Canada  2"));
    QCOMPARE(user.toolTip("Tab1List2"), dropToolTip("Province/State"));
    QVERIFY(user.isShown("Tab1cmdPrevious"));
    QCOMPARE(user.caption("Tab1cmdPrevious"), QString("Clear Province List"));
    QVERIFY(!user.isShown("Tab1lblDragnDrop"));
    QCOMPARE(user.enabledSortOptions(), QStringList());
}

void TestAirportLoaderPage::countryWithoutProvincesListsItsAirports()
{
    StartedPage user;
    user.descend("Germany");
    QCOMPARE(user.available(), germanByName);
    QCOMPARE(user.label("Tab1Label1"), QString("Airports in Germany  3"));
    QCOMPARE(user.toolTip("Tab1List2"), dropToolTip("Cities"));
    QVERIFY(user.isShown("Tab1cmdPrevious"));
    QCOMPARE(user.caption("Tab1cmdPrevious"), QString("Clear Airport List"));
    QVERIFY(!user.isShown("Tab1lblDragnDrop"));
    QCOMPARE(user.enabledSortOptions(), (QStringList{"Tab1Frame2", "Tab1optName", "Tab1optICAO"}));
}

void TestAirportLoaderPage::provinceListsItsAirports()
{
    StartedPage user;
    user.descend("Canada");
    user.descend("Alberta");
    QCOMPARE(user.available(), albertan);
    QCOMPARE(user.label("Tab1Label1"), QString("Airports in Alberta  2"));
    QCOMPARE(user.toolTip("Tab1List2"), dropToolTip("Cities"));
    QCOMPARE(user.caption("Tab1cmdPrevious"), QString("Clear Airport List"));
    QVERIFY(user.isShown("Tab1cmdPrevious"));
    QCOMPARE(user.enabledSortOptions(), (QStringList{"Tab1Frame2", "Tab1optName", "Tab1optICAO"}));
}

void TestAirportLoaderPage::canadaWithoutProvincesListsItsAirportsDirectly()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Canada", "", "CYYC") + record("Chad", "", "FTTJ"));
    user.start();
    user.descend("Canada");
    QCOMPARE(user.available(), QStringList{"Field, Town - CYYC"});
    QCOMPARE(user.label("Tab1Label1"), QString("Airports in Canada  1"));
    user.press("Tab1optICAO"); // lists by country again: no province is open
    QCOMPARE(user.available(), QStringList{"CYYC - Field, Town"});
    QCOMPARE(user.label("Tab1Label1"), QString("Airports in Canada  1"));
}

void TestAirportLoaderPage::otherCountryWithProvincesListsThemToo()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "Lac", "FTTL") + record("Chad", "", "FTTJ"));
    user.start();
    user.descend("Chad");
    QCOMPARE(user.available(), QStringList{"Lac"});
    QCOMPARE(user.label("Tab1Label1"), QString("Province/State in Chad  1"));
}

void TestAirportLoaderPage::provinceInTwoRunsIsListedTwice()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "Lac", "FTTL") + record("Chad", "Mayo", "FTTM") +
                         record("Chad", "Lac", "FTTK"));
    user.start();
    user.descend("Chad");
    QCOMPARE(user.available(), (QStringList{"Lac", "Lac", "Mayo"}));
    QCOMPARE(user.label("Tab1Label1"), QString("Province/State in Chad  3"));
}

void TestAirportLoaderPage::airportsOfAProvinceOfThatNameInAnotherCountryAreListedToo()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "Lac", "FTTL") + record("Peru", "Lac", "SPLA"));
    user.start();
    user.descend("Chad");
    user.descend("Lac");
    QCOMPARE(user.available(), (QStringList{"Field, Town - FTTL", "Field, Town - SPLA"}));
}

void TestAirportLoaderPage::sevenAirportsInAProvinceGiveACaptionWithTwoBlanks()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Canada", "Yukon", "CYXY").repeated(7));
    user.start();
    user.descend("Canada");
    user.descend("Yukon");
    QCOMPARE(user.label("Tab1Label1"), QString("Airports in Yukon  7"));
}

void TestAirportLoaderPage::doubleClickOnAnAirportChangesNothing()
{
    StartedPage user;
    user.descend("Germany");
    user.descend("Hamburg Airport, Hamburg - EDDH");
    QCOMPARE(user.available(), germanByName);
    QCOMPARE(user.label("Tab1Label1"), QString("Airports in Germany  3"));
    QCOMPARE(user.toAdd(), QStringList());
}

void TestAirportLoaderPage::enterDescendsLikeADoubleClick()
{
    StartedPage user;
    user.clickEntry("Tab1List1", "Jamaica");
    user.pressKey("Tab1List1", Qt::Key_Return);
    QCOMPARE(user.label("Tab1Label1"), QString("Airports in Jamaica  1"));
}

void TestAirportLoaderPage::oneClickDescendsNowhere()
{
    StartedPage user;
    user.clickEntry("Tab1List1", "Germany");
    QCOMPARE(user.available(), countries);
    QCOMPARE(user.find<ListBox>("Tab1List1")->listIndex(), 1);
}

void TestAirportLoaderPage::previousReturnsToTheCountriesFromEveryLevel_data()
{
    QTest::addColumn<QStringList>("way");
    QTest::newRow("airports of a country") << QStringList{"Germany"};
    QTest::newRow("provinces") << QStringList{"Canada"};
    QTest::newRow("airports of a province") << QStringList{"Canada", "Alberta"};
}

void TestAirportLoaderPage::previousReturnsToTheCountriesFromEveryLevel()
{
    QFETCH(QStringList, way);
    StartedPage user;
    for (const QString &step : way) {
        user.descend(step);
    }
    user.press("Tab1cmdPrevious");
    QCOMPARE(user.available(), countries);
    QCOMPARE(user.label("Tab1Label1"), QString("Country"));
    QCOMPARE(user.toolTip("Tab1List2"), dropToolTip("Country"));
    QVERIFY(user.isShown("Tab1lblDragnDrop"));
    QVERIFY(!user.isShown("Tab1cmdPrevious"));
    QCOMPARE(user.caption("Tab1cmdPrevious"), QString("Clear List"));
    QCOMPARE(user.enabledSortOptions(), QStringList());
    user.descend("Canada"); // a country again, not a province of the one before
    QCOMPARE(user.label("Tab1Label1"), QString("Province/State in Canada  2"));
}

void TestAirportLoaderPage::icaoOptionListsByCodeAndDisablesAddAirports()
{
    StartedPage user;
    user.choose("Jamaica");
    user.descend("Germany");
    QVERIFY(user.isEnabled("Tab1cmdCreateFile"));
    user.press("Tab1optICAO");
    QCOMPARE(user.available(), germanByIcao);
    QVERIFY(!user.isEnabled("Tab1cmdCreateFile"));
    QCOMPARE(user.label("Tab1Label1"), QString("Airports in Germany  3"));
}

void TestAirportLoaderPage::nameOptionListsByNameAgain()
{
    StartedPage user;
    user.descend("Canada");
    user.descend("Alberta");
    user.press("Tab1optICAO");
    QCOMPARE(user.available(), (QStringList{"CYEG - Edmonton International Airport, Edmonton",
                                            "CYYC - Calgary International Airport, Calgary"}));
    user.choose("CYEG - Edmonton International Airport, Edmonton");
    QVERIFY(user.isEnabled("Tab1cmdCreateFile"));
    user.press("Tab1optName");
    QCOMPARE(user.available(), albertan); // the list is read again, the chosen one included
    QVERIFY(!user.isEnabled("Tab1cmdCreateFile"));
}

void TestAirportLoaderPage::optionChangedWhileProvincesAreShownWaitsForTheAirports()
{
    StartedPage user;
    user.choose("Jamaica");
    user.descend("Canada");
    for (const QString name : {"Tab1Frame2", "Tab1optICAO"}) { // the page never lets it happen
        user.find<QWidget>(name)->setEnabled(true);
    }
    user.press("Tab1optICAO");
    QCOMPARE(user.available(), (QStringList{"Alberta", "Ontario"}));
    QCOMPARE(user.label("Tab1Label1"), QString("Province/State in Canada  2"));
    QVERIFY(user.isEnabled("Tab1cmdCreateFile"));
    user.descend("Ontario");
    QCOMPARE(user.available(),
             QStringList{"CYYZ - Lester B. Pearson International Airport, Toronto"});
}

void TestAirportLoaderPage::optionChangedAmongCountriesDoesNothing()
{
    StartedPage user;
    user.choose("Jamaica");
    for (const QString name : {"Tab1Frame2", "Tab1optICAO"}) { // the page never lets it happen
        user.find<QWidget>(name)->setEnabled(true);
    }
    user.press("Tab1optICAO");
    QCOMPARE(user.available(), (QStringList{"Canada", "Germany"}));
    QVERIFY(user.isEnabled("Tab1cmdCreateFile"));
}

void TestAirportLoaderPage::clearAllResetsThePage()
{
    StartedPage user;
    user.writeTextFile("KSEA\r\n");
    user.chooseTextFile();
    user.descend("Germany");
    user.choose(germanByName[0]);
    user.press("Tab1cmdReset");
    QCOMPARE(user.available(), countries);
    QCOMPARE(user.toAdd(), QStringList());
    QCOMPARE(user.choices(), QStringList());
    QCOMPARE(user.label("Tab1Label1"), QString("Country"));
    QCOMPARE(user.label("lblT1Airport"), QString("Airport to Add")); // of one, in this product
    QVERIFY(user.asksForTextFile());
    QVERIFY(!user.isShown("Tab1lblDragnDrop"));
    QVERIFY(!user.isShown("Tab1cmdPrevious"));
    QCOMPARE(user.enabledOf({"Tab1List1", "Tab1cmdCreateFile", "Tab1cmdReset", "Tab1cmdEdit",
                             "Tab1optICAO", "Tab1optName", "Tab1List2", "Tab1cmdBrowse",
                             "Tab1Command2"}),
             (QStringList{"Tab1List2", "Tab1cmdBrowse", "Tab1Command2"}));
    QCOMPARE(user.messages(), QStringList());
}

void TestAirportLoaderPage::clearAllKeepsTheChosenFile()
{
    StartedPage user;
    user.writeTextFile("KSEA\r\n");
    user.chooseTextFile();
    user.press("Tab1cmdReset");
    user.find<QPushButton>("Tab1cmdCreateFile")->setEnabled(true);
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.messages(),
             QStringList{"None, AI Aircraft Loader: C:\\TTools\\Airport_Set.txt Created "
                         "Successfully!\r\rDo you want to view the file?"});
}

void TestAirportLoaderPage::clearAllLeavesTheSortFrame()
{
    StartedPage user;
    user.descend("Germany");
    user.choose(germanByName[0]);
    user.press("Tab1cmdReset");
    QCOMPARE(user.enabledSortOptions(), QStringList{"Tab1Frame2"});
}

void TestAirportLoaderPage::missingMasterListAtStartUpIsReportedAndThePageUsable()
{
    AirportLoaderDriver user;
    user.removeMasterList();
    user.start();
    QCOMPARE(user.messages(), QStringList{"Exclamation, Load Country Errors: Error  53 File not "
                                          "found\rLoading C:\\windows\\system32\\ZENTAM.OCX"});
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(user.label("Tab1Label1"), QString("Countries"));
    user.writeTextFile("KSEA\r\n");
    user.chooseTextFile();
    QCOMPARE(user.toAdd(), QStringList{"KSEA - "});
}

void TestAirportLoaderPage::missingMasterListIsReportedAtEveryLevel()
{
    const QString notFound =
        ": Error  53 File not found\rLoading C:\\windows\\system32\\ZENTAM.OCX";
    StartedPage user;
    user.descend("Canada");
    user.removeMasterList();
    user.descend("Alberta");
    QCOMPARE(user.messages(), QStringList{"Exclamation, Load City Error" + notFound});
    user.press("Tab1cmdPrevious");
    QCOMPARE(user.messages(), QStringList{"Exclamation, Load Country Errors" + notFound});
    QVERIFY(!QApplication::overrideCursor());
    user.writeMasterList(smallAirportList);
    user.press("Tab1cmdPrevious");
    user.removeMasterList();
    user.descend("Canada");
    QCOMPARE(user.messages(), QStringList{"Exclamation, Load Province Error" + notFound});
    QCOMPARE(user.available(), QStringList());
}

void TestAirportLoaderPage::masterListThatIsAFolderIsReported()
{
    AirportLoaderDriver user;
    user.removeMasterList();
    user.sandbox.makeFolder(AirportLoaderDriver::masterList);
    user.start();
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, Load Country Errors: Error  75 Path/File access error"
                         "\rLoading C:\\windows\\system32\\ZENTAM.OCX"});
}

void TestAirportLoaderPage::malformedLineInTheMiddleKeepsWhatCameBefore()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "", "FTTJ") + "Malta||Field|LMML\r\n" +
                         record("Peru", "", "SPJC"));
    user.start();
    QCOMPARE(user.messages(),
             QStringList{"Exclamation, Load Country Errors: Error  5 Invalid procedure call or "
                         "argument\rLoop through OCX"});
    QCOMPARE(user.available(), QStringList{"Chad"});
    QVERIFY(!QApplication::overrideCursor());
}

void TestAirportLoaderPage::malformedLineIsReportedAtEveryLevel()
{
    const QString reason = ": Error  5 Invalid procedure call or argument\rLoading OCX Data";
    const QByteArray broken = "Chad|\r\n";
    StartedPage user;
    user.writeMasterList(record("Canada", "Yukon", "CYXY") + broken +
                         record("Canada", "Alberta", "CYYC"));
    user.descend("Canada");
    QCOMPARE(user.messages(), QStringList{"Exclamation, Load Province Error" + reason});
    QCOMPARE(user.available(), QStringList{"Yukon"});
    user.writeMasterList(smallAirportList);
    user.press("Tab1cmdPrevious");
    user.descend("Canada");
    user.writeMasterList(record("Canada", "Alberta", "CYYC") + broken +
                         record("Canada", "Alberta", "CYEG"));
    user.descend("Alberta");
    QCOMPARE(user.messages(), QStringList{"Exclamation, Load City Error" + reason});
    QCOMPARE(user.available(), QStringList{"Field, Town - CYYC"});
}

void TestAirportLoaderPage::fieldSixMayHoldTheSeparator()
{
    AirportLoaderDriver user;
    user.writeMasterList("Chad||Field|Town|FTTJ|FTTJ|N1|E1\r\n");
    user.start();
    user.descend("Chad");
    QCOMPARE(user.available(), QStringList{"Field, Town - FTTJ"});
    QCOMPARE(user.messages(), QStringList());
}

void TestAirportLoaderPage::failureIsTraced()
{
    AirportLoaderDriver user;
    user.trace();
    user.removeMasterList();
    user.start();
    QCOMPARE(user.traced(), QStringList{"Error  53 File not found - Loading "
                                        "C:\\windows\\system32\\ZENTAM.OCX"});
}

void TestAirportLoaderPage::stepsAreNamed()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "", "FTTJ") + record("Germany", "", "EDDF").repeated(60));
    user.open();
    QStringList steps;
    connect(user.window.get(), &AirportLoaderPage::countriesLoading, this,
            [&] { steps += user.step(); });
    connect(user.window.get(), &AirportLoaderPage::countryLineRead, this,
            [&] { steps += user.step(); });
    user.window->LoadCountry();
    steps.removeDuplicates();
    QCOMPARE(steps, (QStringList{"Setting Progress Bar", "Loop through OCX"}));
    user.descend("Germany");
}

QTEST_MAIN(TestAirportLoaderPage)
#include "test_airport_loader_page.moc"
