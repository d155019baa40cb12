/// @file PduCodec.h
/// PDUs as bytes (PS3.8 9.3): framing, the short PDUs, and the presentation data values of a P-DATA-TF. The bodies of
/// the A-ASSOCIATE-RQ and -AC are AssociateCodec's. Pure: knows no socket and no association.
///
/// The connection receives into a PduReceiver, which asks ReadPdu; it sends the arrays that the Encode functions make,
/// and passes on what DecodeReject and DecodeAbort read. PDataAssembler walks the values of a P-DATA-TF with
/// DataValueReader, PDataSplitter writes their headers with EncodeDataHeader.
#pragma once

#include "Bytes.h"
#include "VDicomTypes.h"

#include <array>

namespace vdicom {

/// PDU types (PS3.8 9.3.1).
namespace pdu {
constexpr unsigned char kAssociateRequest = 1, kAssociateAccept = 2, kAssociateReject = 3, kData = 4,
                        kReleaseRequest = 5, kReleaseResponse = 6, kAbort = 7;
} // namespace pdu

constexpr std::size_t kPduHeader = 6;   ///< type, zero, length of what follows (4 bytes, big endian)
constexpr std::size_t kShortPdu = 10;   ///< reject, release, abort: always of this size
constexpr std::size_t kDataHeader = 12; ///< header of a P-DATA-TF and of its one presentation data value
/// What a P-DATA-TF of one value counts in its length beside the fragment.
constexpr std::size_t kDataValueHeader = 6;

/// The largest PDU length that is accepted unless the application says otherwise.
constexpr VDicomULong kLargestPdu = VDicomULong{128} << 20;
/// No limit may be larger: the header then still fits 32 bits.
constexpr VDicomULong kLargestPduLimit = DICOM_UNDEFINED - static_cast<VDicomULong>(kPduHeader);

/// "A-ASSOCIATE-RQ" and so on; "unknown PDU" for types that PS3.8 does not have.
const char* PduName(unsigned char type);

struct Pdu {
    unsigned char type = 0;
    ByteSpan bytes;         ///< the whole PDU, its header included; empty until it is complete
    std::size_t wanted = 0; ///< size of the whole PDU; kPduHeader while the header is incomplete
};

enum class PduRead {
    needMore, ///< incomplete: `wanted` bytes are needed from the start of the PDU
    done,     ///< `bytes` is the PDU; what stands behind it in the input is the next one
    bad       ///< its length is beyond the limit (DICOM_ERROR_PDU_LENGTH): nothing behind the header can be read
};

/// Looks at the PDU that `in` begins with; unknown types are framed like the others. `largest` is the greatest length
/// field that is accepted.
PduRead ReadPdu(ByteSpan in, VDicomULong largest, Pdu& out);

/// @name The short PDUs
/// @{
using ShortPdu = std::array<unsigned char, kShortPdu>;

ShortPdu EncodeReject(unsigned char result, unsigned char source, unsigned char reason); ///< PS3.8 9.3.4
ShortPdu EncodeReleaseRequest();                                                         ///< PS3.8 9.3.6
ShortPdu EncodeReleaseResponse();                                                        ///< PS3.8 9.3.7
ShortPdu EncodeAbort(unsigned char source, unsigned char reason);                        ///< PS3.8 9.3.8

/// Who refused or aborted, and why. Bytes that a PDU is too short for read as 0.
struct Refusal {
    unsigned char result = 0; ///< of a reject; 0 for an abort
    unsigned char source = 0;
    unsigned char reason = 0;
};
Refusal DecodeReject(ByteSpan pdu);
Refusal DecodeAbort(ByteSpan pdu);
/// @}

/// @name Presentation data values (PS3.8 9.3.5.1, E.2)
/// @{
struct DataValue {
    unsigned char contextId = 0;
    bool command = false; ///< a fragment of a command set, else of a data set
    bool last = false;    ///< the last fragment of that set
    ByteSpan fragment;    ///< part of the PDU that was given
};

/// Walks the presentation data values of one P-DATA-TF.
class DataValueReader {
public:
    explicit DataValueReader(ByteSpan pdu) : m_pdu(pdu) {}

    enum class Result {
        value, ///< `out` is the next one
        end,   ///< there are no more; also behind an item length below 2
        bad    ///< the value, or its header, runs past the end of the PDU (DICOM_ERROR_DATA_VALUE)
    };
    Result Next(DataValue& out);

private:
    ByteSpan m_pdu;
    std::size_t m_offset = kPduHeader;
};

/// Writes kDataHeader bytes: the headers of a P-DATA-TF with one value, which `fragment` bytes follow. That number and
/// kDataValueHeader must fit 32 bits.
void EncodeDataHeader(unsigned char out[kDataHeader], unsigned char contextId, bool command, bool last,
                      VDicomULong fragment);
/// @}

} // namespace vdicom
