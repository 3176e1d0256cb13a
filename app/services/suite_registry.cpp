// SPDX-License-Identifier: MIT
#include "app/services/suite_registry.h"

#include "app/services/step.h"
#include "platform/blind_to_case.h"
#include "platform/paths.h"
#include "platform/process.h"
#include "platform/registry.h"

namespace suite_registry
{

namespace
{

const QString suite = QStringLiteral("SOFTWARE\\Ostrel\\Morlen Utilities\\");
const QString pellara = QStringLiteral("SOFTWARE\\Ostrel\\Pellara\\");
const QString varlo = QStringLiteral("SOFTWARE\\Ostrel\\Varlo\\");

QString userText(const Registry &registry, const QString &key, const QString &name)
{
    return registry.text(RegistryHive::CurrentUser, key, name).value_or(QString());
}

void writeUserText(Registry &registry, const QString &key, const QString &name, const QString &text)
{
    registry.createKey(RegistryHive::CurrentUser, key);
    registry.setValue(RegistryHive::CurrentUser, key, name, text);
}

} // namespace

Companions CheckRegistry(Registry &registry, const QString &folder, const QString &caption,
                         Step &step)
{
    step.set("Check for MorlenE exe_Path");
    if (userText(registry, suite + "Path", "Exe_Path").isEmpty()) {
        step.set("Create MorlenE Keys");
        writeUserText(registry, suite + "Path", "Exe_Path", folder + "MorlenEditor.exe");
        writeUserText(registry, suite + "Caption", "Caption", caption);
    } else {
        step.set("Check for MorlenE Caption");
        if (userText(registry, suite + "Caption", "Caption") != caption) {
            writeUserText(registry, suite + "Caption", "Caption", caption);
        }
    }
    step.set("Check for Pellara Exe_Path");
    Companions companions;
    companions.PellaraPath = userText(registry, pellara + "Path", "Exe_Path");
    companions.VarloPath = userText(registry, varlo + "Path", "Exe_Path");
    step.set("Check for Pellara Caption");
    companions.PellaraCaption = userText(registry, pellara + "Caption", "Caption");
    return companions;
}

QString folderOf(const QString &registeredPath, const QString &program)
{
    const qsizetype end =
        blind_to_case::lower(registeredPath).indexOf(blind_to_case::lower('\\' + program));
    return end < 0 ? registeredPath : registeredPath.first(end);
}

void launch(ProcessStarter &processes, const QString &registeredPath, const QString &program,
            const QString &caption)
{
    const QString folder = folderOf(registeredPath, program);
    paths::setCurrentDirectory(folder.endsWith(':') ? folder + '\\' : folder);
    // Without a registered caption any window that has none would do.
    if (caption.isEmpty() || !processes.raiseWindow(caption)) {
        processes.start('"' + paths::join(folder, program) + '"', 1);
    }
}

} // namespace suite_registry
