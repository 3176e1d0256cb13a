// SPDX-License-Identifier: MIT
// The lines of a file, as a test compares them.
#pragma once

#include "platform/code_page.h"
#include "platform/line_reader.h"

#include <QStringList>

inline QStringList linesOf(const QByteArray &bytes)
{
    QStringList all;
    LineReader reader(bytes);
    while (!reader.atEnd()) {
        all += code_page::decode(reader.next());
    }
    return all;
}
