// SPDX-License-Identifier: MIT
#include "platform/blind_to_case.h"

namespace blind_to_case
{

QString lower(QStringView text)
{
    QString result(text.size(), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), result.begin(), [](QChar c) {
        const bool ascii = c.unicode() < 0x80; // nearly always, and then no table is needed
        return !ascii ? c.toLower() : c >= u'A' && c <= u'Z' ? QChar(c.unicode() | 0x20) : c;
    });
    return result;
}

} // namespace blind_to_case
