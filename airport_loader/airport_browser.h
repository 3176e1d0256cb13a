// SPDX-License-Identifier: MIT
// Page 1's available list: countries, their provinces or states, their airports, and the way back.
#pragma once

#include "airport_loader/airport_text_file.h"

#include <QObject>

class ErrorReport;
struct FormState;

namespace Ui
{
class AirportLoaderPage;
}

class AirportBrowser : public QObject
{
    Q_OBJECT

public:
    AirportBrowser(Ui::AirportLoaderPage &page, const FormState &state, ErrorReport &errors)
        : ui(page), m_state(state), m_errors(errors)
    {
    }

    // Handlers. The names are the product's.
    void Tab1List1_DblClick();
    void Tab1cmdPrevious_Click();

    void Tab1optName_Click() { orderAirports(); }

    void Tab1optICAO_Click() { orderAirports(); }

    /// Fills the list of countries; it is not cleared first.
    void LoadCountry();

    /// Clears the list, and shows the countries.
    void showCountries();

    bool showsAirports() const { return m_airportLevel; }

    void enableSortOptions(bool on);

    /// What an entry stands for. One chosen before any country was opened becomes the country.
    AirportChoice choose(const QString &item);
    AirportChoice choiceFor(const QString &item) const;

Q_SIGNALS:
    /// The list of countries begins to load: how many lines are expected.
    void countriesLoading(int expectedLines);
    /// Some lines further on.
    void countryLineRead(int number);

private:
    void LoadProvince();
    void LoadCity();
    void orderAirports();
    /// Adds what a reading of the list gave, then throws what ended it.
    void addAvailable(const master_airport_list::Listing &listing);
    /// Says what the list shows, and what the button above it takes back.
    void showLevel(const QString &heading, const QString &level, const QString &wayBack);

    Ui::AirportLoaderPage &ui;
    const FormState &m_state;
    ErrorReport &m_errors;
    bool m_provinceLevel = false; ///< provinces are shown, or airports of one
    bool m_airportLevel = false;  ///< airports are shown
    QString m_savedCountry;       ///< last double-clicked: its provinces or airports are shown
    QString m_provinceCountry;    ///< the same, of the countries that are browsed by province
    QString m_selectedProvince;
};
