#include "serve/RetrieveOperation.h"

#include "serve/Server.h"

namespace program {

namespace {

constexpr int kMostFailures = 64;            // of one turn
constexpr std::chrono::seconds kPatience{2}; // with a destination that does not listen yet
constexpr std::chrono::seconds kBetweenResponses{15};
constexpr VDicomULong kMostQueued = 256 * 1024;

} // namespace

RetrieveOperation::RetrieveOperation(Session& session, const Request& request,
                                     std::unique_ptr<archive::Retrieval> retrieval)
    : Operation(request.messageId), m_session(session), m_request(request), m_objects(std::move(retrieval)) {}

Operation::Pace RetrieveOperation::Work() {
    if (const std::string why = Broken(); !why.empty())
        m_objects.OnLost(why);
    if (m_objects.IsUnderWay() && m_objects.HasAnswer() && HasSent())
        m_objects.TakeAnswer();
    try {
        for (int i = 0; i < kMostFailures; ++i) {
            if (m_session.GetQueueSend() > kMostQueued && !m_objects.IsUnderWay())
                return Pace::waiting; // the peer does not read its responses
            TellProgress();
            if (m_objects.IsUnderWay()) {
                m_session.TheServer().SetWorking(m_session.Number()); // the clock is looked at in the next turn
                return Pace::waiting;
            }
            if (m_cancelled)
                return Finish(archive::status::kCancelled);
            if (m_objects.Next() == nullptr)
                return Finish(m_objects.FinalStatus(AllFailed()));
            std::string reason;
            StoreChannel* channel = ChannelFor(m_objects.KindOfNext(), reason);
            if (channel == nullptr)
                m_objects.Fail(reason);
            else if (channel->GetState() == StoreChannel::State::opening)
                return Pace::waiting;
            else
                m_objects.Send(*channel);
        }
    } catch (const std::exception& error) {
        m_session.LogOperation(LogLine::Level::error, Name()).Add("comment", error.what());
        return Finish(archive::status::kUnableToProcess);
    }
    return Pace::more;
}

// After each object, and now and then while a large one is under way, so that nobody's patience ends.
void RetrieveOperation::TellProgress() {
    const auto now = std::chrono::steady_clock::now();
    if (m_objects.Remaining() == 0 || (m_told == m_objects.Answered() && now < m_tellNext))
        return;
    if (m_told != m_objects.Answered() || m_tellNext != std::chrono::steady_clock::time_point())
        Respond(archive::status::kPending, nullptr);
    m_told = m_objects.Answered();
    m_tellNext = now + kBetweenResponses;
}

Operation::Pace RetrieveOperation::Finish(unsigned short status) {
    VDicomDS list;
    Respond(status, m_objects.FailedList(list));
    Close();
    LogCounts(
        m_session.LogOperation(status == 0 ? LogLine::Level::info : LogLine::Level::warning, Name()).AddStatus(status));
    return Pace::done;
}

void RetrieveOperation::Drop(const std::string& why) {
    Close();
    LogCounts(m_session.LogOperation(LogLine::Level::warning, Name()).Add("end", why));
}

void RetrieveOperation::LogCounts(LogLine& line) {
    line.Add("destination", Destination())
        .Add("completed", m_objects.Completed())
        .Add("failed", m_objects.Failed())
        .Add("warnings", m_objects.Warning())
        .Add("comment", m_objects.Reason());
}

StoreChannel* GetOperation::ChannelFor(std::size_t /*kind*/, std::string& /*reason*/) { return &m_session; }

void GetOperation::Respond(unsigned short status, VDicomDS* list) {
    m_session.SendCGetResponse(m_request.contextId, m_request.messageId, m_request.classUid.c_str(), status,
                               m_objects.Remaining(), m_objects.Completed(), m_objects.Failed(), m_objects.Warning(),
                               list);
}

MoveOperation::MoveOperation(Session& session, const Request& request, std::unique_ptr<archive::Retrieval> retrieval,
                             const KnownPeer& peer)
    : RetrieveOperation(session, request, std::move(retrieval)), m_peer(peer), m_plan(m_objects.Kinds()),
      m_channels(m_plan.CountAssociations()) {}

StoreChannel* MoveOperation::ChannelFor(std::size_t kind, std::string& reason) {
    const std::size_t number = m_plan.AssociationOf(kind);
    std::unique_ptr<Forwarder>& channel = m_channels[number];
    if (channel != nullptr && channel->IsHalfSent())
        channel.reset();
    if (channel == nullptr) {
        Server& server = m_session.TheServer();
        channel = std::make_unique<Forwarder>(m_peer, server.Settings(),
                                              [&server, number = m_session.Number()] { server.SetWorking(number); });
        channel->SetPatience(kPatience);
        channel->SetOrigin(m_session.CallingTitle(), m_request.messageId);
        channel->SetOnStored(
            [this](unsigned short messageId, unsigned short status) { m_objects.OnStored(messageId, status); });
        channel->Open(m_plan.Contexts(number));
    }
    channel->LookAgain();
    if (channel->IsToLookAgain())
        m_session.TheServer().SetWorking(m_session.Number()); // in the next turn
    if (channel->GetState() != StoreChannel::State::closed)
        return channel.get();
    reason = channel->Failure();
    return nullptr;
}

std::string MoveOperation::Broken() {
    if (!m_objects.IsUnderWay())
        return {};
    const auto& channel = m_channels[m_plan.AssociationOf(m_objects.KindOfNext())];
    return channel->GetState() == StoreChannel::State::closed ? channel->Failure() : std::string();
}

bool MoveOperation::HasSent() {
    const auto& channel = m_channels[m_plan.AssociationOf(m_objects.KindOfNext())];
    return channel->HasSent();
}

void MoveOperation::Respond(unsigned short status, VDicomDS* list) {
    m_session.SendCMoveResponse(m_request.contextId, m_request.messageId, m_request.classUid.c_str(), status,
                                m_objects.Remaining(), m_objects.Completed(), m_objects.Failed(), m_objects.Warning(),
                                list);
}

// The associations end by themselves; the one that is in the middle of an object is broken off.
void MoveOperation::Close() {
    const std::size_t busy = m_objects.IsUnderWay() ? m_plan.AssociationOf(m_objects.KindOfNext()) : m_channels.size();
    for (std::size_t number = 0; number < m_channels.size(); ++number) {
        std::unique_ptr<Forwarder> channel = std::move(m_channels[number]);
        if (channel == nullptr || number == busy || channel->GetState() != StoreChannel::State::ready)
            continue;
        channel->SetOnStored({});
        m_session.TheServer().LetEnd(std::move(channel));
    }
}

} // namespace program
