// SPDX-License-Identifier: MIT
#include "platform/prefix/descriptor.h"

#include "platform/paths.h"

#include <QFile>

#include <algorithm>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace files
{

void throwErrno(int error, ErrorNumber whenMissing)
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
    case ENXIO:
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

void Descriptor::close()
{
    const int descriptor = std::exchange(m_descriptor, -1);
    if (::close(descriptor) != 0 && errno != EINTR) {
        throwErrno(errno, ErrorNumber::DeviceIoError);
    }
}

void Descriptor::reset(int descriptor)
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
    m_descriptor = descriptor;
}

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

} // namespace

void throwFor(const QByteArray &host)
{
    const int error = errno;
    throwErrno(error, missing(host));
}

qint64 lengthOf(int descriptor)
{
    struct stat info = {};
    if (::fstat(descriptor, &info) != 0) {
        throwErrno(errno, ErrorNumber::FileNotFound);
    }
    if (!S_ISREG(info.st_mode)) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    return info.st_size;
}

qint64 lengthToRead(int descriptor)
{
    const qint64 length = lengthOf(descriptor);
    if (length > largestFile) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    return length;
}

int openFile(const QByteArray &host, int flags)
{
    Descriptor file(::open(host.constData(), flags | openFlags, 0666));
    if (file.get() < 0) {
        throwFor(host);
    }
    lengthOf(file.get());
    return file.release();
}

std::optional<Descriptor> openIfThere(const QByteArray &host, int flags)
{
    struct stat info = {};
    if (::lstat(host.constData(), &info) != 0 && errno == ENOENT) {
        return std::nullopt; // unlike a link that leads nowhere: its disk may only be absent
    }
    return Descriptor(openFile(host, flags));
}

void writeBytes(int descriptor, QByteArrayView &bytes)
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

QByteArray hostName(const QString &path)
{
    return QFile::encodeName(paths::toHost(path));
}

int openFolder(const QByteArray &host)
{
    const int descriptor = ::open(host.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        throwErrno(errno, ErrorNumber::PathNotFound);
    }
    return descriptor;
}

void readWhole(int descriptor, qint64 length, QByteArray &buffer)
{
    qsizetype filled = 0;
    for (;;) {
        const ssize_t count = ::read(descriptor, buffer.data() + filled,
                                     static_cast<std::size_t>(buffer.size() - filled));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            const int error = errno;
            buffer.resize(filled); // as far as it could be read
            throwErrno(error, ErrorNumber::FileNotFound);
        }
        filled += count;
        if (count == 0 || filled == length) {
            break;
        }
        if (filled > largestFile) {
            buffer.clear();
            throw RuntimeError(ErrorNumber::OutOfMemory);
        }
        if (filled == buffer.size()) {
            buffer.resize(buffer.size() * 2);
        }
    }
    buffer.resize(filled);
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

} // namespace files
