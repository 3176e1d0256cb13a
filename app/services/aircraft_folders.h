// SPDX-License-Identifier: MIT
// The walks through the aircraft folders.
#pragma once

#include "app/services/cfg_content.h"
#include "platform/sub_folder_reader.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class Step;

/// What a walk sees of one aircraft folder.
struct AircraftFolder {
    QString name;
    QString path;
    QString cfgFile;                     ///< full path of its aircraft.cfg, empty without one
    std::optional<RuntimeError> failure; ///< why that could not be opened
    TrafficContent traffic;              ///< of a walk for traffic
    EditorContent editor;                ///< of a walk for the editor
};

/// Gives out walks, and remembers what they see while that is wanted.
class AircraftFolders
{
public:
    /// One walk through the sub-folders of a directory, in their order.
    class Walk
    {
    public:
        Walk(AircraftFolders &folders, const QString &directory, Content wanted);

        int count() const { return m_count; }

        /// Of the folder given last.
        int index() const { return m_index; }

        /// The next folder, which stands until the call after; none behind the last. Throws
        /// RuntimeError when it cannot be opened: Path not found (76), Path/File access error (75).
        const AircraftFolder *next(Step &step);

    private:
        void look(const QString &path);

        AircraftFolders &m_folders;
        QString m_directory;
        Content m_wanted;
        QStringList m_names;
        std::optional<files::SubFolderReader> m_reader; ///< none when all is remembered
        QList<AircraftFolder> m_seen; ///< the last folder; all of them when remembered
        int m_count = 0;
        int m_index = -1;
    };

    /// Throws RuntimeError: Path not found (76), Path/File access error (75).
    Walk walk(const QString &directory, Content wanted) { return {*this, directory, wanted}; }

    /// From now on a walk that follows one of the same directory gives what that one saw.
    void remember() { m_remembering = true; }

    void forget() { *this = {}; }

private:
    bool m_remembering = false;
    QString m_directory; ///< of the last walk that came to its end
    QList<AircraftFolder> m_seen;
};
