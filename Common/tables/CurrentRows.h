/// @file CurrentRows.h
/// Read-only tables of today's edition of the standard and of vendors' private attributes.
///
/// Everything is constant data without pointers: texts are offsets into one block, and each key has a table of slots
/// made beforehand. A key's hash names its first slot; each slot holds a row number plus one, and an empty slot (0)
/// ends the search. CurrentTables.cpp does the look-ups with the hashes described there.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vdicom {

/// The possible VRs of an attribute.
struct VRChoice {
    std::uint16_t vr;
    std::uint16_t other; ///< the second one, or 0
};

/// A value multiplicity.
struct Multiplicity {
    std::uint32_t minVM;
    std::uint32_t maxVM;
    std::uint32_t divideVM;
};

struct CurrentTagRow {
    std::uint32_t code;
    std::uint32_t text; ///< the name; the keyword stands behind it
    std::uint8_t mask;  ///< index into kCurrentMasks
    std::uint8_t vr;    ///< index into kCurrentVRs
    std::uint8_t vm;    ///< index into kCurrentVMs
    std::uint8_t retired;
};

struct CurrentUIDRow {
    std::uint32_t text; ///< the UID; name and keyword stand behind it
    std::uint8_t type;  ///< index into kCurrentUIDTypes
    std::uint8_t retired;
};

/// Which tags a private row stands for, within its creator.
enum class PrivateForm : std::uint8_t {
    element,          ///< group and low byte of the element
    repeatingElement, ///< high byte of the group and low byte of the element
    group,            ///< every element of the group that has no row of its own
    creators          ///< the private creator elements of the group
};

struct PrivateTagRow {
    std::uint32_t text; ///< the name
    std::uint16_t creator;
    std::uint16_t group;
    std::uint8_t element;
    std::uint8_t form; ///< PrivateForm
    std::uint8_t vr;   ///< index into kPrivateVRs
    std::uint8_t vm;   ///< index into kPrivateVMs
};

/// Slots of one key: 2 to the power of `bits`.
struct SlotTable {
    const std::uint16_t* slots;
    unsigned int bits;
};

extern const CurrentTagRow kCurrentTagRows[];
extern const std::size_t kCurrentTagCount;
extern const char kCurrentTagTexts[];
extern const std::uint32_t kCurrentMasks[]; ///< the first is FFFFFFFF
extern const std::size_t kCurrentMaskCount;
extern const VRChoice kCurrentVRs[];
extern const Multiplicity kCurrentVMs[];
extern const SlotTable kCurrentTagSlots;     ///< by mask and code
extern const SlotTable kCurrentKeywordSlots; ///< by keyword; rows without one are not in it

extern const CurrentUIDRow kCurrentUIDRows[];
extern const std::size_t kCurrentUIDCount;
extern const char kCurrentUIDTexts[];
extern const std::uint32_t kCurrentUIDTypes[]; ///< offsets into kCurrentUIDTexts
extern const SlotTable kCurrentUIDSlots;       ///< by UID

extern const PrivateTagRow kPrivateTagRows[];
extern const std::size_t kPrivateTagCount;
extern const char kPrivateTexts[];
extern const VRChoice kPrivateVRs[];
extern const Multiplicity kPrivateVMs[];
extern const std::uint32_t kPrivateCreators[]; ///< offsets into kPrivateTexts
extern const std::size_t kPrivateCreatorCount;
extern const SlotTable kPrivateCreatorSlots; ///< by creator; slots hold creator numbers
extern const SlotTable kPrivateTagSlots;     ///< by creator, group, form and element

} // namespace vdicom
