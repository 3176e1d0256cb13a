// SPDX-License-Identifier: MIT
// The whole program on a sandbox: real window, real files, everything outside faked.
#pragma once

#include "app/frm_morlen_editor.h"
#include "tests/support/airport_list.h"
#include "tests/support/fakes.h"
#include "tests/support/find_control.h"
#include "tests/support/sandbox.h"

#include <QLabel>
#include <QPushButton>

#include <memory>

class Program
{
public:
    static inline const QString aircraftDir = QStringLiteral("C:\\FS9\\Aircraft");
    static inline const QString textFile = QStringLiteral("C:\\TTools\\Aircraft_Set.txt");
    static inline const QString settingsFile = QStringLiteral("C:\\Morlen\\MorlenE.ini");
    static inline const QString logFile = QStringLiteral("C:\\Morlen\\TraceLog.txt");

    /// Lays out a small simulator: two aircraft, one of them in the text file, and TTools.
    Program()
    {
        sandbox.makeFolder(aircraftDir);
        outside.registry.installFs9("C:\\FS9");
        addAircraft("B734", "Boeing Blue", "477");
        addAircraft("A320", "Airbus Blue", "454");
        sandbox.write(textFile, "AC#4,477,\"Boeing Blue\"\r\n");
        sandbox.write("C:\\TTools\\TTools.exe", "#!/bin/sh\n");
        sandbox.write("C:\\windows\\system32\\ZENTAM.OCX", smallAirportList);
    }

    void addAircraft(const QString &folder, const QByteArray &title, const QByteArray &speed) const
    {
        sandbox.write(aircraftDir + '\\' + folder + "\\aircraft.cfg",
                      "[fltsim.0]\r\ntitle=" + title +
                          "\r\n[Reference Speeds]\r\ncruise_speed=" + speed + "\r\n");
    }

    /// Writes the six lines of the settings file.
    void remember(const QByteArray &page, const QByteArray &tTools, const QByteArray &drive,
                  const QByteArray &directory, const QByteArray &file,
                  const QByteArray &reminder) const
    {
        sandbox.write(settingsFile, page + "\r\n" + tTools + "\r\n" + drive + "\r\n" + directory +
                                        "\r\n" + file + "\r\n" + reminder + "\r\n");
    }

    /// A previous run that had chosen everything.
    void rememberUsualRun(const QByteArray &page = "0") const
    {
        remember(page, "C:\\TTools\\TTools.exe", "c:", aircraftDir.toLatin1(), textFile.toLatin1(),
                 "True");
    }

    frmMorlenEditor &start()
    {
        window = std::make_unique<frmMorlenEditor>(outside.outside());
        window->Form_Load();
        return *window;
    }

    /// Presses page 0's Quit and answers Yes.
    void quit()
    {
        outside.dialogs.answers = {MessageBox::Answer::Yes};
        find<QPushButton>("cmdQuit")->click();
    }

    template <typename Control>
    Control *find(const QString &name) const
    {
        return findControl<Control>(*window, name);
    }

    QString label(const QString &name) const { return find<QLabel>(name)->text(); }

    Sandbox sandbox;
    FakeOutside outside;
    std::unique_ptr<frmMorlenEditor> window;
};
