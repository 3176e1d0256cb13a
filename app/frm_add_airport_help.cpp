// SPDX-License-Identifier: MIT
#include "app/frm_add_airport_help.h"

#include "ui_frm_add_airport_help.h"

using namespace Qt::StringLiterals;

frmAddAirportHelp::frmAddAirportHelp(bool &ShowAddAirportHelp, QWidget *parent)
    : QDialog(parent),
      m_isStillDue(ShowAddAirportHelp),
      ui(std::make_unique<Ui::frmAddAirportHelp>())
{
    ui->setupUi(this);
    connect(ui->Check1, &QCheckBox::clicked, this, &frmAddAirportHelp::Check1_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &frmAddAirportHelp::Command1_Click);
    ui->Command1->setFocus();
    Form_Load();
}

frmAddAirportHelp::~frmAddAirportHelp() = default;

void frmAddAirportHelp::Form_Load()
{
    // A label shows a carriage return as a blank, so the sentences around these flow on.
    ui->Label1->setText(
        u"Airports are added using a Drag and Drop method.  Click on the airport name you wish to "_s
        u"add and drag it to the Add Airports List and drop it in.  You can also remove an "_s
        u"Airport by Dragging from the Add Airports List and dropping it back in \rthe Available "_s
        u"Airports List."_s);
    ui->Label2->setText(
        u"When the program first loads a list of Countries will be displayed.  Double click on a "_s
        u"Country name and a list of Airports in that Country will be displayed.  In the case of "_s
        u"Australia, Canada and the United States a list of Provinces/States will be displayed.   "_s
        u"Double click on a Province or State to view a list of the Airports in that Province or "_s
        u"State.  Airports can be added Country, Province/State or City.  Dragging a Country name "_s
        u"will add all the Airports in that Country to your new Airport text file. The same "_s
        u"applies to a Province or State.  When a list of Cities is displayed you can add only "_s
        u"those \rAirports that will be required for your new FlightPlans."_s);
}

void frmAddAirportHelp::Check1_Click()
{
    m_isStillDue = false; // whether ticked or unticked
}

void frmAddAirportHelp::Command1_Click()
{
    accept();
}
