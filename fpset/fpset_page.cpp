// SPDX-License-Identifier: MIT
#include "fpset/fpset_page.h"

#include "app/services/look.h"
#include "app/services/path_display.h"
#include "app/services/services.h"
#include "app/services/set_in_progress.h"
#include "fpset/fpset_files.h"
#include "platform/blind_to_case.h"
#include "platform/controls/control_state.h"
#include "platform/files.h"

#include <QApplication>

#include "ui_fpset_page.h"

namespace
{

constexpr qsizetype shownPathLimit = 50; // characters
const QString errorTitle = QStringLiteral("Create File Error");
const QString okCaption = QStringLiteral("OK");
const QString browseCaption = QStringLiteral("Browse");
const QString doneCaption = QStringLiteral("All Done!");

void setEnabledAll(bool on, const QList<QWidget *> &controls)
{
    for (QWidget *control : controls) {
        control->setEnabled(on);
    }
}

enum StepNumber { Naming, Airports, Aircraft, Creation };

/// A step's frame, and the controls it begins with: the first one gets the focus.
struct StepFrame {
    QGroupBox *frame;
    QList<QWidget *> controls;
};

StepFrame stepFrame(const Ui::FpSetPage &ui, int number)
{
    const QList<StepFrame> steps = {
        {ui.tab2Frame12, {ui.tab2txtFltPlan, ui.tab2Command2}},
        {ui.tab2Frame2, {ui.tab2optCreatefile, ui.tab2optCopyFile, ui.tab2cmdAirport}},
        {ui.tab2Frame3, {ui.tab2optCreateNewAircraft, ui.tab2optCopyExistingAircraft}},
        {ui.tab2Frame4, {ui.tab2cmdCreateNewFP}}};
    return steps[number];
}

void finishStep(QGroupBox *frame)
{
    showDone(frame);
    setEnabledAll(false, frame->findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
}

void giveUpStep(QGroupBox *frame)
{
    frame->setEnabled(false);
    finishStep(frame);
}

void enterStep(const Ui::FpSetPage &ui, StepNumber number)
{
    const StepFrame step = stepFrame(ui, number);
    step.frame->setEnabled(true);
    showCurrentStep(step.frame);
    setEnabledAll(true, step.controls);
    focusIfShown(step.controls.first()); // the step before is about to lose it
    if (number > Naming) {
        finishStep(stepFrame(ui, number - 1).frame);
    }
}

/// Lets the button of a step be used, as the option chosen has it.
void offer(QPushButton *button, const QString &caption)
{
    button->setText(caption);
    button->setEnabled(true);
    focusIfShown(button);
}

} // namespace

FpSetPage::FpSetPage(Services &services, SetInProgress &set, QWidget *parent)
    : QWidget(parent),
      m_services(services),
      m_state(services.state),
      ui(std::make_unique<Ui::FpSetPage>()),
      m_set(set)
{
    ui->setupUi(this);
    showCurrentStep(ui->tab2TToolsDir);
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

FpSetPage::~FpSetPage() = default;

void FpSetPage::prepare()
{
    ui->tab2txtFltPlan->setText(fpset_name::defaultName);
    ui->tab2txtFltPlan->end(false);
    m_state.DefaultName = ui->tab2txtFltPlan->text();
    m_set = {};
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
    if (!ui->tab2txtTToolsDir->text().isEmpty()) {
        enterStep(*ui, Naming);
    }
}

void FpSetPage::focusNameBox()
{
    focusIfShown(ui->tab2txtFltPlan);
}

void FpSetPage::continueWithAirports(bool any)
{
    if (m_set.newAirportFlag) {
        m_set.AddAirportsFlag = m_set.AddAirportsFlag || any;
        ui->tab2txtAirport->setText(m_files.airportFile);
    }
}

void FpSetPage::continueWithAircraft()
{
    m_set.AddAircraftFlag = true;
    if (m_set.reLoadNewPlan) { // its name is in the box still
        Q_EMIT setContinues();
        focusIfShown(ui->tab2cmdCreateNewFP);
    }
}

void FpSetPage::beginStep(const QString &text, Step &step)
{
    m_services.log.write(text);
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
    m_services.log.write("TTools Path = " + path);
    if (path.isEmpty() || !m_services.shell.CheckFileExists(path)) {
        refuseTTools();
        return;
    }
    m_state.strTToolsDir = tToolsFolder(path);
    showDone(ui->tab2TToolsDir);
    ui->tab2TToolsDir->setTitle("TTools Directory");
    setEnabledAll(false, {ui->tab2txtTToolsDir, ui->tab2cmdFindTTools});
    enterStep(*ui, Naming);
    m_services.log.write("TTools Directory = " + m_state.strTToolsDir);
}

void FpSetPage::refuseTTools()
{
    m_services.dialogs.show(
        {.prompt = "Please select your TTools directory!", .title = "Morlen Utilities"});
    ui->tab2txtTToolsDir->clear();
    // Without a directory on show no set is named, least of all in the one before.
    m_state.strTToolsDir.clear();
    showCurrentStep(ui->tab2TToolsDir);
    giveUpStep(ui->tab2Frame12);
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
    ui->tab2txtFltPlan->setText(name);
    if (!CheckForValidFileName(name)) {
        return;
    }
    m_files = fpset_name::filesOf(m_state.strTToolsDir, name);
    if (FileExists(m_files.flightPlanPath)) {
        m_services.dialogs.show({.prompt = "Sorry!  That name is already in use",
                                 .title = "File Error",
                                 .icon = MessageBox::Icon::Critical});
        startOverNaming();
        return;
    }
    enterAirportStep();
    m_services.log.write("FlightPlan File = " + m_files.flightPlanPath);
}

bool FpSetPage::CheckForValidFileName(const QString &fileName)
{
    const bool valid = fpset_name::isValid(fileName);
    if (!valid) {
        m_services.dialogs.show({.prompt = "Invalid File Name!",
                                 .title = "Name Error",
                                 .icon = MessageBox::Icon::Critical});
        focusNameEnd();
    }
    return valid;
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
    enterStep(*ui, Airports);
    setEnabledAll(false, {ui->tab2TToolsDir, ui->tab2cmdFindTTools});
    ui->tab2Frame2->setTitle(" Create a new Airports File");
    ui->tab2Frame3->setTitle(" Create a new Aircraft File");
    ui->tab2optCreatefile->setToolTip(" Click to create a new Airports File");
}

void FpSetPage::tab2optCreatefile_Click()
{
    offer(ui->tab2cmdAirport, okCaption);
}

void FpSetPage::tab2optCopyFile_Click()
{
    offer(ui->tab2cmdAirport, browseCaption);
    ui->tab2txtAircraft->setEnabled(true); // the aircraft box: this product crosses over here
}

void FpSetPage::tab2cmdAirport_Click()
{
    QString source;
    if (ui->tab2optCopyFile->isChecked()) {
        source = m_services.dialogs.openFile({.filter = "Airport Text Files (*.txt)|airports*.txt|",
                                              .startFolder = m_state.strTToolsDir});
        if (source.isEmpty()) {
            showNotice("Please select the Airports Text File!");
            return;
        }
        m_services.log.write("Airport Text File = " + source);
    } else if (ui->tab2optCreatefile->isChecked()) {
        askForAirports();
    } else {
        focusIfShown(ui->tab2optCreatefile); // neither is chosen yet
        return;
    }
    ui->tab2optCreateNewAircraft->setToolTip(
        " Create an empty Aircraft File and add Aircraft to it later ");
    ui->tab2txtAirport->setText(source);
    enterStep(*ui, Aircraft);
}

void FpSetPage::askForAirports()
{
    m_set.newAirportFlag = true;
    Q_EMIT airportsWanted(m_files.airportPath);
    m_services.log.write("Airport Text File = " + m_files.airportPath);
    if (m_state.ShowAddAirportHelp) {
        Q_EMIT reminderDue();
    }
}

void FpSetPage::tab2optCreateNewAircraft_Click()
{
    offer(ui->tab2cmdAircraft, okCaption);
    ui->tab2txtAircraft->setEnabled(false);
}

void FpSetPage::tab2optCopyExistingAircraft_Click()
{
    offer(ui->tab2cmdAircraft, browseCaption);
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
                m_services.log.write("Aircraft Text File = " + source);
            }
        } else {
            askForAircraft(step);
        }
        enterStep(*ui, Creation);
    });
}

void FpSetPage::askForAircraft(Step &step)
{
    m_newAircraft = true;
    beginStep("Creating  " + m_files.aircraftPath, step);
    fpset_files::ensureExists(m_files.aircraftPath);
    m_set.reLoadNewPlan = true;
    Q_EMIT aircraftWanted(m_files.aircraftPath);
}

void FpSetPage::tab2cmdCreateNewFP_Click()
{
    if (!m_services.errors.run(errorTitle, [this](Step &step) { createFiles(step); })) {
        return; // what was created stays, and the step too, for another try
    }
    if (m_state.AircraftTextDir.compare(m_files.aircraftPath, Qt::CaseInsensitive) != 0) {
        Q_EMIT aircraftFileChosen(m_files.aircraftPath);
    }
    m_services.dialogs.show(
        {.prompt = "FlightPlan file set " + m_files.flightPlanPath + " created successfully!",
         .title = "Create Files",
         .icon = MessageBox::Icon::Information});
    ui->tab2cmdQuit->setText(doneCaption);
    focusIfShown(ui->tab2cmdQuit);
    m_setCreated = true;
    m_set.newAirportFlag = false;
    Q_EMIT setCreated();
    ui->tab2cmdCancel->click();
}

void FpSetPage::createFiles(Step &step)
{
    m_services.log.write("Creating New FlightPlan Set");
    if (ui->tab2optCopyFile->isChecked()) {
        const QString source = ui->tab2txtAirport->text();
        beginStep("Copy " + source + " to " + m_files.airportPath, step);
        fpset_files::copy(source, m_files.airportPath, step);
    }
    if (ui->tab2optCopyExistingAircraft->isChecked()) {
        const QString source = ui->tab2txtAircraft->text();
        beginStep("Copy " + source + " to " + m_files.aircraftPath, step);
        fpset_files::copy(source, m_files.aircraftPath, step);
        m_set.AddAircraftFlag = true;
    }
    if (!m_set.AddAircraftFlag) {
        beginStep("Creating Aircraft File " + m_files.aircraftPath, step);
        fpset_files::createEmpty(m_files.aircraftPath, step);
    }
    beginStep("Creating FlightPlan File " + m_files.flightPlanPath, step);
    fpset_files::createEmpty(m_files.flightPlanPath, step);
}

void FpSetPage::tab2cmdCancel_Click()
{
    giveUpFiles();
    // Once aircraft were written, or a set was created, that stands.
    m_set = {.AddAircraftFlag = m_set.AddAircraftFlag};
    ui->tab2txtAirport->clear();
    ui->tab2txtAircraft->clear();
    if (ui->tab2txtTToolsDir->text().isEmpty()) {
        giveUpStep(ui->tab2Frame12);
        focusIfShown(ui->tab2cmdFindTTools);
    } else {
        enterStep(*ui, Naming);
        ui->tab2txtFltPlan->setText(fpset_name::defaultName);
    }
    ui->tab2txtFltPlan->setEnabled(true); // within its frame, which may be disabled
    for (QGroupBox *frame : {ui->tab2Frame2, ui->tab2Frame3, ui->tab2Frame4}) {
        giveUpStep(frame);
    }
    ui->tab2cmdAirport->setText(browseCaption);
    ui->tab2cmdAircraft->setText(browseCaption);
    unsetOptions({ui->tab2optCreatefile, ui->tab2optCopyFile, ui->tab2optCreateNewAircraft,
                  ui->tab2optCopyExistingAircraft});
    focusNameEnd();
    setEnabledAll(true, {ui->tab2TToolsDir, ui->tab2cmdFindTTools});
    ui->tab2cmdQuit->setText("Quit");
}

void FpSetPage::giveUpFiles()
{
    const auto discard = [this](const QString &path) {
        bool wasThere = false;
        m_services.errors.run("Delete File Error", [&](Step &step) {
            step.set("Delete " + path);
            wasThere = fpset_files::discard(path, step);
        });
        return wasThere;
    };
    if (!m_setCreated && m_set.AddAirportsFlag) {
        discard(m_files.airportPath); // page 1 may have gone on to another file
    }
    if (m_set.newAirportFlag) {
        Q_EMIT fileGivenUp(m_files.airportPath);
    }
    if (!m_setCreated && m_set.AddAircraftFlag && m_newAircraft && discard(m_files.aircraftPath)) {
        Q_EMIT fileGivenUp(m_files.aircraftPath);
    }
}

void FpSetPage::tab2cmdQuit_Click()
{
    if (ui->tab2cmdQuit->text() == doneCaption) {
        ui->tab2cmdCancel->click();
    }
    Q_EMIT quitPressed();
}
