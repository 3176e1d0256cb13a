// SPDX-License-Identifier: MIT
#include "aircraft_loader/available_aircraft.h"

#include "app/services/aircraft_folders.h"
#include "app/services/step.h"
#include "platform/basic.h"
#include "platform/blind_to_case.h"

#include <QScopeGuard>
#include <QStringBuilder>

using namespace Qt::StringLiterals;

void AvailableAircraft::Layout::take(const QString &directory)
{
    const QString lowered = blind_to_case::lower(directory);
    if (lowered.endsWith("airplanes"_L1)) {
        airplanes = true;
    } else if (lowered.endsWith("rotorcraft"_L1)) {
        rotorcraft = true;
    } else {
        *this = {};
    }
}

void AvailableAircraft::clear()
{
    folders.clear();
    entries.clear();
}

void AvailableAircraft::take(const AircraftFolder &folder, Layout layout, Step &step)
{
    if (folder.cfgFile.isEmpty()) {
        return;
    }
    step.set(u"Get Aircraft Name"_s);
    AirCraftName = available_aircraft::folderName(folder.cfgFile, layout);
    const auto add = qScopeGuard([&] {
        if (!HaveData) {
            return;
        }
        folders += folder.path;
        for (const QString &title : AircraftTitles) {
            if (!Speed.isEmpty() && !title.isEmpty()) {
                entries += title % u' ' % Speed;
            }
        }
    });
    CheckFile(folder, step);
}

void AvailableAircraft::CheckFile(const AircraftFolder &folder, Step &step)
{
    Speed.clear();
    AircraftTitles.clear();
    if (blind_to_case::lower(folder.cfgFile).contains("csl"_L1)) {
        return; // models for online flying: no traffic, and HaveData is not theirs to change
    }
    step.set(u"Opening " % folder.cfgFile);
    if (folder.failure) {
        throw RuntimeError(*folder.failure);
    }
    if (folder.traffic.empty) {
        return;
    }
    step.set(u"Get Aircraft Data in\r" % folder.cfgFile);
    AircraftTitles = folder.traffic.titles;
    if (folder.traffic.failure) {
        throw RuntimeError(*folder.traffic.failure);
    }
    Speed = folder.traffic.speed;
    HaveData = folder.traffic.complete;
}

namespace available_aircraft
{

QString folderName(const QString &CfgFileName, AvailableAircraft::Layout layout)
{
    const bool byAirplanes = layout.airplanes || layout.rotorcraft;
    const QLatin1String word(byAirplanes ? "airplanes\\" : "aircraft\\");
    const qsizetype root = blind_to_case::lower(CfgFileName).indexOf(word) + 1;
    // A rotorcraft path is searched for "airplanes" too; the cut then starts near its front.
    const qsizetype skip = layout.airplanes ? 10 : layout.rotorcraft ? 11 : 9;
    const qsizetype start = root + skip;
    const qsizetype end =
        CfgFileName.indexOf(u'\\', start) + 1; // searched behind the first character
    return basic::mid(CfgFileName, start, end - start);
}

} // namespace available_aircraft
