// SPDX-License-Identifier: MIT
// What controls look like: where the user is to go on, what is done, what the mouse is over.
#pragma once

class QWidget;

void setBold(QWidget *control, bool bold);

/// Bold red: where the user is to go on. Of a frame, the caption alone.
void showCurrentStep(QWidget *control);

/// The system's text colour, not bold: done.
void showDone(QWidget *control);
