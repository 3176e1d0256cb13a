// SPDX-License-Identifier: MIT
#include "app/services/backup.h"

#include "app/services/step.h"
#include "platform/files.h"

using namespace Qt::StringLiterals;

void DoBackup(const QString &path, Step &step)
{
    constexpr qint64 longestAbsent = 10; // a copy of at most so many bytes counts as absent
    const QString newest = path + u".Backup1"_s;
    Step own(step);
    own.set(u"Open "_s + path);
    if (files::length(path) == 0) {
        return;
    }
    own.set(u"Open "_s + newest);
    if (files::openForAppend(newest, files::Links::Refuse) >
        longestAbsent) { // which creates one, too
        own.set(u"File Copy Backup"_s);
        files::copy(newest, path + u".Backup2"_s);
    }
    files::remove(newest);
    own.set(u"File Copy Backup"_s);
    files::copy(path, newest);
}
