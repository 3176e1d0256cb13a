// SPDX-License-Identifier: MIT
#include "fpset/fpset_files.h"

#include "app/services/backup.h"
#include "app/services/step.h"
#include "platform/files.h"
#include "platform/runtime_error.h"

namespace fpset_files
{

namespace
{

/// Backs a file up when there is one.
void keepContent(const QString &path, Step &step)
{
    if (files::exists(path)) {
        DoBackup(path, step);
    }
}

} // namespace

void ensureExists(const QString &path)
{
    files::openForAppend(path);
}

void createEmpty(const QString &path, Step &step)
{
    keepContent(path, step);
    files::writeAll(path, {});
}

void copy(const QString &source, const QString &target, Step &step)
{
    if (source.isEmpty()) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
    const QByteArray bytes = files::readAll(source);
    if (files::isSame(source, target)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    // A second try must not push what was there before the first one out of the backups.
    if (files::exists(target) && files::readAll(target) == bytes) {
        return;
    }
    keepContent(target, step);
    files::writeAll(target, bytes);
}

Discarded discard(const QString &path, Step &step)
{
    if (!files::exists(path) || files::isFolder(path)) {
        return Discarded::WasNotThere;
    }
    if (files::moveToTrash(path)) {
        return Discarded::Trashed;
    }
    keepContent(path, step);
    files::remove(path);
    return Discarded::Deleted;
}

} // namespace fpset_files
