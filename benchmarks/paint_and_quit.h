// SPDX-License-Identifier: MIT
// Ends a program once a widget of it has been painted.
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

/// Quits when the first paint of the widget is done.
class PaintAndQuit : public QObject
{
public:
    explicit PaintAndQuit(QWidget *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
        }
        return false;
    }
};
