#include "PDataSplitter.h"

namespace vdicom {

PDataSplitter::PDataSplitter(unsigned char contextId, bool command, VDicomUInt64 size, VDicomULong limit)
    : m_contextId(contextId), m_command(command), m_done(Check(size, limit) != DICOM_OK), m_size(size) {
    // Fragments have an even number of bytes, also where the peer's limit is odd.
    m_fragment = limit == kNoLimit ? std::max<VDicomUInt64>(size, 1) : (limit - kDataValueHeader) & ~VDicomUInt64{1};
    if (m_done)
        m_fragment = 1;
}

unsigned int PDataSplitter::Check(VDicomUInt64 size, VDicomULong limit) {
    if (limit != kNoLimit)
        return limit < kSmallestLimit ? DICOM_ERROR_PARAMETER : DICOM_OK;
    // The whole PDU, its header included, is counted in 32 bits by those who send it.
    return size > DICOM_UNDEFINED - kDataHeader ? DICOM_ERROR_SIZE : DICOM_OK;
}

bool PDataSplitter::Next(Part& out) {
    if (m_done)
        return false;
    const VDicomUInt64 left = m_size - m_offset;
    out.offset = m_offset;
    out.fragment = static_cast<VDicomULong>(std::min(left, m_fragment));
    m_offset += out.fragment;
    m_done = m_offset == m_size;
    EncodeDataHeader(out.header, m_contextId, m_command, m_done, out.fragment);
    return true;
}

} // namespace vdicom
