/// @file PduWriter.h
/// Writes the fields of PDUs: numbers big-endian, lengths filled in when what they count has been written. Pure.
#pragma once

#include "Bytes.h"

#include <string_view>

namespace vdicom {

/// Writes into a buffer or, without one, counts. Behind the end of the buffer it goes on counting, so that Size() is
/// always what the whole takes.
class PduWriter {
public:
    PduWriter() = default;
    PduWriter(unsigned char* buffer, std::size_t size) : m_buffer(buffer), m_room(size) {}

    std::size_t Size() const { return m_size; }
    /// Whether a length did not fit into its 16 bits.
    bool Overflowed() const { return m_overflowed; }

    void Put8(std::uint8_t value) { PutBytes({&value, 1}); }
    void Put16(std::uint16_t value) {
        unsigned char bytes[2];
        vdicom::Put16(bytes, value, false);
        PutBytes({bytes, sizeof bytes});
    }
    void Put32(std::uint32_t value) {
        unsigned char bytes[4];
        vdicom::Put32(bytes, value, false);
        PutBytes({bytes, sizeof bytes});
    }
    void PutText(std::string_view text) {
        PutBytes({reinterpret_cast<const unsigned char*>(text.data()), text.size()});
    }
    void PutBytes(ByteSpan bytes) {
        if (bytes.size != 0 && m_size < m_room)
            std::memcpy(m_buffer + m_size, bytes.data, std::min(bytes.size, m_room - m_size));
        m_size += bytes.size;
    }

    /// A length of 16 bits, which Close fills in. Marks nest.
    using Mark = std::size_t;
    Mark OpenLength16() {
        Put16(0);
        return m_size;
    }
    void Close(Mark mark) {
        const std::size_t length = m_size - mark;
        m_overflowed = m_overflowed || length > 0xFFFF;
        if (mark <= m_room)
            vdicom::Put16(m_buffer + mark - 2, static_cast<std::uint16_t>(length & 0xFFFF), false);
    }

private:
    unsigned char* m_buffer = nullptr;
    std::size_t m_room = 0;
    std::size_t m_size = 0;
    bool m_overflowed = false;
};

} // namespace vdicom
