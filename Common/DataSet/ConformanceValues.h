/// @file ConformanceValues.h
/// Whether values obey their VR (PS3.5 6.2): characters, lengths, forms of dates, times, numbers and UIDs. Pure.
///
/// Stricter than the parsers of ValueText and ValueDates, which read what is met.
#pragma once

#include "VRTraits.h"

#include <cstddef>
#include <string_view>

namespace vdicom {

enum class ValueFault : unsigned char {
    none,
    character, ///< a character that the VR does not allow
    length,    ///< too long
    form,      ///< no date, time, age, number or name
    uid        ///< no UID
};

struct ValueVerdict {
    ValueFault fault = ValueFault::none;
    const char* reason = ""; ///< what the VR demands, "at most 16 characters"
};

/// Judges one value of a text VR as it stands between backslashes, padding at the end of the whole text left out.
/// @param characters how many characters the value has; its size where each is one byte
ValueVerdict CheckTextValue(unsigned short code, std::string_view value, std::size_t characters);

/// How many values a binary VR has in this many bytes; 0 when they are no whole number of values.
/// VRs whose bytes are one value (OB, OW ...) have one.
std::size_t CountBinaryValues(unsigned short code, std::size_t length);
/// Bytes of one value of a VR whose lengths are multiples of that; 1 for all others.
std::size_t BinaryValueSize(unsigned short code);

/// The bytes without blanks and zeros at their end. @param zeros whether there were zeros that do not belong there
std::string_view WithoutPadding(unsigned short code, std::string_view text, bool& zeros);

} // namespace vdicom
