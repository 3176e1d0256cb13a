// SPDX-License-Identifier: MIT
// What the tests want of the system they run on.
#pragma once

#include "tests/support/environment.h"

#include <QMap>
#include <QString>

/// What not every system lets a test do; `NEEDS` skips one that cannot be done here.
namespace host
{

extern const bool permissions;  ///< files that their owner may not read, folders that take no file
extern const bool links;        ///< names that lead to other files
extern const bool sizeLimit;    ///< a disk that is full
extern const bool shellScripts; ///< programs of a few lines
extern const bool failingCalls; ///< see failing_calls.h
extern const bool casesApart;   ///< names that differ in case alone, each told as it is spelled
extern const bool trashFolder;  ///< a trash that can be looked into, and missing
extern const bool plainLocale;  ///< the locale "C" for the machine
extern const bool procFolder;   ///< "/proc"
extern const bool usualFonts;   ///< those by which a window's size is judged

} // namespace host

#define NEEDS(what)                                                                                \
    do {                                                                                           \
        if (!host::what) {                                                                         \
            QSKIP("This system has no " #what " for tests");                                       \
        }                                                                                          \
    } while (false)

/// The drives of a sandbox: folders of the host by letter. The machine's come back at the end.
class HostDrives
{
public:
    /// Drive c: is "drive_c" in a folder of the host.
    explicit HostDrives(const QString &folder);
    ~HostDrives();
    HostDrives(const HostDrives &) = delete;
    HostDrives &operator=(const HostDrives &) = delete;

    void add(QChar letter, const QString &hostFolder);

private:
    QString m_folder;
    QMap<QChar, QString> m_drives;
    Environment m_prefix;
};

class Sandbox;

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

namespace host
{

/// Registers Flight Simulator 2004 in "C:\FS9", for the time that the sandbox lives.
void installSimulator(const Sandbox &sandbox);

} // namespace host

/// Lets no file grow beyond a size, as a full disk would.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    quint64 m_before = 0;
};
