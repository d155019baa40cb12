// What only POSIX systems have: links, permissions, FIFOs, signals, processes that are killed, limits.
#if !defined(_WIN32)

#include "File.h"

#include "TestFolder.h"
#include "VDicomFile.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <functional>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace vdicom::platform;

std::string Pattern(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<char>((i * 31 + i / 251) & 0xFF);
    return bytes;
}

/// Runs `action` in a process of its own. @return its exit status as from waitpid
int InChild(const std::function<int()>& action) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(action());
    int status = -1;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

bool Replace(const std::string& path, const std::string& content, int* number = nullptr) {
    FileReplacement replacement;
    File file;
    std::size_t done = 0;
    int error = replacement.Begin(path.c_str(), file);
    if (error == 0)
        error = file.WriteAt(0, content.data(), content.size(), done);
    if (error == 0)
        error = replacement.Commit(file);
    if (number != nullptr)
        *number = error;
    return error == 0;
}

mode_t PermissionsOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

TEST(Posix, KilledInTheMiddleOfAReplacementLeavesTheOldFileAndNothingElse) {
    const TestFolder folder;
    const std::string path = folder.Write("a", "old");
    const int status = InChild([&] {
        FileReplacement replacement;
        File file;
        const std::string bytes = Pattern(2000000);
        std::size_t done = 0;
        if (replacement.Begin(path.c_str(), file) != 0 || file.WriteAt(0, bytes.data(), bytes.size(), done) != 0)
            return 1;
        ::kill(::getpid(), SIGKILL);
        return 2;
    });
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(TestFolder::Read(path), "old");
    EXPECT_LE(folder.Count(), 2u);
    File probe; // on file systems that know files without names nothing is left either
    if (probe.OpenTemporary(TestFolder::Utf8(folder.Path()).c_str()) == 0 && folder.Count() == 2)
        std::cout << "[ note     ] this file system keeps the unfinished file of a killed process\n";
    EXPECT_TRUE(Replace(path, "new")); // the lock went with the process
    EXPECT_EQ(TestFolder::Read(path), "new");
}

TEST(Posix, KilledWithAScratchStreamLeavesNothing) {
    const TestFolder folder;
    const std::string place = TestFolder::Utf8(folder.Path());
    const int status = InChild([&] {
        VDicomFile file;
        const std::string bytes = Pattern(3000000);
        if (!file.Open(place.c_str(), DICOM_FILE_MODE_SCRATCH) ||
            !file.Write(bytes.data(), static_cast<VDicomULong>(bytes.size())) || !file.Flush())
            return 1;
        ::kill(::getpid(), SIGKILL);
        return 2;
    });
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(folder.Count(), 0u);
}

TEST(Posix, ReplacementKeepsPermissionsAndFollowsLinks) {
    const TestFolder folder;
    std::filesystem::create_directory(folder.Path() / "data");
    const std::string path = folder.Write("data/a", "old");
    ::chmod(path.c_str(), 0640);
    std::filesystem::create_symlink("data/a", folder.Path() / "relative");
    std::filesystem::create_symlink(folder.Path() / "relative", folder.Path() / "absolute");
    ASSERT_TRUE(Replace(folder.File("absolute"), "new"));
    EXPECT_EQ(TestFolder::Read(path), "new");
    EXPECT_EQ(PermissionsOf(path), 0640u);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "absolute"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "relative"));

    // A link to what is not there yet makes it.
    std::filesystem::create_symlink("data/b", folder.Path() / "dangling");
    ASSERT_TRUE(Replace(folder.File("dangling"), "b"));
    EXPECT_EQ(TestFolder::Read(folder.File("data/b")), "b");
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(PermissionsOf(folder.File("data/b")), 0666u & ~mask);

    std::filesystem::create_symlink("loop", folder.Path() / "loop");
    int error = 0;
    EXPECT_FALSE(Replace(folder.File("loop"), "x", &error));
    EXPECT_EQ(error, ELOOP);
}

TEST(Posix, WhatMayNotBeWrittenIsNotReplacedEither) {
    if (::getuid() != 0)
        GTEST_SKIP() << "needs root to become somebody else";
    const TestFolder folder;
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
    const std::string path = folder.Write("a", "old");
    const std::string secret = folder.Write("secret", "old");
    ::chmod(path.c_str(), 0644);
    ::chmod(secret.c_str(), 0600);
    const auto asNobody = [&](const std::function<int()>& action) {
        return InChild([&] { return ::setgid(65534) != 0 || ::setuid(65534) != 0 ? 77 : action(); });
    };
    const int replaced = asNobody([&] {
        int error = 0;
        return Replace(path, "new", &error) ? 1 : error == EACCES ? 0 : 2;
    });
    EXPECT_EQ(replaced, 0) << "exit status " << WEXITSTATUS(replaced);
    EXPECT_EQ(TestFolder::Read(path), "old");
    const int opened = asNobody([&] {
        VDicomFile file;
        return !file.Open(secret.c_str(), DICOM_FILE_MODE_LOAD) && file.GetError() == EACCES ? 0 : 1;
    });
    EXPECT_EQ(opened, 0);
    // Somebody else's file stays somebody else's when root replaces it.
    ASSERT_EQ(::chown(path.c_str(), 65534, 65534), 0);
    ASSERT_TRUE(Replace(path, "new"));
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 65534u);
    EXPECT_EQ(status.st_gid, 65534u);
}

TEST(Posix, FileThatOutgrowsTheLimitIsReportedAndTheOldOneStands) {
    const TestFolder folder;
    const std::string path = folder.Write("a", "old");
    const int status = InChild([&] {
        const rlimit limit{100000, 100000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::signal(SIGXFSZ, SIG_IGN);
        const std::string bytes = Pattern(60000);
        VDicomFile file;
        // Two buffers: the second is written in part and then refused.
        if (!file.Open(folder.File("b").c_str(), DICOM_FILE_MODE_SAVE))
            return 1;
        const auto size = static_cast<VDicomULong>(bytes.size());
        if (!file.Write(bytes.data(), size) || !file.Write(bytes.data(), size))
            return 2;
        if (file.Close() || file.GetError() != EFBIG)
            return 3;
        // Past the buffer: what was refused takes no room.
        const std::string large = Pattern(70000);
        if (!file.Open(folder.File("c").c_str(), DICOM_FILE_CREATE | DICOM_FILE_READ | DICOM_FILE_WRITE) ||
            !file.Write(large.data(), 70000) || file.Write(large.data(), 70000) || file.GetSize64() != 70000 ||
            !file.Write("abc", 3) || !file.Flush() || file.GetSize64() != 70003 || file.Close())
            return 6;
        int error = 0;
        return Replace(path, bytes + bytes, &error) ? 4 : error == EFBIG ? 0 : 5;
    });
    EXPECT_EQ(status, 0) << "exit status " << WEXITSTATUS(status);
    EXPECT_EQ(TestFolder::Read(path), "old");
    EXPECT_EQ(std::filesystem::file_size(folder.Path() / "b"), 100000u);
    EXPECT_EQ(std::filesystem::file_size(folder.Path() / "c"), 70003u);
    EXPECT_EQ(folder.Count(), 3u);
}

TEST(Posix, PipeIsSpooledWhateverItsPieces) {
    const std::string content = Pattern(1500000); // beyond what is kept in memory
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    std::thread writer([&] {
        std::size_t at = 0;
        for (std::size_t piece = 1; at < content.size(); piece = piece * 3 % 70001 + 1) {
            const std::size_t size = std::min(piece, content.size() - at);
            const ssize_t count = ::write(ends[1], content.data() + at, size);
            if (count <= 0)
                break;
            at += static_cast<std::size_t>(count);
        }
        ::close(ends[1]);
    });
    VDicomFile file;
    const std::string path = "/dev/fd/" + std::to_string(ends[0]); // as process substitution names it
    const unsigned int opened = file.Open(path.c_str(), DICOM_FILE_MODE_LOAD);
    ::close(ends[0]);
    writer.join();
    ASSERT_TRUE(opened) << file.GetError();
    ASSERT_EQ(file.GetSize64(), content.size());
    std::string bytes(content.size(), '\0');
    EXPECT_EQ(file.Tell(), 0u);
    EXPECT_TRUE(file.Read(bytes.data(), static_cast<VDicomULong>(bytes.size())));
    EXPECT_TRUE(bytes == content);
    EXPECT_TRUE(file.Seek(-1000, 1));
    EXPECT_TRUE(file.Read(bytes.data(), 1000));
    EXPECT_TRUE(bytes.substr(0, 1000) == content.substr(content.size() - 1000));
    EXPECT_FALSE(file.Write("a", 1));
}

TEST(Posix, FifoWithoutAWriterOpensAtOnceAndIsEmpty) {
    const TestFolder folder;
    const std::string path = folder.File("fifo");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    VDicomFile file;
    ASSERT_TRUE(file.Open(path.c_str(), DICOM_FILE_MODE_LOAD));
    EXPECT_EQ(file.GetSize64(), 0u);
    char byte = 0;
    EXPECT_FALSE(file.Read(&byte, 1));
    EXPECT_FALSE(file.Open(path.c_str(), DICOM_FILE_READ | DICOM_FILE_WRITE));
    EXPECT_NE(file.GetError(), 0);

    // Saving to one waits for its reader and then writes.
    std::string got;
    std::thread reader([&] { got = TestFolder::Read(path); });
    EXPECT_TRUE(file.Open(path.c_str(), DICOM_FILE_MODE_SAVE));
    EXPECT_TRUE(file.Write("abc", 3));
    EXPECT_TRUE(file.Close());
    reader.join();
    EXPECT_EQ(got, "abc");
}

TEST(Posix, PipeWithoutAReaderIsAnErrorAndNoSignal) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    ::close(ends[0]);
    VDicomFile file;
    ASSERT_TRUE(file.SetHandle(ends[1], DICOM_FILE_WRITE));
    EXPECT_TRUE(file.Write("abc", 3));
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(file.GetError(), EPIPE);
    sigset_t pending;
    ::sigpending(&pending);
    EXPECT_EQ(::sigismember(&pending, SIGPIPE), 0);
}

TEST(Posix, SignalsDoNotInterruptReadingAndWriting) {
    struct sigaction action {};
    struct sigaction before {};
    action.sa_handler = [](int) {};
    ::sigaction(SIGALRM, &action, &before); // without SA_RESTART: calls end with EINTR
    const itimerval often{{0, 500}, {0, 500}};
    const itimerval never{};
    ::setitimer(ITIMER_REAL, &often, nullptr);

    const std::string content = Pattern(300000);
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    std::thread slow([&] {
        VDicomFile out;
        EXPECT_TRUE(out.SetHandle(ends[1], DICOM_FILE_WRITE));
        for (std::size_t at = 0; at < content.size(); at += 30000) {
            EXPECT_TRUE(out.Write(content.data() + at, 30000));
            EXPECT_TRUE(out.Flush());
            ::usleep(2000);
        }
        EXPECT_TRUE(out.Close());
    });
    VDicomFile in;
    EXPECT_TRUE(in.SetHandle(ends[0], DICOM_FILE_READ));
    slow.join();
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &before, nullptr);
    std::string bytes(content.size(), '\0');
    EXPECT_TRUE(in.Read(bytes.data(), static_cast<VDicomULong>(bytes.size())));
    EXPECT_TRUE(bytes == content);
}

TEST(Posix, AdoptedDescriptorGoesOnWhereItStood) {
    const TestFolder folder;
    const int fd = ::open(folder.Write("a", "0123456789").c_str(), O_RDWR);
    ASSERT_EQ(::lseek(fd, 4, SEEK_SET), 4);
    VDicomFile file;
    ASSERT_TRUE(file.SetHandle(fd, DICOM_FILE_READ | DICOM_FILE_WRITE));
    EXPECT_EQ(file.Tell(), 4u);
    EXPECT_TRUE(file.Write("ab", 2));
    std::array<char, 4> bytes{};
    EXPECT_TRUE(file.Read(bytes.data(), 4));
    EXPECT_EQ(std::string(bytes.data(), 4), "6789");
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(TestFolder::Read(folder.File("a")), "0123ab6789");
    EXPECT_EQ(::fcntl(fd, F_GETFD), -1); // the stream has closed it
}

TEST(Posix, StandardOutputInAFileIsWrittenInPlace) {
    const TestFolder folder;
    const std::string path = folder.Write("out", "something longer");
    const int fd = ::open(path.c_str(), O_WRONLY);
    struct stat before {};
    ASSERT_EQ(::fstat(fd, &before), 0);
    ASSERT_TRUE(Replace("/proc/self/fd/" + std::to_string(fd), "new"));
    struct stat after {};
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(TestFolder::Read(path), "new");
    ::close(fd);
}

} // namespace

#endif
