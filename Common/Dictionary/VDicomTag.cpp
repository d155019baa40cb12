#include "VDicomTag.h"

#include "CurrentTables.h"
#include "Library.h"

static_assert(sizeof(void*) != 4 || sizeof(DICOMTAG) == 20 + 4 + 4 + 4 + 2 + 4 + 4 + 4, "declared size");

namespace vdicom {

DICOMTAG* TagList::AddOwned(const TagRow& row, char* name) {
    DICOMTAG* entry = name == nullptr ? nullptr : Append();
    if (entry == nullptr) {
        FreeText(name);
        return nullptr;
    }
    entry->nCode = row.code;
    entry->nMask = row.mask;
    entry->pszName = name;
    entry->nVR = row.vr;
    entry->nMinVM = row.minVM;
    entry->nMaxVM = row.maxVM;
    entry->nDivideVM = row.divideVM;
    return Finish(entry, m_index.Add(row.code, row.mask, &HeaderOf(entry)->index));
}

DICOMTAG* TagList::Add(VDicomULong code, VDicomULong mask, const char* name, unsigned short vr, VDicomULong minVM,
                       VDicomULong maxVM, VDicomULong divideVM) {
    return name == nullptr ? nullptr : AddOwned({code, mask, vr, minVM, maxVM, divideVM}, CopyText(name));
}

DICOMTAG* TagList::Fill() {
    Reset();
    OpenBlock(kTagTable);
    m_index.Reserve(kTagTable.count);
    DICOMTAG* last = nullptr;
    std::size_t text = 0;
    for (std::size_t i = 0; i < kTagTable.count; ++i) {
        last = AddOwned(kTagTable.rows[i], RowText(kTagTable.texts, text));
        text += std::strlen(kTagTable.texts + text) + 1;
    }
    CloseBlock();
    return last;
}

void TagList::Unindex(DICOMTAG* entry) { m_index.Remove(entry->nCode, entry->nMask, &HeaderOf(entry)->index); }

} // namespace vdicom

using vdicom::Tags;

DICOMTAG* VDicomTag::Default() { return Tags().Fill(); }

void VDicomTag::Reset() { Tags().Reset(); }

DICOMTAG* VDicomTag::Insert(VDicomULong nCode, VDicomULong nMask, const char* pszName, unsigned short nVR,
                            VDicomULong nMinVM, VDicomULong nMaxVM, VDicomULong nDivideVM) {
    return Tags().Add(nCode, nMask, pszName, nVR, nMinVM, nMaxVM, nDivideVM);
}

DICOMTAG* VDicomTag::Delete(DICOMTAG* entry) { return Tags().Remove(entry); }

DICOMTAG* VDicomTag::GetFirst() { return Tags().First(); }

DICOMTAG* VDicomTag::GetNext(DICOMTAG* entry) { return vdicom::TagList::Next(entry); }

DICOMTAG* VDicomTag::GetPrev(DICOMTAG* entry) { return vdicom::TagList::Previous(entry); }

DICOMTAG* VDicomTag::Find(VDicomULong tag) { return Tags().Find(tag); }

unsigned int VDicomTag::SetName(DICOMTAG* entry, const char* pszName) { return Tags().SetName(entry, pszName) ? 1 : 0; }

unsigned int VDicomTag::FindCurrent(VDicomULong tag, DICOMCURRENTTAG* out) {
    return vdicom::CurrentTag(vdicom::FindCurrentTag(tag), out) ? 1 : 0;
}

unsigned int VDicomTag::FindKeyword(const char* keyword, DICOMCURRENTTAG* out) {
    return vdicom::CurrentTag(vdicom::FindCurrentKeyword(keyword), out) ? 1 : 0;
}

unsigned int VDicomTag::FindPrivate(const char* creator, VDicomULong length, VDicomULong tag, DICOMCURRENTTAG* out) {
    return vdicom::FindPrivateTag(creator, length, tag, out) ? 1 : 0;
}

unsigned int VDicomTag::GetCurrent(VDicomULong index, DICOMCURRENTTAG* out) {
    return vdicom::CurrentTag(index, out) ? 1 : 0;
}
