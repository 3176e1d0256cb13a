// SPDX-License-Identifier: MIT
// Stands before the C library's calls.
#include "tests/support/failing_calls.h"

#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

std::function<bool()> failing_calls::syncFails;
std::function<bool()> failing_calls::readFails;

extern "C" int fsync(int descriptor)
{
    if (failing_calls::syncFails && failing_calls::syncFails()) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

extern "C" ssize_t read(int descriptor, void *bytes, std::size_t size)
{
    if (failing_calls::readFails && failing_calls::readFails()) {
        errno = EIO;
        return -1;
    }
    return ::syscall(SYS_read, descriptor, bytes, size);
}
