// SPDX-License-Identifier: MIT
// What the user reads when a step fails.
#pragma once

#include "app/services/step.h"
#include "platform/runtime_error.h"

#include <functional>
#include <type_traits>

class Dialogs;
class TraceLog;

class ErrorReport
{
public:
    ErrorReport(QString &ErrMsg, TraceLog &log, Dialogs &dialogs)
        : m_errMsg(ErrMsg), m_log(log), m_dialogs(dialogs)
    {
    }

    /// Runs the body of a handler, which may name its steps: a body is called with a Step, or with
    /// nothing. A failure in it is shown under `title` (see show) and logged. Returns whether the
    /// body ran to its end.
    template <typename Body>
    bool run(const QString &title, Body body)
    {
        return runSteps(title, [&](Step &step) {
            if constexpr (std::is_invocable_v<Body, Step &>) {
                body(step);
            } else {
                body();
            }
        });
    }

    /// "Error  53 File not found", a line break and ErrMsg, under an exclamation icon.
    void show(const QString &title, const RuntimeError &error);

    /// One entry with number, description and step, while tracing is on.
    void log(const RuntimeError &error);

    /// "Error  53 File not found".
    static QString describe(const RuntimeError &error);

private:
    bool runSteps(const QString &title, const std::function<void(Step &)> &body);

    QString &m_errMsg;
    TraceLog &m_log;
    Dialogs &m_dialogs;
};
