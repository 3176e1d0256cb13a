// SPDX-License-Identifier: MIT
// Drives of the test's own, with files and a current directory. Never the user's.
#pragma once

#include "tests/support/host.h"

#include <QString>
#include <QTemporaryDir>

/// Makes temporary drives, in a Wine prefix of their own where the program lives in one, and makes
/// "C:\Morlen" the current directory; everything is put back at the end.
class Sandbox
{
public:
    Sandbox();
    ~Sandbox();
    Sandbox(const Sandbox &) = delete;
    Sandbox &operator=(const Sandbox &) = delete;

    /// The prefix on the host.
    QString prefix() const { return m_dir.path(); }

    /// The host path of a Windows path on c:, with the spelling given (nothing need exist).
    QString host(const QString &windowsPath) const;

    /// Makes a folder with its parents.
    void makeFolder(const QString &windowsPath) const;

    /// Writes a file with its folders.
    void write(const QString &windowsPath, const QByteArray &bytes) const;

    /// The bytes of a file. Throws std::runtime_error when there is none: a test must not go on.
    QByteArray read(const QString &windowsPath) const;

    bool exists(const QString &windowsPath) const;

    /// Makes a folder another drive.
    void addDrive(QChar letter, const QString &windowsPath);

private:
    QTemporaryDir m_dir;
    HostDrives m_drives;
    QString m_oldDirectory;
};
