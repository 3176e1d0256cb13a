// SPDX-License-Identifier: MIT
// The whole program on the page that makes flight plan sets, and what sets look like on disk.
#pragma once

#include "tests/support/whole_program.h"

#include <QDir>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTabWidget>

inline const QString airportPath = QStringLiteral("C:\\TTools\\Airports_New.txt");
inline const QString aircraftPath = QStringLiteral("C:\\TTools\\Aircraft_New.txt");
inline const QString flightPlanPath = QStringLiteral("C:\\TTools\\FlightPlans_New.txt");

inline const QString jamaica =
    QStringLiteral("//Airports Added - NOW\r\n"
                   "MKJP,N17* 56.15',W76* 47.25',10         //Kingston, , Jamaica\r\n");
inline const QString airbus =
    QStringLiteral("//AI Aircraft Added NOW\r\nAC#1,454,\"Airbus Blue\"\r\n");

/// What can be used while a set is named, and what the steps have in all.
inline const QStringList namingControls = {"tab2cmdFindTTools", "tab2txtFltPlan", "tab2Command2"};
inline const QStringList stepControls = {
    "tab2cmdFindTTools", "tab2txtFltPlan",           "tab2Command2",
    "tab2optCreatefile", "tab2optCopyFile",          "tab2txtAirport",
    "tab2cmdAirport",    "tab2optCreateNewAircraft", "tab2optCopyExistingAircraft",
    "tab2txtAircraft",   "tab2cmdAircraft",          "tab2cmdCreateNewFP"};

/// The program on page 2, with TTools known.
struct SetProgram : WholeProgram {
    SetProgram()
    {
        addProgram("C:\\TTools\\TTools.exe", "");
        sandbox.write("C:\\Morlen\\MorlenE.ini", "2\r\nC:\\TTools\\TTools.exe\r\nc:\r\n" +
                                                     aircraftDir.toLatin1() + "\r\n" +
                                                     textFile.toLatin1() + "\r\nFalse\r\n");
    }

    void awaitPage(RealUser &user, int page) const
    {
        user.await("page " + QString::number(page), [&] {
            return findControl<QTabWidget>(*window, "SSTab1")->currentIndex() == page;
        });
    }

    static void nameSet(RealUser &user, const QString &name = "New")
    {
        user.click("tab2txtFltPlan");
        user.press("End");
        user.type(name);
        user.click("tab2Command2");
    }

    void openNewAirports(RealUser &user) const
    {
        user.click("tab2optCreatefile");
        user.click("tab2cmdAirport");
        awaitPage(user, 1);
    }

    /// On page 1, which leads back on its own.
    void addCountry(RealUser &user, int row) const
    {
        user.dragEntry("Tab1List1", row, "Tab1List2");
        user.click("Tab1cmdCreateFile");
        user.answer("No");
        awaitPage(user, 2);
    }

    void openNewAircraft(RealUser &user) const
    {
        user.click("tab2optCreateNewAircraft");
        user.click("tab2cmdAircraft");
        awaitPage(user, 0);
    }

    void addFirstAircraft(RealUser &user) const
    {
        openNewAircraft(user);
        user.clickCheckBox("Tab0List2", 0);
        user.click("cmdAddAI");
        user.answer("OK");
        awaitPage(user, 2);
    }

    /// Presses the last step's button. Returns what the user reads.
    QString create(RealUser &user) const
    {
        user.click("tab2cmdCreateNewFP");
        const QString text = user.box();
        user.answer("OK");
        awaitStart(user);
        return text;
    }

    /// The page waits for the name of a set, and the keyboard is in its box.
    void awaitStart(RealUser &user) const
    {
        user.await("the start state", [&] {
            return name() == "FlightPlans_" &&
                   findControl<QWidget>(*window, "tab2txtFltPlan")->hasFocus();
        });
    }

    void awaitAirportStep(RealUser &user) const
    {
        user.await("the airport step",
                   [&] { return findControl<QWidget>(*window, "tab2optCreatefile")->isEnabled(); });
    }

    QString name() const { return findControl<QLineEdit>(*window, "tab2txtFltPlan")->text(); }

    /// The names of the steps' controls that can be used now.
    QStringList usable(RealUser &user) const
    {
        QStringList names;
        user.await("a look at the page", [&] {
            for (const QString &control : stepControls) {
                if (findControl<QWidget>(*window, control)->isEnabled()) {
                    names += control;
                }
            }
            return true;
        });
        return names;
    }

    /// Every text file beside TTools as "name=content", with NOW for the times.
    QStringList texts() const
    {
        static const QRegularExpression time(
            "[A-Z][a-z]+day, [A-Z][a-z]+ \\d\\d, \\d{4} \\d\\d:\\d\\d:\\d\\d");
        QStringList found;
        const QDir folder(sandbox.host("C:\\TTools"));
        for (const QString &file : folder.entryList({"*.txt*"}, QDir::Files)) {
            const QByteArray bytes = sandbox.read("C:\\TTools\\" + file);
            found += file + '=' + QString::fromLatin1(bytes).replace(time, "NOW");
        }
        found.sort();
        return found;
    }
};

/// The texts of a folder in which a set was made beside what the program works on.
inline QStringList withExisting(const QStringList &set)
{
    QStringList all = set + QStringList{"Aircraft_Set.txt=" + WholeProgram::existing};
    all.sort();
    return all;
}

inline QString created(const QString &path)
{
    return "Create Files|FlightPlan file set " + path + " created successfully!";
}
