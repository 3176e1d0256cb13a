// SPDX-License-Identifier: MIT
// Wine's registry files: what is not ours stays, byte for byte.
#include "platform/prefix/reg_file.h"
#include "fuzz/input.h"

#include <algorithm>

namespace
{

QString lineOf(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes).remove(u'\n').remove(u'\r');
}

/// Whether the one text is the other with something put in at one place.
bool isInserted(const QByteArray &text, const QByteArray &into)
{
    const auto front = std::mismatch(into.begin(), into.end(), text.begin(), text.end()).first;
    const auto back = std::mismatch(into.rbegin(), into.rend(), text.rbegin(), text.rend()).first;
    return (front - into.begin()) + (back - into.rbegin()) >= into.size();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QList<QByteArray> parts = partsOf(data, size);
    const QByteArray bytes = parts.takeFirst();
    const QString key = "Software\\Morlen\\" + lineOf(parts.value(0));
    const QString name = lineOf(parts.value(1));
    const QString text = QString::fromUtf8(parts.value(2));

    RegFile file(bytes);
    const auto other = file.value("Software\\Other", "Name");
    file.setValue(key, name, text, 1);
    require(file.value(key, name) == RegistryData(text));
    require(file.value("Software\\Other", "Name") == other);
    require(bytes.toLower().contains("morlen") || isInserted(file.bytes(), bytes));

    const QByteArray once = file.bytes();
    file.setValue(key, name, text, 2);
    require(file.bytes() == once); // nothing to do
    file.setValue(key, name, std::uint32_t{7}, 3);
    require(file.value(key, name) == RegistryData(std::uint32_t{7}));
    file.setValue(key, name, text, 4);
    require(file.value(key, name) == RegistryData(text));

    RegFile keyOnly(bytes);
    keyOnly.createKey(key, 1);
    require(isInserted(keyOnly.bytes(), bytes));
    return 0;
}
