// SPDX-License-Identifier: MIT
#include "app/frm_morlen_editor.h"

#include "aircraft_loader/aircraft_loader_page.h"
#include "airport_loader/airport_loader_page.h"
#include "app/cls_os.h"
#include "app/frm_about.h"
#include "app/frm_add_airport_help.h"
#include "app/frm_splash.h"
#include "app/services/fs_location.h"
#include "app/services/suite_registry.h"
#include "app/version.h"
#include "config_editor/config_editor_page.h"
#include "fpset/fpset_page.h"
#include "platform/basic.h"
#include "platform/blind_to_case.h"

#include "platform/controls/repaint.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <QCloseEvent>
#include <QMouseEvent>

#include <array>
#include <utility>

#include "ui_frm_morlen_editor.h"

namespace
{

constexpr int fpSetPageNumber = 2;

QString boolText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

} // namespace

frmMorlenEditor::frmMorlenEditor(const Outside &outside)
    : m_services(outside), ui(std::make_unique<Ui::frmMorlenEditor>())
{
    findProgramFolder();
    lookAhead();
    ui->setupUi(this);
    makePages();
    connect(ui->SSTab1, &QTabWidget::currentChanged, this, &frmMorlenEditor::SSTab1_Click);
    connect(ui->mnuTrace, &QAction::triggered, this, &frmMorlenEditor::mnuTrace_Click);
    connect(ui->mnuQuit, &QAction::triggered, this, &frmMorlenEditor::mnuQuit_Click);
    connect(ui->mnuHelpFile, &QAction::triggered, this, &frmMorlenEditor::lblHelp_Click);
    connect(ui->mnuDonations, &QAction::triggered, this, &frmMorlenEditor::mnuDonations_Click);
    connect(ui->mnuAbout, &QAction::triggered, this, &frmMorlenEditor::lblAbout_Click);
    connectPages();
    connectHover();
}

frmMorlenEditor::~frmMorlenEditor() = default;

/// The aircraft that the settings name are read while the window is built.
void frmMorlenEditor::lookAhead()
{
    try {
        const Settings settings = settings_file::parse(files::readAll(settingsPath()));
        if (fs_location::namesAircraftFolder(settings.aircraftDir)) {
            m_services.aircraftFolders.lookAhead(settings.aircraftDir);
        }
    } catch (const RuntimeError &) {
        // A first run; and whatever else is wrong, the start-up says so in its place.
        return;
    }
}

void frmMorlenEditor::makePages()
{
    ui->SSTab1->hide();
    const auto add = [this](auto *page, const QString &title) {
        ui->SSTab1->addTab(page, title);
        return page;
    };
    m_aircraftLoader = add(new AircraftLoaderPage(m_services), "AI Aircraft Loader");
    m_airportLoader = add(new AirportLoaderPage(m_services), "AI Airport Loader");
    m_fpSet = add(new FpSetPage(m_services), "Create a New FP Set");
    m_configEditor = add(new ConfigEditorPage(m_services), "Edit Aircraft or Panel");
}

void frmMorlenEditor::connectPages()
{
    using Form = frmMorlenEditor;
    connect(m_aircraftLoader, &AircraftLoaderPage::quitPressed, this, &Form::cmdQuit_Click);
    connect(m_airportLoader, &AirportLoaderPage::quitPressed, this, &Form::quitFromPage1);
    connect(m_airportLoader, &AirportLoaderPage::countriesLoading, this, [this](int lines) {
        if (m_splash) {
            m_splash->setProgressRange(0, lines);
            m_splash->setStatus("Loading....");
        }
    });
    connect(m_airportLoader, &AirportLoaderPage::countryLineRead, this, [this](int number) {
        if (m_splash) {
            m_splash->setProgress(number);
        }
    });
    connect(m_airportLoader, &AirportLoaderPage::reminderDue, this, &Form::showReminder);
    connect(m_airportLoader, &AirportLoaderPage::airportsWrittenForSet, m_fpSet,
            &FpSetPage::showAirportFile);
    connect(m_airportLoader, &AirportLoaderPage::returnToSet, this,
            [this] { ui->SSTab1->setCurrentIndex(fpSetPageNumber); });
    connect(m_fpSet, &FpSetPage::quitPressed, this, &Form::tab2cmdQuit_Click);
    connect(m_aircraftLoader, &AircraftLoaderPage::helpWanted, this, &Form::Tab0Help_Click);
    connect(m_airportLoader, &AirportLoaderPage::helpWanted, this, &Form::tab1Help_Click);
    connect(m_fpSet, &FpSetPage::pageWanted, ui->SSTab1, &QTabWidget::setCurrentIndex);
    connect(m_fpSet, &FpSetPage::reminderDue, this, &Form::showReminder);
    connect(m_fpSet, &FpSetPage::airportsWanted, m_airportLoader,
            &AirportLoaderPage::takeFileForSet);
    connect(m_fpSet, &FpSetPage::aircraftWanted, m_aircraftLoader,
            &AircraftLoaderPage::takeFileOfSet);
    connect(m_fpSet, &FpSetPage::aircraftFileChosen, m_aircraftLoader,
            &AircraftLoaderPage::takeFileOfSet);
    connect(m_fpSet, &FpSetPage::fileDiscarded, m_aircraftLoader, &AircraftLoaderPage::forgetFile);
    connect(m_fpSet, &FpSetPage::setCreated, m_airportLoader, &AirportLoaderPage::keepFileOfSet);
    connect(m_fpSet, &FpSetPage::setClosed, m_airportLoader, &AirportLoaderPage::leaveSet);
    connect(m_fpSet, &FpSetPage::helpWanted, this, &Form::Tab2lblHelp_Click);
    connect(m_configEditor, &ConfigEditorPage::helpWanted, this, &Form::tab3VarloHelp_Click);
    connect(ui->lblHelp, &LinkLabel::clicked, this, &Form::lblHelp_Click);
    connect(m_configEditor, &ConfigEditorPage::varloWanted, this, &Form::launchVarlo);
    connect(m_configEditor, &ConfigEditorPage::aircraftEdited, m_aircraftLoader,
            &AircraftLoaderPage::pointAtNoFolder);
    connect(ui->lblPellara, &LinkLabel::clicked, this, &Form::lblPellara_Click);
    connect(ui->lblAbout, &LinkLabel::clicked, this, &Form::lblAbout_Click);

    connect(m_aircraftLoader, &AircraftLoaderPage::simulatorVersionChosen, this, &Form::FindFSPath);
    connect(m_aircraftLoader, &AircraftLoaderPage::aircraftAddedForSet, this, [this] {
        ui->SSTab1->setCurrentIndex(fpSetPageNumber);
        m_fpSet->continueWithSet();
    });
    // Pages 0 and 3 show the same directory, whichever of them the user chose it on.
    connect(m_aircraftLoader, &AircraftLoaderPage::directoryChosen, this, &Form::takeDirectory);
    connect(m_aircraftLoader, &AircraftLoaderPage::directoryChosen, m_configEditor,
            &ConfigEditorPage::selectFirstEntry);
    connect(m_configEditor, &ConfigEditorPage::directoryChosen, m_aircraftLoader,
            &AircraftLoaderPage::askForTextFile);
    connect(m_configEditor, &ConfigEditorPage::directoryChosen, this, &Form::takeDirectory);
}

void frmMorlenEditor::connectHover()
{
    for (LinkLabel *label : findChildren<LinkLabel *>()) {
        connect(label, &LinkLabel::mouseMoved, this, [this, label] { heat(label); });
    }
    // A form sees the mouse wherever no control takes it: over the bare pages and frames too.
    for (QWidget *widget : findChildren<QWidget *>()) {
        widget->setMouseTracking(true);
    }
    setMouseTracking(true);
    m_bareAreas = {centralWidget(), ui->frmLeveler, ui->SSTab1,    m_aircraftLoader,
                   m_airportLoader, m_fpSet,        m_configEditor};
}

void frmMorlenEditor::showReminder()
{
    frmAddAirportHelp(m_services.state, this).exec();
}

void frmMorlenEditor::takeDirectory(const QString &directory)
{
    m_services.errors.run("Directory Select Error", [&](Step &step) {
        step.set("Set path to " + directory);
        openAircraftDir(directory);
    });
}

void frmMorlenEditor::openAircraftDir(const QString &directory)
{
    m_aircraftLoader->showDirectory(directory);
    m_configEditor->showDirectory(directory);
    m_services.state.AirCraftDir = m_configEditor->directory();
}

void frmMorlenEditor::Form_Load()
{
    m_services.errors.run("Form Load Error", [this] { startUp(); });
    // Whatever failed, the window comes up and can be used.
    show();
    m_splash.reset();
    ui->SSTab1->show();
}

void frmMorlenEditor::startUp()
{
    // Pages 3 and 0 list the same aircraft, one after the other.
    const AircraftFolders::SharedLook look(m_services.aircraftFolders);
    FormState &state = m_services.state;
    state.osVersion = clsOS(systemVersion()).text();
    state.ShowAddAirportHelp = true;
    m_splash = std::make_unique<frmSplash>();
    m_splash->showPainted();
    setWindowTitle("Morlen Utilities - Version " + programVersion());
    findProgramFolder();
    state.ErrMsg = "CheckRegistry 1";
    CheckRegistry();
    state.ErrMsg = "FindFSPath 1";
    FindFSPath();
    state.CommandLine = QCoreApplication::arguments().sliced(1).join(' ');
    m_airportLoader->LoadCountry();
    m_fpSet->prepare();
    state.ErrMsg = "Opening " + m_services.log.path();
    m_services.log.reset();
    ui->mnuTrace->setChecked(false);
    m_services.log.write("Reading " + settingsPath());
    m_configEditor->showVarlo();

    const QByteArray bytes = readSettingsFile();
    QString lastTab;
    if (bytes.size() < settings_file::shortestLength) {
        state.ErrMsg = "Finding FSPath";
        state.ShowAddAirportHelp = true;
        FindFSPath();
    } else {
        const Settings settings = settings_file::parse(bytes);
        lastTab = settings.lastTab;
        restore(settings);
    }
    m_fpSet->enableNaming();
    state.ErrMsg = "CheckRegistry";
    CheckRegistry();
    m_configEditor->showFirstAircraft();
    show();
    Repaint::now();
    m_splash.reset();
    ui->SSTab1->show();
    selectPage(lastTab);
}

void frmMorlenEditor::findProgramFolder()
{
    // A developer's checkout wins over the current directory.
    m_services.state.MorlenEDir = files::isFolder("C:\\Devel\\MorlenEditor")
                                      ? QStringLiteral("C:\\devel\\MorlenEditor\\")
                                      : paths::currentDirectory() + '\\';
}

QString frmMorlenEditor::settingsPath() const
{
    return m_services.state.MorlenEDir + "\\MorlenE.ini";
}

QByteArray frmMorlenEditor::readSettingsFile()
{
    m_services.state.ErrMsg = "Opening " + settingsPath();
    const qint64 length = files::openForAppend(settingsPath());
    return length < settings_file::shortestLength ? QByteArray() : files::readAll(settingsPath());
}

void frmMorlenEditor::restore(const Settings &settings)
{
    FormState &state = m_services.state;
    state.strTToolsPath = settings.tToolsPath;
    if (!settings.drive.isEmpty()) {
        m_configEditor->setDrive(settings.drive);
    }
    state.ShowAddAirportHelp = blind_to_case::lower(settings.showAddAirportHelp) == "true";
    if (state.strTToolsPath.size() > 5) {
        state.strTToolsDir = tToolsFolder(state.strTToolsPath);
    }
    state.TraceOn = false;
    ui->mnuTrace->setChecked(false);
    logSettings(settings);
    m_fpSet->showTTools(state.strTToolsPath);
    restoreDirectory(settings.aircraftDir);
    m_aircraftLoader->restoreTextFile(settings.aircraftTextFile);
}

void frmMorlenEditor::logSettings(const Settings &settings)
{
    TraceLog &log = m_services.log;
    log.write("Last Tab = " + settings.lastTab);
    log.write("TTools Path = " + settings.tToolsPath);
    log.write("Aircraft Directory = " + settings.aircraftDir);
    log.write("Aircraft Text File = " + settings.aircraftTextFile);
    log.write("Trace On = " + boolText(m_services.state.TraceOn));
    log.write("Show Add Airport Help = " + boolText(m_services.state.ShowAddAirportHelp));
    log.write(TraceLog::separator());
}

void frmMorlenEditor::restoreDirectory(const QString &directory)
{
    if (!fs_location::namesAircraftFolder(directory)) {
        return;
    }
    Step step(m_services.state);
    step.set("Setting FS path to: " + directory);
    m_configEditor->showDirectory(directory);
    if (fs_location::endsInAircraftFolder(m_configEditor->directory())) {
        openAircraftDir(directory);
    } else if (m_aircraftLoader->shownDirectory().isEmpty()) {
        m_aircraftLoader->showDirectory(directory);
    }
}

void frmMorlenEditor::selectPage(const QString &lastTab)
{
    const int page = lastTab.isEmpty() ? 0 : basic::toInteger16(lastTab);
    if (page < 0 || page >= ui->SSTab1->count()) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    ui->SSTab1->setCurrentIndex(page);
    m_aircraftLoader->focusFirstControl();
}

void frmMorlenEditor::CheckRegistry()
{
    m_services.errors.run("Check Registry Errors", [this](Step &step) {
        suite_registry::CheckRegistry(m_services.registry, m_services.state, windowTitle(), step);
        ui->lblPellara->setVisible(!m_services.state.PellaraPath.isEmpty());
        m_configEditor->offerVarlo(!m_services.state.VarloPath.isEmpty());
    });
}

void frmMorlenEditor::lblPellara_Click()
{
    launch(m_services.state.PellaraPath, "Pellara.exe", m_services.state.PellaraCaption);
}

void frmMorlenEditor::launchVarlo()
{
    launch(m_services.state.VarloPath, "Varlo.exe", "Aircraft and Panel Configuration Editor");
}

void frmMorlenEditor::launch(const QString &path, const QString &program, const QString &caption)
{
    m_services.errors.run("Launch Error", [&] {
        m_services.state.ErrMsg = "Launching " + program;
        suite_registry::launch(m_services.processes, path, program, caption);
    });
}

void frmMorlenEditor::FindFSPath()
{
    m_services.errors.run("FS Path Error", [this](Step &step) {
        step.set("Get FlightSim Path");
        FormState &state = m_services.state;
        state.RegValue = fs_location::installation(m_services.registry);
        if (state.RegValue.isEmpty()) {
            m_aircraftLoader->showDirectory({});
        } else {
            openAircraftDir(fs_location::aircraftDirectory(state.RegValue));
        }
        m_aircraftLoader->ClearLists();
    });
}

void frmMorlenEditor::SSTab1_Click(int page)
{
    static const std::array<QString, 4> names = {"AI Aircraft Tab Selected",
                                                 "AI Airport Tab Selected",
                                                 "Create FP Tab Selected", "Edit Tab Selected"};
    m_services.errors.run("Tab Select Error", [&] {
        m_services.state.ErrMsg = "Opening " + m_services.log.path();
        m_services.log.write(TraceLog::banner(names.at(static_cast<std::size_t>(page))));
    });
    if (page == 0) {
        m_aircraftLoader->focusFirstControl();
    } else if (page == fpSetPageNumber) {
        m_fpSet->focusNameBox();
    }
}

void frmMorlenEditor::cmdQuit_Click()
{
    m_services.state.LastTab = "0";
    SaveSettings();
}

void frmMorlenEditor::quitFromPage1()
{
    m_services.state.LastTab = "1";
    SaveSettings();
}

void frmMorlenEditor::tab2cmdQuit_Click()
{
    m_services.state.LastTab = "2";
    SaveSettings();
}

void frmMorlenEditor::mnuQuit_Click()
{
    if (m_services.state.AddAirportsFlag || m_services.state.newAirportFlag) {
        ui->SSTab1->setCurrentIndex(fpSetPageNumber);
        return;
    }
    m_services.state.LastTab = QString::number(ui->SSTab1->currentIndex());
    SaveSettings();
}

void frmMorlenEditor::SaveSettings()
{
    FormState &state = m_services.state;
    if (state.ExitFlag) {
        end();
        return;
    }
    const MessageBox::Answer answer =
        m_services.dialogs.show({.prompt = "Do you really want to exit?",
                                 .title = "Confirm Exit",
                                 .buttons = MessageBox::Buttons::YesNo,
                                 .defaultButton = MessageBox::Answer::No});
    state.ErrMsg = "Open " + settingsPath();
    if (answer != MessageBox::Answer::Yes) {
        return;
    }
    const bool saved = m_services.errors.run("Save Setting Error", [this] {
        const FormState &now = m_services.state;
        const Settings settings = {
            now.LastTab,     now.strTToolsPath,   m_configEditor->drive(),
            now.AirCraftDir, now.AircraftTextDir, boolText(now.ShowAddAirportHelp)};
        m_services.log.write(TraceLog::cut("***Program Terminated by User***"));
        m_services.log.write("Opening " + settingsPath());
        logSettings(settings);
        files::writeAll(settingsPath(), settings_file::compose(settings));
    });
    if (saved) {
        end();
    }
}

void frmMorlenEditor::end()
{
    m_services.state.ended = true;
    close();
    QCoreApplication::quit();
}

void frmMorlenEditor::Form_Unload()
{
    m_aircraftLoader->pressQuit();
}

void frmMorlenEditor::closeEvent(QCloseEvent *event)
{
    if (!m_services.state.ended) {
        Form_Unload();
        m_services.state.ended = true; // a No does not keep the window
    }
    event->accept();
}

void frmMorlenEditor::mnuTrace_Click()
{
    m_services.errors.run("Trace Log Error", [this] {
        m_services.state.ErrMsg = "Opening " + m_services.log.path();
        m_services.log.setTracing(ui->mnuTrace->isChecked());
    });
    ui->mnuTrace->setChecked(m_services.state.TraceOn);
}

void frmMorlenEditor::heat(LinkLabel *label)
{
    if (!label->isBold()) {
        label->setBold(true);
        m_hotLabels += label;
    }
}

void frmMorlenEditor::mouseMoveEvent(QMouseEvent *event)
{
    // Pages and the tab control's own area are bare form too; buttons, lists and labels are not.
    const QWidget *const under = childAt(event->position().toPoint());
    if (under == nullptr || m_bareAreas.contains(under)) {
        Form_MouseMove();
    }
    QMainWindow::mouseMoveEvent(event);
}

void frmMorlenEditor::Form_MouseMove()
{
    for (LinkLabel *label : std::exchange(m_hotLabels, {})) {
        label->setBold(false);
    }
}

void frmMorlenEditor::openHelp(const QString &relativePath)
{
    m_services.errors.run("Help Error",
                          [&](Step &step) { m_services.shell.openDocument(relativePath, step); });
}

void frmMorlenEditor::lblAbout_Click()
{
    frmAbout(m_services, this).exec();
}

void frmMorlenEditor::lblHelp_Click()
{
    openHelp("Docs\\MorlenEHelp.htm");
}

void frmMorlenEditor::Tab0Help_Click()
{
    openHelp("Docs\\AIAircraftLoader.htm");
}

void frmMorlenEditor::tab1Help_Click()
{
    openHelp("Docs\\AIAirportLoader.htm");
}

void frmMorlenEditor::Tab2lblHelp_Click()
{
    openHelp("Docs\\MorlenEdit.htm");
}

void frmMorlenEditor::tab3VarloHelp_Click()
{
    openHelp("Docs\\VarloHelp.htm");
}

void frmMorlenEditor::mnuDonations_Click()
{
    openHelp("Donate.htm");
}
