// SPDX-License-Identifier: MIT
// The desktop's trash, by its own rules: the toolkit's way never ends where the trash takes no new
// file, and takes the current directory for one where there is none.
#include "platform/files.h"

#include "platform/prefix/descriptor.h"
#include "platform/runtime_error.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QUrl>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace files
{

namespace
{

/// Makes a folder for this user alone. One that is there already must be that, too, and no link.
bool makePrivateFolder(const QString &host)
{
    const QByteArray name = QFile::encodeName(host);
    struct stat info = {};
    return (::mkdir(name.constData(), 0700) == 0 || errno == EEXIST) &&
           ::lstat(name.constData(), &info) == 0 && S_ISDIR(info.st_mode) &&
           info.st_uid == ::geteuid();
}

bool isOnSameDisk(const QString &one, const QString &other)
{
    struct stat info = {};
    struct stat otherInfo = {};
    return ::stat(QFile::encodeName(one).constData(), &info) == 0 &&
           ::stat(QFile::encodeName(other).constData(), &otherInfo) == 0 &&
           info.st_dev == otherInfo.st_dev;
}

struct Trash {
    QString folder;
    QString start; ///< of the disk, where the paths in its notes start; of the host at home
};

/// The trash of the disk that a file lies on: the user's own on the disk of the home; elsewhere the
/// user's part of the ".Trash" that an administrator made, or one beside it.
Trash trashFor(const QFileInfo &file)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (QDir::isAbsolutePath(data) && QDir().mkpath(data) &&
        isOnSameDisk(file.absolutePath(), data)) {
        return {data + u"/Trash"_s, u"/"_s};
    }
    const QString top = QStorageInfo(file.absolutePath()).rootPath();
    const QString start = top.endsWith(u'/') ? top : top + u'/';
    const QString user = QString::number(::geteuid());
    struct stat shared = {};
    const bool isShared =
        ::lstat(QFile::encodeName(start + u".Trash"_s).constData(), &shared) == 0 &&
        S_ISDIR(shared.st_mode) && (shared.st_mode & S_ISVTX) != 0 &&
        makePrivateFolder(start + u".Trash/"_s + user);
    return {start + (isShared ? u".Trash/"_s : u".Trash-"_s) + user, start};
}

} // namespace

bool moveToTrash(const QString &path)
{
    const QFileInfo file(QFile::decodeName(hostName(path)));
    const auto [trash, start] = trashFor(file);
    if (!makePrivateFolder(trash) || !makePrivateFolder(trash + u"/files"_s) ||
        !makePrivateFolder(trash + u"/info"_s) || !isOnSameDisk(file.filePath(), trash)) {
        return false;
    }
    const QString noted = start == "/"_L1 ? file.absoluteFilePath()
                                          : QDir(start).relativeFilePath(file.absoluteFilePath());
    const QByteArray note =
        "[Trash Info]\nPath=" + QUrl::toPercentEncoding(noted, "/") +
        "\nDeletionDate=" + QDateTime::currentDateTime().toString(Qt::ISODate).toLatin1() + '\n';
    constexpr int mostOfAName = 10'000;
    for (int i = 0; i < mostOfAName; ++i) {
        const QString name = i == 0 ? file.fileName() : file.fileName() + u'.' + QString::number(i);
        const QByteArray info = QFile::encodeName(trash + u"/info/"_s + name + u".trashinfo"_s);
        const QByteArray target = QFile::encodeName(trash + u"/files/"_s + name);
        struct stat taken = {};
        if (::lstat(target.constData(), &taken) == 0) {
            continue; // a file of this name was thrown away before
        }
        Descriptor described(
            ::open(info.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (described.get() < 0 && errno == EEXIST) {
            continue;
        }
        if (described.get() < 0) {
            return false;
        }
        try {
            QByteArrayView rest(note);
            writeBytes(described.get(), rest);
            described.close();
        } catch (const RuntimeError &) {
            ::unlink(info.constData());
            return false;
        }
        if (::rename(QFile::encodeName(file.filePath()).constData(), target.constData()) == 0) {
            return true;
        }
        ::unlink(info.constData());
        return false;
    }
    return false;
}

} // namespace files
