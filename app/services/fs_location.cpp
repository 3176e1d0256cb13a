// SPDX-License-Identifier: MIT
#include "app/services/fs_location.h"

#include "platform/blind_to_case.h"

#include <array>

namespace fs_location
{

namespace
{

const QString games = QStringLiteral("SOFTWARE\\Microsoft\\Microsoft Games\\Flight Simulator\\");
constexpr std::array<QStringView, 3> folderWords = {u"aircraft", u"airplanes", u"rotorcraft"};

QString registeredFolder(const Registry &registry, const QString &key, const QString &name)
{
    const QString folder =
        registry.text(RegistryHive::LocalMachine, games + key, name).value_or(QString());
    return folder == "No Path" ? QString() : folder;
}

} // namespace

QString installation(const Registry &registry)
{
    const QString folder = registeredFolder(registry, "9.0", "EXE Path");
    return folder.isEmpty() ? registeredFolder(registry, "10.0", "SetupPath") : folder;
}

QString aircraftDirectory(const QString &installation)
{
    const bool isX = installation.contains("Flight Simulator X", Qt::CaseInsensitive);
    return installation + (isX ? "\\Airplanes" : "\\Aircraft");
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
