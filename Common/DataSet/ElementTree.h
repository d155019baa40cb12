/// @file ElementTree.h
/// The tree of a data set's elements: nodes from a pool of its own, every level in ascending tag order, an index
/// beside each wide level. Knows nothing of values but where they are kept.
#pragma once

#include "VDicomTree.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace vdicom {

constexpr VDicomULong kItem = 0xFFFEE000, kItemDelimiter = 0xFFFEE00D, kSequenceDelimiter = 0xFFFEE0DD,
                      kPixelData = 0x7FE00010, kTrailingPadding = 0xFFFCFFFC, kDirectoryRecords = 0x00041220;

inline bool IsGroupLength(VDicomULong tag) { return (tag & 0xFFFF) == 0; }
inline bool IsDelimiter(VDicomULong tag) { return tag == kItemDelimiter || tag == kSequenceDelimiter; }
inline unsigned int GroupOf(VDicomULong tag) { return tag >> 16; }
inline bool IsPrivate(VDicomULong tag) { return (GroupOf(tag) & 1) != 0; }

/// A node of the pool: the element, room for its first piece, and what only the library knows of it. A node that is not
/// in use has no pieces. Its size counts: a report of 240,000 elements is as many of these.
struct ElementNode {
    DICOMELEMENT element;
    VDicomOffset pieceOffset; ///< the first piece; the element points here until it has several
    VDicomFile* pieceStream;
    VDicomUInt64 streamOffset; ///< where the header stood (flag 0x0800); 0 when not recorded
};

static_assert(sizeof(void*) != 8 || sizeof(ElementNode) == 128, "two cache lines");

inline ElementNode* NodeOf(DICOMELEMENT* e) { return reinterpret_cast<ElementNode*>(e); }
inline const ElementNode* NodeOf(const DICOMELEMENT* e) { return reinterpret_cast<const ElementNode*>(e); }
inline DICOMELEMENT* ElementOf(DICOMLINK* link) { return reinterpret_cast<DICOMELEMENT*>(link); }
inline DICOMELEMENT* ParentOf(const DICOMELEMENT* e) { return ElementOf(e->Link.pParent); }
inline DICOMELEMENT* FirstChildOf(const DICOMELEMENT* e) { return ElementOf(e->Link.pFirstChild); }
inline DICOMELEMENT* NextOf(const DICOMELEMENT* e) { return ElementOf(e->Link.pNext); }
inline bool IsUndefinedLength(const DICOMELEMENT* e) { return e->nLength == DICOM_UNDEFINED; }

class ElementTree final : public VDicomTree {
public:
    ElementTree();
    ~ElementTree() override;

    /// Makes an element that is in no tree yet: no value, its piece in `stream`. Null when memory runs out.
    DICOMELEMENT* Create(VDicomULong tag, unsigned short vr, VDicomULong length, VDicomFile* stream);
    /// Gives back an element that is in no tree.
    void Discard(DICOMELEMENT* e);

    /// Links an element under `parent` (null: top level) in tag order, behind elements of the same tag.
    void LinkOrdered(DICOMELEMENT* e, DICOMELEMENT* parent);
    /// Links an item before the child number `index`, or as the last child. False, and nothing has changed, when memory
    /// runs out.
    bool LinkItem(DICOMELEMENT* e, DICOMELEMENT* parent, VDicomULong index);
    /// Deletes an element with all below it.
    void Erase(DICOMELEMENT* e);
    /// Deletes all.
    void EraseAll();

    DICOMELEMENT* First() const { return ElementOf(m_pFirst); }
    DICOMELEMENT* Last() const { return ElementOf(m_pLast); }
    DICOMELEMENT* FirstChild(const DICOMELEMENT* parent) const { return parent ? FirstChildOf(parent) : First(); }
    DICOMELEMENT* LastChild(const DICOMELEMENT* parent) const;
    /// The first or last child with this tag, or null.
    DICOMELEMENT* FindChild(const DICOMELEMENT* parent, VDicomULong tag) const;
    DICOMELEMENT* FindLastChild(const DICOMELEMENT* parent, VDicomULong tag) const;
    DICOMELEMENT* ChildAt(const DICOMELEMENT* parent, VDicomULong index) const;
    VDicomULong CountChildren(const DICOMELEMENT* parent) const;

    unsigned int Exists(const DICOMLINK* node) const override;

    /// Frees the typed values of an element.
    static void FreeTypeValue(DICOMELEMENT* e);

protected:
    void* Allocate(std::size_t size) override;
    void Free(void* block) override;

private:
    struct Level; ///< index of one wide level
    struct Chunk {
        std::unique_ptr<ElementNode[]> nodes;
        std::size_t size;
        std::size_t used; ///< nodes that have been handed out since the chunk was emptied
    };

    Level* FindLevel(const DICOMELEMENT* parent) const;
    Level* MakeLevel(const DICOMELEMENT* parent) const;
    bool Linked(DICOMELEMENT* e, const DICOMELEMENT* parent);
    void Unlinking(DICOMELEMENT* e);
    ElementNode* TakeNode();
    void FreeNode(ElementNode* node);

    std::vector<Chunk> m_chunks;
    std::size_t m_chunk = 0;        ///< the chunk that nodes are handed out from
    ElementNode* m_pFree = nullptr; ///< chain of given-back nodes by their pNext
    /// Indexes of the levels that turned out to be wide, by the parent (null: top level). Made by look-ups too. Without
    /// memory for one the level is walked, but for a level out of order: its index says that it is.
    mutable std::unordered_map<const DICOMELEMENT*, std::unique_ptr<Level>> m_levels;
};

} // namespace vdicom
