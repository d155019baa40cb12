// Any bytes as a directory: loaded, walked by key in every direction, changed and saved.
#include "VDicomDS.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    VDicomDS dataSet;
    dataSet.SetInflateLimit(1 << 20);
    dataSet.LoadDSMemory(data, static_cast<VDicomULong>(size), 0);
    const VDicomULong available = dataSet.GetAvailableKey();
    VDicomULong steps = 0;
    // No level may hold more records than there are.
    for (VDicomULong key = 1; key < available && key < 64; ++key) {
        DICOMELEMENT* record = dataSet.GetNumberKey(key);
        if (record == nullptr)
            std::abort();
        dataSet.GetValueKey(record);
        dataSet.GetRootKey(record);
        dataSet.GetLastKey(record);
        for (DICOMELEMENT* at = dataSet.GetFirstKey(record); at != nullptr; at = dataSet.GetNextKey(at)) {
            if (++steps > available * 64)
                std::abort();
        }
        for (DICOMELEMENT* at = dataSet.GetChildKey(record); at != nullptr; at = dataSet.GetNextKey(at)) {
            if (dataSet.GetParentKey(at) != record)
                std::abort();
        }
    }
    if (size > 0 && available > 1) {
        dataSet.InsertKey(dataSet.GetNumberKey(1 + data[size / 2] % (available - 1)), data[size - 1] & 1, "IMAGE");
        dataSet.DeleteKey(dataSet.GetNumberKey(1 + data[size - 1] % (available - 1)));
        dataSet.RefreshKeys();
    }
    VDicomFile stream;
    stream.Open(nullptr, DICOM_FILE_MODE_MEMORY);
    dataSet.SaveDS(&stream, 0);
    return 0;
}
