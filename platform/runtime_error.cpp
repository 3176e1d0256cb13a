// SPDX-License-Identifier: MIT
#include "platform/runtime_error.h"

using namespace Qt::StringLiterals;

namespace
{

const char *describe(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return "Invalid procedure call or argument";
    case ErrorNumber::Overflow:
        return "Overflow";
    case ErrorNumber::OutOfMemory:
        return "Out of memory";
    case ErrorNumber::SubscriptOutOfRange:
        return "Subscript out of range";
    case ErrorNumber::TypeMismatch:
        return "Type mismatch";
    case ErrorNumber::BadFileName:
        return "Bad file name or number";
    case ErrorNumber::FileNotFound:
        return "File not found";
    case ErrorNumber::FileAlreadyOpen:
        return "File already open";
    case ErrorNumber::DeviceIoError:
        return "Device I/O error";
    case ErrorNumber::DiskFull:
        return "Disk full";
    case ErrorNumber::InputPastEnd:
        return "Input past end of file";
    case ErrorNumber::DeviceUnavailable:
        return "Device unavailable";
    case ErrorNumber::PermissionDenied:
        return "Permission denied";
    case ErrorNumber::PathFileAccess:
        return "Path/File access error";
    case ErrorNumber::PathNotFound:
        return "Path not found";
    }
    return "Application-defined or object-defined error";
}

} // namespace

RuntimeError::RuntimeError(ErrorNumber number) : m_number(number) {}

RuntimeError::RuntimeError(ErrorNumber number, const QString &missing)
    : m_number(number), m_missing(missing)
{
}

QString RuntimeError::description() const
{
    const QString text = QString::fromLatin1(describe(m_number));
    return m_missing.isEmpty() ? text : text + u": "_s + m_missing;
}

const char *RuntimeError::what() const noexcept
{
    return describe(m_number);
}
