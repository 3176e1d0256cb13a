// SPDX-License-Identifier: MIT
// What the pages share: the main window's variables.
#pragma once

#include <QString>

#include <cstdint>

struct FormState {
    QString LastTab;                           ///< page restored at the next start, as text
    QString osVersion;                         ///< operating system, name and version
    QString CommandLine;                       ///< what the program was started with
    QString ErrMsg;                            ///< the step about to be done, for error reports
    QString TraceMsg;                          ///< the text the next WriteToLog writes
    QString RegValue;                          ///< the registry text last looked up
    QString AirCraftDir;                       ///< the simulator's aircraft directory in use
    QString strTToolsPath;                     ///< full path of the TTools compiler
    QString strTToolsDir;                      ///< its folder, ending in a backslash
    QString DefaultName;                       ///< default name of a new flight plan set
    QString MorlenEDir;                        ///< the program's own folder, ending in a backslash
    QString FSType{QLatin1StringView("2004")}; ///< simulator version chosen, "2002" or "2004"
    QString AircraftTextDir;                   ///< full path of the aircraft text file in use
    QString AirportTextFile;        ///< full path of the airport text file page 1 was given
    bool ExitFlag = false;          ///< quitting needs no confirmation
    bool TraceOn = false;           ///< the trace log is being written
    bool ShowAddAirportHelp = true; ///< the adding-airports reminder is still to be shown
    bool ended = false;             ///< the program is quitting: whoever waits for anything stops
};
