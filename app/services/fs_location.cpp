// SPDX-License-Identifier: MIT
#include "app/services/fs_location.h"

#include "platform/blind_to_case.h"

#include <array>

using namespace Qt::StringLiterals;

namespace fs_location
{

namespace
{

constexpr QLatin1StringView games = R"(SOFTWARE\Microsoft\Microsoft Games\Flight Simulator\)"_L1;
constexpr std::array<QStringView, 3> folderWords = {u"aircraft", u"airplanes", u"rotorcraft"};

QString registeredFolder(const Registry &registry, const QString &key, const QString &name)
{
    const QString folder =
        registry.text(RegistryHive::LocalMachine, games + key, name).value_or(QString());
    return folder == u"No Path"_s ? QString() : folder;
}

} // namespace

QString installation(const Registry &registry)
{
    const QString folder = registeredFolder(registry, u"9.0"_s, u"EXE Path"_s);
    return folder.isEmpty() ? registeredFolder(registry, u"10.0"_s, u"SetupPath"_s) : folder;
}

QString aircraftDirectory(const QString &installation)
{
    const bool isX = installation.contains(u"Flight Simulator X"_s, Qt::CaseInsensitive);
    return installation + (isX ? u"\\Airplanes"_s : u"\\Aircraft"_s);
}

bool endsInAircraftFolder(const QString &path)
{
    const QString lowered = blind_to_case::lower(path);
    return std::any_of(folderWords.begin(), folderWords.end(),
                       [&](QStringView word) { return lowered.endsWith(word); });
}

bool namesAircraftFolder(const QString &path)
{
    const QString lowered = blind_to_case::lower(path);
    return std::any_of(folderWords.begin(), folderWords.end(),
                       [&](QStringView word) { return lowered.contains(word); });
}

} // namespace fs_location
