// SPDX-License-Identifier: MIT
// The trace log: what the program does, one line at a time, while the user wants it.
#pragma once

#include "app/services/form_state.h"
#include "platform/clock.h"

#include <QLocale>

class TraceLog
{
public:
    TraceLog(FormState &state, const Clock &clock) : m_state(state), m_clock(clock) {}

    /// "TraceLog.txt" in the program folder.
    QString path() const;

    /// Writes TraceMsg while tracing is on. A log of 50001 bytes or more is begun anew.
    /// Throws RuntimeError.
    void WriteToLog();

    /// Sets TraceMsg and writes it.
    void write(const QString &text);

    /// Makes sure there is no log and tracing is off: every run begins so. Throws RuntimeError.
    void reset();

    /// Turns tracing on, with a banner, or off, which leaves only the closing banner.
    /// Throws RuntimeError.
    void setTracing(bool on);

    /// 80 "=".
    static QString separator();

    /// "***" and the text, padded with "*" to exactly 69 characters.
    static QString banner(const QString &text);

    /// The first 69 characters.
    static QString cut(const QString &text) { return text.first(qMin<qsizetype>(text.size(), 69)); }

    /// A locale's long time format without the time zone.
    static QString timeFormat(const QLocale &locale);

private:
    void append(const QString &line) const;
    QString dateAndTime() const;

    FormState &m_state;
    const Clock &m_clock;
};
