// SPDX-License-Identifier: MIT
// What a page stands on: the real services and files, everything outside faked.
#pragma once

#include "tests/support/fakes.h"
#include "tests/support/sandbox.h"

#include <memory>

struct FormState;
struct Services;

class ServicesOnFakes
{
public:
    ServicesOnFakes();
    ~ServicesOnFakes();

    FormState &state() const;
    QString step() const; ///< what a report would name now

    /// The boxes so far, each as "icon, title: prompt", and forgets them.
    QStringList messages();

    void trace() const;

    /// The entries of the trace log, without their times; none when there is no log.
    QStringList traced() const;

    Sandbox sandbox;
    FakeOutside outside;

private:
    std::unique_ptr<Services> m_services;

public:
    Services &services = *m_services;
};
