// SPDX-License-Identifier: MIT
// Two generations of copies, kept beside a file before it is changed.
#pragma once

#include <QString>

/// Copies a file to ".Backup1" beside it; an earlier copy moves to ".Backup2". An empty file is not
/// copied. `ErrMsg` is set to the step under way. Throws RuntimeError.
void backUp(const QString &path, QString &ErrMsg);
