// SPDX-License-Identifier: MIT
// What page 3 takes from an aircraft.cfg, and that both pages' contents come out of one pass as
// they do one by one.
#include "app/services/cfg_content.h"

#include <QtTest>

namespace
{

const QByteArray fourKeys = "title=Baron\r\nui_manufacturer=Beech\r\n"
                            "ui_type=58\r\nui_variation=Red\r\n";

EditorContent editorContent(const QByteArray &bytes)
{
    return cfg_content::parse(bytes, Content::Editor).second;
}

QString nameOf(const QByteArray &bytes)
{
    return editorContent(bytes).displayName;
}

QString panelOf(const QByteArray &bytes)
{
    return editorContent(bytes).panel;
}

} // namespace

class TestCfgContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameIsManufacturerTypeVariationAndTitle();
    void emptyFieldsAreShownAsDefaultOrUnknown_data();
    void emptyFieldsAreShownAsDefaultOrUnknown();
    void fileThatLacksOneOfTheFourKeysHasNoName_data();
    void fileThatLacksOneOfTheFourKeysHasNoName();
    void lastValueOfEachKeyWinsOverSeveralSections();
    void keysAreMatchedAtTheLineStartBlindToCase_data();
    void keysAreMatchedAtTheLineStartBlindToCase();
    void panelKeyHasNoBlankOrOneBeforeItsEqualsSign_data();
    void panelKeyHasNoBlankOrOneBeforeItsEqualsSign();
    void titleLosesOneQuoteAtEachEnd_data();
    void titleLosesOneQuoteAtEachEnd();
    void quotesOfOtherFieldsStay();
    void charactersAbove122AreDropped();
    void checkNameKeepsCodes32To122();
    void aliasAnywhereMarksTheConfiguration_data();
    void aliasAnywhereMarksTheConfiguration();
    void hundredThousandLinesAreRead();
    void bothContentsAreThoseOfTwoPasses_data();
    void bothContentsAreThoseOfTwoPasses();
};

void TestCfgContent::nameIsManufacturerTypeVariationAndTitle()
{
    QCOMPARE(nameOf(fourKeys), QString("Beech - 58 - Red - Baron"));
}

void TestCfgContent::emptyFieldsAreShownAsDefaultOrUnknown_data()
{
    QTest::addColumn<QByteArray>("lastLine");
    QTest::addColumn<QString>("name");
    QTest::newRow("variation") << QByteArray("ui_variation=") << "Beech - 58 - Default - Baron";
    QTest::newRow("key alone") << QByteArray("ui_variation") << "Beech - 58 - Default - Baron";
    QTest::newRow("blanks") << QByteArray("ui_variation =  ") << "Beech - 58 - Default - Baron";
    QTest::newRow("type") << QByteArray("ui_type=") << "Beech - _Unknown - Red - Baron";
    QTest::newRow("manufacturer") << QByteArray("ui_manufacturer") << "_Unknown - 58 - Red - Baron";
    QTest::newRow("title") << QByteArray("title") << "Beech - 58 - Red - _Unknown";
    QTest::newRow("quoted title") << QByteArray("title=\"\"") << "Beech - 58 - Red - _Unknown";
}

void TestCfgContent::emptyFieldsAreShownAsDefaultOrUnknown()
{
    QFETCH(QByteArray, lastLine);
    QTEST(nameOf(fourKeys + lastLine), "name");
}

void TestCfgContent::fileThatLacksOneOfTheFourKeysHasNoName_data()
{
    QTest::addColumn<QByteArray>("key");
    for (const char *key : {"title", "ui_manufacturer", "ui_type", "ui_variation"}) {
        QTest::newRow(key) << QByteArray(key);
    }
}

void TestCfgContent::fileThatLacksOneOfTheFourKeysHasNoName()
{
    QFETCH(QByteArray, key);
    QByteArray bytes = fourKeys;
    QCOMPARE(nameOf(bytes.replace(key + '=', "other=")), QString());
}

void TestCfgContent::lastValueOfEachKeyWinsOverSeveralSections()
{
    const EditorContent content =
        editorContent("[fltsim.0]\r\n" + fourKeys +
                      "panel=one\r\n[fltsim.1]\r\ntitle=Second\r\n"
                      "ui_variation=Blue\r\npanel=two\r\n[fltsim.2]\r\npanel=\r\n");
    QCOMPARE(content.displayName, QString("Beech - 58 - Blue - Second"));
    QCOMPARE(content.panel, QString());
}

void TestCfgContent::keysAreMatchedAtTheLineStartBlindToCase_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("name");
    QTest::newRow("capitals") << QByteArray("TITLE=New") << "Beech - 58 - Red - New";
    QTest::newRow("mixed") << QByteArray("Ui_Type = New") << "Beech - New - Red - Baron";
    QTest::newRow("blank before") << QByteArray(" title=New") << "Beech - 58 - Red - Baron";
    QTest::newRow("tab before") << QByteArray("\ttitle=New") << "Beech - 58 - Red - Baron";
    QTest::newRow("many signs") << QByteArray("title = == New ") << "Beech - 58 - Red - New";
    QTest::newRow("no sign: one character is lost")
        << QByteArray("titleNew") << "Beech - 58 - Red - ew";
    QTest::newRow("no line end") << QByteArray("ui_manufacturer=N") << "N - 58 - Red - Baron";
}

void TestCfgContent::keysAreMatchedAtTheLineStartBlindToCase()
{
    QFETCH(QByteArray, line);
    QTEST(nameOf(fourKeys + line), "name");
}

void TestCfgContent::panelKeyHasNoBlankOrOneBeforeItsEqualsSign_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("panel");
    QTest::newRow("none") << QByteArray("panel=xyz") << "xyz";
    QTest::newRow("one") << QByteArray("Panel = xyz ") << "xyz";
    QTest::newRow("two") << QByteArray("panel  =xyz") << "";
    QTest::newRow("tab") << QByteArray("panel\t=xyz") << "";
    QTest::newRow("leading blank") << QByteArray(" panel=xyz") << "";
    QTest::newRow("without a value") << QByteArray("panel=") << "";
    QTest::newRow("key alone") << QByteArray("panel") << "";
    QTest::newRow("comment") << QByteArray("//panel=xyz") << "";
}

void TestCfgContent::panelKeyHasNoBlankOrOneBeforeItsEqualsSign()
{
    QFETCH(QByteArray, line);
    QTEST(panelOf("[fltsim.0]\n" + line + "\nsound=\n"), "panel");
}

void TestCfgContent::titleLosesOneQuoteAtEachEnd_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QString>("shown");
    QTest::newRow("both") << QByteArray("\"A\"") << "A";
    QTest::newRow("start") << QByteArray("\"A") << "A";
    QTest::newRow("end") << QByteArray("A\"") << "A";
    QTest::newRow("two each") << QByteArray("\"\"A\"\"") << "\"A\"";
    QTest::newRow("inside") << QByteArray("A\"B") << "A\"B";
    QTest::newRow("one alone") << QByteArray("\"") << "_Unknown";
}

void TestCfgContent::titleLosesOneQuoteAtEachEnd()
{
    QFETCH(QByteArray, title);
    QFETCH(QString, shown);
    QCOMPARE(nameOf(fourKeys + "title=" + title), "Beech - 58 - Red - " + shown);
}

void TestCfgContent::quotesOfOtherFieldsStay()
{
    QCOMPARE(nameOf(fourKeys + "ui_type=\"58\""), QString("Beech - \"58\" - Red - Baron"));
}

void TestCfgContent::charactersAbove122AreDropped()
{
    QCOMPARE(nameOf(fourKeys + "title=Caf\xE9 {Z\xFCrich}|~ z\x80\tx"),
             QString("Beech - 58 - Red - Caf Zrich zx"));
}

void TestCfgContent::checkNameKeepsCodes32To122()
{
    QString all;
    for (char16_t code = 0; code < 300; ++code) {
        all += QChar(code);
    }
    QCOMPARE(cfg_content::CheckName(all), all.sliced(32, 91));
}

void TestCfgContent::aliasAnywhereMarksTheConfiguration_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("aliased");
    QTest::newRow("none") << QByteArray("title=x\nal ias=\naliAx") << false;
    QTest::newRow("key") << QByteArray("alias=x") << true;
    QTest::newRow("capitals") << QByteArray("title=x\n  ALIAS =x") << true;
    QTest::newRow("inside a word") << QByteArray("//isAliased") << true;
    QTest::newRow("over two lines") << QByteArray("al\nias") << false;
    QTest::newRow("cut off") << QByteArray("alia") << false;
    QTest::newRow("starts with its second letter") << QByteArray("lias") << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void TestCfgContent::aliasAnywhereMarksTheConfiguration()
{
    QFETCH(QByteArray, bytes);
    QTEST(editorContent(bytes).aliased, "aliased");
}

void TestCfgContent::hundredThousandLinesAreRead()
{
    const QByteArray filler = QByteArray("station_load.0=170,-1.5,0,0\r\n").repeated(100000);
    QCOMPARE(nameOf("title\r\n" + filler + fourKeys + filler), QString("Beech - 58 - Red - Baron"));
}

void TestCfgContent::bothContentsAreThoseOfTwoPasses_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("keys behind the speed") << QByteArray(
        "[fltsim.0]\r\ntitle=A\r\ncruise_speed=9\r\n[fltsim.1]\r\n" + fourKeys + "panel=ai\r\n");
    QTest::newRow("ends in a header") << QByteArray(fourKeys + "[fltsim.0]");
    QTest::newRow("beyond any number") << QByteArray("cruise_speed=1e999\r\n" + fourKeys);
    QTest::newRow("alias") << QByteArray("[fltsim.0]\ntitle=Alias\n");
}

void TestCfgContent::bothContentsAreThoseOfTwoPasses()
{
    QFETCH(QByteArray, bytes);
    const auto [traffic, noEditor] = cfg_content::parse(bytes, Content::Traffic);
    const auto [noTraffic, editor] = cfg_content::parse(bytes, Content::Editor);
    const auto [bothTraffic, bothEditor] = cfg_content::parse(bytes, Content::Both);
    QCOMPARE(noEditor.displayName, QString());
    QVERIFY(!noEditor.aliased);
    QCOMPARE(noTraffic.titles, QStringList());
    QVERIFY(!noTraffic.complete && !noTraffic.failure);
    QCOMPARE(bothTraffic.empty, traffic.empty);
    QCOMPARE(bothTraffic.titles, traffic.titles);
    QCOMPARE(bothTraffic.speed, traffic.speed);
    QCOMPARE(bothTraffic.complete, traffic.complete);
    QCOMPARE(bothTraffic.failure.has_value(), traffic.failure.has_value());
    QCOMPARE(bothEditor.aliased, editor.aliased);
    QCOMPARE(bothEditor.panel, editor.panel);
    QCOMPARE(bothEditor.displayName, editor.displayName);
}

QTEST_APPLESS_MAIN(TestCfgContent)
#include "test_cfg_content.moc"
