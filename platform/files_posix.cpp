// SPDX-License-Identifier: MIT
#include "platform/files.h"

#include "platform/basic_text.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace files
{

namespace
{

[[noreturn]] void throwErrno(int error, ErrorNumber whenMissing)
{
    switch (error) {
    case ENOENT:
        throw RuntimeError(whenMissing);
    case ENOTDIR:
    case ELOOP:
        throw RuntimeError(ErrorNumber::PathNotFound);
    case EACCES:
    case EPERM:
    case EISDIR:
        throw RuntimeError(ErrorNumber::PathFileAccess);
    case EROFS:
    case EBUSY:
    case ETXTBSY:
        throw RuntimeError(ErrorNumber::PermissionDenied);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        throw RuntimeError(ErrorNumber::DiskFull);
    case ENAMETOOLONG:
    case EINVAL:
        throw RuntimeError(ErrorNumber::BadFileName);
    default:
        throw RuntimeError(ErrorNumber::DeviceIoError);
    }
}

/// A file descriptor that closes itself.
class Handle
{
public:
    explicit Handle(int descriptor = -1) : m_descriptor(descriptor) {}

    ~Handle()
    {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }

    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;

    int get() const { return m_descriptor; }

    /// Closes now, so that what only the close reports is not lost.
    void close()
    {
        const int descriptor = std::exchange(m_descriptor, -1);
        if (::close(descriptor) != 0 && errno != EINTR) {
            throwErrno(errno, ErrorNumber::DeviceIoError);
        }
    }

    void reset(int descriptor)
    {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
        m_descriptor = descriptor;
    }

private:
    int m_descriptor;
};

QByteArray hostName(const QString &path)
{
    return QFile::encodeName(paths::toHost(path));
}

/// File not found when only the file is missing, Path not found when its folder is too.
ErrorNumber missing(const QByteArray &host)
{
    const QByteArray folder = host.first(std::max<qsizetype>(host.lastIndexOf('/'), 1));
    struct stat info = {};
    return ::stat(folder.constData(), &info) == 0 && S_ISDIR(info.st_mode)
               ? ErrorNumber::FileNotFound
               : ErrorNumber::PathNotFound;
}

int openOrThrow(const QByteArray &host, int flags)
{
    const int descriptor = ::open(host.constData(), flags | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        const int error = errno;
        throwErrno(error, error == ENOENT ? missing(host) : ErrorNumber::FileNotFound);
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

/// Reads on from the `filled` bytes that the buffer holds already, to the end of the file.
void readRest(int descriptor, qsizetype filled, QByteArray &buffer)
{
    for (;;) {
        const ssize_t count = ::read(descriptor, buffer.data() + filled,
                                     static_cast<std::size_t>(buffer.size() - filled));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            throwErrno(errno, ErrorNumber::FileNotFound);
        }
        filled += count;
        if (count == 0) {
            break;
        }
        if (filled == buffer.size()) {
            buffer.resize(buffer.size() * 2);
        }
    }
    buffer.resize(filled);
}

/// The number of bytes written before a write failed, with the error it failed with (0: none).
struct WriteResult {
    qsizetype written = 0;
    int error = 0;
};

WriteResult writeBytes(int descriptor, const QByteArray &bytes)
{
    WriteResult result;
    while (result.written < bytes.size() && result.error == 0) {
        const ssize_t count = ::write(descriptor, bytes.constData() + result.written,
                                      static_cast<std::size_t>(bytes.size() - result.written));
        if (count >= 0) {
            result.written += count;
        } else if (errno != EINTR) {
            result.error = errno;
        }
    }
    return result;
}

/// Whether the file ends within a line. A file that may not be read is taken to be complete.
bool endsWithinLine(const QByteArray &host, qint64 length)
{
    const Handle file(::open(host.constData(), O_RDONLY | O_CLOEXEC));
    char last = '\n';
    if (length == 0 || file.get() < 0 || ::pread(file.get(), &last, 1, length - 1) != 1) {
        return false;
    }
    return last != '\n' && last != '\r';
}

/// Calls `visit(name, type)` for each entry of a folder but "." and "..".
template <typename Visit>
void forEachEntry(int folder, Visit visit)
{
    DIR *const stream = ::fdopendir(folder);
    if (stream == nullptr) {
        throwErrno(errno, ErrorNumber::PathNotFound);
    }
    while (const dirent *entry = ::readdir(stream)) {
        const QByteArrayView name(entry->d_name);
        if (name != "." && name != "..") {
            visit(*entry, ::dirfd(stream));
        }
    }
    ::closedir(stream);
}

int openFolder(const QByteArray &host)
{
    const int descriptor = ::open(host.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        throwErrno(errno, ErrorNumber::PathNotFound);
    }
    return descriptor;
}

bool isFolderEntry(const dirent &entry, int parent)
{
    if (entry.d_type == DT_DIR) {
        return true;
    }
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) {
        return false;
    }
    struct stat info = {};
    return ::fstatat(parent, entry.d_name, &info, 0) == 0 && S_ISDIR(info.st_mode);
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

/// "aircraft*.txt" as a regular expression, blind to case.
QRegularExpression patternExpression(const QString &pattern)
{
    return QRegularExpression(
        QRegularExpression::wildcardToRegularExpression(QString(pattern).replace('\\', '/')),
        QRegularExpression::CaseInsensitiveOption);
}

/// A limit on file sizes must come back as an error of the write, not as a signal that ends us.
const bool fileSizeSignalIgnored = std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR;

} // namespace

QByteArray readAll(const QString &path)
{
    const Handle file(openOrThrow(hostName(path), O_RDONLY));
    QByteArray bytes(lengthOf(file.get()) + 1, Qt::Uninitialized); // one more sees the end at once
    readRest(file.get(), 0, bytes);
    return bytes;
}

qint64 length(const QString &path)
{
    const Handle file(openOrThrow(hostName(path), O_RDONLY));
    return lengthOf(file.get());
}

qint64 openForAppend(const QString &path)
{
    Handle file(openOrThrow(hostName(path), O_WRONLY | O_APPEND | O_CREAT));
    const qint64 size = lengthOf(file.get());
    file.close();
    return size;
}

void appendLines(const QString &path, const QByteArray &bytes)
{
    const QByteArray host = hostName(path);
    Handle file(openOrThrow(host, O_WRONLY | O_APPEND | O_CREAT));
    const qint64 before = lengthOf(file.get());
    const WriteResult result =
        writeBytes(file.get(), endsWithinLine(host, before) ? "\r\n" + bytes : bytes);
    if (result.error != 0) {
        if (result.written > 0 && ::ftruncate(file.get(), before) != 0) {
            // Half an entry stays then; the error that caused it is the one to report.
            throwErrno(result.error, ErrorNumber::FileNotFound);
        }
        throwErrno(result.error, ErrorNumber::FileNotFound);
    }
    file.close();
}

void writeAll(const QString &path, const QByteArray &bytes)
{
    const QByteArray host = hostName(path);
    // Opening for writing first refuses what a rename would silently replace: a read-only file.
    const Handle old(::open(host.constData(), O_WRONLY | O_CLOEXEC));
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
        Handle direct(openOrThrow(host, O_WRONLY | O_CREAT | O_TRUNC));
        const WriteResult result = writeBytes(direct.get(), bytes);
        if (result.error != 0) {
            throwErrno(result.error, ErrorNumber::FileNotFound);
        }
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
        const int error = errno;
        throwErrno(error, error == ENOENT ? missing(host) : ErrorNumber::FileNotFound);
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
    const QByteArray trash = QFile::encodeName(
        atHome ? data + "/Trash" : disk.rootPath() + "/.Trash-" + QString::number(::getuid()));
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
    try {
        struct stat info = {};
        struct stat otherInfo = {};
        return ::stat(hostName(path).constData(), &info) == 0 &&
               ::stat(hostName(other).constData(), &otherInfo) == 0 &&
               info.st_dev == otherInfo.st_dev && info.st_ino == otherInfo.st_ino;
    } catch (const RuntimeError &) {
        return false; // a name that cannot exist leads nowhere
    }
}

bool exists(const QString &path)
{
    try {
        struct stat info = {};
        return ::stat(hostName(path).constData(), &info) == 0;
    } catch (const RuntimeError &) {
        return false; // a name that cannot exist does not
    }
}

bool isFolder(const QString &path)
{
    try {
        struct stat info = {};
        return ::stat(hostName(path).constData(), &info) == 0 && S_ISDIR(info.st_mode);
    } catch (const RuntimeError &) {
        return false; // a name that cannot exist is no folder
    }
}

void requireFolder(const QString &path)
{
    const Handle folder(openFolder(hostName(path)));
}

QStringList subFolders(const QString &path)
{
    QStringList names;
    forEachEntry(openFolder(hostName(path)), [&](const dirent &entry, int parent) {
        if (entry.d_name[0] != '.' && isFolderEntry(entry, parent)) {
            const QString name = spelledName(entry);
            if (!name.isEmpty()) {
                names += name;
            }
        }
    });
    basic::sortBlindToCase(names);
    return names;
}

QStringList filesMatching(const QString &path, const QString &pattern)
{
    const QRegularExpression expression = patternExpression(pattern);
    QStringList names;
    forEachEntry(openFolder(hostName(path)), [&](const dirent &entry, int parent) {
        if (isFolderEntry(entry, parent)) {
            return;
        }
        const QString name = spelledName(entry);
        if (!name.isEmpty() && expression.match(name).hasMatch()) {
            names += name;
        }
    });
    basic::sortBlindToCase(names);
    return names;
}

namespace
{

/// Reads a file into the memory that is there already; one call reads nearly every file whole.
/// Returns whether that worked.
bool readInto(FoundFile &found, int parent, const QByteArray &nameOnDisk)
{
    constexpr qsizetype usualSize = 65536; // bytes
    found.failure.reset();
    found.content.resize(usualSize);
    const Handle file(::openat(parent, nameOnDisk.constData(), O_RDONLY | O_CLOEXEC));
    try {
        if (file.get() < 0) {
            throwErrno(errno, ErrorNumber::FileNotFound);
        }
        readRest(file.get(), 0, found.content);
    } catch (const RuntimeError &error) {
        found.failure = error;
    }
    return !found.failure;
}

QByteArray nameBlindToCase(int folder, const QString &name)
{
    QByteArray onDisk;
    forEachEntry(::dup(folder), [&](const dirent &entry, int parent) {
        if (onDisk.isEmpty() && !isFolderEntry(entry, parent) &&
            QFile::decodeName(entry.d_name).compare(name, Qt::CaseInsensitive) == 0) {
            onDisk = entry.d_name;
        }
    });
    return onDisk;
}

} // namespace

struct SubFolderReader::Private {
    QString path;
    Handle folder;

    int openSubFolder(const QString &name) const
    {
        const int descriptor = ::openat(folder.get(), QFile::encodeName(name).constData(),
                                        O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        // A name spelled in another case is found by looking for it.
        return descriptor < 0 && errno == ENOENT ? openFolder(hostName(paths::join(path, name)))
                                                 : descriptor;
    }
};

SubFolderReader::SubFolderReader(const QString &folder) : d(std::make_unique<Private>())
{
    d->path = folder;
    d->folder.reset(openFolder(hostName(folder)));
}

SubFolderReader::~SubFolderReader() = default;

void SubFolderReader::read(const QString &subFolder, const QString &name, FoundFile &found) const
{
    // Nearly always the name is spelled as expected: then one call both finds and opens it.
    if (readInto(found, d->folder.get(), QFile::encodeName(subFolder + '/' + name))) {
        found.name = name;
        return;
    }
    const Handle parent(d->openSubFolder(subFolder));
    if (parent.get() < 0) {
        throwErrno(errno, ErrorNumber::PathNotFound);
    }
    const QByteArray onDisk = nameBlindToCase(parent.get(), name);
    found.name = QFile::decodeName(onDisk);
    if (!onDisk.isEmpty()) {
        readInto(found, parent.get(), onDisk);
    }
}

} // namespace files
