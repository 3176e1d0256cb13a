// SPDX-License-Identifier: MIT
// An environment of the test's own.
#pragma once

#include <QByteArray>

/// Sets an environment variable for its lifetime; a null value takes the variable away.
class Environment
{
public:
    Environment(const char *name, const QByteArray &value) : m_name(name), m_before(qgetenv(name))
    {
        set(value);
    }

    ~Environment() { set(m_before); }

    Environment(const Environment &) = delete;
    Environment &operator=(const Environment &) = delete;

private:
    void set(const QByteArray &value) const
    {
        value.isNull() ? qunsetenv(m_name) : qputenv(m_name, value);
    }

    const char *m_name;
    QByteArray m_before;
};
