// SPDX-License-Identifier: MIT
#include "aircraft_loader/added_lines.h"

#include "aircraft_loader/aircraft_text_file.h"
#include "app/services/step.h"
#include "platform/basic.h"

QString AddedLines::linesFor(const QString &entry, const QDateTime &time, Step &step)
{
    split(entry);
    step.set("Numbering " + m_title);
    m_file.AircraftCount = basic::add16(m_file.AircraftCount, 1);
    m_file.Number = basic::add16(m_file.Number, 1);
    QString lines;
    if (NoneAdded) {
        NoneAdded = false;
        lines =
            "//AI Aircraft Added " + basic::longDate(time) + ' ' + basic::clockTime(time) + "\r\n";
    }
    return lines + "AC#" + QString::number(m_file.Number) + ',' + Speed.mid(1) + ",\"" + m_title +
           "\"\r\n";
}

/// Looks for the blank before the speed among the four characters before the last one only: a speed
/// of five figures leaves speed and title as the entry before had them.
void AddedLines::split(const QString &entry)
{
    constexpr qsizetype positionsSearched = 4;
    for (qsizetype j = 1; j <= positionsSearched; ++j) {
        const qsizetype position = entry.size() - j;
        if (basic::mid(entry, position, 1) == " ") {
            Speed = basic::mid(entry, position, j + 1);
            m_title = entry.first(position - 1);
            return;
        }
    }
}
