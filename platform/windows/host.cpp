// SPDX-License-Identifier: MIT
#include "platform/host.h"

#include <windows.h>

void prepareHost()
{
    // An empty drive is an error of ours to tell, not a box that asks for a disk.
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    // Never a library out of the current folder or the PATH.
    ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32 |
                               LOAD_LIBRARY_SEARCH_USER_DIRS);
}
