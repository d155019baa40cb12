#include "VDicomConsole.h"

#include <cerrno>
#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

void VDicomConsole::Prepare() {}

const char* const* VDicomConsole::GetArguments(int argc, char** argv, int* count) {
    *count = argc;
    return argv;
}

unsigned int VDicomConsole::IsTerminal(unsigned int stream) { return isatty(static_cast<int>(stream)) == 1 ? 1 : 0; }

VDicomULong VDicomConsole::GetColumns(unsigned int stream) {
    winsize size{};
    if (ioctl(static_cast<int>(stream), TIOCGWINSZ, &size) != 0)
        return 0;
    return size.ws_col;
}

unsigned int VDicomConsole::Write(unsigned int stream, const void* bytes, std::size_t size, int* error) {
    const auto* at = static_cast<const char*>(bytes);
    while (size > 0) {
        const ssize_t taken = write(static_cast<int>(stream), at, size);
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken <= 0) {
            if (error)
                *error = taken < 0 ? errno : EIO;
            return 0;
        }
        at += taken;
        size -= static_cast<std::size_t>(taken);
    }
    return 1;
}

std::intptr_t VDicomConsole::GetHandle(unsigned int stream) { return static_cast<std::intptr_t>(stream); }
