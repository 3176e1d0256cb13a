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

using namespace Qt::StringLiterals;

frmMorlenEditor::frmMorlenEditor(const Outside &outside)
    : m_ownServices(std::make_unique<Services>(outside)),
      m_services(*m_ownServices),
      m_session(m_services.state, m_services.log),
      ui(std::make_unique<Ui::frmMorlenEditor>())
{
    ui->setupUi(this);
    makePages();
    connectControls();
    connectPages();
    connectSet();
    new HoverLinks(this);
}

frmMorlenEditor::~frmMorlenEditor() = default;

FormState &frmMorlenEditor::state()
{
    return m_services.state;
}

void frmMorlenEditor::makePages()
{
    ui->SSTab1->hide();
    const auto add = [this](auto *page, const QString &title) {
        ui->SSTab1->addTab(page, title);
        return page;
    };
    m_aircraftLoader = add(new AircraftLoaderPage(m_services, m_set), u"AI Aircraft Loader"_s);
    m_airportLoader = add(new AirportLoaderPage(m_services, m_set), u"AI Airport Loader"_s);
    m_fpSet = add(new FpSetPage(m_services, m_set), u"Create a New FP Set"_s);
    m_configEditor = add(new ConfigEditorPage(m_services), u"Edit Aircraft or Panel"_s);
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

    // Page 3's companion, and an aircraft that was changed there.
    connect(m_configEditor, &ConfigEditorPage::varloWanted, this, [this] {
        launch(m_companions.VarloPath, u"Varlo.exe"_s,
               u"Aircraft and Panel Configuration Editor"_s);
    });
    connect(m_configEditor, &ConfigEditorPage::aircraftEdited, m_aircraftLoader,
            &AircraftLoaderPage::pointAtNoFolder);

    connect(m_aircraftLoader, &AircraftLoaderPage::simulatorVersionChosen, this, &Form::FindFSPath);
    // Pages 0 and 3 show the same directory, whichever of them the user chose it on.
    connect(m_aircraftLoader, &AircraftLoaderPage::directoryChosen, this, &Form::takeDirectory);
    connect(m_aircraftLoader, &AircraftLoaderPage::directoryChosen, m_configEditor,
            &ConfigEditorPage::selectFirstEntry);
    connect(m_configEditor, &ConfigEditorPage::directoryChosen, m_aircraftLoader,
            &AircraftLoaderPage::askForTextFile);
    connect(m_configEditor, &ConfigEditorPage::directoryChosen, this, &Form::takeDirectory);
}

/// The way of a flight plan set from page 2 to pages 1 and 0, and back.
void frmMorlenEditor::connectSet()
{
    const auto show = [this](QWidget *page) { ui->SSTab1->setCurrentWidget(page); };
    const auto showSet = [this, show] { show(m_fpSet); };
    connect(m_fpSet, &FpSetPage::airportsWanted, this, [this, show](const QString &path) {
        m_airportLoader->takeFileForSet(path);
        show(m_airportLoader);
    });
    connect(m_fpSet, &FpSetPage::reminderDue, this, &frmMorlenEditor::showReminder);
    connect(m_airportLoader, &AirportLoaderPage::airportsAdded, m_fpSet,
            &FpSetPage::continueWithAirports);
    connect(m_airportLoader, &AirportLoaderPage::returnToSet, this, showSet);
    connect(m_fpSet, &FpSetPage::aircraftWanted, this, [this, show](const QString &path) {
        m_aircraftLoader->takeFileOfSet(path);
        show(m_aircraftLoader);
        m_aircraftLoader->fillFromTextFile();
    });
    connect(m_aircraftLoader, &AircraftLoaderPage::aircraftAdded, m_fpSet,
            &FpSetPage::continueWithAircraft);
    connect(m_aircraftLoader, &AircraftLoaderPage::aircraftAddedInPart, m_fpSet,
            &FpSetPage::keepAircraft);
    connect(m_fpSet, &FpSetPage::setContinues, this, showSet);
    connect(m_fpSet, &FpSetPage::aircraftFileWritten, m_aircraftLoader,
            &AircraftLoaderPage::followFile);
    connect(m_fpSet, &FpSetPage::aircraftFileChosen, this, [this](const QString &path) {
        m_aircraftLoader->takeFileOfSet(path);
        m_aircraftLoader->fillFromTextFile();
    });
    connect(m_fpSet, &FpSetPage::setCreated, m_airportLoader, &AirportLoaderPage::keepFileOfSet);
    connect(m_fpSet, &FpSetPage::fileGivenUp, m_aircraftLoader, &AircraftLoaderPage::forgetFile);
    connect(m_fpSet, &FpSetPage::fileGivenUp, m_airportLoader, &AirportLoaderPage::forgetFile);
}

void frmMorlenEditor::showReminder()
{
    frmAddAirportHelp(m_services.state.ShowAddAirportHelp, this).exec();
}

void frmMorlenEditor::takeDirectory(const QString &directory)
{
    m_session.directoryChosen();
    m_services.errors.run(u"Directory Select Error"_s, [&](Step &step) {
        step.set(u"Set path to "_s + directory);
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
    frmSplash splash;
    connect(m_airportLoader, &AirportLoaderPage::countriesLoading, &splash, [&](int lines) {
        splash.setProgressRange(0, lines);
        splash.setStatus(u"Loading...."_s);
    });
    connect(m_airportLoader, &AirportLoaderPage::countryLineRead, &splash, &frmSplash::setProgress);
    m_services.aircraftFolders.remember(); // pages 3 and 0 list the same, one after the other
    startUp(splash);
    m_services.aircraftFolders.forget();
}

template <typename Body>
bool frmMorlenEditor::take(const QString &what, Body body)
{
    return m_services.errors.run(u"Form Load Error"_s, [&](Step &step) {
        step.set(what);
        body();
    });
}

void frmMorlenEditor::startUp(frmSplash &splash)
{
    FormState &state = m_services.state;
    state.osVersion = clsOS(systemVersion()).text();
    splash.showPainted();
    setWindowTitle(u"Morlen Utilities - Version "_s + programVersion());
    findProgramFolder();
    take(u"CheckRegistry 1"_s, [this] { CheckRegistry(); });
    take(u"FindFSPath 1"_s, [this] { FindFSPath(); });
    state.CommandLine = QCoreApplication::arguments().sliced(1).join(u' ');
    m_airportLoader->LoadCountry();
    m_fpSet->prepare();
    m_canWrite = take(u"Opening "_s + m_services.log.path(), [this] { m_services.log.reset(); });
    m_services.log.write(u"Reading "_s + settingsPath());
    m_configEditor->showVarlo();
    const QString lastTab = readSession();
    m_fpSet->enableNaming();
    take(u"CheckRegistry"_s, [this] { CheckRegistry(); });
    m_configEditor->showFirstAircraft();
    show();
    Repaint::now();
    splash.close();
    ui->SSTab1->show();
    take(u"Selecting page "_s + lastTab, [&] { selectPage(lastTab); });
}

void frmMorlenEditor::findProgramFolder()
{
    // A developer's checkout wins over the current directory.
    m_services.state.MorlenEDir = files::isFolder(u"C:\\Devel\\MorlenEditor"_s)
                                      ? u"C:\\devel\\MorlenEditor\\"_s
                                      : paths::currentDirectory() + u'\\';
}

/// Restores what the run before saved, and returns its last page.
QString frmMorlenEditor::readSession()
{
    std::optional<Settings> settings;
    bool restoredAll = take(u"Opening "_s + settingsPath(), [&] {
        settings = m_session.read();
        if (m_canWrite) {
            m_session.create();
        }
    });
    if (settings) {
        restoredAll = restore(*settings) && restoredAll;
    } else if (restoredAll) {
        take(u"Finding FSPath"_s, [this] { FindFSPath(); });
    }
    m_session.begin(m_configEditor->drive(), restoredAll);
    return settings ? settings->lastTab : QString();
}

/// Returns whether all could be restored.
bool frmMorlenEditor::restore(const Settings &settings)
{
    m_services.state.strTToolsPath = settings.tToolsPath;
    m_session.restore(settings);
    m_fpSet->showTTools(settings.tToolsPath);
    const QString &drive = settings.drive;
    const bool hasDrive = drive.isEmpty() || take(u"Setting drive to: "_s + drive,
                                                  [&] { m_configEditor->setDrive(drive); });
    const auto isThere = [&](const QString &path) {
        return hasDrive || !path.startsWith(drive, Qt::CaseInsensitive);
    };
    const bool hasDirectory =
        isThere(settings.aircraftDir) && take(u"Setting FS path to: "_s + settings.aircraftDir,
                                              [&] { restoreDirectory(settings.aircraftDir); });
    const bool hasTextFile = hasDirectory && isThere(settings.aircraftTextFile);
    if (hasTextFile) {
        m_aircraftLoader->restoreTextFile(settings.aircraftTextFile);
    }
    m_configEditor->showDrive(drive); // the directory may lie on another one
    return hasDrive && hasTextFile;
}

void frmMorlenEditor::restoreDirectory(const QString &directory)
{
    if (!fs_location::namesAircraftFolder(directory)) {
        return;
    }
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
    m_services.errors.run(u"Check Registry Errors"_s, [this](Step &step) {
        m_companions = suite_registry::CheckRegistry(
            m_services.registry, m_services.state.MorlenEDir, windowTitle(), step);
        ui->lblPellara->setVisible(!m_companions.PellaraPath.isEmpty());
        m_configEditor->offerVarlo(!m_companions.VarloPath.isEmpty());
    });
}

void frmMorlenEditor::lblPellara_Click()
{
    launch(m_companions.PellaraPath, u"Pellara.exe"_s, m_companions.PellaraCaption);
}

void frmMorlenEditor::launch(const QString &path, const QString &program, const QString &caption)
{
    m_services.errors.run(u"Launch Error"_s, [&](Step &step) {
        step.set(u"Launching "_s + program);
        suite_registry::launch(m_services.processes, path, program, caption);
    });
}

void frmMorlenEditor::FindFSPath()
{
    QString directory;
    const bool found = m_services.errors.run(u"FS Path Error"_s, [&](Step &step) {
        step.set(u"Get FlightSim Path"_s);
        FormState &state = m_services.state;
        state.RegValue = fs_location::installation(m_services.registry);
        if (!state.RegValue.isEmpty()) {
            directory = fs_location::aircraftDirectory(state.RegValue);
            openAircraftDir(directory);
        }
    });
    if (!found || directory.isEmpty()) { // the lists are of none then, nor of another
        m_aircraftLoader->showDirectory({});
    }
    m_aircraftLoader->ClearLists();
}

void frmMorlenEditor::SSTab1_Click(int /*PreviousTab*/)
{
    static const QStringList names = {u"AI Aircraft Tab Selected"_s, u"AI Airport Tab Selected"_s,
                                      u"Create FP Tab Selected"_s, u"Edit Tab Selected"_s};
    m_services.log.write(TraceLog::banner(names[m_page]));
    if (m_page == 0) {
        m_aircraftLoader->focusFirstControl();
    } else if (m_page == fpSetPageNumber) {
        m_fpSet->focusNameBox();
    }
}

void frmMorlenEditor::mnuQuit_Click()
{
    if (m_set.newAirportFlag) { // and AddAirportsFlag, which holds no longer
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
        m_services.dialogs.show({.prompt = u"Do you really want to exit?"_s,
                                 .title = u"Confirm Exit"_s,
                                 .buttons = MessageBox::Buttons::YesNo,
                                 .defaultButton = MessageBox::Answer::No});
    if (answer != MessageBox::Answer::Yes) {
        return;
    }
    const bool saved = m_services.errors.run(u"Save Setting Error"_s, [this](Step &step) {
        step.set(u"Open "_s + settingsPath());
        m_session.save(m_configEditor->drive());
    });
    if (saved || !m_canWrite) { // then another try could do no better
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
    m_services.errors.run(u"Trace Log Error"_s, [this](Step &step) {
        step.set(u"Opening "_s + m_services.log.path());
        m_services.log.setTracing(ui->mnuTrace->isChecked());
    });
}

void frmMorlenEditor::openHelp(const char *relativePath)
{
    m_services.errors.run(u"Help Error"_s, [&](Step &step) {
        m_services.shell.openDocument(QString::fromLatin1(relativePath), step);
    });
}

void frmMorlenEditor::lblAbout_Click()
{
    frmAbout(m_services, m_services.state.osVersion, this).exec();
}
