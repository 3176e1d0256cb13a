// SPDX-License-Identifier: MIT
#include "platform/controls/dir_list_box.h"

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QKeyEvent>
#include <QStyle>
#include <QStyledItemDelegate>

#include <optional>

using namespace Qt::StringLiterals;

class DirListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(opened.size() + subFolders().size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::DisplayRole) {
            return isOpened(index) ? opened.at(index.row())
                                   : subFolders().at(index.row() - opened.size());
        }
        if (role == Qt::DecorationRole) {
            return QApplication::style()->standardIcon(isOpened(index) ? QStyle::SP_DirOpenIcon
                                                                       : QStyle::SP_DirClosedIcon);
        }
        return {};
    }

    bool isOpened(const QModelIndex &index) const { return index.row() < opened.size(); }

    qsizetype depth(const QModelIndex &index) const
    {
        return qMin<qsizetype>(index.row(), opened.size());
    }

    void open(const QString &folder, const QStringList &levels)
    {
        beginResetModel();
        m_folder = folder;
        m_subFolders.reset();
        opened = levels;
        endResetModel();
    }

    QStringList opened; ///< the drive's root and the folders down to the open one

private:
    /// Read at the first call: a directory of thousands that nobody looks at costs nothing. One
    /// that cannot be read any more shows as empty.
    const QStringList &subFolders() const
    {
        if (!m_subFolders) {
            try {
                m_subFolders = files::subFolders(m_folder);
            } catch (const RuntimeError &) {
                m_subFolders = QStringList();
            }
        }
        return *m_subFolders;
    }

    QString m_folder;
    mutable std::optional<QStringList> m_subFolders;
};

namespace
{

constexpr int rowSpacing = 4; // pixels between two folders

class IndentingDelegate : public QStyledItemDelegate
{
public:
    IndentingDelegate(const DirListModel &model, QObject *parent)
        : QStyledItemDelegate(parent), m_model(model)
    {
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        QStyleOptionViewItem indented = option;
        indented.rect.adjust(indent(option, index), 0, 0, 0);
        QStyledItemDelegate::paint(painter, indented, index);
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) +
               QSize(indent(option, index), rowSpacing);
    }

private:
    int indent(const QStyleOptionViewItem &option, const QModelIndex &index) const
    {
        return static_cast<int>(m_model.depth(index)) * option.fontMetrics.height() * 2 / 3;
    }

    const DirListModel &m_model;
};

/// "C:\FS9\Aircraft" as "C:\", "FS9", "Aircraft".
QStringList levels(const QString &path)
{
    QStringList parts = path.split(u'\\', Qt::SkipEmptyParts);
    parts[0] += u'\\';
    return parts;
}

/// One spelling for each folder: no doubled backslash, none at the end but a drive's own.
QString normalized(const QString &path)
{
    const QStringList parts = path.split(u'\\', Qt::SkipEmptyParts);
    if (parts.isEmpty() || !parts.first().endsWith(u':')) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    return parts.size() == 1 ? parts.first() + u'\\' : parts.join(u'\\');
}

} // namespace

DirListBox::DirListBox(QWidget *parent) : QListView(parent), m_model(new DirListModel(this))
{
    setModel(m_model);
    setItemDelegate(new IndentingDelegate(*m_model, this));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(this, &QListView::doubleClicked, this, &DirListBox::openEntry);
    open(paths::currentDirectory());
}

void DirListBox::setPath(const QString &path)
{
    const QString folder = normalized(path);
    files::requireFolder(folder);
    if (folder.compare(m_path, Qt::CaseInsensitive) != 0) {
        open(folder);
        Q_EMIT pathChanged();
    }
}

void DirListBox::refresh()
{
    open(m_path);
}

void DirListBox::open(const QString &folder)
{
    m_path = folder;
    m_model->open(folder, levels(folder));
    if (isVisible()) {
        setCurrentIndex(m_model->index(static_cast<int>(m_model->opened.size()) - 1));
    }
}

void DirListBox::showEvent(QShowEvent *event)
{
    QListView::showEvent(event);
    setCurrentIndex(m_model->index(static_cast<int>(m_model->opened.size()) - 1));
}

void DirListBox::openEntry(const QModelIndex &entry)
{
    const QString folder =
        m_model->isOpened(entry)
            ? m_model->opened.first(entry.row() + 1).join(u'\\').replace(R"(\\)"_L1, R"(\)"_L1)
            : paths::join(m_path, entry.data().toString());
    try {
        setPath(folder);
    } catch (const RuntimeError &error) {
        Q_EMIT openFailed(error, folder);
    }
}

void DirListBox::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentIndex().isValid()) {
        openEntry(currentIndex());
        return;
    }
    QListView::keyPressEvent(event);
}
