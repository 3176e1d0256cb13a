// SPDX-License-Identifier: MIT
#include "aircraft_loader/title_match.h"

#include "aircraft_loader/aircraft_text_file.h"
#include "app/services/text_finder.h"

#include <QHash>

namespace
{

constexpr qsizetype shortestMatchedLine = 10;

/// The titles of the lines up to the first that ends the matching.
QStringList titlesIn(const QStringList &lines, std::optional<RuntimeError> &failure)
{
    QStringList titles;
    for (const QString &line : lines) {
        if (line.size() < shortestMatchedLine) {
            break;
        }
        try {
            titles += aircraft_text_file::titleIn(line);
        } catch (const RuntimeError &error) {
            failure = error;
            break;
        }
    }
    return titles;
}

} // namespace

TitleMatch matchTitles(const QStringList &existingLines, const QStringList &available)
{
    TitleMatch match{QBitArray(available.size()), std::nullopt};
    const QStringList titles = titlesIn(existingLines, match.failure);

    // Equal titles are looked for once: they use up their entries one after the other.
    QHash<QString, qsizetype> numbers;
    QStringList different;
    for (const QString &title : titles) {
        if (!numbers.contains(title)) {
            numbers.insert(title, different.size());
            different += title;
        }
    }
    const TextFinder finder(different);
    QList<QList<int>> entries(different.size()); // of each title, the last one first
    for (int i = static_cast<int>(available.size()); --i >= 0;) {
        finder.find(QStringView(available[i]), [&](int title) { entries[title].push_back(i); });
    }
    for (const QString &title : titles) {
        QList<int> &left = entries[numbers[title]];
        while (!left.empty() && match.used.testBit(left.back())) {
            left.pop_back();
        }
        if (!left.empty()) {
            match.used.setBit(left.back());
        }
    }
    return match;
}
