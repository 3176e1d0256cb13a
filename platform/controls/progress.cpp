// SPDX-License-Identifier: MIT
#include "platform/controls/progress.h"

#include <QProgressBar>

Progress::Progress(QProgressBar *bar, int count) : m_bar(bar)
{
    m_bar->setRange(0, qMax(1, count)); // an empty range would stand for one nobody knows
    m_bar->setValue(0);
}

void Progress::show(int index)
{
    if (m_bar->isVisible() && m_repaint.isDue()) {
        m_bar->setValue(index);
        Repaint::now();
    }
}
