// SPDX-License-Identifier: MIT
// The outside world as a test wants it. Each keeps what the program did to it.
#pragma once

#include "app/services/outside.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "platform/runtime_error.h"

#include <QDateTime>
#include <QStringList>

#include <deque>
#include <functional>
#include <map>
#include <tuple>

/// Answers boxes and dialogs, and keeps what the user would have read.
class FakeDialogs : public Dialogs
{
public:
    MessageBox::Answer show(const MessageBox &box) override;
    QString openFile(const OpenFileDialog &dialog) override;

    QList<MessageBox> boxes;                ///< shown so far
    QList<OpenFileDialog> fileDialogs;      ///< shown so far
    std::deque<MessageBox::Answer> answers; ///< the next ones; without any, the default button
    std::deque<QString> files;              ///< the next files chosen; without any, cancelled
    std::function<void()> whileShown;       ///< runs while a box is open
};

/// A registry in memory, keyed by hive, key and name, blind to case.
class FakeRegistry : public Registry
{
public:
    std::optional<RegistryData> value(RegistryHive hive, const QString &key,
                                      const QString &name) const override;
    void createKey(RegistryHive hive, const QString &key) override;
    void setValue(RegistryHive hive, const QString &key, const QString &name,
                  const RegistryData &data) override;

    /// Registers the simulators' installation folders.
    void installFs9(const QString &folder);
    void installFsX(const QString &folder);

    QString failing; ///< keys that hold this cannot be read

private:
    std::map<std::tuple<RegistryHive, QString, QString>, RegistryData> m_values;
};

/// Starts nothing: each "program" gives the exit codes it is told to, one per look, the last for
/// ever.
class FakeProcesses : public ProcessStarter
{
public:
    std::unique_ptr<Process> start(const QString &commandLine, int windowStyle) override;
    void openDocument(const QString &path) override;
    bool raiseWindow(const QString &caption) override;

    QStringList started; ///< command lines
    QList<int> windowStyles;
    QStringList windows;   ///< captions of other programs' windows
    QStringList raised;    ///< captions
    QStringList documents; ///< opened with their programs
    QList<int> exitCodes = {0};
    bool cannotBeWatched = false;
    std::optional<RuntimeError> failure; ///< thrown by start
    std::function<void()> whileRunning;  ///< runs at each look at the exit code
};

class FakeClock : public Clock
{
public:
    QDateTime now() const override;

    mutable QDateTime time = QDateTime({2026, 11, 1}, {14, 3, 27}); ///< a Sunday
    int secondsPerLook = 0; ///< how far the clock moves on each time it is read
};

/// Everything outside, faked.
struct FakeOutside {
    FakeRegistry registry;
    FakeProcesses processes;
    FakeDialogs dialogs;
    FakeClock clock;

    Outside outside() { return {registry, processes, dialogs, clock}; }
};
