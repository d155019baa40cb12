#include "File.h"
#include "Wide.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <vector>

#include <windows.h>

namespace vdicom::platform {

namespace {

HANDLE Handle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); } // NOLINT

int LastError() {
    const DWORD error = GetLastError();
    return error != 0 ? static_cast<int>(error) : ERROR_GEN_FAILURE;
}

std::wstring FullPath(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::vector<wchar_t> full(size + 1);
    const DWORD length = GetFullPathNameW(path.c_str(), size + 1, full.data(), nullptr);
    return length == 0 || length > size ? path : std::wstring(full.data(), length);
}

/// The path of the file behind a symbolic link.
std::wstring TargetOf(HANDLE handle, const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const DWORD size = GetFinalPathNameByHandleW(handle, nullptr, 0, FILE_NAME_NORMALIZED);
    std::vector<wchar_t> final(size + 1);
    const DWORD length = GetFinalPathNameByHandleW(handle, final.data(), size + 1, FILE_NAME_NORMALIZED);
    return length == 0 || length > size ? path : std::wstring(final.data(), length);
}

std::wstring NewName(const std::wstring& beside) {
    static std::atomic<unsigned> counter{0};
    std::array<wchar_t, 64> name{};
    std::swprintf(name.data(), name.size(), L"DIC%lx.%lx.%x.tmp", GetCurrentProcessId(), GetTickCount(), counter++);
    return beside.substr(0, beside.find_last_of(L"\\/") + 1) + name.data();
}

/// While it is set, the file vanishes with its last handle.
bool SetVanishing(HANDLE handle, bool vanishing) {
    FILE_DISPOSITION_INFO information{};
    information.DeleteFile = vanishing ? TRUE : FALSE;
    return SetFileInformationByHandle(handle, FileDispositionInfo, &information, sizeof information) != 0;
}

/// Puts a finished file into the place of an old one, which others may have open for reading: Windows lets such a file
/// be renamed but not overwritten, so it is moved aside and deleted there; it is gone when its last reader is.
int Exchange(const std::wstring& made, const std::wstring& target) {
    const std::wstring aside = NewName(target);
    // Keeps attributes and access lists of the old file.
    if (ReplaceFileW(target.c_str(), made.c_str(), aside.c_str(), REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)) {
        DeleteFileW(aside.c_str());
        return 0;
    }
    if (GetFileAttributesW(target.c_str()) != INVALID_FILE_ATTRIBUTES) {
        // File systems without all of this; nobody may have it open.
        if (MoveFileExW(made.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return 0;
        if (!MoveFileExW(target.c_str(), aside.c_str(), 0))
            return LastError();
    }
    if (MoveFileExW(made.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH)) {
        DeleteFileW(aside.c_str());
        return 0;
    }
    const int error = LastError();
    MoveFileExW(aside.c_str(), target.c_str(), 0);
    return error;
}

} // namespace

int FileReplacement::Begin(const char* path, File& file) {
    Abandon();
    file.Close();
    const std::wstring wide = WidePath(path);
    if (wide.empty())
        return ERROR_FILE_NOT_FOUND;
    std::wstring target = FullPath(wide);
    if (target.starts_with(L"\\\\.\\")) { // a pipe or a device
        const int error = file.Open(path, {false, true, false, false});
        m_direct = m_active = error == 0;
        return error;
    }
    // The handle to the old file keeps out who wants to write, to replace or to delete; the data set itself and others
    // that share deletion may read on.
    const HANDLE old =
        CreateFileW(wide.c_str(), GENERIC_READ | DELETE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    const int error = old != INVALID_HANDLE_VALUE ? 0 : LastError();
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return NumberOf(FileRefusal::directory);
    if (error != 0 && error != ERROR_FILE_NOT_FOUND)
        return error;
    if (error == 0) {
        m_old.m_handle = reinterpret_cast<std::intptr_t>(old);
        target = TargetOf(old, target);
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            m_old.Close();
            return ERROR_ACCESS_DENIED;
        }
    }
    target = WidePath(FromWide(target.c_str()).c_str()); // a short relative path may have become a long one
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::wstring name = NewName(target);
        const HANDLE handle = CreateFileW(name.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_DELETE, nullptr, CREATE_NEW,
                                          FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle == INVALID_HANDLE_VALUE) {
            if (GetLastError() == ERROR_FILE_EXISTS || GetLastError() == ERROR_ALREADY_EXISTS)
                continue;
            break;
        }
        SetVanishing(handle, true);
        m_target = FromWide(target.c_str());
        m_temporary = FromWide(name.c_str());
        m_active = true;
        const int adopted = file.Adopt(reinterpret_cast<std::intptr_t>(handle), {false, true, true, false});
        if (adopted != 0) {
            CloseHandle(handle);
            Abandon();
        }
        return adopted;
    }
    const int failed = LastError();
    m_old.Close();
    return failed;
}

int FileReplacement::Commit(File& file) {
    if (!m_active || !file.IsOpen())
        return ERROR_INVALID_HANDLE;
    if (m_direct) {
        m_direct = m_active = false;
        return file.Close();
    }
    int error = m_old.IsOpen() ? file.Sync() : 0;
    if (error == 0 && !SetVanishing(Handle(file.m_handle), false))
        error = LastError();
    const int closed = file.Close();
    if (error == 0)
        error = closed;
    const bool replaces = m_old.IsOpen();
    m_old.Close();
    if (error == 0) {
        const std::wstring made = WidePath(m_temporary.c_str());
        const std::wstring target = WidePath(m_target.c_str());
        if (replaces)
            error = Exchange(made, target);
        else if (!MoveFileExW(made.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            error = LastError();
    }
    if (error == 0)
        m_temporary.clear();
    Abandon();
    return error;
}

void FileReplacement::Abandon() {
    // The file vanished with its handle unless it had been finished.
    if (!m_temporary.empty())
        DeleteFileW(WidePath(m_temporary.c_str()).c_str());
    m_old.Close();
    m_target.clear();
    m_temporary.clear();
    m_direct = m_active = false;
}

} // namespace vdicom::platform
