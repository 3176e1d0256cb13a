// SPDX-License-Identifier: MIT
#include "platform/controls/wait_pointer.h"

#include <QApplication>

WaitPointer::WaitPointer()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitPointer::~WaitPointer()
{
    QApplication::restoreOverrideCursor();
}
