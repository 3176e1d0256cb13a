// SPDX-License-Identifier: MIT
// What the library of faults can be told. A process has it when it was loaded before all others
// (LD_PRELOAD); its functions are then found by dlsym().
#pragma once

/// What another program appends.
inline constexpr char faultsOthersLine[] = "AC#900,250,\"Somebody's own\"\r\n";

extern "C" {

/// From now on calls are counted, and the call-th one meets a fault of the kind named: "full",
/// "broken", "denied", "readonly" and "toomany" fail it; "half" writes half, to a disk that is full
/// then; "gone" fails it and all behind it; "kill" and "killhalf" end the process before or within
/// it; with "others" and "othershalf" another program appends a line to `file` before or within it,
/// the latter filling the disk. Any other kind only counts. No folder is made outside of `room`.
void faultsBegin(int call, const char *kind, const char *room, const char *file);

/// No longer. Returns the names of the calls since, each with a blank behind it.
const char *faultsEnd();
}
