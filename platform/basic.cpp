// SPDX-License-Identifier: MIT
#include "platform/basic.h"

#include "platform/blind_to_case.h"
#include "platform/runtime_error.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace basic
{

namespace
{

bool isBlankForVal(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n';
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
        const bool digit = c >= u'0' && c <= u'9';
        const bool sign = (c == u'+' || c == u'-') && (number.isEmpty() || last == u'e');
        if (digit || sign) {
            number += c;
        } else if (c == u'.' && !point && !exponent) {
            point = true;
            number += c;
        } else if (QStringView(u"eEdD").contains(c) && !exponent &&
                   (last.isDigit() || last == u'.')) {
            exponent = true;
            number += u'e';
        } else {
            break;
        }
    }
    return number;
}

std::int16_t narrowed(double number)
{
    if (number < INT16_MIN || number > INT16_MAX) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(number);
}

/// A decimal number as short as a double can tell it: converting takes time with the square of the
/// figures, and a file may hold a million of them.
QString shortened(const QString &number)
{
    constexpr qsizetype figuresThatCount = 400; // and more than any double needs
    constexpr qsizetype exponentFigures = 6;    // beyond them every number is 0 or too large
    if (number.size() <= figuresThatCount) {
        return number;
    }
    const qsizetype e = qMax<qsizetype>(number.indexOf(u'e'), 0);
    const QString mantissa = e > 0 ? number.first(e) : number;
    QString exponentText = e > 0 ? number.sliced(e + 1) : u"0"_s;
    const bool negativeExponent = exponentText.startsWith(u'-');
    exponentText.remove(0, exponentText.startsWith(u'+') || negativeExponent ? 1 : 0);
    const auto firstFigure = [](const QString &text) {
        return std::find_if(text.begin(), text.end(), [](QChar c) { return c != u'0'; }) -
               text.begin();
    };
    exponentText.remove(0, qMin(firstFigure(exponentText), exponentText.size()));
    const qint64 exponent = exponentText.first(qMin(exponentText.size(), exponentFigures)).toInt();

    QString figures = mantissa;
    const QString sign = figures.startsWith(u'-') ? u"-"_s : QString();
    figures.remove(0, figures.startsWith(u'-') || figures.startsWith(u'+') ? 1 : 0);
    const qsizetype point = figures.indexOf(u'.');
    const qsizetype whole = point < 0 ? figures.size() : point;
    figures.remove(u'.');
    const qsizetype zeros = firstFigure(figures);
    figures = figures.mid(zeros, figuresThatCount);
    return sign + u"0."_s + figures + u'e' +
           QString::number(whole - zeros + (negativeExponent ? -exponent : exponent));
}

template <typename Text>
Text trimmed(const Text &text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text[start] == u' ') {
        ++start;
    }
    while (end > start && text[end - 1] == u' ') {
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
    return number < 0 ? QString::number(number) : u' ' + QString::number(number);
}

double val(QStringView text)
{
    qsizetype start = 0;
    while (start < text.size() && isBlankForVal(text[start])) {
        ++start;
    }
    const QStringView rest = text.sliced(start);
    if (blind_to_case::startsWith(rest, u"&h")) {
        return prefixedNumber(rest.sliced(2), 16);
    }
    if (blind_to_case::startsWith(rest, u"&o")) {
        return prefixedNumber(rest.sliced(2), 8);
    }
    QString number = leadingDecimal(rest);
    // An exponent without figures is not part of the number.
    while (!number.isEmpty() &&
           (number.endsWith(u'e') || number.endsWith(u'+') || number.endsWith(u'-'))) {
        number.chop(1);
    }
    bool ok = false;
    const qlonglong whole = number.toLongLong(&ok); // nearly always, and many times as fast
    if (ok) {
        return static_cast<double>(whole);
    }
    const double value = QLocale::c().toDouble(shortened(number), &ok);
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
            uR"([+-]?(\d[\d,]*+\.?\d*+|\.\d++)([ed][+-]?\d++)?|&h[\da-f]+|&o[0-7]+)"_s),
        QRegularExpression::CaseInsensitiveOption);
    QString trimmed = text.trimmed();
    if (!number.match(trimmed).hasMatch()) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    return narrowed(std::nearbyint(val(trimmed.remove(u',')))); // halves go to the even number
}

std::int16_t add16(std::int16_t a, int b)
{
    return narrowed(a + b);
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
    return QLocale::c().toString(time, u"dddd, MMMM dd, yyyy");
}

QString clockTime(const QDateTime &time)
{
    return time.toString(u"HH:mm:ss");
}

} // namespace basic
