// SPDX-License-Identifier: MIT
#include "airport_loader/airport_browser.h"

#include "app/services/error_report.h"
#include "platform/basic.h"
#include "platform/controls/wait_pointer.h"

#include "ui_airport_loader_page.h"

namespace
{

constexpr int expectedLines = 24'000; // of the master list
constexpr int linesPerStep = 50;      // of the progress: telling each line took as long as reading

bool isBrowsedByProvince(const QString &country)
{
    return country == "Australia" || country == "United States" || country == "Canada";
}

} // namespace

void AirportBrowser::addAvailable(const master_airport_list::Listing &listing)
{
    ui.Tab1List1->setItems(ui.Tab1List1->items() + listing.items);
    if (listing.failure) {
        throw RuntimeError(*listing.failure);
    }
}

void AirportBrowser::showLevel(const QString &heading, const QString &level, const QString &wayBack)
{
    ui.Tab1Label1->setText(heading);
    // The quote stands before "List" in this product.
    ui.Tab1List2->setToolTip(" To remove an Airport Drag and Drop it in the \"" + level +
                             " \"List ");
    ui.Tab1cmdPrevious->setText(wayBack);
}

void AirportBrowser::LoadCountry()
{
    m_errors.run("Load Country Errors", [this](Step &step) {
        step.set("Opening OCX");
        const QByteArray list = master_airport_list::OpenOCX(step);
        const WaitPointer pointer;
        step.set("Setting Progress Bar");
        Q_EMIT countriesLoading(expectedLines);
        step.set("Loop through OCX");
        addAvailable(master_airport_list::countries(list, [this](int number) {
            if (number % linesPerStep == 0) {
                Q_EMIT countryLineRead(number);
            }
        }));
        showLevel("Country", "Country", "Clear List");
        ui.Tab1cmdPrevious->hide();
    });
}

void AirportBrowser::LoadProvince()
{
    m_errors.run("Load Province Error", [this](Step &step) {
        ui.Tab1List1->clear();
        step.set("Opening OCX");
        const QByteArray list = master_airport_list::OpenOCX(step);
        step.set("Loading OCX Data");
        addAvailable(master_airport_list::provinces(list, m_savedCountry));
        m_provinceLevel = ui.Tab1List1->count() > 0;
        if (!m_provinceLevel) {
            LoadCity();
            return;
        }
        showLevel("Province/State in " + m_savedCountry + ' ' + basic::str(ui.Tab1List1->count()),
                  "Province/State", "Clear Province List");
    });
}

void AirportBrowser::LoadCity()
{
    using namespace master_airport_list;
    m_errors.run("Load City Error", [this](Step &step) {
        ui.Tab1List1->clear();
        step.set("Opening OCX");
        const QByteArray list = OpenOCX(step);
        step.set("Loading OCX Data");
        const AirportItem form =
            ui.Tab1optName->isChecked() ? AirportItem::NameFirst : AirportItem::IcaoFirst;
        addAvailable(m_provinceLevel ? airportsOfProvince(list, m_selectedProvince, form)
                                     : airportsOfCountry(list, m_savedCountry, form));
        showLevel("Airports in " + (m_provinceLevel ? m_selectedProvince : m_savedCountry) + ' ' +
                      basic::str(ui.Tab1List1->count()),
                  "Cities", "Clear Airport List");
        enableSortOptions(true);
        m_airportLevel = true;
    });
}

void AirportBrowser::Tab1List1_DblClick()
{
    const QString item = ui.Tab1List1->text(ui.Tab1List1->listIndex());
    if (m_airportLevel) {
        m_provinceCountry = item;
    } else if (m_provinceLevel) {
        m_selectedProvince = item;
        LoadCity();
    } else {
        m_savedCountry = item;
        if (isBrowsedByProvince(item)) {
            m_provinceCountry = item;
        }
        LoadProvince();
        ui.Tab1cmdPrevious->show();
        ui.Tab1lblDragnDrop->hide();
    }
}

void AirportBrowser::Tab1cmdPrevious_Click()
{
    ui.Tab1lblDragnDrop->show();
    enableSortOptions(false);
    showCountries();
}

void AirportBrowser::showCountries()
{
    ui.Tab1List1->clear();
    ui.Tab1Label1->setText("Country");
    m_provinceLevel = false;
    m_airportLevel = false;
    m_provinceCountry.clear();
    LoadCountry();
}

void AirportBrowser::orderAirports()
{
    if (m_airportLevel) {
        ui.Tab1cmdCreateFile->setEnabled(false);
        LoadCity();
    }
}

void AirportBrowser::enableSortOptions(bool on)
{
    ui.Tab1Frame2->setEnabled(on);
    ui.Tab1optName->setEnabled(on);
    ui.Tab1optICAO->setEnabled(on);
}

AirportChoice AirportBrowser::choose(const QString &item)
{
    if (m_savedCountry.isEmpty()) {
        m_savedCountry = item;
    }
    return choiceFor(item);
}

AirportChoice AirportBrowser::choiceFor(const QString &item) const
{
    const QString separator = QStringLiteral(" - ");
    const qsizetype position = item.indexOf(separator);
    const bool byName = ui.Tab1optName->isChecked();
    if (position >= 0) {
        return {byName ? item.sliced(position + separator.size()) : item.first(position),
                m_savedCountry};
    }
    // A province is looked up in its country only with the airports sorted by name.
    return {item, byName && isBrowsedByProvince(m_provinceCountry) ? m_provinceCountry : item};
}
