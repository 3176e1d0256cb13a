// SPDX-License-Identifier: MIT
// By xdotool.
#include "tests/support/hands.h"

#include <QProcess>

#include <stdexcept>

namespace
{

void tool(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0) {
        throw std::runtime_error((program + ' ' + arguments.join(' ')).toStdString());
    }
}

} // namespace

void hands::movePointer(const QPoint &place)
{
    tool("xdotool", {"mousemove", QString::number(place.x()), QString::number(place.y())});
}

void hands::click(int times)
{
    tool("xdotool", {"click", "--repeat", QString::number(times), "--delay", "60", "1"});
}

void hands::mouseDown()
{
    tool("xdotool", {"mousedown", "1"});
}

void hands::mouseUp()
{
    tool("xdotool", {"mouseup", "1"});
}

void hands::press(const QString &keys)
{
    tool("xdotool", {"key", keys});
}

void hands::type(const QString &text)
{
    tool("xdotool", {"type", "--delay", "1", text});
}

bool hands::isFileDialogOpen()
{
    return false; // the toolkit's is a window of the program
}

void hands::shoot(const QString &file)
{
    tool("import", {"-window", "root", file});
}
