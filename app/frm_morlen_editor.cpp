// SPDX-License-Identifier: MIT
#include "app/frm_morlen_editor.h"

#include "aircraft_loader/aircraft_loader_page.h"
#include "airport_loader/airport_loader_page.h"
#include "app/cls_os.h"
#include "app/frm_about.h"
#include "app/frm_add_airport_help.h"
#include "app/frm_splash.h"
#include "app/hover_links.h"
#include "app/services/fs_location.h"
#include "app/services/services.h"
#include "app/version.h"
#include "config_editor/config_editor_page.h"
#include "fpset/fpset_page.h"
#include "platform/basic.h"
#include "platform/controls/repaint.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <QCloseEvent>

#include <utility>

#include "ui_frm_morlen_editor.h"

frmMorlenEditor::frmMorlenEditor(const Outside &outside)
    : m_ownServices(std::make_unique<Services>(outside)),
      m_services(*m_ownServices),
      m_session(m_services.state, m_services.log),
      ui(std::make_unique<Ui::frmMorlenEditor>())
{
    findProgramFolder();
    lookAhead();
    ui->setupUi(this);
    makePages();
    connectControls();
    connectPages();
    new HoverLinks(this);
}

frmMorlenEditor::~frmMorlenEditor() = default;

FormState &frmMorlenEditor::state()
{
    return m_services.state;
}

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

void frmMorlenEditor::connectControls()
{
    using Form = frmMorlenEditor;
    connect(ui->SSTab1, &QTabWidget::currentChanged, this,
            [this](int page) { SSTab1_Click(std::exchange(m_page, page)); });
    connect(ui->mnuTrace, &QAction::triggered, this, &Form::mnuTrace_Click);
    connect(&m_services.log, &TraceLog::switchedOff, ui->mnuTrace,
            [this] { ui->mnuTrace->setChecked(false); });
    connect(ui->mnuQuit, &QAction::triggered, this, &Form::mnuQuit_Click);
    connect(ui->mnuHelpFile, &QAction::triggered, this, &Form::mnuHelpFile_Click);
    connect(ui->mnuDonations, &QAction::triggered, this, &Form::mnuDonations_Click);
    connect(ui->mnuAbout, &QAction::triggered, this, &Form::mnuAbout_Click);
    connect(ui->lblHelp, &LinkLabel::clicked, this, &Form::lblHelp_Click);
    connect(ui->lblAbout, &LinkLabel::clicked, this, &Form::lblAbout_Click);
    connect(ui->lblPellara, &LinkLabel::clicked, this, &Form::lblPellara_Click);
}

void frmMorlenEditor::connectPages()
{
    using Form = frmMorlenEditor;
    // Quitting.
    connect(m_aircraftLoader, &AircraftLoaderPage::quitPressed, this, &Form::cmdQuit_Click);
    connect(m_airportLoader, &AirportLoaderPage::quitPressed, this, [this] { quitFrom(1); });
    connect(m_fpSet, &FpSetPage::quitPressed, this, [this] { quitFrom(fpSetPageNumber); });

    // Help, and the reminder of how airports are added.
    connect(m_aircraftLoader, &AircraftLoaderPage::helpWanted, this, &Form::Tab0Help_Click);
    connect(m_airportLoader, &AirportLoaderPage::helpWanted, this, &Form::tab1Help_Click);
    connect(m_fpSet, &FpSetPage::helpWanted, this, &Form::Tab2lblHelp_Click);
    connect(m_configEditor, &ConfigEditorPage::helpWanted, this, &Form::tab3VarloHelp_Click);
    connect(m_airportLoader, &AirportLoaderPage::reminderDue, this, &Form::showReminder);
    connect(m_fpSet, &FpSetPage::reminderDue, this, &Form::showReminder);

    // A flight plan set: its files on pages 0 and 1, and the way back to page 2.
    connect(m_airportLoader, &AirportLoaderPage::airportsWrittenForSet, m_fpSet,
            &FpSetPage::showAirportFile);
    connect(m_airportLoader, &AirportLoaderPage::returnToSet, this,
            [this] { ui->SSTab1->setCurrentIndex(fpSetPageNumber); });
    connect(m_aircraftLoader, &AircraftLoaderPage::aircraftAddedForSet, this, [this] {
        ui->SSTab1->setCurrentIndex(fpSetPageNumber);
        m_fpSet->continueWithSet();
    });
    connect(m_fpSet, &FpSetPage::pageWanted, ui->SSTab1, &QTabWidget::setCurrentIndex);
    connect(m_fpSet, &FpSetPage::airportsWanted, m_airportLoader,
            &AirportLoaderPage::takeFileForSet);
    connect(m_fpSet, &FpSetPage::aircraftWanted, m_aircraftLoader,
            &AircraftLoaderPage::takeFileOfSet);
    connect(m_fpSet, &FpSetPage::aircraftFileChosen, m_aircraftLoader,
            &AircraftLoaderPage::takeFileOfSet);
    connect(m_fpSet, &FpSetPage::fileDiscarded, m_aircraftLoader, &AircraftLoaderPage::forgetFile);
    connect(m_fpSet, &FpSetPage::setCreated, m_airportLoader, &AirportLoaderPage::keepFileOfSet);
    connect(m_fpSet, &FpSetPage::setClosed, m_airportLoader, &AirportLoaderPage::leaveSet);

    // Page 3's companion, and an aircraft that was changed there.
    connect(m_configEditor, &ConfigEditorPage::varloWanted, this, [this] {
        launch(m_companions.VarloPath, "Varlo.exe", "Aircraft and Panel Configuration Editor");
    });
    connect(m_configEditor, &ConfigEditorPage::aircraftEdited, m_aircraftLoader,
            &AircraftLoaderPage::pointAtNoFolder);

    connect(m_aircraftLoader, &AircraftLoaderPage::simulatorVersionChosen, this, &Form::FindFSPath);
    // Pages 0 and 3 work on the same directory, whichever of them it was chosen on.
    connect(m_aircraftLoader, &AircraftLoaderPage::directoryChosen, this, &Form::followOnPage3);
    connect(m_configEditor, &ConfigEditorPage::directoryChosen, m_aircraftLoader,
            &AircraftLoaderPage::followDirectory);
}

void frmMorlenEditor::showReminder()
{
    frmAddAirportHelp(m_services.state.ShowAddAirportHelp, this).exec();
}

void frmMorlenEditor::followOnPage3(const QString &directory)
{
    m_services.errors.run("Directory Select Error", [&] {
        m_configEditor->openDirectory(directory);
        m_configEditor->selectFirstEntry();
    });
}

void frmMorlenEditor::Form_Load()
{
    frmSplash splash;
    connect(m_airportLoader, &AirportLoaderPage::countriesLoading, &splash, [&](int lines) {
        splash.setProgressRange(0, lines);
        splash.setStatus("Loading....");
    });
    connect(m_airportLoader, &AirportLoaderPage::countryLineRead, &splash, &frmSplash::setProgress);
    m_services.errors.run("Form Load Error", [&](Step &step) { startUp(splash, step); });
    // Whatever failed, the window comes up and can be used.
    show();
    ui->SSTab1->show();
}

void frmMorlenEditor::startUp(frmSplash &splash, Step &step)
{
    // Pages 3 and 0 list the same aircraft, one after the other.
    const AircraftFolders::SharedLook look(m_services.aircraftFolders);
    FormState &state = m_services.state;
    state.osVersion = clsOS(systemVersion()).text();
    splash.showPainted();
    setWindowTitle("Morlen Utilities - Version " + programVersion());
    findProgramFolder();
    step.set("CheckRegistry 1");
    CheckRegistry();
    step.set("FindFSPath 1");
    FindFSPath();
    state.CommandLine = QCoreApplication::arguments().sliced(1).join(' ');
    m_airportLoader->LoadCountry();
    m_fpSet->prepare();
    step.set("Opening " + m_services.log.path());
    m_services.log.reset();
    m_services.log.write("Reading " + settingsPath());
    m_configEditor->showVarlo();

    step.set("Opening " + settingsPath());
    const std::optional<Settings> settings = m_session.read();
    if (settings) {
        restore(*settings, step);
    } else {
        step.set("Finding FSPath");
        FindFSPath();
    }
    m_fpSet->enableNaming();
    step.set("CheckRegistry");
    CheckRegistry();
    m_configEditor->showFirstAircraft();
    show();
    Repaint::now();
    splash.close();
    ui->SSTab1->show();
    const QString lastTab = settings ? settings->lastTab : QString();
    step.set("Selecting page " + lastTab);
    selectPage(lastTab);
}

void frmMorlenEditor::findProgramFolder()
{
    // A developer's checkout wins over the current directory.
    m_services.state.MorlenEDir = files::isFolder("C:\\Devel\\MorlenEditor")
                                      ? QStringLiteral("C:\\devel\\MorlenEditor\\")
                                      : paths::currentDirectory() + '\\';
}

void frmMorlenEditor::restore(const Settings &settings, Step &step)
{
    m_services.state.strTToolsPath = settings.tToolsPath;
    if (!settings.drive.isEmpty()) {
        step.set("Setting drive to: " + settings.drive);
        m_configEditor->setDrive(settings.drive);
    }
    m_session.restore(settings);
    m_fpSet->showTTools(settings.tToolsPath);
    restoreDirectory(settings.aircraftDir);
    m_aircraftLoader->restoreTextFile(settings.aircraftTextFile);
}

void frmMorlenEditor::restoreDirectory(const QString &directory)
{
    if (!fs_location::namesAircraftFolder(directory)) {
        return;
    }
    m_services.state.ErrMsg = "Setting FS path to: " + directory;
    m_configEditor->openDirectory(directory);
    if (m_aircraftLoader->shownDirectory().isEmpty()) {
        m_aircraftLoader->showDirectory(directory);
        m_aircraftLoader->openDirectory(directory);
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
        m_companions = suite_registry::CheckRegistry(
            m_services.registry, m_services.state.MorlenEDir, windowTitle(), step);
        ui->lblPellara->setVisible(!m_companions.PellaraPath.isEmpty());
        m_configEditor->offerVarlo(!m_companions.VarloPath.isEmpty());
    });
}

void frmMorlenEditor::lblPellara_Click()
{
    launch(m_companions.PellaraPath, "Pellara.exe", m_companions.PellaraCaption);
}

void frmMorlenEditor::launch(const QString &path, const QString &program, const QString &caption)
{
    m_services.errors.run("Launch Error", [&](Step &step) {
        step.set("Launching " + program);
        suite_registry::launch(m_services.processes, path, program, caption);
    });
}

void frmMorlenEditor::FindFSPath()
{
    m_services.errors.run("FS Path Error", [this] {
        FormState &state = m_services.state;
        state.RegValue.clear();
        state.ErrMsg = "Get FlightSim Path";
        state.RegValue = fs_location::installation(m_services.registry);
        if (state.RegValue.isEmpty()) {
            m_aircraftLoader->showDirectory({});
        } else {
            const QString directory = fs_location::aircraftDirectory(state.RegValue);
            m_aircraftLoader->showDirectory(directory);
            m_aircraftLoader->openDirectory(directory);
            m_configEditor->openDirectory(directory);
            m_configEditor->setDrive(directory.left(3));
        }
        m_aircraftLoader->ClearLists();
    });
}

void frmMorlenEditor::SSTab1_Click(int /*PreviousTab*/)
{
    static const QStringList names = {"AI Aircraft Tab Selected", "AI Airport Tab Selected",
                                      "Create FP Tab Selected", "Edit Tab Selected"};
    m_services.log.write(TraceLog::banner(names[m_page]));
    if (m_page == 0) {
        m_aircraftLoader->focusFirstControl();
    } else if (m_page == fpSetPageNumber) {
        m_fpSet->focusNameBox();
    }
}

void frmMorlenEditor::mnuQuit_Click()
{
    if (m_services.state.AddAirportsFlag || m_services.state.newAirportFlag) {
        ui->SSTab1->setCurrentIndex(fpSetPageNumber);
        return;
    }
    quitFrom(m_page);
}

void frmMorlenEditor::quitFrom(int page)
{
    m_services.state.LastTab = QString::number(page);
    SaveSettings();
}

void frmMorlenEditor::SaveSettings()
{
    if (m_services.state.ExitFlag) {
        end();
        return;
    }
    const MessageBox::Answer answer =
        m_services.dialogs.show({.prompt = "Do you really want to exit?",
                                 .title = "Confirm Exit",
                                 .buttons = MessageBox::Buttons::YesNo,
                                 .defaultButton = MessageBox::Answer::No});
    if (answer == MessageBox::Answer::Yes &&
        m_services.errors.run("Save Setting Error", [this](Step &step) {
            step.set("Open " + settingsPath());
            m_session.save(m_configEditor->drive());
        })) {
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
    m_services.errors.run("Trace Log Error", [this](Step &step) {
        step.set("Opening " + m_services.log.path());
        m_services.log.setTracing(ui->mnuTrace->isChecked());
    });
}

void frmMorlenEditor::openHelp(const QString &relativePath)
{
    m_services.errors.run("Help Error",
                          [&](Step &step) { m_services.shell.openDocument(relativePath, step); });
}

void frmMorlenEditor::lblAbout_Click()
{
    frmAbout(m_services, m_services.state.osVersion, this).exec();
}
