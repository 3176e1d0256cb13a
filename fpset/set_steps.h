// SPDX-License-Identifier: MIT
// The steps in which a flight plan set is made: a frame each, of which one is the current one.
#pragma once

#include <QList>
#include <QString>

namespace Ui
{
class FpSetPage;
}

class QGroupBox;
class QPushButton;
class QWidget;

enum StepNumber { Naming, Airports, Aircraft, Creation };

void setEnabledAll(bool on, const QList<QWidget *> &controls);

/// Makes a step the current one and finishes the one before.
void enterStep(const Ui::FpSetPage &ui, StepNumber number);

/// Disables a step that is not the current one any more.
void giveUpStep(QGroupBox *frame);

/// Lets the button of a step be used, as the option chosen has it.
void offer(QPushButton *button, const QString &caption);
