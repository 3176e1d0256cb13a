// SPDX-License-Identifier: MIT
#include "platform/command_line.h"

CommandLine splitCommandLine(const QString &commandLine,
                             const std::function<QString(const QString &)> &findProgram)
{
    constexpr qsizetype longestProgram = 4096; // characters
    const QString line = commandLine.trimmed();
    if (line.startsWith(u'"')) {
        const qsizetype close = line.indexOf(u'"', 1);
        return close < 0 ? CommandLine()
                         : CommandLine{findProgram(line.mid(1, close - 1)),
                                       line.sliced(close + 1).trimmed()};
    }
    const QString whole = line.size() <= longestProgram ? findProgram(line) : QString();
    if (!whole.isEmpty()) {
        return {whole, {}};
    }
    for (qsizetype end = line.indexOf(u' '); end >= 0 && end <= longestProgram;
         end = line.indexOf(u' ', end + 1)) {
        const QString program = findProgram(line.first(end));
        if (!program.isEmpty()) {
            return {program, line.sliced(end + 1).trimmed()};
        }
    }
    return {};
}
