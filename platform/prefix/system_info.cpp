// SPDX-License-Identifier: MIT
#include "platform/system_info.h"

#include <QSysInfo>
#include <QVersionNumber>

SystemVersion systemVersion()
{
    SystemVersion system;
    system.description = QSysInfo::prettyProductName() + ", kernel";
    const QVersionNumber kernel = QVersionNumber::fromString(QSysInfo::kernelVersion());
    system.majorVersion = kernel.majorVersion();
    system.minorVersion = kernel.minorVersion();
    system.build = kernel.microVersion();
    return system;
}
