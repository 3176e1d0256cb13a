// SPDX-License-Identifier: MIT
#include "airport_loader/airport_text_file.h"

#include "app/services/text_finder.h"
#include "platform/basic.h"
#include "platform/code_page.h"
#include "platform/line_reader.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype commentPosition = 43; // 1-based, in a line of an entry of up to 35 characters
constexpr qsizetype entryWidth = 35;

} // namespace

namespace airport_text_file
{

QStringList existingItems(const QByteArray &bytes)
{
    QStringList items;
    LineReader reader(bytes);
    while (!reader.atEnd()) {
        const QByteArrayView line = reader.next();
        if (!line.isEmpty() && !line.startsWith("//")) {
            const QString text = code_page::decode(line);
            items += text.left(4) + u" - "_s + text.mid(commentPosition - 1);
        }
    }
    return items;
}

bool isExisting(const QString &item)
{
    return basic::mid(item, 6, 1) == u"-"_s;
}

std::vector<ChosenLine> chosenLines(const QByteArray &list, const QList<AirportChoice> &choices)
{
    QByteArrayList searches;
    QByteArrayList countries;
    for (const AirportChoice &choice : choices) {
        searches += code_page::encode(choice.search);
        countries += code_page::encode(choice.country);
    }
    const TextFinder<QByteArray> finder(searches);
    const std::set<QByteArray> beginnings(countries.begin(), countries.end());
    std::vector<ChosenLine> chosen;
    std::vector<int> found;
    LineReader reader(list);
    while (!reader.atEnd()) {
        const QByteArrayView line = reader.next();
        const auto begins = [line](const QByteArray &country) { return line.startsWith(country); };
        if (std::none_of(beginnings.begin(), beginnings.end(), begins)) {
            continue;
        }
        found.clear();
        finder.find(line, [&](int choice) {
            if (begins(countries[choice])) {
                found.push_back(choice);
            }
        });
        // A text that stands in a line twice is one match.
        std::sort(found.begin(), found.end());
        found.erase(std::unique(found.begin(), found.end()), found.end());
        for (const int choice : found) {
            chosen.push_back({choice, line});
        }
    }
    std::stable_sort(chosen.begin(), chosen.end(),
                     [](const ChosenLine &a, const ChosenLine &b) { return a.choice < b.choice; });
    return chosen;
}

QString airportLine(const AirportRecord &record)
{
    return code_page::decode(record.entry).leftJustified(entryWidth) + u"     //"_s +
           code_page::decode(record.city) + u", "_s + code_page::decode(record.province) + u", "_s +
           code_page::decode(record.country);
}

QString addedComment(const QDateTime &time)
{
    return u"//Airports Added - "_s + basic::longDate(time) + u' ' + basic::clockTime(time);
}

} // namespace airport_text_file
