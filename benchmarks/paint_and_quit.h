// SPDX-License-Identifier: MIT
// Ends a program once a widget of it has been painted.
#pragma once

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

/// Ends the process when the first paint of the widget is done, without tidying up: how long that
/// takes is no part of a start.
class PaintAndQuit : public QObject
{
public:
    explicit PaintAndQuit(QWidget *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, this, [] { std::_Exit(EXIT_SUCCESS); });
        }
        return false;
    }
};
