#include "scu/Inquiry.h"

#include "scu/Uid.h"

#include <algorithm>

namespace program {

namespace {

constexpr VDicomULong kSopClass = 0x00080016, kClassesInStudy = 0x00080062, kAvailableSyntax = 0x00083002;
// What an archive may tell, and how many queries it may need: what is not known is offered as ever.
constexpr std::uint64_t kMostKept = 100'000, kMostMatches = 1'000'000, kMostQueries = 2000;
constexpr std::size_t kMostSyntaxes = 64; // of one match

/// What is none goes into no request.
std::vector<std::string> UidsOf(VDicomDS& match, VDicomULong tag) {
    std::vector<std::string> uids = ReadUids(match, tag);
    std::erase_if(uids, [](const std::string& uid) { return !IsUid(uid); });
    return uids;
}

std::string FirstUid(VDicomDS& match, VDicomULong tag, const Query& query) {
    const std::vector<std::string> uids = UidsOf(match, tag);
    if (!uids.empty())
        return uids.front();
    const std::string asked = query.ValueOf(tag);
    return IsUid(asked) ? asked : std::string();
}

/// Whether a query wants what has this UID: some archives heed none of the keys but one. Empty: it is not told.
bool IsAsked(const Query& query, VDicomULong tag, const std::string& uid) {
    const std::string asked = '\\' + query.ValueOf(tag) + '\\';
    return uid.empty() || asked.size() == 2 || asked.find('\\' + uid + '\\') != std::string::npos;
}

} // namespace

Inquiry::Inquiry(const Peer& peer, const Query& asked, bool withProgress)
    : QueryClient(peer, asked, Service::find), m_asked(asked), m_now(First(asked)), m_progress("objects found", 0) {
    if (!withProgress)
        m_progress.Off();
}

// The unique keys alone: retrieval heeds no others.
Query Inquiry::First(const Query& asked) {
    Query query;
    query.level = QueryLevel::image;
    query.patientRoot = asked.patientRoot;
    if (const std::string patient = asked.ValueOf(kPatientId); !patient.empty())
        query.Add("PatientID", patient);
    query.Add("StudyInstanceUID", asked.ValueOf(kStudyUid));
    query.Add("SeriesInstanceUID", asked.ValueOf(kSeriesUid));
    query.Add("SOPInstanceUID", asked.ValueOf(kInstanceUid));
    query.Add("SOPClassUID");
    query.Add("AvailableTransferSyntaxUID");
    return query;
}

// Only what the level has, and the unique keys above it (PS3.4 C.4.1.2.1).
Query Inquiry::Below(QueryLevel level, const std::string& studyUid, const std::string& seriesUid) const {
    Query query;
    query.level = level;
    query.patientRoot = m_asked.patientRoot;
    const std::string patient = m_asked.ValueOf(kPatientId);
    if (!patient.empty() && (query.patientRoot || level == QueryLevel::study))
        query.Add("PatientID", patient);
    query.Add("StudyInstanceUID", studyUid);
    if (level == QueryLevel::study) {
        query.Add("SOPClassesInStudy");
        return query;
    }
    query.Add("SeriesInstanceUID", seriesUid);
    if (level == QueryLevel::image)
        query.Add("SOPInstanceUID", m_asked.ValueOf(kInstanceUid));
    query.Add("SOPClassUID");
    query.Add("AvailableTransferSyntaxUID");
    return query;
}

void Inquiry::Start() {
    m_wasEstablished = true;
    QueryClient::Start();
}

unsigned int Inquiry::Ask(unsigned char context, const char* classUid, VDicomDS& identifier) {
    return SendCFindRequest(context, Message(), classUid, 0, &identifier);
}

void Inquiry::OnReceiveCFindResponse(unsigned char, unsigned short messageID, const char*, unsigned short status,
                                     VDicomDS* data) {
    if (!Expect(messageID, Message()) || TakeStatus(status) || !data || IsCancelled())
        return;
    Take(*data);
    if (m_kept > kMostKept || m_matches > kMostMatches) {
        m_isIncomplete = true;
        Fail("the peer tells more than was asked for");
    }
}

// Counts what is new alone: thousands of images have one class and one syntax.
void Inquiry::Keep(StorageNeeds& needs, const std::vector<std::string>& classes,
                   const std::vector<std::string>& syntaxes) {
    std::set<std::string> told; // with more than there can be, it did not say
    if (syntaxes.size() <= kMostSyntaxes)
        told.insert(syntaxes.begin(), syntaxes.end());
    for (const std::string& classUid : classes) {
        if (m_kept > kMostKept)
            return;
        const auto [at, isNew] = needs.try_emplace(classUid, told);
        const std::size_t before = isNew ? 0 : at->second.size();
        if (!isNew && told.empty())
            at->second.clear();
        else if (!isNew && before > 0)
            at->second.insert(told.begin(), told.end());
        m_kept += (isNew ? 1 : 0) + (std::max(before, at->second.size()) - before);
    }
}

void Inquiry::Take(VDicomDS& match) {
    ++m_matches;
    const std::string studyUid = FirstUid(match, kStudyUid, m_now);
    if (!IsAsked(m_now, kStudyUid, studyUid))
        return;
    if (m_now.level == QueryLevel::study) {
        Keep(m_studies[studyUid], UidsOf(match, kClassesInStudy), {});
        ++m_kept;
        return;
    }
    const std::string seriesUid = FirstUid(match, kSeriesUid, m_now);
    if (!IsAsked(m_now, kSeriesUid, seriesUid))
        return;
    const auto [at, isNew] = m_series.try_emplace({studyUid, seriesUid});
    m_kept += isNew ? 1 : 0;
    std::vector<std::string> classes = UidsOf(match, kSopClass);
    if (classes.size() > 1) // one is all that the attribute may have
        classes.resize(1);
    const std::vector<std::string> syntaxes = UidsOf(match, kAvailableSyntax);
    if (m_now.level == QueryLevel::series) {
        Keep(at->second.ofSeries, classes, syntaxes);
        return;
    }
    Keep(at->second.ofImages, classes, syntaxes);
    at->second.isUntold = at->second.isUntold || classes.empty();
    m_progress.Done(++m_found);
}

// What the end of a query means for those that follow.
void Inquiry::TakeEnd(bool good) {
    const std::uint64_t matches = std::exchange(m_matches, 0);
    const bool hasUntold =
        std::any_of(m_series.begin(), m_series.end(), [](const auto& series) { return series.second.isUntold; });
    if (m_isFirst) {
        m_isFirst = false;
        if (good && matches > 0 && !hasUntold)
            return;
        const std::string studyUid = m_asked.ValueOf(kStudyUid), seriesUid = m_asked.ValueOf(kSeriesUid);
        m_refusesImages = hasUntold || (!good && !studyUid.empty() && !seriesUid.empty());
        m_isIncomplete = !good;
        if (!good)
            m_series.clear();
        // Anything else would ask for all that the archive has.
        if (!studyUid.empty() || !m_asked.ValueOf(kPatientId).empty())
            m_next.push_back(Below(QueryLevel::study, studyUid, {}));
        return;
    }
    switch (m_now.level) {
    case QueryLevel::study:
        if (const std::string studyUid = m_asked.ValueOf(kStudyUid); !good && IsUid(studyUid))
            m_studies[studyUid];
        m_isIncomplete = !good && m_studies.empty();
        for (const auto& [studyUid, needs] : m_studies) {
            if (!m_refusesImages || needs.empty())
                m_next.push_back(Below(QueryLevel::series, studyUid, m_asked.ValueOf(kSeriesUid)));
        }
        break;
    case QueryLevel::series: {
        const std::string studyUid = m_now.ValueOf(kStudyUid);
        const auto isOfStudy = [&studyUid](const auto& series) { return series.first.first == studyUid; };
        if (!good)
            std::erase_if(m_series, isOfStudy);
        for (auto at = m_series.lower_bound({studyUid, {}}); at != m_series.end() && isOfStudy(*at); ++at) {
            if (!m_refusesImages)
                m_next.push_back(Below(QueryLevel::image, studyUid, at->first.second));
        }
        break;
    }
    default:
        if (!good || hasUntold) {
            m_series[{m_now.ValueOf(kStudyUid), m_now.ValueOf(kSeriesUid)}].isUntold = true;
            m_refusesImages = true;
            std::erase_if(m_next, [](const Query& query) { return query.level == QueryLevel::image; });
        }
        break;
    }
}

const Query* Inquiry::NextQuery(unsigned short status) {
    TakeEnd(status == 0);
    if (m_next.empty() || ++m_queries > kMostQueries)
        return nullptr;
    m_now = std::move(m_next.front());
    m_next.pop_front();
    return &m_now;
}

std::vector<Holding> Inquiry::Holdings() const {
    std::vector<Holding> holdings;
    if (m_isIncomplete)
        return holdings;
    std::set<std::string> studies; // of which the series do not tell all
    std::set<std::string> seen;
    for (const auto& [uids, series] : m_series) {
        seen.insert(uids.first);
        const bool isTold = !series.isUntold && !series.ofImages.empty();
        if (!isTold && series.ofSeries.empty())
            studies.insert(uids.first);
    }
    for (const auto& [studyUid, needs] : m_studies) {
        if (seen.count(studyUid) == 0)
            studies.insert(studyUid);
    }
    for (const auto& [uids, series] : m_series) {
        const bool isTold = !series.isUntold && !series.ofImages.empty();
        if (studies.count(uids.first) == 0)
            holdings.push_back({uids.first, uids.second, isTold ? series.ofImages : series.ofSeries});
    }
    for (const std::string& studyUid : studies) {
        const auto at = m_studies.find(studyUid);
        if (at == m_studies.end() || at->second.empty())
            return {};
        holdings.push_back({studyUid, {}, at->second});
    }
    return holdings;
}

} // namespace program
