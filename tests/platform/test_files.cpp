// SPDX-License-Identifier: MIT
// Files and folders by their Windows paths, and what fails about them.
#include "platform/files.h"
#include "tests/support/failure.h"
#include "tests/support/host.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <array>
#include <functional>

namespace
{

const QString file = QStringLiteral("C:\\Morlen\\Aircraft.txt");
const QString folder = QStringLiteral("C:\\Morlen\\Sub");

constexpr QFile::Permissions readOnly = QFile::ReadOwner;
constexpr QFile::Permissions noWriting = QFile::ReadOwner | QFile::ExeOwner;

void restrict(const Sandbox &sandbox, const QString &path, QFile::Permissions permissions)
{
    QVERIFY(QFile::setPermissions(sandbox.host(path), permissions));
}

/// Everything that opens a file, each with the path it is given.
struct Operation {
    const char *name;
    std::function<void(const QString &)> run;
};

const std::array<Operation, 2> readers = {{
    {"read", [](const QString &path) { files::readAll(path); }},
    {"length", [](const QString &path) { files::length(path); }},
}};

const std::array<Operation, 3> writers = {{
    {"append", [](const QString &path) { files::appendLines(path, "new\r\n"); }},
    {"open for append", [](const QString &path) { files::openForAppend(path); }},
    {"write", [](const QString &path) { files::writeAll(path, "new\r\n"); }},
}};

} // namespace

class TestFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyByteIsReadAndWritten();
    void fileLongerThanOneReadIsReadWhole();
    void pathsThatCannotBeOpenedFail_data();
    void pathsThatCannotBeOpenedFail();
    void readOnlyFileIsReadNotWritten();
    void unreadableFileFailsButTakesLines();
    void readOnlyFolderTakesNoNewFile();
    void readOnlyFolderLetsItsFilesBeWritten();
    void openForAppendMakesTheFileAndChangesNoByte();
    void appendingNeverRewritesExistingBytes();
    void lastLineWithoutLineEndIsCompleted_data();
    void lastLineWithoutLineEndIsCompleted();
    void appendingFindsTheFileBlindToCase();
    void appendThatFailsHalfWayIsCutBack();
    void writeThatFailsHalfWayLeavesTheOldContent();
    void writingFollowsALink();
    void writingLeavesNoOtherFiles();
    void copyIsCompleteOrLeavesItsTarget();
    void removeDeletesAFile();
    void removingWhatIsNoFileFails();
    void existsAndIsFolderNeverFail();
    void requireFolderTakesOnlyFoldersThatCanBeRead();
    void subFoldersAreSortedBlindToCase();
    void subFoldersLeaveOutFiles();
    void subFoldersOfNoFolderFail();
    void filesMatchAPatternBlindToCase();
};

void TestFiles::everyByteIsReadAndWritten()
{
    const Sandbox sandbox;
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    files::writeAll(file, bytes);
    QCOMPARE(sandbox.read(file), bytes);
    QCOMPARE(files::readAll("c:\\MORLEN\\aircraft.TXT"), bytes);
    QCOMPARE(files::length(file), 256);
    files::writeAll(file, "");
    QCOMPARE(sandbox.read(file), "");
    QCOMPARE(files::readAll(file), "");
}

void TestFiles::fileLongerThanOneReadIsReadWhole()
{
    const Sandbox sandbox;
    const QByteArray bytes = QByteArray("0123456789abcdef").repeated(1'000'000);
    files::writeAll(file, bytes);
    QVERIFY(files::readAll(file) == bytes);
}

void TestFiles::pathsThatCannotBeOpenedFail_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reading");
    QTest::addColumn<QString>("writing"); // nothing: the file is made
    const auto row = [](const char *name, const QString &path, const char *reading,
                        const char *writing) { QTest::newRow(name) << path << reading << writing; };
    const char *const noPath = "76 Path not found";
    const char *const badName = "52 Bad file name or number";
    row("missing file", "C:\\Morlen\\none.txt", "53 File not found", "");
    row("missing folder", "C:\\None\\none.txt", noPath, noPath);
    row("folder", folder, "75 Path/File access error", "75 Path/File access error");
    row("drive", "C:\\", "75 Path/File access error", "75 Path/File access error");
    row("file taken for a folder", file + "\\a.txt", noPath, noPath);
    row("missing drive", "Q:\\a.txt", "68 Device unavailable", "68 Device unavailable");
    row("device name", "C:\\Morlen\\NUL", badName, badName);
    row("refused character", "C:\\Morlen\\a?.txt", badName, badName);
    row("no path", "", badName, badName);
    row("name too long", "C:\\Morlen\\" + QString(300, 'x'), badName, badName);
    if (host::links) {
        row("link to itself", "C:\\Morlen\\loop.txt", noPath, noPath);
        row("link to nothing", "C:\\Morlen\\lost.txt", "53 File not found", "");
    }
}

void TestFiles::pathsThatCannotBeOpenedFail()
{
    QFETCH(QString, path);
    QFETCH(QString, writing);
    const Sandbox sandbox;
    sandbox.write(file, "old");
    sandbox.makeFolder(folder);
    if (host::links) {
        QVERIFY(QFile::link("loop.txt", sandbox.host("C:\\Morlen\\loop.txt")));
        QVERIFY(QFile::link("none.txt", sandbox.host("C:\\Morlen\\lost.txt")));
    }
    for (const Operation &operation : readers) {
        QTEST(failureOf([&] { operation.run(path); }), "reading");
    }
    for (const Operation &operation : writers) {
        QCOMPARE(failureOf([&] { operation.run(path); }), writing);
    }
    QCOMPARE(sandbox.read(file), "old");
}

void TestFiles::readOnlyFileIsReadNotWritten()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write(file, "old");
    restrict(sandbox, file, readOnly);
    const OrdinaryUser user(sandbox);
    for (const Operation &operation : writers) {
        QCOMPARE(failureOf([&] { operation.run(file); }), "75 Path/File access error");
    }
    QCOMPARE(files::readAll(file), "old");
}

void TestFiles::unreadableFileFailsButTakesLines()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write(file, "old");
    restrict(sandbox, file, QFile::WriteOwner);
    {
        const OrdinaryUser user(sandbox);
        for (const Operation &operation : readers) {
            QCOMPARE(failureOf([&] { operation.run(file); }), "75 Path/File access error");
        }
        files::appendLines(file, "new\r\n");
    }
    restrict(sandbox, file, readOnly);
    QCOMPARE(sandbox.read(file), "old\r\nnew\r\n"); // where the last line ends could not be seen
}

void TestFiles::readOnlyFolderTakesNoNewFile()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.makeFolder(folder);
    restrict(sandbox, folder, noWriting);
    const OrdinaryUser user(sandbox);
    for (const Operation &operation : writers) {
        QCOMPARE(failureOf([&] { operation.run(folder + "\\new.txt"); }),
                 "75 Path/File access error");
    }
    QCOMPARE(files::filesMatching(folder, "*"), QStringList());
}

void TestFiles::readOnlyFolderLetsItsFilesBeWritten()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    const QString inside = folder + "\\a.txt";
    sandbox.write(inside, "a longer old content\r\n");
    restrict(sandbox, folder, noWriting);
    const OrdinaryUser user(sandbox);
    files::writeAll(inside, "one\r\n");
    files::appendLines(inside, "two\r\n");
    QCOMPARE(sandbox.read(inside), "one\r\ntwo\r\n");
    QCOMPARE(failureOf([&] { files::remove(inside); }), "75 Path/File access error");
}

void TestFiles::openForAppendMakesTheFileAndChangesNoByte()
{
    const Sandbox sandbox;
    QCOMPARE(files::openForAppend(file), 0);
    QCOMPARE(sandbox.read(file), "");
    sandbox.write(file, "no line end");
    QCOMPARE(files::openForAppend(file), 11);
    QCOMPARE(sandbox.read(file), "no line end");
}

void TestFiles::appendingNeverRewritesExistingBytes()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    const QByteArray old("\0\x1A; \xE9\x80\nAC#1\r\r\n\n", 15);
    sandbox.write(file, old);
    restrict(sandbox, file, QFile::WriteOwner | QFile::ReadOwner);
    QFile before(sandbox.host(file)); // still open on the same file after a mere append
    QVERIFY(before.open(QIODevice::ReadOnly));
    files::appendLines(file, "one\r\n");
    files::appendLines(file, "two\r\n");
    QCOMPARE(sandbox.read(file), old + "one\r\ntwo\r\n");
    QCOMPARE(before.readAll(), old + "one\r\ntwo\r\n");
}

void TestFiles::lastLineWithoutLineEndIsCompleted_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char *name, const char *before, const char *after) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(after);
    };
    row("empty", "", "new\r\n");
    row("CR LF", "old\r\n", "old\r\nnew\r\n");
    row("LF", "old\n", "old\nnew\r\n");
    row("CR", "old\r", "old\rnew\r\n");
    row("no line end", "old", "old\r\nnew\r\n");
    row("one character", "x", "x\r\nnew\r\n");
    row("blanks", "old\r\n  ", "old\r\n  \r\nnew\r\n");
}

void TestFiles::lastLineWithoutLineEndIsCompleted()
{
    QFETCH(QByteArray, before);
    const Sandbox sandbox;
    sandbox.write(file, before);
    files::appendLines(file, "new\r\n");
    QTEST(sandbox.read(file), "after");
}

void TestFiles::appendingFindsTheFileBlindToCase()
{
    const Sandbox sandbox;
    sandbox.write(file, "old\r\n");
    files::appendLines("c:\\morlen\\AIRCRAFT.TXT", "new\r\n");
    QCOMPARE(sandbox.read(file), "old\r\nnew\r\n");
    QCOMPARE(files::filesMatching("C:\\Morlen", "*"), QStringList{"Aircraft.txt"});
}

void TestFiles::appendThatFailsHalfWayIsCutBack()
{
    NEEDS(sizeLimit);
    const Sandbox sandbox;
    sandbox.write(file, "no line end");
    {
        const FileSizeLimit limit(20);
        QCOMPARE(failureOf([] { files::appendLines(file, QByteArray(30, 'x')); }), "61 Disk full");
    }
    QCOMPARE(sandbox.read(file), "no line end");
}

void TestFiles::writeThatFailsHalfWayLeavesTheOldContent()
{
    NEEDS(sizeLimit);
    const Sandbox sandbox;
    sandbox.write(file, "old");
    for (const int size : {30, 1'000'000}) { // within one buffer, and beyond it
        const FileSizeLimit limit(20);
        QCOMPARE(failureOf([&] { files::writeAll(file, QByteArray(size, 'x')); }), "61 Disk full");
    }
    QCOMPARE(sandbox.read(file), "old");
    QCOMPARE(QDir(sandbox.host("C:\\Morlen")).entryList(QDir::Files | QDir::Hidden),
             QStringList{"Aircraft.txt"});
}

void TestFiles::writingFollowsALink()
{
    NEEDS(links);
    const Sandbox sandbox;
    sandbox.write("C:\\Elsewhere\\real.txt", "old");
    QVERIFY(QFile::link("../Elsewhere/real.txt", sandbox.host(file)));
    files::writeAll(file, "new");
    QCOMPARE(sandbox.read("C:\\Elsewhere\\real.txt"), "new");
    QVERIFY(QFileInfo(sandbox.host(file)).isSymLink());
}

void TestFiles::writingLeavesNoOtherFiles()
{
    const Sandbox sandbox;
    for (const Operation &operation : writers) {
        operation.run(file);
    }
    QCOMPARE(QDir(sandbox.host("C:\\Morlen")).entryList(QDir::Files | QDir::Hidden),
             QStringList{"Aircraft.txt"});
}

void TestFiles::copyIsCompleteOrLeavesItsTarget()
{
    const Sandbox sandbox;
    const QString target = "C:\\Morlen\\Aircraft.txt.Backup1";
    sandbox.write(file, QByteArray("a\0b", 3));
    files::copy(file, target);
    QCOMPARE(sandbox.read(target), QByteArray("a\0b", 3));
    QCOMPARE(failureOf([&] { files::copy("C:\\Morlen\\none.txt", target); }), "53 File not found");
    QCOMPARE(failureOf([&] { files::copy(folder, target); }), "53 File not found");
    sandbox.makeFolder(folder);
    QCOMPARE(failureOf([&] { files::copy(folder, target); }), "75 Path/File access error");
    QCOMPARE(failureOf([&] { files::copy(file, folder); }), "75 Path/File access error");
    QCOMPARE(sandbox.read(target), QByteArray("a\0b", 3));
}

void TestFiles::removeDeletesAFile()
{
    const Sandbox sandbox;
    sandbox.write(file, "old");
    files::remove("c:\\morlen\\aircraft.TXT");
    QVERIFY(!sandbox.exists(file));
}

void TestFiles::removingWhatIsNoFileFails()
{
    const Sandbox sandbox;
    sandbox.makeFolder(folder);
    QCOMPARE(failureOf([] { files::remove(file); }), "53 File not found");
    QCOMPARE(failureOf([] { files::remove("C:\\None\\a.txt"); }), "76 Path not found");
    QCOMPARE(failureOf([] { files::remove(folder); }), "75 Path/File access error");
    QCOMPARE(failureOf([] { files::remove("Q:\\a.txt"); }), "68 Device unavailable");
    QVERIFY(sandbox.exists(folder));
}

void TestFiles::existsAndIsFolderNeverFail()
{
    const Sandbox sandbox;
    sandbox.write(file, "");
    sandbox.makeFolder(folder);
    QVERIFY(files::exists("c:\\MORLEN\\aircraft.txt"));
    QVERIFY(files::exists(folder));
    QVERIFY(!files::isFolder(file));
    QVERIFY(files::isFile(file));
    QVERIFY(!files::isFile(folder));
    QVERIFY(files::isFolder("c:\\MORLEN\\sub\\"));
    for (const QString path : {"", "C:\\None", "C:\\None\\a.txt", "Q:\\", "C:\\NUL", "C:\\a*b"}) {
        QVERIFY(!files::exists(path));
        QVERIFY(!files::isFolder(path));
    }
}

void TestFiles::requireFolderTakesOnlyFoldersThatCanBeRead()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write(file, "");
    sandbox.makeFolder(folder);
    QCOMPARE(failureOf([] { files::requireFolder("c:\\morlen\\SUB"); }), "");
    QCOMPARE(failureOf([] { files::requireFolder("C:\\None"); }), "76 Path not found");
    QCOMPARE(failureOf([] { files::requireFolder(file); }), "76 Path not found");
    QCOMPARE(failureOf([] { files::requireFolder("Q:\\"); }), "68 Device unavailable");
    restrict(sandbox, folder, {});
    const OrdinaryUser user(sandbox);
    QCOMPARE(failureOf([] { files::requireFolder(folder); }), "75 Path/File access error");
}

void TestFiles::subFoldersAreSortedBlindToCase()
{
    const Sandbox sandbox;
    const QStringList names = {"A320",
                               "b734",
                               "B734 Blue",
                               "C172",
                               "c_x",
                               "Zlin",
                               QString::fromUtf8("Île"),
                               QString::fromUtf8("öl")};
    for (const QString &name :
         {names[5], names[7], names[1], names[0], names[6], names[3], names[2], names[4]}) {
        sandbox.makeFolder("C:\\FS9\\" + name + "\\below");
    }
    QCOMPARE(files::subFolders("c:\\fs9"), names);
}

void TestFiles::subFoldersLeaveOutFiles()
{
    const Sandbox sandbox;
    sandbox.write("C:\\FS9\\readme.txt", "");
    sandbox.makeFolder("C:\\FS9\\Seen");
    QCOMPARE(files::subFolders("C:\\FS9"), QStringList{"Seen"});
}

void TestFiles::subFoldersOfNoFolderFail()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write(file, "");
    for (const QString &path : {file, QStringLiteral("C:\\None")}) {
        QCOMPARE(failureOf([&] { files::subFolders(path); }), "76 Path not found");
        QCOMPARE(failureOf([&] { files::filesMatching(path, "*"); }), "76 Path not found");
    }
    sandbox.makeFolder(folder);
    restrict(sandbox, folder, {});
    const OrdinaryUser user(sandbox);
    QCOMPARE(failureOf([] { files::subFolders(folder); }), "75 Path/File access error");
    QCOMPARE(failureOf([] { files::filesMatching(folder, "*"); }), "75 Path/File access error");
}

void TestFiles::filesMatchAPatternBlindToCase()
{
    const Sandbox sandbox;
    for (const QString name : {"AIRCRAFT_Set.TXT", "aircraft.txt", "Aircraft_b.txt",
                               "my aircraft.txt", "aircraft.txt.Backup1", "aircraftXtxt"}) {
        sandbox.write(folder + '\\' + name, "");
    }
    sandbox.makeFolder(folder + "\\aircraft folder.txt");
    QCOMPARE(files::filesMatching(folder, "aircraft*.txt"),
             (QStringList{"aircraft.txt", "Aircraft_b.txt", "AIRCRAFT_Set.TXT"}));
    QCOMPARE(files::filesMatching(folder, "AIRCRAFT.TXT"), QStringList{"aircraft.txt"});
    QCOMPARE(files::filesMatching(folder, "*.cfg"), QStringList());
}

QTEST_GUILESS_MAIN(TestFiles)
#include "test_files.moc"
