// SPDX-License-Identifier: MIT
// Windows paths on Windows: they are the host's, but where they are taken for relative, are too
// long, or name no file.
#include "platform/paths.h"

#include "platform/blind_to_case.h"
#include "platform/runtime_error.h"
#include "platform/windows/drives.h"

#include <QDir>
#include <QFileInfo>

#include <array>

#include <windows.h>

using namespace Qt::StringLiterals;

namespace paths
{

namespace
{

QMap<QChar, QString> &ownDrives()
{
    static QMap<QChar, QString> folders; // none: the machine's
    return folders;
}

bool hasDrive(QStringView path)
{
    const QChar letter = path.isEmpty() ? QChar() : path[0].toLower();
    return path.size() >= 2 && path[1] == u':' && letter >= u'a' && letter <= u'z';
}

bool isDrive(QChar letter)
{
    if (!ownDrives().isEmpty()) {
        return QFileInfo(ownDrives().value(letter)).isDir();
    }
    return (::GetLogicalDrives() >> (letter.unicode() - u'a') & 1U) != 0;
}

QString directory(UINT(WINAPI *ask)(LPWSTR, UINT))
{
    std::array<wchar_t, MAX_PATH> buffer = {};
    ask(buffer.data(), static_cast<UINT>(buffer.size()));
    return QString::fromWCharArray(buffer.data());
}

} // namespace

void setDrives(const QMap<QChar, QString> &folders)
{
    ownDrives().clear();
    for (const auto &[letter, folder] : folders.asKeyValueRange()) {
        ownDrives()[letter] = QDir::toNativeSeparators(QFileInfo(folder).canonicalFilePath());
    }
}

QStringList drives()
{
    QStringList found;
    for (char16_t letter = u'a'; letter <= u'z'; ++letter) {
        if (isDrive(letter)) {
            found += QString(QChar(letter)) + u':';
        }
    }
    return found;
}

QString toHost(const QString &windowsPath)
{
    constexpr qsizetype longestPath = 32'767; // characters
    if (windowsPath.isEmpty() || windowsPath.size() > longestPath) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
    const QString path = QDir::toNativeSeparators(windowsPath);
    if (path.startsWith(R"(\\)"_L1)) { // a share of another machine
        const QStringList names = components(path);
        if (names.size() < 2) {
            throw RuntimeError(ErrorNumber::BadFileName);
        }
        return u"\\\\"_s + names.join(u'\\');
    }
    if (!hasDrive(path)) {
        const QString current = currentDirectory();
        return toHost(path.startsWith(u'\\') && hasDrive(current) ? current.first(2) + path
                                                                  : join(current, path));
    }
    const QChar letter = path[0].toLower();
    if (!isDrive(letter)) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    const QStringList names = components(QStringView(path).sliced(2));
    return ownDrives().value(letter, path.first(2)) + u'\\' + names.join(u'\\');
}

QString fromHost(const QString &hostPath)
{
    QString path = QDir::toNativeSeparators(QDir::cleanPath(hostPath));
    for (const auto &[letter, folder] : ownDrives().asKeyValueRange()) {
        if (blind_to_case::startsWith(path + u'\\', folder + u'\\')) {
            path = letter + u":"_s + path.sliced(folder.size());
            break;
        }
    }
    if (hasDrive(path)) {
        path[0] = path[0].toUpper();
    }
    return path.size() == 2 ? path + u'\\' : path;
}

QString windowsDirectory()
{
    return ownDrives().isEmpty() ? directory(::GetSystemWindowsDirectoryW) : u"C:\\windows"_s;
}

QString systemDirectory()
{
    return ownDrives().isEmpty() ? directory(::GetSystemDirectoryW) : u"C:\\windows\\system32"_s;
}

} // namespace paths
