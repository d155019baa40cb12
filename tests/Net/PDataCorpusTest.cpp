// Replays the corpus of the fuzz target of received P-DATA: what once was found stays mended.
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdint>

extern "C" int PDataFuzz(const std::uint8_t* data, std::size_t size);

TEST(PDataCorpus, EveryInputHolds) {
    std::size_t inputs = 0;
    const auto corpus = TestFolder::FromUtf8(VDICOM_TEST_SOURCE_DIR) / "fuzz" / "corpus" / "PDataFuzz";
    for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
        const std::string input = TestFolder::Read(TestFolder::Utf8(entry.path()));
        PDataFuzz(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        ++inputs;
    }
    EXPECT_GE(inputs, 8u);
}
