// SPDX-License-Identifier: MIT
// The classic file list: the files of one folder that match a pattern, blind to case.
#pragma once

#include <QListView>

class FileListModel;

class FileListBox : public QListView
{
    Q_OBJECT
    Q_PROPERTY(QString pattern READ pattern WRITE setPattern)

public:
    explicit FileListBox(QWidget *parent = nullptr);

    const QString &pattern() const { return m_pattern; }

    void setPattern(const QString &pattern);

    const QString &path() const { return m_path; }

    /// Lists another folder. Throws RuntimeError: Path not found (76), Path/File access error (75).
    void setPath(const QString &path);

    int count() const;

    QString fileName() const; ///< the selected file, empty when none is

    void clearFileName() { setCurrentIndex({}); }

private:
    FileListModel *m_model;
    QString m_pattern = QStringLiteral("*");
    QString m_path;
};
