#define _FILE_OFFSET_BITS 64 // NOLINT

#include "File.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__linux__)
#include <sys/xattr.h>
#endif

namespace vdicom::platform {

namespace {

constexpr int kMaxLinks = 40;

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

/// Follows the links at the end of a path. A link under /proc stands for an open file and not for its text: `magic`.
int FollowLinks(std::string& path, bool& magic) {
    magic = false;
    std::array<char, PATH_MAX> text{};
    for (int links = 0; links < kMaxLinks; ++links) {
        const ssize_t length = ::readlink(path.c_str(), text.data(), text.size());
        if (length < 0)
            return errno == EINVAL || errno == ENOENT ? 0 : errno;
        if (static_cast<std::size_t>(length) == text.size())
            return ENAMETOOLONG;
        if (path.starts_with("/proc/")) {
            magic = true;
            return 0;
        }
        const std::string target(text.data(), static_cast<std::size_t>(length));
        if (target.starts_with('/')) {
            path = target;
            continue;
        }
        path = FolderOf(path);
        path.append("/").append(target);
    }
    return ELOOP;
}

/// A name that is most likely free; the caller makes sure.
std::string NewName() {
    static std::atomic<unsigned> counter{0};
    const auto now = static_cast<unsigned long long>(std::chrono::steady_clock::now().time_since_epoch().count());
    std::array<char, 64> name{};
    std::snprintf(name.data(), name.size(), "DIC%llx.%lx.%x.tmp", now & 0xFFFFFFFFFFULL,
                  static_cast<unsigned long>(::getpid()), counter++);
    return name.data();
}

std::string DescriptorPath(int fd) { return "/proc/self/fd/" + std::to_string(fd); }

/// Gives the new file the owner, the permissions and the access list of the old one, as far as we may.
int CopyPermissions(int from, int to) {
    struct stat old {};
    if (::fstat(from, &old) != 0)
        return errno;
    struct stat made {};
    if (::fstat(to, &made) != 0)
        return errno;
    mode_t mode = old.st_mode & 07777;
    if (old.st_uid != made.st_uid && ::fchown(to, old.st_uid, static_cast<gid_t>(-1)) != 0)
        mode &= ~static_cast<mode_t>(S_ISUID);
    if (old.st_gid != made.st_gid && ::fchown(to, static_cast<uid_t>(-1), old.st_gid) != 0) {
        // What the old group might do, the new one may not; it gets what everybody has.
        const mode_t others = mode & S_IRWXO;
        mode = (mode & ~static_cast<mode_t>(S_ISGID | S_IRWXG)) | (others << 3);
    }
    if (::fchmod(to, mode) != 0)
        return errno;
#if defined(__linux__)
    constexpr const char* kAccessList = "system.posix_acl_access";
    const ssize_t size = ::fgetxattr(from, kAccessList, nullptr, 0);
    if (size > 0) {
        std::vector<char> list(static_cast<std::size_t>(size));
        const ssize_t got = ::fgetxattr(from, kAccessList, list.data(), list.size());
        if (got > 0 && ::fsetxattr(to, kAccessList, list.data(), static_cast<std::size_t>(got), 0) != 0)
            return errno;
    }
#endif
    return 0;
}

} // namespace

int FileReplacement::Begin(const char* path, File& file) {
    Abandon();
    file.Close();
    if (path == nullptr || *path == '\0')
        return ENOENT;
    const FileMode existing{false, true, false, false};
    const int opened = m_old.Open(path, existing);
    if (opened != 0 && opened != ENOENT)
        return opened;
    std::string target = path;
    bool magic = false;
    if (opened != 0 || m_old.Kind() == FileKind::regular) {
        const int error = FollowLinks(target, magic);
        if (error != 0) {
            m_old.Close();
            return error;
        }
    }
    if (opened == 0 && (m_old.Kind() != FileKind::regular || magic)) {
        const int error = magic ? m_old.Truncate(0) : 0;
        file.Swap(m_old);
        file.m_initialSize = 0;
        m_direct = m_active = error == 0;
        if (error != 0)
            file.Close();
        return error;
    }
    m_target = NameOf(target);
    const std::string folder = FolderOf(target);
    if (m_target.empty() || m_target == "." || m_target == "..") {
        m_old.Close();
        return m_target.empty() ? ENOENT : EISDIR;
    }
    int folderFd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
#if defined(O_PATH)
    if (folderFd < 0 && errno == EACCES)
        folderFd = ::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
#endif
    if (folderFd < 0) {
        const int error = errno;
        m_old.Close();
        return error;
    }
    m_folder = folderFd;
    m_active = true;

    // What replaces a private file must not be readable meanwhile.
    const mode_t permissions = m_old.IsOpen() ? 0600 : 0666;
    int fd = -1;
#if defined(O_TMPFILE)
    // A file without a name leaves nothing behind, however the process ends. It gets its name through /proc.
    fd = ::openat(folderFd, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, permissions);
    if (fd >= 0 && ::access(DescriptorPath(fd).c_str(), F_OK) != 0) {
        ::close(fd);
        fd = -1;
    }
#endif
    for (int attempt = 0; fd < 0 && attempt < 100; ++attempt) {
        m_temporary = NewName();
        fd = ::openat(folderFd, m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
        if (fd < 0 && errno != EEXIST && errno != EINTR)
            break;
    }
    int error = fd < 0 ? errno : file.Adopt(fd, {false, true, true, false});
    if (error != 0) {
        if (fd >= 0)
            ::close(fd);
        else
            m_temporary.clear();
        Abandon();
    }
    return error;
}

int FileReplacement::Commit(File& file) {
    if (!m_active || !file.IsOpen())
        return EBADF;
    if (m_direct) {
        m_direct = m_active = false;
        return file.Close();
    }
    const int folder = static_cast<int>(m_folder);
    int error = 0;
    if (m_old.IsOpen()) {
        error = CopyPermissions(static_cast<int>(m_old.m_handle), static_cast<int>(file.m_handle));
        if (error == 0)
            error = file.Sync();
    }
    if (error == 0 && m_temporary.empty()) {
        const std::string unnamed = DescriptorPath(static_cast<int>(file.m_handle));
        for (int attempt = 0; attempt < 100; ++attempt) {
            // A new file comes into its place at once; an old one has to be renamed over.
            const bool straight = attempt == 0 && !m_old.IsOpen();
            const std::string name = straight ? m_target : NewName();
            if (::linkat(AT_FDCWD, unnamed.c_str(), folder, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
                m_temporary = name;
                error = 0;
                break;
            }
            error = errno;
            if (error != EEXIST)
                break;
        }
    }
    const int closed = file.Close();
    if (error == 0)
        error = closed;
    if (error == 0 && m_temporary != m_target && ::renameat(folder, m_temporary.c_str(), folder, m_target.c_str()) != 0)
        error = errno;
    if (error == 0) {
        m_temporary.clear();
        // The name has to reach the disk as well. Folders that cannot be synchronised are no failure.
        if (m_old.IsOpen())
            ::fsync(folder);
    }
    Abandon();
    return error;
}

void FileReplacement::Abandon() {
    if (!m_temporary.empty())
        ::unlinkat(static_cast<int>(m_folder), m_temporary.c_str(), 0);
    if (m_folder != File::kNone)
        ::close(static_cast<int>(m_folder));
    m_old.Close();
    m_folder = File::kNone;
    m_target.clear();
    m_temporary.clear();
    m_direct = m_active = false;
}

} // namespace vdicom::platform
