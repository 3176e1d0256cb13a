// SPDX-License-Identifier: MIT
// The program as main() starts it, ended once the filled list has been painted.
#include "app/frm_morlen_editor.h"
#include "app/services/notepad_substitutes.h"
#include "app/services/outside.h"
#include "benchmarks/paint_and_quit.h"
#include "platform/clock.h"
#include "platform/controls/system_dialogs.h"
#include "platform/registry.h"

#include <QAbstractScrollArea>
#include <QApplication>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const std::unique_ptr<Registry> registry = systemRegistry();
    const SystemClock clock;
    SystemProcesses processes(notepadSubstitutes());
    SystemDialogs dialogs;
    frmMorlenEditor window({*registry, processes, dialogs, clock});
    dialogs.setParent(&window);
    const PaintAndQuit end(window.findChild<QAbstractScrollArea *>("Tab0List2")->viewport());
    window.Form_Load();
    return QApplication::exec();
}
