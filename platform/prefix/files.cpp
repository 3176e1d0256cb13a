// SPDX-License-Identifier: MIT
#include "platform/files.h"

#include "platform/list_order.h"
#include "platform/paths.h"
#include "platform/prefix/descriptor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QThread>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <optional>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace files
{

namespace
{

/// Whether the file ends within a line. One whose last byte cannot be read is taken to: two line
/// ends do less harm than two entries glued together.
bool endsWithinLine(const QByteArray &host, qint64 length)
{
    const Descriptor file(::open(host.constData(), O_RDONLY | openFlags));
    char last = '\0';
    if (length == 0 || ::pread(file.get(), &last, 1, length - 1) != 1) {
        return length > 0;
    }
    return last != '\n' && last != '\r';
}

/// Appends to a file that was `before` bytes long. When that fails half way its part is cut off
/// again, unless somebody else has appended meanwhile: theirs is not ours to cut.
void append(int file, qint64 before, QByteArrayView bytes)
{
    const qsizetype all = bytes.size();
    try {
        writeBytes(file, bytes);
    } catch (const RuntimeError &) {
        const off_t end = ::lseek(file, 0, SEEK_CUR); // where the last write of ours ended
        struct stat info = {};
        if (end == before + all - bytes.size() && ::fstat(file, &info) == 0 &&
            info.st_size == end) {
            // Where even this fails half an entry stays; what made it so is the error to report.
            [[maybe_unused]] const int cut = ::ftruncate(file, before);
        }
        throw;
    }
}

void sync(int descriptor)
{
    if (::fsync(descriptor) != 0) {
        throwErrno(errno, ErrorNumber::DeviceIoError);
    }
}

/// Where a new content is written until it is complete. The process's number keeps two programs
/// apart, and tells what a program that was killed has left.
QByteArray freshName(const QByteArray &host, pid_t process = ::getpid())
{
    return host + '.' + QByteArray::number(process) + ".new";
}

/// Removes what programs that were killed left beside a file.
void removeLeftovers(const QByteArray &host)
{
    const QFileInfo file(QFile::decodeName(host));
    const QString pattern = file.fileName().replace(u'[', u'?').replace(u'*', u'?') + u".*.new"_s;
    for (const QString &name : file.dir().entryList({pattern}, QDir::Files | QDir::Hidden)) {
        const int process = name.chopped(4).section(u'.', -1).toInt();
        if (process > 0 && ::kill(process, 0) != 0 && errno == ESRCH) {
            ::unlink(freshName(host, process).constData());
        }
    }
}

/// Writes a file beside another one and lets it take the other's place: the old content stands
/// until the new one is complete. `mode` are its permissions, usually those the user's mask leaves.
/// Returns false where the folder takes no new files.
bool replaceByNew(const QByteArray &host, QByteArrayView bytes, std::optional<mode_t> mode)
{
    removeLeftovers(host);
    const QByteArray fresh = freshName(host);
    ::unlink(fresh.constData()); // of a killed program that had our number
    Descriptor file(
        ::open(fresh.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode.value_or(0666)));
    if (file.get() < 0) {
        if (errno == EACCES || errno == EROFS) {
            return false;
        }
        throwFor(host);
    }
    try {
        if (mode) {
            ::fchmod(file.get(), *mode); // whatever the mask says
        }
        writeBytes(file.get(), bytes);
        sync(file.get());
        file.close();
        if (::rename(fresh.constData(), host.constData()) != 0) {
            throwFor(host);
        }
    } catch (const RuntimeError &) {
        ::unlink(fresh.constData());
        throw;
    }
    return true;
}

/// Writes a file whose folder takes no new ones. What makes it longer comes first: where there is
/// no room for that the old content stands.
void writeInPlace(int file, QByteArrayView bytes)
{
    const qint64 before = lengthOf(file);
    const qint64 size = bytes.size();
    QByteArrayView front = bytes.first(qMin(before, size));
    ::lseek(file, before, SEEK_SET);
    append(file, before, bytes.sliced(front.size()));
    ::lseek(file, 0, SEEK_SET);
    writeBytes(file, front);
    if (::ftruncate(file, size) != 0) {
        throwErrno(errno, ErrorNumber::DeviceIoError);
    }
    sync(file);
}

constexpr mode_t permissions = 07777;

/// The name of an entry, empty for one that Windows cannot spell: refused there, or not UTF-8.
QString spelledName(const dirent &entry)
{
    const QByteArrayView bytes(entry.d_name);
    const bool ascii = std::all_of(bytes.begin(), bytes.end(),
                                   [](char c) { return static_cast<signed char>(c) >= 0; });
    if (ascii) { // nearly always, and then there is nothing to convert
        const QString name = QString::fromLatin1(bytes);
        return paths::isValidName(name) ? name : QString();
    }
    const QString name = QFile::decodeName(entry.d_name);
    return paths::isValidName(name) && QFile::encodeName(name) == entry.d_name ? name : QString();
}

/// The spelled names of the wanted entries of a folder, sorted blind to case.
template <typename Wanted>
QStringList namesIn(const QString &path, Wanted isWanted)
{
    QStringList names;
    forEachEntry(openFolder(hostName(path)), [&](const dirent &entry, int parent) {
        const QString name = isWanted(entry, parent) ? spelledName(entry) : QString();
        if (!name.isEmpty()) {
            names += name;
        }
    });
    list_order::sort(names);
    return names;
}

/// What a path leads to; nothing where it leads nowhere, as a name that cannot exist does.
std::optional<struct stat> targetOf(const QString &path)
{
    try {
        struct stat info = {};
        return ::stat(hostName(path).constData(), &info) == 0 ? std::optional(info) : std::nullopt;
    } catch (const RuntimeError &) {
        return std::nullopt;
    }
}

} // namespace

QByteArray readAll(const QString &path)
{
    const Descriptor file(openFile(hostName(path), O_RDONLY));
    const qint64 length = lengthToRead(file.get());
    QByteArray bytes(qMax<qint64>(length, 1), Qt::Uninitialized);
    readWhole(file.get(), length, bytes);
    return bytes;
}

qint64 length(const QString &path)
{
    return lengthOf(Descriptor(openFile(hostName(path), O_RDONLY)).get());
}

qint64 openForAppend(const QString &path, Links links)
{
    const int follow = links == Links::Refuse ? O_NOFOLLOW : 0;
    Descriptor file(openFile(hostName(path), O_WRONLY | O_APPEND | O_CREAT | follow));
    const qint64 size = lengthOf(file.get());
    file.close();
    return size;
}

void appendLines(const QString &path, const QByteArray &bytes)
{
    const QByteArray host = hostName(path);
    Descriptor file(openFile(host, O_WRONLY | O_APPEND | O_CREAT));
    const qint64 before = lengthOf(file.get());
    append(file.get(), before, endsWithinLine(host, before) ? "\r\n" + bytes : bytes);
    file.close();
}

struct Lock::File {
    explicit File(int opened) : descriptor(opened) {}

    Descriptor descriptor;
};

Lock::Lock(const QString &path)
{
    constexpr int longestWait = 5000; // milliseconds; the other copy may have been stopped
    constexpr int pause = 10;
    try {
        m_file = std::make_unique<File>(openFile(hostName(path), O_WRONLY));
    } catch (const RuntimeError &) {
        return; // whoever writes to it says why
    }
    for (int waited = 0;
         waited < longestWait && ::flock(m_file->descriptor.get(), LOCK_EX | LOCK_NB) != 0 &&
         errno == EWOULDBLOCK;
         waited += pause) {
        QThread::msleep(pause);
    }
}

Lock::~Lock() = default;

void sync(const QString &path)
{
    const Descriptor file(openFile(hostName(path), O_WRONLY)); // as it was written
    sync(file.get());
}

void writeAll(const QString &path, const QByteArray &bytes)
{
    const QByteArray named = hostName(path);
    const QString target = QFileInfo(QFile::decodeName(named)).canonicalFilePath();
    const QByteArray host = target.isEmpty() ? named : QFile::encodeName(target);
    // Opening for writing first refuses what a rename would silently replace: a read-only file.
    std::optional<Descriptor> old = openIfThere(host, O_WRONLY);
    struct stat info = {};
    std::optional<mode_t> mode;
    if (old && ::fstat(old->get(), &info) == 0) {
        mode = info.st_mode & permissions;
    }
    if (replaceByNew(host, bytes, mode)) {
        return;
    }
    if (!old) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    writeInPlace(old->get(), bytes);
    old->close();
}

void copy(const QString &from, const QString &to)
{
    struct stat info = {};
    const QByteArray source = hostName(from);
    const QByteArray bytes = readAll(from);
    const QByteArray target = hostName(to);
    struct stat old = {};
    if (::lstat(target.constData(), &old) == 0 && S_ISREG(old.st_mode)) {
        Descriptor(openFile(target, O_WRONLY)); // a read-only file is not silently replaced
    } else if (S_ISDIR(old.st_mode)) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    if (::stat(source.constData(), &info) != 0) {
        throwFor(source);
    }
    // The owner may write it, so that the next copy can take its place.
    if (!replaceByNew(target, bytes, (info.st_mode & permissions) | S_IWUSR)) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
}

void remove(const QString &path)
{
    const QByteArray host = hostName(path);
    if (::unlink(host.constData()) != 0) {
        throwFor(host);
    }
}

bool isSame(const QString &path, const QString &other)
{
    const auto one = targetOf(path);
    const auto two = targetOf(other);
    return one && two && one->st_dev == two->st_dev && one->st_ino == two->st_ino;
}

bool exists(const QString &path)
{
    try {
        struct stat info = {};
        return ::stat(hostName(path).constData(), &info) == 0 ||
               (errno != ENOENT && errno != ENOTDIR && errno != ELOOP && errno != ENAMETOOLONG);
    } catch (const RuntimeError &) {
        return false; // a name that cannot exist
    }
}

bool isFolder(const QString &path)
{
    const auto target = targetOf(path);
    return target && S_ISDIR(target->st_mode);
}

bool isFile(const QString &path)
{
    const auto target = targetOf(path);
    return target && !S_ISDIR(target->st_mode);
}

void requireFolder(const QString &path)
{
    const Descriptor folder(openFolder(hostName(path)));
}

QStringList subFolders(const QString &path)
{
    return namesIn(path, [](const dirent &entry, int parent) {
        return entry.d_name[0] != '.' && isFolderEntry(entry, parent);
    });
}

QStringList filesMatching(const QString &path, const QString &pattern)
{
    return namesIn(path,
                   [](const dirent &entry, int parent) { return !isFolderEntry(entry, parent); })
        .filter(QRegularExpression::fromWildcard(pattern, Qt::CaseInsensitive));
}

} // namespace files
