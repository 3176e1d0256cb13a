// SPDX-License-Identifier: MIT
#include "platform/child_process.h"

#include "platform/runtime_error.h"

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
        return exitCodeOf(*m_process);
    }

private:
    QProcess *m_process;
};

} // namespace

std::unique_ptr<Process> startChild(std::unique_ptr<QProcess> process)
{
    process->start();
    if (!process->waitForStarted()) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    return std::make_unique<ChildProcess>(std::move(process));
}
