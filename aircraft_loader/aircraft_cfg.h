// SPDX-License-Identifier: MIT
// What page 0 takes from an aircraft.cfg: the titles of its variations and their cruise speed.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// What one aircraft.cfg says. One aircraft folder yields one speed shared by all its titles.
struct AircraftCfgContent {
    static constexpr int mostTitles = 1501;

    bool empty = false;                  ///< the file has no bytes at all
    QStringList titles;                  ///< in file order, those above the speed; at most 1,501
    QString speed;                       ///< whole number in knots as text, such as "250"
    bool complete = false;               ///< the speed was reached
    std::optional<RuntimeError> failure; ///< what ended the reading early

    /// The failure is Subscript out of range (9) at a 1,502nd title, Input past end of file (62)
    /// when the file ends in a section header, or Overflow (6).
    static AircraftCfgContent parse(const QByteArray &bytes);

private:
    void read(const QByteArray &bytes);
};

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
    void CheckFile(const QString &CfgFileName, const std::function<AircraftCfgContent()> &readFile,
                   QString &ErrMsg);
};

namespace aircraft_cfg
{

/// The speed in a "cruise_speed" line: the whole part, rounded down, of the leading number behind
/// "="; "0" without one. A "//" comment makes the text as long as the comment is, whatever the
/// value. Throws Overflow (6).
QString speedIn(const QString &line);

/// The aircraft folder's name in the path of its aircraft.cfg.
QString folderName(const QString &CfgFileName, bool AirplanesLayout, bool RotorcraftLayout);

} // namespace aircraft_cfg
