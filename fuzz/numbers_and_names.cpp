// SPDX-License-Identifier: MIT
// Numbers, dates and names, as users and files spell them.
#include "fpset/fpset_name.h"
#include "fuzz/input.h"
#include "platform/basic.h"
#include "platform/blind_to_case.h"
#include "platform/code_page.h"
#include "platform/list_order.h"
#include "platform/paths.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const QString text = code_page::decode(bytes);
    require(code_page::isUtf8(bytes) || code_page::encode(text) == bytes);
    require(blind_to_case::lower(text).size() == text.size());

    mayFail([&] { basic::val(text); });
    mayFail([&] {
        const std::int16_t number = basic::toInteger16(text);
        require(basic::toInteger16(QString::number(number)) == number);
    });
    require(basic::trim(basic::trim(text)) == basic::trim(text));

    const QString name = fpset_name::withExtension(text);
    if (fpset_name::isValid(name)) {
        const fpset_name::FileSet set = fpset_name::filesOf("C:\\TTools\\", name);
        require(set.flightPlanPath == "C:\\TTools\\" + name);
        require(set.airportFile == "Airports" + name.mid(11) &&
                set.aircraftFile == "Aircraft" + name.mid(11));
    }
    require(paths::fileName(paths::join("C:\\TTools", "a")) == "a");
    if (paths::isValidName(text)) {
        require(!text.contains('\\') && !text.contains('/'));
    }

    QStringList texts = text.split(u'\n');
    list_order::sort(texts);
    QStringList inserted;
    for (const QString &one : texts) {
        inserted.insert(list_order::position(inserted, one), one);
    }
    require(inserted == texts);
    return 0;
}
