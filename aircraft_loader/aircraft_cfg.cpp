// SPDX-License-Identifier: MIT
#include "aircraft_loader/aircraft_cfg.h"

#include "platform/basic.h"
#include "platform/blind_to_case.h"

#include <QStringBuilder>

void AircraftCfg::CheckFile(const QString &CfgFileName,
                            const std::function<TrafficContent()> &readFile, QString &ErrMsg)
{
    Speed.clear();
    AircraftTitles.clear();
    if (blind_to_case::lower(CfgFileName).contains(QLatin1String("csl"))) {
        return; // models for online flying: no traffic, and HaveData is not theirs to change
    }
    ErrMsg = u"Opening " % CfgFileName;
    const TrafficContent content = readFile();
    if (content.empty) {
        return;
    }
    ErrMsg = u"Get Aircraft Data in\r" % CfgFileName;
    AircraftTitles = content.titles;
    if (content.failure) {
        throw RuntimeError(*content.failure);
    }
    Speed = content.speed;
    HaveData = content.complete;
}

namespace aircraft_cfg
{

QString folderName(const QString &CfgFileName, bool AirplanesLayout, bool RotorcraftLayout)
{
    const bool byAirplanes = AirplanesLayout || RotorcraftLayout;
    const QLatin1String word(byAirplanes ? "airplanes\\" : "aircraft\\");
    const qsizetype root = blind_to_case::lower(CfgFileName).indexOf(word) + 1;
    // A rotorcraft path is searched for "airplanes" too; the cut then starts near its front.
    const qsizetype skip = AirplanesLayout ? 10 : RotorcraftLayout ? 11 : 9;
    const qsizetype start = root + skip;
    const qsizetype end =
        CfgFileName.indexOf('\\', start) + 1; // searched behind the first character
    return basic::mid(CfgFileName, start, end - start);
}

} // namespace aircraft_cfg
