#include "VDicomTree.h"

#include <cstdlib>
#include <cstring>
#include <new>

static_assert(sizeof(DICOMLINK) == 5 * sizeof(void*), "five pointers without gaps");

VDicomTree::VDicomTree() : m_pFirst(nullptr), m_pLast(nullptr) {}

VDicomTree::~VDicomTree() { VDicomTree::Clear(); }

DICOMLINK* VDicomTree::Insert(DICOMLINK* reference, std::size_t size, unsigned int position) {
    if (size < sizeof(DICOMLINK) || position > DICOM_TREE_BEFORE)
        return nullptr;
    Prepare();
    void* block = Allocate(size);
    if (block == nullptr)
        return nullptr;
    std::memset(block, 0, size);
    auto* node = static_cast<DICOMLINK*>(block);
    Link(node, reference, position);
    return node;
}

void VDicomTree::Delete(DICOMLINK* node) {
    if (node == nullptr)
        return;
    Unlink(node);
    Free(node);
}

DICOMLINK* VDicomTree::GetFirst(DICOMLINK* reference, unsigned int siblingOnly) const {
    Prepare();
    if (siblingOnly == 0 || reference == nullptr || reference->pParent == nullptr)
        return m_pFirst;
    return reference->pParent->pFirstChild;
}

DICOMLINK* VDicomTree::GetLast(DICOMLINK* reference, unsigned int siblingOnly) const {
    Prepare();
    if (siblingOnly != 0)
        return reference == nullptr || reference->pParent == nullptr ? m_pLast : reference->pParent->pLastChild;
    DICOMLINK* node = m_pLast;
    while (node != nullptr && node->pLastChild != nullptr)
        node = node->pLastChild;
    return node;
}

DICOMLINK* VDicomTree::GetNext(DICOMLINK* node, unsigned int siblingOnly) const {
    if (node == nullptr)
        return nullptr;
    if (siblingOnly != 0)
        return node->pNext;
    if (node->pFirstChild != nullptr)
        return node->pFirstChild;
    while (node != nullptr && node->pNext == nullptr)
        node = node->pParent;
    return node == nullptr ? nullptr : node->pNext;
}

DICOMLINK* VDicomTree::GetPrev(DICOMLINK* node, unsigned int siblingOnly) const {
    if (node == nullptr)
        return nullptr;
    if (siblingOnly != 0)
        return node->pPrev;
    if (node->pPrev == nullptr)
        return node->pParent;
    node = node->pPrev;
    while (node->pLastChild != nullptr)
        node = node->pLastChild;
    return node;
}

DICOMLINK* VDicomTree::GetRoot(DICOMLINK* node) const {
    while (node != nullptr && node->pParent != nullptr)
        node = node->pParent;
    return node;
}

DICOMLINK* VDicomTree::GetParent(DICOMLINK* node) const { return node == nullptr ? nullptr : node->pParent; }

DICOMLINK* VDicomTree::GetChild(DICOMLINK* node) const { return node == nullptr ? nullptr : node->pFirstChild; }

unsigned int VDicomTree::Exists(const DICOMLINK* node) const {
    if (node == nullptr)
        return 0;
    for (DICOMLINK* other = GetFirst(nullptr, 0); other != nullptr; other = GetNext(other, 0)) {
        if (other == node)
            return 1;
    }
    return 0;
}

VDicomULong VDicomTree::GetLevel(const DICOMLINK* node) const {
    VDicomULong level = 0;
    if (node != nullptr) {
        for (const DICOMLINK* parent = node->pParent; parent != nullptr; parent = parent->pParent)
            ++level;
    }
    return level;
}

VDicomULong VDicomTree::GetCount(DICOMLINK* reference, unsigned int siblingOnly) const {
    VDicomULong count = 0;
    for (DICOMLINK* node = GetFirst(reference, siblingOnly); node != nullptr; node = GetNext(node, siblingOnly))
        ++count;
    return count;
}

DICOMLINK* VDicomTree::FindIndex(DICOMLINK* reference, unsigned int siblingOnly, VDicomULong index) const {
    DICOMLINK* node = GetFirst(reference, siblingOnly);
    for (; node != nullptr && index != 0; --index)
        node = GetNext(node, siblingOnly);
    return node;
}

void* VDicomTree::Allocate(std::size_t size) { return ::operator new(size, std::nothrow); }

void VDicomTree::Free(void* block) { ::operator delete(block); }

void VDicomTree::Prepare() const {}

bool VDicomTree::Link(DICOMLINK* node, DICOMLINK* reference, unsigned int position) {
    DICOMLINK* parent = reference == nullptr ? nullptr : reference->pParent;
    if (position == DICOM_TREE_FIRST_CHILD || position == DICOM_TREE_LAST_CHILD)
        parent = reference;
    // Pointers, not references: the link record is byte-packed.
    DICOMLINK* const first = parent == nullptr ? m_pFirst : parent->pFirstChild;
    DICOMLINK* const last = parent == nullptr ? m_pLast : parent->pLastChild;

    // The neighbours between which the node comes to stand.
    DICOMLINK* prev = nullptr;
    DICOMLINK* next = nullptr;
    switch (position) {
    case DICOM_TREE_FIRST_CHILD:
    case DICOM_TREE_FIRST_SIBLING:
        next = first;
        break;
    case DICOM_TREE_LAST_CHILD:
    case DICOM_TREE_LAST_SIBLING:
        prev = last;
        break;
    case DICOM_TREE_AFTER:
        prev = reference == nullptr ? last : reference;
        next = prev == nullptr ? nullptr : prev->pNext;
        break;
    case DICOM_TREE_BEFORE:
        next = reference == nullptr ? first : reference;
        prev = next == nullptr ? nullptr : next->pPrev;
        break;
    default:
        return false;
    }

    node->pParent = parent;
    node->pPrev = prev;
    node->pNext = next;
    if (prev != nullptr)
        prev->pNext = node;
    else if (parent != nullptr)
        parent->pFirstChild = node;
    else
        m_pFirst = node;
    if (next != nullptr)
        next->pPrev = node;
    else if (parent != nullptr)
        parent->pLastChild = node;
    else
        m_pLast = node;
    return true;
}

void VDicomTree::Unlink(DICOMLINK* node) {
    DICOMLINK* const parent = node->pParent;
    if (node->pPrev != nullptr)
        node->pPrev->pNext = node->pNext;
    else if (parent != nullptr)
        parent->pFirstChild = node->pNext;
    else
        m_pFirst = node->pNext;
    if (node->pNext != nullptr)
        node->pNext->pPrev = node->pPrev;
    else if (parent != nullptr)
        parent->pLastChild = node->pPrev;
    else
        m_pLast = node->pPrev;
    node->pParent = nullptr;
    node->pPrev = nullptr;
    node->pNext = nullptr;
}

void VDicomTree::Clear() {
    // Children before their parent, without recursion: a tree may be deeper than the stack.
    DICOMLINK* node = m_pFirst;
    m_pFirst = nullptr;
    m_pLast = nullptr;
    while (node != nullptr) {
        while (node->pFirstChild != nullptr)
            node = node->pFirstChild;
        DICOMLINK* const next = node->pNext;
        DICOMLINK* const parent = node->pParent;
        if (next == nullptr && parent != nullptr)
            parent->pFirstChild = nullptr;
        // In a destructor this is that class's own Free, as it should be.
        Free(node); // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall)
        node = next == nullptr ? parent : next;
    }
}

VDicomTreeEx::~VDicomTreeEx() { VDicomTreeEx::Clear(); }

void* VDicomTreeEx::Allocate(std::size_t size) { return std::malloc(size); }

void VDicomTreeEx::Free(void* block) { std::free(block); }
