// SPDX-License-Identifier: MIT
// Steps without a window.
#pragma once

#include "app/services/step.h"
#include "tests/support/failure.h"

/// A handler's steps, and the text that its report would name.
struct Steps {
    QString ErrMsg;
    Step step{ErrMsg};

    /// The failure of a procedure and the step it failed in: "53 File not found: Open C:\x.txt";
    /// empty without one.
    template <typename Procedure>
    QString failureOf(Procedure procedure)
    {
        const QString failure = ::failureOf([&] { procedure(step); });
        return failure.isEmpty() ? failure : failure + ": " + ErrMsg;
    }
};
