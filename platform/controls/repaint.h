// SPDX-License-Identifier: MIT
// Painting during a long loop.
#pragma once

#include <QElapsedTimer>

/// Lets the window paint while a handler runs, at most about 30 times a second. Nothing but
/// painting gets through: no click or key re-enters the handler.
class Repaint
{
public:
    /// The first time is one interval away: what is done by then needs no progress.
    Repaint();

    /// Whether it is time to show progress again; call once per step.
    bool isDue();

    /// Paints everything that waits to be painted.
    static void now();

private:
    QElapsedTimer m_sinceLast;
};
