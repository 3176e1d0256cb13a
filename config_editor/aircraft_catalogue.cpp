// SPDX-License-Identifier: MIT
#include "config_editor/aircraft_catalogue.h"

#include "app/services/aircraft_folders.h"
#include "app/services/step.h"
#include "config_editor/listing_dump.h"
#include "platform/basic.h"
#include "platform/blind_to_case.h"
#include "platform/paths.h"

#include <QStringBuilder>

#include <array>

using namespace Qt::StringLiterals;

void AircraftCatalogue::take(const AircraftFolder &folder, AircraftRoot root, Step &step)
{
    if (folder.cfgFile.isEmpty()) {
        return;
    }
    folders += folder.path;
    folderNames += folder.name;
    const EditorContent &content = folder.editor;
    step.set(u"Opening " % folder.cfgFile);
    if (folder.failure) {
        throw RuntimeError(*folder.failure);
    }
    step.set(u"Check for FF Code"_s);
    if (content.failure) {
        if (content.lastLine) {
            step.set(u"Reading " % *content.lastLine);
        }
        throw RuntimeError(*content.failure);
    }
    if (content.displayName.isEmpty()) {
        return;
    }
    names += content.displayName;
    cfgFiles += folder.cfgFile;
    aliases += content.aliased ? u"alias"_s : QString();
    panels += content.panel;
    listing += listing_dump::entry(content.displayName,
                                   aircraft_catalogue::folderText(folder.cfgFile, root));
}

namespace aircraft_catalogue
{

AircraftRoot rootOf(const QString &directory)
{
    const QString lowered = blind_to_case::lower(directory);
    return lowered.endsWith("airplanes"_L1)    ? AircraftRoot::Airplanes
           : lowered.endsWith("rotorcraft"_L1) ? AircraftRoot::Rotorcraft
                                               : AircraftRoot::Aircraft;
}

qsizetype rootPosition(const QString &path, AircraftRoot root)
{
    static const std::array<QString, 3> words = {u"\\aircraft"_s, u"\\airplanes"_s,
                                                 u"\\rotorcraft"_s};
    return basic::inStr(blind_to_case::lower(path), words.at(static_cast<std::size_t>(root)));
}

QString aircraftFolder(const QString &cfgFile)
{
    constexpr qsizetype fileNameLength = 12; // of "aircraft.cfg"
    return cfgFile.chopped(fileNameLength);
}

QString folderText(const QString &cfgFile, AircraftRoot root)
{
    constexpr qsizetype skipped = 10; // one more than "\aircraft" has, whatever the word is
    const QString folder = aircraftFolder(cfgFile).chopped(1); // the backslash
    const qsizetype position = rootPosition(folder, root);
    return position == 0 ? paths::fileName(folder) : folder.mid(position + skipped - 1);
}

} // namespace aircraft_catalogue
