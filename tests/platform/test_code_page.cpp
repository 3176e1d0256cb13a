// SPDX-License-Identifier: MIT
#include "platform/code_page.h"

#include <QtTest>

class TestCodePage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyByteDecodesToItsCharacterAndBack();
    void windows1252CharactersAreThoseOfTheCodePage();
    void charactersTheCodePageLacksMakeTheFileUtf8_data();
    void charactersTheCodePageLacksMakeTheFileUtf8();
    void utf8BehindAMarkIsUnderstood();
};

void TestCodePage::everyByteDecodesToItsCharacterAndBack()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const QString text = code_page::decodeMarked(bytes);
    QCOMPARE(text.size(), 256);
    for (int byte = 0; byte < 256; ++byte) {
        if (byte < 0x80 || byte > 0x9F) {
            QCOMPARE(int(text[byte].unicode()), byte);
        }
    }
    QCOMPARE(code_page::encode(text), bytes);
    QCOMPARE(code_page::decode(bytes), text);
}

void TestCodePage::windows1252CharactersAreThoseOfTheCodePage()
{
    QByteArray bytes;
    for (int byte = 0x80; byte < 0xA0; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const QString text = QString::fromUtf8("€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F"
                                           "\u0090‘’“”•–—˜™š›œ\u009DžŸ");
    QCOMPARE(code_page::decodeMarked(bytes), text);
    QCOMPARE(code_page::encode(text), bytes);
}

void TestCodePage::charactersTheCodePageLacksMakeTheFileUtf8_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Polish") << QString::fromUtf8("C:\\Gry\\Łódź");
    QTest::newRow("Japanese") << QString::fromUtf8("飛行機");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("a\U0001F6E9b");
    QTest::newRow("a control that is a character here") << QString(QChar(0x80));
}

void TestCodePage::charactersTheCodePageLacksMakeTheFileUtf8()
{
    QFETCH(QString, text);
    QCOMPARE(code_page::encode(text), "\xEF\xBB\xBF" + text.toUtf8());
    QCOMPARE(code_page::decodeMarked(code_page::encode(text)), text);
}

void TestCodePage::utf8BehindAMarkIsUnderstood()
{
    QCOMPARE(code_page::decodeMarked("\xEF\xBB\xBF\xC3\xA9\x00"), QString::fromUtf8("é"));
    QCOMPARE(code_page::decodeMarked("\xEF\xBB\xBF"), "");
    QCOMPARE(code_page::decodeMarked("\xC3\xA9"),
             QString::fromUtf8("Ã©")); // without one it is code page
    QCOMPARE(code_page::decodeMarked("\xEF\xBB"), QString::fromUtf8("ï»"));
    QVERIFY(code_page::isUtf8("\xEF\xBB\xBF"));
    QVERIFY(!code_page::isUtf8("\xEF\xBB"));
    QCOMPARE(code_page::encodeUtf8("a"), "\xEF\xBB\xBF"
                                         "a");
}

QTEST_APPLESS_MAIN(TestCodePage)
#include "test_code_page.moc"
