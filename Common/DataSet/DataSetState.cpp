#include "DataSetState.h"

#include <algorithm>
#include <new>

namespace vdicom {

DataSetState::DataSetState(const char* path) {
    try {
        tempPath = path == nullptr ? "" : path;
    } catch (const std::bad_alloc&) { // then the platform's folder
    }
}

DataSetState::~DataSetState() = default;

VDicomFile* DataSetState::Scratch() {
    // Opened late: most data sets are only read, and a thousand connections must not cost thousands of streams.
    if (m_scratchOpen == false)
        m_scratchOpen = m_scratch.Open(tempPath.c_str(), DICOM_FILE_MODE_SCRATCH) != 0;
    return m_scratchOpen ? &m_scratch : nullptr;
}

bool DataSetState::IsScratch(const VDicomFile* stream) const { return stream == &m_scratch; }

bool DataSetState::EmptyScratch() {
    return !m_scratchOpen || (m_scratch.Seek(0, 0) != 0 && m_scratch.Write("", 0) != 0);
}

bool DataSetState::IsLittleEndian(const DICOMELEMENT* e) const {
    return GroupOf(e->nTag) == 2 || IsLittleEndianBelow(ParentOf(e));
}

bool DataSetState::IsLittleEndianBelow(const DICOMELEMENT* parent) const {
    if ((flags & DICOM_FLAG_BIG) == 0)
        return true;
    // What a "UN" of undefined length holds is implicit VR little endian everywhere (PS3.5 6.2.2), and group 0002 is
    // little endian with all in it.
    for (const DICOMELEMENT* at = parent; at != nullptr; at = ParentOf(at)) {
        if (at->nVR == vr::UN || GroupOf(at->nTag) == 2)
            return true;
    }
    return false;
}

unsigned int DataSetState::SwapUnitOf(const DICOMELEMENT* e) const { return IsLittleEndian(e) ? 1 : SwapUnit(e->nVR); }

bool DataSetState::Check(const DICOMELEMENT* e) const {
    if (callback == nullptr || e == nullptr || tree.Exists(&e->Link) != 0)
        return true;
    callback(const_cast<DICOMELEMENT*>(e), DICOM_INVALID_ELEMENT, callbackData);
    return false;
}

DICOMELEMENT* DataSetState::Append(DICOMELEMENT* parent, VDicomULong tag, unsigned short vr, bool undefined) {
    DICOMELEMENT* e = tree.Create(tag, vr, undefined || vr == vr::SQ ? DICOM_UNDEFINED : 0, ScratchSlot());
    // Items astray too: a level out of order could not be searched quickly.
    tree.LinkOrdered(e, parent);
    return e;
}

std::string DataSetState::CreatorOf(const DICOMELEMENT* parent, VDicomULong tag) const {
    const VDicomULong block = (tag >> 8) & 0xFF;
    if (!IsPrivate(tag) || block < 0x10)
        return {};
    const DICOMELEMENT* creator = tree.FindChild(parent, (tag & 0xFFFF0000) | block);
    // A creator is a short text (LO); anything longer is none.
    if (creator == nullptr || creator->nLength == 0 || creator->nLength > 256 || creator->nCountPiece != 1)
        return {};
    std::string creatorText(creator->nLength, '\0');
    if (!StreamAccess::ReadAt(**creator->pPieceStream, *creator->pPieceOffset, creatorText.data(), creatorText.size()))
        return {};
    const std::size_t end = creatorText.find_last_not_of(std::string_view(" \0", 2));
    creatorText.resize(end == std::string::npos ? 0 : end + 1);
    return creatorText;
}

void DataSetState::AddFault(unsigned int code, VDicomUInt64 offset, VDicomULong tag, std::string words, bool isReason) {
    if (faults.size() < kMaxFaults || isReason)
        faults.push_back({code, offset, tag, std::move(words)});
}

void DataSetState::ElementsGone(const DICOMELEMENT* top) {
    characterSets.Forget();
    if (badCount == 0 && keys.IsEmpty())
        return;
    const DICOMELEMENT* e = top;
    for (;;) {
        const auto end = std::remove_if(bad.begin(), bad.begin() + static_cast<std::ptrdiff_t>(badCount),
                                        [e](const BadElement& entry) { return entry.element == e; });
        badCount = static_cast<std::size_t>(end - bad.begin());
        if (e->nKey != 0 && keys.ItemOf(e->nKey) == e)
            keys.Remove(e->nKey);
        if (FirstChildOf(e) != nullptr) {
            e = FirstChildOf(e);
            continue;
        }
        while (e != top && NextOf(e) == nullptr)
            e = ParentOf(e);
        if (e == top)
            return;
        e = NextOf(e);
    }
}

} // namespace vdicom
