/// @file Stream.h
/// What stands behind a VDicomFile: a file with its buffers, or memory.
#pragma once

#include "Bytes.h"
#include "File.h"
#include "VDicomTypes.h"

#include <memory>
#include <string>
#include <vector>

namespace vdicom {

struct StreamRange;

/// Bytes in memory: somebody else's until the first write, or our own, growing by doubling.
class StreamMemory {
public:
    StreamMemory() = default;
    ~StreamMemory();
    StreamMemory(const StreamMemory&) = delete;
    StreamMemory& operator=(const StreamMemory&) = delete;

    const unsigned char* Data() const { return m_data; }
    std::size_t Size() const { return m_size; }
    /// Uses foreign bytes in place.
    void Attach(const unsigned char* data, std::size_t size);
    /// Writes at a place up to the end. False when memory runs out; nothing has changed then.
    bool Write(std::size_t position, const void* bytes, std::size_t size);
    /// Cuts off. Memory beyond `keep` bytes is given back.
    void Cut(std::size_t size, std::size_t keep);
    void Swap(StreamMemory& other);
    void Free();

private:
    bool Own(std::size_t wanted);

    const unsigned char* m_data = nullptr;
    std::size_t m_size = 0;
    unsigned char* m_own = nullptr;
    std::size_t m_capacity = 0;
};

class Stream {
public:
    static constexpr std::size_t kBuffer = std::size_t{64} * 1024;
    /// What the first read of a file asks for; and the first one after a jump, which a header follows.
    static constexpr std::size_t kFirstRead = std::size_t{8} * 1024;
    static constexpr std::size_t kJumpRead = std::size_t{4} * 1024;
    /// A temporary stream of more bytes takes a file.
    static constexpr std::size_t kMemoryLimit = std::size_t{1} << 20;

    Stream() = default;
    ~Stream() { Close(true); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    bool Open(const char* name, unsigned short mode);
    bool OpenReplacement(const char* name);
    bool Adopt(std::intptr_t handle, unsigned short mode);
    bool Close(bool discard);
    bool CommitReplacement();

    bool IsOpen() const { return m_backing != Backing::none; }
    int Error() const { return m_error; }
    const std::string& Path() const { return m_path; }
    std::uint64_t Position() const { return m_position; }
    std::uint64_t Size() const;

    /// The bytes at `position`, at least `wanted` of them unless the stream ends before. Valid until the next call.
    ByteSpan View(std::uint64_t position, std::size_t wanted);
    /// Exactly `size` bytes at `position`.
    bool ReadAt(std::uint64_t position, void* buffer, std::size_t size);
    bool Read(void* buffer, std::size_t size);
    bool Write(const void* buffer, std::size_t size);
    bool Flush();
    bool Sync();
    bool Seek(std::int64_t offset, unsigned short origin);
    bool Append(const void* buffer, std::size_t size, std::uint64_t& position);

    /// Copies a range of another stream to the current position and moves on, where the system copies between files
    /// by itself. `done` less than `size` with true: the rest has to be read and written. False: a write failed.
    bool CopyRange(Stream& source, std::uint64_t position, std::uint64_t size, std::uint64_t& done);

    /// Where ranges are noted instead of being copied; null: they are copied.
    std::vector<StreamRange>* ranges = nullptr;

    bool SetMemory(const unsigned char* buffer, std::size_t size, bool attach);
    /// Null unless this is a memory stream.
    const StreamMemory* Memory() const { return m_backing == Backing::memory ? &m_memory : nullptr; }

    bool IsFileAt(const char* path) const { return m_file.IsAt(path); }

private:
    enum class Backing : unsigned char {
        none,
        file,           ///< a file with positions, through both buffers
        sequential,     ///< a pipe or device that is written to
        memory,         ///< a memory stream
        temporaryMemory ///< a temporary stream that has taken no file yet
    };

    bool Fail(int error);
    bool FailWrite(int error);
    bool Start();
    bool SpoolPipe();
    bool TakeFile();
    bool CutAtPosition();
    bool WriteBuffered(const unsigned char* bytes, std::size_t size);
    bool WriteThrough(std::uint64_t position, const unsigned char* bytes, std::size_t size);
    bool InMemory() const { return m_backing == Backing::memory || m_backing == Backing::temporaryMemory; }
    bool Fill(std::uint64_t position, std::size_t wanted);

    platform::File m_file;
    platform::FileReplacement m_replacement;
    StreamMemory m_memory;
    std::string m_path;
    std::string m_folder; ///< of a temporary stream
    Backing m_backing = Backing::none;
    bool m_canRead = false;
    bool m_canWrite = false;
    bool m_temporary = false;
    bool m_replacing = false;
    bool m_lost = false; ///< a write was refused: not everything has reached the file
    int m_error = 0;

    std::uint64_t m_position = 0;
    std::uint64_t m_fileSize = 0; ///< without what is still in the write buffer

    // The window of the file that the read-ahead buffer holds.
    std::unique_ptr<unsigned char[]> m_window;
    std::size_t m_windowCapacity = 0;
    std::uint64_t m_windowStart = 0;
    std::size_t m_windowSize = 0;
    std::size_t m_nextRead = kFirstRead;

    // Bytes that wait to be written.
    std::unique_ptr<unsigned char[]> m_pending;
    std::uint64_t m_pendingStart = 0;
    std::size_t m_pendingSize = 0;
};

} // namespace vdicom
