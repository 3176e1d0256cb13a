// SPDX-License-Identifier: MIT
#include "config_editor/panel_cfg.h"

#include <QtTest>

namespace
{

const QString baron = QStringLiteral("C:\\FS9\\Aircraft\\b58\\aircraft.cfg");

} // namespace

class TestPanelCfg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void panelPathFollowsThePanelValue_data();
    void panelPathFollowsThePanelValue();
    void aliasIsRecognisedInLowerCaseAtTheVeryStartOfALineOnly_data();
    void aliasIsRecognisedInLowerCaseAtTheVeryStartOfALineOnly();
    void aliasFarDownIsFound();
    void aliasLeadsBelowTheRootFolder_data();
    void aliasLeadsBelowTheRootFolder();
    void originalPanelIgnoresThePanelValueAndDoublesTheBackslash();
};

void TestPanelCfg::panelPathFollowsThePanelValue_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<QString>("path");
    QTest::newRow("value") << "xyz"
                           << "C:\\FS9\\Aircraft\\b58\\Panel.xyz\\panel.cfg";
    QTest::newRow("blanks around") << " x y "
                                   << "C:\\FS9\\Aircraft\\b58\\Panel.x y\\panel.cfg";
    QTest::newRow("empty") << ""
                           << "C:\\FS9\\Aircraft\\b58\\Panel\\panel.cfg";
    QTest::newRow("blank") << "  "
                           << "C:\\FS9\\Aircraft\\b58\\Panel\\panel.cfg";
}

void TestPanelCfg::panelPathFollowsThePanelValue()
{
    QFETCH(QString, panel);
    QTEST(panel_cfg::path(baron, panel), "path");
}

void TestPanelCfg::aliasIsRecognisedInLowerCaseAtTheVeryStartOfALineOnly_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("alias"); // "-": none
    QTest::newRow("lower case") << QByteArray("[fltsim]\r\nalias=c172\\panel\r\n") << "c172\\panel";
    QTest::newRow("first of two") << QByteArray("alias=a\nalias=b") << "a";
    QTest::newRow("untrimmed") << QByteArray("alias= a \r\n") << " a ";
    QTest::newRow("accents") << QByteArray("alias=caf\xE9") << QString::fromUtf8("caf\xC3\xA9");
    QTest::newRow("no value") << QByteArray("alias=") << "";
    QTest::newRow("capital") << QByteArray("Alias=a") << "-";
    QTest::newRow("capitals") << QByteArray("ALIAS=a") << "-";
    QTest::newRow("blank before the sign") << QByteArray("alias =a") << "-";
    QTest::newRow("blank before the key") << QByteArray(" alias=a") << "-";
    QTest::newRow("capital above") << QByteArray("Alias=a\r\nalias=b") << "b";
    QTest::newRow("without alias") << QByteArray("[fltsim]\r\ntitle=x\r\n") << "-";
    QTest::newRow("cut off") << QByteArray("alias") << "-";
    QTest::newRow("empty") << QByteArray() << "-";
}

void TestPanelCfg::aliasIsRecognisedInLowerCaseAtTheVeryStartOfALineOnly()
{
    QFETCH(QByteArray, bytes);
    QTEST(panel_cfg::aliasIn(bytes).value_or("-"), "alias");
}

void TestPanelCfg::aliasFarDownIsFound()
{
    const QByteArray gauges = QByteArray("gauge00=Bendix!Radio, 1,2,3\n").repeated(100000);
    QCOMPARE(panel_cfg::aliasIn(gauges + "alias=a\n").value_or("-"), QString("a"));
}

void TestPanelCfg::aliasLeadsBelowTheRootFolder_data()
{
    QTest::addColumn<QString>("cfgFile");
    QTest::addColumn<AircraftRoot>("root");
    QTest::addColumn<QString>("alias");
    QTest::addColumn<QString>("path");
    QTest::newRow("aircraft") << baron << AircraftRoot::Aircraft << "c172\\panel"
                              << "C:\\FS9\\Aircraft\\c172\\panel\\panel.cfg";
    QTest::newRow("airplanes") << "C:\\FSX\\AirPlanes\\b58\\aircraft.cfg" << AircraftRoot::Airplanes
                               << "c172\\panel"
                               << "C:\\FSX\\AirPlanes\\c172\\panel\\panel.cfg";
    QTest::newRow("rotorcraft: no separator")
        << "C:\\FSX\\Rotorcraft\\Bell\\aircraft.cfg" << AircraftRoot::Rotorcraft << "R22\\panel"
        << "C:\\FSX\\RotorcraftR22\\panel\\panel.cfg";
    QTest::newRow("itself") << baron << AircraftRoot::Aircraft << "b58\\panel"
                            << "C:\\FS9\\Aircraft\\b58\\panel\\panel.cfg";
    QTest::newRow("out of the root") << baron << AircraftRoot::Aircraft << "..\\..\\x"
                                     << "C:\\FS9\\Aircraft\\..\\..\\x\\panel.cfg";
    QTest::newRow("no value") << baron << AircraftRoot::Aircraft << ""
                              << "C:\\FS9\\Aircraft\\\\panel.cfg";
    QTest::newRow("untrimmed") << baron << AircraftRoot::Aircraft << " a "
                               << "C:\\FS9\\Aircraft\\ a \\panel.cfg";
    QTest::newRow("another word") << "C:\\MyAircraft\\b58\\aircraft.cfg" << AircraftRoot::Aircraft
                                  << "c172\\panel"
                                  << "C:\\MyAircraft\\c172\\panel\\panel.cfg";
}

void TestPanelCfg::aliasLeadsBelowTheRootFolder()
{
    QFETCH(QString, cfgFile);
    QFETCH(AircraftRoot, root);
    QFETCH(QString, alias);
    QTEST(panel_cfg::aliasedPath(cfgFile, root, alias), "path");
}

void TestPanelCfg::originalPanelIgnoresThePanelValueAndDoublesTheBackslash()
{
    QCOMPARE(panel_cfg::originalPath(baron), QString("C:\\FS9\\Aircraft\\b58\\\\panel\\panel.cfg"));
}

QTEST_APPLESS_MAIN(TestPanelCfg)
#include "test_panel_cfg.moc"
