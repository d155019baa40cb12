#include "ElementTree.h"

#include <cstdlib>
#include <cstring>
#include <map>
#include <new>

namespace vdicom {

namespace {

// A walk of more steps than this makes an index for its level.
constexpr VDicomULong kWide = 64;
constexpr std::size_t kFirstChunk = 32;
constexpr std::size_t kLargestChunk = 8192;
// A tree that is emptied keeps room for this many nodes, so that loading many small files allocates nothing.
constexpr std::size_t kKeptNodes = 4096;

bool IsInUse(const ElementNode& node) { return node.element.nCountPiece != 0; }

DICOMLINK* LinkOf(DICOMELEMENT* e) { return e == nullptr ? nullptr : &e->Link; }

} // namespace

struct ElementTree::Level {
    struct Run {
        DICOMELEMENT* first;
        DICOMELEMENT* last;
    };
    std::map<VDicomULong, Run> tags;  ///< the elements of each tag, which stand side by side
    std::vector<DICOMELEMENT*> order; ///< the children by position; only while `ordered`
    VDicomULong count = 0;
    bool ordered = false;
    bool sorted = true; ///< false: an item stands before other elements, so `tags` cannot be used

    void Add(DICOMELEMENT* e) {
        auto [run, isNew] = tags.try_emplace(e->nTag, Run{e, e});
        if (isNew)
            return;
        // Elements of one tag are linked behind or, as items, anywhere among each other.
        if (NextOf(e) == run->second.first)
            run->second.first = e;
        else if (ElementOf(e->Link.pPrev) == run->second.last)
            run->second.last = e;
    }

    // Lists the children by position. False without memory for that.
    bool Order(DICOMELEMENT* first) {
        if (ordered)
            return true;
        try {
            order.clear();
            order.reserve(count);
            for (DICOMELEMENT* e = first; e != nullptr; e = NextOf(e))
                order.push_back(e);
            ordered = true;
        } catch (const std::bad_alloc&) {
            order.clear();
        }
        return ordered;
    }
};

ElementTree::ElementTree() = default;

ElementTree::~ElementTree() { EraseAll(); }

// Elements are made by Create alone.
void* ElementTree::Allocate(std::size_t) { return nullptr; }

void ElementTree::Free(void* block) { FreeNode(static_cast<ElementNode*>(block)); }

ElementNode* ElementTree::TakeNode() {
    ElementNode* node = m_pFree;
    if (node != nullptr) {
        m_pFree = NodeOf(NextOf(&node->element));
    } else {
        while (m_chunk < m_chunks.size() && m_chunks[m_chunk].used == m_chunks[m_chunk].size)
            ++m_chunk;
        if (m_chunk == m_chunks.size()) {
            const std::size_t size = m_chunks.empty() ? kFirstChunk : std::min(m_chunks.back().size * 2, kLargestChunk);
            m_chunks.push_back({std::make_unique_for_overwrite<ElementNode[]>(size), size, 0});
        }
        node = &m_chunks[m_chunk].nodes[m_chunks[m_chunk].used++];
    }
    std::memset(static_cast<void*>(node), 0, sizeof *node);
    return node;
}

void ElementTree::FreeTypeValue(DICOMELEMENT* e) {
    std::free(e->pTypeValue);
    e->pTypeValue = nullptr;
    e->nCountValue = DICOM_UNDEFINED;
}

void ElementTree::FreeNode(ElementNode* node) {
    DICOMELEMENT* e = &node->element;
    std::free(e->pTypeValue);
    if (e->pPieceOffset != &node->pieceOffset) {
        std::free(e->pPieceOffset);
        std::free(e->pPieceStream);
        std::free(e->pPieceSize);
    }
    e->nCountPiece = 0;
    e->Link.pNext = m_pFree == nullptr ? nullptr : &m_pFree->element.Link;
    m_pFree = node;
}

DICOMELEMENT* ElementTree::Create(VDicomULong tag, unsigned short vr, VDicomULong length, VDicomFile* stream) {
    ElementNode* node = TakeNode();
    node->pieceOffset = DICOM_UNDEFINED;
    node->pieceStream = stream;
    DICOMELEMENT* e = &node->element;
    e->nTag = tag;
    e->nVR = vr;
    e->nLength = length;
    e->nCountValue = DICOM_UNDEFINED;
    e->pPieceOffset = &node->pieceOffset;
    e->pPieceStream = &node->pieceStream;
    e->pPieceSize = &e->nPieceSize;
    e->nCountPiece = 1;
    return e;
}

void ElementTree::Discard(DICOMELEMENT* e) { FreeNode(NodeOf(e)); }

ElementTree::Level* ElementTree::FindLevel(const DICOMELEMENT* parent) const {
    if (m_levels.empty())
        return nullptr;
    const auto found = m_levels.find(parent);
    return found == m_levels.end() ? nullptr : found->second.get();
}

ElementTree::Level* ElementTree::MakeLevel(const DICOMELEMENT* parent) const {
    try {
        auto level = std::make_unique<Level>();
        const DICOMELEMENT* before = nullptr;
        for (DICOMELEMENT* e = FirstChild(parent); e != nullptr; e = NextOf(e)) {
            ++level->count;
            level->sorted = level->sorted && (before == nullptr || before->nTag <= e->nTag);
            if (level->sorted)
                level->Add(e);
            before = e;
        }
        if (!level->sorted)
            level->tags.clear();
        return (m_levels[parent] = std::move(level)).get();
    } catch (const std::bad_alloc&) {
        if (const auto found = m_levels.find(parent); found != m_levels.end() && found->second == nullptr)
            m_levels.erase(found);
        return nullptr;
    }
}

DICOMELEMENT* ElementTree::LastChild(const DICOMELEMENT* parent) const {
    return parent == nullptr ? Last() : ElementOf(parent->Link.pLastChild);
}

DICOMELEMENT* ElementTree::FindChild(const DICOMELEMENT* parent, VDicomULong tag) const {
    const Level* level = FindLevel(parent);
    if (level == nullptr) {
        VDicomULong steps = 0;
        DICOMELEMENT* e = FirstChild(parent);
        while (e != nullptr && e->nTag != tag && ++steps <= kWide)
            e = NextOf(e);
        if (steps <= kWide)
            return e;
        level = MakeLevel(parent);
    }
    if (level != nullptr && level->sorted) {
        const auto found = level->tags.find(tag);
        return found == level->tags.end() ? nullptr : found->second.first;
    }
    DICOMELEMENT* e = FirstChild(parent);
    while (e != nullptr && e->nTag != tag)
        e = NextOf(e);
    return e;
}

DICOMELEMENT* ElementTree::FindLastChild(const DICOMELEMENT* parent, VDicomULong tag) const {
    const Level* level = FindLevel(parent);
    if (level != nullptr && level->sorted) {
        const auto found = level->tags.find(tag);
        return found == level->tags.end() ? nullptr : found->second.last;
    }
    DICOMELEMENT* e = LastChild(parent);
    for (VDicomULong steps = 0; e != nullptr && e->nTag != tag; ++steps) {
        if (level == nullptr && steps == kWide && MakeLevel(parent) != nullptr)
            return FindLastChild(parent, tag);
        e = ElementOf(e->Link.pPrev);
    }
    return e;
}

DICOMELEMENT* ElementTree::ChildAt(const DICOMELEMENT* parent, VDicomULong index) const {
    Level* level = FindLevel(parent);
    if (level == nullptr && index > kWide)
        level = MakeLevel(parent);
    if (level != nullptr && index >= level->count)
        return nullptr;
    // Both ends are reached as quickly by walking, also while the level grows there.
    if (level != nullptr && index > kWide && level->count - index > kWide && level->Order(FirstChild(parent)))
        return level->order[index];
    if (level != nullptr && index > level->count / 2) {
        DICOMELEMENT* e = LastChild(parent);
        for (VDicomULong at = level->count - 1; at > index; --at)
            e = ElementOf(e->Link.pPrev);
        return e;
    }
    DICOMELEMENT* e = FirstChild(parent);
    while (e != nullptr && index-- > 0)
        e = NextOf(e);
    return e;
}

VDicomULong ElementTree::CountChildren(const DICOMELEMENT* parent) const {
    const Level* level = FindLevel(parent);
    if (level == nullptr) {
        VDicomULong count = 0;
        for (DICOMELEMENT* e = FirstChild(parent); e != nullptr; e = NextOf(e)) {
            if (++count == kWide + 1)
                level = MakeLevel(parent);
            if (level != nullptr)
                return level->count;
        }
        return count;
    }
    return level->count;
}

// False without memory to remember that the level is out of order.
bool ElementTree::Linked(DICOMELEMENT* e, const DICOMELEMENT* parent) {
    const DICOMELEMENT* next = NextOf(e);
    const DICOMELEMENT* prev = ElementOf(e->Link.pPrev);
    const bool misplaced = (next != nullptr && next->nTag < e->nTag) || (prev != nullptr && prev->nTag > e->nTag);
    Level* level = FindLevel(parent);
    // An item before other elements: remembered, since the level can no longer be searched from its end.
    if (level == nullptr)
        return !misplaced || MakeLevel(parent) != nullptr;
    ++level->count;
    if (misplaced) {
        level->sorted = false;
        level->tags.clear();
    }
    try {
        level->ordered = level->ordered && e->Link.pNext == nullptr;
        if (level->ordered)
            level->order.push_back(e);
        if (level->sorted)
            level->Add(e);
    } catch (const std::bad_alloc&) {
        level->ordered = false;
        if (level->sorted)
            m_levels.erase(parent);
    }
    return true;
}

void ElementTree::Unlinking(DICOMELEMENT* e) {
    if (m_levels.empty())
        return;
    m_levels.erase(e);
    Level* level = FindLevel(ParentOf(e));
    if (level == nullptr)
        return;
    --level->count;
    if (level->ordered && level->order.back() == e)
        level->order.pop_back();
    else
        level->ordered = false;
    if (!level->sorted)
        return;
    const auto run = level->tags.find(e->nTag);
    if (run->second.first == run->second.last)
        level->tags.erase(run);
    else if (run->second.first == e)
        run->second.first = NextOf(e);
    else if (run->second.last == e)
        run->second.last = ElementOf(e->Link.pPrev);
}

void ElementTree::LinkOrdered(DICOMELEMENT* e, DICOMELEMENT* parent) {
    const Level* level = FindLevel(parent);
    DICOMELEMENT* before = nullptr;
    if (level != nullptr && !level->sorted) {
        // Before the first element of a greater tag. Items before or in group 0002 are no reason to write it in another
        // order.
        const bool isMeta = parent == nullptr && GroupOf(e->nTag) == 2;
        for (DICOMELEMENT* at = FirstChild(parent); at != nullptr; at = NextOf(at)) {
            if (at->nTag <= e->nTag)
                before = at;
            else if (!isMeta || at->nTag != kItem)
                break;
        }
    } else {
        // Elements mostly come in ascending order, so the place is looked for from the end.
        before = LastChild(parent);
        for (VDicomULong steps = 0; before != nullptr && before->nTag > e->nTag; ++steps) {
            if (steps < kWide) {
                before = ElementOf(before->Link.pPrev);
                continue;
            }
            if (level == nullptr && steps == kWide)
                level = MakeLevel(parent);
            if (level == nullptr) {
                before = ElementOf(before->Link.pPrev);
                continue;
            }
            const auto after = level->tags.upper_bound(e->nTag);
            before = after == level->tags.begin() ? nullptr : std::prev(after)->second.last;
        }
    }
    if (before == nullptr)
        Link(LinkOf(e), LinkOf(parent), DICOM_TREE_FIRST_CHILD);
    else
        Link(LinkOf(e), LinkOf(before), DICOM_TREE_AFTER);
    Linked(e, parent);
}

bool ElementTree::LinkItem(DICOMELEMENT* e, DICOMELEMENT* parent, VDicomULong index) {
    DICOMELEMENT* after = index == DICOM_UNDEFINED ? nullptr : ChildAt(parent, index);
    if (after == nullptr)
        Link(LinkOf(e), LinkOf(parent), DICOM_TREE_LAST_CHILD);
    else
        Link(LinkOf(e), LinkOf(after), DICOM_TREE_BEFORE);
    if (Linked(e, parent))
        return true;
    Unlink(LinkOf(e));
    return false;
}

void ElementTree::Erase(DICOMELEMENT* e) {
    // Children first, without recursion: down to the first leaf, then on from there.
    DICOMELEMENT* at = e;
    for (;;) {
        while (FirstChildOf(at) != nullptr)
            at = FirstChildOf(at);
        DICOMELEMENT* parent = ParentOf(at);
        const bool last = at == e;
        Unlinking(at);
        Unlink(LinkOf(at));
        FreeNode(NodeOf(at));
        if (last)
            return;
        at = parent;
    }
}

void ElementTree::EraseAll() {
    std::size_t kept = 0;
    std::size_t keptChunks = 0;
    for (Chunk& chunk : m_chunks) {
        for (std::size_t i = 0; i < chunk.used; ++i) {
            if (IsInUse(chunk.nodes[i]))
                FreeNode(&chunk.nodes[i]);
        }
        chunk.used = 0;
        kept += chunk.size;
        if (kept <= kKeptNodes)
            ++keptChunks;
    }
    m_chunks.resize(keptChunks);
    m_chunk = 0;
    m_pFree = nullptr;
    m_levels.clear();
    m_pFirst = nullptr;
    m_pLast = nullptr;
}

unsigned int ElementTree::Exists(const DICOMLINK* node) const {
    // Every node lies in a chunk, so the address alone tells whether it may be looked at.
    const auto address = reinterpret_cast<std::uintptr_t>(node);
    for (const Chunk& chunk : m_chunks) {
        const auto first = reinterpret_cast<std::uintptr_t>(chunk.nodes.get());
        if (address < first || address >= first + chunk.used * sizeof(ElementNode))
            continue;
        if ((address - first) % sizeof(ElementNode) != 0)
            return 0;
        return IsInUse(chunk.nodes[(address - first) / sizeof(ElementNode)]) ? 1 : 0;
    }
    return 0;
}

} // namespace vdicom
