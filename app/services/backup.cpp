// SPDX-License-Identifier: MIT
#include "app/services/backup.h"

#include "app/services/step.h"
#include "platform/files.h"

void DoBackup(const QString &path, Step &step)
{
    constexpr qint64 longestAbsent = 10; // a copy of at most so many bytes counts as absent
    const QString newest = path + ".Backup1";
    Step own(step);
    own.set("Open " + path);
    if (files::length(path) == 0) {
        return;
    }
    own.set("Open " + newest);
    if (files::openForAppend(newest) > longestAbsent) { // which creates one, too
        own.set("File Copy Backup");
        files::copy(newest, path + ".Backup2");
    }
    files::remove(newest);
    own.set("File Copy Backup");
    files::copy(path, newest);
}
