/// @file RetrieveReport.h
/// What became of a retrieval: the numbers of its requests, and what is told of them at the end.
#pragma once

#include "Progress.h"
#include "scu/ObjectFolder.h"
#include "scu/Peer.h"

#include <string>
#include <vector>

namespace program {

class QueryClient;

/// Numbers of sub-operations, as the last response that had them.
struct SubOperationCounts {
    unsigned int remaining = 0;
    unsigned int completed = 0;
    unsigned int failed = 0;
    unsigned int warning = 0;
};

class RetrieveReport {
public:
    /// @param folder where the objects arrive; null: they go elsewhere
    RetrieveReport(const Peer& peer, const ObjectFolder* folder, bool json);

    /// How many requests there will be. One tells how many objects remain.
    void Expect(std::size_t requests) { m_requests = requests; }
    /// Bytes of objects have arrived, whole or not.
    void Arrived(std::uint64_t bytes);

    /// A response to the request under way, with its status.
    void Take(const SubOperationCounts& numbers, unsigned short status);
    /// It was the last one. @param failedUids SOP Instance UIDs that the peer could not send (0008,0058)
    void EndRequest(const std::vector<std::string>& failedUids);
    /// An association has ended. @param good what its client's Run returned
    void EndAssociation(bool good, const QueryClient& client);

    /// The user wanted no more, and not all was done.
    void Interrupt();

    /// Says how it ended. @param hint said when some failed; may be empty @param missingHint what to look at when the
    /// peer says it sent more than arrived; may be empty
    /// @return the exit status
    int Tell(const std::string& hint, const std::string& missingHint);

private:
    void SayOutcome(const std::string& hint, const std::string& missing) const;
    std::string MissingText(const std::string& hint) const;
    std::string UnwrittenText() const;
    bool IsWell() const;
    void ShowProgress();
    std::string Json(const std::string& missing) const;
    std::string Line() const;

    const Peer& m_peer;
    const ObjectFolder* m_folder;
    bool m_json;
    std::size_t m_requests = 1;
    std::uint64_t m_arrived = 0;
    SubOperationCounts m_ended; ///< sums of the requests that have ended
    SubOperationCounts m_numbers;
    std::vector<std::string> m_failedUids;
    unsigned short m_status = 0xFF00; ///< the first one that was none of success
    std::string m_text;
    std::string m_failure; ///< why an association did not end in order
    bool m_good = true;
    Progress m_progress;
};

} // namespace program
