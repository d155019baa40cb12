// VDicomDS: raw values.
#include "ValuePieces.h"

#include <algorithm>

using namespace vdicom;

namespace {

// An element that has a value of its own.
bool HasValue(const DICOMELEMENT* e) { return e != nullptr && !IsUndefinedLength(e); }

unsigned int Succeeded(unsigned int result) { return result == DICOM_OK ? 1 : 0; }

} // namespace

unsigned int VDicomDS::GetBinaryValue(DICOMELEMENT* e, void* buffer, VDicomULong length) {
    return GetFileBinaryValue(e, buffer, 0, length);
}

unsigned int VDicomDS::GetBinaryValue(DICOMELEMENT* e, void* buffer, VDicomULong offset, VDicomULong length) {
    return GetFileBinaryValue(e, buffer, offset, length);
}

unsigned int VDicomDS::GetFileBinaryValue(DICOMELEMENT* e, void* buffer, VDicomULong offset, VDicomULong length) {
    if (!m_pState->Check(e) || !HasValue(e) || length == DICOM_UNDEFINED || buffer == nullptr)
        return 0;
    if (e->nLength == 0)
        return 1;
    if (offset >= e->nLength)
        return 0;
    const PieceList list(e);
    return list.ReadHost(m_pState->SwapUnitOf(e), offset, buffer, std::min(length, e->nLength - offset)) ? 1 : 0;
}

unsigned int VDicomDS::SetBinaryValue(DICOMELEMENT* e, const void* buffer, VDicomULong length) {
    if (!m_pState->Check(e) || !HasValue(e) || (buffer == nullptr && length != 0))
        return 0;
    return Succeeded(StoreValue(*m_pState, e, buffer, length));
}

unsigned int VDicomDS::SetFileBinaryValue(DICOMELEMENT* e, const void* buffer, VDicomULong offset, VDicomULong length) {
    if (!m_pState->Check(e) || !HasValue(e) || (buffer == nullptr && length != 0) || offset > e->nLength)
        return 0;
    if (length == 0)
        return 1;
    Insertion insertion;
    insertion.bytes = buffer;
    insertion.size = length;
    return Succeeded(SpliceValue(*m_pState, e, offset, std::min(length, e->nLength - offset), insertion));
}

unsigned int VDicomDS::InsertBinaryValue(DICOMELEMENT* e, const void* buffer, VDicomULong offset, VDicomULong length) {
    if (!m_pState->Check(e) || !HasValue(e) || (buffer == nullptr && length != 0) || offset > e->nLength)
        return 0;
    if (length == 0)
        return 1;
    Insertion insertion;
    insertion.bytes = buffer;
    insertion.size = length;
    return Succeeded(SpliceValue(*m_pState, e, offset, 0, insertion));
}

unsigned int VDicomDS::InsertFileBinaryValue(DICOMELEMENT* e, VDicomULong offset, VDicomFile* stream,
                                             VDicomUInt64 streamOffset, VDicomULong length) {
    if (!m_pState->Check(e) || !HasValue(e) || stream == nullptr || offset > e->nLength || length == DICOM_UNDEFINED)
        return 0;
    const Piece piece{stream, streamOffset, length};
    const PieceList list(piece);
    if (static_cast<VDicomOffset>(streamOffset) != streamOffset || !list.Exists())
        return 0;
    if (length == 0)
        return 1;
    Insertion insertion;
    insertion.piece = &piece;
    insertion.size = length;
    return Succeeded(SpliceValue(*m_pState, e, offset, 0, insertion));
}

unsigned int VDicomDS::DeleteFileBinaryValue(DICOMELEMENT* e, VDicomULong offset, VDicomULong length) {
    if (!m_pState->Check(e) || !HasValue(e) || offset > e->nLength)
        return 0;
    const VDicomULong removed = std::min(length, e->nLength - offset);
    return removed == 0 ? 1 : Succeeded(SpliceValue(*m_pState, e, offset, removed, {}));
}

unsigned int VDicomDS::CopyFileBinaryValue(DICOMELEMENT* e, VDicomDS* src, DICOMELEMENT* source) {
    if (src == nullptr || !m_pState->Check(e) || !src->m_pState->Check(source) || !HasValue(e) || !HasValue(source))
        return DICOM_ERROR_PARAMETER;
    return CopyValue(*m_pState, e, *src->m_pState, source);
}

VDicomULong VDicomDS::GetFileBinaryIndex(DICOMELEMENT* e, VDicomULong* offset) {
    if (!m_pState->Check(e) || e == nullptr || offset == nullptr)
        return 0;
    return PieceList(e).Find(*offset);
}
