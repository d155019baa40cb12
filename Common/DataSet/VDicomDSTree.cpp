// VDicomDS: life of a data set, walking its tree, inserting and deleting.
#include "DataSetState.h"
#include "VDicomTag.h"

#include <cstring>
#include <iterator>
#include <new>

using namespace vdicom;

namespace {

// In ascending order: what the library computes itself when it writes images, file meta information or directories.
constexpr VDicomULong kVolatile[] = {0x00020010, 0x00041200, 0x00041202, 0x00041400, 0x00041420, 0x00280002,
                                     0x00280004, 0x00280006, 0x00280008, 0x00280010, 0x00280011, 0x00280030,
                                     0x00280034, 0x00280100, 0x00280101, 0x00280102, 0x00280103, 0x00280106,
                                     0x00280107, 0x00281101, 0x00281102, 0x00281103, 0x00281199, 0x00281201,
                                     0x00281202, 0x00281203, 0x00540070, 0x00540080, 0x00540081};

bool IsVolatile(const DICOMELEMENT* e) {
    if (e->nTag == kItem) {
        const DICOMELEMENT* parent = ParentOf(e);
        return parent != nullptr && parent->nTag == kPixelData;
    }
    return std::binary_search(std::begin(kVolatile), std::end(kVolatile), e->nTag);
}

} // namespace

VDicomDS::VDicomDS(const char* tempPath) : m_pState(new (m_state) DataSetState(tempPath)) {
    static_assert(sizeof(DataSetState) <= sizeof(m_state) && alignof(DataSetState) <= 8);
}

VDicomDS::~VDicomDS() { m_pState->~DataSetState(); }

void VDicomDS::ResetDS() { ResetDS(1); }

void VDicomDS::ResetDS(unsigned int closeSource) {
    DataSetState& state = *m_pState;
    if (state.frozen)
        return;
    state.tree.EraseAll();
    state.EmptyScratch();
    state.flags = DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE;
    state.identification[0] = '\0';
    state.transferSyntax.clear();
    state.keys.Clear();
    state.keysFromOffsets = false;
    state.characterSets.Forget();
    if (closeSource != 0) {
        // A stream of the caller's is only let go of; it is his to close.
        state.loadStream.Close();
        state.inflated.Close();
        state.source = &state.loadStream;
    }
    state.badCount = 0;
    state.error = 0;
    state.faults.clear();
}

void VDicomDS::SetDebugDS(VDicomElementCallback callback, void* userData) {
    m_pState->callback = callback;
    m_pState->callbackData = userData;
}

const char* VDicomDS::GetIdentification() const { return m_pState->identification; }

unsigned int VDicomDS::SetIdentification(const char* text) {
    if (text == nullptr || std::strlen(text) >= sizeof m_pState->identification)
        return DICOM_ERROR_PARAMETER;
    std::memcpy(m_pState->identification, text, std::strlen(text) + 1);
    return DICOM_OK;
}

void VDicomDS::SetKeepPixelDataIntactFlag(VDicomULong flag) { m_pState->keepPixelData = flag; }

VDicomULong VDicomDS::GetKeepPixelDataIntactFlag() const { return m_pState->keepPixelData; }

void VDicomDS::SetDepthLimit(VDicomULong sequences) {
    constexpr VDicomULong largest = 1000;
    if (sequences >= 1 && sequences <= largest)
        m_pState->depthLimit = sequences;
}

DICOMELEMENT* VDicomDS::GetRootElement(DICOMELEMENT* e) {
    return e != nullptr && m_pState->Check(e) ? ElementOf(m_pState->tree.GetRoot(&e->Link)) : nullptr;
}

DICOMELEMENT* VDicomDS::GetParentElement(DICOMELEMENT* e) {
    return e != nullptr && m_pState->Check(e) ? ParentOf(e) : nullptr;
}

DICOMELEMENT* VDicomDS::GetChildElement(DICOMELEMENT* e, unsigned int includeVolatile) {
    if (e == nullptr || !m_pState->Check(e))
        return nullptr;
    DICOMELEMENT* child = FirstChildOf(e);
    while (child != nullptr && includeVolatile == 0 && IsVolatile(child))
        child = NextOf(child);
    return child;
}

VDicomULong VDicomDS::GetLevelElement(DICOMELEMENT* e) {
    return e != nullptr && m_pState->Check(e) ? m_pState->tree.GetLevel(&e->Link) : 0;
}

DICOMELEMENT* VDicomDS::GetFirstElement(DICOMELEMENT* parent, unsigned int siblingOnly, unsigned int includeVolatile) {
    if (!m_pState->Check(parent))
        return nullptr;
    const ElementTree& tree = m_pState->tree;
    DICOMELEMENT* e = siblingOnly != 0 ? tree.FirstChild(parent) : tree.First();
    while (e != nullptr && includeVolatile == 0 && IsVolatile(e))
        e = ElementOf(tree.GetNext(&e->Link, siblingOnly));
    return e;
}

DICOMELEMENT* VDicomDS::GetLastElement(DICOMELEMENT* parent, unsigned int siblingOnly, unsigned int includeVolatile) {
    if (!m_pState->Check(parent))
        return nullptr;
    const ElementTree& tree = m_pState->tree;
    DICOMELEMENT* e = siblingOnly != 0 ? tree.LastChild(parent) : ElementOf(tree.GetLast(nullptr, 0));
    while (e != nullptr && includeVolatile == 0 && IsVolatile(e))
        e = ElementOf(tree.GetPrev(&e->Link, siblingOnly));
    return e;
}

DICOMELEMENT* VDicomDS::GetNextElement(DICOMELEMENT* e, unsigned int siblingOnly, unsigned int includeVolatile) {
    if (e == nullptr || !m_pState->Check(e))
        return nullptr;
    do {
        e = ElementOf(m_pState->tree.GetNext(&e->Link, siblingOnly));
    } while (e != nullptr && includeVolatile == 0 && IsVolatile(e));
    return e;
}

DICOMELEMENT* VDicomDS::GetPrevElement(DICOMELEMENT* e, unsigned int siblingOnly, unsigned int includeVolatile) {
    if (e == nullptr || !m_pState->Check(e))
        return nullptr;
    do {
        e = ElementOf(m_pState->tree.GetPrev(&e->Link, siblingOnly));
    } while (e != nullptr && includeVolatile == 0 && IsVolatile(e));
    return e;
}

DICOMELEMENT* VDicomDS::FindFirstElement(DICOMELEMENT* parent, VDicomULong tag, unsigned int siblingOnly) {
    if (!m_pState->Check(parent))
        return nullptr;
    const ElementTree& tree = m_pState->tree;
    if (siblingOnly != 0)
        return tree.FindChild(parent, tag);
    DICOMELEMENT* e = tree.First();
    while (e != nullptr && e->nTag != tag)
        e = ElementOf(tree.GetNext(&e->Link, 0));
    return e;
}

DICOMELEMENT* VDicomDS::FindLastElement(DICOMELEMENT* parent, VDicomULong tag, unsigned int siblingOnly) {
    if (!m_pState->Check(parent))
        return nullptr;
    const ElementTree& tree = m_pState->tree;
    if (siblingOnly != 0)
        return tree.FindLastChild(parent, tag);
    DICOMELEMENT* e = ElementOf(tree.GetLast(nullptr, 0));
    while (e != nullptr && e->nTag != tag)
        e = ElementOf(tree.GetPrev(&e->Link, 0));
    return e;
}

DICOMELEMENT* VDicomDS::FindNextElement(DICOMELEMENT* e, unsigned int siblingOnly) {
    if (e == nullptr || !m_pState->Check(e))
        return nullptr;
    const VDicomULong tag = e->nTag;
    do {
        e = ElementOf(m_pState->tree.GetNext(&e->Link, siblingOnly));
    } while (e != nullptr && e->nTag != tag);
    return e;
}

DICOMELEMENT* VDicomDS::FindPrevElement(DICOMELEMENT* e, unsigned int siblingOnly) {
    if (e == nullptr || !m_pState->Check(e))
        return nullptr;
    const VDicomULong tag = e->nTag;
    do {
        e = ElementOf(m_pState->tree.GetPrev(&e->Link, siblingOnly));
    } while (e != nullptr && e->nTag != tag);
    return e;
}

DICOMELEMENT* VDicomDS::GetIndexElement(DICOMELEMENT* parent, VDicomULong index) {
    return m_pState->Check(parent) ? m_pState->tree.ChildAt(parent, index) : nullptr;
}

VDicomULong VDicomDS::GetCountElement(DICOMELEMENT* parent) {
    return m_pState->Check(parent) ? m_pState->tree.CountChildren(parent) : 0;
}

unsigned int VDicomDS::ExistsElement(const DICOMELEMENT* e) {
    return e == nullptr ? 0 : m_pState->tree.Exists(&e->Link);
}

unsigned int VDicomDS::IsVolatileElement(DICOMELEMENT* e) {
    if (!m_pState->Check(e))
        return 1;
    return e != nullptr && IsVolatile(e) ? 1 : 0;
}

DICOMELEMENT* VDicomDS::InsertElement(DICOMELEMENT* neighbour, unsigned int child, VDicomULong tag, unsigned short vr,
                                      unsigned int sequence, VDicomULong index) {
    DataSetState& state = *m_pState;
    if (state.frozen || !state.Check(neighbour))
        return nullptr;
    if (vr == 0 || vr == vr::UN) {
        if (const DICOMTAG* entry = VDicomTag::Find(tag))
            vr = entry->nVR;
    }
    if (IsGroupLength(tag) || IsDelimiter(tag) || tag == kTrailingPadding)
        return nullptr;
    DICOMELEMENT* parent = nullptr;
    if (neighbour != nullptr)
        parent = child != 0 ? neighbour : ParentOf(neighbour);
    // A level that is still empty is not tested: a first child may hang under any element.
    if (parent != nullptr && FirstChildOf(parent) != nullptr && !IsUndefinedLength(parent))
        return nullptr;
    if (tag != kItem && state.tree.FindChild(parent, tag) != nullptr)
        return nullptr;
    // Two levels of the tree, sequence and item, are one level of nesting.
    if (parent != nullptr && (state.tree.GetLevel(&parent->Link) + 2) / 2 > state.depthLimit)
        return nullptr;
    const bool undefined = vr == vr::SQ || sequence != 0;
    try {
        DICOMELEMENT* e = state.tree.Create(tag, vr, undefined ? DICOM_UNDEFINED : 0, state.ScratchSlot());
        if (tag != kItem) {
            state.tree.LinkOrdered(e, parent);
        } else if (!state.tree.LinkItem(e, parent, index)) {
            state.tree.Discard(e);
            return nullptr;
        }
        return e;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

DICOMELEMENT* VDicomDS::DeleteElement(DICOMELEMENT* e) {
    DataSetState& state = *m_pState;
    if (state.frozen || e == nullptr || !state.Check(e))
        return nullptr;
    DICOMELEMENT* result = NextOf(e);
    if (result == nullptr)
        result = ElementOf(e->Link.pPrev);
    if (result == nullptr)
        result = ParentOf(e);
    const KeyIndex::Record* record = e->nKey == 0 ? nullptr : state.keys.Find(e->nKey);
    const bool isRecord = record != nullptr && record->item == e;
    const VDicomULong previous = isRecord ? record->previous : 0;
    const VDicomULong above = isRecord ? record->parent : 0;
    state.ElementsGone(e);
    state.tree.Erase(e);
    // The records that referred to a deleted one refer to the one behind it.
    if (isRecord) {
        StoreReferences(previous);
        StoreReferences(above);
    }
    return result;
}
