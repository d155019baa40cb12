/// @file Server.h
/// The listening connection of `vdicom serve`, and what all associations share. Everything runs in one thread, the
/// looking up of names aside: the message loop's notifications, and after them one Turn.
#pragma once

#include "serve/CommitOperation.h"
#include "serve/FindOperation.h"
#include "serve/Forwarder.h"
#include "serve/Log.h"
#include "serve/PeersFile.h"
#include "serve/Session.h"
#include "serve/Settings.h"

#include "Archive.h"
#include "Worklist.h"

#include <map>
#include <memory>
#include <set>
#include <vector>

namespace program {

class Server final : public VDicomNet {
public:
    Server(const ServeSettings& settings, archive::Archive& archive, PeersFile& peers, Log& log);
    ~Server() override;

    /// Begins to listen. @return 0, or why not
    unsigned int Start();
    /// What is to be done after each round of messages: makes received objects last and acknowledges them, lets
    /// operations go on, takes leave of what has ended. @return whether there is more to be done at once
    bool Turn();
    /// No association is accepted any more, and those that wait for nothing end.
    void Stop();
    /// Logs what has not come to its end by then. The last call.
    void End();
    /// Whether all has ended.
    bool IsIdle() const { return m_sessions.empty() && m_commitments.empty() && m_ending.empty(); }

    unsigned int Port() const { return m_port; }
    const ServeSettings& Settings() const { return m_settings; }
    archive::Archive& TheArchive() { return m_archive; }
    PeersFile& Peers() { return m_peers; }
    Log& TheLog() { return m_log; }

    /// @name For sessions and operations
    /// @{
    bool IsFull() const { return m_stopping || m_sessions.size() > m_settings.mostSessions; }
    /// Requests under way of all sessions: each has a reader of the index.
    bool TakesOperation() const { return m_operations < kMostOperations; }
    void AddOperation() { ++m_operations; }
    void EndOperations(std::size_t count) { m_operations -= count; }
    bool TakesCommitment() const { return m_commitments.size() < kMostCommitments; }
    void AcknowledgeLater(Session& session, const Request& request) {
        m_waiting.push_back({session.Number(), request});
    }
    void SetWorking(std::uint64_t session) { m_working.insert(session); }
    void Reap(Session& session) { m_ended.push_back(session.Number()); }
    /// Releases an association of our own, and keeps it until it has ended.
    void LetEnd(std::unique_ptr<Forwarder> forwarder);
    void BeginCommitment(Session& session, unsigned char contextId, std::unique_ptr<archive::Commitment> commitment);
    Session* Find(std::uint64_t session);

    archive::Outcome StartFind(VDicomDS& identifier, const archive::QueryOptions& options,
                               FindOperation::Source& source, unsigned short& pending);
    archive::Outcome StartWorklist(VDicomDS& identifier, FindOperation::Source& source);
    /// What `work` gives; a failure of the index becomes a status, and a line of the log.
    template <class Work> archive::Outcome Guard(Work work) {
        try {
            return work();
        } catch (const std::exception& error) {
            m_log.Error("index").Add("comment", error.what());
            return {archive::status::kOutOfResources, "the index cannot be read"};
        }
    }
    /// @}

    void OnAccept(int nError) override;
    void OnClose(int nError, VDicomNet* connection) override;

private:
    struct Waiting {
        std::uint64_t session;
        Request request;
    };

    static constexpr std::size_t kMostOperations = 128;
    static constexpr std::size_t kMostCommitments = 64;

    void Flush();
    bool WorkAll();
    void TakeLeave();

    const ServeSettings& m_settings;
    archive::Archive& m_archive;
    PeersFile& m_peers;
    Log& m_log;
    unsigned int m_port = 0;
    bool m_stopping = false;
    std::uint64_t m_number = 0;
    std::size_t m_operations = 0;
    std::map<std::uint64_t, std::unique_ptr<Session>> m_sessions;
    std::string m_refusal;                            ///< of the archive's index, as it was logged
    std::vector<Waiting> m_waiting;                   ///< stored objects that are not acknowledged
    std::set<std::uint64_t> m_working;                ///< sessions whose operations are to go on
    std::vector<std::uint64_t> m_ended;               ///< sessions that have
    std::vector<std::unique_ptr<Forwarder>> m_ending; ///< associations of our own that are being released
    std::vector<std::unique_ptr<CommitOperation>> m_commitments;
    archive::Worklist m_worklist;
};

} // namespace program
