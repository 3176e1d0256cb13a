// SPDX-License-Identifier: MIT
// The aircraft installed under the aircraft directory, and which of them a text file already uses.
#pragma once

#include "aircraft_loader/aircraft_cfg.h"
#include "app/services/aircraft_folders.h"

#include <QString>
#include <QStringList>

#include <functional>

/// The walk through the aircraft folders. What a file leaves behind (see AircraftCfg) lives on to
/// the next walk.
class AircraftWalk
{
public:
    struct Layout {
        bool airplanes = false;  ///< the directory is a folder named Airplanes
        bool rotorcraft = false; ///< the directory is a folder named Rotorcraft

        /// Goes by the last word of a directory's path, blind to case. Finding one of the two words
        /// leaves the other flag as it was; only a path with neither clears both.
        void take(const QString &directory);
    };

    /// Called before each folder with its index; and with the failure of one file, which does not
    /// end the walk.
    struct Listener {
        std::function<void(int)> folderReached;
        std::function<void(const RuntimeError &)> fileFailed;
    };

    /// Reads the aircraft.cfg of each of the sub-folders, in their order. `ErrMsg` is set to the
    /// step. What was found so far stays when a folder cannot be read. Throws RuntimeError: Path
    /// not found (76), Path/File access error (75).
    void run(AircraftFolders &aircraftFolders, const QString &directory,
             const QStringList &subFolders, Layout layout, QString &ErrMsg,
             const Listener &listener);

    QStringList folders;  ///< paths of the folders that yielded data
    QStringList entries;  ///< title, a blank, and the cruise speed: "Boeing 737 Blue 250"
    QString AirCraftName; ///< the folder last read

private:
    void take(const QString &folder);

    AircraftCfg m_cfg;
};
