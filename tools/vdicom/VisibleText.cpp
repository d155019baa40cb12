#include "VisibleText.h"

#include <algorithm>
#include <iterator>

namespace program {

namespace {

struct Character {
    std::uint32_t code;
    std::size_t size;
};

constexpr std::uint32_t kReplacement = 0xFFFD;

/// The first character of a text that is not empty; a malformed one counts one byte.
Character Decode(std::string_view text) {
    const auto at = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = at(0);
    if (first < 0x80)
        return {first, 1};
    const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < size)
        return {kReplacement, 1};
    std::uint32_t code = first & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        if ((at(i) & 0xC0) != 0x80)
            return {kReplacement, 1};
        code = (code << 6) | (at(i) & 0x3FU);
    }
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < smallest[size] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return {kReplacement, 1};
    return {code, size};
}

struct Range {
    std::uint32_t first, last;
};

bool Contains(const Range* begin, const Range* end, std::uint32_t code) {
    const Range* at = std::upper_bound(begin, end, code, [](std::uint32_t c, const Range& r) { return c < r.first; });
    return at != begin && code <= std::prev(at)->last;
}

// Invisible characters that change how the rest of a line is shown, besides the C0 controls.
constexpr Range kUnsafe[] = {{0x7F, 0x9F},     {0x61C, 0x61C},   {0x200B, 0x200F}, {0x2028, 0x202E},
                             {0x2060, 0x206F}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xE0000, 0xE007F}};

constexpr Range kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},  {0x3041, 0x33FF}, {0x3400, 0x4DBF},
                           {0x4E00, 0x9FFF},   {0xA000, 0xA4CF},  {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},
                           {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F},
                           {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

constexpr Range kCombining[] = {{0x300, 0x36F},   {0x483, 0x489},   {0x591, 0x5BD},   {0x610, 0x61A},
                                {0x64B, 0x65F},   {0xE31, 0xE31},   {0xE34, 0xE3A},   {0xE47, 0xE4E},
                                {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x20D0, 0x20FF}, {0x3099, 0x309A},
                                {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}};

std::size_t ColumnsOf(std::uint32_t code) {
    if (code < 0x300)
        return 1;
    if (Contains(std::begin(kCombining), std::end(kCombining), code))
        return 0;
    return Contains(std::begin(kWide), std::end(kWide), code) ? 2 : 1;
}

/// What stands for a character that must not reach a terminal; empty: the character may stand.
std::string_view SignFor(std::uint32_t code, char (&room)[12]) {
    if (code < 0x20 || code == 0x7F) { // Control Pictures
        const std::uint32_t sign = code < 0x20 ? 0x2400 + code : 0x2421;
        room[0] = '\xE2';
        room[1] = static_cast<char>(0x80 | ((sign >> 6) & 0x3F));
        room[2] = static_cast<char>(0x80 | (sign & 0x3F));
        return {room, 3};
    }
    if (code < 0x7F || !Contains(std::begin(kUnsafe), std::end(kUnsafe), code))
        return {};
    std::size_t used = 0;
    for (const char c : {'<', 'U', '+'})
        room[used++] = c;
    for (int shift = code > 0xFFFF ? 16 : 12; shift >= 0; shift -= 4)
        room[used++] = "0123456789ABCDEF"[(code >> shift) & 15];
    room[used++] = '>';
    return {room, used};
}

bool IsPlain(char c) { return c >= 0x20 && c < 0x7F; }

} // namespace

std::string VisibleCopy(std::string_view text) {
    std::string copy;
    copy.reserve(text.size());
    char room[12];
    while (!text.empty()) {
        const Character c = Decode(text);
        const std::string_view sign = SignFor(c.code, room);
        if (!sign.empty())
            copy += sign;
        else if (c.code == kReplacement)
            copy += "\xEF\xBF\xBD";
        else
            copy += text.substr(0, c.size);
        text.remove_prefix(c.size);
    }
    return copy;
}

ValueLine::ValueLine(Output& out, std::size_t columns)
    : m_out(out), m_limit(columns == kNoLimit ? columns : std::clamp<std::size_t>(columns, 1, kMostColumns)) {
    // What is cut off later must still be in the buffer.
    if (m_limit != kNoLimit)
        m_out.Reserve(m_limit * 4 + 16);
    m_start = m_cut = m_out.Mark();
}

bool ValueLine::Put(std::string_view bytes, std::size_t columns) {
    if (m_overflow)
        return false;
    if (m_limit == kNoLimit) {
        m_out.Put(bytes);
        return true;
    }
    // Bytes count too: combining characters take no column.
    if (m_used + columns > m_limit || m_out.Mark() - m_start + bytes.size() > m_limit * 4) {
        m_overflow = true;
        return false;
    }
    m_out.Put(bytes);
    m_used += columns;
    if (m_used < m_limit)
        m_cut = m_out.Mark();
    return true;
}

bool ValueLine::Ascii(std::string_view text) {
    if (m_overflow)
        return false;
    if (m_limit == kNoLimit) {
        m_out.Put(text);
        return true;
    }
    const std::size_t fits = std::min(text.size(), m_limit - m_used);
    const std::size_t before = m_out.Mark();
    m_out.Put(text.substr(0, fits));
    if (m_used + 1 <= m_limit)
        m_cut = before + std::min(fits, m_limit - 1 - m_used);
    m_used += fits;
    m_overflow = fits < text.size();
    return !m_overflow;
}

bool ValueLine::Text(std::string_view text) {
    char room[12];
    while (!text.empty() && !m_overflow) {
        const auto* end = std::find_if_not(text.begin(), text.end(), IsPlain);
        if (const auto plain = static_cast<std::size_t>(end - text.begin()); plain > 0) {
            Ascii(text.substr(0, plain));
            text.remove_prefix(plain);
            continue;
        }
        const Character c = Decode(text);
        const std::string_view sign = SignFor(c.code, room);
        if (!sign.empty())
            Put(sign, sign.front() == '<' ? sign.size() : 1);
        else if (c.code == kReplacement)
            Put("\xEF\xBF\xBD", 1);
        else
            Put(text.substr(0, c.size), ColumnsOf(c.code));
        text.remove_prefix(c.size);
    }
    return !m_overflow;
}

void ValueLine::End(bool more) {
    if (!m_overflow && !more)
        return;
    if (m_limit != kNoLimit)
        m_out.Truncate(m_cut);
    m_out.Put("\xE2\x80\xA6");
}

} // namespace program
