// SPDX-License-Identifier: MIT
// The text rules of the classic Basic runtime that file formats and messages depend on.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <cstring>

namespace basic
{

/// Text of file bytes: UTF-8 behind a byte-order mark, else Windows-1252, mapped one to one (the
/// five undefined bytes to their C1 controls).
QString decode(const QByteArray &bytes);

/// Windows-1252 text of bytes, whatever they start with.
QString decodeCodePage(QByteArrayView bytes);

/// Bytes of a text: Windows-1252, the exact reverse of decode. A text that the code page cannot
/// hold becomes UTF-8 with a byte-order mark: never a silent "?".
QByteArray encode(const QString &text);

/// UTF-8 with a byte-order mark.
QByteArray encodeUtf8(const QString &text);

/// Whether the bytes begin with the UTF-8 byte-order mark.
bool isUtf8(QByteArrayView bytes);

/// Steps through the lines of a file; CR LF, CR and LF all end one. A UTF-8 mark is passed over.
class LineReader
{
public:
    explicit LineReader(QByteArrayView bytes);

    bool atEnd() const { return m_position >= m_bytes.size(); }

    /// The next line without its end. Throws Input past end of file (62).
    QByteArrayView next()
    {
        if (atEnd()) {
            throw RuntimeError(ErrorNumber::InputPastEnd);
        }
        // Two searches instead of one look at each byte: the system's own are many times as fast.
        // The line feed is kept for the lines before it, or files that end lines in CR alone would
        // be searched to their end at each one.
        if (m_lineFeed < m_position) {
            m_lineFeed = find(m_bytes.size(), '\n');
        }
        const qsizetype start = m_position;
        const qsizetype lineEnd = find(m_lineFeed, '\r');
        const bool both = lineEnd + 1 == m_lineFeed && m_lineFeed != m_bytes.size();
        m_position = lineEnd + (both ? 2 : 1);
        return m_bytes.sliced(start, lineEnd - start);
    }

private:
    /// Where a byte comes next before `end`; `end` when it does not.
    qsizetype find(qsizetype end, char byte) const
    {
        const char *const start = m_bytes.data() + m_position;
        const void *const found =
            std::memchr(start, byte, static_cast<std::size_t>(end - m_position));
        return found != nullptr ? static_cast<const char *>(found) - m_bytes.data() : end;
    }

    QByteArrayView m_bytes;
    qsizetype m_position = 0;
    qsizetype m_lineFeed = -1; ///< the next one, once looked for
};

/// All lines of a file as text (see decode).
QStringList lines(const QByteArray &bytes);

/// The sequential-input rule: a value ends at a comma or at the end of a line; leading blanks are
/// skipped; a value in double quotes is taken without them and may hold commas.
class SequentialInput
{
public:
    explicit SequentialInput(const QString &text) : m_text(text) {}

    /// The next value. Throws Input past end of file (62).
    QString next();

private:
    void skipLineEnd();

    QString m_text;
    qsizetype m_position = 0;
};

/// A list box's own order: ascending, blind to case, ties by plain code order.
void sortBlindToCase(QStringList &texts);

/// Where a text belongs in a list of that order, behind its equals.
qsizetype sortedPosition(const QStringList &texts, const QString &text);

/// Lower case, character for character: positions in the result are positions in the text.
QString lower(QStringView text);

/// Without leading and trailing blanks (blanks only: a tab is text).
QByteArrayView trim(QByteArrayView text);
QString trim(const QString &text);

/// The 1-based position of `needle`, 0 when there is none; an empty needle is found at 1.
qsizetype inStr(const QString &text, const QString &needle);

/// `count` characters from 1-based `position`, as far as there are any.
/// Throws Invalid procedure call (5) for a position below 1 or a negative count.
QString mid(const QString &text, qsizetype position, qsizetype count);

/// The number with its sign position: a blank before a number that is not negative.
QString str(int number);

/// The leading numeric value: blanks, tabs and line feeds are skipped, a decimal point and an
/// exponent (E or D) are read, "&H" and "&O" start a whole number; 0 when there is none. Throws
/// Overflow (6).
double val(QStringView text);

/// The text as a 16-bit whole number, halves rounded to even.
/// Throws Type mismatch (13) when it is no number, Overflow (6) beyond -32,768 to 32,767.
std::int16_t toInteger16(const QString &text);

/// The sum as a 16-bit number. Throws Overflow (6).
std::int16_t add16(std::int16_t a, int b);

/// A whole number held in a double, as decimal text ("250", "-4", "1E+20").
QString wholeNumberText(double number);

/// "Sunday, November 01, 2026": English names in every locale.
QString longDate(const QDateTime &time);

/// "14:03:27".
QString clockTime(const QDateTime &time);

} // namespace basic
