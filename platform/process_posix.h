// SPDX-License-Identifier: MIT
// What a command line means on a host that is not Windows.
#pragma once

#include "platform/process.h"

#include <QStringList>

#include <optional>

/// A program of the host with its arguments.
struct HostCommand {
    QString program;
    QStringList arguments;
};

/// Resolves a command line as ProcessStarter::start describes. A Windows executable ("MZ") is run
/// with wine; any other executable directly, a path handed to it as the host's. Where there is no
/// NOTEPAD.EXE the desktop's text editor serves. Throws File not found (53).
HostCommand resolveCommand(const QString &commandLine);
