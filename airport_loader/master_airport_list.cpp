// SPDX-License-Identifier: MIT
#include "airport_loader/master_airport_list.h"

#include "app/services/step.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/line_reader.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

AirportRecord AirportRecord::split(QByteArrayView line)
{
    AirportRecord record;
    for (QByteArrayView *field :
         {&record.country, &record.province, &record.name, &record.city, &record.icao}) {
        const qsizetype separator = line.indexOf('|');
        if (separator < 0) {
            throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        }
        *field = line.first(separator);
        line = line.sliced(separator + 1);
    }
    record.entry = line;
    return record;
}

namespace master_airport_list
{

namespace
{

/// Goes through the lines of the list; what `take` throws, or a line that cannot be split, ends it.
template <typename Take>
std::optional<RuntimeError> forEachRecord(const QByteArray &list, Take take)
{
    try {
        LineReader reader(list);
        for (int number = 1; !reader.atEnd(); ++number) {
            take(number, AirportRecord::split(reader.next()));
        }
    } catch (const RuntimeError &error) {
        return error;
    }
    return {};
}

QString item(const AirportRecord &record, AirportItem form)
{
    const QString place = code_page::decode(record.name) + u", "_s + code_page::decode(record.city);
    const QString icao = code_page::decode(record.icao);
    return form == AirportItem::NameFirst ? place + u" - "_s + icao : icao + u" - "_s + place;
}

Listing airports(const QByteArray &list, QByteArrayView AirportRecord::*field, const QString &place,
                 AirportItem form)
{
    const QByteArray wanted = code_page::encode(place);
    Listing listing;
    listing.failure = forEachRecord(list, [&](int, const AirportRecord &record) {
        if (record.*field == wanted) {
            listing.items += item(record, form);
        }
    });
    return listing;
}

} // namespace

QString directoryIn(const QString &buffer)
{
    return QString(buffer).remove(QChar(u'\0'));
}

QByteArray OpenOCX(const QString &programFolder, Step &step)
{
    const QString name = u"ZENTAM.OCX"_s;
    QString path = directoryIn(paths::systemDirectory()) + u'\\' + name;
    for (const QString &folder : {paths::windowsDirectory() + u"\\SysWOW64"_s, programFolder}) {
        if (!files::exists(path) && files::exists(paths::join(folder, name))) {
            path = paths::join(folder, name);
        }
    }
    step.set(u"Loading "_s + path);
    return files::readAll(path);
}

Listing countries(const QByteArray &list, const std::function<void(int)> &lineRead)
{
    Listing listing;
    QByteArrayView previous;
    listing.failure = forEachRecord(list, [&](int number, const AirportRecord &record) {
        lineRead(number);
        if (record.country != previous) {
            previous = record.country;
            listing.items += code_page::decode(record.country);
        }
    });
    return listing;
}

Listing provinces(const QByteArray &list, const QString &country)
{
    const QByteArray wanted = code_page::encode(country);
    Listing listing;
    QByteArrayView previous;
    listing.failure = forEachRecord(list, [&](int, const AirportRecord &record) {
        if (!record.province.isEmpty() && record.country == wanted && record.province != previous) {
            previous = record.province;
            listing.items += code_page::decode(record.province);
        }
    });
    return listing;
}

Listing airportsOfCountry(const QByteArray &list, const QString &country, AirportItem form)
{
    return airports(list, &AirportRecord::country, country, form);
}

Listing airportsOfProvince(const QByteArray &list, const QString &province, AirportItem form)
{
    return airports(list, &AirportRecord::province, province, form);
}

} // namespace master_airport_list
