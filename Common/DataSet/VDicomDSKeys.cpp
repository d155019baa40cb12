// VDicomDS: directory records by key number.
#include "DataSetState.h"
#include "Guarded.h"

#include <cctype>
#include <cstring>
#include <new>
#include <unordered_map>

using namespace vdicom;

namespace {

constexpr VDicomULong kFileSetConsistency = 0x00041212, kInUse = 0x00041410;
constexpr std::size_t kLongestType = 16;

bool SameType(const char* a, const char* b) {
    for (; *a != '\0' && *b != '\0'; ++a, ++b) {
        if (std::toupper(static_cast<unsigned char>(*a)) != std::toupper(static_cast<unsigned char>(*b)))
            return false;
    }
    return *a == *b;
}

// The record type as stored, trimmed of blanks; longer ones are cut, since no type is.
struct RecordType {
    char text[64];
    RecordType(const DataSetState& state, const DICOMELEMENT* item) : text{} {
        const DICOMELEMENT* e = state.tree.FindChild(item, kRecordType);
        if (e == nullptr || IsUndefinedLength(e) || e->nCountPiece != 1)
            return;
        const std::size_t size = std::min<std::size_t>(*e->pPieceSize, sizeof text - 1);
        if (size == 0 || !StreamAccess::ReadAt(**e->pPieceStream, *e->pPieceOffset, text, size))
            text[0] = '\0';
        VDicomDS::DelSpaces(text, static_cast<VDicomULong>(size));
    }
};

// The record that holds `e`; null when it stands outside the directory.
DICOMELEMENT* RecordOf(const DataSetState& state, DICOMELEMENT* e) {
    if (e == nullptr || ElementOf(state.tree.GetRoot(&e->Link))->nTag != kDirectoryRecords)
        return nullptr;
    while (e != nullptr && (e->nTag != kItem || e->nKey == 0))
        e = ParentOf(e);
    return e;
}

const KeyIndex::Record* LinksOf(const DataSetState& state, DICOMELEMENT* e) {
    const DICOMELEMENT* item = RecordOf(state, e);
    return item == nullptr ? nullptr : state.keys.Find(item->nKey);
}

// An offset element's reference; the bytes are made when the data set is saved.
bool SetReference(VDicomDS& dataSet, DICOMELEMENT* parent, VDicomULong tag, VDicomULong key) {
    DICOMELEMENT* e = dataSet.FindFirstElement(parent, tag, 1);
    if (e == nullptr)
        e = dataSet.InsertElement(parent, 1, tag, vr::UL, 0, 0);
    const VDicomLong zero = 0;
    if (e == nullptr || (e->nLength != sizeof zero && dataSet.SetLongValue(e, &zero, 1) == 0))
        return false;
    e->nKey = key;
    return true;
}

} // namespace

// Writes what the index says of a record's neighbours into the elements that refer to them.
bool VDicomDS::StoreReferences(VDicomULong key) {
    DataSetState& state = *m_pState;
    const auto store = [&](VDicomULong owner) {
        const KeyIndex::Record* record = state.keys.Find(owner);
        return record == nullptr || (SetReference(*this, record->item, kNextRecord, record->next) &&
                                     SetReference(*this, record->item, kLowerRecord, record->firstChild));
    };
    bool done = SetReference(*this, nullptr, kFirstRecord, state.keys.First()) &&
                SetReference(*this, nullptr, kLastRecord, state.keys.Last());
    if (const KeyIndex::Record* record = state.keys.Find(key)) {
        const VDicomULong previous = record->previous;
        const VDicomULong parent = record->parent;
        done = done && store(key) && (previous == 0 || store(previous)) && (parent == 0 || store(parent));
    }
    return done;
}

DICOMELEMENT* VDicomDS::InsertKey(DICOMELEMENT* neighbour, unsigned int child, const char* type) {
    DataSetState& state = *m_pState;
    if (type == nullptr || *type == '\0' || std::strlen(type) > kLongestType || !state.Check(neighbour))
        return nullptr;
    const DICOMELEMENT* near = RecordOf(state, neighbour);
    if (neighbour != nullptr && near == nullptr)
        return nullptr;
    DICOMELEMENT* records = state.tree.FindChild(nullptr, kDirectoryRecords);
    if (records == nullptr)
        records = InsertElement(nullptr, 0, kDirectoryRecords, vr::SQ, 1, 0);
    if (records != nullptr && state.tree.FindChild(nullptr, kFileSetConsistency) == nullptr) {
        const short consistent = 0;
        if (FindSetValue(nullptr, kFileSetConsistency, vr::US, &consistent, 1) == 0)
            return nullptr;
    }
    DICOMELEMENT* item = records == nullptr ? nullptr : InsertElement(records, 1, kItem, 0, 1, DICOM_UNDEFINED);
    if (item == nullptr)
        return nullptr;
    const short inUse = -1;
    const VDicomULong key = state.keys.Available();
    bool done = SetReference(*this, item, kNextRecord, 0) && FindSetValue(item, kInUse, vr::US, &inUse, 1) != 0 &&
                SetReference(*this, item, kLowerRecord, 0) && FindSetValue(item, kRecordType, vr::CS, type, 1) != 0;
    try {
        if (done) {
            item->nKey = key;
            state.keys.Add(key, item);
            VDicomULong parent = 0;
            VDicomULong previous = 0;
            if (near != nullptr && child != 0)
                parent = near->nKey;
            else if (near != nullptr) {
                previous = near->nKey;
                parent = state.keys.Find(previous)->parent;
            }
            state.keys.LinkRecord(key, parent, previous);
            done = StoreReferences(key);
        }
    } catch (const std::bad_alloc&) {
        done = false;
    }
    if (!done) {
        DeleteElement(item);
        return nullptr;
    }
    return item;
}

DICOMELEMENT* VDicomDS::DeleteKey(DICOMELEMENT* e) {
    DataSetState& state = *m_pState;
    if (state.frozen || !state.Check(e))
        return nullptr;
    const KeyIndex::Record* links = LinksOf(state, e);
    if (links == nullptr)
        return nullptr;
    const VDicomULong top = links->item->nKey;
    const VDicomULong previous = links->previous;
    const VDicomULong next = links->next;
    const VDicomULong parent = links->parent;
    // Lower records first: down to the first that has none, then on from there.
    for (VDicomULong at = top;;) {
        const KeyIndex::Record* record = state.keys.Find(at);
        if (record->firstChild != 0) {
            at = record->firstChild;
            continue;
        }
        const VDicomULong after = record->next != 0 && at != top ? record->next : record->parent;
        const bool last = at == top;
        DeleteElement(record->item);
        if (last)
            break;
        at = after;
    }
    const VDicomULong result = next != 0 ? next : (previous != 0 ? previous : parent);
    return state.keys.ItemOf(result);
}

DICOMELEMENT* VDicomDS::GetItemKey(DICOMELEMENT* e) { return m_pState->Check(e) ? RecordOf(*m_pState, e) : nullptr; }

DICOMELEMENT* VDicomDS::GetNumberKey(VDicomULong key) { return m_pState->keys.ItemOf(key); }

DICOMELEMENT* VDicomDS::GetParentKey(DICOMELEMENT* e) {
    const KeyIndex::Record* links = m_pState->Check(e) ? LinksOf(*m_pState, e) : nullptr;
    return links == nullptr ? nullptr : m_pState->keys.ItemOf(links->parent);
}

DICOMELEMENT* VDicomDS::GetRootKey(DICOMELEMENT* e) {
    const KeyIndex::Record* links = m_pState->Check(e) ? LinksOf(*m_pState, e) : nullptr;
    while (links != nullptr && links->parent != 0)
        links = m_pState->keys.Find(links->parent);
    return links == nullptr ? nullptr : links->item;
}

DICOMELEMENT* VDicomDS::GetChildKey(DICOMELEMENT* e) {
    if (e == nullptr)
        return m_pState->keys.ItemOf(m_pState->keys.First());
    const KeyIndex::Record* links = m_pState->Check(e) ? LinksOf(*m_pState, e) : nullptr;
    return links == nullptr ? nullptr : m_pState->keys.ItemOf(links->firstChild);
}

DICOMELEMENT* VDicomDS::GetFirstKey(DICOMELEMENT* e) {
    if (e == nullptr)
        return m_pState->keys.ItemOf(m_pState->keys.First());
    const KeyIndex::Record* links = m_pState->Check(e) ? LinksOf(*m_pState, e) : nullptr;
    if (links == nullptr)
        return nullptr;
    if (links->parent != 0)
        return m_pState->keys.ItemOf(m_pState->keys.Find(links->parent)->firstChild);
    // A chain out of the root's reach has no other end to begin from.
    while (links->previous != 0)
        links = m_pState->keys.Find(links->previous);
    return links->item;
}

DICOMELEMENT* VDicomDS::GetLastKey(DICOMELEMENT* e) {
    if (e == nullptr)
        return m_pState->keys.ItemOf(m_pState->keys.Last());
    const KeyIndex::Record* links = m_pState->Check(e) ? LinksOf(*m_pState, e) : nullptr;
    if (links == nullptr)
        return nullptr;
    if (links->parent != 0)
        return m_pState->keys.ItemOf(m_pState->keys.Find(links->parent)->lastChild);
    while (links->next != 0)
        links = m_pState->keys.Find(links->next);
    return links->item;
}

DICOMELEMENT* VDicomDS::GetPrevKey(DICOMELEMENT* e) {
    const KeyIndex::Record* links = m_pState->Check(e) ? LinksOf(*m_pState, e) : nullptr;
    return links == nullptr ? nullptr : m_pState->keys.ItemOf(links->previous);
}

DICOMELEMENT* VDicomDS::GetNextKey(DICOMELEMENT* e) {
    const KeyIndex::Record* links = m_pState->Check(e) ? LinksOf(*m_pState, e) : nullptr;
    return links == nullptr ? nullptr : m_pState->keys.ItemOf(links->next);
}

DICOMELEMENT* VDicomDS::FindFirstKey(DICOMELEMENT* e, const char* type, unsigned int child) {
    DICOMELEMENT* key = child != 0 ? GetChildKey(e) : GetFirstKey(e);
    if (key == nullptr || type == nullptr)
        return nullptr;
    return SameType(RecordType(*m_pState, key).text, type) ? key : FindNextKey(key, type);
}

DICOMELEMENT* VDicomDS::FindLastKey(DICOMELEMENT* e, const char* type, unsigned int child) {
    DICOMELEMENT* below = child != 0 ? GetChildKey(e) : nullptr;
    if (type == nullptr || (child != 0 && below == nullptr))
        return nullptr;
    DICOMELEMENT* key = GetLastKey(child != 0 ? below : e);
    if (key == nullptr)
        return nullptr;
    return SameType(RecordType(*m_pState, key).text, type) ? key : FindPrevKey(key, type);
}

DICOMELEMENT* VDicomDS::FindNextKey(DICOMELEMENT* e, const char* type) {
    if (type == nullptr)
        return nullptr;
    DICOMELEMENT* key = GetNextKey(e);
    while (key != nullptr && !SameType(RecordType(*m_pState, key).text, type))
        key = GetNextKey(key);
    return key;
}

DICOMELEMENT* VDicomDS::FindPrevKey(DICOMELEMENT* e, const char* type) {
    if (type == nullptr)
        return nullptr;
    DICOMELEMENT* key = GetPrevKey(e);
    while (key != nullptr && !SameType(RecordType(*m_pState, key).text, type))
        key = GetPrevKey(key);
    return key;
}

const char* VDicomDS::GetValueKey(DICOMELEMENT* e) {
    DICOMELEMENT* item = GetItemKey(e);
    if (item == nullptr)
        return nullptr;
    return Guarded<const char*>(nullptr, [&] {
        m_pState->text = RecordType(*m_pState, item).text;
        return m_pState->text.c_str();
    });
}

VDicomULong VDicomDS::GetAvailableKey() { return m_pState->keys.Available(); }

DICOMELEMENT* VDicomDS::FindAttachKey(DICOMELEMENT* from, VDicomULong tag) {
    DataSetState& state = *m_pState;
    if (!state.Check(from))
        return nullptr;
    DICOMELEMENT* e = from != nullptr ? from : state.tree.FindChild(nullptr, kDirectoryRecords);
    if (e == nullptr || ElementOf(state.tree.GetRoot(&e->Link))->nTag != kDirectoryRecords)
        return nullptr;
    do {
        e = ElementOf(state.tree.GetNext(&e->Link, 0));
        if (e != nullptr && e->Link.pParent == nullptr)
            return nullptr;
    } while (e != nullptr && e->nTag != tag);
    return e;
}

void VDicomDS::RefreshKeys() {
    DataSetState& state = *m_pState;
    Guarded(0, [&] {
        state.BuildKeys();
        return 0;
    });
}

namespace {

void LinkRecords(DataSetState& state, const DICOMELEMENT* records) {
    const ElementTree& tree = state.tree;
    const bool fromOffsets = state.keysFromOffsets;
    std::unordered_map<VDicomUInt64, VDicomULong> byOffset;
    // Numbers that records have already are kept; the others get free ones behind them.
    for (DICOMELEMENT* item = FirstChildOf(records); item != nullptr; item = NextOf(item)) {
        if (item->nTag == kItem && item->nKey != 0 && !fromOffsets && state.keys.Find(item->nKey) == nullptr)
            state.keys.Add(item->nKey, item);
    }
    for (DICOMELEMENT* item = FirstChildOf(records); item != nullptr; item = NextOf(item)) {
        if (item->nTag != kItem || state.keys.ItemOf(item->nKey) == item)
            continue;
        item->nKey = state.keys.Available();
        state.keys.Add(item->nKey, item);
        if (fromOffsets)
            byOffset[NodeOf(item)->streamOffset] = item->nKey;
    }
    const auto resolve = [&](DICOMELEMENT* parent, VDicomULong tag) {
        DICOMELEMENT* e = tree.FindChild(parent, tag);
        if (e == nullptr)
            return;
        unsigned char bytes[4];
        if (fromOffsets) {
            e->nKey = 0;
            if (e->nLength == sizeof bytes && *e->pPieceSize == sizeof bytes &&
                StreamAccess::ReadAt(**e->pPieceStream, *e->pPieceOffset, bytes, sizeof bytes)) {
                const auto found = byOffset.find(Get32(bytes, state.IsLittleEndian(e)));
                e->nKey = found == byOffset.end() ? 0 : found->second;
            }
        } else if (state.keys.Find(e->nKey) == nullptr) {
            e->nKey = 0;
        }
    };
    resolve(nullptr, kFirstRecord);
    resolve(nullptr, kLastRecord);
    for (DICOMELEMENT* item = FirstChildOf(records); item != nullptr; item = NextOf(item)) {
        for (const VDicomULong tag : {kNextRecord, kLowerRecord, kReferencedRecord})
            resolve(item, tag);
    }
    const DICOMELEMENT* first = tree.FindChild(nullptr, kFirstRecord);
    state.keys.LinkAll(first == nullptr ? 0 : first->nKey, tree);
}

} // namespace

void DataSetState::BuildKeys() {
    keys.Clear();
    const DICOMELEMENT* records = tree.FindChild(nullptr, kDirectoryRecords);
    try {
        if (records != nullptr)
            LinkRecords(*this, records);
    } catch (const std::bad_alloc&) {
        keys.Clear();
        throw;
    }
    keysFromOffsets = false;
}
