// SPDX-License-Identifier: MIT
#include "platform/blind_to_case.h"

#include <QtTest>

class TestBlindToCase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lowerKeepsEveryPosition();
    void plainTextHasNeitherCaseNorAccents();
    void textsAreEqualButForCase();
    void bytesAreEqualButForTheCaseOfAscii();
    void beginningIsFoundWhateverItsCase();
};

void TestBlindToCase::lowerKeepsEveryPosition()
{
    QCOMPARE(blind_to_case::lower(u"C:\\AIRCRAFT\\[Fltsim.0] @`{"), "c:\\aircraft\\[fltsim.0] @`{");
    QCOMPARE(blind_to_case::lower(u"\u00C9\u00DC\u0178\u00DF"), u"\u00E9\u00FC\u00FF\u00DF");
    QCOMPARE(blind_to_case::lower(u"\u0130x").size(),
             2); // the dotted I, longer when lowered as a word
}

void TestBlindToCase::plainTextHasNeitherCaseNorAccents()
{
    QCOMPARE(blind_to_case::plain(u"Boeing 737-400 @[`{~"), "boeing 737-400 @[`{~");
    QCOMPARE(blind_to_case::plain(u"\u00C9\u00E9\u00D1\u00FC\u0178\u017D\u00D8\u00F8\u00E5"),
             "eenuyzooa");
    QCOMPARE(blind_to_case::plain(u"e\u0301 E\u0308\u0323"), "e e"); // accents of their own
    QCOMPARE(blind_to_case::plain(u"\u00DF\u98DB"), QStringView(u"\u00DF\u98DB")); // letters stay
}

void TestBlindToCase::textsAreEqualButForCase()
{
    QVERIFY(blind_to_case::equal(u"FS9\\\u00C9t\u00E9", u"fs9\\\u00E9T\u00C9"));
    QVERIFY(!blind_to_case::equal(u"FS9", u"FS98"));
    QVERIFY(!blind_to_case::equal(u"\u00E9", u"e"));
    QVERIFY(blind_to_case::equal(QStringView(), u""));
}

void TestBlindToCase::bytesAreEqualButForTheCaseOfAscii()
{
    using Bytes = QByteArrayView;
    QVERIFY(blind_to_case::equal(Bytes("[Software]"), Bytes("[SOFTWARE]")));
    QVERIFY(!blind_to_case::equal(Bytes("[Software]"), Bytes("[Software")));
    QVERIFY(!blind_to_case::equal(Bytes("["), Bytes("{")));
    QVERIFY(!blind_to_case::equal(Bytes("\xE9"), Bytes("\xC9")));
}

void TestBlindToCase::beginningIsFoundWhateverItsCase()
{
    QVERIFY(blind_to_case::startsWith(u"SOFTWARE\\Ostrel", u"Software\\"));
    QVERIFY(!blind_to_case::startsWith(u"Soft", u"Software\\"));
    QVERIFY(blind_to_case::startsWith(QByteArrayView("[FltSim.0]"), "[fltsim."));
    QVERIFY(!blind_to_case::startsWith(QByteArrayView("[fltsim"), "[fltsim."));
    QVERIFY(!blind_to_case::startsWith(QByteArrayView("\x14itle"), "title"));
}

QTEST_APPLESS_MAIN(TestBlindToCase)
#include "test_blind_to_case.moc"
