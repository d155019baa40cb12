// Any bytes as a data set: loaded, walked, every value converted, checked for conformance, saved in another encoding
// and loaded again. What is written must be read as what it was.
#include "VDicomDS.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

// Every element but group 0002 with its value; bytes in host order.
std::string Content(VDicomDS& dataSet) {
    std::string text;
    for (DICOMELEMENT* e = dataSet.GetFirstElement(nullptr, 0, 1); e != nullptr; e = dataSet.GetNextElement(e, 0, 1)) {
        const VDicomULong level = dataSet.GetLevelElement(e);
        // Group lengths and offsets are made by the writer.
        if ((level == 0 && (e->nTag >> 16) <= 4) || (e->nTag & 0xFFFF) == 0 || (e->nTag >> 16) == 4)
            continue;
        text += std::to_string(level) + " " + std::to_string(e->nTag) + " ";
        if (e->nLength == DICOM_UNDEFINED)
            continue;
        std::vector<char> value(e->nLength);
        dataSet.GetBinaryValue(e, value.data(), e->nLength);
        text.append(value.begin(), value.end());
    }
    return text;
}

void Visit(VDicomDS& dataSet) {
    for (DICOMELEMENT* e = dataSet.GetFirstElement(nullptr, 0, 1); e != nullptr; e = dataSet.GetNextElement(e, 0, 1)) {
        dataSet.GetNameElement(e);
        dataSet.GetUtf8Value(e, nullptr, 0);
        if (e->nLength > 4096)
            continue;
        std::vector<char> text(dataSet.GetConvertValue(e, nullptr) + 1);
        dataSet.GetConvertValue(e, text.data());
        for (unsigned short type = 0; type <= 10; ++type) {
            VDicomULong count = DICOM_UNDEFINED;
            dataSet.VerifyTypeValue(e, 0, &count, type);
        }
        VALUEDATERANGE dates;
        dataSet.GetDateRangeValue(e, 0, &dates);
        VALUETIMERANGE times;
        dataSet.GetTimeRangeValue(e, 0, &times);
    }
}

// Every finding must be whole; a walk must not go on for ever.
VDicomULong VDICOM_CALLBACK Found(const DICOMFINDING* finding, void* count) {
    const std::string all = std::string(finding->pszPath) + finding->pszName + finding->pszModule + finding->pszValue +
                            finding->pszAllowed + finding->pszSection + finding->pszText;
    if (all.empty() || *finding->pszPath != '(' || finding->nSeverity < DICOM_SEVERITY_NOTE ||
        finding->nSeverity > DICOM_SEVERITY_ERROR)
        std::abort();
    return ++*static_cast<VDicomULong*>(count) > 1000000 ? 1 : 0;
}

std::vector<unsigned char> Save(VDicomDS& dataSet, unsigned short flags) {
    VDicomFile stream;
    stream.Open(nullptr, DICOM_FILE_MODE_MEMORY);
    if (dataSet.SaveDS(&stream, flags) != DICOM_OK)
        return {};
    VDicomUInt64 size = 0;
    const unsigned char* bytes = stream.GetMemoryBuffer(&size);
    return bytes == nullptr ? std::vector<unsigned char>() : std::vector<unsigned char>(bytes, bytes + size);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    VDicomDS dataSet;
    dataSet.SetInflateLimit(1 << 20);
    const unsigned int code = dataSet.LoadDSMemory(data, static_cast<VDicomULong>(size), DICOM_FLAG_OFFSETS);
    Visit(dataSet);
    dataSet.IsBadPixelData(nullptr, nullptr);
    VDicomULong findings = 0;
    if (dataSet.ConformanceDS(&Found, &findings, DICOM_UNDEFINED) != DICOM_OK || findings > 1000000)
        std::abort();
    // Of a class with every kind of module, whatever the bytes say.
    dataSet.ConformanceDS(&Found, &findings, static_cast<VDicomULong>(size % 112));
    if (code != DICOM_OK || dataSet.GetCountFault() != 0)
        return 0;
    // A sound data set comes back equal from the encoding that it has.
    const std::vector<unsigned char> bytes = Save(dataSet, 0);
    if (bytes.empty())
        return 0;
    VDicomDS again;
    if (again.LoadDSMemory(bytes.data(), static_cast<VDicomULong>(bytes.size()), 0) != DICOM_OK ||
        Content(again) != Content(dataSet))
        std::abort();
    const VDicomULong predicted = again.GetOffsetElement(nullptr, DICOM_TS_EXPLICIT_BIG);
    const std::vector<unsigned char> big = Save(again, DICOM_TS_EXPLICIT_BIG);
    if (!big.empty() && big.size() != predicted)
        std::abort();
    return 0;
}
