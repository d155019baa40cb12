/// @file CurrentTables.h
/// Look-ups in the read-only tables of today's edition and of private attributes. All of them are constant time.
#pragma once

#include "VDicomTag.h"
#include "VDicomUID.h"

namespace vdicom {

/// No row has this number.
constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

/// Row of the attribute with this tag, or kNoRow. Private tags are in no row: a repeating group is an even one.
std::size_t FindCurrentTag(VDicomULong tag);
std::size_t FindCurrentKeyword(const char* keyword);
/// Reads a row; `out` may be null. False when there is no such row.
bool CurrentTag(std::size_t row, DICOMCURRENTTAG* out);

/// Whether the table has attributes of this private creator.
bool IsPrivateCreator(const char* creator, std::size_t length);
/// Fills `out` (which may be null) with the private attribute; its code and mask match the tag whatever its block.
bool FindPrivateTag(const char* creator, std::size_t length, VDicomULong tag, DICOMCURRENTTAG* out);

std::size_t FindCurrentUID(const char* uid);
bool CurrentUID(std::size_t row, DICOMCURRENTUID* out);

} // namespace vdicom
