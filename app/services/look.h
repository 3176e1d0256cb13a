// SPDX-License-Identifier: MIT
// How the program shows where its user is to go on.
#pragma once

class QWidget;

/// Bold red: where the user is to go on.
void showCurrentStep(QWidget *control);

/// The system's text colour, not bold: done.
void showDone(QWidget *control);
