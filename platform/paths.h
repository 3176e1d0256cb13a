// SPDX-License-Identifier: MIT
// Windows paths above, the host's paths below.
//
// The whole program speaks in Windows paths ("C:\FS9\Aircraft", backslashes, doubled ones accepted,
// names blind to case). Elsewhere than on Windows it lives in a Wine prefix, as the simulator does,
// and uses Wine's own layout: drives are the links in <prefix>/dosdevices.
#pragma once

#include <QString>
#include <QStringList>

namespace paths
{

/// The drives there are, as "c:", in letter order.
QStringList drives();

/// The host's path of a Windows path. Each component is matched exactly first, else blind to case;
/// what does not exist keeps its spelling. A path without a drive is relative to the current
/// directory.
/// Throws RuntimeError: Bad file name (52) for a name Windows refuses, Device unavailable (68) for
/// a drive there is not.
QString toHost(const QString &windowsPath);

/// The Windows path of an absolute host path, under the drive whose folder matches longest.
QString fromHost(const QString &hostPath);

/// The components of a path without its drive: "." stays, ".." goes up. Throws Bad file name (52).
QStringList components(QStringView path);

/// Whether Windows would accept this as the name of one file or folder.
bool isValidName(QStringView name);

/// "C:\windows\system32", as the system itself names it.
QString systemDirectory();

/// "C:\windows", the same way.
QString windowsDirectory();

/// The current directory, without a backslash at its end unless it is a drive's root.
QString currentDirectory();

/// Makes a folder the current directory. Throws RuntimeError: Path not found (76).
void setCurrentDirectory(const QString &windowsPath);

/// Joins a folder and a name with exactly one backslash ("C:\" has one already).
QString join(const QString &folder, const QString &name);

/// What follows the last backslash; the whole path when there is none.
QString fileName(const QString &path);

} // namespace paths
