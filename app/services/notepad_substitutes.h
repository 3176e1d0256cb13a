// SPDX-License-Identifier: MIT
// The editors that stand in for Notepad where there is none.
#pragma once

#include "platform/process.h"

/// All stay in the foreground until their window is closed: the program waits for that.
inline QList<Substitute> notepadSubstitutes()
{
    return {{.program = "notepad",
             .commands = {{"mousepad", "--disable-server"},
                          {"gedit", "--standalone", "--wait"},
                          {"gnome-text-editor", "--standalone"},
                          {"kate", "--block"},
                          {"kwrite"},
                          {"featherpad", "--standalone"},
                          {"pluma"},
                          {"xed", "--standalone"},
                          {"leafpad"}}}};
}
