// Replays the seed corpus of the fuzz target of SetConvertValue.
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdint>

extern "C" int ConvertValueFuzz(const std::uint8_t* data, std::size_t size);

TEST(ConvertCorpus, EveryInputHolds) {
    std::size_t inputs = 0;
    const auto folder = TestFolder::FromUtf8(VDICOM_TEST_SOURCE_DIR) / "fuzz" / "corpus" / "ConvertValueFuzz";
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string input = TestFolder::Read(TestFolder::Utf8(entry.path()));
        ConvertValueFuzz(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        // The same text in the other VRs that have a grammar of their own.
        for (const char* vr : {"AS", "DA", "TM", "DT", "IS", "DS", "AT", "OB", "FL", "FD", "SV", "US", "PN", "UT"}) {
            std::string other = input;
            other.replace(0, 2, vr);
            ConvertValueFuzz(reinterpret_cast<const std::uint8_t*>(other.data()), other.size());
        }
        ++inputs;
    }
    EXPECT_GT(inputs, 30u);
}
