// SPDX-License-Identifier: MIT
// What the user reads when a step fails.
#pragma once

#include "app/services/trace_log.h"
#include "platform/dialogs.h"
#include "platform/runtime_error.h"

class ErrorReport
{
public:
    ErrorReport(FormState &state, TraceLog &log, Dialogs &dialogs)
        : m_state(state), m_log(log), m_dialogs(dialogs)
    {
    }

    /// Runs the body of a handler. A failure in it is shown under `title` (see show) and logged.
    /// Returns whether the body ran to its end.
    template <typename Body>
    bool run(const QString &title, Body body)
    {
        try {
            body();
            return true;
        } catch (const RuntimeError &error) {
            show(title, error);
            return false;
        }
    }

    /// "Error  53 File not found", a line break and ErrMsg, under an exclamation icon.
    void show(const QString &title, const RuntimeError &error);

    /// One entry with number, description and step, while tracing is on.
    void log(const RuntimeError &error);

    /// "Error  53 File not found".
    static QString describe(const RuntimeError &error);

private:
    FormState &m_state;
    TraceLog &m_log;
    Dialogs &m_dialogs;
};
