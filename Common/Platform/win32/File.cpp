#include "File.h"
#include "Wide.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>

#include <windows.h>

namespace vdicom::platform {

namespace {

constexpr std::size_t kMaxTransfer = std::size_t{1} << 30;

HANDLE Handle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); } // NOLINT

int LastError() {
    const DWORD error = GetLastError();
    return error != 0 ? static_cast<int>(error) : ERROR_GEN_FAILURE;
}

OVERLAPPED At(std::uint64_t position) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(position & 0xFFFFFFFFU);
    place.OffsetHigh = static_cast<DWORD>(position >> 32);
    return place;
}

/// What a file is on the disk.
bool Identity(HANDLE handle, std::uint64_t& volume, std::uint64_t& index) {
    BY_HANDLE_FILE_INFORMATION information{};
    if (!GetFileInformationByHandle(handle, &information))
        return false;
    volume = information.dwVolumeSerialNumber;
    index = (static_cast<std::uint64_t>(information.nFileIndexHigh) << 32) | information.nFileIndexLow;
    return true;
}

} // namespace

int NumberOf(FileRefusal refusal) {
    switch (refusal) {
    case FileRefusal::directory:
        return 336; // ERROR_DIRECTORY_NOT_SUPPORTED
    case FileRefusal::device:
        return ERROR_BAD_DEVICE;
    case FileRefusal::tooLarge:
        return ERROR_FILE_TOO_LARGE;
    case FileRefusal::notOpen:
        return ERROR_INVALID_HANDLE;
    case FileRefusal::memory:
        return ERROR_NOT_ENOUGH_MEMORY;
    case FileRefusal::inUse:
        return ERROR_SHARING_VIOLATION;
    case FileRefusal::argument:
        break;
    }
    return ERROR_INVALID_PARAMETER;
}

int File::Inspect(FileMode mode) {
    const HANDLE handle = Handle(m_handle);
    m_initialSize = m_initialPosition = m_volume = m_index = 0;
    SetLastError(NO_ERROR);
    switch (GetFileType(handle)) {
    case FILE_TYPE_DISK: {
        m_kind = FileKind::regular;
        LARGE_INTEGER size{};
        if (!GetFileSizeEx(handle, &size))
            return LastError();
        m_initialSize = static_cast<std::uint64_t>(size.QuadPart);
        return 0;
    }
    case FILE_TYPE_PIPE:
        m_kind = FileKind::pipe;
        return mode.read && mode.write ? ERROR_INVALID_PARAMETER : 0;
    case FILE_TYPE_CHAR:
        m_kind = FileKind::device;
        return mode.read ? ERROR_BAD_DEVICE : 0;
    default:
        return GetLastError() != NO_ERROR ? LastError() : ERROR_BAD_DEVICE;
    }
}

int File::Open(const char* path, FileMode mode) {
    Close();
    const std::wstring wide = WidePath(path);
    if (wide.empty())
        return ERROR_FILE_NOT_FOUND;
    DWORD access = mode.write ? GENERIC_WRITE : GENERIC_READ;
    if (mode.read)
        access |= GENERIC_READ;
    // A file that is being read can be moved away, so that it can be replaced; one that is written is nobody else's.
    const DWORD share = mode.write ? 0 : FILE_SHARE_READ | FILE_SHARE_DELETE;
    const DWORD flags = FILE_ATTRIBUTE_NORMAL | (mode.deleteOnClose ? FILE_FLAG_DELETE_ON_CLOSE : 0) |
                        (mode.read && mode.write ? 0 : FILE_FLAG_SEQUENTIAL_SCAN);
    const HANDLE handle =
        CreateFileW(wide.c_str(), access, share, nullptr, mode.create ? OPEN_ALWAYS : OPEN_EXISTING, flags, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        const int error = LastError();
        const DWORD attributes = GetFileAttributesW(wide.c_str());
        return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0
                   ? NumberOf(FileRefusal::directory)
                   : error;
    }
    m_handle = reinterpret_cast<std::intptr_t>(handle);
    int error = Inspect(mode);
    if (error == 0 && mode.create && m_initialSize != 0) {
        error = Truncate(0);
        m_initialSize = 0;
    }
    if (error != 0)
        Close();
    return error;
}

int File::OpenTemporary(const char* folder) {
    Close();
    std::wstring prefix = WidePath(folder);
    if (prefix.empty()) {
        std::array<wchar_t, MAX_PATH + 2> system{};
        const DWORD length = GetTempPathW(static_cast<DWORD>(system.size()), system.data());
        if (length == 0 || length > system.size())
            return ERROR_PATH_NOT_FOUND;
        prefix.assign(system.data(), length);
    }
    if (!prefix.ends_with(L'\\') && !prefix.ends_with(L'/'))
        prefix += L'\\';
    static std::atomic<unsigned> counter{0};
    for (int attempt = 0; attempt < 1000; ++attempt) {
        std::array<wchar_t, 64> name{};
        std::swprintf(name.data(), name.size(), L"DIC%lx.%lx.%x.tmp", GetCurrentProcessId(), GetTickCount(), counter++);
        const HANDLE handle =
            CreateFileW((prefix + name.data()).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_DELETE,
                        nullptr, CREATE_NEW, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (handle != INVALID_HANDLE_VALUE) {
            m_handle = reinterpret_cast<std::intptr_t>(handle);
            const int error = Inspect({true, true, true, false});
            if (error != 0)
                Close();
            return error;
        }
        if (GetLastError() != ERROR_FILE_EXISTS && GetLastError() != ERROR_ALREADY_EXISTS)
            return LastError();
    }
    return ERROR_FILE_EXISTS;
}

int File::Adopt(std::intptr_t handle, FileMode mode) {
    Close();
    if (handle == kNone || handle == 0)
        return ERROR_INVALID_HANDLE;
    m_handle = handle;
    const int error = Inspect(mode);
    if (error != 0) {
        m_handle = kNone;
        return error;
    }
    if (m_kind == FileKind::regular) {
        LARGE_INTEGER place{};
        if (SetFilePointerEx(Handle(handle), LARGE_INTEGER{}, &place, FILE_CURRENT))
            m_initialPosition = static_cast<std::uint64_t>(place.QuadPart);
    }
    return 0;
}

int File::Close() {
    if (m_handle == kNone)
        return 0;
    const HANDLE handle = Handle(m_handle);
    m_handle = kNone;
    return CloseHandle(handle) ? 0 : LastError();
}

int File::ReadAt(std::uint64_t position, void* buffer, std::size_t size, std::size_t& done) const {
    done = 0;
    auto* out = static_cast<unsigned char*>(buffer);
    while (done < size) {
        OVERLAPPED place = At(position + done);
        DWORD count = 0;
        if (!ReadFile(Handle(m_handle), out + done, static_cast<DWORD>(std::min(size - done, kMaxTransfer)), &count,
                      &place)) {
            if (GetLastError() == ERROR_HANDLE_EOF)
                break;
            return LastError();
        }
        if (count == 0)
            break;
        done += count;
    }
    return 0;
}

int File::WriteAt(std::uint64_t position, const void* buffer, std::size_t size, std::size_t& done) const {
    done = 0;
    const auto* in = static_cast<const unsigned char*>(buffer);
    while (done < size) {
        OVERLAPPED place = At(position + done);
        DWORD count = 0;
        if (!WriteFile(Handle(m_handle), in + done, static_cast<DWORD>(std::min(size - done, kMaxTransfer)), &count,
                       &place))
            return LastError();
        if (count == 0)
            return ERROR_WRITE_FAULT;
        done += count;
    }
    return 0;
}

int File::CopyFrom(const File&, std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t& done) const {
    done = 0;
    return 0;
}

int File::Truncate(std::uint64_t size) const {
    LARGE_INTEGER end{};
    end.QuadPart = static_cast<LONGLONG>(size);
    return SetFilePointerEx(Handle(m_handle), end, nullptr, FILE_BEGIN) && SetEndOfFile(Handle(m_handle)) ? 0
                                                                                                          : LastError();
}

int File::Sync() const { return FlushFileBuffers(Handle(m_handle)) ? 0 : LastError(); }

int File::ReadNext(void* buffer, std::size_t size, std::size_t& done) const {
    done = 0;
    for (;;) {
        DWORD count = 0;
        if (!ReadFile(Handle(m_handle), buffer, static_cast<DWORD>(std::min(size, kMaxTransfer)), &count, nullptr)) {
            // The writer has closed its end.
            const DWORD error = GetLastError();
            return error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF || error == ERROR_PIPE_NOT_CONNECTED
                       ? 0
                       : LastError();
        }
        // A message of no bytes is not the end of a pipe.
        if (count == 0 && m_kind == FileKind::pipe)
            continue;
        done = count;
        return 0;
    }
}

int File::WriteNext(const void* buffer, std::size_t size, std::size_t& done) const {
    done = 0;
    const auto* in = static_cast<const unsigned char*>(buffer);
    while (done < size) {
        DWORD count = 0;
        if (!WriteFile(Handle(m_handle), in + done, static_cast<DWORD>(std::min(size - done, kMaxTransfer)), &count,
                       nullptr))
            return LastError();
        if (count == 0)
            return ERROR_WRITE_FAULT;
        done += count;
    }
    return 0;
}

bool File::IsAt(const char* path) const {
    const std::wstring wide = WidePath(path);
    if (!IsOpen() || wide.empty())
        return false;
    // No access at all is asked for, so that files opened by others can be looked at too.
    const HANDLE handle = CreateFileW(wide.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    std::uint64_t volume = 0;
    std::uint64_t index = 0;
    std::uint64_t ourVolume = 0;
    std::uint64_t ourIndex = 0;
    const bool same = Identity(handle, volume, index) && Identity(Handle(m_handle), ourVolume, ourIndex) &&
                      volume == ourVolume && index == ourIndex;
    CloseHandle(handle);
    return same;
}

int CheckFolder(const char* path) {
    const std::wstring wide = WidePath(path);
    if (wide.empty())
        return ERROR_PATH_NOT_FOUND;
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return LastError();
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? 0 : ERROR_DIRECTORY;
}

// The system keeps a journal of names; there is no call for folders.
int SyncFolder(const char* path) { return CheckFolder(path); }

} // namespace vdicom::platform
