// SPDX-License-Identifier: MIT
// The failures a user sees: a number and a description, as the classic Basic runtime words them.
#pragma once

#include <QString>

#include <exception>

/// The runtime's error numbers. The number is what old hands recognise in a report.
enum class ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    BadFileName = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIoError = 57,
    DiskFull = 61,
    InputPastEnd = 62,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// A failed step. Thrown where it happens, caught once per handler (see app/services/error_report).
class RuntimeError : public std::exception
{
public:
    explicit RuntimeError(ErrorNumber number);

    /// Names what is missing where that is not what the step names: a program, for instance, that a
    /// document would be opened with.
    RuntimeError(ErrorNumber number, const QString &missing);

    int number() const { return static_cast<int>(m_number); }

    QString description() const;
    const char *what() const noexcept override;

private:
    ErrorNumber m_number;
    QString m_missing;
};
