// SPDX-License-Identifier: MIT
// Page 0, the AI aircraft loader: which installed aircraft a text file lacks, and adding them.
#pragma once

#include "aircraft_loader/aircraft_text_file.h"
#include "aircraft_loader/available_aircraft.h"
#include "platform/controls/repaint.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class AircraftLoaderPage;
}

class AvailableList;
class DirectoryChoice;
class TextFileChoice;
struct FormState;
struct Services;
struct SetInProgress;

class AircraftLoaderPage : public QWidget
{
    Q_OBJECT

public:
    AircraftLoaderPage(Services &services, const SetInProgress &set, QWidget *parent = nullptr);
    ~AircraftLoaderPage() override;

    /// Rebuilds the lists from the text file and the aircraft directory. Failures are shown.
    void LoadList();
    void ClearLists();

    /// Shows the aircraft directory, or that there is none (an empty path). The folder picker is
    /// pointed at it; when it stood elsewhere the text file is asked for again. Throws
    /// RuntimeError: Path not found (76), Path/File access error (75), Device unavailable (68).
    void showDirectory(const QString &directory);
    QString shownDirectory() const; ///< the text of lblFSPath

    /// Asks for the text file; until one is chosen the lists are empty.
    void askForTextFile();

    /// Makes a set's aircraft file the current one; fillFromTextFile loads the lists for it.
    void takeFileOfSet(const QString &path);
    void fillFromTextFile();

    /// The same with the text file of the previous run, and loads the lists.
    void restoreTextFile(const QString &path)
    {
        takeFileOfSet(path);
        fillFromTextFile();
    }

    /// Loads the lists anew when they are of this file, which somebody else has written since.
    void followFile(const QString &path);

    /// Asks for a text file when this one was the current one: it is gone.
    void forgetFile(const QString &path);

    /// Leaves no entry of the folder picker selected.
    void pointAtNoFolder();

    void focusFirstControl();
    void pressQuit();

Q_SIGNALS:
    void simulatorVersionChosen();
    void directoryChosen(const QString &directory); ///< by the user
    void textFileChanged(const QString &path);      ///< the one in use; empty for none
    void aircraftAdded();
    /// Some were added before the rest failed.
    void aircraftAddedInPart();
    void quitPressed();
    void helpWanted();

private:
    // Handlers. The names are the product's.
    void opt2002_Click() { chooseVersion(QStringLiteral("2002")); }

    void opt2004_Click() { chooseVersion(QStringLiteral("2004")); }

    void cmdAddAI_Click();
    void Tab0List3_DblClick();

    // The steps of the handlers.
    void chooseVersion(const QString &version);
    bool isCurrent(const QString &path) const;
    void takeDirectory(const QString &directory);
    void readTextFile(Step &step);
    void walkFolders();
    void addChecked();
    void append(const QString &lines, bool first, Step &step);
    void followTextFile(Step &step);
    void showExisting();

    std::unique_ptr<Ui::AircraftLoaderPage> ui;
    Services &m_services;
    FormState &m_state;
    const SetInProgress &m_set;
    AvailableAircraft m_available;
    AvailableAircraft::Layout m_layout; ///< AirplanesLayout and RotorcraftLayout
    AircraftTextFile m_existing;        ///< as last read, counting on while aircraft are added
    DirectoryChoice *m_directory = nullptr;
    TextFileChoice *m_textFile = nullptr;
    AvailableList *m_list = nullptr;
    bool ListLoaded = false; ///< LoadList has filled the lists; nobody asks
};
