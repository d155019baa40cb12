#include "PduReceiver.h"

#include <cstdlib>

namespace vdicom {

PduReceiver::~PduReceiver() { std::free(m_buffer); }

bool PduReceiver::Resize(std::size_t capacity) {
    auto* changed = static_cast<unsigned char*>(std::realloc(m_buffer, capacity));
    if (changed == nullptr)
        return false;
    m_buffer = changed;
    m_capacity = capacity;
    return true;
}

PduReceiver::Space PduReceiver::Room() {
    // The last receive took all that there was room for: probably more is waiting.
    const bool filled = m_end == m_capacity;
    const std::size_t held = Held();
    const std::size_t wanted = std::max(m_expected, kPduHeader);
    if (m_start != 0 && (held == 0 || filled || m_start + wanted > m_capacity)) {
        std::memmove(m_buffer, m_buffer + m_start, held);
        m_start = 0;
        m_end = held;
    }
    if (m_capacity == 0) {
        if (!Resize(kFirst))
            return {};
    } else if (filled && (m_capacity < kReadAhead || m_end == m_capacity)) {
        const std::size_t most = std::max(wanted, kReadAhead);
        const std::size_t capacity = m_capacity > most / 2 ? most : m_capacity * 2;
        // Without memory for more, what is there still does as long as it is not full.
        if (capacity > m_capacity && !Resize(capacity) && m_end == m_capacity)
            return {};
    }
    return {m_buffer + m_end, m_capacity - m_end};
}

PduRead PduReceiver::Next(Pdu& out) {
    const PduRead result = ReadPdu({Buffer(), Held()}, m_largest, out);
    m_expected = result != PduRead::bad && Held() >= kPduHeader ? out.wanted : 0;
    return result;
}

void PduReceiver::Drop() {
    const std::size_t size = m_expected;
    m_start += size;
    m_expected = 0;
    if (m_start == m_end)
        m_start = m_end = 0;
    if (m_capacity > kKept && size <= kKept && Held() <= kReadAhead) {
        std::memmove(m_buffer, m_buffer + m_start, Held());
        m_end = Held();
        m_start = 0;
        Resize(kReadAhead);
    }
}

} // namespace vdicom
