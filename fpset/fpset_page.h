// SPDX-License-Identifier: MIT
// Page 2, the flight plan set creator: three text files that belong together, step by step.
#pragma once

#include "fpset/fpset_name.h"

#include <QWidget>

#include <memory>

struct SetInProgress;

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
    FpSetPage(Services &services, SetInProgress &set, QWidget *parent = nullptr);
    ~FpSetPage() override;

    /// Gives the name box the default name and forgets any set in progress.
    void prepare();

    /// Shows where TTools is; a path that does not name it changes nothing.
    void showTTools(const QString &path);

    /// Lets a set be named, once TTools is known.
    void enableNaming();

    /// The name box, when it can be used.
    void focusNameBox();

    /// Airports were appended to this file by page 1, or to none; the set may be one that waits.
    void continueWithAirports(const QString &path);

    /// Some aircraft were added on page 0: a file that holds them is emptied no more.
    void keepAircraft();

    /// Aircraft were added on page 0; a set that waits for them goes on.
    void continueWithAircraft();

Q_SIGNALS:
    void quitPressed();
    void helpWanted();
    /// Airports are to be chosen for this new file: page 1 takes it over and is shown.
    void airportsWanted(const QString &airportPath);
    /// The reminder of how airports are added is due; shown before this returns.
    void reminderDue();
    /// Aircraft may be added to this new file: page 0 takes it over, is shown and loads its lists.
    void aircraftWanted(const QString &aircraftPath);
    /// A creation may have emptied or replaced this file, be the set complete or not.
    void aircraftFileWritten(const QString &aircraftPath);
    /// The aircraft file of a set that was just created: page 0 takes it over.
    void aircraftFileChosen(const QString &aircraftPath);
    /// The set goes on here: this page is to be shown.
    void setContinues();
    /// A file of a set that was given up: no page works on it any more.
    void fileGivenUp(const QString &path);
    /// The set was created: airports may still be added to its file, as to any other.
    void setCreated();

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

    bool CheckForValidFileName(const QString &fileName);
    static bool FileExists(const QString &path);

    // The steps, in their order.
    void refuseTTools();
    void startOverNaming();
    void enterAirportStep();
    void askForAirports();
    void askForAircraft(Step &step);
    void createFiles(Step &step);
    QStringList giveUpFiles();

    void focusNameEnd();
    /// Names the step for the log and for error reports alike.
    void beginStep(const QString &text, Step &step);
    void showNotice(const QString &prompt);

    Services &m_services;
    FormState &m_state;
    std::unique_ptr<Ui::FpSetPage> ui;
    SetInProgress &m_set;
    fpset_name::FileSet m_files; ///< of the name verified last
    bool m_newAircraft = false;  ///< "Create New" was used for aircraft, in any set so far
    bool m_setCreated = false;   ///< a set has been created since the start
};
