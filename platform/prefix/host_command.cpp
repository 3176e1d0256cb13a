// SPDX-License-Identifier: MIT
#include "platform/prefix/host_command.h"

#include "platform/blind_to_case.h"
#include "platform/command_line.h"
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
    return searched ? programOnPath(program) : QString();
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
        command = {programOnPath(u"wine"_s), {hostProgram}};
    }
    if (command.program.isEmpty()) {
        throw RuntimeError(ErrorNumber::FileNotFound, u"wine"_s);
    }
    if (!argument.isEmpty()) {
        command.arguments += isWindows ? argument : nativeArgument(argument);
    }
    return command;
}

/// The first installed command that serves for a missing program, with the rest of the line;
/// nothing when none serves for it. Throws File not found (53), which names them, when none is
/// there.
std::optional<HostCommand> substituteFor(const QString &line, const QList<Substitute> &substitutes)
{
    const qsizetype blank = line.indexOf(u' ');
    const QString name = blind_to_case::lower(line.first(qMax<qsizetype>(blank, 0)));
    for (const Substitute &substitute : substitutes) {
        if (name != substitute.program && name != substitute.program + u".exe"_s) {
            continue;
        }
        QStringList missing{substitute.program};
        for (const QStringList &command : substitute.commands) {
            const QString program = programOnPath(command.first());
            if (!program.isEmpty()) {
                const QString argument = nativeArgument(line.sliced(blank + 1).trimmed());
                return HostCommand{program, command.sliced(1) << argument};
            }
            missing += command.first();
        }
        throw RuntimeError(ErrorNumber::FileNotFound, missing.join(u", "_s));
    }
    return std::nullopt;
}

} // namespace

QString programOnPath(const QString &program)
{
    QStringList folders = qEnvironmentVariable("PATH").split(u':', Qt::SkipEmptyParts);
    folders.removeIf([](const QString &folder) { return !folder.startsWith(u'/'); });
    return folders.isEmpty() ? QString() : QStandardPaths::findExecutable(program, folders);
}

HostCommand resolveCommand(const QString &commandLine, const QList<Substitute> &substitutes)
{
    const CommandLine line = splitCommandLine(commandLine, findProgram);
    if (!line.program.isEmpty()) {
        return commandFor(line.program, line.argument);
    }
    const std::optional<HostCommand> standIn = substituteFor(commandLine.trimmed(), substitutes);
    if (!standIn) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    return *standIn;
}
