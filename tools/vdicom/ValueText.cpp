#include "ValueText.h"

#include "Vr.h"

#include "VDicomTag.h"
#include "VDicomUID.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>

namespace program {

static_assert(std::endian::native == std::endian::little, "values come in the host's order");

namespace {

constexpr std::size_t kPiece = 32 * 1024;

template <typename Number> Number Take(const unsigned char* bytes) {
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

/// A number in decimal at `to`, which has room for 32 characters.
std::size_t Format(char* to, const unsigned char* bytes, const VrNature& nature) {
    char* const end = to + 32;
    const auto done = [to](std::to_chars_result result) { return static_cast<std::size_t>(result.ptr - to); };
    switch (nature.unit) {
    case 2:
        return done(nature.isSigned ? std::to_chars(to, end, Take<std::int16_t>(bytes))
                                    : std::to_chars(to, end, Take<std::uint16_t>(bytes)));
    case 4:
        if (nature.real)
            return done(std::to_chars(to, end, Take<float>(bytes)));
        return done(nature.isSigned ? std::to_chars(to, end, Take<std::int32_t>(bytes))
                                    : std::to_chars(to, end, Take<std::uint32_t>(bytes)));
    default:
        if (nature.real)
            return done(std::to_chars(to, end, Take<double>(bytes)));
        return done(nature.isSigned ? std::to_chars(to, end, Take<std::int64_t>(bytes))
                                    : std::to_chars(to, end, Take<std::uint64_t>(bytes)));
    }
}

std::size_t FormatHex(char* to, const unsigned char* bytes, std::size_t unit) {
    for (std::size_t i = 0; i < unit; ++i) {
        const unsigned char byte = bytes[unit - 1 - i];
        to[2 * i] = "0123456789ABCDEF"[byte >> 4];
        to[2 * i + 1] = "0123456789ABCDEF"[byte & 15];
    }
    return 2 * unit;
}

/// "(gggg,eeee)" of an AT value, whose halves come group first.
std::size_t FormatTag(char* to, VDicomULong tag) {
    constexpr std::string_view form = "(gggg,eeee)";
    std::memcpy(to, form.data(), form.size());
    for (std::size_t i = 0, shift = 28; i < 9; ++i) {
        if (i == 4)
            continue;
        to[1 + i] = "0123456789ABCDEF"[(tag >> shift) & 15];
        shift -= 4;
    }
    return form.size();
}

std::string_view NameOfTag(VDicomULong tag) {
    if (const DICOMTAG* entry = VDicomTag::Find(tag))
        return entry->pszName;
    DICOMCURRENTTAG row;
    return VDicomTag::FindCurrent(tag, &row) ? row.pszName : std::string_view();
}

/// Whether bytes of unknown meaning are text all the same: private elements often are.
bool LooksLikeText(std::string_view bytes) {
    while (!bytes.empty() && (bytes.back() == '\0' || bytes.back() == ' '))
        bytes.remove_suffix(1);
    return bytes.size() >= 2 && std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

} // namespace

std::string_view NameOfUid(std::string_view uid) {
    std::array<char, 65> text{};
    if (uid.empty() || uid.size() > 64)
        return {};
    std::copy(uid.begin(), uid.end(), text.begin());
    if (const DICOMUID* entry = VDicomUID::Find(text.data()))
        return entry->pszName;
    DICOMCURRENTUID row;
    return VDicomUID::FindCurrent(text.data(), &row) ? row.pszName : std::string_view();
}

void ValueText::Write(DICOMELEMENT* e, std::size_t columns) {
    switch (NatureOf(e->nVR).kind) {
    case Kind::number:
        WriteNumbers(e, columns);
        break;
    case Kind::bulk:
        if (e->nVR == vr::UN || NatureOf(e->nVR).unit == 1)
            WriteBytes(e, columns);
        else
            WriteNumbers(e, columns);
        break;
    case Kind::unknown:
        WriteBytes(e, columns);
        break;
    default:
        WriteText(e, columns);
    }
}

void ValueText::WriteText(DICOMELEMENT* e, std::size_t columns) {
    const TextReader::Result result = m_texts.Text(e, columns == kNoLimit ? kNoLimit : columns * 4 + 8);
    ValueLine line(m_out, columns);
    if (!result.read) {
        line.Ascii("(the value cannot be read)");
    } else if (e->nVR == vr::UI && !result.more) {
        // Each UID with its name: values rarely are more than one.
        std::string_view rest = result.text;
        while (!rest.empty() && !line.Full()) {
            const std::size_t end = std::min(rest.find('\\'), rest.size());
            line.Text(rest.substr(0, end));
            if (const std::string_view name = NameOfUid(rest.substr(0, end)); !name.empty()) {
                line.Ascii(" (");
                line.Text(name);
                line.Ascii(")");
            }
            if (end < rest.size())
                line.Ascii("\\");
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    } else {
        line.Text(result.text);
    }
    line.End(result.more);
}

void ValueText::WriteNumbers(DICOMELEMENT* e, std::size_t columns) {
    const VrNature nature = NatureOf(e->nVR);
    const bool asHex = nature.kind == Kind::bulk && !nature.real;
    const std::size_t unit = nature.unit;
    const std::size_t whole = e->nLength - e->nLength % unit;
    const std::size_t wanted = columns == kNoLimit ? whole : std::min(whole, (columns / 2 + 1) * unit);
    ValueLine line(m_out, columns);
    char room[34];
    for (std::size_t at = 0; at < wanted && !line.Full();) {
        const TextReader::Bytes bytes = m_texts.Raw(e, static_cast<VDicomULong>(at), std::min(kPiece, wanted - at));
        if (!bytes.read) {
            line.Ascii("(the value cannot be read)");
            line.End();
            return;
        }
        for (std::size_t i = 0; i + unit <= bytes.size && !line.Full(); i += unit) {
            std::size_t size = 0;
            if (at + i > 0)
                room[size++] = asHex ? ' ' : '\\';
            const unsigned char* number = bytes.data + i;
            VDicomULong tag = 0;
            if (e->nVR == vr::AT) {
                tag = VDicomTagCode(Take<std::uint16_t>(number), Take<std::uint16_t>(number + 2));
                size += FormatTag(room + size, tag);
            } else if (asHex) {
                size += FormatHex(room + size, number, unit);
            } else {
                size += Format(room + size, number, nature);
            }
            line.Ascii({room, size});
            if (e->nVR == vr::AT) {
                if (const std::string_view name = NameOfTag(tag); !name.empty()) {
                    line.Ascii(" ");
                    line.Text(name);
                }
            }
        }
        at += bytes.size;
    }
    if (whole < e->nLength && wanted == whole)
        line.Ascii(whole > 0 ? " (and a part of a number)" : "(a part of a number)");
    line.End(wanted < whole);
}

void ValueText::WriteBytes(DICOMELEMENT* e, std::size_t columns) {
    const std::size_t length = e->nLength;
    const std::size_t wanted = columns == kNoLimit ? length : std::min(length, columns + 1);
    ValueLine line(m_out, columns);
    bool asText = false;
    for (std::size_t at = 0; at < wanted && !line.Full();) {
        const TextReader::Bytes bytes = m_texts.Raw(e, static_cast<VDicomULong>(at), std::min(kPiece, wanted - at));
        if (!bytes.read) {
            line.Ascii("(the value cannot be read)");
            line.End();
            return;
        }
        const std::string_view text(reinterpret_cast<const char*>(bytes.data), bytes.size);
        if (at == 0 && e->nVR == vr::UN && length <= kPiece && LooksLikeText(text)) {
            asText = true;
            std::string_view shown = text;
            while (!shown.empty() && (shown.back() == '\0' || shown.back() == ' '))
                shown.remove_suffix(1);
            line.Ascii("\"");
            line.Text(shown);
            if (bytes.size == length)
                line.Ascii("\"");
            break;
        }
        char room[3] = {' ', 0, 0};
        for (std::size_t i = 0; i < bytes.size && !line.Full(); ++i) {
            FormatHex(room + 1, bytes.data + i, 1);
            line.Ascii({room + (at + i == 0 ? 1 : 0), at + i == 0 ? std::size_t{2} : 3});
        }
        at += bytes.size;
    }
    line.End(wanted < length && (asText || columns != kNoLimit));
}

} // namespace program
