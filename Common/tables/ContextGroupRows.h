/// @file ContextGroupRows.h
/// The built-in context groups and their concepts, without pointers, so that they cost nothing at load time.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vdicom {

struct ContextGroupRow {
    std::uint32_t text;         ///< the CID; the name stands behind it
    std::uint16_t firstConcept; ///< index into the concepts
    std::uint16_t concepts;
    std::uint8_t extensible;
    std::uint16_t year;
    std::uint8_t month;
    std::uint8_t day;
    std::uint8_t included[7]; ///< row numbers plus one of the groups included; 0 ends them
};

struct ContextGroupTable {
    const ContextGroupRow* rows;
    std::size_t count;
    const std::uint32_t* concepts; ///< offset of the designator; value and meaning stand behind it
    const char* texts;             ///< zero-terminated
};

extern const ContextGroupTable kContextGroupTable;
extern const ContextGroupRow kContextGroupRows[];
extern const std::uint32_t kContextGroupConcepts[];
extern const char kContextGroupTexts[];

} // namespace vdicom
