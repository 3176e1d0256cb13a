// SPDX-License-Identifier: MIT
// The classic file list: the files of one folder that match a pattern, blind to case.
#pragma once

#include "platform/controls/list_box.h"

class FileListBox : public ListBox
{
    Q_OBJECT
    Q_PROPERTY(QString pattern MEMBER m_pattern) ///< as of the next setPath

public:
    using ListBox::ListBox;

    const QString &path() const { return m_path; }

    /// Lists another folder. Throws RuntimeError: Path not found (76), Path/File access error (75).
    void setPath(const QString &path);

    void clearFileName() { setListIndex(-1); } ///< leaves no file selected

private:
    QString m_pattern = QStringLiteral("*");
    QString m_path;
};
