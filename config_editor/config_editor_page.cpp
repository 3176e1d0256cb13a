// SPDX-License-Identifier: MIT
#include "config_editor/config_editor_page.h"

#include "app/services/fs_location.h"

#include "ui_config_editor_page.h"

ConfigEditorPage::ConfigEditorPage(Services & /*services*/, QWidget *parent)
    : QWidget(parent), ui(std::make_unique<Ui::ConfigEditorPage>())
{
    ui->setupUi(this);
    connect(ui->Tab3Dir1, &DirListBox::pathChanged, this, &ConfigEditorPage::Tab3Dir1_Change);
    connect(ui->tab3VarloHelp, &LinkLabel::clicked, this, &ConfigEditorPage::helpWanted);
}

ConfigEditorPage::~ConfigEditorPage() = default;

QString ConfigEditorPage::drive() const
{
    return ui->Tab3Drive1->drive();
}

void ConfigEditorPage::setDrive(const QString &drive)
{
    ui->Tab3Drive1->setDrive(drive);
}

void ConfigEditorPage::openDirectory(const QString &directory)
{
    ui->Tab3Dir1->setPath(directory);
}

void ConfigEditorPage::showVarlo()
{
    ui->Tab3Label6->setText("Varlo");
}

void ConfigEditorPage::showFirstAircraft()
{
    if (ui->Tab3List3->count() == 0) {
        ui->Tab3List3->addItem("<--- Please select your Flight Simulator Aircraft directory!");
        ui->Tab3chkDumpList->setEnabled(false);
    } else {
        selectFirstEntry();
    }
}

void ConfigEditorPage::selectFirstEntry()
{
    ui->Tab3List3->setListIndex(ui->Tab3List3->count() > 0 ? 0 : -1);
}

void ConfigEditorPage::Tab3Dir1_Change()
{
    if (fs_location::endsInAircraftFolder(ui->Tab3Dir1->path())) {
        Q_EMIT directoryChosen(ui->Tab3Dir1->path());
    }
}
