// SPDX-License-Identifier: MIT
// The world's airports: one a line, six fields with "|" between them.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class Step;

/// One line of the list, taken apart.
struct AirportRecord {
    QByteArrayView country;
    QByteArrayView province; ///< or state; empty for most countries
    QByteArrayView name;
    QByteArrayView city;
    QByteArrayView icao;
    QByteArrayView entry; ///< the line that TTools reads; may hold "|" itself

    /// Throws Invalid procedure call (5) when the line has fewer than five separators.
    static AirportRecord split(QByteArrayView line);
};

namespace master_airport_list
{

/// The directory in a buffer that the system filled: NUL characters are dropped wherever they
/// stand.
QString directoryIn(const QString &buffer);

/// The whole list, "ZENTAM.OCX" in the Windows system directory; where that holds none, the one in
/// the system directory of 32-bit programs, else in the program's folder. Throws File not found
/// (53), Path not found (76), Path/File access error (75).
QByteArray OpenOCX(const QString &programFolder, Step &step);

/// What one reading of the list gave. A line that cannot be split ends it; what came before stays.
struct Listing {
    QStringList items;
    std::optional<RuntimeError> failure;
};

/// The countries, each where its name is another than on the line before. `lineRead` is called with
/// the number of each line.
Listing countries(const QByteArray &list, const std::function<void(int)> &lineRead);

/// The provinces or states of a country, each where it is another than the one before.
Listing provinces(const QByteArray &list, const QString &country);

enum class AirportItem {
    NameFirst, ///< "Seattle Tacoma International Airport, Seattle - KSEA"
    IcaoFirst, ///< "KSEA - Seattle Tacoma International Airport, Seattle"
};

/// The airports whose country, or province, is the given one.
Listing airportsOfCountry(const QByteArray &list, const QString &country, AirportItem form);
Listing airportsOfProvince(const QByteArray &list, const QString &province, AirportItem form);

} // namespace master_airport_list
