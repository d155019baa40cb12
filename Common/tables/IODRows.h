/// @file IODRows.h
/// The built-in information object definitions, without pointers, so that they cost nothing at load time.
///
/// Rows stand in arrays of siblings. An array stands once, however many rows have it as their children: a module's
/// elements are shared by all classes that hold the module.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vdicom {

struct IODRow {
    std::uint16_t name;        ///< index into kIODClasses, kIODModules or kIODTags, by kind
    std::uint16_t children;    ///< array of the rows one level down; 0: none
    std::uint8_t kind;         ///< DICOMIODTYPE
    std::uint8_t usage;        ///< DICOMIODUSAGE
    std::uint32_t description; ///< offset in kIODTexts
};

struct IODName {
    std::uint32_t code; ///< class number, module number or tag
    std::uint32_t text; ///< offset of the name in kIODTexts
};

struct IODTable {
    std::size_t top;       ///< array of the classes
    std::size_t headNodes; ///< classes and modules of the whole tree
    std::size_t elementNodes;
    std::size_t tags; ///< different tags: the size of kIODTags
    std::size_t textSize;
};

/// More than there are different tags.
constexpr std::size_t kMostIODTags = 2048;

extern const IODTable kIODTable;
extern const IODRow kIODRows[];
extern const std::uint16_t kIODArrays[]; ///< array n begins at row kIODArrays[n] and ends where array n + 1 begins
extern const IODName kIODClasses[];
extern const IODName kIODModules[];
extern const IODName kIODTags[];
extern const char kIODTexts[]; ///< zero-terminated; at offset 0 an empty one

} // namespace vdicom
