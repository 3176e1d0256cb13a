// SPDX-License-Identifier: MIT
#include "app/session.h"

#include "app/services/form_state.h"
#include "app/services/shell.h"
#include "app/services/trace_log.h"
#include "platform/blind_to_case.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/sequential_input.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::array lines = {
    &Settings::lastTab,     &Settings::tToolsPath,       &Settings::drive,
    &Settings::aircraftDir, &Settings::aircraftTextFile, &Settings::showAddAirportHelp};

QString boolText(bool value)
{
    return value ? u"True"_s : u"False"_s;
}

} // namespace

void settings_file::parse(const QByteArray &bytes, Settings &settings)
{
    SequentialInput input(code_page::decodeMarked(bytes));
    for (const auto line : lines) {
        settings.*line = input.next();
    }
}

QByteArray settings_file::compose(const Settings &settings)
{
    QString text;
    for (const auto line : lines) {
        text += settings.*line + u"\r\n"_s;
    }
    return code_page::encode(text);
}

QString Session::path() const
{
    return m_state.MorlenEDir + u"\\MorlenE.ini"_s;
}

void Session::create() const
{
    files::openForAppend(path());
}

std::optional<Settings> Session::read()
{
    constexpr qsizetype shortestLength = 11;
    m_unread = true;
    const QByteArray bytes = files::exists(path()) ? files::readAll(path()) : QByteArray();
    m_unread = false;
    if (bytes.size() < shortestLength) {
        return std::nullopt;
    }
    settings_file::parse(bytes, m_notRestored);
    return m_notRestored;
}

void Session::restore(const Settings &settings)
{
    m_state.ShowAddAirportHelp = blind_to_case::lower(settings.showAddAirportHelp) == u"true"_s;
    if (m_state.strTToolsPath.size() > 5) {
        m_state.strTToolsDir = tToolsFolder(m_state.strTToolsPath);
    }
    log(settings);
}

void Session::begin(const QString &drive, bool restoredAll)
{
    m_atBegin = current(drive);
    const bool shifted = m_notRestored.drive.size() > 2; // by a comma in a path, or no settings
    if (restoredAll || shifted) {
        m_notRestored = {};
    }
}

Settings Session::current(const QString &drive) const
{
    return {m_state.LastTab,     m_state.strTToolsPath,   drive,
            m_state.AirCraftDir, m_state.AircraftTextDir, boolText(m_state.ShowAddAirportHelp)};
}

void Session::save(const QString &drive)
{
    if (m_unread) {
        read();
    }
    Settings settings = current(drive);
    for (const auto line : lines) {
        if (settings.*line == m_atBegin.*line && !(m_notRestored.*line).isEmpty()) {
            settings.*line = m_notRestored.*line;
        }
    }
    m_log.write(TraceLog::cut(u"***Program Terminated by User***"_s));
    m_log.write(u"Opening "_s + path());
    log(settings);
    files::writeAll(path(), settings_file::compose(settings));
}

void Session::log(const Settings &settings)
{
    m_log.write(u"Last Tab = "_s + settings.lastTab);
    m_log.write(u"TTools Path = "_s + settings.tToolsPath);
    m_log.write(u"Aircraft Directory = "_s + settings.aircraftDir);
    m_log.write(u"Aircraft Text File = "_s + settings.aircraftTextFile);
    m_log.write(u"Trace On = "_s + boolText(m_state.TraceOn));
    m_log.write(u"Show Add Airport Help = "_s + boolText(m_state.ShowAddAirportHelp));
    m_log.write(TraceLog::separator());
}
