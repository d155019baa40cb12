/// @file Keys.h
/// The directory records of a data set by their key numbers, linked as the directory links them (PS3.3 F).
#pragma once

#include "ElementTree.h"

#include <unordered_map>

namespace vdicom {

constexpr VDicomULong kFirstRecord = 0x00041200, kLastRecord = 0x00041202, kNextRecord = 0x00041400,
                      kLowerRecord = 0x00041420, kReferencedRecord = 0x00041504, kRecordType = 0x00041430;

/// Whether an element holds the offset of a directory record.
inline bool IsOffsetTag(VDicomULong tag) {
    return tag == kFirstRecord || tag == kLastRecord || tag == kNextRecord || tag == kLowerRecord ||
           tag == kReferencedRecord;
}

/// Places of the records in the directory, beside the tree; 0 is no record, as a parent the root.
///
/// Chains that a damaged directory leaves out of the root's reach are kept as levels of their own. A reference that
/// would lead to a record a second time links nothing here, so that no walk can go in circles; its element keeps it.
class KeyIndex {
public:
    struct Record {
        DICOMELEMENT* item = nullptr;
        VDicomULong parent = 0;
        VDicomULong previous = 0;
        VDicomULong next = 0;
        VDicomULong firstChild = 0;
        VDicomULong lastChild = 0;
    };

    bool IsEmpty() const { return m_records.empty(); }
    const Record* Find(VDicomULong key) const;
    DICOMELEMENT* ItemOf(VDicomULong key) const;
    VDicomULong First() const { return m_first; }
    VDicomULong Last() const { return m_last; }

    /// The smallest number that is free.
    VDicomULong Available();
    void Clear();

    /// Adds a record that is linked to nothing.
    void Add(VDicomULong key, DICOMELEMENT* item);
    /// Links a record behind `previous`, or as the last below `parent` (0: of the root) when `previous` is 0.
    void LinkRecord(VDicomULong key, VDicomULong parent, VDicomULong previous);
    /// Takes a record out; those below it become levels of their own.
    void Remove(VDicomULong key);
    /// Links all records anew by what their elements refer to; `first` is the first record of the root.
    void LinkAll(VDicomULong first, const ElementTree& tree);

private:
    void LinkChain(VDicomULong first, bool isRoot, const ElementTree& tree);

    std::unordered_map<VDicomULong, Record> m_records;
    VDicomULong m_first = 0;
    VDicomULong m_last = 0;
    VDicomULong m_free = 1; ///< no number below it is free
};

} // namespace vdicom
