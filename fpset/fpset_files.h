// SPDX-License-Identifier: MIT
// Creating, copying and deleting the files of a flight plan set. Nothing a user had goes beyond
// recall: see each function. All throw RuntimeError.
#pragma once

class QString;
class Step;

namespace fpset_files
{

/// Makes sure that a file exists. One that does stays as it is.
void ensureExists(const QString &path);

/// Makes a file empty. Content it had is backed up first (see app/services/backup.h).
void createEmpty(const QString &path, Step &step);

/// Copies a file whole. Other content the target had is backed up first; nothing is touched unless
/// the source can be read. Throws Bad file name (52) without a source, Permission denied (70) when
/// the source is the target itself.
void copy(const QString &source, const QString &target, Step &step);

enum class Discarded { WasNotThere, Trashed, Deleted };

/// Moves a file to the desktop's trash. Where there is none, its content is backed up and the file
/// deleted.
Discarded discard(const QString &path, Step &step);

} // namespace fpset_files
