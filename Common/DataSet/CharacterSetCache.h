/// @file CharacterSetCache.h
/// The character sets of a data set's levels, decoded.
#pragma once

#include "CharacterSet.h"
#include "ElementTree.h"

namespace vdicom {

/// Remembers what (0008,0005) elements say by the element and the place of its value: a value that changes gets another
/// place, so only deleted elements have to be announced.
class CharacterSetCache {
public:
    /// The character set that holds for an element: that of its item or of the nearest level around it that has one
    /// (PS3.5 6.1.2.3). The reference is good until the next call.
    const CharacterSet& Of(const ElementTree& tree, const DICOMELEMENT* e);
    /// To be called when elements have been deleted or streams emptied.
    void Forget() { m_count = 0; }

private:
    struct Entry {
        const DICOMELEMENT* element = nullptr;
        const VDicomFile* stream = nullptr;
        VDicomOffset offset = 0;
        VDicomULong size = 0;
        CharacterSet set;
    };

    std::array<Entry, 8> m_entries;
    std::size_t m_count = 0;
    std::size_t m_last = 0;
};

} // namespace vdicom
