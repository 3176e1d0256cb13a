// SPDX-License-Identifier: MIT
// The world's airports: the file in the system directory, its records and the lists made of it.
#include "airport_loader/master_airport_list.h"
#include "platform/code_page.h"
#include "tests/support/airport_list.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"
#include "tests/support/steps.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using master_airport_list::AirportItem;
using master_airport_list::Listing;

namespace
{

const QString listPath = QStringLiteral("C:\\windows\\system32\\ZENTAM.OCX");

// The same letters in a name, a country of its own and a country with a longer name.
const QByteArray neighbours = "Guinea|||Conakry|GUCY|a\r\n"
                              "Guinea-Bissau|||Bissau|GGOV|b\r\n"
                              "GUINEA|||Shouting|GUXX|c\r\n"
                              " Guinea|||Blank|GUYY|d\r\n";

QByteArray open(Step &step)
{
    return master_airport_list::OpenOCX("C:\\Morlen\\", step);
}

Listing countriesOf(const QByteArray &list)
{
    return master_airport_list::countries(list, [](int) {});
}

/// Each list that is made of the whole list; `country` and `province` as far as it needs them.
QList<Listing> allListings(const QByteArray &list, const QString &country, const QString &province)
{
    return {countriesOf(list), master_airport_list::provinces(list, country),
            master_airport_list::airportsOfCountry(list, country, AirportItem::NameFirst),
            master_airport_list::airportsOfProvince(list, province, AirportItem::IcaoFirst)};
}

QString failureText(const Listing &listing)
{
    return failureOf([&] {
        if (listing.failure) {
            throw RuntimeError(*listing.failure);
        }
    });
}

} // namespace

class TestMasterAirportList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsLieBetweenFiveSeparators_data();
    void fieldsLieBetweenFiveSeparators();
    void separatorInTheSixthFieldIsKept();
    void lineWithFewerThanFiveSeparatorsCannotBeSplit_data();
    void lineWithFewerThanFiveSeparatorsCannotBeSplit();

    void nulCharactersInTheSystemDirectoryBufferVanish_data();
    void nulCharactersInTheSystemDirectoryBufferVanish();
    void listIsReadFromTheSystemDirectory();
    void listBesideTheProgramServesWhereTheSystemHasNone();
    void listIsReadAnewEachTime();
    void missingListFailsInTheStepThatNamesItsPath();
    void missingSystemDirectoryIsPathNotFound();
    void listThatIsAFolderIsRefused();
    void listThatMayNotBeReadIsRefused();

    void countriesAreListedOnceForLinesThatStandTogether();
    void countryInTwoGroupsIsListedTwice();
    void linesWithoutACountryAtTheStartAreNotListed();
    void everyLineReadIsCounted();
    void provincesOfTheCountryAreListedOnceForLinesThatStandTogether();
    void provinceIsRememberedOverLinesThatAreNotListed();
    void provinceInTwoGroupsIsListedTwice();
    void canadaWithoutProvincesHasNoneButAirports();
    void airportsOfACountryStandInTheOrderOfTheList();
    void airportsOfAProvinceGoByTheProvinceAlone();
    void namesAreComparedWhole_data();
    void namesAreComparedWhole();

    void emptyListGivesEmptyLists();
    void lineThatCannotBeSplitInTheMiddleKeepsWhatCameBefore();
    void lineEndsAreCrLfCrAndLf_data();
    void lineEndsAreCrLfCrAndLf();
    void nulBytesAreText();
    void accentsComeBackAsBytes();
    void lineOfTenMegabytesIsOneRecord();
    void listOf500000LinesIsReadWhole();
};

void TestMasterAirportList::fieldsLieBetweenFiveSeparators_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArrayList>("fields");
    QTest::newRow("usual") << QByteArray("Canada|Alberta|Calgary Intl|Calgary|CYYC|CYYC,N51*")
                           << QByteArrayList{"Canada",  "Alberta", "Calgary Intl",
                                             "Calgary", "CYYC",    "CYYC,N51*"};
    QTest::newRow("nothing in any")
        << QByteArray("|||||") << QByteArrayList{"", "", "", "", "", ""};
    QTest::newRow("blanks are text") << QByteArray(" a | |\tb|c  | d|  e ")
                                     << QByteArrayList{" a ", " ", "\tb", "c  ", " d", "  e "};
    QTest::newRow("quotes are text") << QByteArray("\"a|b\"|'c'|\"d\"|e|f")
                                     << QByteArrayList{"\"a", "b\"", "'c'", "\"d\"", "e", "f"};
}

void TestMasterAirportList::fieldsLieBetweenFiveSeparators()
{
    QFETCH(QByteArray, line);
    const AirportRecord record = AirportRecord::split(line);
    const QByteArrayList fields = {record.country.toByteArray(), record.province.toByteArray(),
                                   record.name.toByteArray(),    record.city.toByteArray(),
                                   record.icao.toByteArray(),    record.entry.toByteArray()};
    QTEST(fields, "fields");
}

void TestMasterAirportList::separatorInTheSixthFieldIsKept()
{
    const AirportRecord record = AirportRecord::split("a|b|c|d|EDDF|EDDF,|N50|,364|");
    QCOMPARE(record.icao.toByteArray(), "EDDF");
    QCOMPARE(record.entry.toByteArray(), "EDDF,|N50|,364|");
}

void TestMasterAirportList::lineWithFewerThanFiveSeparatorsCannotBeSplit_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("none") << QByteArray("Canada");
    QTest::newRow("one") << QByteArray("Canada|Alberta");
    QTest::newRow("four") << QByteArray("Canada|Alberta|Calgary Intl|Calgary|CYYC");
    QTest::newRow("four and nothing else") << QByteArray("||||");
}

void TestMasterAirportList::lineWithFewerThanFiveSeparatorsCannotBeSplit()
{
    QFETCH(QByteArray, line);
    QCOMPARE(failureOf([&] { AirportRecord::split(line); }),
             "5 Invalid procedure call or argument");
}

void TestMasterAirportList::nulCharactersInTheSystemDirectoryBufferVanish_data()
{
    QTest::addColumn<QString>("buffer");
    QTest::addColumn<QString>("directory");
    const QString path = QStringLiteral("C:\\WINDOWS\\system32");
    QTest::newRow("none") << path << path;
    QTest::newRow("the rest of 255 characters")
        << path + QString(255 - path.size(), QChar(0)) << path;
    QTest::newRow("in the middle") << "C:\\WINDOWS" + QString(2, QChar(0)) + "\\system32" << path;
    QTest::newRow("at the start") << QChar(0) + path << path;
    QTest::newRow("blanks stay") << " " + path + ' ' + QChar(0) << " " + path + ' ';
    QTest::newRow("nothing else") << QString(255, QChar(0)) << "";
}

void TestMasterAirportList::nulCharactersInTheSystemDirectoryBufferVanish()
{
    QFETCH(QString, buffer);
    QTEST(master_airport_list::directoryIn(buffer), "directory");
}

void TestMasterAirportList::listIsReadFromTheSystemDirectory()
{
    const Sandbox sandbox;
    const QByteArray bytes = QByteArrayLiteral("a|b|c|d|e|f\r\n\0\xFF\n\x1Ag|h");
    sandbox.write(listPath, bytes);
    Steps steps;
    QCOMPARE(open(steps.step), bytes);
    QCOMPARE(steps.ErrMsg, "Loading " + listPath);
}

void TestMasterAirportList::listBesideTheProgramServesWhereTheSystemHasNone()
{
    const Sandbox sandbox;
    const auto readIn = [&](const QString &folder) {
        sandbox.write(folder + "\\ZENTAM.OCX", folder.toLatin1());
        Steps steps;
        const QByteArray list = open(steps.step);
        return list + ", " + steps.ErrMsg.toLatin1();
    };
    QCOMPARE(readIn("C:\\Morlen"), QByteArray("C:\\Morlen, Loading C:\\Morlen\\ZENTAM.OCX"));
    QCOMPARE(readIn("C:\\windows\\SysWOW64"), QByteArray("C:\\windows\\SysWOW64, Loading "
                                                         "C:\\windows\\SysWOW64\\ZENTAM.OCX"));
    QCOMPARE(readIn("C:\\windows\\system32"),
             "C:\\windows\\system32, Loading " + listPath.toLatin1());
}

void TestMasterAirportList::listIsReadAnewEachTime()
{
    const Sandbox sandbox;
    Steps steps;
    sandbox.write(listPath, "");
    QCOMPARE(open(steps.step), "");
    sandbox.write(listPath, smallAirportList);
    QCOMPARE(open(steps.step), smallAirportList);
}

void TestMasterAirportList::missingListFailsInTheStepThatNamesItsPath()
{
    const Sandbox sandbox;
    Steps steps;
    QCOMPARE(steps.failureOf(open), "53 File not found: Loading " + listPath);
}

void TestMasterAirportList::missingSystemDirectoryIsPathNotFound()
{
    const Sandbox sandbox;
    QVERIFY(QDir().rmdir(sandbox.host("C:\\windows\\system32")));
    Steps steps;
    QCOMPARE(steps.failureOf(open), "76 Path not found: Loading " + listPath);
}

void TestMasterAirportList::listThatIsAFolderIsRefused()
{
    const Sandbox sandbox;
    sandbox.makeFolder(listPath);
    Steps steps;
    QCOMPARE(steps.failureOf(open), "75 Path/File access error: Loading " + listPath);
}

void TestMasterAirportList::listThatMayNotBeReadIsRefused()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write(listPath, smallAirportList);
    QVERIFY(QFile::setPermissions(sandbox.host(listPath), QFile::WriteOwner));
    const OrdinaryUser user(sandbox);
    Steps steps;
    QCOMPARE(steps.failureOf(open), "75 Path/File access error: Loading " + listPath);
}

void TestMasterAirportList::countriesAreListedOnceForLinesThatStandTogether()
{
    QCOMPARE(countriesOf(smallAirportList).items, (QStringList{"Canada", "Germany", "Jamaica"}));
    QCOMPARE(countriesOf(neighbours).items,
             (QStringList{"Guinea", "Guinea-Bissau", "GUINEA", " Guinea"}));
}

void TestMasterAirportList::countryInTwoGroupsIsListedTwice()
{
    QCOMPARE(countriesOf("Chad|||||1\r\nMali|||||2\r\nChad|||||3\r\nChad|||||4\r\n").items,
             (QStringList{"Chad", "Mali", "Chad"}));
}

void TestMasterAirportList::linesWithoutACountryAtTheStartAreNotListed()
{
    QCOMPARE(countriesOf("||a|||\n||b|||\nMali|||||\n||c|||\n||d|||\n").items,
             (QStringList{"Mali", ""}));
}

void TestMasterAirportList::everyLineReadIsCounted()
{
    QList<int> numbers;
    master_airport_list::countries(smallAirportList, [&](int number) { numbers += number; });
    QCOMPARE(numbers, (QList<int>{1, 2, 3, 4, 5, 6, 7}));
}

void TestMasterAirportList::provincesOfTheCountryAreListedOnceForLinesThatStandTogether()
{
    QCOMPARE(master_airport_list::provinces(smallAirportList, "Canada").items,
             (QStringList{"Alberta", "Ontario"}));
    const QByteArray twoCountries = "Australia|Victoria||||\nCanada|Victoria||||\n";
    QCOMPARE(master_airport_list::provinces(twoCountries, "Canada").items, QStringList{"Victoria"});
}

void TestMasterAirportList::provinceIsRememberedOverLinesThatAreNotListed()
{
    QCOMPARE(master_airport_list::provinces(
                 "Canada|Yukon||||\nCanada|||||\nMali|Kayes||||\nCanada|Yukon||||\n", "Canada")
                 .items,
             QStringList{"Yukon"});
}

void TestMasterAirportList::provinceInTwoGroupsIsListedTwice()
{
    QCOMPARE(master_airport_list::provinces(
                 "Canada|Yukon||||\nCanada|Quebec||||\nCanada|Yukon||||\n", "Canada")
                 .items,
             (QStringList{"Yukon", "Quebec", "Yukon"}));
}

void TestMasterAirportList::canadaWithoutProvincesHasNoneButAirports()
{
    const QByteArray list = "Canada||Calgary Intl|Calgary|CYYC|CYYC,\r\n";
    const Listing provinces = master_airport_list::provinces(list, "Canada");
    QCOMPARE(provinces.items, QStringList());
    QCOMPARE(failureText(provinces), "");
    QCOMPARE(master_airport_list::airportsOfCountry(list, "Canada", AirportItem::IcaoFirst).items,
             QStringList{"CYYC - Calgary Intl, Calgary"});
}

void TestMasterAirportList::airportsOfACountryStandInTheOrderOfTheList()
{
    const QString munich = QString::fromUtf8("München");
    QCOMPARE(
        master_airport_list::airportsOfCountry(smallAirportList, "Germany", AirportItem::NameFirst)
            .items,
        (QStringList{"Frankfurt Airport, Frankfurt am Main - EDDF",
                     munich + " Airport, " + munich + " - EDDM",
                     "Hamburg Airport, Hamburg - EDDH"}));
    QCOMPARE(
        master_airport_list::airportsOfCountry(smallAirportList, "Germany", AirportItem::IcaoFirst)
            .items,
        (QStringList{"EDDF - Frankfurt Airport, Frankfurt am Main",
                     "EDDM - " + munich + " Airport, " + munich,
                     "EDDH - Hamburg Airport, Hamburg"}));
}

void TestMasterAirportList::airportsOfAProvinceGoByTheProvinceAlone()
{
    const QByteArray list = "Australia|Victoria|Avalon|Geelong|YMAV|\n"
                            "Australia|Queensland|Cairns|Cairns|YBCS|\n"
                            "Canada|Victoria|Somewhere|Else|CXXX|\n";
    QCOMPARE(
        master_airport_list::airportsOfProvince(list, "Victoria", AirportItem::NameFirst).items,
        (QStringList{"Avalon, Geelong - YMAV", "Somewhere, Else - CXXX"}));
    QCOMPARE(
        master_airport_list::airportsOfProvince(list, "Queensland", AirportItem::IcaoFirst).items,
        QStringList{"YBCS - Cairns, Cairns"});
}

void TestMasterAirportList::namesAreComparedWhole_data()
{
    QTest::addColumn<QString>("country");
    QTest::addColumn<QStringList>("airports");
    QTest::newRow("beginning of another name") << "Guinea" << QStringList{"GUCY - , Conakry"};
    QTest::newRow("longer name") << "Guinea-Bissau" << QStringList{"GGOV - , Bissau"};
    QTest::newRow("other case") << "GUINEA" << QStringList{"GUXX - , Shouting"};
    QTest::newRow("blank in front") << " Guinea" << QStringList{"GUYY - , Blank"};
    QTest::newRow("blank behind") << "Guinea " << QStringList();
    QTest::newRow("part of a name") << "Guine" << QStringList();
    QTest::newRow("beyond the code page") << QString::fromUtf8("Łódź") << QStringList();
}

void TestMasterAirportList::namesAreComparedWhole()
{
    QFETCH(QString, country);
    QTEST(master_airport_list::airportsOfCountry(neighbours, country, AirportItem::IcaoFirst).items,
          "airports");
}

void TestMasterAirportList::emptyListGivesEmptyLists()
{
    for (const QByteArray &list : {QByteArray(), QByteArray("\xEF\xBB\xBF")}) {
        for (const Listing &listing : allListings(list, "Canada", "Alberta")) {
            QCOMPARE(listing.items, QStringList());
            QCOMPARE(failureText(listing), "");
        }
    }
}

void TestMasterAirportList::lineThatCannotBeSplitInTheMiddleKeepsWhatCameBefore()
{
    const QByteArray list = "Canada|Alberta|A|B|CYYC|f\r\n"
                            "Canada|Yukon|no more\r\n"
                            "Mali|Alberta|C|D|GABS|f\r\n"
                            "Canada|Quebec|E|F|CYUL|f\r\n";
    const QList<Listing> listings = allListings(list, "Canada", "Alberta");
    const QStringList expected = {"Canada", "Alberta", "A, B - CYYC", "CYYC - A, B"};
    for (int i = 0; i < listings.size(); ++i) {
        QCOMPARE(listings[i].items, QStringList{expected[i]});
        QCOMPARE(failureText(listings[i]), "5 Invalid procedure call or argument");
    }
}

void TestMasterAirportList::lineEndsAreCrLfCrAndLf_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::newRow("CR LF") << QByteArray("Chad|||||1\r\nMali|||||2\r\n");
    QTest::newRow("LF") << QByteArray("Chad|||||1\nMali|||||2\n");
    QTest::newRow("CR") << QByteArray("Chad|||||1\rMali|||||2\r");
    QTest::newRow("none at the end") << QByteArray("Chad|||||1\r\nMali|||||2");
    QTest::newRow("UTF-8 mark") << QByteArray("\xEF\xBB\xBF"
                                              "Chad|||||1\r\nMali|||||2");
}

void TestMasterAirportList::lineEndsAreCrLfCrAndLf()
{
    QFETCH(QByteArray, list);
    const Listing listing = countriesOf(list);
    QCOMPARE(listing.items, (QStringList{"Chad", "Mali"}));
    QCOMPARE(failureText(listing), "");
}

void TestMasterAirportList::nulBytesAreText()
{
    const QByteArray list = QByteArrayLiteral("Ch\0ad|\0|N\0|C|\0\0\0\0|f\r\nChad|||||\r\n");
    const QString country = QString("Ch") + QChar(0) + "ad";
    QCOMPARE(countriesOf(list).items, (QStringList{country, "Chad"}));
    QCOMPARE(master_airport_list::provinces(list, country).items, QStringList{QChar(0)});
    QCOMPARE(master_airport_list::airportsOfCountry(list, country, AirportItem::NameFirst).items,
             QStringList{QString("N") + QChar(0) + ", C - " + QString(4, QChar(0))});
}

void TestMasterAirportList::accentsComeBackAsBytes()
{
    QByteArray name; // every byte that may stand in a field
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n' && byte != '|') {
            name += static_cast<char>(byte);
        }
    }
    const QByteArray list =
        QByteArrayList{name, name, name, name, name, ""}.join('|') + "\r\n|||||";
    const QString text = countriesOf(list).items.value(0);
    QCOMPARE(code_page::encode(text), name);
    const QString byName = text + ", " + text + " - " + text;
    const QString byIcao = text + " - " + text + ", " + text;
    const QStringList expected = {text, byName, byIcao}; // found again by its text
    const QList<Listing> listings = allListings(list, text, text).mid(1);
    for (int i = 0; i < listings.size(); ++i) {
        QCOMPARE(listings[i].items, QStringList{expected[i]});
    }
}

void TestMasterAirportList::lineOfTenMegabytesIsOneRecord()
{
    const QByteArray name(10'000'000, 'x');
    const QByteArray list = "Chad||" + name + "|City|FTTJ|f\r\nMali|||||\r\n";
    QCOMPARE(countriesOf(list).items, (QStringList{"Chad", "Mali"}));
    const QStringList airports =
        master_airport_list::airportsOfCountry(list, "Chad", AirportItem::IcaoFirst).items;
    QCOMPARE(airports.size(), 1);
    QVERIFY(airports[0] == "FTTJ - " + QString::fromLatin1(name) + ", City");
    const Listing noSeparators = countriesOf("Chad|||||\r\n" + name + "\r\nMali|||||\r\n");
    QCOMPARE(noSeparators.items, QStringList{"Chad"});
    QCOMPARE(failureText(noSeparators), "5 Invalid procedure call or argument");
}

void TestMasterAirportList::listOf500000LinesIsReadWhole()
{
    QByteArray list;
    for (int country = 0; country < 100; ++country) {
        const QByteArray number = QByteArray::number(country);
        list += ("Country " + number + "|P" + number + "|Name|City|ICAO|f\r\n").repeated(5000);
    }
    int last = 0;
    const Listing countries =
        master_airport_list::countries(list, [&](int number) { last = number; });
    QCOMPARE(failureText(countries), "");
    QCOMPARE(countries.items.size(), 100);
    QCOMPARE(last, 500'000); // far beyond what the splash expects
    const QList<Listing> listings = allListings(list, "Country 99", "P99");
    QCOMPARE(listings[1].items, QStringList{"P99"});
    QCOMPARE(listings[2].items, QStringList("Name, City - ICAO").fill("Name, City - ICAO", 5000));
    QCOMPARE(listings[3].items.size(), 5000);
}

QTEST_GUILESS_MAIN(TestMasterAirportList)
#include "test_master_airport_list.moc"
