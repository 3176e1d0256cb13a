// SPDX-License-Identifier: MIT
#include "aircraft_loader/aircraft_cfg.h"

#include "platform/basic_text.h"

#include <QStringBuilder>

#include <algorithm>
#include <cmath>

namespace
{

/// Whether a line begins with a word given in lower case, blind to case. Nearly always the first
/// character decides.
bool beginsWith(QByteArrayView line, QByteArrayView word)
{
    const auto equal = [](char a, char b) {
        return a == b || (a >= 'A' && a <= 'Z' && a + 32 == b);
    };
    return line.size() >= word.size() &&
           std::equal(word.begin(), word.end(), line.begin(),
                      [&](char expected, char actual) { return equal(actual, expected); });
}

/// What follows the first "=", trimmed; the whole line when there is none.
QString valueIn(QByteArrayView line)
{
    return basic::decodeCodePage(basic::trim(line.sliced(line.indexOf('=') + 1)));
}

} // namespace

AircraftCfgContent AircraftCfgContent::parse(const QByteArray &bytes)
{
    AircraftCfgContent content;
    content.empty = bytes.isEmpty();
    try {
        content.read(bytes);
    } catch (const RuntimeError &error) {
        content.failure = error;
    }
    return content;
}

void AircraftCfgContent::read(const QByteArray &bytes)
{
    basic::LineReader reader(bytes);
    while (!reader.atEnd()) {
        QByteArrayView line = reader.next();
        if (beginsWith(line, "[fltsim.")) {
            // The title is expected right below its header, whatever the key there is called.
            line = reader.next();
            if (titles.size() == mostTitles) {
                throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
            }
            titles += valueIn(line);
        }
        if (beginsWith(line, "cruise_speed")) {
            speed = aircraft_cfg::speedIn(basic::decodeCodePage(line));
            complete = true;
            return;
        }
    }
}

void AircraftCfg::CheckFile(const QString &CfgFileName,
                            const std::function<AircraftCfgContent()> &readFile, QString &ErrMsg)
{
    Speed.clear();
    AircraftTitles.clear();
    if (basic::lower(CfgFileName).contains(QLatin1String("csl"))) {
        return; // models for online flying: no traffic, and HaveData is not theirs to change
    }
    ErrMsg = u"Opening " % CfgFileName;
    const AircraftCfgContent content = readFile();
    if (content.empty) {
        return;
    }
    ErrMsg = u"Get Aircraft Data in\r" % CfgFileName;
    AircraftTitles = content.titles;
    if (content.failure) {
        throw RuntimeError(*content.failure);
    }
    Speed = content.speed;
    HaveData = content.complete;
}

namespace aircraft_cfg
{

QString speedIn(const QString &line)
{
    const qsizetype equals = basic::inStr(line, "=");
    const qsizetype comment = basic::inStr(line, "//");
    const qsizetype length = comment > 0 ? line.size() - comment + 1 : line.size();
    const QString text = basic::trim(basic::mid(line, equals + 1, length));
    return basic::wholeNumberText(std::floor(basic::val(text)));
}

QString folderName(const QString &CfgFileName, bool AirplanesLayout, bool RotorcraftLayout)
{
    const bool byAirplanes = AirplanesLayout || RotorcraftLayout;
    const QLatin1String word(byAirplanes ? "airplanes\\" : "aircraft\\");
    const qsizetype root = basic::lower(CfgFileName).indexOf(word) + 1;
    // A rotorcraft path is searched for "airplanes" too; the cut then starts near its front.
    const qsizetype skip = AirplanesLayout ? 10 : RotorcraftLayout ? 11 : 9;
    const qsizetype start = root + skip;
    const qsizetype end =
        CfgFileName.indexOf('\\', start) + 1; // searched behind the first character
    return basic::mid(CfgFileName, start, end - start);
}

} // namespace aircraft_cfg
