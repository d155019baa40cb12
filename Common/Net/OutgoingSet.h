/// @file OutgoingSet.h
/// A command set or data set on its way out: encoded once, then handed to the socket as P-DATA-TF PDUs without another
/// copy. Knows no socket.
///
/// The connection makes one for each SendData, encodes, and appends it to its queue of outgoing bytes in the place of
/// PDUs made beforehand; TotalSize() counts into the queued bytes at once. On a write event it asks Gather for the next
/// bytes, hands them to the socket, and tells Sent what the socket took, which says where OnSend is due. The data set
/// may change or be gone as soon as Encode has returned, unless its owner lets it be used in place.
///
/// Memory: what is encoded stays in memory up to 1 MiB and in a temporary file beyond; a Gather looks at no more than
/// 64 KiB of a file. In place, large values are not copied at all.
#pragma once

#include "PDataSplitter.h"
#include "StreamAccess.h"
#include "VDicomDS.h"

#include <vector>

namespace vdicom {

class OutgoingSet {
public:
    /// Pieces of memory that one Gather fills at most: a header and a fragment for each PDU.
    static constexpr std::size_t kMostSpans = 32;

    OutgoingSet() = default;
    OutgoingSet(const OutgoingSet&) = delete;
    OutgoingSet& operator=(const OutgoingSet&) = delete;

    struct Route {
        unsigned char contextId = 0;
        bool command = false;
        const char* transferSyntax = nullptr; ///< the context's first; a command needs none
        VDicomULong limit = PDataSplitter::kNoLimit;
        const char* tempPath = nullptr; ///< folder for temporary files; null or empty: the platform's
        /// Values of 256 KiB and more that need no conversion are read from the set's streams when they are sent: the
        /// set and its streams must then stay as they are until Done().
        bool inPlace = false;
    };

    /// Encodes a set. A command gets its group length (0000,0000), which is written and not put into `set`.
    /// @return 0; DICOM_ERROR_PARAMETER (null set, data set without transfer syntax, limit too small);
    ///         DICOM_ERROR_UNSUPPORTED (the pixel data are not encoded as the transfer syntax says);
    ///         DICOM_ERROR_SIZE; DICOM_ERROR_OPEN, DICOM_ERROR_WRITE (temporary storage); codes of VDicomDS::SaveDS
    unsigned int Encode(VDicomDS* set, const Route& route);
    /// Gives up what has not been sent, and its storage.
    void Drop();

    /// Bytes of all PDUs.
    VDicomUInt64 TotalSize() const { return m_plan.TotalSize(); }
    /// Whether everything has been sent.
    bool Done() const { return m_done; }
    /// Whether bytes of it stand in streams that are not its own.
    bool InPlace() const { return !m_ranges.empty(); }

    /// The next unsent bytes, in order: at most `most` pieces (1 or more), as many PDUs as one look at the storage
    /// gives. Valid until the next call on this object or, in place, on the set.
    /// @return the number of pieces; 0: all is sent, or (Done() is false) the bytes cannot be read any more
    std::size_t Gather(ByteSpan* out, std::size_t most);

    /// The socket has taken the next `bytes`. Counts them up to the end of the PDU that they belong to; to be called
    /// again with the rest. @param complete whether that PDU is now sent @return how many were counted
    std::size_t Sent(std::size_t bytes, bool& complete);

private:
    unsigned int Write(VDicomDS& set, const Route& route);
    ByteSpan Look(VDicomUInt64 offset);

    VDicomFile m_bytes;
    std::vector<StreamRange> m_ranges; ///< what stands between them, in the set's own streams
    std::size_t m_range = 0;           ///< the first one that is not sent
    VDicomUInt64 m_passed = 0;         ///< bytes of those before it
    PDataSplitter m_plan;              ///< standing behind m_part
    PDataSplitter::Part m_part{};      ///< the PDU being sent
    VDicomULong m_sent = 0;            ///< bytes of it that are sent, header included
    bool m_done = true;
    PDataSplitter::Part m_gathered[kMostSpans / 2]; ///< headers that a Gather points to
};

} // namespace vdicom
