// SPDX-License-Identifier: MIT
#include "aircraft_loader/aircraft_loader_page.h"

#include "aircraft_loader/added_lines.h"
#include "aircraft_loader/available_list.h"
#include "aircraft_loader/directory_choice.h"
#include "aircraft_loader/text_file_choice.h"
#include "app/services/backup.h"
#include "app/services/services.h"
#include "app/services/set_in_progress.h"
#include "platform/code_page.h"
#include "platform/controls/control_state.h"
#include "platform/controls/progress.h"
#include "platform/controls/repaint.h"
#include "platform/controls/wait_pointer.h"
#include "platform/files.h"

#include <QScopeGuard>

#include "ui_aircraft_loader_page.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView allDone = "All Done!  AI Aircraft Added"_L1;
constexpr QLatin1StringView existingCaption = "Existing AI Aircraft: "_L1;

} // namespace

AircraftLoaderPage::AircraftLoaderPage(Services &services, const SetInProgress &set,
                                       QWidget *parent)
    : QWidget(parent),
      ui(std::make_unique<Ui::AircraftLoaderPage>()),
      m_services(services),
      m_state(services.state),
      m_set(set)
{
    ui->setupUi(this);
    m_directory = new DirectoryChoice(*ui, services, this);
    m_textFile = new TextFileChoice(*ui, services, this);
    m_list = new AvailableList(*ui, this);
    using Page = AircraftLoaderPage;
    connect(ui->opt2002, &QRadioButton::clicked, this, &Page::opt2002_Click);
    connect(ui->opt2004, &QRadioButton::clicked, this, &Page::opt2004_Click);
    connect(m_directory, &DirectoryChoice::taken, this, &Page::takeDirectory);
    connect(m_directory, &DirectoryChoice::chosen, this, &Page::directoryChosen);
    connect(m_directory, &DirectoryChoice::refused, this, [this] {
        ClearLists();
        ui->cmdEdit->setEnabled(false);
    });
    connect(m_textFile, &TextFileChoice::changed, this, &Page::textFileChanged);
    connect(m_textFile, &TextFileChoice::edited, this, &Page::LoadList);
    connect(m_textFile, &TextFileChoice::chosen, this, &Page::fillFromTextFile);
    connect(ui->cmdAddAI, &QPushButton::clicked, this, &Page::cmdAddAI_Click);
    connect(ui->cmdQuit, &QPushButton::clicked, this, &Page::quitPressed);
    connect(ui->Tab0List3, &ListBox::entryDoubleClicked, this, &Page::Tab0List3_DblClick);
    connect(ui->Tab0Help, &LinkLabel::clicked, this, &Page::helpWanted);
}

AircraftLoaderPage::~AircraftLoaderPage() = default;

void AircraftLoaderPage::ClearLists()
{
    m_directory->close(); // nobody would see what the list is filled with
    ui->Tab0List1->clear();
    ui->Tab0List2->clear();
    ui->Tab0List3->clear();
    ui->cmdAddAI->setEnabled(false);
    ui->Tab0Label1->setText(AvailableList::caption);
    ui->Tab0Label2->setText(existingCaption);
    ui->Tab0List2->setToolTip(
        u" This list displays all Aircraft available for use as AI Aircraft "_s);
    ui->Tab0List3->setToolTip(u" This list displays all AI Aircraft presently in use "_s);
}

void AircraftLoaderPage::LoadList()
{
    const WaitPointer pointer;
    m_services.errors.run(u"LoadList Error"_s, [this](Step &step) {
        const auto show = qScopeGuard([this] { m_list->showLists(true); });
        m_services.log.write(TraceLog::banner(u"LoadList Function Started"_s));
        ClearLists();
        ui->File1->clearFileName();
        m_list->showLists(false);
        readTextFile(step);
        walkFolders();
        ui->Tab0List2->setListIndex(0);
        ListLoaded = true;
        step.set(u"Find Available AI"_s);
        m_list->FindAvailableAI();
        if (ui->Tab0List2->count() > 0) {
            ui->optFrame->setEnabled(true);
            unsetOptions({ui->optAll, ui->optClear});
        }
        m_list->showCount();
        ui->Tab0List2->setToolTip(
            u" Check the Aircraft you with to add to the Aircraft text file "_s);
        ui->Tab0List3->setToolTip(u" Double Click to edit the Aircraft text file "_s);
        m_services.log.write(TraceLog::banner(u"LoadList Function Completed"_s));
    });
}

void AircraftLoaderPage::readTextFile(Step &step)
{
    step.set(u"Open "_s + m_state.AircraftTextDir);
    m_services.log.write(u"Open "_s + m_state.AircraftTextDir);
    auto show = qScopeGuard([this] { ui->Tab0List3->setItems(m_existing.lines); });
    m_existing = {};
    m_existing.read(files::readAll(m_state.AircraftTextDir));
    show.dismiss();
    showExisting();
}

void AircraftLoaderPage::showExisting()
{
    ui->Tab0List3->setItems(m_existing.lines);
    ui->Tab0Label2->setText(u"Existing AI Aircraft in "_s +
                            aircraft_text_file::captionName(m_state.AircraftTextDir) + u": "_s +
                            QString::number(m_existing.AircraftCount));
}

void AircraftLoaderPage::walkFolders()
{
    Step step(m_state.ErrMsg);
    step.set(u"Loop through Aircraft Directories"_s);
    ui->Dir1->refresh(); // aircraft installed since the folder was opened count too
    m_available.clear();
    const auto keep = qScopeGuard([this] {
        ui->Tab0List1->setItems(m_available.folders);
        ui->Tab0List2->setItems(m_available.entries);
    });
    const QString directory = ui->Dir1->path();
    AircraftFolders::Walk walk = m_services.aircraftFolders.walk(directory, Content::Traffic);
    Progress progress(ui->ProgressBar1, walk.count());
    while (const AircraftFolder *folder = walk.next(step)) {
        progress.show(walk.index());
        m_services.errors.run(u"Cfg File Error"_s,
                              [&](Step &own) { m_available.take(*folder, m_layout, own); });
    }
}

void AircraftLoaderPage::Tab0List3_DblClick()
{
    ui->cmdEdit->click();
}

void AircraftLoaderPage::cmdAddAI_Click()
{
    const Step handler(m_state.ErrMsg);
    try {
        addChecked();
    } catch (const RuntimeError &error) {
        m_services.errors.log(error);
        m_services.dialogs.show({.prompt = m_state.ErrMsg + u'\r' + ErrorReport::describe(error),
                                 .title = u"Add AI Error"_s,
                                 .icon = MessageBox::Icon::Critical});
        return;
    }
    m_services.log.write(allDone);
    m_services.dialogs.show(
        {.prompt = allDone, .title = u"Add AI"_s, .icon = MessageBox::Icon::Information});
    LoadList();
    Q_EMIT aircraftAdded();
    if (!m_set.reLoadNewPlan) {
        focusIfShown(ui->cmdQuit);
    }
}

void AircraftLoaderPage::addChecked()
{
    const files::Lock lock(m_state.AircraftTextDir); // no other copy numbers on meanwhile
    m_services.log.write(u"Backing up "_s + m_state.AircraftTextDir);
    m_services.errors.run(u"Backup Error"_s,
                          [this](Step &step) { DoBackup(m_state.AircraftTextDir, step); });
    Step step(m_state.ErrMsg);
    followTextFile(step);
    Repaint repaint;
    AddedLines added(m_existing);
    int i = 0;
    auto tidy = qScopeGuard([&] {
        m_list->takeOutWritten(i);
        showExisting();
        if (added.any()) {
            Q_EMIT aircraftAddedInPart();
        }
    });
    for (; i < ui->Tab0List2->count(); ++i) {
        ui->Tab0List2->setListIndex(i);
        if (repaint.isDue()) {
            Repaint::now();
        }
        if (ui->Tab0List2->selected(i)) {
            const QString lines =
                added.linesFor(ui->Tab0List2->text(i), m_services.clock.now(), step);
            append(lines, !added.any(), step);
            added.written();
        }
    }
    if (added.any()) {
        files::sync(m_state.AircraftTextDir);
    }
    tidy.dismiss(); // the lists are about to be rebuilt
}

void AircraftLoaderPage::append(const QString &lines, bool first, Step &step)
{
    const QString opening = u"Open "_s + m_state.AircraftTextDir + u" for Append"_s;
    step.set(opening);
    if (first) {
        m_services.log.write(opening);
    }
    files::appendLines(m_state.AircraftTextDir, code_page::encode(lines));
    for (const QString &line : lines.split(u"\r\n"_s, Qt::SkipEmptyParts)) {
        m_services.log.write(u"Adding "_s + line);
    }
}

/// Numbers follow the file: when it changed since it was loaded it is loaded anew. Of the ticks
/// those stay whose titles it does not hold. A file that is gone is begun anew.
void AircraftLoaderPage::followTextFile(Step &step)
{
    if (!files::exists(m_state.AircraftTextDir)) {
        return;
    }
    step.set(u"Open "_s + m_state.AircraftTextDir);
    AircraftTextFile now;
    now.read(files::readAll(m_state.AircraftTextDir));
    if (now.lines == m_existing.lines) {
        return;
    }
    m_existing = now;
    showExisting();
    step.set(u"Find Available AI"_s);
    m_list->replace(m_available.entries);
}

void AircraftLoaderPage::chooseVersion(const QString &version)
{
    if (m_state.FSType != version) {
        m_state.FSType = version;
        Q_EMIT simulatorVersionChosen();
        ui->lblTextFileSets->setEnabled(version == u"2004"_s);
    }
}

void AircraftLoaderPage::takeDirectory(const QString &directory)
{
    askForTextFile();
    m_layout.take(directory);
    if (m_set.reLoadNewPlan) { // the set being filled keeps its file
        takeFileOfSet(m_state.AircraftTextDir);
        fillFromTextFile();
    }
}

void AircraftLoaderPage::fillFromTextFile()
{
    if (m_state.AircraftTextDir.isEmpty() || ui->lblFSPath->text().isEmpty()) {
        ClearLists();
        ui->cmdTtools->setEnabled(false); // the compiler of the file before is not this one's
        return;
    }
    LoadList();
    m_textFile->enableTools();
}

void AircraftLoaderPage::askForTextFile()
{
    ClearLists();
    m_textFile->ask();
}

QString AircraftLoaderPage::shownDirectory() const
{
    return m_directory->shown();
}

void AircraftLoaderPage::showDirectory(const QString &directory)
{
    m_directory->show(directory);
}

void AircraftLoaderPage::takeFileOfSet(const QString &path)
{
    m_textFile->take(path);
}

bool AircraftLoaderPage::isCurrent(const QString &path) const
{
    return m_state.AircraftTextDir.compare(path, Qt::CaseInsensitive) == 0;
}

void AircraftLoaderPage::followFile(const QString &path)
{
    const auto readsOtherwise = [&] {
        try {
            AircraftTextFile now;
            now.read(files::readAll(path));
            return now.lines != m_existing.lines;
        } catch (const RuntimeError &) {
            return true; // loading it tells why
        }
    };
    if (isCurrent(path) && m_textFile->isShown() && !shownDirectory().isEmpty() &&
        readsOtherwise()) {
        LoadList();
    }
}

void AircraftLoaderPage::forgetFile(const QString &path)
{
    if (isCurrent(path)) {
        ClearLists();
        takeFileOfSet({});
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
