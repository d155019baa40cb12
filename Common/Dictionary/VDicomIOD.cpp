#include "VDicomIOD.h"

#include "IODRows.h"
#include "IODTree.h"
#include "Library.h"

#include <algorithm>
#include <array>

static_assert(sizeof(void*) != 4 || sizeof(DICOMIOD) == 20 + 4 + 4 + 1 + 2 + 4, "declared size");

namespace vdicom {

namespace {

constexpr std::size_t kMostLevels = 128; ///< of row arrays one below the other

constexpr std::size_t RoundUp(std::size_t size) { return (size + 7) / 8 * 8; }
constexpr std::size_t kElementSize = RoundUp(sizeof(DICOMIOD));
constexpr std::size_t kHeadSize = sizeof(NodeHeader) + kElementSize;

bool IsBuiltInText(const char* text) {
    const auto at = reinterpret_cast<std::uintptr_t>(text);
    const auto begin = reinterpret_cast<std::uintptr_t>(kIODTexts);
    return at >= begin && at - begin < kIODTable.textSize;
}

/// Top-level nodes are indexed by their code, modules by class and code. Different modules may have the same key.
std::uint64_t ModuleKey(const DICOMLINK* root, VDicomULong code) {
    return (std::uint64_t{reinterpret_cast<std::uintptr_t>(root)} << 16U) ^ (std::uint64_t{code} << 1U) ^ 1U;
}

std::size_t LevelOf(const DICOMLINK* node) {
    std::size_t level = 0;
    for (; node->pParent != nullptr; node = node->pParent)
        ++level;
    return level;
}

/// Whether `a` comes before `b`, another node of the tree, in a walk through all of it.
bool Precedes(const DICOMLINK* a, const DICOMLINK* b) {
    std::size_t levelA = LevelOf(a);
    std::size_t levelB = LevelOf(b);
    const bool higher = levelA < levelB;
    for (; levelA > levelB; --levelA)
        a = a->pParent;
    for (; levelB > levelA; --levelB)
        b = b->pParent;
    if (a == b)
        return higher; // one stands below the other
    for (; a->pParent != b->pParent; b = b->pParent)
        a = a->pParent;
    // From both towards the end: whichever meets the other, or has more siblings left, is the first.
    const DICOMLINK* afterA = a->pNext;
    const DICOMLINK* afterB = b->pNext;
    while (afterA != nullptr && afterB != nullptr && afterA != b && afterB != a) {
        afterA = afterA->pNext;
        afterB = afterB->pNext;
    }
    return afterA == b || (afterA != nullptr && afterB == nullptr);
}

} // namespace

// ---------------------------------------------------------------- filling

/// The names of the built-in elements' tags, as the whole tree has few different tags: the built-in ones, or those of
/// the data dictionary.
struct IODTree::Filling {
    explicit Filling(bool byDictionary) {
        for (std::size_t i = 0; i < kIODTable.tags; ++i) {
            const char* builtIn = kIODTexts + kIODTags[i].text;
            const DICOMTAG* tag = byDictionary ? Tags().Find(kIODTags[i].code) : nullptr;
            const bool renamed = tag != nullptr && std::strcmp(tag->pszName, builtIn) != 0;
            names[i] = renamed ? tag->pszName : builtIn;
        }
    }
    std::array<const char*, kMostIODTags> names;
};

bool IODTree::Fill() {
    Reset();
    return Fill(Filling(true));
}

/// As if it had been done when the library was loaded: changes of the data dictionary since then do not show.
void IODTree::FillPending() {
    const std::lock_guard lock(m_building);
    if (!m_pending.load(std::memory_order_relaxed))
        return;
    Fill(Filling(false));
    m_pending.store(false, std::memory_order_release);
}

bool IODTree::Fill(const Filling& filling) {
    m_heads.Reserve(kIODTable.headNodes, kHeadSize, "", 0);
    m_elements.Reserve(kIODTable.elementNodes, kElementSize, "", 0);
    m_index.Reserve(kIODTable.headNodes);
    const bool complete = FillLevel(filling, nullptr, nullptr, kIODTable.top);
    m_heads.Close();
    m_elements.Close();
    return complete;
}

void IODTree::Reset() {
    m_pending.store(false, std::memory_order_relaxed);
    if (m_ownsMore) {
        Clear();
    } else {
        // Every process that ends comes here: without a walk through all nodes.
        m_pFirst = nullptr;
        m_pLast = nullptr;
        m_heads.Release();
        m_elements.Release();
    }
    m_index.Clear();
    m_ownsMore = false;
}

DICOMIOD* IODTree::TakeNode(signed char type) {
    void* place = nullptr;
    if (type == DICOM_IOD_ELEMENT) {
        place = m_elements.TakeNode(kElementSize);
    } else if (void* head = m_heads.TakeNode(kHeadSize); head != nullptr) {
        auto* header = new (head) NodeHeader{};
        header->size = sizeof(DICOMIOD);
        place = header + 1;
    }
    if (place == nullptr && (place = Allocate(sizeof(DICOMIOD))) != nullptr)
        HeaderOf(static_cast<DICOMLINK*>(place))->isEntry = true;
    return static_cast<DICOMIOD*>(place);
}

bool IODTree::FillLevel(const Filling& filling, DICOMLINK* parent, DICOMLINK* root, std::size_t array) {
    bool complete = true;
    for (std::size_t i = kIODArrays[array]; i < kIODArrays[array + 1]; ++i) {
        const IODRow& row = kIODRows[i];
        const auto type = static_cast<signed char>(row.kind);
        DICOMIOD* node = TakeNode(type);
        if (node == nullptr) {
            complete = false;
            continue;
        }
        const IODName* names = type == DICOM_IOD_ELEMENT  ? kIODTags
                               : type == DICOM_IOD_MODULE ? kIODModules
                                                          : kIODClasses;
        const IODName& named = names[row.name];
        const char* name = type == DICOM_IOD_ELEMENT ? filling.names[row.name] : kIODTexts + named.text;
        if (!IsBuiltInText(name))
            name = OwnText(name);
        *node = {{}, named.code, name, type, row.usage, kIODTexts + row.description};
        DICOMLINK* const link = LinkOf(node);
        Link(link, parent, DICOM_TREE_LAST_CHILD);
        bool stays = name != nullptr;
        if (stays && type != DICOM_IOD_ELEMENT)
            stays = Index(link, parent == nullptr ? named.code : ModuleKey(root, named.code));
        if (!stays)
            Delete(link);
        else if (row.children != 0)
            stays = FillLevel(filling, link, parent == nullptr ? link : root, row.children);
        complete = complete && stays;
    }
    return complete;
}

// ---------------------------------------------------------------- editing

void* IODTree::Allocate(std::size_t size) {
    m_ownsMore = true;
    return EntryTree::Allocate(size);
}

const char* IODTree::OwnText(const char* text) {
    m_ownsMore = true;
    return CopyText(text);
}

void IODTree::FreeNodeText(DICOMLINK* node, const char* text) const {
    if (IsBuiltInText(text))
        return;
    if (m_elements.Holds(node))
        delete[] text; // NOLINT(clang-analyzer-cplusplus.NewDelete): its own copy
    else
        FreeText(node, text);
}

void IODTree::FreeTexts(DICOMLINK* node) {
    FreeNodeText(node, RecordOf(node)->pszName);
    FreeNodeText(node, RecordOf(node)->pszDescription);
}

void IODTree::Free(void* block) {
    auto* node = static_cast<DICOMLINK*>(block);
    if (m_elements.Holds(node)) {
        FreeTexts(node);
        m_elements.GiveBackNode();
    } else if (m_heads.Holds(node)) {
        Unindex(node);
        FreeTexts(node);
        m_heads.GiveBackNode();
    } else {
        EntryTree::Free(node);
    }
}

/// Indexes a node that is linked; false when memory is exhausted.
bool IODTree::IndexInOrder(DICOMIOD* node) {
    DICOMLINK* const link = LinkOf(node);
    if (link->pParent == nullptr)
        return Index(link, node->nCode); // always the last one of the top level
    if (node->nType != DICOM_IOD_MODULE)
        return true;
    const std::uint64_t key = ModuleKey(GetRoot(link), node->nCode);
    if (!Index(link, key))
        return false;
    // The first match of a walk must be the first one of its key. Nearly always the new node is the last already.
    IndexLink* const own = &HeaderOf(link)->index;
    IndexLink* other = m_index.Find(key);
    if (other == own || Precedes(NodeOf(own->previousSameKey), link))
        return true;
    while (!Precedes(link, NodeOf(other)))
        other = other->nextSameKey;
    while (other != own) {
        IndexLink* const next = other->nextSameKey;
        m_index.Remove(key, other);
        m_index.Add(key, other); // takes no memory: the key is there
        other = next;
    }
    return true;
}

DICOMIOD* IODTree::Add(DICOMIOD* reference, bool asChild, const DICOMIODROW& row) {
    const char* name = row.pszName;
    if (row.nType == DICOM_IOD_ELEMENT) {
        if (const DICOMTAG* tag = Tags().Find(row.nCode); tag != nullptr)
            name = tag->pszName;
    }
    if (name == nullptr || row.pszDescription == nullptr)
        return nullptr;
    if (reference == nullptr && row.nType != DICOM_IOD_CLASS)
        return nullptr;
    if (row.nType == DICOM_IOD_CLASS) {
        reference = nullptr;
        asChild = false;
    } else if (row.nType == DICOM_IOD_MODULE && reference->nType == DICOM_IOD_CLASS) {
        asChild = true;
    }
    const std::size_t nameLength = std::strlen(name);
    const std::size_t descriptionLength = std::strlen(row.pszDescription);
    DICOMLINK* link = Insert(LinkOf(reference), sizeof(DICOMIOD) + nameLength + 1 + descriptionLength + 1,
                             asChild ? DICOM_TREE_LAST_CHILD : DICOM_TREE_LAST_SIBLING);
    if (link == nullptr)
        return nullptr;
    DICOMIOD* node = RecordOf(link);
    HeaderOf(link)->isEntry = true;
    char* texts = reinterpret_cast<char*>(node + 1);
    node->nCode = row.nCode;
    node->pszName = PlaceText(texts, name, nameLength);
    node->nType = row.nType;
    node->nUsage = row.nUsage;
    node->pszDescription = PlaceText(texts, row.pszDescription, descriptionLength);
    if (IndexInOrder(node))
        return node;
    Delete(link);
    return nullptr;
}

DICOMIOD* IODTree::Remove(DICOMIOD* node) {
    if (node == nullptr)
        return nullptr;
    DICOMLINK* const link = LinkOf(node);
    DICOMLINK* const neighbour = link->pNext != nullptr   ? link->pNext
                                 : link->pPrev != nullptr ? link->pPrev
                                                          : link->pParent;
    // Without recursion: an application's tree may be deeper than the stack.
    for (DICOMLINK* at = link; at != nullptr;) {
        if (at->pFirstChild != nullptr) {
            at = at->pFirstChild;
            continue;
        }
        DICOMLINK* const next = at == link ? nullptr : at->pParent;
        Delete(at);
        at = next;
    }
    return RecordOf(neighbour);
}

struct IODTree::Merging {
    const DICOMIODROW* rows;
    const Merging* above;
    std::size_t level;
};

bool IODTree::Merge(DICOMIOD* parent, const DICOMIODROW* rows) { return MergeLevel(parent, rows, nullptr); }

bool IODTree::MergeLevel(DICOMIOD* parent, const DICOMIODROW* rows, const Merging* above) {
    const Merging here{rows, above, above == nullptr ? 1 : above->level + 1};
    for (; above != nullptr; above = above->above) {
        if (above->rows == rows)
            return false;
    }
    if (rows == nullptr || here.level > kMostLevels)
        return false;
    bool complete = true;
    for (; rows->pszName != nullptr && *rows->pszName != '\0'; ++rows) {
        DICOMIOD* node = nullptr;
        if (parent != nullptr) {
            node = RecordOf(parent->Link.pFirstChild);
            while (node != nullptr && (node->nCode != rows->nCode || node->nType != rows->nType))
                node = RecordOf(node->Link.pNext);
        }
        if (node == nullptr)
            node = Add(parent, true, *rows);
        const bool done = node != nullptr && (rows->pChildren == nullptr || MergeLevel(node, rows->pChildren, &here));
        complete = complete && done;
    }
    return complete;
}

bool IODTree::SetName(DICOMIOD* node, const char* name) {
    const char* copy = node == nullptr || name == nullptr ? nullptr : OwnText(name);
    if (copy == nullptr)
        return false;
    FreeNodeText(LinkOf(node), node->pszName);
    node->pszName = copy;
    return true;
}

bool IODTree::SetDescription(DICOMIOD* node, const char* description) {
    const char* copy = node == nullptr || description == nullptr ? nullptr : OwnText(description);
    if (copy == nullptr)
        return false;
    FreeNodeText(LinkOf(node), node->pszDescription);
    node->pszDescription = copy;
    return true;
}

// ---------------------------------------------------------------- finding

DICOMIOD* IODTree::FindClass(VDicomULong number) const {
    IndexLink* link = m_index.Find(number);
    while (link != nullptr && (NodeOf(link)->pParent != nullptr || RecordOf(NodeOf(link))->nCode != number))
        link = link->nextSameKey;
    return RecordOf(NodeOf(link));
}

DICOMIOD* IODTree::FindModule(DICOMLINK* root, VDicomULong number) const {
    IndexLink* link = m_index.Find(ModuleKey(root, number));
    while (link != nullptr && (NodeOf(link)->pParent == nullptr || GetRoot(NodeOf(link)) != root ||
                               RecordOf(NodeOf(link))->nCode != number))
        link = link->nextSameKey;
    return RecordOf(NodeOf(link));
}

DICOMIOD* IODTree::FindBelow(DICOMIOD* node, VDicomULong code, signed char type) const {
    if (node == nullptr)
        return nullptr;
    DICOMLINK* const top = LinkOf(node);
    if (top->pParent == nullptr && type == DICOM_IOD_MODULE)
        return FindModule(top, code);
    DICOMLINK* at = top->pFirstChild;
    while (at != nullptr && (RecordOf(at)->nCode != code || RecordOf(at)->nType != type)) {
        if (at->pFirstChild != nullptr) {
            at = at->pFirstChild;
            continue;
        }
        while (at != top && at->pNext == nullptr)
            at = at->pParent;
        at = at == top ? nullptr : at->pNext;
    }
    return RecordOf(at);
}

} // namespace vdicom

using vdicom::IODs;
using vdicom::IODTree;

unsigned int VDicomIOD::Default() { return vdicom::g_iods.list.Fill() ? 1 : 0; }

unsigned int VDicomIOD::Default(DICOMIOD* node, const DICOMIODROW* rows) { return IODs().Merge(node, rows) ? 1 : 0; }

void VDicomIOD::Reset() { vdicom::g_iods.list.Reset(); }

DICOMIOD* VDicomIOD::Insert(DICOMIOD* reference, unsigned int child, VDicomULong nCode, const char* pszName,
                            signed char nType, unsigned short nUsage, const char* pszDescription) {
    return IODs().Add(reference, child != 0, {nType, nullptr, nCode, pszName, nUsage, pszDescription});
}

DICOMIOD* VDicomIOD::Delete(DICOMIOD* node) { return IODs().Remove(node); }

DICOMIOD* VDicomIOD::GetRoot(DICOMIOD* node) { return IODTree::RecordOf(IODs().GetRoot(IODTree::LinkOf(node))); }

DICOMIOD* VDicomIOD::GetParent(DICOMIOD* node) { return IODTree::RecordOf(IODs().GetParent(IODTree::LinkOf(node))); }

DICOMIOD* VDicomIOD::GetChild(DICOMIOD* node) { return IODTree::RecordOf(IODs().GetChild(IODTree::LinkOf(node))); }

DICOMIOD* VDicomIOD::GetFirst(DICOMIOD* node, unsigned int siblingOnly) {
    return IODTree::RecordOf(IODs().GetFirst(IODTree::LinkOf(node), siblingOnly));
}

DICOMIOD* VDicomIOD::GetLast(DICOMIOD* node, unsigned int siblingOnly) {
    return IODTree::RecordOf(IODs().GetLast(IODTree::LinkOf(node), siblingOnly));
}

DICOMIOD* VDicomIOD::GetPrev(DICOMIOD* node, unsigned int siblingOnly) {
    return IODTree::RecordOf(IODs().GetPrev(IODTree::LinkOf(node), siblingOnly));
}

DICOMIOD* VDicomIOD::GetNext(DICOMIOD* node, unsigned int siblingOnly) {
    return IODTree::RecordOf(IODs().GetNext(IODTree::LinkOf(node), siblingOnly));
}

unsigned int VDicomIOD::Exists(const DICOMIOD* node) { return IODs().Exists(reinterpret_cast<const DICOMLINK*>(node)); }

DICOMIOD* VDicomIOD::Find(DICOMIOD* node, VDicomULong nCode, signed char nType, unsigned int siblingOnly) {
    node = GetFirst(node, siblingOnly);
    while (node != nullptr && (node->nCode != nCode || node->nType != nType))
        node = GetNext(node, siblingOnly);
    return node;
}

DICOMIOD* VDicomIOD::FindClass(VDicomULong nClass) { return IODs().FindClass(nClass); }

DICOMIOD* VDicomIOD::FindInClass(DICOMIOD* node, VDicomULong nCode, signed char nType) {
    return IODs().FindBelow(node, nCode, nType);
}

DICOMIOD* VDicomIOD::FindModule(VDicomULong nClass, VDicomULong nModule) {
    return FindInClass(FindClass(nClass), nModule, DICOM_IOD_MODULE);
}

DICOMIOD* VDicomIOD::FindIndexModule(VDicomULong nClass, VDicomULong index) {
    DICOMIOD* node = GetChild(FindClass(nClass));
    for (; node != nullptr && index != 0; node = GetNext(node, 1)) {
        if (node->nType == DICOM_IOD_MODULE)
            --index;
    }
    return node;
}

VDicomULong VDicomIOD::GetCountModule(VDicomULong nClass) {
    VDicomULong count = 0;
    for (DICOMIOD* node = GetChild(FindClass(nClass)); node != nullptr; node = GetNext(node, 1))
        count += node->nType == DICOM_IOD_MODULE ? 1 : 0;
    return count;
}

unsigned int VDicomIOD::SetName(DICOMIOD* node, const char* pszName) { return IODs().SetName(node, pszName) ? 1 : 0; }

unsigned int VDicomIOD::SetDescription(DICOMIOD* node, const char* pszDescription) {
    return IODs().SetDescription(node, pszDescription) ? 1 : 0;
}
