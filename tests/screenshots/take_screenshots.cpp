// SPDX-License-Identifier: MIT
// Takes the pictures of the help pages from the program's own window, on the simulator laid out in
// $WINEPREFIX: take_screenshots FOLDER. The folder is on the host.
#include "app/frm_morlen_editor.h"
#include "app/frm_splash.h"
#include "app/services/notepad_substitutes.h"
#include "app/services/outside.h"
#include "platform/clock.h"
#include "platform/controls/list_box.h"
#include "platform/controls/system_dialogs.h"
#include "platform/paths.h"
#include "platform/registry.h"
#include "tests/support/find_control.h"
#include "tests/support/real_user.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QProgressBar>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace
{

const QString airportFile = QStringLiteral("C:\\TTools\\Airports_Sample.txt");

/// The same on every day, so that the pictures are.
class FixedClock : public Clock
{
public:
    QDateTime now() const override { return {QDate(2004, 10, 9), QTime(20, 30)}; }
};

/// A previous run that had chosen everything, for which the reminder is still to come.
void writeSettings()
{
    QFile file("MorlenE.ini");
    const QByteArray settings =
        "0\r\nC:\\TTools\\TTools.exe\r\nc:\r\n"
        "C:\\Program Files\\Microsoft Games\\Flight Simulator 9\\Aircraft\r\n"
        "C:\\TTools\\Aircraft_Sample.txt\r\nTrue\r\n";
    if (!file.open(QIODevice::WriteOnly) || file.write(settings) != settings.size()) {
        throw std::runtime_error("the settings cannot be written");
    }
}

/// Keeps what the screen shows of a window, with its frame. In the program's own thread.
bool keep(const QDir &folder, const QString &name, QWidget &window)
{
    window.repaint();
    const QRect place = window.frameGeometry();
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
        .save(folder.filePath(name + ".png"));
}

void takeSplash(const QDir &folder)
{
    constexpr int lines = 24000;
    constexpr int read = 15000;
    frmSplash splash;
    splash.showPainted();
    splash.setProgressRange(0, lines);
    splash.setStatus("Loading....");
    const auto *const bar = findControl<QProgressBar>(splash, "ProgressBar1");
    while (bar->value() != read) { // it shows from time to time only
        splash.setProgress(read);
    }
    if (!keep(folder, "splash", splash)) {
        throw std::runtime_error("the pictures cannot be written");
    }
}

/// The user who is at the window while the pictures are taken.
class Photographer
{
public:
    Photographer(RealUser &user, QMainWindow &window, const QDir &folder)
        : m_user(user), m_window(window), m_folder(folder)
    {
    }

    void takeAll()
    {
        aircraftLoader();
        airportLoader();
        newSet();
        configEditor();
        m_user.click("lblAbout");
        takeDialog("about");
    }

private:
    void aircraftLoader()
    {
        m_user.clickCheckBox("Tab0List2", 1);
        m_user.clickCheckBox("Tab0List2", 3);
        take("aircraft_loader");
        m_user.click("cmdBrowseFSPath");
        await("the folder picker", [this] { return control("frmDriveDialog")->isVisible(); });
        take("folder_picker");
        m_user.click("Command1");
    }

    void airportLoader()
    {
        m_user.clickTab(1);
        m_user.click("Tab1cmdBrowse");
        takeDialog("reminder");
        m_user.chooseFile(paths::toHost(airportFile));
        select("Tab1List1", "Jamaica");
        m_user.press("Insert");
        await("the choice", [this] { return control("Tab1cmdCreateFile")->isEnabled(); });
        take("countries");
        select("Tab1List1", "United States");
        m_user.press("Return");
        select("Tab1List1", "Oregon");
        take("provinces");
        m_user.press("Return");
        await("the airports", [this] { return control("Tab1optICAO")->isEnabled(); });
        select("Tab1List1", "Portland");
        m_user.press("Insert");
        take("airports");
    }

    void newSet()
    {
        m_user.clickTab(2);
        m_user.click("tab2txtFltPlan");
        m_user.press("End");
        m_user.type("Summer");
        m_user.click("tab2Command2");
        m_user.click("tab2optCopyFile");
        m_user.click("tab2cmdAirport");
        m_user.chooseFile(paths::toHost(airportFile));
        m_user.click("tab2optCreateNewAircraft");
        take("new_set");
        m_user.click("tab2cmdCancel");
    }

    void configEditor()
    {
        m_user.clickTab(3);
        m_user.clickEntry("Tab3List3", 2);
        m_user.click("Tab3optAircraft");
        take("aircraft_and_panels");
    }

    /// Brings the first entry of this beginning into view, and clicks it.
    void select(const QString &list, const QString &beginning)
    {
        int row = -1;
        await(beginning, [&] {
            auto *const view = findControl<ListBox>(m_window, list);
            const QStringList items = view->items();
            row = static_cast<int>(
                std::find_if(items.begin(), items.end(),
                             [&](const QString &item) { return item.startsWith(beginning); }) -
                items.begin());
            view->scrollTo(view->model()->index(row, 0), QAbstractItemView::PositionAtCenter);
            return row < items.size();
        });
        m_user.clickEntry(list, row);
        await("the selection",
              [&] { return findControl<ListBox>(m_window, list)->listIndex() == row; });
    }

    QWidget *control(const QString &name) const { return findControl<QWidget>(m_window, name); }

    void await(const QString &what, const std::function<bool()> &isSo) { m_user.await(what, isSo); }

    /// Takes the picture of the window, without the pointer's marks in it.
    void take(const QString &name)
    {
        take(name, [this] { return &m_window; });
    }

    void takeDialog(const QString &name)
    {
        take(name, [] { return QApplication::activeModalWidget(); });
        const QWidget *const dialog = QApplication::activeModalWidget();
        m_user.press("Return");
        await("the end of " + name, [=] { return QApplication::activeModalWidget() != dialog; });
    }

    void take(const QString &name, const std::function<QWidget *()> &window)
    {
        await("the window of " + name, [&] {
            QCursor::setPos(0, 0);
            return window() != nullptr && window()->isActiveWindow() && !window()->underMouse();
        });
        await("the picture " + name, [&] { return keep(m_folder, name, *window()); });
    }

    RealUser &m_user;
    QMainWindow &m_window;
    const QDir m_folder;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    try {
        const QDir folder(QDir(application.arguments().value(1)).absolutePath());
        QDir::setCurrent(paths::toHost("C:\\Morlen"));
        QApplication::setApplicationDisplayName({});
        QApplication::setStyle("Fusion");
        QApplication::setPalette(QApplication::style()->standardPalette());
        writeSettings();
        takeSplash(folder);

        const auto registry = systemRegistry();
        const FixedClock clock;
        SystemProcesses processes(notepadSubstitutes());
        SystemDialogs dialogs;
        frmMorlenEditor window({*registry, processes, dialogs, clock});
        dialogs.setParent(&window);
        window.Form_Load();
        window.resize(940, 660);
        const QString problem = RealUser::run(
            window, [&](RealUser &user) { Photographer(user, window, folder).takeAll(); });
        if (!problem.isEmpty()) {
            throw std::runtime_error(problem.toStdString());
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "No pictures: %s\n", error.what());
        return 1;
    }
    return 0;
}
