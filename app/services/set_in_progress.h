// SPDX-License-Identifier: MIT
// The flight plan set that is being made.
#pragma once

#include <QString>

/// Written by page 2 alone; the other pages look at it and are told by signals when it changes.
struct SetInProgress {
    bool newAirportFlag = false;  ///< page 1 was opened for its airports
    bool AddAirportsFlag = false; ///< airports were written for it
    bool AddAircraftFlag =
        false;                  ///< aircraft were written, for it or before; only a start clears it
    bool reLoadNewPlan = false; ///< page 0 was opened for its aircraft
};
