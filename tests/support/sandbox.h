// SPDX-License-Identifier: MIT
// A Wine prefix of the test's own: drives, files, a current directory. Never the user's.
#pragma once

#include "tests/support/environment.h"

#include <QString>
#include <QTemporaryDir>

/// Makes a temporary prefix with the drives c: and z:, points $WINEPREFIX at it and makes
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

private:
    QTemporaryDir m_dir;
    Environment m_prefix;
    QString m_oldDirectory;
};

/// For its lifetime the process has no more rights than an ordinary user, even when root runs the
/// tests: without it "read-only" and "unreadable" would be true for nobody.
class OrdinaryUser
{
public:
    /// `sandbox` is handed to that user first.
    explicit OrdinaryUser(const Sandbox &sandbox);
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;
};
