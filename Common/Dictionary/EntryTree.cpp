#include "EntryTree.h"

#include <new>

namespace vdicom {

void* EntryTree::Allocate(std::size_t size) {
    void* block = ::operator new(sizeof(NodeHeader) + size, std::nothrow);
    if (block == nullptr)
        return nullptr;
    auto* header = new (block) NodeHeader{};
    header->size = size;
    return header + 1;
}

void EntryTree::Free(void* block) {
    auto* node = static_cast<DICOMLINK*>(block);
    Unindex(node);
    if (HeaderOf(node)->isEntry)
        FreeTexts(node);
    ::operator delete(HeaderOf(node));
}

} // namespace vdicom
