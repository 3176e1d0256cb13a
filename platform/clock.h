// SPDX-License-Identifier: MIT
// The time of day, which a test replaces.
#pragma once

#include <QDateTime>

class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
};

class SystemClock : public Clock
{
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};
