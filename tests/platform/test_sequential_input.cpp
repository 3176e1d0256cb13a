// SPDX-License-Identifier: MIT
#include "platform/sequential_input.h"
#include "tests/support/failure.h"

#include <QtTest>

class TestSequentialInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inputTakesValuesUpToCommaOrLineEnd_data();
    void inputTakesValuesUpToCommaOrLineEnd();
    void inputBeyondTheEndFails_data();
    void inputBeyondTheEndFails();
};

void TestSequentialInput::inputTakesValuesUpToCommaOrLineEnd_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("values");
    const auto row = [](const char *name, const QString &text, const QStringList &values) {
        QTest::newRow(name) << text << values;
    };
    row("nothing", "", {});
    row("CR LF", "0\r\nC:\\TTools\\TTools.exe\r\n", {"0", "C:\\TTools\\TTools.exe"});
    row("LF", "0\nc:\n", {"0", "c:"});
    row("CR", "0\rc:\r", {"0", "c:"});
    row("no final line end", "0\r\nc:", {"0", "c:"});
    row("empty lines", "\r\n\r\nc:\r\n", {"", "", "c:"});
    row("commas", "a,b c,,d", {"a", "b c", "", "d"});
    row("leading blanks", "  a,  b", {"a", "b"});
    row("trailing blanks", "a  ,b  \r\n", {"a  ", "b  "});
    row("quotes", "\"a,b\",c", {"a,b", "c"});
    row("quotes over lines", "\"a\r\nb\"\r\nc", {"a\r\nb", "c"});
    row("blanks behind quotes", "\"a\"  ,b", {"a", "b"});
    row("empty quotes", "\"\"\r\nb", {"", "b"});
    row("quotes that are not closed", "\"a,b", {"a,b"});
    row("quote at the end", "\"", {""});
    row("quote inside", "a\"b,c", {"a\"b", "c"});
    row("NUL", QString("a") + QChar(0) + "b,c", {QString("a") + QChar(0) + 'b', "c"});
}

void TestSequentialInput::inputTakesValuesUpToCommaOrLineEnd()
{
    QFETCH(QString, text);
    SequentialInput input(text);
    QStringList values;
    QCOMPARE(failureOf([&] {
                 for (;;) {
                     values += input.next();
                 }
             }),
             "62 Input past end of file");
    QTEST(values, "values");
}

void TestSequentialInput::inputBeyondTheEndFails_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("blanks") << "   ";
}

void TestSequentialInput::inputBeyondTheEndFails()
{
    QFETCH(QString, text);
    SequentialInput input(text);
    QCOMPARE(failureOf([&] { input.next(); }), "62 Input past end of file");
    QCOMPARE(failureOf([&] { input.next(); }), "62 Input past end of file");
}

QTEST_APPLESS_MAIN(TestSequentialInput)
#include "test_sequential_input.moc"
