// SPDX-License-Identifier: MIT
#include "aircraft_loader/title_match.h"

#include "aircraft_loader/aircraft_text_file.h"

#include <QHash>

#include <algorithm>
#include <cstring>
#include <vector>

namespace
{

constexpr qsizetype shortestMatchedLine = 10;

/// A title to look for, and the entries that contain it in ascending order.
struct Pattern {
    QString title;
    std::vector<int> entries;
    std::size_t next = 0; ///< entries before this one are used up
};

/// Finds all patterns of at least `Gram` characters in all texts at once.
///
/// Each pattern is known by the run of `Gram` characters in it that is rarest in the texts. One
/// pass counts the runs, a second looks each run up and compares only where a pattern's own run
/// stands.
template <int Gram>
class PatternFinder
{
public:
    explicit PatternFinder(const QStringList &texts) : m_texts(texts) {}

    void find(const std::vector<Pattern *> &patterns)
    {
        countRuns();
        for (Pattern *pattern : patterns) {
            anchor(*pattern);
        }
        for (int i = 0; i < m_texts.size(); ++i) {
            search(i);
        }
    }

private:
    static constexpr int hashBits = 16;

    struct Anchor {
        Pattern *pattern;
        qsizetype offset; ///< of the run in the pattern
        int next;         ///< the next anchor with the same hash, -1 for none
    };

    static std::uint32_t hash(const QChar *run)
    {
        std::uint64_t mixed = 0;
        for (int i = 0; i < Gram; i += 4) {
            std::uint64_t part = 0;
            std::memcpy(&part, run + i, sizeof(QChar) * std::min(Gram, 4));
            mixed = (mixed ^ part) * 0x9E3779B97F4A7C15U;
        }
        return static_cast<std::uint32_t>(mixed >> (64 - hashBits));
    }

    template <typename Visit>
    static void forEachRun(const QString &text, Visit visit)
    {
        for (qsizetype i = 0; i + Gram <= text.size(); ++i) {
            visit(i, hash(text.constData() + i));
        }
    }

    void countRuns()
    {
        for (const QString &text : m_texts) {
            forEachRun(text, [&](qsizetype, std::uint32_t run) { ++m_counts[run]; });
        }
    }

    void anchor(Pattern &pattern)
    {
        qsizetype rarest = 0;
        std::uint32_t rarestRun = hash(pattern.title.constData());
        forEachRun(pattern.title, [&](qsizetype offset, std::uint32_t run) {
            if (m_counts[run] < m_counts[rarestRun]) {
                rarest = offset;
                rarestRun = run;
            }
        });
        m_anchors.push_back({&pattern, rarest, m_firstAnchor[rarestRun]});
        m_firstAnchor[rarestRun] = static_cast<int>(m_anchors.size()) - 1;
    }

    void search(int index)
    {
        const QString &text = m_texts[index];
        forEachRun(text, [&](qsizetype position, std::uint32_t run) {
            for (int i = m_firstAnchor[run]; i >= 0;
                 i = m_anchors[static_cast<std::size_t>(i)].next) {
                const Anchor &anchor = m_anchors[static_cast<std::size_t>(i)];
                std::vector<int> &found = anchor.pattern->entries;
                const qsizetype start = position - anchor.offset;
                if (start >= 0 && (found.empty() || found.back() != index) &&
                    QStringView(text).sliced(start).startsWith(anchor.pattern->title)) {
                    found.push_back(index);
                }
            }
        });
    }

    const QStringList &m_texts;
    std::vector<std::uint32_t> m_counts = std::vector<std::uint32_t>(1U << hashBits);
    std::vector<int> m_firstAnchor = std::vector<int>(1U << hashBits, -1);
    std::vector<Anchor> m_anchors;
};

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

template <int Gram>
void findPatterns(std::vector<Pattern> &patterns, qsizetype longest, const QStringList &texts)
{
    std::vector<Pattern *> ofThisLength;
    for (Pattern &pattern : patterns) {
        if (pattern.title.size() >= Gram && pattern.title.size() <= longest) {
            ofThisLength.push_back(&pattern);
        }
    }
    if (!ofThisLength.empty()) {
        PatternFinder<Gram>(texts).find(ofThisLength);
    }
}

/// An empty title is found in every entry.
void findEmptyTitle(std::vector<Pattern> &patterns, qsizetype entryCount)
{
    for (Pattern &pattern : patterns) {
        if (pattern.title.isEmpty()) {
            for (int i = 0; i < entryCount; ++i) {
                pattern.entries.push_back(i);
            }
        }
    }
}

} // namespace

TitleMatch matchTitles(const QStringList &existingLines, const QStringList &available)
{
    TitleMatch match{QBitArray(available.size()), std::nullopt};
    const QStringList titles = titlesIn(existingLines, match.failure);

    // Equal titles share one pattern: they use up its entries one after the other.
    QHash<QString, std::size_t> patternOf;
    std::vector<Pattern> patterns;
    for (const QString &title : titles) {
        if (!patternOf.contains(title)) {
            patternOf.insert(title, patterns.size());
            patterns.push_back({title, {}});
        }
    }
    findEmptyTitle(patterns, available.size());
    findPatterns<8>(patterns, std::numeric_limits<qsizetype>::max(), available);
    findPatterns<4>(patterns, 7, available);
    findPatterns<2>(patterns, 3, available);
    findPatterns<1>(patterns, 1, available);

    for (const QString &title : titles) {
        Pattern &pattern = patterns[patternOf[title]];
        while (pattern.next < pattern.entries.size() &&
               match.used.testBit(pattern.entries[pattern.next])) {
            ++pattern.next;
        }
        if (pattern.next < pattern.entries.size()) {
            match.used.setBit(pattern.entries[pattern.next]);
        }
    }
    return match;
}
