// Data sets when memory runs out at the n-th allocation: no exception comes out, nothing is lost, nothing leaks.
#include "CountedMemory.h"
#include "HexBytes.h"

#include "DataSetState.h"

#include <gtest/gtest.h>

#include <functional>

using namespace support;
using memory::g_failAfter;

namespace {

// Calls `operation` with memory for 0, 1, 2 ... allocations until it needs no more than that.
void FailEachTime(const char* name, const std::function<void()>& operation) {
    constexpr int most = 20000;
    for (int allocations = 0; allocations < most; ++allocations) {
        g_failAfter = allocations;
        EXPECT_NO_THROW(operation()) << name << " at allocation " << allocations;
        const bool enough = g_failAfter > 0;
        g_failAfter = -1;
        if (enough)
            return;
    }
    ADD_FAILURE() << name << " never has enough memory";
}

Bytes Wide(VDicomULong count, const Bytes& front) {
    Bytes bytes = front;
    for (VDicomULong i = 0; i < count; ++i) {
        Bytes element = "0900 0010 'OW' 0000 02000000 0102"_bytes;
        element[2] = static_cast<unsigned char>(count - i);
        bytes = bytes + element;
    }
    return bytes;
}

} // namespace

TEST(DataSetMemory, NoOperationLetsAnExceptionOut) {
    const Bytes content = Wide(100, "0800 0500 'CS' 0200 'A ' 0800 4011 'SQ' 0000 FFFFFFFF FEFF 00E0 FFFFFFFF "
                                    "0800 5011 'UI' 0400 '1.23' FEFF 0DE0 00000000 FEFF DDE0 00000000"_bytes);
    const Bytes file = Part10(kExplicit, content);
    const auto size = static_cast<VDicomULong>(file.size());
    VDicomDS other;
    DICOMELEMENT* key = other.InsertKey(other.InsertKey(nullptr, 0, "PATIENT"), 1, "STUDY");
    const Bytes directory = Save(other, 0);
    const struct {
        const char* name;
        std::function<void(VDicomDS&)> run;
    } operations[] = {
        {"load", [&](VDicomDS& d) { d.LoadDSMemory(file.data(), size, 0); }},
        {"load directory",
         [&](VDicomDS& d) { d.LoadDSMemory(directory.data(), static_cast<VDicomULong>(directory.size()), 0); }},
        {"find", [](VDicomDS& d) { d.FindFirstElement(nullptr, 0x00091011, 1); }},
        {"find last", [](VDicomDS& d) { d.FindLastElement(nullptr, 0x00080005, 1); }},
        {"index", [](VDicomDS& d) { d.GetIndexElement(nullptr, 80); }},
        {"count", [](VDicomDS& d) { d.GetCountElement(nullptr); }},
        {"insert", [](VDicomDS& d) { d.InsertElement(nullptr, 0, 0x00091234, vdicom::vr::LO, 0, 0); }},
        {"insert astray", [](VDicomDS& d) { d.InsertElement(nullptr, 0, 0xFFFEE000, 0, 1, 0); }},
        {"save",
         [](VDicomDS& d) {
             VDicomFile stream;
             stream.Open(nullptr, DICOM_FILE_MODE_MEMORY);
             d.SaveDS(&stream, DICOM_TS_EXPLICIT_BIG);
         }},
        {"group", [](VDicomDS& d) { d.GetLengthGroup(d.GetFirstElement(nullptr, 1, 1), 0); }},
        {"sequence", [](VDicomDS& d) { d.GetLengthSequence(d.GetFirstElement(nullptr, 1, 1), 0); }},
        {"offset", [](VDicomDS& d) { d.GetOffsetElement(nullptr, 0); }},
        {"transfer syntax", [](VDicomDS& d) { d.SetTS(DICOM_TS_EXPLICIT_BIG, 0); }},
        {"deflate", [](VDicomDS& d) { d.ChangeTransferSyntax(kDeflated, 0, 0); }},
        {"copy", [&](VDicomDS& d) { d.CopyDS(nullptr, &other, nullptr); }},
        {"key", [&](VDicomDS& d) { d.InsertKey(nullptr, 0, "PATIENT"); }},
        {"keys", [](VDicomDS& d) { d.RefreshKeys(); }},
        {"type", [&](VDicomDS&) { other.GetValueKey(key); }},
        {"default VR", [](VDicomDS& d) { d.GetDefaultVR(nullptr, 0x00091010, 0); }},
        {"pixels", [](VDicomDS& d) { d.IsBadPixelData(nullptr, nullptr); }},
    };
    for (const auto& one : operations) {
        FailEachTime(one.name, [&] {
            const long allowed = g_failAfter;
            g_failAfter = -1;
            VDicomDS fresh; // without the indexes that asking makes
            ASSERT_EQ(fresh.LoadDSMemory(file.data(), size, 0), 0u);
            g_failAfter = allowed;
            one.run(fresh);
            const long left = g_failAfter;
            g_failAfter = -1;
            // Whatever failed, the data set is whole: all that was there is found.
            if (std::string(one.name).substr(0, 4) != "load") {
                for (DICOMELEMENT* e = fresh.GetFirstElement(nullptr, 1, 1); e != nullptr;
                     e = fresh.GetNextElement(e, 1, 1))
                    EXPECT_EQ(fresh.FindFirstElement(nullptr, e->nTag, 1), e) << one.name;
                EXPECT_GE(fresh.GetCountElement(nullptr), 103u) << one.name;
                DICOMELEMENT* words = fresh.FindFirstElement(nullptr, 0x00091011, 1);
                unsigned short word = 0;
                ASSERT_NE(words, nullptr) << one.name;
                EXPECT_NE(fresh.GetBinaryValue(words, &word, 2), 0u) << words->nLength;
                EXPECT_EQ(word, 0x0201) << one.name;
            }
            fresh.ResetDS();
            g_failAfter = left;
        });
    }
}

TEST(DataSetMemory, DataSetsAreMadeWithoutMemory) {
    bool thrown = false;
    DICOMELEMENT* e = nullptr;
    unsigned int code = DICOM_OK;
    g_failAfter = 0;
    try {
        VDicomDS ds("/a folder with a name that is longer than texts without memory of their own");
        e = ds.InsertElement(nullptr, 0, 0x00100020, 0, 0, 0);
        code = ds.LoadDS("missing", 0);
    } catch (...) {
        thrown = true;
    }
    g_failAfter = -1;
    EXPECT_FALSE(thrown);
    EXPECT_EQ(e, nullptr);
    EXPECT_NE(code, DICOM_OK);
}
