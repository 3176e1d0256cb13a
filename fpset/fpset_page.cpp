// SPDX-License-Identifier: MIT
#include "fpset/fpset_page.h"

#include "app/services/look.h"
#include "app/services/path_display.h"
#include "app/services/services.h"
#include "fpset/fpset_files.h"
#include "platform/blind_to_case.h"
#include "platform/controls/control_state.h"
#include "platform/files.h"

#include <QApplication>

#include "ui_fpset_page.h"

namespace
{

constexpr qsizetype shownPathLimit = 50; // characters
constexpr int aircraftPage = 0;
constexpr int airportPage = 1;
const QString applicationTitle = QStringLiteral("Morlen Utilities");
const QString errorTitle = QStringLiteral("Create File Error");
const QString quitCaption = QStringLiteral("Quit");
const QString doneCaption = QStringLiteral("All Done!");

void setEnabledAll(bool on, std::initializer_list<QWidget *> controls)
{
    for (QWidget *control : controls) {
        control->setEnabled(on);
    }
}

/// The frame the user works in now.
void makeCurrentStep(QGroupBox *frame)
{
    frame->setEnabled(true);
    showCurrentStep(frame);
}

} // namespace

FpSetPage::FpSetPage(Services &services, QWidget *parent)
    : QWidget(parent),
      m_services(services),
      m_state(services.state),
      ui(std::make_unique<Ui::FpSetPage>())
{
    ui->setupUi(this);
    showCurrentStep(ui->tab2TToolsDir);
    connectControls();
}

FpSetPage::~FpSetPage() = default;

void FpSetPage::connectControls()
{
    using Page = FpSetPage;
    const auto onClick = [this](QAbstractButton *button, void (Page::*handler)()) {
        connect(button, &QAbstractButton::clicked, this, handler);
    };
    onClick(ui->tab2cmdFindTTools, &Page::tab2cmdFindTTools_Click);
    onClick(ui->tab2Command2, &Page::tab2Command2_Click);
    onClick(ui->tab2optCreatefile, &Page::tab2optCreatefile_Click);
    onClick(ui->tab2optCopyFile, &Page::tab2optCopyFile_Click);
    onClick(ui->tab2cmdAirport, &Page::tab2cmdAirport_Click);
    onClick(ui->tab2optCreateNewAircraft, &Page::tab2optCreateNewAircraft_Click);
    onClick(ui->tab2optCopyExistingAircraft, &Page::tab2optCopyExistingAircraft_Click);
    onClick(ui->tab2cmdAircraft, &Page::tab2cmdAircraft_Click);
    onClick(ui->tab2cmdCreateNewFP, &Page::tab2cmdCreateNewFP_Click);
    onClick(ui->tab2cmdCancel, &Page::tab2cmdCancel_Click);
    onClick(ui->tab2cmdQuit, &Page::tab2cmdQuit_Click);
    connect(ui->tab2txtFltPlan, &QLineEdit::returnPressed, ui->tab2Command2, &QPushButton::click);
    connect(ui->Tab2lblHelp, &LinkLabel::clicked, this, &Page::helpWanted);
}

void FpSetPage::prepare()
{
    ui->tab2txtFltPlan->setText(fpset_name::defaultName);
    ui->tab2txtFltPlan->end(false);
    m_state.DefaultName = ui->tab2txtFltPlan->text();
    m_state.AddAirportsFlag = false;
    m_state.AddAircraftFlag = false;
}

void FpSetPage::showTTools(const QString &path)
{
    if (blind_to_case::lower(path).contains(QLatin1String("ttools.exe"))) {
        ui->tab2txtTToolsDir->setText(shortenedPath(path, shownPathLimit));
        ui->tab2TToolsDir->setTitle("TTools Directory");
        showDone(ui->tab2TToolsDir);
    }
}

void FpSetPage::enableNaming()
{
    if (ui->tab2txtTToolsDir->text().isEmpty()) {
        return;
    }
    showDone(ui->tab2TToolsDir);
    enterNamingStep();
}

void FpSetPage::enterNamingStep()
{
    makeCurrentStep(ui->tab2Frame12);
    setEnabledAll(true, {ui->tab2Command2, ui->tab2txtFltPlan});
}

void FpSetPage::focusNameBox()
{
    focusIfShown(ui->tab2txtFltPlan);
}

void FpSetPage::showAirportFile()
{
    ui->tab2txtAirport->setText(m_set.airportFile);
}

void FpSetPage::continueWithSet()
{
    ui->tab2txtFltPlan->setText(m_setName);
    focusIfShown(ui->tab2cmdCreateNewFP);
}

void FpSetPage::trace(const QString &text)
{
    m_services.log.write(text);
}

void FpSetPage::beginStep(const QString &text, Step &step)
{
    trace(text);
    step.set(text);
}

void FpSetPage::showNotice(const QString &prompt)
{
    m_services.dialogs.show({.prompt = prompt,
                             .title = "FlightSim Directory Error",
                             .icon = MessageBox::Icon::Exclamation});
}

void FpSetPage::focusNameEnd()
{
    focusNameBox();
    ui->tab2txtFltPlan->end(false);
}

void FpSetPage::tab2cmdFindTTools_Click()
{
    const QString path = m_services.dialogs.openFile(
        {.filter = "Traffic Tools (TTools) (*.exe)|TTools*.exe|", .startFolder = {}});
    ui->tab2txtTToolsDir->setText(shortenedPath(path, shownPathLimit));
    m_state.strTToolsPath = path;
    trace("TTools Path = " + path);
    if (!path.isEmpty() && m_services.shell.CheckFileExists(path)) {
        takeTToolsDirectory(path);
    } else {
        refuseTTools();
    }
}

void FpSetPage::takeTToolsDirectory(const QString &path)
{
    m_state.strTToolsDir = tToolsFolder(path);
    showDone(ui->tab2TToolsDir);
    ui->tab2TToolsDir->setTitle("TTools Directory");
    setEnabledAll(false, {ui->tab2txtTToolsDir, ui->tab2cmdFindTTools});
    enterNamingStep();
    focusNameBox();
    trace("TTools Directory = " + m_state.strTToolsDir);
}

void FpSetPage::refuseTTools()
{
    m_services.dialogs.show(
        {.prompt = "Please select your TTools directory!", .title = applicationTitle});
    ui->tab2txtTToolsDir->clear();
    // Without a directory on show no set is named, least of all in the one before.
    m_state.strTToolsDir.clear();
    showCurrentStep(ui->tab2TToolsDir);
    showDone(ui->tab2Frame12);
    setEnabledAll(false, {ui->tab2Frame12, ui->tab2Command2, ui->tab2txtFltPlan});
    focusIfShown(ui->tab2txtTToolsDir);
}

void FpSetPage::tab2Command2_Click()
{
    const QString typed = ui->tab2txtFltPlan->text();
    if (fpset_name::isUnfinished(typed, m_state.DefaultName)) {
        QApplication::beep();
        startOverNaming();
        return;
    }
    const QString name = fpset_name::withExtension(typed);
    if (name != typed) {
        ui->tab2txtFltPlan->setText(name);
    }
    CheckForValidFileName(name);
    if (!m_nameValid) {
        return;
    }
    m_setName = name;
    m_set = fpset_name::filesOf(m_state.strTToolsDir, name);
    if (FileExists(m_set.flightPlanPath)) {
        m_services.dialogs.show({.prompt = "Sorry!  That name is already in use",
                                 .title = "File Error",
                                 .icon = MessageBox::Icon::Critical});
        startOverNaming();
        return;
    }
    enterAirportStep();
    trace("FlightPlan File = " + m_set.flightPlanPath);
}

void FpSetPage::CheckForValidFileName(const QString &fileName)
{
    m_nameValid = fpset_name::isValid(fileName);
    if (!m_nameValid) {
        m_services.dialogs.show({.prompt = "Invalid File Name!",
                                 .title = "Name Error",
                                 .icon = MessageBox::Icon::Critical});
        focusNameEnd();
    }
}

bool FpSetPage::FileExists(const QString &path)
{
    return files::exists(path);
}

void FpSetPage::startOverNaming()
{
    ui->tab2txtFltPlan->setText(fpset_name::defaultName);
    focusNameEnd();
}

void FpSetPage::enterAirportStep()
{
    setEnabledAll(false, {ui->tab2TToolsDir, ui->tab2cmdFindTTools});
    makeCurrentStep(ui->tab2Frame2);
    showDone(ui->tab2Frame12);
    setEnabledAll(true, {ui->tab2optCreatefile, ui->tab2optCopyFile});
    unsetOptions({ui->tab2optCreatefile, ui->tab2optCopyFile});
    ui->tab2Frame2->setTitle(" Create a new Airports File");
    ui->tab2Frame3->setTitle(" Create a new Aircraft File");
    ui->tab2optCreatefile->setToolTip(" Click to create a new Airports File");
    focusIfShown(ui->tab2optCreatefile); // the name box and its button are about to lose it
    setEnabledAll(false, {ui->tab2Command2, ui->tab2txtFltPlan});
    ui->tab2cmdAirport->setEnabled(true);
}

void FpSetPage::tab2optCreatefile_Click()
{
    ui->tab2cmdAirport->setText("OK");
    ui->tab2cmdAirport->setEnabled(true);
    focusIfShown(ui->tab2cmdAirport);
    ui->tab2txtAirport->setEnabled(false);
}

void FpSetPage::tab2optCopyFile_Click()
{
    ui->tab2cmdAirport->setText("Browse");
    ui->tab2cmdAirport->setEnabled(true);
    focusIfShown(ui->tab2cmdAirport);
    ui->tab2txtAircraft->setEnabled(true); // the aircraft box: this product crosses over here
}

void FpSetPage::tab2cmdAirport_Click()
{
    if (ui->tab2optCopyFile->isChecked()) {
        const QString source =
            m_services.dialogs.openFile({.filter = "Airport Text Files (*.txt)|airports*.txt|",
                                         .startFolder = m_state.strTToolsDir});
        if (source.isEmpty()) {
            showNotice("Please select the Airports Text File!");
            return;
        }
        trace("Airport Text File = " + source);
        enterAircraftStep(source);
    } else if (ui->tab2optCreatefile->isChecked()) {
        askForAirports();
        enterAircraftStep({});
    } else {
        focusIfShown(ui->tab2optCreatefile); // neither is chosen yet
    }
}

void FpSetPage::askForAirports()
{
    m_state.newAirportFlag = true;
    Q_EMIT airportsWanted(m_set.airportPath);
    Q_EMIT pageWanted(airportPage);
    trace("Airport Text File = " + m_set.airportPath);
    if (m_state.ShowAddAirportHelp) {
        Q_EMIT reminderDue();
    }
}

void FpSetPage::enterAircraftStep(const QString &airportSource)
{
    ui->tab2optCreateNewAircraft->setToolTip(
        " Create an empty Aircraft File and add Aircraft to it later ");
    ui->tab2txtAirport->setText(airportSource);
    showDone(ui->tab2Frame2);
    makeCurrentStep(ui->tab2Frame3);
    setEnabledAll(false, {ui->tab2cmdAircraft, ui->tab2txtAirport});
    setEnabledAll(true, {ui->tab2optCreateNewAircraft, ui->tab2optCopyExistingAircraft});
    unsetOptions({ui->tab2optCreateNewAircraft, ui->tab2optCopyExistingAircraft});
    focusIfShown(ui->tab2optCreateNewAircraft); // the airport button is about to lose it
    setEnabledAll(false, {ui->tab2optCreatefile, ui->tab2optCopyFile, ui->tab2cmdAirport});
}

void FpSetPage::tab2optCreateNewAircraft_Click()
{
    ui->tab2cmdAircraft->setText("OK");
    ui->tab2cmdAircraft->setEnabled(true);
    focusIfShown(ui->tab2cmdAircraft);
    ui->tab2txtAircraft->setEnabled(false);
}

void FpSetPage::tab2optCopyExistingAircraft_Click()
{
    ui->tab2cmdAircraft->setText("Browse");
    ui->tab2cmdAircraft->setEnabled(true);
    focusIfShown(ui->tab2cmdAircraft);
    ui->tab2txtAircraft->setEnabled(true);
}

void FpSetPage::tab2cmdAircraft_Click()
{
    m_services.errors.run(errorTitle, [this](Step &step) {
        if (ui->tab2optCopyExistingAircraft->isChecked()) {
            const QString source =
                m_services.dialogs.openFile({.filter = "Aircraft Text Files (*.txt)|aircraft*.txt|",
                                             .startFolder = m_state.strTToolsDir});
            if (source.isEmpty()) {
                showNotice("Please select the Aircraft Text File!"); // and on all the same
            } else {
                ui->tab2txtAircraft->setText(source);
                trace("Aircraft Text File = " + source);
            }
        } else {
            askForAircraft(step);
        }
        enterCreationStep();
    });
}

void FpSetPage::askForAircraft(Step &step)
{
    m_newAircraft = true;
    beginStep("Creating  " + m_set.aircraftPath, step);
    fpset_files::ensureExists(m_set.aircraftPath);
    m_state.newAircraftSetOpen = true;
    m_state.reLoadNewPlan = true;
    Q_EMIT pageWanted(aircraftPage);
    Q_EMIT aircraftWanted(m_set.aircraftPath);
}

void FpSetPage::enterCreationStep()
{
    showDone(ui->tab2Frame3);
    makeCurrentStep(ui->tab2Frame4);
    ui->tab2cmdCreateNewFP->setEnabled(true);
    focusIfShown(ui->tab2cmdCreateNewFP);
    setEnabledAll(false, {ui->tab2optCopyFile, ui->tab2cmdAircraft, ui->tab2optCreateNewAircraft,
                          ui->tab2optCopyExistingAircraft, ui->tab2txtAircraft});
}

void FpSetPage::tab2cmdCreateNewFP_Click()
{
    if (!m_services.errors.run(errorTitle, [this](Step &step) { createFiles(step); })) {
        return; // what was created stays, and the step too, for another try
    }
    if (m_state.AircraftTextDir.compare(m_set.aircraftPath, Qt::CaseInsensitive) != 0) {
        Q_EMIT aircraftFileChosen(m_set.aircraftPath);
    }
    m_services.dialogs.show(
        {.prompt = "FlightPlan file set " + m_set.flightPlanPath + " created successfully!",
         .title = "Create Files",
         .icon = MessageBox::Icon::Information});
    leaveCreationStep();
    ui->tab2cmdCancel->click();
}

void FpSetPage::createFiles(Step &step)
{
    trace("Creating New FlightPlan Set");
    if (ui->tab2optCopyFile->isChecked()) {
        const QString source = ui->tab2txtAirport->text();
        beginStep("Copy " + source + " to " + m_set.airportPath, step);
        fpset_files::copy(source, m_set.airportPath, step);
    }
    if (ui->tab2optCopyExistingAircraft->isChecked()) {
        const QString source = ui->tab2txtAircraft->text();
        beginStep("Copy " + source + " to " + m_set.aircraftPath, step);
        fpset_files::copy(source, m_set.aircraftPath, step);
        m_state.AddAircraftFlag = true;
    }
    if (!m_state.AddAircraftFlag) {
        beginStep("Creating Aircraft File " + m_set.aircraftPath, step);
        fpset_files::createEmpty(m_set.aircraftPath, step);
    }
    beginStep("Creating FlightPlan File " + m_set.flightPlanPath, step);
    fpset_files::createEmpty(m_set.flightPlanPath, step);
}

void FpSetPage::leaveCreationStep()
{
    setEnabledAll(true, {ui->tab2TToolsDir, ui->tab2cmdFindTTools});
    ui->tab2Frame4->setEnabled(false);
    showDone(ui->tab2Frame4);
    ui->tab2cmdCreateNewFP->setEnabled(false);
    ui->tab2cmdQuit->setEnabled(true);
    ui->tab2cmdQuit->setText(doneCaption);
    focusIfShown(ui->tab2cmdQuit);
    m_setCreated = true;
    m_state.newAirportFlag = false;
    Q_EMIT setCreated();
}

void FpSetPage::tab2cmdCancel_Click()
{
    if (!m_setCreated) {
        discardFilesOfSet();
    }
    // Only these two: once aircraft were written, or a set was created, that stands.
    m_state.AddAirportsFlag = false;
    m_state.newAirportFlag = false;
    m_state.newAircraftSetOpen = false;
    m_state.reLoadNewPlan = false;
    ui->tab2txtAirport->clear();
    ui->tab2txtAircraft->clear();
    if (ui->tab2txtTToolsDir->text().isEmpty()) {
        setEnabledAll(false, {ui->tab2Frame12, ui->tab2Command2, ui->tab2txtFltPlan});
        focusIfShown(ui->tab2cmdFindTTools);
    } else {
        enterNamingStep();
        ui->tab2txtFltPlan->setText(fpset_name::defaultName);
    }
    resetSteps();
    focusNameEnd();
    setEnabledAll(true, {ui->tab2TToolsDir, ui->tab2cmdFindTTools});
    ui->tab2cmdQuit->setText(quitCaption);
    Q_EMIT setClosed();
}

void FpSetPage::discardFilesOfSet()
{
    const auto discard = [this](const QString &path) {
        m_services.errors.run("Delete File Error", [&](Step &step) {
            step.set("Delete " + path);
            if (fpset_files::discard(path, step)) {
                Q_EMIT fileDiscarded(path);
            }
        });
    };
    if (m_state.AddAirportsFlag && m_state.newAirportFlag) {
        discard(m_set.airportPath); // page 1 may have gone on to another file
    }
    if (m_state.AddAircraftFlag && m_newAircraft) {
        discard(m_set.aircraftPath);
    }
}

void FpSetPage::resetSteps()
{
    ui->tab2txtFltPlan->setEnabled(true); // within its frame, which may be disabled
    for (QGroupBox *frame : {ui->tab2Frame2, ui->tab2Frame3, ui->tab2Frame4}) {
        frame->setEnabled(false);
        showDone(frame);
    }
    for (QPushButton *button : {ui->tab2cmdAirport, ui->tab2cmdAircraft}) {
        button->setEnabled(false);
        button->setText("Browse");
    }
    setEnabledAll(false, {ui->tab2txtAirport, ui->tab2txtAircraft, ui->tab2cmdCreateNewFP,
                          ui->tab2optCreatefile, ui->tab2optCopyFile, ui->tab2optCreateNewAircraft,
                          ui->tab2optCopyExistingAircraft});
    unsetOptions({ui->tab2optCreatefile, ui->tab2optCopyFile, ui->tab2optCreateNewAircraft,
                  ui->tab2optCopyExistingAircraft});
}

void FpSetPage::tab2cmdQuit_Click()
{
    if (ui->tab2cmdQuit->text() == doneCaption) {
        ui->tab2cmdQuit->setText(quitCaption);
        ui->tab2cmdCancel->click();
    }
    Q_EMIT quitPressed();
}
