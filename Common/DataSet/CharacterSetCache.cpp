#include "CharacterSetCache.h"

#include "TypedValue.h"

namespace vdicom {

namespace {

constexpr VDicomULong kSpecificCharacterSet = 0x00080005;
/// All defined terms together are shorter.
constexpr VDicomULong kLongestText = 1024;

const CharacterSet kDefault;

/// The (0008,0005) with a value that holds for `e`, or null.
const DICOMELEMENT* FindCharacterSet(const ElementTree& tree, const DICOMELEMENT* e) {
    const DICOMELEMENT* level = e;
    do {
        level = ParentOf(level);
        if (level != nullptr && level->nTag != kItem)
            continue; // a sequence has items alone
        // It is among the first elements of its level, so the walk is short.
        const DICOMELEMENT* at = tree.FirstChild(level);
        while (at != nullptr && at->nTag < kSpecificCharacterSet)
            at = NextOf(at);
        if (at != nullptr && at->nTag == kItem)
            at = tree.FindChild(level, kSpecificCharacterSet); // an item astray, before other elements
        if (at != nullptr && at->nTag == kSpecificCharacterSet && !IsUndefinedLength(at) && at->nLength != 0)
            return at;
    } while (level != nullptr);
    return nullptr;
}

CharacterSet Read(const DICOMELEMENT* element) {
    RawText text;
    return element->nLength <= kLongestText && text.Read(element) ? CharacterSet(text.View()) : CharacterSet("?");
}

} // namespace

const CharacterSet& CharacterSetCache::Of(const ElementTree& tree, const DICOMELEMENT* e) {
    // File meta information is not part of the data set.
    const DICOMELEMENT* element = GroupOf(e->nTag) == 2 ? nullptr : FindCharacterSet(tree, e);
    if (element == nullptr)
        return kDefault;
    const bool whole = element->nCountPiece == 1;
    const auto matches = [&](const Entry& entry) {
        return whole && entry.element == element && entry.stream == *element->pPieceStream &&
               entry.offset == *element->pPieceOffset && entry.size == element->nLength;
    };
    for (std::size_t i = 0; i < m_count; ++i) {
        const std::size_t at = (m_last + i) % m_count;
        if (matches(m_entries[at])) {
            m_last = at;
            return m_entries[at].set;
        }
    }
    m_last = m_count < m_entries.size() ? m_count++ : (m_last + 1) % m_entries.size();
    m_entries[m_last] = {whole ? element : nullptr, *element->pPieceStream, *element->pPieceOffset, element->nLength,
                         Read(element)};
    return m_entries[m_last].set;
}

} // namespace vdicom
