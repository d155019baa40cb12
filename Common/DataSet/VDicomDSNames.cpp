// VDicomDS: names and keywords of elements.
#include "DataSetState.h"
#include "VDicomTag.h"

#include <new>

using namespace vdicom;

namespace {

bool FindPrivate(const DataSetState& state, const DICOMELEMENT* e, DICOMCURRENTTAG& entry) {
    const std::string creator = state.CreatorOf(ParentOf(e), e->nTag);
    return !creator.empty() &&
           VDicomTag::FindPrivate(creator.c_str(), static_cast<VDicomULong>(creator.size()), e->nTag, &entry) != 0;
}

} // namespace

const char* VDicomDS::GetNameElement(DICOMELEMENT* e) {
    if (e == nullptr || !m_pState->Check(e))
        return "";
    const VDicomULong tag = e->nTag;
    DICOMCURRENTTAG entry;
    try {
        if (IsPrivate(tag)) {
            if ((tag & 0xFFFF) >= 0x10 && (tag & 0xFFFF) <= 0xFF)
                return "Private Creator";
            if (FindPrivate(*m_pState, e, entry))
                return entry.pszName;
        }
    } catch (const std::bad_alloc&) {
        return "";
    }
    if (const DICOMTAG* row = VDicomTag::Find(tag))
        return row->pszName;
    if (VDicomTag::FindCurrent(tag, &entry) != 0)
        return entry.pszName;
    return IsGroupLength(tag) ? "Group Length" : "";
}

const char* VDicomDS::GetKeywordElement(DICOMELEMENT* e) {
    DICOMCURRENTTAG entry;
    if (e == nullptr || !m_pState->Check(e) || VDicomTag::FindCurrent(e->nTag, &entry) == 0)
        return "";
    return entry.pszKeyword;
}
