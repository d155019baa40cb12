/// @file DefaultVR.h
/// The VR of an element whose header has none.
#pragma once

#include "DataSetState.h"

#include <string>

namespace vdicom {

/// See VDicomDS::GetDefaultVR. @param creator the private creator of `tag`'s block when the caller has it already
unsigned short DefaultVR(const DataSetState& state, const DICOMELEMENT* parent, VDicomULong tag, bool compressed,
                         const std::string* creator);

} // namespace vdicom
