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
    void folderThatCannotBeOpenedFails();
    void subFolderThatVanishedFailsAndTheNextIsRead();
    void folderThatVanishedFails();
    void unreadableSubFolderFails();
};

void TestSubFolderReader::namesAreFoundBlindToCase()
{
    NEEDS(casesApart);
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
    NEEDS(casesApart);
    const Sandbox sandbox;
    sandbox.makeFolder("C:\\FS9\\A\\aircraft.cfg");
    sandbox.makeFolder("C:\\FS9\\B\\aircraft.cfg");
    sandbox.write("C:\\FS9\\B\\AIRCRAFT.CFG", "the file");
    QCOMPARE(foundIn({"A", "B"}), (QStringList{"", "AIRCRAFT.CFG: the file"}));
}

void TestSubFolderReader::moreFilesThanAreOpenedAheadComeInOrder()
{
    NEEDS(casesApart);
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
    NEEDS(permissions);
    NEEDS(links);
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

void TestSubFolderReader::folderThatCannotBeOpenedFails()
{
    NEEDS(permissions);
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
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write("C:\\FS9\\A\\aircraft.cfg", "");
    QVERIFY(QFile::setPermissions(sandbox.host("C:\\FS9\\A"), {}));
    const OrdinaryUser user(sandbox);
    QCOMPARE(foundIn({"A"}), QStringList{"[75 Path/File access error]"});
}

QTEST_GUILESS_MAIN(TestSubFolderReader)
#include "test_sub_folder_reader.moc"
