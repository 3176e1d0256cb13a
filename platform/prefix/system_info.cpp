// SPDX-License-Identifier: MIT
#include "platform/system_info.h"

#include <QSysInfo>
#include <QVersionNumber>

using namespace Qt::StringLiterals;

SystemVersion systemVersion()
{
    SystemVersion system;
    system.description = QSysInfo::prettyProductName() + u", kernel"_s;
    const QVersionNumber kernel = QVersionNumber::fromString(QSysInfo::kernelVersion());
    system.majorVersion = kernel.majorVersion();
    system.minorVersion = kernel.minorVersion();
    system.build = kernel.microVersion();
    return system;
}
