// SPDX-License-Identifier: MIT
#include "platform/files.h"

#include "platform/list_order.h"
#include "platform/paths.h"
#include "platform/prefix/descriptor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>
#include <cerrno>
#include <optional>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace files
{

namespace
{

/// File not found when only the file is missing, Path not found when its folder is too.
ErrorNumber missing(const QByteArray &host)
{
    const QByteArray folder = host.first(std::max<qsizetype>(host.lastIndexOf('/'), 1));
    struct stat info = {};
    return ::stat(folder.constData(), &info) == 0 && S_ISDIR(info.st_mode)
               ? ErrorNumber::FileNotFound
               : ErrorNumber::PathNotFound;
}

[[noreturn]] void throwFor(const QByteArray &host)
{
    const int error = errno;
    throwErrno(error, missing(host));
}

int openOrThrow(const QByteArray &host, int flags)
{
    const int descriptor = ::open(host.constData(), flags | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        throwFor(host);
    }
    return descriptor;
}

/// The length of an open file; a folder is no file.
qint64 lengthOf(int descriptor)
{
    struct stat info = {};
    if (::fstat(descriptor, &info) != 0) {
        throwErrno(errno, ErrorNumber::FileNotFound);
    }
    if (S_ISDIR(info.st_mode)) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    return info.st_size;
}

void writeBytes(int descriptor, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t count =
            ::write(descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (count >= 0) {
            bytes = bytes.sliced(count);
        } else if (errno != EINTR) {
            throwErrno(errno, ErrorNumber::FileNotFound);
        }
    }
}

/// Whether the file ends within a line. A file that may not be read is taken to be complete.
bool endsWithinLine(const QByteArray &host, qint64 length)
{
    const Descriptor file(::open(host.constData(), O_RDONLY | O_CLOEXEC));
    char last = '\n';
    if (length == 0 || file.get() < 0 || ::pread(file.get(), &last, 1, length - 1) != 1) {
        return false;
    }
    return last != '\n' && last != '\r';
}

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
    const Descriptor file(openOrThrow(hostName(path), O_RDONLY));
    QByteArray bytes(lengthOf(file.get()) + 1, Qt::Uninitialized); // one more sees the end at once
    readRest(file.get(), 0, bytes);
    return bytes;
}

qint64 length(const QString &path)
{
    const Descriptor file(openOrThrow(hostName(path), O_RDONLY));
    return lengthOf(file.get());
}

qint64 openForAppend(const QString &path)
{
    Descriptor file(openOrThrow(hostName(path), O_WRONLY | O_APPEND | O_CREAT));
    const qint64 size = lengthOf(file.get());
    file.close();
    return size;
}

void appendLines(const QString &path, const QByteArray &bytes)
{
    const QByteArray host = hostName(path);
    Descriptor file(openOrThrow(host, O_WRONLY | O_APPEND | O_CREAT));
    const qint64 before = lengthOf(file.get());
    try {
        writeBytes(file.get(), endsWithinLine(host, before) ? "\r\n" + bytes : bytes);
    } catch (const RuntimeError &) {
        // Where even this fails half an entry stays; what made it so is the error to report.
        [[maybe_unused]] const int cut = ::ftruncate(file.get(), before);
        throw;
    }
    file.close();
}

void writeAll(const QString &path, const QByteArray &bytes)
{
    const QByteArray host = hostName(path);
    // Opening for writing first refuses what a rename would silently replace: a read-only file.
    const Descriptor old(::open(host.constData(), O_WRONLY | O_CLOEXEC));
    if (old.get() < 0 && errno != ENOENT) {
        throwErrno(errno, ErrorNumber::FileNotFound);
    }
    struct stat info = {};
    const bool isDevice =
        old.get() >= 0 && ::fstat(old.get(), &info) == 0 && !S_ISREG(info.st_mode);
    QSaveFile file(QFile::decodeName(host));
    if (isDevice || !file.open(QIODevice::WriteOnly)) {
        // A device is not to be replaced; or the folder takes no new files, but the file itself may
        // be written.
        Descriptor direct(openOrThrow(host, O_WRONLY | O_CREAT | O_TRUNC));
        writeBytes(direct.get(), bytes);
        direct.close();
        return;
    }
    // The flush is asked for itself: what fails within the commit is not reported by every Qt.
    if (file.write(bytes) != bytes.size() || !file.flush() || !file.commit()) {
        throwErrno(file.error() == QFileDevice::ResourceError ? ENOSPC : errno,
                   ErrorNumber::DeviceIoError);
    }
}

void copy(const QString &from, const QString &to)
{
    writeAll(to, readAll(from));
}

void remove(const QString &path)
{
    const QByteArray host = hostName(path);
    if (::unlink(host.constData()) != 0) {
        throwFor(host);
    }
}

namespace
{

bool makePrivateFolder(const QByteArray &host)
{
    return (::mkdir(host.constData(), 0700) == 0 || errno == EEXIST) &&
           ::faccessat(AT_FDCWD, host.constData(), W_OK, AT_EACCESS) == 0;
}

/// Whether there is a trash for a file. To be asked first: without one the toolkit would move the
/// file into the current directory.
bool hasTrash(const QString &host)
{
    const QStorageInfo disk(host);
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const bool atHome = disk == QStorageInfo(QDir::home()) && QDir().mkpath(data);
    const QByteArray trash =
        QFile::encodeName(atHome ? data + u"/Trash"_s
                                 : disk.rootPath() + u"/.Trash-"_s + QString::number(::getuid()));
    return makePrivateFolder(trash) && makePrivateFolder(trash + "/files") &&
           makePrivateFolder(trash + "/info");
}

} // namespace

bool moveToTrash(const QString &path)
{
    const QString host = QFile::decodeName(hostName(path));
    return hasTrash(host) && QFile::moveToTrash(host);
}

bool isSame(const QString &path, const QString &other)
{
    const auto one = targetOf(path);
    const auto two = targetOf(other);
    return one && two && one->st_dev == two->st_dev && one->st_ino == two->st_ino;
}

bool exists(const QString &path)
{
    return targetOf(path).has_value();
}

bool isFolder(const QString &path)
{
    const auto target = targetOf(path);
    return target && S_ISDIR(target->st_mode);
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
