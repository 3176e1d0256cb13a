// SPDX-License-Identifier: MIT
// Matching titles, against the search as one would write it down.
#include "aircraft_loader/title_match.h"

#include "aircraft_loader/aircraft_text_file.h"
#include "fuzz/input.h"
#include "platform/code_page.h"

namespace
{

/// Every line through every entry.
QBitArray plainSearch(const QStringList &lines, const QStringList &available)
{
    QBitArray used(available.size());
    for (const QString &line : lines) {
        if (line.size() < 10) {
            break;
        }
        QString title;
        try {
            title = aircraft_text_file::titleIn(line);
        } catch (const RuntimeError &) {
            break;
        }
        for (qsizetype i = 0; i < available.size(); ++i) {
            if (!used.testBit(i) && available[i].contains(title)) {
                used.setBit(i);
                break;
            }
        }
    }
    return used;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QList<QByteArray> parts = partsOf(data, size);
    const QStringList lines = code_page::decode(parts.value(0)).split('\n');
    const QStringList available = code_page::decode(parts.value(1)).split('\n');
    require(matchTitles(lines, available).used == plainSearch(lines, available));
    return 0;
}
