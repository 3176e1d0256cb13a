// SPDX-License-Identifier: MIT
// What a call fails with.
#pragma once

#include "platform/runtime_error.h"

#include <QString>

/// The number and description of the RuntimeError a body ends with ("6 Overflow"); empty without
/// one.
template <typename Body>
QString failureOf(Body body)
{
    try {
        body();
    } catch (const RuntimeError &error) {
        return QString::number(error.number()) + ' ' + error.description();
    }
    return {};
}
