// SPDX-License-Identifier: MIT
// Which names a flight plan set may have, and what its files are called then.
#include "fpset/fpset_name.h"

#include <QtTest>

using namespace fpset_name;

class TestFpSetName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void prefixAloneOrElevenCharactersAreUnfinished_data();
    void prefixAloneOrElevenCharactersAreUnfinished();
    void extensionIsAddedUnlessThere_data();
    void extensionIsAddedUnlessThere();
    void nameIsValidOrNot_data();
    void nameIsValidOrNot();
    void filesTakeTheirNamesFromTheSuffix_data();
    void filesTakeTheirNamesFromTheSuffix();
    void directoryIsUsedExactlyAsItIs();
};

void TestFpSetName::prefixAloneOrElevenCharactersAreUnfinished_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<bool>("unfinished");
    QTest::newRow("exactly the prefix") << "FlightPlans_"
                                        << "FlightPlans_" << true;
    QTest::newRow("the prefix in another case") << "flightplans_"
                                                << "FlightPlans_" << false;
    QTest::newRow("empty") << ""
                           << "FlightPlans_" << true;
    QTest::newRow("11 characters") << "FlightPlans"
                                   << "FlightPlans_" << true;
    QTest::newRow("12 characters") << "FlightPlansA"
                                   << "FlightPlans_" << false;
    QTest::newRow("another prefix") << "FlightPlans_X"
                                    << "FlightPlans_X" << true;
}

void TestFpSetName::prefixAloneOrElevenCharactersAreUnfinished()
{
    QFETCH(QString, text);
    QFETCH(QString, prefix);
    QTEST(isUnfinished(text, prefix), "unfinished");
}

void TestFpSetName::extensionIsAddedUnlessThere_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("extended");
    QTest::newRow("without") << "FlightPlans_Alpha"
                             << "FlightPlans_Alpha.txt";
    QTest::newRow("with") << "FlightPlans_Alpha.txt"
                          << "FlightPlans_Alpha.txt";
    QTest::newRow("in the middle") << "FlightPlans_.txtA"
                                   << "FlightPlans_.txtA";
    QTest::newRow("upper case gets a second one") << "FlightPlans_A.TXT"
                                                  << "FlightPlans_A.TXT.txt";
    QTest::newRow("another one") << "FlightPlans_A.dat"
                                 << "FlightPlans_A.dat.txt";
}

void TestFpSetName::extensionIsAddedUnlessThere()
{
    QFETCH(QString, text);
    QTEST(withExtension(text), "extended");
}

void TestFpSetName::nameIsValidOrNot_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("valid");
    QTest::newRow("usual") << "FlightPlans_Alpha.txt" << true;
    QTest::newRow("upper case beginning") << "FLIGHTPLANS_x.txt" << true;
    QTest::newRow("lower case beginning") << "flightplans_alpha.txt" << true;
    QTest::newRow("no underscore") << "FlightPlansAlpha.txt" << true;
    QTest::newRow("nothing between") << "FlightPlans.txt" << true;
    QTest::newRow("blanks") << "FlightPlans_my own set .txt" << true;
    QTest::newRow("accents") << QString::fromUtf8("FlightPlans_\u00C9t\u00E9.txt") << true;
    QTest::newRow("what the file system refuses later") << "FlightPlans_a?b*c.txt" << true;
    QTest::newRow("300 characters") << "FlightPlans_" + QString(284, 'x') + ".txt" << true;
    QTest::newRow("two dots") << "FlightPlans_v1.2.txt" << false;
    QTest::newRow("a second extension") << "FlightPlans_Alpha.TXT.txt" << false;
    QTest::newRow("upper case extension") << "FlightPlans_Alpha.TXT" << false;
    QTest::newRow("extension in the middle") << "FlightPlans_.txtA" << false;
    QTest::newRow("a word before") << "MyFlightPlans_Alpha.txt" << false;
    QTest::newRow("a blank before") << " FlightPlans_Alpha.txt" << false;
    QTest::newRow("another word") << "FlightPlan_Alpha.txt" << false;
}

void TestFpSetName::nameIsValidOrNot()
{
    QFETCH(QString, name);
    QTEST(isValid(name), "valid");
}

void TestFpSetName::filesTakeTheirNamesFromTheSuffix_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("airports");
    QTest::addColumn<QString>("aircraft");
    QTest::newRow("usual") << "FlightPlans_Alpha.txt"
                           << "Airports_Alpha.txt"
                           << "Aircraft_Alpha.txt";
    QTest::newRow("the suffix keeps its case") << "flightplans_aLPHA.txt"
                                               << "Airports_aLPHA.txt"
                                               << "Aircraft_aLPHA.txt";
    QTest::newRow("no underscore") << "FlightPlansAlpha.txt"
                                   << "AirportsAlpha.txt"
                                   << "AircraftAlpha.txt";
    QTest::newRow("the word twice") << "FlightPlans_FlightPlans.txt"
                                    << "Airports_FlightPlans.txt"
                                    << "Aircraft_FlightPlans.txt";
}

void TestFpSetName::filesTakeTheirNamesFromTheSuffix()
{
    QFETCH(QString, name);
    QFETCH(QString, airports);
    QFETCH(QString, aircraft);
    const FileSet set = filesOf("C:\\TTools\\", name);
    QCOMPARE(set.flightPlanPath, "C:\\TTools\\" + name);
    QCOMPARE(set.airportFile, airports);
    QCOMPARE(set.aircraftFile, aircraft);
    QCOMPARE(set.airportPath, "C:\\TTools\\" + airports);
    QCOMPARE(set.aircraftPath, "C:\\TTools\\" + aircraft);
}

void TestFpSetName::directoryIsUsedExactlyAsItIs()
{
    QCOMPARE(filesOf("C:\\TTo", "FlightPlans_A.txt").aircraftPath,
             QString("C:\\TToAircraft_A.txt"));
    QCOMPARE(filesOf({}, "FlightPlans_A.txt").flightPlanPath, QString("FlightPlans_A.txt"));
}

QTEST_APPLESS_MAIN(TestFpSetName)
#include "test_fpset_name.moc"
