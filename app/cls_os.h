// SPDX-License-Identifier: MIT
// The name and version of the operating system, in words.
#pragma once

#include "platform/system_info.h"

/// Names a system by the published version numbers of the Windows releases.
class clsOS
{
public:
    explicit clsOS(const SystemVersion &system);

    /// "Windows XP"; "Unknown OS Version 6.0 Platform 2" for numbers without a name.
    const QString &name() const { return m_name; }

    /// "5.1 Service Pack 2 Home Edition". The numbers are left out when the name tells them.
    const QString &version() const { return m_version; }

    /// Name and version in one line.
    QString text() const;

private:
    QString m_name;
    QString m_version;
};
