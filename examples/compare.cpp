// Compares what two files hold, whatever they are encoded in: every element's tag and value. What speaks of the
// encoding is left out: file meta information, group lengths, and the byte offsets of a DICOMDIR. Shows walking two
// trees side by side and reading values piecewise.
//   compare A.dcm B.dcm
#include <VDicomDS.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

bool IsOfEncoding(VDicomULong tag) {
    return (tag >> 16) == 0x0002 || (tag & 0xFFFF) == 0 || tag == 0x00041200 || tag == 0x00041202 ||
           tag == 0x00041400 || tag == 0x00041420;
}

DICOMELEMENT* Next(VDicomDS& ds, DICOMELEMENT* e) {
    do
        e = e ? ds.GetNextElement(e, 0, 1) : ds.GetFirstElement(nullptr, 0, 1);
    while (e && IsOfEncoding(e->nTag));
    return e;
}

// Values come in the host's byte order, so equal values are equal bytes. 64 KiB at a time: pixel data may be large.
bool SameValue(VDicomDS& dsA, DICOMELEMENT* a, VDicomDS& dsB, DICOMELEMENT* b) {
    static char bufferA[65536], bufferB[65536];
    if (a->nLength != b->nLength)
        return false;
    if (a->nLength == DICOM_UNDEFINED)
        return true;
    for (VDicomULong at = 0; at < a->nLength;) {
        const VDicomULong size = std::min<VDicomULong>(sizeof bufferA, a->nLength - at);
        if (!dsA.GetBinaryValue(a, bufferA, at, size) || !dsB.GetBinaryValue(b, bufferB, at, size) ||
            std::memcmp(bufferA, bufferB, size) != 0)
            return false;
        at += size;
    }
    return true;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: compare A.dcm B.dcm\n", stderr);
        return 2;
    }
    VDicomDS dsA, dsB;
    const unsigned int resultA = dsA.LoadDS(arguments[1], 0), resultB = dsB.LoadDS(arguments[2], 0);
    if (resultA != resultB) {
        std::printf("differ: %s; %s\n", GetErrorText(resultA), GetErrorText(resultB));
        return 1;
    }
    DICOMELEMENT *a = Next(dsA, nullptr), *b = Next(dsB, nullptr);
    unsigned int elements = 0;
    for (; a && b; a = Next(dsA, a), b = Next(dsB, b), ++elements)
        if (a->nTag != b->nTag || dsA.GetLevelElement(a) != dsB.GetLevelElement(b) || !SameValue(dsA, a, dsB, b))
            break;
    if (a || b) {
        const VDicomULong tag = a ? a->nTag : b->nTag;
        std::printf("differ from (%04X,%04X) on\n", static_cast<unsigned int>(tag >> 16),
                    static_cast<unsigned int>(tag & 0xFFFF));
        return 1;
    }
    std::printf("equal: %u elements\n", elements);
    return 0;
}
