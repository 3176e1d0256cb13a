// SPDX-License-Identifier: MIT
#include "app/services/trace_log.h"

#include "app/services/error_report.h"
#include "app/services/form_state.h"
#include "platform/basic.h"
#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/files.h"

#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString TraceLog::path() const
{
    return m_state.MorlenEDir + u"\\TraceLog.txt"_s;
}

void TraceLog::WriteToLog()
{
    constexpr qint64 limit = 50001; // bytes
    if (!m_state.TraceOn) {
        return;
    }
    if (files::openForAppend(path()) >= limit) {
        files::remove(path());
    }
    const bool bare = m_state.TraceMsg.startsWith("====="_L1);
    append(bare ? m_state.TraceMsg : basic::clockTime(m_clock.now()) + u" - "_s + m_state.TraceMsg);
}

void TraceLog::append(const QString &line) const
{
    const QByteArray bytes = code_page::encode(line + u"\r\n"_s);
    const QByteArray content = files::exists(path()) ? files::readAll(path()) : QByteArray();
    // One character the code page lacks turns the log, and all that follows, into UTF-8.
    if (!code_page::isUtf8(content) && !code_page::isUtf8(bytes)) {
        files::appendLines(path(), bytes);
    } else {
        files::writeAll(path(),
                        code_page::encodeUtf8(code_page::decodeMarked(content) + line + u"\r\n"_s));
    }
}

void TraceLog::write(const QString &text)
{
    m_state.TraceMsg = text;
    try {
        WriteToLog();
    } catch (const RuntimeError &error) {
        m_state.TraceOn = false;
        Q_EMIT switchedOff();
        m_dialogs.show({.prompt = ErrorReport::describe(error) + u"\rOpening "_s + path(),
                        .title = u"Trace Log Error"_s,
                        .icon = MessageBox::Icon::Exclamation});
    }
}

void TraceLog::reset()
{
    files::openForAppend(path());
    files::remove(path());
    m_state.TraceOn = false;
}

void TraceLog::setTracing(bool on)
{
    m_state.TraceOn = on;
    if (on) {
        write(separator());
        write(cut(u"Trace Started "_s + dateAndTime()));
        write(separator());
        return;
    }
    files::openForAppend(path());
    files::remove(path());
    files::writeAll(path(), code_page::encode(separator() + u"\r\nTrace Ended "_s + dateAndTime() +
                                              u"\r\n"_s + separator() + u"\r\n"_s));
}

QString TraceLog::separator()
{
    return {80, u'='};
}

QString TraceLog::banner(const QString &text)
{
    return cut(u"***"_s + text + QString(80, u'*'));
}

QString TraceLog::timeFormat(const QLocale &locale)
{
    // The long format ends in the time zone ("t", in brackets somewhere), which nobody reads here.
    static const QRegularExpression zone(uR"(\s*\(?t+\)?)"_s);
    return locale.timeFormat(QLocale::LongFormat).remove(zone).trimmed();
}

QString TraceLog::dateAndTime() const
{
    const QDateTime now = m_clock.now();
    const QLocale locale = QLocale::system();
    return locale.toString(now.date(), QLocale::ShortFormat) + u' ' +
           locale.toString(now.time(), timeFormat(locale));
}
