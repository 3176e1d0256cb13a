// SPDX-License-Identifier: MIT
#include "platform/controls/dir_list_box.h"

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

#include <QStyle>
#include <QStyledItemDelegate>

/// Gives the folders their icons, and indents each below the one that holds it.
class FolderDelegate : public QStyledItemDelegate
{
public:
    explicit FolderDelegate(QWidget &list) : QStyledItemDelegate(&list), m_list(list) {}

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        constexpr int rowSpacing = 4; // pixels between two folders
        return QStyledItemDelegate::sizeHint(option, index) + QSize(indent(index), rowSpacing);
    }

    int openRow = 0; ///< the open folder; above it those down to it, below it its sub-folders

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->rect.adjust(indent(index), 0, 0, 0);
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->icon = m_list.style()->standardIcon(
            index.row() <= openRow ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon);
        option->decorationSize = option->icon.actualSize(option->decorationSize);
    }

private:
    int indent(const QModelIndex &index) const
    {
        return qMin(index.row(), openRow + 1) * m_list.fontMetrics().height() * 2 / 3;
    }

    const QWidget &m_list;
};

namespace
{

/// One spelling for each folder: no doubled backslash, none at the end but a drive's own.
QString normalized(const QString &path)
{
    const QStringList parts = path.split('\\', Qt::SkipEmptyParts);
    if (parts.isEmpty() || !parts.first().endsWith(':')) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    return parts.size() == 1 ? parts.first() + '\\' : parts.join('\\');
}

/// One that cannot be read any more shows as empty.
QStringList subFolders(const QString &folder)
{
    try {
        return files::subFolders(folder);
    } catch (const RuntimeError &) {
        return {};
    }
}

} // namespace

DirListBox::DirListBox(QWidget *parent) : ListBox(parent), m_delegate(new FolderDelegate(*this))
{
    setItemDelegate(m_delegate);
    setUniformItemSizes(false);
    connect(this, &ListBox::entryDoubleClicked, this, &DirListBox::chooseEntry);
    open(paths::currentDirectory());
}

bool DirListBox::setPath(const QString &path)
{
    const QString folder = normalized(path);
    files::requireFolder(folder);
    if (m_pointed && folder.compare(m_path, Qt::CaseInsensitive) == 0) {
        return false;
    }
    m_pointed = true;
    open(folder);
    return true;
}

void DirListBox::open(const QString &folder)
{
    m_path = folder;
    QStringList entries = folder.split('\\', Qt::SkipEmptyParts);
    entries[0] += '\\';
    m_delegate->openRow = static_cast<int>(entries.size()) - 1;
    // A directory of thousands that nobody looks at costs nothing.
    setItems(isVisible() ? entries + subFolders(folder) : entries);
    if (isVisible()) {
        setListIndex(m_delegate->openRow);
    }
}

void DirListBox::showEvent(QShowEvent *event)
{
    ListBox::showEvent(event);
    refresh();
}

void DirListBox::chooseEntry()
{
    Q_EMIT folderChosen(listIndex() <= m_delegate->openRow
                            ? items().first(listIndex() + 1).join('\\').replace("\\\\", "\\")
                            : paths::join(m_path, text(listIndex())));
}
