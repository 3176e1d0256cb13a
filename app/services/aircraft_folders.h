// SPDX-License-Identifier: MIT
// Looking into many aircraft folders at once.
#pragma once

#include "platform/files.h"
#include "platform/parallel.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace aircraft_folders
{

/// What a look into one aircraft folder gave: its aircraft.cfg, parsed to what the reader wants of
/// it.
template <typename Content>
struct Visit {
    std::optional<RuntimeError> folderFailure;
    QString file; ///< name of the aircraft.cfg, empty without one
    std::optional<RuntimeError> fileFailure;
    Content parsed;

    /// Throws why the file could not be read.
    const Content &content() const
    {
        if (fileFailure) {
            throw RuntimeError(*fileFailure);
        }
        return parsed;
    }
};

/// A look into one folder. `Content::parse` takes the bytes of the file; it must not throw.
template <typename Content>
Visit<Content> visit(const files::SubFolderReader &reader, const QString &subFolder)
{
    thread_local files::FoundFile found; // its memory serves file after file
    Visit<Content> visit;
    try {
        reader.read(subFolder, QStringLiteral("aircraft.cfg"), found);
        visit.file = found.name;
        visit.fileFailure = found.failure;
        if (!found.failure) {
            visit.parsed = Content::parse(found.content);
        }
    } catch (const RuntimeError &error) {
        visit.folderFailure = error;
    }
    return visit;
}

/// A look into each of the folders, on all processors; in their order.
template <typename Content>
std::vector<Visit<Content>> visitAll(const files::SubFolderReader &reader,
                                     const QStringList &subFolders)
{
    std::vector<Visit<Content>> visits(static_cast<std::size_t>(subFolders.size()));
    inParallel(static_cast<int>(subFolders.size()), [&](int i) {
        visits[static_cast<std::size_t>(i)] = visit<Content>(reader, subFolders[i]);
    });
    return visits;
}

} // namespace aircraft_folders
