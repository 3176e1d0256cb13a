// SPDX-License-Identifier: MIT
#include "platform/system_info.h"

#include <windows.h>

SystemVersion systemVersion()
{
    // The documented calls tell a program an older system than it runs on; this one does not.
    OSVERSIONINFOEXW record = {};
    record.dwOSVersionInfoSize = sizeof record;
    using RtlGetVersion = LONG(WINAPI *)(OSVERSIONINFOEXW *);
    if (const FARPROC call = ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion")) {
        reinterpret_cast<RtlGetVersion>(reinterpret_cast<void *>(call))(&record);
    }
    SystemVersion system;
    system.platform = static_cast<int>(record.dwPlatformId);
    system.majorVersion = static_cast<int>(record.dwMajorVersion);
    system.minorVersion = static_cast<int>(record.dwMinorVersion);
    system.build = static_cast<int>(record.dwBuildNumber);
    system.servicePackText = QString::fromWCharArray(&record.szCSDVersion[0]);
    system.servicePackMajor = record.wServicePackMajor;
    system.servicePackMinor = record.wServicePackMinor;
    system.suiteMask = record.wSuiteMask;
    system.productType = record.wProductType;
    return system;
}
