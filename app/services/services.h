// SPDX-License-Identifier: MIT
// What every page may use.
#pragma once

#include "app/services/aircraft_folders.h"
#include "app/services/error_report.h"
#include "app/services/form_state.h"
#include "app/services/outside.h"
#include "app/services/shell.h"
#include "app/services/trace_log.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/process.h"
#include "platform/registry.h"

/// One of each, made by the main window and handed to its pages.
struct Services : Outside {
    explicit Services(const Outside &outside) : Outside(outside) {}

    FormState state;
    TraceLog log{state, clock, dialogs};
    ErrorReport errors{state.ErrMsg, log, dialogs};
    Shell shell{state, errors, dialogs, processes, clock};
    AircraftFolders aircraftFolders;
};
