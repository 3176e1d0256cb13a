// SPDX-License-Identifier: MIT
#include "config_editor/panel_cfg.h"

#include "platform/basic.h"
#include "platform/code_page.h"
#include "platform/line_reader.h"

using namespace Qt::StringLiterals;

using aircraft_catalogue::aircraftFolder;

namespace panel_cfg
{

QString path(const QString &cfgFile, const QString &panel)
{
    const QString value = basic::trim(panel);
    return aircraftFolder(cfgFile) + (value.isEmpty() ? u"Panel"_s : u"Panel."_s + value) +
           u"\\panel.cfg"_s;
}

std::optional<QString> aliasIn(const QByteArray &bytes)
{
    const QByteArrayView key = "alias=";
    LineReader reader(bytes);
    while (!reader.atEnd()) {
        const QByteArrayView line = reader.next();
        if (line.startsWith(key)) {
            return code_page::decode(line.sliced(key.size()));
        }
    }
    return std::nullopt;
}

QString aliasedPath(const QString &cfgFile, AircraftRoot root, const QString &alias)
{
    const QString folder = aircraftFolder(cfgFile);
    const qsizetype position = aircraft_catalogue::rootPosition(folder, root);
    const qsizetype kept = root == AircraftRoot::Aircraft ? 9 : 10;
    // Without the word in the path the root is the folder that the aircraft's folder lies in.
    const QString rootFolder = position > 0 ? folder.left(position + kept)
                                            : folder.left(folder.lastIndexOf(u'\\', -2) + 1);
    return rootFolder + alias + u"\\panel.cfg"_s;
}

QString originalPath(const QString &cfgFile)
{
    return aircraftFolder(cfgFile) + u"\\panel\\panel.cfg"_s;
}

} // namespace panel_cfg
