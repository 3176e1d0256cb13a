// SPDX-License-Identifier: MIT
// The trace log: what the program does, one line at a time, while the user wants it.
#pragma once

#include <QObject>
#include <QString>

class Clock;
class Dialogs;
class QLocale;
struct FormState;

class TraceLog : public QObject
{
    Q_OBJECT

public:
    TraceLog(FormState &state, const Clock &clock, Dialogs &dialogs)
        : m_state(state), m_clock(clock), m_dialogs(dialogs)
    {
    }

    /// "TraceLog.txt" in the program folder.
    QString path() const;

    /// Writes TraceMsg while tracing is on. A log of 50001 bytes or more is begun anew.
    /// Throws RuntimeError.
    void WriteToLog();

    /// Sets TraceMsg and writes it: the way everybody logs. A log that cannot be written is told
    /// once, and no longer traced; what was under way goes on.
    void write(const QString &text);

    /// Makes sure there is no log and tracing is off: every run begins so. Throws RuntimeError.
    void reset();

    /// Turns tracing on, with a banner, or off, which leaves only the closing banner and throws
    /// RuntimeError when that cannot be written.
    void setTracing(bool on);

    /// 80 "=".
    static QString separator();

    /// "***" and the text, padded with "*" to exactly 69 characters.
    static QString banner(const QString &text);

    /// The first 69 characters.
    static QString cut(const QString &text) { return text.first(qMin<qsizetype>(text.size(), 69)); }

    /// A locale's long time format without the time zone.
    static QString timeFormat(const QLocale &locale);

Q_SIGNALS:
    void switchedOff(); ///< the log could not be written

private:
    void append(const QString &line) const;
    QString dateAndTime() const;

    FormState &m_state;
    const Clock &m_clock;
    Dialogs &m_dialogs;
};
