// SPDX-License-Identifier: MIT
// The entries by which the programs of the suite find each other, and starting a companion.
#pragma once

#include <QString>

class ProcessStarter;
class Registry;
class Step;

namespace suite_registry
{

/// The companion programs; empty without an entry.
struct Companions {
    QString PellaraPath;    ///< registered path of the flight plan creator Pellara
    QString PellaraCaption; ///< its main window's caption
    QString VarloPath;      ///< registered path of the configuration editor Varlo
};

/// Records that this program lives in a folder, unless a place is recorded already, and what its
/// window is called; looks the companions up. Throws RuntimeError when the registry cannot be
/// written.
Companions CheckRegistry(Registry &registry, const QString &folder, const QString &caption,
                         Step &step);

/// The folder in a registered path: up to the program's name, found by its lower-case form
/// ("\\pellara.exe"); a path without it is the folder itself.
QString folderOf(const QString &registeredPath, const QString &program);

/// Brings the companion's window to the front, or starts the program in its own folder when there
/// is no such window. Throws RuntimeError: File not found (53), Path not found (76).
void launch(ProcessStarter &processes, const QString &registeredPath, const QString &program,
            const QString &caption);

} // namespace suite_registry
