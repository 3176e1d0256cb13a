// SPDX-License-Identifier: MIT
#include "platform/line_reader.h"

#include "platform/code_page.h"

LineReader::LineReader(QByteArrayView bytes)
    : m_bytes(bytes), m_position(code_page::isUtf8(bytes) ? code_page::utf8Mark.size() : 0)
{
}
