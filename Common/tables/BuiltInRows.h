/// @file BuiltInRows.h
/// The built-in rows of the process-wide tables. Rows hold no pointers, so that they cost nothing at load time.
#pragma once

#include "VDicomTypes.h"

#include <cstddef>
#include <cstdint>

namespace vdicom {

struct TagRow {
    std::uint32_t code;
    std::uint32_t mask;
    std::uint16_t vr;
    std::uint32_t minVM;
    std::uint32_t maxVM;
    std::uint32_t divideVM;
};

struct VRRow {
    std::uint16_t code;
    std::uint32_t length;
    std::uint16_t restrict;
    std::uint16_t unitSize;
};

struct UIDRow {
    std::int32_t type;
};

/// The rows of one table and their texts, zero-terminated, one after another in row order.
template <class Row> struct BuiltInTable {
    const Row* rows;
    std::size_t count;
    const char* texts;
    std::size_t textSize; ///< bytes of all texts with their zeros
};

extern const BuiltInTable<TagRow> kTagTable; ///< one text per row: the name
extern const BuiltInTable<VRRow> kVRTable;   ///< one text per row: the name
extern const BuiltInTable<UIDRow> kUIDTable; ///< two texts per row: the UID, the name

} // namespace vdicom
