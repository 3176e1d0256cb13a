// SPDX-License-Identifier: MIT
// "MorlenE.ini": six bare lines that are remembered from run to run.
#pragma once

#include <QByteArray>
#include <QString>

struct Settings {
    QString lastTab;            ///< "0" to "3"
    QString tToolsPath;         ///< full path of TTools, or empty
    QString drive;              ///< page 3's drive, as its list reports it
    QString aircraftDir;        ///< the simulator's aircraft directory
    QString aircraftTextFile;   ///< full path
    QString showAddAirportHelp; ///< "True" or "False"
};

namespace settings_file
{

/// A file shorter than this many bytes counts as absent: a first run.
constexpr qint64 shortestLength = 11;

/// Reads six values by the sequential-input rule: a comma ends a value as a line end does.
/// Throws RuntimeError: Input past end of file (62) when there are fewer.
Settings parse(const QByteArray &bytes);

/// The six lines, each ending in CR LF, in the code page (see code_page::encode).
QByteArray compose(const Settings &settings);

} // namespace settings_file
