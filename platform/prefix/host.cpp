// SPDX-License-Identifier: MIT
#include "platform/host.h"

#include <csignal>

void prepareHost()
{
    // A limit on file sizes must come back as an error of the write, not as a signal that ends us.
    std::signal(SIGXFSZ, SIG_IGN);
}
