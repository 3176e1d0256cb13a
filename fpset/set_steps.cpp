// SPDX-License-Identifier: MIT
#include "fpset/set_steps.h"

#include "app/services/look.h"
#include "platform/controls/control_state.h"

#include "ui_fpset_page.h"

namespace
{

/// A step's frame, and the controls it begins with: the first one gets the focus.
struct StepFrame {
    QGroupBox *frame;
    QList<QWidget *> controls;
};

StepFrame stepFrame(const Ui::FpSetPage &ui, int number)
{
    const QList<StepFrame> steps = {
        {ui.tab2Frame12, {ui.tab2txtFltPlan, ui.tab2Command2}},
        {ui.tab2Frame2, {ui.tab2optCreatefile, ui.tab2optCopyFile, ui.tab2cmdAirport}},
        {ui.tab2Frame3, {ui.tab2optCreateNewAircraft, ui.tab2optCopyExistingAircraft}},
        {ui.tab2Frame4, {ui.tab2cmdCreateNewFP}}};
    return steps[number];
}

void finishStep(QGroupBox *frame)
{
    showDone(frame);
    setEnabledAll(false, frame->findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
}

} // namespace

void setEnabledAll(bool on, const QList<QWidget *> &controls)
{
    for (QWidget *control : controls) {
        control->setEnabled(on);
    }
}

void enterStep(const Ui::FpSetPage &ui, StepNumber number)
{
    const StepFrame step = stepFrame(ui, number);
    step.frame->setEnabled(true);
    showCurrentStep(step.frame);
    setEnabledAll(true, step.controls);
    focusIfShown(step.controls.first()); // the step before is about to lose it
    if (number > Naming) {
        finishStep(stepFrame(ui, number - 1).frame);
    }
}

void giveUpStep(QGroupBox *frame)
{
    frame->setEnabled(false);
    finishStep(frame);
}

void offer(QPushButton *button, const QString &caption)
{
    button->setText(caption);
    button->setEnabled(true);
    focusIfShown(button);
}
