// SPDX-License-Identifier: MIT
// The classic drive list: the drives there are, letter first.
#pragma once

#include <QComboBox>

/// Only its user makes it fire currentTextChanged, with the drive.
class DriveListBox : public QComboBox
{
    Q_OBJECT

public:
    explicit DriveListBox(QWidget *parent = nullptr);

    QString drive() const { return currentText(); } ///< "c:", empty when there are no drives

    /// Shows a drive by the first letter of a text, as "C:\FS9" or "c:", and returns whether there
    /// is such a drive; one there is not changes nothing.
    bool showDrive(const QString &path);
};
