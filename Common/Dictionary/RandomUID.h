/// @file RandomUID.h
/// Unique identifiers from random UUIDs (PS3.5 B.2).
#pragma once

#include <array>
#include <cstdint>

namespace vdicom {

/// Writes "2.25." and a random UUID (RFC 4122, version 4) as a decimal number; `uid` takes at most 45 bytes with its
/// zero. False when the system gives no randomness.
bool MakeRandomUID(char* uid);

/// Writes "2.25." and the 128-bit number, whose most significant word comes first, in decimal.
void WriteNumberUID(std::array<std::uint32_t, 4> words, char* uid);

} // namespace vdicom
