/// @file TableIndex.h
/// The index beside the list of a process-wide table: finds the first entry in list order that has a key.
///
/// It is changed by insertion and deletion only, never while searching, so many threads may search at the same time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vdicom {

/// What an entry carries for the index.
struct IndexLink {
    std::uint64_t order;        ///< grows along the list; set by the list before Add
    IndexLink* previousSameKey; ///< of the first entry: the last one. Null: not in the index
    IndexLink* nextSameKey;     ///< null: the last entry with this key
    bool IsIndexed() const { return previousSameKey != nullptr; }
};

/// Entries by a 64-bit key. Entries of one key stand in the order in which they were added.
class TableIndex {
public:
    /// Makes room for `keys` different keys, so that adding them takes no memory. False when memory is exhausted.
    bool Reserve(std::size_t keys);
    /// Adds an entry behind those of the same key. False when memory is exhausted.
    bool Add(std::uint64_t key, IndexLink* link);
    /// Takes an entry out; `key` is the one it was added with.
    void Remove(std::uint64_t key, IndexLink* link);
    /// The first entry with this key, or null; the others follow in nextSameKey.
    IndexLink* Find(std::uint64_t key) const;
    std::size_t KeyCount() const { return m_keys; }
    /// Forgets every entry and gives the memory back; the entries' links are not touched.
    void Clear();

private:
    struct Slot {
        std::uint64_t key;
        IndexLink* first; ///< null: an empty slot
    };
    std::size_t Home(std::uint64_t key) const;
    std::size_t SlotOf(std::uint64_t key) const;
    bool Resize(std::size_t slots);
    void RemoveSlot(std::size_t slot);

    std::vector<Slot> m_slots; ///< open addressing; a power of two, never full
    std::size_t m_keys = 0;
    unsigned int m_shift = 0; ///< 64 less the number of bits of a slot number
};

/// Entries by code and mask: a value is searched under every mask in use. Constant in the number of entries, linear in
/// the number of different masks (the data dictionary has four).
class MaskedIndex {
public:
    bool Reserve(std::size_t entries) { return m_index.Reserve(entries); }
    /// An entry whose code has bits outside its mask matches nothing and is not kept. False when memory is exhausted.
    bool Add(std::uint32_t code, std::uint32_t mask, IndexLink* link);
    void Remove(std::uint32_t code, std::uint32_t mask, IndexLink* link);
    /// The entry of the smallest order for which (value AND mask) equals the code, or null.
    IndexLink* Find(std::uint32_t value) const;

private:
    struct Mask {
        std::uint32_t mask;
        std::uint64_t order; ///< no entry with this mask has a smaller order
        std::size_t entries;
    };
    /// One entry fewer has this mask.
    void Leave(std::uint32_t mask);

    std::vector<Mask> m_masks; ///< in ascending `order`
    TableIndex m_index;
};

} // namespace vdicom
