// SPDX-License-Identifier: MIT
// Moving entries into "Airports to Add" and back: what a drop does, whoever makes it.
#include "tests/support/airport_loader_driver.h"

#include <QAction>
#include <QRadioButton>
#include <QtTest>

namespace
{

const QString hamburg = QStringLiteral("Hamburg Airport, Hamburg - EDDH");
const QString hamburgByIcao = QStringLiteral("EDDH - Hamburg Airport, Hamburg");
const QString frankfurt = QStringLiteral("Frankfurt Airport, Frankfurt am Main - EDDF");
const QString munich = QStringLiteral("M\u00FCnchen Airport, M\u00FCnchen - EDDM");
const QString kingston = QStringLiteral("Norman Manley International Airport, Kingston - MKJP");
const QString seattle = QStringLiteral("KSEA - Seattle, Washington, United States");
const QByteArray seattleLine =
    "KSEA,N47* 26.88',W122* 18.62',433       //Seattle, Washington, United States\r\n";
const QString existingChoice = seattle + '/' + seattle;

/// The countries and, with a file, one airport that it holds.
struct ChoosingPage : AirportLoaderDriver {
    explicit ChoosingPage(const QByteArray &fileBytes = {})
    {
        writeTextFile(fileBytes);
        start();
        if (!fileBytes.isEmpty()) {
            chooseTextFile();
        }
    }
};

QByteArray record(const QByteArray &country, const QByteArray &province, const QByteArray &icao)
{
    return country + '|' + province + "|Field|Town|" + icao + '|' + icao + ",N1,E1,1\r\n";
}

} // namespace

class TestChoosingAirports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pressOnAnAvailableEntryLetsItBeDragged();
    void pressOnAnEmptyAvailableListStartsNoDrag();
    void pressOnAChoiceSelectsItsSearchTextAndLetsItBeDragged();
    void pressOnAChoiceAfterTheFileWasChosenAgainSelectsItsOwnSearchText();
    void existingAirportStartsNoDrag();
    void pressOnTheEmptyAirportsToAddDisablesClearAll();
    void chosenCountryStandsForItself();
    void chosenAirportStandsForItsCodeInTheCountryBrowsed();
    void codeIsTheSameInBothSortOrders();
    void countryTextOfAnAirportIsTheCountryLastDoubleClicked();
    void countryTextIsTheFirstDroppedEntryWhenNoCountryWasOpened();
    void nameWithASeparatorOfItsOwnIsCutAtTheFirst();
    void droppedProvinceAppendsItsAirportsByNameAndNothingByIcao_data();
    void droppedProvinceAppendsItsAirportsByNameAndNothingByIcao();
    void provinceOfAnyOtherCountryIsLookedUpAsItself();
    void provinceCountryIsForgottenOnTheWayBack();
    void provinceCountryIsForgottenByClearAll();
    void doubleClickedAirportBecomesTheProvinceCountry();
    void choosingMovesTheEntryAndPreparesTheAppend();
    void choosingTheLastEntryDisablesTheSortOptions();
    void choosingAgainAfterReloadingTheListIsPossible();
    void choosingCountsTheExistingAirportsToo();
    void takingBackMovesTheEntryAndItsHiddenEntries();
    void takingBackTheLastDisablesAddAirportsAndClearAll();
    void takingBackWithOthersLeftEnablesEdit();
    void takingBackEnablesTheSortOptionsOnlyAmongAirports();
    void takingBackIntoAnotherLevelLeavesTheEntryThereUntilReloaded();
    void takingBackAfterTheFileWasChosenAgainRemovesItsOwnHiddenEntries();
    void airportChosenByIcaoCannotBeTakenBack();
    void existingAirportCannotBeDraggedOut();
    void droppingWithNothingSelectedDoesNothing();
    void textOtherThanTheSelectedIsNotAccepted();
    void contextMenusOfferTheSameMoves();
    void otherKeyMovesNothing();
    void duplicateAirportIsFoundAmongAirportsOnly();
    void duplicateAirportIsFoundByItsCodeInBothSortOrders();
    void airportThatIsNotThereIsNoDuplicate();
};

void TestChoosingAirports::pressOnAnAvailableEntryLetsItBeDragged()
{
    ChoosingPage user;
    user.clickEntry("Tab1List1", "Germany");
    QVERIFY(user.find<DragListBox>("Tab1List1")->dragEnabled());
    QCOMPARE(user.find<ListBox>("Tab1List1")->listIndex(), 1);
    user.clickBarePart("Tab1List1");
    QVERIFY(!user.find<DragListBox>("Tab1List1")->dragEnabled());
}

void TestChoosingAirports::pressOnAnEmptyAvailableListStartsNoDrag()
{
    ChoosingPage user;
    user.find<DragListBox>("Tab1List1")->setDragging(true);
    user.find<ListBox>("Tab1List1")->clear();
    user.clickBarePart("Tab1List1");
    QVERIFY(!user.find<DragListBox>("Tab1List1")->dragEnabled());
}

void TestChoosingAirports::pressOnAChoiceSelectsItsSearchTextAndLetsItBeDragged()
{
    ChoosingPage user(seattleLine);
    user.choose("Germany");
    user.choose("Jamaica");
    user.clickEntry("Tab1List2", "Germany");
    QCOMPARE(user.find<ListBox>("Tab1lstAICO")->listIndex(), 1);
    QVERIFY(user.find<DragListBox>("Tab1List2")->dragEnabled());
}

void TestChoosingAirports::pressOnAChoiceAfterTheFileWasChosenAgainSelectsItsOwnSearchText()
{
    ChoosingPage user(seattleLine);
    user.chooseTextFile();
    user.choose("Germany");
    QCOMPARE(user.choices(), (QStringList{existingChoice, existingChoice, "Germany/Germany"}));
    user.clickEntry("Tab1List2", "Germany");
    QCOMPARE(user.find<ListBox>("Tab1lstAICO")->listIndex(), 2);
}

void TestChoosingAirports::existingAirportStartsNoDrag()
{
    ChoosingPage user(seattleLine);
    user.choose("Germany");
    user.clickEntry("Tab1List2", "Germany");
    user.clickEntry("Tab1List2", seattle);
    QVERIFY(!user.find<DragListBox>("Tab1List2")->dragEnabled());
    QCOMPARE(user.find<ListBox>("Tab1lstAICO")->listIndex(), 1); // still that of "Germany"
    QVERIFY(user.isEnabled("Tab1cmdReset"));
    QCOMPARE(user.toAdd(), (QStringList{seattle, "Germany"}));
}

void TestChoosingAirports::pressOnTheEmptyAirportsToAddDisablesClearAll()
{
    ChoosingPage user(seattleLine);
    user.writeTextFile("//nothing\r\n");
    user.chooseTextFile();
    QCOMPARE(user.toAdd(), QStringList());
    QVERIFY(user.isEnabled("Tab1cmdReset"));
    user.clickBarePart("Tab1List2");
    QVERIFY(!user.isEnabled("Tab1cmdReset"));
    QVERIFY(!user.find<DragListBox>("Tab1List2")->dragEnabled());
}

void TestChoosingAirports::chosenCountryStandsForItself()
{
    ChoosingPage user;
    user.choose("Germany");
    QCOMPARE(user.choices(), QStringList{"Germany/Germany"});
    user.choose("Jamaica");
    QCOMPARE(user.choices(), (QStringList{"Germany/Germany", "Jamaica/Jamaica"}));
}

void TestChoosingAirports::chosenAirportStandsForItsCodeInTheCountryBrowsed()
{
    ChoosingPage user;
    user.descend("Canada");
    user.descend("Ontario");
    user.choose("Lester B. Pearson International Airport, Toronto - CYYZ");
    QCOMPARE(user.choices(), QStringList{"CYYZ/Canada"});
}

void TestChoosingAirports::codeIsTheSameInBothSortOrders()
{
    ChoosingPage user;
    user.descend("Germany");
    user.choose(hamburg);
    user.press("Tab1optICAO");
    user.choose(hamburgByIcao);
    QCOMPARE(user.choices(), (QStringList{"EDDH/Germany", "EDDH/Germany"}));
    QCOMPARE(user.toAdd(), (QStringList{hamburg, hamburgByIcao}));
}

void TestChoosingAirports::countryTextOfAnAirportIsTheCountryLastDoubleClicked()
{
    ChoosingPage user;
    user.choose("Jamaica"); // the first choice counts as the country only until one is opened
    user.descend("Canada");
    user.press("Tab1cmdPrevious");
    user.descend("Germany");
    user.choose(hamburg);
    QCOMPARE(user.choices(), (QStringList{"Jamaica/Jamaica", "EDDH/Germany"}));
}

void TestChoosingAirports::countryTextIsTheFirstDroppedEntryWhenNoCountryWasOpened()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad - North", "", "FTTN") + record("Peru", "", "SPJC"));
    user.start();
    user.choose("Peru");
    user.choose("Chad - North");
    QCOMPARE(user.choices(), (QStringList{"Peru/Peru", "North/Peru"}));
}

void TestChoosingAirports::nameWithASeparatorOfItsOwnIsCutAtTheFirst()
{
    AirportLoaderDriver user;
    user.writeMasterList("Chad||North - Main|Town|FTTN|FTTN,N1,E1,1\r\n");
    user.start();
    user.descend("Chad");
    user.choose("North - Main, Town - FTTN");
    user.press("Tab1cmdPrevious");
    user.descend("Chad");
    user.find<QRadioButton>("Tab1optICAO")->click();
    user.choose("FTTN - North - Main, Town");
    QCOMPARE(user.choices(), (QStringList{"Main, Town - FTTN/Chad", "FTTN/Chad"}));
}

void TestChoosingAirports::droppedProvinceAppendsItsAirportsByNameAndNothingByIcao_data()
{
    QTest::addColumn<QByteArray>("country");
    QTest::addColumn<bool>("byIcao");
    for (const QByteArray country : {"Australia", "Canada", "United States"}) {
        QTest::newRow((country + ", by name").constData()) << country << false;
        QTest::newRow((country + ", by code").constData()) << country << true;
    }
}

void TestChoosingAirports::droppedProvinceAppendsItsAirportsByNameAndNothingByIcao()
{
    QFETCH(QByteArray, country);
    QFETCH(bool, byIcao);
    AirportLoaderDriver user;
    user.writeMasterList(record(country, "Victoria", "YMML") + record("Jamaica", "", "MKJP"));
    user.writeTextFile("");
    user.start();
    user.chooseTextFile();
    if (byIcao) { // set among airports, where the option is enabled, it stays
        user.descend("Jamaica");
        user.press("Tab1optICAO");
        user.press("Tab1cmdPrevious");
    }
    user.descend(QString::fromLatin1(country));
    user.choose("Victoria");
    QCOMPARE(user.choices(),
             QStringList{byIcao ? QString("Victoria/Victoria") : "Victoria/" + country});
    user.press("Tab1cmdCreateFile");
    QCOMPARE(user.textFileBytes(),
             byIcao ? QByteArray()
                    : "//Airports Added - Sunday, November 01, 2026 14:03:27\r\n"
                      "YMML,N1,E1,1                            //Town, Victoria, " +
                          country + "\r\n");
}

void TestChoosingAirports::provinceOfAnyOtherCountryIsLookedUpAsItself()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Chad", "Lac", "FTTL"));
    user.start();
    user.descend("Chad");
    user.choose("Lac");
    QCOMPARE(user.choices(), QStringList{"Lac/Lac"});
}

void TestChoosingAirports::provinceCountryIsForgottenOnTheWayBack()
{
    ChoosingPage user;
    user.descend("Canada");
    user.press("Tab1cmdPrevious");
    user.choose("Germany");
    QCOMPARE(user.choices(), QStringList{"Germany/Germany"});
}

void TestChoosingAirports::provinceCountryIsForgottenByClearAll()
{
    ChoosingPage user(seattleLine);
    user.descend("Canada");
    user.press("Tab1cmdReset");
    user.chooseTextFile();
    user.choose("Germany");
    QCOMPARE(user.choices(), (QStringList{existingChoice, "Germany/Germany"}));
}

void TestChoosingAirports::doubleClickedAirportBecomesTheProvinceCountry()
{
    AirportLoaderDriver user;
    user.writeMasterList(record("Canada", "Yukon", "CYXY"));
    user.start();
    user.descend("Canada");
    user.choose("Yukon");
    QCOMPARE(user.choices(), QStringList{"Yukon/Canada"});
    user.takeBack("Yukon");
    user.descend("Yukon");
    user.choose("Field, Town - CYXY");
    user.takeBack("Field, Town - CYXY");
    user.descend("Field, Town - CYXY");
    user.find<ListBox>("Tab1List1")->addItem("Yukon"); // as a province taken back into this list
    user.choose("Yukon");
    QCOMPARE(user.choices(), QStringList{"Yukon/Yukon"});
}

void TestChoosingAirports::choosingMovesTheEntryAndPreparesTheAppend()
{
    ChoosingPage user(seattleLine);
    user.descend("Germany");
    QVERIFY(user.isEnabled("Tab1cmdEdit"));
    QVERIFY(!user.isEnabled("Tab1cmdCreateFile"));
    user.choose(hamburg);
    QCOMPARE(user.available(), (QStringList{frankfurt, munich}));
    QCOMPARE(user.toAdd(), (QStringList{seattle, hamburg}));
    QCOMPARE(user.find<ListBox>("Tab1List2")->listIndex(), 1);
    QVERIFY(user.isEnabled("Tab1cmdCreateFile"));
    QCOMPARE(user.focus(), QString("Tab1cmdCreateFile"));
    QVERIFY(!user.isEnabled("Tab1cmdEdit"));
    QVERIFY(user.isEnabled("Tab1cmdReset"));
    QCOMPARE(user.enabledSortOptions(), (QStringList{"Tab1Frame2", "Tab1optName", "Tab1optICAO"}));
    QCOMPARE(user.label("lblT1Airport"), QString("Existing Airports: 2"));
    QCOMPARE(user.label("Tab1Label1"), QString("Airports in Germany  3")); // as it was loaded
    QCOMPARE(user.messages(), QStringList());
}

void TestChoosingAirports::choosingTheLastEntryDisablesTheSortOptions()
{
    ChoosingPage user;
    user.descend("Jamaica");
    user.choose(kingston);
    QCOMPARE(user.available(), QStringList());
    QCOMPARE(user.enabledSortOptions(), QStringList());
}

void TestChoosingAirports::choosingAgainAfterReloadingTheListIsPossible()
{
    ChoosingPage user;
    user.descend("Jamaica");
    user.choose(kingston);
    user.press("Tab1cmdPrevious");
    user.descend("Jamaica");
    user.choose(kingston);
    QCOMPARE(user.toAdd(), (QStringList{kingston, kingston}));
    QCOMPARE(user.messages(), QStringList());
}

void TestChoosingAirports::choosingCountsTheExistingAirportsToo()
{
    ChoosingPage user(seattleLine.repeated(9));
    user.choose("Germany");
    QCOMPARE(user.label("lblT1Airport"), QString("Existing Airports: 10"));
}

void TestChoosingAirports::takingBackMovesTheEntryAndItsHiddenEntries()
{
    ChoosingPage user(seattleLine);
    user.choose("Canada");
    user.choose("Germany");
    user.choose("Jamaica");
    user.takeBack("Germany");
    QCOMPARE(user.available(), QStringList{"Germany"});
    QCOMPARE(user.toAdd(), (QStringList{seattle, "Canada", "Jamaica"}));
    QCOMPARE(user.choices(), (QStringList{existingChoice, "Canada/Canada", "Jamaica/Jamaica"}));
    QCOMPARE(user.label("lblT1Airport"), QString("Existing Airports: 3"));
}

void TestChoosingAirports::takingBackTheLastDisablesAddAirportsAndClearAll()
{
    ChoosingPage user;
    user.choose("Germany");
    QVERIFY(user.isEnabled("Tab1cmdCreateFile"));
    QVERIFY(user.isEnabled("Tab1cmdReset"));
    user.takeBack("Germany");
    QVERIFY(!user.isEnabled("Tab1cmdCreateFile"));
    QVERIFY(!user.isEnabled("Tab1cmdReset"));
    QVERIFY(!user.isEnabled("Tab1cmdEdit"));
    QCOMPARE(user.available(), (QStringList{"Canada", "Germany", "Jamaica"}));
    QCOMPARE(user.choices(), QStringList());
    QCOMPARE(user.label("lblT1Airport"), QString("Existing Airports: 0"));
}

void TestChoosingAirports::takingBackWithOthersLeftEnablesEdit()
{
    ChoosingPage user(seattleLine);
    user.choose("Germany");
    QVERIFY(!user.isEnabled("Tab1cmdEdit"));
    user.takeBack("Germany");
    QVERIFY(user.isEnabled("Tab1cmdEdit"));
    QVERIFY(user.isEnabled("Tab1cmdCreateFile")); // only an empty list takes these back
    QVERIFY(user.isEnabled("Tab1cmdReset"));
}

void TestChoosingAirports::takingBackEnablesTheSortOptionsOnlyAmongAirports()
{
    ChoosingPage user;
    user.choose("Germany");
    user.takeBack("Germany");
    QCOMPARE(user.enabledSortOptions(), QStringList());
    user.descend("Jamaica");
    user.choose(kingston);
    QCOMPARE(user.enabledSortOptions(), QStringList());
    user.takeBack(kingston);
    QCOMPARE(user.enabledSortOptions(), (QStringList{"Tab1Frame2", "Tab1optName", "Tab1optICAO"}));
}

void TestChoosingAirports::takingBackIntoAnotherLevelLeavesTheEntryThereUntilReloaded()
{
    ChoosingPage user;
    user.descend("Germany");
    user.choose(hamburg);
    user.press("Tab1cmdPrevious");
    user.takeBack(hamburg);
    QCOMPARE(user.available(), (QStringList{"Canada", "Germany", hamburg, "Jamaica"}));
    user.descend("Germany");
    QCOMPARE(user.available(), (QStringList{frankfurt, hamburg, munich}));
}

void TestChoosingAirports::takingBackAfterTheFileWasChosenAgainRemovesItsOwnHiddenEntries()
{
    ChoosingPage user(seattleLine);
    user.choose("Canada");
    user.chooseTextFile(); // the hidden lists keep the file's entry, too
    user.choose("Germany");
    user.choose("Jamaica");
    user.takeBack("Germany");
    QCOMPARE(user.toAdd(), (QStringList{seattle, "Canada", "Jamaica"}));
    user.takeBack("Canada");
    QCOMPARE(user.toAdd(), (QStringList{seattle, "Jamaica"}));
    QCOMPARE(user.choices(), (QStringList{existingChoice, existingChoice, "Jamaica/Jamaica"}));
}

void TestChoosingAirports::airportChosenByIcaoCannotBeTakenBack()
{
    ChoosingPage user;
    user.descend("Germany");
    user.press("Tab1optICAO");
    user.choose(hamburgByIcao); // has a hyphen where existing airports have theirs
    user.takeBack(hamburgByIcao);
    QCOMPARE(user.toAdd(), QStringList{hamburgByIcao});
    QCOMPARE(user.choices(), QStringList{"EDDH/Germany"});
}

void TestChoosingAirports::existingAirportCannotBeDraggedOut()
{
    ChoosingPage user(seattleLine);
    user.takeBack(seattle);
    QCOMPARE(user.toAdd(), QStringList{seattle});
    QCOMPARE(user.choices(), QStringList{existingChoice});
    QCOMPARE(user.available(), (QStringList{"Canada", "Germany", "Jamaica"}));
    Q_EMIT user.find<DragListBox>("Tab1List1")->dropped(seattle);
    QCOMPARE(user.toAdd(), QStringList{seattle});
}

void TestChoosingAirports::droppingWithNothingSelectedDoesNothing()
{
    ChoosingPage user(seattleLine);
    auto *const available = user.find<DragListBox>("Tab1List1");
    auto *const toAdd = user.find<DragListBox>("Tab1List2");
    QCOMPARE(available->listIndex(), -1);
    available->actions()[0]->trigger();
    QCOMPARE(user.toAdd(), QStringList{seattle});
    // Reached by the Tab key the first entry has the focus, but is not shown as selected.
    available->setFocus(Qt::TabFocusReason);
    available->selectionModel()->setCurrentIndex(available->model()->index(0, 0),
                                                 QItemSelectionModel::NoUpdate);
    available->actions()[0]->trigger();
    QCOMPARE(user.toAdd(), QStringList{seattle});
    Q_EMIT toAdd->dropped("");
    QCOMPARE(user.toAdd(), QStringList{seattle});
    QVERIFY(!user.isEnabled("Tab1cmdCreateFile"));
    user.choose("Germany");
    toAdd->setListIndex(-1);
    toAdd->actions()[0]->trigger();
    Q_EMIT available->dropped("");
    QCOMPARE(user.toAdd(), (QStringList{seattle, "Germany"}));
    QCOMPARE(user.available(), (QStringList{"Canada", "Jamaica"}));
}

void TestChoosingAirports::textOtherThanTheSelectedIsNotAccepted()
{
    ChoosingPage user;
    user.choose("Jamaica");
    user.clickEntry("Tab1List1", "Germany");
    Q_EMIT user.find<DragListBox>("Tab1List2")->dropped("Canada");
    QCOMPARE(user.toAdd(), QStringList{"Jamaica"});
    Q_EMIT user.find<DragListBox>("Tab1List2")->dropped("Germany");
    QCOMPARE(user.toAdd(), (QStringList{"Jamaica", "Germany"}));
    Q_EMIT user.find<DragListBox>("Tab1List1")->dropped("Jamaica"); // "Germany" is selected
    QCOMPARE(user.toAdd(), (QStringList{"Jamaica", "Germany"}));
}

void TestChoosingAirports::contextMenusOfferTheSameMoves()
{
    ChoosingPage user;
    auto *const available = user.find<DragListBox>("Tab1List1");
    auto *const toAdd = user.find<DragListBox>("Tab1List2");
    QCOMPARE(available->contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(toAdd->contextMenuPolicy(), Qt::ActionsContextMenu);
    QCOMPARE(available->actions().size(), 1);
    QCOMPARE(toAdd->actions().size(), 1);
    QCOMPARE(available->actions()[0]->text(), QString("Move to Airports to Add"));
    QCOMPARE(toAdd->actions()[0]->text(), QString("Move back to the available list"));
    user.clickEntry("Tab1List1", "Germany");
    available->actions()[0]->trigger();
    QCOMPARE(user.toAdd(), QStringList{"Germany"});
    toAdd->actions()[0]->trigger();
    QCOMPARE(user.toAdd(), QStringList());
}

void TestChoosingAirports::otherKeyMovesNothing()
{
    ChoosingPage user;
    user.choose("Canada");
    user.clickEntry("Tab1List2", "Canada"); // something is selected in both lists
    user.clickEntry("Tab1List1", "Germany");
    for (const auto &[control, key] :
         {std::pair("Tab1List1", Qt::Key_Delete), std::pair("Tab1List2", Qt::Key_Insert),
          std::pair("Tab1Command2", Qt::Key_Insert), std::pair("Tab1Command2", Qt::Key_Delete)}) {
        user.pressKey(control, key);
        QCOMPARE(user.available(), (QStringList{"Germany", "Jamaica"}));
        QCOMPARE(user.toAdd(), QStringList{"Canada"});
    }
}

void TestChoosingAirports::duplicateAirportIsFoundAmongAirportsOnly()
{
    ChoosingPage user("EDDH\r\n");
    user.clickEntry("Tab1List1", "Germany");
    QVERIFY(!user.window->AirportExists());
    QCOMPARE(user.messages(), QStringList());
}

void TestChoosingAirports::duplicateAirportIsFoundByItsCodeInBothSortOrders()
{
    ChoosingPage user("EDDH,x\r\n");
    user.descend("Germany");
    user.clickEntry("Tab1List1", hamburg);
    QVERIFY(user.window->AirportExists());
    QCOMPARE(user.outside.dialogs.boxes.size(), 1);
    QCOMPARE(user.outside.dialogs.boxes[0].buttons, MessageBox::Buttons::Ok);
    QCOMPARE(user.messages(), QStringList{"None, Morlen Utilities: Duplicate Airport!"});
    user.press("Tab1optICAO");
    user.clickEntry("Tab1List1", hamburgByIcao);
    QVERIFY(user.window->AirportExists());
    QCOMPARE(user.messages(), QStringList{"None, Morlen Utilities: Duplicate Airport!"});
}

void TestChoosingAirports::airportThatIsNotThereIsNoDuplicate()
{
    ChoosingPage user("EDDH,x\r\n");
    user.descend("Germany");
    user.clickEntry("Tab1List1", frankfurt);
    QVERIFY(!user.window->AirportExists());
    user.choose(frankfurt); // no drop asks: this one is there already
    user.choose(hamburg);
    QCOMPARE(user.messages(), QStringList());
}

QTEST_MAIN(TestChoosingAirports)
#include "test_choosing_airports.moc"
