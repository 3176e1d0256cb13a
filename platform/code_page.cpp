// SPDX-License-Identifier: MIT
#include "platform/code_page.h"

#include <array>

namespace code_page
{

namespace
{

// Windows-1252 from 0x80 to 0x9F; everywhere else byte and character are the same number.
constexpr std::array<char16_t, 32> highControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// The Windows-1252 byte of a character, or -1.
int codePageByte(char16_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return character;
    }
    for (std::size_t i = 0; i < highControls.size(); ++i) {
        if (highControls[i] == character) {
            return 0x80 + static_cast<int>(i);
        }
    }
    return -1;
}

} // namespace

QString decode(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar *out = text.data();
    for (const char byte : bytes) {
        const char16_t code = static_cast<unsigned char>(byte);
        *out++ = code >= 0x80 && code <= 0x9F ? highControls[code - 0x80U] : code;
    }
    return text;
}

QString decodeMarked(const QByteArray &bytes)
{
    return isUtf8(bytes) ? QString::fromUtf8(QByteArrayView(bytes).sliced(utf8Mark.size()))
                         : decode(bytes);
}

QByteArray encodeUtf8(const QString &text)
{
    return utf8Mark.toByteArray() + text.toUtf8();
}

QByteArray encode(const QString &text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int byte = codePageByte(text[i].unicode());
        if (byte < 0) {
            return encodeUtf8(text);
        }
        bytes[i] = static_cast<char>(byte);
    }
    return bytes;
}

} // namespace code_page
