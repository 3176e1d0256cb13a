// SPDX-License-Identifier: MIT
// What a command line means: a program, a blank, and the rest of the line as one argument.
#pragma once

#include <QString>

#include <functional>

/// A program of the host, empty for none, and what stands behind it.
struct CommandLine {
    QString program;
    QString argument;
};

/// Takes a line apart as ProcessStarter::start describes. `findProgram` returns the host's file of
/// a program name, or nothing.
CommandLine splitCommandLine(const QString &line,
                             const std::function<QString(const QString &)> &findProgram);
