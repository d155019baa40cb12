/// @file PduReceiver.h
/// Collects received bytes until they are a PDU. Pure: somebody else receives.
///
/// One per connection. On each read notification the connection receives into Room(), tells Received(), asks Next(),
/// dispatches the PDU that is done (one per notification) and calls Drop(). Bytes of later PDUs may have come along:
/// when HasBytes() says so, the connection posts the read event to itself, since the socket has nothing to tell, and a
/// close event waits until they are done with. While a notification runs, no further PDU is taken (no nested Next). The
/// three numbers that the connection's window shows are Arrived(), Expected() and Buffer().
#pragma once

#include "PduCodec.h"

namespace vdicom {

class PduReceiver {
public:
    /// The buffer's first size, and the size up to which it grows to take several PDUs at once.
    static constexpr std::size_t kFirst = std::size_t{4} * 1024;
    static constexpr std::size_t kReadAhead = std::size_t{64} * 1024;
    /// A larger buffer is given back when it is followed by a PDU that does not need it.
    static constexpr std::size_t kKept = std::size_t{1} << 20;

    PduReceiver() = default;
    ~PduReceiver();
    PduReceiver(const PduReceiver&) = delete;
    PduReceiver& operator=(const PduReceiver&) = delete;

    /// The greatest PDU length that is accepted from now on.
    void SetLargest(VDicomULong length) { m_largest = length; }
    VDicomULong Largest() const { return m_largest; }

    struct Space {
        unsigned char* data = nullptr;
        std::size_t size = 0;
    };
    /// Where the next bytes go, at least one; to be called when Next wants more. No space: memory ran out. The buffer
    /// grows with the bytes that have arrived (from kFirst on at most to twice their number), whatever a header claims.
    Space Room();
    /// `size` bytes of the last Room have been filled.
    void Received(std::size_t size) { m_end += size; }

    /// The next PDU; it stays in the buffer, and `out.bytes` valid, until Drop. A PDU that is bad stays so until Reset.
    PduRead Next(Pdu& out);
    /// The PDU that Next gave is done with.
    void Drop();
    /// Forgets all bytes, for a new connection. The buffer is kept.
    void Reset() { m_start = m_end = m_expected = 0; }

    bool HasBytes() const { return m_end != m_start; }
    std::size_t Held() const { return m_end - m_start; }
    /// Bytes of the PDU that is arriving, without those of later PDUs; 0 before its header is looked at.
    std::size_t Arrived() const {
        return m_expected != 0 ? std::min(Held(), m_expected) : Held() < kPduHeader ? Held() : 0;
    }
    /// Size of the PDU that is arriving; 0 while it is not known.
    std::size_t Expected() const { return m_expected; }
    unsigned char* Buffer() const { return m_buffer == nullptr ? nullptr : m_buffer + m_start; }
    std::size_t Capacity() const { return m_capacity; }

private:
    bool Resize(std::size_t capacity);

    unsigned char* m_buffer = nullptr;
    std::size_t m_capacity = 0;
    std::size_t m_start = 0; ///< of the PDU that is arriving
    std::size_t m_end = 0;   ///< of the bytes received
    std::size_t m_expected = 0;
    VDicomULong m_largest = kLargestPdu;
};

} // namespace vdicom
