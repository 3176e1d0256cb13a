// SPDX-License-Identifier: MIT
#include "config_editor/listing_dump.h"

#include "app/services/trace_log.h"
#include "platform/code_page.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace listing_dump
{

QString entry(const QString &name, const QString &folder)
{
    constexpr qsizetype nameWidth = 75;
    return name.leftJustified(nameWidth, u' ', true) % u"  \\" % folder;
}

QByteArray compose(const QStringList &entries, const QDateTime &time, const QLocale &locale)
{
    const QString rule = QString(105, u'=') + u"\r\n"_s;
    QString text =
        rule + u"AIRCRAFT NAME"_s + QString(64, u' ') + u"LOCATION (AIRCRAFT FOLDER)\r\n"_s + rule;
    for (const QString &entry : entries) {
        text += entry % u"\r\n";
    }
    // Some locales set the narrow no-break space before "PM", which the code page lacks.
    const QString clock =
        locale.toString(time.time(), TraceLog::timeFormat(locale)).replace(QChar(0x202F), u' ');
    text += rule + u"Varlo Aircraft Listing - "_s +
            QLocale::c().toString(time.date(), u"dddd, MMMM, dd, yyyy"_s) + u' ' + clock +
            u"\r\n"_s;
    return code_page::encode(text);
}

} // namespace listing_dump
