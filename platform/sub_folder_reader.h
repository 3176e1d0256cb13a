// SPDX-License-Identifier: MIT
// One file out of each of many folders.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace files
{

/// A file found in a folder.
struct FoundFile {
    QString name; ///< on disk, empty when there is none
    QByteArray content;
    std::optional<RuntimeError> failure; ///< why the content could not be read
};

/// Reads files out of the sub-folders of one folder, as fast as the system can.
class SubFolderReader
{
public:
    /// Throws Path not found (76), Path/File access error (75).
    explicit SubFolderReader(const QString &folder);
    ~SubFolderReader();
    SubFolderReader(const SubFolderReader &) = delete;
    SubFolderReader &operator=(const SubFolderReader &) = delete;

    /// Finds the file of this name, blind to case, in a sub-folder and reads it into `found`, whose
    /// memory is used again. Several threads may call it at once. Throws Path not found (76) or
    /// Path/File access error (75) for the sub-folder itself.
    void read(const QString &subFolder, const QString &name, FoundFile &found) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace files
