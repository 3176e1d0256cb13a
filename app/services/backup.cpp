// SPDX-License-Identifier: MIT
#include "app/services/backup.h"

#include "app/services/step.h"
#include "platform/files.h"

namespace
{

constexpr int generationsExamined = 1;
constexpr qint64 longestAbsent = 10; // a copy of at most so many bytes counts as absent

QString generation(const QString &path, int number)
{
    return path + ".Backup" + QString::number(number);
}

/// Whether a generation is there. Looking creates the file, which is then deleted again.
bool isPresent(const QString &candidate, Step &step)
{
    step.set("Open " + candidate);
    if (files::openForAppend(candidate) > longestAbsent) {
        return true;
    }
    files::remove(candidate);
    return false;
}

} // namespace

void DoBackup(const QString &path, Step &step)
{
    Step own(step);
    own.set("Open " + path);
    if (files::length(path) == 0) {
        return;
    }
    int present = 0;
    for (int number = 1; number <= generationsExamined; ++number) {
        present += isPresent(generation(path, number), own) ? 1 : 0;
    }
    own.set("File Copy Backup");
    if (present > 0) {
        files::copy(generation(path, 1), generation(path, 2));
        files::remove(generation(path, 1));
    }
    files::copy(path, generation(path, 1));
}
