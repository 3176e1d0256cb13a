// SPDX-License-Identifier: MIT
#include "app/frm_splash.h"

#include "app/version.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QMouseEvent>
#include <QThread>
#include <QWindow>

#include "ui_frm_splash.h"

frmSplash::frmSplash(QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint),
      ui(std::make_unique<Ui::frmSplash>())
{
    ui->setupUi(this);
    ui->lblVersion->setText("Version " + programVersion());
    ui->Frame1->installEventFilter(this);
    setFixedSize(sizeHint());
}

frmSplash::~frmSplash() = default;

void frmSplash::showPainted()
{
    constexpr int longestWait = 250; // milliseconds; a window manager may be slow, or none
    show();
    activateWindow(); // a window manager may leave a splash without the keyboard
    const QDeadlineTimer deadline(longestWait);
    paint();
    while (isVisible() && !windowHandle()->isExposed() && !deadline.hasExpired()) {
        QThread::msleep(1);
        paint();
    }
}

void frmSplash::setProgressRange(int minimum, int maximum)
{
    m_progress = minimum;
    ui->ProgressBar1->setRange(minimum, maximum);
    ui->ProgressBar1->setValue(minimum);
}

void frmSplash::setProgress(int value)
{
    const int before = m_progress;
    const int full = ui->ProgressBar1->maximum();
    m_progress = qBound(ui->ProgressBar1->minimum(), value, full);
    if (m_progress == full && m_progress != before) {
        showProgress();
    }
    paintIfDue();
}

void frmSplash::setStatus(const QString &text)
{
    if (text != ui->lblStatus->text()) {
        ui->lblStatus->setText(text);
    }
    paintIfDue();
}

void frmSplash::paintIfDue()
{
    if (m_repaint.isDue()) {
        showProgress();
        paint();
    }
}

void frmSplash::showProgress()
{
    ui->ProgressBar1->setValue(m_progress);
}

void frmSplash::paint()
{
    // Until the main window is up, this window is all there is to click on or type at: its own
    // keys and clicks may come through, or they would come too late.
    if (isVisible()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    }
}

void frmSplash::keyPressEvent(QKeyEvent * /*event*/)
{
    Form_KeyPress();
}

bool frmSplash::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        Frame1_Click();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmSplash::Form_KeyPress()
{
    close();
}

void frmSplash::Frame1_Click()
{
    close();
}
