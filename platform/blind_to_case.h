// SPDX-License-Identifier: MIT
// Comparing texts without regard to case, as Windows compares names.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <algorithm>

namespace blind_to_case
{

/// Lower case, character for character: positions in the result are positions in the text.
QString lower(QStringView text);

/// Lower case without accents, to search in what people type in one way or the other.
QString plain(QStringView text);

/// Whether two texts are equal but for case.
inline bool equal(QStringView text, QStringView other)
{
    return text.size() == other.size() && text.compare(other, Qt::CaseInsensitive) == 0;
}

/// As above for bytes; letters beyond ASCII count as they are.
inline bool equal(QByteArrayView bytes, QByteArrayView other)
{
    return bytes.compare(other, Qt::CaseInsensitive) == 0;
}

/// Whether a text begins with a word.
inline bool startsWith(QStringView text, QStringView word)
{
    return text.startsWith(word, Qt::CaseInsensitive);
}

/// Whether bytes begin with a word given in lower case; letters beyond ASCII count as they are.
inline bool startsWith(QByteArrayView bytes, QByteArrayView word)
{
    const auto equal = [](char expected, char actual) {
        return actual == expected || (actual >= 'A' && actual <= 'Z' && actual + 32 == expected);
    };
    // The last letter first: texts that begin alike part there.
    return bytes.size() >= word.size() && equal(word.back(), bytes[word.size() - 1]) &&
           std::equal(word.begin(), word.end(), bytes.begin(), equal);
}

} // namespace blind_to_case
