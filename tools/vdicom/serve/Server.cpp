#include "serve/Server.h"

#include <algorithm>

namespace program {

namespace {

constexpr int kBacklog = 512;

template <class Query> FindOperation::Source Shared(std::unique_ptr<Query> query) {
    return [shared = std::shared_ptr<Query>(std::move(query))](VDicomDS& match) { return shared->Next(match); };
}

} // namespace

Server::Server(const ServeSettings& settings, archive::Archive& archive, PeersFile& peers, Log& log)
    : VDicomNet(nullptr, DICOM_SECURE_NONE), m_settings(settings), m_archive(archive), m_peers(peers), m_log(log),
      m_worklist(settings.worklist, [&log](const std::string& path, const std::string& why) {
          log.Warning("worklist file").Add("path", path).Add("comment", why);
      }) {
    SetSocketBuffers(0, 0);
}

Server::~Server() {
    m_commitments.clear();
    m_ending.clear();
    m_sessions.clear();
    Close();
}

void Server::End() {
    for (const auto& [number, session] : m_sessions)
        session->Ended("closed by us: the server stops");
    for (const auto& commitment : m_commitments) {
        if (!commitment->IsDone())
            m_log.Warning("commit report")
                .Add("calling", commitment->Title())
                .Add("comment", "not sent: the server stops");
    }
}

unsigned int Server::Start() {
    const char* address = m_settings.address.empty() ? nullptr : m_settings.address.c_str();
    const unsigned int code = Listen(address, m_settings.port, kBacklog);
    return code != DICOM_OK ? code : GetHostInfo(nullptr, &m_port);
}

void Server::OnAccept(int nError) {
    auto session = std::make_unique<Session>(*this, ++m_number);
    const unsigned int code = nError != 0 ? static_cast<unsigned int>(nError) : Accept(session.get());
    if (code == DICOM_OK)
        m_sessions.emplace(m_number, std::move(session)).first->second->Opened();
    else if (code != DICOM_ERROR_SOCKET_WOULD_BLOCK)
        m_log.Error("accept").Add("comment", GetErrorText(code));
}

void Server::OnClose(int nError, VDicomNet* connection) {
    auto* session = static_cast<Session*>(connection);
    if (nError == DICOM_ERROR_TIMEOUT)
        session->Ended("timed out");
    else
        session->Ended(nError == 0 ? "closed by the peer" : GetErrorText(static_cast<unsigned int>(nError)));
}

Session* Server::Find(std::uint64_t session) {
    const auto found = m_sessions.find(session);
    return found == m_sessions.end() || found->second->HasEnded() ? nullptr : found->second.get();
}

void Server::LetEnd(std::unique_ptr<Forwarder> forwarder) {
    Forwarder& ending = *forwarder;
    m_ending.push_back(std::move(forwarder));
    ending.Release();
}

bool Server::Turn() {
    Flush();
    const bool more = WorkAll();
    TakeLeave();
    return more;
}

// One flush makes all objects last that arrived since the last one.
void Server::Flush() {
    // Also after a failure that nobody waits with, which the store forgets then.
    const archive::Outcome outcome = m_archive.Store().Flush();
    const std::string& refusal = m_archive.Store().Refusal();
    if (refusal != m_refusal && !refusal.empty())
        m_log.Error("index").Add("comment", refusal);
    m_refusal = refusal;
    std::vector<Waiting> waiting;
    waiting.swap(m_waiting);
    for (const Waiting& one : waiting) {
        if (Session* session = Find(one.session))
            session->Acknowledge(one.request, outcome);
    }
}

bool Server::WorkAll() {
    bool more = false;
    std::set<std::uint64_t> working;
    working.swap(m_working);
    for (const std::uint64_t number : working) {
        Session* session = Find(number);
        if (session != nullptr && session->Work()) {
            m_working.insert(number);
            more = true;
        }
    }
    for (const auto& commitment : m_commitments)
        more = commitment->Work() == Operation::Pace::more || more;
    return more;
}

void Server::TakeLeave() {
    for (const std::uint64_t number : m_ended)
        m_sessions.erase(number);
    m_ended.clear();
    const auto hasEnded = [](const auto& one) { return one->GetState() == StoreChannel::State::closed; };
    m_ending.erase(std::remove_if(m_ending.begin(), m_ending.end(), hasEnded), m_ending.end());
    const auto isDone = [](const auto& one) { return one->IsDone(); };
    m_commitments.erase(std::remove_if(m_commitments.begin(), m_commitments.end(), isDone), m_commitments.end());
}

void Server::Stop() {
    m_stopping = true;
    for (const auto& [number, session] : m_sessions) {
        if (!session->IsBusy())
            session->Stop();
    }
}

archive::Outcome Server::StartFind(VDicomDS& identifier, const archive::QueryOptions& options,
                                   FindOperation::Source& source, unsigned short& pending) {
    std::unique_ptr<archive::Find> find;
    archive::Outcome outcome = m_archive.StartFind(identifier, options, find);
    if (find == nullptr)
        return outcome;
    pending = find->PendingStatus();
    source = Shared(std::move(find));
    return outcome;
}

archive::Outcome Server::StartWorklist(VDicomDS& identifier, FindOperation::Source& source) {
    std::unique_ptr<archive::WorklistFind> find;
    archive::Outcome outcome = m_worklist.Start(identifier, find);
    if (find != nullptr)
        source = Shared(std::move(find));
    return outcome;
}

void Server::BeginCommitment(Session& session, unsigned char contextId,
                             std::unique_ptr<archive::Commitment> commitment) {
    m_commitments.push_back(std::make_unique<CommitOperation>(*this, session, contextId, std::move(commitment)));
}

} // namespace program
