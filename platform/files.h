// SPDX-License-Identifier: MIT
// Files and folders by their Windows paths. Every failure is a RuntimeError with the classic
// number; every write is checked, the flush and close included.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace files
{

/// The whole content. Throws File not found (53), Path not found (76), Path/File access error (75)
/// for a folder or where access is denied.
QByteArray readAll(const QString &path);

/// The length in bytes of an existing file. Throws as readAll.
qint64 length(const QString &path);

/// Opens for appending, which creates the file when it is missing, and closes it again.
/// Returns the length in bytes. Throws as readAll, and 70 on a write-protected disk.
qint64 openForAppend(const QString &path);

/// Appends bytes to a file, creating it when it is missing. A last line without a line end is
/// completed with CR LF first, so that two entries are never glued together. When the write fails
/// half way the file is cut back to what it was; Disk full (61) and the rest are thrown.
void appendLines(const QString &path, const QByteArray &bytes);

/// Replaces the whole content: written beside and renamed, so that the old content stands until
/// the new one is complete. A link is followed. Throws as appendLines.
void writeAll(const QString &path, const QByteArray &bytes);

/// Copies a file over another one, which is complete or untouched. Throws as readAll and writeAll.
void copy(const QString &from, const QString &to);

/// Deletes a file. Throws File not found (53), Path/File access error (75).
void remove(const QString &path);

/// Moves a file to the desktop's trash. Returns false, with the file where it was, when that cannot
/// be done: a system without a trash, or a file that may not be moved.
bool moveToTrash(const QString &path);

/// Whether two paths lead to one and the same existing file. Never throws.
bool isSame(const QString &path, const QString &other);

/// Whether a file or folder of this path exists. Never throws.
bool exists(const QString &path);

/// Whether a folder of this path exists. Never throws.
bool isFolder(const QString &path);

/// Throws Path not found (76) or Path/File access error (75) unless the folder can be read.
void requireFolder(const QString &path);

/// The names of the immediate sub-folders, sorted blind to case. Names that Windows cannot spell
/// and hidden ones (a leading dot) are left out. Throws Path not found (76), Path/File access
/// error (75).
QStringList subFolders(const QString &path);

/// The names of the files in a folder that match a pattern ("aircraft*.txt", blind to case), sorted
/// blind to case. Throws as subFolders.
QStringList filesMatching(const QString &path, const QString &pattern);

} // namespace files
