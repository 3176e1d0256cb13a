// SPDX-License-Identifier: MIT
// The aircraft text file, input of TTools: numbered lines 'AC#12,250,"Boeing 737 Blue"'.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>

struct AircraftTextFile {
    QStringList lines;              ///< every line that is no comment, in file order
    std::int16_t AircraftCount = 0; ///< aircraft lines: longer than 10 characters
    std::int16_t Number = 0;        ///< the number of the last aircraft line, not the largest

    /// Reads the bytes of a file (Windows-1252; CR LF, CR or LF). When a line's number cannot be
    /// read, what came before it and the line itself are kept and RuntimeError is thrown:
    /// Type mismatch (13), Overflow (6), Invalid procedure call (5) without a "," behind the "#".
    void read(const QByteArray &bytes);
};

namespace aircraft_text_file
{

/// The title in an aircraft line: what follows the first double quote, less the last character.
/// Throws Invalid procedure call (5) when the first quote is the last character.
QString titleIn(const QString &line);

/// The file's name for a caption: from the word "aircraft" of the path's first "\aircraft" on,
/// folders included; the whole path when there is none.
QString captionName(const QString &path);

/// The folder part: up to and including the backslash of the path's first "\aircraft"; empty when
/// there is none.
QString folderPart(const QString &path);

} // namespace aircraft_text_file
