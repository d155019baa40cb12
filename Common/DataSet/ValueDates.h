/// @file ValueDates.h
/// Ages, dates, times, date-times and their ranges: from texts and to texts. Pure.
///
/// Parse... reads what stands in a data set, trimmed and not empty. Encode... writes what stands in a data set and
/// refuses records that are no such value. Display... writes, and ParseDisplay... reads, the forms for people of
/// VDicomDS::GetConvertValue.
#pragma once

#include "VDicomTypes.h"
#include "ValueText.h"

namespace vdicom {

constexpr VALUEDATE kEmptyDate = {65535, 65535, 65535};
constexpr VALUETIME kEmptyTime = {65535, 65535, 65535, 65535};
bool IsEmpty(const VALUEDATE& date);
bool IsEmpty(const VALUETIME& time);

/// One to three digits and a unit of either case.
bool Parse(std::string_view text, VALUEAGE& age);
/// yyyymmdd, or yyyy.mm.dd of ACR-NEMA; a day of the calendar.
bool Parse(std::string_view text, VALUEDATE& date);
/// hh, hhmm, hhmmss, hhmmss.f with up to six digits; with colons as in ACR-NEMA. Second 60 is a leap second.
bool Parse(std::string_view text, VALUETIME& time);
/// yyyy and as much of mmddhhmmss.f as there is; the offset from UTC with four digits may follow any part.
bool Parse(std::string_view text, VALUEDATETIME& dateTime);
/// A value, or one or two with a hyphen. A date-time that can be one value is one; in other texts the offset belongs to
/// the bound that stands before it.
bool Parse(std::string_view text, VALUEDATERANGE& range);
bool Parse(std::string_view text, VALUETIMERANGE& range);
bool Parse(std::string_view text, VALUEDATETIMERANGE& range);

bool Encode(const VALUEAGE& age, ValueBuffer& out);
bool Encode(const VALUEDATE& date, ValueBuffer& out);         ///< an empty one gives nothing
bool Encode(const VALUETIME& time, ValueBuffer& out);         ///< an empty one gives nothing
bool Encode(const VALUEDATETIME& dateTime, ValueBuffer& out); ///< up to the month or day that is 0
bool Encode(const VALUEDATERANGE& range, ValueBuffer& out);
bool Encode(const VALUETIMERANGE& range, ValueBuffer& out);
/// Writes an offset of 0 too where "2007-0500" would be one value.
bool Encode(const VALUEDATETIMERANGE& range, ValueBuffer& out);

void Display(const VALUEAGE& age, ValueBuffer& out);
void Display(const VALUEDATE& date, ValueBuffer& out);
void Display(const VALUETIME& time, ValueBuffer& out);
void Display(const VALUEDATETIME& dateTime, ValueBuffer& out);
void Display(const VALUEDATERANGE& range, ValueBuffer& out);
void Display(const VALUETIMERANGE& range, ValueBuffer& out);
void Display(const VALUEDATETIMERANGE& range, ValueBuffer& out);

/// What a data set holds of a text in the form for people or in that of data sets, which then stays as it is but for
/// the points and colons of ACR-NEMA. Trimmed, not empty.
bool EncodeAgeText(std::string_view text, ValueBuffer& out);
bool EncodeDateText(std::string_view text, ValueBuffer& out);
bool EncodeTimeText(std::string_view text, ValueBuffer& out);
bool EncodeDateTimeText(std::string_view text, ValueBuffer& out);

} // namespace vdicom
