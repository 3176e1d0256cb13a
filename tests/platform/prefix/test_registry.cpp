// SPDX-License-Identifier: MIT
// The registry of a Wine prefix: its views, and writing that harms nothing.
#include "platform/registry.h"

#include "platform/prefix/wine_server.h"
#include "tests/support/environment.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

const QByteArray sample = "WINE REGISTRY Version 2\n\n[K] 1\n\"B\"=\"before\"\n";

/// Another process that holds the lock of a Wine server, until it is dropped.
class LockHolder
{
public:
    LockHolder(const QString &prefix, const QString &serverRoot)
    {
        struct stat info = {};
        ::stat(QFile::encodeName(prefix).constData(), &info);
        const QString folder = QStringLiteral("%1/server-%2-%3")
                                   .arg(serverRoot)
                                   .arg(info.st_dev, 0, 16)
                                   .arg(info.st_ino, 0, 16);
        QDir().mkpath(folder);
        int ready[2] = {};
        if (::pipe(ready) != 0) {
            qFatal("no pipe");
        }
        m_id = ::fork();
        if (m_id == 0) {
            const int file =
                ::open(QFile::encodeName(folder + "/lock").constData(), O_RDWR | O_CREAT, 0600);
            struct flock lock = {};
            lock.l_type = F_WRLCK;
            const char held = ::fcntl(file, F_SETLK, &lock) == 0 ? 'y' : 'n';
            [[maybe_unused]] const ssize_t told = ::write(ready[1], &held, 1);
            ::pause();
        }
        char held = 0;
        if (::read(ready[0], &held, 1) != 1 || held != 'y') {
            qFatal("the lock is not held");
        }
        ::close(ready[0]);
        ::close(ready[1]);
    }

    ~LockHolder()
    {
        ::kill(m_id, SIGKILL);
        ::waitpid(m_id, nullptr, 0);
    }

private:
    pid_t m_id = 0;
};

} // namespace

class TestRegistry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void the32BitViewComesFirst();
    void aMissingPrefixIsAnEmptyRegistry();
    void aChangedFileIsReadAgain();
    void writingTheSameChangesNoByteAndNoTime();
    void writtenValuesAreReadBack();
    void aFileThatCannotBeReadIsAnErrorAndStays_data();
    void aFileThatCannotBeReadIsAnErrorAndStays();
    void aLockThatIsNoneOfOursIsNotTaken();
    void aFileWithoutTheRightToItIsReported_data();
    void aFileWithoutTheRightToItIsReported();
    void aRunningWineIsSeenByItsLock_data();
    void aRunningWineIsSeenByItsLock();
    void aRunningWineWritesItself();
    void aWineThatIsGoneIsNamed();
    void whatWineWasToldIsReadBackBeforeWineSavesIt();
};

void TestRegistry::the32BitViewComesFirst()
{
    const Sandbox sandbox;
    QFile file(sandbox.prefix() + "/system.reg");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("WINE REGISTRY Version 2\n\n[Software\\\\S] 1\n\"A\"=\"64\"\n\"B\"=\"only 64\"\n\n"
               "[Software\\\\Wow6432Node\\\\S] 1\n\"A\"=\"32\"\n");
    file.close();
    const auto registry = systemRegistry();
    QCOMPARE(*registry->text(RegistryHive::LocalMachine, "SOFTWARE\\S", "A"), QString("32"));
    QCOMPARE(*registry->text(RegistryHive::LocalMachine, "SOFTWARE\\S", "B"), QString("only 64"));
    QVERIFY(!registry->text(RegistryHive::CurrentUser, "SOFTWARE\\S", "A"));
}

void TestRegistry::aMissingPrefixIsAnEmptyRegistry()
{
    const Sandbox sandbox;
    const Environment nowhere("WINEPREFIX", "/nowhere/at/all");
    QVERIFY(!systemRegistry()->text(RegistryHive::LocalMachine, "SOFTWARE\\S", "A"));
}

void TestRegistry::aChangedFileIsReadAgain()
{
    const Sandbox sandbox;
    const auto registry = systemRegistry();
    QVERIFY(!registry->text(RegistryHive::CurrentUser, "K", "A"));
    QFile file(sandbox.prefix() + "/user.reg");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("WINE REGISTRY Version 2\n\n[K] 1\n\"A\"=\"b\"\n");
    file.close();
    QCOMPARE(*registry->text(RegistryHive::CurrentUser, "K", "A"), QString("b"));
}

void TestRegistry::writingTheSameChangesNoByteAndNoTime()
{
    const Sandbox sandbox;
    const auto registry = systemRegistry();
    registry->setValue(RegistryHive::CurrentUser, "K", "A", QString("b"));
    QFile file(sandbox.prefix() + "/user.reg");
    const QDateTime old = QDateTime::fromSecsSinceEpoch(1000000000);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(old, QFile::FileModificationTime));
    file.close();
    registry->setValue(RegistryHive::CurrentUser, "K", "A", QString("b"));
    QCOMPARE(QFileInfo(file).lastModified(), old);
}

void TestRegistry::writtenValuesAreReadBack()
{
    const Sandbox sandbox;
    const auto registry = systemRegistry();
    registry->createKey(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel\\X");
    registry->setValue(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel\\X", "T", QString("text"));
    registry->setValue(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel\\X", "N", std::uint32_t(7));
    const auto other = systemRegistry();
    QCOMPARE(*other->text(RegistryHive::CurrentUser, "software\\ostrel\\x", "t"), QString("text"));
    QCOMPARE(std::get<std::uint32_t>(
                 *other->value(RegistryHive::CurrentUser, "software\\ostrel\\x", "n")),
             7U);
}

void TestRegistry::aFileWithoutTheRightToItIsReported_data()
{
    QTest::addColumn<QFile::Permissions>("permissions");
    QTest::newRow("not writable") << QFile::Permissions(QFile::ReadOwner);
    QTest::newRow("not readable") << QFile::Permissions(QFile::WriteOwner);
}

void TestRegistry::aFileWithoutTheRightToItIsReported()
{
    QFETCH(QFile::Permissions, permissions);
    const Sandbox sandbox;
    QFile file(sandbox.prefix() + "/user.reg");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(sample);
    file.close();
    {
        QVERIFY(file.setPermissions(permissions));
        const OrdinaryUser user(sandbox);
        const auto registry = systemRegistry();
        QCOMPARE(failureOf([&] {
                     registry->setValue(RegistryHive::CurrentUser, "K", "A", QString("b"));
                 }),
                 "75 Path/File access error");
    }
    QVERIFY(file.setPermissions(QFile::ReadOwner));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), sample);
}

void TestRegistry::aFileThatCannotBeReadIsAnErrorAndStays_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::newRow("no right to read") << "rights";
    QTest::newRow("no right to its folder") << "closed";
    QTest::newRow("a folder in its place") << "folder";
    QTest::newRow("a link that leads in a circle") << "circle";
}

void TestRegistry::aFileThatCannotBeReadIsAnErrorAndStays()
{
    QFETCH(QString, obstacle);
    const Sandbox sandbox;
    QFile file(sandbox.prefix() + "/user.reg");
    if (obstacle == "folder") {
        QVERIFY(QDir().mkdir(file.fileName()));
    } else if (obstacle == "circle") {
        QVERIFY(QFile::link("user.reg", file.fileName()));
    } else {
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(sample) > 0);
        file.close();
        QVERIFY(QFile::setPermissions(obstacle == "closed" ? sandbox.prefix() : file.fileName(),
                                      QFile::WriteOwner));
    }
    {
        const OrdinaryUser user(sandbox);
        const auto registry = systemRegistry();
        QVERIFY(
            !failureOf([&] { registry->value(RegistryHive::CurrentUser, "K", "B"); }).isEmpty());
        QVERIFY(
            !failureOf([&] { registry->createKey(RegistryHive::CurrentUser, "New"); }).isEmpty());
        QVERIFY(!failureOf([&] {
                     registry->setValue(RegistryHive::CurrentUser, "K", "A", QString("b"));
                 }).isEmpty());
    }
    if (obstacle == "rights" || obstacle == "closed") {
        QVERIFY(QFile::setPermissions(sandbox.prefix(), QFile::ReadOwner | QFile::ExeOwner));
        QVERIFY(file.setPermissions(QFile::ReadOwner) && file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), sample);
    } else {
        QVERIFY(!QFileInfo(file.fileName()).isFile());
    }
}

/// A pipe would never answer, and a folder of somebody else says nothing about our Wine.
void TestRegistry::aLockThatIsNoneOfOursIsNotTaken()
{
    const Sandbox sandbox;
    const QTemporaryDir places;
    const WineServerPlaces wineServers{places.filePath("tmp"), places.filePath("run")};
    struct stat info = {};
    QCOMPARE(::stat(QFile::encodeName(sandbox.prefix()).constData(), &info), 0);
    const QString folder = QString("%1/tmp/.wine-%2/server-%3-%4")
                               .arg(places.path())
                               .arg(::getuid())
                               .arg(info.st_dev, 0, 16)
                               .arg(info.st_ino, 0, 16);
    QVERIFY(QDir().mkpath(folder));
    QCOMPARE(::mkfifo(QFile::encodeName(folder + "/lock").constData(), 0600), 0);
    QVERIFY(!isWineRunning(sandbox.prefix(), wineServers)); // and at once
    QVERIFY(QFile::remove(folder + "/lock"));

    const LockHolder other(sandbox.prefix(),
                           places.filePath(QString("tmp/.wine-%1").arg(::getuid())));
    QVERIFY(isWineRunning(sandbox.prefix(), wineServers));
    if (::geteuid() == 0) { // only root can give a folder away
        QCOMPARE(::chown(QFile::encodeName(folder).constData(), 65534, 65534), 0);
        QVERIFY(!isWineRunning(sandbox.prefix(), wineServers));
    }
}

void TestRegistry::aRunningWineIsSeenByItsLock_data()
{
    QTest::addColumn<QString>("serverRoot"); // %1: the user's number
    QTest::newRow("as Wine comes") << "tmp/.wine-%1";
    QTest::newRow("in the user's run folder") << "run/%1/wine";
    QTest::newRow("in a folder noted in the prefix") << "tmp/wine-aOH9xC";
    QTest::newRow("in a noted folder below $TMPDIR") << "elsewhere/wine-aOH9xC";
}

void TestRegistry::aRunningWineIsSeenByItsLock()
{
    QFETCH(QString, serverRoot);
    const Sandbox sandbox;
    const QTemporaryDir places;
    QFile note(sandbox.prefix() + "/wineserver");
    QVERIFY(note.open(QIODevice::WriteOnly));
    note.write("wine-aOH9xC");
    note.close();
    const Environment temporary("TMPDIR", QFile::encodeName(places.filePath("elsewhere")));
    const WineServerPlaces wineServers{places.filePath("tmp"), places.filePath("run")};
    QVERIFY(!isWineRunning(sandbox.prefix(), wineServers));
    if (serverRoot.contains('%')) {
        serverRoot = serverRoot.arg(::getuid());
    }
    {
        const LockHolder wine(sandbox.prefix(), places.filePath(serverRoot));
        QVERIFY(isWineRunning(sandbox.prefix(), wineServers));
    }
    QVERIFY(!isWineRunning(sandbox.prefix(), wineServers)); // the file alone says nothing
}

void TestRegistry::aRunningWineWritesItself()
{
    const Sandbox sandbox;
    QFile file(sandbox.prefix() + "/user.reg");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(sample);
    file.close();
    sandbox.write("C:\\bin\\wine", "#!/bin/sh\nprintf '%s\\n' \"$@\" >> \"$WINEPREFIX/said\"\n");
    QFile::setPermissions(sandbox.host("C:\\bin\\wine"), QFile::ReadOwner | QFile::ExeOwner);
    const Environment path("PATH", QFile::encodeName(sandbox.host("C:\\bin")) + ":/usr/bin:/bin");
    const LockHolder wine(sandbox.prefix(), QString("/tmp/.wine-%1").arg(::getuid()));
    systemRegistry()->setValue(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel", "A b",
                               QString("c d"));
    QFile said(sandbox.prefix() + "/said");
    QVERIFY(said.open(QIODevice::ReadOnly));
    QCOMPARE(said.readAll(),
             QByteArray("reg\nadd\nHKCU\\SOFTWARE\\Ostrel\n/v\nA b\n/t\nREG_SZ\n/d\nc d\n/f\n"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), sample);
}

void TestRegistry::aWineThatIsGoneIsNamed()
{
    const Sandbox sandbox;
    const Environment path("PATH", "/nowhere");
    const LockHolder wine(sandbox.prefix(), QString("/tmp/.wine-%1").arg(::getuid()));
    QCOMPARE(failureOf([] { systemRegistry()->createKey(RegistryHive::CurrentUser, "K"); }),
             "53 File not found: wine");
}

void TestRegistry::whatWineWasToldIsReadBackBeforeWineSavesIt()
{
    const Sandbox sandbox;
    sandbox.write("C:\\bin\\wine", "#!/bin/sh\necho x >> \"$WINEPREFIX/said\"\n");
    QFile::setPermissions(sandbox.host("C:\\bin\\wine"), QFile::ReadOwner | QFile::ExeOwner);
    const Environment path("PATH", QFile::encodeName(sandbox.host("C:\\bin")) + ":/usr/bin:/bin");
    const LockHolder wine(sandbox.prefix(), QString("/tmp/.wine-%1").arg(::getuid()));
    const auto registry = systemRegistry();
    for (int i = 0; i < 2; ++i) {
        registry->createKey(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel");
        registry->setValue(RegistryHive::CurrentUser, "SOFTWARE\\Ostrel", "A", QString("b"));
        QCOMPARE(*registry->text(RegistryHive::CurrentUser, "Software\\Ostrel", "A"), QString("b"));
    }
    QFile said(sandbox.prefix() + "/said");
    QVERIFY(said.open(QIODevice::ReadOnly));
    QCOMPARE(said.readAll(), QByteArray("x\nx\n")); // the key and the value, once each
}

QTEST_GUILESS_MAIN(TestRegistry)
#include "test_registry.moc"
