/// @file FileName.h
/// File names made of texts that a peer or a file chose. Pure: knows texts alone.
#pragma once

#include <cstddef>
#include <string_view>

namespace vdicom {

/// The longest name that is made; room for a suffix is left below the 255 bytes that file systems take.
constexpr std::size_t kLongestFileName = 240;

/// Writes a name for `text` to `out`: letters, digits, '.', '-' and '_' as they are, all other bytes as "%2F". So are a
/// dot at the start or the end, a hyphen at the start, and the first letter of a name that Windows keeps for a device.
/// Different texts have different names.
/// @return its length, without a zero; 0: the text is empty, or the name would be longer than kLongestFileName
std::size_t MakeFileName(std::string_view text, char out[kLongestFileName]);

} // namespace vdicom
