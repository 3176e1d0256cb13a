// SPDX-License-Identifier: MIT
// Raising the window of a companion that runs already, among real windows.
#include "platform/process.h"

#include <QProcess>
#include <QtTest>

namespace
{

QByteArray captionInFront()
{
    QProcess question;
    question.start("xdotool", {"getactivewindow", "getwindowname"});
    question.waitForFinished();
    return question.readAllStandardOutput().trimmed();
}

/// Another program's window, whatever it is, with a caption of our choice; in front when made.
class OtherWindow
{
public:
    explicit OtherWindow(const QString &caption)
    {
        m_program.start("xev", {"-name", caption, "-event", "keyboard"});
        m_isThere = QTest::qWaitFor([&] { return captionInFront() == caption.toLatin1(); }, 10000);
    }

    ~OtherWindow()
    {
        m_program.kill();
        m_program.waitForFinished();
    }

    OtherWindow(const OtherWindow &) = delete;
    OtherWindow &operator=(const OtherWindow &) = delete;

    bool isThere() const { return m_isThere; }

private:
    QProcess m_program;
    bool m_isThere = false;
};

} // namespace

class TestCompanions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowOfExactlyTheCaptionIsRaised();
};

void TestCompanions::windowOfExactlyTheCaptionIsRaised()
{
    const OtherWindow companion("Pellara 2");
    QVERIFY(companion.isThere());
    const OtherWindow other("Pellara 20");
    QVERIFY(other.isThere());
    SystemProcesses processes;
    QVERIFY(!processes.raiseWindow("Pellara"));
    QVERIFY(processes.raiseWindow("Pellara 2"));
    QTRY_COMPARE_WITH_TIMEOUT(captionInFront(), QByteArray("Pellara 2"), 10000);
}

QTEST_GUILESS_MAIN(TestCompanions)
#include "test_companions.moc"
