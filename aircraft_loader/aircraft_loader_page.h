// SPDX-License-Identifier: MIT
// Page 0, the AI aircraft loader: which installed aircraft a text file lacks, and adding them.
#pragma once

#include "aircraft_loader/available_aircraft.h"
#include "platform/controls/repaint.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class AircraftLoaderPage;
}

class ListBox;
struct FormState;
struct Services;

class AircraftLoaderPage : public QWidget
{
    Q_OBJECT

public:
    explicit AircraftLoaderPage(Services &services, QWidget *parent = nullptr);
    ~AircraftLoaderPage() override;

    /// Rebuilds the lists from the text file and the aircraft directory. Failures are shown.
    void LoadList();
    void ClearLists();

    /// Shows the aircraft directory; empty when the simulator was not found.
    void showDirectory(const QString &directory);
    QString shownDirectory() const; ///< the text of lblFSPath

    /// Points the folder picker at a directory, which Dir1_Change then takes or refuses.
    /// Throws RuntimeError: Path not found (76), Path/File access error (75), Device unavailable
    /// (68).
    void openDirectory(const QString &directory);

    /// A directory was chosen on another page: it is taken over, and the text file asked for again.
    void followDirectory(const QString &directory);

    /// Shows the text file of the previous run and, when there is a directory too, fills the lists.
    void restoreTextFile(const QString &path);

    /// Makes a set's aircraft file the current one and loads the lists for it.
    void takeFileOfSet(const QString &path);

    /// Asks for a text file when this one was the current one: it is gone.
    void forgetFile(const QString &path);

    /// Leaves no entry of the folder picker selected.
    void pointAtNoFolder();

    void focusFirstControl();
    void pressQuit();

Q_SIGNALS:
    void simulatorVersionChosen();
    void directoryChosen(const QString &directory);
    void aircraftAddedForSet();
    void quitPressed();
    void helpWanted();

private:
    // Handlers. The names are the product's.
    void opt2002_Click();
    void opt2004_Click();
    void cmdBrowseFSPath_Click();
    void Drive1_Change();
    void Dir1_Change();
    void Command1_Click();
    void cmdBrowseText_Click();
    void cmdEdit_Click();
    void cmdTtools_Click();
    void cmdAddAI_Click();
    void Tab0List2_Click();
    void Tab0List3_DblClick();
    void optAll_Click();
    void optClear_Click();

    // The steps of the handlers.
    void readTextFile();
    void walkFolders();
    void FindAvailableAI();
    void addChecked();
    void addAircraft(const QString &speed, const QString &title);
    void checkAll(bool on);
    bool enableAddAircraft();
    void takeTextFile(const QString &path, qsizetype limit);
    void fillFromTextFile();
    void refuseTextFile();
    void askForTextFile();
    void showLists(bool visible);
    void showNotice(const QString &prompt);

    std::unique_ptr<Ui::AircraftLoaderPage> ui;
    Services &m_services;
    FormState &m_state;
    AircraftWalk m_walk;
    AircraftWalk::Layout m_layout; ///< AirplanesLayout and RotorcraftLayout
    std::int16_t AircraftCount = 0;
    std::int16_t Number = 0;
    bool ListLoaded = false;
    bool SearchActive = false;
    bool NoneAdded = true;
};
