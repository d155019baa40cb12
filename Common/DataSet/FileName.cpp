#include "FileName.h"

#include <algorithm>

namespace vdicom {

namespace {

bool IsAlphanumeric(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool Is(std::string_view text, std::string_view name) {
    return std::equal(text.begin(), text.end(), name.begin(), name.end(), [](char a, char b) { return Upper(a) == b; });
}

// "NUL" and "nul.txt" are the same device.
bool IsDevice(std::string_view text) {
    const std::string_view stem = text.substr(0, text.find('.'));
    for (const std::string_view name : {"CON", "PRN", "AUX", "NUL"})
        if (Is(stem, name))
            return true;
    if (stem.size() != 4 || stem[3] < '0' || stem[3] > '9')
        return false;
    return Is(stem.substr(0, 3), "COM") || Is(stem.substr(0, 3), "LPT");
}

bool StandsAsItIs(std::string_view text, std::size_t place, bool device) {
    const char c = text[place];
    if (IsAlphanumeric(c))
        return !(device && place == 0);
    if (c == '.')
        return place != 0 && place + 1 != text.size();
    return c == '_' || (c == '-' && place != 0);
}

} // namespace

std::size_t MakeFileName(std::string_view text, char out[kLongestFileName]) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    const bool device = IsDevice(text);
    std::size_t size = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool plain = StandsAsItIs(text, i, device);
        if (kLongestFileName - size < (plain ? 1U : 3U))
            return 0;
        if (plain) {
            out[size++] = text[i];
            continue;
        }
        const auto byte = static_cast<unsigned char>(text[i]);
        out[size++] = '%';
        out[size++] = kDigits[byte >> 4];
        out[size++] = kDigits[byte & 15];
    }
    return size;
}

} // namespace vdicom
