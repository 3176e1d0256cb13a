// SPDX-License-Identifier: MIT
#include "platform/windows/handle.h"

#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace files
{

ErrorNumber errorNumber(DWORD code)
{
    switch (code) {
    case ERROR_FILE_NOT_FOUND:
        return ErrorNumber::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
        return ErrorNumber::PathNotFound;
    case ERROR_ACCESS_DENIED:
        return ErrorNumber::PathFileAccess;
    case ERROR_WRITE_PROTECT:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return ErrorNumber::PermissionDenied;
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_DISK_FULL:
        return ErrorNumber::DiskFull;
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_DEVICE_NOT_CONNECTED:
        return ErrorNumber::DeviceUnavailable;
    case ERROR_INVALID_NAME:
        return ErrorNumber::BadFileName;
    default:
        return ErrorNumber::DeviceIoError;
    }
}

void throwLastError()
{
    throw RuntimeError(errorNumber(::GetLastError()));
}

std::wstring wideName(const QString &hostPath)
{
    constexpr qsizetype longestPlain = 240; // characters; Windows' own limit, and room for a name
    if (hostPath.size() <= longestPlain) {
        return hostPath.toStdWString();
    }
    const bool isShare = hostPath.startsWith(R"(\\)"_L1);
    return (isShare ? uR"(\\?\UNC)"_s + hostPath.sliced(1) : uR"(\\?\)"_s + hostPath)
        .toStdWString();
}

std::wstring hostName(const QString &path)
{
    return wideName(paths::toHost(path));
}

void Handle::reset()
{
    if (isOpen()) {
        ::CloseHandle(std::exchange(m_handle, INVALID_HANDLE_VALUE));
    }
}

Handle tryOpen(const std::wstring &name, DWORD access, DWORD creation, DWORD flags)
{
    // Editors and the compiler read and write beside us.
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return Handle(::CreateFileW(name.c_str(), access, shared, nullptr, creation,
                                FILE_ATTRIBUTE_NORMAL | flags, nullptr));
}

Handle openFile(const std::wstring &name, DWORD access, DWORD creation, DWORD flags)
{
    Handle file = tryOpen(name, access, creation, flags);
    if (!file.isOpen()) {
        throwLastError();
    }
    requireFile(file);
    return file;
}

void requireFile(const Handle &file)
{
    if (::GetFileType(file.get()) != FILE_TYPE_DISK) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
}

qint64 lengthOf(const Handle &file)
{
    LARGE_INTEGER size = {};
    if (::GetFileSizeEx(file.get(), &size) == 0) {
        throwLastError();
    }
    return size.QuadPart;
}

void readInto(const Handle &file, QByteArray &buffer)
{
    const qint64 length = lengthOf(file);
    if (length > largestFile) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    buffer.resize(length);
    qsizetype filled = 0;
    DWORD count = 1;
    while (filled < buffer.size() && count > 0) {
        if (::ReadFile(file.get(), buffer.data() + filled,
                       static_cast<DWORD>(buffer.size() - filled), &count, nullptr) == 0) {
            throwLastError();
        }
        filled += count;
    }
    buffer.resize(filled);
}

void writeBytes(const Handle &file, QByteArrayView &bytes)
{
    while (!bytes.isEmpty()) {
        DWORD count = 0;
        const auto most = static_cast<DWORD>(qMin<qsizetype>(bytes.size(), 1 << 30));
        if (::WriteFile(file.get(), bytes.data(), most, &count, nullptr) == 0) {
            throwLastError();
        }
        bytes = bytes.sliced(count);
    }
}

} // namespace files
