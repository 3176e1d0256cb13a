// SPDX-License-Identifier: MIT
#include "platform/line_reader.h"
#include "tests/support/failure.h"
#include "tests/support/lines.h"

#include <QElapsedTimer>
#include <QtTest>

class TestLineReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineEndsAreCrLfCrAndLf_data();
    void lineEndsAreCrLfCrAndLf();
    void lineReaderPassesOverAUtf8Mark();
    void lineReaderBeyondTheEndFails();
    void tenMegabyteLineIsOneLine();
    void millionLinesEndedByCrAloneAreReadInNoTime();
};

void TestLineReader::lineEndsAreCrLfCrAndLf_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char *name, const QByteArray &bytes, const QStringList &lines) {
        QTest::newRow(name) << bytes << lines;
    };
    row("empty", "", {});
    row("CR LF", "a\r\nb\r\n", {"a", "b"});
    row("LF", "a\nb\n", {"a", "b"});
    row("CR", "a\rb\r", {"a", "b"});
    row("mixed", "a\rb\nc\r\nd", {"a", "b", "c", "d"});
    row("no final line end", "a\r\nb", {"a", "b"});
    row("blank lines", "\r\n\r\na\r\n\r\n", {"", "", "a", ""});
    row("CR CR LF", "a\r\r\nb", {"a", "", "b"});
    row("LF CR", "a\n\rb", {"a", "", "b"});
    row("one line end", "\n", {""});
    row("CR at the very end", "a\nb\r", {"a", "b"});
    row("NUL bytes", QByteArray("a\0b\r\n\0", 6), {QString("a") + QChar(0) + 'b', QChar(0)});
    row("high bytes", "\xE9\x80\r\n\x85", {QString::fromUtf8("é€"), QString::fromUtf8("…")});
    row("end-of-file mark", "a\r\n\x1A", {"a", "\x1A"});
}

void TestLineReader::lineEndsAreCrLfCrAndLf()
{
    QFETCH(QByteArray, bytes);
    QTEST(linesOf(bytes), "lines");
}

void TestLineReader::lineReaderPassesOverAUtf8Mark()
{
    QCOMPARE(linesOf("\xEF\xBB\xBF[fltsim.0]\r\n\xC3\xA9"),
             (QStringList{"[fltsim.0]", QString::fromUtf8("Ã©")}));
    QCOMPARE(linesOf("\xEF\xBB\xBF"), QStringList());
    QCOMPARE(linesOf("a\n\xEF\xBB\xBF"), (QStringList{"a", QString::fromUtf8("ï»¿")}));
}

void TestLineReader::lineReaderBeyondTheEndFails()
{
    LineReader reader("only\r\n");
    QCOMPARE(reader.next().toByteArray(), "only");
    QVERIFY(reader.atEnd());
    QCOMPARE(failureOf([&] { reader.next(); }), "62 Input past end of file");
}

void TestLineReader::tenMegabyteLineIsOneLine()
{
    const QByteArray line(10'000'000, 'x');
    const QByteArray bytes = line + "\r\nnext";
    LineReader reader(bytes);
    QVERIFY(reader.next() == line);
    QCOMPARE(reader.next().toByteArray(), "next");
    QVERIFY(reader.atEnd());
}

void TestLineReader::millionLinesEndedByCrAloneAreReadInNoTime()
{
    constexpr int count = 1'000'000;
    const QByteArray bytes = QByteArray("AC#1,250,\"\"\r").repeated(count);
    LineReader reader(bytes);
    QElapsedTimer timer;
    timer.start();
    int lines = 0;
    for (; !reader.atEnd() && timer.elapsed() < 10'000; ++lines) {
        reader.next();
    }
    QCOMPARE(lines, count); // a search to the end of the file at each line would take minutes
}

QTEST_APPLESS_MAIN(TestLineReader)
#include "test_line_reader.moc"
