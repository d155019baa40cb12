#include "Find.h"

#include "Answer.h"

#include <algorithm>

namespace archive {

namespace vr = vdicom::vr;

namespace {

constexpr std::size_t kRowsAtOnce = 512; // about a millisecond where keys are simple; Turn bounds the others
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// The attribute that holds the time of a date; 0: none.
constexpr VDicomULong TimeOf(VDicomULong date) {
    switch (date) {
    case 0x00080012:
    case 0x00400244:
        return date + 1;
    case 0x00080020:
    case 0x00080021:
    case 0x00080022:
    case 0x00080023:
        return date + 0x10;
    case 0x00100030:
        return date + 2;
    default:
        return 0;
    }
}

constexpr const char* NameOf(Level level) {
    constexpr const char* kNames[kLevels] = {"PATIENT", "STUDY", "SERIES", "IMAGE"};
    return kNames[Number(level)];
}

} // namespace

Find::Find(Query query, ReaderPool& pool, std::string retrieveAE)
    : m_query(std::move(query)), m_retrieveAE(std::move(retrieveAE)), m_select(SelectForFind(m_query)),
      m_selection(pool, m_select.sql), m_times(m_query.keys.size(), kNone) {
    m_select.BindTo(m_selection.Rows());
    std::vector<bool> isTested(m_query.keys.size(), true);
    for (std::size_t i = 0; m_query.combinedDateTime && i < m_query.keys.size(); ++i) {
        const QueryKey* time = m_query.Find(TimeOf(m_query.keys[i].attribute->tag));
        if (time == nullptr || !time->key.IsRange() || !m_query.keys[i].key.IsRange())
            continue;
        m_times[i] = static_cast<std::size_t>(time - m_query.keys.data());
        m_dates.push_back(i);
        isTested[i] = isTested[m_times[i]] = false;
    }
    for (std::size_t i = 0; i < isTested.size(); ++i)
        if (isTested[i] && !m_query.keys[i].key.IsUniversal())
            m_tested.push_back(i);
}

std::string_view Find::ValueOf(std::size_t key) const { return m_selection.Rows().Text(static_cast<int>(key)); }

bool Find::MatchesRow() const {
    return std::all_of(m_tested.begin(), m_tested.end(),
                       [this](std::size_t key) { return m_query.keys[key].key.Matches(ValueOf(key)); }) &&
           std::all_of(m_dates.begin(), m_dates.end(), [this](std::size_t date) {
               return MatchesDateAndTime(m_query.keys[date].key, m_query.keys[m_times[date]].key, ValueOf(date),
                                         ValueOf(m_times[date]));
           });
}

Step Find::Next(VDicomDS& match) {
    for (Turn turn(kRowsAtOnce); !m_done && turn.GoesOn();) {
        if (!m_selection.Rows().Step()) {
            m_done = true;
        } else if (MatchesRow()) {
            Fill(match);
            return Step::match;
        }
    }
    return m_done ? Step::done : Step::busy;
}

void Find::Fill(VDicomDS& match) const {
    Answer answer(match, m_query.characterSet);
    std::size_t key = 0;
    const auto addBefore = [&](VDicomULong tag) {
        for (; key < m_query.keys.size() && m_query.keys[key].attribute->tag < tag; ++key)
            answer.Add(nullptr, m_query.keys[key].attribute->tag, m_query.keys[key].attribute->vr, ValueOf(key));
    };
    // In ascending order, in which elements are added the fastest.
    addBefore(tag::kLevel);
    answer.Add(nullptr, tag::kLevel, vr::CS, NameOf(m_query.level));
    answer.Add(nullptr, tag::kRetrieveAE, vr::AE, m_retrieveAE);
    if (m_query.wantsAvailability)
        answer.Add(nullptr, tag::kAvailability, vr::CS, "ONLINE");
    addBefore(DICOM_UNDEFINED);
    if (!answer.Write())
        throw std::bad_alloc();
}

} // namespace archive
