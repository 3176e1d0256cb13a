// SPDX-License-Identifier: MIT
// Finds many texts in other texts at once.
#pragma once

#include <QList>

#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

/// Looks for texts, QString or QByteArray, of any number and length.
///
/// Each is known by the run of four characters in it that is rarest among all of them, and compared
/// only where that run stands. So the effort grows with the length of what is searched, even when
/// thousands of texts begin alike. A text too short for a run is searched for in the plain way.
template <typename Text>
class TextFinder
{
public:
    explicit TextFinder(const QList<Text> &texts)
        : m_texts(texts), m_anchors(texts.size()), m_first(buckets, none)
    {
        std::vector<int> counts(buckets);
        for (const Text &text : m_texts) {
            forEachRun(text, [&](qsizetype, std::size_t run) { ++counts[run]; });
        }
        for (int i = 0; i < m_texts.size(); ++i) {
            if (m_texts[i].size() < runLength) {
                m_short.push_back(i);
            } else {
                anchor(i, counts);
            }
        }
    }

    /// Calls `found` with the index of each text that occurs, for some of them more than once.
    template <typename View, typename Found>
    void find(View searched, Found found) const
    {
        for (const int text : m_short) {
            if (searched.contains(m_texts[text])) {
                found(text);
            }
        }
        forEachRun(searched, [&](qsizetype position, std::size_t run) {
            for (int text = m_first[run]; text != none; text = m_anchors[text].next) {
                const qsizetype start = position - m_anchors[text].offset;
                if (start >= 0 && searched.sliced(start).startsWith(m_texts[text])) {
                    found(text);
                }
            }
        });
    }

private:
    static constexpr int runLength = 4;
    static constexpr unsigned bucketBits = 16;
    static constexpr std::size_t buckets = 1U << bucketBits;
    static constexpr int none = -1;

    struct Anchor {
        qsizetype offset = 0; ///< of the run in the text
        int next = none;      ///< the next text whose run falls into the same bucket
    };

    /// Visits the offset and the bucket of each run.
    template <typename View, typename Visit>
    static void forEachRun(const View &text, Visit visit)
    {
        for (qsizetype i = 0; i + runLength <= text.size(); ++i) {
            std::uint64_t key = 0;
            std::memcpy(&key, text.data() + i, runLength * sizeof *text.data());
            visit(i, static_cast<std::size_t>(key * 0x9E3779B97F4A7C15U >> (64U - bucketBits)));
        }
    }

    void anchor(int text, const std::vector<int> &counts)
    {
        Anchor &anchor = m_anchors[text];
        std::size_t rarest = buckets;
        forEachRun(m_texts[text], [&](qsizetype offset, std::size_t run) {
            if (rarest == buckets || counts[run] < counts[rarest]) {
                rarest = run;
                anchor.offset = offset;
            }
        });
        anchor.next = std::exchange(m_first[rarest], text);
    }

    QList<Text> m_texts;
    std::vector<int> m_short;
    QList<Anchor> m_anchors;  ///< by text; those of short ones are not used
    std::vector<int> m_first; ///< by bucket, the first text known by a run in it
};
