#include "serve/FindOperation.h"

namespace program {

namespace {

// Matches of one turn: others are to have their turn, and the peer its time to read.
constexpr int kMostMatches = 64;
constexpr VDicomULong kMostQueued = 256 * 1024;

} // namespace

FindOperation::FindOperation(Session& session, const Request& request, Source source, unsigned short pendingStatus)
    : Operation(request.messageId), m_session(session), m_request(request), m_source(std::move(source)),
      m_pendingStatus(pendingStatus) {}

Operation::Pace FindOperation::Work() {
    if (m_cancelled)
        return Finish(archive::status::kCancelled, {});
    try {
        for (int i = 0; i < kMostMatches; ++i) {
            if (m_session.GetQueueSend() > kMostQueued)
                return Pace::waiting;
            const archive::Step step = m_source(m_match);
            if (step == archive::Step::busy)
                return Pace::more;
            if (step == archive::Step::done)
                return Finish(archive::status::kSuccess, {});
            const unsigned int code = m_session.SendCFindResponse(
                m_request.contextId, m_request.messageId, m_request.classUid.c_str(), m_pendingStatus, &m_match);
            if (code != DICOM_OK)
                return Finish(archive::status::kUnableToProcess, GetErrorText(code));
            ++m_matches;
        }
    } catch (const std::exception& error) {
        return Finish(archive::status::kOutOfResources, error.what());
    }
    return Pace::more;
}

void FindOperation::Drop(const std::string& why) {
    m_session.LogOperation(LogLine::Level::warning, "find")
        .Add("class", m_request.classUid)
        .Add("matches", m_matches)
        .Add("end", why);
}

Operation::Pace FindOperation::Finish(unsigned short status, const std::string& comment) {
    m_session.LogOperation(status == 0 ? LogLine::Level::info : LogLine::Level::warning, "find")
        .Add("class", m_request.classUid)
        .AddStatus(status)
        .Add("matches", m_matches)
        .Add("comment", comment);
    m_session.Answer(m_request, {status, comment}); // which may end the session
    return Pace::done;
}

} // namespace program
