// SPDX-License-Identifier: MIT
#include "platform/list_order.h"

#include <QRandomGenerator>
#include <QtTest>

class TestListOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sortingIsBlindToCaseTiesByCode_data();
    void sortingIsBlindToCaseTiesByCode();
    void sortedPositionIsBehindEquals_data();
    void sortedPositionIsBehindEquals();
    void textsPutInOneByOneStandAsSorted();
};

void TestListOrder::sortingIsBlindToCaseTiesByCode_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("sorted");
    const auto row = [](const char *name, const QStringList &texts, const QStringList &sorted) {
        QTest::newRow(name) << texts << sorted;
    };
    row("empty", {}, {});
    row("one", {"b"}, {"b"});
    row("already sorted", {"a", "B", "c"}, {"a", "B", "c"});
    row("blind to case", {"b", "C", "A", "d"}, {"A", "b", "C", "d"});
    row("ties by code", {"mali", "MALI", "Mali"}, {"MALI", "Mali", "mali"});
    row("equals stay", {"b", "a", "b"}, {"a", "b", "b"});
    row("case tells only whole texts", {"ab", "AC", "aB"}, {"aB", "ab", "AC"});
    row("beginning first", {"Guinea-Bissau", "Guinea", ""}, {"", "Guinea", "Guinea-Bissau"});
    row("slash before figures and letters", {"KSEA", "0S9", "//Added", "a"},
        {"//Added", "0S9", "a", "KSEA"});
    row("underscore before letters", {"A", "_", "a"}, {"_", "A", "a"});
    row("accents behind the alphabet",
        {QString::fromUtf8("Écija"), "zulu", "Edam", QString::fromUtf8("éa")},
        {"Edam", "zulu", QString::fromUtf8("éa"), QString::fromUtf8("Écija")});
}

void TestListOrder::sortingIsBlindToCaseTiesByCode()
{
    QFETCH(QStringList, texts);
    list_order::sort(texts);
    QTEST(texts, "sorted");
}

void TestListOrder::sortedPositionIsBehindEquals_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("text");
    QTest::addColumn<qsizetype>("position");
    const auto row = [](const char *name, const QStringList &texts, const char *text,
                        qsizetype position) { QTest::newRow(name) << texts << text << position; };
    row("empty list", {}, "a", 0);
    row("first", {"B", "c"}, "a", 0);
    row("between", {"A", "c"}, "B", 1);
    row("last", {"A", "b"}, "C", 2);
    row("behind equals", {"a", "b", "b", "c"}, "b", 3);
    row("before its lower case", {"a", "mali", "z"}, "MALI", 1);
    row("behind its upper case", {"a", "MALI", "z"}, "mali", 2);
}

void TestListOrder::sortedPositionIsBehindEquals()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, text);
    QTEST(list_order::position(texts, text), "position");
}

void TestListOrder::textsPutInOneByOneStandAsSorted()
{
    QRandomGenerator random(20);
    QStringList texts;
    QStringList inserted;
    for (int i = 0; i < 1000; ++i) {
        QString text;
        for (int length = random.bounded(5); length > 0; --length) {
            text += QString::fromUtf8("aAbBzéÉ/_0")[random.bounded(10)];
        }
        texts += text;
        inserted.insert(list_order::position(inserted, text), text);
    }
    list_order::sort(texts);
    QCOMPARE(inserted, texts);
}

QTEST_APPLESS_MAIN(TestListOrder)
#include "test_list_order.moc"
