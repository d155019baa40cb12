/// @file Inquiry.h
/// Asks an archive by C-FIND which SOP classes and transfer syntaxes the objects have that are to be fetched.
#pragma once

#include "Progress.h"
#include "scu/QueryClient.h"
#include "scu/RetrievalPlan.h"

#include <deque>
#include <utility>

namespace program {

/// Asks at image level at once; of an archive that does not answer this without the UIDs of the levels between, for
/// studies, their series, and the images of each. Where it refuses images, it may still tell the classes of a series,
/// or of a study (0008,0062).
class Inquiry final : public QueryClient {
public:
    /// @param asked what is to be fetched
    Inquiry(const Peer& peer, const Query& asked, bool withProgress);

    /// What the archive has; empty: it did not tell the class of each of the objects.
    std::vector<Holding> Holdings() const;
    /// Whether there was an association at all.
    bool WasEstablished() const { return m_wasEstablished; }

    void OnReceiveCFindResponse(unsigned char id, unsigned short messageID, const char* classUID, unsigned short status,
                                VDicomDS* data) override;

protected:
    void Start() override;
    const Query& FirstQuery() override { return m_now; }
    unsigned int Ask(unsigned char context, const char* classUid, VDicomDS& identifier) override;
    const Query* NextQuery(unsigned short status) override;

private:
    struct Series {
        StorageNeeds ofImages;
        StorageNeeds ofSeries;
        bool isUntold = false; ///< an image has no class
    };

    static Query First(const Query& asked);
    Query Below(QueryLevel level, const std::string& studyUid, const std::string& seriesUid) const;
    void Take(VDicomDS& match);
    void TakeEnd(bool good);
    void Keep(StorageNeeds& needs, const std::vector<std::string>& classes, const std::vector<std::string>& syntaxes);

    const Query& m_asked;
    Query m_now;
    std::deque<Query> m_next;
    std::map<std::string, StorageNeeds> m_studies;
    std::map<std::pair<std::string, std::string>, Series> m_series; ///< by the UIDs of study and series
    bool m_wasEstablished = false;
    bool m_isFirst = true;
    bool m_refusesImages = false;
    bool m_isIncomplete = false; ///< something was left out, or could not be asked
    std::uint64_t m_matches = 0; ///< of the query under way
    std::uint64_t m_kept = 0;
    std::uint64_t m_queries = 0;
    std::uint64_t m_found = 0;
    Progress m_progress;
};

} // namespace program
