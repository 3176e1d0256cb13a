// SPDX-License-Identifier: MIT
#include "platform/sequential_input.h"

#include "platform/runtime_error.h"

void SequentialInput::skipLineEnd()
{
    const bool both = QStringView(m_text).sliced(m_position).startsWith(u"\r\n");
    m_position += both ? 2 : 1;
}

QString SequentialInput::next()
{
    while (m_position < m_text.size() && m_text[m_position] == ' ') {
        ++m_position;
    }
    if (m_position >= m_text.size()) {
        throw RuntimeError(ErrorNumber::InputPastEnd);
    }
    const auto endsValue = [](QChar c) { return c == ',' || c == '\r' || c == '\n'; };
    QString value;
    if (m_text[m_position] == '"') {
        const qsizetype close = m_text.indexOf('"', m_position + 1);
        const qsizetype end = close < 0 ? m_text.size() : close;
        value = m_text.sliced(m_position + 1, end - m_position - 1);
        m_position = qMin(end + 1, m_text.size());
        while (m_position < m_text.size() && !endsValue(m_text[m_position])) {
            ++m_position;
        }
    } else {
        const qsizetype start = m_position;
        while (m_position < m_text.size() && !endsValue(m_text[m_position])) {
            ++m_position;
        }
        value = m_text.sliced(start, m_position - start);
    }
    if (m_position < m_text.size()) {
        skipLineEnd();
    }
    return value;
}
