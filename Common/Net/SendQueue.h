/// @file SendQueue.h
/// The bytes of a connection that have not left yet: PDUs made beforehand, and sets that are cut into PDUs on their
/// way. Knows no socket.
#pragma once

#include "OutgoingSet.h"

#include <memory>

namespace vdicom {

/// One place in the queue: either bytes, or a set.
struct OutgoingEntry {
    OutgoingEntry* next = nullptr;
    OutgoingSet set;
    std::unique_ptr<unsigned char[]> bytes; ///< null: it is the set
    VDicomUInt64 total = 0;
    VDicomUInt64 sent = 0;
};

class SendQueue {
public:
    SendQueue() = default;
    ~SendQueue();
    SendQueue(const SendQueue&) = delete;
    SendQueue& operator=(const SendQueue&) = delete;

    /// Makes the empty entry that a queue without bytes shows; there always is one from then on. @return false: no
    /// memory
    bool Prepare();
    /// Copies the bytes of one PDU to the end. @return 0 or DICOM_ERROR_MEMORY
    unsigned int AddBytes(const void* bytes, std::size_t size);
    /// Encodes a set and appends it. @return as OutgoingSet::Encode
    unsigned int AddSet(VDicomDS* set, const OutgoingSet::Route& route);
    /// Takes the last entry away, of which nothing has been sent.
    void DropLast();
    void Clear();

    /// The next unsent bytes, as OutgoingSet::Gather; goes on into the entries that follow.
    std::size_t Gather(ByteSpan* out, std::size_t most);

    struct Progress {
        std::size_t counted = 0; ///< bytes, up to the end of one PDU
        bool complete = false;   ///< that PDU is sent
        unsigned char type = 0;  ///< its type
    };
    /// The socket has taken the next `bytes`; to be called again with what was not counted.
    Progress Sent(std::size_t bytes);

    bool IsEmpty() const { return m_head == nullptr; }
    /// Bytes of PDUs that are not complete yet, whatever has been sent of the first.
    VDicomUInt64 Queued() const { return m_queued; }
    /// The first and last entry; of an empty queue the one that is kept for the next bytes.
    const OutgoingEntry* Head() const { return m_head != nullptr ? m_head : m_spare; }
    const OutgoingEntry* Tail() const { return m_tail != nullptr ? m_tail : m_spare; }

private:
    std::unique_ptr<OutgoingEntry> Make();
    void Append(std::unique_ptr<OutgoingEntry> entry);
    void Keep(OutgoingEntry* entry);

    OutgoingEntry* m_head = nullptr;
    OutgoingEntry* m_tail = nullptr;
    OutgoingEntry* m_spare = nullptr; ///< one that was finished, for the next; there whenever the queue is empty
    VDicomUInt64 m_queued = 0;
    VDicomUInt64 m_partial = 0; ///< sent of the PDU that is not complete
};

} // namespace vdicom
