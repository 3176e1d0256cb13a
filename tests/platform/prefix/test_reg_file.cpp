// SPDX-License-Identifier: MIT
#include "platform/prefix/reg_file.h"

#include <QtTest>

namespace
{

const QByteArray sample = "WINE REGISTRY Version 2\n"
                          ";; All keys relative to \\\\User\\\\S-1-5-21-0-0-0-1000\n\n"
                          "#arch=win32\n\n"
                          "[Control Panel\\\\Colors] 1094414091\n"
                          "#time=1c4938a0a5bca00\n"
                          "\"Hilight\"=\"49 106 197\"\n"
                          "\"Blob\"=hex:01,02,\\\n  03,04\n"
                          "\"Expand\"=str(2):\"%HOME%\"\n\n"
                          "[Software\\\\Ostrel\\\\Pellara\\\\Path] 1094414091\n"
                          "@=\"default\"\n"
                          "\"Exe_Path\"=\"C:\\\\Pellara\\\\pellara.exe\"\n"
                          "\"Count\"=dword:0000002a\n\n"
                          "[Software\\\\Zuletzt] 5\n"
                          "\"caf\\xe9\"=\"\\x20ac5 \\\"neu\\\"\\n\"\n";

const QString pathKey = QStringLiteral("Software\\Ostrel\\Pellara\\Path");

QString textOf(const RegFile &file, const QString &key, const QString &name)
{
    const auto data = file.value(key, name);
    return data && std::holds_alternative<QString>(*data) ? std::get<QString>(*data)
                                                          : QStringLiteral("(none)");
}

} // namespace

class TestRegFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textAndNumbersAreRead();
    void keysAndNamesAreBlindToCase();
    void whatIsMissingOrOfAnotherTypeIsNothing();
    void escapesAreUndone();
    void escapedTextComesBack_data();
    void escapedTextComesBack();
    void textStoredAsBytesIsRead();
    void aContinuedValueDoesNotHideTheNext();
    void changedValueLeavesEveryOtherByte();
    void longerValueThatWasContinuedIsReplacedWhole();
    void newValueGoesBehindTheKeysLast();
    void newKeyGoesToTheEnd();
    void damagedLastLineDoesNotSwallowANewValue_data();
    void damagedLastLineDoesNotSwallowANewValue();
    void aValueThatBreaksOffStaysWhatItWas();
    void missingFinalLineEndIsCompleted();
    void carriageReturnsAreKept();
    void anEmptyFileBecomesAValidOne();
};

void TestRegFile::textAndNumbersAreRead()
{
    const RegFile file(sample);
    QCOMPARE(textOf(file, pathKey, "Exe_Path"), QString("C:\\Pellara\\pellara.exe"));
    QCOMPARE(std::get<std::uint32_t>(*file.value(pathKey, "Count")), 42U);
}

void TestRegFile::keysAndNamesAreBlindToCase()
{
    const RegFile file(sample);
    QCOMPARE(textOf(file, "SOFTWARE\\ostrel\\PELLARA\\path", "EXE_path"),
             QString("C:\\Pellara\\pellara.exe"));
}

void TestRegFile::whatIsMissingOrOfAnotherTypeIsNothing()
{
    const RegFile file(sample);
    QVERIFY(!file.value(pathKey, "Exe"));
    QVERIFY(!file.value("Software\\Ostrel\\Pellara", "Exe_Path"));
    QVERIFY(!file.value("Software\\Ostrel\\Pellara\\Path\\More", "Exe_Path"));
    QVERIFY(!file.value("Control Panel\\Colors", "Blob"));
    QVERIFY(!file.value("Control Panel\\Colors", "Expand"));
    QVERIFY(!RegFile(QByteArray()).value(pathKey, "Exe_Path"));
}

void TestRegFile::escapesAreUndone()
{
    QCOMPARE(textOf(RegFile(sample), "Software\\Zuletzt", QString("caf") + QChar(0xE9)),
             QChar(0x20AC) + QString("5 \"neu\"\n"));
}

void TestRegFile::escapedTextComesBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "C:\\Program Files\\FS9";
    QTest::newRow("quotes and brackets") << "[a] \"b\" \\";
    QTest::newRow("accent before a hexadecimal figure") << QString(QChar(0xE9)) + "abc";
    QTest::newRow("beyond the code page") << QString::fromUtf8("Żółw 日本");
    QTest::newRow("control characters") << QString("\r\n\t\x01") + "7";
    QTest::newRow("empty") << "";
}

void TestRegFile::escapedTextComesBack()
{
    QFETCH(QString, text);
    RegFile file(sample);
    file.setValue("Software\\[New] " + text, text + 'n', text, 1);
    const RegFile again(file.bytes());
    QCOMPARE(textOf(again, "Software\\[New] " + text, text + 'n'), text);
    QCOMPARE(textOf(again, pathKey, "Exe_Path"), QString("C:\\Pellara\\pellara.exe"));
}

void TestRegFile::textStoredAsBytesIsRead()
{
    const RegFile file("[K] 1\n\"A\"=hex(1):43,00,3a,00,\\\n  5c,00,e9,00,ac,20\n"
                       "\"Empty\"=hex(1):\n\"Bytes\"=hex(3):41,00\n");
    QCOMPARE(textOf(file, "K", "A"), QString::fromUtf8("C:\\é€"));
    QCOMPARE(textOf(file, "K", "Empty"), QString());
    QCOMPARE(textOf(file, "K", "Bytes"), QString("(none)"));
}

void TestRegFile::aContinuedValueDoesNotHideTheNext()
{
    const RegFile file("[K] 1\n\"A\"=hex:01,\\\n  02,\\\n  03\n\"B\"=\"found\"\n");
    QCOMPARE(textOf(file, "K", "B"), QString("found"));
}

void TestRegFile::changedValueLeavesEveryOtherByte()
{
    RegFile file(sample);
    file.setValue(pathKey, "exe_path", QString("D:\\P"), 99);
    QCOMPARE(file.bytes(),
             QByteArray(sample).replace("\"Exe_Path\"=\"C:\\\\Pellara\\\\pellara.exe\"\n",
                                        "\"exe_path\"=\"D:\\\\P\"\n"));
}

void TestRegFile::longerValueThatWasContinuedIsReplacedWhole()
{
    RegFile file(sample);
    file.setValue("Control Panel\\Colors", "Blob", QString("x"), 99);
    QCOMPARE(file.bytes(),
             QByteArray(sample).replace("\"Blob\"=hex:01,02,\\\n  03,04\n", "\"Blob\"=\"x\"\n"));
}

void TestRegFile::newValueGoesBehindTheKeysLast()
{
    RegFile file(sample);
    file.setValue(pathKey, "New", std::uint32_t(255), 99);
    QCOMPARE(file.bytes(),
             QByteArray(sample).replace("\"Count\"=dword:0000002a\n",
                                        "\"Count\"=dword:0000002a\n\"New\"=dword:000000ff\n"));
}

void TestRegFile::newKeyGoesToTheEnd()
{
    RegFile file(sample);
    file.createKey("Software\\Ostrel\\Morlen Utilities\\Path", 1094414091);
    QCOMPARE(file.bytes(), sample +
                               "\n[Software\\\\Ostrel\\\\Morlen Utilities\\\\Path] 1094414091\n"
                               "#time=1c49382348e7780\n");
    const QByteArray once = file.bytes();
    file.createKey("SOFTWARE\\Ostrel\\Morlen utilities\\path", 5);
    QCOMPARE(file.bytes(), once);
}

void TestRegFile::damagedLastLineDoesNotSwallowANewValue_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("whole line") << QByteArray(
        "WINE REGISTRY Version 2\n\n[K] 1\n\"A\"=hex:01,\\\n");
    QTest::newRow("no line end") << QByteArray("WINE REGISTRY Version 2\n\n[K] 1\n\"A\"=hex:01,\\");
    QTest::newRow("in the middle")
        << QByteArray("WINE REGISTRY Version 2\n\n[K] 1\n\"A\"=hex:01,\\\n\n[L] 1\n\"X\"=\"y\"\n");
}

void TestRegFile::damagedLastLineDoesNotSwallowANewValue()
{
    QFETCH(QByteArray, bytes);
    RegFile file(bytes);
    file.setValue("K", "B", QString("b"), 1);
    file.setValue("M", "C", QString("c"), 1);
    const RegFile again(file.bytes());
    QVERIFY(again.value("K", "B") == RegistryData(QString("b")));
    QVERIFY(again.value("M", "C") == RegistryData(QString("c")));
    QVERIFY(file.bytes().contains("\\\n\n")); // the line that goes on goes on into nothing
}

void TestRegFile::aValueThatBreaksOffStaysWhatItWas()
{
    RegFile file("WINE REGISTRY Version 2\n\n[K] 1\n\"A\"=\"half a te");
    file.setValue("M", "C", QString("c"), 1);
    QCOMPARE(textOf(file, "K", "A"), QString("half a te"));
}

void TestRegFile::missingFinalLineEndIsCompleted()
{
    RegFile file(sample.chopped(1));
    file.setValue("Software\\Zuletzt", "b", QString("c"), 1);
    QCOMPARE(file.bytes(), sample + "\"b\"=\"c\"\n");
}

void TestRegFile::carriageReturnsAreKept()
{
    const QByteArray crlf = QByteArray(sample).replace("\n", "\r\n");
    RegFile file(crlf);
    QCOMPARE(textOf(file, pathKey, "Exe_Path"), QString("C:\\Pellara\\pellara.exe"));
    file.setValue(pathKey, "Count", QString("n"), 1);
    QCOMPARE(file.bytes(),
             QByteArray(crlf).replace("\"Count\"=dword:0000002a\r\n", "\"Count\"=\"n\"\r\n"));
}

void TestRegFile::anEmptyFileBecomesAValidOne()
{
    RegFile file{QByteArray()};
    file.setValue("Software\\A", "B", QString("C"), 0);
    QCOMPARE(file.bytes(), QByteArray("WINE REGISTRY Version 2\n\n[Software\\\\A] 0\n"
                                      "#time=19db1ded53e8000\n\"B\"=\"C\"\n"));
}

QTEST_APPLESS_MAIN(TestRegFile)
#include "test_reg_file.moc"
