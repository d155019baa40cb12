#include "Writer.h"

#include "Keys.h"

#include <algorithm>
#include <array>
#include <memory>

namespace vdicom {

namespace {

constexpr Encoding kImplicitLittle{true, false};
constexpr VDicomUInt64 kDelimiterSize = 8;
constexpr std::size_t kChunk = 64 * 1024;
// From this size on the system is asked to copy between files by itself.
constexpr VDicomULong kLargePiece = 256 * 1024;
// How much is written between two calls of the progress callback, and how much the system copies at once.
constexpr VDicomUInt64 kProgressStep = VDicomUInt64{1} << 20;
constexpr VDicomUInt64 kCopyStep = VDicomUInt64{8} << 20;

unsigned short ElementVR(const DICOMELEMENT* e) {
    if (FirstChildOf(e) != nullptr && !IsUndefinedLength(e))
        return vr::SQ;
    return e->nVR == 0 || e->nVR == vr::Implicit ? vr::UN : e->nVR;
}

const DICOMELEMENT* SkipMeta(const DICOMELEMENT* e) {
    while (e != nullptr && GroupOf(e->nTag) == 2)
        e = NextOf(e);
    return e;
}

// The next element of group 0002 at the top level from `e` on: behind lower groups, and behind items, which stand
// wherever the application put them.
const DICOMELEMENT* NextMeta(const DICOMELEMENT* e) {
    while (e != nullptr && (GroupOf(e->nTag) < 2 || e->nTag == kItem))
        e = NextOf(e);
    return e != nullptr && GroupOf(e->nTag) == 2 ? e : nullptr;
}

// Whether an element holds the offset of a record: at the top level and in records alone.
bool IsOffset(const DICOMELEMENT* e) {
    const DICOMELEMENT* item = ParentOf(e);
    if (item == nullptr)
        return e->nTag == kFirstRecord || e->nTag == kLastRecord;
    const DICOMELEMENT* records = ParentOf(item);
    return IsOffsetTag(e->nTag) && item->nKey != 0 && records != nullptr && records->nTag == kDirectoryRecords &&
           ParentOf(records) == nullptr;
}

// The raw bytes of a value as they are stored, piece by piece, in parts of at most kChunk bytes. `jump` may deal with
// the start of a large piece by itself: it is given the stream, the place and the size, and tells how much it did.
template <typename Jump, typename Take> unsigned int ForEachPart(const DICOMELEMENT* e, Jump jump, Take take) {
    for (VDicomULong piece = 0; piece < e->nCountPiece; ++piece) {
        VDicomUInt64 at = e->pPieceOffset[piece];
        VDicomULong left = e->pPieceSize[piece];
        VDicomUInt64 jumped = 0;
        if (left >= kLargePiece && !jump(*e->pPieceStream[piece], at, left, jumped))
            return DICOM_ERROR_WRITE;
        at += jumped;
        left -= static_cast<VDicomULong>(jumped);
        while (left != 0) {
            const std::size_t wanted = std::min<std::size_t>(left, kChunk);
            const ByteSpan in = StreamAccess::View(*e->pPieceStream[piece], at, wanted);
            const std::size_t size = std::min<std::size_t>(in.size, left);
            if (size == 0)
                return DICOM_ERROR_READ;
            if (!take(in.data, size))
                return DICOM_ERROR_WRITE;
            at += size;
            left -= static_cast<VDicomULong>(size);
        }
    }
    return DICOM_OK;
}

} // namespace

Encoding Layout::EncodingFor(const DICOMELEMENT* parent, Encoding outer) {
    if (parent != nullptr && parent->nVR == vr::UN)
        return kImplicitLittle;
    return parent != nullptr && GroupOf(parent->nTag) == 2 ? Encoding{true, true} : outer;
}

Encoding Layout::EncodingBelow(const DICOMELEMENT* parent) const {
    for (const DICOMELEMENT* at = parent; at != nullptr; at = ParentOf(at)) {
        if (at->nVR == vr::UN || GroupOf(at->nTag) == 2)
            return EncodingFor(at, m_encoding);
    }
    return m_encoding;
}

unsigned short Layout::OutputVR(const DICOMELEMENT* e, Encoding encoding) {
    const unsigned short code = ElementVR(e);
    if ((!encoding.explicitVR && GroupOf(e->nTag) != 2) || HasLongHeader(code) || IsContainer(e) ||
        PaddedLength(e) <= 0xFFFF)
        return code;
    return vr::UN;
}

const DICOMELEMENT* Layout::FirstWritten(const DICOMELEMENT* parent) const {
    const DICOMELEMENT* first = m_state.tree.FirstChild(parent);
    if (parent != nullptr)
        return first;
    const DICOMELEMENT* meta = m_bare ? nullptr : NextMeta(first);
    return meta != nullptr ? meta : SkipMeta(first);
}

const DICOMELEMENT* Layout::NextWritten(const DICOMELEMENT* e) const {
    const DICOMELEMENT* next = NextOf(e);
    if (e->Link.pParent != nullptr)
        return next;
    if (GroupOf(e->nTag) != 2)
        return SkipMeta(next);
    const DICOMELEMENT* meta = NextMeta(next);
    return meta != nullptr ? meta : SkipMeta(m_state.tree.First());
}

VDicomUInt64 Layout::SizeBelow(const DICOMELEMENT* parent, Encoding encoding) const {
    VDicomUInt64 size = 0;
    for (const DICOMELEMENT* e = FirstWritten(parent); e != nullptr; e = NextWritten(e))
        size += SizeOf(e, encoding);
    return size;
}

VDicomUInt64 Layout::SizeBelow(const DICOMELEMENT* parent) const { return SizeBelow(parent, EncodingBelow(parent)); }

VDicomUInt64 Layout::SizeOf(const DICOMELEMENT* e, Encoding encoding) const {
    const VDicomUInt64 header = HeaderSize(e->nTag, OutputVR(e, encoding), encoding);
    if (!IsContainer(e))
        return header + PaddedLength(e);
    return header + SizeBelow(e, EncodingFor(e, encoding)) + kDelimiterSize;
}

VDicomUInt64 Layout::SizeOfGroup(const DICOMELEMENT* e) const {
    const DICOMELEMENT* parent = ParentOf(e);
    const Encoding encoding = EncodingBelow(parent);
    const DICOMELEMENT* first = e;
    const auto inGroup = [e](const DICOMELEMENT* other) {
        return other != nullptr && GroupOf(other->nTag) == GroupOf(e->nTag);
    };
    while (inGroup(ElementOf(first->Link.pPrev)))
        first = ElementOf(first->Link.pPrev);
    if (parent == nullptr && GroupOf(e->nTag) == 2)
        first = NextMeta(m_state.tree.First());
    VDicomUInt64 size = 0;
    for (const DICOMELEMENT* at = first; inGroup(at); at = NextWritten(at)) {
        // The length of the group is not counted; a second one, from a damaged file, stands behind the first.
        if (at != first || !IsGroupLength(at->nTag))
            size += SizeOf(at, encoding);
    }
    return size;
}

VDicomUInt64 Layout::OffsetOf(const DICOMELEMENT* e) const {
    VDicomUInt64 offset = 0;
    for (;;) {
        const DICOMELEMENT* parent = ParentOf(e);
        const Encoding encoding = EncodingBelow(parent);
        for (const DICOMELEMENT* at = FirstWritten(parent); at != nullptr && at != e; at = NextWritten(at))
            offset += SizeOf(at, encoding);
        if (parent == nullptr)
            return offset;
        offset += HeaderSize(parent->nTag, OutputVR(parent, EncodingBelow(ParentOf(parent))),
                             EncodingBelow(ParentOf(parent)));
        e = parent;
    }
}

// False when the application wants to stop.
bool Writer::Advance(VDicomUInt64 size) {
    m_done += size;
    if (m_total == 0 || (m_done - m_said < kProgressStep && m_done != m_total))
        return true;
    m_said = m_done;
    m_cancelled = m_state.progress(m_done, m_total, m_state.progressData) == 0;
    return !m_cancelled;
}

bool Writer::Put(const void* bytes, std::size_t size) {
    const bool done = m_deflater != nullptr ? m_deflater->Write(bytes, size)
                                            : m_target.Write(bytes, static_cast<VDicomULong>(size)) != 0;
    return done && Advance(size);
}

// Lets the system copy, in steps that show progress. False when it failed or was cancelled.
bool Writer::CopyLarge(VDicomFile& source, VDicomUInt64 position, VDicomUInt64 size, VDicomUInt64& done) {
    done = 0;
    while (m_deflater == nullptr && done < size) {
        VDicomUInt64 copied = 0;
        const VDicomUInt64 step = std::min(size - done, kCopyStep);
        if (!StreamAccess::CopyRange(m_target, source, position + done, step, copied))
            return false;
        if (copied == 0)
            break;
        done += copied;
        if (!Advance(copied))
            return false;
    }
    return true;
}

unsigned int Writer::WriteHeader(VDicomULong tag, unsigned short vr, VDicomULong length, Encoding encoding) {
    unsigned char header[kLongestHeader];
    const unsigned int size = EncodeHeader(header, tag, vr, length, encoding);
    if (size == 0)
        return DICOM_ERROR_SIZE;
    return Put(header, size) ? DICOM_OK : DICOM_ERROR_WRITE;
}

unsigned int Writer::WriteNumber(const DICOMELEMENT* e, VDicomUInt64 number, Encoding encoding) {
    if (number >= DICOM_UNDEFINED)
        return DICOM_ERROR_SIZE;
    const bool little = encoding.littleEndian || GroupOf(e->nTag) == 2;
    unsigned char bytes[4];
    Put32(bytes, static_cast<std::uint32_t>(number), little);
    const unsigned int code = WriteHeader(e->nTag, Layout::OutputVR(e, encoding), sizeof bytes, encoding);
    return code != DICOM_OK || Put(bytes, sizeof bytes) ? code : static_cast<unsigned int>(DICOM_ERROR_WRITE);
}

unsigned int Writer::WriteValue(const DICOMELEMENT* e, unsigned short outputVR, Encoding encoding) {
    const bool little = encoding.littleEndian || GroupOf(e->nTag) == 2 || (outputVR == vr::UN && e->nVR != vr::UN);
    const unsigned int unit = little == m_state.IsLittleEndian(e) ? 1 : SwapUnit(e->nVR);
    unsigned int code = DICOM_OK;
    if (unit == 1) {
        const auto copy = [this](VDicomFile& source, VDicomUInt64 at, VDicomUInt64 size, VDicomUInt64& done) {
            return CopyLarge(source, at, size, done);
        };
        code = ForEachPart(e, copy, [this](const unsigned char* bytes, std::size_t size) { return Put(bytes, size); });
    } else {
        // A unit may lie across two pieces, so the bytes are collected before they are swapped.
        const auto buffer = std::make_unique<std::array<unsigned char, kChunk>>();
        std::size_t held = 0;
        const auto flush = [&] {
            SwapUnits(buffer->data(), held, unit);
            const bool done = Put(buffer->data(), held);
            held = 0;
            return done;
        };
        const auto nothing = [](VDicomFile&, VDicomUInt64, VDicomUInt64, VDicomUInt64&) { return true; };
        code = ForEachPart(e, nothing, [&](const unsigned char* bytes, std::size_t size) {
            while (size != 0) {
                const std::size_t part = std::min(size, buffer->size() - held);
                std::memcpy(buffer->data() + held, bytes, part);
                held += part;
                bytes += part;
                size -= part;
                if (held == buffer->size() && !flush())
                    return false;
            }
            return true;
        });
        if (code == DICOM_OK && held != 0 && !flush())
            code = DICOM_ERROR_WRITE;
    }
    if (code == DICOM_OK && (e->nLength & 1) != 0) {
        const unsigned char pad = PadByte(e->nVR);
        code = Put(&pad, 1) ? DICOM_OK : DICOM_ERROR_WRITE;
    }
    return code;
}

// A damaged file may have thousands of length elements of one group: such a group is measured once.
VDicomUInt64 Writer::GroupSize(const DICOMELEMENT* e) {
    const DICOMELEMENT* first = m_state.tree.FindChild(ParentOf(e), e->nTag);
    const DICOMELEMENT* second = first == nullptr ? nullptr : NextOf(first);
    if (second == nullptr || second->nTag != e->nTag)
        return m_layout.SizeOfGroup(e);
    const auto [found, isNew] = m_groups.try_emplace(first, 0);
    if (isNew)
        found->second = m_layout.SizeOfGroup(e);
    return found->second;
}

unsigned int Writer::WriteOne(const DICOMELEMENT* e, Encoding encoding) {
    if (IsGroupLength(e->nTag) && !Layout::IsContainer(e) && e->nLength == 4)
        return WriteNumber(e, GroupSize(e), encoding);
    if (m_hasRecords && IsOffset(e) && !Layout::IsContainer(e) && e->nLength == 4) {
        const auto record = m_records.find(e->nKey);
        return WriteNumber(e, record == m_records.end() ? 0 : record->second, encoding);
    }
    const unsigned short outputVR = Layout::OutputVR(e, encoding);
    if (!Layout::IsContainer(e)) {
        const unsigned int code = WriteHeader(e->nTag, outputVR, Layout::PaddedLength(e), encoding);
        return code != DICOM_OK ? code : WriteValue(e, outputVR, encoding);
    }
    // A value and children under one element cannot both be written.
    if (!IsUndefinedLength(e) && e->nLength != 0)
        return DICOM_ERROR_STRUCTURE;
    unsigned int code = WriteHeader(e->nTag, outputVR, DICOM_UNDEFINED, encoding);
    const Encoding inner = Layout::EncodingFor(e, encoding);
    if (code == DICOM_OK)
        code = WriteLevel(e, inner);
    if (code == DICOM_OK)
        code = WriteHeader(e->nTag == kItem ? kItemDelimiter : kSequenceDelimiter, vr::OB, 0, inner);
    return code;
}

unsigned int Writer::WriteLevel(const DICOMELEMENT* parent, Encoding encoding) {
    for (const DICOMELEMENT* e = m_layout.FirstWritten(parent); e != nullptr; e = m_layout.NextWritten(e)) {
        if (const unsigned int code = WriteOne(e, encoding); code != DICOM_OK)
            return code;
    }
    return DICOM_OK;
}

unsigned int Writer::WriteLevel(const DICOMELEMENT* parent) {
    return WriteLevel(parent, m_layout.EncodingBelow(parent));
}

// One pass over the directory records gives the offset of each.
void Writer::LayOutRecords(VDicomUInt64 start) {
    const DICOMELEMENT* records = m_state.tree.FindChild(nullptr, kDirectoryRecords);
    if (records == nullptr)
        return;
    m_hasRecords = true;
    const Encoding encoding = m_layout.EncodingBelow(nullptr);
    VDicomUInt64 offset = start + m_layout.OffsetOf(records) + HeaderSize(records->nTag, vr::SQ, encoding);
    for (const DICOMELEMENT* item = FirstChildOf(records); item != nullptr; item = NextOf(item)) {
        if (item->nKey != 0)
            m_records[item->nKey] = offset;
        offset += m_layout.SizeOf(item, m_layout.EncodingBelow(records));
    }
}

unsigned int Writer::WriteTop(VDicomUInt64 start, bool deflated) {
    LayOutRecords(start);
    if (m_state.progress != nullptr) {
        m_done = start;
        m_total = start + m_layout.SizeBelow(nullptr);
    }
    const unsigned int code = WriteTopElements(deflated);
    return m_cancelled ? static_cast<unsigned int>(DICOM_ERROR_CANCELLED) : code;
}

unsigned int Writer::WriteTopElements(bool deflated) {
    const Encoding encoding = m_layout.EncodingBelow(nullptr);
    std::unique_ptr<Deflater> deflater;
    for (const DICOMELEMENT* e = m_layout.FirstWritten(nullptr); e != nullptr; e = m_layout.NextWritten(e)) {
        if (deflated && !deflater && GroupOf(e->nTag) != 2) {
            deflater = std::make_unique<Deflater>(m_target);
            m_deflater = deflater.get();
        }
        if (const unsigned int code = WriteOne(e, encoding); code != DICOM_OK)
            return code;
    }
    if (deflated && !deflater) {
        deflater = std::make_unique<Deflater>(m_target);
        m_deflater = deflater.get();
    }
    m_deflater = nullptr;
    return deflater == nullptr || deflater->Finish() ? DICOM_OK : DICOM_ERROR_WRITE;
}

} // namespace vdicom
