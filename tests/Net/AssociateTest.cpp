// Association PDUs: literal bytes decoded and encoded, every damage to them, the limits of the setters, memory that
// runs out.
#include "CountedMemory.h"
#include "HexBytes.h"
#include "VDicomAssociatePolicy.h"
#include "VDicomUID.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <thread>

using namespace support;

namespace {

// A-ASSOCIATE-RQ, protocol version 1, called "ARCHIVE", calling "MODALITY": PS3.8 Table 9-11.
const Bytes kHeader = "01 00 00000000 0001 0000 'ARCHIVE         ' 'MODALITY        '"_bytes + Bytes(32, 0);
// Application context "1.2.840.10008.3.1.1.1".
const Bytes kApplication = "10 00 0015 '1.2.840.10008.3.1.1.1'"_bytes;
// Context 1: Verification, implicit VR little endian.
const Bytes kVerification =
    "20 00 002E 01 00 00 00  30 00 0011 '1.2.840.10008.1.1'  40 00 0011 '1.2.840.10008.1.2'"_bytes;
// Context 3: CT Image Storage, explicit VR little endian, then implicit; a result that means nothing in a request.
const Bytes kCT = "20 00 004D 03 00 FF 00  30 00 0019 '1.2.840.10008.5.1.4.1.1.2'"
                  "40 00 0013 '1.2.840.10008.1.2.1'  40 00 0011 '1.2.840.10008.1.2'"_bytes;
// Largest PDU of 32768, implementation class "1.2.3", window of 3 and 1 operations, CT with the provider's role alone,
// CT with extended negotiation 02 00 03 00 01 00, implementation version "TEST_1", user "me" with passcode "x".
const Bytes kUser = "50 00 0076  51 00 0004 00008000  52 00 0005 '1.2.3'  53 00 0004 0003 0001"
                    "54 00 001D 0019 '1.2.840.10008.5.1.4.1.1.2' 00 01"
                    "56 00 0021 0019 '1.2.840.10008.5.1.4.1.1.2' 020003000100"
                    "55 00 0006 'TEST_1'  58 00 0009 02 01 0002 'me' 0001 'x'"_bytes;

Bytes Pdu(Bytes bytes) {
    for (std::size_t i = 0; i < 4; ++i)
        bytes[2 + i] = static_cast<unsigned char>((bytes.size() - 6) >> (24 - 8 * i));
    return bytes;
}

const Bytes kRequest = Pdu(kHeader + kApplication + kVerification + kCT + kUser);

unsigned int Decode(VDicomAssociate& associate, const Bytes& bytes, const VDicomAssociate* request = nullptr,
                    bool strict = true) {
    const std::vector<char> copy(bytes.begin(), bytes.end()); // of exactly this size, for the sanitizer
    const auto size = static_cast<VDicomULong>(copy.size());
    const char* buffer = copy.empty() ? "" : copy.data();
    return strict ? associate.SetBinaryStrict(buffer, &size, request) : associate.SetBinary(buffer, &size, request);
}

Bytes Encode(const VDicomAssociate& associate) {
    VDicomULong size = 0;
    EXPECT_EQ(associate.GetBinary(nullptr, &size), 0u);
    Bytes bytes(size, '*');
    EXPECT_EQ(associate.GetBinary(reinterpret_cast<char*>(bytes.data()), &size), 0u);
    EXPECT_EQ(size, bytes.size());
    return bytes;
}

std::string Content(const VDicomAssociate& a) {
    std::string text = std::string(a.GetCalled()) + "<" + a.GetCalling() + " " + a.GetApplication();
    for (int i = 0; i < a.GetPresentationCount(); ++i) {
        const unsigned char id = a.GetPresentation(i);
        text += " " + std::to_string(id) + "=" + std::to_string(a.GetResult(id)) + a.GetAbstract(id) + "(";
        for (int t = 0; t < a.GetTransferCount(id); ++t)
            text += std::string(t > 0 ? " " : "") + a.GetTransfer(id, t);
        text += ")";
        if (a.IsRoleSelect(id))
            text += std::string("role") + static_cast<char>('0' + a.GetUserRole(id)) +
                    static_cast<char>('0' + a.GetProviderRole(id));
        if (a.GetLengthExtended(id) != 0)
            text += "+" + std::to_string(a.GetLengthExtended(id));
    }
    return text;
}

} // namespace

TEST(Associate, RequestIsDecodedAndEncoded) {
    VDicomAssociate request(0);
    ASSERT_EQ(Decode(request, kRequest, nullptr, false), 0u);
    EXPECT_EQ(request.IsRequest(), 1u);
    EXPECT_EQ(Content(request), "ARCHIVE<MODALITY 1.2.840.10008.3.1.1.1 1=01.2.840.10008.1.1(1.2.840.10008.1.2) "
                                "3=2551.2.840.10008.5.1.4.1.1.2(1.2.840.10008.1.2.1 1.2.840.10008.1.2)role01+6");
    EXPECT_EQ(request.GetMaxLength(), 32768u);
    EXPECT_STREQ(request.GetImplementClass(), "1.2.3");
    EXPECT_STREQ(request.GetImplementVersion(), "TEST_1");
    EXPECT_EQ(request.GetInvokedOperations(), 3u);
    ASSERT_EQ(request.GetLengthExtended(3), 6u);
    EXPECT_EQ(request.GetExtended(3)[2], 3u);
    DICOMUSERIDENTITY user;
    ASSERT_EQ(request.GetUserIdentity(&user), 0u);
    EXPECT_EQ(user.nType, DICOM_USER_NAME_PASSCODE);
    EXPECT_EQ(std::string(user.pPrimary, user.pPrimary + user.nPrimary), "me");
    EXPECT_EQ(std::string(user.pSecondary, user.pSecondary + user.nSecondary), "x");
    EXPECT_EQ(Encode(request), kRequest);

    // An answer: results, one transfer syntax each, no abstract syntaxes; roles are found through the request.
    const Bytes answer = Pdu(
        "02"_bytes + Bytes(kHeader.begin() + 1, kHeader.end()) + kApplication +
        "21 00 0019 01 00 00 00 40 00 0011 '1.2.840.10008.1.2' 21 00 001B 03 00 04 00 40 00 0013 '1.2.840.10008.1.2.1'"
        "50 00 004D 54 00 001D 0019 '1.2.840.10008.5.1.4.1.1.2' 00 01"
        "54 00 001E 001A '1.2.840.10008.5.1.4.1.1.12' 01 01 59 00 0006 0004 'pass'"_bytes);
    VDicomAssociate accept(1);
    ASSERT_EQ(Decode(accept, answer, &request), 0u);
    EXPECT_EQ(accept.IsRequest() + accept.IsMaxLength() + accept.IsImplementClass(), 0u);
    EXPECT_EQ(Content(accept), "ARCHIVE<MODALITY 1.2.840.10008.3.1.1.1 1=0(1.2.840.10008.1.2) "
                               "3=4(1.2.840.10008.1.2.1)role01");
    unsigned short length = 0;
    ASSERT_NE(accept.GetUserIdentityResponse(&length), nullptr);
    EXPECT_EQ(length, 4u);
}

TEST(Associate, AcceptAsBytes) {
    VDicomAssociate accept(0);
    accept.SetVersion(0x0102);
    accept.SetCalled("ARCHIVE");
    accept.SetCalling("MODALITY");
    accept.SetMaxLength(0, 8);
    accept.AddPresentation(1, 0, "1.2.840.10008.1.1");
    accept.AddTransfer(1, "1.2.840.10008.1.2");
    accept.AddPresentation(3, 4, "1.2.840.10008.5.1.4.1.1.2");
    accept.AddTransfer(3, "1.2.3");
    accept.AddTransfer(3, "1.2.4");
    // No abstract syntaxes, all transfer syntaxes, no user information.
    const Bytes front =
        Pdu("02 00 00000000 0102 0000"_bytes + Bytes(kHeader.begin() + 10, kHeader.end()) + kApplication +
            "21 00 0019 01 00 00 00  40 00 0011 '1.2.840.10008.1.2'"
            "21 00 0016 03 00 04 00  40 00 0005 '1.2.3' 40 00 0005 '1.2.4'"_bytes);
    EXPECT_EQ(Encode(accept), front);
    VDicomAssociate decoded(1);
    EXPECT_EQ(Decode(decoded, front), 0u);
    EXPECT_EQ(decoded.GetVersion(), 0x0102);
    // User information is there for each of its items alone.
    using A = VDicomAssociate;
    const struct {
        unsigned int (*set)(A& a);
        Bytes item;
    } rows[] = {
        {[](A& a) { return a.SetMaxLength(1, 16384); }, "50 00 0008 51 00 0004 00004000"_bytes},
        {[](A& a) { return a.SetImplementClass(1, "1.2"); }, "50 00 0007 52 00 0003 '1.2'"_bytes},
        {[](A& a) { return a.SetAsyncOperations(1, 2, 3); }, "50 00 0008 53 00 0004 0002 0003"_bytes},
        {[](A& a) { return a.SetRoleSelect(1, 1, 0, 1); },
         "50 00 0019 54 00 0015 0011 '1.2.840.10008.1.1' 00 01"_bytes},
        {[](A& a) { return a.SetExtended(1, kHeader.data(), 1); },
         "50 00 0018 56 00 0014 0011 '1.2.840.10008.1.1' 01"_bytes},
        {[](A& a) { return a.SetImplementVersion(1, "V"); }, "50 00 0005 55 00 0001 'V'"_bytes},
        {[](A& a) { return a.AddUserInfo(0x5A, "", 0); }, "50 00 0004 5A 00 0000"_bytes},
    };
    for (const auto& row : rows) {
        VDicomAssociate one(0);
        EXPECT_EQ(Decode(one, front, &accept), 0u);
        one.SetAbstract(1, "1.2.840.10008.1.1");
        EXPECT_EQ(row.set(one), 0u);
        EXPECT_EQ(Encode(one), Pdu(front + row.item));
    }
}

TEST(Associate, NothingOlderStays) {
    VDicomAssociate associate(1);
    ASSERT_EQ(Decode(associate, kRequest), 0u);
    const Bytes broken = kHeader + kApplication + kVerification + "50 00 0007 52 00 0003 '7.8' 60 00 0000"_bytes + kCT;
    ASSERT_EQ(Decode(associate, broken), DICOM_ERROR_ITEM_TYPE);
    EXPECT_EQ(Content(associate), "ARCHIVE<MODALITY 1.2.840.10008.3.1.1.1 1=01.2.840.10008.1.1(1.2.840.10008.1.2)");
    EXPECT_STREQ(associate.GetImplementClass(), "7.8");
    EXPECT_EQ(associate.IsMaxLength() + associate.IsAsyncOperations() + associate.IsImplementVersion(), 0u);
    EXPECT_EQ(associate.GetUserInfoCount(), 0);
    ASSERT_EQ(Decode(associate, kRequest), 0u);
    associate.SetVersion(7);
    EXPECT_EQ(associate.Reset(0), 0u);
    EXPECT_EQ(Encode(associate), Encode(VDicomAssociate(0)));
    EXPECT_EQ(associate.GetInvokedOperations() + associate.GetPerformedOperations(), 2);
    EXPECT_EQ(std::string(associate.GetImplementClass()) + associate.GetImplementVersion(), "");
}

TEST(Associate, FieldsAsPeersWriteThem) {
    const struct {
        const char* what;
        Bytes bytes;
        unsigned int code;
        const char* content;
    } cases[] = {
        {"blanks around the called title", "02 00 00000000 0001 0000 '  ARCHIVE       ' 'A B'"_bytes + Bytes(45, 0), 0,
         "ARCHIVE<A B 1.2.840.10008.3.1.1.1"},
        {"73 bytes", Bytes(73, 0), DICOM_ERROR_ITEM_LENGTH, nullptr},
        {"an unknown item", kHeader + "60 00 0000"_bytes, DICOM_ERROR_ITEM_TYPE, nullptr},
        {"a context twice", kHeader + kCT + kCT, DICOM_ERROR_PARAMETER, nullptr},
        {"a foreign sub-item", kHeader + "20 00 0008 01 00 00 00 41 00 0000"_bytes, DICOM_ERROR_ITEM_TYPE, nullptr},
        {"a context of three bytes", kHeader + "20 00 0003 01 00 00"_bytes, DICOM_ERROR_ITEM_LENGTH, nullptr},
        {"an application context of 65", kHeader + "10 00 0041"_bytes + Bytes(65, '1'), DICOM_ERROR_ITEM_LENGTH,
         nullptr},
        {"an abstract syntax of 65", kHeader + "20 00 0049 01 00 00 00 30 00 0041"_bytes + Bytes(65, '1'), 0,
         "ARCHIVE<MODALITY 1.2.840.10008.3.1.1.1 1=0"
         "1111111111111111111111111111111111111111111111111111111111111111()"},
        {"a role for a class that is not proposed", kHeader + "50 00 000A 54 00 0006 0002 '12' 01 01"_bytes, 0,
         "ARCHIVE<MODALITY 1.2.840.10008.3.1.1.1"},
        {"a role and extended negotiation of a context 0",
         kHeader + "20 00 000A 00 00 00 00 30 00 0002 '12'"
                   "50 00 0013 54 00 0006 0002 '12' 01 01 56 00 0005 0002 '12' 01"_bytes,
         0, "ARCHIVE<MODALITY 1.2.840.10008.3.1.1.1 0=012()"},
        {"a role and extended negotiation of a class with two contexts",
         kHeader + "20 00 000A 05 00 00 00 30 00 0002 '12' 20 00 000A 03 00 00 00 30 00 0002 '12'"
                   "50 00 0013 54 00 0006 0002 '12' 01 01 56 00 0005 0002 '12' 01"_bytes,
         0, "ARCHIVE<MODALITY 1.2.840.10008.3.1.1.1 5=012()role11+1 3=012()"},
        {"a role whose UID is longer than it", kHeader + "50 00 000A 54 00 0006 0003 '12' 01 01"_bytes,
         DICOM_ERROR_ITEM_LENGTH, nullptr},
        {"extended negotiation without a UID", kHeader + "50 00 0005 56 00 0001 00"_bytes, DICOM_ERROR_ITEM_LENGTH,
         nullptr},
        {"a largest PDU of two bytes", kHeader + "50 00 0006 51 00 0002 4000"_bytes, DICOM_ERROR_ITEM_LENGTH, nullptr},
        {"UIDs filled up with zeros and blanks", kHeader + "20 00 0010 05 00 00 00 30 00 0008 ' 1.2 ' 000000"_bytes, 0,
         "ARCHIVE<MODALITY 1.2.840.10008.3.1.1.1 5=01.2()"},
    };
    for (const auto& one : cases) {
        VDicomAssociate associate(1);
        EXPECT_EQ(Decode(associate, one.bytes), one.code) << one.what;
        if (one.content != nullptr) {
            EXPECT_EQ(Content(associate), one.content) << one.what;
        }
    }
    // Texts of 64 are the longest: implementation class and version, UIDs of roles and extended negotiation.
    for (const unsigned char type : "52 55 54 56"_bytes) {
        for (const unsigned char size : "40 41"_bytes) {
            const Bytes uid = type % 2 != 0 || type == 0x52 ? Bytes() : Bytes{0, size};
            const Bytes body = uid + Bytes(size, '1') + (type == 0x54 ? "01 01"_bytes : Bytes());
            const auto length = static_cast<unsigned char>(body.size());
            VDicomAssociate associate(1);
            EXPECT_EQ(Decode(associate, kHeader + "50 00 00"_bytes + Bytes{static_cast<unsigned char>(length + 4)} +
                                            Bytes{type, 0, 0, length} + body),
                      size == 64 ? 0u : DICOM_ERROR_ITEM_LENGTH)
                << int{type};
        }
    }
    VDicomAssociate version(1);
    Bytes large = kHeader;
    while (large.size() <= (1u << 20))
        large = large + "50 00 EA60"_bytes + "57 00 EA5C"_bytes + Bytes(0xEA5C, 1);
    EXPECT_EQ(Decode(version, large), DICOM_ERROR_ITEM_LENGTH);
    EXPECT_EQ(Decode(version, large, nullptr, false), 0u);
    EXPECT_EQ(version.GetUserInfoCount(), 18);
    EXPECT_EQ(Decode(version, kHeader + "50 00 0018 55 00 0014 'VERSION OF 20 BYTES.'"_bytes), 0u);
    EXPECT_STREQ(version.GetImplementVersion(), "VERSION OF 20 BY");
}

TEST(Associate, DamageIsRefusedAndNeverReadsOn) {
    std::size_t refused = 0;
    for (std::size_t size = 0; size < kRequest.size(); ++size) {
        VDicomAssociate associate(1);
        refused +=
            Decode(associate, Bytes(kRequest.begin(), kRequest.begin() + static_cast<std::ptrdiff_t>(size))) != 0;
    }
    // Whole are the PDU's front and what ends with an item.
    EXPECT_EQ(refused, kRequest.size() - 4);
    for (std::size_t at = 74; at + 1 < kRequest.size(); ++at) {
        const int old = kRequest[at] << 8 | kRequest[at + 1];
        for (const int length : {0, 1, old + 1, old - 1, 0x7FFF, 0xFFFF}) {
            Bytes damaged = kRequest;
            damaged[at] = static_cast<unsigned char>(length >> 8);
            damaged[at + 1] = static_cast<unsigned char>(length);
            VDicomAssociate associate(1);
            Decode(associate, damaged);
        }
    }
}

TEST(AssociateDeathTest, OnlySetBinaryWaitsAtAForeignSubItem) {
    const auto comesBack = [](bool strict) {
        std::atomic<bool> back{false};
        std::thread([strict, &back] {
            VDicomAssociate associate(1);
            Decode(associate, kHeader + "20 00 0008 01 00 00 00 41 00 0000"_bytes, nullptr, strict);
            back = true;
        }).detach();
        for (int i = 0; i < (strict ? 1000 : 10) && !back; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::_Exit(back ? 1 : 0);
    };
    EXPECT_EXIT(comesBack(true), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(comesBack(false), testing::ExitedWithCode(0), "");
}

TEST(Associate, OddEncodingsAreKept) {
    VDicomAssociate associate(1);
    associate.SetMaxLength(0, 8);
    // No user information; the length in the header is made of the size that was passed in.
    Bytes bytes(120, '*');
    auto size = static_cast<VDicomULong>(bytes.size());
    ASSERT_EQ(associate.GetBinary(reinterpret_cast<char*>(bytes.data()), &size), 0u);
    EXPECT_EQ(size, 74u + 25u);
    EXPECT_EQ(bytes[5], 114u);
    EXPECT_EQ(std::count(bytes.begin() + 99, bytes.end(), 0), 21);
    size = 98;
    EXPECT_EQ(associate.GetBinary(reinterpret_cast<char*>(bytes.data()), &size), DICOM_ERROR_PARAMETER);
    EXPECT_EQ(size, 99u);
    // Titles run over what follows; the items behind the header stand.
    const std::string called(64, 'c');
    const std::string calling(64, 'g');
    associate.SetCalled(called.c_str());
    associate.SetCalling("me");
    bytes = Encode(associate);
    EXPECT_EQ(std::string(bytes.begin() + 10, bytes.begin() + 74), std::string(16, 'c') + "me" + std::string(46, 'c'));
    associate.SetCalling(calling.c_str());
    bytes = Encode(associate);
    EXPECT_EQ(std::string(bytes.begin() + 10, bytes.begin() + 74), std::string(16, 'c') + std::string(48, 'g'));
    EXPECT_EQ(Bytes(bytes.begin() + 74, bytes.end()), kApplication);
    // What does not fit into a length of 16 bits is no PDU.
    associate.AddPresentation(1, 0, "1.2.3");
    const Bytes large(65520, 1);
    EXPECT_EQ(associate.SetExtended(1, large.data(), 65520), 0u);
    EXPECT_EQ(Encode(associate).size(), 99u + 4 + 13 + 4 + 4 + 7 + 65520);
    associate.SetExtended(1, large.data(), 65520);
    associate.SetMaxLength(1, 16384);
    EXPECT_EQ(associate.GetBinary(nullptr, &size), DICOM_ERROR_SIZE);
}

TEST(Associate, ArgumentsAndLimits) {
    VDicomAssociate a(1);
    const std::string t64(64, 'x');
    const std::string t65(65, 'x');
    a.AddPresentation(3, 0, "1.2");
    a.AddTransfer(3, "1.2.840.10008.1.2");
    const struct {
        unsigned int good;
        unsigned int bad;
    } calls[] = {
        {a.SetCalled(t64.c_str()), a.SetCalled(t65.c_str())},
        {a.SetCalling(t64.c_str()), a.SetCalling(nullptr)},
        {a.SetApplication("1"), a.SetApplication(t65.c_str())},
        {a.SetImplementClass(1, t64.c_str()), a.SetImplementClass(0, t65.c_str())},
        {a.SetImplementVersion(1, "1234567890123456"), a.SetImplementVersion(1, "12345678901234567")},
        {a.SetMaxLength(1, 8), a.SetMaxLength(0, 7)},
        {a.SetMaxLength(1, 16386), a.SetMaxLength(1, 16385)},
        {a.AddPresentation(5, 0, ""), a.AddPresentation(3, 0, "1.3")},
        {a.SetPresentation(1, 7), a.SetPresentation(0, 7)},
        {a.SetPresentation(0, 9), a.SetPresentation(2, 11)},
        {a.SetResult(9, 200), a.SetResult(3, 0)},
        {a.SetAbstract(9, "1.2"), a.SetAbstract(9, t65.c_str())},
        {a.AddTransfer(9, t64.c_str()), a.AddTransfer(3, "1.2")},
        {a.SetTransfer(9, 1, "1.2.4"), a.SetTransfer(9, 2, "1.2")},
        {a.DelTransfer(9, 0), a.DelTransfer(9, 1)},
        {a.SetRoleSelect(7, 1, 1, 0), a.SetRoleSelect(8, 1, 1, 1)},
        {a.SetExtended(7, nullptr, 0), a.SetExtended(7, nullptr, 1)},
        {a.AddUserInfo(0x57, "ab", 2), a.AddUserInfo(0x57, nullptr, 1)},
        {a.SetUserInfo(0, 0x5A, nullptr, 0), a.SetUserInfo(1, 0x57, "a", 1)},
        {a.DelUserInfo(0), a.DelUserInfo(0)},
        {a.DelPresentation(99), a.SetUserIdentityResponse(nullptr, 1)},
    };
    for (std::size_t i = 0; i < std::size(calls); ++i) {
        EXPECT_EQ(calls[i].good, 0u) << i;
        EXPECT_EQ(calls[i].bad, DICOM_ERROR_PARAMETER) << i;
    }
    EXPECT_EQ(a.GetMaxLength(), 16386u);
    EXPECT_EQ(Content(a), t64 + "<" + t64 + " 1 9=2001.2(1.2.4) 7=0()role10");
    EXPECT_EQ(a.FindAbstract("1.2"), 9u);
    EXPECT_EQ(a.FindAbstract("1.2 "), 0u);
    a.AddPresentation(3, 0, "1.2");
    EXPECT_EQ(a.FindAbstract("1.2"), 9u) << "the first";
    // A text stays where it is while others come and go.
    const char* kept = a.GetTransfer(9, 0);
    for (unsigned char id = 20; id < 120; ++id)
        a.AddPresentation(id, 0, "1.5");
    for (int i = 0; i < 100; ++i)
        a.AddTransfer(9, "1.6");
    EXPECT_EQ(kept, a.GetTransfer(9, 0));
    a.DelPresentation(9);
    EXPECT_EQ(a.FindPresentation(9), nullptr);
    EXPECT_EQ(a.GetPresentation(0), 7u);
    char text[] = "  \tA B  \0 ";
    VDicomAssociate::DelSpaces(text, 10);
    EXPECT_STREQ(text, "\tA B");
}

TEST(Associate, DefaultProposesTheTablesClasses) {
    VDicomAssociate associate(1);
    EXPECT_EQ(associate.GetPresentationCount(), 0);
    EXPECT_EQ(associate.Default(), 0u);
    int index = 0;
    for (DICOMUID* entry = VDicomUID::GetFirst(); entry != nullptr; entry = VDicomUID::GetNext(entry)) {
        if (entry->nType != DICOM_UID_SOP_CLASS && entry->nType != DICOM_UID_META_SOP_CLASS)
            continue;
        const unsigned char id = associate.GetPresentation(index);
        EXPECT_EQ(id, 2 * index + 1);
        EXPECT_STREQ(associate.GetAbstract(id), entry->pszCode);
        EXPECT_EQ(associate.GetTransferCount(id), 4);
        EXPECT_STREQ(associate.GetTransfer(id, 2), "1.2.840.10008.1.2.1.99");
        EXPECT_EQ(associate.IsRoleSelect(id) + associate.GetUserRole(id) + associate.GetProviderRole(id), 3u);
        ++index;
    }
    EXPECT_GT(index, 100);
    EXPECT_EQ(associate.GetPresentationCount(), index);
    VDicomAssociate again(0);
    const Bytes bytes = Encode(associate);
    EXPECT_EQ(Decode(again, bytes), 0u);
    EXPECT_EQ(Encode(again), bytes);
}

TEST(Associate, MemoryRunsOut) {
    VDicomAssociate request(1);
    Decode(request, kRequest);
    const auto size = static_cast<VDicomULong>(kRequest.size());
    const int decoded = memory::FailEachTime(
        [&] {
            VDicomAssociate associate(1);
            const unsigned int code =
                associate.SetBinaryStrict(reinterpret_cast<const char*>(kRequest.data()), &size, nullptr);
            EXPECT_TRUE(code == 0 || code == DICOM_ERROR_MEMORY);
            return code == 0;
        },
        [] {}, 100);
    EXPECT_GT(decoded, 10);
    VDicomAssociatePolicy policy;
    memory::FailEachTime(
        [&] {
            const bool done = policy.AddTransfer(nullptr, "1.2.840.10008.1.2") == 0 &&
                              policy.AddAbstract(nullptr) == 0 && policy.AddCalling("MODALITY") == 0 &&
                              policy.SetExtended("1.2", kRequest.data(), 3) == 0;
            if (!done)
                policy.Reset();
            return done;
        },
        [] {});
    memory::FailEachTime(
        [&] {
            VDicomAssociate accept(0);
            DICOMASSOCIATEANSWER answer;
            const unsigned int code = policy.Answer(request, accept, &answer);
            EXPECT_EQ(code == 0, answer.bAccepted != 0);
            return code == 0;
        },
        [] {}, 100);
}
