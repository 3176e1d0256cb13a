// SPDX-License-Identifier: MIT
// The aircraft.cfg that page 0's walk has come to.
#pragma once

#include "app/services/cfg_content.h"

#include <QString>
#include <QStringList>

#include <functional>

/// The last aircraft.cfg read.
struct AircraftCfg {
    QStringList AircraftTitles;
    QString Speed;
    bool HaveData = false; ///< the last file that was really read had a speed

    /// Takes over the file of this path, whose content `readFile` delivers. `ErrMsg` is set to the
    /// step.
    ///
    /// A path with "csl" in it and an empty file are passed over: they yield no titles, and
    /// HaveData keeps what the file before them left there. Throws RuntimeError: what readFile
    /// throws, and the failure of the content.
    void CheckFile(const QString &CfgFileName, const std::function<TrafficContent()> &readFile,
                   QString &ErrMsg);
};

namespace aircraft_cfg
{

/// The aircraft folder's name in the path of its aircraft.cfg.
QString folderName(const QString &CfgFileName, bool AirplanesLayout, bool RotorcraftLayout);

} // namespace aircraft_cfg
