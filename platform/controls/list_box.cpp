// SPDX-License-Identifier: MIT
#include "platform/controls/list_box.h"

#include "platform/list_order.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QStyledItemDelegate>

#include <algorithm>

namespace
{

constexpr qsizetype longestShown = 1000; // characters of an entry
constexpr int rowSpacing = 4; // pixels between two entries, so that a long list stays readable

/// Gives every entry the width of the longest one, so that the list scrolls far enough without
/// measuring thousands of texts. The text with the most characters stands for the widest.
class EntryDelegate : public QStyledItemDelegate
{
public:
    EntryDelegate(const ListBoxModel &model, QObject *parent)
        : QStyledItemDelegate(parent), m_model(model)
    {
    }

    /// As much of a text as anybody reads: shaping megabytes of one line would stop the window.
    QString displayText(const QVariant &value, const QLocale & /*locale*/) const override
    {
        return value.toString().left(longestShown);
    }

protected:
    /// Styles draw a check box's frame from the window colour, which is next to invisible on a dark
    /// list: half way between text and base it can be seen on every palette.
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const QColor text = option->palette.color(QPalette::Text);
        const QColor base = option->palette.color(QPalette::Base);
        option->palette.setColor(QPalette::Window, QColor((text.red() + base.red()) / 2,
                                                          (text.green() + base.green()) / 2,
                                                          (text.blue() + base.blue()) / 2));
    }

public:
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        const int extra =
            option.fontMetrics.horizontalAdvance(m_model.longest().left(longestShown)) -
            option.fontMetrics.horizontalAdvance(index.data().toString().left(longestShown));
        return {size.width() + std::max(extra, 0), size.height() + rowSpacing};
    }

private:
    const ListBoxModel &m_model;
};

} // namespace

ListBox::ListBox(QWidget *parent) : QListView(parent), m_model(new ListBoxModel(this))
{
    setModel(m_model);
    setItemDelegate(new EntryDelegate(*m_model, this));
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideNone);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(this, &QListView::clicked, this, [this](const QModelIndex &entry) {
        setCurrentIndex(entry); // a click on a check mark alone would leave the old one current
        Q_EMIT entryClicked();
    });
    connect(this, &QListView::doubleClicked, this, &ListBox::entryDoubleClicked);
}

void ListBox::setItems(const QStringList &items)
{
    QStringList ordered = items;
    if (m_sorted) {
        list_order::sort(ordered);
    }
    m_model->setItems(ordered);
}

int ListBox::addItem(const QString &item)
{
    const qsizetype index = m_sorted ? list_order::position(items(), item) : items().size();
    m_model->insert(static_cast<int>(index), item);
    return static_cast<int>(index);
}

void ListBox::setFilter(const QString &words)
{
    const int entry = listIndex();
    const bool highlighted = isHighlighted();
    setListIndex(-1); // nobody would be told of a current entry that goes with the rows
    m_model->setFilter(words);
    selectionModel()->setCurrentIndex(m_model->rowOf(entry),
                                      highlighted ? QItemSelectionModel::SelectCurrent
                                                  : QItemSelectionModel::NoUpdate);
}

void ListBox::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && listIndex() >= 0) {
        Q_EMIT entryDoubleClicked();
        return;
    }
    const int before = selectedCount();
    QListView::keyPressEvent(event);
    if (selectedCount() != before) {
        Q_EMIT entryTickedByKey();
    }
}
