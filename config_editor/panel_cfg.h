// SPDX-License-Identifier: MIT
// Where an aircraft's panel.cfg is, and the alias that leads to another aircraft's.
#pragma once

#include "config_editor/aircraft_catalogue.h"

#include <optional>

namespace panel_cfg
{

/// "Panel.<value>\panel.cfg" in the aircraft's folder, or "Panel\panel.cfg" for an empty value.
QString path(const QString &cfgFile, const QString &panel);

/// What follows "alias=" in the first line that begins so, as it stands; nothing without such a
/// line. Only lower case counts, and no blank before the "=".
std::optional<QString> aliasIn(const QByteArray &bytes);

/// The panel.cfg that an alias leads to, below the root folder. Under a rotorcraft root no
/// separator stands between the root's word and the alias.
QString aliasedPath(const QString &cfgFile, AircraftRoot root, const QString &alias);

/// The aircraft's own panel.cfg, whatever its panel value is, with a doubled backslash.
QString originalPath(const QString &cfgFile);

} // namespace panel_cfg
