/// @file ValuePieces.h
/// Raw values: byte ranges of streams, in the byte order of the data set. Reading them in host order, and building a
/// new value beside the old one, which stays until the new one is complete.
#pragma once

#include "DataSetState.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace vdicom {

/// Values are copied this many bytes at a time; a multiple of every unit.
constexpr std::size_t kCopyBuffer = StreamAccess::kMaxView;
/// The longest value: even, and not the undefined length.
constexpr VDicomULong kLongestValue = 0xFFFFFFFE;

struct Piece {
    VDicomFile* stream;
    VDicomUInt64 offset;
    VDicomULong size;
};

/// The pieces of an element, or one piece by itself. Borrows what it is made from.
class PieceList {
public:
    explicit PieceList(const DICOMELEMENT* e);
    explicit PieceList(const Piece& piece);
    PieceList(const PieceList&) = delete;
    PieceList& operator=(const PieceList&) = delete;

    VDicomULong Length() const { return m_length; }
    /// The piece that holds byte `offset`, which becomes the place within it; behind the end it is the last byte's.
    VDicomULong Find(VDicomULong& offset) const;
    /// Whether every piece lies inside its stream: to be asked before memory is taken for a value.
    bool Exists() const;
    /// Bytes as they are stored. The range must lie inside the value.
    bool ReadStored(VDicomULong offset, void* buffer, VDicomULong length) const;
    /// Bytes in host order: whole units from the start of the value are swapped, wherever the range begins and ends.
    bool ReadHost(unsigned int unit, VDicomULong offset, void* buffer, VDicomULong length) const;
    Piece At(VDicomULong index) const;
    VDicomULong Count() const { return m_count; }

private:
    bool FixUnit(unsigned int unit, VDicomULong start, VDicomULong offset, unsigned char* buffer,
                 VDicomULong length) const;

    const VDicomOffset* m_offsets;
    VDicomFile* const* m_streams;
    const VDicomULong* m_sizes;
    VDicomULong m_count;
    VDicomULong m_length;
    VDicomOffset m_offset = 0;
};

/// Builds a new value for an element from front to back. Operations return DICOM_OK or a result code, or throw
/// std::bad_alloc; the element changes in Commit alone.
class NewValue {
public:
    NewValue(DataSetState& state, DICOMELEMENT* e) : m_state(state), m_element(e) {}

    /// Takes over bytes of the old value as they are stored.
    unsigned int Keep(const PieceList& list, VDicomULong begin, VDicomULong end);
    unsigned int Add(const Piece& piece);
    /// Writes bytes to the scratch stream; in the order in which they are to be stored.
    unsigned int Append(const void* stored, std::size_t size);
    unsigned int Commit();

private:
    DataSetState& m_state;
    DICOMELEMENT* m_element;
    std::vector<Piece> m_pieces;
    VDicomUInt64 m_length = 0;
};

/// Turns bytes in host order into stored ones on their way into a NewValue. Begins at a whole unit.
class HostWriter {
public:
    /// `expected`: how many bytes will come, as far as it is known.
    HostWriter(NewValue& value, unsigned int unit, VDicomULong expected);

    unsigned int Put(const void* bytes, VDicomULong size);
    unsigned int PutHost(const PieceList& list, unsigned int unit, VDicomULong begin, VDicomULong end);
    unsigned int Flush();

private:
    void NeedBuffer();

    NewValue& m_value;
    unsigned int m_unit;
    std::size_t m_capacity; ///< a multiple of every unit
    std::size_t m_used = 0;
    std::unique_ptr<unsigned char[]> m_buffer;
};

/// What goes into a value: bytes in host order, or a piece as it is stored.
struct Insertion {
    const void* bytes = nullptr;
    const Piece* piece = nullptr;
    VDicomULong size = 0;
    bool padded = false; ///< `padding` follows behind `bytes`
    unsigned char padding = '\0';
};

/// Replaces `removed` bytes of the value from `offset` on. The range must lie inside the value. No exceptions.
unsigned int SpliceValue(DataSetState& state, DICOMELEMENT* e, VDicomULong offset, VDicomULong removed,
                         const Insertion& insertion);

/// Replaces the whole value by bytes in host order, padded to even length. No exceptions.
unsigned int StoreValue(DataSetState& state, DICOMELEMENT* e, const void* bytes, VDicomULong length);

/// Replaces the whole value by a copy of another element's. No exceptions.
unsigned int CopyValue(DataSetState& state, DICOMELEMENT* e, const DataSetState& from, const DICOMELEMENT* source);

} // namespace vdicom
