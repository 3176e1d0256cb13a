// SPDX-License-Identifier: MIT
// Windows paths on a Wine prefix.
#include "platform/paths.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QtTest>

namespace
{

/// Sets an environment variable for a while; a null value takes it away.
class Environment
{
public:
    Environment(const char *name, const QByteArray &value)
        : m_name(name), m_before(qgetenv(name)), m_wasSet(qEnvironmentVariableIsSet(name))
    {
        set(!value.isNull(), value);
    }

    ~Environment() { set(m_wasSet, m_before); }

    Environment(const Environment &) = delete;
    Environment &operator=(const Environment &) = delete;

private:
    void set(bool isSet, const QByteArray &value) const
    {
        if (isSet) {
            qputenv(m_name, value);
        } else {
            qunsetenv(m_name);
        }
    }

    const char *m_name;
    QByteArray m_before;
    bool m_wasSet;
};

/// Makes a drive of a sandbox's prefix; `target` is what the link says.
void addDrive(const Sandbox &sandbox, const QString &drive, const QString &target)
{
    QVERIFY(QFile::link(target, sandbox.prefix() + "/dosdevices/" + drive));
}

} // namespace

class TestPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowsPathsLieOnTheirDrives_data();
    void windowsPathsLieOnTheirDrives();
    void namesAreFoundBlindToCase_data();
    void namesAreFoundBlindToCase();
    void exactSpellingWinsOverOthers();
    void accentsAreFoundBlindToCase();
    void unreadableFolderKeepsTheSpellingBelowIt();
    void hostPathStaysAsItIs();
    void pathWithoutDriveStartsAtTheCurrentDirectory();
    void currentDirectoryIsAWindowsPath();
    void currentDirectoryMustExist();
    void missingDriveIsUnavailable_data();
    void missingDriveIsUnavailable();
    void namesWindowsRefusesAreBad_data();
    void namesWindowsRefusesAreBad();
    void namesWindowsTakes_data();
    void namesWindowsTakes();
    void emptyPathIsABadName();
    void drivesAreTheLinksInLetterOrder();
    void prefixWithoutDrivesHasNone();
    void hostPathsAreShownUnderTheLongestDrive_data();
    void hostPathsAreShownUnderTheLongestDrive();
    void driveIsKnownByItsLinkToo();
    void everyPathComesBack();
    void systemDirectoryIsThatOfThePrefix();
    void winePrefixComesBeforeTheHomes();
    void homesWinePrefixComesBeforeOurOwn();
    void ownPrefixIsMadeWithItsDrives();
    void joinPutsExactlyOneBackslash_data();
    void joinPutsExactlyOneBackslash();
    void fileNameFollowsTheLastBackslash_data();
    void fileNameFollowsTheLastBackslash();
};

void TestPaths::windowsPathsLieOnTheirDrives_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("below"); // the drive's folder
    const auto row = [](const char *path, const char *below) {
        QTest::newRow(path) << path << below;
    };
    row("C:\\", "");
    row("C:", "");
    row("c:\\Morlen", "/Morlen");
    row("C:\\Morlen\\", "/Morlen");
    row("C:/Morlen/new.txt", "/Morlen/new.txt");
    row("C:\\Morlen\\\\new.txt", "/Morlen/new.txt");
    row("C:\\Morlen\\.\\new.txt", "/Morlen/new.txt");
    row("C:\\Morlen\\..\\new.txt", "/new.txt");
    row("C:\\Morlen\\a\\..\\..\\b/..\\new.txt", "/new.txt");
    row("C:\\..\\..\\new.txt", "/new.txt");
    row("C:\\Nowhere\\At All\\new.txt", "/Nowhere/At All/new.txt");
    row("\\Morlen\\new.txt", "/Morlen/new.txt");
}

void TestPaths::windowsPathsLieOnTheirDrives()
{
    QFETCH(QString, path);
    QFETCH(QString, below);
    const Sandbox sandbox;
    QCOMPARE(paths::toHost(path), QDir(sandbox.prefix() + "/drive_c").canonicalPath() + below);
}

void TestPaths::namesAreFoundBlindToCase_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("as spelled") << "C:\\FS9\\Aircraft\\B737 Blue\\Aircraft.cfg";
    QTest::newRow("lower") << "c:\\fs9\\aircraft\\b737 blue\\aircraft.cfg";
    QTest::newRow("upper") << "C:\\FS9\\AIRCRAFT\\B737 BLUE\\AIRCRAFT.CFG";
    QTest::newRow("slashes") << "c:/fs9/AirCraft/b737 BLUE/aircraft.CFG";
}

void TestPaths::namesAreFoundBlindToCase()
{
    QFETCH(QString, path);
    const Sandbox sandbox;
    const QString spelled = "C:\\FS9\\Aircraft\\B737 Blue\\Aircraft.cfg";
    sandbox.write(spelled, "");
    QCOMPARE(paths::toHost(path), sandbox.host(spelled));
    QCOMPARE(paths::toHost(path + "\\..\\NEW.txt"),
             sandbox.host("C:\\FS9\\Aircraft\\B737 Blue\\NEW.txt"));
}

void TestPaths::exactSpellingWinsOverOthers()
{
    const Sandbox sandbox;
    for (const QString name : {"Set", "set", "SET"}) {
        sandbox.write("C:\\Morlen\\" + name + "\\a.txt", "");
    }
    for (const QString name : {"Set", "set", "SET"}) {
        QCOMPARE(paths::toHost("C:\\MORLEN\\" + name + "\\A.TXT"),
                 sandbox.host("C:\\Morlen\\" + name + "\\a.txt"));
    }
}

void TestPaths::accentsAreFoundBlindToCase()
{
    const Sandbox sandbox;
    const QString spelled = QString::fromUtf8("C:\\Flüge\\Île-de-France\\Öl Łódź.txt");
    sandbox.write(spelled, "");
    QCOMPARE(paths::toHost(spelled.toLower()), sandbox.host(spelled));
    QCOMPARE(paths::toHost(QString::fromUtf8("c:\\FLÜGE\\ÎLE-DE-FRANCE\\ÖL ŁÓDŹ.TXT")),
             sandbox.host(spelled));
}

void TestPaths::unreadableFolderKeepsTheSpellingBelowIt()
{
    const Sandbox sandbox;
    sandbox.write("C:\\Closed\\a.txt", "");
    QVERIFY(QFile::setPermissions(sandbox.host("C:\\Closed"), QFile::ExeOwner));
    const OrdinaryUser user(sandbox);
    QCOMPARE(paths::toHost("C:\\closed\\a.txt"), sandbox.host("C:\\Closed\\a.txt"));
    QCOMPARE(paths::toHost("C:\\closed\\A.txt"), sandbox.host("C:\\Closed\\A.txt"));
}

void TestPaths::hostPathStaysAsItIs()
{
    const Sandbox sandbox;
    QCOMPARE(paths::toHost("/usr/share/../Not There"), "/usr/share/../Not There");
}

void TestPaths::pathWithoutDriveStartsAtTheCurrentDirectory()
{
    const Sandbox sandbox;
    sandbox.write("C:\\Morlen\\Docs\\Help.htm", "");
    QCOMPARE(paths::toHost("docs\\help.HTM"), sandbox.host("C:\\Morlen\\Docs\\Help.htm"));
    QCOMPARE(paths::toHost("..\\TTools"), sandbox.host("C:\\TTools"));
    QCOMPARE(paths::toHost("."), sandbox.host("C:\\Morlen"));
}

void TestPaths::currentDirectoryIsAWindowsPath()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\FS9\\Aircraft");
    QCOMPARE(paths::currentDirectory(), "C:\\Morlen");
    paths::setCurrentDirectory("c:\\fs9\\aircraft\\");
    QCOMPARE(paths::currentDirectory(), "C:\\FS9\\Aircraft");
    paths::setCurrentDirectory("C:\\");
    QCOMPARE(paths::currentDirectory(), "C:\\");
}

void TestPaths::currentDirectoryMustExist()
{
    const Sandbox sandbox;
    sandbox.write("C:\\a.txt", "");
    for (const QString path : {"C:\\Nowhere", "C:\\a.txt"}) {
        QCOMPARE(failureOf([&] { paths::setCurrentDirectory(path); }), "76 Path not found");
    }
    QCOMPARE(paths::currentDirectory(), "C:\\Morlen");
}

void TestPaths::missingDriveIsUnavailable_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no link") << "Q:\\Aircraft";
    QTest::newRow("link to nothing") << "D:\\Aircraft";
    QTest::newRow("the root alone") << "q:";
}

void TestPaths::missingDriveIsUnavailable()
{
    QFETCH(QString, path);
    const Sandbox sandbox;
    addDrive(sandbox, "d:", "/nowhere/at/all");
    QCOMPARE(failureOf([&] { paths::toHost(path); }), "68 Device unavailable");
}

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

void TestPaths::drivesAreTheLinksInLetterOrder()
{
    const Sandbox sandbox;
    addDrive(sandbox, "g:", sandbox.prefix());
    addDrive(sandbox, "d:", "../drive_c/Morlen");
    addDrive(sandbox, "e:", "/nowhere/at/all");
    addDrive(sandbox, "c::", "/dev"); // the device behind a drive
    addDrive(sandbox, "com1", "/dev");
    addDrive(sandbox, "1:", "/");
    QCOMPARE(paths::drives(), (QStringList{"c:", "d:", "g:", "z:"}));
}

void TestPaths::prefixWithoutDrivesHasNone()
{
    const Sandbox sandbox;
    const Environment elsewhere("WINEPREFIX", QFile::encodeName(sandbox.prefix() + "/nowhere"));
    QCOMPARE(paths::drives(), QStringList());
    QCOMPARE(failureOf([] { paths::toHost("C:\\"); }), "68 Device unavailable");
}

void TestPaths::hostPathsAreShownUnderTheLongestDrive_data()
{
    QTest::addColumn<QString>("host"); // "%1" is the prefix
    QTest::addColumn<QString>("path");
    const auto row = [](const char *host, const char *path) {
        QTest::newRow(host) << host << path;
    };
    row("%1/drive_c", "C:\\");
    row("%1/drive_c/", "C:\\");
    row("%1/drive_c/FS9/Aircraft", "C:\\FS9\\Aircraft");
    row("%1/drive_c/FS9/Aircraft/", "C:\\FS9\\Aircraft");
    row("%1/drive_c/FS9//./Aircraft/../Docs", "C:\\FS9\\Docs");
    row("%1/drive_c/Data", "D:\\");
    row("%1/drive_c/Data/a.txt", "D:\\a.txt");
    row("%1/drive_c/Database/a.txt", "C:\\Database\\a.txt");
    row("%1/drive_cd/a.txt", "Z:%1/drive_cd/a.txt");
    row("/", "Z:\\");
    row("/usr/share", "Z:\\usr\\share");
}

void TestPaths::hostPathsAreShownUnderTheLongestDrive()
{
    QFETCH(QString, host);
    QFETCH(QString, path);
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\Data");
    addDrive(sandbox, "d:", "../drive_c/Data");
    const QString prefix = QDir(sandbox.prefix()).canonicalPath();
    QCOMPARE(paths::fromHost(QString(host).replace("%1", prefix)),
             QString(path).replace("%1", prefix).replace('/', '\\'));
}

void TestPaths::driveIsKnownByItsLinkToo()
{
    const Sandbox sandbox;
    const QString links = sandbox.prefix() + "/dosdevices";
    QVERIFY(QFile::link(sandbox.host("C:\\Morlen"), sandbox.prefix() + "/shortcut"));
    addDrive(sandbox, "m:", sandbox.prefix() + "/shortcut");
    QCOMPARE(paths::fromHost(links + "/c:/FS9"), "C:\\FS9");
    QCOMPARE(paths::fromHost(sandbox.prefix() + "/shortcut/a.txt"), "M:\\a.txt");
    QCOMPARE(paths::fromHost(sandbox.host("C:\\Morlen\\a.txt")), "M:\\a.txt");
}

void TestPaths::everyPathComesBack()
{
    const Sandbox sandbox;
    for (const QString &path :
         {QString("C:\\"), QString("C:\\FS9\\Aircraft\\B737 Blue"),
          QString::fromUtf8("C:\\Île\\Łódź.txt"), QString("Z:\\"), QString("Z:\\usr\\none")}) {
        QCOMPARE(paths::fromHost(paths::toHost(path)), path);
    }
}

void TestPaths::systemDirectoryIsThatOfThePrefix()
{
    const Sandbox sandbox;
    QCOMPARE(paths::windowsDirectory(), "C:\\windows");
    QCOMPARE(paths::systemDirectory(), "C:\\windows\\system32");
    QCOMPARE(paths::toHost(paths::systemDirectory()),
             sandbox.prefix() + "/drive_c/windows/system32");
}

void TestPaths::winePrefixComesBeforeTheHomes()
{
    const Sandbox sandbox;
    const Environment home("HOME", QFile::encodeName(sandbox.prefix()));
    QVERIFY(QDir(sandbox.prefix()).mkdir(".wine"));
    QCOMPARE(paths::prefix(), sandbox.prefix());
}

void TestPaths::homesWinePrefixComesBeforeOurOwn()
{
    const Sandbox sandbox;
    const Environment home("HOME", QFile::encodeName(sandbox.prefix()));
    QVERIFY(QDir(sandbox.prefix()).mkdir(".wine"));
    for (const QByteArray &none : {QByteArray(), QByteArray("")}) {
        const Environment noPrefix("WINEPREFIX", none);
        QCOMPARE(paths::prefix(), sandbox.prefix() + "/.wine");
    }
}

void TestPaths::ownPrefixIsMadeWithItsDrives()
{
    const Sandbox sandbox;
    const Environment home("HOME", QFile::encodeName(sandbox.prefix()));
    const Environment data("XDG_DATA_HOME", QFile::encodeName(sandbox.prefix() + "/data"));
    const Environment noPrefix("WINEPREFIX", QByteArray());
    const QString own = sandbox.prefix() + "/data/morlen-utilities";
    QCOMPARE(paths::prefix(), own);
    QCOMPARE(paths::drives(), (QStringList{"c:", "z:"}));
    QCOMPARE(paths::toHost("C:\\Windows\\System32"), own + "/drive_c/windows/system32");
    QVERIFY(QFileInfo(own + "/drive_c/windows/system32").isDir());
    QCOMPARE(paths::toHost("Z:\\usr"), "/usr");
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
