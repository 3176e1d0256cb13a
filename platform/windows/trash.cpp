// SPDX-License-Identifier: MIT
// Windows' recycle bin.
#include "platform/files.h"

#include "platform/paths.h"

#include <QDir>

#include <windows.h>

#include <shellapi.h>

namespace files
{

bool moveToTrash(const QString &path)
{
    const QString host = paths::toHost(path);
    // Only disks that stay have a bin; from others the shell would delete for good.
    if (::GetDriveTypeW(host.first(3).toStdWString().c_str()) != DRIVE_FIXED) {
        return false;
    }
    std::wstring names = host.toStdWString();
    names.push_back(L'\0'); // a list, which another one ends
    SHFILEOPSTRUCTW operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = names.c_str();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
    return ::SHFileOperationW(&operation) == 0 && operation.fAnyOperationsAborted == FALSE &&
           !exists(path);
}

} // namespace files
