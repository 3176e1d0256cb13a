// SPDX-License-Identifier: MIT
// Files as Windows has them: its error codes, what others have open, attributes, long paths.
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/windows/handle.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QtTest>

namespace
{

const QString file = QStringLiteral("C:\\Morlen\\Aircraft.txt");
const QString other = QStringLiteral("C:\\Morlen\\Other.txt");

std::wstring hostName(const Sandbox &sandbox, const QString &path)
{
    return sandbox.host(path).toStdWString();
}

/// A file that somebody else has open, and shares as they please.
files::Handle opened(const Sandbox &sandbox, DWORD access, DWORD shared)
{
    return files::Handle(::CreateFileW(hostName(sandbox, file).c_str(), access, shared, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

} // namespace

class TestWindowsFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void errorCodesAreTheClassicNumbers_data();
    void errorCodesAreTheClassicNumbers();
    void whatAnEditorHasOpenIsReadAndWritten();
    void whatAnotherKeepsForItselfIsDenied();
    void readOnlyFileIsReadNotWritten();
    void hiddenFileStaysHiddenWhenReplaced();
    void hiddenFoldersAreLeftOut();
    void pathsLongerThanWindowsOwnLimit();
    void namesOutsideTheCodePage();
    void sameFileIsKnownByItsOtherNames();
    void whatAKilledProgramLeftIsRemoved();
    void fileBeyondTheLimitIsRefused();
    void lockIsWaitedFor();
};

void TestWindowsFiles::errorCodesAreTheClassicNumbers_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("number");
    const auto row = [](int code, int number) {
        QTest::newRow(qPrintable(QString::number(code))) << code << number;
    };
    row(2, 53);  // file not found
    row(3, 76);  // path not found
    row(5, 75);  // access denied
    row(19, 70); // write-protected
    row(32, 70); // in use
    row(33, 70); // locked
    row(39, 61); // disk full
    row(112, 61);
    row(15, 68); // no such drive
    row(21, 68); // not ready
    row(1167, 68);
    row(123, 52); // name refused
    row(23, 57);  // a broken disk, and everything else
    row(1392, 57);
}

void TestWindowsFiles::errorCodesAreTheClassicNumbers()
{
    QFETCH(int, code);
    QTEST(static_cast<int>(files::errorNumber(static_cast<DWORD>(code))), "number");
    ::SetLastError(static_cast<DWORD>(code));
    QVERIFY(failureOf([] { files::throwLastError(); })
                .startsWith(QString::number(
                    static_cast<int>(files::errorNumber(static_cast<DWORD>(code))))));
}

void TestWindowsFiles::whatAnEditorHasOpenIsReadAndWritten()
{
    const Sandbox sandbox;
    sandbox.write(file, "old\r\n");
    const files::Handle editor =
        opened(sandbox, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
    QVERIFY(editor.isOpen());
    QCOMPARE(files::readAll(file), "old\r\n");
    files::appendLines(file, "new\r\n");
    QCOMPARE(files::readAll(file), "old\r\nnew\r\n");
}

void TestWindowsFiles::whatAnotherKeepsForItselfIsDenied()
{
    const Sandbox sandbox;
    sandbox.write(file, "old\r\n");
    const files::Handle greedy = opened(sandbox, GENERIC_READ | GENERIC_WRITE, 0);
    QVERIFY(greedy.isOpen());
    QCOMPARE(failureOf([] { files::readAll(file); }), "70 Permission denied");
    QCOMPARE(failureOf([] { files::appendLines(file, "new\r\n"); }), "70 Permission denied");
    QCOMPARE(failureOf([] { files::writeAll(file, "new\r\n"); }), "70 Permission denied");
    QVERIFY(files::exists(file));
}

void TestWindowsFiles::readOnlyFileIsReadNotWritten()
{
    const Sandbox sandbox;
    sandbox.write(file, "old\r\n");
    sandbox.write(other, "other\r\n");
    QVERIFY(::SetFileAttributesW(hostName(sandbox, file).c_str(), FILE_ATTRIBUTE_READONLY) != 0);
    if (opened(sandbox, GENERIC_WRITE, 7).isOpen()) {
        QSKIP("Wine lets root write read-only files");
    }
    QCOMPARE(failureOf([] { files::appendLines(file, "new\r\n"); }), "75 Path/File access error");
    QCOMPARE(failureOf([] { files::writeAll(file, "new\r\n"); }), "75 Path/File access error");
    QCOMPARE(failureOf([] { files::copy(other, file); }), "75 Path/File access error");
    QCOMPARE(files::readAll(file), "old\r\n");
    ::SetFileAttributesW(hostName(sandbox, file).c_str(), FILE_ATTRIBUTE_NORMAL);
}

void TestWindowsFiles::hiddenFileStaysHiddenWhenReplaced()
{
    const Sandbox sandbox;
    sandbox.write(file, "old\r\n");
    ::SetFileAttributesW(hostName(sandbox, file).c_str(), FILE_ATTRIBUTE_HIDDEN);
    files::writeAll(file, "new\r\n");
    QCOMPARE(sandbox.read(file), "new\r\n");
    const DWORD attributes = ::GetFileAttributesW(hostName(sandbox, file).c_str());
    QVERIFY((attributes & FILE_ATTRIBUTE_HIDDEN) != 0);
}

void TestWindowsFiles::hiddenFoldersAreLeftOut()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\FS9\\Seen");
    sandbox.makeFolder("C:\\FS9\\Unseen");
    ::SetFileAttributesW(hostName(sandbox, "C:\\FS9\\Unseen").c_str(), FILE_ATTRIBUTE_HIDDEN);
    QCOMPARE(files::subFolders("C:\\FS9"), QStringList{"Seen"});
}

void TestWindowsFiles::pathsLongerThanWindowsOwnLimit()
{
    const Sandbox sandbox;
    QString folder = "C:\\FS9";
    sandbox.makeFolder(folder);
    while (folder.size() < 400) {
        folder += "\\a folder of aircraft whose name goes on for a while";
        QVERIFY(::CreateDirectoryW(files::hostName(folder).c_str(), nullptr) != 0);
    }
    const QString deep = folder + "\\aircraft.cfg";
    files::writeAll(deep, "title=Deep\r\n");
    files::appendLines(deep, "more\r\n");
    QCOMPARE(files::readAll(deep), "title=Deep\r\nmore\r\n");
    QCOMPARE(files::filesMatching(folder, "*.cfg"), QStringList{"aircraft.cfg"});
    QVERIFY(files::isFolder(folder));
    files::remove(deep);
    QVERIFY(!files::exists(deep));
}

void TestWindowsFiles::namesOutsideTheCodePage()
{
    const Sandbox sandbox;
    const QString path = QString::fromUtf8("C:\\Łódź 飛行機\\Flüge.txt");
    sandbox.makeFolder(QString::fromUtf8("C:\\Łódź 飛行機"));
    files::writeAll(path, "content");
    QCOMPARE(files::readAll(path), "content");
    QCOMPARE(files::filesMatching(QString::fromUtf8("C:\\łódź 飛行機"), "*"),
             QStringList{QString::fromUtf8("Flüge.txt")});
}

void TestWindowsFiles::sameFileIsKnownByItsOtherNames()
{
    const Sandbox sandbox;
    sandbox.write(file, "x");
    sandbox.write(other, "x");
    QVERIFY(files::isSame(file, "c:/MORLEN/.\\aircraft.TXT"));
    QVERIFY(files::isSame(file, "Aircraft.txt")); // in the current folder
    QVERIFY(!files::isSame(file, other));
    QVERIFY(!files::isSame(file, "C:\\Morlen\\none.txt"));
}

void TestWindowsFiles::whatAKilledProgramLeftIsRemoved()
{
    const Sandbox sandbox;
    const QString own = file + '.' + QString::number(::GetCurrentProcessId()) + ".new";
    const QString ended = file + ".4294967292.new"; // no process has this number
    const QString unrelated = file + ".new";
    for (const QString &left : {own, ended, unrelated}) {
        sandbox.write(left, "half");
    }
    files::writeAll(file, "whole");
    QVERIFY(!sandbox.exists(ended));
    QVERIFY(sandbox.exists(unrelated));
    QCOMPARE(sandbox.read(file), "whole");
}

void TestWindowsFiles::fileBeyondTheLimitIsRefused()
{
    const Sandbox sandbox;
    sandbox.write(file, "");
    QVERIFY(QFile::resize(sandbox.host(file), (256 << 20) + 1));
    QCOMPARE(failureOf([] { files::readAll(file); }), "7 Out of memory");
}

void TestWindowsFiles::lockIsWaitedFor()
{
    const Sandbox sandbox;
    sandbox.write(file, "old\r\n");
    const files::Lock lock(file);
    files::appendLines(file, "new\r\n"); // others read and write all the same
    QCOMPARE(files::readAll(file), "old\r\nnew\r\n");
    const files::Handle second = opened(sandbox, GENERIC_WRITE, 7);
    OVERLAPPED place = {};
    place.OffsetHigh = 0x4000'0000;
    QCOMPARE(::LockFileEx(second.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1,
                          0, &place),
             0);
}

QTEST_APPLESS_MAIN(TestWindowsFiles)
#include "test_windows_files.moc"
