#include "Matching.h"

#include "VDicomTypes.h"

#include <utf8proc.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace archive {

namespace vr = vdicom::vr;

namespace {

constexpr std::size_t kLongestPattern = 1024;

bool AllowsWildcards(unsigned short code) {
    switch (code) {
    case vr::AE:
    case vr::CS:
    case vr::LO:
    case vr::LT:
    case vr::PN:
    case vr::SH:
    case vr::ST:
    case vr::UC:
    case vr::UR:
    case vr::UT:
        return true;
    default:
        return false;
    }
}

bool IsNumber(unsigned short code) {
    switch (code) {
    case vr::DS:
    case vr::IS:
    case vr::US:
    case vr::UL:
    case vr::SS:
    case vr::SL:
        return true;
    default:
        return false;
    }
}

SpanParser SpanParserOf(unsigned short code) {
    switch (code) {
    case vr::DA:
        return ParseDate;
    case vr::TM:
        return ParseTime;
    case vr::DT:
        return ParseDateTime;
    default:
        return nullptr;
    }
}

// Texts of these VRs are one value, backslashes and all.
bool IsOneValue(unsigned short code) { return code == vr::LT || code == vr::ST || code == vr::UT || code == vr::UR; }

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::optional<double> ParseNumber(std::string_view text) {
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

// Nor empty component groups in front: "=NAME" asks for a name in other letters.
std::string_view WithoutCarets(std::string_view name) {
    while (!name.empty() && name.front() == '=')
        name.remove_prefix(1);
    while (!name.empty() && (name.back() == '^' || name.back() == '=' || name.back() == ' '))
        name.remove_suffix(1);
    return name;
}

std::string FoldPlain(std::string_view text) {
    std::string folded(text);
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

} // namespace

// Composed, so that '?' is a syllable of Hangul.
std::string Fold(std::string_view text) {
    if (std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return FoldPlain(text);
    utf8proc_uint8_t* folded = nullptr;
    const auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPAT | UTF8PROC_COMPOSE |
                                                        UTF8PROC_CASEFOLD | UTF8PROC_STRIPMARK);
    const utf8proc_ssize_t size = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                               static_cast<utf8proc_ssize_t>(text.size()), &folded, options);
    if (size < 0)
        return FoldPlain(text);
    std::string result(reinterpret_cast<const char*>(folded), static_cast<std::size_t>(size));
    std::free(folded); // NOLINT: utf8proc_map gives memory of malloc
    return result;
}

// One place to go back to is enough: what the last asterisk takes can only grow.
bool MatchesWildcard(std::string_view text, std::string_view pattern) {
    std::size_t t = 0, p = 0, star = std::string_view::npos, taken = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            taken = t;
        } else if (p < pattern.size() && pattern[p] == '?') {
            ++p;
            do
                ++t;
            while (t < text.size() && IsContinuation(text[t]));
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            do
                ++taken;
            while (taken < text.size() && IsContinuation(text[taken]));
            t = taken;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\0'))
        text.remove_suffix(1);
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    return text;
}

bool Key::ParseSpans(std::string_view text) {
    const SpanParser parse = SpanParserOf(m_vr);
    m_kind = Kind::span;
    return !AnyValue(text, [&](std::string_view value) {
        const std::optional<TimeSpan> span = ParseRange(Trim(value), parse);
        if (span)
            m_spans.push_back(*span);
        m_isRange = span && archive::IsRange(Trim(value), parse);
        return !span || m_spans.size() > kMostValues; // stops at the first that is none
    });
}

void Key::AddValue(std::string_view value) {
    const std::optional<double> number = m_kind == Kind::number ? ParseNumber(value) : std::nullopt;
    if (number)
        m_numbers.push_back(*number);
    else if (m_vr == vr::PN)
        m_values.push_back(Fold(WithoutCarets(value)));
    else
        m_values.emplace_back(value);
}

std::optional<Key> Key::Parse(unsigned short vr, std::string_view text) {
    Key key;
    key.m_vr = vr;
    text = Trim(text);
    if (text.find_first_not_of('*') == std::string_view::npos)
        return key;
    if (SpanParserOf(vr) != nullptr)
        return key.ParseSpans(text) ? std::optional<Key>(key) : std::nullopt;
    const bool hasWildcards = text.find_first_of("*?") != std::string_view::npos;
    if (hasWildcards && (!AllowsWildcards(vr) || text.size() > kLongestPattern))
        return std::nullopt;
    key.m_kind = hasWildcards ? Kind::wildcard : IsNumber(vr) ? Kind::number : Kind::text;
    const auto add = [&](std::string_view value) {
        key.AddValue(Trim(value));
        return key.m_values.size() + key.m_numbers.size() > kMostValues;
    };
    if (IsOneValue(vr))
        add(text);
    else if (AnyValue(text, add))
        return std::nullopt;
    std::sort(key.m_values.begin(), key.m_values.end());
    std::sort(key.m_numbers.begin(), key.m_numbers.end());
    return key;
}

std::string_view Key::Prefix() const {
    if ((m_kind != Kind::text && m_kind != Kind::wildcard) || m_values.size() != 1)
        return {};
    const std::string_view value = m_values.front();
    return m_kind == Kind::text ? value : value.substr(0, value.find_first_of("*?"));
}

bool Key::MatchesText(std::string_view text) const {
    if (m_kind == Kind::text)
        return std::binary_search(m_values.begin(), m_values.end(), text, std::less<>());
    return std::any_of(m_values.begin(), m_values.end(),
                       [&](const std::string& pattern) { return MatchesWildcard(text, pattern); });
}

bool Key::MatchesNumber(std::string_view value) const {
    if (const std::optional<double> number = ParseNumber(value))
        return std::binary_search(m_numbers.begin(), m_numbers.end(), *number);
    return std::binary_search(m_values.begin(), m_values.end(), value, std::less<>());
}

bool Key::MatchesValue(std::string_view value) const {
    if (m_kind == Kind::span) {
        const std::optional<TimeSpan> span = SpanParserOf(m_vr)(value);
        return span && std::any_of(m_spans.begin(), m_spans.end(),
                                   [&](const TimeSpan& wanted) { return wanted.Holds(span->first); });
    }
    if (m_kind == Kind::number)
        return MatchesNumber(value);
    if (m_vr != vr::PN)
        return MatchesText(value);
    const std::string name = Fold(WithoutCarets(value));
    if (MatchesText(name))
        return true;
    // Any component group: the name in other letters.
    for (std::size_t start = 0, end = name.find('='); end != std::string::npos || start != 0;
         end = name.find('=', start)) {
        if (MatchesText(WithoutCarets(std::string_view(name).substr(start, end - start))))
            return true;
        if (end == std::string::npos)
            return false;
        start = end + 1;
    }
    return false;
}

bool Key::Matches(std::string_view stored) const {
    if (m_kind == Kind::universal)
        return true;
    if (stored.empty())
        return false;
    if (IsOneValue(m_vr))
        return MatchesValue(Trim(stored));
    return AnyValue(stored, [&](std::string_view value) { return MatchesValue(Trim(value)); });
}

bool MatchesDateAndTime(const Key& dates, const Key& times, std::string_view storedDate, std::string_view storedTime) {
    const std::optional<TimeSpan> day = ParseDate(Trim(storedDate));
    const std::optional<TimeSpan> time = ParseTime(Trim(storedTime));
    if (!day)
        return false;
    const std::int64_t moment = day->first + (time ? time->first : 0);
    const TimeSpan& days = dates.Span();
    const TimeSpan& clock = times.Span();
    const TimeSpan open;
    if (days.first != open.first && moment < days.first + std::max<std::int64_t>(clock.first, 0))
        return false;
    return days.last == open.last || moment <= days.last + 1 - kDay + std::min(clock.last, kDay - 1);
}

} // namespace archive
