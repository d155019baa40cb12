/// @file Commitment.h
/// Storage commitment (PS3.4 J): which objects of a request the archive has.
#pragma once

#include "Outcome.h"
#include "ReaderPool.h"

#include "VDicomDS.h"

namespace archive {

/// One N-ACTION request, checked in pieces, and what the N-EVENT-REPORT says.
class Commitment {
public:
    /// Use Archive::StartCommitment. @throw DatabaseError
    Commitment(ReaderPool& pool, std::string folder, std::string retrieveAE);

    /// Takes the request over. @return 0, or the status of the N-ACTION response: 0120 Transaction UID or Referenced
    /// SOP Sequence is missing, 0115 a UID in them is none
    Outcome Read(VDicomDS& action);

    /// Looks at `most` objects: in the index, and whether the file is there and has its size. @return whether all have
    /// been looked at @throw DatabaseError
    bool Work(std::size_t most);

    /// When all have been looked at: fills the data set of the N-EVENT-REPORT. Failure Reason is 0112 no such object,
    /// 0119 it is of another class, 0110 its file cannot be read.
    /// @return the Event Type ID: 1 all are there, 2 some are not; 0: no memory
    unsigned short Report(VDicomDS& report) const;

private:
    struct Reference {
        std::string classUid;
        std::string instanceUid;
        unsigned short failure = 0;
    };

    unsigned short Check(const Reference& reference);
    bool Add(VDicomDS& report, DICOMELEMENT* sequence, const Reference& reference) const;

    std::string m_folder;
    std::string m_retrieveAE;
    std::string m_transaction;
    std::vector<Reference> m_references;
    std::size_t m_done = 0;
    Selection m_selection;
};

} // namespace archive
