// Changes a file: another patient, a new SOP Instance UID, and no private elements. The old file may be overwritten.
//   edit IN.dcm OUT.dcm PATIENT-ID PATIENT-NAME
#include <VDicomDS.h>
#include <VDicomUID.h>

#include <cstdio>

namespace {

// Sets a text given in UTF-8 in the character set of the file.
bool SetUtf8(VDicomDS& ds, VDicomULong tag, const char* text) {
    DICOMELEMENT* e = ds.FindFirstElement(nullptr, tag, 1);
    if (!e)
        e = ds.InsertElement(nullptr, 0, tag, 0, 0, 0);
    return e && ds.SetUtf8Value(e, text);
}

// Private elements have odd group numbers. Deleting gives the element to go on with.
unsigned int DeletePrivate(VDicomDS& ds) {
    unsigned int deleted = 0;
    DICOMELEMENT* e = ds.GetFirstElement(nullptr, 1, 1);
    while (e) {
        DICOMELEMENT* next = ds.GetNextElement(e, 1, 1);
        if ((e->nTag >> 16) & 1) {
            ds.DeleteElement(e);
            ++deleted;
        }
        e = next;
    }
    return deleted;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 5) {
        std::fputs("usage: edit IN.dcm OUT.dcm PATIENT-ID PATIENT-NAME\n", stderr);
        return 2;
    }
    VDicomDS ds;
    unsigned int result = ds.LoadDS(arguments[1], 0);
    if (result != DICOM_OK) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], GetErrorText(result));
        return 1;
    }
    char uid[65];
    if (!SetUtf8(ds, 0x00100020, arguments[3]) || !SetUtf8(ds, 0x00100010, arguments[4]) || !VDicomUID::Generate(uid) ||
        !ds.FindSetValue(nullptr, 0x00080018, 0, uid, 1)) {
        std::fputs("a value could not be set; can the file's character set express it?\n", stderr);
        return 1;
    }
    const unsigned int deleted = DeletePrivate(ds);
    result = ds.SaveDS(arguments[2], 0); // 0: encoded as the file was
    std::printf("%s: %s; private elements deleted: %u\n", arguments[2], GetErrorText(result), deleted);
    return result == DICOM_OK ? 0 : 1;
}
