#include "VDicomVR.h"

#include "Library.h"

static_assert(sizeof(void*) != 4 || sizeof(DICOMVR) == 20 + 2 + 4 + 4 + 2 + 2, "declared size");

namespace vdicom {

DICOMVR* VRList::AddOwned(const VRRow& row, char* name) {
    DICOMVR* entry = name == nullptr ? nullptr : Append();
    if (entry == nullptr) {
        FreeText(name);
        return nullptr;
    }
    entry->nCode = row.code;
    entry->pszName = name;
    entry->nLength = row.length;
    entry->nRestrict = row.restrict;
    entry->nUnitSize = row.unitSize;
    return Finish(entry, m_index.Add(row.code, &HeaderOf(entry)->index));
}

DICOMVR* VRList::Add(unsigned short code, const char* name, VDicomULong length, unsigned short restrict,
                     unsigned short unitSize) {
    return name == nullptr ? nullptr : AddOwned({code, length, restrict, unitSize}, CopyText(name));
}

DICOMVR* VRList::Fill() {
    Reset();
    OpenBlock(kVRTable);
    m_index.Reserve(kVRTable.count);
    DICOMVR* last = nullptr;
    std::size_t text = 0;
    for (std::size_t i = 0; i < kVRTable.count; ++i) {
        last = AddOwned(kVRTable.rows[i], RowText(kVRTable.texts, text));
        text += std::strlen(kVRTable.texts + text) + 1;
    }
    CloseBlock();
    return last;
}

void VRList::Unindex(DICOMVR* entry) { m_index.Remove(entry->nCode, &HeaderOf(entry)->index); }

} // namespace vdicom

using vdicom::VRs;

DICOMVR* VDicomVR::Default() { return VRs().Fill(); }

void VDicomVR::Reset() { VRs().Reset(); }

DICOMVR* VDicomVR::Insert(unsigned short nCode, const char* pszName, VDicomULong nLength, unsigned short nRestrict,
                          unsigned short nUnitSize) {
    return VRs().Add(nCode, pszName, nLength, nRestrict, nUnitSize);
}

DICOMVR* VDicomVR::Delete(DICOMVR* entry) { return VRs().Remove(entry); }

DICOMVR* VDicomVR::GetFirst() { return VRs().First(); }

DICOMVR* VDicomVR::GetNext(DICOMVR* entry) { return vdicom::VRList::Next(entry); }

DICOMVR* VDicomVR::GetPrev(DICOMVR* entry) { return vdicom::VRList::Previous(entry); }

DICOMVR* VDicomVR::Find(unsigned short nCode) { return VRs().Find(nCode); }

unsigned int VDicomVR::SetName(DICOMVR* entry, const char* pszName) { return VRs().SetName(entry, pszName) ? 1 : 0; }
