/// @file Bytes.h
/// Reading and writing numbers in byte ranges. Pure: knows no stream and no data set.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vdicom {

/// A range of bytes that somebody else owns.
struct ByteSpan {
    const unsigned char* data = nullptr;
    std::size_t size = 0;
};

inline std::uint16_t Get16(const unsigned char* p, bool littleEndian) {
    return static_cast<std::uint16_t>(littleEndian ? p[0] | (p[1] << 8) : (p[0] << 8) | p[1]);
}

inline std::uint32_t Get32(const unsigned char* p, bool littleEndian) {
    const std::uint32_t first = Get16(p, littleEndian);
    const std::uint32_t second = Get16(p + 2, littleEndian);
    return littleEndian ? first | (second << 16) : (first << 16) | second;
}

inline void Put16(unsigned char* p, std::uint16_t value, bool littleEndian) {
    p[littleEndian ? 0 : 1] = static_cast<unsigned char>(value & 0xFF);
    p[littleEndian ? 1 : 0] = static_cast<unsigned char>(value >> 8);
}

inline void Put32(unsigned char* p, std::uint32_t value, bool littleEndian) {
    Put16(p + (littleEndian ? 0 : 2), static_cast<std::uint16_t>(value & 0xFFFF), littleEndian);
    Put16(p + (littleEndian ? 2 : 0), static_cast<std::uint16_t>(value >> 16), littleEndian);
}

inline std::uint16_t Reversed(std::uint16_t value) { return static_cast<std::uint16_t>((value >> 8) | (value << 8)); }

inline std::uint32_t Reversed(std::uint32_t value) {
    return (value >> 24) | ((value >> 8) & 0xFF00) | ((value << 8) & 0xFF0000) | (value << 24);
}

inline std::uint64_t Reversed(std::uint64_t value) {
    return (std::uint64_t{Reversed(static_cast<std::uint32_t>(value))} << 32) |
           Reversed(static_cast<std::uint32_t>(value >> 32));
}

template <class Number> void SwapNumbers(unsigned char* p, std::size_t size) {
    for (std::size_t at = 0; at + sizeof(Number) <= size; at += sizeof(Number)) {
        Number number;
        std::memcpy(&number, p + at, sizeof number);
        number = Reversed(number);
        std::memcpy(p + at, &number, sizeof number);
    }
}

/// Reverses the bytes of every whole unit; bytes behind the last whole unit stay.
inline void SwapUnits(unsigned char* p, std::size_t size, std::size_t unit) {
    // Loops over numbers become vector instructions.
    if (unit == 2)
        SwapNumbers<std::uint16_t>(p, size);
    else if (unit == 4)
        SwapNumbers<std::uint32_t>(p, size);
    else if (unit == 8)
        SwapNumbers<std::uint64_t>(p, size);
    else
        for (std::size_t at = 0; unit > 1 && at + unit <= size; at += unit)
            std::reverse(p + at, p + at + unit);
}

} // namespace vdicom
