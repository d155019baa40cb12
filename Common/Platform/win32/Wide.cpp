#include "Wide.h"

#include <windows.h>

namespace vdicom::platform {

bool ToWide(const char* text, std::wstring& wide) {
    wide.clear();
    const int size = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text, -1, nullptr, 0);
    if (size <= 0)
        return false;
    wide.resize(static_cast<std::size_t>(size));
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text, -1, wide.data(), size);
    wide.pop_back(); // the zero
    return true;
}

std::string FromWide(const wchar_t* wide) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 0)
        return {};
    std::string text(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
    text.pop_back();
    return text;
}

std::wstring WidePath(const char* path) {
    std::wstring wide;
    if (path == nullptr || *path == '\0' || !ToWide(path, wide))
        return {};
    constexpr std::size_t kShort = 200; // below MAX_PATH with room for a temporary name
    if (wide.size() < kShort || wide.starts_with(L"\\\\?\\") || wide.starts_with(L"\\\\.\\"))
        return wide;
    const DWORD size = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = GetFullPathNameW(wide.c_str(), size, full.data(), nullptr);
    if (length == 0 || length >= size)
        return wide;
    full.resize(length);
    if (full.starts_with(L"\\\\"))
        return L"\\\\?\\UNC" + full.substr(1);
    return L"\\\\?\\" + full;
}

} // namespace vdicom::platform
