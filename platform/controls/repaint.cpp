// SPDX-License-Identifier: MIT
#include "platform/controls/repaint.h"

#include <QCoreApplication>

Repaint::Repaint()
{
    m_sinceLast.start();
}

bool Repaint::isDue()
{
    constexpr qint64 interval = 33; // milliseconds
    if (m_sinceLast.elapsed() >= interval) {
        m_sinceLast.start();
        return true;
    }
    return false;
}

void Repaint::now()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                    QEventLoop::ExcludeSocketNotifiers);
}
