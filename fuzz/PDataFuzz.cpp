// What a peer may send on an established association: PDUs of any kind in any pieces. Commands that arrive are built
// again and arrive again the same; data sets are cut again and arrive again. Input: a byte for the transfer syntax, a
// byte for the size of the pieces, the bytes of the connection.
#include "CommandTable.h"
#include "OutgoingSet.h"
#include "PDataAssembler.h"
#include "PduReceiver.h"
#include "Require.h"
#include "UpperLayer.h"

#include <cstring>
#include <memory>

using namespace vdicom;

namespace {

constexpr const char* kSyntaxes[] = {"1.2.840.10008.1.2",
                                     "1.2.840.10008.1.2.1",
                                     "1.2.840.10008.1.2.2",
                                     "1.2.840.10008.1.2.1.99",
                                     "1.2.840.10008.1.2.4.70",
                                     nullptr,
                                     ""};

/// A block of the heap that ends with the text, as in an association.
std::unique_ptr<char[]> CopyOf(const char* text) {
    if (text == nullptr)
        return nullptr;
    const std::size_t size = std::strlen(text) + 1;
    std::unique_ptr<char[]> copy(new char[size]);
    std::memcpy(copy.get(), text, size);
    return copy;
}

/// One end of a connection: everything that it receives goes out again, to another one, once.
class Peer : public PDataReceiver, public UpperLayerSteps {
public:
    Peer(const char* syntax, bool echoes)
        : m_assembler(nullptr), m_syntaxBlock(CopyOf(syntax)), m_abstractBlock(CopyOf("1.2")),
          m_syntax(m_syntaxBlock.get()), m_echoes(echoes) {
        m_receiver.SetLargest(VDicomULong{1} << 20);
        m_assembler.limits.inflated = VDicomUInt64{1} << 20;
    }

    void Take(const std::uint8_t* data, std::size_t size, std::size_t piece) {
        while (size != 0) {
            const PduReceiver::Space room = m_receiver.Room();
            Require(room.size != 0, "there is room");
            const std::size_t part = std::min({size, piece, room.size});
            std::memcpy(room.data, data, part);
            m_receiver.Received(part);
            data += part;
            size -= part;
            PduRead result = m_receiver.Next(m_pdu);
            for (; result == PduRead::done; result = m_receiver.Next(m_pdu)) {
                m_layer.Run(ReceivedEvent(m_pdu.type), *this);
                m_receiver.Drop();
            }
            if (result == PduRead::bad)
                return;
            Require(m_receiver.Capacity() <= std::max(PduReceiver::kKept, 2 * m_receiver.Held()), "memory is bounded");
        }
    }

    unsigned int Do(UpperStep step) override {
        if (step == UpperStep::collectData)
            m_assembler.Receive(m_pdu.bytes, *this);
        if (step == UpperStep::onAssociateReject)
            DecodeReject(m_pdu.bytes);
        if (step == UpperStep::onAbort)
            DecodeAbort(m_pdu.bytes);
        return DICOM_OK;
    }
    bool Report(unsigned int) override { return true; }
    bool ReportFailure(unsigned int) override {
        ++failures;
        return true;
    }
    const char* TransferSyntaxOf(unsigned char contextId) override { return contextId == 0 ? nullptr : m_syntax; }
    const char* AbstractSyntaxOf(unsigned char contextId) override {
        return contextId == 0 ? nullptr : m_abstractBlock.get();
    }

    bool ReceiveMessage(unsigned char contextId, VDicomDS& command, VDicomDS* data) override {
        ++messages;
        DescribeCommand(command);
        ReadCommand(command, read);
        if (!m_echoes)
            return true;
        VDicomDS again;
        if (WriteCommand(read.command, read, false, again) == DICOM_OK) {
            Peer other(m_syntax, false);
            Send(other, again, {contextId, true, nullptr, 16, nullptr});
            Require(other.messages == 1 && other.failures == 0 && other.read.field == read.field,
                    "the command arrives");
            const CommandRow* row = FindCommandField(read.field);
            for (const unsigned short number : row->elements)
                Compare(other.read, number);
        }
        OutgoingSet::Route route{contextId, false, m_syntax, 100, nullptr};
        if (data == nullptr || m_syntax == nullptr)
            return true;
        Peer other(m_syntax, false);
        if (Send(other, *data, route))
            Require(contextId == 0 ? other.failures == 1 : other.messages + other.failures == 1,
                    "the data set arrives");
        return true;
    }

    int messages = 0;
    int failures = 0;
    ReceivedCommand read;

private:
    bool Send(Peer& other, VDicomDS& set, const OutgoingSet::Route& route) {
        OutgoingSet out;
        if (out.Encode(&set, route) != DICOM_OK)
            return false;
        VDicomUInt64 sent = 0;
        while (!out.Done()) {
            ByteSpan span;
            Require(out.Gather(&span, 1) == 1 && span.size != 0, "what was encoded can be sent");
            other.Take(span.data, span.size, span.size);
            bool complete = false;
            sent += span.size;
            Require(out.Sent(span.size, complete) == span.size, "a piece is part of one PDU");
        }
        Require(sent == out.TotalSize(), "the size was known beforehand");
        return true;
    }

    void Compare(const ReceivedCommand& other, unsigned short number) const {
        for (std::size_t i = 0; i < kCommandElements; ++i) {
            const CommandElement& element = CommandElements()[i];
            if (element.tag != number)
                continue;
            if (element.text != nullptr)
                Require(std::strcmp(read.*element.text, other.*element.text) == 0, "texts stay the same");
            else if (element.number != nullptr)
                Require(read.*element.number == other.*element.number, "numbers stay the same");
            else
                Require(read.list == other.list, "the list stays the same");
        }
    }

    PduReceiver m_receiver;
    PDataAssembler m_assembler;
    UpperLayer m_layer;
    Pdu m_pdu;
    std::unique_ptr<char[]> m_syntaxBlock, m_abstractBlock;
    const char* m_syntax;
    bool m_echoes;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    Peer peer(kSyntaxes[data[0] % std::size(kSyntaxes)], true);
    peer.Take(data + 2, size - 2, std::size_t{data[1]} + 1);
    return 0;
}
