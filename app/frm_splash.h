// SPDX-License-Identifier: MIT
// What is on the screen while the program loads.
#pragma once

#include "platform/controls/repaint.h"

#include <QWidget>

#include <memory>

namespace Ui
{
class frmSplash;
}

/// Name, version and how far the loading is. A key, or a click on its frame, closes it; what is
/// reported to it afterwards is not shown.
///
/// Reporting costs next to nothing: it is shown at most about 30 times a second, and whenever the
/// bar becomes full.
class frmSplash : public QWidget
{
    Q_OBJECT

public:
    explicit frmSplash(QWidget *parent = nullptr);
    ~frmSplash() override;

    /// Shows the window and waits, for a moment at most, until it is painted.
    void showPainted();

    void setProgressRange(int minimum, int maximum);
    void setProgress(int value); ///< beyond the maximum: full
    void setStatus(const QString &text);

protected:
    void keyPressEvent(QKeyEvent * /*event*/) override { Form_KeyPress(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Form_KeyPress() { close(); }

    void Frame1_Click() { close(); }

    void paint();

    std::unique_ptr<Ui::frmSplash> ui;
    Repaint m_repaint;
};
