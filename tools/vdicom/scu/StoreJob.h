/// @file StoreJob.h
/// Sends the files of a list, in as many associations as their contexts demand, and goes on after a lost one.
#pragma once

#include "Progress.h"
#include "scu/Peer.h"
#include "scu/StoreList.h"
#include "scu/StoreReport.h"

namespace program {

struct StoreSettings {
    Peer peer;
    std::uint64_t rounds = 1;  ///< how often every file is sent
    std::uint64_t retries = 0; ///< how often a connection that was lost is made again
};

class StoreJob {
public:
    /// Where in the work of an association a sender stands.
    struct Position {
        std::uint64_t round = 0;
        std::size_t file = 0;
    };

    StoreJob(const StoreSettings& settings, StoreList& list, StoreReport& report);

    /// Sends everything that can be sent; the report knows what became of it.
    void Run();
    std::size_t CountAssociations() const { return m_made; }

    /// @name For the sender of one association
    /// @{
    const std::vector<StoreContext>& Contexts() const { return m_plan.Contexts(m_association); }
    const std::vector<ObjectKind>& Kinds() const { return m_list.Kinds(); }
    StoreReport& Report() { return m_report; }
    StoreFile& FileAt(const Position& position) { return m_list.Files()[position.file]; }
    /// Moves a position to the next file of this association that is to be sent, itself included.
    /// @return false: there is none
    bool Seek(Position& position) const;
    static void Step(Position& position) { ++position.file; }
    /// The first file that no response has come for.
    const Position& FirstUnanswered() const { return m_position; }
    void Answered(const Position& position);
    /// A file will not be sent any more, in this many rounds; it is no work that is left.
    void Skipped(const Position& position, std::uint64_t rounds);
    std::uint64_t RoundsFrom(const Position& position) const { return m_settings.rounds - position.round; }
    /// Shows how far the work is. @param sent bytes of the file that is under way
    void ShowProgress(std::uint64_t sent);
    /// @}

private:
    bool RunAssociation();
    void ReportRest(const std::string& reason);
    bool WaitForRetry(std::uint64_t number) const;

    const StoreSettings& m_settings;
    StoreList& m_list;
    StoreReport& m_report;
    StorePlan m_plan;
    Progress m_progress;
    std::size_t m_association = 0;
    std::size_t m_made = 0;
    Position m_position;
    std::uint64_t m_doneFiles = 0;
    std::uint64_t m_doneBytes = 0;
};

} // namespace program
