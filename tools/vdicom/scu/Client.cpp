#include "scu/Client.h"

#include "scu/Interrupt.h"

#include "TextReader.h"
#include "ValueText.h"

#include "VDicomMessageLoop.h"

#include <fmt/format.h>

#include <algorithm>

namespace program {

namespace {

// How often the loop looks at interrupts while nothing happens, and how long a cancelled operation may go on.
constexpr VDicomULong kLook = 100;
constexpr auto kPatience = std::chrono::seconds(3);
constexpr VDicomULong kCloseTimeout = 1000;
// An abort stands behind everything that is queued; with more than this a closed connection must say it.
constexpr VDicomULong kMostBeforeAbort = 64 * 1024;
constexpr VDicomULong kErrorComment = 0x00000902;
// Whatever else the peer sends (associations, garbage) is not longer than that.
constexpr VDicomULong kLargestOtherPdu = 1 << 20;

} // namespace

bool AddContext(VDicomAssociate& request, unsigned char id, const char* classUid,
                const std::vector<std::string>& syntaxes) {
    bool good = request.AddPresentation(id, 0, classUid) == DICOM_OK;
    for (const std::string& syntax : syntaxes)
        good = good && request.AddTransfer(id, syntax.c_str()) == DICOM_OK;
    return good;
}

std::string KeepFailure(int code) {
    switch (code) {
    case DICOM_ERROR_OPEN:
    case DICOM_ERROR_WRITE:
        return "what the peer sent cannot be written; is the disk full?";
    case DICOM_ERROR_MEMORY:
        return "what the peer sent does not fit into memory";
    default:
        return {};
    }
}

Client::Client(const Peer& peer) : VDicomNet(nullptr, DICOM_SECURE_NONE), m_peer(peer) {
    for (const unsigned char which :
         {DICOM_TIMEOUT_CONNECT, DICOM_TIMEOUT_ASSOCIATE, DICOM_TIMEOUT_PDU, DICOM_TIMEOUT_IDLE, DICOM_TIMEOUT_RELEASE})
        SetTimeout(which, peer.timeout);
    SetTimeout(DICOM_TIMEOUT_CLOSE, kCloseTimeout);
    // The system's own buffers grow with the connection; small ones wait for acknowledgements of the peer.
    SetSocketBuffers(0, 0);
    SetLargestPDU(std::max(peer.maxPdu, kLargestOtherPdu));
    SetLargestDataSet(kLargestIdentifier);
}

bool Client::Run() {
    const unsigned int code = Connect(nullptr, 0, m_peer.host.c_str(), m_peer.port);
    if (code != DICOM_OK)
        Fail(ConnectText(code), Loss::connection);
    while (m_state != State::ended) {
        if (VDicomMessageLoop::RunOnce(kLook) == DICOM_LOOP_FAILED) {
            m_failure = GetErrorText(DICOM_ERROR_MEMORY);
            m_loss = Loss::refusal;
            break;
        }
        LookAtInterrupts();
        Look();
    }
    return m_loss == Loss::none;
}

void Client::LookAtInterrupts() {
    const int count = InterruptWatch::Count();
    const auto now = std::chrono::steady_clock::now();
    if (count > m_interrupts && m_state != State::closing && m_state != State::ended) {
        const bool first = m_interrupts == 0;
        m_interrupts = count;
        LimitPatience();
        if (first && m_state == State::working)
            Cancel();
        else
            Fail("interrupted");
    } else if (m_isPatient && m_state != State::ended && now > m_patience) {
        if (m_state == State::closing) {
            End();
        } else {
            LimitPatience();
            m_wasIgnored = m_state == State::working;
            Fail(fmt::format("{}the peer did not end the operation when it was asked to",
                             m_interrupts > 0 ? "interrupted; " : ""));
        }
    }
}

void Client::LimitPatience() {
    m_isPatient = true;
    m_patience = std::chrono::steady_clock::now() + kPatience;
}

void Client::OnConnect(int nError) {
    if (nError != 0) {
        m_failure = ConnectText(static_cast<unsigned int>(nError));
        m_loss = Loss::connection;
        End();
        return;
    }
    m_state = State::associating;
    VDicomAssociate request(1);
    const bool good = request.SetCalled(m_peer.called.c_str()) == DICOM_OK &&
                      request.SetCalling(m_peer.calling.c_str()) == DICOM_OK &&
                      request.SetMaxLength(1, m_peer.maxPdu) == DICOM_OK &&
                      request.SetImplementClass(1, kImplementationClass) == DICOM_OK &&
                      request.SetImplementVersion(1, kImplementationVersion) == DICOM_OK && Propose(request);
    Sent(good ? SendAssociateRequest(&request) : static_cast<unsigned int>(DICOM_ERROR_MEMORY));
}

void Client::OnReceiveAssociateAccept(VDicomAssociate*) {
    if (m_state != State::associating)
        return;
    m_state = State::working;
    Start();
}

void Client::OnReceiveAssociateReject(unsigned char result, unsigned char source, unsigned char reason) {
    if (m_state != State::closing) {
        m_failure = RejectText(result, source, reason);
        m_loss = result == 2 ? Loss::connection : Loss::refusal;
    }
    End();
}

void Client::OnReceiveAbort(unsigned char source, unsigned char reason) {
    if (m_state != State::closing && m_state != State::releasing) {
        m_failure = AbortText(source, reason);
        m_loss = Loss::connection;
    }
    End();
}

void Client::OnReceiveReleaseRequest() {
    SendReleaseResponse();
    if (m_state != State::working)
        return;
    m_failure = "the peer released the association before all was done";
    m_loss = Loss::connection;
    m_state = State::closing;
}

void Client::OnReceiveReleaseResponse() {
    if (m_state == State::releasing)
        End();
}

void Client::OnClose(int nError, VDicomNet*) {
    // A peer that closes instead of answering the release has done all that it was asked to.
    if (m_state != State::closing && m_state != State::releasing) {
        m_failure = LossText(nError);
        m_loss = Loss::connection;
    }
    End();
}

void Client::OnReceive(int nError, unsigned char nType, char*, VDicomULong) {
    if (nError == 0 || m_state == State::ended)
        return;
    if (m_state == State::closing || m_state == State::releasing) {
        End();
    } else if (nError == DICOM_ERROR_TIMEOUT) {
        Fail(TimeoutText(nType), Loss::connection);
    } else if (const std::string own = KeepFailure(nError); !own.empty()) {
        Fail(own);
    } else {
        Fail(
            fmt::format("what the peer sent cannot be understood: {}", GetErrorText(static_cast<unsigned int>(nError))),
            Loss::connection);
    }
}

void Client::OnReceiveData(unsigned char, VDicomDS* command, VDicomDS*) {
    m_comment.clear();
    if (DICOMELEMENT* e = command->FindFirstElement(nullptr, kErrorComment, 1)) {
        TextReader reader(*command);
        m_comment = reader.Text(e, 256).text;
    }
}

void Client::OnReceiveUnknown(unsigned char, VDicomDS*, VDicomDS*) {
    Fail("the peer sent a message that is none of DICOM's", Loss::connection);
}

void Client::Release() {
    if (m_state != State::working)
        return;
    m_state = State::releasing;
    if (m_interrupts == 0)
        m_isPatient = false; // the release has a time-out of its own
    SendReleaseRequest();
}

void Client::Fail(std::string sentence, Loss loss) {
    if (m_state == State::closing || m_state == State::ended)
        return;
    m_failure = std::move(sentence);
    m_loss = loss;
    if (m_state == State::connecting || IsConnected() == 0 || GetQueueSend() > kMostBeforeAbort) {
        End();
        return;
    }
    m_state = State::closing;
    SendAbort(0, 0);
}

bool Client::Sent(unsigned int code) {
    if (code != DICOM_OK)
        Fail(fmt::format("a message cannot be sent: {}", GetErrorText(code)), Loss::connection);
    return code == DICOM_OK;
}

bool Client::Expect(unsigned short received, unsigned short messageID) {
    if (m_state != State::working)
        return false;
    if (received != messageID)
        Fail(fmt::format("the peer answered message {}, which it was not sent; {} was", received, messageID),
             Loss::connection);
    return received == messageID;
}

unsigned char Client::ContextFor(const char* classUid) {
    VDicomAssociate* request = GetRequestAssociate();
    VDicomAssociate* accept = GetAssociate();
    unsigned char result = DICOM_PRESENTATION_NO_REASON;
    for (int i = 0; i < accept->GetPresentationCount(); ++i) {
        const unsigned char id = accept->GetPresentation(i);
        const char* abstractSyntax = request->GetAbstract(id);
        if (!abstractSyntax || std::string_view(abstractSyntax) != classUid)
            continue;
        result = accept->GetResult(id);
        if (result == DICOM_PRESENTATION_ACCEPTED && accept->GetTransferCount(id) > 0)
            return id;
    }
    Fail(fmt::format("the presentation context for {} was not accepted: {}", NameOfUid(classUid), ContextText(result)));
    return 0;
}

void Client::End() {
    m_state = State::ended;
    Close();
}

std::string Client::ConnectText(unsigned int code) const {
    const char* next = "look whether the peer runs";
    switch (code) {
    case DICOM_ERROR_TIMEOUT:
        return fmt::format("the connection was not made in {} s; check the address and what lies between, or give a "
                           "longer --timeout",
                           m_peer.timeout / 1000);
    case DICOM_ERROR_SOCKET_REFUSED:
    case DICOM_ERROR_CONNECT:
        next = "look whether the peer runs, and check host and port";
        break;
    case DICOM_ERROR_SOCKET_HOST:
    case DICOM_ERROR_SOCKET_HOST_DATA:
    case DICOM_ERROR_SOCKET_NAME_SERVICE:
    case DICOM_ERROR_SOCKET_HOST_LATER:
        next = "check the host's name, or give its address";
        break;
    case DICOM_ERROR_SOCKET_UNREACHABLE:
    case DICOM_ERROR_SOCKET_NETWORK_DOWN:
    case DICOM_ERROR_SOCKET_TIMED_OUT:
        next = "check the address and the network";
        break;
    default:
        break;
    }
    std::string reason = GetErrorText(code);
    if (reason.ends_with('.'))
        reason.pop_back();
    return fmt::format("no connection: {}; {}", reason, next);
}

std::string Client::TimeoutText(unsigned char which) const {
    const VDicomULong seconds = m_peer.timeout / 1000;
    switch (which) {
    case DICOM_TIMEOUT_ASSOCIATE:
        return fmt::format("the peer did not answer the association request in {} s; is it a DICOM port?", seconds);
    case DICOM_TIMEOUT_PDU:
        return fmt::format("the peer began a PDU and did not end it in {} s", seconds);
    default:
        return fmt::format("nothing went either way for {} s; give a longer --timeout if the peer needs it", seconds);
    }
}

std::string Client::LossText(int code) const {
    const char* when = m_state == State::associating
                           ? "before it answered the association request; it may not speak DICOM, or not want to"
                           : "before all was done; its own log may say why";
    if (code == 0)
        return fmt::format("the peer closed the connection {}", when);
    return fmt::format("the connection broke {} ({})", when, GetErrorText(static_cast<unsigned int>(code)));
}

} // namespace program
