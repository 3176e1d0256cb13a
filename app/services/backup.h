// SPDX-License-Identifier: MIT
// Two generations of copies, kept beside a file before it is changed.
#pragma once

class QString;
class Step;

/// Copies a file to ".Backup1" beside it; an earlier copy moves to ".Backup2". An empty file is not
/// copied. Throws RuntimeError.
void DoBackup(const QString &path, Step &step);
