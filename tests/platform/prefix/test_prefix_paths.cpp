// SPDX-License-Identifier: MIT
// Windows paths on a Wine prefix.
#include "platform/paths.h"
#include "platform/prefix/prefix.h"
#include "tests/support/environment.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QtTest>

namespace
{

/// Makes a drive of a sandbox's prefix; `target` is what the link says.
void addDrive(const Sandbox &sandbox, const QString &drive, const QString &target)
{
    QVERIFY(QFile::link(target, sandbox.prefix() + "/dosdevices/" + drive));
}

} // namespace

class TestPrefixPaths : public QObject
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
    void drivesAreTheLinksInLetterOrder();
    void prefixWithoutDrivesHasNone();
    void pathThatIsTooLongIsRefusedAtOnce();
    void hostPathsAreShownUnderTheLongestDrive_data();
    void hostPathsAreShownUnderTheLongestDrive();
    void driveIsKnownByItsLinkToo();
    void everyPathComesBack();
    void winePrefixComesBeforeTheHomes();
    void homesWinePrefixComesBeforeOurOwn();
    void ownPrefixIsMadeWithItsDrives();
};

void TestPrefixPaths::windowsPathsLieOnTheirDrives_data()
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

void TestPrefixPaths::windowsPathsLieOnTheirDrives()
{
    QFETCH(QString, path);
    QFETCH(QString, below);
    const Sandbox sandbox;
    QCOMPARE(paths::toHost(path), QDir(sandbox.prefix() + "/drive_c").canonicalPath() + below);
}

void TestPrefixPaths::namesAreFoundBlindToCase_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("as spelled") << "C:\\FS9\\Aircraft\\B737 Blue\\Aircraft.cfg";
    QTest::newRow("lower") << "c:\\fs9\\aircraft\\b737 blue\\aircraft.cfg";
    QTest::newRow("upper") << "C:\\FS9\\AIRCRAFT\\B737 BLUE\\AIRCRAFT.CFG";
    QTest::newRow("slashes") << "c:/fs9/AirCraft/b737 BLUE/aircraft.CFG";
}

void TestPrefixPaths::namesAreFoundBlindToCase()
{
    QFETCH(QString, path);
    const Sandbox sandbox;
    const QString spelled = "C:\\FS9\\Aircraft\\B737 Blue\\Aircraft.cfg";
    sandbox.write(spelled, "");
    QCOMPARE(paths::toHost(path), sandbox.host(spelled));
    QCOMPARE(paths::toHost(path + "\\..\\NEW.txt"),
             sandbox.host("C:\\FS9\\Aircraft\\B737 Blue\\NEW.txt"));
}

void TestPrefixPaths::exactSpellingWinsOverOthers()
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

void TestPrefixPaths::accentsAreFoundBlindToCase()
{
    const Sandbox sandbox;
    const QString spelled = QString::fromUtf8("C:\\Flüge\\Île-de-France\\Öl Łódź.txt");
    sandbox.write(spelled, "");
    QCOMPARE(paths::toHost(spelled.toLower()), sandbox.host(spelled));
    QCOMPARE(paths::toHost(QString::fromUtf8("c:\\FLÜGE\\ÎLE-DE-FRANCE\\ÖL ŁÓDŹ.TXT")),
             sandbox.host(spelled));
}

void TestPrefixPaths::unreadableFolderKeepsTheSpellingBelowIt()
{
    const Sandbox sandbox;
    sandbox.write("C:\\Closed\\a.txt", "");
    QVERIFY(QFile::setPermissions(sandbox.host("C:\\Closed"), QFile::ExeOwner));
    const OrdinaryUser user(sandbox);
    QCOMPARE(paths::toHost("C:\\closed\\a.txt"), sandbox.host("C:\\Closed\\a.txt"));
    QCOMPARE(paths::toHost("C:\\closed\\A.txt"), sandbox.host("C:\\Closed\\A.txt"));
}

void TestPrefixPaths::hostPathStaysAsItIs()
{
    const Sandbox sandbox;
    QCOMPARE(paths::toHost("/usr/share/../Not There"), "/usr/share/../Not There");
}

void TestPrefixPaths::pathWithoutDriveStartsAtTheCurrentDirectory()
{
    const Sandbox sandbox;
    sandbox.write("C:\\Morlen\\Docs\\Help.htm", "");
    QCOMPARE(paths::toHost("docs\\help.HTM"), sandbox.host("C:\\Morlen\\Docs\\Help.htm"));
    QCOMPARE(paths::toHost("..\\TTools"), sandbox.host("C:\\TTools"));
    QCOMPARE(paths::toHost("."), sandbox.host("C:\\Morlen"));
}

void TestPrefixPaths::currentDirectoryIsAWindowsPath()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\FS9\\Aircraft");
    QCOMPARE(paths::currentDirectory(), "C:\\Morlen");
    paths::setCurrentDirectory("c:\\fs9\\aircraft\\");
    QCOMPARE(paths::currentDirectory(), "C:\\FS9\\Aircraft");
    paths::setCurrentDirectory("C:\\");
    QCOMPARE(paths::currentDirectory(), "C:\\");
}

void TestPrefixPaths::currentDirectoryMustExist()
{
    const Sandbox sandbox;
    sandbox.write("C:\\a.txt", "");
    for (const QString path : {"C:\\Nowhere", "C:\\a.txt"}) {
        QCOMPARE(failureOf([&] { paths::setCurrentDirectory(path); }), "76 Path not found");
    }
    QCOMPARE(paths::currentDirectory(), "C:\\Morlen");
}

void TestPrefixPaths::missingDriveIsUnavailable_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no link") << "Q:\\Aircraft";
    QTest::newRow("link to nothing") << "D:\\Aircraft";
    QTest::newRow("the root alone") << "q:";
}

void TestPrefixPaths::missingDriveIsUnavailable()
{
    QFETCH(QString, path);
    const Sandbox sandbox;
    addDrive(sandbox, "d:", "/nowhere/at/all");
    QCOMPARE(failureOf([&] { paths::toHost(path); }), "68 Device unavailable");
}

void TestPrefixPaths::drivesAreTheLinksInLetterOrder()
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

void TestPrefixPaths::pathThatIsTooLongIsRefusedAtOnce()
{
    const Sandbox sandbox;
    const QString path = "C:\\" + QString("a\\").repeated(1'000'000);
    QCOMPARE(failureOf([&] { paths::toHost(path); }), "52 Bad file name or number");
}

void TestPrefixPaths::prefixWithoutDrivesHasNone()
{
    const Sandbox sandbox;
    const Environment elsewhere("WINEPREFIX", QFile::encodeName(sandbox.prefix() + "/nowhere"));
    QCOMPARE(paths::drives(), QStringList());
    QCOMPARE(failureOf([] { paths::toHost("C:\\"); }), "68 Device unavailable");
}

void TestPrefixPaths::hostPathsAreShownUnderTheLongestDrive_data()
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

void TestPrefixPaths::hostPathsAreShownUnderTheLongestDrive()
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

void TestPrefixPaths::driveIsKnownByItsLinkToo()
{
    const Sandbox sandbox;
    const QString links = sandbox.prefix() + "/dosdevices";
    QVERIFY(QFile::link(sandbox.host("C:\\Morlen"), sandbox.prefix() + "/shortcut"));
    addDrive(sandbox, "m:", sandbox.prefix() + "/shortcut");
    QCOMPARE(paths::fromHost(links + "/c:/FS9"), "C:\\FS9");
    QCOMPARE(paths::fromHost(sandbox.prefix() + "/shortcut/a.txt"), "M:\\a.txt");
    QCOMPARE(paths::fromHost(sandbox.host("C:\\Morlen\\a.txt")), "M:\\a.txt");
}

void TestPrefixPaths::everyPathComesBack()
{
    const Sandbox sandbox;
    for (const QString &path :
         {QString("C:\\"), QString("C:\\FS9\\Aircraft\\B737 Blue"),
          QString::fromUtf8("C:\\Île\\Łódź.txt"), QString("Z:\\"), QString("Z:\\usr\\none")}) {
        QCOMPARE(paths::fromHost(paths::toHost(path)), path);
    }
}

void TestPrefixPaths::winePrefixComesBeforeTheHomes()
{
    const Sandbox sandbox;
    const Environment home("HOME", QFile::encodeName(sandbox.prefix()));
    QVERIFY(QDir(sandbox.prefix()).mkdir(".wine"));
    QCOMPARE(paths::prefix(), sandbox.prefix());
}

void TestPrefixPaths::homesWinePrefixComesBeforeOurOwn()
{
    const Sandbox sandbox;
    const Environment home("HOME", QFile::encodeName(sandbox.prefix()));
    QVERIFY(QDir(sandbox.prefix()).mkdir(".wine"));
    for (const QByteArray &none : {QByteArray(), QByteArray("")}) {
        const Environment noPrefix("WINEPREFIX", none);
        QCOMPARE(paths::prefix(), sandbox.prefix() + "/.wine");
    }
}

void TestPrefixPaths::ownPrefixIsMadeWithItsDrives()
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

QTEST_GUILESS_MAIN(TestPrefixPaths)
#include "test_prefix_paths.moc"
