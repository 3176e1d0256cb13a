// SPDX-License-Identifier: MIT
// Page 2, the flight plan set creator: three text files that belong together, step by step.
#pragma once

#include "fpset/fpset_name.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class FpSetPage;
}

class Step;
struct FormState;
struct Services;

class FpSetPage : public QWidget
{
    Q_OBJECT

public:
    explicit FpSetPage(Services &services, QWidget *parent = nullptr);
    ~FpSetPage() override;

    /// Gives the name box the default name and forgets any set in progress.
    void prepare();

    /// Shows where TTools is; a path that does not name it changes nothing.
    void showTTools(const QString &path);

    /// Lets a set be named, once TTools is known.
    void enableNaming();

    /// The name box, when it can be used.
    void focusNameBox();

    /// The airports of a new set were added: its airport file is shown by its name.
    void showAirportFile();

    /// The aircraft of a new set were added: back to its name and the button that creates it.
    void continueWithSet();

Q_SIGNALS:
    void quitPressed();
    void helpWanted();
    void pageWanted(int page);
    /// Airports are to be chosen for this new file: page 1 takes it over.
    void airportsWanted(const QString &airportPath);
    /// The reminder of how airports are added is due; shown before this returns.
    void reminderDue();
    /// Aircraft may be added to this new file: page 0 takes it over and loads its lists for it.
    void aircraftWanted(const QString &aircraftPath);
    /// The aircraft file of a set that was just created: page 0 takes it over.
    void aircraftFileChosen(const QString &aircraftPath);
    /// A file of a set that was given up is gone.
    void fileDiscarded(const QString &path);
    /// The set was created: airports may still be added to its file, as to any other.
    void setCreated();
    /// The set was created or given up: the other pages work for none any more.
    void setClosed();

private:
    // Handlers. The names are the product's.
    void tab2cmdFindTTools_Click();
    void tab2Command2_Click();
    void tab2optCreatefile_Click();
    void tab2optCopyFile_Click();
    void tab2cmdAirport_Click();
    void tab2optCreateNewAircraft_Click();
    void tab2optCopyExistingAircraft_Click();
    void tab2cmdAircraft_Click();
    void tab2cmdCreateNewFP_Click();
    void tab2cmdCancel_Click();
    void tab2cmdQuit_Click();

    void CheckForValidFileName(const QString &fileName);
    static bool FileExists(const QString &path);

    // The steps, in their order.
    void connectControls();
    void takeTToolsDirectory(const QString &path);
    void enterNamingStep();
    void refuseTTools();
    void startOverNaming();
    void enterAirportStep();
    void askForAirports();
    void enterAircraftStep(const QString &airportSource);
    void askForAircraft(Step &step);
    void enterCreationStep();
    void createFiles(Step &step);
    void leaveCreationStep();
    void discardFilesOfSet();
    void resetSteps();

    void focusNameEnd();
    void trace(const QString &text);
    /// Names the step for the log and for error reports alike.
    void beginStep(const QString &text, Step &step);
    void showNotice(const QString &prompt);

    Services &m_services;
    FormState &m_state;
    std::unique_ptr<Ui::FpSetPage> ui;
    QString m_setName;          ///< the verified name of the set in progress
    fpset_name::FileSet m_set;  ///< and its files
    bool m_nameValid = false;   ///< what CheckForValidFileName found
    bool m_newAircraft = false; ///< "Create New" was used for aircraft, in any set so far
    bool m_setCreated = false;  ///< a set has been created since the start
};
