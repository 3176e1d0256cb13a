// SPDX-License-Identifier: MIT
#include "platform/list_order.h"

#include "platform/blind_to_case.h"

#include <algorithm>
#include <utility>
#include <vector>

using blind_to_case::lower;

namespace list_order
{

void sort(QStringList &texts)
{
    // Lowered once, not at each comparison: a list holds thousands.
    std::vector<std::pair<QString, QString>> keyed;
    keyed.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString &text : texts) {
        keyed.emplace_back(lower(text), text);
    }
    const auto before = [](const auto &one, const auto &other) {
        const int order = one.first.compare(other.first);
        return order != 0 ? order < 0 : one.second < other.second;
    };
    if (std::is_sorted(keyed.begin(), keyed.end(), before)) {
        return;
    }
    std::sort(keyed.begin(), keyed.end(), before);
    std::transform(keyed.begin(), keyed.end(), texts.begin(),
                   [](const auto &entry) { return entry.second; });
}

qsizetype position(const QStringList &texts, const QString &text)
{
    const auto place =
        std::upper_bound(texts.begin(), texts.end(), std::pair(lower(text), text),
                         [](const std::pair<QString, QString> &key, const QString &other) {
                             return key < std::pair(lower(other), other);
                         });
    return place - texts.begin();
}

} // namespace list_order
