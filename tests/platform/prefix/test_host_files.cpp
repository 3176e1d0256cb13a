// SPDX-License-Identifier: MIT
// What a host's file system can hold against us: pipes, devices, links, leftovers, a full trash.
#include "platform/files.h"
#include "platform/prefix/descriptor.h"
#include "platform/sub_folder_reader.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QtTest>

#include <array>
#include <atomic>
#include <functional>
#include <thread>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

const QString file = QStringLiteral("C:\\Morlen\\Aircraft.txt");
const QString other = QStringLiteral("C:\\Morlen\\Other.txt");
const QString elsewhere = QStringLiteral("C:\\Elsewhere\\real.txt");

QByteArray hostName(const Sandbox &sandbox, const QString &path)
{
    return QFile::encodeName(sandbox.host(path));
}

mode_t modeOf(const Sandbox &sandbox, const QString &path)
{
    struct stat info = {};
    return ::stat(hostName(sandbox, path).constData(), &info) == 0 ? info.st_mode & 07777 : 0;
}

QStringList filesIn(const Sandbox &sandbox, const QString &folder)
{
    return QDir(sandbox.host(folder)).entryList(QDir::Files | QDir::Hidden | QDir::System);
}

/// The number of a process that has ended.
pid_t endedProcess()
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
    return child;
}

/// A trash of the test's own, on the sandbox's disk.
class Trash
{
public:
    explicit Trash(const Sandbox &sandbox)
        : folder(sandbox.host("C:\\share\\Trash")),
          m_dataHome("XDG_DATA_HOME", QFile::encodeName(sandbox.host("C:\\share")))
    {
    }

    QStringList files() const { return QDir(folder + "/files").entryList(QDir::Files); }

    QStringList notes() const { return QDir(folder + "/info").entryList(QDir::Files); }

    QString folder;

private:
    Environment m_dataHome;
};

} // namespace

class TestHostFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsNoFileIsRefusedAtOnce_data();
    void whatIsNoFileIsRefusedAtOnce();
    void fileBeyondTheLimitIsRefused();
    void fileThatBreaksOffGivesWhatCouldBeRead();
    void configurationThatIsNoFileIsNotOpened();
    void whatAKilledProgramLeftIsRemoved();
    void permissionsStay();
    void copyReplacesALink();
    void copyInAFolderThatTakesNoFilesChangesNothing();
    void refusedLinkIsNotFollowed();
    void fileIsTrashedWithANote();
    void equalNamesInTheTrashAreToldApart();
    void trashThatTakesNoFileLeavesTheFile();
    void trashOfAnotherDiskIsNotTaken();
    void trashOfSomebodyElseIsNotTaken();
    void trashIsNeverInTheCurrentFolder();
    void syncOfAMissingFileFails();
    void linkThatLeadsNowhereIsNotReplaced();
    void onlyOneAtATimeHoldsALock();
    void lockThatIsNeverLetGoIsNotWaitedForForEver();
    void whatCannotBeLockedIsNotWaitedFor();
    void listingLeavesNoHandleOpen();
    void fileOfNoLengthIsReadWhole();
    void subFoldersLeaveOutFilesHiddenAndUnspellableNames();
    void hostsErrorsAreTheClassicOnes_data();
    void hostsErrorsAreTheClassicOnes();
};

void TestHostFiles::whatIsNoFileIsRefusedAtOnce_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("pipe") << "pipe";
    QTest::newRow("socket") << "socket";
    QTest::newRow("device") << "device";
}

void TestHostFiles::whatIsNoFileIsRefusedAtOnce()
{
    QFETCH(QString, kind);
    const Sandbox sandbox;
    sandbox.write(other, "content");
    const QByteArray host = hostName(sandbox, file);
    if (kind == "pipe") {
        QCOMPARE(::mkfifo(host.constData(), 0600), 0);
    } else if (kind == "device") {
        QCOMPARE(::symlink("/dev/zero", host.constData()), 0);
    } else {
        const int listener = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        QDir::setCurrent(sandbox.host("C:\\Morlen"));
        qstrcpy(address.sun_path, "Aircraft.txt"); // a whole path could be too long for it
        QCOMPARE(::bind(listener, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
        ::close(listener);
    }
    const QList<std::function<void()>> operations = {
        [] { files::readAll(file); },
        [] { files::length(file); },
        [] { files::appendLines(file, "new\r\n"); },
        [] { files::openForAppend(file); },
        [] { files::writeAll(file, "new\r\n"); },
        [] { files::copy(file, other); },
        [] { files::sync(file); },
    };
    for (const auto &operation : operations) {
        QCOMPARE(failureOf(operation), "75 Path/File access error");
    }
    QVERIFY(!QFileInfo(sandbox.host(file)).isFile());
    QCOMPARE(sandbox.read(other), "content");
}

void TestHostFiles::fileBeyondTheLimitIsRefused()
{
    const Sandbox sandbox;
    sandbox.write(file, "");
    for (const qint64 size : {256LL * 1024 * 1024 + 1, 1LL << 40}) {
        QVERIFY(QFile::resize(sandbox.host(file), size));
        QCOMPARE(failureOf([] { files::readAll(file); }), "7 Out of memory");
        QCOMPARE(files::length(file), size);
    }
}

void TestHostFiles::fileThatBreaksOffGivesWhatCouldBeRead()
{
    std::array<int, 2> ends = {};
    QCOMPARE(::pipe2(ends.data(), O_NONBLOCK), 0); // once it is empty, reading it fails
    const files::Descriptor out(ends[0]);
    const files::Descriptor in(ends[1]);
    QCOMPARE(::write(in.get(), "one\ntwo", 7), 7);
    QByteArray read(64, '?');
    QCOMPARE(failureOf([&] { files::readWhole(out.get(), 0, read); }),
             QString("57 Device I/O error"));
    QCOMPARE(read, QByteArray("one\ntwo"));
}

void TestHostFiles::configurationThatIsNoFileIsNotOpened()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\FS9\\a");
    QCOMPARE(::mkfifo(hostName(sandbox, "C:\\FS9\\a\\aircraft.cfg").constData(), 0600), 0);
    files::SubFolderReader reader("C:\\FS9", {"a"}, "aircraft.cfg");
    const files::FoundFile &found = reader.next();
    QCOMPARE(found.failure->number(), 75);
    QVERIFY(!found.opened); // so that the report says "Opening"
}

void TestHostFiles::whatAKilledProgramLeftIsRemoved()
{
    const Sandbox sandbox;
    const QString ended = file + '.' + QString::number(endedProcess()) + ".new";
    const QString alive = file + '.' + QString::number(::getppid()) + ".new";
    const QString unrelated = "C:\\Morlen\\Aircraft.txt.new";
    for (const QString &left : {ended, alive, unrelated}) {
        sandbox.write(left, "half");
    }
    files::writeAll(file, "whole");
    QVERIFY(!sandbox.exists(ended));
    QCOMPARE(sandbox.read(alive), "half");
    QCOMPARE(sandbox.read(unrelated), "half");
    QCOMPARE(sandbox.read(file), "whole");
}

void TestHostFiles::permissionsStay()
{
    const Sandbox sandbox;
    sandbox.write(file, "old");
    QCOMPARE(::chmod(hostName(sandbox, file).constData(), 0600), 0);
    files::writeAll(file, "new");
    QCOMPARE(modeOf(sandbox, file), mode_t{0600});
    files::copy(file, other);
    QCOMPARE(modeOf(sandbox, other), mode_t{0600});
    QCOMPARE(::chmod(hostName(sandbox, file).constData(), 0664), 0);
    files::copy(file, other);
    QCOMPARE(modeOf(sandbox, other), mode_t{0664});
    QCOMPARE(::chmod(hostName(sandbox, file).constData(), 0440), 0);
    files::copy(file, other);
    QCOMPARE(modeOf(sandbox, other), mode_t{0640}); // or no second copy could replace it
}

void TestHostFiles::copyReplacesALink()
{
    const Sandbox sandbox;
    sandbox.write(file, "new");
    sandbox.write(elsewhere, "somebody's");
    QVERIFY(QFile::link("../Elsewhere/real.txt", sandbox.host(other)));
    files::copy(file, other);
    QCOMPARE(sandbox.read(elsewhere), "somebody's");
    QCOMPARE(sandbox.read(other), "new");
    QVERIFY(!QFileInfo(sandbox.host(other)).isSymLink());
}

void TestHostFiles::copyInAFolderThatTakesNoFilesChangesNothing()
{
    const Sandbox sandbox;
    sandbox.write(file, "new");
    sandbox.write(other, "old");
    QVERIFY(QFile::setPermissions(sandbox.host("C:\\Morlen"), QFile::ReadOwner | QFile::ExeOwner));
    const OrdinaryUser user(sandbox);
    QCOMPARE(failureOf([] { files::copy(file, other); }), "75 Path/File access error");
    QCOMPARE(sandbox.read(other), "old");
}

void TestHostFiles::refusedLinkIsNotFollowed()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\Elsewhere");
    QVERIFY(QFile::link("../Elsewhere/real.txt", sandbox.host(file)));
    QCOMPARE(failureOf([] { files::openForAppend(file, files::Links::Refuse); }),
             "76 Path not found");
    QVERIFY(!sandbox.exists(elsewhere));
    QCOMPARE(files::openForAppend(file), 0); // which follows it
    QVERIFY(sandbox.exists(elsewhere));
}

void TestHostFiles::fileIsTrashedWithANote()
{
    const Sandbox sandbox;
    const Trash trash(sandbox);
    const QString path = QString::fromUtf8("C:\\Morlen\\Airports_Été 1%.txt");
    sandbox.write(path, "content");
    QVERIFY(files::moveToTrash(path));
    QVERIFY(!sandbox.exists(path));
    QCOMPARE(trash.files(), QStringList{QString::fromUtf8("Airports_Été 1%.txt")});
    QFile note(trash.folder + QString::fromUtf8("/info/Airports_Été 1%.txt.trashinfo"));
    QVERIFY(note.open(QIODevice::ReadOnly));
    const QByteArrayList lines = note.readAll().split('\n');
    QCOMPARE(lines.value(0), "[Trash Info]");
    QVERIFY2(lines.value(1).startsWith("Path=/") &&
                 lines.value(1).endsWith("/Morlen/Airports_%C3%89t%C3%A9%201%25.txt"),
             lines.value(1).constData());
    QVERIFY(
        QDateTime::fromString(QString::fromLatin1(lines.value(2).mid(13)), Qt::ISODate).isValid());
}

void TestHostFiles::equalNamesInTheTrashAreToldApart()
{
    const Sandbox sandbox;
    const Trash trash(sandbox);
    for (const char *content : {"first", "second"}) {
        sandbox.write(file, content);
        QVERIFY(files::moveToTrash(file));
    }
    QCOMPARE(trash.files(), (QStringList{"Aircraft.txt", "Aircraft.txt.1"}));
    QCOMPARE(trash.notes(), (QStringList{"Aircraft.txt.1.trashinfo", "Aircraft.txt.trashinfo"}));
    // A note may be lost, and a file may.
    QVERIFY(QFile::remove(trash.folder + "/info/Aircraft.txt.trashinfo"));
    QVERIFY(QFile::remove(trash.folder + "/files/Aircraft.txt.1"));
    sandbox.write(file, "third");
    QVERIFY(files::moveToTrash(file));
    QCOMPARE(trash.files(), (QStringList{"Aircraft.txt", "Aircraft.txt.2"}));
    QCOMPARE(trash.notes(), (QStringList{"Aircraft.txt.1.trashinfo", "Aircraft.txt.2.trashinfo"}));
    QCOMPARE(sandbox.read("C:\\share\\Trash\\files\\Aircraft.txt"), "first");
}

void TestHostFiles::trashThatTakesNoFileLeavesTheFile()
{
    const Sandbox sandbox;
    const Trash trash(sandbox);
    sandbox.write(file, "content");
    QVERIFY(QDir().mkpath(trash.folder + "/files") && QDir().mkpath(trash.folder + "/info"));
    for (const char *full : {"/info", "/files"}) {
        QVERIFY(QFile::setPermissions(trash.folder + full, QFile::ReadOwner | QFile::ExeOwner));
        const OrdinaryUser user(sandbox);
        QVERIFY(!files::moveToTrash(file));
        QCOMPARE(sandbox.read(file), "content");
        QCOMPARE(filesIn(sandbox, "C:\\Morlen"), QStringList{"Aircraft.txt"});
        QVERIFY(QFile::setPermissions(trash.folder + full,
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QCOMPARE(trash.notes(), QStringList());
    }
}

void TestHostFiles::trashOfAnotherDiskIsNotTaken()
{
    const Sandbox sandbox;
    const Trash trash(sandbox);
    const QTemporaryDir disk("/dev/shm/disk-XXXXXX");
    if (QStorageInfo(disk.path()) == QStorageInfo(sandbox.prefix())) {
        QSKIP("no second disk");
    }
    const QString name = QFileInfo(disk.path()).fileName() + ".txt"; // no other's in the trash
    QFile thrown(disk.filePath(name));
    QVERIFY(thrown.open(QIODevice::WriteOnly));
    QVERIFY(files::moveToTrash("Z:" + thrown.fileName().replace('/', '\\')));
    QVERIFY(!QFileInfo::exists(trash.folder));
    QVERIFY(!thrown.exists());
    const QString user = QString::number(::geteuid());
    QDir own("/dev/shm/.Trash/" + user);
    own.setPath(own.exists() ? own.path() : "/dev/shm/.Trash-" + user);
    QFile note(own.filePath("info/" + name + ".trashinfo"));
    QVERIFY(note.open(QIODevice::ReadOnly));
    // Where the disk is next seen is not known: the path starts at its top.
    QCOMPARE(note.readAll().split('\n').value(1),
             "Path=" + QFile::encodeName(QFileInfo(disk.path()).fileName() + '/' + name));
    QVERIFY(QFile::remove(own.filePath("files/" + name)) && note.remove());
}

void TestHostFiles::trashOfSomebodyElseIsNotTaken()
{
    if (::geteuid() != 0) {
        QSKIP("only root can give a folder away");
    }
    const Sandbox sandbox;
    const Trash trash(sandbox);
    sandbox.write(file, "content");
    QVERIFY(QDir().mkpath(trash.folder));
    QCOMPARE(::chown(QFile::encodeName(trash.folder).constData(), 65534, 65534), 0);
    QVERIFY(!files::moveToTrash(file));
    QVERIFY(QFile::rename(trash.folder, trash.folder + "2"));
    QVERIFY(QFile::link(sandbox.host("C:\\Morlen"), trash.folder));
    QVERIFY(!files::moveToTrash(file));
    QCOMPARE(sandbox.read(file), "content");
}

void TestHostFiles::trashIsNeverInTheCurrentFolder()
{
    const Sandbox sandbox;
    const Environment relative("XDG_DATA_HOME", "share");
    sandbox.write(file, "content");
    if (!files::moveToTrash(file)) {
        QCOMPARE(sandbox.read(file), "content");
    }
    QVERIFY(!sandbox.exists("C:\\Morlen\\share") && !sandbox.exists("C:\\Morlen\\files"));
}

void TestHostFiles::syncOfAMissingFileFails()
{
    const Sandbox sandbox;
    QCOMPARE(failureOf([] { files::sync(file); }), "53 File not found");
    sandbox.write(file, "x");
    QCOMPARE(failureOf([] { files::sync(file); }), "");
}

void TestHostFiles::linkThatLeadsNowhereIsNotReplaced()
{
    const Sandbox sandbox;
    QVERIFY(QFile::link("../Absent/real.txt", sandbox.host(file)));
    QCOMPARE(failureOf([] { files::writeAll(file, "new"); }), "53 File not found");
    QVERIFY(QFileInfo(sandbox.host(file)).isSymLink());
}

void TestHostFiles::onlyOneAtATimeHoldsALock()
{
    const Sandbox sandbox;
    sandbox.write(file, "");
    std::atomic<bool> held = false;
    std::thread copy;
    {
        const files::Lock lock(file);
        copy = std::thread([&] {
            const files::Lock second(file);
            held = true;
        });
        QTest::qSleep(200);
        QVERIFY(!held);
    }
    copy.join();
    QVERIFY(held);
}

void TestHostFiles::lockThatIsNeverLetGoIsNotWaitedForForEver()
{
    const Sandbox sandbox;
    sandbox.write(file, "");
    const files::Lock lock(file);
    QElapsedTimer timer;
    timer.start();
    const files::Lock second(file);
    QVERIFY2(timer.elapsed() > 3000 && timer.elapsed() < 60'000,
             qPrintable(QString::number(timer.elapsed())));
}

void TestHostFiles::whatCannotBeLockedIsNotWaitedFor()
{
    const Sandbox sandbox;
    QElapsedTimer timer;
    timer.start();
    const files::Lock missing(file);
    QVERIFY(!sandbox.exists(file));
    QCOMPARE(::mkfifo(hostName(sandbox, file).constData(), 0600), 0);
    const files::Lock pipe(file);
    QVERIFY(timer.elapsed() < 2000);
}

void TestHostFiles::listingLeavesNoHandleOpen()
{
    const Sandbox sandbox;
    sandbox.write("C:\\FS9\\A320\\AIRCRAFT.CFG", "[fltsim.0]");
    const auto openHandles = [] { return QDir("/proc/self/fd").entryList().size(); };
    const auto before = openHandles();
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(files::subFolders("C:\\FS9"), QStringList{"A320"});
        QCOMPARE(files::filesMatching("C:\\FS9", "*"), QStringList());
        QVERIFY(files::SubFolderReader("C:\\FS9", {"A320"}, "aircraft.cfg").next().opened);
        files::writeAll(file, "new");
        files::appendLines(file, "more");
        files::copy(file, other);
        files::sync(file);
        const files::Lock lock(file);
        QVERIFY(!failureOf([] { files::readAll("C:\\FS9"); }).isEmpty());
    }
    QCOMPARE(openHandles(), before);
}

void TestHostFiles::fileOfNoLengthIsReadWhole()
{
    const Sandbox sandbox;
    QCOMPARE(files::length("Z:\\proc\\self\\stat"), 0);
    QVERIFY(files::readAll("Z:\\proc\\self\\stat").size() > 50);
}

void TestHostFiles::subFoldersLeaveOutFilesHiddenAndUnspellableNames()
{
    const Sandbox sandbox;
    sandbox.write("C:\\FS9\\readme.txt", "");
    const QDir fs9(sandbox.host("C:\\FS9"));
    for (const QString name : {"Seen", ".hidden", "a:b", "aux", "back\\slash"}) {
        QVERIFY(fs9.mkdir(name));
    }
    QVERIFY(QFile::link("Seen", fs9.filePath("linked folder")));
    QVERIFY(QFile::link("readme.txt", fs9.filePath("linked file")));
    QVERIFY(QFile::link("loop", fs9.filePath("loop")));
    const QByteArray latin1 = QFile::encodeName(fs9.filePath("Caf")) + '\xE9';
    QCOMPARE(::mkdir(latin1.constData(), 0777), 0);
    const QStringList found = files::subFolders("C:\\FS9");
    ::rmdir(latin1.constData());
    QCOMPARE(found, (QStringList{"linked folder", "Seen"}));
}

void TestHostFiles::hostsErrorsAreTheClassicOnes_data()
{
    QTest::addColumn<QList<int>>("errors");
    QTest::addColumn<QString>("failure");
    QTest::newRow("missing") << QList{ENOENT} << "53 File not found";
    QTest::newRow("no folder") << QList{ENOTDIR, ELOOP} << "76 Path not found";
    QTest::newRow("no right") << QList{EACCES, EPERM, EISDIR, ENXIO} << "75 Path/File access error";
    QTest::newRow("in use") << QList{EROFS, EBUSY, ETXTBSY} << "70 Permission denied";
    QTest::newRow("full") << QList{ENOSPC, EDQUOT, EFBIG} << "61 Disk full";
    QTest::newRow("no name") << QList{ENAMETOOLONG, EINVAL} << "52 Bad file name or number";
    QTest::newRow("broken") << QList{EIO, EMFILE, ESTALE} << "57 Device I/O error";
}

void TestHostFiles::hostsErrorsAreTheClassicOnes()
{
    QFETCH(QList<int>, errors);
    QFETCH(QString, failure);
    for (const int error : errors) {
        QCOMPARE(failureOf([&] { files::throwErrno(error, ErrorNumber::FileNotFound); }), failure);
    }
}

QTEST_APPLESS_MAIN(TestHostFiles)
#include "test_host_files.moc"
