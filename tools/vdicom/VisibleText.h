/// @file VisibleText.h
/// Texts of files on a terminal: control characters become visible signs, so that no value can send an escape
/// sequence, turn the direction of a line or break it.
#pragma once

#include "Output.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace program {

/// The text with every control character replaced by a visible sign and malformed UTF-8 by U+FFFD.
std::string VisibleCopy(std::string_view text);

constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);

/// The value at the end of a line, cut behind a number of terminal columns.
class ValueLine {
public:
    /// @param columns at most kMostColumns, or kNoLimit
    ValueLine(Output& out, std::size_t columns);

    /// Printable ASCII. @return false when the line is full: more would be thrown away
    bool Ascii(std::string_view text);
    /// UTF-8, made visible.
    bool Text(std::string_view text);
    bool Full() const { return m_overflow; }
    /// Ends the value. @param more there was more to show: the cut is marked in any case
    void End(bool more = false);

    static constexpr std::size_t kMostColumns = 4000;

private:
    bool Put(std::string_view bytes, std::size_t columns);

    Output& m_out;
    std::size_t m_limit;
    std::size_t m_used = 0;
    std::size_t m_start;
    std::size_t m_cut; ///< where the mark of a cut goes
    bool m_overflow = false;
};

} // namespace program
