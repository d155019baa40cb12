#include "serve/CommitOperation.h"

#include "serve/Server.h"

namespace program {

namespace {

using Pace = Operation::Pace;

constexpr std::size_t kObjectsPerTurn = 16;
constexpr int kMostAttempts = 5;
constexpr std::chrono::seconds kBetweenAttempts{30};
constexpr unsigned short kMessageId = 1;

} // namespace

// The roles of the requestor (PS3.7 D.3.3.4): here it is the provider.
void Reporter::Complete(VDicomAssociate& request) { request.SetRoleSelect(request.GetPresentation(0), 1, 0, 1); }

unsigned int Reporter::Report(unsigned short event, VDicomDS& report) {
    if (Contexts().empty())
        return DICOM_ERROR_PARAMETER;
    return SendNReportRequest(Contexts().front().id, kMessageId, uid::kCommitment, uid::kCommitmentInstance, event,
                              &report);
}

void Reporter::OnReceiveNReportResponse(unsigned char /*id*/, unsigned short /*messageID*/, const char* /*classUID*/,
                                        const char* /*instanceUID*/, unsigned short status, unsigned short /*event*/,
                                        VDicomDS* /*data*/) {
    m_answer = status == 0 ? Answer::taken : Answer::refused;
}

CommitOperation::CommitOperation(Server& server, Session& session, unsigned char contextId,
                                 std::unique_ptr<archive::Commitment> commitment)
    : m_server(server), m_session(session.Number()), m_contextId(contextId), m_title(session.CallingTitle()),
      m_commitment(std::move(commitment)) {}

Pace CommitOperation::Work() {
    switch (m_state) {
    case State::looking:
        return Look();
    case State::reported:
        return LookForAnswer();
    case State::reporting:
        return GoOnReporting();
    case State::waiting:
        return std::chrono::steady_clock::now() < m_next ? Pace::waiting : Connect();
    default:
        return Pace::done;
    }
}

Pace CommitOperation::Look() {
    try {
        if (!m_commitment->Work(kObjectsPerTurn))
            return Pace::more;
        m_event = m_commitment->Report(m_report);
        m_commitment.reset(); // it has a reader of the index
        if (m_event == 0)
            throw std::bad_alloc();
    } catch (const std::exception& error) {
        m_server.TheLog().Error("commit").Add("calling", m_title).Add("comment", error.what());
        m_state = State::done;
        return Pace::done;
    }
    m_server.TheLog()
        .Info("commit")
        .Add("association", m_session)
        .Add("calling", m_title)
        .Add("result", m_event == 1 ? "all there" : "some missing");
    return BeginReport();
}

Pace CommitOperation::BeginReport() {
    Session* session = m_server.Find(m_session);
    if (session == nullptr || session->IsAssociated() == 0)
        return Connect();
    m_messageId = session->NextReport();
    const unsigned int code = session->SendNReportRequest(m_contextId, m_messageId, uid::kCommitment,
                                                          uid::kCommitmentInstance, m_event, &m_report);
    if (code != DICOM_OK)
        return Connect();
    m_state = State::reported;
    return Pace::waiting;
}

// A peer that released the association meanwhile has not read the report.
Pace CommitOperation::LookForAnswer() {
    Session* session = m_server.Find(m_session);
    if (session != nullptr && session->TakeReportAnswer(m_messageId)) {
        m_state = State::done;
        return Pace::done;
    }
    return session == nullptr ? Connect() : Pace::waiting;
}

Pace CommitOperation::Connect() {
    const KnownPeer* peer = m_server.Peers().Find(m_title);
    if (peer == nullptr) {
        m_server.TheLog()
            .Warning("commit report")
            .Add("calling", m_title)
            .Add("comment", "its association is over, and the peers file does not say where to report to");
        m_state = State::done;
        return Pace::done;
    }
    ++m_attempts;
    m_sent = false;
    m_reporter = std::make_unique<Reporter>(*peer, m_server.Settings(), [] {});
    m_state = State::reporting;
    m_reporter->Open({{1, uid::kCommitment, {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2"}}});
    return Pace::waiting;
}

Pace CommitOperation::GoOnReporting() {
    m_reporter->LookAgain();
    if (m_reporter->TheAnswer() != Reporter::Answer::none) {
        m_server.TheLog()
            .Info("commit report")
            .Add("calling", m_title)
            .Add("result", m_reporter->TheAnswer() == Reporter::Answer::taken ? "taken" : "refused");
        m_server.LetEnd(std::move(m_reporter));
        m_state = State::done;
        return Pace::done;
    }
    if (m_reporter->GetState() == StoreChannel::State::closed)
        return TryLater(m_reporter->Failure());
    if (m_reporter->GetState() == StoreChannel::State::ready && !m_sent) {
        m_sent = true;
        if (const unsigned int code = m_reporter->Report(m_event, m_report); code != DICOM_OK)
            return TryLater("the peer does not take reports of storage commitment");
    }
    return Pace::waiting;
}

Pace CommitOperation::TryLater(const std::string& why) {
    const bool again = m_attempts < kMostAttempts;
    m_server.TheLog()
        .Warning("commit report")
        .Add("calling", m_title)
        .Add("comment", why)
        .Add("next", again ? "another try in 30 s" : "given up");
    m_reporter.reset();
    m_state = again ? State::waiting : State::done;
    m_next = std::chrono::steady_clock::now() + kBetweenAttempts;
    return again ? Pace::waiting : Pace::done;
}

} // namespace program
