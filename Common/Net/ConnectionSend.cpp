#include "Connection.h"

#include "Guarded.h"

namespace vdicom {

namespace {

// Other connections of the thread have their turn after so many bytes.
constexpr std::size_t kMostAtOnce = std::size_t{1} << 20;

} // namespace

unsigned int Connection::SendAssociate(UpperEvent event, VDicomAssociate* associate) {
    if (associate == nullptr)
        return DICOM_ERROR_PARAMETER;
    m_sending = event;
    m_associate = associate;
    const unsigned int code = m_layer.Run(event, *this);
    m_associate = nullptr;
    m_encoded = {};
    if (code == DICOM_OK)
        ArmAfterSending(event);
    return code;
}

void Connection::SendShort(UpperEvent event, const ShortPdu& pdu) {
    m_sending = event;
    m_short = pdu;
    m_outgoing = {m_short.data(), m_short.size()};
    m_layer.Run(event, *this);
    ArmAfterSending(event);
}

// Makes the PDU that is sent.
unsigned int Connection::Encode() {
    if (m_associate == nullptr)
        return DICOM_OK; // a short one, which is made already
    unsigned int code = m_associate->SetRequest(m_sending == UpperEvent::sendAssociateRequest ? 1 : 0);
    VDicomULong size = 0;
    if (code == DICOM_OK)
        code = m_associate->GetBinary(nullptr, &size);
    if (code != DICOM_OK)
        return code;
    const bool done = Guarded(false, [&] {
        m_encoded.assign(size, 0);
        return true;
    });
    if (!done)
        return DICOM_ERROR_MEMORY;
    m_outgoing = {m_encoded.data(), m_encoded.size()};
    return m_associate->GetBinary(reinterpret_cast<char*>(m_encoded.data()), &size);
}

unsigned int Connection::SendBytes(const void* bytes, std::size_t size) {
    if (bytes == nullptr || size == 0)
        return DICOM_ERROR_PARAMETER;
    if (!IsActive() || m_socket == platform::kNoSocket)
        return DICOM_ERROR_SOCKET_NOT_CONNECTED;
    return Queued(m_queue.AddBytes(bytes, size));
}

unsigned int Connection::SendSet(bool command, unsigned char contextId, VDicomDS* set) {
    if (set == nullptr || accepted.FindPresentation(contextId) == nullptr || accepted.GetResult(contextId) != 0)
        return DICOM_ERROR_PARAMETER;
    OutgoingSet::Route route;
    route.contextId = contextId;
    route.command = command;
    route.transferSyntax = accepted.GetTransfer(contextId, 0);
    if (route.transferSyntax == nullptr && !command)
        return DICOM_ERROR_PARAMETER;
    if (!IsActive() || m_socket == platform::kNoSocket)
        return DICOM_ERROR_SOCKET_NOT_CONNECTED;
    // The own limit on the side that accepted, the peer's on the other: deliberately the same field.
    route.limit = accepted.IsMaxLength() != 0 ? accepted.GetMaxLength() : PDataSplitter::kNoLimit;
    route.tempPath = m_tempPath.c_str();
    route.inPlace = sendInPlace && !command;
    return Queued(m_queue.AddSet(set, route));
}

unsigned int Connection::SendMessage(Command command, const CommandValues& values, unsigned char contextId,
                                     VDicomDS* data) {
    unsigned int code = WriteCommand(command, values, data != nullptr, m_command);
    if (code == DICOM_OK)
        code = SendSet(true, contextId, &m_command);
    if (code != DICOM_OK || data == nullptr)
        return code;
    code = SendSet(false, contextId, data);
    if (code != DICOM_OK && !m_queue.IsEmpty()) { // a command without its data set would be half a message
        m_queue.DropLast();
        ShowQueue();
    }
    return code;
}

// Something was appended; it leaves on the write event.
unsigned int Connection::Queued(unsigned int code) {
    if (code != DICOM_OK)
        return code;
    if (!m_writePosted && !PostEvent(platform::kWriteEvent)) {
        m_queue.DropLast();
        return DICOM_ERROR_MEMORY;
    }
    m_writePosted = true;
    ShowQueue();
    return DICOM_OK;
}

VDicomULong Connection::QueuedBytes() const {
    return static_cast<VDicomULong>(std::min<VDicomUInt64>(m_queue.Queued(), DICOM_UNDEFINED));
}

void Connection::ShowQueue() {
    Show(headSlot, reinterpret_cast<std::uintptr_t>(m_queue.Head()));
    Show(tailSlot, reinterpret_cast<std::uintptr_t>(m_queue.Tail()));
    Show(queuedSlot, QueuedBytes());
}

void Connection::OnWriteEvent() {
    m_writePosted = false;
    if (m_writing || !connected) // the socket tells when it is connected
        return;
    const Watch watch(*this);
    m_writing = true;
    std::size_t total = 0;
    while (!m_queue.IsEmpty()) {
        if (total >= kMostAtOnce && (m_writePosted || PostEvent(platform::kWriteEvent))) {
            m_writePosted = true;
            break;
        }
        ByteSpan spans[OutgoingSet::kMostSpans];
        const std::size_t count = m_queue.Gather(spans, OutgoingSet::kMostSpans);
        if (count == 0) { // the peer waits for the rest of a set that cannot be read
            m_net.OnSend(DICOM_ERROR_READ, 0, 0);
            if (!watch.Gone())
                FinishClose(DICOM_ERROR_READ);
            return;
        }
        platform::SendPart parts[OutgoingSet::kMostSpans];
        for (std::size_t i = 0; i < count; ++i)
            parts[i] = {spans[i].data, spans[i].size};
        std::size_t done = 0;
        const int error = platform::SendTo(m_socket, parts, count, done);
        if (error != 0) {
            if (error != platform::kSocketWouldBlock)
                m_net.OnSend(static_cast<int>(VDicomNet::GetError(static_cast<VDicomULong>(error))), 0, 0);
            break;
        }
        total += done;
        StayAlive();
        TellSent(spans, count, done);
        if (watch.Gone())
            return;
    }
    if (watch.Gone())
        return;
    m_writing = false;
}

// One notification for each PDU that is complete now.
void Connection::TellSent(const ByteSpan* spans, std::size_t count, std::size_t done) {
    const bool copied = debugFlags != 0 && Guarded(false, [&] {
                            m_sentBytes.clear();
                            for (std::size_t i = 0; i < count; ++i)
                                m_sentBytes.insert(m_sentBytes.end(), spans[i].data, spans[i].data + spans[i].size);
                            return true;
                        });
    const Watch watch(*this);
    std::size_t offset = 0;
    while (offset < done) {
        const SendQueue::Progress progress = m_queue.Sent(done - offset);
        if (progress.counted == 0 && !progress.complete)
            return;
        ShowQueue();
        const auto size = static_cast<VDicomULong>(progress.counted);
        if (progress.complete && debugFlags != 0) {
            _DICOMNETDEBUGINFOONSEND info{0, progress.type, size, copied ? m_sentBytes.data() + offset : nullptr};
            m_net.OnSendExt(&info);
        } else if (progress.complete) {
            m_net.OnSend(0, progress.type, size);
        }
        if (watch.Gone())
            return;
        offset += progress.counted;
    }
}

} // namespace vdicom
