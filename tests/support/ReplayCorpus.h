/// @file ReplayCorpus.h
/// Hands what a fuzz target once found to the target again.
#pragma once

#include "TestFolder.h"

#include <cstdint>

using FuzzTarget = int(const std::uint8_t* data, std::size_t size);

/// Runs targets on every input of the corpus fuzz/corpus/NAME. @return how many inputs there were
template <class... Targets> std::size_t ReplayCorpus(const char* name, Targets... targets) {
    std::size_t inputs = 0;
    const auto corpus = TestFolder::FromUtf8(VDICOM_TEST_SOURCE_DIR) / "fuzz" / "corpus" / name;
    for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
        const std::string input = TestFolder::Read(TestFolder::Utf8(entry.path()));
        (targets(reinterpret_cast<const std::uint8_t*>(input.data()), input.size()), ...);
        ++inputs;
    }
    return inputs;
}
