// SPDX-License-Identifier: MIT
#include "config_editor/listing_dump.h"

#include <QtTest>

namespace
{

const QDateTime moment({2007, 3, 25}, {14, 3, 27});
const QByteArray rule(105, '=');
const QByteArray heading =
    rule + "\r\nAIRCRAFT NAME" + QByteArray(64, ' ') + "LOCATION (AIRCRAFT FOLDER)\r\n" + rule;

} // namespace

class TestListingDump : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameIsPaddedOrCutTo75_data();
    void nameIsPaddedOrCutTo75();
    void noAircraftLeaveHeadingsRuleAndTitle();
    void entriesStandInListOrderAsTheyAre();
    void titleStandsBelowWithACommaAfterTheMonth();
    void timeIsTheLocalesWithoutItsZone_data();
    void timeIsTheLocalesWithoutItsZone();
    void locationsStartInColumn78BelowTheirHeading();
    void accentsAreAnsiText();
};

void TestListingDump::nameIsPaddedOrCutTo75_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {0, 1, 74, 75, 76, 300}) {
        QTest::addRow("%d", length) << length;
    }
}

void TestListingDump::nameIsPaddedOrCutTo75()
{
    QFETCH(int, length);
    const QString field = (QString(length, 'x') + QString(75, ' ')).first(75);
    QCOMPARE(listing_dump::entry(QString(length, 'x'), "b58"), field + "  \\b58");
}

void TestListingDump::noAircraftLeaveHeadingsRuleAndTitle()
{
    QCOMPARE(listing_dump::compose({}, moment, QLocale("de_DE")),
             heading + "\r\n" + rule +
                 "\r\nVarlo Aircraft Listing - Sunday, March, 25, 2007 14:03:27\r\n");
}

void TestListingDump::entriesStandInListOrderAsTheyAre()
{
    QCOMPARE(listing_dump::compose({"b ", " a", "", "b "}, moment, QLocale("de_DE")),
             heading + "\r\nb \r\n a\r\n\r\nb \r\n" + rule +
                 "\r\nVarlo Aircraft Listing - Sunday, March, 25, 2007 14:03:27\r\n");
}

void TestListingDump::titleStandsBelowWithACommaAfterTheMonth()
{
    const QByteArray text =
        listing_dump::compose({}, QDateTime({2026, 11, 1}, {0, 5, 9}), QLocale("de_DE"));
    QVERIFY(text.endsWith("=\r\nVarlo Aircraft Listing - Sunday, November, 01, 2026 00:05:09\r\n"));
}

void TestListingDump::timeIsTheLocalesWithoutItsZone_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArray>("time");
    QTest::newRow("German") << "de_DE" << QByteArray("14:03:27");
    QTest::newRow("American") << "en_US" << QByteArray("2:03:27 PM");
    QTest::newRow("British") << "en_GB" << QByteArray("14:03:27");
}

void TestListingDump::timeIsTheLocalesWithoutItsZone()
{
    QFETCH(QString, locale);
    QFETCH(QByteArray, time);
    const QByteArray text = listing_dump::compose({}, moment, QLocale(locale));
    QCOMPARE(text.sliced(text.lastIndexOf(" - ")), " - Sunday, March, 25, 2007 " + time + "\r\n");
}

void TestListingDump::locationsStartInColumn78BelowTheirHeading()
{
    const QList<QByteArray> lines =
        listing_dump::compose({listing_dump::entry("Baron", "b58")}, moment, QLocale::c())
            .split('\n');
    QCOMPARE(lines[1].indexOf("LOCATION"), 77);
    QCOMPARE(lines[3].indexOf('\\'), 77);
}

void TestListingDump::accentsAreAnsiText()
{
    const QByteArray text = listing_dump::compose(
        {listing_dump::entry("Baron", QString::fromUtf8("caf\xC3\xA9"))}, moment, QLocale::c());
    QVERIFY(text.contains("  \\caf\xE9\r\n"));
}

QTEST_APPLESS_MAIN(TestListingDump)
#include "test_listing_dump.moc"
