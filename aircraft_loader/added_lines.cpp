// SPDX-License-Identifier: MIT
#include "aircraft_loader/added_lines.h"

#include "aircraft_loader/aircraft_text_file.h"
#include "app/services/step.h"
#include "platform/basic.h"

using namespace Qt::StringLiterals;

QString AddedLines::linesFor(const QString &entry, const QDateTime &time, Step &step)
{
    split(entry);
    step.set(u"Numbering "_s + m_title);
    m_count = basic::add16(m_file.AircraftCount, 1);
    m_number = basic::add16(m_file.Number, 1);
    m_line = u"AC#"_s + QString::number(m_number) + u',' + Speed.mid(1) + u",\""_s + m_title + u'"';
    const QString comment = u"//AI Aircraft Added "_s + basic::longDate(time) + u' ' +
                            basic::clockTime(time) + u"\r\n"_s;
    return (NoneAdded ? comment : QString()) + m_line + u"\r\n"_s;
}

void AddedLines::written()
{
    NoneAdded = false;
    m_file.AircraftCount = m_count;
    m_file.Number = m_number;
    m_file.lines += m_line;
}

/// Looks for the blank before the speed among the four characters before the last one only: a speed
/// of five figures leaves speed and title as the entry before had them.
void AddedLines::split(const QString &entry)
{
    constexpr qsizetype positionsSearched = 4;
    for (qsizetype j = 1; j <= positionsSearched; ++j) {
        const qsizetype position = entry.size() - j;
        if (basic::mid(entry, position, 1) == u" "_s) {
            Speed = basic::mid(entry, position, j + 1);
            m_title = entry.first(position - 1);
            return;
        }
    }
}
