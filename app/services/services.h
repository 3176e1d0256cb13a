// SPDX-License-Identifier: MIT
// What every page may use.
#pragma once

#include "app/services/aircraft_folders.h"
#include "app/services/error_report.h"
#include "app/services/form_state.h"
#include "app/services/shell.h"
#include "app/services/trace_log.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/process.h"
#include "platform/registry.h"

/// The doors to the outside world, which a test replaces.
struct Outside {
    Registry &registry;
    ProcessStarter &processes;
    Dialogs &dialogs;
    const Clock &clock;
};

/// One of each, made by the main window and handed to its pages.
struct Services {
    explicit Services(const Outside &outside)
        : registry(outside.registry),
          processes(outside.processes),
          dialogs(outside.dialogs),
          clock(outside.clock),
          log(state, clock, dialogs),
          errors(state, log, dialogs),
          shell(state, errors, dialogs, outside.processes, clock)
    {
    }

    FormState state;
    Registry &registry;
    ProcessStarter &processes;
    Dialogs &dialogs;
    const Clock &clock;
    TraceLog log;
    ErrorReport errors;
    Shell shell;
    AircraftFolders aircraftFolders;
};
