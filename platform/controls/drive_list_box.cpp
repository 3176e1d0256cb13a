// SPDX-License-Identifier: MIT
#include "platform/controls/drive_list_box.h"

#include "platform/paths.h"

#include <QSignalBlocker>

DriveListBox::DriveListBox(QWidget *parent) : QComboBox(parent)
{
    addItems(paths::drives());
    showDrive(paths::currentDirectory());
}

bool DriveListBox::showDrive(const QString &path)
{
    const QSignalBlocker blocker(this);
    const int index = findText(path.left(1) + ':', Qt::MatchFixedString);
    if (index >= 0) {
        setCurrentIndex(index);
    }
    return index >= 0;
}
