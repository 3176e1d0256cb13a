// SPDX-License-Identifier: MIT
// Finding the available aircraft that a text file already uses.
#include "aircraft_loader/title_match.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>

namespace
{

QString line(const QString &title)
{
    return "AC#1,250,\"" + title + '"';
}

QStringList lines(const QStringList &titles)
{
    QStringList all;
    for (const QString &title : titles) {
        all += line(title);
    }
    return all;
}

/// What is still available, and what the matching failed with.
struct Outcome {
    QStringList remaining;
    QString failure;
    bool endedEarly = false; ///< by a short line
};

bool operator==(const Outcome &a, const Outcome &b)
{
    return a.remaining == b.remaining && a.failure == b.failure;
}

Outcome outcome(const QStringList &existing, const QStringList &available)
{
    const TitleMatch match = matchTitles(existing, available);
    Outcome result;
    for (qsizetype i = 0; i < available.size(); ++i) {
        if (!match.used.testBit(i)) {
            result.remaining += available[i];
        }
    }
    if (match.failure) {
        result.failure =
            QString::number(match.failure->number()) + ' ' + match.failure->description();
    }
    return result;
}

QStringList remaining(const QStringList &existing, const QStringList &available)
{
    return outcome(existing, available).remaining;
}

/// The same by searching every entry for every line.
Outcome plainSearch(const QStringList &existing, const QStringList &available)
{
    Outcome result{available, {}};
    for (const QString &text : existing) {
        if (text.size() < 10) {
            result.endedEarly = true;
            break;
        }
        const qsizetype start = text.indexOf('"') + 1;
        if (start == text.size()) {
            result.failure = "5 Invalid procedure call or argument";
            break;
        }
        const QString title = text.sliced(start, text.size() - start - 1);
        const auto found =
            std::find_if(result.remaining.begin(), result.remaining.end(),
                         [&](const QString &entry) { return entry.contains(title); });
        if (found != result.remaining.end()) {
            result.remaining.erase(found);
        }
    }
    return result;
}

/// One kind of random lists.
struct Kind {
    QString alphabet;
    int longestTitle = 20;
    int percentOutOfAnother = 40; ///< titles that are a part of another title
    int perMilleOfOddLines = 10;  ///< of each sort of line that is no usual aircraft line
};

class RandomLists
{
public:
    RandomLists(const Kind &kind, quint32 round) : m_kind(kind), m_random(round)
    {
        for (int i = number(40); i > 0; --i) {
            m_titles += title();
        }
        for (int i = number(40); i > 0; --i) {
            available += anyTitle() + ' ' + QString::number(number(600));
        }
        for (int i = number(40); i > 0; --i) {
            existing += anyLine();
        }
    }

    QStringList available;
    QStringList existing;

private:
    int number(int below) { return m_random.bounded(below); }

    QString text(int length)
    {
        QString result;
        for (; length > 0; --length) {
            result += m_kind.alphabet[number(static_cast<int>(m_kind.alphabet.size()))];
        }
        return result;
    }

    /// A new title, a part of another one, or another one with something around it.
    QString title()
    {
        if (m_titles.isEmpty() || number(100) >= m_kind.percentOutOfAnother) {
            return text(number(m_kind.longestTitle + 1));
        }
        const QString other = anyTitle();
        if (number(2) == 0) {
            return text(number(3)) + other + text(number(3));
        }
        const int start = number(static_cast<int>(other.size()) + 1);
        return other.mid(start, number(static_cast<int>(other.size()) + 1));
    }

    /// Titles are taken from a few, so that equal ones meet.
    QString anyTitle()
    {
        return m_titles.isEmpty() ? text(3) : m_titles[number(static_cast<int>(m_titles.size()))];
    }

    QString anyLine()
    {
        const int kind = number(1000) / std::max(m_kind.perMilleOfOddLines, 1);
        if (m_kind.perMilleOfOddLines == 0 || kind > 5) {
            return line(number(4) == 0 ? title() : anyTitle());
        }
        switch (kind) {
        case 0:
            return {};
        case 1:
            return QString("AC#1,25,\"\"").left(number(10)); // 0 to 9 characters
        case 2:
            return "AC#1,250,Boeing\""; // the first quote is the last character
        case 3:
            return "AC#1,250,Boeing"; // no quote
        case 4:
            return "AC#1,250,\"" + anyTitle() + "\" "; // the blank is cut, the quote stays
        default:
            return "\"" + anyTitle().leftJustified(9) + '"';
        }
    }

    const Kind &m_kind;
    QRandomGenerator m_random;
    QStringList m_titles;
};

} // namespace

Q_DECLARE_METATYPE(Kind)

class TestTitleMatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingExistingUsesNothing();
    void nothingAvailableIsNoFailure();
    void usedTitleIsTaken();
    void titleIsFoundAnywhereInAnEntry();
    void titleMayReachIntoTheSpeed();
    void titleThatIsAPrefixOfSeveralEntriesRemovesOnlyTheFirst();
    void equalTitlesRemoveOneEntryEach();
    void twoEqualEntriesAndOneLineRemoveOnlyTheFirst();
    void matchingIsCaseSensitive();
    void matchingComparesEveryBlank();
    void firstLineBlankStopsTheMatchingAtOnce();
    void lineOfNineCharactersEndsTheMatching();
    void lineOfTenCharactersIsMatched();
    void emptyTitleBetweenQuotesMatchesTheFirstEntry();
    void lineWithoutQuotesIsMatchedLessItsLastCharacter();
    void badQuoteLineFailsAndKeepsWhatWasRemovedBefore();
    void titleThatWasUsedUpLeavesTheOthersTheirEntries();
    void titlesOfOneToNineCharactersAreFound_data();
    void titlesOfOneToNineCharactersAreFound();
    void resultIsThatOfThePlainSearch_data();
    void resultIsThatOfThePlainSearch();
    void resultIsThatOfThePlainSearchForThousandsOfLines();
};

void TestTitleMatch::nothingExistingUsesNothing()
{
    QCOMPARE(remaining({}, {"Boeing 250"}), QStringList{"Boeing 250"});
}

void TestTitleMatch::nothingAvailableIsNoFailure()
{
    const TitleMatch match = matchTitles(lines({"Boeing", "", "B"}), {});
    QCOMPARE(match.used.size(), 0);
    QVERIFY(!match.failure);
}

void TestTitleMatch::usedTitleIsTaken()
{
    QCOMPARE(remaining(lines({"Boeing 737 Blue"}), {"Airbus 450", "Boeing 737 Blue 477"}),
             QStringList{"Airbus 450"});
    QCOMPARE(remaining(lines({"Cessna"}), {"Airbus 450"}), QStringList{"Airbus 450"});
}

void TestTitleMatch::titleIsFoundAnywhereInAnEntry()
{
    QCOMPARE(remaining(lines({"737"}), {"Airbus 450", "My Boeing 737 Blue 477"}),
             QStringList{"Airbus 450"});
}

void TestTitleMatch::titleMayReachIntoTheSpeed()
{
    QCOMPARE(remaining(lines({"Blue 4"}), {"Boeing Blue 399", "Boeing Blue 477"}),
             QStringList{"Boeing Blue 399"});
    QCOMPARE(remaining(lines({"Boeing Blue 477"}), {"Boeing Blue 399", "Boeing Blue 477"}),
             QStringList{"Boeing Blue 399"});
}

void TestTitleMatch::titleThatIsAPrefixOfSeveralEntriesRemovesOnlyTheFirst()
{
    QCOMPARE(remaining(lines({"Boeing 737"}), {"Airbus 450", "Boeing 737 Red 477", "Boeing 737 477",
                                               "Boeing 737 Blue 477"}),
             (QStringList{"Airbus 450", "Boeing 737 477", "Boeing 737 Blue 477"}));
}

void TestTitleMatch::equalTitlesRemoveOneEntryEach()
{
    QCOMPARE(remaining(lines({"Boeing", "Boeing"}), {"Boeing A 1", "Boeing B 1", "Boeing C 1"}),
             QStringList{"Boeing C 1"});
}

void TestTitleMatch::twoEqualEntriesAndOneLineRemoveOnlyTheFirst()
{
    const TitleMatch match = matchTitles(lines({"Boeing"}), {"Boeing 477", "Boeing 477"});
    QVERIFY(match.used.testBit(0));
    QVERIFY(!match.used.testBit(1));
}

void TestTitleMatch::matchingIsCaseSensitive()
{
    QCOMPARE(remaining(lines({"BOEING Blue"}), {"Boeing Blue 477"}),
             QStringList{"Boeing Blue 477"});
}

void TestTitleMatch::matchingComparesEveryBlank()
{
    QCOMPARE(remaining(lines({"Boeing  Blue"}), {"Boeing Blue 477"}),
             QStringList{"Boeing Blue 477"});
    QCOMPARE(remaining(lines({"Boeing Blue "}), {"Boeing Blue 477"}), QStringList());
}

void TestTitleMatch::firstLineBlankStopsTheMatchingAtOnce()
{
    const QStringList available = {"Boeing Blue 477", "Airbus 450"};
    QCOMPARE(remaining({"", line("Boeing Blue"), line("Airbus")}, available), available);
}

void TestTitleMatch::lineOfNineCharactersEndsTheMatching()
{
    const Outcome result = outcome({line("Airbus"), "AC#1,2,\"B", line("Boeing")},
                                   {"Boeing 477", "Airbus 450", "B 1"});
    QCOMPARE(result.remaining, (QStringList{"Boeing 477", "B 1"}));
    QCOMPARE(result.failure, QString());
}

void TestTitleMatch::lineOfTenCharactersIsMatched()
{
    QCOMPARE(QString("AC#1,2,\"B\"").size(), 10);
    QCOMPARE(remaining({"AC#1,2,\"B\"", line("Airbus")}, {"Boeing 477", "Airbus 450"}),
             QStringList());
}

void TestTitleMatch::emptyTitleBetweenQuotesMatchesTheFirstEntry()
{
    QCOMPARE(remaining(lines({""}), {"Boeing 477", "Airbus 450"}), QStringList{"Airbus 450"});
    QCOMPARE(remaining(lines({"Boeing", "", ""}), {"Airbus 450", "Boeing 477", "Cessna 120"}),
             QStringList());
}

void TestTitleMatch::lineWithoutQuotesIsMatchedLessItsLastCharacter()
{
    QCOMPARE(remaining({"Boeing 737 X"}, {"Airbus 450", "Boeing 737 Blue 477"}),
             QStringList{"Airbus 450"});
}

void TestTitleMatch::badQuoteLineFailsAndKeepsWhatWasRemovedBefore()
{
    const Outcome result = outcome({line("Boeing"), "AC#2,250,Airbus\"", line("Cessna")},
                                   {"Airbus 450", "Boeing 477", "Cessna 120"});
    QCOMPARE(result.failure, QString("5 Invalid procedure call or argument"));
    QCOMPARE(result.remaining, (QStringList{"Airbus 450", "Cessna 120"}));
}

void TestTitleMatch::titleThatWasUsedUpLeavesTheOthersTheirEntries()
{
    // "Boeing" takes the entry that "Boeing Red" would have matched, which then finds nothing.
    QCOMPARE(remaining(lines({"Boeing", "Boeing Red"}), {"Boeing Red 477", "Boeing Blue 477"}),
             QStringList{"Boeing Blue 477"});
}

void TestTitleMatch::titlesOfOneToNineCharactersAreFound_data()
{
    QTest::addColumn<int>("length");
    for (int length = 1; length <= 9; ++length) {
        QTest::addRow("%d", length) << length;
    }
}

void TestTitleMatch::titlesOfOneToNineCharactersAreFound()
{
    QFETCH(int, length);
    const QString title = QString("qvwxyzXYZ").left(length);
    for (const QString &entry :
         {title + " 250", "Boeing " + title + " 250", "Boeing 2" + title, title}) {
        QCOMPARE(remaining(lines({title}), {"Airbus 450", entry, "Cessna 120"}),
                 (QStringList{"Airbus 450", "Cessna 120"}));
    }
    const QString cutShort = title.chopped(1) + "- 250";
    QCOMPARE(remaining(lines({title}), {cutShort}), QStringList{cutShort});
}

void TestTitleMatch::resultIsThatOfThePlainSearch_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("titles containing one another") << Kind{"ABab 7", 20, 60, 5};
    QTest::newRow("nothing but usual lines") << Kind{"ABCab 37", 25, 50, 0};
    QTest::newRow("very short titles") << Kind{"ABC 1", 9, 20, 4};
    QTest::newRow("one letter") << Kind{"A", 20, 30, 4};
    QTest::newRow("two letters") << Kind{"A ", 12, 30, 4};
    QTest::newRow("many odd lines") << Kind{"AB ", 8, 40, 60};
    QTest::newRow("characters beyond the letters")
        << Kind{QString::fromUtf8("\u00e9\u00df\u20ac\u0081\"&<,#") + QChar(u'\0'), 15, 50, 5};
    QTest::newRow("few and long") << Kind{"ABCDEFGHIJKLMNOPQRSTUVWXYZ", 200, 70, 3};
}

void TestTitleMatch::resultIsThatOfThePlainSearch()
{
    constexpr quint32 rounds = 3000;
    QFETCH(Kind, kind);
    qsizetype removed = 0;
    int failed = 0;
    int endedEarly = 0;
    for (quint32 round = 1; round <= rounds; ++round) {
        const RandomLists lists(kind, round);
        const Outcome expected = plainSearch(lists.existing, lists.available);
        QVERIFY2(outcome(lists.existing, lists.available) == expected,
                 qPrintable("round " + QString::number(round)));
        removed += lists.available.size() - expected.remaining.size();
        failed += expected.failure.isEmpty() ? 0 : 1;
        endedEarly += expected.endedEarly ? 1 : 0;
    }
    // The lists were worth comparing.
    QVERIFY(removed > rounds);
    QCOMPARE(failed > 50, kind.perMilleOfOddLines > 0);
    QCOMPARE(endedEarly > 50, kind.perMilleOfOddLines > 0);
}

void TestTitleMatch::resultIsThatOfThePlainSearchForThousandsOfLines()
{
    QRandomGenerator random(7);
    QStringList available;
    QStringList existing;
    for (int i = 0; i < 3000; ++i) {
        const QString title =
            QString("Boeing 7%1 Airline %2").arg(random.bounded(90)).arg(random.bounded(400));
        available += title + ' ' + QString::number(random.bounded(999));
        if (random.bounded(2) == 0) {
            existing += line(random.bounded(9) == 0 ? title.chopped(2) : title);
        }
    }
    std::shuffle(existing.begin(), existing.end(), random);
    const Outcome expected = plainSearch(existing, available);
    QVERIFY(expected.remaining.size() > 500 && expected.remaining.size() < 2500);
    QCOMPARE(remaining(existing, available), expected.remaining);
}

QTEST_APPLESS_MAIN(TestTitleMatch)
#include "test_title_match.moc"
