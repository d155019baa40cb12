/// @file Inflater.h
/// Deflated Explicit VR Little Endian (PS3.5 A.5): from and to streams, through bounded buffers.
#pragma once

#include "StreamAccess.h"

#include <memory>
#include <string>

namespace vdicom {

/// Opens `target` as temporary storage, copies the first `position` bytes of `source` into it and inflates the rest
/// behind them, at most `limit` bytes. What was inflated before a failure stays.
/// @return 0; DICOM_ERROR_DEFLATE (damaged, cut off or beyond the limit), DICOM_ERROR_READ, DICOM_ERROR_OPEN,
///         DICOM_ERROR_WRITE, DICOM_ERROR_MEMORY; `reason` says which in words
unsigned int InflateStream(VDicomFile& source, VDicomUInt64 position, VDicomFile& target, const std::string& tempPath,
                           VDicomUInt64 limit, std::string& reason);

/// Deflates what is written to it into a stream, through a bounded buffer.
class Deflater {
public:
    explicit Deflater(VDicomFile& target);
    ~Deflater();
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    /// @return false when the target cannot be written
    bool Write(const void* bytes, std::size_t size);
    /// Ends the deflated data and pads them to even length. @return false when the target cannot be written
    bool Finish();

private:
    struct State;
    bool Run(int flush);
    std::unique_ptr<State> m_state;
};

} // namespace vdicom
