// SPDX-License-Identifier: MIT
#include "fpset/fpset_page.h"

#include "app/services/path_display.h"
#include "platform/basic_text.h"
#include "platform/control_style.h"

#include "ui_fpset_page.h"

namespace
{

constexpr qsizetype shownPathLimit = 50; // characters

} // namespace

FpSetPage::FpSetPage(Services &services, QWidget *parent)
    : QWidget(parent), ui(std::make_unique<Ui::FpSetPage>()), m_state(services.state)
{
    ui->setupUi(this);
    connect(ui->tab2cmdQuit, &QPushButton::clicked, this, &FpSetPage::quitPressed);
    connect(ui->Tab2lblHelp, &LinkLabel::clicked, this, &FpSetPage::helpWanted);
}

FpSetPage::~FpSetPage() = default;

void FpSetPage::prepare()
{
    ui->tab2txtFltPlan->setText("FlightPlans_");
    ui->tab2txtFltPlan->setCursorPosition(static_cast<int>(ui->tab2txtFltPlan->text().size()));
    m_state.DefaultName = ui->tab2txtFltPlan->text();
    m_state.AddAirportsFlag = false;
    m_state.AddAircraftFlag = false;
}

void FpSetPage::showTTools(const QString &path)
{
    if (basic::lower(path).contains(QLatin1String("ttools.exe"))) {
        ui->tab2txtTToolsDir->setText(shortenedPath(path, shownPathLimit));
        ui->tab2TToolsDir->setTitle("TTools Directory");
        showDone(ui->tab2TToolsDir);
    }
}

void FpSetPage::enableNaming()
{
    if (ui->tab2txtTToolsDir->text().isEmpty()) {
        return;
    }
    showDone(ui->tab2TToolsDir);
    ui->tab2Frame12->setEnabled(true);
    showCurrentStep(ui->tab2Frame12);
    ui->tab2Command2->setEnabled(true);
    ui->tab2txtFltPlan->setEnabled(true);
}

void FpSetPage::focusNameBox()
{
    focusIfShown(ui->tab2txtFltPlan);
}

void FpSetPage::continueWithSet()
{
    ui->tab2txtFltPlan->setText(m_setName);
    focusIfShown(ui->tab2cmdCreateNewFP);
}
