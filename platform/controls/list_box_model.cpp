// SPDX-License-Identifier: MIT
#include "platform/controls/list_box_model.h"

#include "platform/blind_to_case.h"

#include <algorithm>

int ListBoxModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int ListBoxModel::entryOf(const QModelIndex &row) const
{
    return row.isValid() ? m_shown.at(static_cast<std::size_t>(row.row())) : -1;
}

int ListBoxModel::firstRowFrom(int entry) const
{
    return static_cast<int>(std::lower_bound(m_shown.begin(), m_shown.end(), entry) -
                            m_shown.begin());
}

QModelIndex ListBoxModel::rowOf(int entry) const
{
    const QModelIndex row = index(firstRowFrom(entry));
    return entryOf(row) == entry ? row : QModelIndex();
}

QVariant ListBoxModel::data(const QModelIndex &row, int role) const
{
    if (role == Qt::DisplayRole) {
        return m_items.value(entryOf(row));
    }
    if (role == Qt::CheckStateRole && m_hasCheckBoxes) {
        return m_checked.at(entryOf(row)) ? Qt::Checked : Qt::Unchecked;
    }
    return {};
}

bool ListBoxModel::setData(const QModelIndex &row, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole) {
        return false;
    }
    setChecked(entryOf(row), entryOf(row), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags ListBoxModel::flags(const QModelIndex &row) const
{
    const Qt::ItemFlags flags = QAbstractListModel::flags(row) | Qt::ItemIsDragEnabled;
    return m_hasCheckBoxes ? flags | Qt::ItemIsUserCheckable : flags;
}

void ListBoxModel::setItems(const QStringList &items)
{
    beginResetModel();
    m_items = items;
    m_checked = QList<bool>(items.size());
    findLongest();
    findShown();
    endResetModel();
}

void ListBoxModel::insert(int entry, const QString &item)
{
    const int row = firstRowFrom(entry);
    const bool isShown = isWanted(item);
    if (isShown) {
        beginInsertRows({}, row, row);
    }
    m_items.insert(entry, item);
    m_checked.insert(entry, false);
    std::for_each(m_shown.begin() + row, m_shown.end(), [](int &below) { ++below; });
    if (item.size() > m_longest.size()) {
        m_longest = item;
    }
    if (isShown) {
        m_shown.insert(m_shown.begin() + row, entry);
        endInsertRows();
    }
}

void ListBoxModel::remove(int entry)
{
    const int row = firstRowFrom(entry);
    const bool isShown = rowOf(entry).isValid();
    if (isShown) {
        beginRemoveRows({}, row, row);
        m_shown.erase(m_shown.begin() + row);
    }
    std::for_each(m_shown.begin() + row, m_shown.end(), [](int &below) { --below; });
    m_checked.removeAt(entry);
    if (m_items.takeAt(entry).size() == m_longest.size()) {
        findLongest();
    }
    if (isShown) {
        endRemoveRows();
    }
}

void ListBoxModel::setChecked(int first, int last, bool on)
{
    std::fill(m_checked.begin() + first, m_checked.begin() + last + 1, on);
    const int row = firstRowFrom(first);
    const int lastRow = firstRowFrom(last + 1) - 1;
    if (row <= lastRow) {
        Q_EMIT dataChanged(index(row), index(lastRow), {Qt::CheckStateRole});
    }
}

void ListBoxModel::setFilter(const QString &words)
{
    beginResetModel();
    m_words = blind_to_case::plain(words).split(u' ', Qt::SkipEmptyParts);
    findShown();
    endResetModel();
}

bool ListBoxModel::isWanted(const QString &item) const
{
    if (m_words.isEmpty()) {
        return true;
    }
    const QString text = blind_to_case::plain(item);
    return std::all_of(m_words.begin(), m_words.end(),
                       [&](const QString &word) { return text.contains(word); });
}

void ListBoxModel::findShown()
{
    m_shown.clear();
    for (int entry = 0; entry < m_items.size(); ++entry) {
        if (isWanted(m_items[entry])) {
            m_shown.push_back(entry);
        }
    }
}

void ListBoxModel::findLongest()
{
    const auto longest = std::max_element(
        m_items.begin(), m_items.end(),
        [](const QString &one, const QString &other) { return one.size() < other.size(); });
    m_longest = longest != m_items.end() ? *longest : QString();
}
