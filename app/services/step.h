// SPDX-License-Identifier: MIT
// The step that a procedure is about to do, which its error report names.
#pragma once

#include "app/services/path_display.h"

#include <QString>

#include <exception>

/// Sets ErrMsg, and gives back the text before when the steps are done. When one fails its text
/// stays, for the report: so whatever fails names itself, and nothing that is over does.
class Step
{
public:
    explicit Step(QString &ErrMsg) : m_text(ErrMsg), m_before(ErrMsg) {}

    /// A side step, a backup within a change for instance, with texts of its own.
    explicit Step(Step &outer) : Step(outer.m_text) {}

    ~Step()
    {
        if (std::uncaught_exceptions() == m_failuresBefore) {
            m_text = m_before;
        }
    }

    Step &operator=(const Step &) = delete;

    /// What is about to be done now. A text of more than two whole paths is cut.
    void set(const QString &text) { m_text = cutForMessage(text, twoPaths); }

private:
    QString &m_text;
    QString m_before;
    int m_failuresBefore = std::uncaught_exceptions();
};
