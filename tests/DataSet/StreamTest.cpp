#include "Stream.h"
#include "StreamAccess.h"
#include "TestFolder.h"
#include "VDicomFile.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using vdicom::ByteSpan;
using vdicom::Stream;
using vdicom::StreamAccess;

constexpr std::size_t kBuffer = Stream::kBuffer;
constexpr std::size_t kFirstRead = Stream::kFirstRead;

std::string Pattern(std::size_t size, unsigned seed = 0) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<char>((i * 31 + i / 251 + seed) & 0xFF);
    return bytes;
}

std::string ReadAll(VDicomFile& file) {
    std::string bytes(static_cast<std::size_t>(file.GetSize64()), '\0');
    return StreamAccess::ReadAt(file, 0, bytes.data(), bytes.size()) ? bytes : "cannot be read";
}

VDicomULong Size32(const std::string& bytes) { return static_cast<VDicomULong>(bytes.size()); }

TEST(Stream, ReadsEverywhereAroundTheEdgesOfTheReadAheadBuffer) {
    const TestFolder folder;
    const std::string content = Pattern(3 * kBuffer + 17);
    const std::string path = folder.Write("a.dcm", content);
    VDicomFile file;
    ASSERT_TRUE(file.Open(path.c_str(), DICOM_FILE_MODE_LOAD));
    ASSERT_EQ(file.GetSize64(), content.size());

    std::vector<std::size_t> places;
    for (const std::size_t edge : {std::size_t{0}, kFirstRead, 3 * kFirstRead, kBuffer, 2 * kBuffer, content.size()})
        for (int shift = -2; shift <= 2; ++shift)
            if (edge + 2 >= 2 && static_cast<std::ptrdiff_t>(edge) + shift >= 0)
                places.push_back(edge + static_cast<std::size_t>(shift));
    std::mt19937 random(1);
    for (int round = 0; round < 20; ++round) {
        std::shuffle(places.begin(), places.end(), random);
        for (const std::size_t place : places) {
            for (const std::size_t size : {std::size_t{1}, std::size_t{12}, kFirstRead, kBuffer - 1, kBuffer}) {
                const bool there = place <= content.size() && size <= content.size() - place;
                std::string bytes(size, '\0');
                ASSERT_EQ(StreamAccess::ReadAt(file, place, bytes.data(), size), there) << place << ' ' << size;
                if (there) {
                    ASSERT_TRUE(bytes == content.substr(place, size)) << place << ' ' << size;
                }
                const ByteSpan view = StreamAccess::View(file, place, size);
                const std::size_t left = place < content.size() ? content.size() - place : 0;
                ASSERT_GE(view.size, std::min(size, left)) << place << ' ' << size;
                ASSERT_LE(view.size, left);
                ASSERT_TRUE(view.size == 0 || std::memcmp(view.data, content.data() + place, view.size) == 0);
            }
        }
    }
    EXPECT_EQ(file.Tell64(), 0u); // none of it moves the caller's position
}

// The same calls on a plain string say what every stream must hold.
class StreamModel : public testing::TestWithParam<unsigned short> {};

TEST_P(StreamModel, MixedReadsAndWritesEqualThoseOfAString) {
    const bool temporary = GetParam() == DICOM_FILE_MODE_SCRATCH;
    const TestFolder folder;
    const std::string target = GetParam() == (DICOM_FILE_CREATE | DICOM_FILE_READ | DICOM_FILE_WRITE)
                                   ? folder.File("mixed")
                                   : TestFolder::Utf8(folder.Path());
    VDicomFile file;
    ASSERT_TRUE(file.Open(target.c_str(), GetParam()));
    std::string model;
    std::mt19937 random(GetParam());
    const auto below = [&](std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit)(random); };
    const std::size_t sizes[] = {1, 2, 10, 300, 5000, kBuffer - 1, kBuffer, kBuffer + 1, 200000};
    for (int step = 0; step < 4000; ++step) {
        const std::size_t size = sizes[below(7 + below(1))];
        const std::size_t place = below(1) == 0 ? model.size() : below(model.size());
        switch (below(9)) {
        case 0:
        case 1:
        case 2:
        case 3: {
            if (model.size() > 3000000)
                break;
            const std::string bytes = Pattern(size, static_cast<unsigned>(step));
            ASSERT_TRUE(file.Seek64(static_cast<VDicomInt64>(place), 0));
            ASSERT_TRUE(file.Write(bytes.data(), Size32(bytes)));
            model.replace(place, std::min(size, model.size() - place), bytes);
            ASSERT_EQ(file.Tell64(), place + size);
            break;
        }
        case 4: {
            VDicomUInt64 at = 0;
            const std::string bytes = Pattern(size, static_cast<unsigned>(step));
            if (model.size() > 3000000)
                break;
            ASSERT_TRUE(StreamAccess::Append(file, bytes.data(), size, at));
            ASSERT_EQ(at, model.size());
            model += bytes;
            break;
        }
        case 5:
            ASSERT_TRUE(file.Flush());
            break;
        case 6: {
            // Cutting off is for streams without a file of the user's.
            const bool cuts = temporary || GetParam() == DICOM_FILE_MODE_MEMORY;
            if (below(cuts ? 40 : 0) != 0)
                break;
            const std::size_t end = below(2) == 0 ? 0 : place;
            ASSERT_TRUE(file.Seek64(static_cast<VDicomInt64>(end), 0));
            ASSERT_TRUE(file.Write("", 0));
            if (cuts)
                model.resize(end);
            break;
        }
        default: {
            const std::size_t length = std::min(size, model.size() - place);
            std::string bytes(length, '\0');
            ASSERT_TRUE(StreamAccess::ReadAt(file, place, bytes.data(), length));
            ASSERT_TRUE(bytes == model.substr(place, length)) << "step " << step;
            const std::size_t wanted = std::min(size, kBuffer);
            const ByteSpan view = StreamAccess::View(file, place, wanted);
            ASSERT_GE(view.size, std::min(wanted, model.size() - place)) << "step " << step;
            ASSERT_LE(view.size, model.size() - place);
            ASSERT_EQ(model.compare(place, view.size, reinterpret_cast<const char*>(view.data), view.size), 0)
                << "step " << step;
        }
        }
        ASSERT_EQ(file.GetSize64(), model.size()) << "step " << step;
    }
    EXPECT_TRUE(ReadAll(file) == model);
    if (temporary) {
        EXPECT_EQ(folder.Count(), file.GetSize64() > Stream::kMemoryLimit && folder.Count() != 0 ? 1u : 0u);
    }
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(folder.Count(), target == folder.File("mixed") ? 1u : 0u);
    if (target == folder.File("mixed")) {
        EXPECT_TRUE(TestFolder::Read(target) == model);
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, StreamModel,
                         testing::Values(DICOM_FILE_MODE_SCRATCH, DICOM_FILE_MODE_MEMORY,
                                         static_cast<unsigned short>(DICOM_FILE_CREATE | DICOM_FILE_READ |
                                                                     DICOM_FILE_WRITE)));

TEST(Stream, SavesThroughTheWriteBufferAndOpensExclusively) {
    const TestFolder folder;
    const std::string path = folder.Write("gr\xC3\xB6\xC3\x9F"
                                          "e \xE5\xB1\xB1.dcm",
                                          Pattern(100));
    VDicomFile file;
    ASSERT_TRUE(file.Open(path.c_str(), DICOM_FILE_MODE_SAVE));
    EXPECT_EQ(file.GetSize64(), 0u); // created anew
    VDicomFile second;
    EXPECT_FALSE(second.Open(path.c_str(), DICOM_FILE_MODE_SAVE));
    EXPECT_NE(second.GetError(), 0);
    EXPECT_FALSE(second.IsOpen());

    std::string expected;
    for (const std::size_t size : {std::size_t{1}, kBuffer - 1, std::size_t{1}, kBuffer, 2 * kBuffer, std::size_t{7}}) {
        const std::string bytes = Pattern(size, static_cast<unsigned>(expected.size()));
        ASSERT_TRUE(file.Write(bytes.data(), Size32(bytes)));
        expected += bytes;
    }
    // Back into what is still buffered, and a whole buffer's length over what is buffered.
    ASSERT_TRUE(file.Seek(-3, 1));
    ASSERT_TRUE(file.Write("abc", 3));
    expected.replace(expected.size() - 3, 3, "abc");
    const std::string whole = Pattern(kBuffer, 99);
    ASSERT_TRUE(file.Seek(-7, 2));
    ASSERT_TRUE(file.Write(whole.data(), Size32(whole)));
    expected.replace(expected.size() - 7, 7, whole);
    char byte = 0;
    EXPECT_FALSE(file.Read(&byte, 1)); // write only
    EXPECT_TRUE(file.Close());
    EXPECT_TRUE(TestFolder::Read(path) == expected);
}

TEST(Stream, SeeksWithin) {
    const TestFolder folder;
    VDicomFile file;
    ASSERT_TRUE(file.Open(folder.Write("a", "0123456789").c_str(), DICOM_FILE_MODE_LOAD));
    char bytes[11] = {};
    EXPECT_TRUE(file.Seek(-3, 2));
    EXPECT_EQ(file.Tell(), 7u);
    EXPECT_FALSE(file.Read(bytes, 4)); // one too many
    EXPECT_EQ(file.GetError(), 0);
    EXPECT_EQ(file.Tell(), 7u);
    EXPECT_TRUE(file.Read(bytes, 3));
    EXPECT_STREQ(bytes, "789");
    EXPECT_TRUE(file.Seek(-2, 1));
    EXPECT_EQ(file.Tell(), 8u);
    EXPECT_TRUE(file.Seek(0, 2));
    EXPECT_FALSE(file.Seek(1, 1));
    EXPECT_FALSE(file.Seek(-11, 2));
    EXPECT_FALSE(file.Seek(0, 3));
    EXPECT_FALSE(file.Seek64(std::numeric_limits<VDicomInt64>::max(), 1));
    EXPECT_FALSE(file.Seek64(std::numeric_limits<VDicomInt64>::min(), 1));
    EXPECT_EQ(file.Tell(), 10u);
    EXPECT_FALSE(file.Write("a", 1)); // read only
}

TEST(Stream, ReadsBeyondFourGiB) {
    const TestFolder folder;
    const std::string path = folder.File("sparse");
    const VDicomUInt64 place = (VDicomUInt64{5} << 30) + 3;
    VDicomFile file;
    ASSERT_TRUE(file.Open(path.c_str(), DICOM_FILE_MODE_SAVE));
    if (!file.Seek64(static_cast<VDicomInt64>(place), 0) || !file.Write("end", 3) || !file.Close())
        GTEST_SKIP() << "no room for a sparse file of 5 GiB";
    const unsigned int opened = file.Open(path.c_str(), DICOM_FILE_MODE_LOAD);
    if (sizeof(void*) == 4) {
        EXPECT_FALSE(opened);
        EXPECT_NE(file.GetError(), 0);
        return;
    }
    ASSERT_TRUE(opened);
    EXPECT_EQ(file.GetSize64(), place + 3);
    EXPECT_TRUE(file.Seek64(-3, 2));
    EXPECT_EQ(file.Tell(), DICOM_UNDEFINED);
    EXPECT_EQ(file.Tell64(), place);
    char bytes[4] = {};
    EXPECT_TRUE(file.Read(bytes, 3));
    EXPECT_STREQ(bytes, "end");
    const ByteSpan zeros = StreamAccess::View(file, place - 5, 8);
    ASSERT_EQ(zeros.size, 8u);
    EXPECT_EQ(std::memcmp(zeros.data, "\0\0\0\0\0end", 8), 0);
}

TEST(Stream, UsesMemoryInPlaceUntilTheFirstWrite) {
    const std::string caller = "0123456789";
    const auto* bytes = reinterpret_cast<const unsigned char*>(caller.data());
    VDicomFile file;
    EXPECT_FALSE(file.SetMemoryBuffer(bytes, 10, 1)); // not open
    ASSERT_TRUE(file.Open(nullptr, DICOM_FILE_MODE_MEMORY));
    VDicomUInt64 size = 1;
    EXPECT_EQ(file.GetMemoryBuffer(&size), nullptr);
    EXPECT_EQ(size, 0u);
    EXPECT_FALSE(file.SetMemoryBuffer(nullptr, 1, 1));
    ASSERT_TRUE(file.SetMemoryBuffer(bytes, 10, 1));
    EXPECT_EQ(file.GetMemoryBuffer(&size), bytes);
    EXPECT_EQ(size, 10u);
    EXPECT_EQ(StreamAccess::View(file, 4, 1).data, bytes + 4);

    ASSERT_TRUE(file.Seek(8, 0));
    ASSERT_TRUE(file.Write("abcd", 4));
    EXPECT_EQ(caller, "0123456789");
    EXPECT_NE(file.GetMemoryBuffer(nullptr), bytes);
    EXPECT_EQ(ReadAll(file), "01234567abcd");
    // The stream's own bytes as what is written, while the memory moves.
    for (int round = 0; round < 12; ++round) {
        const unsigned char* own = file.GetMemoryBuffer(&size);
        ASSERT_TRUE(file.Seek(0, 2));
        ASSERT_TRUE(file.Write(own, static_cast<VDicomULong>(size)));
    }
    EXPECT_EQ(ReadAll(file).substr(12 * 4095), "01234567abcd");
    const unsigned char* own = file.GetMemoryBuffer(&size);
    ASSERT_TRUE(file.SetMemoryBuffer(own + 8, 4, 0));
    EXPECT_EQ(ReadAll(file), "abcd");
    EXPECT_EQ(file.Tell(), 0u);
    EXPECT_FALSE(file.Seek(5, 0)); // a claimed place allocates nothing
    ASSERT_TRUE(file.SetMemoryBuffer(nullptr, 0, 0));
    EXPECT_EQ(file.GetSize64(), 0u);
}

TEST(Stream, TemporaryStreamTakesAFileOnlyWhenItOutgrowsMemory) {
    const TestFolder folder;
    const std::string place = TestFolder::Utf8(folder.Path());
    VDicomFile file;
    EXPECT_FALSE(file.Open(folder.File("missing").c_str(), DICOM_FILE_MODE_SCRATCH));
    EXPECT_NE(file.GetError(), 0);
    ASSERT_TRUE(file.Open(place.c_str(), DICOM_FILE_MODE_SCRATCH));
    const std::string content = Pattern(Stream::kMemoryLimit);
    ASSERT_TRUE(file.Write(content.data(), Size32(content)));
    EXPECT_EQ(folder.Count(), 0u);
    ASSERT_TRUE(file.Write("x", 1));
    EXPECT_TRUE(ReadAll(file) == content + "x");
    EXPECT_STREQ(StreamAccess::Path(file), "");
    ASSERT_TRUE(file.Seek(0, 0));
    ASSERT_TRUE(file.Write("", 0));
    EXPECT_EQ(file.GetSize64(), 0u);
    EXPECT_EQ(folder.Count(), 0u);
    ASSERT_TRUE(file.Write("again", 5));
    EXPECT_EQ(ReadAll(file), "again");
    EXPECT_TRUE(file.Close());
}

TEST(Stream, FullDiskIsReportedByEveryCall) {
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "no /dev/full on this system";
    const std::string content = Pattern(kBuffer + 1);
    VDicomFile file;
    ASSERT_TRUE(file.Open("/dev/full", DICOM_FILE_MODE_SAVE));
    EXPECT_FALSE(file.Write(content.data(), Size32(content))); // past the buffer
    const int full = file.GetError();
    EXPECT_NE(full, 0);
    EXPECT_EQ(file.Tell(), 0u);
    EXPECT_FALSE(file.Close()); // a write has been refused

    ASSERT_TRUE(file.Open("/dev/full", DICOM_FILE_MODE_SAVE));
    EXPECT_EQ(file.GetError(), 0);
    EXPECT_TRUE(file.Write("abc", 3)); // buffered
    EXPECT_FALSE(file.Flush());
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(file.GetError(), full);
    EXPECT_FALSE(file.IsOpen());

    ASSERT_TRUE(file.Open("/dev/full", DICOM_FILE_MODE_SAVE));
    EXPECT_TRUE(file.Write("abc", 3));
    EXPECT_TRUE(file.Close(1)); // thrown away on purpose
}

TEST(Stream, RefusesWhatIsNoFile) {
    const TestFolder folder;
    VDicomFile file;
    for (const unsigned short mode : {DICOM_FILE_MODE_LOAD, DICOM_FILE_MODE_SAVE}) {
        EXPECT_FALSE(file.Open(TestFolder::Utf8(folder.Path()).c_str(), mode));
        EXPECT_NE(file.GetError(), 0);
        EXPECT_FALSE(file.Open(nullptr, mode));
        EXPECT_FALSE(file.Open("", mode));
        EXPECT_FALSE(file.Open(folder.File("missing/a").c_str(), mode));
        EXPECT_NE(file.GetError(), 0);
    }
    EXPECT_FALSE(file.Open(folder.File("missing").c_str(), DICOM_FILE_MODE_LOAD));
    EXPECT_FALSE(file.SetHandle(-1, DICOM_FILE_MODE_LOAD));
    EXPECT_FALSE(file.IsOpen());
    EXPECT_TRUE(file.Close());
    char byte = 0;
    EXPECT_FALSE(file.Read(&byte, 1));
    EXPECT_FALSE(file.Write(&byte, 1));
    if (std::filesystem::exists("/dev/zero")) {
        EXPECT_FALSE(file.Open("/dev/zero", DICOM_FILE_MODE_LOAD)); // would never end
        EXPECT_NE(file.GetError(), 0);
    }
}

TEST(Stream, FileThatShrinksWhileItIsReadIsShortAndNothingWorse) {
    const TestFolder folder;
    const std::string path = folder.Write("a", Pattern(200000));
    VDicomFile file;
    ASSERT_TRUE(file.Open(path.c_str(), DICOM_FILE_MODE_LOAD));
    std::error_code error;
    std::filesystem::resize_file(path, 100000, error);
    if (error)
        GTEST_SKIP() << "an open file cannot be changed here";
    std::string bytes(50000, '\0');
    EXPECT_TRUE(StreamAccess::ReadAt(file, 50000, bytes.data(), bytes.size()));
    EXPECT_TRUE(bytes == Pattern(200000).substr(50000, 50000));
    EXPECT_FALSE(StreamAccess::ReadAt(file, 50001, bytes.data(), bytes.size()));
    EXPECT_FALSE(StreamAccess::ReadAt(file, 150000, bytes.data(), 10));
    EXPECT_EQ(StreamAccess::View(file, 99990, 100).size, 10u);
    EXPECT_EQ(StreamAccess::View(file, 150000, 100).size, 0u);
}

TEST(Stream, DeletesOnClose) {
    const TestFolder folder;
    const std::string path = folder.Write("a", "abc");
    VDicomFile file;
    ASSERT_TRUE(file.Open(path.c_str(), DICOM_FILE_READ | DICOM_FILE_DELETE));
    EXPECT_EQ(ReadAll(file), "abc");
    EXPECT_EQ(folder.Count(), 1u);
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(folder.Count(), 0u);
}

TEST(Stream, ReplacesTheFileThatItIsReading) {
    const TestFolder folder;
    const std::string old = Pattern(300000);
    const std::string path = folder.Write("a.dcm", old);
    VDicomFile source;
    ASSERT_TRUE(source.Open(path.c_str(), DICOM_FILE_MODE_LOAD));
    EXPECT_TRUE(StreamAccess::IsFile(source, path.c_str()));
    EXPECT_TRUE(StreamAccess::IsFile(source, folder.File("./a.dcm").c_str()));
    EXPECT_FALSE(StreamAccess::IsFile(source, folder.Write("b.dcm", old).c_str()));
    EXPECT_STREQ(StreamAccess::Path(source), path.c_str());

    VDicomFile target;
    ASSERT_TRUE(StreamAccess::OpenReplacement(target, path.c_str()));
    const std::string fresh = Pattern(400000, 7);
    ASSERT_TRUE(target.Write(fresh.data(), Size32(fresh)));
    ASSERT_TRUE(target.Flush());
    VDicomFile other;
    ASSERT_TRUE(other.Open(path.c_str(), DICOM_FILE_MODE_LOAD));
    EXPECT_TRUE(ReadAll(other) == old);
    EXPECT_FALSE(StreamAccess::OpenReplacement(other, path.c_str())) << "the file is being replaced already";
    ASSERT_TRUE(StreamAccess::CommitReplacement(target)) << target.GetError();
    EXPECT_FALSE(target.IsOpen());
    EXPECT_TRUE(TestFolder::Read(path) == fresh);
    EXPECT_TRUE(ReadAll(source) == old); // the data set still reads what it has loaded
    EXPECT_FALSE(StreamAccess::IsFile(source, path.c_str()));
    source.Close();
    EXPECT_EQ(folder.Count(), 2u);

    // Given up: nothing has changed and nothing is left.
    ASSERT_TRUE(StreamAccess::OpenReplacement(target, path.c_str()));
    ASSERT_TRUE(target.Write("abc", 3));
    target.Close();
    EXPECT_TRUE(TestFolder::Read(path) == fresh);
    ASSERT_TRUE(StreamAccess::OpenReplacement(target, folder.File("new").c_str()));
    ASSERT_TRUE(target.Write("abc", 3));
    target.Close(1);
    EXPECT_EQ(folder.Count(), 2u);
    ASSERT_TRUE(StreamAccess::OpenReplacement(target, folder.File("new").c_str()));
    ASSERT_TRUE(target.Write("abc", 3));
    ASSERT_TRUE(StreamAccess::CommitReplacement(target));
    EXPECT_EQ(TestFolder::Read(folder.File("new")), "abc");
    EXPECT_EQ(folder.Count(), 3u);

    EXPECT_FALSE(StreamAccess::OpenReplacement(target, TestFolder::Utf8(folder.Path()).c_str()));
    EXPECT_FALSE(StreamAccess::OpenReplacement(target, folder.File("missing/a").c_str()));
    EXPECT_FALSE(StreamAccess::CommitReplacement(target));
    if (std::filesystem::exists("/dev/full")) {
        ASSERT_TRUE(StreamAccess::OpenReplacement(target, "/dev/full"));
        ASSERT_TRUE(target.Write("abc", 3));
        EXPECT_FALSE(StreamAccess::CommitReplacement(target));
        EXPECT_NE(target.GetError(), 0);
    }
}

} // namespace
