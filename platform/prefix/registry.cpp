// SPDX-License-Identifier: MIT
// The registry of the Wine prefix that the program lives in.
#include "platform/registry.h"

#include "platform/blind_to_case.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/prefix/descriptor.h"
#include "platform/prefix/host_command.h"
#include "platform/prefix/prefix.h"
#include "platform/prefix/reg_file.h"
#include "platform/prefix/wine_server.h"
#include "platform/runtime_error.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace
{

QString fileOf(RegistryHive hive)
{
    return paths::prefix() +
           (hive == RegistryHive::LocalMachine ? u"/system.reg"_s : u"/user.reg"_s);
}

/// A missing file is an empty registry. One that cannot be read is none at all: it would be written
/// back without what it holds.
QByteArray readFile(const QString &path)
{
    return files::openIfThere(QFile::encodeName(path), O_RDONLY) ? files::readAll(path)
                                                                 : QByteArray();
}

/// The keys a 32-bit program sees under the name it asks for, the first first.
QStringList viewsOf(RegistryHive hive, const QString &key)
{
    const QString software = u"Software\\"_s;
    if (hive == RegistryHive::LocalMachine && blind_to_case::startsWith(key, software)) {
        return {software + u"Wow6432Node\\"_s + key.sliced(software.size()), key};
    }
    return {key};
}

/// Has Wine itself write, which holds the registry in memory while it runs.
void addWithWine(RegistryHive hive, const QString &key, const QStringList &value)
{
    constexpr int longestWait = 30'000; // milliseconds; a start-up must not hang on it
    const QString root = hive == RegistryHive::LocalMachine ? u"HKLM\\"_s : u"HKCU\\"_s;
    const QString program = programOnPath(u"wine"_s);
    if (program.isEmpty()) {
        throw RuntimeError(ErrorNumber::FileNotFound, u"wine"_s);
    }
    QProcess wine;
    wine.start(program, QStringList{u"reg"_s, u"add"_s, root + key} + value + QStringList{u"/f"_s});
    if (!wine.waitForFinished(longestWait) || wine.exitStatus() != QProcess::NormalExit ||
        wine.exitCode() != 0) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
}

class PrefixRegistry : public Registry
{
public:
    std::optional<RegistryData> value(RegistryHive hive, const QString &key,
                                      const QString &name) const override
    {
        const RegFile &file = current(hive).file;
        for (const QString &view : viewsOf(hive, key)) {
            if (const auto found = file.value(view, name)) {
                return found;
            }
        }
        return std::nullopt;
    }

    void createKey(RegistryHive hive, const QString &key) override
    {
        change(hive, key, {}, [&](RegFile &file, const QString &view, qint64 time) {
            file.createKey(view, time);
        });
    }

    void setValue(RegistryHive hive, const QString &key, const QString &name,
                  const RegistryData &data) override
    {
        const auto *text = std::get_if<QString>(&data);
        const QStringList forWine = {
            u"/v"_s, name,
            u"/t"_s, text != nullptr ? u"REG_SZ"_s : u"REG_DWORD"_s,
            u"/d"_s, text != nullptr ? *text : QString::number(std::get<std::uint32_t>(data))};
        change(hive, key, forWine, [&](RegFile &file, const QString &view, qint64 time) {
            file.setValue(view, name, data, time);
        });
    }

private:
    /// One file as last read, with what Wine was told since; read again when it has changed.
    struct Cached {
        RegFile file{QByteArray()};
        QString path;
        QDateTime time;
        qint64 size = -1;
    };

    Cached &current(RegistryHive hive) const
    {
        Cached &cached = m_cached[hive == RegistryHive::LocalMachine ? 0 : 1];
        const QFileInfo info(fileOf(hive));
        if (cached.path != info.filePath() || cached.time != info.lastModified() ||
            cached.size != info.size()) {
            cached = {RegFile(readFile(info.filePath())), info.filePath(), info.lastModified(),
                      info.size()};
        }
        return cached;
    }

    template <typename Edit>
    void change(RegistryHive hive, const QString &key, const QStringList &forWine, Edit edit)
    {
        const QString path = fileOf(hive);
        const bool isHeld = isWineRunning(paths::prefix());
        RegFile file = isHeld ? current(hive).file : RegFile(readFile(path));
        const QByteArray before = file.bytes();
        edit(file, viewsOf(hive, key).first(), QDateTime::currentSecsSinceEpoch());
        if (file.bytes() == before) {
            return;
        }
        if (isHeld) {
            addWithWine(hive, viewsOf(hive, key).first(), forWine);
            current(hive).file = file; // Wine itself saves only now and then
        } else {
            files::writeAll(path, file.bytes());
        }
    }

    mutable Cached m_cached[2];
};

} // namespace

std::unique_ptr<Registry> systemRegistry()
{
    return std::make_unique<PrefixRegistry>();
}
