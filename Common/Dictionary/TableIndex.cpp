#include "TableIndex.h"

#include <algorithm>
#include <bit>
#include <new>

namespace vdicom {

namespace {

std::uint64_t MaskedKey(std::uint32_t code, std::uint32_t mask) { return std::uint64_t{mask} << 32 | code; }

} // namespace

std::size_t TableIndex::Home(std::uint64_t key) const {
    // The high bits of the product depend on all bits of the key.
    return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15U) >> m_shift);
}

/// The slot with this key, or the empty one where the search for it ends. There must be slots.
std::size_t TableIndex::SlotOf(std::uint64_t key) const {
    std::size_t slot = Home(key);
    while (m_slots[slot].first != nullptr && m_slots[slot].key != key)
        slot = (slot + 1) & (m_slots.size() - 1);
    return slot;
}

bool TableIndex::Resize(std::size_t slots) {
    std::vector<Slot> old;
    try {
        old.resize(slots);
    } catch (const std::bad_alloc&) {
        return false;
    }
    old.swap(m_slots);
    m_shift = 64U - static_cast<unsigned int>(std::countr_zero(slots));
    for (const Slot& slot : old) {
        if (slot.first != nullptr)
            m_slots[SlotOf(slot.key)] = slot;
    }
    return true;
}

bool TableIndex::Reserve(std::size_t keys) {
    // At most two thirds full.
    const std::size_t slots = std::bit_ceil(std::max<std::size_t>(keys + keys / 2 + 1, 16));
    return slots <= m_slots.size() || Resize(slots);
}

bool TableIndex::Add(std::uint64_t key, IndexLink* link) {
    if (!Reserve(m_keys + 1))
        return false;
    Slot& slot = m_slots[SlotOf(key)];
    link->nextSameKey = nullptr;
    if (slot.first == nullptr) {
        slot = {key, link};
        link->previousSameKey = link;
        ++m_keys;
        return true;
    }
    IndexLink* last = slot.first->previousSameKey;
    last->nextSameKey = link;
    link->previousSameKey = last;
    slot.first->previousSameKey = link;
    return true;
}

void TableIndex::Remove(std::uint64_t key, IndexLink* link) {
    const std::size_t slot = SlotOf(key);
    IndexLink*& first = m_slots[slot].first;
    IndexLink* const next = link->nextSameKey;
    if (first == link && next == nullptr) {
        RemoveSlot(slot);
    } else if (first == link) {
        next->previousSameKey = link->previousSameKey;
        first = next;
    } else {
        link->previousSameKey->nextSameKey = next;
        (next == nullptr ? first : next)->previousSameKey = link->previousSameKey;
    }
    link->previousSameKey = nullptr;
    link->nextSameKey = nullptr;
}

void TableIndex::Clear() {
    std::vector<Slot>().swap(m_slots);
    m_keys = 0;
}

void TableIndex::RemoveSlot(std::size_t slot) {
    // An emptied index gives its memory back: nothing else tells the end of a table's life.
    if (m_keys == 1) {
        Clear();
        return;
    }
    --m_keys;
    // Every slot behind the gap that its own search would not reach any more moves into the gap.
    const std::size_t last = m_slots.size() - 1;
    std::size_t gap = slot;
    for (std::size_t at = (gap + 1) & last; m_slots[at].first != nullptr; at = (at + 1) & last) {
        if (((at - Home(m_slots[at].key)) & last) >= ((at - gap) & last)) {
            m_slots[gap] = m_slots[at];
            gap = at;
        }
    }
    m_slots[gap].first = nullptr;
}

IndexLink* TableIndex::Find(std::uint64_t key) const { return m_keys == 0 ? nullptr : m_slots[SlotOf(key)].first; }

bool MaskedIndex::Add(std::uint32_t code, std::uint32_t mask, IndexLink* link) {
    if ((code & ~mask) != 0)
        return true;
    auto known = std::find_if(m_masks.begin(), m_masks.end(), [mask](const Mask& m) { return m.mask == mask; });
    if (known == m_masks.end()) {
        try {
            m_masks.push_back({mask, link->order, 0});
        } catch (const std::bad_alloc&) {
            return false;
        }
        known = m_masks.end() - 1;
    }
    ++known->entries;
    const bool added = m_index.Add(MaskedKey(code, mask), link);
    if (!added)
        Leave(mask);
    return added;
}

void MaskedIndex::Leave(std::uint32_t mask) {
    auto known = std::find_if(m_masks.begin(), m_masks.end(), [mask](const Mask& m) { return m.mask == mask; });
    if (known != m_masks.end() && --known->entries == 0)
        m_masks.erase(known);
    if (m_masks.empty())
        std::vector<Mask>().swap(m_masks);
}

void MaskedIndex::Remove(std::uint32_t code, std::uint32_t mask, IndexLink* link) {
    m_index.Remove(MaskedKey(code, mask), link);
    Leave(mask);
}

IndexLink* MaskedIndex::Find(std::uint32_t value) const {
    IndexLink* best = nullptr;
    for (const Mask& mask : m_masks) {
        if (best != nullptr && best->order < mask.order)
            break;
        IndexLink* link = m_index.Find(MaskedKey(value & mask.mask, mask.mask));
        if (link != nullptr && (best == nullptr || link->order < best->order))
            best = link;
    }
    return best;
}

} // namespace vdicom
