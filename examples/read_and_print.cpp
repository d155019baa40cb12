// Loads a DICOM file and prints its top level: tag, VR, length, name and value.
//   read_and_print FILE.dcm
#include <VDicomDS.h>

#include <cstdio>
#include <string>

namespace {

// Texts in UTF-8, whatever character set the file is in; other values in the library's own text form.
std::string TextOf(VDicomDS& ds, DICOMELEMENT* e) {
    if (e->nLength == DICOM_UNDEFINED)
        return "(" + std::to_string(ds.GetCountElement(e)) + " items)";
    if (e->nLength > 64 * 1024)
        return "(not shown)";
    std::string text(ds.GetUtf8Value(e, nullptr, 0), '\0');
    if (!text.empty()) {
        ds.GetUtf8Value(e, text.data(), static_cast<VDicomULong>(text.size()));
    } else {
        text.resize(ds.GetConvertValue(e, nullptr));
        ds.GetConvertValue(e, text.data());
    }
    return text.substr(0, text.find('\0')).substr(0, 64);
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: read_and_print FILE.dcm\n", stderr);
        return 2;
    }
    VDicomDS ds;
    const unsigned int result = ds.LoadDS(arguments[1], 0);
    if (result != DICOM_OK) {
        // What was read before the fault is there all the same, so this says why and goes on.
        DICOMFAULT fault;
        const VDicomULong faults = ds.GetCountFault();
        const bool known = faults > 0 && ds.GetFault(faults - 1, &fault);
        std::fprintf(stderr, "%s: %s\n", arguments[1], known ? fault.pszText : GetErrorText(result));
    }
    for (DICOMELEMENT* e = ds.GetFirstElement(nullptr, 1, 1); e; e = ds.GetNextElement(e, 1, 1))
        std::printf("(%04X,%04X) %c%c %-40s %s\n", static_cast<unsigned int>(e->nTag >> 16),
                    static_cast<unsigned int>(e->nTag & 0xFFFF), e->nVR >> 8, e->nVR & 0xFF, ds.GetNameElement(e),
                    TextOf(ds, e).c_str());
    return result == DICOM_OK ? 0 : 1;
}
