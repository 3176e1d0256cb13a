// SPDX-License-Identifier: MIT
#include "platform/control_style.h"

#include <QAbstractButton>
#include <QApplication>

namespace
{

void setBold(QWidget *control, bool bold)
{
    QFont font = control->font();
    font.setBold(bold);
    control->setFont(font);
}

} // namespace

void showCurrentStep(QWidget *control)
{
    QPalette palette = control->palette();
    palette.setColor(QPalette::WindowText, Qt::red);
    palette.setColor(QPalette::ButtonText, Qt::red);
    control->setPalette(palette);
    setBold(control, true);
}

void showDone(QWidget *control)
{
    control->setPalette(QPalette());
    setBold(control, false);
}

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

WaitPointer::WaitPointer()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitPointer::~WaitPointer()
{
    QApplication::restoreOverrideCursor();
}
