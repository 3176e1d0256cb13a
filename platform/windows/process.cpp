// SPDX-License-Identifier: MIT
#include "platform/process.h"

#include "platform/child_process.h"
#include "platform/command_line.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

#include <QDir>
#include <QFileInfo>

#include <array>

#include <windows.h>

#include <shellapi.h>

using namespace Qt::StringLiterals;

namespace
{

/// The host file of a program name, or nothing. Only a name without a folder is searched for: in
/// the system's folders, then on the PATH, but never where we happen to be.
QString findProgram(const QString &program)
{
    const bool searched = !program.contains(u'\\') && !program.contains(u':');
    QStringList folders{QString()};
    if (searched) {
        folders = {paths::systemDirectory(), paths::windowsDirectory()};
        for (const QString &folder : qEnvironmentVariable("PATH").split(u';', Qt::SkipEmptyParts)) {
            if (QDir::isAbsolutePath(folder)) {
                folders += QDir::toNativeSeparators(folder);
            }
        }
    }
    const bool named = program.contains(u'.');
    for (const QString &folder : folders) {
        try {
            const QString path = folder.isEmpty() ? program : paths::join(folder, program);
            for (const QString &candidate : {path, named ? QString() : path + u".exe"_s}) {
                const QString host = candidate.isEmpty() ? QString() : paths::toHost(candidate);
                if (!host.isEmpty() && QFileInfo(host).isFile()) {
                    return host;
                }
            }
        } catch (const RuntimeError &) {
            // No file can have such a name, or the drive is gone.
        }
    }
    return {};
}

/// The folder of the file that a program is handed, else the program's own; of the host.
QString workingFolder(const CommandLine &command)
{
    const QString file = QString(command.argument).remove(u'"').trimmed();
    const QString folder = file.left(qMax(qsizetype{0}, file.lastIndexOf(u'\\')));
    const bool whole = folder.mid(1, 1) == u":" || folder.startsWith(u"\\\\");
    return whole && files::isFolder(folder) ? paths::toHost(folder)
                                            : QFileInfo(command.program).absolutePath();
}

} // namespace

int exitCodeOf(const QProcess &ended)
{
    return ended.exitCode();
}

// Nothing stands in for Windows' own programs here.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
SystemProcesses::SystemProcesses(QList<Substitute> /*substitutes*/) {}

std::unique_ptr<Process> SystemProcesses::start(const QString &commandLine, int windowStyle)
{
    const CommandLine command = splitCommandLine(commandLine, findProgram);
    if (command.program.isEmpty()) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    auto process = std::make_unique<QProcess>();
    process->setProgram(command.program);
    process->setWorkingDirectory(workingFolder(command));
    process->setNativeArguments(command.argument); // as it stands: Notepad takes a name so
    process->setCreateProcessArgumentsModifier(
        [windowStyle](QProcess::CreateProcessArguments *arguments) {
            arguments->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
            arguments->startupInfo->wShowWindow = static_cast<WORD>(windowStyle);
            arguments->startupInfo->dwFlags &= ~static_cast<DWORD>(STARTF_USESTDHANDLES);
        });
    return startChild(std::move(process));
}

void SystemProcesses::openDocument(const QString &path)
{
    const QString host = paths::toHost(path);
    if (!files::exists(path)) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    constexpr INT_PTR lastError = 32; // what the shell returns for success is greater
    const HINSTANCE answer = ::ShellExecuteW(nullptr, nullptr, host.toStdWString().c_str(), nullptr,
                                             nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<INT_PTR>(answer) <= lastError) {
        throw RuntimeError(ErrorNumber::FileNotFound, QFileInfo(host).suffix());
    }
}

bool SystemProcesses::raiseWindow(const QString &caption)
{
    const std::wstring wanted = caption.toStdWString();
    HWND window = nullptr;
    while ((window = ::FindWindowExW(nullptr, window, nullptr, wanted.c_str())) != nullptr) {
        std::wstring found(wanted.size() + 2, L'\0');
        found.resize(static_cast<std::size_t>(
            ::GetWindowTextW(window, found.data(), static_cast<int>(found.size()))));
        if (found != wanted || ::IsWindowVisible(window) == 0) { // Windows looks blind to case
            continue;
        }
        if (::IsIconic(window) != 0) {
            ::ShowWindow(window, SW_RESTORE);
        }
        if (::SetForegroundWindow(window) == 0) {
            FLASHWINFO flash = {sizeof flash, window, FLASHW_ALL | FLASHW_TIMERNOFG, 3, 0};
            ::FlashWindowEx(&flash);
        }
        return true;
    }
    return false;
}
