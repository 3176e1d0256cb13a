// SPDX-License-Identifier: MIT
#include "platform/controls/list_box.h"

#include <QLineEdit>
#include <QRandomGenerator>
#include <QScrollBar>
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

    /// What stands in the rows, from the top down.
    QStringList shownTexts() const
    {
        QStringList texts;
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            texts += index(row).data().toString();
        }
        return texts;
    }

    void click(QPoint where) { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, where); }

    ListBox list;
};

} // namespace

class TestListBox : public QObject
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
    void everyEntryIsAsWideAsTheLongest();
    void longEntryCanBeScrolledIntoSight();
    void noEntryIsEditedInPlace();
    void filterShowsTheEntriesWithAllWords_data();
    void filterShowsTheEntriesWithAllWords();
    void indicesMeanTheEntryWhateverIsShown();
    void clickOnAShownEntryReachesThatEntry();
    void hiddenEntriesKeepTheirCheckMarks();
    void hiddenEntryIsCurrentNoMore();
    void shownEntryStaysCurrent();
    void newItemsAreFilteredToo();
    void entriesComeAndGoWhileFiltered();
};

void TestListBox::itemsReplaceEverything()
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

void TestListBox::addedItemComesLast()
{
    ShownList shown(true);
    shown.list.setSelected(2, true);
    QCOMPARE(shown.list.addItem("five"), 3);
    QCOMPARE(shown.list.count(), 4);
    QCOMPARE(shown.list.text(3), QString("five"));
    QVERIFY(shown.list.selected(2));
    QVERIFY(!shown.list.selected(3));
}

void TestListBox::sortedListOrdersItsItems()
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

void TestListBox::itemAddedToASortedListStandsInItsPlace()
{
    ShownList shown;
    shown.list.setSorted(true);
    shown.list.setItems({"Chad", "mali"});
    shown.list.setListIndex(1);
    QCOMPARE(shown.list.addItem("MALI"), 1);
    QCOMPARE(shown.list.addItem("Benin"), 0);
    QCOMPARE(shown.list.addItem("zulu"), 4);
    QCOMPARE(shown.list.addItem("Benin"), 1);
    QCOMPARE(shown.list.items(), (QStringList{"Benin", "Benin", "Chad", "MALI", "mali", "zulu"}));
    QCOMPARE(shown.list.text(shown.list.listIndex()), "mali");
}

void TestListBox::checkMarksMoveAlongWithAnAddedItem()
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

void TestListBox::checkMarksMoveAlongWithARemovedItem()
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

void TestListBox::removedItemTakesItsCheckMarkWithIt()
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

void TestListBox::currentEntryStaysWhenOthersAreRemoved()
{
    ShownList shown;
    shown.list.setListIndex(1);
    shown.list.removeItem(2);
    QCOMPARE(shown.list.listIndex(), 1);
    shown.list.removeItem(0);
    QCOMPARE(shown.list.listIndex(), 0);
    QCOMPARE(shown.list.items(), QStringList{"two <b>"});
}

void TestListBox::lastItemCanBeRemoved()
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

void TestListBox::textOfAnEntryThereIsNotIsEmpty()
{
    const ShownList shown;
    QCOMPARE(shown.list.text(-1), QString());
    QCOMPARE(shown.list.text(3), QString());
}

void TestListBox::entriesAreOneColumnOfPlainTexts()
{
    const ShownList shown;
    QCOMPARE(shown.list.model()->columnCount(), 1);
    QCOMPARE(shown.index(1).data(Qt::DisplayRole).toString(), QString("two <b>"));
    QCOMPARE(shown.index(2).data(Qt::DisplayRole).toString(), QString("three & four"));
}

void TestListBox::listWithoutCheckBoxesHasNoMarks()
{
    ShownList shown;
    QVERIFY(!shown.index(0).data(Qt::CheckStateRole).isValid());
    shown.click(shown.mark(0));
    shown.list.setFocus();
    QTest::keyClick(&shown.list, Qt::Key_Space);
    QCOMPARE(shown.list.selectedCount(), 0);
}

void TestListBox::clickOnAMarkTicksAndMakesTheEntryCurrent()
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

void TestListBox::clickBesideAMarkOnlyMakesTheEntryCurrent()
{
    ShownList shown(true);
    const QSignalSpy clicked(&shown.list, &ListBox::entryClicked);
    shown.click(shown.beside(1));
    QCOMPARE(shown.list.listIndex(), 1);
    QCOMPARE(shown.list.selectedCount(), 0);
    QCOMPARE(clicked.size(), 1);
}

void TestListBox::spaceTicksTheCurrentEntry()
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

void TestListBox::enterIsADoubleClick()
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

void TestListBox::runOfEntriesIsTickedAtOnce()
{
    ShownList shown(true);
    shown.list.setSelected(1, 2, true);
    QVERIFY(!shown.list.selected(0));
    QVERIFY(shown.list.selected(1) && shown.list.selected(2));
    QCOMPARE(shown.list.selectedCount(), 2);
    shown.list.setSelected(0, 2, false);
    QCOMPARE(shown.list.selectedCount(), 0);
}

void TestListBox::markStandsOutOnADarkList()
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

void TestListBox::entryOfTenMegabytesIsKeptAndShownInPart()
{
    ShownList shown;
    const QString text(10'000'000, 'x');
    shown.list.setItems({text, "y"});
    QCOMPARE(shown.list.text(0), text);
    QVERIFY(shown.list.sizeHintForIndex(shown.index(0)).width() < 100'000);
    QVERIFY(shown.list.sizeHintForIndex(shown.index(1)).width() < 100'000);
}

void TestListBox::everyEntryIsAsWideAsTheLongest()
{
    ShownList shown;
    const auto width = [&] { return shown.list.sizeHintForIndex(shown.index(0)).width(); };
    const int before = width();
    shown.list.addItem("a text that is longer than the others are");
    shown.list.addItem("a text that is longer than the others, too");
    const int longest = width();
    QVERIFY(longest > before);
    const int ofTheLongest = shown.list.sizeHintForIndex(shown.index(4)).width();
    QVERIFY(qAbs(ofTheLongest - longest) <= 1); // rounded to pixels
    shown.list.setFilter("one"); // what is hidden counts: no list changes its width while one types
    QCOMPARE(width(), longest);
    shown.list.removeItem(4);
    QVERIFY(width() > before && width() < longest);
    shown.list.removeItem(3);
    QCOMPARE(width(), before);
    shown.list.setItems({"one"});
    QVERIFY(width() < before);
}

void TestListBox::longEntryCanBeScrolledIntoSight()
{
    ShownList shown;
    QCOMPARE(shown.list.horizontalScrollBar()->maximum(), 0);
    const QString text(200, 'w');
    shown.list.setItems({"one", text, "three"}); // neither the first nor the last
    QCoreApplication::processEvents();           // lists are laid out when they are next painted
    const int width = shown.list.fontMetrics().horizontalAdvance(text);
    QVERIFY(shown.list.horizontalScrollBar()->maximum() + shown.list.viewport()->width() >= width);
    QCOMPARE(shown.list.horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(shown.list.textElideMode(), Qt::ElideNone); // what is cut off needs no dots
}

void TestListBox::noEntryIsEditedInPlace()
{
    for (const bool checkBoxes : {false, true}) {
        ShownList shown(checkBoxes);
        shown.list.setFocus();
        shown.list.setListIndex(1);
        QVERIFY(!(shown.index(1).flags() & Qt::ItemIsEditable));
        QCOMPARE(shown.list.editTriggers(), QAbstractItemView::NoEditTriggers);
        QVERIFY(!shown.list.model()->setData(shown.index(1), "other", Qt::EditRole));
        QTest::keyClick(&shown.list, Qt::Key_F2);
        QTest::keyClicks(&shown.list, "x");
        QTest::mouseDClick(shown.list.viewport(), Qt::LeftButton, {}, shown.beside(1));
        QVERIFY(shown.list.findChildren<QLineEdit *>().isEmpty());
        QCOMPARE(shown.list.text(1), QString("two <b>"));
    }
}

void TestListBox::filterShowsTheEntriesWithAllWords_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QList<int>>("entries");
    QTest::newRow("none") << "" << QList<int>{0, 1, 2, 3};
    QTest::newRow("blanks") << "  " << QList<int>{0, 1, 2, 3};
    QTest::newRow("one word") << "boeing" << QList<int>{0, 1};
    QTest::newRow("part of a word") << "37" << QList<int>{1, 2};
    QTest::newRow("two words") << "Boeing 737" << QList<int>{1};
    QTest::newRow("in any order") << " 737  boe " << QList<int>{1};
    QTest::newRow("each must be there") << "boeing airbus" << QList<int>{};
    QTest::newRow("other case") << "BOEING" << QList<int>{0, 1};
    QTest::newRow("accents that are not typed") << "zurich ile" << QList<int>{3};
    QTest::newRow("accents that are not there") << QString::fromUtf8("bôéíng") << QList<int>{0, 1};
    QTest::newRow("other case with accents") << QString::fromUtf8("ZÜRICH") << QList<int>{3};
    QTest::newRow("figures and signs") << "(x)" << QList<int>{2};
}

void TestListBox::filterShowsTheEntriesWithAllWords()
{
    QFETCH(QString, words);
    QFETCH(QList<int>, entries);
    ShownList shown;
    shown.list.setItems({"Boeing 747-400", "Boeing 737", "737 of mine (x)",
                         QString::fromUtf8("Zürich to Île d'Yeu")});
    shown.list.setFilter("mine");
    shown.list.setFilter(words);
    QStringList texts;
    for (const int entry : entries) {
        texts += shown.list.text(entry);
    }
    QCOMPARE(shown.shownTexts(), texts);
    shown.list.setFilter({});
    QCOMPARE(shown.shownTexts(), shown.list.items());
}

void TestListBox::indicesMeanTheEntryWhateverIsShown()
{
    ShownList shown(true);
    shown.list.setSelected(2, true);
    shown.list.setFilter("four");
    QCOMPARE(shown.shownTexts(), QStringList{"three & four"});
    QCOMPARE(shown.list.count(), 3);
    QCOMPARE(shown.list.items(), (QStringList{"one", "two <b>", "three & four"}));
    QCOMPARE(shown.list.text(0), "one");
    QCOMPARE(shown.checkedTexts(), QStringList{"three & four"});
    shown.list.setListIndex(2);
    QCOMPARE(shown.list.listIndex(), 2);
    QCOMPARE(shown.list.currentIndex().data().toString(), "three & four");
    shown.list.setListIndex(0); // hidden
    QCOMPARE(shown.list.listIndex(), -1);
}

void TestListBox::clickOnAShownEntryReachesThatEntry()
{
    ShownList shown(true);
    shown.list.setFilter("o"); // row 2 is entry 2
    shown.list.setFilter("four");
    shown.click(shown.beside(0));
    QCOMPARE(shown.list.listIndex(), 2);
    QTest::keyClick(&shown.list, Qt::Key_Space);
    QCOMPARE(shown.checkedTexts(), QStringList{"three & four"});
    QCOMPARE(shown.index(0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
}

void TestListBox::hiddenEntriesKeepTheirCheckMarks()
{
    ShownList shown(true);
    shown.list.setSelected(0, true);
    shown.list.setFilter("two");
    QCOMPARE(shown.checkedTexts(), QStringList{"one"});
    QCOMPARE(shown.index(0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    shown.list.setSelected(0, 2, true);
    QCOMPARE(shown.list.selectedCount(), 3);
    QCOMPARE(shown.index(0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    shown.list.setSelected(2, false);
    shown.list.setFilter({});
    QCOMPARE(shown.checkedTexts(), (QStringList{"one", "two <b>"}));
}

void TestListBox::hiddenEntryIsCurrentNoMore()
{
    ShownList shown;
    shown.list.setListIndex(1);
    const QItemSelectionModel *const selection = shown.list.selectionModel();
    const QSignalSpy changed(selection, &QItemSelectionModel::currentChanged);
    shown.list.setFilter("one");
    QCOMPARE(changed.size(), 1); // who follows the current entry learns of it
    QCOMPARE(shown.list.listIndex(), -1);
    QVERIFY(!shown.list.isHighlighted());
    QVERIFY(!selection->hasSelection());
    shown.list.setFilter({});
    QCOMPARE(shown.list.listIndex(), -1);
}

void TestListBox::shownEntryStaysCurrent()
{
    ShownList shown;
    shown.list.setListIndex(2);
    for (const char *const words : {"o", "four", ""}) {
        shown.list.setFilter(words);
        QCOMPARE(shown.list.listIndex(), 2);
        QVERIFY(shown.list.isHighlighted());
    }
    shown.list.selectionModel()->clearSelection(); // the focus alone makes no highlight
    shown.list.setFilter("four");
    QCOMPARE(shown.list.listIndex(), 2);
    QVERIFY(!shown.list.isHighlighted());
}

void TestListBox::newItemsAreFilteredToo()
{
    ShownList shown(true);
    shown.list.setFilter("o");
    shown.list.setItems({"two", "six", "four"});
    QCOMPARE(shown.shownTexts(), (QStringList{"two", "four"}));
    shown.list.clear();
    QCOMPARE(shown.shownTexts(), QStringList());
    QCOMPARE(shown.list.addItem("five"), 0);
    QCOMPARE(shown.list.addItem("zero"), 1);
    QCOMPARE(shown.shownTexts(), QStringList{"zero"});
}

/// Whatever comes and goes, what is shown is what a new list would show, ticks included.
void TestListBox::entriesComeAndGoWhileFiltered()
{
    QRandomGenerator random(7);
    ShownList shown(true);
    shown.list.setSorted(true);
    shown.list.setItems({"ax", "bx", "c"});
    shown.list.setFilter("x");
    QStringList checked;
    for (int i = 0; i < 500; ++i) {
        if (random.bounded(5) < 3 || shown.list.count() == 0) {
            const QString text = QString::number(i) + (random.bounded(2) == 0 ? "x" : "y");
            const int entry = shown.list.addItem(text);
            QCOMPARE(shown.list.text(entry), text);
            if (random.bounded(2) == 0) {
                shown.list.setSelected(entry, true);
                checked += text;
            }
        } else {
            const int entry = random.bounded(shown.list.count());
            checked.removeAll(shown.list.text(entry));
            shown.list.removeItem(entry);
        }
        QCOMPARE(shown.shownTexts(), shown.list.items().filter("x"));
        QCOMPARE(shown.list.selectedCount(), checked.size());
    }
    checked.sort();
    QStringList found = shown.checkedTexts();
    found.sort();
    QCOMPARE(found, checked);
}

QTEST_MAIN(TestListBox)
#include "test_list_box.moc"
