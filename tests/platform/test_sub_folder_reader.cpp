// SPDX-License-Identifier: MIT
// One file out of each sub-folder, in their order.
#include "platform/files.h"
#include "platform/sub_folder_reader.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <functional>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

const QString folder = QStringLiteral("C:\\FS9");

/// What is found of each aircraft.cfg in turn: "name: content" or "name: failure", nothing without
/// one, and the failure of a sub-folder itself in brackets.
QStringList foundIn(
    const QStringList &subFolders, const QString &parent = folder,
    const std::function<void()> &beforeFirst = [] {})
{
    files::SubFolderReader reader(parent, subFolders, "aircraft.cfg");
    beforeFirst();
    QStringList found;
    for (qsizetype i = 0; i < subFolders.size(); ++i) {
        const QString failure = failureOf([&] {
            const files::FoundFile &file = reader.next();
            found += file.name.isEmpty() ? QString()
                     : file.failure      ? file.name + ": " + file.failure->description()
                                         : file.name + ": " + QString::fromLatin1(file.content);
        });
        if (!failure.isEmpty()) {
            found += '[' + failure + ']';
        }
    }
    return found;
}

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

class TestSubFolderReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreFoundBlindToCase();
    void foldersOfTheNameArePassedOver();
    void moreFilesThanAreOpenedAheadComeInOrder();
    void longAndShortFilesAreReadIntoTheSameMemory();
    void reasonWhyAFileCannotBeReadIsKept();
    void openingAndReadingFailApart();
    void whatIsNoFileOfThisSizeFailsAtOnce();
    void folderThatCannotBeOpenedFails();
    void subFolderThatVanishedFailsAndTheNextIsRead();
    void folderThatVanishedFails();
    void unreadableSubFolderFails();
    void fewDescriptorsAreEnoughForAllFiles_data();
    void fewDescriptorsAreEnoughForAllFiles();
};

void TestSubFolderReader::namesAreFoundBlindToCase()
{
    const Sandbox sandbox;
    sandbox.write("C:\\FS9\\A\\aircraft.cfg", "exact");
    sandbox.write("C:\\FS9\\B\\AIRCRAFT.Cfg", "other case");
    sandbox.write("C:\\FS9\\B\\aircraft.cfg.bak", "another file");
    sandbox.write("C:\\FS9\\C\\model.cfg", "none");
    sandbox.makeFolder("C:\\FS9\\D");
    QCOMPARE(foundIn({"A", "B", "C", "D", "a"}, "c:\\fs9"),
             (QStringList{"aircraft.cfg: exact", "AIRCRAFT.Cfg: other case", "", "",
                          "aircraft.cfg: exact"}));
}

void TestSubFolderReader::foldersOfTheNameArePassedOver()
{
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\FS9\\A\\aircraft.cfg");
    sandbox.makeFolder("C:\\FS9\\B\\aircraft.cfg");
    sandbox.write("C:\\FS9\\B\\AIRCRAFT.CFG", "the file");
    QCOMPARE(foundIn({"A", "B"}), (QStringList{"", "AIRCRAFT.CFG: the file"}));
}

void TestSubFolderReader::moreFilesThanAreOpenedAheadComeInOrder()
{
    const Sandbox sandbox;
    QStringList names;
    QStringList expected;
    for (int i = 0; i < 100; ++i) {
        names += QString::number(i);
        const bool exact = i % 7 != 3;
        const QString name = exact ? "aircraft.cfg" : "Aircraft.cfg";
        sandbox.write(folder + '\\' + names.last() + '\\' + name, QByteArray::number(i));
        expected += name + ": " + names.last();
    }
    QCOMPARE(foundIn(names), expected);
}

void TestSubFolderReader::longAndShortFilesAreReadIntoTheSameMemory()
{
    const Sandbox sandbox;
    const QByteArray big = QByteArray("0123456789").repeated(50'000);
    const QByteArray whole(65536, 'w'); // just fills the usual buffer
    const QList<std::pair<QString, QByteArray>> written = {
        {"Big", big}, {"Small", "small"}, {"Whole", whole}, {"Empty", ""}};
    for (const auto &[name, content] : written) {
        sandbox.write(folder + '\\' + name + "\\aircraft.cfg", content);
    }
    files::SubFolderReader reader(folder, {"Big", "Small", "Whole", "Empty"}, "aircraft.cfg");
    for (const auto &[name, content] : written) {
        const files::FoundFile &found = reader.next();
        QVERIFY(!found.failure);
        QVERIFY2(found.content == content, qPrintable(name));
    }
}

void TestSubFolderReader::reasonWhyAFileCannotBeReadIsKept()
{
    const Sandbox sandbox;
    sandbox.write("C:\\FS9\\A\\aircraft.cfg", "closed");
    sandbox.write("C:\\FS9\\B\\aircraft.cfg", "open");
    sandbox.makeFolder("C:\\FS9\\C");
    QVERIFY(QFile::link("aircraft.cfg", sandbox.host("C:\\FS9\\C\\aircraft.cfg")));
    QVERIFY(QFile::setPermissions(sandbox.host("C:\\FS9\\A\\aircraft.cfg"), QFile::WriteOwner));
    const OrdinaryUser user(sandbox);
    QCOMPARE(foundIn({"A", "B", "C"}),
             (QStringList{"aircraft.cfg: Path/File access error", "aircraft.cfg: open",
                          "aircraft.cfg: Path not found"}));
}

void TestSubFolderReader::openingAndReadingFailApart()
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

void TestSubFolderReader::whatIsNoFileOfThisSizeFailsAtOnce()
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
    QCOMPARE(foundIn({"Device", "Large", "Pipe"}),
             (QStringList{"aircraft.cfg: Path/File access error", "aircraft.cfg: Out of memory",
                          "aircraft.cfg: Path/File access error"}));
}

void TestSubFolderReader::folderThatCannotBeOpenedFails()
{
    const Sandbox sandbox;
    sandbox.write("C:\\File", "");
    for (const char *path : {"C:\\File", "C:\\None"}) {
        QCOMPARE(failureOf([&] { foundIn({"A"}, path); }), "76 Path not found");
    }
    sandbox.makeFolder(folder);
    QVERIFY(QFile::setPermissions(sandbox.host(folder), {}));
    const OrdinaryUser user(sandbox);
    QCOMPARE(failureOf([&] { foundIn({"A"}); }), "75 Path/File access error");
}

void TestSubFolderReader::subFolderThatVanishedFailsAndTheNextIsRead()
{
    const Sandbox sandbox;
    for (const char *name : {"A", "B", "C"}) {
        sandbox.write(folder + '\\' + name + "\\aircraft.cfg", name);
    }
    const auto vanish = [&] {
        QVERIFY(QDir(sandbox.host("C:\\FS9\\A")).removeRecursively());
        QVERIFY(QDir(sandbox.host("C:\\FS9\\B")).removeRecursively());
        sandbox.write("C:\\FS9\\B", "a file now");
    };
    QCOMPARE(foundIn({"A", "B", "C"}, folder, vanish),
             (QStringList{"[76 Path not found]", "[76 Path not found]", "aircraft.cfg: C"}));
}

void TestSubFolderReader::folderThatVanishedFails()
{
    const Sandbox sandbox;
    sandbox.write("C:\\FS9\\A\\aircraft.cfg", "");
    const auto vanish = [&] { QVERIFY(QDir(sandbox.host(folder)).removeRecursively()); };
    QCOMPARE(foundIn({"A"}, folder, vanish), QStringList{"[76 Path not found]"});
}

void TestSubFolderReader::unreadableSubFolderFails()
{
    const Sandbox sandbox;
    sandbox.write("C:\\FS9\\A\\aircraft.cfg", "");
    QVERIFY(QFile::setPermissions(sandbox.host("C:\\FS9\\A"), {}));
    const OrdinaryUser user(sandbox);
    QCOMPARE(foundIn({"A"}), QStringList{"[75 Path/File access error]"});
}

void TestSubFolderReader::fewDescriptorsAreEnoughForAllFiles_data()
{
    QTest::addColumn<int>("free");
    for (const int free : {3, 10, 16, 33, 40, 60}) {
        QTest::newRow(qPrintable(QString::number(free))) << free;
    }
}

void TestSubFolderReader::fewDescriptorsAreEnoughForAllFiles()
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

QTEST_GUILESS_MAIN(TestSubFolderReader)
#include "test_sub_folder_reader.moc"
