// SPDX-License-Identifier: MIT
#include "fpset/fpset_name.h"

#include "platform/blind_to_case.h"

using namespace Qt::StringLiterals;

namespace fpset_name
{

namespace
{

constexpr QLatin1StringView beginning = "flightplans"_L1;
constexpr QLatin1StringView extension = ".txt"_L1;
constexpr qsizetype shortestName = 12; // characters

} // namespace

bool isUnfinished(const QString &text, const QString &prefix)
{
    return text == prefix || text.size() < shortestName;
}

QString withExtension(const QString &text)
{
    return text.contains(extension) ? text : text + extension;
}

bool isValid(const QString &fileName)
{
    return fileName.count(u'.') <= 1 && fileName.endsWith(extension) &&
           blind_to_case::lower(fileName.left(beginning.size())) == beginning;
}

FileSet filesOf(const QString &directory, const QString &fileName)
{
    const QString suffix =
        fileName.mid(blind_to_case::lower(fileName).indexOf(beginning) + beginning.size());
    FileSet set;
    set.airportFile = u"Airports"_s + suffix;
    set.aircraftFile = u"Aircraft"_s + suffix;
    set.flightPlanPath = directory + fileName;
    set.airportPath = directory + set.airportFile;
    set.aircraftPath = directory + set.aircraftFile;
    return set;
}

} // namespace fpset_name
