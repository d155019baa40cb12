// Builds a data set from nothing (a small X-ray image with a sequence) and saves it as a DICOM file:
//   build_and_save OUT.dcm
#include <VDicomDS.h>
#include <VDicomUID.h>

#include <cstdio>
#include <vector>

namespace {

constexpr VDicomULong kItem = VDicomTagCode(0xFFFE, 0xE000);

// Texts are set by tag; the dictionary knows the value representation of each.
bool SetText(VDicomDS& ds, DICOMELEMENT* parent, VDicomULong tag, const char* text) {
    return ds.FindSetValue(parent, tag, 0, text, 1) != 0;
}

bool SetNumber(VDicomDS& ds, VDicomULong tag, unsigned short number) {
    return ds.FindSetValue(nullptr, tag, 0, &number, 1) != 0;
}

bool SetIdentity(VDicomDS& ds) {
    char study[65], series[65], image[65];
    const VALUEDATE date = {2024, 2, 29}; // dates, times and numbers have types of their own
    return VDicomUID::Generate(study) && VDicomUID::Generate(series) && VDicomUID::Generate(image) &&
           SetText(ds, nullptr, 0x00080005, "ISO_IR 192") && // texts are UTF-8
           SetText(ds, nullptr, 0x00080016, "1.2.840.10008.5.1.4.1.1.7") && SetText(ds, nullptr, 0x00080018, image) &&
           ds.FindSetValue(nullptr, 0x00080020, 0, &date, 1) && SetText(ds, nullptr, 0x00080060, "DX") &&
           SetText(ds, nullptr, 0x00100010, "Doe^Jane") && SetText(ds, nullptr, 0x00100020, "0815") &&
           SetText(ds, nullptr, 0x0020000D, study) && SetText(ds, nullptr, 0x0020000E, series);
}

// A sequence is an element whose children are items; an item's children are elements again.
bool SetRequest(VDicomDS& ds) {
    DICOMELEMENT* requests = ds.InsertElement(nullptr, 0, 0x00400275, 0, 0, 0);
    DICOMELEMENT* request = ds.InsertElement(requests, 1, kItem, 0, 1, DICOM_UNDEFINED);
    DICOMELEMENT* protocol = ds.InsertElement(request, 1, 0x00400008, 0, 0, 0);
    DICOMELEMENT* code = ds.InsertElement(protocol, 1, kItem, 0, 1, DICOM_UNDEFINED);
    return code && SetText(ds, request, 0x00400009, "SPS-7") && SetText(ds, code, 0x00080100, "CPA") &&
           SetText(ds, code, 0x00080102, "99LOCAL") && SetText(ds, code, 0x00080104, "Chest PA");
}

bool SetImage(VDicomDS& ds, unsigned short rows, unsigned short columns) {
    std::vector<short> pixels;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            pixels.push_back(static_cast<short>(row * 16 + column));
    return SetNumber(ds, 0x00280002, 1) && SetText(ds, nullptr, 0x00280004, "MONOCHROME2") &&
           SetNumber(ds, 0x00280010, rows) && SetNumber(ds, 0x00280011, columns) && SetNumber(ds, 0x00280100, 16) &&
           SetNumber(ds, 0x00280101, 12) && SetNumber(ds, 0x00280102, 11) && SetNumber(ds, 0x00280103, 0) &&
           ds.FindSetValue(nullptr, 0x7FE00010, VDicomVRCode('O', 'W'), pixels.data(),
                           static_cast<VDicomULong>(pixels.size()));
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: build_and_save OUT.dcm\n", stderr);
        return 2;
    }
    VDicomDS ds;
    if (!SetIdentity(ds) || !SetRequest(ds) || !SetImage(ds, 64, 64)) {
        std::fputs("the data set could not be built\n", stderr);
        return 1;
    }
    // A DICOM file (Part 10 form) in explicit VR little endian; the library fills in the file meta information.
    const unsigned int result = ds.SaveDS(arguments[1], DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE);
    std::printf("%s: %s\n", arguments[1], GetErrorText(result));
    return result == DICOM_OK ? 0 : 1;
}
