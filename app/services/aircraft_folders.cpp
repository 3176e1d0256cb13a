// SPDX-License-Identifier: MIT
#include "app/services/aircraft_folders.h"

#include "platform/files.h"
#include "platform/parallel.h"
#include "platform/paths.h"

#include <QStringBuilder>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <latch>
#include <thread>
#include <tuple>
#include <utility>

const TrafficContent &AircraftFolder::trafficContent() const
{
    if (fileFailure) {
        throw RuntimeError(*fileFailure);
    }
    return traffic;
}

void AircraftFolders::Look::visit(std::size_t index, const files::SubFolderReader &reader,
                                  Content wanted)
{
    thread_local files::FoundFile found; // its memory serves file after file
    AircraftFolder &folder = folders[index];
    folder.name = subFolders.at(static_cast<qsizetype>(index)); // never detaches: threads share it
    folder.path = paths::join(directory, folder.name);
    try {
        reader.read(folder.name, QStringLiteral("aircraft.cfg"), found);
    } catch (const RuntimeError &error) {
        folder.failure = error;
        return;
    }
    if (found.name.isEmpty()) {
        return;
    }
    folder.cfgFile = paths::join(folder.path, found.name);
    folder.fileFailure = found.failure;
    if (found.failure) {
        return;
    }
    switch (wanted) {
    case Content::Traffic:
        folder.traffic = TrafficContent::parse(found.content);
        break;
    case Content::Editor:
        folder.editor = EditorContent::parse(found.content);
        break;
    case Content::All:
        std::tie(folder.traffic, folder.editor) = cfg_content::parseBoth(found.content);
    }
}

/// A look on a thread of its own, until somebody wants it.
class AircraftFolders::Background
{
public:
    explicit Background(const QString &directory)
        : m_directory(directory), m_thread([this] { run(); })
    {
    }

    ~Background()
    {
        m_abandoned = true;
        m_thread.join();
    }

    Background(const Background &) = delete;
    Background &operator=(const Background &) = delete;

    const QString &directory() const { return m_directory; }

    /// Empty when the directory cannot be read.
    const QStringList &subFolders()
    {
        m_listed.wait();
        return m_look.subFolders;
    }

    /// Helps to finish, on all processors. An empty look when the directory cannot be read.
    Look finished()
    {
        m_listed.wait();
        inParallel(QThread::idealThreadCount(), [this](int) { visitRest(); });
        m_ended.wait();
        return std::move(m_look);
    }

private:
    void run()
    {
        try {
            m_reader.emplace(m_directory);
            m_look.subFolders = files::subFolders(m_directory);
            m_look.folders.resize(static_cast<std::size_t>(m_look.subFolders.size()));
            m_look.directory = m_directory;
        } catch (const RuntimeError &) {
            m_look = {}; // who walks there is told
        }
        m_listed.count_down();
        visitRest();
        m_ended.count_down();
    }

    void visitRest()
    {
        for (std::size_t i = m_next++; i < m_look.folders.size() && !m_abandoned; i = m_next++) {
            m_look.visit(i, *m_reader, Content::All);
        }
    }

    const QString m_directory;
    std::optional<files::SubFolderReader> m_reader;
    Look m_look;
    std::atomic<std::size_t> m_next = 0;
    std::atomic<bool> m_abandoned = false;
    std::latch m_listed{1};
    std::latch m_ended{1};
    std::thread m_thread; // last: it begins at once
};

AircraftFolders::AircraftFolders() = default;

AircraftFolders::~AircraftFolders() = default;

void AircraftFolders::lookAhead(const QString &directory)
{
    m_ahead = std::make_unique<Background>(directory);
}

AircraftFolders::SharedLook::SharedLook(AircraftFolders &folders) : m_folders(folders)
{
    m_folders.m_sharing = true;
}

AircraftFolders::SharedLook::~SharedLook()
{
    m_folders.m_sharing = false;
    m_folders.m_last = {};
    m_folders.m_ahead.reset();
}

QStringList AircraftFolders::subFolders(const QString &directory) const
{
    QStringList shared;
    if (m_sharing && m_ahead && m_ahead->directory() == directory) {
        shared = m_ahead->subFolders();
    } else if (m_last.directory == directory) {
        shared = m_last.subFolders;
    }
    return shared.isEmpty() ? files::subFolders(directory) : shared;
}

void AircraftFolders::walk(const QString &directory, const QStringList &subFolders, Content wanted,
                           QString &ErrMsg, const Listener &listener)
{
    constexpr std::size_t step = 64; // folders visited on all processors before progress can show
    ErrMsg = "Loop through Aircraft Directories";
    if (m_sharing && m_ahead && m_ahead->directory() == directory) {
        m_last = std::exchange(m_ahead, nullptr)->finished();
    }
    const files::SubFolderReader reader(directory);
    const auto count = static_cast<std::size_t>(subFolders.size());
    Look look = std::exchange(m_last, {});
    std::size_t visited = count;
    if (look.directory != directory || look.subFolders != subFolders) {
        look = {directory, subFolders, std::vector<AircraftFolder>(count)};
        visited = 0;
    }
    for (std::size_t i = 0; i < count; ++i) {
        listener.folderReached(static_cast<int>(i));
        if (i == visited) {
            visited = std::min(i + step, count);
            inParallel(static_cast<int>(visited - i), [&](int k) {
                look.visit(i + static_cast<std::size_t>(k), reader,
                           m_sharing ? Content::All : wanted);
            });
        }
        const AircraftFolder &folder = look.folders[i];
        ErrMsg = u"Set path to " % folder.path;
        if (folder.failure) {
            throw RuntimeError(*folder.failure);
        }
        if (!folder.cfgFile.isEmpty()) {
            listener.cfgFound(folder);
        }
    }
    if (m_sharing) {
        m_last = std::move(look);
    }
}
