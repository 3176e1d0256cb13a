// SPDX-License-Identifier: MIT
// Programs of the host that a test makes.
#pragma once

#include "platform/process.h"
#include "tests/support/environment.h"
#include "tests/support/sandbox.h"

#include <QFile>

/// A sandbox whose folder "C:\Path" is the only one on the PATH. Scripts can write to $OUT.
struct Programs {
    Programs()
    {
        sandbox.makeFolder("C:\\Path");
        sandbox.makeFolder("C:\\Bin");
    }

    /// Makes an executable file; without "#!" it is no shell script.
    void add(const QString &path, const QByteArray &content = "#!/bin/sh\n") const
    {
        sandbox.write(path, content);
        QFile::setPermissions(sandbox.host(path),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// Makes a shell script.
    void addScript(const QString &path, const QByteArray &lines) const
    {
        add(path, "#!/bin/sh\n" + lines + '\n');
    }

    Sandbox sandbox;
    const QString out = "C:\\Bin\\out";
    Environment outVariable{"OUT", QFile::encodeName(sandbox.host(out))};
    Environment pathVariable{"PATH", QFile::encodeName(sandbox.host("C:\\Path"))};
    SystemProcesses processes;
};
