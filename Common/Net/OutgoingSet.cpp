#include "OutgoingSet.h"

#include "Guarded.h"
#include "MessageSyntax.h"
#include "StreamAccess.h"
#include "VRTraits.h"

namespace vdicom {

namespace {

constexpr VDicomULong kGroupLength = 0x00000000, kPixelData = 0x7FE00010, kTransferSyntaxUID = 0x00020010;

// The peer decodes by the context's transfer syntax: pixel data must be as that says.
bool PixelsFit(VDicomDS& set, const WireSyntax& wire, const char* transferSyntax) {
    char own[65] = "";
    VDicomLong compression = 0;
    set.GetTS(nullptr, &compression, nullptr);
    set.FindGetValue(nullptr, kTransferSyntaxUID, 5, own, sizeof own);
    VDicomDS::DelSpaces(own);
    const DICOMELEMENT* pixels = set.FindFirstElement(nullptr, kPixelData, 1);
    const bool encapsulated = pixels != nullptr && pixels->nLength == DICOM_UNDEFINED;
    if (encapsulated)
        return wire.encapsulated && (compression == 0 || std::strcmp(own, transferSyntax) == 0);
    if (wire.encapsulated && pixels != nullptr && pixels->nLength != 0)
        return false;
    // A set that calls itself compressed is saved in explicit VR little endian, whatever the flags.
    return compression == 0 || (wire.flags == (DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_LITTLE) && !wire.deflated);
}

} // namespace

unsigned int OutgoingSet::Encode(VDicomDS* set, const Route& route) {
    m_done = true;
    if (set == nullptr || (!route.command && route.transferSyntax == nullptr))
        return DICOM_ERROR_PARAMETER;
    unsigned int code = Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&] { return Write(*set, route); });
    if (code != DICOM_OK)
        return code;
    VDicomUInt64 size = m_bytes.GetSize64();
    for (const StreamRange& range : m_ranges)
        size += range.size;
    code = PDataSplitter::Check(size, route.limit);
    if (code != DICOM_OK)
        return code;
    m_plan = PDataSplitter(route.contextId, route.command, size, route.limit);
    m_sent = 0;
    m_range = 0;
    m_passed = 0;
    m_done = !m_plan.Next(m_part);
    return DICOM_OK;
}

void OutgoingSet::Drop() {
    m_done = true;
    m_bytes.Close(1);
    m_ranges.clear();
}

unsigned int OutgoingSet::Write(VDicomDS& set, const Route& route) {
    const WireSyntax wire = WireSyntaxOf(route.command, route.transferSyntax);
    if (!route.command && !PixelsFit(set, wire, route.transferSyntax))
        return DICOM_ERROR_UNSUPPORTED;
    if (m_bytes.Open(route.tempPath, DICOM_FILE_MODE_SCRATCH) == 0)
        return DICOM_ERROR_OPEN;
    auto flags = static_cast<unsigned short>(wire.flags | DICOM_FLAG_KEEP_UID);
    if (wire.deflated)
        flags |= DICOM_FLAG_DEFLATED;
    DICOMELEMENT* first = set.GetFirstElement(nullptr, 0, 1);
    if (route.command && first != nullptr && first->nTag > kGroupLength && first->nTag <= 0xFFFF) {
        unsigned char length[4];
        Put32(length, static_cast<std::uint32_t>(set.GetLengthGroup(first, flags)), true);
        const unsigned int code = set.WriteElement(&m_bytes, kGroupLength, vr::UL, sizeof length, 1, 0);
        if (code != DICOM_OK)
            return code;
        if (m_bytes.Write(length, sizeof length) == 0)
            return DICOM_ERROR_WRITE;
    }
    m_ranges.clear();
    StreamAccess::CollectRanges(m_bytes, route.inPlace ? &m_ranges : nullptr);
    return set.SaveDS(&m_bytes, flags);
}

// Encoded bytes from `offset` on, where they stand; empty at the end, or when they cannot be read.
ByteSpan OutgoingSet::Look(VDicomUInt64 offset) {
    while (m_range < m_ranges.size() && offset >= m_ranges[m_range].before + m_passed + m_ranges[m_range].size)
        m_passed += m_ranges[m_range++].size;
    VDicomFile* stream = &m_bytes;
    VDicomUInt64 position = offset - m_passed;
    VDicomUInt64 end = m_bytes.GetSize64();
    if (m_range < m_ranges.size()) {
        const StreamRange& range = m_ranges[m_range];
        end = range.before;
        if (position >= range.before) {
            stream = range.source;
            position = position - range.before + range.position;
            end = range.position + range.size;
        }
    }
    const VDicomUInt64 left = end - std::min(position, end);
    if (left == 0)
        return {};
    const auto wanted = static_cast<std::size_t>(std::min<VDicomUInt64>(left, StreamAccess::kMaxView));
    ByteSpan found = StreamAccess::View(*stream, position, wanted);
    found.size = static_cast<std::size_t>(std::min<VDicomUInt64>(found.size, left));
    return found;
}

std::size_t OutgoingSet::Gather(ByteSpan* out, std::size_t most) {
    if (m_done)
        return 0;
    const VDicomULong header = static_cast<VDicomULong>(kDataHeader);
    VDicomULong sent = m_sent;
    const VDicomUInt64 start = m_part.offset + (sent > header ? sent - header : 0);
    ByteSpan window = Look(start);
    if (window.size == 0 && m_part.fragment != 0)
        return 0;
    PDataSplitter ahead = m_plan;
    std::size_t count = 0;
    m_gathered[0] = m_part;
    for (std::size_t i = 0;;) {
        const PDataSplitter::Part& part = m_gathered[i];
        if (sent < header) {
            out[count++] = {part.header + sent, header - sent};
            sent = header;
        }
        const std::size_t fragment = std::min<std::size_t>(part.Size() - sent, window.size);
        if (count == most)
            return count;
        if (fragment != 0)
            out[count++] = {window.data, fragment};
        window.data += fragment;
        window.size -= fragment;
        sent = 0;
        // No header without the beginning of its fragment: the next window begins with both.
        if (window.size == 0 || count == most || ++i == std::size(m_gathered) || !ahead.Next(m_gathered[i]))
            return count;
    }
}

std::size_t OutgoingSet::Sent(std::size_t bytes, bool& complete) {
    complete = false;
    if (m_done)
        return 0;
    const VDicomULong left = m_part.Size() - m_sent;
    const std::size_t counted = std::min<std::size_t>(bytes, left);
    m_sent += static_cast<VDicomULong>(counted);
    complete = counted == left;
    if (complete) {
        m_sent = 0;
        m_done = !m_plan.Next(m_part);
        if (m_done)
            Drop();
    }
    return counted;
}

} // namespace vdicom
