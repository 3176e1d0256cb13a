// SPDX-License-Identifier: MIT
#include "app/services/settings_file.h"

#include "platform/code_page.h"
#include "platform/sequential_input.h"

namespace settings_file
{

Settings parse(const QByteArray &bytes)
{
    SequentialInput input(code_page::decodeMarked(bytes));
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
    return code_page::encode(text);
}

} // namespace settings_file
