// SPDX-License-Identifier: MIT
#include "platform/file_list_box.h"

#include "platform/files.h"

FileListBox::FileListBox(QWidget *parent) : QListView(parent)
{
    setModel(&m_model);
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void FileListBox::setPattern(const QString &pattern)
{
    m_pattern = pattern;
    if (!m_path.isEmpty()) {
        setPath(m_path);
    }
}

void FileListBox::setPath(const QString &path)
{
    m_model.setStringList(files::filesMatching(path, m_pattern));
    m_path = path;
}

QString FileListBox::fileName() const
{
    return currentIndex().data().toString();
}
