// SPDX-License-Identifier: MIT
// Windows paths in a Wine prefix.
#include "platform/paths.h"

#include "platform/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <memory>
#include <optional>

#include <dirent.h>
#include <sys/stat.h>

namespace paths
{

namespace
{

QString ownPrefix()
{
    const QString own =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/morlen-utilities";
    const QDir dir(own);
    if (!dir.exists("dosdevices")) {
        dir.mkpath("drive_c/windows/system32");
        dir.mkpath("dosdevices");
        QFile::link("../drive_c", dir.filePath("dosdevices/c:"));
        QFile::link("/", dir.filePath("dosdevices/z:"));
    }
    return own;
}

QString driveLink(QChar letter)
{
    return prefix() + "/dosdevices/" + letter.toLower() + ':';
}

bool isDriveLetter(QChar c)
{
    const QChar lower = c.toLower();
    return lower >= 'a' && lower <= 'z';
}

bool existsOnHost(const QString &path)
{
    struct stat info = {};
    return lstat(QFile::encodeName(path).constData(), &info) == 0;
}

/// The name in a host folder that equals `name` blind to case; `name` itself when there is none.
QString nameOnDisk(const QString &folder, const QString &name)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> dir(opendir(QFile::encodeName(folder).constData()),
                                                   closedir);
    if (!dir) {
        return name;
    }
    while (const dirent *entry = readdir(dir.get())) {
        const QString found = QFile::decodeName(entry->d_name);
        if (found.compare(name, Qt::CaseInsensitive) == 0) {
            return found;
        }
    }
    return name;
}

/// The components of a path without its drive: "." stays, ".." goes up.
QStringList components(QStringView path)
{
    QStringList names;
    for (const QStringView part : QString(path.toString()).replace('/', '\\').split('\\')) {
        if (part.isEmpty() || part == u".") {
            continue;
        }
        if (part == u"..") {
            if (!names.isEmpty()) {
                names.removeLast();
            }
            continue;
        }
        if (!isValidName(part)) {
            throw RuntimeError(ErrorNumber::BadFileName);
        }
        names += part.toString();
    }
    return names;
}

QString resolve(const QString &root, const QStringList &names)
{
    const QString base = root == "/" ? QString() : root;
    const QString asSpelled = names.isEmpty() ? root : base + '/' + names.join('/');
    if (existsOnHost(asSpelled)) {
        return asSpelled;
    }
    QString path = base;
    for (const QString &name : names) {
        const QString exact = path + '/' + name;
        path = existsOnHost(exact) ? exact : path + '/' + nameOnDisk(path + '/', name);
    }
    return path.isEmpty() ? root : path;
}

/// `rest` of `path` below `folder`, or nothing when it lies elsewhere. Both are absolute and clean.
std::optional<QString> below(const QString &folder, const QString &path)
{
    if (folder == "/" || path == folder) {
        return path.sliced(folder == "/" ? 0 : folder.size());
    }
    if (path.startsWith(folder + '/')) {
        return path.sliced(folder.size());
    }
    return std::nullopt;
}

QString driveRoot(QChar letter)
{
    const QString target = QFileInfo(driveLink(letter)).canonicalFilePath();
    if (target.isEmpty()) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    return target;
}

} // namespace

QString prefix()
{
    const QByteArray set = qgetenv("WINEPREFIX");
    if (!set.isEmpty()) {
        return QFile::decodeName(set);
    }
    const QString wine = QDir::homePath() + "/.wine";
    return QFileInfo::exists(wine) ? wine : ownPrefix();
}

QStringList drives()
{
    QStringList letters;
    const QDir links(prefix() + "/dosdevices");
    for (const QString &name : links.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (name.size() == 2 && isDriveLetter(name[0]) && name[1] == ':') {
            letters += name.toLower();
        }
    }
    return letters;
}

QString toHost(const QString &windowsPath)
{
    if (windowsPath.isEmpty()) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
    if (windowsPath.startsWith('/')) {
        return windowsPath;
    }
    const bool hasDrive =
        windowsPath.size() >= 2 && windowsPath[1] == ':' && isDriveLetter(windowsPath[0]);
    if (hasDrive) {
        return resolve(driveRoot(windowsPath[0]), components(QStringView(windowsPath).sliced(2)));
    }
    if (windowsPath.startsWith('\\')) {
        return toHost(currentDirectory().first(2) + windowsPath);
    }
    return toHost(join(currentDirectory(), windowsPath));
}

QString fromHost(const QString &hostPath)
{
    const QString path = QDir::cleanPath(hostPath);
    QString bestDrive = QStringLiteral("z:");
    QString bestRest = path;
    qsizetype bestLength = -1;
    for (const QString &drive : drives()) {
        const QString link = driveLink(drive[0]);
        const QFileInfo info(link);
        // A drive is known by its link, by what the link says and by where that really is.
        const QStringList roots = {link, QDir::cleanPath(info.symLinkTarget()),
                                   info.canonicalFilePath()};
        for (const QString &root : roots) {
            const std::optional<QString> rest = root.isEmpty() ? std::nullopt : below(root, path);
            if (rest && root.size() > bestLength) {
                bestLength = root.size();
                bestDrive = drive;
                bestRest = *rest;
            }
        }
    }
    const QString rest = QString(bestRest).replace('/', '\\');
    return bestDrive.toUpper() + (rest.isEmpty() ? QStringLiteral("\\") : rest);
}

QString currentDirectory()
{
    return fromHost(QDir::currentPath());
}

void setCurrentDirectory(const QString &windowsPath)
{
    if (!QDir::setCurrent(toHost(windowsPath))) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
}

} // namespace paths
