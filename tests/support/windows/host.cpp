// SPDX-License-Identifier: MIT
// Windows itself, or Wine, which stands in for it.
#include "tests/support/host.h"

#include "platform/registry.h"
#include "platform/windows/drives.h"

#include <QDir>

#include <utility>

#include <windows.h>

const bool host::permissions = false;
const bool host::links = false;
const bool host::sizeLimit = false;
const bool host::shellScripts = false;
const bool host::failingCalls = false;
const bool host::casesApart = false;
const bool host::trashFolder = false;
const bool host::plainLocale = false;
const bool host::procFolder = false;
const bool host::usualFonts = false;

HostDrives::HostDrives(const QString &folder)
    : m_folder(folder), m_prefix("WINEPREFIX", qgetenv("WINEPREFIX"))
{
    add('c', folder + "/drive_c");
    QDir(folder).mkdir("drive_z");
    add('z', folder + "/drive_z");
}

HostDrives::~HostDrives()
{
    paths::setDrives({});
}

void HostDrives::add(QChar letter, const QString &hostFolder)
{
    m_drives[letter] = hostFolder;
    paths::setDrives(m_drives);
}

void host::installSimulator(const Sandbox & /*sandbox*/)
{
    // The machine's own registry stays as it is: the process sees another in its place.
    constexpr auto place = L"Software\\Morlen Utilities Test";
    ::RegDeleteTreeW(HKEY_CURRENT_USER, place);
    for (const auto &[root, name] :
         {std::pair{HKEY_LOCAL_MACHINE, L"Software\\Morlen Utilities Test\\Machine"},
          std::pair{HKEY_CURRENT_USER, L"Software\\Morlen Utilities Test\\User"}}) {
        HKEY key = nullptr;
        if (::RegCreateKeyW(HKEY_CURRENT_USER, name, &key) != ERROR_SUCCESS ||
            ::RegOverridePredefKey(root, key) != ERROR_SUCCESS) {
            qFatal("no registry for tests");
        }
        ::RegCloseKey(key);
    }
    systemRegistry()->setValue(RegistryHive::LocalMachine,
                               "Software\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0",
                               "EXE Path", QString("C:\\FS9"));
}

OrdinaryUser::OrdinaryUser(const Sandbox & /*sandbox*/) {}

OrdinaryUser::~OrdinaryUser() = default;

FileSizeLimit::FileSizeLimit(qint64 /*bytes*/) {}

FileSizeLimit::~FileSizeLimit() = default;
