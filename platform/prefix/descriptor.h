// SPDX-License-Identifier: MIT
// Files and folders of the host, as its own calls know them.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QString>

#include <cerrno>
#include <memory>
#include <optional>
#include <utility>

#include <dirent.h>
#include <fcntl.h>

namespace files
{

constexpr qint64 largestFile = 256 << 20; ///< bytes: no file that anybody made by hand is larger

/// Throws the classic error for the host's error number; a missing file is `whenMissing`.
[[noreturn]] void throwErrno(int error, ErrorNumber whenMissing);

/// The same for errno of a call on a file; where the file's folder is missing too, Path not found.
[[noreturn]] void throwFor(const QByteArray &host);

/// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int descriptor = -1) : m_descriptor(descriptor) {}

    ~Descriptor() { reset(-1); }

    Descriptor(Descriptor &&other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

    Descriptor &operator=(Descriptor &&) = delete;

    int get() const { return m_descriptor; }

    /// Hands the descriptor over: it is no longer closed here.
    int release() { return std::exchange(m_descriptor, -1); }

    /// Closes now, so that what only the close reports is not lost.
    void close();

    void reset(int descriptor);

private:
    int m_descriptor;
};

/// Beside those that say what for: never waits for the other end of a pipe, or for a device.
constexpr int openFlags = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

/// The length in bytes of an open file. A folder, pipe, socket or device is none: Path/File access
/// error (75).
qint64 lengthOf(int descriptor);

/// The same for a file that is to be read: Out of memory (7) beyond `largestFile`.
qint64 lengthToRead(int descriptor);

/// Opens a file, and nothing but a file. Throws as files::readAll.
int openFile(const QByteArray &host, int flags);

/// The same, or nothing when there is nothing of this name: every other failure is thrown.
std::optional<Descriptor> openIfThere(const QByteArray &host, int flags);

/// Writes all of the bytes, which become what is left of them. Throws Disk full (61) and the like.
void writeBytes(int descriptor, QByteArrayView &bytes);

/// The host's name of a Windows path. Throws as paths::toHost.
QByteArray hostName(const QString &path);

/// Throws Path not found (76), Path/File access error (75).
int openFolder(const QByteArray &host);

/// Reads a file into a buffer of one byte at least. It ends at `length` (as lengthToRead told it),
/// or, where the system tells none, where nothing follows. Throws Out of memory (7) for a file
/// beyond `largestFile`; after any other failure the buffer holds what could be read.
void readWhole(int descriptor, qint64 length, QByteArray &buffer);

/// Whether an entry of a folder, given by its descriptor, is a folder or a link to one.
bool isFolderEntry(const dirent &entry, int parent);

/// Calls `visit(name, type)` for each entry of a folder but "." and "..".
template <typename Visit>
void forEachEntry(int folder, Visit visit)
{
    DIR *const stream = ::fdopendir(folder);
    if (stream == nullptr) {
        throwErrno(errno, ErrorNumber::PathNotFound);
    }
    const std::unique_ptr<DIR, int (*)(DIR *)> closing(stream, ::closedir);
    for (errno = 0; const dirent *entry = ::readdir(stream); errno = 0) {
        const QByteArrayView name(entry->d_name);
        if (name != "." && name != "..") {
            visit(*entry, ::dirfd(stream));
        }
    }
    if (errno != 0) { // a folder that breaks off is not one that ends
        throwErrno(errno, ErrorNumber::PathNotFound);
    }
}

} // namespace files
