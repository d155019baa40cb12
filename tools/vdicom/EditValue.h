/// @file EditValue.h
/// Values from the command line into elements.
#pragma once

#include "VDicomDS.h"

#include <string>

namespace program {

/// Sets the value of an element from the text behind "=": UTF-8 in DICOM's own forms, binary numbers in decimal or as
/// 0x..., tags as (gggg,eeee), values divided by backslashes; "@FILE" takes the bytes of a file, "@@" begins a text
/// with one "@". An empty text makes the value empty.
/// @return what is wrong; empty: the value is set
std::string SetValueFromText(VDicomDS& ds, DICOMELEMENT* e, const std::string& text);

/// Sets or deletes (null `value`) the Specific Character Set (0008,0005) of a level; every text that it speaks of is
/// converted, so that it reads the same afterwards. @param parent the item; null: top level
/// @return what is wrong; empty: it is done
std::string ChangeCharacterSet(VDicomDS& ds, DICOMELEMENT* parent, const std::string* value);

} // namespace program
