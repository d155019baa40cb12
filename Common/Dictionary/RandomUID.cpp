#include "RandomUID.h"

#include <algorithm>
#include <exception>
#include <random>

namespace vdicom {

namespace {

using Words = std::array<std::uint32_t, 4>;

/// False when there is no such source of randomness.
bool TakeRandom(const char* source, Words& words) {
    try {
        std::random_device random(source);
        std::generate(words.begin(), words.end(), [&random] { return static_cast<std::uint32_t>(random()); });
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

} // namespace

bool MakeRandomUID(char* uid) {
    // The kernel's generator where it can be had: the default may be the processor's, which is slower and known to
    // have failed silently on some models.
    Words words{};
    if (!TakeRandom("getentropy", words) && !TakeRandom("default", words))
        return false;
    words[1] = (words[1] & 0xFFFF0FFFU) | 0x00004000U; // version 4
    words[2] = (words[2] & 0x3FFFFFFFU) | 0x80000000U; // the variant of RFC 4122
    WriteNumberUID(words, uid);
    return true;
}

void WriteNumberUID(std::array<std::uint32_t, 4> words, char* uid) {
    std::array<char, 40> digits{};
    char* digit = digits.data();
    do {
        // Divides the number by ten, word by word.
        std::uint64_t rest = 0;
        for (std::uint32_t& word : words) {
            rest = rest << 32 | word;
            word = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        *digit++ = static_cast<char>('0' + rest);
    } while ((words[0] | words[1] | words[2] | words[3]) != 0);
    constexpr std::array<char, 5> prefix = {'2', '.', '2', '5', '.'};
    uid = std::copy(prefix.begin(), prefix.end(), uid);
    uid = std::reverse_copy(digits.data(), digit, uid);
    *uid = '\0';
}

} // namespace vdicom
