// SPDX-License-Identifier: MIT
// The aircraft listing: a text file with a table of names and folders.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QStringList>

namespace listing_dump
{

/// A line of the table: the name in a field of exactly 75 characters, two blanks, a backslash and
/// the folder, so that every location starts in column 78.
QString entry(const QString &name, const QString &folder);

/// The whole file; its lines end in CR LF. The title stands below the table. The date has English
/// names, the time is the locale's.
QByteArray compose(const QStringList &entries, const QDateTime &time, const QLocale &locale);

} // namespace listing_dump
