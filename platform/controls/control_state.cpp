// SPDX-License-Identifier: MIT
#include "platform/controls/control_state.h"

#include <QAbstractButton>

void focusIfShown(QWidget *control)
{
    if (control->isVisible() && control->isEnabled()) {
        control->setFocus();
    }
}

void unsetOptions(std::initializer_list<QAbstractButton *> options)
{
    for (QAbstractButton *option : options) {
        option->setAutoExclusive(false);
        option->setChecked(false);
        option->setAutoExclusive(true);
    }
}
