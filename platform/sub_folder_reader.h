// SPDX-License-Identifier: MIT
// One file out of each of many folders.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QStringList>

#include <memory>
#include <optional>

namespace files
{

/// A file found in a folder.
struct FoundFile {
    QString name;       ///< on disk, empty when there is none
    QByteArray content; ///< as far as it could be read
    bool opened = false;
    std::optional<RuntimeError> failure; ///< why it could not be opened, or be read once it was
};

/// Reads the file of one name out of each sub-folder of a folder, in their order. Files are opened
/// a few folders ahead, so that the system fetches them while those before them are worked on.
class SubFolderReader
{
public:
    /// Throws Path not found (76), Path/File access error (75).
    SubFolderReader(const QString &folder, const QStringList &subFolders, const QString &name);
    ~SubFolderReader();
    SubFolderReader(const SubFolderReader &) = delete;
    SubFolderReader &operator=(const SubFolderReader &) = delete;

    /// The file in the next sub-folder, found blind to case; stands until the next call. Throws
    /// Path not found (76) or Path/File access error (75) for the sub-folder itself; the call after
    /// goes on behind it.
    const FoundFile &next();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace files
