// SPDX-License-Identifier: MIT
// The rules of Windows paths.
#include "platform/paths.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QtTest>

class TestPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesWindowsRefusesAreBad_data();
    void namesWindowsRefusesAreBad();
    void namesWindowsTakes_data();
    void namesWindowsTakes();
    void emptyPathIsABadName();
    void systemDirectoryIsThatOfThePrefix();
    void joinPutsExactlyOneBackslash_data();
    void joinPutsExactlyOneBackslash();
    void fileNameFollowsTheLastBackslash_data();
    void fileNameFollowsTheLastBackslash();
};

void TestPaths::namesWindowsRefusesAreBad_data()
{
    QTest::addColumn<QString>("name");
    for (const char *const name :
         {"a<b",       "a>b",       "a:b",      "a\"b",    "a|b",    "a?b",        "a*b",
          "tab\there", "line\nend", "NUL",      "nul.txt", "Con",    "CON .x.txt", "prn",
          "AUX.cfg",   "COM1",      "com9.txt", "lpt3",    "conin$", "CONOUT$"}) {
        QTest::newRow(name) << name;
    }
    QTest::newRow("NUL character") << QString("a") + QChar(0);
    QTest::newRow("256 characters") << QString(256, 'x');
}

void TestPaths::namesWindowsRefusesAreBad()
{
    QFETCH(QString, name);
    const Sandbox sandbox;
    QVERIFY(!paths::isValidName(name));
    for (const QString &path : {"C:\\" + name, "C:\\" + name + "\\a.txt", "Docs\\" + name}) {
        QCOMPARE(failureOf([&] { paths::toHost(path); }), "52 Bad file name or number");
    }
}

void TestPaths::namesWindowsTakes_data()
{
    QTest::addColumn<QString>("name");
    for (const char *const name :
         {"a", "B737 Blue (2) [x] & 'y' 100%", ".hidden", "NULL", "console", "com", "COM", "com10",
          "COM0", "LPTX", "my nul.txt", "~$a#b;c,d=e+f"}) {
        QTest::newRow(name) << name;
    }
    QTest::newRow("accents") << QString::fromUtf8("Île Łódź 飛行機");
}

void TestPaths::namesWindowsTakes()
{
    QFETCH(QString, name);
    const Sandbox sandbox;
    QVERIFY(paths::isValidName(name));
    QCOMPARE(paths::toHost("C:\\" + name), sandbox.host("C:\\" + name));
}

void TestPaths::emptyPathIsABadName()
{
    const Sandbox sandbox;
    QCOMPARE(failureOf([] { paths::toHost(""); }), "52 Bad file name or number");
    QVERIFY(!paths::isValidName(QString()));
    QVERIFY(!paths::isValidName(u"a\\b"));
    QVERIFY(!paths::isValidName(u"a/b"));
}

void TestPaths::systemDirectoryIsThatOfThePrefix()
{
    const Sandbox sandbox;
    QCOMPARE(paths::windowsDirectory(), "C:\\windows");
    QCOMPARE(paths::systemDirectory(), "C:\\windows\\system32");
    QCOMPARE(paths::toHost(paths::systemDirectory()), sandbox.host("C:\\windows\\system32"));
}

void TestPaths::joinPutsExactlyOneBackslash_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("joined");
    QTest::newRow("folder") << "C:\\FS9"
                            << "C:\\FS9\\a.txt";
    QTest::newRow("backslash at the end") << "C:\\FS9\\"
                                          << "C:\\FS9\\a.txt";
    QTest::newRow("root") << "C:\\"
                          << "C:\\a.txt";
    QTest::newRow("drive") << "c:"
                           << "c:\\a.txt";
}

void TestPaths::joinPutsExactlyOneBackslash()
{
    QFETCH(QString, folder);
    QTEST(paths::join(folder, "a.txt"), "joined");
}

void TestPaths::fileNameFollowsTheLastBackslash_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::newRow("file") << "C:\\TTools\\Aircraft.txt"
                          << "Aircraft.txt";
    QTest::newRow("doubled") << "C:\\TTools\\\\Aircraft.txt"
                             << "Aircraft.txt";
    QTest::newRow("folder") << "C:\\TTools\\"
                            << "";
    QTest::newRow("name alone") << "Aircraft.txt"
                                << "Aircraft.txt";
    QTest::newRow("nothing") << ""
                             << "";
}

void TestPaths::fileNameFollowsTheLastBackslash()
{
    QFETCH(QString, path);
    QTEST(paths::fileName(path), "name");
}

QTEST_GUILESS_MAIN(TestPaths)
#include "test_paths.moc"
