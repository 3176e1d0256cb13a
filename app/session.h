// SPDX-License-Identifier: MIT
// What is remembered from run to run, in the six bare lines of "MorlenE.ini".
#pragma once

#include <QString>

#include <optional>

class TraceLog;
struct FormState;

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

/// Reads six values by the sequential-input rule: a comma ends a value as a line end does.
/// Throws RuntimeError: Input past end of file (62) when there are fewer; those that are there are
/// taken all the same.
void parse(const QByteArray &bytes, Settings &settings);

/// The six lines, each ending in CR LF, in the code page (see code_page::encode).
QByteArray compose(const Settings &settings);

} // namespace settings_file

/// Reading, restoring and saving them.
class Session
{
public:
    Session(FormState &state, TraceLog &log) : m_state(state), m_log(log) {}

    QString path() const; ///< of the file, in the program folder

    /// Makes sure that the file exists. Throws RuntimeError.
    void create() const;

    /// What the run before saved. Nothing at a first run: no file, or one shorter than 11 bytes.
    /// Throws RuntimeError.
    std::optional<Settings> read();

    /// Takes over what no control shows.
    void restore(const Settings &settings);

    /// The start-up is over, page 3 on a drive. What was read but could not be restored is saved as
    /// it was, unless the user chooses anew.
    void begin(const QString &drive, bool restoredAll);

    /// The user chose the aircraft directory, be it the one that stood there.
    void directoryChosen() { m_notRestored.aircraftDir.clear(); }

    /// Saves how the program is left, page 3 on a drive. What could not be read at the start is
    /// read now: nothing is written over unseen. Throws RuntimeError.
    void save(const QString &drive);

private:
    Settings current(const QString &drive) const;
    void log(const Settings &settings);

    FormState &m_state;
    TraceLog &m_log;
    Settings m_notRestored; ///< as read; empty lines are not missed
    bool m_unread = false;  ///< the file could not be read: what stands in it is not known
    Settings m_atBegin;     ///< what would have been saved then
};
