/// @file Writer.h
/// Encodes a tree: sizes, offsets and bytes by one and the same rules.
#pragma once

#include "DataSetState.h"
#include "ElementHeader.h"
#include "Inflater.h"

#include <unordered_map>

namespace vdicom {

/// How the tree is encoded: what both the layout and the writer go by.
class Layout {
public:
    Layout(const DataSetState& state, Encoding encoding, bool bare)
        : m_state(state), m_encoding(encoding), m_bare(bare) {}

    /// The encoding of what stands below `parent` (null: top level).
    Encoding EncodingBelow(const DICOMELEMENT* parent) const;
    /// The same where that of `parent` itself is known.
    static Encoding EncodingFor(const DICOMELEMENT* parent, Encoding outer);
    /// The VR that is written: "UN" for none, and where a value is too long for its VR's 16-bit length (PS3.5 6.2.2).
    static unsigned short OutputVR(const DICOMELEMENT* e, Encoding encoding);
    /// Whether an element is written as a run of items closed by a delimiter.
    static bool IsContainer(const DICOMELEMENT* e) { return IsUndefinedLength(e) || FirstChildOf(e) != nullptr; }
    /// The value's length, made even.
    static VDicomULong PaddedLength(const DICOMELEMENT* e) { return e->nLength + (e->nLength & 1); }

    /// The children of an element in the order in which they are written: at the top level group 0002 comes first, also
    /// before the groups below it.
    const DICOMELEMENT* FirstWritten(const DICOMELEMENT* parent) const;
    const DICOMELEMENT* NextWritten(const DICOMELEMENT* e) const;

    /// Header, value or content, and delimiter of one element.
    VDicomUInt64 SizeOf(const DICOMELEMENT* e, Encoding encoding) const;
    /// All below an element, without its own header and delimiter.
    VDicomUInt64 SizeBelow(const DICOMELEMENT* parent) const;
    /// The group of `e` at its level, without its group length element.
    VDicomUInt64 SizeOfGroup(const DICOMELEMENT* e) const;
    /// Where the header of `e` stands, counted from the start of the top level.
    VDicomUInt64 OffsetOf(const DICOMELEMENT* e) const;

private:
    VDicomUInt64 SizeBelow(const DICOMELEMENT* parent, Encoding encoding) const;

    const DataSetState& m_state;
    Encoding m_encoding;
    bool m_bare;
};

class Writer {
public:
    Writer(const DataSetState& state, VDicomFile& target, Encoding encoding, bool bare)
        : m_state(state), m_target(target), m_layout(state, encoding, bare) {}

    /// Everything behind the prefix. `start`: where the top level begins in the file, for directory offsets.
    unsigned int WriteTop(VDicomUInt64 start, bool deflated);
    unsigned int WriteLevel(const DICOMELEMENT* parent);

private:
    unsigned int WriteTopElements(bool deflated);
    unsigned int WriteOne(const DICOMELEMENT* e, Encoding encoding);
    unsigned int WriteLevel(const DICOMELEMENT* parent, Encoding encoding);
    unsigned int WriteValue(const DICOMELEMENT* e, unsigned short outputVR, Encoding encoding);
    unsigned int WriteNumber(const DICOMELEMENT* e, VDicomUInt64 number, Encoding encoding);
    unsigned int WriteHeader(VDicomULong tag, unsigned short vr, VDicomULong length, Encoding encoding);
    bool Put(const void* bytes, std::size_t size);
    bool CopyLarge(VDicomFile& source, VDicomUInt64 position, VDicomUInt64 size, VDicomUInt64& done);
    bool Advance(VDicomUInt64 size);
    void LayOutRecords(VDicomUInt64 start);

    VDicomUInt64 GroupSize(const DICOMELEMENT* e);

    const DataSetState& m_state;
    VDicomFile& m_target;
    Layout m_layout;
    /// Sizes of groups whose length element is doubled, by the first of them.
    std::unordered_map<const DICOMELEMENT*, VDicomUInt64> m_groups;
    Deflater* m_deflater = nullptr;
    std::unordered_map<VDicomULong, VDicomUInt64> m_records; ///< key number to offset
    bool m_hasRecords = false;
    VDicomUInt64 m_total = 0; ///< bytes to write, before deflating; 0: nobody asks
    VDicomUInt64 m_done = 0;
    VDicomUInt64 m_said = 0; ///< what the progress callback heard last
    bool m_cancelled = false;
};

} // namespace vdicom
