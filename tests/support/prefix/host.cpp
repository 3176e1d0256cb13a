// SPDX-License-Identifier: MIT
// A Wine prefix on POSIX.
#include "tests/support/host.h"

#include "platform/host.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <stdexcept>

#include <sys/resource.h>
#include <unistd.h>

const bool host::permissions = true;
const bool host::links = true;
const bool host::sizeLimit = true;
const bool host::shellScripts = true;
const bool host::failingCalls = true;
const bool host::casesApart = true;
const bool host::trashFolder = true;
const bool host::plainLocale = true;
const bool host::procFolder = true;
const bool host::usualFonts = true;

namespace
{

constexpr uid_t nobody = 65534;

rlim_t limitFiles(rlim_t bytes)
{
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlim_t before = limit.rlim_cur;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
    return before;
}

} // namespace

HostDrives::HostDrives(const QString &folder)
    : m_folder(folder), m_prefix("WINEPREFIX", QFile::encodeName(folder))
{
    if (!QDir(folder).mkpath("dosdevices")) {
        throw std::runtime_error("cannot make a prefix in " + folder.toStdString());
    }
    add('c', "../drive_c");
    add('z', "/");
}

HostDrives::~HostDrives() = default;

void HostDrives::add(QChar letter, const QString &hostFolder)
{
    QFile::link(hostFolder, m_folder + "/dosdevices/" + letter + ':');
}

void host::installSimulator(const Sandbox &sandbox)
{
    QFile registry(sandbox.prefix() + "/system.reg");
    if (!registry.open(QIODevice::WriteOnly)) {
        throw std::runtime_error("cannot write the registry");
    }
    registry.write("WINE REGISTRY Version 2\n\n[Software\\\\Microsoft\\\\Microsoft Games\\\\"
                   "Flight Simulator\\\\9.0] 1\n\"EXE Path\"=\"C:\\\\FS9\"\n");
}

OrdinaryUser::OrdinaryUser(const Sandbox &sandbox)
{
    if (geteuid() != 0) {
        return;
    }
    const auto own = [](const QString &path) {
        return lchown(QFile::encodeName(path).constData(), nobody, nobody) == 0;
    };
    QDirIterator all(sandbox.prefix(),
                     QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                     QDirIterator::Subdirectories);
    bool good = own(sandbox.prefix());
    while (all.hasNext()) {
        good = own(all.next()) && good;
    }
    if (!good || seteuid(nobody) != 0) {
        throw std::runtime_error("cannot become an ordinary user");
    }
}

OrdinaryUser::~OrdinaryUser()
{
    if (getuid() == 0 && seteuid(0) != 0) {
        qFatal("cannot become root again");
    }
}

FileSizeLimit::FileSizeLimit(qint64 bytes)
{
    prepareHost(); // as main() does, or the limit would end the test
    m_before = limitFiles(static_cast<rlim_t>(bytes));
}

FileSizeLimit::~FileSizeLimit()
{
    limitFiles(m_before);
}
