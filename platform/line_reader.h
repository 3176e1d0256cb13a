// SPDX-License-Identifier: MIT
// The lines of a file.
#pragma once

#include "platform/code_page.h"
#include "platform/runtime_error.h"

#include <QByteArrayView>

#include <cstring>

/// Steps through the lines of a file; CR LF, CR and LF all end one. A UTF-8 mark is passed over.
class LineReader
{
public:
    explicit LineReader(QByteArrayView bytes) : m_bytes(bytes)
    {
        if (code_page::isUtf8(bytes)) {
            m_position = code_page::utf8Mark.size();
        }
    }

    bool atEnd() const { return m_position >= m_bytes.size(); }

    /// The next line without its end. Throws Input past end of file (62).
    QByteArrayView next()
    {
        if (atEnd()) {
            throw RuntimeError(ErrorNumber::InputPastEnd);
        }
        // Two searches instead of one look at each byte: the system's own are many times as fast.
        // The line feed is kept for the lines before it, or files that end lines in CR alone would
        // be searched to their end at each one.
        if (m_lineFeed < m_position) {
            m_lineFeed = find(m_bytes.size(), '\n');
        }
        const qsizetype start = m_position;
        const qsizetype lineEnd = find(m_lineFeed, '\r');
        const bool both = lineEnd + 1 == m_lineFeed && m_lineFeed != m_bytes.size();
        m_position = lineEnd + (both ? 2 : 1);
        return m_bytes.sliced(start, lineEnd - start);
    }

private:
    /// Where a byte comes next before `end`; `end` when it does not.
    qsizetype find(qsizetype end, char byte) const
    {
        const char *const start = m_bytes.data() + m_position;
        const void *const found =
            std::memchr(start, byte, static_cast<std::size_t>(end - m_position));
        return found != nullptr ? static_cast<const char *>(found) - m_bytes.data() : end;
    }

    QByteArrayView m_bytes;
    qsizetype m_position = 0;
    qsizetype m_lineFeed = -1; ///< the next one, once looked for
};
