/// @file Retrieval.h
/// The objects that a C-MOVE or C-GET asks for, one at a time. Which ones is settled at its beginning; where the file
/// of each is, when its turn comes, so that one that is stored again meanwhile is sent as it is then.
#pragma once

#include "Identifier.h"
#include "ReaderPool.h"
#include "Selecting.h"

#include <cstdint>

namespace archive {

struct RetrievedObject {
    std::string path; ///< of the file, with the archive's folder
    std::string classUid;
    std::string instanceUid;
    std::string transferSyntax;
};

/// What a presentation context has to be proposed for.
struct RetrievedSyntax {
    std::string classUid;
    std::string transferSyntax;
};

class Retrieval {
public:
    /// Use StartRetrieval. @throw DatabaseError
    Retrieval(const Query& query, ReaderPool& pool, std::string folder);

    /// How many objects there are: the number of sub-operations to begin with.
    std::uint64_t Total() const { return m_ids.size(); }
    /// Each combination of class and transfer syntax among them once.
    const std::vector<RetrievedSyntax>& Syntaxes() const { return m_syntaxes; }
    /// @return false when there are no more @throw DatabaseError
    bool Next(RetrievedObject& object);
    /// Looks once more for the object that Next gave last. @return whether it is there @throw DatabaseError
    bool Find(RetrievedObject& object);

private:
    std::string m_folder;
    std::vector<RetrievedSyntax> m_syntaxes;
    std::vector<std::int64_t> m_ids; ///< rows of the table of instances
    std::size_t m_next = 0;
    Selection m_row;
};

} // namespace archive
