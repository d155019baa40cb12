// VDicomDS: transfer syntaxes of the data set in memory, and copying between data sets.
#include "Guarded.h"
#include "SavePlan.h"

#include <array>
#include <memory>
#include <vector>

using namespace vdicom;

namespace {

constexpr VDicomULong kTransferSyntaxUID = 0x00020010;

// A value that has been stored anew in the other byte order and waits to be taken.
struct Swapped {
    DICOMELEMENT* element;
    VDicomUInt64 place;
};

// Stores a value anew in the other byte order, through a bounded buffer. The element keeps its old bytes.
unsigned int SwapValue(DataSetState& state, DICOMELEMENT* e, unsigned int unit, VDicomUInt64& place) {
    VDicomFile* scratch = state.Scratch();
    if (scratch == nullptr)
        return DICOM_ERROR_WRITE;
    constexpr VDicomULong chunk = 64 * 1024;
    const auto buffer = std::make_unique<std::array<unsigned char, chunk>>();
    VDicomULong held = 0;
    bool isFirst = true;
    const auto flush = [&] {
        SwapUnits(buffer->data(), held, unit);
        VDicomUInt64 at = 0;
        if (!StreamAccess::Append(*scratch, buffer->data(), held, at))
            return false;
        place = isFirst ? at : place;
        isFirst = false;
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
    return static_cast<VDicomOffset>(place) == place ? DICOM_OK : DICOM_ERROR_SIZE;
}

// Stores every value anew that is stored differently in the other byte order.
unsigned int SwapValues(DataSetState& state, std::vector<Swapped>& values) {
    for (DICOMELEMENT* e = state.tree.First(); e != nullptr; e = ElementOf(state.tree.GetNext(&e->Link, 0))) {
        const unsigned int unit = IsUndefinedLength(e) ? 1 : state.SwapUnitOf(e);
        if (unit == 1 || e->nLength == 0)
            continue;
        values.push_back({e, 0});
        if (const unsigned int code = SwapValue(state, e, unit, values.back().place); code != DICOM_OK)
            return code;
    }
    return DICOM_OK;
}

} // namespace

unsigned int VDicomDS::GetTS(unsigned short* code, VDicomLong* compression, const char* uid) {
    bool isNamed = uid != nullptr;
    const TransferSyntax syntax = Guarded(FindTransferSyntax(uid), [&] {
        return uid != nullptr ? FindTransferSyntax(uid) : NamedTransferSyntax(*m_pState, isNamed);
    });
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
    VDicomLong own = 0;
    GetTS(nullptr, &own, nullptr);
    if (own != compression)
        return DICOM_ERROR_UNSUPPORTED;
    // Fragments under a transfer syntax that nobody knows are compressed all the same.
    const DICOMELEMENT* pixels = state.tree.FindChild(nullptr, kPixelData);
    if (compression == 0 && pixels != nullptr && IsUndefinedLength(pixels))
        return DICOM_ERROR_UNSUPPORTED;
    if (compression != 0)
        return code == DICOM_TS_EXPLICIT_LITTLE ? DICOM_OK : DICOM_ERROR_PARAMETER;
    const Encoding wanted = Encoding::FromFlags(code);
    const bool toBig = !wanted.littleEndian;
    const bool swaps = toBig != ((state.flags & DICOM_FLAG_BIG) != 0);
    const unsigned short oldFlags = state.flags;
    constexpr unsigned short encodingBits = 0x003C | DICOM_FLAG_DEFLATED;
    const auto newFlags = static_cast<unsigned short>((state.flags & ~encodingBits) | code);
    std::vector<Swapped> values;
    const auto result = Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        std::string uid = EncodingUID(wanted, false);
        // Which values change is the same in both directions, and told by the flags of the big endian side.
        state.flags = toBig ? newFlags : oldFlags;
        if (const unsigned int swapped = swaps ? SwapValues(state, values) : DICOM_OK; swapped != DICOM_OK)
            return swapped;
        if (FindSetValue(nullptr, kTransferSyntaxUID, vr::UI, uid.c_str(), 1) == 0)
            return DICOM_ERROR_WRITE;
        state.transferSyntax.swap(uid);
        return DICOM_OK;
    });
    state.flags = result == DICOM_OK ? newFlags : oldFlags;
    // Nothing fails any more: all values change, or none has.
    for (const Swapped& value : values) {
        DICOMELEMENT* e = value.element;
        if (result != DICOM_OK)
            break;
        e->pPieceOffset[0] = static_cast<VDicomOffset>(value.place);
        e->pPieceStream[0] = state.Scratch();
        e->pPieceSize[0] = e->nLength;
        e->nCountPiece = 1;
        ElementTree::FreeTypeValue(e);
    }
    return result;
}

unsigned int VDicomDS::ChangeTransferSyntax(const char* uid, VDicomLong, VDicomULong) {
    if (uid == nullptr)
        return DICOM_ERROR_PARAMETER;
    const TransferSyntax wanted = FindTransferSyntax(uid);
    if (!wanted.known)
        return DICOM_ERROR_PARAMETER;
    DataSetState& state = *m_pState;
    if (wanted.compression != 0) {
        return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
            const std::string own = TextOf(state, state.tree.FindChild(nullptr, kTransferSyntaxUID));
            return own == uid ? DICOM_OK : DICOM_ERROR_UNSUPPORTED;
        });
    }
    const unsigned int code = SetTS(wanted.encoding.Code(), 0);
    if (code != DICOM_OK || !wanted.deflated)
        return code;
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        std::string deflated = EncodingUID(wanted.encoding, true);
        if (FindSetValue(nullptr, kTransferSyntaxUID, vr::UI, deflated.c_str(), 1) == 0)
            return DICOM_ERROR_WRITE;
        state.transferSyntax.swap(deflated);
        state.flags = static_cast<unsigned short>(state.flags | DICOM_FLAG_DEFLATED);
        return DICOM_OK;
    });
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
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&] {
        if (state.tree.First() == nullptr) {
            const DataSetState& other = *src->m_pState;
            state.transferSyntax = other.transferSyntax;
            state.flags = other.flags;
            std::copy(std::begin(other.identification), std::end(other.identification), state.identification);
            std::copy(std::begin(other.preamble), std::end(other.preamble), state.preamble);
        }
        unsigned int code = DICOM_OK;
        if (srcElement != nullptr) {
            code = CopyTreeDS(dstParent, *src, srcElement, withKeys);
        } else {
            for (const DICOMELEMENT* e = src->m_pState->tree.First(); e != nullptr && code == DICOM_OK; e = NextOf(e))
                code = CopyTreeDS(dstParent, *src, e, withKeys);
        }
        // Only what stands in the directory of records can change it.
        const DICOMELEMENT* place = dstParent != nullptr ? ElementOf(state.tree.GetRoot(&dstParent->Link)) : srcElement;
        if (place == nullptr || place->nTag == kDirectoryRecords || IsOffsetTag(place->nTag))
            state.BuildKeys();
        return code;
    });
}
