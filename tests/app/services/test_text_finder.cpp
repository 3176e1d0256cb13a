// SPDX-License-Identifier: MIT
// Finding many texts at once.
#include "app/services/text_finder.h"

#include <QtTest>

#include <set>

namespace
{

/// Which of the texts occur in another one.
template <typename Text, typename View>
std::set<int> found(const QList<Text> &texts, View searched)
{
    std::set<int> indices;
    TextFinder<Text>(texts).find(searched, [&](int text) { indices.insert(text); });
    return indices;
}

/// A text that counts how often another is compared with a part of it.
struct CountingView {
    explicit CountingView(QByteArrayView view) : bytes(view) {}

    qsizetype size() const { return bytes.size(); }

    const char *data() const { return bytes.data(); }

    CountingView sliced(qsizetype start) const { return CountingView(bytes.sliced(start)); }

    bool contains(QByteArrayView text) const { return bytes.contains(text); }

    bool startsWith(QByteArrayView text) const
    {
        ++comparisons;
        return bytes.startsWith(text);
    }

    QByteArrayView bytes;
    static inline int comparisons = 0;
};

} // namespace

class TestTextFinder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreFoundWhereverTheyStand();
    void textsShorterThanARunAreFound();
    void charactersOfTwoBytesAreCompared();
    void nothingToLookForIsFoundNowhere();
    void commonBeginningsTakeNoMoreComparisons();
};

void TestTextFinder::textsAreFoundWhereverTheyStand()
{
    const QByteArrayList texts = {"Boeing", "Boeing 737", "737 Blue", "Blue", "737 Red", "Boeing"};
    QCOMPARE(found(texts, QByteArrayView("My Boeing 737 Blue")), (std::set{0, 1, 2, 3, 5}));
    QCOMPARE(found(texts, QByteArrayView("Blue")), std::set{3});
    QCOMPARE(found(texts, QByteArrayView("Blu")), std::set<int>());
}

void TestTextFinder::textsShorterThanARunAreFound()
{
    const QByteArrayList texts = {"", "B", "73", "37 ", "37x"};
    QCOMPARE(found(texts, QByteArrayView("B 737 ")), (std::set{0, 1, 2, 3}));
    QCOMPARE(found(texts, QByteArrayView("7")), std::set{0});
}

void TestTextFinder::charactersOfTwoBytesAreCompared()
{
    const QStringList texts = {QString::fromUtf8("\u20ac\u20ac\u20ac\u20ac"),
                               QString::fromUtf8("\u00ac\u00ac\u00ac\u00ac"), "abcd"};
    QCOMPARE(found(texts, QStringView(QString::fromUtf8("abcd\u20ac\u20ac\u20ac\u20ac"))),
             (std::set{0, 2}));
}

void TestTextFinder::nothingToLookForIsFoundNowhere()
{
    QCOMPARE(found(QByteArrayList(), QByteArrayView("Boeing 737")), std::set<int>());
}

void TestTextFinder::commonBeginningsTakeNoMoreComparisons()
{
    constexpr int count = 2000;
    QByteArrayList texts;
    for (int i = 0; i < count; ++i) {
        texts += "All of these titles begin in the same way, and " + QByteArray::number(10'000 + i);
    }
    const TextFinder<QByteArray> finder(texts);
    for (int i = 0; i < count; ++i) {
        finder.find(CountingView(texts[i]), [i](int text) { QCOMPARE(text, i); });
    }
    QVERIFY(CountingView::comparisons >= count);
    QVERIFY2(CountingView::comparisons < 5 * count,
             qPrintable(QString::number(CountingView::comparisons)));
}

QTEST_APPLESS_MAIN(TestTextFinder)
#include "test_text_finder.moc"
