#include "serve/Forwarder.h"

#include "scu/Client.h"

#include <fmt/format.h>

namespace program {

namespace {

constexpr VDicomULong kPatience = 300'000, kReleasePatience = 5'000; // milliseconds
constexpr VDicomULong kLargestReceived = VDicomULong{1} << 20;       // answers alone
constexpr std::chrono::milliseconds kBetweenTries{100};

} // namespace

Forwarder::Forwarder(const KnownPeer& peer, const ServeSettings& settings, std::function<void()> wake)
    : VDicomNet(nullptr, DICOM_SECURE_NONE), m_peer(peer), m_settings(settings), m_wake(std::move(wake)) {
    SetSocketBuffers(0, 0);
    SetSendInPlace(1);
    SetLargestPDU(kLargestReceived);
    SetLargestDataSet(kLargestReceived);
    SetTimeout(DICOM_TIMEOUT_CONNECT, settings.timeout);
    SetTimeout(DICOM_TIMEOUT_ASSOCIATE, settings.timeout);
    SetTimeout(DICOM_TIMEOUT_IDLE, kPatience);
    SetTimeout(DICOM_TIMEOUT_RELEASE, kReleasePatience);
}

void Forwarder::Open(const std::vector<StoreContext>& contexts) {
    // A class's own syntaxes behind its others: there are peers that read whatever comes in the syntax of the last
    // context of its class.
    m_proposed.assign(contexts.rbegin(), contexts.rend());
    m_begin = Clock::now();
    m_state = State::opening;
    try {
        m_lookup = std::make_unique<HostLookup>(m_peer.host);
    } catch (const std::exception& error) {
        return Lost(error.what());
    }
    FindAddresses();
}

void Forwarder::FindAddresses() {
    if (!m_lookup->IsDone()) {
        if (m_settings.timeout != 0 && Clock::now() > m_begin + std::chrono::milliseconds(m_settings.timeout))
            Lost(fmt::format("the name server is slow to tell of {}; put its address into the peers file, or "
                             "give a longer --timeout",
                             m_peer.host));
        return;
    }
    const std::unique_ptr<HostLookup> lookup = std::move(m_lookup);
    m_addresses = lookup->Addresses();
    if (m_addresses.empty())
        return Lost(fmt::format("{}: {}", m_peer.host, GetErrorText(lookup->Code())));
    m_begin = Clock::now();
    Try();
}

void Forwarder::Try() {
    const char* address = m_addresses[m_address].c_str();
    if (const unsigned int code = Connect(nullptr, 0, address, m_peer.port); code != DICOM_OK)
        NotConnected(code);
}

void Forwarder::NotConnected(unsigned int code) {
    if (++m_address < m_addresses.size()) {
        Close();
        return Try();
    }
    m_address = 0;
    m_next = Clock::now() + kBetweenTries;
    m_toTryAgain = code == DICOM_ERROR_SOCKET_REFUSED && m_next < m_begin + m_patience;
    if (!m_toTryAgain)
        return Lost(GetErrorText(code));
    Close();
    m_wake();
}

void Forwarder::LookAgain() {
    if (m_lookup != nullptr)
        return FindAddresses();
    if (!m_toTryAgain || Clock::now() < m_next)
        return;
    m_toTryAgain = false;
    Try();
}

void Forwarder::Lost(std::string why) {
    m_lookup.reset();
    m_failure = std::move(why);
    m_state = State::closed;
    Close();
    m_wake();
}

void Forwarder::Release() {
    if (IsAssociated() != 0)
        SendReleaseRequest();
    else
        Lost("released");
}

void Forwarder::OnConnect(int nError) {
    if (nError != 0)
        return NotConnected(static_cast<unsigned int>(nError));
    VDicomAssociate request(1);
    request.SetCalled(m_peer.title.c_str());
    request.SetCalling(m_settings.title.c_str());
    request.SetMaxLength(1, m_settings.maxPdu);
    request.SetImplementClass(1, kImplementationClass);
    request.SetImplementVersion(1, kImplementationVersion);
    bool done = true;
    for (const StoreContext& context : m_proposed)
        done = done && AddContext(request, context.id, context.classUid.c_str(), context.syntaxes);
    Complete(request);
    const unsigned int code = done ? SendAssociateRequest(&request) : static_cast<unsigned int>(DICOM_ERROR_MEMORY);
    if (code != DICOM_OK)
        Lost(GetErrorText(code));
}

void Forwarder::OnReceiveAssociateAccept(VDicomAssociate* accept) {
    if (m_state != State::opening)
        return Lost("the peer accepted twice");
    for (int i = 0; i < accept->GetPresentationCount(); ++i) {
        const unsigned char id = accept->GetPresentation(i);
        const char* syntax = accept->GetTransfer(id, 0);
        if (accept->GetResult(id) == 0 && syntax != nullptr)
            m_accepted.push_back({id, accept->GetAbstract(id), {syntax}});
    }
    m_state = State::ready;
    m_wake();
}

void Forwarder::OnReceiveAssociateReject(unsigned char result, unsigned char source, unsigned char reason) {
    Lost(RejectText(result, source, reason));
}

void Forwarder::OnReceiveAbort(unsigned char source, unsigned char reason) { Lost(AbortText(source, reason)); }

// What was queued is dropped: the data sets that it is sent from are not kept for it.
void Forwarder::OnReceiveReleaseRequest() { Lost("the peer released the association"); }

void Forwarder::OnSend(int /*nError*/, unsigned char /*nType*/, VDicomULong /*nBytes*/) {
    if (HasSent())
        m_wake();
}

void Forwarder::OnClose(int nError, VDicomNet* /*connection*/) {
    if (m_state == State::closed)
        return;
    m_failure = nError == 0 ? "the peer closed the connection" : GetErrorText(static_cast<unsigned int>(nError));
    m_state = State::closed;
    m_wake();
}

void Forwarder::OnReceive(int nError, unsigned char /*nType*/, char* /*buffer*/, VDicomULong /*length*/) {
    if (nError != 0)
        Lost(GetErrorText(static_cast<unsigned int>(nError)));
}

unsigned int Forwarder::Store(unsigned char contextId, unsigned short messageId, const archive::RetrievedObject& object,
                              VDicomDS& ds) {
    constexpr unsigned short request = 0x0001, medium = 0x0000, withDataSet = 0x0001;
    VDicomDS command;
    command.InitDS(DICOM_UNDEFINED, DICOM_FLAG_BARE | DICOM_TS_IMPLICIT_LITTLE);
    command.FindSetValue(nullptr, 0x00000002, vdicom::vr::UI, object.classUid.c_str(), 1);
    command.FindSetValue(nullptr, 0x00000100, vdicom::vr::US, &request, 1);
    command.FindSetValue(nullptr, 0x00000110, vdicom::vr::US, &messageId, 1);
    command.FindSetValue(nullptr, 0x00000700, vdicom::vr::US, &medium, 1);
    command.FindSetValue(nullptr, 0x00000800, vdicom::vr::US, &withDataSet, 1);
    command.FindSetValue(nullptr, 0x00001000, vdicom::vr::UI, object.instanceUid.c_str(), 1);
    command.FindSetValue(nullptr, 0x00001030, vdicom::vr::AE, m_originTitle.c_str(), 1);
    command.FindSetValue(nullptr, 0x00001031, vdicom::vr::US, &m_originMessage, 1);
    unsigned int code = SendData(1u, contextId, &command);
    if (code != DICOM_OK)
        return code;
    code = SendData(0u, contextId, &ds);
    if (code != DICOM_OK) { // the command waits, and must not leave alone
        m_isHalfSent = true;
        Lost(GetErrorText(code));
    }
    return code;
}

void Forwarder::OnReceiveCStoreResponse(unsigned char /*id*/, unsigned short messageID, const char* /*classUID*/,
                                        const char* /*instanceUID*/, unsigned short status) {
    if (m_onStored)
        m_onStored(messageID, status);
    m_wake();
}

} // namespace program
