// SPDX-License-Identifier: MIT
#include "tests/support/sandbox.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace
{

[[noreturn]] void fail(const QString &what)
{
    throw std::runtime_error(what.toStdString());
}

QString made(const QTemporaryDir &folder)
{
    const QDir dir(folder.path());
    if (!folder.isValid() || !dir.mkpath("drive_c/windows/system32") ||
        !dir.mkpath("drive_c/Morlen")) {
        fail("cannot make drives in " + folder.path());
    }
    return folder.path();
}

} // namespace

Sandbox::Sandbox() : m_drives(made(m_dir)), m_oldDirectory(QDir::currentPath())
{
    QDir::setCurrent(host("C:\\Morlen"));
}

Sandbox::~Sandbox()
{
    QDir::setCurrent(m_oldDirectory);
    // A test may have left folders that cannot be read, which could not be removed either.
    QDirIterator folders(m_dir.path(), QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks,
                         QDirIterator::Subdirectories);
    while (folders.hasNext()) {
        QFile::setPermissions(folders.next(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

QString Sandbox::host(const QString &windowsPath) const
{
    return QDir::toNativeSeparators(
        m_dir.filePath("drive_c/" + windowsPath.mid(3).replace('\\', '/')));
}

void Sandbox::makeFolder(const QString &windowsPath) const
{
    if (!QDir().mkpath(host(windowsPath))) {
        fail("cannot make " + windowsPath);
    }
}

void Sandbox::write(const QString &windowsPath, const QByteArray &bytes) const
{
    QDir().mkpath(QFileInfo(host(windowsPath)).path());
    QFile file(host(windowsPath));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        fail("cannot write " + windowsPath);
    }
}

QByteArray Sandbox::read(const QString &windowsPath) const
{
    QFile file(host(windowsPath));
    if (!file.open(QIODevice::ReadOnly)) {
        fail("cannot read " + windowsPath);
    }
    return file.readAll();
}

bool Sandbox::exists(const QString &windowsPath) const
{
    return QFileInfo::exists(host(windowsPath));
}

void Sandbox::addDrive(QChar letter, const QString &windowsPath)
{
    m_drives.add(letter, host(windowsPath));
}
