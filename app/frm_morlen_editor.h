// SPDX-License-Identifier: MIT
// The main window: start-up, quitting, and everything that connects the pages.
#pragma once

#include "app/services/services.h"
#include "app/services/settings_file.h"

#include <QList>
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
class LinkLabel;

class frmMorlenEditor : public QMainWindow
{
    Q_OBJECT

public:
    explicit frmMorlenEditor(const Outside &outside);
    ~frmMorlenEditor() override;

    /// The start-up sequence. Ends with the window shown, even when a step failed.
    void Form_Load();

    FormState &state() { return m_services.state; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    // Handlers. The names are the product's.
    void Form_Unload();
    void Form_MouseMove();
    void SSTab1_Click(int page);
    void cmdQuit_Click();
    void quitFromPage1();
    void tab2cmdQuit_Click();
    void mnuQuit_Click();
    void mnuTrace_Click();
    void lblAbout_Click();
    void lblHelp_Click();
    void Tab0Help_Click();
    void tab1Help_Click();
    void Tab2lblHelp_Click();
    void tab3VarloHelp_Click();
    void mnuDonations_Click();

    void CheckRegistry();
    void launch(const QString &path, const QString &program, const QString &caption);
    void launchVarlo();
    void lblPellara_Click();
    void FindFSPath();
    void SaveSettings();

    void lookAhead();
    void makePages();
    void connectPages();
    void connectHover();

    void showReminder();
    void takeDirectory(const QString &directory);
    void openAircraftDir(const QString &directory);

    // The steps of the start-up.
    void startUp();
    void findProgramFolder();
    QByteArray readSettingsFile();
    void restore(const Settings &settings);
    void restoreDirectory(const QString &directory);
    void logSettings(const Settings &settings);
    void selectPage(const QString &lastTab);

    QString settingsPath() const;
    void openHelp(const QString &relativePath);
    void heat(LinkLabel *label);
    void end();

    Services m_services;
    std::unique_ptr<Ui::frmMorlenEditor> ui;
    AircraftLoaderPage *m_aircraftLoader = nullptr;
    AirportLoaderPage *m_airportLoader = nullptr;
    FpSetPage *m_fpSet = nullptr;
    ConfigEditorPage *m_configEditor = nullptr;
    std::unique_ptr<frmSplash> m_splash; ///< while the program loads
    QList<LinkLabel *> m_hotLabels;      ///< shown bold under the mouse
    QList<const QWidget *> m_bareAreas;  ///< where the mouse takes the bold away
};
