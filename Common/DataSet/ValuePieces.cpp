#include "ValuePieces.h"

#include "Guarded.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace vdicom {

namespace {

// The heap arrays of a value of several pieces; freed unless an element took them.
struct PieceArrays {
    PieceArrays() = default;
    ~PieceArrays() {
        std::free(offsets);
        std::free(streams);
        std::free(sizes);
    }
    PieceArrays(const PieceArrays&) = delete;
    PieceArrays& operator=(const PieceArrays&) = delete;

    bool Allocate(std::size_t count) {
        offsets = static_cast<VDicomOffset*>(std::malloc(count * sizeof(VDicomOffset)));
        streams = static_cast<VDicomFile**>(std::malloc(count * sizeof(void*)));
        sizes = static_cast<VDicomULong*>(std::malloc(count * sizeof(VDicomULong)));
        return offsets != nullptr && streams != nullptr && sizes != nullptr;
    }

    VDicomOffset* offsets = nullptr;
    VDicomFile** streams = nullptr;
    VDicomULong* sizes = nullptr;
};

// The part of a value that has to be written anew when something is put into it, in the new value's offsets. Where
// units are swapped, bytes that come into another place of their unit, and their neighbours, are stored differently.
struct Window {
    VDicomULong begin;
    VDicomULong end;
};

Window FindWindow(unsigned int unit, VDicomULong offset, VDicomULong removed, VDicomULong inserted,
                  VDicomULong newLength) {
    const VDicomULong end = offset + inserted;
    if ((removed > inserted ? removed - inserted : inserted - removed) % unit != 0)
        return {offset - offset % unit, newLength};
    const VDicomULong rest = (unit - end % unit) % unit;
    return {offset - offset % unit, newLength - end < rest ? newLength : end + rest};
}

} // namespace

PieceList::PieceList(const DICOMELEMENT* e)
    : m_offsets(e->pPieceOffset), m_streams(e->pPieceStream), m_sizes(e->pPieceSize), m_count(e->nCountPiece),
      m_length(IsUndefinedLength(e) ? 0 : e->nLength) {}

PieceList::PieceList(const Piece& piece)
    : m_offsets(&m_offset), m_streams(&piece.stream), m_sizes(&piece.size), m_count(1), m_length(piece.size),
      m_offset(static_cast<VDicomOffset>(piece.offset)) {}

Piece PieceList::At(VDicomULong index) const { return {m_streams[index], m_offsets[index], m_sizes[index]}; }

VDicomULong PieceList::Find(VDicomULong& offset) const {
    VDicomULong left = m_length == 0 ? 0 : std::min(offset, m_length - 1);
    VDicomULong index = 0;
    while (index + 1 < m_count && left >= m_sizes[index])
        left -= m_sizes[index++];
    offset = left;
    return index;
}

bool PieceList::Exists() const {
    if (m_length == 0)
        return true;
    VDicomUInt64 total = 0;
    for (VDicomULong i = 0; i < m_count; ++i) {
        if (m_streams[i] == nullptr)
            return false;
        const VDicomUInt64 size = StreamAccess::Size(*m_streams[i]);
        if (m_offsets[i] > size || m_sizes[i] > size - m_offsets[i])
            return false;
        total += m_sizes[i];
    }
    return total >= m_length;
}

bool PieceList::ReadStored(VDicomULong offset, void* buffer, VDicomULong length) const {
    auto* to = static_cast<unsigned char*>(buffer);
    VDicomULong within = offset;
    for (VDicomULong i = Find(within); length > 0 && i < m_count; ++i) {
        if (within > m_sizes[i])
            return false;
        const VDicomULong size = std::min(length, m_sizes[i] - within);
        if (m_streams[i] == nullptr ||
            !StreamAccess::ReadAt(*m_streams[i], VDicomUInt64{m_offsets[i]} + within, to, size))
            return false;
        to += size;
        length -= size;
        within = 0;
    }
    return length == 0;
}

// Puts right the part of `buffer` that belongs to the unit at `start`.
bool PieceList::FixUnit(unsigned int unit, VDicomULong start, VDicomULong offset, unsigned char* buffer,
                        VDicomULong length) const {
    unsigned char bytes[8];
    if (unit > sizeof bytes || start > m_length || m_length - start < unit)
        return unit <= sizeof bytes; // what is behind the last whole unit is not swapped
    if (!ReadStored(start, bytes, unit))
        return false;
    std::reverse(bytes, bytes + unit);
    for (VDicomULong i = 0; i < unit; ++i) {
        const VDicomULong at = start + i;
        if (at >= offset && at - offset < length)
            buffer[at - offset] = bytes[i];
    }
    return true;
}

bool PieceList::ReadHost(unsigned int unit, VDicomULong offset, void* buffer, VDicomULong length) const {
    auto* bytes = static_cast<unsigned char*>(buffer);
    if (!ReadStored(offset, bytes, length))
        return false;
    if (unit < 2 || length == 0)
        return true;
    const VDicomULong head = (unit - offset % unit) % unit;
    if (head < length)
        SwapUnits(bytes + head, length - head, unit);
    const VDicomULong last = offset + length - 1;
    const bool headGood = head == 0 || FixUnit(unit, offset - offset % unit, offset, bytes, length);
    return headGood && ((last + 1) % unit == 0 || FixUnit(unit, last - last % unit, offset, bytes, length));
}

unsigned int NewValue::Add(const Piece& piece) {
    if (piece.size == 0)
        return DICOM_OK;
    if (static_cast<VDicomOffset>(piece.offset) != piece.offset)
        return DICOM_ERROR_SIZE;
    m_length += piece.size;
    if (m_length > kLongestValue)
        return DICOM_ERROR_SIZE;
    if (!m_pieces.empty()) {
        Piece& last = m_pieces.back();
        if (last.stream == piece.stream && last.offset + last.size == piece.offset) {
            last.size += piece.size;
            return DICOM_OK;
        }
    }
    m_pieces.push_back(piece);
    return DICOM_OK;
}

unsigned int NewValue::Keep(const PieceList& list, VDicomULong begin, VDicomULong end) {
    if (begin >= end)
        return DICOM_OK;
    VDicomULong within = begin;
    VDicomULong left = end - begin;
    for (VDicomULong i = list.Find(within); left > 0 && i < list.Count(); ++i) {
        Piece piece = list.At(i);
        if (within > piece.size)
            return DICOM_ERROR_READ;
        piece.offset += within;
        piece.size = std::min(left, piece.size - within);
        left -= piece.size;
        within = 0;
        if (const unsigned int error = Add(piece); error != DICOM_OK)
            return error;
    }
    return DICOM_OK;
}

unsigned int NewValue::Append(const void* stored, std::size_t size) {
    VDicomFile* scratch = m_state.Scratch();
    if (scratch == nullptr)
        return DICOM_ERROR_WRITE;
    VDicomUInt64 position = 0;
    if (!StreamAccess::Append(*scratch, stored, size, position))
        return DICOM_ERROR_WRITE;
    return Add({scratch, position, static_cast<VDicomULong>(size)});
}

unsigned int NewValue::Commit() {
    DICOMELEMENT* e = m_element;
    ElementNode* node = NodeOf(e);
    const std::size_t count = m_pieces.size();
    PieceArrays arrays;
    if (count > 1) {
        if (!arrays.Allocate(count))
            return DICOM_ERROR_MEMORY;
        for (std::size_t i = 0; i < count; ++i) {
            arrays.offsets[i] = static_cast<VDicomOffset>(m_pieces[i].offset);
            arrays.streams[i] = m_pieces[i].stream;
            arrays.sizes[i] = m_pieces[i].size;
        }
    }
    if (e->pPieceOffset != &node->pieceOffset) {
        std::free(e->pPieceOffset);
        std::free(e->pPieceStream);
        std::free(e->pPieceSize);
    }
    if (count > 1) {
        e->pPieceOffset = std::exchange(arrays.offsets, nullptr);
        e->pPieceStream = std::exchange(arrays.streams, nullptr);
        e->pPieceSize = std::exchange(arrays.sizes, nullptr);
    } else {
        const Piece one = count == 1 ? m_pieces[0] : Piece{m_state.ScratchSlot(), DICOM_UNDEFINED, 0};
        node->pieceOffset = static_cast<VDicomOffset>(one.offset);
        node->pieceStream = one.stream;
        e->nPieceSize = one.size;
        e->pPieceOffset = &node->pieceOffset;
        e->pPieceStream = &node->pieceStream;
        e->pPieceSize = &e->nPieceSize;
    }
    e->nCountPiece = count > 1 ? static_cast<VDicomULong>(count) : 1;
    e->nLength = static_cast<VDicomULong>(m_length);
    ElementTree::FreeTypeValue(e);
    return DICOM_OK;
}

HostWriter::HostWriter(NewValue& value, unsigned int unit, VDicomULong expected)
    : m_value(value), m_unit(unit), m_capacity(expected < kCopyBuffer ? (expected / 8 + 1) * 8 : kCopyBuffer) {}

void HostWriter::NeedBuffer() {
    if (m_buffer == nullptr)
        m_buffer = std::make_unique_for_overwrite<unsigned char[]>(m_capacity);
}

unsigned int HostWriter::Flush() {
    if (m_used == 0)
        return DICOM_OK;
    SwapUnits(m_buffer.get(), m_used, m_unit);
    const unsigned int result = m_value.Append(m_buffer.get(), m_used);
    m_used = 0;
    return result;
}

unsigned int HostWriter::Put(const void* bytes, VDicomULong size) {
    if (m_unit == 1) {
        const unsigned int result = Flush();
        return result != DICOM_OK || size == 0 ? result : m_value.Append(bytes, size);
    }
    NeedBuffer();
    const auto* from = static_cast<const unsigned char*>(bytes);
    while (size > 0) {
        if (m_used == m_capacity) {
            if (const unsigned int error = Flush(); error != DICOM_OK)
                return error;
        }
        const auto part = static_cast<VDicomULong>(std::min<std::size_t>(size, m_capacity - m_used));
        std::memcpy(m_buffer.get() + m_used, from, part);
        m_used += part;
        from += part;
        size -= part;
    }
    return DICOM_OK;
}

unsigned int HostWriter::PutHost(const PieceList& list, unsigned int unit, VDicomULong begin, VDicomULong end) {
    if (begin < end)
        NeedBuffer();
    while (begin < end) {
        if (m_used == m_capacity) {
            if (const unsigned int error = Flush(); error != DICOM_OK)
                return error;
        }
        const auto part = static_cast<VDicomULong>(std::min<std::size_t>(end - begin, m_capacity - m_used));
        if (!list.ReadHost(unit, begin, m_buffer.get() + m_used, part))
            return DICOM_ERROR_READ;
        m_used += part;
        begin += part;
    }
    return DICOM_OK;
}

unsigned int SpliceValue(DataSetState& state, DICOMELEMENT* e, VDicomULong offset, VDicomULong removed,
                         const Insertion& insertion) {
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        const PieceList old(e);
        const VDicomULong oldLength = old.Length();
        const VDicomUInt64 newLength =
            VDicomUInt64{oldLength} - removed + insertion.size + (insertion.padded ? 1U : 0U);
        if (newLength > kLongestValue)
            return DICOM_ERROR_SIZE;
        const auto length = static_cast<VDicomULong>(newLength);
        const VDicomULong inserted = insertion.size + (insertion.padded ? 1U : 0U);
        const unsigned int unit = state.SwapUnitOf(e);
        const Window window = FindWindow(unit, offset, removed, inserted, length);
        // Where the old bytes behind the window begin.
        const VDicomULong behind = window.end == length ? oldLength : window.end + removed - inserted;

        NewValue value(state, e);
        if (const unsigned int error = value.Keep(old, 0, window.begin); error != DICOM_OK)
            return error;
        unsigned int result = DICOM_OK;
        if (insertion.piece != nullptr && window.begin == offset && window.end == offset + inserted) {
            result = value.Add(*insertion.piece);
        } else {
            HostWriter writer(value, unit, window.end - window.begin);
            result = writer.PutHost(old, unit, window.begin, offset);
            if (result == DICOM_OK)
                result = insertion.piece != nullptr
                             ? writer.PutHost(PieceList(*insertion.piece), unit, 0, insertion.size)
                             : writer.Put(insertion.bytes, insertion.size);
            if (result == DICOM_OK && insertion.padded)
                result = writer.Put(&insertion.padding, 1);
            if (result == DICOM_OK)
                result = writer.PutHost(old, unit, offset + removed, behind);
            if (result == DICOM_OK)
                result = writer.Flush();
        }
        if (result == DICOM_OK)
            result = value.Keep(old, behind, oldLength);
        return result == DICOM_OK ? value.Commit() : result;
    });
}

unsigned int StoreValue(DataSetState& state, DICOMELEMENT* e, const void* bytes, VDicomULong length) {
    Insertion insertion;
    insertion.bytes = bytes;
    insertion.size = length;
    insertion.padded = length % 2 != 0;
    insertion.padding = PadByte(e->nVR);
    return SpliceValue(state, e, 0, PieceList(e).Length(), insertion);
}

unsigned int CopyValue(DataSetState& state, DICOMELEMENT* e, const DataSetState& from, const DICOMELEMENT* source) {
    if (e == source)
        return DICOM_OK;
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        const PieceList list(source);
        if (!list.Exists())
            return DICOM_ERROR_READ;
        unsigned int toUnit = state.SwapUnitOf(e);
        unsigned int fromUnit = from.SwapUnitOf(source);
        if (toUnit == fromUnit)
            toUnit = fromUnit = 1; // stored alike: the bytes go as they are
        NewValue value(state, e);
        HostWriter writer(value, toUnit, list.Length());
        unsigned int result = writer.PutHost(list, fromUnit, 0, list.Length());
        if (result == DICOM_OK)
            result = writer.Flush();
        return result == DICOM_OK ? value.Commit() : result;
    });
}

} // namespace vdicom
