// SPDX-License-Identifier: MIT
// The airport text file: its items, its lines, and the lines that a choice stands for.
#include "airport_loader/airport_text_file.h"
#include "platform/code_page.h"
#include "tests/support/airport_list.h"
#include "tests/support/failure.h"

#include <QLocale>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QtTest>

#include <string>
#include <utility>

using airport_text_file::chosenLines;
using airport_text_file::existingItems;

namespace
{

const QByteArray guineas = "Equatorial Guinea|||Malabo|FGSL|0\r\n"
                           "Guinea|||Conakry|GUCY|1\r\n"
                           "Guinea|||Kankan|GUXN|2\r\n"
                           "Guinea-Bissau|||Bissau|GGOV|3\r\n";

/// The codes (fifth field) of the lines found, in their order.
QStringList codes(const QByteArray &list, const QList<AirportChoice> &choices)
{
    QStringList texts;
    for (const ChosenLine &chosen : chosenLines(list, choices)) {
        texts += code_page::decode(AirportRecord::split(chosen.line).icao);
    }
    return texts;
}

/// A list with its lines known, so that nothing need be read to compare.
struct KnownList {
    QByteArray bytes;
    std::vector<std::pair<qsizetype, qsizetype>> lines; ///< start and length
};

class RandomAirports
{
public:
    explicit RandomAirports(quint32 round) : m_random(round) {}

    KnownList list()
    {
        KnownList list;
        for (int count = m_random.bounded(60); count > 0; --count) {
            const QByteArray line = m_random.bounded(12) == 0 ? text(8) : record();
            list.lines.emplace_back(list.bytes.size(), line.size());
            list.bytes += line + pick({"\r\n", "\n"});
        }
        return list;
    }

    AirportChoice choice()
    {
        const QString country = code_page::decode(pick(m_countries));
        switch (m_random.bounded(6)) {
        case 0:
            return {country, country};
        case 1: // a province looked up in its country, or with the codes in front
            return {code_page::decode(pick(m_provinces)), country};
        case 2: {
            const QString province = code_page::decode(pick(m_provinces));
            return {province, province};
        }
        case 3: // too short to be told by its first four bytes
            return {code_page::decode(text(3)), country};
        case 4: // across fields, or longer than a line
            return {code_page::decode(code() + '|' + text(40)), country};
        default:
            return {code_page::decode(code()), m_random.bounded(8) == 0 ? QString() : country};
        }
    }

    QList<AirportChoice> choices()
    {
        QList<AirportChoice> choices;
        for (int count = m_random.bounded(50); count > 0; --count) {
            const bool again = !choices.isEmpty() && m_random.bounded(8) == 0;
            choices +=
                again ? choices[m_random.bounded(static_cast<int>(choices.size()))] : choice();
        }
        return choices;
    }

private:
    // Few letters, so that most texts stand in some line and many stand in one twice.
    QByteArray letters(int length)
    {
        QByteArray text;
        for (int i = 0; i < length; ++i) {
            text += "ABa\xC9|"[m_random.bounded(5)];
        }
        return text;
    }

    QByteArray text(int limit) { return letters(m_random.bounded(limit)); }

    QByteArray code() { return letters(4); }

    QByteArray pick(const QByteArrayList &from)
    {
        return from[m_random.bounded(static_cast<int>(from.size()))];
    }

    QByteArray record()
    {
        const QByteArray icao = code();
        return pick(m_countries) + '|' + pick(m_provinces) + '|' + text(12) + '|' + text(9) + '|' +
               icao + '|' + icao + ",N50*" + text(6) + pick({"", "|", icao});
    }

    const QByteArrayList m_countries = {
        "Guinea", "Guinea-Bissau", "Guinea, Republic of", "Canada", "C\xF4te d'Ivoire", "Ca", ""};
    const QByteArrayList m_provinces = {"", "", "Alberta", "Qu\351bec", "Canada", "Al", "BAAB"};

    QRandomGenerator m_random;
};

/// For each choice every line of the list, one after the other: choice and start of the line.
std::vector<std::pair<int, qsizetype>> plainLoop(const KnownList &list,
                                                 const QList<AirportChoice> &choices)
{
    std::vector<std::pair<int, qsizetype>> found;
    for (int i = 0; i < choices.size(); ++i) {
        const std::string search = code_page::encode(choices[i].search).toStdString();
        const std::string country = code_page::encode(choices[i].country).toStdString();
        for (const auto &[start, length] : list.lines) {
            const std::string line = list.bytes.mid(start, length).toStdString();
            if (line.find(search) != std::string::npos &&
                line.substr(0, country.size()).find(country) != std::string::npos) {
                found.emplace_back(i, start);
            }
        }
    }
    return found;
}

} // namespace

class TestAirportTextFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itemIsTheCodeAndWhatStandsFromCharacter43On();
    void commentsAndEmptyLinesAreNoItems();
    void lineShorterThan43CharactersGivesCodeAndHyphenOnly_data();
    void lineShorterThan43CharactersGivesCodeAndHyphenOnly();
    void nulBytesAndAccentsOfALineAreText();
    void lineOfTenMegabytesIsOneItem();
    void existingAirportHasAHyphenAsSixthCharacter_data();
    void existingAirportHasAHyphenAsSixthCharacter();

    void entryIsFilledUpTo35Characters_data();
    void entryIsFilledUpTo35Characters();
    void entryWithASeparatorIsWrittenWhole();
    void writtenLineReadsBack();
    void entryLongerThan35CharactersReadsBackShifted();
    void headerHoldsLongDateAndClock_data();
    void headerHoldsLongDateAndClock();
    void headerIsEnglishInEveryLocale();

    void airportIsFoundByItsCodeInItsCountry();
    void codeIsFoundAnywhereInTheLine();
    void sameIcaoChosenTwiceIsFoundTwice();
    void wholeCountryIsEveryLineThatBeginsWithIt();
    void guineaAlsoTakesGuineaBissau();
    void provinceIsLookedUpInItsCountry();
    void provinceLookedUpAsACountryIsFoundNowhere();
    void textThatStandsTwiceInALineIsOneMatch();
    void caseAndAccentsAreCompared();
    void linesComeChoiceAfterChoiceThenAsInTheList();
    void nothingIsFoundInAnEmptyListOrWithoutChoices();
    void lineThatCannotBeSplitIsFoundAllTheSame();
    void nulBytesInTheListAreText();
    void lineOfTenMegabytesIsSearchedToItsEnd();
    void listOf500000LinesIsSearchedOnce();
    void randomChoicesAreFoundAsByAPlainLoop();
};

void TestAirportTextFile::itemIsTheCodeAndWhatStandsFromCharacter43On()
{
    const QByteArray entry = QByteArray("KSEA,N47* 26.88',W122* 18.62',433").leftJustified(35);
    QCOMPARE(existingItems(entry + "     //Seattle, Washington, United States\r\n" + entry +
                           "     /X\r\n" + QByteArray("EDDF by hand").leftJustified(42) + "\xE9s!"),
             (QStringList{"KSEA - Seattle, Washington, United States", "KSEA - ",
                          QString::fromUtf8("EDDF - és!")}));
}

void TestAirportTextFile::commentsAndEmptyLinesAreNoItems()
{
    QCOMPARE(existingItems("//Airports Added - Sunday, November 01, 2026 14:03:27\r\n"
                           "\r\n"
                           "//\r\n"
                           "/ KSEA\r\n"
                           " //x\r\n"
                           "   \r\n"
                           ";abc\r\n"),
             (QStringList{"/ KS - ", " //x - ", "    - ", ";abc - "}));
    QCOMPARE(existingItems(""), QStringList());
    QCOMPARE(existingItems("\xEF\xBB\xBF//comment\r\nKSEA\rKBFI\n"),
             (QStringList{"KSEA - ", "KBFI - "}));
}

void TestAirportTextFile::lineShorterThan43CharactersGivesCodeAndHyphenOnly_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("item");
    QTest::newRow("42") << "KSEA" + QByteArray(38, 'x') << "KSEA - ";
    QTest::newRow("43") << "KSEA" + QByteArray(38, 'x') + 'y' << "KSEA - y";
    QTest::newRow("4") << QByteArray("KSEA") << "KSEA - ";
    QTest::newRow("3") << QByteArray("S50") << "S50 - ";
    QTest::newRow("1") << QByteArray("/") << "/ - ";
}

void TestAirportTextFile::lineShorterThan43CharactersGivesCodeAndHyphenOnly()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, item);
    QCOMPARE(existingItems(line), QStringList{item});
    QCOMPARE(existingItems(line + "\r\n" + line + "\r\n"), (QStringList{item, item}));
}

void TestAirportTextFile::nulBytesAndAccentsOfALineAreText()
{
    const QByteArray line =
        QByteArrayLiteral("K\0\xC9") + QByteArray(39, 'x') + QByteArrayLiteral("\0\x80");
    QCOMPARE(existingItems(line), QStringList{QString("K") + QChar(0) + QString::fromUtf8("Éx - ") +
                                              QChar(0) + QString::fromUtf8("€")});
}

void TestAirportTextFile::lineOfTenMegabytesIsOneItem()
{
    const QStringList items = existingItems(QByteArray(10'000'042, 'x') + "\r\nKSEA\r\n");
    QCOMPARE(items.size(), 2);
    QVERIFY(items[0] == "xxxx - " + QString(10'000'000, 'x'));
    QCOMPARE(items[1], "KSEA - ");
}

void TestAirportTextFile::existingAirportHasAHyphenAsSixthCharacter_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<bool>("existing");
    QTest::newRow("item of the file") << "KSEA - Seattle" << true;
    QTest::newRow("short line") << "KSEA - " << true;
    QTest::newRow("code alone") << "KSEA" << false;
    QTest::newRow("code of three characters") << "S50 - " << false;
    QTest::newRow("country") << "Germany" << false;
    QTest::newRow("country with a hyphen there") << "Timor-Leste" << true;
    QTest::newRow("hyphen as fifth") << "abcd-ef" << false;
    QTest::newRow("hyphen as seventh") << "Guinea-Bissau" << false;
    QTest::newRow("nothing") << "" << false;
}

void TestAirportTextFile::existingAirportHasAHyphenAsSixthCharacter()
{
    QFETCH(QString, item);
    QTEST(airport_text_file::isExisting(item), "existing");
}

void TestAirportTextFile::entryIsFilledUpTo35Characters_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("written");
    QTest::newRow("usual") << QByteArray("Germany||M\xFCnchen Airport|M\xFCnchen|EDDM|"
                                         "EDDM,N48* 21.22',E11* 47.17',1487")
                           << QString::fromUtf8("EDDM,N48* 21.22',E11* 47.17',1487       "
                                                "//München, , Germany");
    QTest::newRow("province") << QByteArray("Canada|Ontario|x|Toronto|CYYZ|CYYZ")
                              << "CYYZ" + QString(31, ' ') + "     //Toronto, Ontario, Canada";
    QTest::newRow("34") << "c|p|n|t|I|" + QByteArray(34, 'x')
                        << QString(34, 'x') + "      //t, p, c";
    QTest::newRow("35") << "c|p|n|t|I|" + QByteArray(35, 'x')
                        << QString(35, 'x') + "     //t, p, c";
    QTest::newRow("36") << "c|p|n|t|I|" + QByteArray(36, 'x')
                        << QString(36, 'x') + "     //t, p, c";
    QTest::newRow("accents fill one column each")
        << QByteArray("c|p|n|t|I|\xE9\xE9")
        << QString(2, QChar(0xE9)) + QString(38, ' ') + "//t, p, c";
    QTest::newRow("nothing") << QByteArray("|||||") << QString(40, ' ') + "//, , ";
    QTest::newRow("blanks are kept")
        << QByteArray(" c | p|n| t |I| x") << " x" + QString(38, ' ') + "// t ,  p,  c ";
}

void TestAirportTextFile::entryIsFilledUpTo35Characters()
{
    QFETCH(QByteArray, line);
    QTEST(airport_text_file::airportLine(AirportRecord::split(line)), "written");
}

void TestAirportTextFile::entryWithASeparatorIsWrittenWhole()
{
    QCOMPARE(airport_text_file::airportLine(AirportRecord::split("c|p|n|t|I|EDDF|N50||,364|")),
             "EDDF|N50||,364|" + QString(25, ' ') + "//t, p, c");
}

void TestAirportTextFile::writtenLineReadsBack()
{
    QByteArray file;
    for (const ChosenLine &chosen : chosenLines(smallAirportList, {{"", ""}})) {
        const AirportRecord record = AirportRecord::split(chosen.line);
        file += code_page::encode(airport_text_file::airportLine(record)) + "\r\n";
    }
    const QString munich = QString::fromUtf8("München");
    QCOMPARE(existingItems(file),
             (QStringList{"CYYC - Calgary, Alberta, Canada", "CYEG - Edmonton, Alberta, Canada",
                          "CYYZ - Toronto, Ontario, Canada", "EDDF - Frankfurt am Main, , Germany",
                          "EDDM - " + munich + ", , Germany", "EDDH - Hamburg, , Germany",
                          "MKJP - Kingston, , Jamaica"}));
}

void TestAirportTextFile::entryLongerThan35CharactersReadsBackShifted()
{
    const QByteArray entry = "KSEA,N47* 26.88',W122* 18.62',4330000";
    QCOMPARE(entry.size(), 37);
    const QString line =
        airport_text_file::airportLine(AirportRecord::split("c|p|n|t|KSEA|" + entry));
    QCOMPARE(line, QString(entry) + "     //t, p, c");
    QCOMPARE(existingItems(code_page::encode(line)), QStringList{"KSEA - //t, p, c"});
}

void TestAirportTextFile::headerHoldsLongDateAndClock_data()
{
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<QString>("header");
    QTest::newRow("one-figure day") << QDateTime({2026, 11, 1}, {14, 3, 27})
                                    << "//Airports Added - Sunday, November 01, 2026 14:03:27";
    QTest::newRow("midnight") << QDateTime({2024, 2, 29}, {0, 0, 0})
                              << "//Airports Added - Thursday, February 29, 2024 00:00:00";
    QTest::newRow("one-figure hour") << QDateTime({2026, 5, 31}, {9, 5, 4})
                                     << "//Airports Added - Sunday, May 31, 2026 09:05:04";
}

void TestAirportTextFile::headerHoldsLongDateAndClock()
{
    QFETCH(QDateTime, time);
    QTEST(airport_text_file::addedComment(time), "header");
}

void TestAirportTextFile::headerIsEnglishInEveryLocale()
{
    const QLocale before;
    const auto restore = qScopeGuard([&] { QLocale::setDefault(before); });
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(airport_text_file::addedComment(QDateTime({2026, 10, 7}, {8, 0, 0})),
             "//Airports Added - Wednesday, October 07, 2026 08:00:00");
}

void TestAirportTextFile::airportIsFoundByItsCodeInItsCountry()
{
    QCOMPARE(codes(smallAirportList, {{"EDDF", "Germany"}, {"MKJP", "Germany"}, {"XX", "Canada"}}),
             QStringList{"EDDF"});
}

void TestAirportTextFile::codeIsFoundAnywhereInTheLine()
{
    const QByteArray list = "Mali||Old GABS Field|Bamako|GABX|1\n"
                            "Mali||Senou|Bamako|GABS|2\n"
                            "Mali|xGABSx|Other|Gao|GAGO|3\n"
                            "MaliGABS|||Gao|GAG1|4\n"
                            "Mali||Far|Kayes|GAKY|5 GABS";
    QCOMPARE(codes(list, {{"GABS", "Mali"}}),
             (QStringList{"GABX", "GABS", "GAGO", "GAG1", "GAKY"}));
    // An end of a line and the start of the next are no text.
    QCOMPARE(codes("Mali|||||GA\nBS|||||", {{"GABS", "Mali"}, {"GABS", ""}}), QStringList());
}

void TestAirportTextFile::sameIcaoChosenTwiceIsFoundTwice()
{
    QCOMPARE(codes(guineas, {{"GUCY", "Guinea"}, {"GUXN", "Guinea"}, {"GUCY", "Guinea"}}),
             (QStringList{"GUCY", "GUXN", "GUCY"}));
    QCOMPARE(codes(guineas, {{"GUCY", "Guinea"}, {"Guinea", "Guinea"}}),
             (QStringList{"GUCY", "GUCY", "GUXN", "GGOV"}));
}

void TestAirportTextFile::wholeCountryIsEveryLineThatBeginsWithIt()
{
    QCOMPARE(codes(smallAirportList, {{"Canada", "Canada"}, {"Jamaica", "Jamaica"}}),
             (QStringList{"CYYC", "CYEG", "CYYZ", "MKJP"}));
}

void TestAirportTextFile::guineaAlsoTakesGuineaBissau()
{
    QCOMPARE(codes(guineas, {{"Guinea", "Guinea"}}), (QStringList{"GUCY", "GUXN", "GGOV"}));
    QCOMPARE(codes(guineas, {{"GGOV", "Guinea"}}), QStringList{"GGOV"});
    QCOMPARE(codes(guineas, {{"Guinea-Bissau", "Guinea-Bissau"}}), QStringList{"GGOV"});
}

void TestAirportTextFile::provinceIsLookedUpInItsCountry()
{
    QCOMPARE(codes(smallAirportList, {{"Alberta", "Canada"}}), (QStringList{"CYYC", "CYEG"}));
    QCOMPARE(codes(smallAirportList, {{"Alberta", "Germany"}}), QStringList());
}

void TestAirportTextFile::provinceLookedUpAsACountryIsFoundNowhere()
{
    QCOMPARE(codes(smallAirportList, {{"Alberta", "Alberta"}}), QStringList());
}

void TestAirportTextFile::textThatStandsTwiceInALineIsOneMatch()
{
    QCOMPARE(codes("Mali|||Gao|GAGO|GAGO,GAGOGAGO\n", {{"GAGO", "Mali"}, {"GA", "Mali"}}),
             (QStringList{"GAGO", "GAGO"}));
}

void TestAirportTextFile::caseAndAccentsAreCompared()
{
    const QString munich = QString::fromUtf8("München");
    QCOMPARE(codes(smallAirportList, {{munich, "Germany"}}), QStringList{"EDDM"});
    QCOMPARE(codes(smallAirportList, {{munich.toUpper(), "Germany"},
                                      {"Munchen", "Germany"},
                                      {"eddm", "Germany"},
                                      {"EDDM", "germany"},
                                      {QString::fromUtf8("Łódź"), "Germany"}}),
             QStringList());
}

void TestAirportTextFile::linesComeChoiceAfterChoiceThenAsInTheList()
{
    QCOMPARE(codes(guineas, {{"GUXN", "Guinea"}, {"Guinea", "Guinea"}, {"FGSL", "Eq"}}),
             (QStringList{"GUXN", "GUCY", "GUXN", "GGOV", "FGSL"}));
}

void TestAirportTextFile::nothingIsFoundInAnEmptyListOrWithoutChoices()
{
    QCOMPARE(codes("", {{"Canada", "Canada"}, {"EDDF", "Germany"}, {"", ""}}), QStringList());
    QCOMPARE(codes(smallAirportList, {}), QStringList());
}

void TestAirportTextFile::lineThatCannotBeSplitIsFoundAllTheSame()
{
    const QByteArray list = "Mali|||Gao|GAGO|1\nMali|GABS|no more\nMali|||Bamako|GABS|2\n";
    const std::vector<ChosenLine> lines = chosenLines(list, {{"GABS", "Mali"}});
    QCOMPARE(lines.size(), std::size_t(2));
    QCOMPARE(lines[0].line.toByteArray(), "Mali|GABS|no more"); // adding it fails, as it must
    QCOMPARE(failureOf([&] { AirportRecord::split(lines[0].line); }),
             "5 Invalid procedure call or argument");
    QCOMPARE(codes(list, {{"GAGO", "Mali"}}), QStringList{"GAGO"}); // one not chosen does no harm
}

void TestAirportTextFile::nulBytesInTheListAreText()
{
    const QByteArray list = QByteArrayLiteral("Ma\0li|||Gao|GAGO|\0\0\0\0GABS\nMali|||x|G\0BS|\n");
    const QString country = QString("Ma") + QChar(0) + "li";
    QCOMPARE(codes(list, {{"GABS", country}, {country, country}, {QString(4, QChar(0)), country}}),
             (QStringList{"GAGO", "GAGO", "GAGO"}));
    QCOMPARE(codes(list, {{QString("G") + QChar(0) + "BS", "Mali"}, {"GABS", "Mali"}}).size(), 1);
}

void TestAirportTextFile::lineOfTenMegabytesIsSearchedToItsEnd()
{
    const QByteArray list = "Mali||" + QByteArray(10'000'000, 'x') + "|Gao|GAGO|GABS";
    const QList<AirportChoice> choices = {
        {"GABS", "Mali"}, {"xxxx", "Mali"}, {"Mali", "Mali"}, {"GAB1", "Mali"}};
    QCOMPARE(chosenLines(list, choices).size(), std::size_t(3));
}

void TestAirportTextFile::listOf500000LinesIsSearchedOnce()
{
    QByteArray list;
    for (int i = 0; i < 500'000; ++i) {
        list += "Mali||Name|City|" + QByteArray::number(100'000 + i) + "|entry\r\n";
    }
    QList<AirportChoice> choices;
    QStringList expected;
    for (int code = 599'999; code >= 100'000; code -= 500) {
        expected += QString::number(code);
        choices += AirportChoice{expected.last(), "Mali"};
    }
    QCOMPARE(choices.size(), 1000);
    QCOMPARE(codes(list, choices), expected); // a search for each choice would take minutes
}

void TestAirportTextFile::randomChoicesAreFoundAsByAPlainLoop()
{
    std::size_t matches = 0;
    for (quint32 round = 1; round <= 500; ++round) {
        RandomAirports airports(round);
        const KnownList list = airports.list();
        const QList<AirportChoice> choices = airports.choices();
        std::vector<std::pair<int, qsizetype>> lines;
        for (const ChosenLine &chosen : chosenLines(list.bytes, choices)) {
            lines.emplace_back(chosen.choice, chosen.line.data() - list.bytes.constData());
        }
        const auto expected = plainLoop(list, choices);
        QVERIFY2(lines == expected, qPrintable("round " + QString::number(round)));
        matches += expected.size();
    }
    QVERIFY2(matches > 10'000, qPrintable(QString::number(matches))); // enough to tell anything
}

QTEST_APPLESS_MAIN(TestAirportTextFile)
#include "test_airport_text_file.moc"
