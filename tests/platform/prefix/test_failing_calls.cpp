// SPDX-License-Identifier: MIT
// What is left when the system fails half way. The calls that fail are this program's own, which
// stand before the C library's.
#include "platform/files.h"
#include "platform/prefix/descriptor.h"
#include "platform/registry.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <functional>
#include <utility>

#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

constexpr auto file = "C:\\Morlen\\Aircraft.txt";

/// Each is asked before its call, and does it or fails itself; nothing where all is well.
std::function<ssize_t(int, const void *, std::size_t)> onWrite;
std::function<ssize_t(int, void *, std::size_t)> onRead;
std::function<int()> onSync;
std::function<bool()> onReadFolder; ///< whether the folder breaks off here
QByteArray staleFile;               ///< the end of a path that nothing is said of

ssize_t systemWrite(int descriptor, const void *bytes, std::size_t size)
{
    return ::syscall(SYS_write, descriptor, bytes, size);
}

ssize_t systemRead(int descriptor, void *bytes, std::size_t size)
{
    return ::syscall(SYS_read, descriptor, bytes, size);
}

int failing(int error)
{
    errno = error;
    return -1;
}

int look(const char *path, struct stat *info, int flags)
{
    return !staleFile.isEmpty() && QByteArrayView(path).endsWith(staleFile)
               ? failing(ESTALE)
               : static_cast<int>(::syscall(SYS_newfstatat, AT_FDCWD, path, info, flags));
}

/// Writes one byte, then fails for good.
auto failAfterOneByte(int error)
{
    return
        [error, first = true](int descriptor, const void *bytes, std::size_t) mutable -> ssize_t {
            return std::exchange(first, false) ? systemWrite(descriptor, bytes, 1) : failing(error);
        };
}

void appendDirectly(const Sandbox &sandbox, const QByteArray &bytes)
{
    const files::Descriptor other(
        ::open(QFile::encodeName(sandbox.host(file)).constData(), O_WRONLY | O_APPEND));
    QCOMPARE(systemWrite(other.get(), bytes.constData(), static_cast<std::size_t>(bytes.size())),
             bytes.size());
}

QStringList filesIn(const Sandbox &sandbox)
{
    return QDir(sandbox.host("C:\\Morlen")).entryList(QDir::Files | QDir::Hidden);
}

QByteArray longRegistry()
{
    QByteArray bytes = "WINE REGISTRY Version 2\n\n[Software\\\\Other] 1\n";
    for (int i = 0; i < 1000; ++i) {
        bytes += "\"Value" + QByteArray::number(i) + "\"=\"some text\"\n";
    }
    return bytes;
}

} // namespace

extern "C" {

ssize_t write(int descriptor, const void *bytes, std::size_t size)
{
    return onWrite ? onWrite(descriptor, bytes, size) : systemWrite(descriptor, bytes, size);
}

ssize_t read(int descriptor, void *bytes, std::size_t size)
{
    return onRead ? onRead(descriptor, bytes, size) : systemRead(descriptor, bytes, size);
}

int fsync(int descriptor)
{
    return onSync ? onSync() : static_cast<int>(::syscall(SYS_fsync, descriptor));
}

int stat(const char *path, struct stat *info) noexcept
{
    return look(path, info, 0);
}

int lstat(const char *path, struct stat *info) noexcept
{
    return look(path, info, AT_SYMLINK_NOFOLLOW);
}

dirent *readdir(DIR *folder)
{
    static const auto next = reinterpret_cast<dirent *(*)(DIR *)>(::dlsym(RTLD_NEXT, "readdir"));
    if (onReadFolder && onReadFolder()) {
        errno = EIO;
        return nullptr;
    }
    return next(folder);
}

} // extern "C"

class TestFailingCalls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void appendThatFailsAfterOneByteIsCutBack_data();
    void appendThatFailsAfterOneByteIsCutBack();
    void whatOthersAppendedIsNotCutBack_data();
    void whatOthersAppendedIsNotCutBack();
    void replacingThatFailsLeavesTheOldContent_data();
    void replacingThatFailsLeavesTheOldContent();
    void writingInPlaceNeedsTheRoomFirst();
    void failingSyncIsTold();
    void registryThatBreaksOffIsNotWrittenBack();
    void registryThatNothingIsSaidOfIsNotTakenForMissing();
    void registryThatIsNotFlushedStaysAsItWas();
    void folderThatBreaksOffIsNotAShortOne();
    void fileWithoutAnEndIsRefused();
};

void TestFailingCalls::cleanup()
{
    onWrite = nullptr;
    onRead = nullptr;
    onSync = nullptr;
    onReadFolder = nullptr;
    staleFile.clear();
}

void TestFailingCalls::appendThatFailsAfterOneByteIsCutBack_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("failure");
    QTest::newRow("full") << ENOSPC << "61 Disk full";
    QTest::newRow("broken") << EIO << "57 Device I/O error";
}

void TestFailingCalls::appendThatFailsAfterOneByteIsCutBack()
{
    QFETCH(int, error);
    QFETCH(QString, failure);
    const Sandbox sandbox;
    sandbox.write(file, "no line end");
    onWrite = failAfterOneByte(error);
    const QString actual = failureOf([] { files::appendLines(file, "new\r\n"); });
    onWrite = nullptr;
    QCOMPARE(actual, failure);
    QCOMPARE(sandbox.read(file), "no line end");
}

void TestFailingCalls::whatOthersAppendedIsNotCutBack_data()
{
    QTest::addColumn<bool>("goesOn"); // a byte of ours comes behind theirs
    QTest::newRow("behind ours") << false;
    QTest::newRow("between ours") << true;
}

void TestFailingCalls::whatOthersAppendedIsNotCutBack()
{
    QFETCH(bool, goesOn);
    const Sandbox sandbox;
    sandbox.write(file, "old\r\n");
    int calls = 0;
    onWrite = [&](int descriptor, const void *bytes, std::size_t) -> ssize_t {
        ++calls;
        if (calls == 2) {
            appendDirectly(sandbox, "theirs\r\n");
        }
        return calls == 1 || (goesOn && calls == 2) ? systemWrite(descriptor, bytes, 1)
                                                    : failing(ENOSPC);
    };
    const QString failure = failureOf([] { files::appendLines(file, "new\r\n"); });
    onWrite = nullptr;
    QCOMPARE(failure, "61 Disk full");
    QCOMPARE(sandbox.read(file), goesOn ? "old\r\nntheirs\r\ne" : "old\r\nntheirs\r\n");
}

void TestFailingCalls::replacingThatFailsLeavesTheOldContent_data()
{
    QTest::addColumn<bool>("inSync");
    QTest::newRow("write") << false;
    QTest::newRow("sync") << true;
}

void TestFailingCalls::replacingThatFailsLeavesTheOldContent()
{
    QFETCH(bool, inSync);
    const Sandbox sandbox;
    sandbox.write(file, "old");
    if (inSync) {
        onSync = [] { return failing(ENOSPC); };
    } else {
        onWrite = failAfterOneByte(ENOSPC);
    }
    const QString failure = failureOf([] { files::writeAll(file, "new content"); });
    cleanup();
    QCOMPARE(failure, "61 Disk full");
    QCOMPARE(sandbox.read(file), "old");
    QCOMPARE(filesIn(sandbox), QStringList{"Aircraft.txt"});
}

void TestFailingCalls::writingInPlaceNeedsTheRoomFirst()
{
    const Sandbox sandbox;
    sandbox.write(file, "old content");
    QVERIFY(QFile::setPermissions(sandbox.host("C:\\Morlen"), QFile::ReadOwner | QFile::ExeOwner));
    const OrdinaryUser user(sandbox);
    onWrite = failAfterOneByte(ENOSPC);
    const QString failure = failureOf([] { files::writeAll(file, "content that is longer"); });
    onWrite = nullptr;
    QCOMPARE(failure, "61 Disk full");
    QCOMPARE(sandbox.read(file), "old content");
    files::writeAll(file, "content that is longer");
    QCOMPARE(sandbox.read(file), "content that is longer");
    files::writeAll(file, "short");
    QCOMPARE(sandbox.read(file), "short");
}

void TestFailingCalls::failingSyncIsTold()
{
    const Sandbox sandbox;
    sandbox.write(file, "old");
    onSync = [] { return failing(EIO); };
    QCOMPARE(failureOf([] { files::sync(file); }), "57 Device I/O error");
}

void TestFailingCalls::registryThatBreaksOffIsNotWrittenBack()
{
    const Sandbox sandbox;
    const QByteArray bytes = longRegistry();
    sandbox.write("C:\\..\\user.reg", bytes);
    const auto registry = systemRegistry();
    const auto breakOff = [&] {
        onRead = [&, left = 2](int descriptor, void *buffer, std::size_t size) mutable -> ssize_t {
            return --left > 0 ? systemRead(descriptor, buffer, qMin<std::size_t>(size, 5000))
                              : failing(EIO);
        };
    };
    breakOff();
    QCOMPARE(failureOf([&] { registry->value(RegistryHive::CurrentUser, "K", "A"); }),
             "57 Device I/O error");
    breakOff();
    QCOMPARE(
        failureOf([&] { registry->setValue(RegistryHive::CurrentUser, "K", "A", QString("new")); }),
        "57 Device I/O error");
    onRead = nullptr;
    QVERIFY(sandbox.read("C:\\..\\user.reg") == bytes);
}

void TestFailingCalls::registryThatNothingIsSaidOfIsNotTakenForMissing()
{
    const Sandbox sandbox;
    const QByteArray bytes = longRegistry();
    sandbox.write("C:\\..\\user.reg", bytes);
    staleFile = "/user.reg";
    QCOMPARE(failureOf([] {
                 systemRegistry()->setValue(RegistryHive::CurrentUser, "K", "A", QString("new"));
             }),
             "");
    staleFile.clear();
    const QByteArray after = sandbox.read("C:\\..\\user.reg");
    QVERIFY(after.startsWith(bytes) && after.contains("\"A\"=\"new\""));
}

void TestFailingCalls::registryThatIsNotFlushedStaysAsItWas()
{
    const Sandbox sandbox;
    const QByteArray bytes = longRegistry();
    sandbox.write("C:\\..\\user.reg", bytes);
    onSync = [] { return failing(ENOSPC); };
    QCOMPARE(failureOf([&] {
                 systemRegistry()->setValue(RegistryHive::CurrentUser, "K", "A", QString("new"));
             }),
             "61 Disk full");
    QVERIFY(sandbox.read("C:\\..\\user.reg") == bytes);
}

void TestFailingCalls::folderThatBreaksOffIsNotAShortOne()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\Morlen\\one");
    sandbox.makeFolder("C:\\Morlen\\two");
    onReadFolder = [left = 4]() mutable { return --left == 0; };
    QCOMPARE(failureOf([] { files::subFolders("C:\\Morlen"); }), "57 Device I/O error");
}

void TestFailingCalls::fileWithoutAnEndIsRefused()
{
    const Sandbox sandbox;
    sandbox.write(file, ""); // the system tells no length
    onRead = [](int, void *, std::size_t size) { return static_cast<ssize_t>(size); };
    QCOMPARE(failureOf([] { files::readAll(file); }), "7 Out of memory");
}

QTEST_APPLESS_MAIN(TestFailingCalls)
#include "test_failing_calls.moc"
