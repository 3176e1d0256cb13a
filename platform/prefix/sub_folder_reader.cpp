// SPDX-License-Identifier: MIT
#include "platform/sub_folder_reader.h"

#include "platform/paths.h"
#include "platform/prefix/descriptor.h"

#include <QFile>
#include <QStringBuilder>

#include <algorithm>
#include <deque>

#include <fcntl.h>
#include <sys/resource.h>

namespace files
{

namespace
{

constexpr std::size_t usualWindow = 32; // files open at a time
constexpr rlim_t leftFree = 16;         // descriptors that the rest of the program may need

/// Reads a file into the memory that is there already; one call reads nearly every file whole.
void readInto(FoundFile &found, int file)
{
    constexpr qsizetype usualSize = 65536; // bytes
    found.opened = false;
    found.failure.reset();
    try {
        if (file < 0) {
            throwErrno(errno, ErrorNumber::FileNotFound);
        }
        const qint64 length = lengthToRead(file);
        found.opened = true;
        found.content.resize(usualSize);
        readWhole(file, length, found.content);
    } catch (const RuntimeError &error) {
        found.failure = error;
    }
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
    Private(const QString &parent, const QStringList &names, const QString &file)
        : path(parent), subFolders(names), name(file), folder(openFolder(hostName(parent)))
    {
        ::getrlimit(RLIMIT_NOFILE, &limit);
    }

    const QString path;
    const QStringList subFolders;
    const QString name;
    const Descriptor folder;
    rlimit limit = {};                ///< of descriptors
    std::size_t window = usualWindow; ///< files open at a time
    std::deque<Descriptor> ahead;     ///< those of the next sub-folders; -1 for what did not open
    qsizetype index = 0;              ///< of the next sub-folder
    FoundFile found;

    /// Opens the files of the next sub-folders, nearly always spelled as expected, and has the
    /// system fetch them. Where descriptors are few it is one file at a time.
    void openAhead()
    {
        const auto left = static_cast<std::size_t>(subFolders.size() - index);
        while (ahead.size() < std::min(window, left)) {
            const QString &subFolder = subFolders[index + static_cast<qsizetype>(ahead.size())];
            const QByteArray file = QFile::encodeName(subFolder % u'/' % name);
            const int opened = ::openat(folder.get(), file.constData(), O_RDONLY | openFlags);
            ahead.emplace_back(opened);
            const bool few = opened < 0 ? errno == EMFILE
                                        : static_cast<rlim_t>(opened) + leftFree > limit.rlim_cur;
            if (few && window > 1) {
                ahead.clear();
                window = 1;
            } else if (opened >= 0) {
                ::posix_fadvise(opened, 0, 0, POSIX_FADV_WILLNEED);
            }
        }
    }

    int openSubFolder(const QString &subFolder) const
    {
        const int descriptor = ::openat(folder.get(), QFile::encodeName(subFolder).constData(),
                                        O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        // A name spelled in another case is found by looking for it.
        return descriptor < 0 && errno == ENOENT
                   ? openFolder(hostName(paths::join(path, subFolder)))
                   : descriptor;
    }
};

SubFolderReader::SubFolderReader(const QString &folder, const QStringList &subFolders,
                                 const QString &name)
    : d(std::make_unique<Private>(folder, subFolders, name))
{
}

SubFolderReader::~SubFolderReader() = default;

const FoundFile &SubFolderReader::next()
{
    FoundFile &found = d->found;
    found.name = d->name;
    found.opened = false;
    d->openAhead();
    if (d->ahead.front().get() >= 0) {
        readInto(found, d->ahead.front().get());
    }
    d->ahead.pop_front();
    const QString &subFolder = d->subFolders[d->index++];
    if (found.opened && !found.failure) {
        return found;
    }
    const Descriptor parent(d->openSubFolder(subFolder));
    if (parent.get() < 0) {
        throwErrno(errno, ErrorNumber::PathNotFound);
    }
    const QByteArray onDisk = nameBlindToCase(parent.get(), d->name);
    found.name = QFile::decodeName(onDisk);
    if (!onDisk.isEmpty()) {
        const Descriptor file(::openat(parent.get(), onDisk.constData(), O_RDONLY | openFlags));
        readInto(found, file.get());
    }
    return found;
}

} // namespace files
