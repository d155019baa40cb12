/// @file RetrievalPlan.h
/// What a client of C-GET asks for in each of its associations.
#pragma once

#include "scu/Query.h"
#include "scu/StorageClasses.h"

namespace program {

/// What an archive says that it has of a series, or of a study where the series is empty.
struct Holding {
    std::string studyUid;
    std::string seriesUid;
    StorageNeeds needs;
};

/// One association: its contexts, and what is asked for in it.
struct Retrieval {
    std::vector<StorageOffer> offers;
    std::vector<Query> requests;
    std::size_t left = 0; ///< classes that there was no context for
};

/// Associations that fetch what `asked` means: one where its contexts suffice, else the holdings by themselves in as
/// many as their contexts demand. @param most contexts of an association
std::vector<Retrieval> PlanRetrievals(const Query& asked, const std::vector<Holding>& holdings, std::size_t most);

} // namespace program
