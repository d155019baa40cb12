/// @file TransferSyntax.h
/// Transfer syntaxes as values: looked up once, never compared as text inside the codec. Pure.
#pragma once

#include "VDicomTypes.h"

namespace vdicom {

/// How elements are encoded.
struct Encoding {
    bool littleEndian = true;
    bool explicitVR = true;
    bool operator==(const Encoding&) const = default;

    unsigned short Code() const {
        return static_cast<unsigned short>((littleEndian ? DICOM_FLAG_LITTLE : DICOM_FLAG_BIG) |
                                           (explicitVR ? DICOM_FLAG_EXPLICIT : DICOM_FLAG_IMPLICIT));
    }
    /// From bits 2-5 of a flags word; little endian and implicit VR where they say nothing.
    static Encoding FromFlags(unsigned short flags) {
        return {(flags & DICOM_FLAG_BIG) == 0, (flags & DICOM_FLAG_EXPLICIT) != 0};
    }
};

struct TransferSyntax {
    const char* uid;
    Encoding encoding;
    VDicomLong compression; ///< as VDicomDS::GetTS; 9: encapsulated, and newer than the table
    bool deflated;
    bool known; ///< false: the UID is none that the library knows; implicit VR little endian
};

/// The transfer syntax of a UID, which may be padded with blanks or zeros; an unknown one is implicit little endian.
TransferSyntax FindTransferSyntax(const char* uid);

/// The UID of an uncompressed encoding.
const char* EncodingUID(Encoding encoding, bool deflated);

} // namespace vdicom
