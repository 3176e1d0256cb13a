// SPDX-License-Identifier: MIT
// Paths of the machine itself, and below folders that stand for drives.
#include "platform/paths.h"
#include "platform/windows/drives.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QtTest>

#include <windows.h>

class TestWindowsPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void machinesOwnPathsStayAsTheyAre_data();
    void machinesOwnPathsStayAsTheyAre();
    void drivesAreThoseOfTheMachine();
    void systemFoldersAreAskedOfWindows();
    void sandboxHasDrivesOfItsOwn();
};

void TestWindowsPaths::machinesOwnPathsStayAsTheyAre_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("host");
    QTest::newRow("plain") << "C:\\FS9\\Aircraft"
                           << "C:\\FS9\\Aircraft";
    QTest::newRow("doubled") << "C:\\\\FS9\\\\Aircraft\\"
                             << "C:\\FS9\\Aircraft";
    QTest::newRow("forward") << "c:/FS9/Aircraft"
                             << "c:\\FS9\\Aircraft";
    QTest::newRow("up") << "C:\\FS9\\..\\TTools\\.\\a.txt"
                        << "C:\\TTools\\a.txt";
    QTest::newRow("share") << "\\\\server\\share\\FS9"
                           << "\\\\server\\share\\FS9";
    QTest::newRow("root") << "C:\\"
                          << "C:\\";
}

void TestWindowsPaths::machinesOwnPathsStayAsTheyAre()
{
    QFETCH(QString, path);
    QTEST(paths::toHost(path), "host");
}

void TestWindowsPaths::drivesAreThoseOfTheMachine()
{
    DWORD bits = 0;
    for (const QString &drive : paths::drives()) {
        bits |= 1U << (drive[0].unicode() - u'a');
    }
    QCOMPARE(bits, ::GetLogicalDrives());
    QCOMPARE(failureOf([] { paths::toHost("\\\\server"); }), "52 Bad file name or number");
}

void TestWindowsPaths::systemFoldersAreAskedOfWindows()
{
    QVERIFY(QDir(paths::windowsDirectory()).exists());
    QCOMPARE(paths::systemDirectory().toLower(),
             paths::windowsDirectory().toLower() + "\\system32");
}

void TestWindowsPaths::sandboxHasDrivesOfItsOwn()
{
    {
        const Sandbox sandbox;
        QCOMPARE(paths::drives(), (QStringList{"c:", "z:"}));
        QCOMPARE(paths::toHost("C:\\FS9\\a.txt"), sandbox.host("C:\\FS9\\a.txt"));
        QCOMPARE(paths::fromHost(sandbox.host("C:\\FS9\\a.txt")), "C:\\FS9\\a.txt");
        QCOMPARE(paths::currentDirectory(), "C:\\Morlen");
        QCOMPARE(paths::systemDirectory(), "C:\\windows\\system32");
        QCOMPARE(failureOf([] { paths::toHost("D:\\a.txt"); }), "68 Device unavailable");
    }
    QCOMPARE(paths::toHost("C:\\FS9\\a.txt"), "C:\\FS9\\a.txt");
}

QTEST_GUILESS_MAIN(TestWindowsPaths)
#include "test_windows_paths.moc"
