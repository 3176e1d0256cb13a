// SPDX-License-Identifier: MIT
#include "aircraft_loader/aircraft_loader_page.h"

#include "aircraft_loader/added_lines.h"
#include "aircraft_loader/text_file_choice.h"
#include "aircraft_loader/title_match.h"
#include "app/services/backup.h"
#include "app/services/fs_location.h"
#include "app/services/look.h"
#include "platform/basic.h"
#include "platform/blind_to_case.h"
#include "platform/code_page.h"
#include "platform/controls/control_state.h"
#include "platform/controls/repaint.h"
#include "platform/controls/wait_pointer.h"
#include "platform/files.h"

#include <QScopeGuard>

#include "ui_aircraft_loader_page.h"

namespace
{

const QString allUsedNotice = QStringLiteral("All Available Aircraft have been used");
const QString directoryErrorTitle = QStringLiteral("FlightSim Directory Error");
const QString availableCaption = QStringLiteral("Available Aircraft: ");
const QString existingCaption = QStringLiteral("Existing AI Aircraft: ");

} // namespace

AircraftLoaderPage::AircraftLoaderPage(Services &services, QWidget *parent)
    : QWidget(parent),
      ui(std::make_unique<Ui::AircraftLoaderPage>()),
      m_services(services),
      m_state(services.state)
{
    ui->setupUi(this);
    showCurrentStep(ui->noDirectoryLabel);
    m_textFile = new TextFileChoice(*ui, services, this);
    using Page = AircraftLoaderPage;
    connect(ui->opt2002, &QRadioButton::clicked, this, &Page::opt2002_Click);
    connect(ui->opt2004, &QRadioButton::clicked, this, &Page::opt2004_Click);
    connect(ui->cmdBrowseFSPath, &QPushButton::clicked, this, &Page::cmdBrowseFSPath_Click);
    connect(ui->Drive1, &QComboBox::currentTextChanged, this, &Page::Drive1_Change);
    connect(ui->Dir1, &DirListBox::folderChosen, this,
            [this](const QString &folder) { openFolder(folder, "Directory Select Error"); });
    connect(ui->Command1, &QPushButton::clicked, this, &Page::Command1_Click);
    connect(m_textFile, &TextFileChoice::changed, this, &Page::textFileChanged);
    connect(m_textFile, &TextFileChoice::edited, this, &Page::LoadList);
    connect(this, &Page::textFileChanged, this, &Page::fillFromTextFile);
    connect(ui->cmdAddAI, &QPushButton::clicked, this, &Page::cmdAddAI_Click);
    connect(ui->cmdQuit, &QPushButton::clicked, this, &Page::quitPressed);
    connect(ui->Tab0List2, &ListBox::entryClicked, this, &Page::Tab0List2_Click);
    // Whoever ticks with the space bar goes on ticking: the button must not take the focus away.
    connect(ui->Tab0List2, &ListBox::entryTickedByKey, this, &Page::enableAddAircraft);
    connect(ui->Tab0List3, &ListBox::entryDoubleClicked, this, &Page::Tab0List3_DblClick);
    connect(ui->optAll, &QRadioButton::clicked, this, &Page::optAll_Click);
    connect(ui->optClear, &QRadioButton::clicked, this, &Page::optClear_Click);
    connect(ui->Tab0Help, &LinkLabel::clicked, this, &Page::helpWanted);
}

AircraftLoaderPage::~AircraftLoaderPage() = default;

void AircraftLoaderPage::ClearLists()
{
    ui->Tab0List1->clear();
    ui->Tab0List2->clear();
    ui->Tab0List3->clear();
    ui->cmdAddAI->setEnabled(false);
    ui->Tab0Label1->setText(availableCaption);
    ui->Tab0Label2->setText(existingCaption);
    ui->Tab0List2->setToolTip(" This list displays all Aircraft available for use as AI Aircraft ");
    ui->Tab0List3->setToolTip(" This list displays all AI Aircraft presently in use ");
}

void AircraftLoaderPage::LoadList()
{
    const WaitPointer pointer;
    m_services.errors.run("LoadList Error", [this](Step &step) {
        const auto show = qScopeGuard([this] { showLists(true); });
        m_services.log.write(TraceLog::banner("LoadList Function Started"));
        ClearLists();
        ui->File1->clearFileName();
        showLists(false);
        readTextFile(step);
        walkFolders();
        ui->Tab0List2->setListIndex(0);
        ListLoaded = true;
        step.set("Find Available AI");
        FindAvailableAI();
        if (ui->Tab0List2->count() > 0) {
            ui->optFrame->setEnabled(true);
            unsetOptions({ui->optAll, ui->optClear});
        }
        ui->Tab0Label1->setText(availableCaption + QString::number(ui->Tab0List2->count()));
        ui->Tab0List2->setToolTip(" Check the Aircraft you with to add to the Aircraft text file ");
        ui->Tab0List3->setToolTip(" Double Click to edit the Aircraft text file ");
        m_services.log.write(TraceLog::banner("LoadList Function Completed"));
    });
}

void AircraftLoaderPage::readTextFile(Step &step)
{
    step.set("Open " + m_state.AircraftTextDir);
    m_services.log.write("Open " + m_state.AircraftTextDir);
    const auto show = qScopeGuard([this] { ui->Tab0List3->setItems(m_existing.lines); });
    m_existing = {};
    m_existing.read(files::readAll(m_state.AircraftTextDir));
    ui->Tab0Label2->setText("Existing AI Aircraft in " +
                            aircraft_text_file::captionName(m_state.AircraftTextDir) + ": " +
                            QString::number(m_existing.AircraftCount));
}

void AircraftLoaderPage::walkFolders()
{
    Repaint repaint;
    m_state.ErrMsg = "Loop through Aircraft Directories";
    ui->Dir1->refresh(); // aircraft installed since the folder was opened count too
    const QStringList folders = m_services.aircraftFolders.subFolders(ui->Dir1->path());
    const auto keep = qScopeGuard([this] {
        ui->Tab0List1->setItems(m_walk.folders);
        ui->Tab0List2->setItems(m_walk.entries);
    });
    ui->ProgressBar1->setRange(0, qMax<int>(1, static_cast<int>(folders.size())));
    m_walk.run(m_services.aircraftFolders, ui->Dir1->path(), folders, m_layout, m_state.ErrMsg,
               {.folderReached =
                    [&](int index) {
                        if (isVisible() && repaint.isDue()) {
                            ui->ProgressBar1->setValue(index);
                            Repaint::now();
                        }
                    },
                .fileFailed =
                    [this](const RuntimeError &error) {
                        m_services.errors.show("Cfg File Error", error);
                    }});
}

void AircraftLoaderPage::FindAvailableAI()
{
    SearchActive = true;
    const auto done = qScopeGuard([this] { SearchActive = false; });
    if (ui->Tab0List3->count() == 0) {
        return;
    }
    const QStringList available = ui->Tab0List2->items();
    const TitleMatch match = matchTitles(ui->Tab0List3->items(), available);
    QStringList unused;
    for (qsizetype i = 0; i < available.size(); ++i) {
        if (!match.used.testBit(i)) {
            unused += available[i];
        }
    }
    ui->Tab0List2->setItems(unused);
    if (unused.size() < available.size()) {
        ui->Tab0Label1->setText(availableCaption + QString::number(unused.size()));
    }
    if (match.failure) {
        throw RuntimeError(*match.failure);
    }
    ui->Tab0List2->setListIndex(-1);
    ui->Tab0List3->setListIndex(-1);
    ui->Tab0Label1->setText("Available Aircraft:" +
                            basic::str(static_cast<int>(ui->Tab0List2->count())));
    if (ui->Tab0List2->count() == 0) {
        ui->Tab0List2->addItem(allUsedNotice);
    }
}

void AircraftLoaderPage::showLists(bool visible)
{
    ui->Tab0List2->setVisible(visible);
    ui->Tab0List3->setVisible(visible);
    ui->Tab0Label1->setVisible(visible);
    ui->Tab0Label2->setVisible(visible);
    ui->Tab0Label9->setVisible(!visible);
    ui->ProgressBar1->setVisible(!visible);
    ui->ProgressBar1->setValue(0);
}

void AircraftLoaderPage::Tab0List2_Click()
{
    if (!SearchActive && enableAddAircraft()) {
        focusIfShown(ui->cmdAddAI);
    }
}

bool AircraftLoaderPage::enableAddAircraft()
{
    const bool canAdd = ui->Tab0List2->selectedCount() > 0 &&
                        ui->Tab0List2->text(ui->Tab0List2->listIndex()) != allUsedNotice;
    ui->cmdAddAI->setEnabled(canAdd);
    return canAdd;
}

void AircraftLoaderPage::Tab0List3_DblClick()
{
    ui->cmdEdit->click();
}

void AircraftLoaderPage::optAll_Click()
{
    checkAll(true);
}

void AircraftLoaderPage::optClear_Click()
{
    checkAll(false);
}

void AircraftLoaderPage::checkAll(bool on)
{
    constexpr int step = 5000; // entries ticked between two looks at the clock
    Repaint repaint;
    const int count = ui->Tab0List2->count();
    showLists(false);
    ui->ProgressBar1->setRange(0, qMax(1, count));
    for (int first = 0; first < count; first += step) {
        ui->Tab0List2->setSelected(first, qMin(first + step, count) - 1, on);
        if (repaint.isDue()) {
            ui->ProgressBar1->setValue(first);
            Repaint::now();
        }
    }
    ui->Tab0List2->setListIndex(count - 1); // ticking one after the other ends on the last
    showLists(true);
    Tab0List2_Click();
}

void AircraftLoaderPage::cmdAddAI_Click()
{
    const Step handler(m_state);
    m_services.errors.run("Backup Error",
                          [this](Step &step) { DoBackup(m_state.AircraftTextDir, step); });
    try {
        addChecked();
    } catch (const RuntimeError &error) {
        m_services.errors.log(error);
        m_services.dialogs.show({.prompt = m_state.ErrMsg + '\r' + ErrorReport::describe(error),
                                 .title = "Add AI Error",
                                 .icon = MessageBox::Icon::Critical});
        return;
    }
    m_state.AddAircraftFlag = true;
    m_services.dialogs.show({.prompt = "All Done!  AI Aircraft Added",
                             .title = "Add AI",
                             .icon = MessageBox::Icon::Information});
    LoadList();
    if (m_state.newAircraftSetOpen) {
        Q_EMIT aircraftAddedForSet();
    } else {
        focusIfShown(ui->cmdQuit);
    }
}

void AircraftLoaderPage::addChecked()
{
    Step step(m_state);
    Repaint repaint;
    AddedLines added(m_existing);
    for (int i = 0; i < ui->Tab0List2->count(); ++i) {
        ui->Tab0List2->setListIndex(i);
        if (repaint.isDue()) {
            Repaint::now();
        }
        if (ui->Tab0List2->selected(i)) {
            const QString lines =
                added.linesFor(ui->Tab0List2->text(i), m_services.clock.now(), step);
            step.set("Open " + m_state.AircraftTextDir + " for Append");
            files::appendLines(m_state.AircraftTextDir, code_page::encode(lines));
        }
    }
}

void AircraftLoaderPage::opt2002_Click()
{
    m_state.FSType = "2002";
    Q_EMIT simulatorVersionChosen();
    ui->lblTextFileSets->setEnabled(false);
}

void AircraftLoaderPage::opt2004_Click()
{
    m_state.FSType = "2004";
    Q_EMIT simulatorVersionChosen();
    ui->lblTextFileSets->setEnabled(true);
}

void AircraftLoaderPage::cmdBrowseFSPath_Click()
{
    ui->Tab0List2->hide();
    ui->Drive1->showDrive(ui->Dir1->path());
    ui->frmDriveDialog->show();
    focusIfShown(ui->Dir1);
}

void AircraftLoaderPage::Drive1_Change()
{
    openFolder(ui->Drive1->drive(), directoryErrorTitle);
}

void AircraftLoaderPage::openFolder(const QString &folder, const QString &errorTitle)
{
    m_services.errors.run(errorTitle, [&](Step &step) {
        step.set("Set path to " + folder);
        if (ui->Dir1->setPath(folder)) {
            Dir1_Change();
        }
    });
}

void AircraftLoaderPage::Dir1_Change()
{
    if (takeFolder()) {
        Q_EMIT directoryChosen(ui->Dir1->path());
    }
}

/// Takes the folder picker's open folder for the aircraft directory, and returns whether it is one.
bool AircraftLoaderPage::takeFolder()
{
    const QString directory = ui->Dir1->path();
    if (!fs_location::endsInAircraftFolder(directory)) {
        ui->Tab0List2->hide();
        return false;
    }
    askForTextFile();
    m_layout.take(directory);
    ui->File1->setPath(directory);
    showFSPath(directory);
    ui->frmDriveDialog->hide();
    ui->Tab0List2->show();
    if (m_state.reLoadNewPlan) { // the set being filled keeps its file
        takeFileOfSet(m_state.AircraftTextDir);
    }
    return true;
}

void AircraftLoaderPage::Command1_Click()
{
    if (blind_to_case::lower(ui->Dir1->path()).endsWith(QLatin1String("aircraft"))) {
        showFSPath(ui->Dir1->path());
    } else {
        showFSPath({});
        m_services.dialogs.show({.prompt = "Please select the Flight Simulator Directory!",
                                 .title = directoryErrorTitle,
                                 .icon = MessageBox::Icon::Exclamation});
        ClearLists();
        ui->cmdEdit->setEnabled(false);
    }
    ui->frmDriveDialog->hide();
    ui->Tab0List2->show();
}

void AircraftLoaderPage::fillFromTextFile(const QString &path)
{
    if (path.isEmpty() || ui->lblFSPath->text().isEmpty()) {
        ClearLists();
        ui->cmdTtools->setEnabled(false); // the compiler of the file before is not this one's
        return;
    }
    LoadList();
    m_textFile->enableTools();
}

void AircraftLoaderPage::askForTextFile()
{
    m_textFile->ask();
    ClearLists();
}

void AircraftLoaderPage::showFSPath(const QString &directory)
{
    ui->lblFSPath->setText(directory);
    ui->noDirectoryLabel->setVisible(directory.isEmpty());
}

QString AircraftLoaderPage::shownDirectory() const
{
    return ui->lblFSPath->text();
}

void AircraftLoaderPage::showDirectory(const QString &directory)
{
    showFSPath(directory); // be it there or not
    if (!directory.isEmpty() && ui->Dir1->setPath(directory)) {
        takeFolder();
    }
}

void AircraftLoaderPage::takeFileOfSet(const QString &path)
{
    m_textFile->take(path);
}

void AircraftLoaderPage::forgetFile(const QString &path)
{
    if (m_state.AircraftTextDir.compare(path, Qt::CaseInsensitive) == 0) {
        m_textFile->forget();
    }
}

void AircraftLoaderPage::pointAtNoFolder()
{
    ui->Dir1->setCurrentIndex({});
}

void AircraftLoaderPage::focusFirstControl()
{
    focusIfShown(ui->cmdBrowseText);
}

void AircraftLoaderPage::pressQuit()
{
    ui->cmdQuit->click();
}
