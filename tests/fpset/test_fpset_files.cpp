// SPDX-License-Identifier: MIT
// Creating, copying and deleting the files of a set: clear errors, and nothing lost.
#include "fpset/fpset_files.h"

#include "platform/files.h"
#include "tests/support/failure.h"
#include "tests/support/host.h"
#include "tests/support/sandbox.h"
#include "tests/support/steps.h"

#include <QDir>
#include <QFile>
#include <QtTest>

namespace
{

using fpset_files::Discarded;

const QString target = QStringLiteral("C:\\TTools\\Airports_Alpha.txt");
const QString source = QStringLiteral("C:\\TTools\\Airports_Old.txt");

/// Files, a step under way, and a trash of the test's own.
struct Desk {
    Desk()
    {
        step.set("The step");
        sandbox.makeFolder("C:\\TTools");
    }

    QStringList trashed() const
    {
        return QDir(sandbox.host("C:\\share") + "/Trash/files").entryList(QDir::Files);
    }

    QStringList files() const
    {
        return QDir(sandbox.host("C:\\TTools")).entryList(QDir::Files | QDir::Hidden);
    }

    QString copy(const QString &from = source, const QString &to = target)
    {
        return failureOf([&] { fpset_files::copy(from, to, step); });
    }

    QString createEmpty()
    {
        return failureOf([&] { fpset_files::createEmpty(target, step); });
    }

    Sandbox sandbox;
    Environment dataHome{"XDG_DATA_HOME", QFile::encodeName(sandbox.host("C:\\share"))};
    Steps steps;
    Step &step = steps.step;
};

} // namespace

class TestFpSetFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingFileIsMadeEmpty();
    void existingFileStaysAsItIs();
    void newFileIsEmptyAndAlone();
    void emptiedFileIsBackedUpFirst();
    void emptiedTwiceKeepsTwoGenerations();
    void copyIsExactToTheByte();
    void copyOfAnEmptyFileIsEmpty();
    void overwrittenFileIsBackedUpFirst();
    void copyingTheSameAgainKeepsTheBackups();
    void badCopySourceIsAnErrorAndTheTargetStays_data();
    void badCopySourceIsAnErrorAndTheTargetStays();
    void targetItselfAsSourceIsAnErrorInEverySpelling_data();
    void targetItselfAsSourceIsAnErrorInEverySpelling();
    void linkToTheTargetAsSourceIsAnError();
    void targetThatIsAFolderIsAnError();
    void nameWindowsRefusesIsAnError();
    void nameOf300CharactersIsAnError();
    void accentedNameIsCreated();
    void readOnlyDirectoryIsAnErrorAndNothingIsLost();
    void readOnlyTargetIsAnErrorAndNothingIsLost();
    void fullDiskIsAnErrorAndTheTargetStays();
    void goneDirectoryIsAnError();
    void discardedFileGoesToTheTrash();
    void withoutATrashTheContentIsBackedUp();
    void discardingWhatIsNotThereDoesNothing();
};

void TestFpSetFiles::missingFileIsMadeEmpty()
{
    const Desk desk;
    fpset_files::ensureExists(target);
    QCOMPARE(desk.sandbox.read(target), QByteArray());
}

void TestFpSetFiles::existingFileStaysAsItIs()
{
    const Desk desk;
    desk.sandbox.write(target, "KSEA\n");
    fpset_files::ensureExists(target);
    QCOMPARE(desk.sandbox.read(target), QByteArray("KSEA\n"));
    QCOMPARE(desk.files(), (QStringList{"Airports_Alpha.txt"}));
}

void TestFpSetFiles::newFileIsEmptyAndAlone()
{
    Desk desk;
    QCOMPARE(desk.createEmpty(), QString());
    QCOMPARE(desk.sandbox.read(target), QByteArray());
    QCOMPARE(desk.files(), (QStringList{"Airports_Alpha.txt"}));
}

void TestFpSetFiles::emptiedFileIsBackedUpFirst()
{
    Desk desk;
    desk.sandbox.write(target, "what was there");
    QCOMPARE(desk.createEmpty(), QString());
    QCOMPARE(desk.sandbox.read(target), QByteArray());
    QCOMPARE(desk.sandbox.read(target + ".Backup1"), QByteArray("what was there"));
    QCOMPARE(desk.steps.ErrMsg, QString("The step"));
}

void TestFpSetFiles::emptiedTwiceKeepsTwoGenerations()
{
    Desk desk;
    desk.sandbox.write(target, "the first content");
    desk.createEmpty();
    desk.sandbox.write(target, "the second content");
    desk.createEmpty();
    desk.createEmpty(); // an empty file pushes nothing out
    QCOMPARE(desk.sandbox.read(target + ".Backup1"), QByteArray("the second content"));
    QCOMPARE(desk.sandbox.read(target + ".Backup2"), QByteArray("the first content"));
}

void TestFpSetFiles::copyIsExactToTheByte()
{
    Desk desk;
    const QByteArray bytes("M\xFCnchen\0\n\r\x1A no line end", 24);
    desk.sandbox.write(source, bytes);
    QCOMPARE(desk.copy(), QString());
    QCOMPARE(desk.sandbox.read(target), bytes);
    QCOMPARE(desk.sandbox.read(source), bytes);
    QCOMPARE(desk.files(), (QStringList{"Airports_Alpha.txt", "Airports_Old.txt"}));
}

void TestFpSetFiles::copyOfAnEmptyFileIsEmpty()
{
    Desk desk;
    desk.sandbox.write(source, {});
    desk.sandbox.write(target, "the user's airports");
    QCOMPARE(desk.copy(), QString());
    QCOMPARE(desk.sandbox.read(target), QByteArray());
    QCOMPARE(desk.sandbox.read(target + ".Backup1"), QByteArray("the user's airports"));
}

void TestFpSetFiles::overwrittenFileIsBackedUpFirst()
{
    Desk desk;
    desk.sandbox.write(source, "new");
    desk.sandbox.write(target, "the user's airports");
    QCOMPARE(desk.copy(), QString());
    QCOMPARE(desk.sandbox.read(target), QByteArray("new"));
    QCOMPARE(desk.sandbox.read(target + ".Backup1"), QByteArray("the user's airports"));
    QCOMPARE(desk.steps.ErrMsg, QString("The step"));
}

void TestFpSetFiles::copyingTheSameAgainKeepsTheBackups()
{
    Desk desk;
    desk.sandbox.write(source, "new airports");
    desk.sandbox.write(target, "the user's airports");
    for (int tries = 0; tries < 3; ++tries) {
        QCOMPARE(desk.copy(), QString());
    }
    QCOMPARE(desk.sandbox.read(target + ".Backup1"), QByteArray("the user's airports"));
    QVERIFY(!desk.sandbox.exists(target + ".Backup2"));
}

void TestFpSetFiles::badCopySourceIsAnErrorAndTheTargetStays_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("failure");
    QTest::newRow("missing") << source << "53 File not found";
    QTest::newRow("in a missing folder") << "C:\\Gone\\a.txt"
                                         << "76 Path not found";
    QTest::newRow("none") << ""
                          << "52 Bad file name or number";
    QTest::newRow("a folder") << "C:\\TTools"
                              << "75 Path/File access error";
    QTest::newRow("on a missing drive") << "Q:\\a.txt"
                                        << "68 Device unavailable";
    QTest::newRow("a bad name") << "C:\\TTools\\a?.txt"
                                << "52 Bad file name or number";
}

void TestFpSetFiles::badCopySourceIsAnErrorAndTheTargetStays()
{
    QFETCH(QString, from);
    Desk desk;
    desk.sandbox.write(target, "the user's airports");
    QTEST(desk.copy(from), "failure");
    QCOMPARE(desk.sandbox.read(target), QByteArray("the user's airports"));
    QCOMPARE(desk.files(), (QStringList{"Airports_Alpha.txt"}));
}

void TestFpSetFiles::targetItselfAsSourceIsAnErrorInEverySpelling_data()
{
    QTest::addColumn<QString>("from");
    QTest::newRow("the same") << target;
    QTest::newRow("another case") << "c:\\ttools\\AIRPORTS_alpha.TXT";
    QTest::newRow("a doubled backslash") << "C:\\TTools\\\\Airports_Alpha.txt";
    QTest::newRow("a way round") << "C:\\TTools\\..\\TTools\\Airports_Alpha.txt";
}

void TestFpSetFiles::targetItselfAsSourceIsAnErrorInEverySpelling()
{
    QFETCH(QString, from);
    Desk desk;
    desk.sandbox.write(target, "the user's airports");
    QCOMPARE(desk.copy(from), QString("70 Permission denied"));
    QCOMPARE(desk.sandbox.read(target), QByteArray("the user's airports"));
    QCOMPARE(desk.files(), (QStringList{"Airports_Alpha.txt"}));
}

void TestFpSetFiles::linkToTheTargetAsSourceIsAnError()
{
    NEEDS(links);
    Desk desk;
    desk.sandbox.write(target, "the user's airports");
    QVERIFY(QFile::link(desk.sandbox.host(target), desk.sandbox.host(source)));
    QCOMPARE(desk.copy(), QString("70 Permission denied"));
    QVERIFY(!files::isSame(target, "C:\\TTools\\missing.txt"));
    QVERIFY(!files::isSame("C:\\a?", "C:\\a?"));
}

void TestFpSetFiles::targetThatIsAFolderIsAnError()
{
    Desk desk;
    desk.sandbox.write(source, "airports");
    desk.sandbox.makeFolder(target);
    QCOMPARE(desk.copy(), QString("75 Path/File access error"));
    QCOMPARE(desk.createEmpty(), QString("75 Path/File access error"));
}

void TestFpSetFiles::nameWindowsRefusesIsAnError()
{
    Desk desk;
    for (const QString name : {"Aircraft_a?b.txt", "Aircraft_a*b.txt", "Aircraft_<b>.txt",
                               "Aircraft_\"b\".txt", "Aircraft_a|b.txt", "Aircraft_a:b.txt"}) {
        const QString failure =
            failureOf([&] { fpset_files::createEmpty("C:\\TTools\\" + name, desk.step); });
        QCOMPARE(failure, QString("52 Bad file name or number"));
    }
    QCOMPARE(desk.files(), QStringList());
}

void TestFpSetFiles::nameOf300CharactersIsAnError()
{
    Desk desk;
    const QString path = "C:\\TTools\\Aircraft_" + QString(287, 'x') + ".txt";
    QCOMPARE(failureOf([&] { fpset_files::ensureExists(path); }),
             QString("52 Bad file name or number"));
    QCOMPARE(failureOf([&] { fpset_files::createEmpty(path, desk.step); }),
             QString("52 Bad file name or number"));
}

void TestFpSetFiles::accentedNameIsCreated()
{
    Desk desk;
    const QString path = QString::fromUtf8("C:\\TTools\\Aircraft_\u00C9t\u00E9.txt");
    fpset_files::createEmpty(path, desk.step);
    QVERIFY(desk.sandbox.exists(path));
}

void TestFpSetFiles::readOnlyDirectoryIsAnErrorAndNothingIsLost()
{
    NEEDS(permissions);
    Desk desk;
    desk.sandbox.write(source, "new");
    desk.sandbox.write(target, "the user's airports");
    const OrdinaryUser user(desk.sandbox);
    QFile::setPermissions(desk.sandbox.host("C:\\TTools"), QFile::ReadOwner | QFile::ExeOwner);
    QCOMPARE(desk.copy(), QString("75 Path/File access error"));
    QCOMPARE(desk.createEmpty(), QString("75 Path/File access error"));
    QCOMPARE(failureOf([&] { fpset_files::discard(target, desk.step); }),
             QString("75 Path/File access error"));
    QCOMPARE(failureOf([] { fpset_files::ensureExists("C:\\TTools\\Aircraft_Alpha.txt"); }),
             QString("75 Path/File access error"));
    QCOMPARE(desk.sandbox.read(target), QByteArray("the user's airports"));
}

void TestFpSetFiles::readOnlyTargetIsAnErrorAndNothingIsLost()
{
    NEEDS(permissions);
    Desk desk;
    desk.sandbox.write(source, "new");
    desk.sandbox.write(target, "the user's airports");
    const OrdinaryUser user(desk.sandbox);
    QFile::setPermissions(desk.sandbox.host(target), QFile::ReadOwner);
    QCOMPARE(desk.copy(), QString("75 Path/File access error"));
    QCOMPARE(desk.createEmpty(), QString("75 Path/File access error"));
    QCOMPARE(desk.sandbox.read(target), QByteArray("the user's airports"));
}

void TestFpSetFiles::fullDiskIsAnErrorAndTheTargetStays()
{
    NEEDS(sizeLimit);
    Desk desk;
    desk.sandbox.write(source, QByteArray(5000, 'x'));
    desk.sandbox.write(target, "the user's airports");
    const FileSizeLimit full(1000);
    QCOMPARE(desk.copy(), QString("61 Disk full"));
    QCOMPARE(desk.sandbox.read(target), QByteArray("the user's airports"));
}

void TestFpSetFiles::goneDirectoryIsAnError()
{
    Desk desk;
    desk.sandbox.write("C:\\Airports_Old.txt", "new");
    QVERIFY(QDir(desk.sandbox.host("C:\\TTools")).removeRecursively());
    QCOMPARE(desk.copy("C:\\Airports_Old.txt"), QString("76 Path not found"));
    QCOMPARE(desk.createEmpty(), QString("76 Path not found"));
}

void TestFpSetFiles::discardedFileGoesToTheTrash()
{
    NEEDS(trashFolder);
    Desk desk;
    desk.sandbox.write(target, "airports of a set given up");
    QCOMPARE(fpset_files::discard(target, desk.step), Discarded::Trashed);
    QCOMPARE(desk.files(), QStringList());
    QCOMPARE(desk.trashed(), (QStringList{"Airports_Alpha.txt"}));
    QFile trashed(desk.sandbox.host("C:\\share") + "/Trash/files/Airports_Alpha.txt");
    QVERIFY(trashed.open(QIODevice::ReadOnly));
    QCOMPARE(trashed.readAll(), QByteArray("airports of a set given up"));
}

void TestFpSetFiles::withoutATrashTheContentIsBackedUp()
{
    NEEDS(trashFolder);
    Desk desk;
    desk.sandbox.write("C:\\share\\Trash", "no folder");
    desk.sandbox.write(target, "airports of a set given up");
    QCOMPARE(fpset_files::discard(target, desk.step), Discarded::Deleted);
    QCOMPARE(desk.files(), (QStringList{"Airports_Alpha.txt.Backup1"}));
    QCOMPARE(desk.sandbox.read(target + ".Backup1"), QByteArray("airports of a set given up"));
}

void TestFpSetFiles::discardingWhatIsNotThereDoesNothing()
{
    Desk desk;
    QCOMPARE(fpset_files::discard(target, desk.step), Discarded::WasNotThere);
    QCOMPARE(fpset_files::discard({}, desk.step), Discarded::WasNotThere);
    // Folders are not ours to delete.
    QCOMPARE(fpset_files::discard("C:\\TTools", desk.step), Discarded::WasNotThere);
    QVERIFY(desk.sandbox.exists("C:\\TTools"));
    QCOMPARE(desk.trashed(), QStringList());
}

QTEST_GUILESS_MAIN(TestFpSetFiles)
#include "test_fpset_files.moc"
