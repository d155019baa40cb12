// Conformance: values against their VRs, and data sets against their classes.
#include "ConformanceRules.h"
#include "ConformanceValues.h"
#include "HexBytes.h"
#include "VDicomDS.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

using namespace vdicom;

namespace {

constexpr VDicomULong kItem = 0xFFFEE000;

struct Value {
    VDicomULong tag;
    const char* text; ///< as `vdicom edit` would take it; null: a sequence
};

// Everything that a CT image must have.
constexpr Value kImage[] = {
    {0x00080005, "ISO_IR 100"},
    {0x00080008, "ORIGINAL\\PRIMARY\\AXIAL"},
    {0x00080016, "1.2.840.10008.5.1.4.1.1.2"},
    {0x00080018, "1.2.3.4"},
    {0x00080020, "02/29/2004"},
    {0x00080030, "10:20:30.0"},
    {0x00080050, ""},
    {0x00080060, "CT"},
    {0x00080070, "Maker"},
    {0x00080090, "Doe^Jane"},
    {0x00100010, "Doe^John"},
    {0x00100020, "4711"},
    {0x00100030, ""},
    {0x00100040, "M"},
    {0x00180050, "1.5"},
    {0x00180060, "120"},
    {0x00185100, "HFS"},
    {0x0020000D, "1.2.3.1"},
    {0x0020000E, "1.2.3.2"},
    {0x00200010, "1"},
    {0x00200011, "1"},
    {0x00200012, ""},
    {0x00200013, "1"},
    {0x00200032, "0\\0\\0"},
    {0x00200037, "1\\0\\0\\0\\1\\0"},
    {0x00200052, "1.2.3.3"},
    {0x00201040, ""},
    {0x00280002, "1"},
    {0x00280004, "MONOCHROME2"},
    {0x00280010, "1"},
    {0x00280011, "2"},
    {0x00280030, "1\\1"},
    {0x00280100, "16"},
    {0x00280101, "12"},
    {0x00280102, "11"},
    {0x00280103, "0"},
    {0x00281052, "0"},
    {0x00281053, "1"},
    {0x7FE00010, "1\\2"},
};

void Set(VDicomDS& ds, DICOMELEMENT* parent, VDicomULong tag, const char* text) {
    DICOMELEMENT* e = ds.FindFirstElement(parent, tag, 1);
    if (e == nullptr)
        e = ds.InsertElement(parent, 1, tag, 0, 0, 0);
    ASSERT_NE(e, nullptr) << std::hex << tag;
    if (*text != '\0') {
        ASSERT_NE(ds.SetConvertValue(e, text, DICOM_UNDEFINED), 0u) << std::hex << tag << " " << text;
    } else {
        ds.SetBinaryValue(e, "", 0);
    }
}

void Raw(VDicomDS& ds, VDicomULong tag, std::string_view bytes) {
    DICOMELEMENT* e = ds.FindFirstElement(nullptr, tag, 1);
    if (e == nullptr)
        e = ds.InsertElement(nullptr, 1, tag, 0, 0, 0);
    ds.SetBinaryValue(e, bytes.data(), static_cast<VDicomULong>(bytes.size()));
}

DICOMELEMENT* Item(VDicomDS& ds, DICOMELEMENT* parent, VDicomULong tag) {
    DICOMELEMENT* sequence = ds.FindFirstElement(parent, tag, 1);
    if (sequence == nullptr)
        sequence = ds.InsertElement(parent, 1, tag, VDicomVRCode('S', 'Q'), 0, 0);
    return ds.InsertElement(sequence, 1, kItem, 0, 1, DICOM_UNDEFINED);
}

void Delete(VDicomDS& ds, VDicomULong tag) { ds.DeleteElement(ds.FindFirstElement(nullptr, tag, 1)); }

void Fill(VDicomDS& ds) {
    for (const Value& value : kImage)
        Set(ds, nullptr, value.tag, value.text);
}

VDicomULong VDICOM_CALLBACK Collect(const DICOMFINDING* finding, void* found) {
    static_cast<std::vector<std::string>*>(found)->push_back(std::to_string(finding->nCode) + " " +
                                                             "?nwe"[finding->nSeverity] + " " + finding->pszPath);
    EXPECT_STRNE(finding->pszText, "");
    EXPECT_STRNE(GetErrorText(finding->nCode), GetErrorText(9999));
    return 0;
}

std::vector<std::string> Check(VDicomDS& ds, VDicomULong classId = DICOM_UNDEFINED) {
    std::vector<std::string> found;
    EXPECT_EQ(ds.ConformanceDS(&Collect, &found, classId), 0u);
    return found;
}

} // namespace

TEST(Conformance, ValuesOfEveryVR) {
    constexpr auto none = ValueFault::none, character = ValueFault::character, length = ValueFault::length,
                   form = ValueFault::form, uid = ValueFault::uid;
    const std::string x17(17, 'X');
    const std::string x65(65, 'x');
    const struct {
        unsigned short code;
        std::string text;
        ValueFault fault;
    } cases[] = {
        {vr::AE, "A_B-c d", none},
        {vr::AE, x17, length},
        {vr::AE, "A\tB", character},
        {vr::AS, "034Y", none},
        {vr::AS, "34Y", form},
        {vr::AS, "034y", form},
        {vr::CS, "A_1 B", none},
        {vr::CS, "a", character},
        {vr::CS, x17, length},
        {vr::DA, "20040229", none},
        {vr::DA, "20030229", form},
        {vr::DA, "2004.02.29", character},
        {vr::DA, "200402", form},
        {vr::DS, "-1.5E-3", none},
        {vr::DS, "1,5", character},
        {vr::DS, "1.23456789012345678", length},
        {vr::DS, "1E", form},
        {vr::DT, "200402291020+0100", none},
        {vr::DT, "2004-02-29", form},
        {vr::IS, "+12", none},
        {vr::IS, "1.0", character},
        {vr::IS, "2147483648", form},
        {vr::IS, "0000000000001", length},
        {vr::LO, x65, length},
        {vr::LO, "a\nb", character},
        {vr::LT, "a\r\nb", none},
        {vr::LT, "a\x01", character},
        {vr::PN, "A^B^C^D^E", none},
        {vr::PN, "A^B^C^D^E^F", form},
        {vr::PN, "A=B=C=D", form},
        {vr::PN, x65, length},
        {vr::PN, "A=" + x65, length},
        {vr::SH, x17, length},
        {vr::SH, "short", none},
        {vr::ST, std::string(1025, 'x'), length},
        {vr::TM, "102030.123456", none},
        {vr::TM, "10", none},
        {vr::TM, "10:20", character},
        {vr::TM, "2500", form},
        {vr::UI, "1.2.840.0", none},
        {vr::UI, "1..2", uid},
        {vr::UI, "1.02", uid},
        {vr::UI, "1.2.", uid},
        {vr::UI, "1.a", uid},
        {vr::UI, "3.4", uid},
        {vr::UI, "1." + std::string(63, '1'), uid},
        {vr::UR, " http://x", form},
        {vr::UR, "http://x", none},
        {vr::UT, x65, none},
        {vr::DA, "", none},
        {vr::IS, "  ", none},
    };
    for (const auto& one : cases)
        EXPECT_EQ(CheckTextValue(one.code, one.text, one.text.size()).fault, one.fault) << one.code << " " << one.text;
    EXPECT_EQ(
        CheckTextValue(vr::SH, "\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84\xC3\x84", 9).fault,
        none)
        << "characters count, not bytes";
    EXPECT_EQ(CountBinaryValues(vr::US, 6), 3u);
    EXPECT_EQ(CountBinaryValues(vr::FD, 12), 0u);
    EXPECT_EQ(CountBinaryValues(vr::OW, 6), 1u);
}

TEST(Conformance, OneFaultOneFinding) {
    const struct {
        const char* what;
        std::function<void(VDicomDS&)> change;
        std::vector<std::string> findings;
    } cases[] = {
        {"a sound image", [](VDicomDS&) {}, {}},
        {"type 1 missing", [](VDicomDS& ds) { Delete(ds, 0x0020000D); }, {"501 e (0020,000D)"}},
        {"type 1 empty", [](VDicomDS& ds) { Set(ds, nullptr, 0x00280010, ""); }, {"502 e (0028,0010)"}},
        {"type 2 missing", [](VDicomDS& ds) { Delete(ds, 0x00100030); }, {"503 e (0010,0030)"}},
        {"2C, judged", [](VDicomDS& ds) { Delete(ds, 0x00185100); }, {"503 e (0018,5100)"}},
        {"2C by a code",
         [](VDicomDS& ds) {
             Delete(ds, 0x00185100);
             ds.InsertElement(nullptr, 0, 0x00540410, VDicomVRCode('S', 'Q'), 0, 0);
         },
         {"515 n (0054,0410)"}},
        {"no planes of one sample", [](VDicomDS& ds) { Set(ds, nullptr, 0x00280006, "0"); }, {"504 w (0028,0006)"}},
        {"enumerated", [](VDicomDS& ds) { Set(ds, nullptr, 0x00100040, "X"); }, {"505 e (0010,0040)"}},
        {"enumerated number", [](VDicomDS& ds) { Set(ds, nullptr, 0x00280103, "2"); }, {"505 e (0028,0103)"}},
        {"enumerated by the class's own module",
         [](VDicomDS& ds) { Set(ds, nullptr, 0x00280004, "RGB"); },
         {"505 e (0028,0004)"}},
        {"defined term", [](VDicomDS& ds) { Set(ds, nullptr, 0x00180015, "TAIL"); }, {"506 n (0018,0015)"}},
        {"too few values", [](VDicomDS& ds) { Set(ds, nullptr, 0x00200032, "0\\0"); }, {"507 e (0020,0032)"}},
        {"third value of a CT's type",
         [](VDicomDS& ds) { Set(ds, nullptr, 0x00080008, "DERIVED\\PRIMARY"); },
         {"507 e (0008,0008)"}},
        {"VR",
         [](VDicomDS& ds) {
             Delete(ds, 0x00080070);
             ds.InsertElement(nullptr, 0, 0x00080070, VDicomVRCode('S', 'H'), 0, 0);
         },
         {"508 e (0008,0070)"}},
        {"character", [](VDicomDS& ds) { Raw(ds, 0x00080060, "ct"); }, {"509 e (0008,0060)"}},
        {"no date", [](VDicomDS& ds) { Raw(ds, 0x00080020, "20030229"); }, {"511 e (0008,0020)"}},
        {"no UID", [](VDicomDS& ds) { Raw(ds, 0x0020000E, "1.02"); }, {"512 e (0020,000E)"}},
        {"long", [](VDicomDS& ds) { Raw(ds, 0x00200010, "12345678901234567"); }, {"510 e (0020,0010)"}},
        {"half a number",
         [](VDicomDS& ds) {
             ds.InsertBinaryValue(ds.FindFirstElement(nullptr, 0x00280108, 1)
                                      ? nullptr
                                      : ds.InsertElement(nullptr, 0, 0x00280108, VDicomVRCode('U', 'S'), 0, 0),
                                  "abc", 0, 3);
         },
         {"513 e (0028,0108)", "510 e (0028,0108)"}},
        {"zeros", [](VDicomDS& ds) { Raw(ds, 0x00080070, std::string_view("abc\0", 4)); }, {"514 w (0008,0070)"}},
        {"foreign to the class", [](VDicomDS& ds) { Set(ds, nullptr, 0x00280008, "1"); }, {"515 n (0028,0008)"}},
        {"newer than the table", [](VDicomDS& ds) { ds.InsertElement(nullptr, 0, 0x00083010, vr::UI, 0, 0); }, {}},
        {"no creator",
         [](VDicomDS& ds) { ds.InsertElement(nullptr, 0, 0x00091001, VDicomVRCode('L', 'O'), 0, 0); },
         {"516 e (0009,1001)"}},
        {"unknown creator",
         [](VDicomDS& ds) {
             ds.InsertElement(nullptr, 0, 0x00090010, VDicomVRCode('L', 'O'), 0, 0);
             Raw(ds, 0x00090010, "NOBODY");
             ds.InsertElement(nullptr, 0, 0x00091001, VDicomVRCode('L', 'O'), 0, 0);
         },
         {"517 n (0009,0010)"}},
        {"belongs into an item", [](VDicomDS& ds) { Set(ds, nullptr, 0x00080100, "C"); }, {"518 w (0008,0100)"}},
        {"no item in a sequence",
         [](VDicomDS& ds) {
             DICOMELEMENT* e = ds.InsertElement(nullptr, 0, 0x00081140, VDicomVRCode('S', 'Q'), 0, 0);
             ds.InsertElement(e, 1, 0x00081150, 0, 0, 0);
         },
         {"518 e (0008,1150)"}},
        {"too many items",
         [](VDicomDS& ds) {
             for (int i = 0; i < 2; ++i) {
                 DICOMELEMENT* item = Item(ds, nullptr, 0x00081120);
                 Set(ds, item, 0x00081150, "1.2.840.10008.3.1.2.1.1");
                 Set(ds, item, 0x00081155, "1.2.3");
             }
         },
         {"520 e (0008,1120)"}},
        {"missing in the second item",
         [](VDicomDS& ds) {
             for (int i = 0; i < 2; ++i)
                 Set(ds, Item(ds, nullptr, 0x00081140), 0x00081150, "1.2.3");
             DICOMELEMENT* first = ds.GetIndexElement(ds.FindFirstElement(nullptr, 0x00081140, 1), 0);
             Set(ds, first, 0x00081155, "1.2.4");
         },
         {"501 e (0008,1140)[1].(0008,1155)"}},
        {"not in the character set",
         [](VDicomDS& ds) {
             Raw(ds, 0x00080005, "ISO_IR 192");
             Raw(ds, 0x00100010, "D\xF6\x65^J");
         },
         {"521 e (0010,0010)"}},
        {"no character set at all",
         [](VDicomDS& ds) {
             Delete(ds, 0x00080005);
             Raw(ds, 0x00100010, "D\xF6\x65^J");
         },
         {"521 e (0010,0010)"}},
        {"a character set that is none", [](VDicomDS& ds) { Raw(ds, 0x00080005, "KLINGON "); }, {"522 e (0008,0005)"}},
        {"retired", [](VDicomDS& ds) { Set(ds, nullptr, 0x00101000, "12"); }, {"523 n (0010,1000)"}},
        {"no class", [](VDicomDS& ds) { Delete(ds, 0x00080016); }, {"524 e (0008,0016)"}},
        {"a newer class",
         [](VDicomDS& ds) {
             Set(ds, nullptr, 0x00080016, "1.2.840.10008.5.1.4.1.1.481.8");
             Delete(ds, 0x00280010); // nobody knows
             Delete(ds, 0x00100020); // but every class has this
         },
         {"524 n (0008,0016)", "503 e (0010,0020)"}},
        {"two instances",
         [](VDicomDS& ds) {
             for (const Value& v : {Value{0x00020002, "1.2.840.10008.5.1.4.1.1.2"},
                                    {0x00020003, "1.2.9"},
                                    {0x00020010, "1.2.840.10008.1.2.1"},
                                    {0x00020012, "1.2.5"}})
                 Set(ds, nullptr, v.tag, v.text);
             Raw(ds, 0x00020001, std::string_view("\0\1", 2));
         },
         {"525 e (0008,0018)"}},
        {"pixels", [](VDicomDS& ds) { Set(ds, nullptr, 0x00280010, "2"); }, {"526 e (7FE0,0010)"}},
        {"the same UID", [](VDicomDS& ds) { Set(ds, nullptr, 0x00200052, "1.2.3.1"); }, {"526 e (0020,0052)"}},
        // Conditional and optional modules.
        {"an overlay",
         [](VDicomDS& ds) {
             for (const Value& v : {Value{0x60020010, "1"},
                                    {0x60020011, "2"},
                                    {0x60020040, "G"},
                                    {0x60020050, "1\\1"},
                                    {0x60020102, "0"},
                                    {0x60023000, "1"}})
                 Set(ds, nullptr, v.tag, v.text);
         },
         {"501 e (6002,0100)"}},
        {"a module that is meant",
         [](VDicomDS& ds) { Set(ds, nullptr, 0x60000010, "1"); },
         {"501 w (6000,0011)", "501 w (6000,0040)", "501 w (6000,0050)", "501 w (6000,0100)", "501 w (6000,0102)",
          "501 w (6000,3000)"}},
        {"an optional element of a module that is not", [](VDicomDS& ds) { Set(ds, nullptr, 0x00181041, "5"); }, {}},
    };
    for (const auto& one : cases) {
        VDicomDS ds;
        Fill(ds);
        one.change(ds);
        EXPECT_THAT(Check(ds), testing::ElementsAreArray(one.findings)) << one.what;
    }
}

TEST(Conformance, ContentItemsByTheirValueTypes) {
    VDicomDS ds;
    Set(ds, nullptr, 0x00080016, "1.2.840.10008.5.1.4.1.1.88.11");
    const auto below = [&](DICOMELEMENT* parent, const char* type) {
        DICOMELEMENT* item = Item(ds, parent, 0x0040A730);
        Set(ds, item, 0x0040A010, "CONTAINS");
        Set(ds, item, 0x0040A040, type);
        DICOMELEMENT* name = Item(ds, item, 0x0040A043);
        Set(ds, name, 0x00080100, "1");
        Set(ds, name, 0x00080102, "DCM");
        Set(ds, name, 0x00080104, "One");
        return item;
    };
    DICOMELEMENT* container = below(nullptr, "CONTAINER");
    Set(ds, container, 0x0040A050, "SEPARATE");
    Set(ds, below(container, "TEXT"), 0x0040A160, "words");
    DICOMELEMENT* deep = below(container, "CODE"); // its code is missing
    Set(ds, Item(ds, deep, 0x0040A730), 0x0040A010, "INFERRED FROM");
    std::vector<std::string> found = Check(ds);
    std::erase_if(found, [](const std::string& line) { return line.find("0040,A730") == std::string::npos; });
    EXPECT_THAT(found, testing::UnorderedElementsAre("501 e (0040,A730)[0].(0040,A730)[1].(0040,A168)",
                                                     "501 e (0040,A730)[0].(0040,A730)[1].(0040,A730)[0].(0040,A040)"));
}

TEST(Conformance, TheCallbackCannotDisturb) {
    VDicomDS ds;
    Fill(ds);
    Delete(ds, 0x00100030);
    Delete(ds, 0x0020000D);
    struct Seen {
        VDicomDS& ds;
        VDicomULong stopAfter;
        VDicomULong calls = 0;

        static VDicomULong VDICOM_CALLBACK Disturb(DICOMELEMENT* e, unsigned short code, void* data) {
            auto* seen = static_cast<Seen*>(data);
            DICOMFINDING finding;
            EXPECT_NE(seen->ds.GetFinding(&finding), 0u);
            EXPECT_EQ(finding.nCode, code);
            EXPECT_EQ(e, nullptr) << "missing at the top level";
            EXPECT_EQ(finding.pElement, nullptr);
            EXPECT_EQ(finding.nTag, seen->calls == 0 ? 0x00100030u : 0x0020000Du);
            EXPECT_EQ(seen->ds.InsertElement(nullptr, 0, finding.nTag, 0, 0, 0), nullptr);
            EXPECT_EQ(seen->ds.DeleteElement(seen->ds.GetFirstElement(nullptr, 1, 1)), nullptr);
            seen->ds.ResetDS();
            EXPECT_EQ(seen->ds.ConformanceDS(&Collect, nullptr, DICOM_UNDEFINED), unsigned{DICOM_ERROR_PARAMETER});
            return ++seen->calls >= seen->stopAfter ? 1 : 0;
        }
    };
    for (const VDicomULong stopAfter : {1u, 2u, 100u}) {
        Seen seen{ds, stopAfter};
        EXPECT_EQ(ds.ConformanceDS(&Seen::Disturb, &seen), 0u);
        EXPECT_EQ(seen.calls, std::min<VDicomULong>(stopAfter, 2));
    }
    DICOMFINDING finding;
    EXPECT_EQ(ds.GetFinding(&finding), 0u);
    EXPECT_NE(ds.InsertElement(nullptr, 0, 0x00100030, 0, 0, 0), nullptr) << "free again";
    EXPECT_EQ(ds.ConformanceDS(&Collect, nullptr, 9999), unsigned{DICOM_ERROR_PARAMETER});
    // Against another class: a magnetic resonance image has demands of its own.
    EXPECT_THAT(Check(ds, 2), testing::Contains("501 e (0018,0020)"));
}

TEST(Conformance, EveryDescriptionIsUnderstood) {
    std::size_t enumerated = 0, defined = 0, items = 0;
    for (const DICOMIOD* node = VDicomIOD::GetFirst(nullptr, 0); node != nullptr;
         node = VDicomIOD::GetNext(const_cast<DICOMIOD*>(node), 0)) {
        if (node->nType != DICOM_IOD_ELEMENT)
            continue;
        const ElementFacts facts = ParseFacts(node->pszDescription);
        const std::string_view text = node->pszDescription;
        EXPECT_EQ(text.find("Enumerated values") != std::string_view::npos, !facts.enumerated.empty()) << text;
        EXPECT_EQ(text.find("Defined terms") != std::string_view::npos, !facts.defined.empty()) << text;
        EXPECT_LE(facts.minItems, facts.maxItems) << text;
        enumerated += facts.enumerated.size();
        defined += facts.defined.size();
        items += facts.minItems > 0 ? 1u : 0u;
    }
    EXPECT_GT(enumerated, 5000u);
    EXPECT_GT(defined, 5000u);
    EXPECT_GT(items, 1000u);
}
