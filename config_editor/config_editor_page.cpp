// SPDX-License-Identifier: MIT
#include "config_editor/config_editor_page.h"

#include "app/services/fs_location.h"
#include "app/services/path_display.h"
#include "app/services/services.h"
#include "config_editor/listing_dump.h"
#include "config_editor/panel_cfg.h"
#include "platform/blind_to_case.h"
#include "platform/controls/progress.h"
#include "platform/controls/wait_pointer.h"
#include "platform/files.h"

#include <QScopeGuard>

#include "ui_config_editor_page.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView directoryPrompt =
    "<--- Please select your Flight Simulator Aircraft directory!"_L1;
constexpr QLatin1StringView totalCaption = "Total Aircraft: "_L1;
constexpr QLatin1StringView editorTitle = "Config Editor"_L1;

} // namespace

ConfigEditorPage::ConfigEditorPage(Services &services, QWidget *parent)
    : QWidget(parent),
      ui(std::make_unique<Ui::ConfigEditorPage>()),
      m_services(services),
      m_state(services.state),
      m_aliasQuestions(services.dialogs)
{
    ui->setupUi(this);
    using Page = ConfigEditorPage;
    connect(ui->Tab3Drive1, &QComboBox::currentTextChanged, this, &Page::openFolder);
    connect(ui->Tab3Dir1, &DirListBox::folderChosen, this, &Page::openFolder);
    connect(ui->Tab3List3->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &Page::Tab3List3_Click);
    connect(ui->Tab3cmdedit, &QPushButton::clicked, this, &Page::Tab3cmdedit_Click);
    connect(ui->Tab3chkDumpList, &QCheckBox::toggled, this, &Page::Tab3chkDumpList_Click);
    connect(ui->Tab3Label6, &LinkLabel::clicked, this, &Page::varloWanted);
    connect(ui->tab3VarloHelp, &LinkLabel::clicked, this, &Page::helpWanted);
    offerVarlo(false);
}

ConfigEditorPage::~ConfigEditorPage() = default;

QString ConfigEditorPage::drive() const
{
    return ui->Tab3Drive1->drive();
}

void ConfigEditorPage::setDrive(const QString &drive)
{
    if (!ui->Tab3Drive1->showDrive(drive)) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    if (!directory().startsWith(this->drive(), Qt::CaseInsensitive)) {
        openFolder(this->drive());
    }
}

void ConfigEditorPage::showDrive(const QString &drive)
{
    ui->Tab3Drive1->showDrive(drive);
}

void ConfigEditorPage::showDirectory(const QString &directory)
{
    const bool other = ui->Tab3Dir1->setPath(directory);
    ui->Tab3Drive1->showDrive(directory);
    if (other) {
        takeFolder();
        selectFirstEntry();
    }
}

QString ConfigEditorPage::directory() const
{
    return ui->Tab3Dir1->path();
}

void ConfigEditorPage::showVarlo()
{
    ui->Tab3Label6->setText(u"Varlo"_s);
}

void ConfigEditorPage::offerVarlo(bool installed)
{
    ui->Tab3Label6->setForegroundRole(installed ? QPalette::Link : QPalette::WindowText);
    ui->Tab3Label6->setFocusPolicy(installed ? Qt::TabFocus : Qt::NoFocus);
    // Plain text neither turns bold under the mouse nor takes clicks.
    ui->Tab3Label6->setAttribute(Qt::WA_TransparentForMouseEvents, !installed);
}

void ConfigEditorPage::showFirstAircraft()
{
    if (ui->Tab3List3->count() == 0) {
        ui->Tab3List3->addItem(directoryPrompt);
        ui->Tab3chkDumpList->setEnabled(false);
    } else {
        selectFirstEntry();
    }
}

void ConfigEditorPage::selectFirstEntry()
{
    ui->Tab3List3->setListIndex(0);
}

void ConfigEditorPage::openFolder(const QString &folder)
{
    m_services.errors.run(u"Directory Select Error"_s, [&](Step &step) {
        step.set(u"Set path to "_s + folder);
        if (ui->Tab3Dir1->setPath(folder)) {
            Tab3Dir1_Change();
        }
    });
    ui->Tab3Drive1->showDrive(directory()); // not a drive that cannot be read
}

void ConfigEditorPage::Tab3Dir1_Change()
{
    if (takeFolder()) {
        Q_EMIT directoryChosen(directory());
    }
}

/// Takes the folder picker's open folder for the aircraft directory, and returns whether it is one.
bool ConfigEditorPage::takeFolder()
{
    const bool accepted = fs_location::endsInAircraftFolder(directory());
    if (accepted) {
        m_services.log.write(u"Editor Path is "_s + directory());
        ui->Tab3File1->setPath(directory());
        Tab3LoadList();
    } else {
        showCatalogue({});
        ui->Tab3List3->addItem(directoryPrompt);
        ui->Tab3Label2->setText(totalCaption);
        setEditingEnabled(false);
    }
    return accepted;
}

void ConfigEditorPage::Tab3LoadList()
{
    const WaitPointer pointer;
    m_services.errors.run(u"Tab3LoadList Error"_s, [this] {
        AircraftCatalogue catalogue;
        ui->Tab3Label2->setText(totalCaption);
        showLoading(true);
        const auto show = qScopeGuard([&] {
            showCatalogue(catalogue);
            showLoading(false);
            setEditingEnabled(true);
        });
        readCatalogue(catalogue);
        if (catalogue.folderNames.isEmpty()) {
            catalogue.folderNames += u"All Aircraft Have Force Feedback"_s;
        }
    });
}

void ConfigEditorPage::readCatalogue(AircraftCatalogue &catalogue)
{
    Step step(m_state.ErrMsg);
    step.set(u"Loop through Aircraft Directories"_s);
    const AircraftRoot root = aircraft_catalogue::rootOf(directory());
    AircraftFolders::Walk walk = m_services.aircraftFolders.walk(directory(), Content::Editor);
    const auto showTotal = qScopeGuard([&] {
        // A directory of the combat simulator holds folders that are no aircraft.
        const bool combat = blind_to_case::lower(directory()).contains("combat"_L1);
        const qsizetype total = combat ? catalogue.folders.size() : walk.count();
        ui->Tab3Label2->setText(totalCaption + QString::number(total));
    });
    Progress progress(ui->loadingBar, walk.count());
    while (const AircraftFolder *folder = walk.next(step)) {
        progress.show(walk.index());
        step.set(u"Get Aircraft Name"_s);
        m_services.errors.run(u"Tab3CheckFile Error"_s,
                              [&](Step &own) { catalogue.take(*folder, root, own); });
        if (!folder->cfgFile.isEmpty()) {
            m_services.log.write(u"Adding Aircraft "_s + folder->name);
        }
    }
}

void ConfigEditorPage::showCatalogue(const AircraftCatalogue &catalogue)
{
    ui->Tab3List1->setItems(catalogue.folders);
    ui->Tab3List2->setItems(catalogue.folderNames);
    ui->Tab3List3->setItems(catalogue.names);
    ui->Tab3List4->setItems(catalogue.cfgFiles);
    ui->Tab3List5->setItems(catalogue.aliases);
    ui->Tab3List6->setItems(catalogue.panels);
    ui->Tab3List7->setItems(catalogue.listing);
    // Then the notice stands there alone, and nothing could be edited.
    const bool none = catalogue.folders.isEmpty() && !catalogue.folderNames.isEmpty();
    ui->Tab3List2->setListIndex(none ? 0 : -1);
    ui->Tab3optAircraft->setVisible(!none);
    ui->Tab3optPanel->setVisible(!none);
    ui->Tab3cmdedit->setVisible(!none);
    ui->noAircraftLabel->setVisible(none);
    ui->Tab3Label2->setToolTip(
        catalogue.folders.isEmpty() ? QString() : u" No Aircraft Have Force Feedback "_s);
}

void ConfigEditorPage::showLoading(bool loading)
{
    ui->loadingLabel->setVisible(loading);
    ui->loadingBar->setVisible(loading);
    ui->Tab3List3->setVisible(!loading);
}

void ConfigEditorPage::setEditingEnabled(bool enabled)
{
    ui->Tab3cmdedit->setEnabled(enabled);
    ui->Tab3chkDumpList->setEnabled(enabled);
}

void ConfigEditorPage::Tab3List3_Click()
{
    for (ListBox *list : {ui->Tab3List4, ui->Tab3List5, ui->Tab3List6, ui->Tab3List7}) {
        list->setListIndex(ui->Tab3List3->listIndex());
    }
}

void ConfigEditorPage::Tab3cmdedit_Click()
{
    m_services.errors.run(editorTitle, [this](Step &step) {
        const bool aircraft = ui->Tab3optAircraft->isChecked();
        const bool panel = ui->Tab3optPanel->isChecked();
        const int entry = ui->Tab3List3->listIndex();
        const QString cfgFile = ui->Tab3List4->text(entry); // empty for the prompt, too
        if ((aircraft || panel) && cfgFile.isEmpty()) {
            showNotice(u"Please select an Aircraft to edit!"_s);
            return;
        }
        if (aircraft) {
            m_editPath = cfgFile;
            m_services.log.write(u"Edit Aircraft.cfg file Notepad "_s + cfgFile);
            startNotepad(u"Notepad "_s + cfgFile);
        }
        if (!panel || openPanelCfg(cfgFile, ui->Tab3List6->text(entry), step)) {
            askForChanges();
        }
    });
}

/// Returns whether a panel was opened: not where there is none, nor when the user wants none.
bool ConfigEditorPage::openPanelCfg(const QString &cfgFile, const QString &panel, Step &step)
{
    m_editPath = panel_cfg::path(cfgFile, panel);
    m_services.log.write(u"Edit Panel.cfg file "_s + m_editPath);
    if (!files::isFile(m_editPath)) {
        showNotice(u"This is an AI Aircraft and has no Panel!"_s);
        return false;
    }
    m_services.log.write(u"Setting Panel Shell String"_s);
    const std::optional<QString> chosen = m_aliasQuestions.panelToEdit(
        m_editPath, cfgFile, aircraft_catalogue::rootOf(directory()), step);
    if (chosen) {
        m_editPath = *chosen;
        startNotepad(u"Notepad.exe "_s + m_editPath);
    }
    return chosen.has_value();
}

void ConfigEditorPage::askForChanges()
{
    const MessageBox::Answer answer =
        m_services.dialogs.show({.prompt = u"Have you made changes to "_s +
                                           cutForMessage(m_editPath, twoPaths) + u" file?"_s,
                                 .title = u"Edit Function"_s,
                                 .buttons = MessageBox::Buttons::YesNo,
                                 .defaultButton = MessageBox::Answer::No});
    if (answer != MessageBox::Answer::Yes) {
        return;
    }
    const QString selected = ui->Tab3List4->text(ui->Tab3List3->listIndex());
    ui->Tab3Dir1->refresh(); // aircraft installed since the folder was opened count too
    Tab3LoadList();
    ui->Tab3List3->setListIndex(static_cast<int>(ui->Tab3List4->items().indexOf(selected)));
    Q_EMIT aircraftEdited();
}

void ConfigEditorPage::showNotice(const QString &prompt)
{
    m_services.dialogs.show(
        {.prompt = prompt, .title = editorTitle, .icon = MessageBox::Icon::Information});
}

void ConfigEditorPage::startNotepad(const QString &command)
{
    constexpr int normalWindow = 1;
    Step step(m_state.ErrMsg);
    step.set(command);
    m_services.processes.start(command, normalWindow);
}

void ConfigEditorPage::Tab3chkDumpList_Click()
{
    if (ui->Tab3chkDumpList->isChecked()) {
        m_services.errors.run(u"DumpList Error"_s, [this](Step &step) { DumpListing(step); });
    }
}

void ConfigEditorPage::DumpListing(Step &step)
{
    const QString file = m_state.MorlenEDir + u"AircraftList.txt"_s;
    m_services.log.write(u"Dumping Aircraft Listing to "_s + file);
    step.set(u"Opening "_s + file);
    // Without a listing to view the box is ready to be ticked again.
    auto untick = qScopeGuard([this] { ui->Tab3chkDumpList->setChecked(false); });
    QStringList entries;
    for (int i = 0; i < ui->Tab3List7->count(); ++i) {
        ui->Tab3List7->setListIndex(i);
        entries += ui->Tab3List7->text(i);
    }
    files::writeAll(file,
                    listing_dump::compose(entries, m_services.clock.now(), QLocale::system()));
    m_services.log.write(u"Dump Completed"_s);
    const MessageBox::Answer answer = m_services.dialogs.show(
        {.prompt = u"Current Aircraft listing has been saved to: \r\r"_s + file +
                   u"\r\rDo you want to view the Aircraft Listing now?"_s,
         .title = u"Aircraft Text Listing"_s,
         .icon = MessageBox::Icon::Information,
         .buttons = MessageBox::Buttons::YesNo,
         .defaultButton = MessageBox::Answer::No});
    if (answer == MessageBox::Answer::Yes) {
        untick.dismiss();
        startNotepad(u"Notepad "_s + file);
    }
}
