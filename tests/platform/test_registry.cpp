// SPDX-License-Identifier: MIT
// The registry of a Wine prefix: its text format, its views, and writing that harms nothing.
#include "platform/prefix/reg_file.h"
#include "platform/prefix/wine_server.h"
#include "platform/runtime_error.h"
#include "tests/support/sandbox.h"

#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

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

class TestRegistry : public QObject
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
    void missingFinalLineEndIsCompleted();
    void carriageReturnsAreKept();
    void anEmptyFileBecomesAValidOne();
    void the32BitViewComesFirst();
    void aMissingPrefixIsAnEmptyRegistry();
    void aChangedFileIsReadAgain();
    void writingTheSameChangesNoByteAndNoTime();
    void writtenValuesAreReadBack();
    void aReadOnlyFileIsReported();
    void aRunningWineIsSeenByItsLock_data();
    void aRunningWineIsSeenByItsLock();
    void aRunningWineWritesItself();
    void whatWineWasToldIsReadBackBeforeWineSavesIt();
};

void TestRegistry::textAndNumbersAreRead()
{
    const RegFile file(sample);
    QCOMPARE(textOf(file, pathKey, "Exe_Path"), QString("C:\\Pellara\\pellara.exe"));
    QCOMPARE(std::get<std::uint32_t>(*file.value(pathKey, "Count")), 42U);
}

void TestRegistry::keysAndNamesAreBlindToCase()
{
    const RegFile file(sample);
    QCOMPARE(textOf(file, "SOFTWARE\\ostrel\\PELLARA\\path", "EXE_path"),
             QString("C:\\Pellara\\pellara.exe"));
}

void TestRegistry::whatIsMissingOrOfAnotherTypeIsNothing()
{
    const RegFile file(sample);
    QVERIFY(!file.value(pathKey, "Exe"));
    QVERIFY(!file.value("Software\\Ostrel\\Pellara", "Exe_Path"));
    QVERIFY(!file.value("Software\\Ostrel\\Pellara\\Path\\More", "Exe_Path"));
    QVERIFY(!file.value("Control Panel\\Colors", "Blob"));
    QVERIFY(!file.value("Control Panel\\Colors", "Expand"));
    QVERIFY(!RegFile(QByteArray()).value(pathKey, "Exe_Path"));
}

void TestRegistry::escapesAreUndone()
{
    QCOMPARE(textOf(RegFile(sample), "Software\\Zuletzt", QString("caf") + QChar(0xE9)),
             QChar(0x20AC) + QString("5 \"neu\"\n"));
}

void TestRegistry::escapedTextComesBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "C:\\Program Files\\FS9";
    QTest::newRow("quotes and brackets") << "[a] \"b\" \\";
    QTest::newRow("accent before a hexadecimal figure") << QString(QChar(0xE9)) + "abc";
    QTest::newRow("beyond the code page") << QString::fromUtf8("Żółw 日本");
    QTest::newRow("control characters") << QString("\r\n\t\x01") + "7";
    QTest::newRow("empty") << "";
}

void TestRegistry::escapedTextComesBack()
{
    QFETCH(QString, text);
    RegFile file(sample);
    file.setValue("Software\\[New] " + text, text + 'n', text, 1);
    const RegFile again(file.bytes());
    QCOMPARE(textOf(again, "Software\\[New] " + text, text + 'n'), text);
    QCOMPARE(textOf(again, pathKey, "Exe_Path"), QString("C:\\Pellara\\pellara.exe"));
}

void TestRegistry::textStoredAsBytesIsRead()
{
    const RegFile file("[K] 1\n\"A\"=hex(1):43,00,3a,00,\\\n  5c,00,e9,00,ac,20\n"
                       "\"Empty\"=hex(1):\n\"Bytes\"=hex(3):41,00\n");
    QCOMPARE(textOf(file, "K", "A"), QString::fromUtf8("C:\\é€"));
    QCOMPARE(textOf(file, "K", "Empty"), QString());
    QCOMPARE(textOf(file, "K", "Bytes"), QString("(none)"));
}

void TestRegistry::aContinuedValueDoesNotHideTheNext()
{
    const RegFile file("[K] 1\n\"A\"=hex:01,\\\n  02,\\\n  03\n\"B\"=\"found\"\n");
    QCOMPARE(textOf(file, "K", "B"), QString("found"));
}

void TestRegistry::changedValueLeavesEveryOtherByte()
{
    RegFile file(sample);
    file.setValue(pathKey, "exe_path", QString("D:\\P"), 99);
    QCOMPARE(file.bytes(),
             QByteArray(sample).replace("\"Exe_Path\"=\"C:\\\\Pellara\\\\pellara.exe\"\n",
                                        "\"exe_path\"=\"D:\\\\P\"\n"));
}

void TestRegistry::longerValueThatWasContinuedIsReplacedWhole()
{
    RegFile file(sample);
    file.setValue("Control Panel\\Colors", "Blob", QString("x"), 99);
    QCOMPARE(file.bytes(),
             QByteArray(sample).replace("\"Blob\"=hex:01,02,\\\n  03,04\n", "\"Blob\"=\"x\"\n"));
}

void TestRegistry::newValueGoesBehindTheKeysLast()
{
    RegFile file(sample);
    file.setValue(pathKey, "New", std::uint32_t(255), 99);
    QCOMPARE(file.bytes(),
             QByteArray(sample).replace("\"Count\"=dword:0000002a\n",
                                        "\"Count\"=dword:0000002a\n\"New\"=dword:000000ff\n"));
}

void TestRegistry::newKeyGoesToTheEnd()
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

void TestRegistry::missingFinalLineEndIsCompleted()
{
    RegFile file(sample.chopped(1));
    file.setValue("Software\\Zuletzt", "b", QString("c"), 1);
    QCOMPARE(file.bytes(), sample + "\"b\"=\"c\"\n");
}

void TestRegistry::carriageReturnsAreKept()
{
    const QByteArray crlf = QByteArray(sample).replace("\n", "\r\n");
    RegFile file(crlf);
    QCOMPARE(textOf(file, pathKey, "Exe_Path"), QString("C:\\Pellara\\pellara.exe"));
    file.setValue(pathKey, "Count", QString("n"), 1);
    QCOMPARE(file.bytes(),
             QByteArray(crlf).replace("\"Count\"=dword:0000002a\r\n", "\"Count\"=\"n\"\r\n"));
}

void TestRegistry::anEmptyFileBecomesAValidOne()
{
    RegFile file{QByteArray()};
    file.setValue("Software\\A", "B", QString("C"), 0);
    QCOMPARE(file.bytes(), QByteArray("WINE REGISTRY Version 2\n\n[Software\\\\A] 0\n"
                                      "#time=19db1ded53e8000\n\"B\"=\"C\"\n"));
}

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
    qputenv("WINEPREFIX", "/nowhere/at/all");
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

void TestRegistry::aReadOnlyFileIsReported()
{
    const Sandbox sandbox;
    QFile file(sandbox.prefix() + "/user.reg");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(sample);
    file.close();
    file.setPermissions(QFile::ReadOwner);
    const OrdinaryUser user(sandbox);
    try {
        systemRegistry()->setValue(RegistryHive::CurrentUser, "K", "A", QString("b"));
        QFAIL("written all the same");
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number(), 75);
    }
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), sample);
}

namespace
{

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
    const QByteArray temporary = qgetenv("TMPDIR");
    const bool hadTemporary = qEnvironmentVariableIsSet("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(places.filePath("elsewhere")));
    const auto restore =
        qScopeGuard([&] { hadTemporary ? qputenv("TMPDIR", temporary) : qunsetenv("TMPDIR"); });

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
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(sandbox.host("C:\\bin")) + ':' + path);
    const auto restore = qScopeGuard([&] { qputenv("PATH", path); });

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

void TestRegistry::whatWineWasToldIsReadBackBeforeWineSavesIt()
{
    const Sandbox sandbox;
    sandbox.write("C:\\bin\\wine", "#!/bin/sh\necho x >> \"$WINEPREFIX/said\"\n");
    QFile::setPermissions(sandbox.host("C:\\bin\\wine"), QFile::ReadOwner | QFile::ExeOwner);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(sandbox.host("C:\\bin")) + ':' + path);
    const auto restore = qScopeGuard([&] { qputenv("PATH", path); });

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
