// Walks a whole data set, sequences and their items included, and shows where every text stands.
//   walk_sequences FILE.dcm
#include <VDicomDS.h>

#include <cstdio>

namespace {

constexpr VDicomULong kItem = VDicomTagCode(0xFFFE, 0xE000);

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: walk_sequences FILE.dcm\n", stderr);
        return 2;
    }
    VDicomDS ds;
    const unsigned int result = ds.LoadDS(arguments[1], 0);
    if (result != DICOM_OK) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], GetErrorText(result));
        return 1;
    }
    // With siblingOnly 0 a walk goes through the whole tree, every element before its children.
    unsigned int items = 0, sequences = 0;
    for (DICOMELEMENT* e = ds.GetFirstElement(nullptr, 0, 1); e; e = ds.GetNextElement(e, 0, 1)) {
        const int indent = 2 * static_cast<int>(ds.GetLevelElement(e));
        if (e->nTag == kItem) {
            ++items;
            std::printf("%*sitem\n", indent, "");
        } else if (e->nVR == VDicomVRCode('S', 'Q')) {
            ++sequences;
            std::printf("%*s%s: %u items\n", indent, "", ds.GetNameElement(e),
                        static_cast<unsigned int>(ds.GetCountElement(e)));
        } else if (const char* text = ds.GetStringValue(e, 0, 1)) {
            std::printf("%*s%s: %s\n", indent, "", ds.GetNameElement(e), text);
        }
    }
    // Or level by level: the first code of the first request, if there is one.
    DICOMELEMENT* requests = ds.FindFirstElement(nullptr, 0x00400275, 1);
    DICOMELEMENT* request = requests ? ds.GetIndexElement(requests, 0) : nullptr;
    DICOMELEMENT* protocol = request ? ds.FindFirstElement(request, 0x00400008, 1) : nullptr;
    DICOMELEMENT* code = protocol ? ds.GetIndexElement(protocol, 0) : nullptr;
    char meaning[65];
    if (code && ds.FindGetValue(code, 0x00080104, 5, meaning, sizeof meaning))
        std::printf("requested: %s\n", meaning);
    std::printf("%u items in %u sequences\n", items, sequences);
    return 0;
}
