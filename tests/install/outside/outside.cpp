// What a user of the installed library writes: every public header, a file saved and loaded again.
#include <VDicomDS.h>
#include <VDicomFile.h>
#include <VDicomTag.h>
#include <VDicomTree.h>
#include <VDicomTypes.h>
#include <VDicomUID.h>
#include <VDicomVR.h>

#include <cstdio>
#include <cstring>

int main(int, char** arguments) {
    char uid[65];
    VDicomDS out;
    if (!VDicomUID::Generate(uid) || !out.FindSetValue(nullptr, 0x00080016, 0, "1.2.840.10008.5.1.4.1.1.7", 1) ||
        !out.FindSetValue(nullptr, 0x00080018, 0, uid, 1) ||
        !out.FindSetValue(nullptr, 0x00100010, 0, "Outside^Project", 1))
        return 1;
    const unsigned int saved = out.SaveDS(arguments[1], 0);
    VDicomDS in;
    const unsigned int loaded = in.LoadDS(arguments[1], 0);
    std::printf("saved: %s; loaded: %s\n", GetErrorText(saved), GetErrorText(loaded));
    const char* name = in.GetStringValue(in.FindFirstElement(nullptr, 0x00100010, 1), 0, 1);
    const DICOMTAG* tag = VDicomTag::Find(0x00100010);
    return saved == DICOM_OK && loaded == DICOM_OK && name && std::strcmp(name, "Outside^Project") == 0 && tag &&
                   VDicomVR::Find(tag->nVR)
               ? 0
               : 1;
}
