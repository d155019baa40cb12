/// @file RetrieveClient.h
/// What get and move share: the sub-operations of a retrieval, and what is told of them at the end.
#pragma once

#include "Progress.h"
#include "scu/ObjectFolder.h"
#include "scu/QueryClient.h"

namespace program {

/// Numbers of sub-operations, as the last response that had them.
struct SubOperations {
    unsigned int remaining = 0;
    unsigned int completed = 0;
    unsigned int failed = 0;
    unsigned int warning = 0;
};

class RetrieveClient : public QueryClient {
public:
    RetrieveClient(const Peer& peer, const Query& query, Service service)
        : QueryClient(peer, query, service), m_progress("objects", 0) {}

    const SubOperations& Numbers() const { return m_numbers; }
    /// SOP Instance UIDs that the peer could not send (0008,0058).
    const std::vector<std::string>& FailedUids() const { return m_failedUids; }

    /// Says how it ended. @param folder null: the objects went elsewhere @param hint said when some failed; may be
    /// empty
    /// @return the exit status
    int Report(bool good, bool json, const ObjectFolder* folder, const std::string& hint) const;

protected:
    /// Takes a response to the request.
    void TakeResponse(unsigned short status, const SubOperations& numbers, VDicomDS* data);
    /// What to look at when the peer says it sent more than arrived; may be empty.
    virtual std::string MissingHint() const { return {}; }

private:
    void SayOutcome(bool good, const ObjectFolder* folder, const std::string& hint) const;
    std::string MissingText(const ObjectFolder* folder) const;
    bool IsStatusWell() const;
    bool IsWell(bool good, const ObjectFolder* folder) const;

    SubOperations m_numbers;
    std::vector<std::string> m_failedUids;
    Progress m_progress;
};

} // namespace program
