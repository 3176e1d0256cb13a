// SPDX-License-Identifier: MIT
// How far a long loop has come.
#pragma once

#include "platform/controls/repaint.h"

class QProgressBar;

/// Shows a loop's way through its entries on a bar.
class Progress
{
public:
    /// A loop of `count` entries, at its first one.
    Progress(QProgressBar *bar, int count);

    /// The loop is at this entry: shown at most about 30 times a second, while the bar's page is.
    void show(int index);

private:
    QProgressBar *m_bar;
    Repaint m_repaint;
};
