// SPDX-License-Identifier: MIT
#include "tests/support/fakes.h"

namespace
{

template <typename T>
T takeFirst(std::deque<T> &queue, T otherwise)
{
    if (queue.empty()) {
        return otherwise;
    }
    const T first = queue.front();
    queue.pop_front();
    return first;
}

class FakeProcess : public Process
{
public:
    FakeProcess(const QList<int> &exitCodes, const std::function<void()> &look)
        : m_exitCodes(exitCodes), m_look(look)
    {
    }

    int exitCode() override
    {
        if (m_look) {
            m_look();
        }
        return m_exitCodes.size() > 1 ? m_exitCodes.takeFirst() : m_exitCodes.first();
    }

private:
    QList<int> m_exitCodes;
    std::function<void()> m_look;
};

} // namespace

MessageBox::Answer FakeDialogs::show(const MessageBox &box)
{
    boxes += box;
    if (whileShown) {
        whileShown();
    }
    return takeFirst(answers, box.defaultButton);
}

QString FakeDialogs::openFile(const OpenFileDialog &dialog)
{
    fileDialogs += dialog;
    return takeFirst(files, QString());
}

std::optional<RegistryData> FakeRegistry::value(RegistryHive hive, const QString &key,
                                                const QString &name) const
{
    if (!failing.isEmpty() && key.contains(failing)) {
        throw RuntimeError(ErrorNumber::DeviceIoError);
    }
    const auto found = m_values.find({hive, key.toLower(), name.toLower()});
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void FakeRegistry::createKey(RegistryHive /*hive*/, const QString & /*key*/) {}

void FakeRegistry::setValue(RegistryHive hive, const QString &key, const QString &name,
                            const RegistryData &data)
{
    m_values[{hive, key.toLower(), name.toLower()}] = data;
}

void FakeRegistry::installFs9(const QString &folder)
{
    setValue(RegistryHive::LocalMachine,
             "SOFTWARE\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0", "EXE Path", folder);
}

void FakeRegistry::installFsX(const QString &folder)
{
    setValue(RegistryHive::LocalMachine,
             "SOFTWARE\\Microsoft\\Microsoft Games\\Flight Simulator\\10.0", "SetupPath", folder);
}

std::unique_ptr<Process> FakeProcesses::start(const QString &commandLine, int windowStyle)
{
    started += commandLine;
    windowStyles += windowStyle;
    if (failure) {
        throw RuntimeError(*failure);
    }
    return cannotBeWatched ? nullptr : std::make_unique<FakeProcess>(exitCodes, whileRunning);
}

void FakeProcesses::openDocument(const QString &path)
{
    documents += path;
}

bool FakeProcesses::raiseWindow(const QString &caption)
{
    const bool isThere = windows.contains(caption);
    if (isThere) {
        raised += caption;
    }
    return isThere;
}

QDateTime FakeClock::now() const
{
    const QDateTime read = time;
    time = time.addSecs(secondsPerLook);
    return read;
}
