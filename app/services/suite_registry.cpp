// SPDX-License-Identifier: MIT
#include "app/services/suite_registry.h"

#include "app/services/step.h"
#include "platform/blind_to_case.h"
#include "platform/paths.h"
#include "platform/process.h"
#include "platform/registry.h"

using namespace Qt::StringLiterals;

namespace suite_registry
{

namespace
{

constexpr QLatin1StringView suite = R"(SOFTWARE\Ostrel\Morlen Utilities\)"_L1;
constexpr QLatin1StringView pellara = R"(SOFTWARE\Ostrel\Pellara\)"_L1;
constexpr QLatin1StringView varlo = R"(SOFTWARE\Ostrel\Varlo\)"_L1;

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
    step.set(u"Check for MorlenE exe_Path"_s);
    if (userText(registry, suite + u"Path"_s, u"Exe_Path"_s).isEmpty()) {
        step.set(u"Create MorlenE Keys"_s);
        writeUserText(registry, suite + u"Path"_s, u"Exe_Path"_s, folder + u"MorlenEditor.exe"_s);
        writeUserText(registry, suite + u"Caption"_s, u"Caption"_s, caption);
    } else {
        step.set(u"Check for MorlenE Caption"_s);
        if (userText(registry, suite + u"Caption"_s, u"Caption"_s) != caption) {
            writeUserText(registry, suite + u"Caption"_s, u"Caption"_s, caption);
        }
    }
    step.set(u"Check for Pellara Exe_Path"_s);
    Companions companions;
    companions.PellaraPath = userText(registry, pellara + u"Path"_s, u"Exe_Path"_s);
    companions.VarloPath = userText(registry, varlo + u"Path"_s, u"Exe_Path"_s);
    step.set(u"Check for Pellara Caption"_s);
    companions.PellaraCaption = userText(registry, pellara + u"Caption"_s, u"Caption"_s);
    return companions;
}

QString folderOf(const QString &registeredPath, const QString &program)
{
    const qsizetype end =
        blind_to_case::lower(registeredPath).indexOf(blind_to_case::lower(u'\\' + program));
    return end < 0 ? registeredPath : registeredPath.first(end);
}

void launch(ProcessStarter &processes, const QString &registeredPath, const QString &program,
            const QString &caption)
{
    const QString folder = folderOf(registeredPath, program);
    paths::setCurrentDirectory(folder.endsWith(u':') ? folder + u'\\' : folder);
    // Without a registered caption any window that has none would do.
    if (caption.isEmpty() || !processes.raiseWindow(caption)) {
        processes.start(u'"' + paths::join(folder, program) + u'"', 1);
    }
}

} // namespace suite_registry
