// SPDX-License-Identifier: MIT
// Windows paths in a Wine prefix.
#include "platform/paths.h"

#include "platform/blind_to_case.h"
#include "platform/prefix/prefix.h"
#include "platform/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <memory>
#include <optional>

#include <dirent.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace paths
{

namespace
{

QString ownPrefix()
{
    const QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const QDir own(data.filePath(QString::fromLatin1(OWN_PREFIX)));
    if (!own.exists(u"dosdevices"_s)) {
        own.mkpath(u"drive_c/windows/system32"_s);
        own.mkpath(u"dosdevices"_s);
        QFile::link(u"../drive_c"_s, own.filePath(u"dosdevices/c:"_s));
        QFile::link(u"/"_s, own.filePath(u"dosdevices/z:"_s));
    }
    return own.path();
}

QString driveLink(QChar letter)
{
    return prefix() + u"/dosdevices/"_s + letter.toLower() + u':';
}

bool isDriveLetter(QChar c)
{
    const QChar lower = c.toLower();
    return lower >= u'a' && lower <= u'z';
}

bool existsOnHost(const QString &path)
{
    struct stat info = {};
    return lstat(QFile::encodeName(path).constData(), &info) == 0;
}

/// The name in a host folder that equals `name` blind to case; `name` itself when there is none.
QString nameOnDisk(const QString &folder, const QString &name)
{
    // The system's own calls: a folder of thousands is looked through for each misspelled name.
    const std::unique_ptr<DIR, int (*)(DIR *)> entries(
        ::opendir(QFile::encodeName(folder).constData()), ::closedir);
    while (const dirent *entry = entries ? ::readdir(entries.get()) : nullptr) {
        const QString found = QFile::decodeName(entry->d_name);
        if (blind_to_case::equal(found, name)) {
            return found;
        }
    }
    return name;
}

QString resolve(const QString &root, const QStringList &names)
{
    const QString base = root == "/"_L1 ? QString() : root;
    const QString asSpelled = names.isEmpty() ? root : base + u'/' + names.join(u'/');
    if (existsOnHost(asSpelled)) {
        return asSpelled;
    }
    QString path = base;
    for (const QString &name : names) {
        const QString exact = path + u'/' + name;
        path = existsOnHost(exact) ? exact : path + u'/' + nameOnDisk(path + u'/', name);
    }
    return path.isEmpty() ? root : path;
}

/// `rest` of `path` below `folder`, or nothing when it lies elsewhere. Both are absolute and clean.
std::optional<QString> below(const QString &folder, const QString &path)
{
    const QString base = folder == "/"_L1 ? QString() : folder;
    const bool isBelow = path == folder || path.startsWith(base + u'/');
    return isBelow ? std::optional(path.sliced(base.size())) : std::nullopt;
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
    const QString wine = QDir::homePath() + u"/.wine"_s;
    return QFileInfo::exists(wine) ? wine : ownPrefix();
}

QStringList drives()
{
    QStringList letters;
    const QDir links(prefix() + u"/dosdevices"_s);
    for (const QString &name : links.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (name.size() == 2 && isDriveLetter(name[0]) && name[1] == u':') {
            letters += name.toLower();
        }
    }
    return letters;
}

QString toHost(const QString &windowsPath)
{
    constexpr qsizetype longestPath = 32'767; // characters, as on Windows
    if (windowsPath.isEmpty() || windowsPath.size() > longestPath) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
    if (windowsPath.startsWith(u'/')) {
        return windowsPath;
    }
    const bool hasDrive =
        windowsPath.size() >= 2 && windowsPath[1] == u':' && isDriveLetter(windowsPath[0]);
    if (hasDrive) {
        return resolve(driveRoot(windowsPath[0]), components(QStringView(windowsPath).sliced(2)));
    }
    if (windowsPath.startsWith(u'\\')) {
        return toHost(currentDirectory().first(2) + windowsPath);
    }
    return toHost(join(currentDirectory(), windowsPath));
}

QString fromHost(const QString &hostPath)
{
    const QString path = QDir::cleanPath(hostPath);
    QString bestDrive = u"z:"_s;
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
    return bestDrive.toUpper() + (bestRest.isEmpty() ? u"\\"_s : bestRest.replace(u'/', u'\\'));
}

QString windowsDirectory()
{
    return u"C:\\windows"_s;
}

QString systemDirectory()
{
    return u"C:\\windows\\system32"_s;
}

} // namespace paths
