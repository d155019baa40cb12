/// @file SavePlan.h
/// What save flags mean for a data set.
#pragma once

#include "DataSetState.h"

namespace vdicom {

struct SavePlan {
    Encoding encoding;
    bool part10 = false;   ///< preamble and "DICM"
    bool bare = false;     ///< no group 0002
    bool deflated = false; ///< everything behind group 0002
    bool compressed = false;
    bool keepUID = false;
    bool possible = true; ///< false: big endian with implicit VR

    /// Bytes before the first element.
    VDicomUInt64 Prefix() const { return part10 ? 132 : 0; }
};

/// Completes save flags by the data set's own.
SavePlan PlanSave(const DataSetState& state, unsigned short flags);

/// The transfer syntax that (0002,0010) names; `isNamed` tells whether it does.
TransferSyntax NamedTransferSyntax(const DataSetState& state, bool& isNamed);

/// A short text value as stored, trimmed of blanks and zeros at its end; empty when there is none.
std::string TextOf(const DataSetState& state, const DICOMELEMENT* e);

} // namespace vdicom
