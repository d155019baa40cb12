/// @file DictTrees.h
/// vdicom dict iod and vdicom dict cid: the tables that are trees.
#pragma once

#include "VDicomIOD.h"

#include <string>
#include <vector>

namespace program {

class Output;

/// The classes that a number, a SOP class UID, a keyword or a name is; where it is none of these, those whose name,
/// keyword or UID holds it. Upper and lower case do not count.
std::vector<DICOMIOD*> FindClasses(const std::string& text);

/// Writes the classes that a number, a SOP class UID or a part of the name or keyword means: a single one with its
/// modules and elements, several as lines; as JSON always with everything. @return false when there is none
bool WriteClasses(const std::string& text, bool json, Output& out);

/// The same for context groups, by CID ("CID 29", "29") or a part of the name, with concepts and inclusions.
bool WriteContextGroups(const std::string& text, bool json, Output& out);

} // namespace program
