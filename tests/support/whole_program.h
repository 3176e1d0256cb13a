// SPDX-License-Identifier: MIT
// The program with nothing faked, in the hands of a user at a real display.
#pragma once

#include "app/frm_morlen_editor.h"
#include "app/services/notepad_substitutes.h"
#include "app/services/outside.h"
#include "platform/clock.h"
#include "platform/controls/list_box.h"
#include "platform/controls/system_dialogs.h"
#include "platform/registry.h"
#include "tests/support/airport_list.h"
#include "tests/support/find_control.h"
#include "tests/support/real_user.h"
#include "tests/support/sandbox.h"

#include <QFile>
#include <QLabel>

#include <functional>
#include <memory>

/// A simulator with three aircraft, and the program on it, with nothing faked.
class WholeProgram
{
public:
    static inline const QString aircraftDir = QStringLiteral("C:\\FS9\\Aircraft");
    static inline const QString textFile = QStringLiteral("C:\\TTools\\Aircraft_Set.txt");
    static inline const QByteArray existing = "AC#9,477,\"Boeing Blue\"\r\n";

    WholeProgram()
    {
        addAircraft("A320", "Airbus Blue", "454");
        addAircraft("B734", "Boeing Blue", "477");
        addAircraft("C172", "Cessna <b>&Blue", "124");
        sandbox.write(textFile, existing);
        sandbox.write("C:\\windows\\system32\\ZENTAM.OCX", smallAirportList);
        host::installSimulator(sandbox);
    }

    void addAircraft(const QString &folder, const QByteArray &title, const QByteArray &speed) const
    {
        sandbox.write(aircraftDir + '\\' + folder + "\\aircraft.cfg",
                      "[fltsim.0]\r\ntitle=" + title + "\r\ncruise_speed=" + speed + "\r\n");
    }

    /// Puts a script where a program is looked for.
    void addProgram(const QString &path, const QByteArray &script) const
    {
        sandbox.write(path, "#!/bin/sh\n" + script);
        QFile::setPermissions(sandbox.host(path), QFile::ReadOwner | QFile::ExeOwner);
    }

    /// A previous run had chosen everything, and was left on a page.
    void remember(const QByteArray &page = "0", const QByteArray &reminder = "True") const
    {
        sandbox.write("C:\\Morlen\\MorlenE.ini", page + "\r\n\r\nc:\r\n" + aircraftDir.toLatin1() +
                                                     "\r\n" + textFile.toLatin1() + "\r\n" +
                                                     reminder + "\r\n");
    }

    /// Starts the program and lets a user work with it. Returns what went wrong.
    QString use(const std::function<void(RealUser &)> &steps)
    {
        const auto registry = systemRegistry();
        const SystemClock clock;
        SystemProcesses processes(notepadSubstitutes());
        SystemDialogs dialogs;
        window = std::make_unique<frmMorlenEditor>(Outside{*registry, processes, dialogs, clock});
        dialogs.setParent(window.get());
        window->Form_Load();
        return RealUser::run(*window, steps);
    }

    QString label(const QString &name) const { return findControl<QLabel>(*window, name)->text(); }

    ListBox *list(const QString &name) const { return findControl<ListBox>(*window, name); }

    Sandbox sandbox;
    std::unique_ptr<frmMorlenEditor> window;
};
