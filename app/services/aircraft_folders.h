// SPDX-License-Identifier: MIT
// Looking into many aircraft folders at once.
#pragma once

#include "app/services/cfg_content.h"
#include "platform/sub_folder_reader.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// What a look into one aircraft folder gave.
struct AircraftFolder {
    QString name;
    QString path;
    std::optional<RuntimeError> failure;     ///< why the folder could not be opened
    QString cfgFile;                         ///< full path of its aircraft.cfg, empty without one
    std::optional<RuntimeError> fileFailure; ///< why that could not be read
    TrafficContent traffic;                  ///< of a look for traffic
    EditorContent editor;                    ///< of a look for the editor

    /// Throws why the file could not be read.
    const TrafficContent &trafficContent() const;
};

/// The walks through the aircraft folders. Their files are read and parsed on all processors and
/// told in order.
class AircraftFolders
{
public:
    enum class Content { Traffic, Editor, All };

    /// Called before each folder with its index, and with each folder that holds an aircraft.cfg.
    struct Listener {
        std::function<void(int)> folderReached;
        std::function<void(const AircraftFolder &)> cfgFound;
    };

    AircraftFolders();
    ~AircraftFolders();
    AircraftFolders(const AircraftFolders &) = delete;
    AircraftFolders &operator=(const AircraftFolders &) = delete;

    /// The names of a directory's sub-folders, as files::subFolders gives them.
    QStringList subFolders(const QString &directory) const;

    /// Looks into the sub-folders, in their order. `ErrMsg` is set to the step. Throws
    /// RuntimeError: Path not found (76), Path/File access error (75).
    void walk(const QString &directory, const QStringList &subFolders, Content wanted,
              QString &ErrMsg, const Listener &listener);

    /// Begins to look into the sub-folders in the background, for the first walk of a SharedLook.
    void lookAhead(const QString &directory);

    /// While it lives, walks through the same folders one after the other cost one: all are told
    /// what the first one saw.
    class SharedLook
    {
    public:
        explicit SharedLook(AircraftFolders &folders);
        ~SharedLook();
        SharedLook(const SharedLook &) = delete;
        SharedLook &operator=(const SharedLook &) = delete;

    private:
        AircraftFolders &m_folders;
    };

private:
    struct Look {
        QString directory;
        QStringList subFolders;
        std::vector<AircraftFolder> folders; ///< one for each sub-folder

        void visit(std::size_t index, const files::SubFolderReader &reader, Content wanted);
    };
    class Background;

    bool m_sharing = false;
    Look m_last;
    std::unique_ptr<Background> m_ahead;
};
