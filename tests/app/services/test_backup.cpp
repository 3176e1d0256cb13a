// SPDX-License-Identifier: MIT
// Two generations of copies, and what happens when they cannot be made.
#include "app/services/backup.h"

#include "tests/support/host.h"
#include "tests/support/sandbox.h"
#include "tests/support/steps.h"

#include <QDir>
#include <QtTest>

namespace
{

const QString folder = QStringLiteral("C:\\TTools");
const QString source = QStringLiteral("C:\\TTools\\Aircraft_Set.txt");
const QString backup1 = source + ".Backup1";
const QString backup2 = source + ".Backup2";

/// What is in the folder of the text file.
QStringList fileNames(const Sandbox &sandbox)
{
    return QDir(sandbox.host(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

/// The failure of a backup and its step: "53 File not found: Open C:\x.txt"; empty without one.
QString failureOfBackup(const QString &path = source)
{
    return Steps().failureOf([&](Step &step) { DoBackup(path, step); });
}

} // namespace

class TestBackup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyFileIsNotBackedUpAndNoBackupIsCreated();
    void firstBackupIsGeneration1();
    void generation1OfTenBytesOrFewerCountsAsAbsentAndGeneration2IsLeft_data();
    void generation1OfTenBytesOrFewerCountsAsAbsentAndGeneration2IsLeft();
    void generation1OfElevenBytesMovesToGeneration2();
    void generation1MovesToGeneration2OverAnOlderOne();
    void onlyGeneration1IsExamined();
    void threeChangesLeaveTheLastTwo();
    void everyByteIsCopied();
    void backupsAreNamedBehindTheWholeName_data();
    void backupsAreNamedBehindTheWholeName();
    void stepOfTheCallerStandsAgainAfterwards();
    void failedShiftIsNamedAsTheCopyItIs();
    void missingSourceFailsAtOpeningTheSource();
    void missingFolderFails();
    void folderInPlaceOfTheSourceFails();
    void folderInPlaceOfTheBackupFails();
    void readOnlyFolderFailsAtOpeningTheBackup();
    void readOnlyFolderLeavesBothGenerations();
    void plantedLinksAreNotFollowed();
    void backupIsAsPrivateAsItsSource();
    void readOnlyBackupFailsAndStays();
    void fullDiskLeavesNoHalfBackup_data();
    void fullDiskLeavesNoHalfBackup();
    void fullDiskWhileShiftingLeavesBothGenerations();
    void fullDiskAfterShiftingLeavesTheFormerCopy();
};

void TestBackup::emptyFileIsNotBackedUpAndNoBackupIsCreated()
{
    const Sandbox sandbox;
    sandbox.write(source, "");
    QCOMPARE(failureOfBackup(), QString());
    QCOMPARE(fileNames(sandbox), QStringList{"Aircraft_Set.txt"});

    sandbox.write(backup1, "an earlier copy");
    QCOMPARE(failureOfBackup(), QString());
    QCOMPARE(sandbox.read(backup1), QByteArray("an earlier copy"));
    QVERIFY(!sandbox.exists(backup2));
}

void TestBackup::firstBackupIsGeneration1()
{
    const Sandbox sandbox;
    sandbox.write(source, "AC#1,477,\"Boeing\"\r\n");
    QCOMPARE(failureOfBackup(), QString());
    QCOMPARE(sandbox.read(source), QByteArray("AC#1,477,\"Boeing\"\r\n"));
    QCOMPARE(sandbox.read(backup1), QByteArray("AC#1,477,\"Boeing\"\r\n"));
    QVERIFY(!sandbox.exists(backup2));
}

void TestBackup::generation1OfTenBytesOrFewerCountsAsAbsentAndGeneration2IsLeft_data()
{
    QTest::addColumn<QByteArray>("earlier");
    QTest::newRow("0 bytes") << QByteArray();
    QTest::newRow("1 byte") << QByteArray("1");
    QTest::newRow("10 bytes") << QByteArray("1234567890");
}

void TestBackup::generation1OfTenBytesOrFewerCountsAsAbsentAndGeneration2IsLeft()
{
    QFETCH(QByteArray, earlier);
    const Sandbox sandbox;
    sandbox.write(source, "the source of now");
    sandbox.write(backup1, earlier);
    sandbox.write(backup2, "a copy of long ago");
    QCOMPARE(failureOfBackup(), QString());
    QCOMPARE(sandbox.read(backup1), QByteArray("the source of now"));
    QCOMPARE(sandbox.read(backup2), QByteArray("a copy of long ago"));
}

void TestBackup::generation1OfElevenBytesMovesToGeneration2()
{
    const Sandbox sandbox;
    sandbox.write(source, "x");
    sandbox.write(backup1, "12345678901");
    QCOMPARE(failureOfBackup(), QString());
    QCOMPARE(sandbox.read(backup1), QByteArray("x"));
    QCOMPARE(sandbox.read(backup2), QByteArray("12345678901"));
}

void TestBackup::generation1MovesToGeneration2OverAnOlderOne()
{
    const Sandbox sandbox;
    sandbox.write(source, "the source of now");
    sandbox.write(backup1, "a copy of yesterday");
    sandbox.write(backup2, "a longer copy of the day before yesterday");
    QCOMPARE(failureOfBackup(), QString());
    QCOMPARE(sandbox.read(backup1), QByteArray("the source of now"));
    QCOMPARE(sandbox.read(backup2), QByteArray("a copy of yesterday"));
}

void TestBackup::onlyGeneration1IsExamined()
{
    const Sandbox sandbox;
    sandbox.write(source, "the source of now");
    sandbox.write(backup2, "tiny");
    sandbox.write(source + ".Backup3", "a third copy, by hand");
    QCOMPARE(failureOfBackup(), QString());
    QCOMPARE(sandbox.read(backup1), QByteArray("the source of now"));
    QCOMPARE(sandbox.read(backup2), QByteArray("tiny")); // examined, it would be deleted
    QCOMPARE(sandbox.read(source + ".Backup3"), QByteArray("a third copy, by hand"));
}

void TestBackup::threeChangesLeaveTheLastTwo()
{
    const Sandbox sandbox;
    for (const QByteArray content : {"the first content", "the second content", "the third one"}) {
        sandbox.write(source, content);
        QCOMPARE(failureOfBackup(), QString());
    }
    QCOMPARE(sandbox.read(backup1), QByteArray("the third one"));
    QCOMPARE(sandbox.read(backup2), QByteArray("the second content"));
    QCOMPARE(fileNames(sandbox), (QStringList{"Aircraft_Set.txt", "Aircraft_Set.txt.Backup1",
                                              "Aircraft_Set.txt.Backup2"}));
}

void TestBackup::everyByteIsCopied()
{
    QByteArray bytes;
    for (int i = 0; i < 1'000'000; ++i) {
        bytes += static_cast<char>(i * 7 % 256);
    }
    const Sandbox sandbox;
    sandbox.write(source, bytes);
    QCOMPARE(failureOfBackup(), QString());
    QCOMPARE(sandbox.read(backup1), bytes);
}

void TestBackup::backupsAreNamedBehindTheWholeName_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("blanks") << "C:\\My Files\\aircraft set.txt";
    QTest::newRow("two dots") << "C:\\TTools\\Aircraft.old.txt";
    QTest::newRow("no extension") << "C:\\TTools\\Aircraft";
    QTest::newRow("accent") << QString::fromUtf8("C:\\TTools\\Aircraft_été.txt");
    QTest::newRow("doubled backslash") << "C:\\TTools\\\\Aircraft.txt";
}

void TestBackup::backupsAreNamedBehindTheWholeName()
{
    QFETCH(QString, path);
    const Sandbox sandbox;
    sandbox.write(path, "the first content");
    QCOMPARE(failureOfBackup(path), QString());
    sandbox.write(path, "the second content");
    QCOMPARE(failureOfBackup(path), QString());
    QCOMPARE(sandbox.read(path + ".Backup1"), QByteArray("the second content"));
    QCOMPARE(sandbox.read(path + ".Backup2"), QByteArray("the first content"));
}

void TestBackup::stepOfTheCallerStandsAgainAfterwards()
{
    const Sandbox sandbox;
    sandbox.write(source, "content");
    Steps steps;
    steps.step.set("Creating the set");
    DoBackup(source, steps.step);
    QCOMPARE(steps.ErrMsg, QString("Creating the set"));
}

void TestBackup::failedShiftIsNamedAsTheCopyItIs()
{
    const Sandbox sandbox;
    sandbox.write(source, "content");
    sandbox.write(backup1, "content of before");
    sandbox.makeFolder(backup2);
    QCOMPARE(failureOfBackup(), "75 Path/File access error: File Copy Backup");
}

void TestBackup::missingSourceFailsAtOpeningTheSource()
{
    const Sandbox sandbox;
    sandbox.makeFolder(folder);
    QCOMPARE(failureOfBackup(), "53 File not found: Open " + source);
    QCOMPARE(fileNames(sandbox), QStringList());
}

void TestBackup::missingFolderFails()
{
    const Sandbox sandbox;
    QCOMPARE(failureOfBackup(), "76 Path not found: Open " + source);
}

void TestBackup::folderInPlaceOfTheSourceFails()
{
    const Sandbox sandbox;
    sandbox.makeFolder(source);
    QCOMPARE(failureOfBackup(), "75 Path/File access error: Open " + source);
    QCOMPARE(fileNames(sandbox), QStringList());
}

void TestBackup::folderInPlaceOfTheBackupFails()
{
    const Sandbox sandbox;
    sandbox.write(source, "content");
    sandbox.makeFolder(backup1);
    QCOMPARE(failureOfBackup(), "75 Path/File access error: Open " + backup1);
    QVERIFY(sandbox.exists(backup1));
}

void TestBackup::readOnlyFolderFailsAtOpeningTheBackup()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write(source, "content");
    const OrdinaryUser user(sandbox);
    QVERIFY(QFile::setPermissions(sandbox.host(folder), QFile::ReadOwner | QFile::ExeOwner));
    QCOMPARE(failureOfBackup(), "75 Path/File access error: Open " + backup1);
    QCOMPARE(fileNames(sandbox), QStringList{"Aircraft_Set.txt"});
}

void TestBackup::readOnlyFolderLeavesBothGenerations()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write(source, "the source of now");
    sandbox.write(backup1, "a copy of yesterday");
    sandbox.write(backup2, "a copy of the day before yesterday");
    QVERIFY(QFile::setPermissions(sandbox.host(folder), QFile::ReadOwner | QFile::ExeOwner));
    const OrdinaryUser user(sandbox);
    QCOMPARE(failureOfBackup(), QString("75 Path/File access error: File Copy Backup"));
    QCOMPARE(sandbox.read(backup1), QByteArray("a copy of yesterday"));
    QCOMPARE(sandbox.read(backup2), QByteArray("a copy of the day before yesterday"));
}

void TestBackup::plantedLinksAreNotFollowed()
{
    NEEDS(links);
    const Sandbox sandbox;
    sandbox.write("C:\\Elsewhere\\real.txt", "somebody's own file");
    sandbox.write(source, "the source of now");
    QVERIFY(QFile::link("../Elsewhere/new.txt", sandbox.host(backup1)));
    QCOMPARE(failureOfBackup(), "76 Path not found: Open " + backup1);
    QVERIFY(!sandbox.exists("C:\\Elsewhere\\new.txt"));

    QVERIFY(QFile::remove(sandbox.host(backup1)));
    sandbox.write(backup1, "a copy of yesterday");
    QVERIFY(QFile::link("../Elsewhere/real.txt", sandbox.host(backup2)));
    QCOMPARE(failureOfBackup(), QString());
    QCOMPARE(sandbox.read("C:\\Elsewhere\\real.txt"), QByteArray("somebody's own file"));
    QCOMPARE(sandbox.read(backup2), QByteArray("a copy of yesterday"));
}

void TestBackup::backupIsAsPrivateAsItsSource()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write(source, "the source of now");
    QVERIFY(QFile::setPermissions(sandbox.host(source), QFile::ReadOwner | QFile::WriteOwner));
    for (const QString &backup : {backup1, backup2}) {
        QCOMPARE(failureOfBackup(), QString());
        QVERIFY(
            !(QFile::permissions(sandbox.host(backup)) & (QFile::ReadGroup | QFile::ReadOther)));
    }
}

void TestBackup::readOnlyBackupFailsAndStays()
{
    NEEDS(permissions);
    const Sandbox sandbox;
    sandbox.write(source, "content");
    sandbox.write(backup1, "a protected copy");
    const OrdinaryUser user(sandbox);
    QVERIFY(QFile::setPermissions(sandbox.host(backup1), QFile::ReadOwner));
    QCOMPARE(failureOfBackup(), "75 Path/File access error: Open " + backup1);
    QCOMPARE(sandbox.read(backup1), QByteArray("a protected copy"));
    QVERIFY(!sandbox.exists(backup2));
}

void TestBackup::fullDiskLeavesNoHalfBackup_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("small enough to be buffered") << 200;
    QTest::newRow("large") << 100'000;
}

void TestBackup::fullDiskLeavesNoHalfBackup()
{
    NEEDS(sizeLimit);
    QFETCH(int, length);
    const Sandbox sandbox;
    sandbox.write(source, QByteArray(length, 's'));
    {
        const FileSizeLimit limit(length / 2);
        QCOMPARE(failureOfBackup(), QString("61 Disk full: File Copy Backup"));
    }
    QCOMPARE(fileNames(sandbox), QStringList{"Aircraft_Set.txt"});
    QCOMPARE(sandbox.read(source), QByteArray(length, 's'));
}

void TestBackup::fullDiskWhileShiftingLeavesBothGenerations()
{
    NEEDS(sizeLimit);
    const Sandbox sandbox;
    sandbox.write(source, "the source of now");
    sandbox.write(backup1, QByteArray(100'000, '1'));
    sandbox.write(backup2, "a copy of long ago");
    {
        const FileSizeLimit limit(50'000);
        QCOMPARE(failureOfBackup(), "61 Disk full: File Copy Backup");
    }
    QCOMPARE(sandbox.read(backup1), QByteArray(100'000, '1'));
    QCOMPARE(sandbox.read(backup2), QByteArray("a copy of long ago"));
}

void TestBackup::fullDiskAfterShiftingLeavesTheFormerCopy()
{
    NEEDS(sizeLimit);
    const Sandbox sandbox;
    sandbox.write(source, QByteArray(100'000, 's'));
    sandbox.write(backup1, "a copy of yesterday");
    {
        const FileSizeLimit limit(50'000);
        QCOMPARE(failureOfBackup(), "61 Disk full: File Copy Backup");
    }
    QCOMPARE(sandbox.read(backup2), QByteArray("a copy of yesterday"));
    QCOMPARE(fileNames(sandbox), (QStringList{"Aircraft_Set.txt", "Aircraft_Set.txt.Backup2"}));
}

QTEST_APPLESS_MAIN(TestBackup)
#include "test_backup.moc"
