// SPDX-License-Identifier: MIT
#include "platform/process_posix.h"

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

#include <array>
#include <cerrno>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ; // NOLINT(readability-redundant-declaration): not every system declares it

namespace
{

/// Children that nobody watches any more.
std::vector<pid_t> &leftBehind()
{
    static std::vector<pid_t> ids;
    return ids;
}

/// Asks the children left behind how they ended, which is what lets the system forget them.
void buryLeftBehind()
{
    std::erase_if(leftBehind(), [](pid_t id) { return ::waitpid(id, nullptr, WNOHANG) != 0; });
}

/// A child of ours. It outlives this object.
class ChildProcess : public Process
{
public:
    explicit ChildProcess(pid_t id) : m_id(id) {}

    ~ChildProcess() override
    {
        if (!m_exitCode) {
            leftBehind().push_back(m_id);
        }
    }

    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    int exitCode() override
    {
        int status = 0;
        if (!m_exitCode && ::waitpid(m_id, &status, WNOHANG) == m_id) {
            m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        }
        return m_exitCode.value_or(stillActive);
    }

private:
    pid_t m_id;
    std::optional<int> m_exitCode;
};

bool isWindowsProgram(const QString &hostFile)
{
    QFile file(hostFile);
    return file.open(QIODevice::ReadOnly) && file.read(2) == "MZ";
}

/// The first editor on this machine that stays in the foreground until its window is closed.
std::optional<HostCommand> desktopEditor(const QString &argument)
{
    static const std::array<QStringList, 9> editors = {QStringList{"mousepad", "--disable-server"},
                                                       {"gedit", "--standalone", "--wait"},
                                                       {"gnome-text-editor", "--standalone"},
                                                       {"kate", "--block"},
                                                       {"kwrite"},
                                                       {"featherpad", "--standalone"},
                                                       {"pluma"},
                                                       {"xed", "--standalone"},
                                                       {"leafpad"}};
    for (const QStringList &editor : editors) {
        const QString program = QStandardPaths::findExecutable(editor.first());
        if (!program.isEmpty()) {
            return HostCommand{program, editor.sliced(1) << argument};
        }
    }
    return std::nullopt;
}

/// The host file of a program name, or nothing. Only a name without a folder is searched for.
QString findProgram(const QString &program)
{
    const bool searched =
        !program.contains('\\') && !program.contains(':') && !program.startsWith('/');
    QStringList candidates;
    if (searched) {
        for (const QString &folder : {paths::systemDirectory(), paths::windowsDirectory()}) {
            candidates += paths::join(folder, program);
            if (!program.contains('.')) {
                candidates += paths::join(folder, program + ".exe");
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
    const bool isPath = argument.size() > 2 && argument[1] == ':' && argument[2] == '\\';
    return isPath ? paths::toHost(argument) : argument;
}

HostCommand commandFor(const QString &hostProgram, const QString &argument)
{
    if (!isWindowsProgram(hostProgram)) {
        return {hostProgram,
                argument.isEmpty() ? QStringList() : QStringList(nativeArgument(argument))};
    }
    const QString wine = QStandardPaths::findExecutable("wine");
    if (wine.isEmpty()) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    QStringList arguments{hostProgram};
    if (!argument.isEmpty()) {
        arguments << argument;
    }
    return {wine, arguments};
}

} // namespace

HostCommand resolveCommand(const QString &commandLine)
{
    const QString line = commandLine.trimmed();
    if (line.startsWith('"')) {
        const qsizetype close = line.indexOf('"', 1);
        const QString program = findProgram(line.mid(1, close - 1));
        if (close > 0 && !program.isEmpty()) {
            return commandFor(program, line.sliced(close + 1).trimmed());
        }
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    for (qsizetype end = line.indexOf(' ');; end = line.indexOf(' ', end + 1)) {
        const QString program = findProgram(end < 0 ? line : line.first(end));
        if (!program.isEmpty()) {
            return commandFor(program, end < 0 ? QString() : line.sliced(end + 1).trimmed());
        }
        if (end < 0) {
            break;
        }
    }
    const qsizetype blank = line.indexOf(' ');
    const QString name = line.left(blank).toLower();
    if (blank > 0 && (name == "notepad" || name == "notepad.exe")) {
        const auto editor = desktopEditor(nativeArgument(line.sliced(blank + 1).trimmed()));
        if (editor) {
            return *editor;
        }
    }
    throw RuntimeError(ErrorNumber::FileNotFound);
}

std::unique_ptr<Process> SystemProcesses::start(const QString &commandLine, int /*windowStyle*/)
{
    buryLeftBehind();
    const HostCommand command = resolveCommand(commandLine);
    std::vector<QByteArray> words{QFile::encodeName(command.program)};
    for (const QString &argument : command.arguments) {
        words.push_back(QFile::encodeName(argument));
    }
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (QByteArray &word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    pid_t id = 0;
    const int error =
        ::posix_spawn(&id, pointers.front(), nullptr, nullptr, pointers.data(), environ);
    if (error != 0) {
        throw RuntimeError(error == ENOENT ? ErrorNumber::FileNotFound
                                           : ErrorNumber::PathFileAccess);
    }
    return std::make_unique<ChildProcess>(id);
}

void SystemProcesses::openDocument(const QString &path)
{
    const QString host = paths::toHost(path);
    if (!QFileInfo::exists(host) || !QDesktopServices::openUrl(QUrl::fromLocalFile(host))) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
}
