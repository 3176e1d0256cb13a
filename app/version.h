// SPDX-License-Identifier: MIT
// The program's version, from the build.
#pragma once

#include <QString>

/// Major, minor and revision: "1.5.4".
inline QString programVersion()
{
    return QString(QLatin1StringView("%1.%2.%3"))
        .arg(MORLEN_VERSION_MAJOR)
        .arg(MORLEN_VERSION_MINOR)
        .arg(MORLEN_VERSION_REVISION);
}
