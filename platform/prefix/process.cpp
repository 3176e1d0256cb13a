// SPDX-License-Identifier: MIT
#include "platform/process.h"

#include "platform/child_process.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/prefix/host_command.h"
#include "platform/runtime_error.h"

#include <QFileInfo>

#include <algorithm>
#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// The folder of the file that a program is handed, else the program's own.
QString workingFolder(const HostCommand &command)
{
    QStringList words = QStringList(command.program) + command.arguments;
    for (; !words.isEmpty(); words.removeLast()) {
        const QString &file = words.last(); // of the host, or a Windows path handed to wine
        const QString folder =
            file.left(std::max({file.lastIndexOf(u'/'), file.lastIndexOf(u'\\'), qsizetype{0}}));
        if ((folder.startsWith(u'/') || folder.mid(1, 1) == u":") && files::isFolder(folder)) {
            return paths::toHost(folder);
        }
    }
    return {};
}

} // namespace

int exitCodeOf(const QProcess &ended)
{
    const bool bySignal = ended.exitStatus() == QProcess::CrashExit;
    return bySignal ? 128 + ended.exitCode() : ended.exitCode();
}

SystemProcesses::SystemProcesses(QList<Substitute> substitutes)
    : m_substitutes(std::move(substitutes))
{
}

std::unique_ptr<Process> SystemProcesses::start(const QString &commandLine, int /*windowStyle*/)
{
    const HostCommand command = resolveCommand(commandLine, m_substitutes);
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->setInputChannelMode(QProcess::ForwardedInputChannel);
    process->setChildProcessModifier([] { std::signal(SIGXFSZ, SIG_DFL); }); // see prepareHost
    process->setWorkingDirectory(workingFolder(command));
    process->setProgram(command.program);
    process->setArguments(command.arguments);
    return startChild(std::move(process));
}

void SystemProcesses::openDocument(const QString &path)
{
    const QString host = paths::toHost(path);
    const QString opener = programOnPath(u"xdg-open"_s); // asks the desktop
    if (!QFileInfo::exists(host)) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    if (opener.isEmpty() || !QProcess::startDetached(opener, {host})) {
        throw RuntimeError(ErrorNumber::FileNotFound, u"xdg-open"_s);
    }
}
