// SPDX-License-Identifier: MIT
// The classic list box: a column of texts with a current entry and, on demand, check marks or a
// filter.
#pragma once

#include <QListView>
#include <QStringList>

class ListBoxModel;

class ListBox : public QListView
{
    Q_OBJECT
    Q_PROPERTY(bool checkBoxes READ checkBoxes WRITE setCheckBoxes)
    Q_PROPERTY(bool sorted READ sorted WRITE setSorted)

public:
    explicit ListBox(QWidget *parent = nullptr);

    bool checkBoxes() const;
    void setCheckBoxes(bool on);

    /// A sorted list keeps its entries ascending, blind to case; for lists without check boxes.
    bool sorted() const { return m_sorted; }

    void setSorted(bool on) { m_sorted = on; }

    int count() const;
    QString text(int index) const; ///< empty for an index there is not
    const QStringList &items() const;

    /// Replaces all entries at once; none is current or checked then.
    void setItems(const QStringList &items);
    int addItem(const QString &item); ///< returns where it stands
    void removeItem(int index);       ///< the entry itself; no other changes its check mark

    void clear() { setItems({}); }

    bool selected(int index) const; ///< whether the entry is checked
    void setSelected(int index, bool on);
    void setSelected(int first, int last, bool on); ///< a run of entries, both ends included
    int selectedCount() const;

    int listIndex() const; ///< the current entry, -1 for none
    void setListIndex(int index);

    /// Shows only the entries that hold all of these words, in any order, blind to case and
    /// accents; no words show all. Every index means the entry all the same, shown or not; but an
    /// entry that is not shown cannot be the current one.
    void setFilter(const QString &words);

    /// Whether the current entry is shown as selected: one that only has the focus is not.
    bool isHighlighted() const;

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
