// SPDX-License-Identifier: MIT
// The flight plan set that is being made.
#pragma once

/// Owned by the main window, written by page 2 alone; pages 0 and 1 look at it.
struct SetInProgress {
    bool newAirportFlag = false;  ///< page 1 was opened for its airports
    bool AddAirportsFlag = false; ///< and airports were written there
    bool AddAircraftFlag = false; ///< aircraft were written, for it or before: never taken back
    bool reLoadNewPlan = false;   ///< page 0 was opened for its aircraft
};
