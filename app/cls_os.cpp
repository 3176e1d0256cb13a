// SPDX-License-Identifier: MIT
#include "app/cls_os.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace
{

enum Platform { Windows9x = 1, WindowsNt = 2 };

enum ProductType { Workstation = 1, DomainController = 2, Server = 3 };

enum Suite : std::uint32_t {
    SmallBusiness = 0x001,
    Enterprise = 0x002,
    BackOffice = 0x004,
    Communications = 0x008,
    Terminal = 0x010,
    SmallBusinessRestricted = 0x020,
    EmbeddedNt = 0x040,
    Datacenter = 0x080,
    SingleUser = 0x100,
    Personal = 0x200,
    Blade = 0x400, // the web edition
};

/// A release and its published numbers. One with letters or a build goes before its sibling
/// without.
struct Release {
    int platform;
    int majorVersion;
    int minorVersion;
    QStringView letters; ///< one of them is needed; empty: none
    QStringView name;
    int build = 0; ///< the least
};

constexpr std::array<Release, 11> releases = {{
    {Windows9x, 4, 0, u"BC", u"Windows 95 OSR2"},
    {Windows9x, 4, 0, u"", u"Windows 95"},
    {Windows9x, 4, 3, u"BC", u"Windows 95 OSR2"}, // its later editions
    {Windows9x, 4, 10, u"A", u"Windows 98 SE"},
    {Windows9x, 4, 10, u"", u"Windows 98"},
    {Windows9x, 4, 90, u"", u"Windows ME"},
    {WindowsNt, 5, 0, u"", u"Windows 2000"},
    {WindowsNt, 5, 1, u"", u"Windows XP"},
    {WindowsNt, 5, 2, u"", u"Windows .NET"},
    {WindowsNt, 10, 0, u"", u"Windows 11", 22000},
    {WindowsNt, 10, 0, u"", u"Windows 10"},
}};

struct SuiteText {
    Suite suite;
    const char *text;
};

constexpr std::array<SuiteText, 8> suiteTexts = {{
    {BackOffice, "Microsoft BackOffice components are installed ,"},
    {Communications, "Communications Server installed ,"},
    {Datacenter, "Datacenter Server is installed ,"},
    {EmbeddedNt, "Embedded NT installed ,"},
    {SingleUser, "Single User ,"},
    {SmallBusiness, "Microsoft Small Business Server is installed ,"},
    {SmallBusinessRestricted, "Microsoft Small Business Server is installed with the restrictive "
                              "client license in force ,"},
    {Terminal, "Terminal Services is installed ,"},
}};

bool is(const SystemVersion &system, int platform, int major, int minor)
{
    return system.platform == platform && system.majorVersion == major &&
           system.minorVersion == minor;
}

QString numbers(const SystemVersion &system)
{
    return QString::number(system.majorVersion) + u'.' + QString::number(system.minorVersion);
}

/// Whether one of these letters stands in the service pack's place, after a blank or two.
bool hasLetter(const SystemVersion &system, QStringView letters)
{
    const QString letter = system.servicePackText.trimmed().left(1);
    return !letter.isEmpty() && letters.contains(letter);
}

/// Whether the record has the fields that came with service pack 6 of NT 4.0.
bool isExtended(const SystemVersion &system)
{
    if (is(system, WindowsNt, 4, 0)) {
        return system.servicePackText.contains(u"SERVICE PACK 6"_s, Qt::CaseInsensitive);
    }
    return system.platform == WindowsNt && system.majorVersion > 4;
}

QString publishedName(const SystemVersion &system)
{
    for (const Release &release : releases) {
        if (is(system, release.platform, release.majorVersion, release.minorVersion) &&
            (release.letters.isEmpty() || hasLetter(system, release.letters)) &&
            system.build >= release.build) {
            return release.name.toString();
        }
    }
    return {};
}

/// The name of a release that has none of its own.
QString numberedName(const SystemVersion &system)
{
    if (system.platform == WindowsNt && system.majorVersion <= 4) {
        return u"Windows NT "_s + numbers(system);
    }
    return u"Unknown OS Version "_s + numbers(system) + u" Platform "_s +
           QString::number(system.platform);
}

/// "Service Pack 3"; empty without one.
QString servicePack(const SystemVersion &system)
{
    QString number;
    if (!isExtended(system)) {
        static const QRegularExpression figures(u"[0-9]+"_s);
        number = figures.match(system.servicePackText).captured();
    } else if (system.servicePackMajor > 0) {
        number = QString::number(system.servicePackMajor);
        if (system.servicePackMinor > 0) {
            number += u'.' + QString::number(system.servicePackMinor);
        }
    }
    return number.isEmpty() ? QString() : u"Service Pack "_s + number;
}

QString product(const SystemVersion &system)
{
    const auto has = [&](Suite suite) { return (system.suiteMask & suite) != 0; };
    switch (system.productType) {
    case Workstation:
        return has(Personal) ? u"Home Edition"_s : QString();
    case DomainController:
        return u"Domain Controller"_s;
    case Server:
        return has(Datacenter)   ? u"DataCenter Server"_s
               : has(Enterprise) ? u"Enterprise Server"_s
               : has(Blade)      ? u"Web Server"_s
                                 : QString();
    default:
        return {};
    }
}

} // namespace

clsOS::clsOS(const SystemVersion &system)
    : m_name(system.description.isEmpty() ? publishedName(system) : system.description)
{
    QStringList parts;
    if (m_name.isEmpty()) {
        m_name = numberedName(system);
    } else {
        parts += numbers(system);
    }
    parts += servicePack(system);
    if (isExtended(system)) {
        for (const SuiteText &suite : suiteTexts) {
            if ((system.suiteMask & suite.suite) != 0) {
                parts += QString::fromLatin1(suite.text);
            }
        }
        parts += product(system);
    }
    parts.removeAll(QString());
    m_version = parts.join(u' ');
}

QString clsOS::text() const
{
    return m_version.isEmpty() ? m_name : m_name + u' ' + m_version;
}
