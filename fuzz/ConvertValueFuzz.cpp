// SetConvertValue with any VR and any text: what it accepts, GetConvertValue shows as a text that is accepted again and
// shown the same. Input: two letters of a VR, a byte of options, the text up to its first zero.
#include "Require.h"
#include "VDicomDS.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

bool Show(VDicomDS& dataSet, DICOMELEMENT* e, std::string& text) {
    const VDicomULong size = dataSet.GetConvertValue(e, nullptr);
    text.assign(size, '*');
    if (size == 0)
        return false;
    Require(dataSet.GetConvertValue(e, text.data()) == size, "the text takes the room that was asked for");
    Require(text.back() == '\0', "the text ends with a zero");
    text.pop_back();
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3)
        return 0;
    const unsigned short vr = VDicomVRCode(static_cast<char>(data[0]), static_cast<char>(data[1]));
    const bool big = (data[2] & 1) != 0;
    const bool counted = (data[2] & 2) != 0;
    const bool chinese = (data[2] & 4) != 0;
    const std::string text(reinterpret_cast<const char*>(data + 3), size - 3);

    VDicomDS dataSet;
    if (big)
        dataSet.InitDS(DICOM_UNDEFINED, DICOM_FLAG_BIG | DICOM_FLAG_EXPLICIT);
    if (chinese)
        Require(dataSet.FindSetValue(nullptr, 0x00080005, 0, "GB18030", 1) != 0, "a character set can be set");
    DICOMELEMENT* e = dataSet.InsertElement(nullptr, 0, 0x00091001, vr, 0, 0);
    Require(e != nullptr, "an element can be inserted");
    const VDicomULong count = counted ? data[2] >> 3 : DICOM_UNDEFINED;
    if (dataSet.SetConvertValue(e, text.c_str(), count) == 0) {
        Require(e->nLength == 0 || e->nLength == DICOM_UNDEFINED, "a refused text changes nothing");
        // The same bytes as a raw value: whatever has a text has one that is accepted.
        if (dataSet.SetBinaryValue(e, text.data(), static_cast<VDicomULong>(text.size())) == 0)
            return 0;
    }
    std::string shown;
    if (!Show(dataSet, e, shown))
        return 0;
    Require(dataSet.SetConvertValue(e, shown.c_str(), DICOM_UNDEFINED) != 0, "the text shown is accepted");
    std::string again;
    Show(dataSet, e, again);
    Require(shown == again, "the text stays the same");
    dataSet.GetTypeValue(e);
    return 0;
}
