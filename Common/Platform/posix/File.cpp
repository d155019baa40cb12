// Positions of 64 bits on 32-bit systems too.
#define _FILE_OFFSET_BITS 64 // NOLINT

#include "File.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vdicom::platform {

namespace {

// Below the largest count that the system moves at once.
constexpr std::size_t kMaxTransfer = std::size_t{1} << 30;

int Descriptor(std::intptr_t handle) { return static_cast<int>(handle); }

int OpenRetrying(const char* path, int flags, mode_t permissions = 0) {
    for (;;) {
        const int fd = ::open(path, flags | O_CLOEXEC | O_NOCTTY, permissions);
        if (fd >= 0 || errno != EINTR)
            return fd;
    }
}

int WaitFor(int fd, short events) {
    pollfd waiting{fd, events, 0};
    while (::poll(&waiting, 1, -1) < 0)
        if (errno != EINTR)
            return errno;
    return 0;
}

/// Keeps a write to a pipe without a reader from ending the process: the signal stays blocked in this thread, and one
/// that our write raised is taken away again.
class PipeSignalGuard {
public:
    PipeSignalGuard() {
        ::sigemptyset(&m_pipe);
        ::sigaddset(&m_pipe, SIGPIPE);
        sigset_t pending;
        ::sigpending(&pending);
        m_wasPending = ::sigismember(&pending, SIGPIPE) == 1;
        ::pthread_sigmask(SIG_BLOCK, &m_pipe, &m_before);
    }
    ~PipeSignalGuard() {
        if (m_raised && !m_wasPending) {
            const timespec now{0, 0};
            while (::sigtimedwait(&m_pipe, nullptr, &now) < 0 && errno == EINTR) {
            }
        }
        ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    PipeSignalGuard(const PipeSignalGuard&) = delete;
    PipeSignalGuard& operator=(const PipeSignalGuard&) = delete;
    void Raised() { m_raised = true; }

private:
    sigset_t m_pipe{};
    sigset_t m_before{};
    bool m_wasPending = false;
    bool m_raised = false;
};

/// Locks against other writers. File systems that know no locks do not keep anybody from writing.
int LockForWriting(int fd) {
    while (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR)
            continue;
        return errno == EWOULDBLOCK ? EWOULDBLOCK : 0;
    }
    return 0;
}

std::string TemporaryFolder(const char* folder) {
    if (folder != nullptr && *folder != '\0')
        return folder;
    const char* named = std::getenv("TMPDIR"); // NOLINT(concurrency-mt-unsafe)
    return named != nullptr && *named != '\0' ? named : "/tmp";
}

} // namespace

int NumberOf(FileRefusal refusal) {
    switch (refusal) {
    case FileRefusal::directory:
        return EISDIR;
    case FileRefusal::device:
        return ENODEV;
    case FileRefusal::tooLarge:
        return EFBIG;
    case FileRefusal::notOpen:
        return EBADF;
    case FileRefusal::memory:
        return ENOMEM;
    case FileRefusal::inUse:
        return EWOULDBLOCK;
    case FileRefusal::argument:
        break;
    }
    return EINVAL;
}

int File::Inspect(FileMode mode) {
    struct stat status {};
    if (::fstat(Descriptor(m_handle), &status) != 0)
        return errno;
    m_volume = status.st_dev;
    m_index = status.st_ino;
    m_initialSize = 0;
    m_initialPosition = 0;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    if (S_ISREG(status.st_mode)) {
        m_kind = FileKind::regular;
        m_initialSize = static_cast<std::uint64_t>(status.st_size);
        return 0;
    }
    if (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode)) {
        m_kind = FileKind::pipe;
        return mode.read && mode.write ? EINVAL : 0;
    }
    m_kind = FileKind::device;
    // A terminal or /dev/zero has no end, and nobody wants a disk overwritten by a data set.
    return mode.read || !S_ISCHR(status.st_mode) ? ENODEV : 0;
}

int File::Open(const char* path, FileMode mode) {
    Close();
    if (path == nullptr || *path == '\0')
        return ENOENT;
    int flags = mode.write ? (mode.read ? O_RDWR : O_WRONLY) : O_RDONLY;
    if (mode.create)
        flags |= O_CREAT;
    // Another process may put another file into this place between opening and locking.
    for (int attempt = 0; attempt < 16; ++attempt) {
        // O_NONBLOCK: a pipe without a writer must not keep us waiting. It means nothing to regular files.
        int fd = OpenRetrying(path, flags | O_NONBLOCK, 0666);
        if (fd < 0 && ((errno == ENXIO && mode.write) || errno == EWOULDBLOCK)) {
            // A pipe that waits for its reader, or a file that another process has leased.
            struct stat status {};
            if (::stat(path, &status) != 0)
                return errno;
            const bool waitable = S_ISREG(status.st_mode) || (S_ISFIFO(status.st_mode) && mode.write && !mode.read);
            if (!waitable)
                return ENXIO;
            fd = OpenRetrying(path, flags, 0666);
        }
        if (fd < 0)
            return errno;
        m_handle = fd;
        int error = Inspect(mode);
        if (error == 0 && mode.write && m_kind == FileKind::regular) {
            error = LockForWriting(fd);
            if (error == 0 && !IsAt(path)) {
                Close();
                continue;
            }
            if (error == 0 && mode.create && m_initialSize != 0) {
                error = Truncate(0);
                m_initialSize = 0;
            }
        }
        if (error != 0) {
            Close();
            return error;
        }
        if (mode.deleteOnClose && m_kind == FileKind::regular)
            m_deletePath = path;
        return 0;
    }
    return EWOULDBLOCK;
}

int File::OpenTemporary(const char* folder) {
    Close();
    std::string path = TemporaryFolder(folder) + "/DICXXXXXX";
    const int fd = ::mkostemp(path.data(), O_CLOEXEC);
    if (fd < 0)
        return errno;
    ::unlink(path.c_str());
    m_handle = fd;
    const int error = Inspect({true, true, true, false});
    if (error != 0)
        Close();
    return error;
}

int File::Adopt(std::intptr_t handle, FileMode mode) {
    Close();
    if (handle < 0 || handle > 0x7FFFFFFF)
        return EBADF;
    m_handle = handle;
    const int error = Inspect(mode);
    if (error != 0) {
        m_handle = kNone;
        return error;
    }
    if (m_kind == FileKind::regular) {
        const off_t place = ::lseek(Descriptor(handle), 0, SEEK_CUR);
        m_initialPosition = place > 0 ? static_cast<std::uint64_t>(place) : 0;
    }
    return 0;
}

int File::Close() {
    if (m_handle == kNone)
        return 0;
    if (!m_deletePath.empty()) {
        if (IsAt(m_deletePath.c_str()))
            ::unlink(m_deletePath.c_str());
        m_deletePath.clear();
    }
    const int fd = Descriptor(m_handle);
    m_handle = kNone;
    // After EINTR the descriptor is closed all the same; a second close might hit somebody else's.
    return ::close(fd) == 0 || errno == EINTR ? 0 : errno;
}

int File::ReadAt(std::uint64_t position, void* buffer, std::size_t size, std::size_t& done) const {
    done = 0;
    auto* out = static_cast<unsigned char*>(buffer);
    while (done < size) {
        const ssize_t count = ::pread(Descriptor(m_handle), out + done, std::min(size - done, kMaxTransfer),
                                      static_cast<off_t>(position + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return 0;
}

int File::WriteAt(std::uint64_t position, const void* buffer, std::size_t size, std::size_t& done) const {
    done = 0;
    const auto* in = static_cast<const unsigned char*>(buffer);
    while (done < size) {
        const ssize_t count = ::pwrite(Descriptor(m_handle), in + done, std::min(size - done, kMaxTransfer),
                                       static_cast<off_t>(position + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        if (count == 0)
            return EIO;
        done += static_cast<std::size_t>(count);
    }
    return 0;
}

int File::CopyFrom(const File& source, std::uint64_t sourcePosition, std::uint64_t position, std::uint64_t size,
                   std::uint64_t& done) const {
    done = 0;
    auto from = static_cast<off64_t>(sourcePosition);
    auto to = static_cast<off64_t>(position);
    while (done < size) {
        const auto part = static_cast<std::size_t>(std::min<std::uint64_t>(size - done, kMaxTransfer));
        const ssize_t count = ::copy_file_range(Descriptor(source.m_handle), &from, Descriptor(m_handle), &to, part, 0);
        if (count > 0) {
            done += static_cast<std::uint64_t>(count);
            continue;
        }
        if (count < 0 && errno == EINTR)
            continue;
        // Other reasons than these mean that the two files cannot be copied this way.
        const bool failed = count < 0 && (errno == ENOSPC || errno == EIO || errno == EFBIG || errno == EDQUOT);
        return failed ? errno : 0;
    }
    return 0;
}

int File::Truncate(std::uint64_t size) const {
    while (::ftruncate(Descriptor(m_handle), static_cast<off_t>(size)) != 0)
        if (errno != EINTR)
            return errno;
    return 0;
}

int File::Sync() const {
    while (::fsync(Descriptor(m_handle)) != 0)
        if (errno != EINTR)
            return errno == EINVAL || errno == EROFS ? 0 : errno; // nothing that could be put on a disk
    return 0;
}

int File::ReadNext(void* buffer, std::size_t size, std::size_t& done) const {
    done = 0;
    const int fd = Descriptor(m_handle);
    for (;;) {
        const ssize_t count = ::read(fd, buffer, std::min(size, kMaxTransfer));
        if (count >= 0) {
            done = static_cast<std::size_t>(count);
            return 0;
        }
        if (errno == EAGAIN || errno == EWOULDBLOCK) {
            const int error = WaitFor(fd, POLLIN);
            if (error != 0)
                return error;
        } else if (errno != EINTR) {
            return errno;
        }
    }
}

int File::WriteNext(const void* buffer, std::size_t size, std::size_t& done) const {
    done = 0;
    PipeSignalGuard guard;
    const int fd = Descriptor(m_handle);
    const auto* in = static_cast<const unsigned char*>(buffer);
    while (done < size) {
        const ssize_t count = ::write(fd, in + done, std::min(size - done, kMaxTransfer));
        if (count >= 0) {
            done += static_cast<std::size_t>(count);
        } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
            const int error = WaitFor(fd, POLLOUT);
            if (error != 0)
                return error;
        } else if (errno != EINTR) {
            const int error = errno;
            if (error == EPIPE)
                guard.Raised();
            return error;
        }
    }
    return 0;
}

bool File::IsAt(const char* path) const {
    struct stat status {};
    return IsOpen() && path != nullptr && ::stat(path, &status) == 0 && status.st_dev == m_volume &&
           status.st_ino == m_index;
}

int CheckFolder(const char* path) {
    struct stat status {};
    if (::stat(path, &status) != 0)
        return errno;
    return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
}

int SyncFolder(const char* path) {
    if (path == nullptr || *path == '\0')
        return ENOENT;
    const int fd = OpenRetrying(path, O_RDONLY | O_DIRECTORY);
    if (fd < 0)
        return errno;
    int error = 0;
    while (::fsync(fd) != 0) {
        if (errno == EINTR)
            continue;
        error = errno == EINVAL || errno == EROFS ? 0 : errno; // a file system that has nothing to put there
        break;
    }
    ::close(fd);
    return error;
}

} // namespace vdicom::platform
