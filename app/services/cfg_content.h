// SPDX-License-Identifier: MIT
// What an aircraft.cfg says, as far as the pages want to know.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

/// What page 0 takes: the titles of the variations and their cruise speed.
struct TrafficContent {
    static constexpr int mostTitles = 1501;

    bool empty = false;                  ///< the file has no bytes at all
    QStringList titles;                  ///< in file order, those above the speed; at most 1,501
    QString speed;                       ///< whole number in knots as text, such as "250"
    bool complete = false;               ///< the speed was reached
    std::optional<RuntimeError> failure; ///< what ended the reading early
};

/// What page 3 takes. The last value of a key wins, whatever section it stands in.
struct EditorContent {
    bool aliased = false;                ///< the word "alias" stands somewhere in it
    QString panel;                       ///< the value of "panel="; empty without one
    QString displayName;                 ///< as shown; empty when one of its four keys is missing
    std::optional<RuntimeError> failure; ///< what ended the reading early
    std::optional<QString> lastLine;     ///< read before that
};

enum class Content { Traffic, Editor, Both };

namespace cfg_content
{

/// What is wanted, in one pass over the bytes; the other one is left blank. The traffic's failure
/// is Subscript out of range (9) at a 1,502nd title, Input past end of file (62) when the file ends
/// in a section header, or Overflow (6).
std::pair<TrafficContent, EditorContent> parse(const QByteArray &bytes, Content wanted);

/// The speed in a "cruise_speed" line: the whole part, rounded down, of the leading number behind
/// "="; "0" without one. A "//" comment makes the text as long as the comment is, whatever the
/// value. Throws Overflow (6).
QString speedIn(const QString &line);

/// The text without the characters whose codes are below 32 or above 122.
QString CheckName(const QString &text);

} // namespace cfg_content
