// SPDX-License-Identifier: MIT
#include "app/services/settings_file.h"

#include "platform/basic_text.h"

namespace settings_file
{

Settings parse(const QByteArray &bytes)
{
    basic::SequentialInput input(basic::decode(bytes));
    Settings settings;
    for (QString *value :
         {&settings.lastTab, &settings.tToolsPath, &settings.drive, &settings.aircraftDir,
          &settings.aircraftTextFile, &settings.showAddAirportHelp}) {
        *value = input.next();
    }
    return settings;
}

QByteArray compose(const Settings &settings)
{
    QString text;
    for (const QString &value :
         {settings.lastTab, settings.tToolsPath, settings.drive, settings.aircraftDir,
          settings.aircraftTextFile, settings.showAddAirportHelp}) {
        text += value + "\r\n";
    }
    return basic::encode(text);
}

} // namespace settings_file
