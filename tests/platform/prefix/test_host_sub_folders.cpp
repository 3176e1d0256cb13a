// SPDX-License-Identifier: MIT
// Files of aircraft folders that a host can hold against us: pipes, devices, too many open ones.
#include "platform/files.h"
#include "platform/sub_folder_reader.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

const QString folder = QStringLiteral("C:\\FS9");

/// Leaves the process so many descriptors.
class DescriptorLimit
{
public:
    explicit DescriptorLimit(int free)
    {
        const int lowest = ::dup(STDIN_FILENO);
        ::close(lowest);
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit limit = {static_cast<rlim_t>(lowest + free), m_before.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }

    ~DescriptorLimit() { ::setrlimit(RLIMIT_NOFILE, &m_before); }

    DescriptorLimit(const DescriptorLimit &) = delete;
    DescriptorLimit &operator=(const DescriptorLimit &) = delete;

private:
    rlimit m_before = {};
};

} // namespace

class TestHostSubFolders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openingAndReadingFailApart();
    void whatIsNoFileOfThisSizeFailsAtOnce();
    void fewDescriptorsAreEnoughForAllFiles_data();
    void fewDescriptorsAreEnoughForAllFiles();
};

void TestHostSubFolders::openingAndReadingFailApart()
{
    const Sandbox sandbox;
    for (const char *name : {"A", "B"}) {
        sandbox.makeFolder(folder + '\\' + name);
    }
    QVERIFY(QFile::link("nowhere", sandbox.host("C:\\FS9\\A\\aircraft.cfg")));
    QVERIFY(QFile::link("/proc/self/mem", sandbox.host("C:\\FS9\\B\\aircraft.cfg")));
    files::SubFolderReader reader(folder, {"A", "B"}, "aircraft.cfg");
    const files::FoundFile notOpened = reader.next();
    QVERIFY(!notOpened.opened);
    QCOMPARE(notOpened.failure->description(), QString("File not found"));
    const files::FoundFile notRead = reader.next();
    QVERIFY(notRead.opened);
    QCOMPARE(notRead.failure->description(), QString("Device I/O error"));
}

void TestHostSubFolders::whatIsNoFileOfThisSizeFailsAtOnce()
{
    const Sandbox sandbox;
    for (const QString name : {"Device", "Large", "Pipe"}) {
        sandbox.makeFolder(folder + '\\' + name);
    }
    QVERIFY(QFile::link("/dev/zero", sandbox.host("C:\\FS9\\Device\\aircraft.cfg")));
    sandbox.write("C:\\FS9\\Large\\aircraft.cfg", {});
    QVERIFY(QFile::resize(sandbox.host("C:\\FS9\\Large\\aircraft.cfg"), (256 << 20) + 1));
    const QByteArray pipe = QFile::encodeName(sandbox.host("C:\\FS9\\Pipe\\aircraft.cfg"));
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    files::SubFolderReader reader(folder, {"Device", "Large", "Pipe"}, "aircraft.cfg");
    for (const char *failure :
         {"Path/File access error", "Out of memory", "Path/File access error"}) {
        QCOMPARE(reader.next().failure->description(), QString(failure));
    }
}

void TestHostSubFolders::fewDescriptorsAreEnoughForAllFiles_data()
{
    QTest::addColumn<int>("free");
    for (const int free : {3, 10, 16, 33, 40, 60}) {
        QTest::newRow(qPrintable(QString::number(free))) << free;
    }
}

void TestHostSubFolders::fewDescriptorsAreEnoughForAllFiles()
{
    QFETCH(int, free);
    const Sandbox sandbox;
    QStringList names;
    for (int i = 0; i < 100; ++i) {
        names += QString::number(i);
        sandbox.write(folder + '\\' + names.last() +
                          (i % 3 == 0 ? "\\AIRCRAFT.CFG" : "\\aircraft.cfg"),
                      QByteArray::number(i));
    }
    files::SubFolderReader reader(folder, names, "aircraft.cfg");
    const DescriptorLimit limit(free);
    for (const QString &name : names) {
        const files::FoundFile &found = reader.next();
        QVERIFY(!found.failure);
        QCOMPARE(found.content, name.toLatin1());
        // Who works on the file can open others.
        QCOMPARE(files::filesMatching(folder + '\\' + name, "*.cfg").size(), 1);
    }
}

QTEST_GUILESS_MAIN(TestHostSubFolders)
#include "test_host_sub_folders.moc"
