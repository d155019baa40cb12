/// @file Needle.h
/// Searching for a part of a text, upper and lower case alike.
#pragma once

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <string>
#include <string_view>

namespace program {

inline std::string Lower(std::string_view text) {
    std::string copy(text);
    std::transform(copy.begin(), copy.end(), copy.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return copy;
}

/// Whether one of the texts holds what is looked for.
class Needle {
public:
    explicit Needle(std::string_view text) : m_text(Lower(text)) {}
    bool In(std::initializer_list<std::string_view> texts) const {
        return std::any_of(texts.begin(), texts.end(),
                           [this](std::string_view text) { return Lower(text).find(m_text) != std::string::npos; });
    }
    /// Whether it is the whole text, and not empty.
    bool Is(std::string_view text) const { return !m_text.empty() && Lower(text) == m_text; }

private:
    std::string m_text;
};

} // namespace program
