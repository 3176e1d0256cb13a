// SPDX-License-Identifier: MIT
// The doors to the outside world, which a test replaces.
#pragma once

class Clock;
class Dialogs;
class ProcessStarter;
class Registry;

struct Outside {
    Registry &registry;
    ProcessStarter &processes;
    Dialogs &dialogs;
    const Clock &clock;
};
