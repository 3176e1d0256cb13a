// SPDX-License-Identifier: MIT
#include "airport_loader/airport_loader_page.h"

#include "app/services/look.h"
#include "app/services/path_display.h"
#include "app/services/services.h"
#include "app/services/set_in_progress.h"
#include "platform/basic.h"
#include "platform/code_page.h"
#include "platform/controls/control_state.h"
#include "platform/controls/progress.h"
#include "platform/controls/wait_pointer.h"
#include "platform/files.h"

#include <QAction>
#include <QScopeGuard>

#include <utility>

#include "ui_airport_loader_page.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView filePrompt = "Please Select Airport Text file to Edit --->"_L1;
constexpr QLatin1StringView applicationTitle = "Morlen Utilities"_L1;
constexpr QLatin1StringView fileErrorTitle = "Create File Error"_L1;
constexpr qsizetype pathLimit = 50;    // characters of a path that are shown
constexpr qsizetype setPathLimit = 60; // the same, of a new set's file

QString selectedText(const ListBox &list)
{
    return list.text(list.listIndex());
}

} // namespace

AirportLoaderPage::AirportLoaderPage(Services &services, const SetInProgress &set, QWidget *parent)
    : QWidget(parent),
      m_services(services),
      m_state(services.state),
      m_set(set),
      ui(std::make_unique<Ui::AirportLoaderPage>()),
      m_browser(*ui, services.state, services.errors)
{
    ui->setupUi(this);
    ui->Tab1List1->setDropPartner(ui->Tab1List2);
    ui->Tab1List2->setDropPartner(ui->Tab1List1);
    for (QWidget *hidden : std::initializer_list<QWidget *>{
             ui->Tab1lstAICO, ui->Tab1lstCountry, ui->Tab1ListSort, ui->Tab1ProgressBar1}) {
        hidden->hide();
    }
    showFilePrompt();
    addListActions();
    using Page = AirportLoaderPage;
    using Browser = AirportBrowser;
    connect(ui->Tab1cmdBrowse, &QPushButton::clicked, this, &Page::Tab1cmdBrowse_Click);
    connect(ui->Tab1cmdEdit, &QPushButton::clicked, this, &Page::Tab1cmdEdit_Click);
    connect(ui->Tab1cmdPrevious, &QPushButton::clicked, &m_browser,
            &Browser::Tab1cmdPrevious_Click);
    connect(ui->Tab1cmdReset, &QPushButton::clicked, this, &Page::Tab1cmdReset_Click);
    connect(ui->Tab1cmdCreateFile, &QPushButton::clicked, this, &Page::Tab1cmdCreateFile_Click);
    connect(ui->Tab1Command2, &QPushButton::clicked, this, &Page::Tab1Command2_Click);
    connect(ui->Tab1optName, &QRadioButton::clicked, &m_browser, &Browser::Tab1optName_Click);
    connect(ui->Tab1optICAO, &QRadioButton::clicked, &m_browser, &Browser::Tab1optICAO_Click);
    connect(ui->Tab1List1, &ListBox::entryDoubleClicked, &m_browser, &Browser::Tab1List1_DblClick);
    connect(ui->Tab1List1, &DragListBox::mouseDown, this, &Page::Tab1List1_MouseDown);
    connect(ui->Tab1List2, &DragListBox::mouseDown, this, &Page::Tab1List2_MouseDown);
    connect(ui->Tab1List1, &DragListBox::dropped, this, &Page::Tab1List1_DragDrop);
    connect(ui->Tab1List2, &DragListBox::dropped, this, &Page::Tab1List2_DragDrop);
    connect(&m_browser, &Browser::countriesLoading, this, &Page::countriesLoading);
    connect(&m_browser, &Browser::countryLineRead, this, &Page::countryLineRead);
    connect(ui->tab1Help, &LinkLabel::clicked, this, &Page::helpWanted);
}

AirportLoaderPage::~AirportLoaderPage() = default;

void AirportLoaderPage::addListActions()
{
    // For whoever cannot drag: the same procedures by key and by menu, with every rule of a drop.
    const auto add = [this](DragListBox *list, const QString &text, Qt::Key key, auto move) {
        auto *const action = new QAction(text, list);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, move);
        list->addAction(action);
        list->setContextMenuPolicy(Qt::ActionsContextMenu);
    };
    add(ui->Tab1List1, u"Move to Airports to Add"_s, Qt::Key_Insert,
        [this] { Tab1List2_DragDrop(selectedText(*ui->Tab1List1)); });
    add(ui->Tab1List2, u"Move back to the available list"_s, Qt::Key_Delete, [this] {
        Tab1List2_MouseDown();
        Tab1List1_DragDrop(selectedText(*ui->Tab1List2));
    });
}

void AirportLoaderPage::showFilePrompt()
{
    ui->Tab1lblAirportTextFileName->setText(filePrompt);
    showCurrentStep(ui->Tab1lblAirportTextFileName);
}

void AirportLoaderPage::Tab1cmdReset_Click()
{
    ui->Tab1lblDragnDrop->hide();
    for (ListBox *list :
         std::initializer_list<ListBox *>{ui->Tab1List2, ui->Tab1lstAICO, ui->Tab1lstCountry}) {
        list->clear();
    }
    m_existing = 0;
    m_done = false;
    ui->Tab1List1->setEnabled(false);
    for (QWidget *control :
         std::initializer_list<QWidget *>{ui->Tab1cmdCreateFile, ui->Tab1cmdReset, ui->Tab1cmdEdit,
                                          ui->Tab1optICAO, ui->Tab1optName}) {
        control->setEnabled(false);
    }
    ui->lblT1Airport->setText(u"Airport to Add"_s);
    m_browser.showCountries();
    showFilePrompt();
}

void AirportLoaderPage::Tab1List1_MouseDown()
{
    ui->Tab1List1->setDragging(ui->Tab1List1->count() > 0);
}

void AirportLoaderPage::Tab1List2_MouseDown()
{
    ListBox &list = *ui->Tab1List2;
    const bool movable = list.count() > 0 && !airport_text_file::isExisting(selectedText(list));
    if (movable) {
        ui->Tab1lstAICO->setListIndex(list.listIndex() + hiddenOffset());
    }
    ui->Tab1List2->setDragging(movable);
    if (list.count() == 0) {
        ui->Tab1cmdReset->setEnabled(false);
    }
}

void AirportLoaderPage::Tab1List2_DragDrop(const QString &text)
{
    const int index = ui->Tab1List1->isHighlighted() ? ui->Tab1List1->listIndex() : -1;
    if (index < 0 || text != selectedText(*ui->Tab1List1)) {
        return;
    }
    ui->Tab1List2->addItem(text);
    const AirportChoice choice = m_browser.choose(text);
    ui->Tab1lstAICO->addItem(choice.search);
    ui->Tab1lstCountry->addItem(choice.country);
    ui->Tab1List1->removeItem(index);
    ui->Tab1cmdCreateFile->setEnabled(true);
    focusIfShown(ui->Tab1cmdCreateFile);
    ui->Tab1cmdEdit->setEnabled(false);
    ui->Tab1List2->setListIndex(ui->Tab1List2->count() - 1);
    ui->Tab1cmdReset->setEnabled(true);
    showExistingCount();
    if (ui->Tab1List1->count() == 0) {
        m_browser.enableSortOptions(false);
    }
}

int AirportLoaderPage::hiddenOffset() const
{
    return ui->Tab1lstAICO->count() - ui->Tab1List2->count();
}

void AirportLoaderPage::Tab1List1_DragDrop(const QString &text)
{
    const int index = ui->Tab1List2->isHighlighted() ? ui->Tab1List2->listIndex() : -1;
    if (index < 0 || text != selectedText(*ui->Tab1List2) || airport_text_file::isExisting(text)) {
        return;
    }
    const int hidden = index + hiddenOffset();
    m_existing -= index < m_existing ? 1 : 0; // a line too short to be told from a choice
    ui->Tab1List1->addItem(text);
    ui->Tab1List2->removeItem(index);
    ui->Tab1lstAICO->removeItem(hidden);
    ui->Tab1lstCountry->removeItem(hidden);
    if (ui->Tab1List2->count() == 0) {
        ui->Tab1cmdReset->setEnabled(false);
        ui->Tab1cmdCreateFile->setEnabled(false);
    } else {
        ui->Tab1cmdEdit->setEnabled(true);
    }
    if (m_browser.showsAirports()) {
        m_browser.enableSortOptions(true);
    }
    showExistingCount();
}

bool AirportLoaderPage::AirportExists()
{
    if (!m_browser.showsAirports()) {
        return false;
    }
    const QString code = m_browser.choiceFor(selectedText(*ui->Tab1List1)).search;
    for (const QString &item : ui->Tab1List2->items()) {
        if (item.contains(code)) {
            m_services.dialogs.show({.prompt = u"Duplicate Airport!"_s, .title = applicationTitle});
            return true;
        }
    }
    return false;
}

void AirportLoaderPage::showExistingCount()
{
    ui->lblT1Airport->setText(u"Existing Airports:"_s + basic::str(ui->Tab1List2->count()));
}

void AirportLoaderPage::takeFileForSet(const QString &path)
{
    forgetDone();
    m_state.AirportTextFile = path;
    ui->Tab1lblAirportTextFileName->setText(shortenedPath(path, setPathLimit));
    showDone(ui->Tab1lblAirportTextFileName);
    ui->Tab1cmdBrowse->setEnabled(false);
    ui->Tab1List1->setEnabled(true);
    ui->Tab1lblDragnDrop->show();
}

void AirportLoaderPage::forgetDone()
{
    if (m_done) {
        Tab1cmdReset_Click();
    }
}

void AirportLoaderPage::forgetFile(const QString &path)
{
    if (m_state.AirportTextFile.compare(path, Qt::CaseInsensitive) == 0) {
        Tab1cmdReset_Click();
        m_state.AirportTextFile.clear();
        ui->Tab1cmdBrowse->setEnabled(true);
    }
}

void AirportLoaderPage::keepFileOfSet()
{
    ui->Tab1cmdBrowse->setEnabled(true);
}

void AirportLoaderPage::Tab1cmdBrowse_Click()
{
    if (m_state.ShowAddAirportHelp) {
        Q_EMIT reminderDue();
    }
    forgetDone();
    m_state.AirportTextFile = m_services.dialogs.openFile(
        {.filter = u"Airport Text Files (*.txt)|airport*.txt|"_s, .startFolder = {}});
    m_services.errors.run(fileErrorTitle, [this](Step &step) {
        step.set(u"Open "_s + m_state.AirportTextFile);
        m_services.log.write(u"Selecting Airport Text File "_s + m_state.AirportTextFile);
        if (m_state.AirportTextFile.isEmpty()) {
            showFilePrompt();
            ui->Tab1cmdEdit->setEnabled(false);
            return;
        }
        ui->Tab1lblAirportTextFileName->setText(shortenedPath(m_state.AirportTextFile, pathLimit));
        showDone(ui->Tab1lblAirportTextFileName);
        ui->Tab1List1->setEnabled(true);
        readTextFile();
        ui->Tab1cmdEdit->setEnabled(true);
        ui->Tab1lblDragnDrop->show();
    });
    if (ui->Tab1List2->count() > 0) {
        ui->Tab1cmdReset->setEnabled(true);
        showExistingCount();
    }
}

void AirportLoaderPage::readTextFile()
{
    // The choices stay in sight, behind the file's entries.
    const qsizetype chosen = ui->Tab1List2->count() - std::exchange(m_existing, 0);
    ui->Tab1List2->setItems(ui->Tab1List2->items().last(chosen));
    const QStringList entries =
        airport_text_file::existingItems(files::readAll(m_state.AirportTextFile));
    for (ListBox *list :
         std::initializer_list<ListBox *>{ui->Tab1List2, ui->Tab1lstAICO, ui->Tab1lstCountry}) {
        const QStringList items = list->items();
        list->setItems(items.first(items.size() - chosen) + entries + items.last(chosen));
    }
    m_existing = entries.size();
}

void AirportLoaderPage::showMissingFileName()
{
    m_services.dialogs.show({.prompt = u"Missing Airport Text File name!"_s,
                             .title = applicationTitle,
                             .icon = MessageBox::Icon::Exclamation});
}

void AirportLoaderPage::Tab1cmdCreateFile_Click()
{
    if (m_state.AirportTextFile.isEmpty()) {
        showMissingFileName();
        return;
    }
    bool written = false;
    const bool good =
        m_services.errors.run(fileErrorTitle, [&](Step &step) { appendChosen(written, step); });
    if (!good && !written) {
        return; // the choices stand, for another try
    }
    m_done = true;
    Q_EMIT airportsAdded(written ? m_state.AirportTextFile : QString());
    if (good && wantsToView()) {
        ui->Tab1cmdCreateFile->setEnabled(false);
        ui->Tab1List1->setEnabled(false);
        m_services.shell.Shellandwait(u"NOTEPAD.EXE "_s + m_state.AirportTextFile, 0, 1);
        if (m_state.ended || !m_done) { // or something else was begun meanwhile
            return;
        }
    }
    Tab1cmdReset_Click();
    ui->lblT1Airport->setText(u"Airports to Add"_s);
    ui->Tab1Frame2->setEnabled(false);
    ui->Tab1cmdBrowse->setEnabled(true);
    if (m_set.newAirportFlag) {
        ui->Tab1Command2->click();
    }
}

bool AirportLoaderPage::wantsToView()
{
    return m_services.dialogs.show({.prompt = m_state.AirportTextFile +
                                              u" Created Successfully!\r\rDo you want to view the "
                                              "file?"_s,
                                    .title = u"AI Aircraft Loader"_s,
                                    .buttons = MessageBox::Buttons::YesNo,
                                    .defaultButton = MessageBox::Answer::No}) ==
           MessageBox::Answer::Yes;
}

void AirportLoaderPage::appendChosen(bool &written, Step &step)
{
    const bool previousShown = !ui->Tab1cmdPrevious->isHidden();
    if (previousShown) {
        ui->Tab1cmdPrevious->hide();
        ui->Tab1lblDragnDrop->hide();
    }
    ui->Tab1cmdReset->hide();
    Progress progress(ui->Tab1ProgressBar1, ui->Tab1lstAICO->count());
    ui->Tab1ProgressBar1->show();
    const auto restore = qScopeGuard([&] {
        ui->Tab1ProgressBar1->hide();
        ui->Tab1cmdPrevious->setVisible(previousShown);
        if (previousShown) {
            ui->Tab1lblDragnDrop->show();
        }
        ui->Tab1cmdReset->show();
    });
    m_services.log.write(u"Adding Airports to "_s + m_state.AirportTextFile);
    step.set(u"Open "_s + m_state.AirportTextFile);
    files::openForAppend(m_state.AirportTextFile);
    const files::Lock lock(m_state.AirportTextFile);

    QList<AirportChoice> choices;
    for (int i = 0; i < ui->Tab1lstAICO->count(); ++i) {
        const AirportChoice choice = {ui->Tab1lstAICO->text(i), ui->Tab1lstCountry->text(i), i};
        if (!airport_text_file::isExisting(choice.search)) {
            choices += choice;
        }
    }
    ui->Tab1ListSort->setItems(linesOf(choices, progress, step));
    const QStringList lines = ui->Tab1ListSort->items();
    ui->Tab1ListSort->clear();
    if (!lines.isEmpty()) {
        step.set(u"Open "_s + m_state.AirportTextFile);
        files::appendLines(m_state.AirportTextFile,
                           code_page::encode(lines.join(u"\r\n"_s) + u"\r\n"_s));
        written = true; // what fails from here on leaves them there
        files::sync(m_state.AirportTextFile);
    }
    m_services.log.write(u"Finished Adding Airports"_s);
}

QStringList AirportLoaderPage::linesOf(const QList<AirportChoice> &choices, Progress &progress,
                                       Step &step)
{
    if (choices.isEmpty()) {
        return {};
    }
    const QByteArray list = master_airport_list::OpenOCX(m_state.MorlenEDir, step);
    step.set(u"Input Data"_s);
    QStringList lines;
    for (const ChosenLine &chosen : airport_text_file::chosenLines(list, choices)) {
        progress.show(choices[chosen.choice].entry);
        const QString line = airport_text_file::airportLine(AirportRecord::split(chosen.line));
        if (lines.isEmpty()) {
            lines += airport_text_file::addedComment(m_services.clock.now());
        }
        m_services.log.write(u"Adding "_s + line);
        lines += line;
    }
    return lines;
}

void AirportLoaderPage::Tab1cmdEdit_Click()
{
    if (m_state.AirportTextFile.isEmpty()) {
        showMissingFileName(); // taking a choice back enables the button without a file, too
        return;
    }
    const MessageBox::Answer answer = m_services.dialogs.show(
        {.prompt =
             u"CAUTION!\r\rThese Airports may be used in existing FlightPlans.  Editing or Deleting "_s
             "\rAirports may cause FlightPlan or TTools compiler errors.  Use caution when\rwhen "
             "altering Airport entries.\r\rAre you sure you want to continue?",
         .title = u"Airport Edit Caution"_s,
         .buttons = MessageBox::Buttons::YesNo,
         .defaultButton = MessageBox::Answer::No});
    if (answer != MessageBox::Answer::Yes) {
        return;
    }
    m_services.errors.run(u"Edit Airport Error"_s, [this](Step &step) {
        step.set(u"Edit "_s + m_state.AirportTextFile);
        m_services.log.write(u"Edit Aircraft Listing Edit "_s + m_state.AirportTextFile);
        m_services.shell.Shellandwait(u"NOTEPAD.EXE "_s + m_state.AirportTextFile, 0, 1);
        if (m_state.ended) {
            return;
        }
        step.set(u"Open "_s + m_state.AirportTextFile);
        const WaitPointer pointer;
        readTextFile();
        focusIfShown(ui->Tab1Command2);
    });
}

void AirportLoaderPage::Tab1Command2_Click()
{
    if (m_set.newAirportFlag) {
        Q_EMIT returnToSet();
    } else {
        Q_EMIT quitPressed();
    }
}
