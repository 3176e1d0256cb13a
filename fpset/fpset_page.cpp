// SPDX-License-Identifier: MIT
#include "fpset/fpset_page.h"

#include "app/services/look.h"
#include "app/services/path_display.h"
#include "app/services/services.h"
#include "app/services/set_in_progress.h"
#include "fpset/fpset_files.h"
#include "fpset/set_steps.h"
#include "platform/blind_to_case.h"
#include "platform/controls/control_state.h"
#include "platform/files.h"

#include <QApplication>

#include "ui_fpset_page.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype shownPathLimit = 50; // characters
constexpr QLatin1StringView errorTitle = "Create File Error"_L1;
constexpr QLatin1StringView okCaption = "OK"_L1;
constexpr QLatin1StringView browseCaption = "Browse"_L1;
constexpr QLatin1StringView doneCaption = "All Done!"_L1;

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
    if (blind_to_case::lower(path).contains("ttools.exe"_L1)) {
        ui->tab2txtTToolsDir->setText(shortenedPath(path, shownPathLimit));
        ui->tab2TToolsDir->setTitle(u"TTools Directory"_s);
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

void FpSetPage::continueWithAirports(const QString &path)
{
    if (m_set.newAirportFlag) {
        const bool ours = path.compare(m_files.airportPath, Qt::CaseInsensitive) == 0;
        m_set.AddAirportsFlag = m_set.AddAirportsFlag || ours;
        ui->tab2txtAirport->setText(m_files.airportFile);
    }
}

void FpSetPage::keepAircraft()
{
    m_set.AddAircraftFlag = true;
}

void FpSetPage::continueWithAircraft()
{
    keepAircraft();
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
                             .title = u"FlightSim Directory Error"_s,
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
        {.filter = u"Traffic Tools (TTools) (*.exe)|TTools*.exe|"_s, .startFolder = {}});
    ui->tab2txtTToolsDir->setText(shortenedPath(path, shownPathLimit));
    m_state.strTToolsPath = path;
    m_services.log.write(u"TTools Path = "_s + path);
    if (path.isEmpty() || !m_services.shell.CheckFileExists(path)) {
        refuseTTools();
        return;
    }
    m_state.strTToolsDir = tToolsFolder(path);
    showDone(ui->tab2TToolsDir);
    ui->tab2TToolsDir->setTitle(u"TTools Directory"_s);
    setEnabledAll(false, {ui->tab2txtTToolsDir, ui->tab2cmdFindTTools});
    enterStep(*ui, Naming);
    m_services.log.write(u"TTools Directory = "_s + m_state.strTToolsDir);
}

void FpSetPage::refuseTTools()
{
    m_services.dialogs.show(
        {.prompt = u"Please select your TTools directory!"_s, .title = u"Morlen Utilities"_s});
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
        m_services.dialogs.show({.prompt = u"Sorry!  That name is already in use"_s,
                                 .title = u"File Error"_s,
                                 .icon = MessageBox::Icon::Critical});
        startOverNaming();
        return;
    }
    enterAirportStep();
    m_services.log.write(u"FlightPlan File = "_s + m_files.flightPlanPath);
}

bool FpSetPage::CheckForValidFileName(const QString &fileName)
{
    const bool valid = fpset_name::isValid(fileName);
    if (!valid) {
        m_services.dialogs.show({.prompt = u"Invalid File Name!"_s,
                                 .title = u"Name Error"_s,
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
    ui->tab2Frame2->setTitle(u" Create a new Airports File"_s);
    ui->tab2Frame3->setTitle(u" Create a new Aircraft File"_s);
    ui->tab2optCreatefile->setToolTip(u" Click to create a new Airports File"_s);
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
        source =
            m_services.dialogs.openFile({.filter = u"Airport Text Files (*.txt)|airports*.txt|"_s,
                                         .startFolder = m_state.strTToolsDir});
        if (source.isEmpty()) {
            showNotice(u"Please select the Airports Text File!"_s);
            return;
        }
        m_services.log.write(u"Airport Text File = "_s + source);
    } else if (ui->tab2optCreatefile->isChecked()) {
        askForAirports();
    } else {
        focusIfShown(ui->tab2optCreatefile); // neither is chosen yet
        return;
    }
    ui->tab2optCreateNewAircraft->setToolTip(
        u" Create an empty Aircraft File and add Aircraft to it later "_s);
    ui->tab2txtAirport->setText(source);
    enterStep(*ui, Aircraft);
}

void FpSetPage::askForAirports()
{
    m_set.newAirportFlag = true;
    Q_EMIT airportsWanted(m_files.airportPath);
    m_services.log.write(u"Airport Text File = "_s + m_files.airportPath);
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
            const QString source = m_services.dialogs.openFile(
                {.filter = u"Aircraft Text Files (*.txt)|aircraft*.txt|"_s,
                 .startFolder = m_state.strTToolsDir});
            if (source.isEmpty()) {
                showNotice(u"Please select the Aircraft Text File!"_s); // and on all the same
            } else {
                ui->tab2txtAircraft->setText(source);
                m_services.log.write(u"Aircraft Text File = "_s + source);
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
    beginStep(u"Creating  "_s + m_files.aircraftPath, step);
    fpset_files::ensureExists(m_files.aircraftPath);
    m_set.reLoadNewPlan = true;
    Q_EMIT aircraftWanted(m_files.aircraftPath);
}

void FpSetPage::tab2cmdCreateNewFP_Click()
{
    const bool created =
        m_services.errors.run(errorTitle, [this](Step &step) { createFiles(step); });
    Q_EMIT aircraftFileWritten(m_files.aircraftPath);
    if (!created) {
        return; // what was created stays, and the step too, for another try
    }
    if (m_state.AircraftTextDir.compare(m_files.aircraftPath, Qt::CaseInsensitive) != 0) {
        Q_EMIT aircraftFileChosen(m_files.aircraftPath);
    }
    m_services.dialogs.show(
        {.prompt = u"FlightPlan file set "_s + m_files.flightPlanPath + u" created successfully!"_s,
         .title = u"Create Files"_s,
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
    m_services.log.write(u"Creating New FlightPlan Set"_s);
    if (ui->tab2optCopyFile->isChecked()) {
        const QString source = ui->tab2txtAirport->text();
        beginStep(u"Copy "_s + source + u" to "_s + m_files.airportPath, step);
        fpset_files::copy(source, m_files.airportPath, step);
    }
    if (ui->tab2optCopyExistingAircraft->isChecked()) {
        const QString source = ui->tab2txtAircraft->text();
        beginStep(u"Copy "_s + source + u" to "_s + m_files.aircraftPath, step);
        fpset_files::copy(source, m_files.aircraftPath, step);
        m_set.AddAircraftFlag = true;
    }
    if (!m_set.AddAircraftFlag) {
        beginStep(u"Creating Aircraft File "_s + m_files.aircraftPath, step);
        fpset_files::createEmpty(m_files.aircraftPath, step);
    }
    beginStep(u"Creating FlightPlan File "_s + m_files.flightPlanPath, step);
    fpset_files::createEmpty(m_files.flightPlanPath, step);
}

void FpSetPage::tab2cmdCancel_Click()
{
    const QStringList trashed = giveUpFiles();
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
    ui->tab2cmdQuit->setText(u"Quit"_s);
    if (!trashed.isEmpty()) {
        m_services.dialogs.show({.prompt = u"Moved to the trash:\r\r"_s + trashed.join(u'\r'),
                                 .title = u"Clear"_s,
                                 .icon = MessageBox::Icon::Information});
    }
}

/// Returns the files that went to the trash.
QStringList FpSetPage::giveUpFiles()
{
    using fpset_files::Discarded;
    QStringList trashed;
    const auto discard = [&](const QString &path) {
        Discarded done = Discarded::WasNotThere;
        m_services.errors.run(u"Delete File Error"_s, [&](Step &step) {
            step.set(u"Delete "_s + path);
            done = fpset_files::discard(path, step);
        });
        if (done == Discarded::Trashed) {
            trashed += path;
        }
        return done != Discarded::WasNotThere;
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
    return trashed;
}

void FpSetPage::tab2cmdQuit_Click()
{
    if (ui->tab2cmdQuit->text() == doneCaption) {
        ui->tab2cmdCancel->click();
    }
    Q_EMIT quitPressed();
}
