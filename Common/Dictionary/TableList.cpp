#include "TableList.h"

#include <new>

namespace vdicom {

bool RowBlock::Reserve(std::size_t nodes, std::size_t nodeSize, const char* texts, std::size_t textSize) {
    if (m_begin != nullptr)
        return false;
    const std::size_t size = nodes * nodeSize;
    m_begin = static_cast<unsigned char*>(::operator new(size + textSize, std::nothrow));
    if (m_begin == nullptr)
        return false;
    m_next = m_begin;
    m_texts = reinterpret_cast<char*>(m_begin + size);
    m_end = m_texts + textSize;
    m_nodeSize = nodeSize;
    m_used = 1;
    std::memcpy(m_texts, texts, textSize);
    return true;
}

void RowBlock::Close() {
    if (m_begin == nullptr)
        return;
    m_nodeSize = 0;
    GiveBackNode();
}

void* RowBlock::TakeNode(std::size_t size) {
    if (size > m_nodeSize || reinterpret_cast<char*>(m_next) == m_texts)
        return nullptr;
    void* node = m_next;
    m_next += m_nodeSize;
    ++m_used;
    return node;
}

void RowBlock::GiveBackNode() {
    if (--m_used == 0)
        Release();
}

bool RowBlock::Holds(const void* place) const {
    const auto at = reinterpret_cast<std::uintptr_t>(place);
    return at >= reinterpret_cast<std::uintptr_t>(m_begin) && at < reinterpret_cast<std::uintptr_t>(m_end);
}

void RowBlock::Release() {
    ::operator delete(m_begin);
    m_begin = nullptr;
    m_next = nullptr;
    m_texts = nullptr;
    m_end = nullptr;
    m_nodeSize = 0;
    m_used = 0;
}

char* CopyText(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    char* copy = new (std::nothrow) char[size];
    return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

} // namespace vdicom
