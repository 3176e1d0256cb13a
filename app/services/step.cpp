// SPDX-License-Identifier: MIT
#include "app/services/step.h"

#include "app/services/form_state.h"

#include <exception>

Step::Step(FormState &state)
    : m_state(state), m_before(state.ErrMsg), m_failuresBefore(std::uncaught_exceptions())
{
}

Step::~Step()
{
    if (std::uncaught_exceptions() == m_failuresBefore) {
        m_state.ErrMsg = m_before;
    }
}

void Step::set(const QString &text)
{
    m_state.ErrMsg = text;
}
