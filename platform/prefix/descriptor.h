// SPDX-License-Identifier: MIT
// Files and folders of the host, as its own calls know them.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QString>

#include <cerrno>

#include <dirent.h>

namespace files
{

/// Throws the classic error for the host's error number; a missing file is `whenMissing`.
[[noreturn]] void throwErrno(int error, ErrorNumber whenMissing);

/// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int descriptor = -1) : m_descriptor(descriptor) {}

    ~Descriptor() { reset(-1); }

    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int get() const { return m_descriptor; }

    /// Closes now, so that what only the close reports is not lost.
    void close();

    void reset(int descriptor);

private:
    int m_descriptor;
};

/// The host's name of a Windows path. Throws as paths::toHost.
QByteArray hostName(const QString &path);

/// Throws Path not found (76), Path/File access error (75).
int openFolder(const QByteArray &host);

/// Reads on from the `filled` bytes that the buffer holds already, to the end of the file.
void readRest(int descriptor, qsizetype filled, QByteArray &buffer);

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
    while (const dirent *entry = ::readdir(stream)) {
        const QByteArrayView name(entry->d_name);
        if (name != "." && name != "..") {
            visit(*entry, ::dirfd(stream));
        }
    }
    ::closedir(stream);
}

} // namespace files
