/// @file Matching.h
/// Matching of one attribute (PS3.4 C.2.2.2): what a query's key says, and whether a stored value is meant by it.
/// Pure: knows texts in UTF-8 alone.
///
/// A key is universal (empty, or asterisks alone), a single value, several values of which one has to match, a text
/// with wildcards (of VRs that allow them), or a range of dates, times or date-times. A stored attribute of several
/// values matches when one of them does. Names of persons match without regard to case and accents, in any of their
/// component groups, and carets at their end do not count; texts of other VRs match as they stand. Numbers match by
/// their value.
#pragma once

#include "DateRange.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace archive {

/// Lower case without accents, as names are compared (Unicode). Malformed UTF-8 stays as it is.
std::string Fold(std::string_view text);

/// '*' is any number of characters, '?' one character of UTF-8.
bool MatchesWildcard(std::string_view text, std::string_view pattern);

/// Blanks at both ends and, at the end, zeros.
std::string_view Trim(std::string_view text);

/// More values in one key are refused: no client means them, and the index could not be asked in one go.
constexpr std::size_t kMostValues = 20000;

/// Calls `each` with every value of a text until it returns true. @return whether it did
template <class Each> bool AnyValue(std::string_view text, Each each) {
    for (;;) {
        const std::size_t end = text.find('\\');
        if (each(text.substr(0, end)))
            return true;
        if (end == std::string_view::npos)
            return false;
        text.remove_prefix(end + 1);
    }
}

class Key {
public:
    /// @param vr of the attribute (vdicom::vr) @return nullopt when the text is no key of the VR: a malformed date, a
    ///         wildcard where the VR has none, a pattern of more than 1,024 bytes, more than kMostValues values
    static std::optional<Key> Parse(unsigned short vr, std::string_view text);

    bool IsUniversal() const { return m_kind == Kind::universal; }
    /// Whether there is one value without wildcards; Value() is it.
    bool IsSingle() const { return m_kind == Kind::text && m_values.size() == 1; }
    const std::string& Value() const { return m_values.front(); }
    /// The values of a key that lists some without wildcards; those of names are folded. Empty for other keys.
    std::span<const std::string> Values() const {
        return m_kind == Kind::text ? std::span<const std::string>(m_values) : std::span<const std::string>();
    }
    /// What every match begins with, folded where the VR is a name's: of a key with one value. May be empty.
    std::string_view Prefix() const;
    /// Of dates, times and date-times: what the key covers, and whether it is a range.
    const TimeSpan& Span() const { return m_spans.front(); }
    bool HasSpan() const { return m_kind == Kind::span && m_spans.size() == 1; }
    bool IsRange() const { return HasSpan() && m_isRange; }

    bool Matches(std::string_view stored) const;

private:
    enum class Kind { universal, text, wildcard, number, span };

    bool ParseSpans(std::string_view text);
    void AddValue(std::string_view value);
    bool MatchesNumber(std::string_view value) const;
    bool MatchesValue(std::string_view value) const;
    bool MatchesText(std::string_view text) const;

    unsigned short m_vr = 0;
    Kind m_kind = Kind::universal;
    std::vector<std::string> m_values; ///< ascending; of numbers: the texts that are none
    std::vector<double> m_numbers;     ///< ascending
    std::vector<TimeSpan> m_spans;
    bool m_isRange = false;
};

/// Ranges of a date and of its time as one span: from the first date at the first time to the last date at the last
/// time. @param dates @param times ranges both (Key::IsRange)
bool MatchesDateAndTime(const Key& dates, const Key& times, std::string_view storedDate, std::string_view storedTime);

} // namespace archive
