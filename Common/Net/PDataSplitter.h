/// @file PDataSplitter.h
/// Cuts an encoded command set or data set of known size into P-DATA-TF PDUs of one value each (PS3.8 9.3.5, E). Pure:
/// knows sizes alone, not the bytes. OutgoingSet has both.
#pragma once

#include "PduCodec.h"

namespace vdicom {

class PDataSplitter {
public:
    /// A maximum length that means "no limit" (PS3.8 D.1), and the smallest one that lets anything through.
    static constexpr VDicomULong kNoLimit = 0;
    static constexpr VDicomULong kSmallestLimit = 8;

    PDataSplitter() = default;
    /// @param size bytes of the set; 0 makes one empty value, so that the peer does not wait for ever
    /// @param limit maximum length in force, against the PDUs' length fields; kNoLimit: the set goes in one PDU
    PDataSplitter(unsigned char contextId, bool command, VDicomUInt64 size, VDicomULong limit);

    /// Whether such PDUs can be made: not with a limit below kSmallestLimit, nor with a PDU of more than 32 bits.
    static unsigned int Check(VDicomUInt64 size, VDicomULong limit);

    struct Part {
        unsigned char header[kDataHeader];
        VDicomUInt64 offset;  ///< of the fragment in the set
        VDicomULong fragment; ///< its size
        VDicomULong Size() const { return static_cast<VDicomULong>(kDataHeader) + fragment; }
    };
    /// The next PDU. @return false: there are no more
    bool Next(Part& out);

    /// Bytes of all PDUs together.
    VDicomUInt64 TotalSize() const { return m_size + Count() * kDataHeader; }
    VDicomUInt64 Count() const { return m_size == 0 ? 1 : (m_size - 1) / m_fragment + 1; }

private:
    unsigned char m_contextId = 0;
    bool m_command = false;
    bool m_done = true;
    VDicomUInt64 m_size = 0;
    VDicomUInt64 m_offset = 0;
    VDicomUInt64 m_fragment = 1; ///< of all PDUs but the last
};

} // namespace vdicom
