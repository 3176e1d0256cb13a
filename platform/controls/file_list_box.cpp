// SPDX-License-Identifier: MIT
#include "platform/controls/file_list_box.h"

#include "platform/files.h"
#include "platform/runtime_error.h"

#include <QAbstractListModel>

#include <optional>

class FileListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(names().size());
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? names().at(index.row()) : QVariant();
    }

    void list(const QString &folder, const QString &pattern)
    {
        beginResetModel();
        m_folder = folder;
        m_pattern = pattern;
        m_names.reset();
        endResetModel();
    }

private:
    /// Read at the first call: a folder of thousands that nobody looks at costs nothing. One that
    /// cannot be read any more shows as empty.
    const QStringList &names() const
    {
        if (!m_names) {
            try {
                m_names =
                    m_folder.isEmpty() ? QStringList() : files::filesMatching(m_folder, m_pattern);
            } catch (const RuntimeError &) {
                m_names = QStringList();
            }
        }
        return *m_names;
    }

    QString m_folder;
    QString m_pattern;
    mutable std::optional<QStringList> m_names;
};

FileListBox::FileListBox(QWidget *parent) : QListView(parent), m_model(new FileListModel(this))
{
    setModel(m_model);
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void FileListBox::setPattern(const QString &pattern)
{
    m_pattern = pattern;
    m_model->list(m_path, m_pattern);
}

void FileListBox::setPath(const QString &path)
{
    files::requireFolder(path);
    m_path = path;
    m_model->list(m_path, m_pattern);
}

int FileListBox::count() const
{
    return m_model->rowCount();
}

QString FileListBox::fileName() const
{
    return currentIndex().data().toString();
}
