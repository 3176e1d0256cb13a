// SPDX-License-Identifier: MIT
// What the toolkit's controls lack.
#pragma once

#include <initializer_list>

class QAbstractButton;
class QWidget;

/// Gives a control the focus, unless it is hidden or disabled: then nothing happens.
void focusIfShown(QWidget *control);

/// Leaves none of some option buttons set, which the buttons alone would not allow.
void unsetOptions(std::initializer_list<QAbstractButton *> options);
