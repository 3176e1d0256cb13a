// SPDX-License-Identifier: MIT
#include "aircraft_loader/aircraft_loader_page.h"

#include "aircraft_loader/aircraft_text_file.h"
#include "aircraft_loader/title_match.h"
#include "app/services/backup.h"
#include "app/services/fs_location.h"
#include "app/services/look.h"
#include "app/services/path_display.h"
#include "app/services/services.h"
#include "platform/basic.h"
#include "platform/blind_to_case.h"
#include "platform/code_page.h"
#include "platform/controls/control_state.h"
#include "platform/controls/wait_pointer.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <QScopeGuard>

#include "ui_aircraft_loader_page.h"

namespace
{

const QString textFilePrompt = QStringLiteral("Please select an Aircraft Text File");
const QString allUsedNotice = QStringLiteral("All Available Aircraft have been used");
const QString directoryErrorTitle = QStringLiteral("FlightSim Directory Error");
const QString availableCaption = QStringLiteral("Available Aircraft: ");
const QString existingCaption = QStringLiteral("Existing AI Aircraft: ");

constexpr qsizetype restoredPathLimit = 60; // characters shown of a path, at start-up
constexpr qsizetype chosenPathLimit = 50;   // and when it was just chosen

} // namespace

AircraftLoaderPage::AircraftLoaderPage(Services &services, QWidget *parent)
    : QWidget(parent),
      ui(std::make_unique<Ui::AircraftLoaderPage>()),
      m_services(services),
      m_state(services.state)
{
    ui->setupUi(this);
    showCurrentStep(ui->noDirectoryLabel);
    using Page = AircraftLoaderPage;
    connect(ui->opt2002, &QRadioButton::clicked, this, &Page::opt2002_Click);
    connect(ui->opt2004, &QRadioButton::clicked, this, &Page::opt2004_Click);
    connect(ui->cmdBrowseFSPath, &QPushButton::clicked, this, &Page::cmdBrowseFSPath_Click);
    connect(ui->Drive1, &DriveListBox::driveChanged, this, &Page::Drive1_Change);
    connect(ui->Dir1, &DirListBox::pathChanged, this, &Page::Dir1_Change);
    connect(ui->Dir1, &DirListBox::openFailed, this,
            [this](const RuntimeError &error, const QString &folder) {
                m_state.ErrMsg = "Set path to " + folder;
                m_services.errors.show("Directory Select Error", error);
            });
    connect(ui->Command1, &QPushButton::clicked, this, &Page::Command1_Click);
    connect(ui->cmdBrowseText, &QPushButton::clicked, this, &Page::cmdBrowseText_Click);
    connect(ui->cmdEdit, &QPushButton::clicked, this, &Page::cmdEdit_Click);
    connect(ui->cmdTtools, &QPushButton::clicked, this, &Page::cmdTtools_Click);
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
    m_services.errors.run("LoadList Error", [this] {
        const auto show = qScopeGuard([this] { showLists(true); });
        m_state.ErrMsg = "Opening " + m_services.log.path();
        m_services.log.write(TraceLog::banner("LoadList Function Started"));
        ui->Tab0List1->clear();
        ui->Tab0List2->clear();
        ui->Tab0List3->clear();
        ui->File1->clearFileName();
        ui->Tab0Label1->setText(availableCaption);
        ui->Tab0Label2->setText(existingCaption);
        showLists(false);
        readTextFile();
        walkFolders();
        ui->Tab0List2->setListIndex(0);
        ListLoaded = true;
        m_state.ErrMsg = "Find Available AI";
        FindAvailableAI();
        showLists(true);
        if (ui->Tab0List2->count() > 0) {
            ui->optFrame->setEnabled(true);
            ui->optAll->setEnabled(true);
            ui->optClear->setEnabled(true);
            unsetOptions({ui->optAll, ui->optClear});
        }
        ui->Tab0Label1->setText(availableCaption + QString::number(ui->Tab0List2->count()));
        ui->Tab0List2->setToolTip(" Check the Aircraft you with to add to the Aircraft text file ");
        ui->Tab0List3->setToolTip(" Double Click to edit the Aircraft text file ");
        m_services.log.write(TraceLog::banner("LoadList Function Completed"));
    });
}

void AircraftLoaderPage::readTextFile()
{
    m_state.ErrMsg = "Loading Aircraft text file";
    m_state.ErrMsg = "Open " + m_state.AircraftTextDir;
    m_services.log.write(m_state.ErrMsg);
    AircraftTextFile file;
    const auto keep = qScopeGuard([&] {
        ui->Tab0List3->setItems(file.lines);
        AircraftCount = file.AircraftCount;
        Number = file.Number;
    });
    file.read(files::readAll(m_state.AircraftTextDir));
    ui->Tab0Label2->setText("Existing AI Aircraft in " +
                            aircraft_text_file::captionName(m_state.AircraftTextDir) + ": " +
                            QString::number(file.AircraftCount));
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
    if (ui->optAll->isChecked()) {
        checkAll(true);
    }
}

void AircraftLoaderPage::optClear_Click()
{
    if (ui->optClear->isChecked()) {
        checkAll(false);
    }
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
    ClearLists();
    LoadList();
    if (m_state.newAircraftSetOpen) {
        Q_EMIT aircraftAddedForSet();
    } else {
        focusIfShown(ui->cmdQuit);
    }
}

void AircraftLoaderPage::addChecked()
{
    NoneAdded = true;
    Repaint repaint;
    available_aircraft::SplitEntry entry;
    for (int i = 0; i < ui->Tab0List2->count(); ++i) {
        ui->Tab0List2->setListIndex(i);
        if (repaint.isDue()) {
            Repaint::now();
        }
        if (ui->Tab0List2->selected(i)) {
            entry.split(ui->Tab0List2->text(i));
            addAircraft(entry.Speed, entry.title);
        }
    }
}

void AircraftLoaderPage::addAircraft(const QString &speed, const QString &title)
{
    m_state.ErrMsg = "Numbering " + title;
    AircraftCount = basic::add16(AircraftCount, 1);
    Number = basic::add16(Number, 1);
    QString text = aircraft_text_file::aircraftLine(Number, speed.mid(1), title) + "\r\n";
    m_state.ErrMsg = "Open " + m_state.AircraftTextDir + " for Append";
    if (NoneAdded) {
        NoneAdded = false;
        text.prepend(aircraft_text_file::addedComment(m_services.clock.now()) + "\r\n");
    }
    files::appendLines(m_state.AircraftTextDir, code_page::encode(text));
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
    m_services.errors.run(directoryErrorTitle, [this] {
        m_state.ErrMsg = "Set path to " + ui->Drive1->drive();
        ui->Dir1->setPath(ui->Drive1->drive());
    });
}

void AircraftLoaderPage::Dir1_Change()
{
    m_services.errors.run("Directory Select Error", [this] {
        const QString directory = ui->Dir1->path();
        if (!fs_location::endsInAircraftFolder(directory)) {
            ui->Tab0List2->hide();
            return;
        }
        askForTextFile();
        ClearLists();
        ui->cmdTtools->setEnabled(false);
        ui->cmdEdit->setEnabled(false);
        m_layout.take(directory);
        m_state.AirCraftDir = directory;
        m_state.ErrMsg = "Set path to " + directory;
        ui->File1->clearFileName();
        ui->File1->setPath(directory);
        showDirectory(directory);
        Q_EMIT directoryChosen(directory);
        ui->frmDriveDialog->hide();
        ui->Tab0List2->show();
        if (m_state.reLoadNewPlan) { // the set being filled keeps its file
            takeFileOfSet(m_state.AircraftTextDir);
        }
    });
}

void AircraftLoaderPage::Command1_Click()
{
    if (blind_to_case::lower(ui->Dir1->path()).endsWith(QLatin1String("aircraft"))) {
        showDirectory(ui->Dir1->path());
    } else {
        showDirectory({});
        showNotice("Please select the Flight Simulator Directory!");
        ClearLists();
        ui->cmdEdit->setEnabled(false);
    }
    ui->frmDriveDialog->hide();
    ui->Tab0List2->show();
}

void AircraftLoaderPage::cmdBrowseText_Click()
{
    const QString filter = ui->opt2004->isChecked()
                               ? "Aircraft Text Files (aircraft*.txt)|aircraft*.txt|"
                               : "Aircraft Text Files (aircraft.txt)|aircraft.txt|";
    const QString current = m_state.AircraftTextDir;
    const QString startFolder = current.first(qMax<qsizetype>(0, current.lastIndexOf('\\')));
    takeTextFile(m_services.dialogs.openFile({filter, startFolder}), chosenPathLimit);
    if (aircraft_text_file::folderPart(m_state.AircraftTextDir).isEmpty()) {
        refuseTextFile();
    } else {
        fillFromTextFile();
    }
}

void AircraftLoaderPage::takeTextFile(const QString &path, qsizetype limit)
{
    ui->lblAircraftTextFile->setText(shortenedPath(path, limit));
    m_state.AircraftTextDir = path;
    showDone(ui->lblAircraftTextFile);
}

void AircraftLoaderPage::fillFromTextFile()
{
    if (ui->lblAircraftTextFile->text().isEmpty() || ui->lblFSPath->text().isEmpty()) {
        ui->cmdTtools->setEnabled(false); // the compiler of the file before is not this one's
        return;
    }
    ClearLists();
    LoadList();
    ui->cmdTtools->setEnabled(m_services.shell.CheckFileExists(m_state.AircraftTextDir));
    ui->cmdEdit->setEnabled(true);
}

void AircraftLoaderPage::refuseTextFile()
{
    m_state.AircraftTextDir.clear();
    showNotice("Please select an Aircraft Text file to edit!");
    askForTextFile();
    ClearLists();
    ui->cmdTtools->setEnabled(false);
    ui->cmdEdit->setEnabled(false);
}

void AircraftLoaderPage::askForTextFile()
{
    ui->lblAircraftTextFile->setText(textFilePrompt);
    showCurrentStep(ui->lblAircraftTextFile);
}

void AircraftLoaderPage::showNotice(const QString &prompt)
{
    m_services.dialogs.show(
        {.prompt = prompt, .title = directoryErrorTitle, .icon = MessageBox::Icon::Exclamation});
}

void AircraftLoaderPage::cmdEdit_Click()
{
    m_state.ErrMsg = "Command Edit Shelling Notepad";
    m_services.shell.Shellandwait("NOTEPAD.EXE " + m_state.AircraftTextDir, 0, 1);
    if (m_state.ended) {
        return;
    }
    const MessageBox::Answer answer = m_services.dialogs.show(
        {.prompt = "Have you made changes to the " + m_state.AircraftTextDir + " file? ",
         .title = "Edit Aircraft Text File",
         .icon = MessageBox::Icon::Information,
         .buttons = MessageBox::Buttons::YesNo,
         .defaultButton = MessageBox::Answer::No});
    if (answer == MessageBox::Answer::Yes) {
        ClearLists();
        LoadList();
    }
}

void AircraftLoaderPage::cmdTtools_Click()
{
    m_state.ErrMsg = "Running " + m_services.shell.tTools();
    m_services.shell.Shellandwait(m_services.shell.tTools(), 0, 1);
}

void AircraftLoaderPage::showDirectory(const QString &directory)
{
    ui->lblFSPath->setText(directory);
    ui->noDirectoryLabel->setVisible(directory.isEmpty());
}

QString AircraftLoaderPage::shownDirectory() const
{
    return ui->lblFSPath->text();
}

void AircraftLoaderPage::openDirectory(const QString &directory)
{
    const QString before = ui->Dir1->path();
    ui->Dir1->setPath(directory);
    // The picker begins in the current directory: opened again it fires no change.
    if (ui->Dir1->path() == before &&
        m_state.AirCraftDir.compare(before, Qt::CaseInsensitive) != 0) {
        Dir1_Change();
    }
}

void AircraftLoaderPage::followDirectory(const QString &directory)
{
    m_services.errors.run("Directory Select Error", [&] {
        askForTextFile();
        ClearLists();
        ui->cmdTtools->setEnabled(false);
        ui->cmdEdit->setEnabled(false);
        m_state.ErrMsg = "Set path to " + directory;
        ui->Dir1->setPath(directory);
        if (ui->lblFSPath->text() != directory) { // the picker stood there already
            Dir1_Change();
        }
    });
}

void AircraftLoaderPage::restoreTextFile(const QString &path)
{
    ui->lblAircraftTextFile->setText(shortenedPath(path, restoredPathLimit));
    m_state.AircraftTextDir = path;
    if (!path.isEmpty() && !ui->lblFSPath->text().isEmpty()) {
        showDone(ui->lblAircraftTextFile);
        fillFromTextFile();
    }
}

void AircraftLoaderPage::takeFileOfSet(const QString &path)
{
    takeTextFile(path, restoredPathLimit);
    fillFromTextFile();
}

void AircraftLoaderPage::forgetFile(const QString &path)
{
    if (m_state.AircraftTextDir.compare(path, Qt::CaseInsensitive) == 0) {
        m_state.AircraftTextDir.clear();
        askForTextFile();
        ClearLists();
        ui->cmdTtools->setEnabled(false);
        ui->cmdEdit->setEnabled(false);
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
