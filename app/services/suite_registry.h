// SPDX-License-Identifier: MIT
// The entries by which the programs of the suite find each other, and starting a companion.
#pragma once

class ProcessStarter;
class QString;
class Registry;
class Step;
struct FormState;

namespace suite_registry
{

/// Records where this program lives, unless that is recorded already, and what its window is
/// called; looks the companion programs up. Throws RuntimeError when the registry cannot be
/// written.
void CheckRegistry(Registry &registry, FormState &state, const QString &caption, Step &step);

/// The folder in a registered path: up to the program's name, found by its lower-case form
/// ("\\pellara.exe"); a path without it is the folder itself.
QString folderOf(const QString &registeredPath, const QString &program);

/// Brings the companion's window to the front, or starts the program in its own folder when there
/// is no such window. Throws RuntimeError: File not found (53), Path not found (76).
void launch(ProcessStarter &processes, const QString &registeredPath, const QString &program,
            const QString &caption);

} // namespace suite_registry
