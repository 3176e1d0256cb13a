// SPDX-License-Identifier: MIT
// Paths that fit a label, and values that fit a message.
#pragma once

#include <QString>

/// The path as it is when it has at most `limit` characters, else "..." and its last `limit` ones.
inline QString shortenedPath(const QString &path, qsizetype limit)
{
    return path.size() <= limit ? path : QLatin1StringView("...") + path.last(limit);
}

constexpr qsizetype twoPaths = 600; ///< characters of them, and of the words around

/// A value of any file as it is when it has at most `longest` characters, else the first 200 of
/// them and "...".
inline QString cutForMessage(const QString &value, qsizetype longest = 200)
{
    return value.size() <= longest ? value : value.first(200) + QLatin1StringView("...");
}
