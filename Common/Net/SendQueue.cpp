#include "SendQueue.h"

#include <new>
#include <utility>

namespace vdicom {

SendQueue::~SendQueue() {
    Clear();
    delete m_spare;
}

bool SendQueue::Prepare() {
    if (m_spare == nullptr)
        m_spare = new (std::nothrow) OutgoingEntry;
    return m_spare != nullptr;
}

std::unique_ptr<OutgoingEntry> SendQueue::Make() {
    OutgoingEntry* entry = m_spare;
    m_spare = nullptr;
    return std::unique_ptr<OutgoingEntry>(entry != nullptr ? entry : new (std::nothrow) OutgoingEntry);
}

void SendQueue::Keep(OutgoingEntry* entry) {
    if (m_spare != nullptr) {
        delete entry;
        return;
    }
    entry->bytes.reset();
    entry->set.Drop();
    entry->next = nullptr;
    entry->total = entry->sent = 0;
    m_spare = entry;
}

void SendQueue::Append(std::unique_ptr<OutgoingEntry> entry) {
    entry->next = nullptr;
    entry->sent = 0;
    m_queued += entry->total;
    (m_head == nullptr ? m_head : m_tail->next) = entry.get();
    m_tail = entry.release();
}

unsigned int SendQueue::AddBytes(const void* bytes, std::size_t size) {
    std::unique_ptr<OutgoingEntry> entry = Make();
    if (entry == nullptr)
        return DICOM_ERROR_MEMORY;
    entry->bytes.reset(new (std::nothrow) unsigned char[size]);
    if (entry->bytes == nullptr) {
        Keep(entry.release());
        return DICOM_ERROR_MEMORY;
    }
    std::memcpy(entry->bytes.get(), bytes, size);
    entry->total = size;
    Append(std::move(entry));
    return DICOM_OK;
}

unsigned int SendQueue::AddSet(VDicomDS* set, const OutgoingSet::Route& route) {
    std::unique_ptr<OutgoingEntry> entry = Make();
    if (entry == nullptr)
        return DICOM_ERROR_MEMORY;
    const unsigned int code = entry->set.Encode(set, route);
    if (code != DICOM_OK) {
        Keep(entry.release());
        return code;
    }
    entry->total = entry->set.TotalSize();
    Append(std::move(entry));
    return DICOM_OK;
}

void SendQueue::DropLast() {
    OutgoingEntry* last = m_tail;
    OutgoingEntry* before = m_head == last ? nullptr : m_head;
    while (before != nullptr && before->next != last)
        before = before->next;
    (before == nullptr ? m_head : before->next) = nullptr;
    m_tail = before;
    m_queued -= last->total;
    Keep(last);
}

void SendQueue::Clear() {
    while (m_head != nullptr)
        Keep(std::exchange(m_head, m_head->next));
    m_tail = nullptr;
    m_queued = m_partial = 0;
}

std::size_t SendQueue::Gather(ByteSpan* out, std::size_t most) {
    std::size_t count = 0;
    bool inPlace = false;
    for (OutgoingEntry* entry = m_head; entry != nullptr && count < most; entry = entry->next) {
        if (entry->bytes != nullptr) {
            out[count++] = {entry->bytes.get() + entry->sent, static_cast<std::size_t>(entry->total - entry->sent)};
            continue;
        }
        // Two sets may read the same stream, which shows one place at a time.
        if (entry->set.InPlace() && std::exchange(inPlace, true))
            break;
        const std::size_t added = entry->set.Gather(out + count, most - count);
        VDicomUInt64 size = entry->sent;
        for (std::size_t i = 0; i < added; ++i)
            size += out[count + i].size;
        count += added;
        if (size != entry->total)
            break;
    }
    return count;
}

SendQueue::Progress SendQueue::Sent(std::size_t bytes) {
    Progress progress;
    if (m_head == nullptr)
        return progress;
    OutgoingEntry& entry = *m_head;
    if (entry.bytes != nullptr) {
        progress.counted = static_cast<std::size_t>(std::min<VDicomUInt64>(bytes, entry.total - entry.sent));
        progress.complete = entry.sent + progress.counted == entry.total;
        progress.type = entry.bytes[0];
    } else {
        progress.counted = entry.set.Sent(bytes, progress.complete);
        progress.type = pdu::kData;
    }
    entry.sent += progress.counted;
    m_partial += progress.counted;
    if (progress.complete)
        m_queued -= std::exchange(m_partial, 0);
    if (entry.sent == entry.total) {
        m_head = entry.next;
        if (m_head == nullptr)
            m_tail = nullptr;
        Keep(&entry);
    }
    return progress;
}

} // namespace vdicom
