// SPDX-License-Identifier: MIT
// Running other programs, and finding them.
#pragma once

#include <QString>

class Clock;
class Dialogs;
class ErrorReport;
class Process;
class ProcessStarter;
class Step;
struct FormState;

/// The folder of the compiler's path, ending in a backslash. A compiler of another name than
/// "TTools.exe" gives a folder cut at the wrong place; so it has always been.
QString tToolsFolder(const QString &path);

class Shell
{
public:
    Shell(FormState &state, ErrorReport &errors, Dialogs &dialogs, ProcessStarter &processes,
          const Clock &clock);

    /// Starts a command line and waits until its exit code is 0, up to `TimeOutValue` seconds (0 or
    /// less: for ever), while the window stays alive. An exit code other than 0 counts as still
    /// running: a compiler that failed has not done its work. Returns false after an error, which
    /// is shown, and when the program quits meanwhile.
    bool Shellandwait(const QString &ExeFullPath, int TimeOutValue, int WindowStyle);

    /// "True" when the folder tree holds a file of this name, its path then in searchBuffer();
    /// else "False". Depth first; folders that cannot be read are passed over. Nobody calls it.
    QString FileExistsInDirTree(const QString &DirName, const QString &FileName);

    /// 260 characters: the path found, a NUL and blanks; all blanks when nothing was found.
    const QString &searchBuffer() const { return m_searchBuffer; }

    /// Returns after so many seconds. The window does not repaint meanwhile. Nobody calls it.
    void Wait(int Pause) const;

    /// Derives the path of "TTools.exe" beside a file, keeps it (see tTools), and returns whether
    /// that file exists and is not empty.
    bool CheckFileExists(const QString &filePath);

    const QString &tTools() const { return m_tTools; }

    /// Opens a document of the program folder, which becomes the current directory.
    /// Throws RuntimeError.
    void openDocument(const QString &relativePath, Step &step);

private:
    void waitFor(Process &process, int TimeOutValue, int start) const;
    int secondsSinceMidnight() const;

    FormState &m_state;
    ErrorReport &m_errors;
    Dialogs &m_dialogs;
    ProcessStarter &m_processes;
    const Clock &m_clock;
    QString m_tTools;
    QString m_searchBuffer;
};
