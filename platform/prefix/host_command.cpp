// SPDX-License-Identifier: MIT
#include "platform/prefix/host_command.h"

#include "platform/blind_to_case.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <optional>

using namespace Qt::StringLiterals;

namespace
{

bool isWindowsProgram(const QString &hostFile)
{
    QFile file(hostFile);
    return file.open(QIODevice::ReadOnly) && file.read(2) == "MZ";
}

/// The host file of a program name, or nothing. Only a name without a folder is searched for.
QString findProgram(const QString &program)
{
    const bool searched =
        !program.contains(u'\\') && !program.contains(u':') && !program.startsWith(u'/');
    QStringList candidates;
    if (searched) {
        for (const QString &folder : {paths::systemDirectory(), paths::windowsDirectory()}) {
            candidates += paths::join(folder, program);
            if (!program.contains(u'.')) {
                candidates += paths::join(folder, program + u".exe"_s);
            }
        }
    } else {
        candidates += program;
    }
    for (const QString &candidate : candidates) {
        try {
            const QString host = paths::toHost(candidate);
            if (QFileInfo(host).isFile()) {
                return host;
            }
        } catch (const RuntimeError &) {
            return {}; // no file can have such a name
        }
    }
    return searched ? QStandardPaths::findExecutable(program) : QString();
}

/// An argument as a native program understands it: a Windows path becomes the host's.
QString nativeArgument(const QString &argument)
{
    const bool isPath = argument.size() > 2 && argument[1] == u':' && argument[2] == u'\\';
    return isPath ? paths::toHost(argument) : argument;
}

HostCommand commandFor(const QString &hostProgram, const QString &argument)
{
    const bool isWindows = isWindowsProgram(hostProgram);
    HostCommand command{hostProgram, {}};
    if (isWindows) {
        command = {QStandardPaths::findExecutable(u"wine"_s), {hostProgram}};
    }
    if (command.program.isEmpty()) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    if (!argument.isEmpty()) {
        command.arguments += isWindows ? argument : nativeArgument(argument);
    }
    return command;
}

/// The first installed command that serves for a missing program, with the rest of the line.
std::optional<HostCommand> substituteFor(const QString &line, const QList<Substitute> &substitutes)
{
    const qsizetype blank = line.indexOf(u' ');
    const QString name = blind_to_case::lower(line.first(qMax<qsizetype>(blank, 0)));
    for (const Substitute &substitute : substitutes) {
        if (name != substitute.program && name != substitute.program + u".exe"_s) {
            continue;
        }
        for (const QStringList &command : substitute.commands) {
            const QString program = QStandardPaths::findExecutable(command.first());
            if (!program.isEmpty()) {
                const QString argument = nativeArgument(line.sliced(blank + 1).trimmed());
                return HostCommand{program, command.sliced(1) << argument};
            }
        }
    }
    return std::nullopt;
}

} // namespace

HostCommand resolveCommand(const QString &commandLine, const QList<Substitute> &substitutes)
{
    const QString line = commandLine.trimmed();
    if (line.startsWith(u'"')) {
        const qsizetype close = line.indexOf(u'"', 1);
        const QString program = findProgram(line.mid(1, close - 1));
        if (close > 0 && !program.isEmpty()) {
            return commandFor(program, line.sliced(close + 1).trimmed());
        }
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    for (qsizetype end = 0; end < line.size();) {
        const qsizetype blank = line.indexOf(u' ', end + 1);
        end = blank < 0 ? line.size() : blank;
        const QString program = findProgram(line.first(end));
        if (!program.isEmpty()) {
            return commandFor(program, line.sliced(end).trimmed());
        }
    }
    if (const auto standIn = substituteFor(line, substitutes)) {
        return *standIn;
    }
    throw RuntimeError(ErrorNumber::FileNotFound);
}
