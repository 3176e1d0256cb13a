// SPDX-License-Identifier: MIT
#include "app/services/aircraft_folders.h"

#include "app/services/step.h"
#include "platform/files.h"
#include "platform/line_reader.h"
#include "platform/paths.h"

#include <QStringBuilder>

#include <tuple>

using namespace Qt::StringLiterals;

AircraftFolders::Walk::Walk(AircraftFolders &folders, const QString &directory, Content wanted)
    : m_folders(folders),
      m_directory(directory),
      m_wanted(folders.m_remembering ? Content::Both : wanted)
{
    if (folders.m_directory == directory) {
        m_seen = folders.m_seen;
        m_count = static_cast<int>(m_seen.size());
        return;
    }
    m_names = files::subFolders(directory);
    m_reader.emplace(directory, m_names, u"aircraft.cfg"_s);
    m_count = static_cast<int>(m_names.size());
    m_seen.reserve(folders.m_remembering ? m_count : 1);
}

const AircraftFolder *AircraftFolders::Walk::next(Step &step)
{
    if (++m_index >= m_count) {
        if (m_folders.m_remembering && m_seen.size() == m_count) {
            m_folders.m_directory = m_directory;
            m_folders.m_seen = m_seen;
        }
        return nullptr;
    }
    const QString path =
        m_reader ? paths::join(m_directory, m_names[m_index]) : m_seen.at(m_index).path;
    step.set(u"Set path to " % path);
    if (m_reader) {
        look(path);
    }
    const AircraftFolder &folder = m_reader ? m_seen.constLast() : m_seen.at(m_index);
    if (!folder.cfgFile.isEmpty()) {
        step.set(u"Check " % QStringView(folder.cfgFile).sliced(path.size() + 1));
    }
    return &folder;
}

void AircraftFolders::Walk::look(const QString &path)
{
    if (!m_folders.m_remembering) {
        m_seen.clear();
    }
    AircraftFolder &folder = m_seen.emplaceBack();
    folder.name = m_names[m_index];
    folder.path = path;
    const files::FoundFile &found = m_reader->next();
    if (found.name.isEmpty()) {
        return;
    }
    folder.cfgFile = paths::join(path, found.name);
    if (!found.failure) {
        std::tie(folder.traffic, folder.editor) = cfg_content::parse(found.content, m_wanted);
    } else if (found.opened) {
        folder.traffic.failure = folder.editor.failure = found.failure;
        for (LineReader lines(found.content); !lines.atEnd();) {
            folder.editor.lastLine = code_page::decode(lines.next());
        }
    } else {
        folder.failure = found.failure;
    }
}
