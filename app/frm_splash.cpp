// SPDX-License-Identifier: MIT
#include "app/frm_splash.h"

#include "app/version.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QMouseEvent>
#include <QThread>
#include <QWindow>

#include "ui_frm_splash.h"

using namespace Qt::StringLiterals;

frmSplash::frmSplash(QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint),
      ui(std::make_unique<Ui::frmSplash>())
{
    ui->setupUi(this);
    ui->lblVersion->setText(u"Version "_s + programVersion());
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
    ui->ProgressBar1->setRange(minimum, maximum);
    ui->ProgressBar1->setValue(minimum);
}

void frmSplash::setProgress(int value)
{
    QProgressBar &bar = *ui->ProgressBar1;
    const bool becomesFull = value >= bar.maximum() && bar.value() != bar.maximum();
    if (m_repaint.isDue() || becomesFull) {
        bar.setValue(qBound(bar.minimum(), value, bar.maximum()));
        paint();
    }
}

void frmSplash::setStatus(const QString &text)
{
    ui->lblStatus->setText(text);
    if (m_repaint.isDue()) {
        paint();
    }
}

void frmSplash::paint()
{
    // Until the main window is up, this window is all there is to click on or type at: its own
    // keys and clicks may come through, or they would come too late.
    if (isVisible()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    }
}

bool frmSplash::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        Frame1_Click();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
