// SPDX-License-Identifier: MIT
#include "platform/sub_folder_reader.h"

#include "platform/paths.h"
#include "platform/prefix/descriptor.h"

#include <QFile>

#include <fcntl.h>

namespace files
{

namespace
{

/// Reads a file into the memory that is there already; one call reads nearly every file whole.
/// Returns whether that worked.
bool readInto(FoundFile &found, int parent, const QByteArray &nameOnDisk)
{
    constexpr qsizetype usualSize = 65536; // bytes
    found.failure.reset();
    found.content.resize(usualSize);
    const Descriptor file(::openat(parent, nameOnDisk.constData(), O_RDONLY | O_CLOEXEC));
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
    Descriptor folder;

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
    if (readInto(found, d->folder.get(), QFile::encodeName(subFolder + u'/' + name))) {
        found.name = name;
        return;
    }
    const Descriptor parent(d->openSubFolder(subFolder));
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
