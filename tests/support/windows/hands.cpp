// SPDX-License-Identifier: MIT
// By the input queue of Windows.
#include "tests/support/hands.h"

#include <QHash>
#include <QStringList>
#include <QThread>

#include <stdexcept>

#include <windows.h>

namespace
{

void send(INPUT input)
{
    if (::SendInput(1, &input, sizeof input) != 1) {
        throw std::runtime_error("no input is taken");
    }
}

void mouse(DWORD what)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = what;
    send(input);
}

void key(WORD code, WORD character, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.wScan = character;
    input.ki.dwFlags = flags;
    send(input);
}

WORD codeOf(const QString &name)
{
    static const QHash<QString, WORD> codes = {
        {"ctrl", VK_CONTROL},  {"alt", VK_MENU},      {"Return", VK_RETURN}, {"Escape", VK_ESCAPE},
        {"Insert", VK_INSERT}, {"Delete", VK_DELETE}, {"Menu", VK_APPS},     {"Down", VK_DOWN},
        {"End", VK_END},       {"F4", VK_F4}};
    return codes.value(name, static_cast<WORD>(name.size() == 1 ? name[0].toUpper().unicode() : 0));
}

} // namespace

void hands::movePointer(const QPoint &place)
{
    constexpr unsigned long pause = 20; // milliseconds: a hand does not jump
    INPUT input = {};
    input.type = INPUT_MOUSE;
    const int width = ::GetSystemMetrics(SM_CXSCREEN);
    const int height = ::GetSystemMetrics(SM_CYSCREEN);
    input.mi.dx = (place.x() * 65536 + width / 2) / width;
    input.mi.dy = (place.y() * 65536 + height / 2) / height;
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    send(input);
    QThread::msleep(pause);
}

void hands::click(int times)
{
    constexpr unsigned long pause = 60; // milliseconds
    for (int i = 0; i < times; ++i) {
        mouseDown();
        mouseUp();
        QThread::msleep(pause);
    }
}

void hands::mouseDown()
{
    mouse(MOUSEEVENTF_LEFTDOWN);
}

void hands::mouseUp()
{
    mouse(MOUSEEVENTF_LEFTUP);
}

void hands::press(const QString &keys)
{
    QStringList names = keys.split('+');
    for (const QString &name : names) {
        key(codeOf(name), 0, 0);
    }
    while (!names.isEmpty()) {
        key(codeOf(names.takeLast()), 0, KEYEVENTF_KEYUP);
    }
}

void hands::type(const QString &text)
{
    for (const QChar character : text) {
        key(0, character.unicode(), KEYEVENTF_UNICODE);
        key(0, character.unicode(), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}

bool hands::isFileDialogOpen()
{
    const HWND window = ::GetForegroundWindow();
    wchar_t name[32] = {};
    ::GetClassNameW(window, &name[0], 32);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    return QString::fromWCharArray(&name[0]) == "#32770" && process == ::GetCurrentProcessId();
}

void hands::shoot(const QString & /*file*/)
{
    // Wine's screen is the host's, which keeps its own.
}
