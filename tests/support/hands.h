// SPDX-License-Identifier: MIT
// Mouse and keyboard of the window system, as it hears them of a user. Throws std::runtime_error.
#pragma once

#include <QPoint>
#include <QString>

namespace hands
{

void movePointer(const QPoint &place); ///< on the screen
void click(int times);
void mouseDown();
void mouseUp();
void press(const QString &keys); ///< "Return", "ctrl+q"
void type(const QString &text);

/// The host's file dialog, where it is no window of the program's own.
bool isFileDialogOpen();

/// Keeps a picture of the screen.
void shoot(const QString &file);

} // namespace hands
