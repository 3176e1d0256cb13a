// SPDX-License-Identifier: MIT
#include "platform/sequential_input.h"

#include "platform/runtime_error.h"

QString SequentialInput::next()
{
    while (m_position < m_text.size() && m_text[m_position] == u' ') {
        ++m_position;
    }
    if (m_position >= m_text.size()) {
        throw RuntimeError(ErrorNumber::InputPastEnd);
    }
    const auto endsValue = [](QChar c) { return c == u',' || c == u'\r' || c == u'\n'; };
    const bool quoted = m_text[m_position] == u'"';
    QString value;
    if (quoted) {
        const qsizetype close = m_text.indexOf(u'"', m_position + 1);
        const qsizetype end = close < 0 ? m_text.size() : close;
        value = m_text.sliced(m_position + 1, end - m_position - 1);
        m_position = qMin(end + 1, m_text.size());
    }
    const qsizetype start = m_position;
    while (m_position < m_text.size() && !endsValue(m_text[m_position])) {
        ++m_position;
    }
    if (!quoted) {
        value = m_text.sliced(start, m_position - start);
    }
    if (m_position < m_text.size()) {
        m_position += QStringView(m_text).sliced(m_position).startsWith(u"\r\n") ? 2 : 1;
    }
    return value;
}
