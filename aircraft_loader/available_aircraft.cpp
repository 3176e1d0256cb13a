// SPDX-License-Identifier: MIT
#include "aircraft_loader/available_aircraft.h"

#include "platform/blind_to_case.h"

#include <QStringBuilder>

void AircraftWalk::Layout::take(const QString &directory)
{
    const QString lowered = blind_to_case::lower(directory);
    if (lowered.endsWith(QLatin1String("airplanes"))) {
        airplanes = true;
    } else if (lowered.endsWith(QLatin1String("rotorcraft"))) {
        rotorcraft = true;
    } else {
        *this = {};
    }
}

void AircraftWalk::take(const QString &folder)
{
    if (!m_cfg.HaveData) {
        return;
    }
    folders += folder;
    if (m_cfg.Speed.isEmpty()) {
        return;
    }
    for (const QString &title : m_cfg.AircraftTitles) {
        if (!title.isEmpty()) {
            entries += title % u' ' % m_cfg.Speed;
        }
    }
}

void AircraftWalk::run(AircraftFolders &aircraftFolders, const QString &directory,
                       const QStringList &subFolders, Layout layout, QString &ErrMsg,
                       const Listener &listener)
{
    folders.clear();
    entries.clear();
    const auto check = [&](const AircraftFolder &folder) {
        ErrMsg = QStringLiteral("Get Aircraft Name");
        AirCraftName =
            aircraft_cfg::folderName(folder.cfgFile, layout.airplanes, layout.rotorcraft);
        try {
            m_cfg.CheckFile(
                folder.cfgFile, [&] { return folder.trafficContent(); }, ErrMsg);
        } catch (const RuntimeError &error) {
            listener.fileFailed(error);
        }
        take(folder.path);
    };
    aircraftFolders.walk(directory, subFolders, AircraftFolders::Content::Traffic, ErrMsg,
                         {.folderReached = listener.folderReached, .cfgFound = check});
}
