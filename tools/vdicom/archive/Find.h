/// @file Find.h
/// A C-FIND over the index: its matches one at a time, so that a server can send, look at other connections and cancel
/// in between.
#pragma once

#include "Identifier.h"
#include "ReaderPool.h"
#include "Selecting.h"

#include <chrono>

namespace archive {

/// What one call of an iterator came to.
enum class Step {
    match, ///< here is one
    busy,  ///< looked at many rows without a match; call again after other work
    done   ///< there are no more
};

/// What one call of an iterator may look at: so many rows, for 5 milliseconds at most, and one row always.
class Turn {
public:
    explicit Turn(std::size_t mostRows) : m_most(mostRows) {}
    /// Ask before each row.
    bool GoesOn() {
        const std::size_t looked = m_looked++;
        return looked == 0 || (looked < m_most && Clock::now() < m_end);
    }

private:
    using Clock = std::chrono::steady_clock;
    std::size_t m_most;
    std::size_t m_looked = 0;
    Clock::time_point m_end = Clock::now() + std::chrono::milliseconds(5);
};

class Find {
public:
    /// Use StartFind. @throw DatabaseError
    Find(Query query, ReaderPool& pool, std::string retrieveAE);

    /// @param match emptied and filled with the identifier of the response: Query/Retrieve Level, Retrieve AE Title,
    ///        the unique keys down to the level and what was asked for. All matches are the state of the index at
    ///        the first call. @throw DatabaseError, std::bad_alloc
    Step Next(VDicomDS& match);

    /// FF00, or FF01 when keys of the request were not supported.
    unsigned short PendingStatus() const {
        return m_query.hasUnsupportedKeys ? status::kPendingUnsupportedKeys : status::kPending;
    }

private:
    bool MatchesRow() const;
    void Fill(VDicomDS& match) const;
    std::string_view ValueOf(std::size_t key) const;

    Query m_query;
    std::string m_retrieveAE;
    SelectText m_select;
    Selection m_selection;
    std::vector<std::size_t> m_times; ///< of each key: the one that holds the time of its date, or none
    std::vector<std::size_t> m_tested;
    std::vector<std::size_t> m_dates; ///< keys that are matched with their times
    bool m_done = false;
};

} // namespace archive
