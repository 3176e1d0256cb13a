// SPDX-License-Identifier: MIT
#include "aircraft_loader/text_file_choice.h"

#include "aircraft_loader/aircraft_text_file.h"
#include "app/services/look.h"
#include "app/services/path_display.h"
#include "app/services/services.h"

#include "ui_aircraft_loader_page.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView prompt = "Please select an Aircraft Text File"_L1;
constexpr qsizetype givenPathLimit = 60;  // characters shown of a path that the program gives
constexpr qsizetype chosenPathLimit = 50; // and of one that the user has just chosen

} // namespace

TextFileChoice::TextFileChoice(Ui::AircraftLoaderPage &ui, Services &services, QObject *parent)
    : QObject(parent), m_ui(ui), m_services(services)
{
    using Choice = TextFileChoice;
    connect(ui.cmdBrowseText, &QPushButton::clicked, this, &Choice::cmdBrowseText_Click);
    connect(ui.cmdEdit, &QPushButton::clicked, this, &Choice::cmdEdit_Click);
    connect(ui.cmdTtools, &QPushButton::clicked, this, &Choice::cmdTtools_Click);
    ask();
}

void TextFileChoice::ask()
{
    m_ui.lblAircraftTextFile->setText(prompt);
    showCurrentStep(m_ui.lblAircraftTextFile);
    m_ui.cmdTtools->setEnabled(false);
    m_ui.cmdEdit->setEnabled(false);
}

bool TextFileChoice::isShown() const
{
    return m_ui.lblAircraftTextFile->text() != prompt;
}

void TextFileChoice::take(const QString &path)
{
    show(path, givenPathLimit);
    setAircraftTextDir(path);
    if (path.isEmpty()) {
        ask();
    }
}

void TextFileChoice::enableTools()
{
    m_ui.cmdTtools->setEnabled(m_services.shell.CheckFileExists(m_services.state.AircraftTextDir));
    m_ui.cmdEdit->setEnabled(true);
}

void TextFileChoice::show(const QString &path, qsizetype limit)
{
    m_ui.lblAircraftTextFile->setText(shortenedPath(path, limit));
    showDone(m_ui.lblAircraftTextFile);
}

void TextFileChoice::setAircraftTextDir(const QString &path)
{
    m_services.state.AircraftTextDir = path;
    Q_EMIT changed(path);
}

void TextFileChoice::cmdBrowseText_Click()
{
    const QString filter = m_ui.opt2004->isChecked()
                               ? u"Aircraft Text Files (aircraft*.txt)|aircraft*.txt|"_s
                               : u"Aircraft Text Files (aircraft.txt)|aircraft.txt|"_s;
    const QString current = m_services.state.AircraftTextDir;
    const QString startFolder = current.first(qMax<qsizetype>(0, current.lastIndexOf(u'\\')));
    const QString path = m_services.dialogs.openFile({filter, startFolder});
    show(path, chosenPathLimit);
    if (aircraft_text_file::folderPart(path).isEmpty()) {
        m_services.dialogs.show({.prompt = u"Please select an Aircraft Text file to edit!"_s,
                                 .title = u"FlightSim Directory Error"_s,
                                 .icon = MessageBox::Icon::Exclamation});
        take({});
    } else {
        setAircraftTextDir(path);
    }
    Q_EMIT chosen();
}

void TextFileChoice::cmdEdit_Click()
{
    Step step(m_services.state.ErrMsg);
    step.set(u"Command Edit Shelling Notepad"_s);
    m_services.shell.Shellandwait(u"NOTEPAD.EXE "_s + m_services.state.AircraftTextDir, 0, 1);
    if (m_services.state.ended) {
        return;
    }
    const MessageBox::Answer answer = m_services.dialogs.show(
        {.prompt = u"Have you made changes to the "_s +
                   cutForMessage(m_services.state.AircraftTextDir, twoPaths) + u" file? "_s,
         .title = u"Edit Aircraft Text File"_s,
         .icon = MessageBox::Icon::Information,
         .buttons = MessageBox::Buttons::YesNo,
         .defaultButton = MessageBox::Answer::No});
    if (answer == MessageBox::Answer::Yes) {
        Q_EMIT edited();
    }
}

void TextFileChoice::cmdTtools_Click()
{
    Step step(m_services.state.ErrMsg);
    step.set(u"Running "_s + m_services.shell.tTools());
    m_services.shell.Shellandwait(m_services.shell.tTools(), 0, 1);
}
