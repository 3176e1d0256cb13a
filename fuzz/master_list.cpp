// SPDX-License-Identifier: MIT
// The world's airports, browsed and chosen from.
#include "airport_loader/airport_text_file.h"
#include "airport_loader/master_airport_list.h"
#include "fuzz/input.h"
#include "platform/code_page.h"
#include "platform/line_reader.h"

namespace
{

/// The lines that a choice stands for, looked for one after the other.
QList<QByteArray> plainSearch(const QByteArray &list, const AirportChoice &choice)
{
    const QByteArray search = code_page::encode(choice.search);
    const QByteArray country = code_page::encode(choice.country);
    QList<QByteArray> lines;
    LineReader reader(list);
    while (!reader.atEnd()) {
        const QByteArrayView line = reader.next();
        if (line.startsWith(country) && line.contains(search)) {
            lines += line.toByteArray();
        }
    }
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace master_airport_list;
    constexpr qsizetype most = 20; // of countries and choices: each is searched through the list
    QList<QByteArray> parts = partsOf(data, size);
    const QByteArray list = parts.takeFirst();
    for (const QString &country : countries(list, [](int) {}).items.mid(0, most)) {
        provinces(list, country);
        airportsOfCountry(list, country, AirportItem::NameFirst);
        airportsOfProvince(list, country, AirportItem::IcaoFirst);
    }

    QList<AirportChoice> choices;
    for (qsizetype i = 0; i + 1 < parts.size() && choices.size() < most; i += 2) {
        choices += {code_page::decode(parts[i]), code_page::decode(parts[i + 1]),
                    static_cast<int>(choices.size())};
    }
    std::vector<QList<QByteArray>> found(static_cast<std::size_t>(choices.size()));
    for (const ChosenLine &chosen : airport_text_file::chosenLines(list, choices)) {
        found.at(static_cast<std::size_t>(chosen.choice)) += chosen.line.toByteArray();
        mayFail([&] {
            require(airport_text_file::airportLine(AirportRecord::split(chosen.line)).size() >= 42);
        });
    }
    for (qsizetype i = 0; i < choices.size(); ++i) {
        require(found[static_cast<std::size_t>(i)] == plainSearch(list, choices[i]));
    }
    return 0;
}
