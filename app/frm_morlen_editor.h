// SPDX-License-Identifier: MIT
// The main window: start-up, quitting, and everything that connects the pages.
#pragma once

#include "app/services/set_in_progress.h"
#include "app/services/suite_registry.h"
#include "app/session.h"

#include <QMainWindow>

#include <memory>

namespace Ui
{
class frmMorlenEditor;
}

class AircraftLoaderPage;
class AirportLoaderPage;
class ConfigEditorPage;
class FpSetPage;
class frmSplash;
struct Outside;
struct Services;

class frmMorlenEditor : public QMainWindow
{
    Q_OBJECT

public:
    explicit frmMorlenEditor(const Outside &outside);
    ~frmMorlenEditor() override;

    /// The start-up sequence. Ends with the window shown, whatever step failed.
    void Form_Load();

    FormState &state();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    // Handlers. The names are the product's.
    void Form_Unload();

    /// Nobody calls it: Form_Unload has asked by then.
    void Form_Terminate() { Form_Unload(); }

    void SSTab1_Click(int PreviousTab);

    void cmdQuit_Click() { quitFrom(0); }

    void mnuQuit_Click();
    void mnuTrace_Click();
    void lblAbout_Click();

    void mnuAbout_Click() { lblAbout_Click(); }

    void lblHelp_Click() { openHelp("Docs\\MorlenEHelp.htm"); }

    void mnuHelpFile_Click() { lblHelp_Click(); }

    void Tab0Help_Click() { openHelp("Docs\\AIAircraftLoader.htm"); }

    void tab1Help_Click() { openHelp("Docs\\AIAirportLoader.htm"); }

    void Tab2lblHelp_Click() { openHelp("Docs\\MorlenEdit.htm"); }

    void tab3VarloHelp_Click() { openHelp("Docs\\VarloHelp.htm"); }

    void mnuDonations_Click() { openHelp("Donate.htm"); }

    void CheckRegistry();
    void launch(const QString &path, const QString &program, const QString &caption);
    void lblPellara_Click();
    void FindFSPath();
    void SaveSettings();

    void makePages();
    void connectControls();
    void connectPages();
    void connectSet();

    void showReminder();
    void takeDirectory(const QString &directory);
    void openAircraftDir(const QString &directory);

    // The steps of the start-up. One that fails is told, and those that do not need it are taken.
    template <typename Body>
    bool take(const QString &what, Body body);
    void startUp(frmSplash &splash);
    void findProgramFolder();
    QString readSession();
    bool restore(const Settings &settings);
    void restoreDirectory(const QString &directory);
    void selectPage(const QString &lastTab);

    QString settingsPath() const { return m_session.path(); }

    void openHelp(const char *relativePath);
    void quitFrom(int page);
    void end();

    static constexpr int fpSetPageNumber = 2;

    std::unique_ptr<Services> m_ownServices;
    Services &m_services;
    Session m_session;
    suite_registry::Companions m_companions;
    SetInProgress m_set;
    std::unique_ptr<Ui::frmMorlenEditor> ui;
    AircraftLoaderPage *m_aircraftLoader = nullptr;
    AirportLoaderPage *m_airportLoader = nullptr;
    FpSetPage *m_fpSet = nullptr;
    ConfigEditorPage *m_configEditor = nullptr;
    int m_page = 0;         ///< the page shown
    bool m_canWrite = true; ///< the program folder, as the start-up found
};
