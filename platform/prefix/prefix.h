// SPDX-License-Identifier: MIT
// The Wine prefix that the program lives in.
#pragma once

#include <QString>

namespace paths
{

/// On the host: $WINEPREFIX, else ~/.wine when it exists, else the program's own in $XDG_DATA_HOME,
/// which is made, with its drives c: and z:, on first need. In it paths::toHost takes one that
/// starts with "/" for a host path.
QString prefix();

} // namespace paths
