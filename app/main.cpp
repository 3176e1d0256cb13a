// SPDX-License-Identifier: MIT
#include "app/frm_morlen_editor.h"
#include "app/services/notepad_substitutes.h"
#include "app/services/outside.h"
#include "app/version.h"
#include "platform/clock.h"
#include "platform/controls/system_dialogs.h"
#include "platform/host.h"
#include "platform/registry.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    prepareHost();
    const QApplication application(argc, argv);
    QApplication::setApplicationName("MorlenEditor");
    QApplication::setApplicationDisplayName({}); // titles stand as they are, nothing is added
    QApplication::setApplicationVersion(programVersion());

    const std::unique_ptr<Registry> registry = systemRegistry();
    const SystemClock clock;
    SystemProcesses processes(notepadSubstitutes());
    SystemDialogs dialogs;
    frmMorlenEditor window({*registry, processes, dialogs, clock});
    dialogs.setParent(&window);
    window.Form_Load();
    return QApplication::exec();
}
