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

struct Deflater::State {
    z_stream zip{};
    VDicomFile* target;
    VDicomUInt64 total = 0;
    bool ready = false;
    Buffer out;
};

Deflater::Deflater(VDicomFile& target) : m_state(std::make_unique<State>()) {
    m_state->target = &target;
    m_state->ready =
        deflateInit2(&m_state->zip, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) == Z_OK;
}

Deflater::~Deflater() {
    if (m_state->ready)
        deflateEnd(&m_state->zip);
}

bool Deflater::Run(int flush) {
    State& state = *m_state;
    do {
        state.zip.next_out = state.out.data();
        state.zip.avail_out = static_cast<uInt>(state.out.size());
        deflate(&state.zip, flush);
        const auto made = static_cast<VDicomULong>(state.out.size() - state.zip.avail_out);
        if (made != 0 && state.target->Write(state.out.data(), made) == 0)
            return false;
        state.total += made;
    } while (state.zip.avail_out == 0);
    return true;
}

bool Deflater::Write(const void* bytes, std::size_t size) {
    if (!m_state->ready)
        return false;
    m_state->zip.next_in = static_cast<const unsigned char*>(bytes);
    m_state->zip.avail_in = static_cast<uInt>(size);
    return Run(Z_NO_FLUSH);
}

bool Deflater::Finish() {
    if (!m_state->ready)
        return false;
    m_state->zip.avail_in = 0;
    // PS3.5 A.5: one zero byte where the deflated data have an odd length.
    return Run(Z_FINISH) && ((m_state->total & 1) == 0 || m_state->target->Write("", 1) != 0);
}

} // namespace vdicom
