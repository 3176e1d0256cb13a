// SPDX-License-Identifier: MIT
// The classic list boxes of folders, drives and files.
#include "platform/controls/dir_list_box.h"
#include "platform/controls/drive_list_box.h"
#include "platform/controls/file_list_box.h"
#include "platform/runtime_error.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

namespace
{

/// A directory list in a prefix with some folders, open at C:\FS9.
struct ShownFolders {
    ShownFolders()
    {
        sandbox.makeFolder("C:\\FS9\\Aircraft\\B734");
        sandbox.makeFolder("C:\\FS9\\Scenery");
        sandbox.makeFolder("C:\\TTools");
        sandbox.write("C:\\FS9\\fs9.exe", "MZ");
        list.setPath("C:\\FS9");
        list.resize(300, 300);
        list.show();
    }

    QStringList shown() const
    {
        QStringList texts;
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            texts += list.model()->index(row, 0).data().toString();
        }
        return texts;
    }

    void doubleClick(const QString &name)
    {
        const QPoint where = list.visualRect(index(name)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, where);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, where);
    }

    QModelIndex index(const QString &name) const
    {
        return list.model()->index(static_cast<int>(shown().indexOf(name)), 0);
    }

    Sandbox sandbox;
    DirListBox list;
};

} // namespace

class TestListBoxes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pathIsShownFromTheRootDownWithItsSubFolders();
    void driveRootIsShownWithItsFolders();
    void clickOnlyPointsAtAFolder();
    void doubleClickChoosesAFolder();
    void doubleClickChoosesAFolderAbove();
    void enterChoosesTheCurrentFolder();
    void pathIsAnotherUnlessItIsTheOpenOne();
    void currentDirectoryIsNotChosenAtFirst();
    void pathTellsNobody();
    void pathIsSpelledOneWay_data();
    void pathIsSpelledOneWay();
    void pathThatIsNoneIsRefusedAndTheOldOneStays_data();
    void pathThatIsNoneIsRefusedAndTheOldOneStays();
    void refreshShowsWhatCameSince();
    void noFolderIsRenamedInPlace();
    void longFolderNameCanBeScrolledIntoSight();

    void drivesAreShownLetterFirst();
    void driveIsShownByTheFirstLetter_data();
    void driveIsShownByTheFirstLetter();
    void driveThereIsNotIsNotShown();
    void onlyTheUsersDriveFires();

    void filesMatchThePatternBlindToCase();
    void everyFileIsListedAtFirst();
    void selectedFileIsForgotten();
    void filesOfAFolderThatIsGoneAreRefused();
};

void TestListBoxes::pathIsShownFromTheRootDownWithItsSubFolders()
{
    ShownFolders folders;
    folders.list.setPath("C:\\FS9\\Aircraft");
    QCOMPARE(folders.shown(), (QStringList{"C:\\", "FS9", "Aircraft", "B734"}));
}

void TestListBoxes::driveRootIsShownWithItsFolders()
{
    ShownFolders folders;
    folders.list.setPath("c:");
    QCOMPARE(folders.list.path(), QString("c:\\"));
    QCOMPARE(folders.shown(), (QStringList{"c:\\", "FS9", "Morlen", "TTools", "windows"}));
}

void TestListBoxes::clickOnlyPointsAtAFolder()
{
    ShownFolders folders;
    const QSignalSpy chosen(&folders.list, &DirListBox::folderChosen);
    const QPoint where = folders.list.visualRect(folders.index("Scenery")).center();
    QTest::mouseClick(folders.list.viewport(), Qt::LeftButton, {}, where);
    QCOMPARE(folders.list.currentIndex().data().toString(), QString("Scenery"));
    QCOMPARE(folders.list.path(), QString("C:\\FS9"));
    QCOMPARE(chosen.size(), 0);
}

void TestListBoxes::doubleClickChoosesAFolder()
{
    ShownFolders folders;
    const QSignalSpy chosen(&folders.list, &DirListBox::folderChosen);
    folders.doubleClick("Aircraft");
    QCOMPARE(chosen, (QList<QVariantList>{{"C:\\FS9\\Aircraft"}}));
    QCOMPARE(folders.list.path(), QString("C:\\FS9")); // until it is told to open it
}

void TestListBoxes::doubleClickChoosesAFolderAbove()
{
    ShownFolders folders;
    folders.list.setPath("C:\\FS9\\Aircraft\\B734");
    const QSignalSpy chosen(&folders.list, &DirListBox::folderChosen);
    folders.doubleClick("FS9");
    folders.doubleClick("C:\\");
    QCOMPARE(chosen, (QList<QVariantList>{{"C:\\FS9"}, {"C:\\"}}));
}

void TestListBoxes::enterChoosesTheCurrentFolder()
{
    ShownFolders folders;
    const QSignalSpy chosen(&folders.list, &DirListBox::folderChosen);
    folders.list.setCurrentIndex(folders.index("Aircraft"));
    QTest::keyClick(&folders.list, Qt::Key_Return);
    QCOMPARE(chosen, (QList<QVariantList>{{"C:\\FS9\\Aircraft"}}));
    folders.list.setPath("C:\\FS9\\Aircraft");
    QCOMPARE(folders.list.currentIndex().data().toString(), QString("Aircraft"));
}

void TestListBoxes::pathIsAnotherUnlessItIsTheOpenOne()
{
    ShownFolders folders;
    QVERIFY(!folders.list.setPath("c:\\fs9"));
    QVERIFY(folders.list.setPath("C:\\FS9\\Scenery"));
    QVERIFY(!folders.list.setPath("C:\\FS9\\Scenery\\"));
}

void TestListBoxes::currentDirectoryIsNotChosenAtFirst()
{
    const Sandbox sandbox;
    DirListBox list;
    QCOMPARE(list.path(), QString("C:\\Morlen"));
    QVERIFY(list.setPath("C:\\Morlen"));
    QVERIFY(!list.setPath("C:\\Morlen"));
}

void TestListBoxes::pathTellsNobody()
{
    ShownFolders folders;
    const QSignalSpy chosen(&folders.list, &DirListBox::folderChosen);
    folders.list.setPath("C:\\FS9\\Scenery");
    folders.list.refresh();
    QCOMPARE(chosen.size(), 0);
}

void TestListBoxes::pathIsSpelledOneWay_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("as it is") << "C:\\FS9\\Aircraft";
    QTest::newRow("backslash at the end") << "C:\\FS9\\Aircraft\\";
    QTest::newRow("doubled backslash") << "C:\\\\FS9\\\\Aircraft";
}

void TestListBoxes::pathIsSpelledOneWay()
{
    QFETCH(QString, path);
    ShownFolders folders;
    folders.list.setPath(path);
    QCOMPARE(folders.list.path(), QString("C:\\FS9\\Aircraft"));
}

void TestListBoxes::pathThatIsNoneIsRefusedAndTheOldOneStays_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("empty") << "";
    QTest::newRow("relative") << "FS9";
    QTest::newRow("not there") << "C:\\FSX";
    QTest::newRow("a file") << "C:\\FS9\\fs9.exe";
    QTest::newRow("drive not there") << "Q:\\FS9";
}

void TestListBoxes::pathThatIsNoneIsRefusedAndTheOldOneStays()
{
    QFETCH(QString, path);
    ShownFolders folders;
    const QString failure = failureOf([&] { folders.list.setPath(path); });
    QVERIFY2(failure == "76 Path not found" || failure == "68 Device unavailable",
             qPrintable(failure));
    QCOMPARE(folders.list.path(), QString("C:\\FS9"));
}

void TestListBoxes::refreshShowsWhatCameSince()
{
    ShownFolders folders;
    QCOMPARE(folders.shown(), (QStringList{"C:\\", "FS9", "Aircraft", "Scenery"}));
    folders.sandbox.makeFolder("C:\\FS9\\Effects");
    folders.list.refresh();
    QCOMPARE(folders.shown(), (QStringList{"C:\\", "FS9", "Aircraft", "Effects", "Scenery"}));
}

void TestListBoxes::noFolderIsRenamedInPlace()
{
    ShownFolders folders;
    folders.list.setFocus();
    folders.list.setCurrentIndex(folders.index("Aircraft"));
    QVERIFY(!(folders.index("Aircraft").flags() & Qt::ItemIsEditable));
    QCOMPARE(folders.list.editTriggers(), QAbstractItemView::NoEditTriggers);
    QTest::keyClick(&folders.list, Qt::Key_F2);
    QVERIFY(folders.list.findChildren<QLineEdit *>().isEmpty());
}

void TestListBoxes::longFolderNameCanBeScrolledIntoSight()
{
    ShownFolders folders;
    const QString name(200, 'a'); // neither the first folder nor the last
    folders.sandbox.makeFolder("C:\\FS9\\" + name);
    folders.list.refresh();
    QCoreApplication::processEvents(); // lists are laid out when they are next painted
    const int width = folders.list.fontMetrics().horizontalAdvance(name);
    QVERIFY(folders.list.horizontalScrollBar()->maximum() + folders.list.viewport()->width() >
            width);
}

void TestListBoxes::drivesAreShownLetterFirst()
{
    const Sandbox sandbox;
    const DriveListBox list;
    QCOMPARE(list.count(), 2);
    QVERIFY(list.itemText(0).startsWith("c:"));
    QVERIFY(list.itemText(1).startsWith("z:"));
    QCOMPARE(list.drive(), QString("c:")); // that of the current directory
}

void TestListBoxes::driveIsShownByTheFirstLetter_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("letter") << "z";
    QTest::newRow("upper case") << "Z:";
    QTest::newRow("path") << "z:\\usr\\share";
}

void TestListBoxes::driveIsShownByTheFirstLetter()
{
    QFETCH(QString, text);
    const Sandbox sandbox;
    DriveListBox list;
    QVERIFY(list.showDrive(text));
    QCOMPARE(list.drive(), QString("z:"));
}

void TestListBoxes::driveThereIsNotIsNotShown()
{
    const Sandbox sandbox;
    DriveListBox list;
    for (const QString &drive : {QString("q:"), QString()}) {
        QVERIFY(!list.showDrive(drive));
        QCOMPARE(list.drive(), QString("c:"));
    }
}

void TestListBoxes::onlyTheUsersDriveFires()
{
    const Sandbox sandbox;
    DriveListBox list;
    const QSignalSpy changed(&list, &QComboBox::currentTextChanged);
    list.showDrive("Z:\\usr");
    QCOMPARE(changed.size(), 0);
    QTest::keyClick(&list, Qt::Key_Up);
    QCOMPARE(changed, (QList<QVariantList>{{"c:"}}));
}

void TestListBoxes::filesMatchThePatternBlindToCase()
{
    const Sandbox sandbox;
    for (const char *name : {"Aircraft_B.TXT", "aircraft_a.txt", "airports.txt", "panel.cfg"}) {
        sandbox.write(QStringLiteral("C:\\TTools\\") + name, "x");
    }
    sandbox.makeFolder("C:\\TTools\\aircraft.txt");
    FileListBox list;
    list.setProperty("pattern", "AIRCRAFT*.txt");
    list.setPath("C:\\TTools");
    QCOMPARE(list.items(), (QStringList{"aircraft_a.txt", "Aircraft_B.TXT"}));
}

void TestListBoxes::everyFileIsListedAtFirst()
{
    const Sandbox sandbox;
    sandbox.write("C:\\TTools\\a.txt", "x");
    sandbox.write("C:\\TTools\\b.cfg", "x");
    FileListBox list;
    list.setPath("C:\\TTools");
    QCOMPARE(list.items(), (QStringList{"a.txt", "b.cfg"}));
}

void TestListBoxes::selectedFileIsForgotten()
{
    const Sandbox sandbox;
    sandbox.write("C:\\TTools\\a.txt", "x");
    FileListBox list;
    list.setPath("C:\\TTools");
    list.setListIndex(0);
    list.clearFileName();
    QCOMPARE(list.listIndex(), -1);
    list.setListIndex(0);
    list.setPath("C:\\TTools"); // lists it anew
    QCOMPARE(list.listIndex(), -1);
}

void TestListBoxes::filesOfAFolderThatIsGoneAreRefused()
{
    const Sandbox sandbox;
    sandbox.write("C:\\TTools\\a.txt", "x");
    FileListBox list;
    list.setPath("C:\\TTools");
    QCOMPARE(failureOf([&] { list.setPath("C:\\FSX"); }), QString("76 Path not found"));
    QCOMPARE(list.path(), QString("C:\\TTools"));
    QCOMPARE(list.items(), QStringList{"a.txt"});
}

QTEST_MAIN(TestListBoxes)
#include "test_list_boxes.moc"
