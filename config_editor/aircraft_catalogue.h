// SPDX-License-Identifier: MIT
// The installed aircraft as page 3 lists them.
#pragma once

#include <QString>
#include <QStringList>

class Step;
struct AircraftFolder;

/// Which folder of the simulator the aircraft folders lie in.
enum class AircraftRoot { Aircraft, Airplanes, Rotorcraft };

/// Lists of one entry for each aircraft, all in the same order.
struct AircraftCatalogue {
    /// Adds the aircraft of a folder that a walk through the directory came to. Throws
    /// RuntimeError: why its aircraft.cfg cannot be read.
    void take(const AircraftFolder &folder, AircraftRoot root, Step &step);

    QStringList names;    ///< as shown
    QStringList cfgFiles; ///< full paths of the aircraft.cfg files
    QStringList aliases;  ///< "alias" for an aliased configuration, else empty
    QStringList panels;   ///< panel values
    QStringList listing;  ///< lines of the aircraft listing

    // One entry for each aircraft.cfg, be it listed or not: the aircraft without force feedback,
    // which are all.
    QStringList folders;     ///< paths
    QStringList folderNames; ///< names
};

namespace aircraft_catalogue
{

/// Goes by the last word of a directory's path, blind to case.
AircraftRoot rootOf(const QString &directory);

/// The 1-based position of the root's word ("\aircraft") in a path, blind to case; 0 without it.
qsizetype rootPosition(const QString &path, AircraftRoot root);

/// The folder of an aircraft.cfg, ending in a backslash.
QString aircraftFolder(const QString &cfgFile);

/// An aircraft's folder below the root folder: "beech_baron_58". With the two longer words the cut
/// falls inside the word or before the backslash behind it. Where the path has no such word the
/// folder's name alone.
QString folderText(const QString &cfgFile, AircraftRoot root);

} // namespace aircraft_catalogue
