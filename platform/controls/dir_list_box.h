// SPDX-License-Identifier: MIT
// The classic directory list: the open folder's path from the root down, then its sub-folders.
#pragma once

#include <QListView>

class DirListModel;
class RuntimeError;

/// A click only points at a folder; a double-click or Enter opens it, and only opening changes the
/// path and fires pathChanged.
class DirListBox : public QListView
{
    Q_OBJECT

public:
    explicit DirListBox(QWidget *parent = nullptr);

    /// The open folder, without a backslash at its end unless it is a drive's root.
    const QString &path() const { return m_path; }

    /// Opens a folder; fires pathChanged when it is another one than before (blind to case).
    /// Throws RuntimeError: Path not found (76), Path/File access error (75); the path stays then.
    void setPath(const QString &path);

    /// Has the sub-folders read again.
    void refresh();

Q_SIGNALS:
    void pathChanged();
    /// The user opened a folder that cannot be read.
    void openFailed(const RuntimeError &error, const QString &folder);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void open(const QString &folder);
    void openEntry(const QModelIndex &entry);

    DirListModel *m_model;
    QString m_path;
};
