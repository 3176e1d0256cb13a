// SPDX-License-Identifier: MIT
// Where the simulator keeps its aircraft.
#pragma once

#include "platform/registry.h"

namespace fs_location
{

/// The simulator's installation folder: Flight Simulator 2004's, else Flight Simulator X's; empty
/// when neither is registered. "No Path" counts as not registered.
QString installation(const Registry &registry);

/// The aircraft directory of an installation. The words "Flight Simulator X" in its path decide,
/// whichever key it came from.
QString aircraftDirectory(const QString &installation);

/// Whether a path ends in "aircraft", "airplanes" or "rotorcraft", blind to case.
bool endsInAircraftFolder(const QString &path);

/// Whether one of the three words stands anywhere in a path, blind to case.
bool namesAircraftFolder(const QString &path);

} // namespace fs_location
