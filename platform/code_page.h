// SPDX-License-Identifier: MIT
// The system's single-byte code page, Windows-1252, in which all files of the program are written.
#pragma once

#include <QByteArray>
#include <QString>

namespace code_page
{

/// Windows-1252 text of bytes, mapped one to one (the five undefined bytes to their C1 controls).
QString decode(QByteArrayView bytes);

/// Text of a file of ours: UTF-8 behind a byte-order mark, else Windows-1252.
QString decodeMarked(const QByteArray &bytes);

/// Bytes of a text: Windows-1252, the exact reverse of decode. A text that the code page cannot
/// hold becomes UTF-8 with a byte-order mark: never a silent "?".
QByteArray encode(const QString &text);

/// UTF-8 with a byte-order mark.
QByteArray encodeUtf8(const QString &text);

inline constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF", 3);

/// Whether the bytes begin with the UTF-8 byte-order mark.
inline bool isUtf8(QByteArrayView bytes)
{
    return bytes.startsWith(utf8Mark);
}

} // namespace code_page
