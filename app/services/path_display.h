// SPDX-License-Identifier: MIT
// Paths that fit a label, and values that fit a message.
#pragma once

#include <QString>

/// The path as it is when it has at most `limit` characters, else "..." and its last `limit` ones.
inline QString shortenedPath(const QString &path, qsizetype limit)
{
    return path.size() <= limit ? path : QLatin1StringView("...") + path.last(limit);
}

/// A value of any file as it is when it has at most 200 characters, else the first of them and
/// "...".
inline QString cutForMessage(const QString &value)
{
    constexpr qsizetype limit = 200;
    return value.size() <= limit ? value : value.first(limit) + QLatin1StringView("...");
}
