// SPDX-License-Identifier: MIT
// A flight plan set is named once, by its flight plan file; the two other names follow from it.
#pragma once

#include <QString>

namespace fpset_name
{

/// What the name box begins with.
inline constexpr QLatin1StringView defaultName("FlightPlans_");

/// Whether a text is too little to name a set: the prefix alone, or fewer than 12 characters.
bool isUnfinished(const QString &text, const QString &prefix);

/// The text with ".txt", unless it holds that already, in lower case. ".TXT" gets a second one.
QString withExtension(const QString &text);

/// Whether a file name begins with "flightplans" in any case, ends in ".txt" in lower case, and has
/// no other dot. What stands between is the file system's business.
bool isValid(const QString &fileName);

struct FileSet {
    QString flightPlanPath;
    QString airportPath;
    QString aircraftPath;
    QString airportFile;  ///< without the directory
    QString aircraftFile; ///< without the directory
};

/// The files of a valid name. The directory must end in a backslash: nothing is put in between.
FileSet filesOf(const QString &directory, const QString &fileName);

} // namespace fpset_name
