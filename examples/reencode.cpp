// Writes a file in another transfer syntax. Values are streamed from file to file: memory does not grow with them.
//   reencode IN.dcm OUT.dcm implicit|explicit|big|deflated
#include <VDicomDS.h>

#include <cstdio>
#include <cstring>

int main(int count, char** arguments) {
    static const struct {
        const char* name;
        unsigned short flags;
    } encodings[] = {{"implicit", DICOM_TS_IMPLICIT_LITTLE},
                     {"explicit", DICOM_TS_EXPLICIT_LITTLE},
                     {"big", DICOM_TS_EXPLICIT_BIG},
                     {"deflated", DICOM_TS_EXPLICIT_LITTLE | DICOM_FLAG_DEFLATED}};
    unsigned short flags = 0;
    for (const auto& encoding : encodings)
        if (count == 4 && std::strcmp(arguments[3], encoding.name) == 0)
            flags = encoding.flags;
    if (flags == 0) {
        std::fputs("usage: reencode IN.dcm OUT.dcm implicit|explicit|big|deflated\n", stderr);
        return 2;
    }
    VDicomDS ds;
    unsigned int result = ds.LoadDS(arguments[1], 0);
    if (result == DICOM_OK) {
        VDicomLong compression = 0;
        if (ds.GetTS(nullptr, &compression, nullptr) && compression != 0)
            result = DICOM_ERROR_UNSUPPORTED; // compressed pixel data are not decompressed
        else
            result = ds.SaveDS(arguments[2], flags | DICOM_FLAG_PART10);
    }
    std::printf("%s: %s\n", arguments[2], GetErrorText(result));
    return result == DICOM_OK ? 0 : 1;
}
