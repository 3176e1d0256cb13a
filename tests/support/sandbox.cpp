// SPDX-License-Identifier: MIT
#include "tests/support/sandbox.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

#include <unistd.h>

namespace
{

constexpr uid_t nobody = 65534;

[[noreturn]] void fail(const QString &what)
{
    throw std::runtime_error(what.toStdString());
}

} // namespace

Sandbox::Sandbox()
    : m_prefix("WINEPREFIX", QFile::encodeName(m_dir.path())), m_oldDirectory(QDir::currentPath())
{
    const QDir dir(m_dir.path());
    if (!m_dir.isValid() || !dir.mkpath("drive_c/windows/system32") ||
        !dir.mkpath("drive_c/Morlen") || !dir.mkpath("dosdevices")) {
        fail("cannot make a prefix in " + m_dir.path());
    }
    QFile::link("../drive_c", dir.filePath("dosdevices/c:"));
    QFile::link("/", dir.filePath("dosdevices/z:"));
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
    return m_dir.filePath("drive_c/" + windowsPath.mid(3).replace('\\', '/'));
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

OrdinaryUser::OrdinaryUser(const Sandbox &sandbox)
{
    if (geteuid() != 0) {
        return;
    }
    const auto own = [](const QString &path) {
        return lchown(QFile::encodeName(path).constData(), nobody, nobody) == 0;
    };
    QDirIterator all(sandbox.prefix(),
                     QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                     QDirIterator::Subdirectories);
    bool good = own(sandbox.prefix());
    while (all.hasNext()) {
        good = own(all.next()) && good;
    }
    if (!good || seteuid(nobody) != 0) {
        fail("cannot become an ordinary user");
    }
}

OrdinaryUser::~OrdinaryUser()
{
    if (getuid() == 0 && seteuid(0) != 0) {
        qFatal("cannot become root again");
    }
}
