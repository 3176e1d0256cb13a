// SPDX-License-Identifier: MIT
// What a command line means on a host that is not Windows.
#pragma once

#include "platform/process.h"

/// A program of the host with its arguments.
struct HostCommand {
    QString program;
    QStringList arguments;
};

/// A program on the PATH, or nothing. Parts of it that depend on where we are, are passed over.
QString programOnPath(const QString &program);

/// Resolves a command line as ProcessStarter::start describes. A Windows executable ("MZ") is run
/// with wine; any other executable directly, a path handed to it as the host's. Where a program is
/// missing its substitute serves. Throws File not found (53).
HostCommand resolveCommand(const QString &commandLine, const QList<Substitute> &substitutes);
