// SPDX-License-Identifier: MIT
// The classic drive list: the drives there are, letter first.
#pragma once

#include <QComboBox>

class DriveListBox : public QComboBox
{
    Q_OBJECT

public:
    explicit DriveListBox(QWidget *parent = nullptr);

    QString drive() const; ///< "c:", empty when there are no drives

    /// Chooses a drive by the first letter of a text, as "C:\" or "c:", and fires driveChanged when
    /// it was another one. Throws RuntimeError: Device unavailable (68).
    void setDrive(const QString &drive);

    /// Shows the drive of a path without firing; a drive there is not changes nothing.
    void showDrive(const QString &path);

Q_SIGNALS:
    void driveChanged();
};
