// SPDX-License-Identifier: MIT
// The rules of Windows paths, the same on every system.
#include "platform/paths.h"

#include "platform/blind_to_case.h"
#include "platform/runtime_error.h"

#include <QDir>
#include <QStringBuilder>

#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace paths
{

namespace
{

/// NUL, COM1 and their kind are devices in every folder, whatever extension follows.
bool isDeviceName(QStringView name)
{
    static constexpr std::array<QStringView, 6> devices = {u"CON", u"PRN",    u"AUX",
                                                           u"NUL", u"CONIN$", u"CONOUT$"};
    const qsizetype dot = name.indexOf(u'.');
    const QStringView stem = (dot < 0 ? name : name.first(dot)).trimmed();
    if (stem.size() == 4 && stem[3] >= u'1' && stem[3] <= u'9') {
        return blind_to_case::startsWith(stem, u"COM") || blind_to_case::startsWith(stem, u"LPT");
    }
    return std::any_of(devices.begin(), devices.end(),
                       [&](QStringView device) { return blind_to_case::equal(stem, device); });
}

} // namespace

bool isValidName(QStringView name)
{
    static constexpr std::u16string_view refused = u"<>:\"|?*/\\";
    for (const QChar c : name) {
        if (c.unicode() < 0x20 || refused.find(c.unicode()) != std::u16string_view::npos) {
            return false;
        }
    }
    constexpr qsizetype longest = 255; // characters
    return !name.isEmpty() && name.size() <= longest && !isDeviceName(name);
}

QStringList components(QStringView path)
{
    QStringList names;
    for (const QStringView part : path.toString().replace(u'/', u'\\').split(u'\\')) {
        if (part == u"..") {
            names.resize(qMax<qsizetype>(names.size() - 1, 0));
        } else if (!part.isEmpty() && part != u".") {
            if (!isValidName(part)) {
                throw RuntimeError(ErrorNumber::BadFileName);
            }
            names += part.toString();
        }
    }
    return names;
}

QString join(const QString &folder, const QString &name)
{
    return folder.endsWith(u'\\') ? folder + name : folder % u'\\' % name;
}

QString fileName(const QString &path)
{
    return path.sliced(path.lastIndexOf(u'\\') + 1);
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
