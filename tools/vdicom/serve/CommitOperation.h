/// @file CommitOperation.h
/// A storage commitment (PS3.4 J): looks whether the objects are there, and reports over the association that asked or,
/// when that is over, over one of its own to the peer that asked.
#pragma once

#include "serve/Forwarder.h"
#include "serve/Operation.h"

#include "Archive.h"

#include <chrono>
#include <memory>
#include <string>

namespace program {

class Server;
class Session;

/// The association of our own for a report.
class Reporter final : public Forwarder {
public:
    using Forwarder::Forwarder;
    enum class Answer { none, taken, refused };
    Answer TheAnswer() const { return m_answer; }
    unsigned int Report(unsigned short event, VDicomDS& report);
    void OnReceiveNReportResponse(unsigned char id, unsigned short messageID, const char* classUID,
                                  const char* instanceUID, unsigned short status, unsigned short event,
                                  VDicomDS* data) override;

protected:
    void Complete(VDicomAssociate& request) override;

private:
    Answer m_answer = Answer::none;
};

class CommitOperation {
public:
    CommitOperation(Server& server, Session& session, unsigned char contextId,
                    std::unique_ptr<archive::Commitment> commitment);

    Operation::Pace Work();
    bool IsDone() const { return m_state == State::done; }
    const std::string& Title() const { return m_title; }

private:
    enum class State { looking, reported, reporting, waiting, done };

    Operation::Pace Look();
    Operation::Pace BeginReport();
    Operation::Pace LookForAnswer();
    Operation::Pace Connect();
    Operation::Pace GoOnReporting();
    Operation::Pace TryLater(const std::string& why);

    Server& m_server;
    std::uint64_t m_session;
    unsigned char m_contextId;
    std::string m_title; ///< of the peer that asked
    std::unique_ptr<archive::Commitment> m_commitment;
    State m_state = State::looking;
    unsigned short m_event = 0;
    unsigned short m_messageId = 0; ///< of the report over the association that asked
    VDicomDS m_report;
    std::unique_ptr<Reporter> m_reporter;
    bool m_sent = false;
    int m_attempts = 0;
    std::chrono::steady_clock::time_point m_next;
};

} // namespace program
