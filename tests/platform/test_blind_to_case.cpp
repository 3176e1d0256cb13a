// SPDX-License-Identifier: MIT
#include "platform/blind_to_case.h"

#include <QtTest>

class TestBlindToCase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lowerKeepsEveryPosition();
};

void TestBlindToCase::lowerKeepsEveryPosition()
{
    QCOMPARE(blind_to_case::lower(u"C:\\AIRCRAFT\\[Fltsim.0] @`{"), "c:\\aircraft\\[fltsim.0] @`{");
    QCOMPARE(blind_to_case::lower(u"\u00C9\u00DC\u0178\u00DF"), u"\u00E9\u00FC\u00FF\u00DF");
    QCOMPARE(blind_to_case::lower(u"\u0130x").size(),
             2); // the dotted I, longer when lowered as a word
}

QTEST_APPLESS_MAIN(TestBlindToCase)
#include "test_blind_to_case.moc"
