/// @file Uid.h
/// Unique identifiers as texts.
#pragma once

#include <string_view>

namespace program {

/// Whether a text is made of digits and dots as a UID is (PS3.5 9.1), leading zeros of a component excepted, which real
/// objects have.
constexpr bool IsUid(std::string_view text) {
    if (text.empty() || text.size() > 64 || text.front() == '.' || text.back() == '.')
        return false;
    char before = '\0';
    for (const char c : text) {
        if ((c < '0' || c > '9') && (c != '.' || before == '.'))
            return false;
        before = c;
    }
    return true;
}

} // namespace program
