// SPDX-License-Identifier: MIT
// Paths that fit a label.
#pragma once

#include <QString>

/// The path as it is when it has at most `limit` characters, else "..." and its last `limit` ones.
inline QString shortenedPath(const QString &path, qsizetype limit)
{
    return path.size() <= limit ? path : QLatin1StringView("...") + path.last(limit);
}
