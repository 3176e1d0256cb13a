// SPDX-License-Identifier: MIT
// Files and folders by their Windows paths. Every failure is a RuntimeError with the classic
// number; every write is checked, the flush and close included.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

namespace files
{

/// The whole content. Throws File not found (53), Path not found (76), Path/File access error (75)
/// for what is no file or where access is denied, Out of memory (7) beyond 256 MB.
QByteArray readAll(const QString &path);

/// The length in bytes of an existing file. Throws as readAll.
qint64 length(const QString &path);

enum class Links { Follow, Refuse };

/// Opens for appending, which creates the file when it is missing, and closes it again.
/// Returns the length in bytes. Throws as readAll, and 70 on a write-protected disk; for a link
/// that is to be refused Path not found (76).
qint64 openForAppend(const QString &path, Links links = Links::Follow);

/// Appends bytes to a file, creating it when it is missing. A last line without a line end is
/// completed with CR LF first, so that two entries are never glued together. When the write fails
/// half way what was written is cut off again, unless another program has appended since; Disk full
/// (61) and the rest are thrown. What must be safe is synced, once, with `sync`.
void appendLines(const QString &path, const QByteArray &bytes);

/// For its lifetime no other copy of the program adds to a file: one that is at it is waited for,
/// for some seconds. A file that cannot be locked is used without.
class Lock
{
public:
    explicit Lock(const QString &path);
    ~Lock();
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

private:
    struct File;
    std::unique_ptr<File> m_file; ///< open and locked
};

/// Has the system write what it holds of a file to the disk. Throws as appendLines.
void sync(const QString &path);

/// Replaces the whole content: written beside, synced and renamed, so that the old content stands
/// until the new one is complete; in a folder that takes no new files it is written in place. A
/// link is followed. What a killed program left beside the file is removed. Throws as appendLines.
void writeAll(const QString &path, const QByteArray &bytes);

/// Copies a file over another one, which is complete or untouched, with the permissions of the
/// source. A link in its place is replaced, not followed. Throws as readAll and writeAll.
void copy(const QString &from, const QString &to);

/// Deletes a file. Throws File not found (53), Path/File access error (75).
void remove(const QString &path);

/// Moves a file to the desktop's trash. Returns false, with the file where it was, when that cannot
/// be done: a system without a trash, or a file that may not be moved.
bool moveToTrash(const QString &path);

/// Whether two paths lead to one and the same existing file. Never throws.
bool isSame(const QString &path, const QString &other);

/// Whether a file or folder of this path exists; one that cannot be looked at is taken to, so that
/// nothing is overwritten for lack of a look. Never throws.
bool exists(const QString &path);

/// Whether a folder of this path exists, or anything else. Never throw.
bool isFolder(const QString &path);
bool isFile(const QString &path);

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
