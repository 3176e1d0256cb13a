// SPDX-License-Identifier: MIT
// What the tests start: writes its arguments as it was given them, and the folder it works in, into
// a file, and ends with the number of its name ("exit7.exe"). helper FILE...
#include <cstdio>
#include <cwchar>
#include <string>

#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR arguments, int show)
{
    wchar_t program[MAX_PATH] = {};
    wchar_t folder[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    ::GetCurrentDirectoryW(MAX_PATH, folder);
    const std::wstring report = std::wstring(program).append(L".txt");
    if (FILE *const file = _wfopen(report.c_str(), L"wb")) {
        std::fprintf(file, "%ls|%ls|%d", arguments, folder, show);
        std::fclose(file);
    }
    if (wcsstr(arguments, L"wait") != nullptr) {
        ::Sleep(1500);
    }
    const wchar_t *const number = wcsstr(program, L"exit");
    return number != nullptr ? static_cast<int>(wcstol(number + 4, nullptr, 10)) : 0;
}
