// SPDX-License-Identifier: MIT
// Page 2 in the hands of its user: real files, real mouse and keys, everything outside faked.
#pragma once

#include "app/services/form_state.h"
#include "fpset/fpset_page.h"
#include "tests/support/page_driver.h"

#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

class FpSetDriver : public PageDriver<FpSetPage>
{
public:
    static inline const QString tTools = QStringLiteral("C:\\TTools\\TTools.exe");
    static inline const QString flightPlans = QStringLiteral("C:\\TTools\\FlightPlans_Alpha.txt");
    static inline const QString airports = QStringLiteral("C:\\TTools\\Airports_Alpha.txt");
    static inline const QString aircraft = QStringLiteral("C:\\TTools\\Aircraft_Alpha.txt");
    static inline const QString oldAirports = QStringLiteral("C:\\TTools\\Airports_Old.txt");
    static inline const QString oldAircraft = QStringLiteral("C:\\TTools\\Aircraft_Old.txt");

    FpSetDriver() : m_dataHome(qgetenv("XDG_DATA_HOME"))
    {
        sandbox.write(tTools, "MZ");
        qputenv("XDG_DATA_HOME", QFile::encodeName(sandbox.host("C:\\share")));
        window = std::make_unique<FpSetPage>(services, set);
        record();
        window->prepare();
        show();
    }

    ~FpSetDriver() { qputenv("XDG_DATA_HOME", m_dataHome); }

    FpSetDriver(const FpSetDriver &) = delete;
    FpSetDriver &operator=(const FpSetDriver &) = delete;

    /// TTools is known from an earlier run.
    void knowTTools()
    {
        state().strTToolsPath = tTools;
        state().strTToolsDir = "C:\\TTools\\";
        window->showTTools(tTools);
        window->enableNaming();
    }

    void chooseTTools(const QString &path)
    {
        outside.dialogs.files = {path};
        press("tab2cmdFindTTools");
    }

    void verify(const QString &name)
    {
        find<QLineEdit>("tab2txtFltPlan")->setText(name);
        press("tab2Command2");
    }

    void name(const QString &flightPlan = "FlightPlans_Alpha")
    {
        knowTTools();
        verify(flightPlan);
    }

    void createAirports()
    {
        press("tab2optCreatefile");
        press("tab2cmdAirport");
    }

    void copyAirports(const QString &source)
    {
        press("tab2optCopyFile");
        outside.dialogs.files = {source};
        press("tab2cmdAirport");
    }

    void createAircraft()
    {
        press("tab2optCreateNewAircraft");
        press("tab2cmdAircraft");
    }

    void copyAircraft(const QString &source)
    {
        press("tab2optCopyExistingAircraft");
        outside.dialogs.files = {source};
        press("tab2cmdAircraft");
    }

    /// Page 1 writes airports for the set.
    void addAirports()
    {
        sandbox.write(airports, "KSEA\r\n");
        window->continueWithAirports(airports);
    }

    /// Page 0 adds an aircraft to the set.
    void addAircraft()
    {
        sandbox.write(aircraft, "AC#1,454,\"Airbus\"\r\n");
        window->continueWithAircraft();
    }

    void press(const QString &button) const
    {
        auto *const control = find<QAbstractButton>(button);
        if (!control->isEnabled()) {
            throw std::runtime_error(button.toStdString() + " is disabled");
        }
        QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(12, control->height() / 2));
    }

    /// The controls that are enabled themselves, whatever the frame around them is.
    QStringList enabled() const { return enabledOf(allControls); }

    /// The frames drawn in bold red; one that is only half so gets a question mark.
    QStringList highlighted() const
    {
        QStringList names;
        for (const QGroupBox *frame : window->findChildren<QGroupBox *>()) {
            const bool bold = frame->font().bold();
            const bool red = frame->palette().color(QPalette::WindowText) == QColor(Qt::red);
            if (bold || red) {
                names += frame->objectName() + (bold && red ? "" : "?");
            }
        }
        return names;
    }

    QString text(const QString &box) const { return find<QLineEdit>(box)->text(); }

    bool isChosen(const QString &option) const { return find<QRadioButton>(option)->isChecked(); }

    bool caretIsAtEnd() const
    {
        const auto *const box = find<QLineEdit>("tab2txtFltPlan");
        return box->cursorPosition() == box->text().size();
    }

    /// The files in the directory, TTools left out.
    QStringList files() const
    {
        QStringList names = QDir(sandbox.host("C:\\TTools")).entryList(QDir::Files);
        names.removeOne("TTools.exe");
        return names;
    }

    QStringList trashed() const
    {
        return QDir(sandbox.host("C:\\share\\Trash\\files")).entryList(QDir::Files);
    }

    QStringList asked; ///< what the page asked of the others, in order

private:
    static inline const QStringList allControls = {"tab2TToolsDir",
                                                   "tab2txtTToolsDir",
                                                   "tab2cmdFindTTools",
                                                   "tab2Frame12",
                                                   "tab2txtFltPlan",
                                                   "tab2Command2",
                                                   "tab2Frame2",
                                                   "tab2optCreatefile",
                                                   "tab2optCopyFile",
                                                   "tab2txtAirport",
                                                   "tab2cmdAirport",
                                                   "tab2Frame3",
                                                   "tab2optCreateNewAircraft",
                                                   "tab2optCopyExistingAircraft",
                                                   "tab2txtAircraft",
                                                   "tab2cmdAircraft",
                                                   "tab2Frame4",
                                                   "tab2cmdCreateNewFP",
                                                   "tab2cmdCancel",
                                                   "tab2cmdQuit"};

    void record()
    {
        using Page = FpSetPage;
        const auto keep = [this](const QString &what) {
            return [this, what](const QString &path) { asked += what + ' ' + path; };
        };
        FpSetPage *const sender = window.get();
        QObject::connect(sender, &Page::airportsWanted, sender, keep("airports"));
        QObject::connect(sender, &Page::aircraftWanted, sender, keep("aircraft"));
        QObject::connect(sender, &Page::aircraftFileChosen, sender, keep("aircraft file"));
        QObject::connect(sender, &Page::fileGivenUp, sender, keep("given up"));
        QObject::connect(sender, &Page::setContinues, sender, [this] { asked += "continues"; });
        QObject::connect(sender, &Page::reminderDue, sender, [this] { asked += "reminder"; });
        QObject::connect(sender, &Page::setCreated, sender, [this] { asked += "created"; });
        QObject::connect(sender, &Page::quitPressed, sender, [this] { asked += "quit"; });
        QObject::connect(sender, &Page::helpWanted, sender, [this] { asked += "help"; });
    }

    QByteArray m_dataHome;
};
