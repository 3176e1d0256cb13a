// SPDX-License-Identifier: MIT
#include "config_editor/aircraft_catalogue.h"

#include "config_editor/listing_dump.h"
#include "platform/basic.h"
#include "platform/blind_to_case.h"
#include "platform/paths.h"

#include <QStringBuilder>

#include <array>

namespace
{

void append(AircraftCatalogue &catalogue, const AircraftFolder &folder, AircraftRoot root)
{
    const EditorContent &content = folder.editor;
    catalogue.names += content.displayName;
    catalogue.cfgFiles += folder.cfgFile;
    catalogue.aliases += content.aliased ? QStringLiteral("alias") : QString();
    catalogue.panels += content.panel;
    catalogue.listing += listing_dump::entry(content.displayName,
                                             aircraft_catalogue::folderText(folder.cfgFile, root));
}

} // namespace

void AircraftCatalogue::run(AircraftFolders &aircraftFolders, const QString &directory,
                            const QStringList &subFolders, QString &ErrMsg,
                            const Listener &listener)
{
    *this = {};
    const AircraftRoot root = aircraft_catalogue::rootOf(directory);
    const auto take = [&](const AircraftFolder &folder) {
        if (folder.fileFailure) {
            ErrMsg = u"Opening " % folder.cfgFile;
            listener.fileFailed(*folder.fileFailure);
        } else if (!folder.editor.empty && !folder.editor.displayName.isEmpty()) {
            append(*this, folder, root);
        }
        listener.aircraftRead(folder.name);
        folders += folder.path;
        folderNames += folder.name;
    };
    aircraftFolders.walk(directory, subFolders, AircraftFolders::Content::Editor, ErrMsg,
                         {.folderReached = listener.folderReached, .cfgFound = take});
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
