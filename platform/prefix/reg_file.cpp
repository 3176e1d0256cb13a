// SPDX-License-Identifier: MIT
#include "platform/prefix/reg_file.h"

#include "platform/blind_to_case.h"

#include <QStringDecoder>

namespace
{

constexpr QByteArrayView controlLetters(".......abtnvfr.............e....", 32);

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

/// A text as the format writes it; `special` characters get a backslash.
QByteArray escape(const QString &text, QByteArrayView special)
{
    QByteArray escaped;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        const QChar next = i + 1 < text.size() ? text[i + 1] : QChar();
        if (c > 127) {
            // Fewer figures only where no figure follows that could be taken for one of them.
            escaped +=
                "\\x" + QByteArray::number(c, 16).rightJustified(isHexDigit(next) ? 4 : 0, '0');
        } else if (c < 32 && controlLetters[c] != '.') {
            escaped += '\\';
            escaped += controlLetters[c];
        } else if (c < 32) {
            escaped += '\\' + QByteArray::number(c, 8).rightJustified(next.isDigit() ? 3 : 0, '0');
        } else {
            if (c == '\\' || special.contains(static_cast<char>(c))) {
                escaped += '\\';
            }
            escaped += static_cast<char>(c);
        }
    }
    return escaped;
}

/// Reads a number of up to `most` digits at `position`, which moves behind it.
char16_t readNumber(QByteArrayView text, qsizetype &position, int base, int most)
{
    uint number = 0;
    for (int i = 0; i < most && position < text.size(); ++i, ++position) {
        bool isDigit = false;
        const uint digit = QByteArray(1, text[position]).toUInt(&isDigit, base);
        if (!isDigit) {
            break;
        }
        number = number * static_cast<uint>(base) + digit;
    }
    return static_cast<char16_t>(number);
}

/// Reads an escaped text up to the unescaped `close`; `position` moves behind that.
QString unescape(QByteArrayView text, qsizetype &position, char close)
{
    QString plain;
    while (position < text.size() && text[position] != close) {
        const char c = text[position++];
        if (c != '\\' || position >= text.size()) {
            plain += QChar::fromLatin1(c);
            continue;
        }
        const char escaped = text[position];
        const qsizetype control = escaped == '.' ? -1 : controlLetters.indexOf(escaped);
        if (escaped == 'x') {
            plain += QChar(readNumber(text, ++position, 16, 4));
        } else if (escaped >= '0' && escaped <= '7') {
            plain += QChar(readNumber(text, position, 8, 3));
        } else {
            plain +=
                control >= 0 ? QChar(static_cast<char16_t>(control)) : QChar::fromLatin1(escaped);
            ++position;
        }
    }
    ++position;
    return plain;
}

std::optional<RegistryData> parseData(QByteArrayView data)
{
    if (data.startsWith('"')) {
        qsizetype position = 1;
        return unescape(data, position, '"');
    }
    if (data.startsWith("dword:")) {
        bool ok = false;
        const uint number = data.sliced(6).toByteArray().trimmed().toUInt(&ok, 16);
        return ok ? std::optional<RegistryData>(number) : std::nullopt;
    }
    if (const QByteArrayView unterminated("hex(1):"); data.startsWith(unterminated)) {
        // Text that was stored without its final zero; what is no figure is skipped.
        const QByteArray bytes =
            QByteArray::fromHex(data.sliced(unterminated.size()).toByteArray());
        return QString(QStringDecoder(QStringDecoder::Utf16LE)(bytes));
    }
    return std::nullopt;
}

QByteArray composeData(const RegistryData &data)
{
    if (const auto *text = std::get_if<QString>(&data)) {
        return '"' + escape(*text, "\"") + '"';
    }
    return "dword:" + QByteArray::number(std::get<std::uint32_t>(data), 16).rightJustified(8, '0');
}

QByteArrayView withoutLineEnd(QByteArrayView text)
{
    while (text.endsWith('\n') || text.endsWith('\r')) {
        text.chop(1);
    }
    return text;
}

} // namespace

qsizetype RegFile::lineEnd(qsizetype start) const
{
    const qsizetype end = m_bytes.indexOf('\n', start);
    return end < 0 ? m_bytes.size() : end + 1;
}

QByteArrayView RegFile::line(qsizetype start) const
{
    return withoutLineEnd(QByteArrayView(m_bytes).sliced(start, lineEnd(start) - start));
}

QByteArray RegFile::newLine() const
{
    return m_bytes.contains("\r\n") ? "\r\n" : "\n";
}

std::optional<RegFile::Range> RegFile::findKey(const QString &key) const
{
    const QByteArray header = '[' + escape(key, "[]") + ']';
    for (qsizetype start = 0; start < m_bytes.size(); start = lineEnd(start)) {
        if (m_bytes[start] != '[') {
            continue;
        }
        const QByteArrayView found = line(start);
        qsizetype position = 1;
        const bool same =
            found.contains("\\x")
                ? blind_to_case::equal(unescape(found, position, ']'), key)
                : blind_to_case::equal(found.first(qMin(header.size(), found.size())), header);
        if (same) {
            Range range{lineEnd(start), lineEnd(start)};
            while (range.end < m_bytes.size() && m_bytes[range.end] != '[') {
                range.end = lineEnd(range.end);
            }
            return range;
        }
    }
    return std::nullopt;
}

std::optional<RegFile::Range> RegFile::findValue(Range key, const QString &name) const
{
    for (qsizetype start = key.start; start < key.end;) {
        qsizetype end = lineEnd(start);
        for (qsizetype last = start; line(last).endsWith('\\') && end < key.end;) {
            last = end; // the value goes on in the next line
            end = lineEnd(end);
        }
        qsizetype position = 1;
        if (m_bytes[start] == '"' &&
            blind_to_case::equal(unescape(line(start), position, '"'), name)) {
            return Range{start, end};
        }
        start = end;
    }
    return std::nullopt;
}

std::optional<RegistryData> RegFile::value(const QString &key, const QString &name) const
{
    const std::optional<Range> lines = findKey(key);
    const std::optional<Range> found = lines ? findValue(*lines, name) : std::nullopt;
    if (!found) {
        return std::nullopt;
    }
    const auto text =
        withoutLineEnd(QByteArrayView(m_bytes).sliced(found->start, found->end - found->start));
    qsizetype position = 1;
    unescape(text, position, '"');
    return text.size() > position && text[position] == '=' ? parseData(text.sliced(position + 1))
                                                           : std::nullopt;
}

void RegFile::createKey(const QString &key, qint64 time)
{
    if (findKey(key)) {
        return;
    }
    const QByteArray end = newLine();
    if (m_bytes.isEmpty()) {
        m_bytes = "WINE REGISTRY Version 2" + end;
    } else if (!m_bytes.endsWith('\n')) {
        m_bytes += end;
    }
    // The system counts in tenths of a microsecond since 1601.
    const quint64 stamp = (static_cast<quint64>(time) + 11644473600U) * 10000000U;
    m_bytes += end + '[' + escape(key, "[]") + "] " + QByteArray::number(time) + end +
               "#time=" + QByteArray::number(stamp, 16) + end;
}

void RegFile::setValue(const QString &key, const QString &name, const RegistryData &data,
                       qint64 time)
{
    createKey(key, time);
    const QByteArray text = '"' + escape(name, "\"") + "\"=" + composeData(data);
    const Range lines = *findKey(key);
    if (const std::optional<Range> old = findValue(lines, name)) {
        if (value(key, name) != data) {
            m_bytes.replace(old->start, old->end - old->start, text + newLine());
        }
        return;
    }
    qsizetype place = lines.start; // behind the last line of the key that is not blank
    for (qsizetype start = lines.start; start < lines.end; start = lineEnd(start)) {
        place = line(start).isEmpty() ? place : lineEnd(start);
    }
    const QByteArray above = m_bytes.first(place);
    const QByteArray end = above.endsWith('\n') ? QByteArray() : newLine();
    // A damaged last line that says it goes on would take ours for its rest: a blank one goes
    // between.
    const QByteArray blank = above.trimmed().endsWith('\\') ? newLine() : QByteArray();
    m_bytes.insert(place, end + blank + text + newLine());
}
