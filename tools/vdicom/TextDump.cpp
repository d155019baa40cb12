#include "TextDump.h"

#include "Vr.h"

#include <fmt/format.h>

#include <algorithm>

namespace program {

namespace {

constexpr const char* kTagColour = "\033[36m";
constexpr const char* kVrColour = "\033[33m";
constexpr const char* kNameColour = "\033[1m";
constexpr const char* kFaint = "\033[2m";
constexpr const char* kPlain = "\033[0m";

constexpr std::size_t kNameColumns = 34;
constexpr std::size_t kLeastNameColumns = 26;
constexpr std::size_t kPipeColumns = 80;
constexpr std::size_t kLeastColumns = 20;

std::size_t CountChildren(const DICOMELEMENT* e, VDicomDS& ds) {
    return ds.GetCountElement(const_cast<DICOMELEMENT*>(e));
}

} // namespace

void TextDump::Write(const std::vector<TagPath>& paths) {
    StartDataSet();
    const Selection::Level level = Selection::Start(paths);
    WriteLevel(nullptr, 0, paths.empty() ? nullptr : &level);
}

void TextDump::WriteValue(DICOMELEMENT* e, std::size_t columns) {
    if (HasChildren(e))
        WriteSummary(e);
    else
        m_values.Write(e, columns);
}

void TextDump::WriteLevel(DICOMELEMENT* parent, std::size_t depth, const Selection::Level* level) {
    // The deque never moves what is in it: references stay good while deeper levels are added.
    while (m_levels.size() < 2 * depth + 2)
        m_levels.emplace_back();
    Selection::Level& inside = m_levels[2 * depth];
    for (DICOMELEMENT* e = parent ? FirstChild(parent) : m_ds.GetFirstElement(nullptr, 1, 1); e; e = NextSibling(e)) {
        Selection::Hit hit = Selection::Hit::whole;
        if (level) {
            hit = Selection::Match(m_ds, *level, parent, e, inside);
            if (hit == Selection::Hit::none)
                continue;
        }
        if (parent && e->nTag == kSpecificCharacterSet)
            m_values.Texts().NoteCharacterSet(e);
        WriteElement(e, depth);
        m_out.FlushFull();
        if (e->Link.pFirstChild && depth < m_options.depth)
            WriteItems(e, depth, hit == Selection::Hit::below ? &inside : nullptr);
        if (m_out.Failed())
            return;
    }
}

void TextDump::WriteItems(DICOMELEMENT* e, std::size_t depth, const Selection::Level* inside) {
    Selection::Level& children = m_levels[2 * depth + 1];
    VDicomULong number = 0;
    for (DICOMELEMENT* item = FirstChild(e); item && !m_out.Failed(); item = NextSibling(item), ++number) {
        const Selection::Level* level = nullptr;
        if (inside) {
            const Selection::Hit hit = Selection::MatchItem(*inside, number, children);
            if (hit == Selection::Hit::none)
                continue;
            if (hit == Selection::Hit::below)
                level = &children;
        }
        if (!HasChildren(item)) {
            WriteFragment(item, number, depth);
            continue;
        }
        const std::size_t offset = WriteOffset(item);
        m_out.Repeat(' ', 4 * depth + 2);
        static_cast<void>(offset);
        Colour(kFaint);
        m_out.Put('[');
        m_out.Decimal(number);
        m_out.Put(']');
        if (!item->Link.pFirstChild)
            m_out.Put(" empty item");
        Colour(kPlain);
        m_out.Put('\n');
        m_out.FlushFull();
        WriteLevel(item, depth + 1, level);
    }
}

std::size_t TextDump::WriteOffset(DICOMELEMENT* e) {
    if (!m_options.offsets)
        return 0;
    const VDicomUInt64 offset = m_ds.GetElementOffset64(e);
    const unsigned int digits = offset > 0xFFFFFFFFU ? 16 : 8;
    Colour(kFaint);
    m_out.Hex(offset, digits);
    Colour(kPlain);
    m_out.Put(' ');
    return digits + 1;
}

void TextDump::WriteElement(DICOMELEMENT* e, std::size_t depth) {
    std::size_t used = WriteOffset(e);
    const std::size_t indent = 4 * depth;
    m_out.Repeat(' ', indent);

    char* at = m_out.Reserve(256);
    char* const start = at;
    const auto put = [&at](std::string_view text) {
        std::memcpy(at, text.data(), text.size());
        at += text.size();
    };
    const auto colour = [&](std::string_view code) {
        if (m_options.colour)
            put(code);
    };
    const auto hex4 = [&at](VDicomULong number) {
        for (int shift = 12; shift >= 0; shift -= 4)
            *at++ = "0123456789ABCDEF"[(number >> shift) & 15];
    };
    colour(kTagColour);
    *at++ = '(';
    hex4(e->nTag >> 16);
    *at++ = ',';
    hex4(e->nTag & 0xFFFF);
    *at++ = ')';
    colour(kPlain);
    *at++ = ' ';
    colour(kVrColour);
    for (const int shift : {8, 0}) {
        const char letter = static_cast<char>((e->nVR >> shift) & 0xFF);
        *at++ = letter > ' ' && letter < 0x7F ? letter : '?';
    }
    colour(kPlain);
    // The length, right-aligned in eight columns; what has undefined length or is read as such has none.
    char digits[10];
    std::size_t count = 0;
    if (HasChildren(e)) {
        digits[count++] = '-';
    } else {
        for (VDicomULong rest = e->nLength; count == 0 || rest > 0; rest /= 10)
            digits[count++] = static_cast<char>('0' + rest % 10);
    }
    const std::size_t lengthColumns = std::max<std::size_t>(count, 8);
    for (std::size_t i = lengthColumns + 1; i > count; --i)
        *at++ = ' ';
    while (count > 0)
        *at++ = digits[--count];
    put("  ");
    m_out.Advance(static_cast<std::size_t>(at - start));

    const std::string_view name = NameOf(e);
    const std::size_t nameColumns = std::max(kNameColumns - std::min(indent, kNameColumns), kLeastNameColumns);
    Colour(kNameColour);
    m_out.Put(name);
    Colour(kPlain);
    used += indent + 14 + lengthColumns + 1 + 2 + std::max(name.size(), nameColumns) + 1;
    if (HasChildren(e) || e->nLength > 0) {
        m_out.Repeat(' ', name.size() < nameColumns ? nameColumns - name.size() + 1 : 1);
        if (HasChildren(e))
            WriteSummary(e);
        else
            m_values.Write(e, ValueColumns(used));
    }
    m_out.Put('\n');
}

void TextDump::WriteSummary(DICOMELEMENT* e) {
    const std::size_t children = CountChildren(e, m_ds);
    const DICOMELEMENT* first = FirstChild(e);
    if (first && !HasChildren(first) && first->nTag == kItem) {
        VDicomUInt64 bytes = 0;
        for (const DICOMELEMENT* item = NextSibling(first); item; item = NextSibling(item))
            bytes += item->nLength;
        m_out.Put("encapsulated, ");
        m_out.Decimal(children - 1);
        m_out.Put(children == 2 ? " fragment, " : " fragments, ");
        m_out.Decimal(bytes);
        m_out.Put(" bytes");
        return;
    }
    m_out.Decimal(children);
    m_out.Put(children == 1 ? " item" : " items");
}

void TextDump::WriteFragment(DICOMELEMENT* item, VDicomULong number, std::size_t depth) {
    std::size_t used = WriteOffset(item);
    m_out.Repeat(' ', 4 * depth + 2);
    const std::size_t start = m_out.Mark();
    m_out.Put('[');
    m_out.Decimal(number);
    m_out.Put(number == 0 ? "] offset table, " : "] fragment, ");
    m_out.Decimal(item->nLength);
    m_out.Put(" bytes");
    used += 4 * depth + 2 + (m_out.Mark() > start ? m_out.Mark() - start : 40) + 2;
    if (item->nLength > 0) {
        m_out.Put(": ");
        m_values.Write(item, ValueColumns(used));
    }
    m_out.Put('\n');
    m_out.FlushFull();
}

std::string_view TextDump::NameOf(DICOMELEMENT* e) {
    const char* name = m_ds.GetNameElement(e);
    if (name && *name)
        return name;
    if (IsPrivate(e->nTag) && (e->nTag & 0xFFFF) >= 0x10 && (e->nTag & 0xFFFF) <= 0xFF)
        return "Private Creator";
    return IsPrivate(e->nTag) ? "Private" : "Unknown";
}

std::size_t TextDump::ValueColumns(std::size_t used) const {
    if (m_options.full)
        return kNoLimit;
    if (m_options.columns == 0)
        return kPipeColumns;
    return m_options.columns > used + kLeastColumns ? m_options.columns - used : kLeastColumns;
}

} // namespace program
