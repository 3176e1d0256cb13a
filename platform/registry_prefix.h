// SPDX-License-Identifier: MIT
// What the registry of a Wine prefix depends on beside its files.
#pragma once

#include <QString>

/// Whether a Wine server of this prefix runs: then it, not the files, holds the registry.
/// `temporaryFolder` is where servers keep their sockets, "/tmp".
bool isWineRunning(const QString &prefix, const QString &temporaryFolder);
