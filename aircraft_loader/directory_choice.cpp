// SPDX-License-Identifier: MIT
#include "aircraft_loader/directory_choice.h"

#include "app/services/fs_location.h"
#include "app/services/look.h"
#include "app/services/services.h"
#include "platform/blind_to_case.h"
#include "platform/controls/control_state.h"

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
}

void DirectoryChoice::show(const QString &directory)
{
    showPath(directory); // be it there or not
    if (!directory.isEmpty() && m_ui.Dir1->setPath(directory)) {
        takeFolder();
    }
}

QString DirectoryChoice::shown() const
{
    return m_ui.lblFSPath->text();
}

void DirectoryChoice::cmdBrowseFSPath_Click()
{
    m_ui.Drive1->showDrive(m_ui.Dir1->path());
    showPicker(true);
    focusIfShown(m_ui.Dir1);
}

void DirectoryChoice::Drive1_Change()
{
    openFolder(m_ui.Drive1->drive(), directoryErrorTitle);
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
    showPicker(false);
    Q_EMIT taken(directory);
    return true;
}

void DirectoryChoice::Command1_Click()
{
    if (blind_to_case::lower(m_ui.Dir1->path()).endsWith("aircraft"_L1)) {
        showPath(m_ui.Dir1->path());
    } else {
        showPath({});
        m_services.dialogs.show({.prompt = u"Please select the Flight Simulator Directory!"_s,
                                 .title = directoryErrorTitle,
                                 .icon = MessageBox::Icon::Exclamation});
        Q_EMIT refused();
    }
    showPicker(false);
}

void DirectoryChoice::showPath(const QString &directory)
{
    m_ui.lblFSPath->setText(directory);
    m_ui.noDirectoryLabel->setVisible(directory.isEmpty());
}

/// The picker stands in the place of the available list.
void DirectoryChoice::showPicker(bool visible)
{
    m_ui.frmDriveDialog->setVisible(visible);
    m_ui.Tab0List2->setVisible(!visible);
}
