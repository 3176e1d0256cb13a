// SPDX-License-Identifier: MIT
// What one addition of aircraft writes into the aircraft text file.
#pragma once

#include <QString>

#include <cstdint>

class QDateTime;
class Step;
struct AircraftTextFile;

class AddedLines
{
public:
    /// Goes on from the count and the last number of a file, which written() moves on.
    explicit AddedLines(AircraftTextFile &file) : m_file(file) {}

    /// What an entry of the available aircraft ("Boeing 737 Blue 250") adds: its aircraft line, and
    /// above the first one the dated comment; CR LF at their ends. Names the step. Throws
    /// RuntimeError: Overflow (6) when the 16-bit figures are used up.
    QString linesFor(const QString &entry, const QDateTime &time, Step &step);

    /// The lines asked for last stand in the file now.
    void written();

    bool any() const { return !NoneAdded; } ///< lines were written

private:
    void split(const QString &entry);

    AircraftTextFile &m_file;
    bool NoneAdded = true;
    QString Speed; ///< with the blank before it
    QString m_title;
    // Of the lines asked for last.
    QString m_line; ///< the aircraft line, without its end
    std::int16_t m_count = 0;
    std::int16_t m_number = 0;
};
