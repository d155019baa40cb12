#include "Inflater.h"

#include <algorithm>
#include <array>
#include <memory>

#define ZLIB_CONST
#include <zlib.h>

namespace vdicom {

namespace {

constexpr std::size_t kBuffer = 64 * 1024;
using Buffer = std::array<unsigned char, kBuffer>;

bool CopyHead(VDicomFile& source, VDicomUInt64 size, VDicomFile& target) {
    for (VDicomUInt64 at = 0; at < size;) {
        const ByteSpan in =
            StreamAccess::View(source, at, static_cast<std::size_t>(std::min<VDicomUInt64>(size - at, kBuffer)));
        const auto part = static_cast<VDicomULong>(std::min<VDicomUInt64>(in.size, size - at));
        if (part == 0 || target.Write(in.data, part) == 0)
            return false;
        at += part;
    }
    return true;
}

// A few writers put the zlib header before the deflated bytes, which the standard does not have.
bool HasZlibHeader(ByteSpan in) {
    return in.size >= 2 && (in.data[0] & 0x0F) == 8 && (in.data[0] >> 4) <= 7 &&
           ((in.data[0] << 8) | in.data[1]) % 31 == 0 && (in.data[0] & 0x07) == 0;
}

} // namespace

unsigned int InflateStream(VDicomFile& source, VDicomUInt64 position, VDicomFile& target, const std::string& tempPath,
                           VDicomUInt64 limit, std::string& reason) {
    if (target.Open(tempPath.c_str(), DICOM_FILE_MODE_SCRATCH) == 0) {
        reason = "no temporary storage for inflating";
        return DICOM_ERROR_OPEN;
    }
    const auto out = std::make_unique<Buffer>();
    if (!CopyHead(source, position, target)) {
        reason = "the temporary storage cannot be written";
        return DICOM_ERROR_WRITE;
    }
    z_stream zip{};
    const int window = HasZlibHeader(StreamAccess::View(source, position, 2)) ? MAX_WBITS : -MAX_WBITS;
    if (inflateInit2(&zip, window) != Z_OK)
        return DICOM_ERROR_MEMORY;
    const std::unique_ptr<z_stream, int (*)(z_stream*)> closer(&zip, inflateEnd);

    VDicomUInt64 at = position;
    VDicomUInt64 total = 0;
    int status = Z_OK;
    while (status != Z_STREAM_END) {
        const ByteSpan in = StreamAccess::View(source, at, kBuffer);
        if (in.size == 0) {
            reason = "the deflated data are cut off";
            return DICOM_ERROR_DEFLATE;
        }
        zip.next_in = in.data;
        zip.avail_in = static_cast<uInt>(in.size);
        while (status != Z_STREAM_END && (zip.avail_in != 0 || zip.avail_out == 0)) {
            zip.next_out = out->data();
            zip.avail_out = static_cast<uInt>(out->size());
            status = inflate(&zip, Z_NO_FLUSH);
            const auto made = static_cast<VDicomULong>(out->size() - zip.avail_out);
            if (made != 0 && target.Write(out->data(), made) == 0) {
                reason = "the temporary storage is full";
                return DICOM_ERROR_WRITE;
            }
            total += made;
            if (status != Z_OK && status != Z_STREAM_END && status != Z_BUF_ERROR) {
                reason = "the deflated data are damaged";
                return DICOM_ERROR_DEFLATE;
            }
            if (total > limit) {
                reason = "the deflated data inflate beyond the limit of " + std::to_string(limit) + " bytes";
                return DICOM_ERROR_DEFLATE;
            }
            if (status == Z_BUF_ERROR)
                break;
        }
        status = status == Z_BUF_ERROR ? Z_OK : status;
        at += in.size - zip.avail_in;
    }
    return DICOM_OK;
}

unsigned int DeflateStream(VDicomFile& source, VDicomUInt64 position, VDicomFile& target) {
    z_stream zip{};
    if (deflateInit2(&zip, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return DICOM_ERROR_MEMORY;
    const std::unique_ptr<z_stream, int (*)(z_stream*)> closer(&zip, deflateEnd);
    const auto out = std::make_unique<Buffer>();
    const VDicomUInt64 size = StreamAccess::Size(source);
    VDicomUInt64 at = position;
    VDicomUInt64 total = 0;
    int status = Z_OK;
    while (status != Z_STREAM_END) {
        const ByteSpan in = StreamAccess::View(source, at, kBuffer);
        if (in.size == 0 && at < size)
            return DICOM_ERROR_READ;
        at += in.size;
        zip.next_in = in.data;
        zip.avail_in = static_cast<uInt>(in.size);
        do {
            zip.next_out = out->data();
            zip.avail_out = static_cast<uInt>(out->size());
            status = deflate(&zip, at >= size ? Z_FINISH : Z_NO_FLUSH);
            const auto made = static_cast<VDicomULong>(out->size() - zip.avail_out);
            if (made != 0 && target.Write(out->data(), made) == 0)
                return DICOM_ERROR_WRITE;
            total += made;
        } while (zip.avail_out == 0);
    }
    // PS3.5 A.5: padded with one zero byte to even length.
    if ((total & 1) != 0 && target.Write("", 1) == 0)
        return DICOM_ERROR_WRITE;
    return DICOM_OK;
}

} // namespace vdicom
