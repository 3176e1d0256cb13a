// SPDX-License-Identifier: MIT
// The hourglass.
#pragma once

/// Shows the hourglass for its lifetime.
class WaitPointer
{
public:
    WaitPointer();
    ~WaitPointer();
    WaitPointer(const WaitPointer &) = delete;
    WaitPointer &operator=(const WaitPointer &) = delete;
};
