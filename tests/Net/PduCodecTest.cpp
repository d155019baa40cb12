// PDUs as bytes, and collecting them from what a socket happens to give.
#include "HexBytes.h"
#include "PduReceiver.h"

#include <gtest/gtest.h>

using namespace support;
using namespace vdicom;

namespace {

template <class Array> Bytes BytesOf(const Array& array) { return Bytes(array.begin(), array.end()); }

/// "1c!4142 2d:": context, command or data, '!' for the last fragment, its bytes; then how the walk ended.
std::string Values(const Bytes& pdu) {
    std::string text;
    DataValueReader reader({pdu.data(), pdu.size()});
    for (;;) {
        DataValue value;
        const DataValueReader::Result result = reader.Next(value);
        if (result != DataValueReader::Result::value)
            return text + (result == DataValueReader::Result::end ? "end" : "bad");
        EXPECT_LE(value.fragment.data + value.fragment.size, pdu.data() + pdu.size());
        text += std::to_string(value.contextId) + (value.command ? "c" : "d") + (value.last ? "!" : ":");
        text.append(reinterpret_cast<const char*>(value.fragment.data), value.fragment.size);
        text += ' ';
    }
}

Bytes WithLength(Bytes bytes, std::size_t at, std::uint32_t length) {
    Put32(bytes.data() + at, length, false);
    return bytes;
}

} // namespace

TEST(PduCodec, ShortPdus) {
    // Type, 0, length 4; then as each PDU has it.
    EXPECT_EQ(BytesOf(EncodeReject(1, 2, 3)), "03 00 00000004 00 01 02 03"_bytes);
    EXPECT_EQ(BytesOf(EncodeReleaseRequest()), "05 00 00000004 00000000"_bytes);
    EXPECT_EQ(BytesOf(EncodeReleaseResponse()), "06 00 00000004 00000000"_bytes);
    EXPECT_EQ(BytesOf(EncodeAbort(2, 6)), "07 00 00000004 00 00 02 06"_bytes);
    const Bytes reject = "03 00 00000004 00 01 02 03"_bytes;
    const unsigned char expected[] = {1, 2, 3};
    for (std::size_t size = 0; size <= reject.size(); ++size) {
        const Refusal one = DecodeReject({reject.data(), size});
        EXPECT_EQ(one.result, size > 7 ? expected[0] : 0);
        EXPECT_EQ(one.source, size > 8 ? expected[1] : 0);
        EXPECT_EQ(one.reason, size > 9 ? expected[2] : 0);
        EXPECT_EQ(DecodeAbort({reject.data(), size}).result, 0);
        EXPECT_EQ(DecodeAbort({reject.data(), size}).reason, size > 9 ? expected[2] : 0);
    }
    EXPECT_STREQ(PduName(4), "P-DATA-TF");
    EXPECT_STREQ(PduName(8), PduName(0));
}

TEST(PduCodec, DataValues) {
    const Bytes two = "04 00 00000011"             // P-DATA-TF of 17 bytes:
                      "00000005 01 03 'abc'"       // context 1, command, last
                      "00000004 05 00 'de'"_bytes; // context 5, data, not the last
    EXPECT_EQ(Values(two), "1c!abc 5d:de end");
    EXPECT_EQ(Values("04 00 00000006 00000002 03 02"_bytes), "3d! end") << "an empty last fragment is a value";
    for (std::size_t size = 0; size < two.size(); ++size) {
        const std::string expected = size <= 6 ? "end" : size < 15 ? "bad" : size == 15 ? "1c!abc end" : "1c!abc bad";
        EXPECT_EQ(Values(Bytes(two.begin(), two.begin() + static_cast<std::ptrdiff_t>(size))), expected) << size;
    }
    for (const std::uint32_t length : {0U, 1U})
        EXPECT_EQ(Values(WithLength(two, 15, length)), "1c!abc end") << "too short for its header: the rest is left";
    for (const std::uint32_t length : {5U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFBU, 0xFFFFFFFCU, 0xFFFFFFFFU})
        EXPECT_EQ(Values(WithLength(two, 15, length)), "1c!abc bad") << length;
    EXPECT_EQ(Values(WithLength(two, 6, 13)), "1c!abc" + std::string("\0\0\0\4\5\0de", 8) + " end");

    unsigned char header[kDataHeader];
    EncodeDataHeader(header, 5, false, true, 0x010203);
    EXPECT_EQ(Bytes(header, header + sizeof header), "04 00 00010209 00010205 05 02"_bytes);
}

TEST(PduReceiver, AnyCutGivesTheSamePdus) {
    // Every type, unknown ones too; empty, small, larger than the read-ahead, larger than what is kept.
    Bytes stream;
    std::vector<Bytes> pdus;
    unsigned char type = 0;
    for (const std::size_t size : {0U, 4U, 16378U, 1U, 70000U, 200U, 1500000U, 3U, 5U, 65530U, 12U, 66U}) {
        Bytes pdu(kPduHeader + size, static_cast<unsigned char>(0xA0 + type));
        pdu[0] = type++;
        Put32(pdu.data() + 2, static_cast<std::uint32_t>(size), false);
        stream = stream + pdu;
        pdus.push_back(std::move(pdu));
    }
    std::uint32_t random = 1;
    for (const std::size_t most : {0U, 5U, 4096U, 1000000U}) { // 0: one byte, but whole for the huge one
        PduReceiver receiver;
        std::size_t at = 0;
        std::size_t found = 0;
        bool shrunk = false;
        while (at < stream.size() || receiver.HasBytes()) {
            Pdu pdu;
            if (receiver.Next(pdu) == PduRead::done) {
                ASSERT_LT(found, pdus.size());
                ASSERT_EQ(pdu.type, pdus[found][0]);
                ASSERT_TRUE(Bytes(pdu.bytes.data, pdu.bytes.data + pdu.bytes.size) == pdus[found]) << found;
                ++found;
                receiver.Drop();
                shrunk = shrunk || (found > 7 && receiver.Capacity() <= PduReceiver::kReadAhead);
                continue;
            }
            const std::size_t before = receiver.Capacity();
            const PduReceiver::Space room = receiver.Room();
            ASSERT_GT(room.size, 0u);
            ASSERT_LE(receiver.Capacity(), std::max({before, PduReceiver::kReadAhead, 2 * receiver.Held()}));
            random = random * 1664525 + 1013904223;
            const bool whole = most == 0 && receiver.Expected() > 70000;
            std::size_t size = whole ? room.size : most == 0 ? 1 : 1 + (random >> 8) % most;
            size = std::min({size, room.size, stream.size() - at});
            std::memcpy(room.data, stream.data() + at, size);
            receiver.Received(size);
            at += size;
        }
        EXPECT_EQ(found, pdus.size());
        EXPECT_TRUE(shrunk) << "the buffer of the huge PDU is given back";
    }
}

TEST(PduReceiver, ClaimsCostNothingAndLimitsHold) {
    const struct {
        Bytes header;
        VDicomULong largest;
        PduRead result;
    } cases[] = {
        {"04 00 08000000"_bytes, kLargestPdu, PduRead::needMore}, // 128 MiB, the default limit
        {"04 00 08000001"_bytes, kLargestPdu, PduRead::bad},
        {"04 00 FFFFFFFF"_bytes, DICOM_UNDEFINED, PduRead::bad}, // would not fit 32 bits with its header
        {"04 00 FFFFFFF9"_bytes, DICOM_UNDEFINED, PduRead::needMore},
        {"'GET / '"_bytes, kLargestPdu, PduRead::bad},              // a web browser
        {"16 03 01 0200 01"_bytes, kLargestPdu, PduRead::needMore}, // TLS to a plain port: waits for 16 MiB
        {"04 00 00000001"_bytes, 0, PduRead::bad},
    };
    for (const auto& one : cases) {
        PduReceiver receiver;
        receiver.SetLargest(one.largest);
        Pdu pdu;
        for (std::size_t i = 0; i < one.header.size(); ++i) {
            ASSERT_EQ(receiver.Next(pdu), PduRead::needMore);
            EXPECT_EQ(receiver.Expected(), 0u);
            *receiver.Room().data = one.header[i];
            receiver.Received(1);
        }
        EXPECT_EQ(receiver.Next(pdu), one.result) << one.header[0];
        EXPECT_EQ(receiver.Next(pdu), one.result);
        EXPECT_EQ(receiver.Capacity(), PduReceiver::kFirst);
        receiver.Reset();
        EXPECT_EQ(receiver.Next(pdu), PduRead::needMore);
    }
}
