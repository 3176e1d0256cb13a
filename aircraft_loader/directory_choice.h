// SPDX-License-Identifier: MIT
// Page 0's aircraft directory: the folder picker it is chosen with.
#pragma once

#include <QList>
#include <QObject>

class QWidget;

namespace Ui
{
class AircraftLoaderPage;
}

struct Services;

class DirectoryChoice : public QObject
{
    Q_OBJECT

public:
    DirectoryChoice(Ui::AircraftLoaderPage &ui, Services &services, QObject *parent);

    /// Shows the directory, or asks for one (an empty path), and points the picker at it. Throws
    /// RuntimeError: Path not found (76), Path/File access error (75), Device unavailable (68).
    void show(const QString &directory);
    QString shown() const; ///< the text of lblFSPath

    /// Closes the picker if it is open, and points it at the directory shown again.
    void close();

Q_SIGNALS:
    void taken(const QString &directory);  ///< another one is in use now
    void chosen(const QString &directory); ///< and it was the user who opened it
    void refused();                        ///< the user closed the picker at any other folder

private:
    // Handlers. The names are the product's.
    void cmdBrowseFSPath_Click();
    void Drive1_Change();
    void Dir1_Change();
    void Command1_Click();

    // The steps of the handlers.
    void openFolder(const QString &folder, const QString &errorTitle);
    bool takeFolder();
    void showPath(const QString &directory);
    void openPicker();
    void closePicker();

    Ui::AircraftLoaderPage &m_ui;
    Services &m_services;
    QList<QWidget *> m_disabled; ///< while the picker is open
};
