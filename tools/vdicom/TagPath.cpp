#include "TagPath.h"

#include "Vr.h"

#include "VDicomTag.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

namespace program {

namespace {

/// Eats a text from its front.
class Scanner {
public:
    explicit Scanner(std::string_view text) : m_text(text) {}

    bool AtEnd() const { return m_at == m_text.size(); }
    char Peek(std::size_t ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0'; }
    bool Eat(char c) {
        if (AtEnd() || m_text[m_at] != c)
            return false;
        ++m_at;
        return true;
    }
    std::string_view Rest() const { return m_text.substr(m_at); }
    void Skip(std::size_t count) { m_at += count; }
    std::size_t At() const { return m_at; }

private:
    std::string_view m_text;
    std::size_t m_at = 0;
};

bool IsAlnum(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

/// Four hexadecimal digits, an x for any digit.
bool EatGroup(Scanner& in, VDicomULong& value, VDicomULong& mask) {
    value = mask = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const char c = in.Peek(i);
        value <<= 4;
        mask <<= 4;
        if (c == 'x' || c == 'X')
            continue;
        unsigned int digit = 0;
        if (std::from_chars(&c, &c + 1, digit, 16).ec != std::errc())
            return false;
        value |= digit;
        mask |= 0xF;
    }
    in.Skip(4);
    return true;
}

/// gggg,eeee or ggggeeee
bool EatTag(Scanner& in, PathStep& step) {
    VDicomULong group = 0, element = 0, groupMask = 0, elementMask = 0;
    if (!EatGroup(in, group, groupMask))
        return false;
    in.Eat(',');
    if (!EatGroup(in, element, elementMask))
        return false;
    step.tag = (group << 16) | element;
    step.mask = (groupMask << 16) | elementMask;
    step.isPattern = step.mask != DICOM_UNDEFINED;
    return true;
}

/// Names differ in case or by a letter; what the user may have meant.
std::string SimilarKeyword(std::string_view keyword) {
    const auto lower = [](std::string_view text) {
        std::string copy(text);
        std::transform(copy.begin(), copy.end(), copy.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        return copy;
    };
    const std::string wanted = lower(keyword);
    std::string best;
    DICOMCURRENTTAG row;
    for (VDicomULong i = 0; VDicomTag::GetCurrent(i, &row); ++i) {
        const std::string candidate = lower(row.pszKeyword);
        if (candidate == wanted)
            return row.pszKeyword;
        if (best.empty() && wanted.size() >= 6 && candidate.compare(0, wanted.size(), wanted) == 0)
            best = row.pszKeyword;
    }
    return best;
}

std::string EatKeyword(Scanner& in, PathStep& step) {
    std::size_t size = 0;
    while (IsAlnum(in.Peek(size)))
        ++size;
    const std::string keyword(in.Rest().substr(0, size));
    DICOMCURRENTTAG row;
    if (keyword.empty() || !VDicomTag::FindKeyword(keyword.c_str(), &row)) {
        std::string sentence = fmt::format("'{}' is neither a tag nor the keyword of an attribute", keyword);
        if (const std::string similar = SimilarKeyword(keyword); !similar.empty())
            sentence += fmt::format("; did you mean {}?", similar);
        return sentence;
    }
    step.tag = row.nCode;
    step.mask = row.nMask;
    in.Skip(size);
    return {};
}

bool LooksLikeTag(const Scanner& in) {
    const auto isDigit = [&in](std::size_t i) {
        const char c = in.Peek(i);
        return std::isxdigit(static_cast<unsigned char>(c)) != 0 || c == 'x' || c == 'X';
    };
    const std::size_t comma = in.Peek(4) == ',' ? 1 : 0;
    for (std::size_t i = 0; i < 8; ++i) {
        if (!isDigit(i + (i >= 4 ? comma : 0)))
            return false;
    }
    return !IsAlnum(in.Peek(8 + comma));
}

std::string EatStep(Scanner& in, PathStep& step) {
    if (in.Eat('(')) {
        if (!EatTag(in, step))
            return "a tag is (gggg,eeee) in hexadecimal digits";
        if (in.Eat(',')) {
            if (!in.Eat('"'))
                return "the private creator stands in double quotes: (0029,xx10,\"CREATOR\")";
            const std::size_t size = in.Rest().find('"');
            if (size == std::string_view::npos || size == 0)
                return "the private creator needs a text and a closing double quote";
            step.creator = in.Rest().substr(0, size);
            in.Skip(size + 1);
            if (!IsPrivate(step.tag) || (step.mask & 0xFFFF00FF) != 0xFFFF00FF)
                return "a private element is (gggg,xxee,\"CREATOR\") with an odd group";
            step.isPattern = false;
            step.tag &= 0xFFFF00FF;
            step.mask = 0xFFFF00FF;
        }
        if (!in.Eat(')'))
            return "the closing parenthesis of a tag is missing";
    } else if (LooksLikeTag(in)) {
        EatTag(in, step);
    } else if (std::string wrong = EatKeyword(in, step); !wrong.empty()) {
        return wrong;
    }
    if (in.Eat('[')) {
        step.hasItem = true;
        if (!in.Eat('*')) {
            const std::string_view rest = in.Rest();
            VDicomULong number = 0;
            const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
            if (error != std::errc() || number == kEveryItem)
                return "an item is [0], [1] and so on, or [*] for all";
            step.item = number;
            in.Skip(static_cast<std::size_t>(end - rest.data()));
        }
        if (!in.Eat(']'))
            return "the closing bracket of an item number is missing";
    }
    return {};
}

DICOMELEMENT* FirstOf(VDicomDS& ds, DICOMELEMENT* parent) {
    return parent ? FirstChild(parent) : ds.GetFirstElement(nullptr, 1, 1);
}

bool IsCreator(VDicomDS& ds, DICOMELEMENT* e, const std::string& creator) {
    std::array<char, 65> text{};
    if (!e || HasChildren(e) || e->nLength > 64 || !ds.GetBinaryValue(e, text.data(), e->nLength))
        return false;
    std::string_view name(text.data(), e->nLength);
    while (!name.empty() && (name.back() == ' ' || name.back() == '\0'))
        name.remove_suffix(1);
    while (!name.empty() && name.front() == ' ')
        name.remove_prefix(1);
    return name == creator;
}

} // namespace

VDicomULong TagPath::LastTag() const { return steps.front().tag | ~steps.front().mask; }

std::string ParseTagPath(std::string_view text, TagPath& path, std::size_t& end) {
    Scanner in(text);
    path = TagPath();
    do {
        PathStep step;
        if (std::string wrong = EatStep(in, step); !wrong.empty())
            return wrong;
        path.steps.push_back(std::move(step));
    } while (in.Eat('.'));
    if (in.Peek() == ':' && IsAlnum(in.Peek(1)) && IsAlnum(in.Peek(2))) {
        path.vr = VDicomVRCode(in.Peek(1), in.Peek(2));
        if (NatureOf(path.vr).kind == Kind::unknown)
            return fmt::format("'{}' is no value representation", in.Rest().substr(1, 2));
        in.Skip(3);
    }
    end = in.At();
    path.text = text.substr(0, end);
    return {};
}

std::string ParseTagPath(std::string_view text, TagPath& path) {
    std::size_t end = 0;
    if (std::string wrong = ParseTagPath(text, path, end); !wrong.empty())
        return wrong;
    if (end != text.size())
        return fmt::format("'{}' behind the path is not understood", text.substr(end));
    return {};
}

bool StepMatches(VDicomDS& ds, DICOMELEMENT* parent, const DICOMELEMENT* e, const PathStep& step) {
    if ((e->nTag & step.mask) != step.tag)
        return false;
    if (step.creator.empty())
        return true;
    const VDicomULong block = (e->nTag >> 8) & 0xFF;
    return block >= 0x10 && IsCreator(ds, ds.FindFirstElement(parent, (e->nTag & 0xFFFF0000) | block, 1), step.creator);
}

VDicomULong FindPrivateTag(VDicomDS& ds, DICOMELEMENT* parent, const PathStep& step) {
    for (VDicomULong block = 0x10; block <= 0xFF; ++block) {
        DICOMELEMENT* e = ds.FindFirstElement(parent, (step.tag & 0xFFFF0000) | block, 1);
        if (e && IsCreator(ds, e, step.creator))
            return (step.tag & 0xFFFF00FF) | (block << 8);
    }
    return 0;
}

void CollectElements(VDicomDS& ds, DICOMELEMENT* parent, const TagPath& path, std::size_t first,
                     std::vector<DICOMELEMENT*>& found) {
    const PathStep& step = path.steps[first];
    const bool last = first + 1 == path.steps.size();
    const auto take = [&](DICOMELEMENT* e) {
        if (last && !step.hasItem) {
            found.push_back(e);
            return;
        }
        VDicomULong number = 0;
        for (DICOMELEMENT* item = FirstChild(e); item; item = NextSibling(item), ++number) {
            if (step.item != kEveryItem && step.item != number)
                continue;
            if (last)
                found.push_back(item);
            else
                CollectElements(ds, item, path, first + 1, found);
        }
    };
    if (step.IsExact()) {
        if (DICOMELEMENT* e = ds.FindFirstElement(parent, step.tag, 1))
            take(e);
        return;
    }
    for (DICOMELEMENT* e = FirstOf(ds, parent); e; e = NextSibling(e)) {
        if (StepMatches(ds, parent, e, step))
            take(e);
    }
}

} // namespace program
