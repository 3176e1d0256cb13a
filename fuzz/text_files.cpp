// SPDX-License-Identifier: MIT
// The aircraft text file and the airport text file, with hands in them.
#include "aircraft_loader/added_lines.h"
#include "aircraft_loader/aircraft_text_file.h"
#include "airport_loader/airport_text_file.h"
#include "app/services/step.h"
#include "fuzz/input.h"
#include "platform/code_page.h"

#include <QDateTime>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    AircraftTextFile file;
    mayFail([&] { file.read(bytes); });
    for (const QString &line : file.lines) {
        require(!line.startsWith(u';') && !line.startsWith("//"));
        mayFail([&] { aircraft_text_file::titleIn(line); });
    }
    for (const QString &item : airport_text_file::existingItems(bytes)) {
        require(item.contains(" - "));
    }

    // What is added is read again, and numbered by what was there.
    QString title = code_page::decode(bytes);
    title.remove(u'\n').remove(u'\r');
    QString message;
    Step step(message);
    mayFail([&] {
        AircraftTextFile added = file;
        AddedLines adding(added);
        const QString lines =
            adding.linesFor(title + " 250", QDateTime({2026, 11, 1}, {14, 3}), step);
        adding.written();
        AircraftTextFile written;
        written.read(code_page::encode(lines));
        require(written.lines.size() == 1 && written.AircraftCount == 1 &&
                written.Number == added.Number && added.Number == file.Number + 1 &&
                added.AircraftCount == file.AircraftCount + 1);
        require(aircraft_text_file::titleIn(written.lines[0]) == title);
    });
    return 0;
}
