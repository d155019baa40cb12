/// @file VRTraits.h
/// What the codec knows of every VR of the standard, the newer ones included. Pure.
#pragma once

#include "VDicomTypes.h"

namespace vdicom {

namespace vr {
/// What ReadElement gives for an implicit VR that has not been resolved.
constexpr unsigned short Implicit = 0xFFFF;
} // namespace vr

/// The nature of a VR.
struct VRTraits {
    unsigned short code;
    unsigned char unit; ///< bytes that are swapped together between byte orders (AT: 2)
    bool longHeader;    ///< 12-byte explicit header
    bool text;          ///< characters
    bool multiple;      ///< text divided at backslashes
    bool charset;       ///< text that (0008,0005) speaks of
    char pad;           ///< what makes a value even
};

/// The traits of a VR, or null for two letters that are none. Constant time.
const VRTraits* FindVRTraits(unsigned short code);

/// Unit that is swapped; 1 for unknown VRs.
unsigned int SwapUnit(unsigned short code);

/// 12-byte explicit header (PS3.5 7.1.2). VRs that are unknown have it when they are newer than the library, as
/// PS3.5 demands of every VR to come.
bool HasLongHeader(unsigned short code);

/// The character that makes a value of this VR even: a blank after text, zero after UI and binary values.
unsigned char PadByte(unsigned short code);

} // namespace vdicom
