// Replays the corpora of the fuzz targets of the reader and of directories: what once was found stays mended.
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdint>

extern "C" int ReaderFuzz(const std::uint8_t* data, std::size_t size);
extern "C" int DirectoryFuzz(const std::uint8_t* data, std::size_t size);

TEST(ReaderCorpus, EveryInputHolds) {
    const auto corpora = TestFolder::FromUtf8(VDICOM_TEST_SOURCE_DIR) / "fuzz" / "corpus";
    std::size_t inputs = 0;
    for (const char* folder : {"ReaderFuzz", "DirectoryFuzz"}) {
        for (const auto& entry : std::filesystem::directory_iterator(corpora / folder)) {
            const std::string input = TestFolder::Read(TestFolder::Utf8(entry.path()));
            const auto* bytes = reinterpret_cast<const std::uint8_t*>(input.data());
            ReaderFuzz(bytes, input.size());
            DirectoryFuzz(bytes, input.size());
            ++inputs;
        }
    }
    EXPECT_GE(inputs, 10u);
}
