// SPDX-License-Identifier: MIT
// A user at a real display: mouse and keys come from the window system, not from the toolkit.
#pragma once

#include <QMainWindow>
#include <QString>

#include <functional>

/// Lives in a thread of its own, so that it can go on while the program shows a modal box. Every
/// step waits until what it needs is on the screen; a step that cannot be done throws
/// std::runtime_error with the name of what was missing.
class RealUser
{
public:
    explicit RealUser(QMainWindow &window) : m_window(window) {}

    /// Runs the user's steps beside the program, until both are done. Returns what went wrong,
    /// empty when nothing did. The application is left when the steps end.
    static QString run(QMainWindow &window, const std::function<void(RealUser &)> &steps);

    void click(const QString &control);
    void clickCheckBox(const QString &list, int row);
    void clickEntry(const QString &list, int row);
    void doubleClickEntry(const QString &list, int row);
    void dragEntry(const QString &list, int row, const QString &target); ///< and drops it there
    /// Drags an entry over a control and leaves it there, the button still down.
    void beginDrag(const QString &list, int row, const QString &target);
    void drop();
    void clickTab(int page);
    void moveTo(const QString &control);
    void press(const QString &keys); ///< as xdotool names them: "Return", "ctrl+q"
    void type(const QString &text);

    /// The text of the message box that is open, as "title|text"; waits for one.
    QString box();
    void answer(const QString &button); ///< of the message box: "OK", "Yes", "No"

    /// Waits for the file dialog and gives it a host path.
    void chooseFile(const QString &hostPath);

    /// Waits until it is so.
    void await(const QString &what, const std::function<bool()> &isSo);

    void closeWindow(); ///< by the window manager

    /// Keeps a picture of the screen where $SCREENSHOTS says, if it does.
    static void shoot(const QString &name);

private:
    void clickAt(const QPoint &global, int times = 1);
    QPoint entryPosition(const QString &list, int row, bool checkBox);
    QPoint centre(QWidget *widget);
    QWidget *shown(const QString &control);

    QMainWindow &m_window;
};
