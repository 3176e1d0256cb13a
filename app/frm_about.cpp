// SPDX-License-Identifier: MIT
#include "app/frm_about.h"

#include "app/version.h"

#include "ui_frm_about.h"

frmAbout::frmAbout(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::frmAbout>())
{
    ui->setupUi(this);
    setWindowTitle("About " + ui->lblTitle->text());
    ui->lblVersion->setText("Version " + programVersion());
    connect(ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmAbout::~frmAbout() = default;
