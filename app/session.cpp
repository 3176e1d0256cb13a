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

namespace
{

constexpr std::array lines = {
    &Settings::lastTab,     &Settings::tToolsPath,       &Settings::drive,
    &Settings::aircraftDir, &Settings::aircraftTextFile, &Settings::showAddAirportHelp};

QString boolText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
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
        text += settings.*line + "\r\n";
    }
    return code_page::encode(text);
}

QString Session::path() const
{
    return m_state.MorlenEDir + "\\MorlenE.ini";
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
    m_state.ShowAddAirportHelp = blind_to_case::lower(settings.showAddAirportHelp) == "true";
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
    m_log.write(TraceLog::cut("***Program Terminated by User***"));
    m_log.write("Opening " + path());
    log(settings);
    files::writeAll(path(), settings_file::compose(settings));
}

void Session::log(const Settings &settings)
{
    m_log.write("Last Tab = " + settings.lastTab);
    m_log.write("TTools Path = " + settings.tToolsPath);
    m_log.write("Aircraft Directory = " + settings.aircraftDir);
    m_log.write("Aircraft Text File = " + settings.aircraftTextFile);
    m_log.write("Trace On = " + boolText(m_state.TraceOn));
    m_log.write("Show Add Airport Help = " + boolText(m_state.ShowAddAirportHelp));
    m_log.write(TraceLog::separator());
}
