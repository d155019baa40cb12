#include "scu/RetrievalPlan.h"

#include <algorithm>
#include <utility>

namespace program {

namespace {

/// Contexts as good as the room allows.
Retrieval RetrievalFor(const StorageNeeds& needs, std::size_t most, std::vector<Query> requests) {
    Retrieval retrieval;
    retrieval.requests = std::move(requests);
    retrieval.offers = OffersApart(needs, most);
    if (!retrieval.offers.empty())
        return retrieval;
    std::vector<std::string> classes;
    for (const auto& [classUid, syntaxes] : needs)
        classes.push_back(classUid);
    retrieval.offers = OffersFor(classes, most, retrieval.left);
    return retrieval;
}

Query RequestFor(const Query& asked, const Holding& holding) {
    Query query;
    query.patientRoot = asked.patientRoot;
    query.level = holding.seriesUid.empty() ? QueryLevel::study : QueryLevel::series;
    if (const std::string patient = asked.ValueOf(kPatientId); asked.patientRoot && !patient.empty())
        query.Add("PatientID", patient);
    query.Add("StudyInstanceUID", holding.studyUid);
    if (!holding.seriesUid.empty())
        query.Add("SeriesInstanceUID", holding.seriesUid);
    return query;
}

} // namespace

std::vector<Retrieval> PlanRetrievals(const Query& asked, const std::vector<Holding>& holdings, std::size_t most) {
    StorageNeeds all;
    for (const Holding& holding : holdings)
        AddNeeds(all, holding.needs);
    // A part must not mean more than what is asked for.
    const auto isPart = [&asked](const Holding& holding) {
        return !holding.studyUid.empty() && (asked.level != QueryLevel::series || !holding.seriesUid.empty());
    };
    const bool isDivisible = asked.level != QueryLevel::image && std::all_of(holdings.begin(), holdings.end(), isPart);
    if (!isDivisible || holdings.size() < 2 || !OffersApart(all, most).empty())
        return {RetrievalFor(all, most, {asked})};

    std::vector<Retrieval> retrievals;
    StorageNeeds needs;
    std::vector<Query> requests;
    for (const Holding& holding : holdings) {
        StorageNeeds together = needs;
        AddNeeds(together, holding.needs);
        if (!requests.empty() && OffersApart(together, most).empty()) {
            retrievals.push_back(RetrievalFor(needs, most, std::exchange(requests, {})));
            together = holding.needs;
        }
        needs = std::move(together);
        requests.push_back(RequestFor(asked, holding));
    }
    retrievals.push_back(RetrievalFor(needs, most, std::move(requests)));
    return retrievals;
}

} // namespace program
