// SPDX-License-Identifier: MIT
#include "airport_loader/airport_loader_page.h"

#include "ui_airport_loader_page.h"

AirportLoaderPage::AirportLoaderPage(QWidget *parent)
    : QWidget(parent), ui(std::make_unique<Ui::AirportLoaderPage>())
{
    ui->setupUi(this);
    connect(ui->tab1Help, &LinkLabel::clicked, this, &AirportLoaderPage::helpWanted);
}

AirportLoaderPage::~AirportLoaderPage() = default;
