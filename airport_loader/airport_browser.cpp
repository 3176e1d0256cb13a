// SPDX-License-Identifier: MIT
#include "airport_loader/airport_browser.h"

#include "app/services/error_report.h"
#include "app/services/form_state.h"
#include "platform/basic.h"
#include "platform/controls/wait_pointer.h"

#include "ui_airport_loader_page.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr int expectedLines = 24'000; // of the master list
constexpr int linesPerStep = 50;      // of the progress: telling each line took as long as reading

bool isBrowsedByProvince(const QString &country)
{
    return country == u"Australia"_s || country == u"United States"_s || country == u"Canada"_s;
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
    ui.Tab1List2->setToolTip(u" To remove an Airport Drag and Drop it in the \""_s + level +
                             u" \"List "_s);
    ui.Tab1cmdPrevious->setText(wayBack);
}

void AirportBrowser::LoadCountry()
{
    m_errors.run(u"Load Country Errors"_s, [this](Step &step) {
        step.set(u"Opening OCX"_s);
        const QByteArray list = master_airport_list::OpenOCX(m_state.MorlenEDir, step);
        const WaitPointer pointer;
        step.set(u"Setting Progress Bar"_s);
        Q_EMIT countriesLoading(expectedLines);
        step.set(u"Loop through OCX"_s);
        addAvailable(master_airport_list::countries(list, [this](int number) {
            if (number % linesPerStep == 0) {
                Q_EMIT countryLineRead(number);
            }
        }));
        showLevel(u"Country"_s, u"Country"_s, u"Clear List"_s);
        ui.Tab1cmdPrevious->hide();
    });
}

void AirportBrowser::LoadProvince()
{
    m_errors.run(u"Load Province Error"_s, [this](Step &step) {
        ui.Tab1List1->clear();
        step.set(u"Opening OCX"_s);
        const QByteArray list = master_airport_list::OpenOCX(m_state.MorlenEDir, step);
        step.set(u"Loading OCX Data"_s);
        addAvailable(master_airport_list::provinces(list, m_savedCountry));
        m_provinceLevel = ui.Tab1List1->count() > 0;
        if (!m_provinceLevel) {
            LoadCity();
            return;
        }
        showLevel(u"Province/State in "_s + m_savedCountry + u' ' +
                      basic::str(ui.Tab1List1->count()),
                  u"Province/State"_s, u"Clear Province List"_s);
    });
}

void AirportBrowser::LoadCity()
{
    using namespace master_airport_list;
    m_errors.run(u"Load City Error"_s, [this](Step &step) {
        ui.Tab1List1->clear();
        step.set(u"Opening OCX"_s);
        const QByteArray list = OpenOCX(m_state.MorlenEDir, step);
        step.set(u"Loading OCX Data"_s);
        const AirportItem form =
            ui.Tab1optName->isChecked() ? AirportItem::NameFirst : AirportItem::IcaoFirst;
        addAvailable(m_provinceLevel ? airportsOfProvince(list, m_selectedProvince, form)
                                     : airportsOfCountry(list, m_savedCountry, form));
        showLevel(u"Airports in "_s + (m_provinceLevel ? m_selectedProvince : m_savedCountry) +
                      u' ' + basic::str(ui.Tab1List1->count()),
                  u"Cities"_s, u"Clear Airport List"_s);
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
    ui.Tab1Label1->setText(u"Country"_s);
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
    const QString separator = u" - "_s;
    const qsizetype position = item.indexOf(separator);
    const bool byName = ui.Tab1optName->isChecked();
    if (position >= 0) {
        return {byName ? item.sliced(position + separator.size()) : item.first(position),
                m_savedCountry};
    }
    // A province is looked up in its country only with the airports sorted by name.
    return {item, byName && isBrowsedByProvince(m_provinceCountry) ? m_provinceCountry : item};
}
