#include "Connection.h"

#include <utility>

namespace vdicom {

// The read event. One PDU is notified each time; what has arrived behind it waits for an event that is posted here, so
// that the other connections of the thread have their turn.
void Connection::OnReadEvent() {
    // The socket tells again only when it has been asked; of events posted here it knows nothing.
    bool asked = std::exchange(m_readPosted, false);
    if (m_dispatching) { // in a message loop that the application runs while it is notified; looked at afterwards
        m_readMissed = true;
        return;
    }
    if (m_unusable)
        return m_closing ? FinishClose(m_closeError) : Discard();
    Pdu pdu;
    PduRead result = m_receiver.Next(pdu);
    const Watch watch(*this);
    if (result == PduRead::needMore) {
        asked = true;
        const bool some = TakeWaiting();
        if (watch.Gone())
            return;
        if (!some && m_closing)
            return FinishClose(m_closeError);
        result = m_receiver.Next(pdu);
    }
    ShowReceiver();
    if (result == PduRead::needMore) {
        if (m_receiver.HasBytes() && !m_unusable && m_deadlines[DICOM_TIMEOUT_PDU] == Clock::time_point())
            Arm(DICOM_TIMEOUT_PDU);
    } else if (result == PduRead::bad) {
        Disarm(DICOM_TIMEOUT_PDU);
        m_unusable = true;
        m_net.OnReceive(DICOM_ERROR_PDU_LENGTH, *m_receiver.Buffer(), reinterpret_cast<char*>(m_receiver.Buffer()),
                        static_cast<VDicomULong>(m_receiver.Held()));
    } else {
        Disarm(DICOM_TIMEOUT_PDU);
        Dispatch(pdu);
    }
    if (watch.Gone())
        return;
    const bool missed = std::exchange(m_readMissed, false);
    const bool more = result != PduRead::needMore && m_receiver.HasBytes();
    if (!m_closing && asked && !missed && !more)
        return;
    m_readPosted = PostEvent(platform::kReadEvent);
    if (!m_readPosted)
        FailReceiving(DICOM_ERROR_MEMORY);
}

// Receives what is waiting. False: nothing new, or the application was told of a failure.
bool Connection::TakeWaiting() {
    const PduReceiver::Space space = m_receiver.Room();
    Show(bufferSlot, reinterpret_cast<std::uintptr_t>(m_receiver.Buffer())); // it may have moved
    if (space.size == 0) {
        FailReceiving(DICOM_ERROR_MEMORY);
        return false;
    }
    std::size_t done = 0;
    const int error = platform::ReceiveFrom(m_socket, space.data, space.size, done);
    if (error != 0) {
        // What broke a connection that is closing is mostly told with the close.
        if (error != platform::kSocketWouldBlock && m_closeError == 0)
            FailReceiving(VDicomNet::GetError(static_cast<VDicomULong>(error)));
        return false;
    }
    m_receiver.Received(done);
    StayAlive();
    return done != 0;
}

void Connection::FailReceiving(unsigned int code) {
    m_unusable = true;
    Discard();
    m_net.OnReceive(static_cast<int>(code), 0, nullptr, 0);
}

// Nothing of it can be understood, but its end is to be noticed.
void Connection::Discard() {
    char lost[4096];
    std::size_t done = 0;
    platform::ReceiveFrom(m_socket, lost, sizeof lost, done);
}

void Connection::ShowReceiver() {
    Show(heldSlot, m_receiver.Arrived());
    Show(expectedSlot, m_receiver.Expected());
    Show(bufferSlot, reinterpret_cast<std::uintptr_t>(m_receiver.Buffer()));
}

void Connection::Dispatch(const Pdu& pdu) {
    const Watch watch(*this);
    m_dispatching = true;
    Receive(0, pdu.type, reinterpret_cast<char*>(const_cast<unsigned char*>(pdu.bytes.data)),
            static_cast<VDicomULong>(pdu.bytes.size));
    if (watch.Gone())
        return;
    m_dispatching = false;
    m_receiver.Drop();
    ShowReceiver();
}

void Connection::Receive(int error, unsigned char type, char* buffer, VDicomULong length) {
    if (error != 0)
        return m_net.OnReceive(error, type, buffer, length);
    DisarmAfter(type);
    const ByteSpan outerPdu = m_pdu;
    const unsigned char outerType = m_pduType;
    m_pdu = {reinterpret_cast<unsigned char*>(buffer), buffer == nullptr ? 0 : length};
    m_pduType = type;
    const Watch watch(*this);
    m_layer.Run(ReceivedEvent(type), *this);
    if (watch.Gone())
        return;
    m_pdu = outerPdu;
    m_pduType = outerType;
}

unsigned int Connection::Do(UpperStep step) {
    const auto* bytes = reinterpret_cast<const char*>(m_pdu.data);
    const auto size = static_cast<VDicomULong>(m_pdu.size);
    const auto* own = reinterpret_cast<const char*>(m_outgoing.data);
    const auto ownSize = static_cast<VDicomULong>(m_outgoing.size);
    const Watch watch(*this);
    switch (step) {
    case UpperStep::encode:
        return Encode();
    case UpperStep::send:
        return SendBytes(m_outgoing.data, m_outgoing.size);
    case UpperStep::keepRequest:
        return requested.SetBinary(own, &ownSize, nullptr);
    case UpperStep::keepAccept:
        return accepted.SetBinary(own, &ownSize, m_associate);
    case UpperStep::decodeRequest:
        return requested.SetBinaryStrict(bytes, &size, nullptr);
    case UpperStep::decodeAccept:
        return accepted.SetBinaryStrict(bytes, &size, &requested);
    case UpperStep::resetAccepted:
        return accepted.Reset(0);
    case UpperStep::takeAbstracts:
        return TakeAbstracts();
    case UpperStep::takeTitles: {
        const unsigned int code = accepted.SetCalled(requested.GetCalled());
        return code != DICOM_OK ? code : accepted.SetCalling(requested.GetCalling());
    }
    case UpperStep::collectData:
        assembler.Receive(m_pdu, *this);
        break;
    case UpperStep::onReceive:
        m_net.OnReceive(0, m_pduType, const_cast<char*>(bytes), size);
        break;
    case UpperStep::onAssociateRequest:
        m_net.OnReceiveAssociateRequest(&requested);
        break;
    case UpperStep::onAssociateAccept:
        m_net.OnReceiveAssociateAccept(&accepted);
        break;
    case UpperStep::onAssociateReject: {
        const Refusal refusal = DecodeReject(m_pdu);
        m_net.OnReceiveAssociateReject(refusal.result, refusal.source, refusal.reason);
        break;
    }
    case UpperStep::onReleaseRequest:
        m_net.OnReceiveReleaseRequest();
        break;
    case UpperStep::onReleaseResponse:
        m_net.OnReceiveReleaseResponse();
        break;
    case UpperStep::onAbort: {
        const Refusal refusal = DecodeAbort(m_pdu);
        m_net.OnReceiveAbort(refusal.source, refusal.reason);
        break;
    }
    default:
        break;
    }
    return watch.Gone() ? kGone : static_cast<unsigned int>(DICOM_OK);
}

// An accept carries no abstract syntaxes.
unsigned int Connection::TakeAbstracts() {
    for (int i = 0; i < accepted.GetPresentationCount(); ++i) {
        const unsigned char id = accepted.GetPresentation(i);
        const char* abstractSyntax = requested.GetAbstract(id);
        const unsigned int code = abstractSyntax == nullptr ? 0 : accepted.SetAbstract(id, abstractSyntax);
        if (code != DICOM_OK)
            return code;
    }
    return DICOM_OK;
}

bool Connection::Report(unsigned int code) {
    const Watch watch(*this);
    m_net.OnReceive(static_cast<int>(code), m_pduType, reinterpret_cast<char*>(const_cast<unsigned char*>(m_pdu.data)),
                    static_cast<VDicomULong>(m_pdu.size));
    return !watch.Gone();
}

const char* Connection::TransferSyntaxOf(unsigned char contextId) { return accepted.GetTransfer(contextId, 0); }

const char* Connection::AbstractSyntaxOf(unsigned char contextId) { return accepted.GetAbstract(contextId); }

VDicomFile* Connection::DataTarget(unsigned char contextId, VDicomDS& command) {
    return m_net.OnReceiveTarget(contextId, &command);
}

bool Connection::ReceiveMessage(unsigned char contextId, VDicomDS& set, VDicomDS* data) {
    ReceivedCommand command;
    ReadCommand(set, command);
    const Watch watch(*this);
    m_net.OnReceiveData(contextId, &set, data);
    if (!watch.Gone())
        Notify(command, contextId, set, data);
    return !watch.Gone();
}

void Connection::Notify(const ReceivedCommand& command, unsigned char contextId, VDicomDS& set, VDicomDS* data) {
    const ReceivedCommand& c = command;
    const unsigned char id = contextId;
    switch (c.command) {
    case Command::cStoreRequest:
        return m_net.OnReceiveCStoreRequest(id, c.messageId, c.classUID, c.instanceUID, c.priority, c.moveOriginator,
                                            c.moveMessageId, data);
    case Command::cStoreResponse:
        return m_net.OnReceiveCStoreResponse(id, c.respondedTo, c.classUID, c.instanceUID, c.status);
    case Command::cFindRequest:
        return m_net.OnReceiveCFindRequest(id, c.messageId, c.classUID, c.priority, data);
    case Command::cFindResponse:
        return m_net.OnReceiveCFindResponse(id, c.respondedTo, c.classUID, c.status, data);
    case Command::cGetRequest:
        return m_net.OnReceiveCGetRequest(id, c.messageId, c.classUID, c.priority, data);
    case Command::cGetResponse:
        return m_net.OnReceiveCGetResponse(id, c.respondedTo, c.classUID, c.status, c.remaining, c.completed, c.failed,
                                           c.warning, data);
    case Command::cMoveRequest:
        return m_net.OnReceiveCMoveRequest(id, c.messageId, c.classUID, c.priority, c.moveDestination, data);
    case Command::cMoveResponse:
        return m_net.OnReceiveCMoveResponse(id, c.respondedTo, c.classUID, c.status, c.remaining, c.completed, c.failed,
                                            c.warning, data);
    case Command::cCancelRequest:
        return m_net.OnReceiveCCancelRequest(id, c.respondedTo);
    case Command::cEchoRequest:
        return m_net.OnReceiveCEchoRequest(id, c.messageId, c.classUID);
    case Command::cEchoResponse:
        return m_net.OnReceiveCEchoResponse(id, c.respondedTo, c.classUID, c.status);
    case Command::nReportRequest:
        return m_net.OnReceiveNReportRequest(id, c.messageId, c.classUID, c.instanceUID, c.eventType, data);
    case Command::nReportResponse:
        return m_net.OnReceiveNReportResponse(id, c.respondedTo, c.classUID, c.instanceUID, c.status, c.eventType,
                                              data);
    case Command::nGetRequest:
        return m_net.OnReceiveNGetRequest(id, c.messageId, c.classUID, c.instanceUID, c.attributes,
                                          static_cast<unsigned short>(std::min<VDicomULong>(c.attributeCount, 0xFFFF)));
    case Command::nGetResponse:
        return m_net.OnReceiveNGetResponse(id, c.respondedTo, c.classUID, c.instanceUID, c.status, data);
    case Command::nSetRequest:
        return m_net.OnReceiveNSetRequest(id, c.messageId, c.classUID, c.instanceUID, data);
    case Command::nSetResponse:
        return m_net.OnReceiveNSetResponse(id, c.respondedTo, c.classUID, c.instanceUID, c.status, data);
    case Command::nActionRequest:
        return m_net.OnReceiveNActionRequest(id, c.messageId, c.classUID, c.instanceUID, c.actionType, data);
    case Command::nActionResponse:
        return m_net.OnReceiveNActionResponse(id, c.respondedTo, c.classUID, c.instanceUID, c.status, c.actionType,
                                              data);
    case Command::nCreateRequest:
        return m_net.OnReceiveNCreateRequest(id, c.messageId, c.classUID, c.instanceUID, data);
    case Command::nCreateResponse:
        return m_net.OnReceiveNCreateResponse(id, c.respondedTo, c.classUID, c.instanceUID, c.status, data);
    case Command::nDeleteRequest:
        return m_net.OnReceiveNDeleteRequest(id, c.messageId, c.classUID, c.instanceUID);
    case Command::nDeleteResponse:
        return m_net.OnReceiveNDeleteResponse(id, c.respondedTo, c.classUID, c.instanceUID, c.status);
    case Command::unknown:
        return m_net.OnReceiveUnknown(id, &set, data);
    }
}

} // namespace vdicom
