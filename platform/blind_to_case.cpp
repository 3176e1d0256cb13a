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

QString plain(QStringView text)
{
    QString letters = lower(text).normalized(QString::NormalizationForm_D);
    letters.removeIf([](QChar c) { return c.unicode() >= 0x300 && c.isMark(); });
    return letters.replace(u'\u00F8', u'o'); // its stroke is no accent to Unicode, but to people
}

} // namespace blind_to_case
