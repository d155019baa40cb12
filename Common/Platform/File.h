/// @file File.h
/// Files: opened, read and written at positions, replaced as a whole. Implemented in posix/ and in win32/ with one
/// contract; nobody outside these folders asks which platform it is.
///
/// Paths are UTF-8 on every platform. Operations return 0 or the platform's own error number (errno, GetLastError).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace vdicom::platform {

enum class FileKind {
    regular, ///< has positions and a size
    pipe,    ///< a FIFO, a pipe or a socket: bytes in one order only
    device   ///< a terminal, a null device ...: can only be written to
};

/// Reasons for which the library itself refuses something; each has a number of the platform.
enum class FileRefusal { directory, device, tooLarge, notOpen, memory, argument, inUse };
int NumberOf(FileRefusal refusal);

struct FileMode {
    bool read = false;
    bool write = false;
    bool create = false;        ///< truncated or made anew; without it the file must exist
    bool deleteOnClose = false; ///< the file's name vanishes when it is closed
};

/// An open file. Moves, does not copy; closes itself.
class File {
public:
    static constexpr std::intptr_t kNone = -1;

    File() = default;
    ~File() { Close(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    File(File&& other) noexcept { Swap(other); }
    File& operator=(File&& other) noexcept {
        Swap(other);
        return *this;
    }

    /// Opens a file. Reading: regular files and pipes only; a pipe that nobody writes to opens at once and is empty.
    /// Writing: a regular file is locked against other writers, and only then truncated; pipes and devices (no disks)
    /// are opened as they are.
    int Open(const char* path, FileMode mode);
    /// Makes a file that vanishes with the process, however that ends, in `folder` (null or empty: the platform's).
    /// It is open for reading and writing.
    int OpenTemporary(const char* folder);
    /// Takes over an open handle. Left to the caller when it fails.
    int Adopt(std::intptr_t handle, FileMode mode);
    /// 0 also when nothing was open.
    int Close();

    bool IsOpen() const { return m_handle != kNone; }
    FileKind Kind() const { return m_kind; }
    /// The size when the file was opened; 0 for pipes and devices.
    std::uint64_t InitialSize() const { return m_initialSize; }
    /// The place at which an adopted handle stood.
    std::uint64_t InitialPosition() const { return m_initialPosition; }

    /// Regular files. `done` is the number of bytes moved; after reading it is less than `size` only at the end of
    /// the file or after an error.
    int ReadAt(std::uint64_t position, void* buffer, std::size_t size, std::size_t& done) const;
    int WriteAt(std::uint64_t position, const void* buffer, std::size_t size, std::size_t& done) const;
    /// Copies a range of another regular file to `position` without taking the bytes through the process, where the
    /// system can do so. `done` less than `size` without an error: it cannot, or the source ends; go on by reading.
    int CopyFrom(const File& source, std::uint64_t sourcePosition, std::uint64_t position, std::uint64_t size,
                 std::uint64_t& done) const;
    int Truncate(std::uint64_t size) const;
    /// Puts what was written onto the disk.
    int Sync() const;

    /// Pipes and devices. Reading waits for some bytes; `done` 0 is the end. Writing to a pipe without a reader is an
    /// error and no signal.
    int ReadNext(void* buffer, std::size_t size, std::size_t& done) const;
    int WriteNext(const void* buffer, std::size_t size, std::size_t& done) const;

    /// Whether `path` leads to this file.
    bool IsAt(const char* path) const;

    void Swap(File& other) noexcept {
        std::swap(m_handle, other.m_handle);
        std::swap(m_kind, other.m_kind);
        std::swap(m_initialSize, other.m_initialSize);
        std::swap(m_initialPosition, other.m_initialPosition);
        std::swap(m_volume, other.m_volume);
        std::swap(m_index, other.m_index);
        m_deletePath.swap(other.m_deletePath);
    }

private:
    friend class FileReplacement;
    int Inspect(FileMode mode);

    std::intptr_t m_handle = kNone;
    FileKind m_kind = FileKind::regular;
    std::uint64_t m_initialSize = 0;
    std::uint64_t m_initialPosition = 0;
    std::uint64_t m_volume = 0; ///< with m_index: what the file is on the disk (POSIX)
    std::uint64_t m_index = 0;
    std::string m_deletePath; ///< deleted on close where the platform does not do so
};

/// Replaces a file by a finished one: the path leads to the old file or to the whole new one at every moment, however
/// the process ends. Symbolic links are followed; owner and permissions of an old file are kept. While the new file is
/// being written, the old one is locked against other writers; it may be open for reading, and stays readable through
/// those handles afterwards.
class FileReplacement {
public:
    FileReplacement() = default;
    /// Abandons what was not committed.
    ~FileReplacement() { Abandon(); }
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Opens `file` for writing what `path` is to hold. A pipe or a device is opened itself, and what is written to it
    /// cannot be taken back. Fails where the old file could not be written to either.
    int Begin(const char* path, File& file);
    /// Closes the file and puts it into its place. Where there was an old file, the new one is on the disk first, so
    /// that a power failure leaves one of them too. On failure the old file stands.
    int Commit(File& file);
    /// The new file vanishes. `file` must have been closed.
    void Abandon();

private:
    File m_old;                           ///< holds the lock
    std::intptr_t m_folder = File::kNone; ///< of the target
    std::string m_target;                 ///< name in the folder, or full path
    std::string m_temporary;              ///< likewise; empty while the new file has no name
    bool m_direct = false;
    bool m_active = false;
};

/// Whether there is a folder at `path`. @return 0 or the reason why it cannot be used
int CheckFolder(const char* path);

/// Puts the names in a folder onto the disk.
int SyncFolder(const char* path);

} // namespace vdicom::platform
