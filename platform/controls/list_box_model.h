// SPDX-License-Identifier: MIT
// The entries of a list box, and which of them it shows.
#pragma once

#include <QAbstractListModel>
#include <QStringList>

#include <vector>

/// Entries have indices that stay what they are whatever is shown; a view's rows are the entries
/// that hold all words of the filter. Only a change of everything resets the model.
class ListBoxModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &row, int role) const override;
    bool setData(const QModelIndex &row, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &row) const override;

    int entryOf(const QModelIndex &row) const; ///< -1 for an invalid row
    QModelIndex rowOf(int entry) const;        ///< invalid for an entry that is not shown

    const QStringList &items() const { return m_items; }

    /// The text with the most characters, shown or not.
    const QString &longest() const { return m_longest; }

    void setItems(const QStringList &items);
    void insert(int entry, const QString &item); ///< before an entry
    void remove(int entry);

    bool hasCheckBoxes() const { return m_hasCheckBoxes; }

    void setCheckBoxes(bool on) { m_hasCheckBoxes = on; }

    bool isChecked(int entry) const { return m_checked.at(entry); }

    int checkedCount() const { return static_cast<int>(m_checked.count(true)); }

    void setChecked(int first, int last, bool on); ///< a run of entries, both ends included

    /// Words in any order, blind to case and accents; none shows every entry.
    void setFilter(const QString &words);

private:
    bool isWanted(const QString &item) const;
    int firstRowFrom(int entry) const; ///< of the entry or, if it is not shown, of the next that is
    void findLongest();
    void findShown();

    QStringList m_items;
    QList<bool> m_checked; ///< for each entry
    QString m_longest;
    bool m_hasCheckBoxes = false;
    QStringList m_words;      ///< of the filter, without case and accents
    std::vector<int> m_shown; ///< the entry of each row, ascending
};
