// SPDX-License-Identifier: MIT
#include "platform/prefix/wine_server.h"

#include "platform/files.h"
#include "platform/prefix/descriptor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
    const QString note = prefix + u"/wineserver"_s;
    const QString noted =
        QFileInfo(note).isFile() ? QFile::decodeName(files::readAll(note)).trimmed() : QString();
    if (!noted.isEmpty()) {
        folders << places.temporary + u'/' + noted << QDir::tempPath() + u'/' + noted;
    }
    return folders;
}

/// Whether the lock in a server's folder is held. A folder of somebody else is no server's of ours.
bool isLocked(const QString &folder)
{
    struct stat info = {};
    if (::lstat(QFile::encodeName(folder).constData(), &info) != 0 || !S_ISDIR(info.st_mode) ||
        info.st_uid != ::geteuid()) {
        return false;
    }
    const files::Descriptor file(::open(QFile::encodeName(folder + u"/lock"_s).constData(),
                                        O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (file.get() < 0 && errno != ENOENT) {
        files::throwErrno(errno, ErrorNumber::FileNotFound); // it may be running: nobody knows
    }
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
    const QString server = u"/server-%1-%2"_s.arg(info.st_dev, 0, 16).arg(info.st_ino, 0, 16);
    const QStringList folders = serverFolders(prefix, places);
    return std::any_of(folders.begin(), folders.end(),
                       [&](const QString &folder) { return isLocked(folder + server); });
}
