// SPDX-License-Identifier: MIT
// Page 3, the aircraft and panel editor: every installed aircraft, its aircraft.cfg and panel.cfg
// for Notepad, and the listing of all of them.
#pragma once

#include "config_editor/aircraft_catalogue.h"
#include "platform/dialogs.h"

#include <QWidget>

#include <memory>
#include <optional>

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

    /// Chooses a drive, which the folder picker follows when it is another one.
    /// Throws RuntimeError: Device unavailable (68).
    void setDrive(const QString &drive);

    /// Points the folder picker at a directory, the drive list with it.
    /// Throws RuntimeError: Path not found (76), Path/File access error (75).
    void openDirectory(const QString &directory);

    void showVarlo();

    /// Makes the companion's name a link; without the companion it is plain text, as at first.
    void offerVarlo(bool installed);

    /// Selects the first aircraft, or asks for the directory when there is none.
    void showFirstAircraft();

    /// Selects the first entry, whatever it is; an empty list stays as it is.
    void selectFirstEntry();

Q_SIGNALS:
    void directoryChosen(const QString &directory);
    void aircraftEdited(); ///< the user changed a file; the lists are rebuilt
    void varloWanted();
    void helpWanted();

private:
    // Handlers. The names are the product's.
    void Tab3Drive1_Change();
    void Tab3Dir1_Change();
    void Tab3List3_Click();
    void Tab3cmdedit_Click();
    void Tab3chkDumpList_Click();

    // The steps of the handlers.
    void readCatalogue(AircraftCatalogue &catalogue);
    void showCatalogue(const AircraftCatalogue &catalogue);
    void clearLists();
    void showTotal();
    void showLoading(bool loading);
    void askForDirectory();
    void setEditingEnabled(bool enabled);
    void openAircraftCfg(const QString &cfgFile);
    bool openPanelCfg(const QString &cfgFile, const QString &panel);
    void checkAlias(const QString &cfgFile);
    void askForChanges();
    void startNotepad(const QString &command);
    void DumpListing();

    std::unique_ptr<Ui::ConfigEditorPage> ui;
    Services &m_services;
    FormState &m_state;
    QString m_directory;    ///< the folder picker's, once it was acted upon
    QString m_editPath;     ///< the file last meant to be edited
    bool m_noPanel = false; ///< the last panel asked for is not there
    bool m_dumpRequested = false;
    std::optional<MessageBox::Answer> m_aliasAnswer; ///< kept until a panel with an alias is asked
                                                     ///< for: a No goes on suppressing
};
