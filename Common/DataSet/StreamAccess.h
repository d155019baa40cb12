/// @file StreamAccess.h
/// The library's own view of a stream: bytes without copying, and positions that do not disturb the caller's.
#pragma once

#include "Bytes.h"
#include "VDicomFile.h"

#include <vector>

namespace vdicom {

/// A range of a stream that stands in another one's bytes without having been copied.
struct StreamRange {
    VDicomUInt64 before; ///< how many bytes of the other stream itself come before it
    VDicomFile* source;
    VDicomUInt64 position;
    VDicomUInt64 size;
};

struct StreamAccess {
    /// The bytes at `position`, `wanted` of them or fewer when the stream ends before; more where the buffer holds more
    /// anyway. Valid until the next call on the stream. `wanted` must not exceed kMaxView. Does not move the position
    /// of the stream. Bytes that are still in the write buffer are seen too.
    static ByteSpan View(VDicomFile& file, VDicomUInt64 position, std::size_t wanted);
    static constexpr std::size_t kMaxView = 64 * 1024;

    /// Reads exactly `size` bytes at `position`; large reads go past the buffer. Does not move the position.
    static bool ReadAt(VDicomFile& file, VDicomUInt64 position, void* buffer, std::size_t size);

    /// Writes at the end of the stream and gives the position where the bytes now stand. Moves the position.
    static bool Append(VDicomFile& file, const void* buffer, std::size_t size, VDicomUInt64& position);

    /// Copies a range of `source` to the current position of `target` and moves that on, as far as the system copies
    /// between files by itself: `done` bytes, which may be none. False when the target cannot be written.
    static bool CopyRange(VDicomFile& target, VDicomFile& source, VDicomUInt64 position, VDicomUInt64 size,
                          VDicomUInt64& done);

    /// From now until `file` is closed, CopyRange into it copies nothing but adds to `ranges`; null ends that.
    static void CollectRanges(VDicomFile& file, std::vector<StreamRange>* ranges);

    static VDicomUInt64 Size(const VDicomFile& file);

    /// The path (as given to Open) of the file that the stream reads; empty for memory and temporary streams.
    static const char* Path(const VDicomFile& file);

    /// Whether both streams, or a stream and the file at `path`, are one and the same file on the disk.
    static bool IsFile(const VDicomFile& file, const char* path);

    /// Opens `file` for writing what `path` is to hold from CommitReplacement on; until then, and after a Close without
    /// it, an old file stands as it was. Symbolic links are followed, permissions kept; the old file may be open for
    /// reading, also by the data set itself, and is locked against other writers. Pipes and devices are written to
    /// directly. GetError says why it failed.
    static bool OpenReplacement(VDicomFile& file, const char* path);
    /// Flushes and closes `file` and puts the new file into its place: all or nothing.
    static bool CommitReplacement(VDicomFile& file);
};

} // namespace vdicom
