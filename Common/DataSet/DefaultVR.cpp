#include "DefaultVR.h"

#include "VDicomTag.h"

namespace vdicom {

namespace {

constexpr VDicomULong kPixelRepresentation = 0x00280103, kWaveformBitsAllocated = 0x54001004;

// The first 16-bit number of an element's value, or `otherwise` where there is none.
unsigned int NumberOf(const DataSetState& state, const DICOMELEMENT* e, unsigned int otherwise) {
    unsigned char bytes[2];
    if (e == nullptr || e->nLength < sizeof bytes || IsUndefinedLength(e) || *e->pPieceSize < sizeof bytes)
        return otherwise;
    if (!StreamAccess::ReadAt(**e->pPieceStream, *e->pPieceOffset, bytes, sizeof bytes))
        return otherwise;
    return Get16(bytes, state.IsLittleEndian(e));
}

// Signed pixels at this level or the nearest enclosing one that says so.
bool HasSignedPixels(const DataSetState& state, const DICOMELEMENT* parent) {
    for (;;) {
        if (const DICOMELEMENT* e = state.tree.FindChild(parent, kPixelRepresentation))
            return NumberOf(state, e, 0) == 1;
        if (parent == nullptr)
            return false;
        parent = ParentOf(parent);
    }
}

unsigned short CurveDataVR(unsigned int dataValueRepresentation) {
    switch (dataValueRepresentation) {
    case 1:
        return vr::SS;
    case 2:
        return vr::FL;
    case 3:
        return vr::FD;
    case 4:
        return vr::SL;
    default:
        return vr::US;
    }
}

// Which of two possible VRs holds in implicit VR (PS3.5 A.1; PS3.3 C.7.6.3.1 for signed pixels).
unsigned short Choose(const DataSetState& state, const DICOMELEMENT* parent, const DICOMCURRENTTAG& entry) {
    if (entry.nVROther == vr::OW && entry.nVR == vr::OB)
        return vr::OW;
    if (entry.nVR == vr::US && entry.nVROther == vr::SS)
        return HasSignedPixels(state, parent) ? vr::SS : vr::US;
    return entry.nVR;
}

} // namespace

unsigned short DefaultVR(const DataSetState& state, const DICOMELEMENT* parent, VDicomULong tag, bool compressed,
                         const std::string* creator) {
    if (IsGroupLength(tag))
        return vr::UL;
    if (tag == kItem)
        return parent == nullptr || parent->nVR == vr::SQ || parent->nVR == vr::UN ? vr::OB : parent->nVR;
    if (tag == kPixelData)
        return compressed ? vr::OB : vr::OW;
    const VDicomULong repeating = tag & 0xFF00FFFF;
    const VDicomULong group = tag & 0xFFFF0000;
    if (repeating == 0x5000200C) {
        const unsigned int format = NumberOf(state, state.tree.FindChild(parent, group | 0x2002), 0xFFFF);
        return format < 9 ? vr::OB : vr::OW;
    }
    if (repeating == 0x50003000)
        return CurveDataVR(NumberOf(state, state.tree.FindChild(parent, group | 0x0103), 0));
    if (tag == 0x54001010 || tag == 0x5400100A || tag == 0x54000110 || tag == 0x54000112) {
        const bool bytes = NumberOf(state, state.tree.FindChild(parent, kWaveformBitsAllocated), 0xFFFF) < 9;
        return bytes && (state.flags & DICOM_FLAG_EXPLICIT) != 0 ? vr::OB : vr::OW;
    }
    // A private creator is a text, whatever a vendor's row of the dictionary says of its tag (PS3.5 7.8.1).
    if (IsPrivate(tag) && (tag & 0xFFFF) >= 0x10 && (tag & 0xFFFF) <= 0xFF)
        return vr::LO;
    DICOMCURRENTTAG current;
    if (const DICOMTAG* entry = VDicomTag::Find(tag)) {
        const bool ambiguous = entry->nVR == vr::US || entry->nVR == vr::SS;
        if (ambiguous && !IsPrivate(tag) && VDicomTag::FindCurrent(tag, &current) != 0 && current.nVR == vr::US &&
            current.nVROther == vr::SS)
            return Choose(state, parent, current);
        return entry->nVR;
    }
    if (IsPrivate(tag)) {
        const std::string text = creator != nullptr ? *creator : state.CreatorOf(parent, tag);
        const bool found = !text.empty() && VDicomTag::FindPrivate(text.c_str(), static_cast<VDicomULong>(text.size()),
                                                                   tag, &current) != 0;
        return found ? Choose(state, parent, current) : vr::UN;
    }
    return VDicomTag::FindCurrent(tag, &current) != 0 ? Choose(state, parent, current) : vr::UN;
}

} // namespace vdicom
