// SPDX-License-Identifier: MIT
// A simulator of the size a collector has, made for measuring.
#pragma once

#include "tests/support/sandbox.h"

#include <QStringList>

namespace benchmark_tree
{

inline const QString aircraftDir = QStringLiteral("C:\\FS9\\Aircraft");
inline const QString textFile = QStringLiteral("C:\\TTools\\Aircraft_Bench.txt");

/// Aircraft folders with four titles each, in aircraft.cfg files of 6 to 12 KB whose cruise_speed
/// stands about two thirds down, and a text file that holds 5,000 of the titles. The same tree
/// every time.
void make(const Sandbox &sandbox, int folders = 5000);

/// Has the system forget the contents of the aircraft.cfg files; names and inodes stay known.
void dropFromCache(const Sandbox &sandbox);

/// Searches the tree for the lines that page 0 wants.
void grep(const Sandbox &sandbox);

/// Lays the airport list where the program looks for it.
void addAirportList(const Sandbox &sandbox);

/// Reads the airport list line by line, and does nothing with it. Returns the bytes.
qint64 readAirportList(const Sandbox &sandbox);

/// Opens, reads whole and closes the aircraft.cfg of every folder and the text file. Returns the
/// bytes.
qint64 bareWalk(const Sandbox &sandbox);

/// The titles of 5,000 folders with their speeds, as the available list shows them.
QStringList availableEntries();

/// The aircraft lines of the text file.
QStringList existingLines();

} // namespace benchmark_tree
