// SPDX-License-Identifier: MIT
#include "platform/prefix/wine_server.h"

#include "platform/prefix/descriptor.h"

#include <QDir>
#include <QFile>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

/// The folders a Wine server of the prefix may run in; which one depends on who built Wine.
QStringList serverFolders(const QString &prefix, const WineServerPlaces &places)
{
    const QString user = QString::number(::getuid());
    QStringList folders{places.temporary + u"/.wine-"_s + user,
                        places.perUser + u'/' + user + u"/wine"_s};
    // Debian's Wine may make a folder with a random name, which it notes in the prefix.
    QFile note(prefix + u"/wineserver"_s);
    const QString noted =
        note.open(QIODevice::ReadOnly) ? QFile::decodeName(note.readAll()).trimmed() : QString();
    if (!noted.isEmpty()) {
        folders << places.temporary + u'/' + noted << QDir::tempPath() + u'/' + noted;
    }
    return folders;
}

bool isLocked(const QString &path)
{
    const files::Descriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    struct flock held = {};
    held.l_type = F_WRLCK;
    held.l_whence = SEEK_SET;
    return ::fcntl(file.get(), F_GETLK, &held) == 0 && held.l_type != F_UNLCK;
}

} // namespace

bool isWineRunning(const QString &prefix, const WineServerPlaces &places)
{
    struct stat info = {};
    if (::stat(QFile::encodeName(prefix).constData(), &info) != 0) {
        return false;
    }
    // A server's folder is named after the prefix's device and inode.
    const QString lock = u"/server-%1-%2/lock"_s.arg(info.st_dev, 0, 16).arg(info.st_ino, 0, 16);
    const QStringList folders = serverFolders(prefix, places);
    return std::any_of(folders.begin(), folders.end(),
                       [&](const QString &folder) { return isLocked(folder + lock); });
}
