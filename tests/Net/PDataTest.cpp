// Messages cut into P-DATA-TF PDUs and put together again.
#include "CommandTable.h"
#include "HexBytes.h"
#include "MessageSyntax.h"
#include "OutgoingSet.h"
#include "PDataAssembler.h"
#include "TestFolder.h"
#include "VDicomNet.h"

#include <gtest/gtest.h>

#include <functional>

using namespace support;
using namespace vdicom;

namespace {

constexpr char kAbstract[] = "1.2.840.10008.5.1.4.1.1.7";
constexpr VDicomULong kPixelData = 0x7FE00010;

/// Writes down what is received: "5: command elements | data elements".
class Receiver : public PDataReceiver {
public:
    const char* TransferSyntaxOf(unsigned char) override { return syntax; }
    const char* AbstractSyntaxOf(unsigned char) override { return kAbstract; }
    VDicomFile* DataTarget(unsigned char, VDicomDS& command) override {
        EXPECT_NE(command.FindFirstElement(nullptr, 0x00000800, 1), nullptr);
        return target;
    }
    bool ReceiveMessage(unsigned char contextId, VDicomDS& command, VDicomDS* data) override {
        log += std::to_string(contextId) + ": " + DescribeCommand(command);
        if (data != nullptr && onData)
            onData(*data);
        log += data == nullptr ? "\n" : " | " + Describe(*data, 0x00080000);
        return !gone;
    }
    bool ReportFailure(unsigned int code) override {
        log += "failed " + std::to_string(code) + "\n";
        return !gone;
    }

    const char* syntax = kExplicit;
    VDicomFile* target = nullptr;
    std::function<void(VDicomDS&)> onData;
    bool gone = false;
    std::string log;
};

/// Sends as a socket would that takes `step` bytes at a time; checks what Sent says.
Bytes Drain(OutgoingSet& set, std::size_t step, std::size_t most) {
    Bytes bytes;
    VDicomUInt64 pdus = 0;
    while (!set.Done()) {
        ByteSpan spans[OutgoingSet::kMostSpans];
        const std::size_t count = set.Gather(spans, most);
        if (count == 0 || count > most)
            throw std::runtime_error("nothing gathered");
        Bytes some;
        for (std::size_t i = 0; i < count; ++i)
            some.insert(some.end(), spans[i].data, spans[i].data + spans[i].size);
        some.resize(std::min(some.size(), step));
        bytes = bytes + some;
        for (std::size_t taken = some.size(); taken != 0;) {
            bool complete = false;
            taken -= set.Sent(taken, complete);
            pdus += complete ? 1 : 0;
        }
    }
    EXPECT_EQ(bytes.size(), set.TotalSize());
    Pdu pdu;
    for (std::size_t at = 0; at < bytes.size() && pdus != 0; --pdus, at += pdu.bytes.size)
        EXPECT_EQ(ReadPdu({bytes.data() + at, bytes.size() - at}, kLargestPdu, pdu), PduRead::done);
    EXPECT_EQ(pdus, 0u) << "OnSend is due once for each PDU";
    return bytes;
}

Bytes Encoded(VDicomDS& set, const OutgoingSet::Route& route) {
    OutgoingSet out;
    EXPECT_EQ(out.Encode(&set, route), 0u);
    return Drain(out, 1 << 20, OutgoingSet::kMostSpans);
}

/// The command of a message, encoded for context 5.
Bytes CommandPdus(Command command, bool hasData, VDicomULong limit = 0) {
    CommandValues values;
    values.messageId = values.respondedTo = 7;
    values.affectedClass = "1.2.840.10008.1.1";
    values.affectedInstance = "1.2.3";
    VDicomDS set;
    EXPECT_EQ(WriteCommand(command, values, hasData, set), 0u);
    return Encoded(set, {5, true, nullptr, limit, nullptr});
}

void Feed(PDataAssembler& assembler, Receiver& receiver, const Bytes& pdus) {
    Pdu pdu;
    for (std::size_t at = 0; at < pdus.size(); at += pdu.bytes.size) {
        ASSERT_EQ(ReadPdu({pdus.data() + at, pdus.size() - at}, kLargestPdu, pdu), PduRead::done);
        // Freed right away: nothing may look at it later.
        Bytes copy(pdu.bytes.data, pdu.bytes.data + pdu.bytes.size);
        assembler.Receive({copy.data(), copy.size()}, receiver);
    }
}

/// Two P-DATA-TF PDUs as one.
Bytes Glued(Bytes first, const Bytes& second) {
    first.insert(first.end(), second.begin() + 6, second.end());
    Put32(first.data() + 2, static_cast<std::uint32_t>(first.size() - 6), false);
    return first;
}

void FillImage(VDicomDS& set, std::size_t pixels) {
    set.FindSetValue(nullptr, 0x00080005, 0, "ISO_IR 100", 1);
    const unsigned short rows = 0x0102;
    set.FindSetValue(nullptr, 0x00280010, 0, &rows, 1);
    DICOMELEMENT* e = set.InsertElement(nullptr, 1, kPixelData, VDicomVRCode('O', 'W'), 0, 0);
    Bytes value(pixels);
    for (std::size_t i = 0; i < pixels; ++i)
        value[i] = static_cast<unsigned char>(i * 7 + (i >> 8));
    ASSERT_EQ(set.SetBinaryValue(e, value.data(), static_cast<VDicomULong>(pixels)), 1u);
}

constexpr char kEcho[] = "C-ECHO-RQ, Affected SOP Class UID 1.2.840.10008.1.1, Message ID 7";
constexpr char kStore[] = "C-STORE-RQ, Affected SOP Class UID 1.2.840.10008.1.1, Message ID 7, Priority 0, Affected "
                          "SOP Instance UID 1.2.3, Move Originator Message ID 0, data set";

} // namespace

TEST(PData, CommandAsBytes) {
    const Bytes expected = "04 00 0000004A 00000046 05 03"             // one value: context 5, command, last
                           "0000 0000 04000000 38000000"               // group length: 56
                           "0000 0200 12000000 '1.2.840.10008.1.1' 00" // affected class
                           "0000 0001 02000000 3000"                   // C-ECHO-RQ
                           "0000 1001 02000000 0700"                   // message ID
                           "0000 0008 02000000 0101"_bytes;            // no data set
    EXPECT_EQ(CommandPdus(Command::cEchoRequest, false), expected);
    for (const VDicomULong limit : {8U, 9U, 16U, 75U, 76U}) {
        const Bytes cut = CommandPdus(Command::cEchoRequest, false, limit);
        PDataAssembler assembler(nullptr);
        Receiver receiver;
        Feed(assembler, receiver, cut);
        EXPECT_EQ(receiver.log, std::string("5: ") + kEcho + "\n") << limit;
    }
}

TEST(PData, SplitterSizes) {
    const struct {
        VDicomUInt64 size;
        VDicomULong limit;
        VDicomUInt64 count;
        VDicomULong last;
        unsigned int code;
    } cases[] = {
        {10, 16, 1, 10, 0},
        {11, 16, 2, 1, 0},
        {20, 17, 2, 10, 0}, // fragments stay even
        {0, 16, 1, 0, 0},
        {3, 8, 2, 1, 0},
        {3, 7, 0, 0, DICOM_ERROR_PARAMETER},
        {3, 1, 0, 0, DICOM_ERROR_PARAMETER},
        {1 << 20, 0, 1, 1 << 20, 0},
        {0xFFFFFFF3, 0, 1, 0xFFFFFFF3, 0},
        {0xFFFFFFF4, 0, 0, 0, DICOM_ERROR_SIZE},
        {VDicomUInt64{10} << 30, 0xFFFFFFFF, 3, 0x80000010, 0},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(PDataSplitter::Check(one.size, one.limit), one.code);
        PDataSplitter splitter(3, false, one.size, one.limit);
        PDataSplitter::Part part{};
        VDicomUInt64 count = 0;
        VDicomUInt64 bytes = 0;
        while (splitter.Next(part)) {
            EXPECT_EQ(part.offset, bytes);
            EXPECT_TRUE(one.limit == 0 || Get32(part.header + 2, false) <= one.limit);
            EXPECT_EQ(part.header[11], ++count == splitter.Count() ? 2 : 0) << "only the last is marked so";
            bytes += part.fragment;
        }
        EXPECT_EQ(count, one.count);
        if (one.code == DICOM_OK) {
            EXPECT_EQ(part.fragment, one.last);
            EXPECT_EQ(bytes, one.size);
            EXPECT_EQ(splitter.TotalSize(), one.size + one.count * kDataHeader);
        }
    }
}

TEST(PData, EverySyntaxComesBackTheSame) {
    const struct {
        std::size_t pixels;
        VDicomULong limit;
        std::size_t step, most;
    } cuts[] = {{10, 8, 1, 1},          {1000, 13, 7, 2},         {300, 0, 5, 32},
                {0, 16384, 100000, 32}, {66000, 16384, 50000, 5}, {1100000, 4096, 1 << 20, 32},

                {20000, 131072, 999, 3}};
    for (const char* syntax : {kImplicit, kExplicit, kBig, kDeflated, "1.2.840.10008.1.20", "1.2.3"}) {
        for (const auto& cut : cuts) {
            if (cut.pixels > 1000000 && syntax != kBig && syntax != kDeflated)
                continue; // temporary files are the same for all
            PDataAssembler assembler(nullptr);
            Receiver receiver;
            receiver.syntax = syntax;
            VDicomDS set;
            FillImage(set, cut.pixels);
            std::string sent = std::string("5: ") + kStore + " | " + Describe(set);
            receiver.onData = [&](VDicomDS& data) {
                char uid[65] = "";
                EXPECT_EQ(data.FindGetValue(nullptr, 0x00020010, 5, uid, sizeof uid), 1u);
                EXPECT_STREQ(uid, syntax);
                EXPECT_EQ(data.FindGetValue(nullptr, 0x00020002, 5, uid, sizeof uid), 1u);
                EXPECT_STREQ(uid, kAbstract);
            };
            OutgoingSet out;
            ASSERT_EQ(out.Encode(&set, {5, false, syntax, cut.limit, nullptr}), 0u);
            set.ResetDS(1); // what was encoded stands by itself
            const Bytes bytes = Drain(out, cut.step, cut.most);
            for (int message = 0; message < 2; ++message) {
                Feed(assembler, receiver, CommandPdus(Command::cStoreRequest, true, cut.limit) + bytes);
                EXPECT_TRUE(receiver.log == sent) << syntax << ' ' << cut.pixels << '\n' << receiver.log.substr(0, 500);
                receiver.log.clear();
            }
        }
    }
}

TEST(PData, InPlaceGivesTheSameBytes) {
    // Fragments too large to be copied, with small ones between, in a file; and a large value in memory.
    const TestFolder folder;
    Bytes pixels = "2800 1000 'US' 0200 0102 E07F 1000 'OB' 0000 FFFFFFFF"_bytes;
    for (const std::uint32_t size : {0U, 300000U, 262144U, 10U, 700000U, 262142U}) {
        Bytes item(8 + size, static_cast<unsigned char>(size));
        Put32(item.data(), 0xE000FFFE, true);
        Put32(item.data() + 4, size, true);
        pixels = pixels + item;
    }
    const Bytes file = Part10(kJpegLossless, pixels + "FEFF DDE0 00000000"_bytes);
    const std::string path = folder.Write("a.dcm", std::string(file.begin(), file.end()));
    VDicomDS jpeg;
    ASSERT_EQ(jpeg.LoadDS(path.c_str(), 0), 0u);
    VDicomDS image;
    FillImage(image, 400000);
    for (VDicomDS* set : {&jpeg, &image}) {
        OutgoingSet::Route route{1, false, set == &jpeg ? kJpegLossless : kExplicit, 16384, nullptr};
        const Bytes copied = Encoded(*set, route);
        EXPECT_GT(copied.size(), 400000u);
        route.inPlace = true;
        for (const std::size_t step : {1000000u, 40000u, 777u}) {
            OutgoingSet out;
            ASSERT_EQ(out.Encode(set, route), 0u);
            EXPECT_TRUE(Drain(out, step, 7) == copied);
        }
    }
    // A file that has become shorter: no more bytes, and not done.
    OutgoingSet out;
    ASSERT_EQ(out.Encode(&jpeg, {1, false, kJpegLossless, 16384, nullptr, true}), 0u);
    std::error_code refused; // Windows keeps an open file as it is
    std::filesystem::resize_file(TestFolder::FromUtf8(path), 2000, refused);
    if (!refused) {
        EXPECT_THROW(Drain(out, 1 << 20, 4), std::runtime_error);
        EXPECT_FALSE(out.Done());
    }
}

TEST(PData, MessagesAndFaults) {
    const Bytes echo = CommandPdus(Command::cEchoRequest, false);
    const Bytes store = CommandPdus(Command::cStoreRequest, true);
    const Bytes data = "04 00 00000010 0000000C 05 02 2800 1000 'US' 0200 0102"_bytes;
    const Bytes part = "04 00 00000010 0000000C 05 00 2800 1000 'US' 0200 0102"_bytes;
    const Bytes bad = "04 00 00000011 0000000D 05 02 2800 1000 'LT' 0300 010203"_bytes; // odd length
    const Bytes lies = "04 00 00000010 0000000D 05 02 2800 1000 'US' 0200 0102"_bytes;
    const Bytes empty = "04 00 00000006 00000001 05 02"_bytes;
    const std::string e = std::string("5: ") + kEcho + "\n";
    const std::string s = std::string("5: ") + kStore + " | (0028,0010) US 2: 01 02\n";
    const std::string rows = "(0028,0010) US 2: 01 02\n";
    const struct {
        const char* what;
        Bytes pdus;
        const char* syntax;
        std::string log;
    } cases[] = {
        {"one by one", echo + store + data + echo, kExplicit, e + s + e},
        {"command and data in one PDU", Glued(store, data) + echo, kExplicit, s + e},
        {"two messages in one PDU", Glued(Glued(echo, store), data), kExplicit, e + s},
        {"a command that does not say whether data follow",
         "04 00 00000010 0000000C 05 03 0000 0001 02000000 3000"_bytes, kExplicit, "5: C-ECHO-RQ\n"},
        {"nothing but a length", empty + echo, kExplicit, e},
        {"data without command", data + echo, kExplicit, "5: unknown command 0x0000 | " + rows + e},
        {"a command on a context without syntax", echo, nullptr, e},
        {"data on a context without syntax", store + data + echo, nullptr, "failed 19\n" + e},
        {"data that cannot be decoded", store + bad + echo + store + data, kExplicit, "failed 8\n" + e + s},
        {"a value past its PDU", store + part + lies + echo, kExplicit, "failed 21\nfailed 21\n"},
        {"a command that cannot be decoded", "04 00 0000000E 0000000A 05 03 0000 0001 09000000"_bytes + echo, kExplicit,
         "failed 4\n" + e},
        {"a command in the middle of data", store + part + echo, kExplicit, ""}, // both are one, and a data set follows
    };
    for (const auto& one : cases) {
        PDataAssembler assembler(nullptr);
        Receiver receiver;
        receiver.syntax = one.syntax;
        Feed(assembler, receiver, one.pdus);
        EXPECT_EQ(receiver.log, one.log) << one.what;
        receiver.log.clear();
        receiver.syntax = kExplicit;
        assembler.Reset();
        Feed(assembler, receiver, echo + store + data);
        EXPECT_EQ(receiver.log, e + s) << "as new after a reset: " << one.what;
    }

    // What is dropped with the rest of a PDU is not taken for the beginning of a set later.
    PDataAssembler assembler(nullptr);
    Receiver receiver;
    Bytes glued = Glued(bad, echo);
    glued[bad.size() + 5] = 1; // not the last fragment
    Feed(assembler, receiver, store + glued + echo + echo);
    EXPECT_EQ(receiver.log, "failed 8\n" + e);

    // A command beyond the limit is passed over, fragment by fragment, and held nowhere.
    receiver.log.clear();
    assembler.limits.command = 70;
    Feed(assembler, receiver, CommandPdus(Command::cStoreRequest, false, 8) + echo);
    EXPECT_EQ(receiver.log, "failed 22\n" + e);
    receiver.log.clear();
    assembler.limits = {};
    assembler.limits.data = 15;
    Feed(assembler, receiver, store + part + part + data + store + data);
    EXPECT_EQ(receiver.log, "failed 14\n" + s);

    // The connection goes away inside a notification: what follows in the PDU is not looked at.
    receiver.log.clear();
    receiver.gone = true;
    Feed(assembler, receiver, Glued(echo, echo));
    EXPECT_EQ(receiver.log, e);
}

TEST(PData, UidsTakeThePlaceOfWhateverIsThere) {
    const Bytes valueOf[] = {"'DT' 0800 '20070115'"_bytes,        "'FD' 0800 0000000000000000"_bytes,
                             "'UL' 0400 01000000"_bytes,          "'AT' 0400 01000000"_bytes,
                             "'DA' 0800 '20070115'"_bytes,        "'LO' 0400 '1.2 '"_bytes,
                             "'SQ' 0000 00000000"_bytes,          "'OB' 0000 02000000 0102"_bytes,
                             "'UN' 0000 04000000 01020304"_bytes, "'UI' 0400 '1.2' 00"_bytes};
    // Of exactly the text's size, as in the association; behind it stands nothing.
    for (const std::string uid : {"", kImplicit}) {
        const std::vector<char> block(uid.c_str(), uid.c_str() + uid.size() + 1);
        for (const Bytes& value : valueOf) {
            for (const Bytes& tag : {"0200 0200"_bytes, "0200 1000"_bytes}) {
                Receiver receiver;
                receiver.syntax = block.data();
                receiver.onData = [&](VDicomDS& data) {
                    for (const VDicomULong number : {0x00020002u, 0x00020010u}) {
                        char text[65] = "*";
                        DICOMELEMENT* e = data.FindFirstElement(nullptr, number, 1);
                        ASSERT_NE(e, nullptr);
                        EXPECT_EQ(e->nVR, vr::UI);
                        EXPECT_EQ(data.FindNextElement(e, 1), nullptr);
                        data.FindGetValue(nullptr, number, 5, text, sizeof text);
                        EXPECT_EQ(number == 0x00020002u ? kAbstract : uid.empty() ? "*" : uid, text);
                    }
                };
                for (const Bytes& set : {tag + value, tag + value + tag + valueOf[0]}) {
                    Bytes pdu = "04 00 00000000 00000000 05 02"_bytes + set;
                    pdu[5] = static_cast<unsigned char>(pdu.size() - 6);
                    pdu[9] = static_cast<unsigned char>(pdu.size() - 10);
                    PDataAssembler assembler(nullptr);
                    Feed(assembler, receiver, CommandPdus(Command::cStoreRequest, true) + pdu);
                    EXPECT_EQ(receiver.log, std::string("5: ") + kStore + " | ");
                    receiver.log.clear();
                }
            }
        }
    }
}

TEST(PData, EveryLengthDamagedAndEveryCut) {
    const Bytes good =
        CommandPdus(Command::cStoreRequest, true, 40) +
        "04 00 00000020 0000000C 05 00 2800 1000 'US' 0200 0102 0000000C 05 02 2800 1100 'US' 0200 0304"_bytes;
    for (std::size_t at = 0; at < good.size(); ++at) {
        for (const int value : {0, 1, 3, 0x7F, 0xFF}) {
            Bytes damaged = good;
            damaged[at] = static_cast<unsigned char>(value);
            PDataAssembler assembler(nullptr);
            Receiver receiver;
            // As one PDU of any claimed values, and up to the damaged byte.
            assembler.Receive({damaged.data(), damaged.size()}, receiver);
            assembler.Receive({damaged.data(), at}, receiver);
            assembler.Reset();
            receiver.log.clear();
            Feed(assembler, receiver, CommandPdus(Command::cEchoRequest, false));
            EXPECT_EQ(receiver.log, std::string("5: ") + kEcho + "\n");
        }
    }
}

TEST(PData, DataGoStraightToAFile) {
    // The application has written a Part 10 header already; the fragments make the file complete.
    const TestFolder folder;
    VDicomFile file;
    ASSERT_NE(file.Open(folder.File("a.dcm").c_str(), DICOM_FILE_CREATE | DICOM_FILE_READ | DICOM_FILE_WRITE), 0u);
    const Bytes header = Part10(kDeflated, {});
    ASSERT_NE(file.Write(header.data(), static_cast<VDicomULong>(header.size())), 0u);
    VDicomDS set;
    FillImage(set, 50000);
    Receiver receiver;
    receiver.syntax = kDeflated;
    receiver.target = &file;
    PDataAssembler assembler(nullptr);
    Feed(assembler, receiver,
         CommandPdus(Command::cStoreRequest, true) + Encoded(set, {5, false, kDeflated, 4096, nullptr}));
    EXPECT_TRUE(receiver.log == std::string("5: ") + kStore + " | " + Describe(set)) << receiver.log.substr(0, 300);
    ASSERT_NE(file.Close(), 0u);
    VDicomDS loaded;
    ASSERT_EQ(loaded.LoadDS(folder.File("a.dcm").c_str(), 0), 0u);
    EXPECT_TRUE(Describe(loaded, 0x00080000) == Describe(set));
}

TEST(PData, PixelsThatTheSyntaxDoesNotHoldAreRefused) {
    const Bytes jpeg = Part10(kJpegLossless, "E07F 1000 'OB' 0000 FFFFFFFF FEFF 00E0 00000000 FEFF 00E0 02000000 FFD8 "
                                             "FEFF DDE0 00000000"_bytes);
    VDicomDS compressed;
    ASSERT_EQ(Load(compressed, jpeg), 0u);
    VDicomDS labelled; // no pixel data, but it says it is compressed: a response made from a file
    ASSERT_EQ(Load(labelled, Part10(kJpegLossless, "0800 1800 'UI' 0400 '1.23'"_bytes)), 0u);
    VDicomDS plain;
    FillImage(plain, 4);
    constexpr char kMpeg4[] = "1.2.840.10008.1.2.4.102"; // newer than the classical list
    const struct {
        VDicomDS& set;
        const char* syntax;
        unsigned int code;
    } cases[] = {
        {compressed, kJpegLossless, 0},
        {compressed, kMpeg4, 16},
        {compressed, kExplicit, 16},
        {compressed, kImplicit, 16},
        {labelled, kExplicit, 0},
        {labelled, kImplicit, 16},
        {labelled, kJpegLossless, 0},
        {labelled, kDeflated, 16},
        {plain, kJpegLossless, 16},
        {plain, kBig, 0},
        {plain, nullptr, 9},
    };
    for (const auto& one : cases) {
        OutgoingSet out;
        EXPECT_EQ(out.Encode(&one.set, {1, false, one.syntax, 0, nullptr}), one.code) << one.syntax;
        EXPECT_EQ(out.Done(), one.code != 0);
    }
    OutgoingSet out;
    EXPECT_EQ(out.Encode(nullptr, {}), 9u);
    EXPECT_EQ(out.Encode(&plain, {1, false, kExplicit, 7, nullptr}), 9u);

    // What arrives is as compressed as it was, also when it is saved.
    Receiver receiver;
    receiver.syntax = kJpegLossless;
    receiver.onData = [](VDicomDS& data) {
        EXPECT_STREQ(data.GetTransferSyntaxUID(), kJpegLossless);
        VDicomDS saved;
        EXPECT_EQ(Load(saved, Save(data, DICOM_FLAG_PART10)), 0u);
        EXPECT_STREQ(saved.GetTransferSyntaxUID(), kJpegLossless);
        EXPECT_EQ(Describe(saved, 0x00080000), Describe(data, 0x00080000));
    };
    PDataAssembler assembler(nullptr);
    Feed(assembler, receiver,
         CommandPdus(Command::cStoreRequest, true) + Encoded(compressed, {5, false, kJpegLossless, 0, nullptr}));
    EXPECT_EQ(receiver.log.substr(0, 5 + sizeof kStore), std::string("5: ") + kStore + " | ");

    EXPECT_EQ(VDicomNet::GetTS(1, kBig), 0x16);
    const std::pair<const char*, unsigned short> flags[] = {{kImplicit, 0x16},
                                                            {"1.2.840.10008.1.20", 0x16},
                                                            {kBig, 0x2A},
                                                            {kExplicit, 0x26},
                                                            {"1.2.840.10008.1.2.5", 0x26},
                                                            {"1.2.840.10008.1.2.4.49", 0x16},
                                                            {"1.2.840.10008.1.2.4.50", 0x26},
                                                            {"1.2.840.10008.1.2.4.66", 0x26},
                                                            {"1.2.840.10008.1.2.4.67", 0x16},
                                                            {kJpegLossless, 0x26},
                                                            {"1.2.840.10008.1.2.4.80", 0x26},
                                                            {"1.2.840.10008.1.2.4.81", 0x26},
                                                            {"1.2.840.10008.1.2.4.90", 0x26},
                                                            {"1.2.840.10008.1.2.4.91", 0x26},
                                                            {"1.2.840.10008.1.2.4.100", 0x26},
                                                            {kMpeg4, 0x16},
                                                            {"1.2.840.10008.1.2.4.5:", 0x16},
                                                            {kDeflated, 0x16},
                                                            {"1.2.840.10008.1.2.1 ", 0x16},
                                                            {"", 0x16},
                                                            {nullptr, 0x16}};
    for (const auto& [uid, expected] : flags)
        EXPECT_EQ(VDicomNet::GetTS(0, uid), expected) << uid;
    EXPECT_EQ(WireSyntaxOf(false, kMpeg4).flags, 0x26);
}
