// SPDX-License-Identifier: MIT
// The classic way to read values from a text file.
#pragma once

#include <QString>

/// The sequential-input rule: a value ends at a comma or at the end of a line; leading blanks are
/// skipped; a value in double quotes is taken without them and may hold commas.
class SequentialInput
{
public:
    explicit SequentialInput(const QString &text) : m_text(text) {}

    /// The next value. Throws Input past end of file (62).
    QString next();

private:
    QString m_text;
    qsizetype m_position = 0;
};
