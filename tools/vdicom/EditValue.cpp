#include "EditValue.h"

#include "Message.h"
#include "TagPath.h"
#include "TextReader.h"
#include "Vr.h"

#include "VDicomVR.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <limits>
#include <vector>

namespace program {

namespace {

constexpr std::size_t kPiece = 64 * 1024;

std::string Letters(unsigned short code) { return {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)}; }

std::vector<std::string_view> Split(std::string_view text) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find('\\');
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

std::size_t CountCharacters(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

bool AllOf(std::string_view text, std::string_view allowed) {
    return text.find_first_not_of(allowed) == std::string_view::npos;
}

constexpr std::string_view kDigits = "0123456789";

/// Whether all digits of a UID stand as PS3.5 9.1 wants them: components of digits without leading zeros.
bool IsUid(std::string_view text) {
    if (!AllOf(text, "0123456789.") || text.size() > 64)
        return false;
    for (;;) {
        const std::size_t end = std::min(text.find('.'), text.size());
        if (end == 0 || (end > 1 && text[0] == '0'))
            return false;
        if (end == text.size())
            return true;
        text.remove_prefix(end + 1);
    }
}

int TwoDigits(std::string_view text, std::size_t at) {
    int number = -1;
    if (text.size() >= at + 2 && AllOf(text.substr(at, 2), kDigits))
        std::from_chars(text.data() + at, text.data() + at + 2, number);
    return number;
}

bool IsDate(std::string_view text) {
    const int month = TwoDigits(text, 4), day = TwoDigits(text, 6);
    return text.size() == 8 && AllOf(text, kDigits) && month >= 1 && month <= 12 && day >= 1 && day <= 31;
}

/// hh[mm[ss[.ffffff]]]
bool IsTime(std::string_view text) {
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    if (point != std::string_view::npos) {
        const std::string_view fraction = text.substr(point + 1);
        if (whole.size() != 6 || fraction.empty() || fraction.size() > 6 || !AllOf(fraction, kDigits))
            return false;
    }
    if ((whole.size() != 2 && whole.size() != 4 && whole.size() != 6) || !AllOf(whole, kDigits))
        return false;
    return TwoDigits(whole, 0) < 24 && (whole.size() < 4 || TwoDigits(whole, 2) < 60) &&
           (whole.size() < 6 || TwoDigits(whole, 4) <= 60);
}

/// yyyy[mm[dd[time]]][+zzzz]
bool IsDateTime(std::string_view text) {
    if (const std::size_t sign = text.find_first_of("+-"); sign != std::string_view::npos) {
        const std::string_view zone = text.substr(sign + 1);
        if (zone.size() != 4 || !AllOf(zone, kDigits))
            return false;
        text = text.substr(0, sign);
    }
    if (text.size() > 8)
        return IsDate(text.substr(0, 8)) && IsTime(text.substr(8));
    if (text.size() != 4 && text.size() != 6 && text.size() != 8)
        return false;
    const std::string filled = std::string(text) + std::string("19000101").substr(text.size());
    return IsDate(filled);
}

bool IsInteger(std::string_view text) {
    if (!text.empty() && text[0] == '+')
        text.remove_prefix(1);
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return !text.empty() && error == std::errc() && end == text.data() + text.size();
}

bool IsDecimal(std::string_view text) {
    if (!text.empty() && text[0] == '+')
        text.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return !text.empty() && AllOf(text, "0123456789+-.eE") && error == std::errc() && end == text.data() + text.size();
}

/// What a value of a VR must look like, in the words of a message; null: it does.
const char* WrongForm(unsigned short code, std::string_view value) {
    if (value.empty())
        return nullptr;
    switch (code) {
    case vr::AS:
        return value.size() == 4 && AllOf(value.substr(0, 3), kDigits) && AllOf(value.substr(3), "DWMY")
                   ? nullptr
                   : "three digits and one of D, W, M, Y";
    case vr::CS:
        return AllOf(value, "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_ ")
                   ? nullptr
                   : "capital letters, digits, blanks and underscores";
    case vr::DA:
        return IsDate(value) ? nullptr : "a date as yyyymmdd";
    case vr::TM:
        return IsTime(value) ? nullptr : "a time as hh[mm[ss[.ffffff]]]";
    case vr::DT:
        return IsDateTime(value) ? nullptr : "a date and time as yyyy[mm[dd[hh[mm[ss[.ffffff]]]]]][+zzzz]";
    case vr::IS:
        return IsInteger(value) ? nullptr : "an integer from -2147483648 to 2147483647";
    case vr::DS:
        return IsDecimal(value) ? nullptr : "a decimal number";
    case vr::UI:
        return IsUid(value) ? nullptr : "a UID: numbers without leading zeros, divided by dots, 64 characters at most";
    default:
        return nullptr;
    }
}

/// Checks texts against the form and the length that their VR allows.
std::string CheckText(unsigned short code, std::string_view text) {
    const VrNature nature = NatureOf(code);
    const bool single = nature.kind == Kind::longText || nature.kind == Kind::uri;
    const std::vector<std::string_view> values = single ? std::vector<std::string_view>{text} : Split(text);
    const DICOMVR* row = VDicomVR::Find(code);
    const std::size_t limit = row && row->nLength > 0 ? row->nLength : std::numeric_limits<std::size_t>::max();
    for (const std::string_view value : values) {
        if (const char* form = WrongForm(code, value))
            return fmt::format("'{}' is no value of VR {}: it has to be {}", value, Letters(code), form);
        // Each of the three groups of a name has the whole length.
        std::string_view rest = value;
        for (bool last = false; !last;) {
            const std::size_t end = code == vr::PN ? std::min(rest.find('='), rest.size()) : rest.size();
            if (CountCharacters(rest.substr(0, end)) > limit)
                return fmt::format("'{}' is too long: VR {} has {} characters at most", value, Letters(code), limit);
            last = end == rest.size();
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return {};
}

std::string SetText(VDicomDS& ds, DICOMELEMENT* e, const std::string& text) {
    if (std::string wrong = CheckText(e->nVR, text); !wrong.empty())
        return wrong;
    if (!ds.SetUtf8Value(e, text.c_str()))
        return "the character set of the data set cannot express the text; set SpecificCharacterSet=ISO_IR 192 before "
               "it, which converts all texts to UTF-8";
    return {};
}

template <typename Number> bool AppendNumber(std::string_view text, std::string& bytes) {
    Number number{};
    const char* end = text.data() + text.size();
    std::from_chars_result result{};
    if constexpr (std::is_floating_point_v<Number>) {
        result = std::from_chars(text.data(), end, number);
    } else {
        const bool isHex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
        result = std::from_chars(text.data() + (isHex ? 2 : 0), end, number, isHex ? 16 : 10);
    }
    if (text.empty() || result.ec != std::errc() || result.ptr != end)
        return false;
    char raw[sizeof number];
    std::memcpy(raw, &number, sizeof number);
    bytes.append(raw, sizeof number);
    return true;
}

/// AT: group, then element number, 16 bits each.
bool AppendTag(std::string_view text, std::string& bytes) {
    TagPath path;
    if (!ParseTagPath(text, path).empty() || path.steps.size() != 1 || !path.steps[0].IsExact())
        return false;
    const std::array<std::uint16_t, 2> halves = {static_cast<std::uint16_t>(path.steps[0].tag >> 16),
                                                 static_cast<std::uint16_t>(path.steps[0].tag & 0xFFFF)};
    char raw[4];
    std::memcpy(raw, halves.data(), 4);
    bytes.append(raw, 4);
    return true;
}

bool AppendBinary(unsigned short code, const VrNature& nature, std::string_view text, std::string& bytes) {
    if (code == vr::AT)
        return AppendTag(text, bytes);
    switch (nature.unit) {
    case 1:
        return AppendNumber<std::uint8_t>(text, bytes);
    case 2:
        return nature.isSigned ? AppendNumber<std::int16_t>(text, bytes) : AppendNumber<std::uint16_t>(text, bytes);
    case 4:
        if (nature.real)
            return AppendNumber<float>(text, bytes);
        return nature.isSigned ? AppendNumber<std::int32_t>(text, bytes) : AppendNumber<std::uint32_t>(text, bytes);
    default:
        if (nature.real)
            return AppendNumber<double>(text, bytes);
        return nature.isSigned ? AppendNumber<std::int64_t>(text, bytes) : AppendNumber<std::uint64_t>(text, bytes);
    }
}

std::string SetNumbers(VDicomDS& ds, DICOMELEMENT* e, const VrNature& nature, const std::string& text) {
    std::string bytes;
    for (const std::string_view value : Split(text)) {
        if (!AppendBinary(e->nVR, nature, value, bytes))
            return fmt::format("'{}' is no value of VR {}", value, Letters(e->nVR));
    }
    return ds.SetBinaryValue(e, bytes.data(), static_cast<VDicomULong>(bytes.size())) ? std::string()
                                                                                      : "the value cannot be stored";
}

/// The bytes of a file, little endian where they are numbers, in pieces.
std::string SetFromFile(VDicomDS& ds, DICOMELEMENT* e, const VrNature& nature, const std::string& path) {
    VDicomFile file;
    if (!file.Open(path.c_str(), DICOM_FILE_MODE_LOAD))
        return fmt::format("{}: {}", path, SystemText(file.GetError()));
    const VDicomUInt64 size = file.GetSize64();
    if (size >= DICOM_UNDEFINED - 1)
        return fmt::format("{} is too large for a value", path);
    if (size % nature.unit != 0)
        return fmt::format("{} has {} bytes, which is no multiple of {} as VR {} wants", path, size, nature.unit,
                           Letters(e->nVR));
    if (!ds.SetBinaryValue(e, "", 0))
        return "the value cannot be stored";
    std::vector<char> piece(kPiece);
    for (VDicomULong at = 0; at < size;) {
        const auto part = static_cast<VDicomULong>(std::min<VDicomUInt64>(kPiece, size - at));
        if (!file.Read(piece.data(), part))
            return fmt::format("{}: {}", path, GetErrorText(DICOM_ERROR_READ));
        if (!ds.SetFileBinaryValue(e, piece.data(), at, part))
            return "the value cannot be stored";
        at += part;
    }
    const bool isText = nature.kind != Kind::number && nature.kind != Kind::bulk && e->nVR != vr::UI;
    const char padding = isText ? ' ' : '\0';
    if (size % 2 != 0 && !ds.SetFileBinaryValue(e, &padding, static_cast<VDicomULong>(size), 1))
        return "the value cannot be stored";
    return {};
}

/// Collects the texts that the character set of `parent` speaks of, those of items with one of their own left out.
void CollectTexts(VDicomDS& ds, DICOMELEMENT* parent, TextReader& reader,
                  std::vector<std::pair<DICOMELEMENT*, std::string>>& texts) {
    for (DICOMELEMENT* e = parent ? FirstChild(parent) : ds.GetFirstElement(nullptr, 1, 1); e; e = NextSibling(e)) {
        if (HasChildren(e)) {
            for (DICOMELEMENT* item = FirstChild(e); item; item = NextSibling(item)) {
                if (HasChildren(item) && !ds.FindFirstElement(item, kSpecificCharacterSet, 1))
                    CollectTexts(ds, item, reader, texts);
            }
            continue;
        }
        const Kind kind = NatureOf(e->nVR).kind;
        if ((kind != Kind::text && kind != Kind::longText) || e->nLength == 0 || IsMeta(e->nTag))
            continue;
        const TextReader::Result result = reader.Text(e, static_cast<std::size_t>(-1));
        const auto special = [](char c) { return static_cast<unsigned char>(c) >= 0x80 || c == '\\' || c == '~'; };
        if (std::any_of(result.text.begin(), result.text.end(), special))
            texts.emplace_back(e, result.text);
    }
}

} // namespace

std::string SetValueFromText(VDicomDS& ds, DICOMELEMENT* e, const std::string& text) {
    const VrNature nature = NatureOf(e->nVR);
    if (nature.kind == Kind::sequence || HasChildren(e)) {
        if (!text.empty())
            return "a sequence has items and no value; name an element in one of its items";
        while (DICOMELEMENT* item = FirstChild(e))
            ds.DeleteElement(item);
        return {};
    }
    if (text.empty())
        return ds.SetBinaryValue(e, "", 0) ? std::string() : "the value cannot be stored";
    if (text[0] == '@' && (text.size() < 2 || text[1] != '@'))
        return SetFromFile(ds, e, nature, text.substr(1));
    const std::string value = text[0] == '@' ? text.substr(1) : text;
    if (nature.kind == Kind::number || nature.kind == Kind::bulk)
        return SetNumbers(ds, e, nature, value);
    return SetText(ds, e, value);
}

std::string ChangeCharacterSet(VDicomDS& ds, DICOMELEMENT* parent, const std::string* value) {
    TextReader reader(ds);
    reader.StartDataSet();
    std::vector<std::pair<DICOMELEMENT*, std::string>> texts;
    CollectTexts(ds, parent, reader, texts);

    DICOMELEMENT* e = ds.FindFirstElement(parent, kSpecificCharacterSet, 1);
    if (value) {
        if (!e)
            e = ds.InsertElement(parent, 1, kSpecificCharacterSet, vr::CS, 0, 0);
        if (!e)
            return "the element cannot stand there";
        if (std::string wrong = SetValueFromText(ds, e, *value); !wrong.empty())
            return wrong;
    } else if (e) {
        ds.DeleteElement(e);
    }
    for (const auto& [element, text] : texts) {
        if (!ds.SetUtf8Value(element, text.c_str()))
            return fmt::format("the text of ({:04X},{:04X}) cannot be expressed in this character set",
                               element->nTag >> 16, element->nTag & 0xFFFF);
    }
    return {};
}

} // namespace program
