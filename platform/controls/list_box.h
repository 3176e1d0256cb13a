// SPDX-License-Identifier: MIT
// The classic list box: a column of texts with a current entry and, on demand, check marks or a
// filter.
#pragma once

#include "platform/controls/list_box_model.h"

#include <QListView>

class ListBox : public QListView
{
    Q_OBJECT
    Q_PROPERTY(bool checkBoxes READ checkBoxes WRITE setCheckBoxes)
    Q_PROPERTY(bool sorted READ sorted WRITE setSorted)

public:
    explicit ListBox(QWidget *parent = nullptr);

    bool checkBoxes() const { return m_model->hasCheckBoxes(); }

    void setCheckBoxes(bool on) { m_model->setCheckBoxes(on); }

    /// A sorted list keeps its entries ascending, blind to case; for lists without check boxes.
    bool sorted() const { return m_sorted; }

    void setSorted(bool on) { m_sorted = on; }

    const QStringList &items() const { return m_model->items(); }

    int count() const { return static_cast<int>(items().size()); }

    QString text(int index) const { return items().value(index); } ///< empty for no index

    /// Replaces all entries at once; none is current or checked then.
    void setItems(const QStringList &items);
    int addItem(const QString &item); ///< returns where it stands

    /// Removes the entry itself; no other changes its check mark.
    void removeItem(int index) { m_model->remove(index); }

    void clear() { setItems({}); }

    /// Whether the entry is checked.
    bool selected(int index) const { return m_model->isChecked(index); }

    void setSelected(int index, bool on) { m_model->setChecked(index, index, on); }

    /// Checks a run of entries, both ends included.
    void setSelected(int first, int last, bool on) { m_model->setChecked(first, last, on); }

    int selectedCount() const { return m_model->checkedCount(); }

    /// The current entry, -1 for none.
    int listIndex() const { return m_model->entryOf(currentIndex()); }

    void setListIndex(int index) { setCurrentIndex(m_model->rowOf(index)); }

    /// Shows only the entries that hold all of these words, in any order, blind to case and
    /// accents; no words show all. Every index means the entry all the same, shown or not; but an
    /// entry that is not shown cannot be the current one.
    void setFilter(const QString &words);

    /// Whether the current entry is shown as selected: one that only has the focus is not.
    bool isHighlighted() const { return selectionModel()->isSelected(currentIndex()); }

Q_SIGNALS:
    void entryClicked();       ///< with the mouse, on an entry or its check mark
    void entryDoubleClicked(); ///< with the mouse, or Enter on the current entry
    void entryTickedByKey();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    ListBoxModel *m_model;
    bool m_sorted = false;
};
