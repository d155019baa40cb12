// Messages between data sets and bytes, as an association carries them, without a network.
#include "CommandTable.h"
#include "OutgoingSet.h"
#include "PDataAssembler.h"
#include "PduReceiver.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using namespace vdicom;

constexpr char kSyntax[] = "1.2.840.10008.1.2.1";
constexpr VDicomULong kLimit = 16384;

class Receiver : public PDataReceiver {
public:
    const char* TransferSyntaxOf(unsigned char) override { return kSyntax; }
    const char* AbstractSyntaxOf(unsigned char) override { return "1.2.840.10008.5.1.4.1.1.7"; }
    bool ReceiveMessage(unsigned char, VDicomDS& command, VDicomDS* data) override {
        ReadCommand(command, read);
        bytes += data == nullptr ? 0 : data->FindFirstElement(nullptr, 0x7FE00010, 1)->nLength;
        ++messages;
        return true;
    }
    bool ReportFailure(unsigned int) override { return false; }

    ReceivedCommand read;
    benchmark::IterationCount messages = 0;
    VDicomUInt64 bytes = 0;
};

/// Takes all of a set as a socket would; `sink` gets the bytes.
template <class Sink> VDicomUInt64 Send(OutgoingSet& set, Sink sink) {
    VDicomUInt64 total = 0;
    while (!set.Done()) {
        ByteSpan spans[OutgoingSet::kMostSpans];
        const std::size_t count = set.Gather(spans, OutgoingSet::kMostSpans);
        std::size_t taken = 0;
        for (std::size_t i = 0; i < count; ++i) {
            sink(spans[i]);
            taken += spans[i].size;
        }
        total += taken;
        bool complete = false;
        while (taken != 0)
            taken -= set.Sent(taken, complete);
    }
    return total;
}

void Echo(VDicomDS& command, unsigned short messageId) {
    CommandValues values;
    values.messageId = messageId;
    values.affectedClass = "1.2.840.10008.1.1";
    WriteCommand(Command::cEchoRequest, values, false, command);
}

void FillImage(VDicomDS& set, std::size_t pixels) {
    set.FindSetValue(nullptr, 0x00100020, 0, "1234", 1);
    DICOMELEMENT* e = set.InsertElement(nullptr, 1, 0x7FE00010, VDicomVRCode('O', 'W'), 0, 0);
    const std::vector<unsigned char> value(pixels, 7);
    set.SetBinaryValue(e, value.data(), static_cast<VDicomULong>(pixels));
}

/// What a receive loop costs beside the system calls: bytes arrive 64 KiB at a time in PDUs of 16 KiB.
void FramePdus(benchmark::State& state) {
    std::vector<unsigned char> stream;
    for (int i = 0; i < 64; ++i) {
        std::vector<unsigned char> pdu(kPduHeader + kLimit);
        pdu[0] = pdu::kData;
        Put32(pdu.data() + 2, kLimit, false);
        stream.insert(stream.end(), pdu.begin(), pdu.end());
    }
    PduReceiver receiver;
    Pdu pdu;
    for (auto _ : state) {
        for (std::size_t at = 0; at < stream.size();) {
            const PduReceiver::Space room = receiver.Room();
            const std::size_t size = std::min(room.size, stream.size() - at);
            std::memcpy(room.data, stream.data() + at, size);
            receiver.Received(size);
            at += size;
            while (receiver.Next(pdu) == PduRead::done)
                receiver.Drop();
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(stream.size()));
}
BENCHMARK(FramePdus);

/// One C-ECHO-RQ from its values to bytes and back to values.
void EchoThereAndBack(benchmark::State& state) {
    VDicomDS command;
    PDataAssembler assembler(nullptr);
    Receiver receiver;
    std::vector<unsigned char> bytes;
    unsigned short id = 0;
    for (auto _ : state) {
        Echo(command, ++id);
        OutgoingSet out;
        out.Encode(&command, {1, true, nullptr, kLimit, nullptr});
        bytes.clear();
        Send(out, [&](ByteSpan span) { bytes.insert(bytes.end(), span.data, span.data + span.size); });
        assembler.Receive({bytes.data(), bytes.size()}, receiver);
        if (receiver.read.messageId != id)
            state.SkipWithError("not what was sent");
    }
}
BENCHMARK(EchoThereAndBack);

/// A data set with so many bytes of pixel data, loaded from a file, cut into PDUs of 16 KiB; 1: in place.
void CutObject(benchmark::State& state) {
    const auto pixels = static_cast<std::size_t>(state.range(0));
    const std::string path = (std::filesystem::temp_directory_path() / "vdicom-bench-pdata").string();
    VDicomDS set;
    FillImage(set, pixels);
    set.SaveDS(path.c_str(), DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE);
    set.LoadDS(path.c_str(), 0);
    VDicomUInt64 sum = 0;
    VDicomUInt64 total = 0;
    for (auto _ : state) {
        OutgoingSet out;
        if (out.Encode(&set, {1, false, kSyntax, kLimit, nullptr, state.range(1) != 0}) != DICOM_OK)
            state.SkipWithError("cannot be encoded");
        total += Send(out, [&](ByteSpan span) { sum += span.data[0]; });
    }
    benchmark::DoNotOptimize(sum);
    set.ResetDS(1);
    std::filesystem::remove(path);
    state.SetBytesProcessed(static_cast<std::int64_t>(total));
}
BENCHMARK(CutObject)->ArgsProduct({{10000, 526000, 256 << 20}, {0, 1}})->Unit(benchmark::kMicrosecond);

/// C-STORE-RQ and its data set in PDUs of 16 KiB, decoded into data sets.
void AssembleObject(benchmark::State& state) {
    std::vector<std::vector<unsigned char>> pdus;
    const auto add = [&](VDicomDS& set, bool command) {
        OutgoingSet out;
        out.Encode(&set, {1, command, kSyntax, kLimit, nullptr});
        std::vector<unsigned char> bytes;
        Send(out, [&](ByteSpan span) { bytes.insert(bytes.end(), span.data, span.data + span.size); });
        Pdu pdu;
        for (std::size_t at = 0; at < bytes.size(); at += pdu.bytes.size) {
            ReadPdu({bytes.data() + at, bytes.size() - at}, kLargestPdu, pdu);
            pdus.emplace_back(pdu.bytes.data, pdu.bytes.data + pdu.bytes.size);
        }
    };
    VDicomDS set;
    CommandValues values;
    values.affectedClass = "1.2.840.10008.5.1.4.1.1.7";
    values.affectedInstance = "1.2.3";
    WriteCommand(Command::cStoreRequest, values, true, set);
    add(set, true);
    set.ResetDS(1);
    FillImage(set, static_cast<std::size_t>(state.range(0)));
    add(set, false);
    PDataAssembler assembler(nullptr);
    Receiver receiver;
    for (auto _ : state) {
        for (const auto& pdu : pdus)
            assembler.Receive({pdu.data(), pdu.size()}, receiver);
    }
    if (receiver.messages != state.iterations())
        state.SkipWithError("not every message arrived");
    state.SetBytesProcessed(static_cast<std::int64_t>(receiver.bytes));
}
BENCHMARK(AssembleObject)->Arg(10000)->Arg(526000)->Arg(64 << 20)->Unit(benchmark::kMicrosecond);

} // namespace
