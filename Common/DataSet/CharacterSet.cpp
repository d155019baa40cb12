#include "CharacterSet.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vdicom {

namespace {

constexpr char kEscape = 0x1B;
constexpr char32_t kReplacement = 0xFFFD;

/// How a set is called in (PS3.3 Table C.12-3 and C.12-4). The longer sequences stand before those they begin with.
struct Escape {
    std::string_view sequence; ///< behind ESC
    GraphicSet set;
    bool upper; ///< to G1, the codes above 0x80
};

constexpr std::array<Escape, 24> kEscapes = {{
    {"(B", GraphicSet::ascii, false},
    {"(J", GraphicSet::jisRoman, false},
    {")I", GraphicSet::jisKatakana, true},
    {"-A", GraphicSet::latin1, true},
    {"-B", GraphicSet::latin2, true},
    {"-C", GraphicSet::latin3, true},
    {"-D", GraphicSet::latin4, true},
    {"-L", GraphicSet::cyrillic, true},
    {"-G", GraphicSet::arabic, true},
    {"-F", GraphicSet::greek, true},
    {"-H", GraphicSet::hebrew, true},
    {"-M", GraphicSet::latin5, true},
    {"-b", GraphicSet::latin9, true},
    {"-T", GraphicSet::thai, true},
    {"$(D", GraphicSet::jisX0212, false},
    {"$)C", GraphicSet::ksX1001, true},
    {"$)A", GraphicSet::gb2312, true},
    {"$B", GraphicSet::jisX0208, false},
    // Not in the tables, but met: the first edition of JIS X 0208, other forms, other halves of the code.
    {"$@", GraphicSet::jisX0208, false},
    {"$(B", GraphicSet::jisX0208, false},
    {"$)B", GraphicSet::jisX0208, true},
    {"(I", GraphicSet::jisKatakana, false},
    {"$(C", GraphicSet::ksX1001, false},
    {"$A", GraphicSet::gb2312, false},
}};

const Escape* FindEscape(std::string_view behindEscape) {
    for (const Escape& escape : kEscapes) {
        if (behindEscape.starts_with(escape.sequence))
            return &escape;
    }
    return nullptr;
}

/// The sequence for writing a set: the first one of the list.
const Escape& EscapeOf(GraphicSet set) {
    return *std::find_if(kEscapes.begin(), kEscapes.end(), [set](const Escape& escape) { return escape.set == set; });
}

bool IsDelimiter(char c, TextKind kind) {
    return (c == '\\' && kind != TextKind::text) || ((c == '^' || c == '=') && kind == TextKind::names);
}

std::size_t Replace(std::string& utf8) {
    AppendUtf8(kReplacement, utf8);
    return 1;
}

} // namespace

/// A defined term, reduced to its capital letters and digits without "ISO", "2022" and "IR".
struct CharacterSet::Term {
    std::string_view name;
    GraphicSet g0;
    GraphicSet g1;
    Whole whole = Whole::none;
};

const CharacterSet::Term* CharacterSet::FindTerm(std::string_view value, bool& extended) {
    static constexpr std::array<Term, 41> kTerms = {{
        {"6", GraphicSet::ascii, GraphicSet::none},
        {"100", GraphicSet::ascii, GraphicSet::latin1},
        {"101", GraphicSet::ascii, GraphicSet::latin2},
        {"109", GraphicSet::ascii, GraphicSet::latin3},
        {"110", GraphicSet::ascii, GraphicSet::latin4},
        {"144", GraphicSet::ascii, GraphicSet::cyrillic},
        {"127", GraphicSet::ascii, GraphicSet::arabic},
        {"126", GraphicSet::ascii, GraphicSet::greek},
        {"138", GraphicSet::ascii, GraphicSet::hebrew},
        {"148", GraphicSet::ascii, GraphicSet::latin5},
        {"203", GraphicSet::ascii, GraphicSet::latin9},
        {"166", GraphicSet::ascii, GraphicSet::thai},
        {"13", GraphicSet::jisRoman, GraphicSet::jisKatakana},
        {"14", GraphicSet::jisRoman, GraphicSet::jisKatakana},
        {"87", GraphicSet::jisX0208, GraphicSet::none},
        {"159", GraphicSet::jisX0212, GraphicSet::none},
        {"149", GraphicSet::ascii, GraphicSet::ksX1001},
        {"58", GraphicSet::ascii, GraphicSet::gb2312},
        {"192", GraphicSet::ascii, GraphicSet::none, Whole::utf8},
        {"GBK", GraphicSet::ascii, GraphicSet::none, Whole::gbk},
        {"GB18030", GraphicSet::ascii, GraphicSet::none, Whole::gb18030},
        // Names from elsewhere.
        {"UTF8", GraphicSet::ascii, GraphicSet::none, Whole::utf8},
        {"106461", GraphicSet::ascii, GraphicSet::none, Whole::utf8},
        {"10646", GraphicSet::ascii, GraphicSet::none, Whole::utf8},
        {"GB2312", GraphicSet::ascii, GraphicSet::none, Whole::gbk},
        {"ASCII", GraphicSet::ascii, GraphicSet::none},
        {"USASCII", GraphicSet::ascii, GraphicSet::none},
        {"646", GraphicSet::ascii, GraphicSet::none},
        {"88591", GraphicSet::ascii, GraphicSet::latin1},
        {"LATIN1", GraphicSet::ascii, GraphicSet::latin1},
        {"88592", GraphicSet::ascii, GraphicSet::latin2},
        {"LATIN2", GraphicSet::ascii, GraphicSet::latin2},
        {"88593", GraphicSet::ascii, GraphicSet::latin3},
        {"88594", GraphicSet::ascii, GraphicSet::latin4},
        {"88595", GraphicSet::ascii, GraphicSet::cyrillic},
        {"88596", GraphicSet::ascii, GraphicSet::arabic},
        {"88597", GraphicSet::ascii, GraphicSet::greek},
        {"88598", GraphicSet::ascii, GraphicSet::hebrew},
        {"88599", GraphicSet::ascii, GraphicSet::latin5},
        {"885911", GraphicSet::ascii, GraphicSet::thai},
        {"885915", GraphicSet::ascii, GraphicSet::latin9},
    }};

    std::array<char, 24> letters{};
    std::size_t size = 0;
    for (const char c : value) {
        const char capital = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        if ((capital < 'A' || capital > 'Z') && (capital < '0' || capital > '9'))
            continue;
        if (size == letters.size())
            return nullptr;
        letters[size++] = capital;
    }
    std::string_view name(letters.data(), size);
    const auto skip = [&name](std::string_view prefix) {
        const bool there = name.starts_with(prefix) && name.size() > prefix.size();
        if (there)
            name.remove_prefix(prefix.size());
        return there;
    };
    skip("ISO");
    extended = skip("2022");
    skip("IR");
    const auto* found =
        std::find_if(kTerms.begin(), kTerms.end(), [name](const Term& term) { return term.name == name; });
    return found == kTerms.end() ? nullptr : found;
}

void CharacterSet::Declare(GraphicSet set) {
    const auto* end = m_sets.begin() + m_count;
    if (set != GraphicSet::none && m_count < kMostSets && std::find(m_sets.cbegin(), end, set) == end)
        m_sets[m_count++] = set;
}

CharacterSet::CharacterSet(std::string_view specific) {
    bool first = true;
    for (bool more = true; more; first = false) {
        const std::size_t end = specific.find('\\');
        const std::string_view value = specific.substr(0, end);
        more = end != std::string_view::npos;
        if (more)
            specific.remove_prefix(end + 1);
        m_extended = m_extended || more;

        const bool empty = value.find_first_not_of(std::string_view(" \0", 2)) == std::string_view::npos;
        bool extended = false;
        const Term* term = empty ? nullptr : FindTerm(value, extended);
        m_known = m_known && (empty || term != nullptr);
        if (term == nullptr) {
            if (first)
                Declare(GraphicSet::ascii);
            continue;
        }
        m_extended = m_extended || extended;
        // UTF-8 and its like cannot be switched to. Behind another first value they are meant all the same, as long as
        // that was the default repertoire, which they contain.
        if (term->whole != Whole::none) {
            if (m_whole == Whole::none && m_initial.g0 == GraphicSet::ascii && m_initial.g1 == GraphicSet::none)
                m_whole = term->whole;
            continue;
        }
        // Sets of two bytes have to be called; they are not there from the start.
        if (first) {
            m_initial = {IsDoubleByte(term->g0) ? GraphicSet::ascii : term->g0,
                         IsDoubleByte(term->g1) ? GraphicSet::none : term->g1};
            Declare(m_initial.g0);
        }
        Declare(term->g0);
        Declare(term->g1);
    }
    // Where the first value leaves the upper half free, texts are met that use another value's set without calling it.
    m_tolerated = m_initial.g1;
    for (std::size_t i = 0; m_tolerated == GraphicSet::none && i < m_count; ++i) {
        if (EscapeOf(m_sets[i]).upper)
            m_tolerated = m_sets[i];
    }
}

bool CharacterSet::IsPlain(const char* bytes, std::size_t size, TextKind kind) {
    // JIS X 0201 has a yen sign and an overline where ASCII has a backslash and a tilde.
    const auto differs = [kind](char c) {
        return static_cast<unsigned char>(c) >= 0x80 || c == kEscape || c == '\0' || c == '~' ||
               (c == '\\' && kind == TextKind::text);
    };
    constexpr std::uint64_t high = 0x8080808080808080U;
    constexpr std::uint64_t ones = 0x0101010101010101U;
    const auto holds = [](std::uint64_t word, char c) {
        const std::uint64_t zeros = word ^ (ones * static_cast<unsigned char>(c));
        return (zeros - ones) & ~zeros;
    };
    std::size_t at = 0;
    for (; at + 8 <= size; at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes + at, sizeof word);
        const std::uint64_t backslash = kind == TextKind::text ? holds(word, '\\') : 0;
        if (((word | holds(word, kEscape) | holds(word, '\0') | holds(word, '~') | backslash) & high) != 0)
            return false;
    }
    return std::none_of(bytes + at, bytes + size, differs);
}

std::size_t CharacterSet::Decode(std::string_view bytes, TextKind kind, std::string& utf8) const {
    if (IsPlain(bytes.data(), bytes.size(), kind)) {
        utf8.append(bytes);
        return 0;
    }
    switch (m_whole) {
    case Whole::utf8:
        return DecodeUtf8(bytes, utf8);
    case Whole::gbk:
    case Whole::gb18030:
        return DecodeChinese(bytes, utf8);
    case Whole::none:
        break;
    }
    return DecodeExtended(bytes, kind, utf8);
}

std::size_t CharacterSet::DecodeUtf8(std::string_view bytes, std::string& utf8) const {
    std::size_t replaced = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t from = at;
        char32_t c = 0;
        if (NextUtf8(bytes, at, c) && c != 0)
            utf8.append(bytes.substr(from, at - from));
        else
            replaced += Replace(utf8);
    }
    return replaced;
}

std::size_t CharacterSet::DecodeChinese(std::string_view bytes, std::string& utf8) const {
    const bool full = m_whole == Whole::gb18030;
    const auto* b = reinterpret_cast<const unsigned char*>(bytes.data());
    std::size_t replaced = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t left = bytes.size() - at;
        char32_t c = b[at];
        std::size_t size = 1;
        if (c >= 0x80) {
            c = left >= 2 ? vdicom::DecodeChinese(full, b[at], b[at + 1]) : 0;
            if (c != 0) {
                size = 2;
            } else if (full && left >= 4) {
                c = DecodeChinese4(b + at);
                size = c != 0 ? 4 : 1;
            }
        }
        at += size;
        if (c != 0)
            AppendUtf8(c, utf8);
        else
            replaced += Replace(utf8);
    }
    return replaced;
}

std::size_t CharacterSet::DecodeExtended(std::string_view bytes, TextKind kind, std::string& utf8) const {
    const Designation start{m_initial.g0, m_tolerated};
    Designation state = start;
    std::size_t replaced = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (bytes[at] == kEscape) {
            const Escape* escape = FindEscape(bytes.substr(at + 1));
            ++at;
            if (escape == nullptr) {
                replaced += Replace(utf8);
                continue;
            }
            (escape->upper ? state.g1 : state.g0) = escape->set;
            at += escape->sequence.size();
            continue;
        }
        if (byte <= 0x20 || byte == 0x7F) {
            // Every control character calls the first value's sets again (PS3.5 6.1.2.5.3).
            if (byte != 0x20)
                state = start;
            ++at;
            if (byte == 0)
                replaced += Replace(utf8);
            else
                utf8 += static_cast<char>(byte);
            continue;
        }
        const bool upper = byte >= 0x80;
        const GraphicSet set = upper ? state.g1 : state.g0;
        const unsigned int bit = upper ? 0x80 : 0;
        char32_t c = 0;
        if (IsDoubleByte(set)) {
            const unsigned int next = at + 1 < bytes.size() ? static_cast<unsigned char>(bytes[at + 1]) : 0;
            if (byte > bit + 0x20 && next > bit + 0x20 && next < bit + 0x7F) {
                c = DecodeGraphic(set, next - bit, byte - bit);
                at += 2;
            } else {
                ++at;
                // A delimiter before which nobody switched back.
                if (IsDelimiter(static_cast<char>(byte), kind)) {
                    state = start;
                    c = byte;
                }
            }
        } else {
            ++at;
            if (IsDelimiter(static_cast<char>(byte), kind)) {
                state = start;
                c = byte;
            } else if (byte >= 0x80 && byte < 0xA0) {
                c = set == GraphicSet::none ? 0 : byte; // the control characters of ISO 8859
            } else {
                c = DecodeGraphic(set, byte - bit);
            }
        }
        if (c != 0)
            AppendUtf8(c, utf8);
        else
            replaced += Replace(utf8);
    }
    return replaced;
}

/// Encodes character by character and keeps track of what is designated.
class CharacterSet::Writer {
public:
    Writer(const CharacterSet& set, TextKind kind, std::string& bytes)
        : m_set(set), m_kind(kind), m_bytes(bytes), m_state(set.m_initial) {}

    bool Put(char32_t c) {
        if (c == static_cast<unsigned char>(kEscape) || c == 0)
            return false;
        if (c <= 0x20 || c == 0x7F || (c < 0x80 && IsDelimiter(static_cast<char>(c), m_kind))) {
            // Blanks are in every set; other systems do not expect them between characters of two bytes.
            if (c != 0x20 || IsDoubleByte(m_state.g0))
                Restart();
            m_bytes += static_cast<char>(c);
            return true;
        }
        if (PutIn(m_state.g0, c) || PutIn(m_state.g1, c))
            return true;
        if (c >= 0x80 && c < 0xA0 && m_state.g1 != GraphicSet::none && !IsDoubleByte(m_state.g1)) {
            m_bytes += static_cast<char>(c);
            return true;
        }
        if (!m_set.m_extended)
            return false;
        const auto* end = m_set.m_sets.begin() + m_set.m_count;
        return std::any_of(m_set.m_sets.begin(), end, [&](GraphicSet candidate) { return PutIn(candidate, c); });
    }

    /// Calls the sets of the first value again.
    void Restart() {
        if (m_state.g0 != m_set.m_initial.g0)
            Call(m_set.m_initial.g0);
        if (m_state.g1 != m_set.m_initial.g1 && m_set.m_initial.g1 != GraphicSet::none)
            Call(m_set.m_initial.g1);
        m_state = m_set.m_initial;
    }

private:
    void Call(GraphicSet set) {
        const Escape& escape = EscapeOf(set);
        m_bytes += kEscape;
        m_bytes += escape.sequence;
        (escape.upper ? m_state.g1 : m_state.g0) = set;
    }

    bool PutIn(GraphicSet set, char32_t c) {
        if (set == GraphicSet::none)
            return false;
        const unsigned int code = EncodeGraphic(set, c);
        // The yen sign in the place of the backslash would divide values.
        if (code == 0 ||
            (code < 0x80 && c >= 0x80 && !EscapeOf(set).upper && IsDelimiter(static_cast<char>(code), m_kind)))
            return false;
        const bool upper = EscapeOf(set).upper;
        if ((upper ? m_state.g1 : m_state.g0) != set)
            Call(set);
        const unsigned int bit = upper ? 0x80 : 0;
        if (code > 0xFF)
            m_bytes += static_cast<char>((code >> 8) | bit);
        m_bytes += static_cast<char>((code & 0xFF) | bit);
        return true;
    }

    const CharacterSet& m_set;
    TextKind m_kind;
    std::string& m_bytes;
    Designation m_state;
};

bool CharacterSet::EncodeChinese(std::string_view utf8, std::string& bytes) const {
    for (std::size_t at = 0; at < utf8.size();) {
        char32_t c = 0;
        NextUtf8(utf8, at, c);
        std::array<unsigned char, 4> code{static_cast<unsigned char>(c)};
        const std::size_t size = c < 0x80 ? 1 : vdicom::EncodeChinese(m_whole == Whole::gb18030, c, code.data());
        if (size == 0)
            return false;
        bytes.append(reinterpret_cast<const char*>(code.data()), size);
    }
    return true;
}

bool CharacterSet::Encode(std::string_view utf8, TextKind kind, std::string& bytes) const {
    for (std::size_t at = 0; at < utf8.size();) {
        char32_t c = 0;
        if (!NextUtf8(utf8, at, c))
            return false;
    }
    const std::size_t before = bytes.size();
    bool complete = true;
    if (m_whole == Whole::utf8 || IsPlain(utf8.data(), utf8.size(), kind)) {
        bytes.append(utf8);
    } else if (m_whole != Whole::none) {
        complete = EncodeChinese(utf8, bytes);
    } else {
        Writer writer(*this, kind, bytes);
        for (std::size_t at = 0; complete && at < utf8.size();) {
            char32_t c = 0;
            NextUtf8(utf8, at, c);
            complete = writer.Put(c);
        }
        if (complete)
            writer.Restart();
    }
    if (!complete)
        bytes.resize(before);
    return complete;
}

void AppendUtf8(char32_t c, std::string& utf8) {
    if (c < 0x80) {
        utf8 += static_cast<char>(c);
        return;
    }
    std::array<char, 4> bytes{};
    const unsigned int count = c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
    for (unsigned int i = count; i-- > 1; c >>= 6)
        bytes[i] = static_cast<char>(0x80 | (c & 0x3F));
    bytes[0] = static_cast<char>((0xF00U >> count & 0xF0) | c);
    utf8.append(bytes.data(), count);
}

bool NextUtf8(std::string_view utf8, std::size_t& at, char32_t& c) {
    const auto lead = static_cast<unsigned char>(utf8[at++]);
    c = lead;
    if (lead < 0x80)
        return true;
    if (lead < 0xC2 || lead > 0xF4)
        return false;
    const unsigned int count = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    c = lead & (0x3FU >> count);
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned int next = at < utf8.size() ? static_cast<unsigned char>(utf8[at]) : 0;
        // The second byte rules out overlong forms, surrogates and what lies behind the last plane.
        const unsigned int lowest = i != 0 ? 0x80 : lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
        const unsigned int highest = i != 0 ? 0xBF : lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
        if (next < lowest || next > highest)
            return false;
        ++at;
        c = (c << 6) | (next & 0x3F);
    }
    return true;
}

} // namespace vdicom
