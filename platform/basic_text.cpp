// SPDX-License-Identifier: MIT
#include "platform/basic_text.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace basic
{

namespace
{

constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF", 3);

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

bool isBlankForVal(QChar c)
{
    return c == ' ' || c == '\t' || c == '\n';
}

/// Val of the digits behind "&H" or "&O". Up to 16 (then 32) bits they stand for a signed number.
double prefixedNumber(QStringView digits, int base)
{
    std::uint64_t number = 0;
    for (const QChar c : digits) {
        if (isBlankForVal(c)) {
            continue;
        }
        bool ok = false;
        const uint digit = QString(c).toUInt(&ok, base);
        if (!ok) {
            break;
        }
        number = number * static_cast<uint>(base) + digit;
        if (number > 0xFFFFFFFFU) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
    }
    if (number <= 0xFFFFU) {
        return static_cast<std::int16_t>(number);
    }
    return static_cast<std::int32_t>(number);
}

/// The longest leading part of `text` that is a decimal number, blanks left out.
QString leadingDecimal(QStringView text)
{
    QString number;
    bool point = false;
    bool exponent = false;
    for (const QChar c : text) {
        const QChar last = number.isEmpty() ? QChar() : number.back();
        if (isBlankForVal(c)) {
            continue;
        }
        const bool digit = c >= '0' && c <= '9';
        const bool sign = (c == '+' || c == '-') && (number.isEmpty() || last == 'e');
        if (digit || sign) {
            number += c;
        } else if (c == '.' && !point && !exponent) {
            point = true;
            number += c;
        } else if (QStringLiteral("eEdD").contains(c) && !exponent &&
                   (last.isDigit() || last == '.')) {
            exponent = true;
            number += 'e';
        } else {
            break;
        }
    }
    return number;
}

} // namespace

QString decodeCodePage(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar *out = text.data();
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        *out++ = code >= 0x80 && code <= 0x9F ? QChar(highControls[code - 0x80U]) : QChar(code);
    }
    return text;
}

QString decode(const QByteArray &bytes)
{
    if (isUtf8(bytes)) {
        return QString::fromUtf8(QByteArrayView(bytes).sliced(utf8Mark.size()));
    }
    return decodeCodePage(bytes);
}

bool isUtf8(QByteArrayView bytes)
{
    return bytes.startsWith(utf8Mark);
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

LineReader::LineReader(QByteArrayView bytes) : m_bytes(bytes)
{
    if (isUtf8(m_bytes)) {
        m_position = utf8Mark.size();
    }
}

QStringList lines(const QByteArray &bytes)
{
    QStringList all;
    LineReader reader(bytes);
    while (!reader.atEnd()) {
        all += decodeCodePage(reader.next());
    }
    return all;
}

void SequentialInput::skipLineEnd()
{
    const bool both = QStringView(m_text).sliced(m_position).startsWith(u"\r\n");
    m_position += both ? 2 : 1;
}

QString SequentialInput::next()
{
    while (m_position < m_text.size() && m_text[m_position] == ' ') {
        ++m_position;
    }
    if (m_position >= m_text.size()) {
        throw RuntimeError(ErrorNumber::InputPastEnd);
    }
    const auto endsValue = [](QChar c) { return c == ',' || c == '\r' || c == '\n'; };
    QString value;
    if (m_text[m_position] == '"') {
        const qsizetype close = m_text.indexOf('"', m_position + 1);
        const qsizetype end = close < 0 ? m_text.size() : close;
        value = m_text.sliced(m_position + 1, end - m_position - 1);
        m_position = qMin(end + 1, m_text.size());
        while (m_position < m_text.size() && !endsValue(m_text[m_position])) {
            ++m_position;
        }
    } else {
        const qsizetype start = m_position;
        while (m_position < m_text.size() && !endsValue(m_text[m_position])) {
            ++m_position;
        }
        value = m_text.sliced(start, m_position - start);
    }
    if (m_position < m_text.size()) {
        skipLineEnd();
    }
    return value;
}

void sortBlindToCase(QStringList &texts)
{
    // Lowered once, not at each comparison: a list holds thousands.
    std::vector<std::pair<QString, QString>> keyed;
    keyed.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString &text : texts) {
        keyed.emplace_back(lower(text), text);
    }
    const auto before = [](const auto &one, const auto &other) {
        const int order = one.first.compare(other.first);
        return order != 0 ? order < 0 : one.second < other.second;
    };
    if (std::is_sorted(keyed.begin(), keyed.end(), before)) {
        return;
    }
    std::sort(keyed.begin(), keyed.end(), before);
    std::transform(keyed.begin(), keyed.end(), texts.begin(),
                   [](const auto &entry) { return entry.second; });
}

qsizetype sortedPosition(const QStringList &texts, const QString &text)
{
    const auto position =
        std::upper_bound(texts.begin(), texts.end(), std::pair(lower(text), text),
                         [](const std::pair<QString, QString> &key, const QString &other) {
                             return key < std::pair(lower(other), other);
                         });
    return position - texts.begin();
}

QString lower(QStringView text)
{
    QString result(text.size(), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), result.begin(), [](QChar c) {
        const bool ascii = c.unicode() < 0x80; // nearly always, and then no table is needed
        return !ascii ? c.toLower() : c >= 'A' && c <= 'Z' ? QChar(c.unicode() | 0x20) : c;
    });
    return result;
}

namespace
{

template <typename Text>
Text trimmed(const Text &text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text[start] == ' ') {
        ++start;
    }
    while (end > start && text[end - 1] == ' ') {
        --end;
    }
    return text.sliced(start, end - start);
}

} // namespace

QByteArrayView trim(QByteArrayView text)
{
    return trimmed(text);
}

QString trim(const QString &text)
{
    return trimmed(text);
}

qsizetype inStr(const QString &text, const QString &needle)
{
    return text.indexOf(needle) + 1;
}

QString mid(const QString &text, qsizetype position, qsizetype count)
{
    if (position < 1 || count < 0) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    return text.mid(position - 1, count);
}

QString str(int number)
{
    return number < 0 ? QString::number(number) : ' ' + QString::number(number);
}

double val(QStringView text)
{
    qsizetype start = 0;
    while (start < text.size() && isBlankForVal(text[start])) {
        ++start;
    }
    const QStringView rest = text.sliced(start);
    if (rest.startsWith(u"&h", Qt::CaseInsensitive)) {
        return prefixedNumber(rest.sliced(2), 16);
    }
    if (rest.startsWith(u"&o", Qt::CaseInsensitive)) {
        return prefixedNumber(rest.sliced(2), 8);
    }
    QString number = leadingDecimal(rest);
    // An exponent without figures is not part of the number.
    while (!number.isEmpty() &&
           (number.endsWith('e') || number.endsWith('+') || number.endsWith('-'))) {
        number.chop(1);
    }
    bool ok = false;
    const double value = QLocale::c().toDouble(number, &ok);
    if (std::isinf(value)) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return ok ? value : 0;
}

std::int16_t toInteger16(const QString &text)
{
    bool plain = false; // figures only, as in nearly every line of a text file
    const short figures = text.toShort(&plain);
    if (plain) {
        return figures;
    }
    static const QRegularExpression number(
        QRegularExpression::anchoredPattern(
            R"([+-]?(\d[\d,]*\.?\d*|\.\d+)([ed][+-]?\d+)?|&h[\da-f]+|&o[0-7]+)"),
        QRegularExpression::CaseInsensitiveOption);
    QString trimmed = text.trimmed();
    if (!number.match(trimmed).hasMatch()) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    const double value = val(trimmed.remove(','));
    const double rounded = std::nearbyint(value); // the default mode: halves go to the even number
    if (rounded < INT16_MIN || rounded > INT16_MAX) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(rounded);
}

std::int16_t add16(std::int16_t a, int b)
{
    const int sum = a + b;
    if (sum < INT16_MIN || sum > INT16_MAX) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(sum);
}

QString wholeNumberText(double number)
{
    if (std::fabs(number) < 1e15) {
        return QString::number(static_cast<qint64>(number));
    }
    return QString::number(number, 'G', 15);
}

QString longDate(const QDateTime &time)
{
    return QLocale::c().toString(time, QStringLiteral("dddd, MMMM dd, yyyy"));
}

QString clockTime(const QDateTime &time)
{
    return time.toString(QStringLiteral("HH:mm:ss"));
}

} // namespace basic
