/// @file AssociateCodec.h
/// A-ASSOCIATE-RQ and A-ASSOCIATE-AC PDUs (PS3.8 9.3.2, 9.3.3): bytes into records and back. Pure.
#pragma once

#include "AssociateRecord.h"
#include "Bytes.h"

#include <string_view>

namespace vdicom {

constexpr std::size_t kAssociateHeaderSize = 74;
constexpr std::uint8_t kUserIdentityItem = 0x58;
constexpr std::uint8_t kUserIdentityResponseItem = 0x59;

/// More than any sensible request has: 128 contexts with 40 transfer syntaxes each take a third of it. What is decoded
/// takes up to ten times the bytes of the PDU.
constexpr std::size_t kMostNetworkBytes = std::size_t{1} << 20;

enum class ForeignSubItems {
    refuse, ///< for bytes from the network, which also may be kMostNetworkBytes at most
    /// Kept deliberately for applications: the decoder does not step over a sub-item of a presentation context that is
    /// no syntax, and reads it again without end.
    readForEver
};

/// Decodes a PDU of which the header's length field plays no part.
/// @param request where role selections and extended negotiations are looked up by SOP class; null: `out`
/// @return 0, DICOM_ERROR_PARAMETER, DICOM_ERROR_ITEM_TYPE or DICOM_ERROR_ITEM_LENGTH; `out` holds what came before
unsigned int DecodeAssociate(ByteSpan pdu, ForeignSubItems foreign, const AssociateRecord* request,
                             AssociateRecord& out);

/// The bytes of the PDU. @return 0, or DICOM_ERROR_SIZE (an item would be longer than 65535 bytes)
unsigned int MeasureAssociate(const AssociateRecord& record, std::size_t& size);

/// Encodes into `size` bytes, which are at least those that MeasureAssociate tells; the rest is zero. The PDU length
/// field is made of `size`. @return the bytes of the PDU
std::size_t EncodeAssociate(const AssociateRecord& record, unsigned char* buffer, std::size_t size);

/// The characters up to the first zero, without the blanks at both ends.
std::string_view TrimmedText(ByteSpan bytes);

} // namespace vdicom
