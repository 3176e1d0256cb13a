// SPDX-License-Identifier: MIT
// Files of Windows, as its own calls know them.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QString>

#include <string>
#include <utility>

#include <windows.h>

namespace files
{

constexpr qint64 largestFile = 256 << 20; ///< bytes: no file that anybody made by hand is larger

/// The classic number for an error code of Windows.
ErrorNumber errorNumber(DWORD code);

/// Throws the classic error for the last error of the calling thread.
[[noreturn]] void throwLastError();

/// A path of the host as the wide calls take it, however long it is.
std::wstring wideName(const QString &hostPath);

/// The same of a Windows path. Throws as paths::toHost.
std::wstring hostName(const QString &path);

/// A file that closes itself.
class Handle
{
public:
    explicit Handle(HANDLE handle) : m_handle(handle) {}

    ~Handle() { reset(); }

    Handle(Handle &&other) noexcept : m_handle(std::exchange(other.m_handle, INVALID_HANDLE_VALUE))
    {
    }

    Handle &operator=(Handle &&) = delete;

    HANDLE get() const { return m_handle; }

    bool isOpen() const { return m_handle != INVALID_HANDLE_VALUE; }

    void reset();

private:
    HANDLE m_handle;
};

/// Opens a file beside whatever else has it open. Not open, with the last error set, where it
/// cannot be.
Handle tryOpen(const std::wstring &name, DWORD access, DWORD creation, DWORD flags = 0);

/// Opens a file, and nothing but a file. Throws as files::readAll.
Handle openFile(const std::wstring &name, DWORD access, DWORD creation = OPEN_EXISTING,
                DWORD flags = 0);

/// A folder or a device is no file: Path/File access error (75).
void requireFile(const Handle &file);

qint64 lengthOf(const Handle &file);

/// Reads a whole file into a buffer, which keeps its memory. Throws Out of memory (7) for a file
/// beyond `largestFile`.
void readInto(const Handle &file, QByteArray &buffer);

/// Writes all of the bytes, which become what is left of them. Throws Disk full (61) and the like.
void writeBytes(const Handle &file, QByteArrayView &bytes);

} // namespace files
