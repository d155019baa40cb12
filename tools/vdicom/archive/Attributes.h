/// @file Attributes.h
/// The attributes that the index keeps, one row each: the required, unique and usual optional keys of PS3.4 C.6.1 and
/// C.6.2. The same rows make the tables of the index, fill them from stored objects, and answer queries.
#pragma once

#include "VDicomTypes.h"

#include <cstddef>

namespace archive {

/// The levels of the query/retrieve models, from the top down.
enum class Level : unsigned char { patient, study, series, image };
constexpr std::size_t kLevels = 4;

constexpr std::size_t Number(Level level) { return static_cast<std::size_t>(level); }
constexpr Level Below(Level level) { return static_cast<Level>(Number(level) + 1); }

struct Attribute {
    VDicomULong tag;
    unsigned short vr;
    Level level;
    bool multiple;        ///< may have several values
    const char* column;   ///< of the level's table
    const char* computed; ///< in SQL, where the table has no such column; else null
};

/// Ascending by tag.
extern const Attribute kAttributes[];
extern const std::size_t kAttributeCount;

/// @return null when the index does not keep the attribute
const Attribute* FindAttribute(VDicomULong tag);
inline std::size_t NumberOf(const Attribute& attribute) { return static_cast<std::size_t>(&attribute - kAttributes); }

/// The name of a level's table.
const char* TableOf(Level level);
/// The attribute that tells the members of a level apart.
const Attribute& UniqueKeyOf(Level level);

namespace tag {
constexpr VDicomULong kTransferSyntax = 0x00020010, kCharacterSet = 0x00080005, kClass = 0x00080016,
                      kInstance = 0x00080018, kLevel = 0x00080052, kRetrieveAE = 0x00080054, kAvailability = 0x00080056,
                      kView = 0x00080053, kAvailableSyntax = 0x00083002, kPatientName = 0x00100010,
                      kPatientID = 0x00100020, kIssuer = 0x00100021, kBirthDate = 0x00100030, kStudy = 0x0020000D,
                      kSeries = 0x0020000E, kItem = 0xFFFEE000, kTimezone = 0x00080201;
} // namespace tag

} // namespace archive
