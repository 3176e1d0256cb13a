// SPDX-License-Identifier: MIT
// Two copies of the program that add aircraft to one text file at the same time. Each is a process
// of its own: this test, started again with the name of the aircraft it is to add.
#include "aircraft_loader/aircraft_loader_page.h"
#include "app/services/services.h"
#include "app/services/set_in_progress.h"
#include "platform/controls/list_box.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"
#include "tests/support/lines.h"
#include "tests/support/sandbox.h"

#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

#include <cstdio>

namespace
{

constexpr int aircraftEach = 200;
constexpr int presses = 10;
const QString aircraftDir = QStringLiteral("C:\\FS9\\Aircraft");
const QString textFile = QStringLiteral("C:\\TTools\\Aircraft_Set.txt");

/// Loads the lists, waits for a sign, and adds all aircraft of a maker. Returns the exit code.
int addAircraftOf(const QString &maker, const QString &drivesFolder)
{
    const HostDrives drives(drivesFolder);
    FakeOutside outside;
    Services services(outside.outside());
    services.state.MorlenEDir = "C:\\Morlen\\";
    const SetInProgress set;
    AircraftLoaderPage page(services, set);
    page.showDirectory(aircraftDir);
    page.restoreTextFile(textFile);
    auto *const available = findControl<ListBox>(page, "Tab0List2");
    std::puts("ready");
    std::fflush(stdout);
    std::getchar();
    for (int press = 0; press < presses; ++press) {
        int ticked = 0;
        for (int i = 0; i < available->count() && ticked < aircraftEach / presses; ++i) {
            if (available->text(i).startsWith(maker)) {
                available->setSelected(i, true);
                ++ticked;
            }
        }
        findControl<QPushButton>(page, "cmdAddAI")->setEnabled(true);
        findControl<QPushButton>(page, "cmdAddAI")->click();
    }
    int failures = 0;
    for (const MessageBox &box : outside.dialogs.boxes) {
        if (box.title != "Add AI") {
            std::puts(qPrintable(box.title + ": " + box.prompt));
            ++failures;
        }
    }
    return failures;
}

/// A copy of the program in the hands of a user.
class Copy
{
public:
    Copy(const QString &maker, const Sandbox &sandbox)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(), {maker, sandbox.prefix()});
    }

    bool isReady()
    {
        return m_process.waitForReadyRead(60'000) && m_process.readLine().trimmed() == "ready";
    }

    void go()
    {
        m_process.write("\n");
        m_process.waitForBytesWritten();
    }

    /// What went wrong, empty when nothing did.
    QString result()
    {
        if (!m_process.waitForFinished(120'000)) {
            return "it hangs";
        }
        const bool good =
            m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
        return good ? QString() : "it failed: " + QString::fromLocal8Bit(m_process.readAll());
    }

private:
    QProcess m_process;
};

} // namespace

class TestTwoPrograms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noLineIsTornAndNoNumberUsedTwice();
};

void TestTwoPrograms::noLineIsTornAndNoNumberUsedTwice()
{
    const Sandbox sandbox;
    const QByteArray before = "//by hand\r\nAC#7,120,\"Not installed\""; // and no line end
    sandbox.write(textFile, before);
    const QStringList makers = {"Airbus", "Boeing"};
    QSet<QString> titles;
    for (const QString &maker : makers) {
        QByteArray cfg;
        for (int i = 0; i < aircraftEach; ++i) {
            const QString title = QStringLiteral("%1 %2").arg(maker).arg(i, 3, 10, QChar('0'));
            titles += title;
            cfg += "[fltsim.0]\r\ntitle=" + title.toLatin1() + "\r\n";
        }
        sandbox.write(aircraftDir + '\\' + maker + "\\aircraft.cfg", cfg + "cruise_speed=450\r\n");
    }
    Copy one(makers[0], sandbox);
    Copy other(makers[1], sandbox);
    QVERIFY(one.isReady());
    QVERIFY(other.isReady());
    one.go();
    other.go();
    QCOMPARE(one.result(), QString());
    QCOMPARE(other.result(), QString());

    const QByteArray after = sandbox.read(textFile);
    QVERIFY(after.startsWith(before + "\r\n"));
    static const QRegularExpression aircraftLine("^AC#(\\d+),450,\"([^\"]*)\"$");
    static const QRegularExpression comment("^//AI Aircraft Added [\\w ,]+ [\\d:]{8}$");
    int number = 7;
    int comments = 0;
    for (const QString &line : linesOf(after.sliced(before.size() + 2))) {
        if (comment.match(line).hasMatch()) {
            ++comments;
            continue;
        }
        const QRegularExpressionMatch match = aircraftLine.match(line);
        QVERIFY2(match.hasMatch(), qPrintable(line));
        QCOMPARE(match.captured(1).toInt(), ++number);
        QVERIFY2(titles.remove(match.captured(2)), qPrintable(line));
    }
    QCOMPARE(comments, 2 * presses);
    QCOMPARE(titles, QSet<QString>());
}

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments().sliced(1);
    if (words.size() == 2 && !words.first().startsWith('-')) {
        return addAircraftOf(words[0], words[1]);
    }
    TestTwoPrograms test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_two_programs.moc"
