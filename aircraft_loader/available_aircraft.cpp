// SPDX-License-Identifier: MIT
#include "aircraft_loader/available_aircraft.h"

#include "app/services/aircraft_folders.h"
#include "platform/basic_text.h"
#include "platform/paths.h"

#include <QStringBuilder>

void AircraftWalk::Layout::take(const QString &directory)
{
    const QString lowered = basic::lower(directory);
    if (lowered.endsWith(QLatin1String("airplanes"))) {
        airplanes = true;
    } else if (lowered.endsWith(QLatin1String("rotorcraft"))) {
        rotorcraft = true;
    } else {
        *this = {};
    }
}

void AircraftWalk::take(const QString &folder)
{
    if (!m_cfg.HaveData) {
        return;
    }
    folders += folder;
    if (m_cfg.Speed.isEmpty()) {
        return;
    }
    for (const QString &title : m_cfg.AircraftTitles) {
        if (!title.isEmpty()) {
            entries += title % u' ' % m_cfg.Speed;
        }
    }
}

void AircraftWalk::run(const QString &directory, const QStringList &subFolders, Layout layout,
                       QString &ErrMsg, const Listener &listener)
{
    folders.clear();
    entries.clear();
    ErrMsg = "Loop through Aircraft Directories";
    const files::SubFolderReader reader(directory);
    using Visit = aircraft_folders::Visit<AircraftCfgContent>;
    std::vector<Visit> visits;
    constexpr qsizetype step = 64; // folders visited on all processors before progress can show
    for (qsizetype i = 0; i < subFolders.size(); ++i) {
        listener.folderReached(static_cast<int>(i));
        if (i % step == 0) {
            visits = aircraft_folders::visitAll<AircraftCfgContent>(
                reader, subFolders.sliced(i, qMin(step, subFolders.size() - i)));
        }
        const QString folder = paths::join(directory, subFolders[i]);
        ErrMsg = u"Set path to " % folder;
        const Visit &visit = visits[static_cast<std::size_t>(i % step)];
        if (visit.folderFailure) {
            throw RuntimeError(*visit.folderFailure);
        }
        if (visit.file.isEmpty()) {
            continue;
        }
        ErrMsg = u"Check " % visit.file;
        ErrMsg = QStringLiteral("Get Aircraft Name");
        const QString cfgFileName = paths::join(folder, visit.file);
        AirCraftName = aircraft_cfg::folderName(cfgFileName, layout.airplanes, layout.rotorcraft);
        try {
            m_cfg.CheckFile(
                cfgFileName, [&] { return visit.content(); }, ErrMsg);
        } catch (const RuntimeError &error) {
            listener.fileFailed(error);
        }
        take(folder);
    }
}

namespace available_aircraft
{

void SplitEntry::split(const QString &entry)
{
    constexpr qsizetype positionsSearched = 4;
    for (qsizetype j = 1; j <= positionsSearched; ++j) {
        const qsizetype position = entry.size() - j;
        if (basic::mid(entry, position, 1) == " ") {
            Speed = basic::mid(entry, position, j + 1);
            title = entry.first(position - 1);
            return;
        }
    }
}

} // namespace available_aircraft
