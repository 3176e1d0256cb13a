// SPDX-License-Identifier: MIT
// The rules of Windows paths, the same on every system.
#include "platform/paths.h"

#include <QStringBuilder>

#include <algorithm>
#include <array>
#include <string_view>

namespace paths
{

namespace
{

/// NUL, COM1 and their kind are devices in every folder, whatever extension follows.
bool isDeviceName(QStringView name)
{
    static constexpr std::array<QStringView, 6> devices = {u"CON", u"PRN",    u"AUX",
                                                           u"NUL", u"CONIN$", u"CONOUT$"};
    const qsizetype dot = name.indexOf('.');
    const QStringView stem = (dot < 0 ? name : name.first(dot)).trimmed();
    const auto is = [&](QStringView device) {
        return stem.size() == device.size() && stem.compare(device, Qt::CaseInsensitive) == 0;
    };
    if (stem.size() == 4 && stem[3] >= '1' && stem[3] <= '9') {
        return stem.startsWith(u"COM", Qt::CaseInsensitive) ||
               stem.startsWith(u"LPT", Qt::CaseInsensitive);
    }
    return std::any_of(devices.begin(), devices.end(), is);
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
    return !name.isEmpty() && !isDeviceName(name);
}

QString windowsDirectory()
{
    return QStringLiteral("C:\\windows");
}

QString systemDirectory()
{
    return QStringLiteral("C:\\windows\\system32");
}

QString join(const QString &folder, const QString &name)
{
    return folder.endsWith('\\') ? folder + name : folder % u'\\' % name;
}

QString fileName(const QString &path)
{
    return path.sliced(path.lastIndexOf('\\') + 1);
}

} // namespace paths
