// SPDX-License-Identifier: MIT
#include "app/services/shell.h"

#include "app/services/error_report.h"
#include "app/services/form_state.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/process.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QSet>
#include <QThread>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

constexpr int secondsADay = 86400;
constexpr qsizetype bufferLength = 260;

/// Lets the window live until something happens or a short while has passed: no processor is burnt.
void processEventsForAWhile()
{
    QTimer alarm;
    alarm.start(30);
    QEventLoop().processEvents(QEventLoop::WaitForMoreEvents);
}

/// The first file of a name below a folder, or empty. `visited` keeps links from leading in
/// circles.
QString findInTree(const QString &folder, const QString &name, QSet<QString> &visited)
{
    try {
        const QString real = QFileInfo(paths::toHost(folder)).canonicalFilePath();
        if (visited.contains(real)) {
            return {};
        }
        visited.insert(real);
        const QString candidate = paths::join(folder, name);
        if (files::isFile(candidate)) {
            return candidate;
        }
        for (const QString &subFolder : files::subFolders(folder)) {
            const QString found = findInTree(paths::join(folder, subFolder), name, visited);
            if (!found.isEmpty()) {
                return found;
            }
        }
    } catch (const RuntimeError &) {
        return {}; // a folder that cannot be read holds nothing that could be run
    }
    return {};
}

} // namespace

QString tToolsFolder(const QString &path)
{
    constexpr qsizetype nameLength = 10; // of "TTools.exe"
    return path.chopped(qMin(nameLength, path.size()));
}

Shell::Shell(FormState &state, ErrorReport &errors, Dialogs &dialogs, ProcessStarter &processes,
             const Clock &clock)
    : m_state(state),
      m_errors(errors),
      m_dialogs(dialogs),
      m_processes(processes),
      m_clock(clock),
      m_searchBuffer(bufferLength, u' ')
{
}

bool Shell::Shellandwait(const QString &ExeFullPath, int TimeOutValue, int WindowStyle)
{
    try {
        const int start = secondsSinceMidnight();
        const std::unique_ptr<Process> process = m_processes.start(ExeFullPath, WindowStyle);
        if (process) {
            waitFor(*process, TimeOutValue, start);
        }
        return !m_state.ended;
    } catch (const RuntimeError &error) {
        m_errors.log(error);
        m_dialogs.show({.prompt = u"Error Handled. See log."_s,
                        .title = u"ShellandWait Error"_s,
                        .icon = MessageBox::Icon::Critical});
        return false;
    }
}

void Shell::waitFor(Process &process, int TimeOutValue, int start) const
{
    qint64 end = qint64{start} + TimeOutValue;
    const bool passesMidnight = TimeOutValue > 0 && end >= secondsADay;
    if (passesMidnight) {
        end -= secondsADay;
    }
    while (process.exitCode() != 0 && !m_state.ended) {
        processEventsForAWhile();
        const int now = secondsSinceMidnight();
        const bool timeIsUp = TimeOutValue > 0 && now >= end;
        if (timeIsUp && (!passesMidnight || now < start)) {
            return;
        }
    }
}

int Shell::secondsSinceMidnight() const
{
    return m_clock.now().time().msecsSinceStartOfDay() / 1000;
}

QString Shell::FileExistsInDirTree(const QString &DirName, const QString &FileName)
{
    m_searchBuffer = QString(bufferLength, u' ');
    QSet<QString> visited;
    const QString found = findInTree(DirName, FileName, visited);
    if (found.isEmpty()) {
        return u"False"_s;
    }
    const QString ended = (found + QChar(u'\0')).left(bufferLength);
    m_searchBuffer.replace(0, ended.size(), ended);
    return u"True"_s;
}

void Shell::Wait(int Pause) const
{
    const qint64 start = m_clock.now().toSecsSinceEpoch();
    while (m_clock.now().toSecsSinceEpoch() - start < Pause) {
        QThread::msleep(10);
    }
}

bool Shell::CheckFileExists(const QString &filePath)
{
    const qsizetype backslash = filePath.lastIndexOf(u'\\');
    m_tTools = backslash < 0 ? filePath : filePath.first(backslash + 1) + u"TTools.exe"_s;
    try {
        return files::length(m_tTools) != 0;
    } catch (const RuntimeError &) {
        return false; // no TTools beside this file is an ordinary answer
    }
}

void Shell::openDocument(const QString &relativePath, Step &step)
{
    step.set(u"Opening "_s + m_state.MorlenEDir + relativePath);
    paths::setCurrentDirectory(m_state.MorlenEDir);
    m_processes.openDocument(m_state.MorlenEDir + relativePath);
}
