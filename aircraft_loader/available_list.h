// SPDX-License-Identifier: MIT
// Page 0's list of available aircraft: what the text file takes out of it, and the user's ticks.
#pragma once

#include <QLatin1StringView>
#include <QObject>

namespace Ui
{
class AircraftLoaderPage;
}

class AvailableList : public QObject
{
    Q_OBJECT

public:
    static constexpr QLatin1StringView caption{"Available Aircraft: "};

    AvailableList(Ui::AircraftLoaderPage &ui, QObject *parent);

    /// Shows both lists, or in their place that they are being filled.
    void showLists(bool visible);
    void showCount();

    /// Takes out what the existing aircraft use up. Throws RuntimeError: what is wrong with the
    /// line that ended the matching; what the lines above it use up is taken out all the same.
    void FindAvailableAI();

    /// Lists these aircraft less what the existing ones use up. An aircraft that was ticked stays
    /// so unless its title is among the existing ones. Throws as FindAvailableAI.
    void replace(const QStringList &entries);

    /// Adding failed at the entry `end`: takes out the ticked ones before it, which were written.
    void takeOutWritten(int end);

private:
    // Handlers. The names are the product's.
    void Tab0List2_Click();

    void optAll_Click() { checkAll(true); }

    void optClear_Click() { checkAll(false); }

    bool enableAddAircraft();
    void checkAll(bool on);

    Ui::AircraftLoaderPage &m_ui;
    bool SearchActive = false;
};
