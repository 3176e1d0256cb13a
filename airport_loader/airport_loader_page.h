// SPDX-License-Identifier: MIT
// Page 1, the AI airport loader: chooses airports of the world and appends them to a text file.
#pragma once

#include "airport_loader/airport_browser.h"

#include <QWidget>

#include <memory>

class Progress;
class Step;
struct FormState;
struct Services;
struct SetInProgress;

class AirportLoaderPage : public QWidget
{
    Q_OBJECT

public:
    AirportLoaderPage(Services &services, const SetInProgress &set, QWidget *parent = nullptr);
    ~AirportLoaderPage() override;

    /// Fills the list of countries; it is not cleared first.
    void LoadCountry() { m_browser.LoadCountry(); }

    /// Makes a new set's airport file the current one; it cannot be browsed away.
    void takeFileForSet(const QString &path);

    /// Leaves this file, when it is the current one, and the page as at the start.
    void forgetFile(const QString &path);

    /// The set was created: its file stays the current one, of a set no more.
    void keepFileOfSet();

    /// Whether the airport selected among the available ones is named by an entry of "Airports to
    /// Add"; shows "Duplicate Airport!" then. No drop asks: what was chosen leaves the list.
    bool AirportExists();

Q_SIGNALS:
    void helpWanted();
    void quitPressed();
    /// The reminder of how airports are added is due; shown before this returns.
    void reminderDue();
    /// The list of countries begins to load: how many lines are expected.
    void countriesLoading(int expectedLines);
    /// Some lines further on.
    void countryLineRead(int number);
    /// Quit was pressed while airports are chosen for a flight plan set.
    void returnToSet();
    /// Airports were appended to this file; empty when there were none to append.
    void airportsAdded(const QString &path);

private:
    // Handlers. The names are the product's.
    void Tab1cmdBrowse_Click();
    void Tab1cmdEdit_Click();
    void Tab1cmdReset_Click();
    void Tab1cmdCreateFile_Click();
    void Tab1Command2_Click();
    void Tab1List1_MouseDown();
    void Tab1List2_MouseDown();
    void Tab1List1_DragDrop(const QString &text);
    void Tab1List2_DragDrop(const QString &text);

    void addListActions();
    void showFilePrompt();
    void showMissingFileName();
    void readTextFile();
    void showExistingCount();
    /// Forgets choices that are written already, when something else is begun while the file is
    /// still viewed.
    void forgetDone();
    /// How many hidden entries are older than the visible list: they stand before its own.
    int hiddenOffset() const;
    /// Appends the airports of all new choices; `written` says once there are any in the file.
    void appendChosen(bool &written, Step &step);
    bool wantsToView();
    QStringList linesOf(const QList<AirportChoice> &choices, Progress &progress, Step &step);

    Services &m_services;
    FormState &m_state;
    const SetInProgress &m_set;
    std::unique_ptr<Ui::AirportLoaderPage> ui;
    AirportBrowser m_browser;
    qsizetype m_existing = 0; ///< how many entries of "Airports to Add" are the file's: the first
    bool m_done = false;      ///< the choices are written, and stand until the page is reset
};
