// The contract of File and FileReplacement, the same on every platform.
#include "File.h"

#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using namespace vdicom::platform;

constexpr FileMode kRead{true, false, false, false};
constexpr FileMode kWrite{false, true, false, false};
constexpr FileMode kCreate{false, true, true, false};

std::string ReadFrom(const File& file, std::uint64_t position, std::size_t size) {
    std::string bytes(size, '\0');
    std::size_t done = 0;
    EXPECT_EQ(file.ReadAt(position, bytes.data(), size, done), 0);
    bytes.resize(done);
    return bytes;
}

int Put(const File& file, std::uint64_t position, const std::string& bytes) {
    std::size_t done = 0;
    const int error = file.WriteAt(position, bytes.data(), bytes.size(), done);
    EXPECT_TRUE(error != 0 || done == bytes.size());
    return error;
}

TEST(File, WritersKeepOthersOutAndReadersDoNot) {
    const TestFolder folder;
    const std::string path = folder.Write("a", "0123456789");
    File reader;
    File second;
    ASSERT_EQ(reader.Open(path.c_str(), kRead), 0);
    ASSERT_EQ(second.Open(path.c_str(), kRead), 0);
    EXPECT_EQ(second.InitialSize(), 10u);
    EXPECT_EQ(second.Kind(), FileKind::regular);
    EXPECT_EQ(reader.Close(), 0);
    EXPECT_EQ(second.Close(), 0);
    EXPECT_EQ(second.Close(), 0);

    File writer;
    ASSERT_EQ(writer.Open(path.c_str(), kWrite), 0);
    EXPECT_EQ(second.Open(path.c_str(), kCreate), NumberOf(FileRefusal::inUse));
    EXPECT_FALSE(second.IsOpen());
    EXPECT_EQ(Put(writer, 8, "abcd"), 0);
    EXPECT_EQ(writer.Sync(), 0);
    EXPECT_EQ(writer.Close(), 0);
    EXPECT_EQ(TestFolder::Read(path), "01234567abcd"); // the refused one has truncated nothing
    ASSERT_EQ(writer.Open(path.c_str(), {true, true, false, false}), 0);
    EXPECT_EQ(writer.Truncate(9), 0);
    EXPECT_EQ(ReadFrom(writer, 7, 100), "7a");
    EXPECT_EQ(ReadFrom(writer, 50, 1), "");
}

TEST(File, PathsAreUtf8AndMayBeLong) {
    const TestFolder folder;
    std::string name = "\xD0\x9A\xD1\x82-\xE5\xB1\xB1\xE7\x94\xB0-\xF0\x9F\x8E\xB5"; // outside any one code page
    std::error_code error;
    for (int depth = 0; depth < 8 && !error; ++depth) {
        name += "/" + std::string(60, static_cast<char>('a' + depth));
        std::filesystem::create_directories((folder.Path() / TestFolder::FromUtf8(name)).parent_path(), error);
    }
    if (error)
        GTEST_SKIP() << "the C++ library makes no folders of this length here";
    File file;
    const std::string path = folder.File(name);
    ASSERT_EQ(file.Open(path.c_str(), kCreate), 0);
    EXPECT_EQ(Put(file, 0, "abc"), 0);
    EXPECT_TRUE(file.IsAt(path.c_str()));
    EXPECT_EQ(file.Close(), 0);
    ASSERT_EQ(file.Open(path.c_str(), kRead), 0);
    EXPECT_EQ(ReadFrom(file, 0, 10), "abc");
    EXPECT_FALSE(file.IsAt(folder.File("other").c_str()));
    FileReplacement replacement;
    File fresh;
    ASSERT_EQ(replacement.Begin(path.c_str(), fresh), 0);
    EXPECT_EQ(Put(fresh, 0, "defg"), 0);
    EXPECT_EQ(replacement.Commit(fresh), 0);
    EXPECT_EQ(ReadFrom(file, 0, 10), "abc");
    ASSERT_EQ(file.Open(path.c_str(), kRead), 0);
    EXPECT_EQ(ReadFrom(file, 0, 10), "defg");
}

TEST(File, RefusalsHaveNumbers) {
    const TestFolder folder;
    File file;
    const std::string place = TestFolder::Utf8(folder.Path());
    EXPECT_EQ(file.Open(place.c_str(), kRead), NumberOf(FileRefusal::directory));
    EXPECT_EQ(file.Open(place.c_str(), kCreate), NumberOf(FileRefusal::directory));
    EXPECT_NE(file.Open(folder.File("missing").c_str(), kRead), 0);
    EXPECT_NE(file.Open(folder.File("missing").c_str(), kWrite), 0);
    EXPECT_NE(file.Adopt(File::kNone, kRead), 0);
    EXPECT_EQ(CheckFolder(place.c_str()), 0);
    EXPECT_NE(CheckFolder(folder.Write("a", "").c_str()), 0);
    EXPECT_NE(CheckFolder(folder.File("missing").c_str()), 0);
    FileReplacement replacement;
    EXPECT_EQ(replacement.Begin(place.c_str(), file), NumberOf(FileRefusal::directory));
    EXPECT_NE(replacement.Begin(folder.File("missing/a").c_str(), file), 0);
    EXPECT_NE(replacement.Commit(file), 0);
}

TEST(File, TemporaryFilesHaveNoNameAfterwards) {
    const TestFolder folder;
    const std::string place = TestFolder::Utf8(folder.Path());
    {
        File first;
        File second;
        ASSERT_EQ(first.OpenTemporary(place.c_str()), 0);
        ASSERT_EQ(second.OpenTemporary(place.c_str()), 0);
        EXPECT_EQ(Put(first, 100, "abc"), 0);
        EXPECT_EQ(ReadFrom(first, 99, 4), std::string("\0abc", 4));
        EXPECT_EQ(ReadFrom(second, 0, 4), "");
    }
    EXPECT_EQ(folder.Count(), 0u);
    File file;
    EXPECT_NE(file.OpenTemporary(folder.File("missing").c_str()), 0);
    EXPECT_EQ(file.OpenTemporary(""), 0); // the platform's folder
}

// The child may run the test from its start on, so the folder has one name for both.
TEST(FileDeathTest, ProcessThatEndsInTheMiddleLeavesTheOldFileAndNoTemporaryOnes) {
    const std::filesystem::path folder = "ended-process.tmp";
    std::filesystem::create_directories(folder / "scratch");
    const std::string path = TestFolder::Utf8(folder / "a");
    std::ofstream(folder / "a", std::ios::binary) << "old";
    EXPECT_EXIT(
        {
            File fresh;
            FileReplacement replacement;
            File scratch;
            const std::string bytes(1000000, 'x');
            const bool written = replacement.Begin(path.c_str(), fresh) == 0 && Put(fresh, 0, bytes) == 0 &&
                                 scratch.OpenTemporary(TestFolder::Utf8(folder / "scratch").c_str()) == 0 &&
                                 Put(scratch, 0, bytes) == 0;
            std::_Exit(written ? 9 : 1); // no destructor runs
        },
        testing::ExitedWithCode(9), "");
    EXPECT_EQ(TestFolder::Read(path), "old");
    EXPECT_TRUE(std::filesystem::is_empty(folder / "scratch"));
    File writer; // the lock is gone too
    EXPECT_EQ(writer.Open(path.c_str(), kWrite), 0);
    writer.Close();
    std::filesystem::remove_all(folder);
}

TEST(FileReplacement, WaitsForOtherWriters) {
    const TestFolder folder;
    const std::string path = folder.Write("a", "old");
    File fresh;
    FileReplacement replacement;
    File writer;
    ASSERT_EQ(writer.Open(path.c_str(), kWrite), 0);
    EXPECT_EQ(replacement.Begin(path.c_str(), fresh), NumberOf(FileRefusal::inUse));
    EXPECT_FALSE(fresh.IsOpen());
    writer.Close();
    ASSERT_EQ(replacement.Begin(path.c_str(), fresh), 0);
    EXPECT_EQ(writer.Open(path.c_str(), kWrite), NumberOf(FileRefusal::inUse));
    EXPECT_EQ(Put(fresh, 0, "new"), 0);
    EXPECT_EQ(replacement.Commit(fresh), 0);
    EXPECT_EQ(TestFolder::Read(path), "new");
    EXPECT_EQ(writer.Open(path.c_str(), kWrite), 0);
    EXPECT_EQ(folder.Count(), 1u);
}

} // namespace
