// SPDX-License-Identifier: MIT
// The classic directory list: the open folder's path from the root down, then its sub-folders.
#pragma once

#include "platform/controls/list_box.h"

class FolderDelegate;

/// A click only points at a folder; a double-click or Enter chooses it, and whoever listens opens
/// it with setPath, which itself tells nobody.
class DirListBox : public ListBox
{
    Q_OBJECT

public:
    explicit DirListBox(QWidget *parent = nullptr);

    /// The open folder, without a backslash at its end unless it is a drive's root.
    const QString &path() const { return m_path; }

    /// Opens a folder. Returns whether it is another one than before (blind to case); the first one
    /// always is, for nobody has chosen the current directory, where the box begins. Throws
    /// RuntimeError: Path not found (76), Path/File access error (75); the path stays then.
    bool setPath(const QString &path);

    /// Has the sub-folders read again.
    void refresh() { open(m_path); }

Q_SIGNALS:
    void folderChosen(const QString &folder); ///< by the user

protected:
    void showEvent(QShowEvent *event) override;

private:
    void open(const QString &folder);
    void chooseEntry();

    FolderDelegate *m_delegate;
    QString m_path;
    bool m_pointed = false; ///< at a folder, since the beginning
};
