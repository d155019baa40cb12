/// @file Vr.h
/// The VRs of the standard (PS3.5 6.2), and what the program does with each.
#pragma once

#include "VDicomTypes.h"

namespace program {

namespace vr = vdicom::vr;

/// How a value is made up.
enum class Kind : unsigned char {
    unknown,  ///< no VR of the standard
    text,     ///< characters of the data set's character set, several values
    longText, ///< the same, one value
    code,     ///< ASCII characters, several values
    uri,      ///< ASCII characters, one value
    number,   ///< binary numbers, tags among them
    bulk,     ///< OB and its like, UN
    sequence
};

struct VrNature {
    Kind kind;
    unsigned char unit; ///< bytes of one binary number
    bool real;          ///< floating point
    bool isSigned;      ///< integer with a sign
    bool trimFront;     ///< blanks at the start of a value mean nothing
};

constexpr VrNature NatureOf(unsigned short code) {
    switch (code) {
    case vr::LO:
    case vr::PN:
    case vr::SH:
        return {Kind::text, 1, false, false, true};
    case vr::UC:
        return {Kind::text, 1, false, false, false};
    case vr::LT:
    case vr::ST:
    case vr::UT:
        return {Kind::longText, 1, false, false, false};
    case vr::AE:
    case vr::AS:
    case vr::CS:
    case vr::DS:
    case vr::IS:
    case vr::UI:
        return {Kind::code, 1, false, false, true};
    case vr::DA:
    case vr::DT:
    case vr::TM:
        return {Kind::code, 1, false, false, false};
    case vr::UR:
        return {Kind::uri, 1, false, false, false};
    case vr::AT:
        return {Kind::number, 4, false, false, false};
    case vr::US:
        return {Kind::number, 2, false, false, false};
    case vr::SS:
        return {Kind::number, 2, false, true, false};
    case vr::UL:
        return {Kind::number, 4, false, false, false};
    case vr::SL:
        return {Kind::number, 4, false, true, false};
    case vr::UV:
        return {Kind::number, 8, false, false, false};
    case vr::SV:
        return {Kind::number, 8, false, true, false};
    case vr::FL:
        return {Kind::number, 4, true, true, false};
    case vr::FD:
        return {Kind::number, 8, true, true, false};
    case vr::OB:
    case vr::UN:
        return {Kind::bulk, 1, false, false, false};
    case vr::OW:
        return {Kind::bulk, 2, false, false, false};
    case vr::OL:
        return {Kind::bulk, 4, false, false, false};
    case vr::OV:
        return {Kind::bulk, 8, false, false, false};
    case vr::OF:
        return {Kind::bulk, 4, true, true, false};
    case vr::OD:
        return {Kind::bulk, 8, true, true, false};
    case vr::SQ:
        return {Kind::sequence, 1, false, false, false};
    default:
        return {Kind::unknown, 1, false, false, false};
    }
}

constexpr VDicomULong kItem = 0xFFFEE000, kPixelData = 0x7FE00010, kSpecificCharacterSet = 0x00080005;

constexpr bool IsGroupLength(VDicomULong tag) { return (tag & 0xFFFF) == 0; }
constexpr bool IsMeta(VDicomULong tag) { return (tag >> 16) == 2; }
constexpr bool IsPrivate(VDicomULong tag) { return ((tag >> 16) & 1) != 0; }
constexpr bool HasChildren(const DICOMELEMENT* e) { return e->nLength == DICOM_UNDEFINED; }

inline DICOMELEMENT* FirstChild(const DICOMELEMENT* e) { return reinterpret_cast<DICOMELEMENT*>(e->Link.pFirstChild); }
inline DICOMELEMENT* NextSibling(const DICOMELEMENT* e) { return reinterpret_cast<DICOMELEMENT*>(e->Link.pNext); }
inline DICOMELEMENT* Parent(const DICOMELEMENT* e) { return reinterpret_cast<DICOMELEMENT*>(e->Link.pParent); }

} // namespace program
