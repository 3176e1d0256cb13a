// SPDX-License-Identifier: MIT
#include "airport_loader/airport_text_file.h"

#include "platform/basic.h"
#include "platform/code_page.h"
#include "platform/line_reader.h"

#include <QHash>

#include <algorithm>
#include <bitset>
#include <cstring>

namespace
{

constexpr qsizetype commentPosition = 43; // 1-based, in a line of an entry of up to 35 characters
constexpr qsizetype entryWidth = 35;

/// Finds many short texts in a line at once: each is looked for only where its first four bytes
/// stand, and a small set tells nearly always that none begins there.
class TextFinder
{
public:
    void add(const QByteArray &text, int choice)
    {
        if (text.size() < keySize) {
            m_short.push_back({text, choice});
            return;
        }
        const std::uint32_t key = keyAt(text.constData());
        m_begins.set(hash(key));
        m_texts[key].push_back({text, choice});
    }

    /// Appends the choices whose texts stand in the line.
    void find(QByteArrayView line, std::vector<int> &found) const
    {
        for (const Text &text : m_short) {
            if (line.contains(text.bytes)) {
                found.push_back(text.choice);
            }
        }
        if (m_texts.isEmpty()) {
            return;
        }
        for (qsizetype at = 0; at + keySize <= line.size(); ++at) {
            const std::uint32_t key = keyAt(line.data() + at);
            if (!m_begins.test(hash(key))) {
                continue;
            }
            const auto texts = m_texts.constFind(key);
            if (texts == m_texts.constEnd()) {
                continue;
            }
            for (const Text &text : *texts) {
                if (line.sliced(at).startsWith(text.bytes)) {
                    found.push_back(text.choice);
                }
            }
        }
    }

private:
    static constexpr qsizetype keySize = 4;
    static constexpr unsigned hashBits = 14;

    struct Text {
        QByteArray bytes;
        int choice;
    };

    static std::uint32_t keyAt(const char *bytes)
    {
        std::uint32_t key = 0;
        std::memcpy(&key, bytes, sizeof key);
        return key;
    }

    static std::uint32_t hash(std::uint32_t key) { return key * 2654435769U >> (32U - hashBits); }

    std::vector<Text> m_short;
    QHash<std::uint32_t, std::vector<Text>> m_texts; ///< by their first four bytes
    std::bitset<1U << hashBits> m_begins;
};

/// The choices that name the same country text.
struct CountryChoices {
    QByteArray country;
    std::vector<int> whole; ///< the country itself was chosen: every line that begins with it
    TextFinder places;      ///< single airports and provinces
};

std::vector<CountryChoices> byCountry(const QList<AirportChoice> &choices)
{
    QHash<QString, std::size_t> positions;
    std::vector<CountryChoices> groups;
    for (int i = 0; i < choices.size(); ++i) {
        const AirportChoice &choice = choices[i];
        const auto known = positions.constFind(choice.country);
        const std::size_t position = known == positions.constEnd() ? groups.size() : *known;
        if (position == groups.size()) {
            positions.insert(choice.country, position);
            groups.push_back(
                {.country = code_page::encode(choice.country), .whole = {}, .places = {}});
        }
        if (choice.search == choice.country) {
            groups[position].whole.push_back(i);
        } else {
            groups[position].places.add(code_page::encode(choice.search), i);
        }
    }
    return groups;
}

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
            items += text.left(4) + " - " + text.mid(commentPosition - 1);
        }
    }
    return items;
}

bool isExisting(const QString &item)
{
    return basic::mid(item, 6, 1) == "-";
}

std::vector<ChosenLine> chosenLines(const QByteArray &list, const QList<AirportChoice> &choices)
{
    const std::vector<CountryChoices> groups = byCountry(choices);
    std::vector<ChosenLine> chosen;
    std::vector<int> found;
    LineReader reader(list);
    while (!reader.atEnd()) {
        const QByteArrayView line = reader.next();
        found.clear();
        for (const CountryChoices &group : groups) {
            if (line.startsWith(group.country)) {
                found.insert(found.end(), group.whole.begin(), group.whole.end());
                group.places.find(line, found);
            }
        }
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
    return code_page::decode(record.entry).leftJustified(entryWidth) + "     //" +
           code_page::decode(record.city) + ", " + code_page::decode(record.province) + ", " +
           code_page::decode(record.country);
}

QString addedComment(const QDateTime &time)
{
    return "//Airports Added - " + basic::longDate(time) + ' ' + basic::clockTime(time);
}

} // namespace airport_text_file
