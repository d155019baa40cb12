#include "Keys.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace vdicom {

namespace {

VDicomULong ReferenceOf(const DICOMELEMENT* item, VDicomULong tag, const ElementTree& tree) {
    const DICOMELEMENT* e = tree.FindChild(item, tag);
    return e == nullptr ? 0 : e->nKey;
}

} // namespace

const KeyIndex::Record* KeyIndex::Find(VDicomULong key) const {
    const auto found = m_records.find(key);
    return found == m_records.end() ? nullptr : &found->second;
}

DICOMELEMENT* KeyIndex::ItemOf(VDicomULong key) const {
    const Record* record = Find(key);
    return record == nullptr ? nullptr : record->item;
}

VDicomULong KeyIndex::Available() {
    while (m_records.count(m_free) != 0)
        ++m_free;
    return m_free;
}

void KeyIndex::Clear() {
    m_records.clear();
    m_first = 0;
    m_last = 0;
    m_free = 1;
}

void KeyIndex::Add(VDicomULong key, DICOMELEMENT* item) {
    Record record;
    record.item = item;
    m_records[key] = record;
}

void KeyIndex::LinkRecord(VDicomULong key, VDicomULong parent, VDicomULong previous) {
    Record& record = m_records[key];
    Record* above = parent == 0 ? nullptr : &m_records[parent];
    VDicomULong& first = above == nullptr ? m_first : above->firstChild;
    VDicomULong& last = above == nullptr ? m_last : above->lastChild;
    if (previous == 0)
        previous = last;
    const bool atEnd = previous == last;
    record.parent = parent;
    record.previous = previous;
    record.next = 0;
    if (previous == 0) {
        first = key;
    } else {
        Record& before = m_records[previous];
        record.next = before.next;
        before.next = key;
    }
    if (record.next != 0)
        m_records[record.next].previous = key;
    else if (atEnd)
        last = key;
}

void KeyIndex::Remove(VDicomULong key) {
    const auto found = m_records.find(key);
    if (found == m_records.end())
        return;
    const Record record = found->second;
    m_records.erase(found);
    m_free = std::min(m_free, key);
    Record* above = record.parent == 0 ? nullptr : &m_records[record.parent];
    if (record.previous != 0)
        m_records[record.previous].next = record.next;
    else if (above != nullptr)
        above->firstChild = record.next;
    else if (m_first == key)
        m_first = record.next;
    if (record.next != 0)
        m_records[record.next].previous = record.previous;
    else if (above != nullptr)
        above->lastChild = record.previous;
    else if (m_last == key)
        m_last = record.previous;
    for (VDicomULong child = record.firstChild; child != 0; child = m_records[child].next)
        m_records[child].parent = 0;
}

// Links the chain that begins with `first`, and all that its records refer to, without recursion.
void KeyIndex::LinkChain(VDicomULong first, bool isRoot, const ElementTree& tree) {
    struct Chain {
        VDicomULong first;
        VDicomULong parent;
    };
    std::vector<Chain> chains{{first, 0}};
    while (!chains.empty()) {
        const Chain chain = chains.back();
        chains.pop_back();
        VDicomULong previous = 0;
        for (VDicomULong key = chain.first; key != 0;) {
            const auto found = m_records.find(key);
            // A record is linked once; `next` of itself marks one that has not been.
            if (found == m_records.end() || found->second.next != key)
                break;
            Record& record = found->second;
            record.parent = chain.parent;
            record.previous = previous;
            record.next = 0;
            if (previous != 0)
                m_records[previous].next = key;
            else if (chain.parent != 0)
                m_records[chain.parent].firstChild = key;
            if (chain.parent != 0)
                m_records[chain.parent].lastChild = key;
            else if (isRoot)
                m_last = key;
            const VDicomULong lower = ReferenceOf(record.item, kLowerRecord, tree);
            if (lower != 0)
                chains.push_back({lower, key});
            previous = key;
            key = ReferenceOf(record.item, kNextRecord, tree);
        }
    }
}

void KeyIndex::LinkAll(VDicomULong first, const ElementTree& tree) {
    m_first = 0;
    m_last = 0;
    std::vector<VDicomULong> order;
    std::unordered_set<VDicomULong> referenced;
    order.reserve(m_records.size());
    for (auto& [key, record] : m_records) {
        DICOMELEMENT* item = record.item;
        record = Record();
        record.item = item;
        record.next = key;
        order.push_back(key);
        referenced.insert(ReferenceOf(item, kNextRecord, tree));
        referenced.insert(ReferenceOf(item, kLowerRecord, tree));
    }
    if (Find(first) != nullptr) {
        m_first = first;
        LinkChain(first, true, tree);
    }
    // What the root does not reach: first the records that begin a chain, then whatever is left.
    std::sort(order.begin(), order.end());
    for (const bool heads : {true, false}) {
        for (const VDicomULong key : order) {
            if (m_records[key].next == key && (!heads || referenced.count(key) == 0))
                LinkChain(key, false, tree);
        }
    }
}

} // namespace vdicom
