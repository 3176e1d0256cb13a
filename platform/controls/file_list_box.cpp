// SPDX-License-Identifier: MIT
#include "platform/controls/file_list_box.h"

#include "platform/files.h"

void FileListBox::setPath(const QString &path)
{
    setItems(files::filesMatching(path, m_pattern));
    m_path = path;
}
