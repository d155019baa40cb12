/// @file Writing.h
/// Saving data sets, with the reasons why it failed.
#pragma once

#include "VDicomDS.h"

#include <string>

namespace program {

/// Saves to a path, or to standard output for "-". @return empty, or what went wrong
std::string SaveTo(VDicomDS& ds, const std::string& path, unsigned short flags);

/// The transfer syntax that a data set is in.
struct SyntaxInForce {
    std::string uid;
    std::string name;        ///< the UID where it has no name
    bool compressed = false; ///< pixel data of this syntax are encapsulated
};
SyntaxInForce SyntaxOf(VDicomDS& ds);

/// Whether Pixel Data (7FE0,0010) are there in fragments.
bool HasEncapsulatedPixelData(VDicomDS& ds);

} // namespace program
