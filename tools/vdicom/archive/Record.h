/// @file Record.h
/// What the index keeps of an object.
#pragma once

#include "Attributes.h"
#include "Outcome.h"

#include "VDicomDS.h"

#include <string>
#include <vector>

namespace archive {

/// As far as an object has to be loaded: behind the last attribute.
inline constexpr VDicomULong kLastIndexed = 0x0070FFFF;

/// The values of the attributes, by their number in kAttributes: UTF-8, values joined by backslashes, without padding.
class Record {
public:
    Record() : m_values(kAttributeCount) {}

    std::string& operator[](const Attribute& attribute) { return m_values[NumberOf(attribute)]; }
    const std::string& operator[](const Attribute& attribute) const { return m_values[NumberOf(attribute)]; }
    const std::string& Get(VDicomULong tag) const { return (*this)[*FindAttribute(tag)]; }

private:
    std::vector<std::string> m_values;
};

/// The value of an element of the top level as the index keeps it. A value that is longer than any attribute of the
/// index may be (16 KiB) is left out.
/// @param scratch memory for the conversion, kept between calls
void ReadText(VDicomDS& ds, DICOMELEMENT* e, unsigned short vr, std::vector<char>& scratch, std::string& text);

/// Reads the attributes of a loaded data set.
/// @return 0xC000 when a UID that the index needs is missing, or is none
Outcome ReadRecord(VDicomDS& ds, Record& record);

/// Digits and dots, at most 64 of them.
bool IsUid(std::string_view text);

} // namespace archive
