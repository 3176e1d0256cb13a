// SPDX-License-Identifier: MIT
// The functions of the classic Basic runtime that file formats and messages depend on.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <cstdint>

class QDateTime;

namespace basic
{

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
