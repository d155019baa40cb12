#include "serve/Session.h"

#include "serve/CommitOperation.h"
#include "serve/FindOperation.h"
#include "serve/RetrieveOperation.h"
#include "serve/Server.h"

#include "scu/PeerTexts.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace program {

namespace {

using archive::Outcome;

constexpr VDicomULong kClass = 0x00000002, kField = 0x00000100, kMessageId = 0x00000110, kRespondedTo = 0x00000120,
                      kStatus = 0x00000900, kComment = 0x00000902, kInstance = 0x00001000;
constexpr unsigned short kShort = 1, kText = 5; // value types of FindGetValue

constexpr unsigned short kStoreRequest = 0x0001, kResponse = 0x8000, kEcho = 0x0030, kFind = 0x0020, kGet = 0x0010,
                         kMove = 0x0021, kAction = 0x0130;
constexpr unsigned short kUnrecognised = 0x0211, kNoSuchAction = 0x0123, kUnknownDestination = 0xA801,
                         kClassNotSupported = 0x0122, kMissingData = 0xC001, kMissingAttribute = 0x0120,
                         kResourceLimitation = 0x0213, kProcessingFailure = 0x0110;

constexpr VDicomUInt64 kLargestIdentifier = VDicomUInt64{16} << 20;
constexpr VDicomULong kLargestPdu = VDicomULong{1} << 20;
constexpr std::size_t kMostOperations = 16;
constexpr unsigned int kMostUnsent = 10'000;
constexpr VDicomULong kPatience = 30'000; // milliseconds for an association request, and between the bytes of a PDU
constexpr VDicomULong kClosePatience = 5'000;
constexpr std::size_t kCommentLength = 64;

unsigned short NumberOf(VDicomDS& set, VDicomULong tag) {
    unsigned short number = 0;
    set.FindGetValue(nullptr, tag, kShort, &number, sizeof number);
    return number;
}

std::string TextOf(VDicomDS& set, VDicomULong tag) {
    char text[65] = "";
    set.FindGetValue(nullptr, tag, kText, text, sizeof text);
    return text;
}

/// Whether nothing that follows can be understood any more.
bool BreaksConnection(int error) {
    return error == DICOM_ERROR_PDU_LENGTH || error == DICOM_ERROR_DATA_VALUE ||
           (error >= static_cast<int>(DICOM_ERROR_SOCKET) && error <= static_cast<int>(DICOM_ERROR_SOCKET_OTHER));
}

} // namespace

Session::Session(Server& server, std::uint64_t number)
    : VDicomNet(nullptr, DICOM_SECURE_NONE), m_server(server), m_number(number),
      m_begin(std::chrono::steady_clock::now()) {
    SetSocketBuffers(0, 0);
    SetSendInPlace(1);
    SetLargestPDU(std::max(server.Settings().maxPdu, kLargestPdu));
    SetTimeout(DICOM_TIMEOUT_REQUEST, kPatience);
    SetTimeout(DICOM_TIMEOUT_PDU, kPatience);
    SetTimeout(DICOM_TIMEOUT_CLOSE, kClosePatience);
    SetTimeout(DICOM_TIMEOUT_IDLE, server.Settings().idle);
}

Session::~Session() {
    Close(); // before the operations, from whose data sets it sends
    m_server.EndOperations(m_operations.size() + m_over.size());
}

void Session::Opened() {
    char address[DICOM_ADDRESS_SIZE] = "";
    unsigned int port = 0;
    GetPeerInfo(address, &port);
    m_address = fmt::format("{}:{}", address, port);
}

// The end, and the log's line on the association.

void Session::Ended(std::string_view how) {
    if (m_ended)
        return;
    m_ended = true;
    m_incoming.Discard();
    if (m_end.empty())
        m_end = how;
    DropOperations(m_end);
    const auto duration = std::chrono::steady_clock::now() - m_begin;
    LogLine line = m_end == "released" || m_end == "rejected" ? m_server.TheLog().Info("association")
                                                              : m_server.TheLog().Warning("association");
    line.Add("id", m_number).Add("peer", m_address);
    if (m_asked)
        line.Add("calling", GetRequestAssociate()->GetCalling()).Add("called", GetRequestAssociate()->GetCalled());
    line.Add("end", m_end)
        .Add("ms", std::chrono::duration_cast<std::chrono::milliseconds>(duration).count())
        .Add("stored", m_stored)
        .Add("failed", m_failed)
        .Add("bytes", m_bytes);
    m_server.Reap(*this);
}

void Session::Abort(unsigned char reason, std::string_view why) {
    if (std::exchange(m_aborted, true))
        return;
    if (m_end.empty())
        m_end = fmt::format("aborted by us: {}", why);
    DropOperations(m_end);
    m_incoming.Discard();
    SendAbort(2, reason);
}

void Session::Unexpected() {
    if (m_end.empty())
        m_end = "closed by us: a PDU that only a requestor is sent";
    Close();
    Ended(m_end);
}

void Session::DropOperations(const std::string& why) {
    for (std::unique_ptr<Operation>& operation : m_operations) {
        operation->Drop(why);
        m_over.push_back(std::move(operation));
    }
    m_operations.clear();
}

void Session::Stop() {
    constexpr std::string_view why = "the server stops";
    if (m_ended || !m_end.empty())
        return;
    if (IsAssociated() != 0)
        return Abort(0, why); // the peer closes
    Close();
    Ended(why);
}

bool Session::Work() {
    bool more = false;
    for (std::size_t i = 0; !m_ended && i < m_operations.size();) {
        const Operation::Pace pace = m_operations[i]->Work();
        if (m_operations.empty()) // dropped
            return false;
        if (pace == Operation::Pace::done) {
            m_operations.erase(m_operations.begin() + static_cast<std::ptrdiff_t>(i));
            m_server.EndOperations(1);
        } else {
            ++i;
        }
        more = more || pace == Operation::Pace::more;
    }
    return more;
}

void Session::Begin(std::unique_ptr<Operation> operation) {
    m_operations.push_back(std::move(operation));
    m_server.AddOperation();
    m_server.SetWorking(m_number);
}

LogLine Session::LogOperation(LogLine::Level level, std::string_view event) {
    LogLine line(m_server.TheLog(), level, event);
    line.Add("association", m_number).Add("calling", CallingTitle());
    return line;
}

// Answers.

void Session::Answer(const Request& request, const Outcome& outcome) {
    if (m_ended || IsAssociated() == 0)
        return;
    VDicomDS command;
    const unsigned short field = request.responseField;
    command.InitDS(DICOM_UNDEFINED, DICOM_FLAG_BARE | DICOM_TS_IMPLICIT_LITTLE);
    command.FindSetValue(nullptr, kClass, vdicom::vr::UI, request.classUid.c_str(), 1);
    command.FindSetValue(nullptr, kField, vdicom::vr::US, &field, 1);
    command.FindSetValue(nullptr, kRespondedTo, vdicom::vr::US, &request.messageId, 1);
    command.FindSetValue(nullptr, kStatus, vdicom::vr::US, &outcome.status, 1);
    if (!outcome.comment.empty()) {
        const std::string comment = outcome.comment.substr(0, kCommentLength);
        command.FindSetValue(nullptr, kComment, vdicom::vr::LO, comment.c_str(), 1);
    }
    if (!request.instanceUid.empty())
        command.FindSetValue(nullptr, kInstance, vdicom::vr::UI, request.instanceUid.c_str(), 1);
    if (const unsigned int code = SendData(request.contextId, &command, nullptr); code != DICOM_OK)
        return Abort(0, GetErrorText(code));
    if (++m_unsent > kMostUnsent)
        Abort(0, "the peer does not read our answers");
}

void Session::OnSend(int /*nError*/, unsigned char /*nType*/, VDicomULong /*nBytes*/) {
    if (GetQueueSend() == 0)
        m_unsent = 0;
    if (!m_operations.empty())
        m_server.SetWorking(m_number);
}

// The association.

void Session::OnReceiveAssociateRequest(VDicomAssociate* request) {
    VDicomAssociate accept(0);
    DICOMASSOCIATEANSWER answer{};
    if (IsAssociated() != 0 || m_asked)
        return Abort(2, "a second association request"); // PS3.8 Table 9-26: unexpected PDU
    m_asked = true;
    if (m_server.IsFull())
        answer = {0, 2, 3, 2, 0}; // PS3.8 Table 9-21: transient, presentation, local limit exceeded
    else if (AnswerRequest(*request, m_server.Settings(), m_server.Peers(), accept, answer) != DICOM_OK)
        return Abort(0, "no memory");
    if (answer.bAccepted == 0) {
        m_end = "rejected";
        m_server.TheLog()
            .Warning("rejected")
            .Add("association", m_number)
            .Add("peer", m_address)
            .Add("reason", RejectText(answer.nResult, answer.nSource, answer.nReason));
        return SendAssociateReject(answer.nResult, answer.nSource, answer.nReason);
    }
    if (SendAssociateAccept(&accept) != DICOM_OK)
        return Abort(0, "no memory");
    NoteContexts();
}

// Where the requestor is a service class provider of storage, it takes objects of a C-GET.
void Session::NoteContexts() {
    VDicomAssociate& accepted = *GetAssociate();
    m_storeContexts.clear();
    for (int i = 0; i < accepted.GetPresentationCount(); ++i) {
        const unsigned char id = accepted.GetPresentation(i);
        const char* syntax = accepted.GetTransfer(id, 0);
        // Roles are those of a class; an association has them at its first context (PS3.7 D.3.3.4).
        const unsigned char first = accepted.FindAbstract(accepted.GetAbstract(id));
        if (accepted.GetResult(id) == 0 && accepted.GetProviderRole(first) != 0 && syntax != nullptr)
            m_storeContexts.push_back({id, accepted.GetAbstract(id), {syntax}});
    }
}

void Session::OnReceiveReleaseRequest() {
    if (!m_end.empty())
        return;
    m_end = "released";
    DropOperations(m_end); // the peer does not wait for their answers
    SendReleaseResponse();
}

void Session::OnReceiveAbort(unsigned char source, unsigned char reason) {
    m_end = "aborted by the peer: " + AbortText(source, reason);
    Close();
    Ended(m_end);
}

// Failures of receiving, and requests that can do nothing but wait.

void Session::OnReceive(int nError, unsigned char nType, char* /*buffer*/, VDicomULong /*length*/) {
    if (nError == 0)
        return;
    const char* text = GetErrorText(static_cast<unsigned int>(nError));
    if (nError == DICOM_ERROR_TIMEOUT) {
        if (m_end.empty())
            m_end = "timed out";
        return; // it is closed then
    }
    constexpr unsigned char kAssociateAccept = 2; // PS3.8 9.3.3
    if (nType == kAssociateAccept)
        return Unexpected();
    if (m_store && !BreaksConnection(nError)) {
        // The object is lost, but not the association.
        const bool full = nError == DICOM_ERROR_WRITE || nError == DICOM_ERROR_SIZE || nError == DICOM_ERROR_MEMORY;
        const Outcome failure{full ? archive::status::kOutOfResources : archive::status::kUnableToProcess, text};
        const Request request = *std::exchange(m_store, std::nullopt);
        m_incoming.Discard();
        return Acknowledge(request, m_storeOutcome.IsSuccess() ? failure : m_storeOutcome);
    }
    Abort(6, text); // PS3.8 Table 9-26: invalid PDU parameter value
}

void Session::OnReceiveUnknown(unsigned char id, VDicomDS* command, VDicomDS* /*data*/) {
    const unsigned short field = command == nullptr ? static_cast<unsigned short>(0) : NumberOf(*command, kField);
    if (command == nullptr || field == 0)
        return Abort(6, "a data set without a command");
    if ((field & kResponse) == 0)
        Deny({id,
              NumberOf(*command, kMessageId),
              static_cast<unsigned short>(field | kResponse),
              TextOf(*command, kClass),
              {}},
             {kUnrecognised, "no such operation"});
}

// Storage.

VDicomFile* Session::OnReceiveTarget(unsigned char id, VDicomDS* command) {
    m_incoming.Discard();
    m_store.reset();
    m_storeOutcome = {};
    const bool storing = NumberOf(*command, kField) == kStoreRequest;
    SetLargestDataSet(storing ? ~VDicomUInt64{0} : kLargestIdentifier);
    if (!storing)
        return nullptr;
    const Request request{id, NumberOf(*command, kMessageId), kStoreRequest | kResponse, TextOf(*command, kClass),
                          TextOf(*command, kInstance)};
    m_store = request;
    const char* abstractSyntax = GetAssociate()->GetAbstract(id);
    const char* syntax = GetAssociate()->GetTransfer(id, 0);
    if (abstractSyntax == nullptr || syntax == nullptr || ClassOf(abstractSyntax).kind != ServiceKind::storage ||
        request.classUid != abstractSyntax) {
        m_storeOutcome = {kClassNotSupported, "not the class of its presentation context"};
    } else {
        m_storeOutcome = m_server.TheArchive().Store().Begin(
            {request.classUid, request.instanceUid, syntax, CallingTitle()}, m_incoming);
    }
    if (!m_storeOutcome.IsSuccess()) { // it is received and thrown away, so that the peer gets its answer
        SetLargestDataSet(kLargestIdentifier);
        m_incoming.Discard();
        return nullptr;
    }
    return &m_incoming.Stream();
}

void Session::OnReceiveCStoreRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                     const char* instanceUID, unsigned short /*priority*/, const char* /*moveAE*/,
                                     unsigned short /*moveMessageID*/, VDicomDS* data) {
    const Request request{id, messageID, kStoreRequest | kResponse, classUID, instanceUID};
    m_store.reset();
    if (data == nullptr)
        return Acknowledge(request, {kMissingData, "the request has no data set"});
    if (m_storeOutcome.IsSuccess()) {
        m_bytes += m_incoming.Stream().GetSize64();
        m_storeOutcome = m_server.TheArchive().Store().Commit(m_incoming, *data);
    }
    if (m_storeOutcome.IsSuccess())
        m_server.AcknowledgeLater(*this, request);
    else
        Acknowledge(request, m_storeOutcome);
}

void Session::Acknowledge(const Request& request, const Outcome& outcome) {
    ++(outcome.IsSuccess() ? m_stored : m_failed);
    LogOperation(outcome.IsSuccess() ? LogLine::Level::info : LogLine::Level::error, "store")
        .Add("instance", request.instanceUid)
        .Add("class", request.classUid)
        .AddStatus(outcome.status)
        .Add("comment", outcome.comment);
    Answer(request, outcome);
}

unsigned int Session::Store(unsigned char contextId, unsigned short messageId, const archive::RetrievedObject& object,
                            VDicomDS& ds) {
    return SendCStoreRequest(contextId, messageId, object.classUid.c_str(), object.instanceUid.c_str(), 0, nullptr, 0,
                             &ds);
}

void Session::OnReceiveCStoreResponse(unsigned char /*id*/, unsigned short messageID, const char* /*classUID*/,
                                      const char* /*instanceUID*/, unsigned short status) {
    for (const auto& operation : m_operations) {
        if (operation->OnStored(messageID, status)) {
            m_server.SetWorking(m_number);
            return;
        }
    }
}

// Requests.

void Session::OnReceiveCEchoRequest(unsigned char id, unsigned short messageID, const char* classUID) {
    Answer({id, messageID, kEcho | kResponse, classUID, {}}, {});
}

void Session::Refuse(unsigned char id, unsigned short messageID, unsigned short field, const char* classUID,
                     const char* instanceUID) {
    Deny({id, messageID, field, classUID, instanceUID}, {kUnrecognised, "no such operation"});
}

void Session::Deny(const Request& request, const Outcome& outcome) {
    LogOperation(LogLine::Level::warning, "refused")
        .Add("command", fmt::format("{:04X}", request.responseField & ~unsigned{kResponse}))
        .Add("class", request.classUid)
        .AddStatus(outcome.status)
        .Add("comment", outcome.comment);
    Answer(request, outcome);
}

bool Session::Admit(const Request& request, ServiceKind kind, const VDicomDS* data) {
    const char* abstractSyntax = GetAssociate()->GetAbstract(request.contextId);
    const bool commitment = kind == ServiceKind::commitment;
    if (abstractSyntax == nullptr || ClassOf(abstractSyntax).kind != kind || request.classUid != abstractSyntax)
        Deny(request, {kClassNotSupported, "not the class of its presentation context"});
    else if (data == nullptr)
        Deny(request, {commitment ? kMissingAttribute : kMissingData, "the request has no data set"});
    else if (m_operations.size() >= kMostOperations || !m_server.TakesOperation() ||
             (commitment && !m_server.TakesCommitment()))
        Deny(request,
             {commitment ? kResourceLimitation : archive::status::kOutOfResources, "too many requests at a time"});
    else
        return true;
    return false;
}

archive::QueryOptions Session::OptionsOf(const Request& request) {
    archive::QueryOptions options;
    const int model = ClassOf(request.classUid).model;
    options.root = model == 1   ? archive::Root::patient
                   : model == 2 ? archive::Root::study
                                : archive::Root::patientStudy;
    const unsigned char* extended = GetAssociate()->GetExtended(request.contextId);
    options.combinedDateTime =
        extended != nullptr && GetAssociate()->GetLengthExtended(request.contextId) > 1 && extended[1] != 0;
    return options;
}

void Session::OnReceiveCFindRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                    unsigned short /*priority*/, VDicomDS* data) {
    const Request request{id, messageID, kFind | kResponse, classUID, {}};
    const bool worklist = ClassOf(classUID).kind == ServiceKind::worklist;
    if (!Admit(request, worklist ? ServiceKind::worklist : ServiceKind::find, data))
        return;
    FindOperation::Source source;
    unsigned short pending = archive::status::kPending;
    const Outcome outcome = m_server.Guard([&] {
        return worklist ? m_server.StartWorklist(*data, source)
                        : m_server.StartFind(*data, OptionsOf(request), source, pending);
    });
    if (!outcome.IsSuccess()) {
        LogOperation(LogLine::Level::warning, "find")
            .Add("class", request.classUid)
            .AddStatus(outcome.status)
            .Add("comment", outcome.comment);
        return Answer(request, outcome);
    }
    Begin(std::make_unique<FindOperation>(*this, request, std::move(source), pending));
}

void Session::OnReceiveCGetRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                   unsigned short /*priority*/, VDicomDS* data) {
    const Request request{id, messageID, kGet | kResponse, classUID, {}};
    if (!Admit(request, ServiceKind::get, data))
        return;
    std::unique_ptr<archive::Retrieval> retrieval;
    const Outcome outcome =
        m_server.Guard([&] { return m_server.TheArchive().StartRetrieval(*data, OptionsOf(request), retrieval); });
    if (!outcome.IsSuccess()) {
        LogOperation(LogLine::Level::warning, "get").AddStatus(outcome.status).Add("comment", outcome.comment);
        return Answer(request, outcome);
    }
    Begin(std::make_unique<GetOperation>(*this, request, std::move(retrieval)));
}

void Session::OnReceiveCMoveRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                    unsigned short /*priority*/, const char* destination, VDicomDS* data) {
    const Request request{id, messageID, kMove | kResponse, classUID, {}};
    if (!Admit(request, ServiceKind::move, data))
        return;
    std::unique_ptr<archive::Retrieval> retrieval;
    const KnownPeer* peer = m_server.Peers().Find(destination);
    Outcome outcome{kUnknownDestination, "the peers file does not name this destination"};
    if (peer != nullptr) {
        outcome =
            m_server.Guard([&] { return m_server.TheArchive().StartRetrieval(*data, OptionsOf(request), retrieval); });
    }
    if (!outcome.IsSuccess()) {
        LogOperation(LogLine::Level::warning, "move")
            .Add("destination", destination)
            .AddStatus(outcome.status)
            .Add("comment", outcome.comment);
        return Answer(request, outcome);
    }
    Begin(std::make_unique<MoveOperation>(*this, request, std::move(retrieval), *peer));
}

void Session::OnReceiveCCancelRequest(unsigned char /*id*/, unsigned short messageID) {
    for (const auto& operation : m_operations) {
        if (operation->MessageId() == messageID)
            operation->Cancel();
    }
    m_server.SetWorking(m_number);
}

// Storage commitment.

void Session::OnReceiveNActionRequest(unsigned char id, unsigned short messageID, const char* classUID,
                                      const char* instanceUID, unsigned short action, VDicomDS* data) {
    const Request request{id, messageID, kAction | kResponse, classUID, instanceUID};
    if (!Admit(request, ServiceKind::commitment, data))
        return;
    if (action != 1)
        return Deny(request, {kNoSuchAction, "no such action"});
    std::unique_ptr<archive::Commitment> commitment;
    Outcome outcome = m_server.Guard([&] { return m_server.TheArchive().StartCommitment(*data, commitment); });
    if (outcome.status == archive::status::kOutOfResources)
        outcome.status = kProcessingFailure; // as PS3.7 C has it for N-ACTION
    const unsigned int code =
        SendNActionResponse(id, messageID, classUID, instanceUID, outcome.status, action, nullptr);
    if (code != DICOM_OK)
        return Abort(0, GetErrorText(code));
    ++m_unsent;
    if (outcome.IsSuccess())
        m_server.BeginCommitment(*this, id, std::move(commitment));
    else
        LogOperation(LogLine::Level::warning, "commit").AddStatus(outcome.status).Add("comment", outcome.comment);
}

void Session::OnReceiveNReportResponse(unsigned char /*id*/, unsigned short messageID, const char* /*classUID*/,
                                       const char* /*instanceUID*/, unsigned short status, unsigned short /*event*/,
                                       VDicomDS* /*data*/) {
    m_answeredReports.insert(messageID);
    LogOperation(status == 0 ? LogLine::Level::info : LogLine::Level::warning, "commit report")
        .Add("message", messageID)
        .AddStatus(status);
}

} // namespace program
