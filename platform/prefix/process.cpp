// SPDX-License-Identifier: MIT
#include "platform/process.h"

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/prefix/host_command.h"
#include "platform/runtime_error.h"

#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// A child of ours. It outlives this object, and this program: a QProcess takes its child along
/// when it is destroyed, so none is as long as the child runs.
class ChildProcess : public Process
{
public:
    explicit ChildProcess(std::unique_ptr<QProcess> process) : m_process(process.release()) {}

    ~ChildProcess() override
    {
        QObject::connect(m_process, &QProcess::finished, m_process, &QObject::deleteLater);
        if (m_process->state() == QProcess::NotRunning) {
            m_process->deleteLater();
        }
    }

    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    int exitCode() override
    {
        if (m_process->state() != QProcess::NotRunning) {
            return stillActive;
        }
        const bool bySignal = m_process->exitStatus() == QProcess::CrashExit;
        return bySignal ? 128 + m_process->exitCode() : m_process->exitCode();
    }

private:
    QProcess *m_process;
};

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
    process->start(command.program, command.arguments);
    if (!process->waitForStarted()) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    return std::make_unique<ChildProcess>(std::move(process));
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
