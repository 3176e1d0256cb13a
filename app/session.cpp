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

Settings settings_file::parse(const QByteArray &bytes)
{
    SequentialInput input(code_page::decodeMarked(bytes));
    Settings settings;
    for (const auto line : lines) {
        settings.*line = input.next();
    }
    return settings;
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

std::optional<Settings> Session::read() const
{
    constexpr qint64 shortestLength = 11;
    if (files::openForAppend(path()) < shortestLength) {
        return std::nullopt;
    }
    return settings_file::parse(files::readAll(path()));
}

void Session::restore(const Settings &settings)
{
    m_state.ShowAddAirportHelp = blind_to_case::lower(settings.showAddAirportHelp) == u"true"_s;
    if (m_state.strTToolsPath.size() > 5) {
        m_state.strTToolsDir = tToolsFolder(m_state.strTToolsPath);
    }
    log(settings);
}

void Session::save(const QString &drive)
{
    const Settings settings = {
        m_state.LastTab,     m_state.strTToolsPath,   drive,
        m_state.AirCraftDir, m_state.AircraftTextDir, boolText(m_state.ShowAddAirportHelp)};
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
