// Objects of the classes of the table: what InitDS makes of every class against an expansion of the table here, and the
// rules by which modules come, go and are found.
#include "CountedMemory.h"
#include "HexBytes.h"

#include "DataSetState.h"
#include "VDicomIOD.h"
#include "VDicomTag.h"

#include <gtest/gtest.h>

#include <set>

using namespace support;

namespace {

constexpr unsigned int kParameter = DICOM_ERROR_PARAMETER, kStructure = DICOM_ERROR_STRUCTURE;
constexpr VDicomULong kCT = 1, kDirectory = 71, kStudyQuery = 76;

/// The table belongs to the whole process: every test leaves it as it found it.
class Modules : public testing::Test {
protected:
    ~Modules() override {
        if (m_isEdited)
            VDicomIOD::Default();
    }
    bool m_isEdited = false;
};

std::string Text(VDicomDS& dataSet, VDicomULong tag, DICOMELEMENT* parent = nullptr) {
    char* text = dataSet.GetStringValue(dataSet.FindFirstElement(parent, tag, 1), 0, 1);
    return text == nullptr ? "none" : text;
}

DICOMIOD* Down(DICOMIOD* entry) { return VDicomIOD::GetChild(entry); }
DICOMIOD* Next(DICOMIOD* entry) { return VDicomIOD::GetNext(entry, 1); }

// What is expected: every element with its level, in the order of the tags; the first that lists a tag wins.
using Levels = std::map<VDicomULong, std::string>;
void Expand(DICOMIOD* entry, bool all, Levels& level, const std::string& indent, VDicomULong& entries) {
    for (DICOMIOD* child = Down(entry); child != nullptr; child = Next(child)) {
        if (child->nType != DICOM_IOD_ELEMENT) {
            Expand(child, all, level, indent, entries);
            continue;
        }
        if (!all && child->nUsage != 0 && child->nUsage != 3 && child->nUsage != 5)
            continue;
        ++entries;
        Levels below;
        const bool isSequence = Down(child) != nullptr;
        Expand(child, all, below, indent + "  ", entries);
        char line[16];
        std::snprintf(line, sizeof line, "%08X\n", static_cast<unsigned int>(child->nCode));
        std::string lines = indent + line;
        if (isSequence && child->nCode != 0x00041220) {
            lines += indent + " item\n";
            for (const auto& [tag, text] : below)
                lines += text;
        }
        level.emplace(+child->nCode, lines);
    }
}

std::string Show(VDicomDS& dataSet, DICOMELEMENT* parent, const std::string& indent) {
    std::string lines;
    for (DICOMELEMENT* e = dataSet.GetFirstElement(parent, 1, 1); e != nullptr; e = dataSet.GetNextElement(e, 1, 1)) {
        if ((e->nTag >> 16) == 2)
            continue;
        char line[16];
        std::snprintf(line, sizeof line, "%08X\n", static_cast<unsigned int>(e->nTag));
        lines += indent;
        lines += e->nTag == 0xFFFEE000 ? "item\n" : line;
        lines += Show(dataSet, e, indent + " ");
    }
    return lines;
}

} // namespace

TEST_F(Modules, OfEveryClassAreMadeAsTheTableSays) {
    for (const bool all : {true, false}) {
        for (DICOMIOD* node = VDicomIOD::GetFirst(nullptr, 1); node != nullptr; node = Next(node)) {
            SCOPED_TRACE(node->pszName);
            Levels expected;
            VDicomULong entries = 0;
            Expand(node, all, expected, "", entries);
            ASSERT_EQ(entries, VDicomDS::GetCountElementIOD(node, all ? 1 : 0));
            VDicomDS dataSet;
            ASSERT_EQ(dataSet.InitDS(node->nCode, all ? 0 : DICOM_FLAG_NO_OPTIONAL), 0u);
            const bool hasUID = *node->pszDescription != '\0';
            const bool isDirectory = node->nCode == kDirectory;
            std::string lines;
            for (const auto& [tag, text] : expected)
                lines += text;
            ASSERT_EQ(lines, Show(dataSet, nullptr, ""));
            EXPECT_EQ(hasUID && !isDirectory ? node->pszDescription : "none", Text(dataSet, 0x00080016));
            EXPECT_EQ(hasUID ? node->pszDescription : "none", Text(dataSet, 0x00020002));

            VDicomULong classId = 4711;
            EXPECT_EQ(dataSet.GetClass(&classId, nullptr), hasUID ? 1u : 0u);
            EXPECT_EQ(classId, hasUID ? +node->nCode : DICOM_NO_CLASS);
            const Bytes bytes = Save(dataSet, DICOM_TS_EXPLICIT_LITTLE);
            VDicomDS loaded;
            ASSERT_EQ(loaded.LoadDSMemory(bytes.data(), static_cast<VDicomULong>(bytes.size()), 0), 0u);
            EXPECT_EQ(lines, Show(loaded, nullptr, ""));
            unsigned short flags = 0;
            loaded.GetInfoDS(&classId, &flags);
            EXPECT_EQ(classId, hasUID ? +node->nCode : DICOM_NO_CLASS);
            if (!hasUID || isDirectory)
                continue;
            // All of its modules are there, but those that are empty without optional elements.
            VDicomULong held = 0;
            for (DICOMIOD* module = Down(node); module != nullptr; module = Next(module)) {
                const bool isEmpty = VDicomDS::GetCountElementIOD(module, all ? 1 : 0) == 0;
                if (dataSet.FindModule(module->nCode) == module)
                    EXPECT_EQ(dataSet.FindIndexModule(held++), module) << module->pszName;
                else
                    EXPECT_TRUE(isEmpty) << module->pszName;
                EXPECT_EQ(dataSet.VerifyModule(nullptr, module->nCode), 1u);
            }
            EXPECT_EQ(held, dataSet.GetCountModule());
            EXPECT_EQ(dataSet.FindIndexModule(held), nullptr);
        }
    }
}

TEST_F(Modules, ClassesAreSetAndFoundByUID) {
    VDicomDS dataSet;
    VDicomULong classId = 0;
    EXPECT_EQ(dataSet.GetClass(&classId, nullptr), 0u);
    EXPECT_EQ(classId, DICOM_NO_CLASS);
    const struct {
        const char* uid;
        unsigned int found;
        VDicomULong classId;
    } uids[] = {{"1.2.840.10008.5.1.4.1.1.2", 1, kCT}, {"1.2.840.10008.5.1.4.1.1.2.1", 1, 95},
                {"1.2.840.10008.5.1.4.1.1", 1, 65535}, {"", 0, 65535},
                {"1.2.840.10008.1.3.10", 1, 71},       {"1.2.840.10008.5.1.4.1.1.2 ", 1, 65535}};
    for (const auto& one : uids) {
        EXPECT_EQ(dataSet.GetClass(&classId, one.uid), one.found) << one.uid;
        EXPECT_EQ(classId, one.classId) << one.uid;
        EXPECT_EQ(dataSet.GetClass(nullptr, one.uid), one.found) << one.uid;
    }

    // (0002,0002) goes before (0008,0016), unless it is empty.
    ASSERT_NE(dataSet.FindSetValue(nullptr, 0x00080016, 0, "1.2.840.10008.5.1.4.1.1.4", 1), 0u);
    dataSet.GetInfoDS(&classId, nullptr);
    EXPECT_EQ(classId, 2u);
    DICOMELEMENT* media = dataSet.InsertElement(nullptr, 0, 0x00020002, 0, 0, 0);
    dataSet.GetInfoDS(&classId, nullptr);
    EXPECT_EQ(classId, 2u);
    ASSERT_NE(dataSet.SetStringValue(media, "1.2.840.10008.5.1.4.1.1.2", 1), 0u);
    dataSet.GetInfoDS(&classId, nullptr);
    EXPECT_EQ(classId, kCT);

    // Of several UIDs the one that is there stays, else the first is taken.
    m_isEdited = true;
    DICOMIOD* several = VDicomIOD::Insert(nullptr, 0, 900, "several", DICOM_IOD_CLASS, 2, "1.2.3\\1.2.34\\1.2.5");
    ASSERT_NE(several, nullptr);
    EXPECT_EQ(dataSet.SetClass(900), 0u);
    EXPECT_EQ(Text(dataSet, 0x00020002) + Text(dataSet, 0x00080016), "1.2.31.2.3");
    ASSERT_NE(dataSet.SetStringValue(media, "1.2.5", 1), 0u);
    EXPECT_EQ(dataSet.SetClass(900), 0u);
    EXPECT_EQ(Text(dataSet, 0x00020002) + Text(dataSet, 0x00080016), "1.2.51.2.5");
    EXPECT_EQ(dataSet.GetClass(&classId, "1.2.34"), 1u);
    EXPECT_EQ(classId, 900u);
    dataSet.GetClass(&classId, "1.2.3\\1.2.34");
    EXPECT_EQ(classId, DICOM_NO_CLASS);

    EXPECT_EQ(dataSet.SetClass(4711), kParameter);
    EXPECT_EQ(Text(dataSet, 0x00080016), "1.2.5");
    EXPECT_EQ(dataSet.SetClass(kStudyQuery), 0u);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x00020002, 1), nullptr) << "a query level has no UID";
    EXPECT_EQ(dataSet.InitDS(4711, 0), kParameter);
    EXPECT_EQ(dataSet.InitDS(DICOM_NO_CLASS, 0), 0u);
    EXPECT_EQ(dataSet.GetFirstElement(nullptr, 0, 1), nullptr);
}

TEST_F(Modules, ComeAndGoWithoutHarmToOthers) {
    VDicomDS dataSet;
    ASSERT_EQ(dataSet.SetClass(kCT), 0u);
    constexpr VDicomULong patient = 0;
    EXPECT_EQ(dataSet.FindModule(patient), nullptr);
    ASSERT_NE(dataSet.FindSetValue(nullptr, 0x00100010, 0, "Doe^Jane", 1), 0u);
    DICOMELEMENT* others = dataSet.InsertElement(nullptr, 0, 0x00101002, 0, 0, 0);
    ASSERT_NE(others, nullptr);
    const DICOMIOD* held = dataSet.InsertModule(patient, 1);
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(held, VDicomIOD::FindModule(kCT, patient));
    EXPECT_EQ(Text(dataSet, 0x00100010), "Doe^Jane") << "what is there stays";
    EXPECT_EQ(dataSet.GetChildElement(others, 1), nullptr);
    const std::string once = Show(dataSet, nullptr, "");
    EXPECT_NE(dataSet.InsertModule(patient, 1), nullptr);
    EXPECT_EQ(Show(dataSet, nullptr, ""), once);

    // An image's elements that other modules list go with the last of those.
    ASSERT_EQ(dataSet.InitDS(kCT, 0), 0u);
    std::map<VDicomULong, std::set<VDicomULong>> listers;
    for (DICOMIOD* module = Down(VDicomIOD::FindClass(kCT)); module != nullptr; module = Next(module)) {
        for (DICOMIOD* entry = Down(module); entry != nullptr; entry = Next(entry))
            listers[entry->nCode].insert(+module->nCode);
    }
    ASSERT_NE(dataSet.FindSetValue(nullptr, 0x60040010, vdicom::vr::US, "\1\0", 1), 0u);
    int shared = 0;
    for (const bool isMandatory : {false, true}) {
        for (DICOMIOD* module = Down(VDicomIOD::FindClass(kCT)); module != nullptr; module = Next(module)) {
            if (isMandatory != (module->nUsage == DICOM_MODULE_MANDATORY))
                continue;
            EXPECT_EQ(dataSet.DeleteModule(module->nCode), 1u) << module->pszName;
            for (auto& [tag, modules] : listers) {
                shared += modules.size() > 1 ? 1 : 0;
                modules.erase(module->nCode);
                ASSERT_EQ(dataSet.FindFirstElement(nullptr, tag, 1) == nullptr, modules.empty())
                    << tag << " after " << module->pszName;
            }
        }
    }
    EXPECT_GT(shared, 0);
    EXPECT_EQ(dataSet.FindFirstElement(nullptr, 0x60040010, 1), nullptr) << "in every repeating group";

    // Refused.
    EXPECT_EQ(dataSet.InsertModule(4711, 1), nullptr);
    EXPECT_EQ(dataSet.DeleteModule(4711), 0u);
    EXPECT_EQ(dataSet.VerifyModule(nullptr, 4711), 0u);
    EXPECT_EQ(dataSet.InsertModule(nullptr, 4711, 0, 1), kParameter);
    EXPECT_EQ(dataSet.InsertModule(nullptr, static_cast<DICOMIOD*>(nullptr), 1), kParameter);
    EXPECT_EQ(VDicomDS::GetCountElementIOD(nullptr, 1), 0u);
    for (const VDicomULong module : {182u, 184u}) {
        EXPECT_EQ(dataSet.InsertModule(module, 1), nullptr) << "of the directory class";
        EXPECT_EQ(dataSet.DeleteModule(module), 0u);
    }
    EXPECT_NE(dataSet.InsertModule(50, 0), nullptr) << "a module of another class";
    DICOMELEMENT* name = dataSet.InsertElement(nullptr, 0, 0x00100010, 0, 0, 0);
    EXPECT_EQ(dataSet.InsertModule(name, patient, 0, 1), kStructure);
    EXPECT_EQ(dataSet.InsertModule(name, VDicomIOD::FindModule(kCT, patient), 1), kStructure);
    EXPECT_EQ(dataSet.GetChildElement(name, 1), nullptr);
}

TEST_F(Modules, StayWithinTheirSequence) {
    m_isEdited = true;
    // A module of its own below a sequence, with a deep one below it.
    DICOMIOD* sequence = VDicomIOD::FindInClass(VDicomIOD::FindClass(kCT), 0x00081140, DICOM_IOD_ELEMENT);
    DICOMIOD* module = VDicomIOD::Insert(sequence, 1, 950, "inner", DICOM_IOD_MODULE, 0, "");
    DICOMIOD* at = VDicomIOD::Insert(module, 1, 0x00200013, "", DICOM_IOD_ELEMENT, 3, "");
    ASSERT_NE(at, nullptr);
    VDicomDS dataSet;
    ASSERT_EQ(dataSet.SetClass(kCT), 0u);
    DICOMELEMENT* images = dataSet.InsertElement(nullptr, 0, 0x00081140, 0, 0, 0);
    DICOMELEMENT* other = dataSet.InsertElement(nullptr, 0, 0x00081110, 0, 0, 0);
    EXPECT_EQ(dataSet.InsertModule(950, 1), nullptr);
    EXPECT_EQ(dataSet.InsertModule(nullptr, 950, 0, 1), kStructure);
    EXPECT_EQ(dataSet.InsertModule(other, 950, 0, 1), kStructure);
    EXPECT_EQ(dataSet.GetChildElement(other, 1), nullptr);
    EXPECT_EQ(dataSet.FindModule(950), nullptr);
    EXPECT_EQ(dataSet.InsertModule(images, 950, 7, 1), 0u);
    EXPECT_EQ(dataSet.InsertModule(images, 950, 0, 1), 0u);
    EXPECT_EQ(dataSet.InsertModule(images, 950, 1, 1), 0u);
    ASSERT_EQ(dataSet.GetCountElement(images), 2u) << "the first item was there the second time";
    EXPECT_EQ(dataSet.FindModule(950), module);
    DICOMELEMENT* item = dataSet.GetChildElement(images, 1);
    EXPECT_EQ(dataSet.InsertModule(item, 0, 0, 1), kStructure);
    EXPECT_EQ(dataSet.VerifyModule(item, 950), 1u);
    EXPECT_EQ(dataSet.VerifyModule(dataSet.GetChildElement(item, 1), 950), 1u);
    EXPECT_EQ(dataSet.VerifyModule(images, 950), 0u);
    EXPECT_EQ(dataSet.VerifyModule(dataSet.GetChildElement(item, 1), 0), 0u);

    // Sequences in sequences without end: refused as a whole at the limit.
    const std::string before = Show(dataSet, nullptr, "");
    for (int i = 0; i < 1500; ++i)
        at = VDicomIOD::Insert(at, 1, 0x00091001, "deeper", DICOM_IOD_ELEMENT, 3, "");
    DICOMIOD* deep = VDicomIOD::Insert(VDicomIOD::FindClass(kCT), 1, 951, "deep", DICOM_IOD_MODULE, 0, "");
    VDicomIOD::Insert(deep, 1, 0x00090010, "first", DICOM_IOD_ELEMENT, 3, "");
    for (DICOMIOD* below = deep; at != nullptr && at != sequence; at = VDicomIOD::GetParent(at))
        below = VDicomIOD::Insert(below, 1, 0x00091002, "deeper", DICOM_IOD_ELEMENT, 3, "");
    EXPECT_EQ(dataSet.InsertModule(nullptr, 951, 0, 0), static_cast<unsigned int>(DICOM_ERROR_DEPTH));
    EXPECT_EQ(Show(dataSet, nullptr, ""), before);
    EXPECT_EQ(dataSet.InitDS(kCT, 0), static_cast<unsigned int>(DICOM_ERROR_DEPTH));
    EXPECT_EQ(dataSet.GetFirstElement(nullptr, 0, 1), nullptr);
    EXPECT_EQ(VDicomDS::GetCountElementIOD(deep, 0), 1503u);
    // What no attribute is stays out.
    DICOMIOD* bad = VDicomIOD::Insert(VDicomIOD::FindClass(kCT), 1, 952, "bad", DICOM_IOD_MODULE, 0, "");
    for (const VDicomULong tag : {0x00080000u, 0xFFFEE000u, 0xFFFEE00Du, 0xFFFCFFFCu, 0x00091005u})
        VDicomIOD::Insert(bad, 1, tag, "bad", DICOM_IOD_ELEMENT, 3, "");
    VDicomDS fresh;
    EXPECT_EQ(fresh.InsertModule(952, 1), bad);
    EXPECT_EQ(Show(fresh, nullptr, ""), "00091005\n");
}

TEST_F(Modules, OfADirectoryAreRecords) {
    VDicomDS dataSet;
    ASSERT_EQ(dataSet.InitDS(kDirectory, 0), 0u);
    EXPECT_NE(dataSet.FindFirstElement(nullptr, 0x00041130, 1), nullptr);
    for (const VDicomULong tag : {0x00041200u, 0x00041202u, 0x00041212u})
        EXPECT_GT(dataSet.FindFirstElement(nullptr, tag, 1)->nLength, 0u);
    EXPECT_EQ(dataSet.FindModule(184), nullptr);
    EXPECT_EQ(dataSet.InsertModuleKey(nullptr, 184, 1), kStructure);
    EXPECT_EQ(dataSet.InsertModuleKey(dataSet.FindFirstElement(nullptr, 0x00041130, 1), 184, 1), kStructure);
    EXPECT_EQ(dataSet.InsertModuleKey(nullptr, 0, 1), kParameter) << "no module of the directory class";
    EXPECT_EQ(dataSet.InsertModule(dataSet.FindFirstElement(nullptr, 0x00041220, 1), 184, 0, 1), kStructure);

    DICOMELEMENT* patient = dataSet.InsertKey(nullptr, 0, "PATIENT", 1);
    DICOMELEMENT* series = dataSet.InsertKey(patient, 1, "Series", 0);
    DICOMELEMENT* unknown = dataSet.InsertKey(nullptr, 0, "TOPIC", 0);
    ASSERT_TRUE(patient != nullptr && series != nullptr && unknown != nullptr);
    EXPECT_EQ(Show(dataSet, patient, ""), "00041400\n00041410\n00041420\n00041430\n00041432\n00041500\n00041510\n"
                                          "00041511\n00041512\n0004151A\n00080005\n00100010\n00100020\n");
    EXPECT_EQ(Show(dataSet, series, ""), "00041400\n00041410\n00041420\n00041430\n00080060\n0020000E\n00200011\n")
        << "neither an icon nor what is conditional";
    EXPECT_EQ(Show(dataSet, unknown, ""), "00041400\n00041410\n00041420\n00041430\n");
    EXPECT_EQ(dataSet.FindModule(184), VDicomIOD::FindModule(kDirectory, 184));
    EXPECT_EQ(dataSet.FindModule(187), nullptr);
    EXPECT_EQ(dataSet.InsertModuleKey(dataSet.GetChildElement(series, 1), 187, 0), 0u);
    EXPECT_NE(dataSet.FindFirstElement(series, 0x00200013, 1), nullptr);
    EXPECT_EQ(dataSet.InsertModuleKey(series, 183, 0), kStructure);
    EXPECT_EQ(dataSet.GetParentKey(series), patient);
    EXPECT_EQ(dataSet.GetNextKey(patient), unknown);
}

TEST_F(Modules, StayWholeWhenMemoryRunsOut) {
    using memory::g_failAfter;
    DICOMIOD* image = VDicomIOD::FindModule(kCT, 0);
    const struct {
        const char* name;
        std::function<unsigned int(VDicomDS&)> run;
    } operations[] = {
        {"init", [](VDicomDS& d) { return d.InitDS(kCT, DICOM_FLAG_NO_OPTIONAL); }},
        {"directory", [](VDicomDS& d) { return d.InitDS(kDirectory, 0); }},
        {"entry", [image](VDicomDS& d) { return d.InsertModule(nullptr, image, 1); }},
        {"record", [](VDicomDS& d) { return d.InsertKey(nullptr, 0, "SERIES", 1) == nullptr ? 2u : 0u; }},
        {"class", [](VDicomDS& d) { return d.SetClass(kCT); }},
        {"delete", [](VDicomDS& d) { return d.DeleteModule(0) == 0 ? 2u : 0u; }},
        {"count", [](VDicomDS& d) { return d.GetCountModule() == 0 ? 2u : 0u; }},
    };
    for (const auto& one : operations) {
        const std::string name = one.name;
        unsigned int code = 2;
        for (long allocations = 0; code != 0 && allocations < 5000; ++allocations) {
            VDicomDS dataSet;
            if (name == "delete" || name == "count")
                dataSet.InitDS(kCT, 0);
            else if (name != "init" && name != "directory")
                dataSet.FindSetValue(nullptr, 0x00100010, 0, "Doe", 1);
            const std::string before = Show(dataSet, nullptr, "");
            g_failAfter = allocations;
            code = one.run(dataSet);
            g_failAfter = -1;
            if (code == 0 || name == "class" || name == "record")
                continue;
            ASSERT_EQ(Show(dataSet, nullptr, ""), before) << name << " at allocation " << allocations;
        }
        EXPECT_EQ(code, 0u) << name;
    }
}
