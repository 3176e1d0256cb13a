// SPDX-License-Identifier: MIT
// The step that a procedure is about to do, which its error report names.
#pragma once

#include <QString>

struct FormState;

/// Sets ErrMsg, and gives back the text before when the steps are done. When one fails its text
/// stays, for the report: so whatever fails names itself, and nothing that is over does.
class Step
{
public:
    explicit Step(FormState &state);

    /// A side step, a backup within a change for instance, with texts of its own.
    explicit Step(Step &outer) : Step(outer.m_state) {}

    ~Step();
    Step &operator=(const Step &) = delete;

    /// What is about to be done now.
    void set(const QString &text);

private:
    FormState &m_state;
    QString m_before;
    int m_failuresBefore;
};
