/// @file EntryTree.h
/// Trees whose nodes stand in an index and keep their texts behind their record, in one block of memory.
#pragma once

#include "TableIndex.h"
#include "VDicomTree.h"

#include <cstring>

namespace vdicom {

/// What stands before the record of a node.
struct alignas(8) NodeHeader {
    IndexLink index;
    std::uint64_t key; ///< the one the node was indexed with
    std::size_t size;  ///< bytes of the record and the texts behind it
    bool isEntry;      ///< the record is filled: there are texts to free
    bool isSecondKind; ///< for trees with two kinds of records
};

/// The tree behind a table. Derived classes free texts that do not stand behind their record.
class EntryTree : public VDicomTreeEx {
protected:
    static NodeHeader* HeaderOf(DICOMLINK* node) { return reinterpret_cast<NodeHeader*>(node) - 1; }
    static DICOMLINK* NodeOf(IndexLink* link) {
        return link == nullptr ? nullptr : reinterpret_cast<DICOMLINK*>(reinterpret_cast<NodeHeader*>(link) + 1);
    }

    /// Puts a node into the index, behind those of the same key. False when memory is exhausted.
    bool Index(DICOMLINK* node, std::uint64_t key) {
        HeaderOf(node)->key = key;
        return m_index.Add(key, &HeaderOf(node)->index);
    }
    void Unindex(DICOMLINK* node) {
        NodeHeader* header = HeaderOf(node);
        if (header->index.IsIndexed())
            m_index.Remove(header->key, &header->index);
    }

    /// Frees a text of a node that has a header, unless it stands behind the record.
    static void FreeText(DICOMLINK* node, const char* text) {
        if (!StandsIn(text, node, HeaderOf(node)->size))
            delete[] text; // NOLINT(clang-analyzer-cplusplus.NewDelete): cannot tell that texts of the node differ
    }
    static bool StandsIn(const void* place, const void* block, std::size_t size) {
        const auto at = reinterpret_cast<std::uintptr_t>(place);
        const auto begin = reinterpret_cast<std::uintptr_t>(block);
        return at >= begin && at - begin < size;
    }

    virtual void FreeTexts(DICOMLINK* node) = 0;

    void* Allocate(std::size_t size) override;
    void Free(void* block) override;

    TableIndex m_index;
};

/// Copies a text to `place`. @return the copy; `place` then is behind it
inline const char* PlaceText(char*& place, const char* text, std::size_t length) {
    char* copy = place;
    std::memcpy(copy, text, length);
    copy[length] = '\0';
    place += length + 1;
    return copy;
}

} // namespace vdicom
