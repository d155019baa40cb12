/// @file ConformanceConditions.h
/// What depends on other elements: conditions of types 1C and 2C that the data set itself answers (PS3.3 C), file meta
/// information (PS3.10 7.1), and elements that contradict each other.
#pragma once

#include "Conformance.h"

namespace vdicom {

/// What a rule demands where the walk stands.
enum class Need : unsigned char {
    nothing, ///< or nobody can say
    absence, ///< the element must not be there
    element, ///< it must be there and may be empty
    value    ///< it must be there with a value
};

/// For a rule of the level that the walk has entered.
Need JudgeNeed(ConformanceWalk& walk, const ElementRule& rule);
/// The reason of Need::absence.
const char* WhyAbsent(VDicomULong tag);

/// Whether a module of the directory class ("Study Keys") speaks of the record that the walk has entered.
bool IsModuleOfRecord(ConformanceWalk& walk, std::string_view module);

/// Group 0002.
void CheckMeta(ConformanceWalk& walk);
/// To be called at the top level.
void CheckConsistency(ConformanceWalk& walk);

} // namespace vdicom
