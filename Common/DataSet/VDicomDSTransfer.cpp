// VDicomDS: transfer syntaxes of the data set in memory, and copying between data sets.
#include "SavePlan.h"

#include <array>
#include <memory>
#include <new>

using namespace vdicom;

namespace {

constexpr VDicomULong kTransferSyntaxUID = 0x00020010;

// Stores a value anew in the other byte order, through a bounded buffer. The old bytes stay until all is written.
unsigned int SwapValue(DataSetState& state, DICOMELEMENT* e, unsigned int unit) {
    VDicomFile* scratch = state.Scratch();
    if (scratch == nullptr)
        return DICOM_ERROR_WRITE;
    constexpr VDicomULong chunk = 64 * 1024;
    const auto buffer = std::make_unique<std::array<unsigned char, chunk>>();
    VDicomUInt64 start = 0;
    VDicomULong held = 0;
    VDicomULong stored = 0;
    const auto flush = [&] {
        SwapUnits(buffer->data(), held, unit);
        VDicomUInt64 at = 0;
        if (!StreamAccess::Append(*scratch, buffer->data(), held, at))
            return false;
        if (stored == 0)
            start = at;
        stored += held;
        held = 0;
        return true;
    };
    for (VDicomULong piece = 0; piece < e->nCountPiece; ++piece) {
        for (VDicomULong at = 0; at < e->pPieceSize[piece];) {
            const VDicomULong part = std::min(chunk - held, e->pPieceSize[piece] - at);
            if (!StreamAccess::ReadAt(*e->pPieceStream[piece], e->pPieceOffset[piece] + at, buffer->data() + held,
                                      part))
                return DICOM_ERROR_READ;
            held += part;
            at += part;
            if (held == chunk && !flush())
                return DICOM_ERROR_WRITE;
        }
    }
    if (held != 0 && !flush())
        return DICOM_ERROR_WRITE;
    // One piece replaces them all.
    e->pPieceOffset[0] = static_cast<VDicomOffset>(start);
    e->pPieceStream[0] = scratch;
    e->pPieceSize[0] = stored;
    e->nCountPiece = 1;
    return DICOM_OK;
}

} // namespace

unsigned int VDicomDS::GetTS(unsigned short* code, VDicomLong* compression, const char* uid) {
    bool isNamed = uid != nullptr;
    const TransferSyntax syntax = isNamed ? FindTransferSyntax(uid) : NamedTransferSyntax(*m_pState, isNamed);
    if (code != nullptr)
        *code = syntax.encoding.Code();
    if (compression != nullptr)
        *compression = syntax.compression;
    return isNamed ? 1 : 0;
}

unsigned int VDicomDS::SetTS(unsigned short code, VDicomLong compression) {
    DataSetState& state = *m_pState;
    if (code != DICOM_TS_IMPLICIT_LITTLE && code != DICOM_TS_EXPLICIT_LITTLE && code != DICOM_TS_EXPLICIT_BIG)
        return DICOM_ERROR_PARAMETER;
    bool isNamed = false;
    const TransferSyntax own = NamedTransferSyntax(state, isNamed);
    if (own.compression != compression)
        return DICOM_ERROR_UNSUPPORTED;
    if (compression != 0)
        return code == DICOM_TS_EXPLICIT_LITTLE ? DICOM_OK : DICOM_ERROR_PARAMETER;
    const Encoding wanted = Encoding::FromFlags(code);
    const bool toBig = !wanted.littleEndian;
    const bool swaps = toBig != ((state.flags & DICOM_FLAG_BIG) != 0);
    const unsigned short oldFlags = state.flags;
    constexpr unsigned short encodingBits = 0x003C | DICOM_FLAG_DEFLATED;
    const auto newFlags = static_cast<unsigned short>((state.flags & ~encodingBits) | code);
    try {
        // Which values change is the same in both directions, and told by the flags of the big endian side.
        state.flags = toBig ? newFlags : oldFlags;
        for (DICOMELEMENT* e = state.tree.First(); swaps && e != nullptr;
             e = ElementOf(state.tree.GetNext(&e->Link, 0))) {
            const unsigned int unit = IsUndefinedLength(e) ? 1 : state.SwapUnitOf(e);
            if (unit == 1 || e->nLength == 0)
                continue;
            // A failure in between would leave both byte orders, so it undoes what was swapped before.
            if (const unsigned int result = SwapValue(state, e, unit); result != DICOM_OK) {
                for (DICOMELEMENT* back = state.tree.First(); back != e;
                     back = ElementOf(state.tree.GetNext(&back->Link, 0))) {
                    const unsigned int backUnit = IsUndefinedLength(back) ? 1 : state.SwapUnitOf(back);
                    if (backUnit != 1 && back->nLength != 0)
                        SwapValue(state, back, backUnit);
                }
                state.flags = oldFlags;
                return result;
            }
            ElementTree::FreeTypeValue(e);
        }
        state.flags = newFlags;
        state.transferSyntax = EncodingUID(wanted, false);
        if (FindSetValue(nullptr, kTransferSyntaxUID, vr::UI, state.transferSyntax.c_str(), 1) == 0)
            return DICOM_ERROR_WRITE;
    } catch (const std::bad_alloc&) {
        state.flags = oldFlags;
        return DICOM_ERROR_MEMORY;
    }
    return DICOM_OK;
}

unsigned int VDicomDS::ChangeTransferSyntax(const char* uid, VDicomLong, VDicomULong) {
    if (uid == nullptr)
        return DICOM_ERROR_PARAMETER;
    const TransferSyntax wanted = FindTransferSyntax(uid);
    if (!wanted.known)
        return DICOM_ERROR_PARAMETER;
    DataSetState& state = *m_pState;
    if (wanted.compression != 0) {
        const std::string own = TextOf(state, state.tree.FindChild(nullptr, kTransferSyntaxUID));
        return own == uid ? DICOM_OK : DICOM_ERROR_UNSUPPORTED;
    }
    const unsigned int code = SetTS(wanted.encoding.Code(), 0);
    if (code != DICOM_OK || !wanted.deflated)
        return code;
    state.flags = static_cast<unsigned short>(state.flags | DICOM_FLAG_DEFLATED);
    state.transferSyntax = EncodingUID(wanted.encoding, true);
    return FindSetValue(nullptr, kTransferSyntaxUID, vr::UI, state.transferSyntax.c_str(), 1) != 0 ? DICOM_OK
                                                                                                   : DICOM_ERROR_WRITE;
}

const char* VDicomDS::GetTransferSyntaxUID() const { return m_pState->transferSyntax.c_str(); }

unsigned int VDicomDS::CopyTreeDS(DICOMELEMENT* dstParent, VDicomDS& src, const DICOMELEMENT* source, bool withKeys) {
    DataSetState& state = *m_pState;
    const bool isItem = source->nTag == kItem;
    // A tag stands once at a level, but for what a file had twice and a whole tree is copied with.
    if (!isItem && state.tree.FindChild(dstParent, source->nTag) != nullptr &&
        src.m_pState->tree.FindChild(ParentOf(source), source->nTag) == source)
        return DICOM_ERROR_STRUCTURE;
    if (dstParent != nullptr && FirstChildOf(dstParent) != nullptr && !IsUndefinedLength(dstParent))
        return DICOM_ERROR_STRUCTURE;
    if (dstParent != nullptr && (state.tree.GetLevel(&dstParent->Link) + 2) / 2 > state.depthLimit)
        return DICOM_ERROR_DEPTH;
    DICOMELEMENT* copy = state.Append(dstParent, source->nTag, source->nVR, IsUndefinedLength(source));
    copy->nKey = withKeys ? source->nKey : 0;
    if (!IsUndefinedLength(source)) {
        if (const unsigned int code = CopyFileBinaryValue(copy, &src, const_cast<DICOMELEMENT*>(source));
            code != DICOM_OK)
            return code;
    }
    for (const DICOMELEMENT* child = FirstChildOf(source); child != nullptr; child = NextOf(child)) {
        if (const unsigned int code = CopyTreeDS(copy, src, child, withKeys); code != DICOM_OK)
            return code;
    }
    return DICOM_OK;
}

unsigned int VDicomDS::CopyDS(DICOMELEMENT* dstParent, VDicomDS* src, DICOMELEMENT* srcElement) {
    DataSetState& state = *m_pState;
    // Copying a level into itself would never end.
    if (src == nullptr || !state.Check(dstParent) || !src->m_pState->Check(srcElement) ||
        (src == this && srcElement == nullptr))
        return DICOM_ERROR_PARAMETER;
    for (const DICOMELEMENT* at = dstParent; src == this && at != nullptr; at = ParentOf(at)) {
        if (at == srcElement)
            return DICOM_ERROR_PARAMETER;
    }
    if (state.frozen)
        return DICOM_ERROR_STRUCTURE;
    // Numbers mean nothing among the records of another directory.
    const bool withKeys = state.keys.IsEmpty();
    unsigned int code = DICOM_OK;
    try {
        if (state.tree.First() == nullptr) {
            const DataSetState& other = *src->m_pState;
            state.flags = other.flags;
            state.transferSyntax = other.transferSyntax;
            std::copy(std::begin(other.identification), std::end(other.identification), state.identification);
            std::copy(std::begin(other.preamble), std::end(other.preamble), state.preamble);
        }
        if (srcElement != nullptr) {
            code = CopyTreeDS(dstParent, *src, srcElement, withKeys);
        } else {
            for (const DICOMELEMENT* e = src->m_pState->tree.First(); e != nullptr && code == DICOM_OK; e = NextOf(e))
                code = CopyTreeDS(dstParent, *src, e, withKeys);
        }
    } catch (const std::bad_alloc&) {
        code = DICOM_ERROR_MEMORY;
    }
    RefreshKeys();
    return code;
}
