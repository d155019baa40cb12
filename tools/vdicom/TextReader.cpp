#include "TextReader.h"

#include "Vr.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace program {

namespace {

/// Values up to here are kept in the buffers for the next one; what a larger one needed is given back.
constexpr std::size_t kKept = std::size_t{1} << 20;

/// No byte above 0x7E, and no escape that could switch to another character set.
bool IsPlainAscii(const char* text, std::size_t size) {
    constexpr std::uint64_t high = 0x8080808080808080U;
    constexpr std::uint64_t ones = 0x0101010101010101U;
    std::size_t at = 0;
    for (; at + 8 <= size; at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text + at, 8);
        const std::uint64_t escapes = word ^ (ones * 0x1B);
        if ((word & high) != 0 || ((escapes - ones) & ~escapes & high) != 0)
            return false;
    }
    return std::all_of(text + at, text + size,
                       [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != 0x1B; });
}

std::string_view WithoutPadding(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\0'))
        text.remove_suffix(1);
    return text;
}

} // namespace

void TextReader::StartDataSet() {
    m_asciiIsAscii = true;
    if (DICOMELEMENT* e = m_ds.FindFirstElement(nullptr, kSpecificCharacterSet, 1))
        NoteCharacterSet(e);
}

void TextReader::NoteCharacterSet(DICOMELEMENT* e) {
    // JIS X 0201 (ISO_IR 13) has a yen sign and an overline where ASCII has a backslash and a tilde.
    const Bytes bytes = Raw(e, 0, 256);
    const std::string_view text(reinterpret_cast<const char*>(bytes.data), bytes.size);
    if (text.find("IR 13") != std::string_view::npos)
        m_asciiIsAscii = false;
}

TextReader::Bytes TextReader::Raw(DICOMELEMENT* e, VDicomULong offset, std::size_t atMost) {
    if (HasChildren(e) || offset >= e->nLength)
        return {};
    const std::size_t size = std::min<std::size_t>(atMost, e->nLength - offset);
    if (m_raw.size() > kKept && size <= kKept) {
        m_raw.resize(kKept);
        m_raw.shrink_to_fit();
    }
    if (m_raw.size() < size)
        m_raw.resize(std::max<std::size_t>(size, 1024));
    if (!m_ds.GetBinaryValue(e, m_raw.data(), offset, static_cast<VDicomULong>(size)))
        return {nullptr, 0, false};
    return {reinterpret_cast<const unsigned char*>(m_raw.data()), size, true};
}

TextReader::Result TextReader::Text(DICOMELEMENT* e, std::size_t atMost) {
    const Bytes bytes = Raw(e, 0, atMost);
    if (!bytes.read)
        return {{}, false, false};
    if (bytes.size == 0)
        return {};
    const char* raw = reinterpret_cast<const char*>(bytes.data);
    const bool more = bytes.size < e->nLength;
    if (m_asciiIsAscii && IsPlainAscii(raw, bytes.size)) {
        const std::string_view text(raw, bytes.size);
        return {more ? text : WithoutPadding(text), more, true};
    }

    if (m_converted.size() > kKept && e->nLength <= kKept) {
        m_converted.resize(kKept);
        m_converted.shrink_to_fit();
    }
    std::size_t room = std::min<std::size_t>(atMost, std::size_t{e->nLength} + e->nLength / 2) + 16;
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (m_converted.size() < room)
            m_converted.resize(room);
        const std::size_t needed = m_ds.GetUtf8Value(e, m_converted.data(), static_cast<VDicomULong>(room));
        if (needed == 0)
            break;
        if (needed <= room)
            return {WithoutPadding({m_converted.data(), needed - 1}), false, true};
        if (room > atMost)
            return {{m_converted.data(), std::strlen(m_converted.data())}, true, true};
        room = needed;
    }
    // No text that the library would convert: what is ASCII stays, the rest becomes U+FFFD.
    m_converted.clear();
    for (std::size_t i = 0; i < bytes.size; ++i) {
        if (bytes.data[i] < 0x80)
            m_converted += raw[i];
        else
            m_converted += "\xEF\xBF\xBD";
    }
    return {more ? std::string_view(m_converted) : WithoutPadding(m_converted), more, true};
}

} // namespace program
