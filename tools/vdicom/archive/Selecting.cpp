#include "Selecting.h"

#include "Database.h"

#include <algorithm>
#include <chrono>
#include <initializer_list>

namespace archive {

namespace vr = vdicom::vr;

namespace {

std::string ColumnOf(const Attribute& attribute) {
    if (attribute.computed != nullptr)
        return attribute.computed;
    return std::string(TableOf(attribute.level)) + '.' + attribute.column;
}

/// Puts the conditions of a query together.
class Narrowing {
public:
    explicit Narrowing(SelectText& select) : m_select(select) {}

    bool Narrows(Level level) const { return m_narrows[Number(level)]; }

    void Add(const QueryKey& query) {
        const Attribute& attribute = *query.attribute;
        const Key& key = query.key;
        if (key.IsUniversal() || attribute.computed != nullptr || attribute.multiple)
            return;
        if (attribute.tag == tag::kPatientName)
            AddName(key);
        else if (attribute.vr == vr::PN)
            return; // compared without case and accents
        else if (attribute.vr == vr::DA && key.HasSpan())
            AddDates(attribute, key.Span());
        else if (!key.Values().empty())
            AddValues(attribute, key);
        else if (!key.Prefix().empty())
            AddPrefix(ColumnOf(attribute), attribute.level, key.Prefix());
    }

private:
    std::string Parameter(std::string text) {
        m_select.parameters.push_back(std::move(text));
        return "?" + std::to_string(m_select.parameters.size());
    }

    void And(Level level, const std::string& condition) {
        m_select.sql += m_any ? " AND " : " WHERE ";
        m_select.sql += condition;
        m_any = true;
        m_narrows[Number(level)] = true;
    }

    void AddValues(const Attribute& attribute, const Key& key) {
        std::string list;
        for (const std::string& value : key.Values())
            list += (list.empty() ? "" : ", ") + Parameter(value);
        And(attribute.level, ColumnOf(attribute) + " IN (" + list + ")");
    }

    // All texts that begin with `prefix`: up to the one with the largest character behind it.
    std::string InPrefix(const std::string& column, std::string_view prefix) {
        return column + " >= " + Parameter(std::string(prefix)) + " AND " + column +
               " <= " + Parameter(std::string(prefix) + "\xF4\x8F\xBF\xBF");
    }

    void AddPrefix(const std::string& column, Level level, std::string_view prefix) {
        And(level, "(" + InPrefix(column, prefix) + ")");
    }

    void AddName(const Key& key) {
        // A pattern of several component groups begins with the first.
        const std::string_view prefix = key.Prefix().substr(0, key.Prefix().find('='));
        if (!prefix.empty())
            And(Level::patient, "patient.id IN (SELECT patient FROM name WHERE " + InPrefix("folded", prefix) + ")");
    }

    void AddDates(const Attribute& attribute, const TimeSpan& span) {
        const std::string column = ColumnOf(attribute);
        const TimeSpan open;
        if (span.first != open.first)
            And(attribute.level, column + " >= " + Parameter(DateText(span.first)));
        if (span.last != open.last)
            And(attribute.level, column + " <= " + Parameter(DateText(span.last)));
    }

    static std::string DateText(std::int64_t moment);

    SelectText& m_select;
    bool m_any = false;
    bool m_narrows[kLevels] = {};
};

std::string Padded(unsigned number, std::size_t width) {
    const std::string text = std::to_string(number);
    return std::string(width - std::min(width, text.size()), '0') + text;
}

std::string Narrowing::DateText(std::int64_t moment) {
    using namespace std::chrono;
    const year_month_day date(floor<days>(sys_time<microseconds>(microseconds(moment))));
    return Padded(static_cast<unsigned>(static_cast<int>(date.year())), 4) +
           Padded(static_cast<unsigned>(date.month()), 2) + Padded(static_cast<unsigned>(date.day()), 2);
}

// CROSS JOIN keeps the order as it is written: without statistics SQLite would only guess.
std::string From(std::initializer_list<Level> levels) {
    constexpr const char* kUp[kLevels] = {nullptr, "study.patient = patient.id", "series.study = study.id",
                                          "instance.series = series.id"};
    std::string from = " FROM ";
    const Level* before = nullptr;
    for (const Level& level : levels) {
        from += before == nullptr ? "" : " CROSS JOIN ";
        from += TableOf(level);
        if (before != nullptr)
            from += std::string(" ON ") + kUp[Number(std::max(*before, level))];
        before = &level;
    }
    return from;
}

// From the top down, but for studies that are found by a key of their own.
std::string FromFor(Level level, bool studyFirst) {
    switch (level) {
    case Level::patient:
        return From({Level::patient});
    case Level::study:
        return studyFirst ? From({Level::study, Level::patient}) : From({Level::patient, Level::study});
    case Level::series:
        return studyFirst ? From({Level::study, Level::patient}) + " CROSS JOIN series ON series.study = study.id"
                          : From({Level::patient, Level::study, Level::series});
    case Level::image:
        break;
    }
    return studyFirst ? From({Level::study, Level::patient}) + " CROSS JOIN series ON series.study = study.id" +
                            " CROSS JOIN instance ON instance.series = series.id"
                      : From({Level::patient, Level::study, Level::series, Level::image});
}

SelectText Select(const Query& query, Level level, std::string_view columns) {
    SelectText select;
    Narrowing narrowing(select);
    for (const QueryKey& key : query.keys)
        narrowing.Add(key);
    const bool studyFirst = narrowing.Narrows(Level::study) || !narrowing.Narrows(Level::patient);
    select.sql = "SELECT " + std::string(columns) + FromFor(level, studyFirst) + select.sql;
    return select;
}

} // namespace

void SelectText::BindTo(Statement& statement) const {
    for (std::size_t i = 0; i < parameters.size(); ++i)
        statement.Bind(static_cast<int>(i + 1), std::string_view(parameters[i]));
}

SelectText SelectForFind(const Query& query) {
    std::string columns;
    for (const QueryKey& key : query.keys)
        columns += (columns.empty() ? "" : ", ") + ColumnOf(*key.attribute);
    return Select(query, query.level, columns);
}

SelectText SelectForRetrieval(const Query& query, std::string_view columns) {
    return Select(query, Level::image, columns);
}

} // namespace archive
