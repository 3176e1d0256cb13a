// SPDX-License-Identifier: MIT
// Page 1, the AI airport loader: chooses airports of the world and appends them to a text file.
#pragma once

#include "airport_loader/airport_text_file.h"
#include "airport_loader/master_airport_list.h"

#include <QWidget>

#include <memory>

class ListBox;
class Step;
struct FormState;
struct Services;

namespace Ui
{
class AirportLoaderPage;
}

class AirportLoaderPage : public QWidget
{
    Q_OBJECT

public:
    explicit AirportLoaderPage(Services &services, QWidget *parent = nullptr);
    ~AirportLoaderPage() override;

    /// Fills the list of countries; it is not cleared first.
    void LoadCountry();

    /// Makes a new set's airport file the current one; it cannot be browsed away.
    void takeFileForSet(const QString &path);

    /// The set is created or given up: its file is forgotten and the page is as at the start.
    void leaveSet();

    /// The set was created: its file stays the current one, of a set no more.
    void keepFileOfSet();

    /// Whether the airport selected among the available ones is named by an entry of "Airports to
    /// Add"; shows "Duplicate Airport!" then.
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
    /// Airports were written, or not, for that set: page 2 goes on.
    void airportsWrittenForSet();

private:
    void connectControls();
    void addListActions();
    void Tab1cmdBrowse_Click();
    void Tab1cmdEdit_Click();
    void Tab1cmdPrevious_Click();
    void Tab1cmdReset_Click();
    void Tab1cmdCreateFile_Click();
    void Tab1Command2_Click();
    void Tab1List1_DblClick();
    void Tab1List1_MouseDown();
    void Tab1List2_MouseDown();
    void Tab1List1_DragDrop(const QString &text);
    void Tab1List2_DragDrop(const QString &text);
    void sortOption_Click();
    void LoadProvince();
    void LoadCity();

    void showFilePrompt();
    void showMissingFileName();
    void enableSortOptions(bool on);
    void showListToolTip(const QString &level);
    /// Adds what a reading of the list gave, then throws what ended it.
    void addAvailable(const master_airport_list::Listing &listing);
    void readTextFile();
    void showExistingCount();
    AirportChoice choiceFor(const QString &item) const;
    /// How many hidden entries are older than the visible list: they stand before its own.
    int hiddenOffset() const;
    /// Appends the airports of all new choices. Returns whether any line was written.
    bool appendChosen(Step &step);
    QStringList linesOf(const QList<AirportChoice> &choices, Step &step);
    QString selectedText(const ListBox &list) const;

    Services &m_services;
    FormState &m_state;
    std::unique_ptr<Ui::AirportLoaderPage> ui;
    bool m_servesSet = false;     ///< the file is that of a new flight plan set
    bool m_provinceLevel = false; ///< provinces are shown, or airports of one
    bool m_airportLevel = false;  ///< airports are shown
    QString m_selectedCountry;    ///< whose provinces or airports are shown
    QString m_savedCountry;       ///< last double-clicked among the countries
    QString m_provinceCountry;    ///< the same, of the countries that are browsed by province
    QString m_selectedProvince;
    int m_existingCount = 0; ///< entries after the last edit
};
