// SPDX-License-Identifier: MIT
#include "platform/controls/drive_list_box.h"

#include "platform/paths.h"
#include "platform/runtime_error.h"

#include <QSignalBlocker>

DriveListBox::DriveListBox(QWidget *parent) : QComboBox(parent)
{
    addItems(paths::drives());
    showDrive(paths::currentDirectory());
    connect(this, &QComboBox::currentIndexChanged, this, &DriveListBox::driveChanged);
}

QString DriveListBox::drive() const
{
    return currentText();
}

void DriveListBox::setDrive(const QString &drive)
{
    const int index = drive.isEmpty() ? -1 : findText(drive.first(1) + u':', Qt::MatchFixedString);
    if (index < 0) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    setCurrentIndex(index);
}

void DriveListBox::showDrive(const QString &path)
{
    const QSignalBlocker blocker(this);
    const int index = findText(path.left(1) + u':', Qt::MatchFixedString);
    if (index >= 0) {
        setCurrentIndex(index);
    }
}
