#include "PduCodec.h"

namespace vdicom {

namespace {

constexpr unsigned char kCommandBit = 1;
constexpr unsigned char kLastBit = 2;
constexpr std::size_t kItemLength = 4;

unsigned char ByteAt(ByteSpan pdu, std::size_t offset) { return offset < pdu.size ? pdu.data[offset] : 0; }

ShortPdu Encode(unsigned char type, unsigned char seventh, unsigned char eighth, unsigned char ninth) {
    return {type, 0, 0, 0, 0, kShortPdu - kPduHeader, 0, seventh, eighth, ninth};
}

} // namespace

const char* PduName(unsigned char type) {
    static constexpr const char* names[] = {"unknown PDU", "A-ASSOCIATE-RQ", "A-ASSOCIATE-AC", "A-ASSOCIATE-RJ",
                                            "P-DATA-TF",   "A-RELEASE-RQ",   "A-RELEASE-RP",   "A-ABORT"};
    return names[type <= pdu::kAbort ? type : 0];
}

PduRead ReadPdu(ByteSpan in, VDicomULong largest, Pdu& out) {
    out = {};
    out.wanted = kPduHeader;
    if (in.size < kPduHeader)
        return PduRead::needMore;
    out.type = in.data[0];
    const VDicomULong length = Get32(in.data + 2, false);
    if (length > std::min(largest, kLargestPduLimit))
        return PduRead::bad;
    out.wanted = kPduHeader + length;
    if (in.size < out.wanted)
        return PduRead::needMore;
    out.bytes = {in.data, out.wanted};
    return PduRead::done;
}

ShortPdu EncodeReject(unsigned char result, unsigned char source, unsigned char reason) {
    return Encode(pdu::kAssociateReject, result, source, reason);
}

ShortPdu EncodeReleaseRequest() { return Encode(pdu::kReleaseRequest, 0, 0, 0); }

ShortPdu EncodeReleaseResponse() { return Encode(pdu::kReleaseResponse, 0, 0, 0); }

ShortPdu EncodeAbort(unsigned char source, unsigned char reason) { return Encode(pdu::kAbort, 0, source, reason); }

Refusal DecodeReject(ByteSpan pdu) { return {ByteAt(pdu, 7), ByteAt(pdu, 8), ByteAt(pdu, 9)}; }

Refusal DecodeAbort(ByteSpan pdu) { return {0, ByteAt(pdu, 8), ByteAt(pdu, 9)}; }

DataValueReader::Result DataValueReader::Next(DataValue& out) {
    if (m_offset >= m_pdu.size)
        return Result::end;
    const std::size_t left = m_pdu.size - m_offset;
    if (left < kItemLength)
        return Result::bad;
    const unsigned char* item = m_pdu.data + m_offset;
    const VDicomULong length = Get32(item, false);
    if (length < 2) {
        m_offset = m_pdu.size;
        return Result::end;
    }
    if (length > left - kItemLength)
        return Result::bad;
    out.contextId = item[4];
    out.command = (item[5] & kCommandBit) != 0;
    out.last = (item[5] & kLastBit) != 0;
    out.fragment = {item + kDataValueHeader, length - 2};
    m_offset += kItemLength + length;
    return Result::value;
}

void EncodeDataHeader(unsigned char out[kDataHeader], unsigned char contextId, bool command, bool last,
                      VDicomULong fragment) {
    out[0] = pdu::kData;
    out[1] = 0;
    Put32(out + 2, static_cast<std::uint32_t>(fragment + kDataValueHeader), false);
    Put32(out + kPduHeader, static_cast<std::uint32_t>(fragment + 2), false);
    out[10] = contextId;
    out[11] = static_cast<unsigned char>((command ? kCommandBit : 0) | (last ? kLastBit : 0));
}

} // namespace vdicom
