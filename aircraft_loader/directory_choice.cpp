// SPDX-License-Identifier: MIT
#include "aircraft_loader/directory_choice.h"

#include "app/services/fs_location.h"
#include "app/services/look.h"
#include "app/services/services.h"
#include "platform/blind_to_case.h"
#include "platform/controls/control_state.h"

#include <QShortcut>

#include <utility>

#include "ui_aircraft_loader_page.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView directoryErrorTitle = "FlightSim Directory Error"_L1;

} // namespace

DirectoryChoice::DirectoryChoice(Ui::AircraftLoaderPage &ui, Services &services, QObject *parent)
    : QObject(parent), m_ui(ui), m_services(services)
{
    showCurrentStep(ui.noDirectoryLabel);
    using Choice = DirectoryChoice;
    connect(ui.cmdBrowseFSPath, &QPushButton::clicked, this, &Choice::cmdBrowseFSPath_Click);
    connect(ui.Drive1, &QComboBox::currentTextChanged, this, &Choice::Drive1_Change);
    connect(ui.Dir1, &DirListBox::folderChosen, this,
            [this](const QString &folder) { openFolder(folder, u"Directory Select Error"_s); });
    connect(ui.Command1, &QPushButton::clicked, this, &Choice::Command1_Click);
    connect(new QShortcut(Qt::Key_Escape, ui.frmDriveDialog), &QShortcut::activated, this, [this] {
        close();
        focusIfShown(m_ui.cmdBrowseFSPath);
    });
}

void DirectoryChoice::show(const QString &directory)
{
    closePicker();
    showPath(directory); // be it there or not
    if (!directory.isEmpty() && m_ui.Dir1->setPath(directory)) {
        takeFolder();
    }
}

QString DirectoryChoice::shown() const
{
    return m_ui.lblFSPath->text();
}

void DirectoryChoice::close()
{
    if (m_ui.frmDriveDialog->isHidden()) {
        return;
    }
    closePicker();
    const bool found = m_services.errors.run(directoryErrorTitle, [this](Step &step) {
        step.set(u"Set path to "_s + shown());
        if (!shown().isEmpty() && shown() != m_ui.Dir1->path()) {
            m_ui.Dir1->setPath(shown());
        }
    });
    if (!found) {
        showPath({});
        Q_EMIT refused();
    }
}

void DirectoryChoice::cmdBrowseFSPath_Click()
{
    m_ui.Drive1->showDrive(m_ui.Dir1->path());
    openPicker();
    focusIfShown(m_ui.Dir1);
}

void DirectoryChoice::Drive1_Change()
{
    openFolder(m_ui.Drive1->drive(), directoryErrorTitle);
    m_ui.Drive1->showDrive(m_ui.Dir1->path()); // not a drive that cannot be read
}

void DirectoryChoice::openFolder(const QString &folder, const QString &errorTitle)
{
    m_services.errors.run(errorTitle, [&](Step &step) {
        step.set(u"Set path to "_s + folder);
        if (m_ui.Dir1->setPath(folder)) {
            Dir1_Change();
        }
    });
}

void DirectoryChoice::Dir1_Change()
{
    if (takeFolder()) {
        Q_EMIT chosen(m_ui.Dir1->path());
    }
}

/// Takes the folder picker's open folder for the aircraft directory, and returns whether it is one.
bool DirectoryChoice::takeFolder()
{
    const QString directory = m_ui.Dir1->path();
    if (!fs_location::endsInAircraftFolder(directory)) {
        m_ui.Tab0List2->hide();
        return false;
    }
    m_ui.File1->setPath(directory);
    showPath(directory);
    closePicker();
    Q_EMIT taken(directory);
    return true;
}

void DirectoryChoice::Command1_Click()
{
    const bool accepted = blind_to_case::lower(m_ui.Dir1->path()).endsWith("aircraft"_L1);
    showPath(accepted ? m_ui.Dir1->path() : QString());
    if (!accepted) {
        m_services.dialogs.show({.prompt = u"Please select the Flight Simulator Directory!"_s,
                                 .title = directoryErrorTitle,
                                 .icon = MessageBox::Icon::Exclamation});
    }
    closePicker();
    if (!accepted) {
        Q_EMIT refused();
    }
}

void DirectoryChoice::showPath(const QString &directory)
{
    m_ui.lblFSPath->setText(directory);
    m_ui.noDirectoryLabel->setVisible(directory.isEmpty());
}

/// The picker stands in the place of the available list. While it is open that is neither filled
/// nor added from: nobody would see what.
void DirectoryChoice::openPicker()
{
    for (QWidget *control :
         QList<QWidget *>{m_ui.cmdBrowseText, m_ui.cmdEdit, m_ui.optFrame, m_ui.cmdAddAI}) {
        if (control->isEnabled()) {
            control->setEnabled(false);
            m_disabled += control;
        }
    }
    m_ui.Tab0List2->hide();
    m_ui.frmDriveDialog->show();
}

void DirectoryChoice::closePicker()
{
    if (m_ui.frmDriveDialog->isHidden()) {
        return;
    }
    for (QWidget *control : std::exchange(m_disabled, {})) {
        control->setEnabled(true);
    }
    m_ui.frmDriveDialog->hide();
    m_ui.Tab0List2->show();
}
