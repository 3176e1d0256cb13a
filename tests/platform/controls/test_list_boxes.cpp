// SPDX-License-Identifier: MIT
// The classic list boxes: entries with check marks, folders, drives and files.
#include "platform/controls/dir_list_box.h"
#include "platform/controls/drive_list_box.h"
#include "platform/controls/file_list_box.h"
#include "platform/controls/list_box.h"
#include "platform/runtime_error.h"
#include "tests/support/failure.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QtTest>

namespace
{

/// A list box of three entries that the user can see.
struct ShownList {
    explicit ShownList(bool checkBoxes = false)
    {
        list.setCheckBoxes(checkBoxes);
        list.setItems({"one", "two <b>", "three & four"});
        list.resize(300, 200);
        list.show();
    }

    QPoint beside(int entry) const { return list.visualRect(index(entry)).center(); }

    QPoint mark(int entry) const
    {
        QStyleOptionViewItem option;
        option.initFrom(&list);
        option.rect = list.visualRect(index(entry));
        option.features =
            QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
        option.text = list.text(entry);
        return list.style()
            ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &list)
            .center();
    }

    QModelIndex index(int entry) const { return list.model()->index(entry, 0); }

    QStringList checkedTexts() const
    {
        QStringList texts;
        for (int entry = 0; entry < list.count(); ++entry) {
            if (list.selected(entry)) {
                texts += list.text(entry);
            }
        }
        return texts;
    }

    void click(QPoint where) { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, where); }

    ListBox list;
};

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
    void itemsReplaceEverything();
    void addedItemComesLast();
    void sortedListOrdersItsItems();
    void itemAddedToASortedListStandsInItsPlace();
    void checkMarksMoveAlongWithAnAddedItem();
    void checkMarksMoveAlongWithARemovedItem();
    void removedItemTakesItsCheckMarkWithIt();
    void currentEntryStaysWhenOthersAreRemoved();
    void lastItemCanBeRemoved();
    void textOfAnEntryThereIsNotIsEmpty();
    void entriesAreOneColumnOfPlainTexts();
    void listWithoutCheckBoxesHasNoMarks();
    void clickOnAMarkTicksAndMakesTheEntryCurrent();
    void clickBesideAMarkOnlyMakesTheEntryCurrent();
    void spaceTicksTheCurrentEntry();
    void enterIsADoubleClick();
    void runOfEntriesIsTickedAtOnce();
    void markStandsOutOnADarkList();

    void entryOfTenMegabytesIsKeptAndShownInPart();
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

void TestListBoxes::itemsReplaceEverything()
{
    ShownList shown(true);
    shown.list.setSelected(1, true);
    shown.list.setListIndex(1);
    shown.list.setItems({"a", "b", "c"});
    QCOMPARE(shown.list.items(), (QStringList{"a", "b", "c"}));
    QCOMPARE(shown.list.selectedCount(), 0);
    QVERIFY(!shown.list.selected(1));
    QCOMPARE(shown.list.listIndex(), -1);
    shown.list.clear();
    QCOMPARE(shown.list.count(), 0);
}

void TestListBoxes::addedItemComesLast()
{
    ShownList shown(true);
    shown.list.setSelected(2, true);
    QCOMPARE(shown.list.addItem("five"), 3);
    QCOMPARE(shown.list.count(), 4);
    QCOMPARE(shown.list.text(3), QString("five"));
    QVERIFY(shown.list.selected(2));
    QVERIFY(!shown.list.selected(3));
}

void TestListBoxes::sortedListOrdersItsItems()
{
    ShownList shown;
    QVERIFY(!shown.list.sorted());
    shown.list.setSorted(true);
    shown.list.setItems({"mali", "//x", "Chad", "Mali", "0S9", "chad"});
    QCOMPARE(shown.list.items(), (QStringList{"//x", "0S9", "Chad", "chad", "Mali", "mali"}));
    shown.list.setSorted(false);
    shown.list.setItems({"b", "a"});
    QCOMPARE(shown.list.items(), (QStringList{"b", "a"}));
}

void TestListBoxes::itemAddedToASortedListStandsInItsPlace()
{
    ShownList shown;
    shown.list.setSorted(true);
    shown.list.setItems({"Chad", "mali"});
    shown.list.setListIndex(1);
    const QSignalSpy inserted(shown.list.model(), &QAbstractItemModel::rowsInserted);
    QCOMPARE(shown.list.addItem("MALI"), 1);
    QCOMPARE(shown.list.addItem("Benin"), 0);
    QCOMPARE(shown.list.addItem("zulu"), 4);
    QCOMPARE(shown.list.addItem("Benin"), 1);
    QCOMPARE(shown.list.items(), (QStringList{"Benin", "Benin", "Chad", "MALI", "mali", "zulu"}));
    QCOMPARE(shown.list.text(shown.list.listIndex()), "mali");
    QCOMPARE(inserted.size(), 4);
    QCOMPARE(inserted[1][1].toInt(), 0);
}

void TestListBoxes::checkMarksMoveAlongWithAnAddedItem()
{
    ShownList shown(true);
    shown.list.setSorted(true);
    shown.list.setItems({"b", "d", "f"});
    shown.list.setSelected(0, true);
    shown.list.setSelected(2, true);
    QCOMPARE(shown.list.addItem("c"), 1);
    QCOMPARE(shown.checkedTexts(), (QStringList{"b", "f"}));
    QCOMPARE(shown.list.addItem("a"), 0);
    QCOMPARE(shown.checkedTexts(), (QStringList{"b", "f"}));
    QCOMPARE(shown.list.addItem("g"), 5);
    QCOMPARE(shown.checkedTexts(), (QStringList{"b", "f"}));
    QCOMPARE(shown.list.selectedCount(), 2);
}

void TestListBoxes::checkMarksMoveAlongWithARemovedItem()
{
    ShownList shown(true);
    shown.list.setItems({"a", "b", "c", "d", "e"});
    shown.list.setSelected(1, true);
    shown.list.setSelected(4, true);
    shown.list.removeItem(2);
    QCOMPARE(shown.list.items(), (QStringList{"a", "b", "d", "e"}));
    QCOMPARE(shown.checkedTexts(), (QStringList{"b", "e"}));
    shown.list.removeItem(0);
    QCOMPARE(shown.checkedTexts(), (QStringList{"b", "e"}));
    QCOMPARE(shown.list.selectedCount(), 2);
    QCOMPARE(shown.index(2).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
}

void TestListBoxes::removedItemTakesItsCheckMarkWithIt()
{
    ShownList shown(true);
    shown.list.setSelected(0, 1, true);
    shown.list.removeItem(1);
    QCOMPARE(shown.checkedTexts(), QStringList{"one"});
    QCOMPARE(shown.list.selectedCount(), 1);
    shown.list.addItem("four"); // where a mark stood before
    shown.list.addItem("five");
    QCOMPARE(shown.checkedTexts(), QStringList{"one"});
    shown.list.removeItem(0);
    QCOMPARE(shown.list.selectedCount(), 0);
}

void TestListBoxes::currentEntryStaysWhenOthersAreRemoved()
{
    ShownList shown;
    shown.list.setListIndex(1);
    shown.list.removeItem(2);
    QCOMPARE(shown.list.listIndex(), 1);
    shown.list.removeItem(0);
    QCOMPARE(shown.list.listIndex(), 0);
    QCOMPARE(shown.list.items(), QStringList{"two <b>"});
}

void TestListBoxes::lastItemCanBeRemoved()
{
    ShownList shown(true);
    shown.list.setItems({"only"});
    shown.list.setSelected(0, true);
    shown.list.setListIndex(0);
    shown.list.removeItem(0);
    QCOMPARE(shown.list.count(), 0);
    QCOMPARE(shown.list.listIndex(), -1);
    QCOMPARE(shown.list.selectedCount(), 0);
    QCOMPARE(shown.list.addItem("next"), 0);
    QVERIFY(!shown.list.selected(0));
}

void TestListBoxes::textOfAnEntryThereIsNotIsEmpty()
{
    const ShownList shown;
    QCOMPARE(shown.list.text(-1), QString());
    QCOMPARE(shown.list.text(3), QString());
}

void TestListBoxes::entriesAreOneColumnOfPlainTexts()
{
    const ShownList shown;
    QCOMPARE(shown.list.model()->columnCount(), 1);
    QCOMPARE(shown.index(1).data(Qt::DisplayRole).toString(), QString("two <b>"));
    QCOMPARE(shown.index(2).data(Qt::DisplayRole).toString(), QString("three & four"));
}

void TestListBoxes::listWithoutCheckBoxesHasNoMarks()
{
    ShownList shown;
    QVERIFY(!shown.index(0).data(Qt::CheckStateRole).isValid());
    shown.click(shown.mark(0));
    shown.list.setFocus();
    QTest::keyClick(&shown.list, Qt::Key_Space);
    QCOMPARE(shown.list.selectedCount(), 0);
}

void TestListBoxes::clickOnAMarkTicksAndMakesTheEntryCurrent()
{
    ShownList shown(true);
    const QSignalSpy clicked(&shown.list, &ListBox::entryClicked);
    const QSignalSpy byKey(&shown.list, &ListBox::entryTickedByKey);
    shown.list.setListIndex(0);
    shown.click(shown.mark(2));
    QVERIFY(shown.list.selected(2));
    QCOMPARE(shown.list.selectedCount(), 1);
    QCOMPARE(shown.list.listIndex(), 2);
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(byKey.size(), 0);
    shown.click(shown.mark(2));
    QCOMPARE(shown.list.selectedCount(), 0);
    QCOMPARE(clicked.size(), 2);
}

void TestListBoxes::clickBesideAMarkOnlyMakesTheEntryCurrent()
{
    ShownList shown(true);
    const QSignalSpy clicked(&shown.list, &ListBox::entryClicked);
    shown.click(shown.beside(1));
    QCOMPARE(shown.list.listIndex(), 1);
    QCOMPARE(shown.list.selectedCount(), 0);
    QCOMPARE(clicked.size(), 1);
}

void TestListBoxes::spaceTicksTheCurrentEntry()
{
    ShownList shown(true);
    const QSignalSpy clicked(&shown.list, &ListBox::entryClicked);
    const QSignalSpy byKey(&shown.list, &ListBox::entryTickedByKey);
    shown.list.setListIndex(1);
    QTest::keyClick(&shown.list, Qt::Key_Space);
    QVERIFY(shown.list.selected(1));
    QCOMPARE(byKey.size(), 1);
    QCOMPARE(clicked.size(), 0);
    QTest::keyClick(&shown.list, Qt::Key_Down);
    QCOMPARE(shown.list.listIndex(), 2);
    QCOMPARE(byKey.size(), 1);
}

void TestListBoxes::enterIsADoubleClick()
{
    ShownList shown;
    const QSignalSpy doubleClicked(&shown.list, &ListBox::entryDoubleClicked);
    QTest::keyClick(&shown.list, Qt::Key_Return);
    QCOMPARE(doubleClicked.size(), 0); // nothing is current
    shown.list.setListIndex(1);
    QTest::keyClick(&shown.list, Qt::Key_Return);
    QTest::keyClick(&shown.list, Qt::Key_Enter);
    QCOMPARE(doubleClicked.size(), 2);
    shown.click(shown.beside(0));
    QTest::mouseDClick(shown.list.viewport(), Qt::LeftButton, {}, shown.beside(0));
    QCOMPARE(doubleClicked.size(), 3);
}

void TestListBoxes::runOfEntriesIsTickedAtOnce()
{
    ShownList shown(true);
    const QSignalSpy changed(shown.list.model(), &QAbstractItemModel::dataChanged);
    shown.list.setSelected(1, 2, true);
    QVERIFY(!shown.list.selected(0));
    QVERIFY(shown.list.selected(1) && shown.list.selected(2));
    QCOMPARE(shown.list.selectedCount(), 2);
    QCOMPARE(changed.size(), 1);
    shown.list.setSelected(0, 2, false);
    QCOMPARE(shown.list.selectedCount(), 0);
}

void TestListBoxes::markStandsOutOnADarkList()
{
    ShownList shown(true);
    QPalette dark(QColor(49, 54, 59));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));
    dark.setColor(QPalette::Text, QColor(239, 240, 241));
    shown.list.setPalette(dark);
    const QImage image = shown.list.viewport()->grab().toImage();
    const int frame = shown.mark(1).y();
    int brightest = 0; // on the line through the unticked mark, left of the text
    for (int x = 0; x < shown.mark(1).x(); ++x) {
        brightest = qMax(brightest, qGray(image.pixel(x, frame)));
    }
    QVERIFY2(brightest > 80, qPrintable(QString::number(brightest)));
}

void TestListBoxes::entryOfTenMegabytesIsKeptAndShownInPart()
{
    ShownList shown;
    const QString text(10'000'000, 'x');
    shown.list.setItems({text, "y"});
    QCOMPARE(shown.list.text(0), text);
    QVERIFY(shown.list.sizeHintForIndex(shown.index(0)).width() < 100'000);
    QVERIFY(shown.list.sizeHintForIndex(shown.index(1)).width() < 100'000);
}

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
