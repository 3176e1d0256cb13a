// SPDX-License-Identifier: MIT
#include "config_editor/aircraft_catalogue.h"

#include "app/services/aircraft_folders.h"
#include "config_editor/listing_dump.h"
#include "platform/basic_text.h"
#include "platform/paths.h"

#include <QStringBuilder>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <vector>

namespace
{

constexpr qsizetype fileNameLength = 12; // of "aircraft.cfg"

/// Whether a line begins with a word given in lower case, blind to case. Nearly always the first
/// character decides.
bool beginsWith(QByteArrayView line, QByteArrayView word)
{
    const auto equal = [](char expected, char actual) {
        return actual == expected || (actual >= 'A' && actual <= 'Z' && actual + 32 == expected);
    };
    return line.size() >= word.size() && std::equal(word.begin(), word.end(), line.begin(), equal);
}

/// Whether "alias" stands anywhere, blind to case. Only the places of its rarer letter are looked
/// at: every other way reads each byte more than once.
bool namesAlias(QByteArrayView bytes)
{
    return std::any_of("lL", "lL" + 2, [&](char letter) {
        for (qsizetype at = bytes.indexOf(letter, 1); at > 0; at = bytes.indexOf(letter, at + 1)) {
            if (beginsWith(bytes.sliced(at - 1), "alias")) {
                return true;
            }
        }
        return false;
    });
}

/// What follows the first `skipped` characters of a line, without the "=" and blanks before it.
QByteArrayView valueIn(QByteArrayView line, qsizetype skipped)
{
    QByteArrayView value = line.sliced(qMin(skipped, line.size()));
    while (value.startsWith('=') || value.startsWith(' ')) {
        value = value.sliced(1);
    }
    return basic::trim(value);
}

QByteArrayView withoutQuotes(QByteArrayView title)
{
    if (title.startsWith('"')) {
        title = title.sliced(1);
    }
    return title.endsWith('"') ? title.chopped(1) : title;
}

/// The keys that make up a name. Views point into the file's bytes.
struct NameKeys {
    std::optional<QByteArrayView> title;
    std::optional<QByteArrayView> manufacturer;
    std::optional<QByteArrayView> variation;
    std::optional<QByteArrayView> type;

    QString displayName() const
    {
        if (!title || !manufacturer || !variation || !type) {
            return {};
        }
        const auto shown = [](QByteArrayView value, const char *whenEmpty) {
            return basic::decodeCodePage(value.isEmpty() ? QByteArrayView(whenEmpty) : value);
        };
        const QStringList fields = {shown(*manufacturer, "_Unknown"), shown(*type, "_Unknown"),
                                    shown(*variation, "Default"),
                                    shown(withoutQuotes(*title), "_Unknown")};
        return aircraft_catalogue::CheckName(fields.join(" - "));
    }
};

void append(AircraftCatalogue &catalogue, const QString &cfgFile, const ConfigContent &content,
            AircraftRoot root)
{
    catalogue.names += content.displayName;
    catalogue.cfgFiles += cfgFile;
    catalogue.aliases += content.aliased ? QStringLiteral("alias") : QString();
    catalogue.panels += content.panel;
    catalogue.listing +=
        listing_dump::entry(content.displayName, aircraft_catalogue::folderText(cfgFile, root));
}

} // namespace

ConfigContent ConfigContent::parse(const QByteArray &bytes)
{
    ConfigContent content;
    content.empty = bytes.isEmpty();
    content.aliased = namesAlias(bytes);
    NameKeys name;
    basic::LineReader reader(bytes);
    while (!reader.atEnd()) {
        const QByteArrayView line = reader.next();
        if (beginsWith(line, "title")) {
            name.title = valueIn(line, 6);
        } else if (beginsWith(line, "panel=")) {
            content.panel = basic::decodeCodePage(valueIn(line, 6));
        } else if (beginsWith(line, "panel =")) {
            content.panel = basic::decodeCodePage(valueIn(line, 7));
        } else if (beginsWith(line, "ui_manufacturer")) {
            name.manufacturer = valueIn(line, 16);
        } else if (beginsWith(line, "ui_variation")) {
            name.variation = valueIn(line, 13);
        } else if (beginsWith(line, "ui_type")) {
            name.type = valueIn(line, 8);
        }
    }
    content.displayName = name.displayName();
    return content;
}

void AircraftCatalogue::run(const QString &directory, const QStringList &subFolders,
                            QString &ErrMsg, const Listener &listener)
{
    *this = {};
    ErrMsg = "Loop through Aircraft Directories";
    const AircraftRoot root = aircraft_catalogue::rootOf(directory);
    const files::SubFolderReader reader(directory);
    using Visit = aircraft_folders::Visit<ConfigContent>;
    std::vector<Visit> visits;
    constexpr qsizetype step = 64; // folders visited on all processors before progress can show
    for (qsizetype i = 0; i < subFolders.size(); ++i) {
        listener.folderReached(static_cast<int>(i));
        if (i % step == 0) {
            visits = aircraft_folders::visitAll<ConfigContent>(
                reader, subFolders.sliced(i, qMin(step, subFolders.size() - i)));
        }
        const QString folder = paths::join(directory, subFolders[i]);
        ErrMsg = u"Set path to " % folder;
        const Visit &visit = visits[static_cast<std::size_t>(i % step)];
        if (visit.folderFailure) {
            throw RuntimeError(*visit.folderFailure);
        }
        if (visit.file.isEmpty()) {
            continue;
        }
        const QString cfgFile = paths::join(folder, visit.file);
        if (visit.fileFailure) {
            ErrMsg = u"Opening " % cfgFile;
            listener.fileFailed(*visit.fileFailure);
        } else if (!visit.parsed.empty && !visit.parsed.displayName.isEmpty()) {
            append(*this, cfgFile, visit.parsed, root);
        }
        listener.aircraftRead(subFolders[i]);
        folders += folder;
        folderNames += subFolders[i];
    }
}

namespace aircraft_catalogue
{

AircraftRoot rootOf(const QString &directory)
{
    const QString lowered = basic::lower(directory);
    return lowered.endsWith(QLatin1String("airplanes"))    ? AircraftRoot::Airplanes
           : lowered.endsWith(QLatin1String("rotorcraft")) ? AircraftRoot::Rotorcraft
                                                           : AircraftRoot::Aircraft;
}

qsizetype rootPosition(const QString &path, AircraftRoot root)
{
    static const std::array<QString, 3> words = {"\\aircraft", "\\airplanes", "\\rotorcraft"};
    return basic::inStr(basic::lower(path), words.at(static_cast<std::size_t>(root)));
}

QString CheckName(const QString &text)
{
    QString name = text;
    name.removeIf([](QChar character) { return character < u' ' || character > u'z'; });
    return name;
}

QString folderText(const QString &cfgFile, AircraftRoot root)
{
    constexpr qsizetype skipped = 10; // one more than "\aircraft" has, whatever the word is
    const QString folder = cfgFile.chopped(qMin(fileNameLength + 1, cfgFile.size()));
    const qsizetype position = rootPosition(folder, root);
    return position == 0 ? paths::fileName(folder) : folder.mid(position + skipped - 1);
}

} // namespace aircraft_catalogue
