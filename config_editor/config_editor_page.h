// SPDX-License-Identifier: MIT
// Page 3, the aircraft and panel editor: every installed aircraft, its aircraft.cfg and panel.cfg
// for Notepad, and the listing of all of them.
#pragma once

#include "config_editor/alias_questions.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class ConfigEditorPage;
}

struct FormState;
struct Services;

class ConfigEditorPage : public QWidget
{
    Q_OBJECT

public:
    explicit ConfigEditorPage(Services &services, QWidget *parent = nullptr);
    ~ConfigEditorPage() override;

    /// Rebuilds the lists from the directory in the folder picker. Failures are shown.
    void Tab3LoadList();

    QString drive() const; ///< as the drive list reports it

    /// Shows a drive; the folder picker follows when it is another one.
    /// Throws RuntimeError: Device unavailable (68).
    void setDrive(const QString &drive);

    /// Shows a drive, if it is there; the folder picker stays where it is.
    void showDrive(const QString &drive);

    /// Points the folder picker at a directory, the drive list with it. When it stood elsewhere the
    /// aircraft are listed, the first one selected. Throws RuntimeError: Path not found (76),
    /// Path/File access error (75).
    void showDirectory(const QString &directory);
    QString directory() const; ///< the open folder of the picker

    void showVarlo();

    /// Makes the companion's name a link; without the companion it is plain text, as at first.
    void offerVarlo(bool installed);

    /// Selects the first aircraft, or asks for the directory when there is none.
    void showFirstAircraft();

    /// Selects the first entry, whatever it is; an empty list stays as it is.
    void selectFirstEntry();

Q_SIGNALS:
    void directoryChosen(const QString &directory); ///< by the user
    void aircraftEdited(); ///< the user changed a file; the lists are rebuilt
    void varloWanted();
    void helpWanted();

private:
    // Handlers. The names are the product's.
    void Tab3Dir1_Change();
    void Tab3List3_Click();
    void Tab3cmdedit_Click();
    void Tab3chkDumpList_Click();

    // The steps of the handlers.
    void openFolder(const QString &folder);
    bool takeFolder();
    void readCatalogue(AircraftCatalogue &catalogue);
    void showCatalogue(const AircraftCatalogue &catalogue);
    void showLoading(bool loading);
    void setEditingEnabled(bool enabled);
    bool openPanelCfg(const QString &cfgFile, const QString &panel, Step &step);
    void askForChanges();
    void showNotice(const QString &prompt);
    void startNotepad(const QString &command);
    void DumpListing(Step &step);

    std::unique_ptr<Ui::ConfigEditorPage> ui;
    Services &m_services;
    FormState &m_state;
    AliasQuestions m_aliasQuestions;
    QString m_editPath; ///< the file last meant to be edited
};
