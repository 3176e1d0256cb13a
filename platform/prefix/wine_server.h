// SPDX-License-Identifier: MIT
// What the registry of a Wine prefix depends on beside its files.
#pragma once

#include <QString>

/// Where the servers of Wine keep their sockets; a test has its own.
struct WineServerPlaces {
    QString temporary = QString::fromLatin1("/tmp");
    QString perUser = QString::fromLatin1("/run/user");
};

/// Whether a Wine server of this prefix runs: then it, not the files, holds the registry.
bool isWineRunning(const QString &prefix, const WineServerPlaces &places = {});
