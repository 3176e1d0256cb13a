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

void AircraftCatalogue::take(const AircraftFolder &folder, AircraftRoot root, Step &step)
{
    if (folder.cfgFile.isEmpty()) {
        return;
    }
    step.set(QStringLiteral("Get Aircraft Name"));
    folders += folder.path;
    folderNames += folder.name;
    const EditorContent &content = folder.editor;
    step.set(u"Opening " % folder.cfgFile);
    if (folder.failure) {
        throw RuntimeError(*folder.failure);
    }
    step.set(QStringLiteral("Check for FF Code"));
    if (content.failure) {
        throw RuntimeError(*content.failure);
    }
    if (content.displayName.isEmpty()) {
        return;
    }
    names += content.displayName;
    cfgFiles += folder.cfgFile;
    aliases += content.aliased ? "alias" : QString();
    panels += content.panel;
    listing += listing_dump::entry(content.displayName,
                                   aircraft_catalogue::folderText(folder.cfgFile, root));
}

namespace aircraft_catalogue
{

AircraftRoot rootOf(const QString &directory)
{
    const QString lowered = blind_to_case::lower(directory);
    return lowered.endsWith(QLatin1String("airplanes"))    ? AircraftRoot::Airplanes
           : lowered.endsWith(QLatin1String("rotorcraft")) ? AircraftRoot::Rotorcraft
                                                           : AircraftRoot::Aircraft;
}

qsizetype rootPosition(const QString &path, AircraftRoot root)
{
    static const std::array<QString, 3> words = {"\\aircraft", "\\airplanes", "\\rotorcraft"};
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
