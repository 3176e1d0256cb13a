// SPDX-License-Identifier: MIT
// The settings file: anything may stand in it, and what is written is read again.
#include "app/session.h"
#include "fuzz/input.h"

namespace
{

/// A value as a settings file can hold one.
QString value(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes);
    for (const char16_t character : {u',', u'"', u'\r', u'\n', u'\xFEFF'}) {
        text.remove(QChar(character));
    }
    return text.trimmed();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Settings read;
    mayFail([&] { settings_file::parse(bytesOf(data, size), read); });

    const QList<QByteArray> parts = partsOf(data, size);
    const Settings settings{value(parts.value(0)), value(parts.value(1)), value(parts.value(2)),
                            value(parts.value(3)), value(parts.value(4)), value(parts.value(5))};
    settings_file::parse(settings_file::compose(settings), read);
    require(read.lastTab == settings.lastTab && read.tToolsPath == settings.tToolsPath &&
            read.drive == settings.drive && read.aircraftDir == settings.aircraftDir &&
            read.aircraftTextFile == settings.aircraftTextFile &&
            read.showAddAirportHelp == settings.showAddAirportHelp);
    return 0;
}
