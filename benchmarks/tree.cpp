// SPDX-License-Identifier: MIT
#include "benchmarks/tree.h"

#include <QFile>
#include <QProcess>

#include <array>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace benchmark_tree
{

namespace
{

const QString airportList = QStringLiteral("C:\\windows\\system32\\ZENTAM.OCX");
constexpr int usualCount = 5000; // of folders; as many titles are in the text file
constexpr int titlesPerFolder = 4;

QString title(int folder, int variation)
{
    static const std::array<const char *, 5> types = {
        "Boeing 737-800", "Airbus A320-200", "Embraer ERJ-145", "Bombardier CRJ-700", "ATR 72-500"};
    return QStringLiteral("AI %1 Livery %2 paint %3")
        .arg(types.at(static_cast<std::size_t>(folder) % types.size()))
        .arg(folder, 4, 10, QChar('0'))
        .arg(variation);
}

QString speed(int folder)
{
    return QString::number(250 + folder % 250);
}

QString folderName(int folder)
{
    return QStringLiteral("ai_%1").arg(folder, 4, 10, QChar('0'));
}

/// Lines such as a flight model is full of, until the text has so many bytes.
void pad(QByteArray &text, qsizetype size)
{
    for (int i = 0; text.size() < size; ++i) {
        text +=
            "parameter_" + QByteArray::number(i) + " = 0.1234, -5.678, 9.0 // tuned by hand\r\n";
    }
}

QByteArray aircraftCfg(int folder)
{
    const qsizetype size = 6000 + folder * 7919 % 6000;
    QByteArray text;
    for (int i = 0; i < titlesPerFolder; ++i) {
        text += "[fltsim." + QByteArray::number(i) + "]\r\ntitle=" + title(folder, i).toLatin1() +
                "\r\nsim=model\r\ntexture=" + QByteArray::number(i) +
                "\r\nui_manufacturer=AI\r\nui_type=Type\r\nui_variation=Paint\r\n\r\n";
    }
    pad(text, size * 2 / 3);
    text += "cruise_speed = " + speed(folder).toLatin1() + " // knots, true airspeed\r\n";
    pad(text, size);
    return text;
}

qint64 readWhole(const std::string &path, std::string &buffer)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    qint64 total = 0;
    for (ssize_t count = 0; (count = ::read(file, buffer.data(), buffer.size())) > 0;) {
        total += count;
    }
    ::close(file);
    return total;
}

template <typename Visit>
void forEachCfg(const Sandbox &sandbox, Visit visit)
{
    const std::string root = sandbox.host(aircraftDir).toStdString();
    DIR *const folders = ::opendir(root.c_str());
    while (const dirent *entry = ::readdir(folders)) {
        if (entry->d_name[0] != '.') {
            visit(root + '/' + entry->d_name + "/aircraft.cfg");
        }
    }
    ::closedir(folders);
}

} // namespace

void make(const Sandbox &sandbox, int folders)
{
    for (int folder = 0; folder < folders; ++folder) {
        sandbox.write(aircraftDir + '\\' + folderName(folder) + "\\aircraft.cfg",
                      aircraftCfg(folder));
    }
    sandbox.write(textFile, existingLines().join("\r\n").toLatin1() + "\r\n");
    ::sync(); // only what is on the disk can be dropped from the cache
}

void dropFromCache(const Sandbox &sandbox)
{
    forEachCfg(sandbox, [](const std::string &path) {
        const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
    });
}

void grep(const Sandbox &sandbox)
{
    QProcess process;
    process.start("grep", {"-rihE", "^(title|cruise_speed)", sandbox.host(aircraftDir)});
    process.waitForFinished(-1);
    if (process.readAllStandardOutput().isEmpty()) {
        qFatal("grep found nothing");
    }
}

void addAirportList(const Sandbox &sandbox)
{
    QFile shipped(MORLEN_AIRPORT_LIST);
    if (!shipped.open(QIODevice::ReadOnly)) {
        qFatal("no airport list");
    }
    sandbox.write(airportList, shipped.readAll());
}

qint64 readAirportList(const Sandbox &sandbox)
{
    QFile file(sandbox.host(airportList));
    qint64 total = 0;
    if (file.open(QIODevice::ReadOnly)) {
        while (!file.atEnd()) {
            total += file.readLine().size();
        }
    }
    return total;
}

qint64 bareWalk(const Sandbox &sandbox)
{
    static std::string buffer(1 << 16, '\0');
    qint64 total = readWhole(sandbox.host(textFile).toStdString(), buffer);
    forEachCfg(sandbox, [&](const std::string &path) { total += readWhole(path, buffer); });
    return total;
}

QStringList availableEntries()
{
    QStringList entries;
    for (int folder = 0; folder < usualCount; ++folder) {
        for (int i = 0; i < titlesPerFolder; ++i) {
            entries += title(folder, i) + ' ' + speed(folder);
        }
    }
    return entries;
}

QStringList existingLines()
{
    QStringList lines;
    for (int folder = 0; folder < usualCount; ++folder) {
        lines += QStringLiteral("AC#%1,%2,\"%3\"")
                     .arg(QString::number(folder + 1), speed(folder),
                          title(folder, folder % titlesPerFolder));
    }
    return lines;
}

} // namespace benchmark_tree
