// SPDX-License-Identifier: MIT
#include "platform/sub_folder_reader.h"

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/windows/handle.h"

#include <QStringBuilder>

namespace files
{

struct SubFolderReader::Private {
    const QString path; ///< of the host, with a backslash at its end
    const QStringList subFolders;
    const QString name;
    qsizetype index = 0; ///< of the next sub-folder
    FoundFile found;
};

SubFolderReader::SubFolderReader(const QString &folder, const QStringList &subFolders,
                                 const QString &name)
    : d(new Private{paths::join(paths::toHost(folder), {}), subFolders, name, 0, {}})
{
    requireFolder(folder);
}

SubFolderReader::~SubFolderReader() = default;

const FoundFile &SubFolderReader::next()
{
    FoundFile &found = d->found;
    found.name = d->name;
    found.failure.reset();
    const QString folder = d->path + d->subFolders[d->index++];
    const Handle file = tryOpen(wideName(folder % u'\\' % d->name), GENERIC_READ, OPEN_EXISTING,
                                FILE_FLAG_SEQUENTIAL_SCAN);
    const DWORD code = ::GetLastError();
    found.opened = file.isOpen();
    if (found.opened) {
        try {
            requireFile(file);
            readInto(file, found.content);
        } catch (const RuntimeError &error) {
            found.failure = error;
        }
        return found;
    }
    const DWORD attributes = ::GetFileAttributesW(wideName(folder % u'\\' % d->name).c_str());
    const bool isFile =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    if (isFile) {
        found.failure = RuntimeError(errorNumber(code));
        return found;
    }
    found.name.clear();
    const DWORD parent = ::GetFileAttributesW(wideName(folder).c_str());
    if (parent == INVALID_FILE_ATTRIBUTES || (parent & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        throw RuntimeError(code == ERROR_ACCESS_DENIED ? ErrorNumber::PathFileAccess
                                                       : ErrorNumber::PathNotFound);
    }
    return found;
}

} // namespace files
