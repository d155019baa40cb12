/// @file ElementHeader.h
/// Element headers as bytes (PS3.5 7.1). Pure: knows neither stream nor tree.
#pragma once

#include "Bytes.h"
#include "TransferSyntax.h"
#include "VDicomTypes.h"

namespace vdicom {

struct ElementHeader {
    VDicomULong tag = 0;
    unsigned short vr = 0; ///< vr::Implicit where the header has none
    VDicomULong length = 0;
    unsigned int size = 0;  ///< bytes of the header
    bool unknownVR = false; ///< an explicit header whose VR is no VR of the standard
    bool otherForm = false; ///< an implicit header in an explicit stream
};

constexpr unsigned int kLongestHeader = 12;

enum class Decoded { needMore, done };

/// Decodes the header at the start of `in`. Group 0002 is explicit VR little endian whatever `encoding` says, and
/// implicit where its VR is none. `in` may hold more than the header; `available` is how many bytes the stream has
/// from here on, against which doubtful forms are weighed.
Decoded DecodeHeader(ByteSpan in, Encoding encoding, VDicomUInt64 available, ElementHeader& out);

/// Encodes a header into `out` and gives its size; 0 when `length` does not fit a 16-bit length.
unsigned int EncodeHeader(unsigned char out[kLongestHeader], VDicomULong tag, unsigned short vr, VDicomULong length,
                          Encoding encoding);

/// Size of the header that EncodeHeader makes.
unsigned int HeaderSize(VDicomULong tag, unsigned short vr, Encoding encoding);

/// How the elements at `in` are encoded: `named`, unless the header there contradicts it and fits another encoding.
/// `sure` tells whether the header fits the encoding returned at all.
Encoding DetectEncoding(ByteSpan in, VDicomUInt64 available, Encoding named, bool& sure);

} // namespace vdicom
