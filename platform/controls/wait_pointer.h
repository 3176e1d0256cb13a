// SPDX-License-Identifier: MIT
// The hourglass.
#pragma once

#include <QApplication>

/// Shows the hourglass for its lifetime.
class WaitPointer
{
public:
    WaitPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }

    ~WaitPointer() { QApplication::restoreOverrideCursor(); }

    WaitPointer(const WaitPointer &) = delete;
    WaitPointer &operator=(const WaitPointer &) = delete;
};
