// VDicomDS: what can be said of Pixel Data without decoding it.
#include "DataSetState.h"
#include "Guarded.h"

#include <algorithm>
#include <vector>

using namespace vdicom;

namespace {

constexpr VDicomULong kSamplesPerPixel = 0x00280002, kNumberOfFrames = 0x00280008, kRows = 0x00280010,
                      kColumns = 0x00280011, kBitsAllocated = 0x00280100;

VDicomUInt64 NumberOf(VDicomDS& dataSet, VDicomULong tag, VDicomUInt64 otherwise) {
    short value = 0;
    if (dataSet.FindGetValue(nullptr, tag, 1, &value, sizeof value) == 0)
        return otherwise;
    return static_cast<unsigned short>(value);
}

// Where each fragment's item stands, counted as the Basic Offset Table counts, and whether it holds bytes.
struct Fragment {
    VDicomUInt64 place;
    bool filled;
};

std::vector<Fragment> FragmentsOf(const DICOMELEMENT* pixels) {
    std::vector<Fragment> fragments;
    VDicomUInt64 place = 0;
    // The first item is the Basic Offset Table (PS3.5 A.4).
    const DICOMELEMENT* item = FirstChildOf(pixels);
    for (item = item == nullptr ? nullptr : NextOf(item); item != nullptr; item = NextOf(item)) {
        fragments.push_back({place, item->nLength != 0});
        place += 8 + item->nLength;
    }
    return fragments;
}

VDicomUInt64 GoodFrames(VDicomDS& dataSet, const DataSetState& state, DICOMELEMENT* pixels, VDicomUInt64 frames) {
    const std::vector<Fragment> fragments = FragmentsOf(pixels);
    const auto filled = static_cast<VDicomUInt64>(
        std::count_if(fragments.begin(), fragments.end(), [](const Fragment& fragment) { return fragment.filled; }));
    if (frames == 1)
        return filled != 0 ? 1 : 0;
    if (fragments.size() == frames)
        return filled;
    DICOMELEMENT* table = FirstChildOf(pixels);
    VDicomUInt64 good = 0;
    const VDicomULong entries = table == nullptr ? 0 : table->nLength / 4;
    for (VDicomULong i = 0; i < entries && i < frames; ++i) {
        unsigned char bytes[4];
        if (dataSet.GetBinaryValue(table, bytes, i * 4, sizeof bytes) == 0)
            break;
        const VDicomUInt64 place = Get32(bytes, state.IsLittleEndian(table));
        const auto found =
            std::lower_bound(fragments.begin(), fragments.end(), place,
                             [](const Fragment& fragment, VDicomUInt64 at) { return fragment.place < at; });
        good += found != fragments.end() && found->place == place && found->filled ? 1 : 0;
    }
    // Without a table the fragments can still be told apart when there are as many as frames or more.
    return entries == 0 ? std::min<VDicomUInt64>(filled, frames) : good;
}

} // namespace

unsigned int VDicomDS::IsBadPixelData(VDicomULong* bad, VDicomULong* good) {
    const DataSetState& state = *m_pState;
    VDicomUInt64 frames = 1;
    VDicomUInt64 obtained = 0;
    DICOMELEMENT* pixels = state.tree.FindChild(nullptr, kPixelData);
    if (pixels != nullptr) {
        VDicomLong number = 1;
        if (FindGetValue(nullptr, kNumberOfFrames, 2, &number, sizeof number) != 0 && number > 0)
            frames = static_cast<VDicomUInt64>(number);
        const VDicomUInt64 rows = NumberOf(*this, kRows, 0);
        const VDicomUInt64 columns = NumberOf(*this, kColumns, 0);
        const VDicomUInt64 bits = NumberOf(*this, kBitsAllocated, 0);
        const VDicomUInt64 pixelBits = rows * columns * bits;
        const VDicomUInt64 samples = NumberOf(*this, kSamplesPerPixel, 1);
        const bool described = pixelBits != 0 && samples != 0;
        if (described && IsUndefinedLength(pixels))
            obtained = Guarded(VDicomUInt64{0}, [&] { return GoodFrames(*this, state, pixels, frames); });
        else if (described && pixelBits <= UINT64_MAX / samples)
            // Frames of 1 bit a pixel are packed without a gap, so the bits are counted.
            obtained = std::min(frames, VDicomUInt64{pixels->nLength} * 8 / (pixelBits * samples));
    } else {
        frames = 0;
    }
    if (bad != nullptr)
        *bad = static_cast<VDicomULong>(frames - obtained);
    if (good != nullptr)
        *good = static_cast<VDicomULong>(obtained);
    return frames == 0 || obtained < frames ? 1 : 0;
}
