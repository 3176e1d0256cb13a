// SPDX-License-Identifier: MIT
// The airport text file, input of TTools, and what a batch of choices adds to it.
#pragma once

#include "airport_loader/master_airport_list.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

/// One chosen entry: an airport, a province or a whole country.
struct AirportChoice {
    QString search;  ///< occurs anywhere in a line of the master list
    QString country; ///< what the line begins with
    int entry = 0;   ///< where it stands in the lists of choices
};

/// A line of the master list that a choice stands for.
struct ChosenLine {
    int choice;
    QByteArrayView line;
};

namespace airport_text_file
{

/// The airports of a file as list items: the first four characters, " - ", and what stands from
/// character 43 on. Comments ("//") and empty lines are left out.
QStringList existingItems(const QByteArray &bytes);

/// Whether an item stands for an airport that is in the file already: its 6th character is "-".
bool isExisting(const QString &item);

/// The lines that the choices stand for, choice after choice and line after line, found in one
/// reading. Text is compared byte for byte; a line appears once for each choice that it matches.
std::vector<ChosenLine> chosenLines(const QByteArray &list, const QList<AirportChoice> &choices);

/// The entry, filled up with blanks to 35 characters, "     //" and city, province and country.
QString airportLine(const AirportRecord &record);

/// "//Airports Added - Sunday, November 01, 2026 14:03:27".
QString addedComment(const QDateTime &time);

} // namespace airport_text_file
