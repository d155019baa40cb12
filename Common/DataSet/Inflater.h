/// @file Inflater.h
/// Deflated Explicit VR Little Endian (PS3.5 A.5): from and to streams, through bounded buffers.
#pragma once

#include "StreamAccess.h"

#include <string>

namespace vdicom {

/// Opens `target` as temporary storage, copies the first `position` bytes of `source` into it and inflates the rest
/// behind them, at most `limit` bytes. What was inflated before a failure stays.
/// @return 0; DICOM_ERROR_DEFLATE (damaged, cut off or beyond the limit), DICOM_ERROR_READ, DICOM_ERROR_OPEN,
///         DICOM_ERROR_WRITE, DICOM_ERROR_MEMORY; `reason` says which in words
unsigned int InflateStream(VDicomFile& source, VDicomUInt64 position, VDicomFile& target, const std::string& tempPath,
                           VDicomUInt64 limit, std::string& reason);

/// Deflates `source` from `position` to its end and writes that to `target` at its current position, padded to even
/// length. @return 0 or a result code
unsigned int DeflateStream(VDicomFile& source, VDicomUInt64 position, VDicomFile& target);

} // namespace vdicom
