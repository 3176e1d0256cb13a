// SPDX-License-Identifier: MIT
// Page 3, the aircraft and panel editor. Its folder picker already follows page 0's; editing is not
// part of this version, so its controls are not shown.
#pragma once

#include "app/services/services.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class ConfigEditorPage;
}

class ConfigEditorPage : public QWidget
{
    Q_OBJECT

public:
    explicit ConfigEditorPage(Services &services, QWidget *parent = nullptr);
    ~ConfigEditorPage() override;

    QString drive() const; ///< as the drive list reports it

    /// Throws RuntimeError: Device unavailable (68).
    void setDrive(const QString &drive);

    /// Points the folder picker at a directory.
    /// Throws RuntimeError: Path not found (76), Path/File access error (75).
    void openDirectory(const QString &directory);

    void showVarlo();

    /// Selects the first aircraft, or asks for the directory when there is none.
    void showFirstAircraft();

    /// Selects the first entry, whatever it is; an empty list stays as it is.
    void selectFirstEntry();

Q_SIGNALS:
    void directoryChosen(const QString &directory);
    void helpWanted();

private:
    void Tab3Dir1_Change();

    std::unique_ptr<Ui::ConfigEditorPage> ui;
};
