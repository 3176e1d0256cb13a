// SPDX-License-Identifier: MIT
// Windows itself, or Wine, which stands in for it.
#include "tests/support/host.h"

#include "platform/windows/drives.h"

#include <QDir>

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

OrdinaryUser::OrdinaryUser(const Sandbox & /*sandbox*/) {}

OrdinaryUser::~OrdinaryUser() = default;

FileSizeLimit::FileSizeLimit(qint64 /*bytes*/) {}

FileSizeLimit::~FileSizeLimit() = default;
