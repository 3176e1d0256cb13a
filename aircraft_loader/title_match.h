// SPDX-License-Identifier: MIT
// Finds the available aircraft that an aircraft text file already uses.
#pragma once

#include "platform/runtime_error.h"

#include <QBitArray>
#include <QStringList>

#include <optional>

/// Which of the available entries the existing lines use up.
struct TitleMatch {
    QBitArray used;                      ///< by index of the available entries
    std::optional<RuntimeError> failure; ///< what was wrong with the line that ended the matching
};

/// For each existing line in order, the first entry not yet used that contains its title
/// (case-sensitive, anywhere in the entry). A line of fewer than 10 characters ends the matching.
///
/// The result is that of searching every entry for every line, but the effort grows with the texts'
/// length, not with lines times entries (see TextFinder).
TitleMatch matchTitles(const QStringList &existingLines, const QStringList &available);
