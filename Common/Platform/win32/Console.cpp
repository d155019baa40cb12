#include "VDicomConsole.h"

#include <algorithm>
#include <string>
#include <vector>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace {

HANDLE HandleOf(unsigned int stream) {
    constexpr DWORD numbers[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    return stream < 3 ? GetStdHandle(numbers[stream]) : INVALID_HANDLE_VALUE;
}

struct Arguments {
    std::vector<std::string> texts;
    std::vector<const char*> pointers;
};

} // namespace

void VDicomConsole::Prepare() {
    SetConsoleOutputCP(CP_UTF8);
    for (const unsigned int stream : {1U, 2U}) {
        DWORD mode = 0;
        constexpr DWORD sequences = 0x0004; // ENABLE_VIRTUAL_TERMINAL_PROCESSING
        if (GetConsoleMode(HandleOf(stream), &mode))
            SetConsoleMode(HandleOf(stream), mode | sequences);
    }
}

const char* const* VDicomConsole::GetArguments(int argc, char** argv, int* count) {
    *count = argc;
    // shell32 is taken by name: it is of no use to anybody who only loads the library.
    using Split = LPWSTR*(WINAPI*)(LPCWSTR, int*);
    const HMODULE shell = LoadLibraryW(L"shell32.dll");
    if (!shell)
        return argv;
    const FARPROC address = GetProcAddress(shell, "CommandLineToArgvW");
    if (!address)
        return argv;
    const auto split = reinterpret_cast<Split>(reinterpret_cast<void*>(address));
    int wideCount = 0;
    LPWSTR* wide = split(GetCommandLineW(), &wideCount);
    if (!wide)
        return argv;
    static Arguments arguments;
    for (int i = 0; i < wideCount; ++i) {
        const int size = WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, nullptr, 0, nullptr, nullptr);
        std::string text(static_cast<std::size_t>(std::max(size, 1)), '\0');
        WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, text.data(), size, nullptr, nullptr);
        text.pop_back();
        arguments.texts.push_back(std::move(text));
    }
    LocalFree(wide);
    for (const std::string& text : arguments.texts)
        arguments.pointers.push_back(text.c_str());
    arguments.pointers.push_back(nullptr);
    *count = wideCount;
    return arguments.pointers.data();
}

unsigned int VDicomConsole::IsTerminal(unsigned int stream) {
    DWORD mode = 0;
    return GetConsoleMode(HandleOf(stream), &mode) ? 1 : 0;
}

VDicomULong VDicomConsole::GetColumns(unsigned int stream) {
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!GetConsoleScreenBufferInfo(HandleOf(stream), &info))
        return 0;
    return static_cast<VDicomULong>(info.srWindow.Right - info.srWindow.Left + 1);
}

unsigned int VDicomConsole::Write(unsigned int stream, const void* bytes, std::size_t size, int* error) {
    const auto* at = static_cast<const char*>(bytes);
    while (size > 0) {
        const auto part = static_cast<DWORD>(std::min<std::size_t>(size, 1U << 20));
        DWORD taken = 0;
        if (!WriteFile(HandleOf(stream), at, part, &taken, nullptr) || taken == 0) {
            if (error)
                *error = static_cast<int>(GetLastError());
            return 0;
        }
        at += taken;
        size -= taken;
    }
    return 1;
}

std::intptr_t VDicomConsole::GetHandle(unsigned int stream) {
    return reinterpret_cast<std::intptr_t>(HandleOf(stream));
}
