// SPDX-License-Identifier: MIT
// The aircraft installed under the aircraft directory, and taking their entries apart again.
#pragma once

#include <QString>
#include <QStringList>

class Step;
struct AircraftFolder;

/// What the folders of a walk yield. What a file leaves behind lives on to the next walk.
class AvailableAircraft
{
public:
    struct Layout {
        bool airplanes = false;  ///< the directory is a folder named Airplanes
        bool rotorcraft = false; ///< the directory is a folder named Rotorcraft

        /// Goes by the last word of a directory's path, blind to case. Finding one of the two words
        /// leaves the other flag as it was; only a path with neither clears both.
        void take(const QString &directory);
    };

    QStringList folders;  ///< paths of the folders that yielded data
    QStringList entries;  ///< title, a blank, and the cruise speed: "Boeing 737 Blue 250"
    QString AirCraftName; ///< the folder last read

    // The aircraft.cfg last read.
    QStringList AircraftTitles;
    QString Speed;
    bool HaveData = false; ///< the last file that was really read had a speed

    /// Empties the lists for another walk.
    void clear();

    /// Adds what a folder yields. Throws as CheckFile; what the file before left behind is added
    /// all the same.
    void take(const AircraftFolder &folder, Layout layout, Step &step);

    /// Takes over the folder's aircraft.cfg.
    ///
    /// A path with "csl" in it and an empty file are passed over: they yield no titles, and
    /// HaveData keeps what the file before them left there. Throws RuntimeError: why the file
    /// cannot be read, and the failure of its content.
    void CheckFile(const AircraftFolder &folder, Step &step);
};

namespace available_aircraft
{

/// The aircraft folder's name in the path of its aircraft.cfg.
QString folderName(const QString &CfgFileName, AvailableAircraft::Layout layout);

} // namespace available_aircraft
