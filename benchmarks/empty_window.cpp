// SPDX-License-Identifier: MIT
// The least a program of this toolkit takes to start: an empty window, painted.
#include "benchmarks/paint_and_quit.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(940, 660);
    const PaintAndQuit end(&window);
    window.show();
    return QApplication::exec();
}
