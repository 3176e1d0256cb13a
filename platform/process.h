// SPDX-License-Identifier: MIT
// Starting other programs, and opening documents with the program they belong to.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

/// A started program. Dropping the object leaves the program running.
class Process
{
public:
    static constexpr int stillActive = 259; ///< exit code reported while the program runs

    virtual ~Process() = default;

    /// The exit code; 259 while the program runs. What ended is seen once events are processed.
    virtual int exitCode() = 0;
};

/// The door to other programs, which a test replaces.
class ProcessStarter
{
public:
    virtual ~ProcessStarter() = default;

    /// Starts a command line: a program, a blank, and the rest of the line as one argument. No
    /// shell sees it. A program path may hold blanks: the whole line is taken when it names a
    /// program, else the shortest leading part that does, or what stands between leading double
    /// quotes. A program is looked for as given, in the system directory, the Windows directory (in
    /// both also with ".exe"), then on the PATH; never in the current directory. It works in the
    /// folder of the file that it is handed, else in its own. `windowStyle` is the show-window
    /// value (1: a normal window), a hint. Returns the program, or nothing when it was started but
    /// cannot be watched. Throws RuntimeError: File not found (53), Path/File access error (75).
    virtual std::unique_ptr<Process> start(const QString &commandLine, int windowStyle) = 0;

    /// Opens a document (Windows path) with the program it belongs to, as a double-click would.
    /// Throws RuntimeError: File not found (53), for the document or for a program to open it with.
    virtual void openDocument(const QString &path) = 0;

    /// Shows the top-level window of exactly this caption and brings it to the front. Returns
    /// whether there is one; where other programs' windows cannot be seen there is none.
    virtual bool raiseWindow(const QString &caption) = 0;
};

/// What serves where a Windows program is missing, on a host that is not Windows.
struct Substitute {
    QString program;             ///< in lower case, without ".exe"
    QList<QStringList> commands; ///< program of the host with options; the first installed is taken
};

/// The programs and documents of this machine.
class SystemProcesses : public ProcessStarter
{
public:
    explicit SystemProcesses(QList<Substitute> substitutes = {});

    std::unique_ptr<Process> start(const QString &commandLine, int windowStyle) override;
    void openDocument(const QString &path) override;
    bool raiseWindow(const QString &caption) override;

private:
    QList<Substitute> m_substitutes;
};
