// SPDX-License-Identifier: MIT
// A started program, the same on every system.
#pragma once

#include "platform/process.h"

#include <QProcess>

/// Starts what a QProcess describes, and leaves it running whatever becomes of the object returned.
/// Throws Path/File access error (75).
std::unique_ptr<Process> startChild(std::unique_ptr<QProcess> process);

/// The exit code of a child that has ended, as this system tells it.
int exitCodeOf(const QProcess &ended);
