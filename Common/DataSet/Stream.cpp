#include "Stream.h"

#include "VDicomFile.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace vdicom {

using platform::FileKind;
using platform::FileRefusal;

namespace {

/// Pieces of values hold offsets as wide as pointers: a stream that is read must not reach beyond them.
constexpr std::uint64_t kLargest = std::numeric_limits<VDicomOffset>::max() == 0xFFFFFFFFU
                                       ? 0xFFFFFFFFU
                                       : std::uint64_t{std::numeric_limits<std::int64_t>::max()};
/// What is kept of the memory of a temporary stream that has been emptied.
constexpr std::size_t kKeptMemory = std::size_t{64} * 1024;
/// Larger reads go straight to the caller's buffer.
constexpr std::size_t kStraight = std::size_t{16} * 1024;

} // namespace

StreamMemory::~StreamMemory() { std::free(m_own); }

void StreamMemory::Attach(const unsigned char* data, std::size_t size) {
    Free();
    m_data = data;
    m_size = size;
}

bool StreamMemory::Own(std::size_t wanted) {
    const bool foreign = m_data != m_own;
    if (!foreign && wanted <= m_capacity)
        return true;
    constexpr std::size_t kSmallest = 256;
    std::size_t capacity = std::max(wanted, kSmallest);
    if (m_size <= std::numeric_limits<std::size_t>::max() / 2)
        capacity = std::max(capacity, m_size * 2);
    auto* grown = static_cast<unsigned char*>(std::realloc(m_own, capacity));
    if (grown == nullptr && capacity > wanted) {
        capacity = wanted;
        grown = static_cast<unsigned char*>(std::realloc(m_own, capacity));
    }
    if (grown == nullptr)
        return false;
    if (foreign && m_size != 0)
        std::memcpy(grown, m_data, m_size);
    m_data = m_own = grown;
    m_capacity = capacity;
    return true;
}

bool StreamMemory::Write(std::size_t position, const void* bytes, std::size_t size) {
    if (size > std::numeric_limits<std::size_t>::max() - position)
        return false;
    const std::size_t end = position + size;
    // What is written may lie in this very memory.
    const auto* from = static_cast<const unsigned char*>(bytes);
    const bool inside = m_own != nullptr && std::less_equal<>()(m_own, from) && std::less<>()(from, m_own + m_capacity);
    const std::size_t place = inside ? static_cast<std::size_t>(from - m_own) : 0;
    if (!Own(std::max(end, m_size)))
        return false;
    std::memmove(m_own + position, inside ? m_own + place : from, size);
    m_size = std::max(m_size, end);
    return true;
}

void StreamMemory::Cut(std::size_t size, std::size_t keep) {
    m_size = std::min(size, m_size);
    if (m_size != 0)
        return;
    if (m_capacity > keep)
        Free();
    m_data = m_own;
}

void StreamMemory::Swap(StreamMemory& other) {
    std::swap(m_data, other.m_data);
    std::swap(m_size, other.m_size);
    std::swap(m_own, other.m_own);
    std::swap(m_capacity, other.m_capacity);
}

void StreamMemory::Free() {
    std::free(m_own);
    m_own = nullptr;
    m_data = nullptr;
    m_size = m_capacity = 0;
}

bool Stream::Fail(int error) {
    m_error = error;
    return false;
}

bool Stream::FailWrite(int error) {
    m_lost = true;
    return Fail(error);
}

std::uint64_t Stream::Size() const {
    if (InMemory())
        return m_memory.Size();
    return m_pendingSize == 0 ? m_fileSize : std::max(m_fileSize, m_pendingStart + m_pendingSize);
}

bool Stream::Open(const char* name, unsigned short mode) {
    Close(false);
    m_error = 0;
    m_canWrite = (mode & (DICOM_FILE_WRITE | DICOM_FILE_CREATE)) != 0;
    m_canRead = (mode & DICOM_FILE_READ) != 0 || !m_canWrite;
    if ((mode & DICOM_FILE_MEMORY) != 0) {
        m_canRead = m_canWrite = true;
        m_backing = Backing::memory;
        return true;
    }
    if ((mode & DICOM_FILE_TEMPORARY) != 0) {
        m_folder = name == nullptr ? "" : name;
        const int error = m_folder.empty() ? 0 : platform::CheckFolder(m_folder.c_str());
        if (error != 0)
            return Fail(error);
        m_canRead = m_canWrite = true;
        m_temporary = true;
        m_backing = Backing::temporaryMemory;
        return true;
    }
    const int error =
        m_file.Open(name, {m_canRead, m_canWrite, (mode & DICOM_FILE_CREATE) != 0, (mode & DICOM_FILE_DELETE) != 0});
    if (error != 0)
        return Fail(error);
    m_path = name;
    return Start();
}

bool Stream::OpenReplacement(const char* name) {
    Close(false);
    m_error = 0;
    m_canRead = false;
    m_canWrite = true;
    const int error = m_replacement.Begin(name, m_file);
    if (error != 0)
        return Fail(error);
    m_path = name;
    m_replacing = true;
    return Start();
}

bool Stream::Adopt(std::intptr_t handle, unsigned short mode) {
    Close(false);
    m_error = 0;
    m_canWrite = (mode & (DICOM_FILE_WRITE | DICOM_FILE_CREATE)) != 0;
    m_canRead = (mode & DICOM_FILE_READ) != 0 || !m_canWrite;
    const int error = m_file.Adopt(handle, {m_canRead, m_canWrite, false, false});
    return error == 0 ? Start() : Fail(error);
}

/// The file is open: looks at what it is.
bool Stream::Start() {
    if (m_file.Kind() != FileKind::regular) {
        m_backing = Backing::sequential;
        return m_canWrite || SpoolPipe();
    }
    m_fileSize = m_file.InitialSize();
    m_position = m_file.InitialPosition();
    if (m_canRead && m_fileSize > kLargest) {
        m_file.Close();
        m_path.clear();
        return Fail(NumberOf(FileRefusal::tooLarge));
    }
    m_backing = Backing::file;
    return true;
}

/// Reads a pipe to its end into temporary storage, where it has positions.
bool Stream::SpoolPipe() {
    platform::File pipe(std::move(m_file));
    const std::string path = m_path;
    m_canWrite = true;
    m_backing = Backing::temporaryMemory;
    m_temporary = true;
    const std::unique_ptr<unsigned char[]> buffer(new (std::nothrow) unsigned char[kBuffer]);
    int error = buffer == nullptr ? NumberOf(FileRefusal::memory) : 0;
    while (error == 0) {
        std::size_t count = 0;
        error = pipe.ReadNext(buffer.get(), kBuffer, count);
        if (error == 0 && count == 0)
            break;
        if (error == 0 && !Write(buffer.get(), count))
            error = m_error;
    }
    if (error == 0 && !Flush())
        error = m_error;
    if (error != 0) {
        Close(true);
        return Fail(error);
    }
    m_canWrite = false;
    m_position = 0;
    m_path = path;
    return true;
}

bool Stream::Close(bool discard) {
    if (m_backing == Backing::none)
        return true;
    bool complete = discard || (Flush() && !m_lost);
    const int flushed = m_error;
    const int error = m_file.Close();
    if (error != 0 && !discard) {
        complete = false;
        m_error = flushed != 0 ? flushed : error;
    }
    m_replacement.Abandon();
    m_memory.Cut(0, kKeptMemory);
    m_backing = Backing::none;
    m_path.clear();
    m_folder.clear();
    m_canRead = m_canWrite = m_temporary = m_replacing = m_lost = false;
    ranges = nullptr;
    m_position = m_fileSize = m_windowStart = m_pendingStart = 0;
    m_windowSize = m_pendingSize = 0;
    m_nextRead = kFirstRead;
    return complete;
}

bool Stream::CommitReplacement() {
    if (!m_replacing)
        return Fail(NumberOf(FileRefusal::argument));
    int error = 0;
    if (!Flush() || m_lost) {
        error = m_error;
        Close(true);
        return Fail(error);
    }
    error = m_replacement.Commit(m_file);
    Close(true);
    return error == 0 || Fail(error);
}

bool Stream::SetMemory(const unsigned char* buffer, std::size_t size, bool attach) {
    if (m_backing != Backing::memory || (buffer == nullptr && size != 0))
        return Fail(NumberOf(FileRefusal::argument));
    m_position = 0;
    if (attach || size == 0) {
        m_memory.Attach(size == 0 ? nullptr : buffer, size);
        return true;
    }
    StreamMemory copy; // the bytes may be the stream's own
    if (!copy.Write(0, buffer, size))
        return Fail(NumberOf(FileRefusal::memory));
    m_memory.Swap(copy);
    return true;
}

bool Stream::Seek(std::int64_t offset, unsigned short origin) {
    if (!IsOpen() || origin > 2)
        return Fail(NumberOf(IsOpen() ? FileRefusal::argument : FileRefusal::notOpen));
    const std::uint64_t base = origin == 0 ? 0 : origin == 1 ? m_position : Size();
    const std::uint64_t distance =
        offset < 0 ? 0 - static_cast<std::uint64_t>(offset) : static_cast<std::uint64_t>(offset);
    if (offset < 0 ? distance > base : distance > std::uint64_t{std::numeric_limits<std::int64_t>::max()} - base)
        return false;
    const std::uint64_t place = offset < 0 ? base - distance : base + distance;
    if (m_backing == Backing::sequential && place != m_position)
        return false;
    if (m_canRead && place > Size())
        return false;
    m_position = place;
    return true;
}

/// Reads on so that the window holds `wanted` bytes at `position` or all up to the end of the file.
bool Stream::Fill(std::uint64_t position, std::size_t wanted) {
    const std::uint64_t windowEnd = m_windowStart + m_windowSize;
    // Stepping over a short value is reading on; only a far jump starts small again.
    const bool onward = m_windowSize != 0 && position >= m_windowStart && position <= windowEnd + kJumpRead;
    m_nextRead = onward ? std::min(m_nextRead * 2, kBuffer) : position == 0 ? kFirstRead : kJumpRead;
    // Bytes of the window that are of use still.
    const std::size_t kept = onward && position < windowEnd ? static_cast<std::size_t>(windowEnd - position) : 0;
    const std::uint64_t left = m_fileSize - position;
    std::size_t reach = std::max(wanted, std::min(kept + m_nextRead, kBuffer));
    // The rest of a small file in one go.
    if (left <= reach + m_nextRead && left <= kBuffer)
        reach = static_cast<std::size_t>(left);
    reach = static_cast<std::size_t>(std::min<std::uint64_t>(reach, left));
    if (reach > m_windowCapacity) {
        const std::size_t capacity = std::min(std::max(reach, m_windowCapacity * 2), kBuffer);
        std::unique_ptr<unsigned char[]> larger(new (std::nothrow) unsigned char[capacity]);
        if (larger == nullptr)
            return Fail(NumberOf(FileRefusal::memory));
        if (kept != 0)
            std::memcpy(larger.get(), m_window.get() + (m_windowSize - kept), kept);
        m_window = std::move(larger);
        m_windowCapacity = capacity;
    } else if (kept != 0) {
        std::memmove(m_window.get(), m_window.get() + (m_windowSize - kept), kept);
    }
    m_windowStart = position;
    m_windowSize = kept;
    std::size_t done = 0;
    const int error = m_file.ReadAt(position + kept, m_window.get() + kept, reach - kept, done);
    m_windowSize += done;
    return error == 0 || Fail(error);
}

ByteSpan Stream::View(std::uint64_t position, std::size_t wanted) {
    if (position >= m_windowStart && position - m_windowStart < m_windowSize) {
        const auto offset = static_cast<std::size_t>(position - m_windowStart);
        if (m_windowSize - offset >= wanted && m_pendingSize == 0)
            return {m_window.get() + offset, m_windowSize - offset};
    }
    if (!IsOpen() || !m_canRead)
        return {};
    if (position >= Size())
        return {};
    if (InMemory()) {
        const auto offset = static_cast<std::size_t>(position);
        return {m_memory.Data() + offset, m_memory.Size() - offset};
    }
    if (m_pendingSize != 0) {
        const std::uint64_t end = m_pendingStart + m_pendingSize;
        if (position >= m_pendingStart && position < end && (end - position >= wanted || end >= m_fileSize)) {
            const auto offset = static_cast<std::size_t>(position - m_pendingStart);
            return {m_pending.get() + offset, m_pendingSize - offset};
        }
        if (position < end && m_pendingStart < position + wanted && !Flush())
            return {};
    }
    if (wanted > kBuffer)
        wanted = kBuffer;
    const bool held = position >= m_windowStart && position - m_windowStart < m_windowSize &&
                      m_windowSize - static_cast<std::size_t>(position - m_windowStart) >= wanted;
    const std::uint64_t left = m_fileSize - position;
    if (!held)
        Fill(position, static_cast<std::size_t>(std::min<std::uint64_t>(wanted, left)));
    if (position < m_windowStart || position - m_windowStart >= m_windowSize)
        return {};
    const auto offset = static_cast<std::size_t>(position - m_windowStart);
    std::size_t size = m_windowSize - offset;
    // What waits to be written lies behind; the window holds older bytes there.
    if (m_pendingSize != 0 && m_pendingStart > position)
        size = static_cast<std::size_t>(std::min<std::uint64_t>(size, m_pendingStart - position));
    return {m_window.get() + offset, size};
}

bool Stream::ReadAt(std::uint64_t position, void* buffer, std::size_t size) {
    if (size == 0)
        return IsOpen();
    if (!IsOpen() || !m_canRead)
        return Fail(NumberOf(FileRefusal::notOpen));
    const std::uint64_t total = Size();
    if (position > total || total - position < size)
        return Fail(0);
    auto* out = static_cast<unsigned char*>(buffer);
    if (!InMemory() && size >= kStraight) {
        const std::uint64_t end = m_pendingStart + m_pendingSize;
        if (m_pendingSize != 0 && position < end && m_pendingStart < position + size && !Flush())
            return false;
        // A window that holds the start has it already.
        if (position >= m_windowStart && position - m_windowStart < m_windowSize) {
            const auto offset = static_cast<std::size_t>(position - m_windowStart);
            const std::size_t held = std::min(m_windowSize - offset, size);
            std::memcpy(out, m_window.get() + offset, held);
            out += held;
            position += held;
            size -= held;
        }
        std::size_t done = 0;
        const int error = size == 0 ? 0 : m_file.ReadAt(position, out, size, done);
        return error == 0 && done == size ? true : Fail(error);
    }
    m_error = 0;
    const ByteSpan bytes = View(position, size);
    if (bytes.size < size)
        return false;
    std::memcpy(out, bytes.data, size);
    return true;
}

bool Stream::Read(void* buffer, std::size_t size) {
    if (!ReadAt(m_position, buffer, size))
        return false;
    m_position += size;
    return true;
}

/// Turns a temporary stream in memory into one in a file.
bool Stream::TakeFile() {
    const int error = m_file.OpenTemporary(m_folder.c_str());
    if (error != 0)
        return FailWrite(error);
    std::size_t done = 0;
    const int written = m_memory.Size() == 0 ? 0 : m_file.WriteAt(0, m_memory.Data(), m_memory.Size(), done);
    if (written != 0) {
        m_file.Close();
        return FailWrite(written);
    }
    m_fileSize = m_memory.Size();
    m_memory.Free();
    m_backing = Backing::file;
    return true;
}

bool Stream::CutAtPosition() {
    if (InMemory()) {
        m_memory.Cut(static_cast<std::size_t>(m_position), kKeptMemory);
        return true;
    }
    if (!m_temporary)
        return true;
    if (m_pendingSize != 0 && m_pendingStart >= m_position)
        m_pendingSize = 0;
    else if (m_pendingSize != 0 && m_pendingStart + m_pendingSize > m_position)
        m_pendingSize = static_cast<std::size_t>(m_position - m_pendingStart);
    m_windowSize = 0;
    if (m_position == 0) {
        // Empty again: the file is given back.
        m_file.Close();
        m_fileSize = 0;
        m_backing = Backing::temporaryMemory;
        return true;
    }
    if (m_fileSize > m_position) {
        const int error = m_file.Truncate(m_position);
        if (error != 0)
            return FailWrite(error);
        m_fileSize = m_position;
    }
    return true;
}

/// Writes to the file, and keeps the window true.
bool Stream::WriteThrough(std::uint64_t position, const unsigned char* bytes, std::size_t size) {
    std::size_t done = 0;
    const int error = m_backing == Backing::sequential ? m_file.WriteNext(bytes, size, done)
                                                       : m_file.WriteAt(position, bytes, size, done);
    if (m_windowSize != 0 && position < m_windowStart + m_windowSize && m_windowStart < position + size)
        m_windowSize = 0;
    // The part of a refused write that did fit is taken back: it would keep the last room of a full disk.
    const bool grown = position + done > m_fileSize;
    if (error == 0 || m_backing == Backing::sequential || (grown && m_file.Truncate(m_fileSize) != 0))
        m_fileSize = std::max(m_fileSize, position + done);
    return error == 0 || Fail(error);
}

bool Stream::Sync() {
    if (!Flush() || m_lost)
        return false;
    const int error = m_backing == Backing::file ? m_file.Sync() : 0;
    return error == 0 || FailWrite(error);
}

bool Stream::Flush() {
    if (!IsOpen())
        return true;
    if (m_pendingSize == 0)
        return true;
    std::size_t done = 0;
    const int error = m_backing == Backing::sequential
                          ? m_file.WriteNext(m_pending.get(), m_pendingSize, done)
                          : m_file.WriteAt(m_pendingStart, m_pending.get(), m_pendingSize, done);
    if (m_windowSize != 0 && m_pendingStart < m_windowStart + m_windowSize &&
        m_windowStart < m_pendingStart + m_pendingSize)
        m_windowSize = 0;
    m_fileSize = std::max(m_fileSize, m_pendingStart + done);
    // After a failure the rest waits for another try.
    m_pendingStart += done;
    m_pendingSize -= done;
    if (error == 0)
        return true;
    std::memmove(m_pending.get(), m_pending.get() + done, m_pendingSize);
    return Fail(error);
}

bool Stream::WriteBuffered(const unsigned char* bytes, std::size_t size) {
    const bool follows =
        m_pendingSize != 0 && m_position >= m_pendingStart && m_position <= m_pendingStart + m_pendingSize;
    const std::size_t offset = follows ? static_cast<std::size_t>(m_position - m_pendingStart) : 0;
    if ((!follows || size >= kBuffer || size > kBuffer - offset) && !Flush())
        return FailWrite(m_error);
    if (size >= kBuffer)
        return WriteThrough(m_position, bytes, size) || FailWrite(m_error);
    if (m_pending == nullptr) {
        m_pending.reset(new (std::nothrow) unsigned char[kBuffer]);
        if (m_pending == nullptr)
            return WriteThrough(m_position, bytes, size) || FailWrite(m_error);
    }
    if (m_pendingSize == 0)
        m_pendingStart = m_position;
    const auto place = static_cast<std::size_t>(m_position - m_pendingStart);
    std::memcpy(m_pending.get() + place, bytes, size);
    m_pendingSize = std::max(m_pendingSize, place + size);
    return true;
}

bool Stream::Write(const void* buffer, std::size_t size) {
    if (!IsOpen() || !m_canWrite)
        return Fail(NumberOf(FileRefusal::notOpen));
    if (size == 0)
        return CutAtPosition();
    if (size > kLargest - std::min(m_position, kLargest) && (m_canRead || m_temporary))
        return FailWrite(NumberOf(FileRefusal::tooLarge));
    if (m_backing == Backing::temporaryMemory && m_position + size > kMemoryLimit && !TakeFile())
        return false;
    if (InMemory()) {
        if (!m_memory.Write(static_cast<std::size_t>(m_position), buffer, size))
            return FailWrite(NumberOf(FileRefusal::memory));
    } else if (!WriteBuffered(static_cast<const unsigned char*>(buffer), size)) {
        return false;
    }
    m_position += size;
    return true;
}

bool Stream::CopyRange(Stream& source, std::uint64_t position, std::uint64_t size, std::uint64_t& done) {
    done = 0;
    // What does not fit into memory anyway is copied by the system from the start.
    if (m_backing == Backing::temporaryMemory && source.m_backing == Backing::file &&
        m_position + size > kMemoryLimit && !TakeFile())
        return false;
    if (m_backing != Backing::file || source.m_backing != Backing::file || !m_canWrite || &source == this)
        return true;
    if (!Flush() || !source.Flush())
        return FailWrite(m_error);
    const int error = m_file.CopyFrom(source.m_file, position, m_position, size, done);
    m_windowSize = 0;
    m_position += done;
    m_fileSize = std::max(m_fileSize, m_position);
    return error == 0 || FailWrite(error);
}

bool Stream::Append(const void* buffer, std::size_t size, std::uint64_t& position) {
    position = Size();
    if (size == 0)
        return IsOpen();
    m_position = position;
    return Write(buffer, size);
}

} // namespace vdicom
