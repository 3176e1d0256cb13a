// SPDX-License-Identifier: MIT
// Small things the pages do to controls.
#pragma once

#include <initializer_list>

class QAbstractButton;
class QWidget;

/// Bold red: where the user is to go on.
void showCurrentStep(QWidget *control);

/// The system's text colour, not bold: done.
void showDone(QWidget *control);

/// Gives a control the focus, unless it is hidden or disabled: then nothing happens.
void focusIfShown(QWidget *control);

/// Leaves none of some option buttons set, which the buttons alone would not allow.
void unsetOptions(std::initializer_list<QAbstractButton *> options);

/// The hourglass, for its lifetime.
class WaitPointer
{
public:
    WaitPointer();
    ~WaitPointer();
    WaitPointer(const WaitPointer &) = delete;
    WaitPointer &operator=(const WaitPointer &) = delete;
};
