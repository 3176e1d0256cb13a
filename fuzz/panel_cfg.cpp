// SPDX-License-Identifier: MIT
// panel.cfg, and the paths that an alias makes.
#include "config_editor/panel_cfg.h"
#include "fuzz/input.h"
#include "platform/code_page.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const QString cfgFile = QStringLiteral(R"(C:\FS9\Aircraft\b737\aircraft.cfg)");
    if (const std::optional<QString> alias = panel_cfg::aliasIn(bytes)) {
        require(bytes.contains("alias=" + code_page::encode(*alias)));
        const QString path = panel_cfg::aliasedPath(cfgFile, AircraftRoot::Aircraft, *alias);
        require(path == R"(C:\FS9\Aircraft\)" + *alias + R"(\panel.cfg)");
    }
    const QString text = code_page::decode(bytes);
    require(panel_cfg::path(cfgFile, text).endsWith("\\panel.cfg"));
    for (const AircraftRoot root :
         {AircraftRoot::Aircraft, AircraftRoot::Airplanes, AircraftRoot::Rotorcraft}) {
        aircraft_catalogue::folderText(text + "\\aircraft.cfg", root);
        panel_cfg::aliasedPath(text + "\\aircraft.cfg", root, text);
    }
    return 0;
}
