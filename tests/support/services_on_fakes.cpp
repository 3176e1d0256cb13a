// SPDX-License-Identifier: MIT
#include "tests/support/services_on_fakes.h"

#include "app/services/services.h"
#include "tests/support/lines.h"

#include <utility>

ServicesOnFakes::ServicesOnFakes() : m_services(std::make_unique<Services>(outside.outside()))
{
    services.state.MorlenEDir = "C:\\Morlen\\";
    services.state.ShowAddAirportHelp = false; // the reminder would be in the way of most tests
}

ServicesOnFakes::~ServicesOnFakes() = default;

FormState &ServicesOnFakes::state() const
{
    return services.state;
}

QString ServicesOnFakes::step() const
{
    return services.state.ErrMsg;
}

QStringList ServicesOnFakes::messages()
{
    static const QStringList icons = {"None", "Information", "Exclamation", "Critical"};
    QStringList texts;
    for (const MessageBox &box : std::exchange(outside.dialogs.boxes, {})) {
        texts += icons[static_cast<int>(box.icon)] + ", " + box.title + ": " + box.prompt;
    }
    return texts;
}

void ServicesOnFakes::trace() const
{
    services.state.TraceOn = true;
}

QStringList ServicesOnFakes::traced() const
{
    const QString log = "C:\\Morlen\\TraceLog.txt";
    QStringList entries;
    if (sandbox.exists(log)) {
        for (const QString &line : linesOf(sandbox.read(log))) {
            entries += line.section(" - ", 1);
        }
    }
    return entries;
}
