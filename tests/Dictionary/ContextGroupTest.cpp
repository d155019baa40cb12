// The table of context groups: its figures, loading with inclusions, editing, bad input, memory.
#include "VDicomContextGroup.h"

#include "ContextGroupTree.h"
#include "CountedMemory.h"
#include "FactRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using Table = VDicomContextGroup;

constexpr VALUEDATETIME kVersion = {2024, 2, 29, 1, 2, 3, 4, -500};
constexpr unsigned short kUnique = DICOM_CONTEXT_GROUP_UNIQUE;

/// The table belongs to the whole process: every test leaves it empty, as it found it.
class ContextGroups : public testing::Test {
protected:
    ContextGroups() { EXPECT_EQ(nullptr, Table::GetFirst()); }
    ~ContextGroups() override { Table::Reset(); }
};

std::string Text(const char* text) { return text == nullptr ? "-" : text; }

std::string Show(const DICOMCODEDCONCEPT* codedConcept) {
    return Text(codedConcept->pszCodingSchemeDesignator) + "|" + Text(codedConcept->pszCodingSchemeVersion) + "|" +
           Text(codedConcept->pszCodeValue) + "|" + Text(codedConcept->pszCodeMeaning) + "|" +
           Text(codedConcept->pszContextGroupExtensionCreatorUID);
}

std::vector<std::string> Concepts(DICOMCONTEXTGROUP* group) {
    std::vector<std::string> lines;
    for (DICOMCODEDCONCEPT* at = Table::GetFirstCodedConcept(group); at != nullptr; at = Table::GetNextCodedConcept(at))
        lines.push_back(Show(at));
    return lines;
}

std::string Cids() {
    std::string all;
    for (DICOMCONTEXTGROUP* group = Table::GetFirst(); group != nullptr; group = Table::GetNext(group))
        all += Text(group->pszContextIdentifier) + ",";
    return all;
}

DICOMCONTEXTGROUP* Loaded(const char* cid) {
    EXPECT_EQ(DICOM_OK, Table::Load(cid)) << cid;
    return Table::Find(cid);
}

DICOMCODEDCONCEPT* Add(DICOMCONTEXTGROUP* group, const char* value, unsigned short flags = 0) {
    return Table::InsertCodedConcept(group, "99TEST", nullptr, value, "meaning", nullptr, nullptr, flags);
}

TEST_F(ContextGroups, HaveTheFiguresOfTheirFacts) {
    VDicomULong inclusions = 0;
    VDicomULong own = 0;
    for (VDicomULong row = 0; row < Table::GetCountBuiltIn(); ++row) {
        VDicomULong included = 0;
        while (Table::GetIncluded(row, included) != nullptr)
            ++included;
        inclusions += included;
    }
    EXPECT_EQ(197U, Table::GetCountBuiltIn());
    EXPECT_EQ(40U, inclusions);
    EXPECT_EQ(nullptr, Table::GetBuiltIn(197));
    EXPECT_EQ(nullptr, Table::GetIncluded(197, 0));
    EXPECT_EQ(nullptr, Table::GetIncluded(0, 0));

    ASSERT_EQ(DICOM_OK, Table::Load(nullptr));
    EXPECT_EQ(197U, Table::GetCount());
    std::map<bool, int> extensible;
    std::map<int, int> years;
    for (VDicomULong row = 0; row < 197; ++row) {
        DICOMCONTEXTGROUP* group = Table::FindIndex(row);
        ASSERT_NE(nullptr, group);
        EXPECT_STREQ(Table::GetBuiltIn(row), group->pszContextIdentifier) << "in the order of the rows";
        ++extensible[group->bExtensible != 0];
        const VALUEDATETIME& version = *group->pVersion;
        ++years[version.nYear];
        EXPECT_TRUE(version.nMonth >= 1 && version.nMonth <= 12 && version.nDay >= 1 && version.nDay <= 31);
        EXPECT_EQ(0, version.nHours + version.nMinutes + version.nSeconds);
        EXPECT_EQ(0U, version.nFraction + 0U);
        EXPECT_EQ(0, version.nOffsetUTC + 0);
        own += Table::GetCountCodedConcept(group);
        for (VDicomULong i = 0; Table::GetIncluded(row, i) != nullptr; ++i)
            own -= Table::GetCountCodedConcept(Table::Find(Table::GetIncluded(row, i)));
    }
    EXPECT_EQ(2635U, own) << "less what is included, each row is there once";
    EXPECT_EQ((std::map<bool, int>{{false, 18}, {true, 179}}), extensible);
    EXPECT_EQ((std::map<int, int>{{2002, 120}, {2003, 61}, {2004, 16}}), years);
    EXPECT_EQ(nullptr, Table::FindIndex(197));
    EXPECT_STREQ("Anatomic Modifier", Table::GetFirst()->pszName);
    EXPECT_EQ(Table::FindIndex(196), Table::GetLast());
    EXPECT_EQ(Table::FindIndex(195), Table::GetPrev(Table::GetLast()));
}

// The groups flattened from the facts here, by other code than the one that made the tables.
TEST_F(ContextGroups, AreWhatTheFactsSay) {
    const auto groups = facts::Read("context_groups/groups.tsv");
    if (groups.empty())
        GTEST_SKIP() << "no facts below " << VDICOM_SHARED;
    std::map<std::string, std::vector<std::string>> own;
    std::map<std::string, std::vector<std::string>> includes;
    for (const facts::Row& row : facts::Read("context_groups/concepts.tsv"))
        own[row[0]].push_back(row[2] + "|-|" + row[3] + "|" + row[4] + "|-");
    for (const facts::Row& row : groups) {
        std::string rest = row[7];
        while (!rest.empty()) {
            const std::size_t comma = std::min(rest.find(','), rest.size());
            includes[row[1]].push_back(rest.substr(0, comma));
            rest.erase(0, comma + 1);
        }
    }
    const auto flatten = [&](const std::string& cid, std::vector<std::string>& all, const auto& self) -> void {
        all.insert(all.end(), own[cid].begin(), own[cid].end());
        for (const std::string& other : includes[cid])
            self(other, all, self);
    };
    ASSERT_EQ(DICOM_OK, Table::Load(nullptr));
    DICOMCONTEXTGROUP* group = Table::GetFirst();
    for (const facts::Row& row : groups) {
        ASSERT_NE(nullptr, group);
        const VALUEDATETIME& version = *group->pVersion;
        EXPECT_EQ(
            (facts::Row{row[1], row[2], row[3], row[4], row[5], row[6]}),
            (facts::Row{group->pszContextIdentifier, group->pszName, std::to_string(group->bExtensible),
                        std::to_string(version.nYear), std::to_string(version.nMonth), std::to_string(version.nDay)}));
        std::vector<std::string> expected;
        flatten(row[1], expected, flatten);
        EXPECT_EQ(expected, Concepts(group)) << row[1];
        group = Table::GetNext(group);
    }
    EXPECT_EQ(nullptr, group);
}

TEST_F(ContextGroups, AreLoadedByCid) {
    for (const char* nothing : {"", " ", "    ", "CID 1", "CID", "CID  2", "CID 2x", "CID 02", "\tCID 2", "2"})
        EXPECT_EQ(DICOM_ERROR_PARAMETER, Table::Load(nothing)) << nothing;
    EXPECT_EQ(nullptr, Table::GetFirst());

    EXPECT_EQ(DICOM_OK, Table::Load(" cid 2 "));
    EXPECT_EQ("CID 2,", Cids());
    DICOMCONTEXTGROUP* modifiers = Table::GetFirst();
    const VDicomULong concepts = Table::GetCountCodedConcept(modifiers);
    EXPECT_EQ(DICOM_OK, Table::Load("CID 2"));
    EXPECT_EQ("CID 2,", Cids());
    EXPECT_EQ(concepts, Table::GetCountCodedConcept(modifiers)) << "a second time adds nothing";
    EXPECT_EQ(modifiers, Table::Find("   Cid 2"));
    EXPECT_EQ(nullptr, Table::Find("CID 3"));
    EXPECT_EQ(nullptr, Table::Find(""));
    EXPECT_EQ(nullptr, Table::Find(nullptr));

    DICOMCODEDCONCEPT* right = Table::FindCodedConcept(modifiers, "snm3", " g-a100 ");
    ASSERT_NE(nullptr, right);
    EXPECT_EQ("SNM3|-|G-A100|Right|-", Show(right));
    EXPECT_EQ(nullptr, right->pContextGroupLocalVersion);
    EXPECT_EQ(right, Table::FindIndexCodedConcept(modifiers, 0));
    EXPECT_EQ(nullptr, Table::FindCodedConcept(modifiers, "SRT", "G-A100"));
    EXPECT_EQ(nullptr, Table::FindCodedConcept(modifiers, "SNM3", ""));
    EXPECT_EQ(nullptr, Table::FindCodedConcept(modifiers, nullptr, nullptr));
    EXPECT_EQ(nullptr, Table::FindCodedConcept(nullptr, "SNM3", "G-A100"));

    // Included groups stand behind the group's own concepts and are no groups of the table themselves.
    DICOMCONTEXTGROUP* devices = Loaded("CID 30");
    EXPECT_EQ("CID 2,CID 30,", Cids());
    EXPECT_STREQ("DICOM Devices", devices->pszName);
    auto all = Concepts(devices);
    const auto included = Concepts(Loaded("CID 29"));
    ASSERT_EQ(10 + included.size(), all.size());
    EXPECT_TRUE(std::equal(included.begin(), included.end(), all.begin() + 10));
    const auto otherConcepts = Concepts(Loaded("CID 4031"));
    EXPECT_EQ(otherConcepts, Concepts(Loaded("CID 4030"))) << "no concepts of its own";
    EXPECT_EQ(nullptr, Table::FindCodedConcept(Table::Find("CID 4030"), "SNM3", "G-A100")) << "another group's";

    // The others follow in their order, those that are there stay.
    EXPECT_EQ(DICOM_OK, Table::Load(nullptr));
    EXPECT_EQ(197U, Table::GetCount());
    EXPECT_EQ(modifiers, Table::GetFirst());
    EXPECT_EQ(0U, Cids().find("CID 2,CID 30,CID 29,CID 4031,CID 4030,CID 4,CID 5,"));
    EXPECT_EQ(DICOM_OK, Table::Load(nullptr));
    EXPECT_EQ(197U, Table::GetCount());
}

TEST_F(ContextGroups, TakeConceptsOfRows) {
    EXPECT_EQ(0U, Table::LoadCodedConcepts(197, nullptr, 1));
    EXPECT_EQ(0U, Table::LoadCodedConcepts(0xFFFFFFFF, nullptr, 0));
    EXPECT_EQ(nullptr, Table::GetFirst());
    EXPECT_EQ(1U, Table::LoadCodedConcepts(0, nullptr, 0));
    EXPECT_EQ(1U, Table::LoadCodedConcepts(0, nullptr, 0)) << "nothing asks whether the group is there";
    EXPECT_EQ("CID 2,CID 2,", Cids());
    DICOMCONTEXTGROUP* mine = Table::Insert("mine", "my group", 1, &kVersion, 0);
    Add(mine, "first");
    EXPECT_EQ(1U, Table::LoadCodedConcepts(0, mine, 0));
    EXPECT_EQ(1 + Table::GetCountCodedConcept(Table::GetFirst()), Table::GetCountCodedConcept(mine));
}

// Inclusions that lead back to their own group do not occur in the built-in rows; they end all the same.
TEST_F(ContextGroups, ThatIncludeThemselvesAreTakenOnce) {
    static constexpr char texts[] = "A\0a\0B\0b\0C\0c\0"
                                    "D\0"
                                    "1\0one\0"
                                    "D\0"
                                    "2\0two\0"
                                    "D\0"
                                    "3\0three\0";
    static constexpr std::uint32_t concepts[] = {12, 20, 28};
    static constexpr vdicom::ContextGroupRow rows[] = {{0, 0, 1, 1, 2024, 1, 1, {2, 1, 3, 0, 0, 0, 0}},
                                                       {4, 1, 1, 1, 2024, 1, 1, {3, 1, 2, 0, 0, 0, 0}},
                                                       {8, 2, 1, 1, 2024, 1, 1, {1, 2, 3, 1, 3, 3, 1}}};
    const vdicom::ContextGroupTable table = {rows, 3, concepts, texts};
    vdicom::ContextGroupTree tree(table);
    ASSERT_EQ(DICOM_OK, tree.Load("a"));
    std::string values;
    for (const DICOMLINK* at = tree.Find("A")->Link.pFirstChild; at != nullptr; at = at->pNext)
        values += reinterpret_cast<const DICOMCODEDCONCEPT*>(at)->pszCodeValue;
    EXPECT_EQ("12332", values) << "A, B with C, C with B";
}

TEST_F(ContextGroups, AreEditedByApplications) {
    EXPECT_EQ(nullptr, Table::Insert(nullptr, "name", 1, &kVersion, 0));
    EXPECT_EQ(nullptr, Table::Insert("CID 9", nullptr, 1, &kVersion, 0));
    EXPECT_EQ(nullptr, Table::Insert("CID 9", "name", 1, nullptr, 0));
    EXPECT_EQ(nullptr, Table::Insert("  ", "name", 1, &kVersion, 0));
    EXPECT_EQ(nullptr, Table::Insert("CID 9", "  ", 1, &kVersion, 0));
    EXPECT_EQ(nullptr, Table::GetFirst());

    VALUEDATETIME version = kVersion;
    DICOMCONTEXTGROUP* first = Table::Insert("  Mine\t ", " my  group ", 7, &version, kUnique);
    ASSERT_NE(nullptr, first);
    version.nYear = 1;
    EXPECT_STREQ("Mine\t", first->pszContextIdentifier) << "spaces alone are trimmed";
    EXPECT_STREQ("my  group", first->pszName);
    EXPECT_EQ(7U, first->bExtensible + 0U);
    EXPECT_EQ(2024, +first->pVersion->nYear);
    EXPECT_EQ(-500, first->pVersion->nOffsetUTC + 0);
    EXPECT_EQ(nullptr, Table::Insert("MINE\t", "again", 0, &kVersion, kUnique));
    EXPECT_EQ(nullptr, Table::Insert("MINE\t", "again", 0, &kVersion, 0xFFFF));
    DICOMCONTEXTGROUP* second = Table::Insert("MINE\t", "again", 0, &kVersion, 0xFFFE);
    ASSERT_NE(nullptr, second) << "without the flag a CID may stand twice";
    EXPECT_EQ(first, Table::Find("mine\t")) << "the first one is found";

    // Concepts.
    for (const char* bad : {static_cast<const char*>(nullptr), "", "  "}) {
        EXPECT_EQ(nullptr, Table::InsertCodedConcept(first, bad, nullptr, "v", "m", nullptr, nullptr, 0));
        EXPECT_EQ(nullptr, Table::InsertCodedConcept(first, "d", nullptr, bad, "m", nullptr, nullptr, 0));
        EXPECT_EQ(nullptr, Table::InsertCodedConcept(first, "d", nullptr, "v", bad, nullptr, nullptr, 0));
        if (bad != nullptr) {
            EXPECT_EQ(nullptr, Table::InsertCodedConcept(first, "d", bad, "v", "m", nullptr, nullptr, 0));
            EXPECT_EQ(nullptr, Table::InsertCodedConcept(first, "d", nullptr, "v", "m", nullptr, bad, 0));
        }
    }
    EXPECT_EQ(nullptr, Table::InsertCodedConcept(nullptr, "d", nullptr, "v", "m", nullptr, nullptr, 0));
    EXPECT_EQ(nullptr, Table::GetFirstCodedConcept(first));
    DICOMCODEDCONCEPT* full =
        Table::InsertCodedConcept(first, " d ", " 1.0 ", " v ", " m\n ", &kVersion, " 1.2.3 ", kUnique);
    ASSERT_NE(nullptr, full);
    EXPECT_EQ("d|1.0|v|m\n|1.2.3", Show(full));
    EXPECT_EQ(29, +full->pContextGroupLocalVersion->nDay);
    EXPECT_EQ(nullptr, Table::InsertCodedConcept(first, "D", nullptr, "V", "x", nullptr, nullptr, kUnique));
    DICOMCODEDCONCEPT* twin = Table::InsertCodedConcept(first, "D", nullptr, "V", "x", nullptr, nullptr, 0);
    EXPECT_EQ(full, Table::FindCodedConcept(first, "d", "v"));
    EXPECT_NE(nullptr, Table::InsertCodedConcept(second, "D", nullptr, "V", "x", nullptr, nullptr, kUnique))
        << "unique in its own group";
    EXPECT_EQ(nullptr, Table::FindCodedConcept(first, "dv", "")) << "designator and value are told apart";
    DICOMCODEDCONCEPT* third = Add(first, "third");
    EXPECT_EQ(first, Table::GetContextGroup(third));
    EXPECT_EQ(3U, Table::GetCountCodedConcept(first));
    EXPECT_EQ(twin, Table::FindIndexCodedConcept(first, 1));
    EXPECT_EQ(nullptr, Table::FindIndexCodedConcept(first, 3));
    EXPECT_EQ(third, Table::GetLastCodedConcept(first));
    EXPECT_EQ(twin, Table::GetPrevCodedConcept(third));

    EXPECT_EQ(1U, Table::SetCodeMeaning(full, "  a longer meaning than before "));
    EXPECT_EQ(1U, Table::SetCodeMeaning(full, full->pszCodeMeaning)) << "its own text is copied before it is freed";
    EXPECT_EQ(0U, Table::SetCodeMeaning(full, " "));
    EXPECT_EQ(0U, Table::SetCodeMeaning(full, nullptr));
    EXPECT_EQ(0U, Table::SetCodeMeaning(nullptr, "x"));
    EXPECT_EQ("d|1.0|v|a longer meaning than before|1.2.3", Show(full));

    EXPECT_EQ(1U, Table::Exists(second));
    EXPECT_EQ(1U, Table::ExistsCodedConcept(twin));
    EXPECT_EQ(0U, Table::Exists(reinterpret_cast<DICOMCONTEXTGROUP*>(twin)));
    EXPECT_EQ(0U, Table::ExistsCodedConcept(reinterpret_cast<DICOMCODEDCONCEPT*>(second)));
    EXPECT_EQ(0U, Table::Exists(nullptr));
    EXPECT_EQ(0U, Table::ExistsCodedConcept(nullptr));

    // Deleting: the neighbour comes back, at the end the one before.
    EXPECT_EQ(twin, Table::DeleteCodedConcept(full));
    EXPECT_EQ(twin, Table::FindCodedConcept(first, "d", "v")) << "the second one takes its place";
    EXPECT_EQ(twin, Table::DeleteCodedConcept(third));
    EXPECT_EQ(nullptr, Table::DeleteCodedConcept(twin));
    EXPECT_EQ(nullptr, Table::DeleteCodedConcept(nullptr));
    EXPECT_EQ(nullptr, Table::FindCodedConcept(first, "d", "v"));
    EXPECT_EQ(second, Table::Delete(first));
    EXPECT_EQ(0U, Table::Exists(first));
    EXPECT_EQ(second, Table::Find("mine\t"));
    EXPECT_EQ(nullptr, Table::Delete(second));
    EXPECT_EQ(nullptr, Table::Delete(nullptr));
    EXPECT_EQ(nullptr, Table::GetLast());
    EXPECT_EQ(0U, Table::GetCount());
    EXPECT_EQ(nullptr, Table::GetNext(nullptr));
    EXPECT_EQ(nullptr, Table::GetPrev(nullptr));
    EXPECT_EQ(nullptr, Table::GetNextCodedConcept(nullptr));
    EXPECT_EQ(nullptr, Table::GetPrevCodedConcept(nullptr));
    EXPECT_EQ(nullptr, Table::GetContextGroup(nullptr));
    EXPECT_EQ(0U, Table::GetCountCodedConcept(nullptr));
}

TEST_F(ContextGroups, GetTheirConceptsBack) {
    DICOMCONTEXTGROUP* devices = Loaded("CID 30");
    DICOMCONTEXTGROUP* modifiers = Loaded("CID 2");
    DICOMCONTEXTGROUP* mine = Table::Insert("mine", "my group", 1, &kVersion, 0);
    DICOMCONTEXTGROUP* same = Table::Insert("cid 2", "my name for it", 0, &kVersion, 0);
    Add(mine, "first");
    Add(same, "first");
    const auto before = Concepts(devices);
    const auto builtIn = Concepts(modifiers);
    const auto own = Concepts(mine);
    Table::SetCodeMeaning(Table::GetFirstCodedConcept(devices), "changed");
    Table::DeleteCodedConcept(Table::GetLastCodedConcept(devices));
    Add(devices, "added");
    EXPECT_EQ(1U, Table::Default(devices));
    EXPECT_EQ(before, Concepts(devices));
    EXPECT_EQ(1U, Table::Default(mine)) << "not built in: nothing changes";
    EXPECT_EQ(own, Concepts(mine));

    Add(devices, "added");
    Add(modifiers, "added");
    EXPECT_EQ(1U, Table::Default(nullptr));
    EXPECT_EQ("CID 30,CID 2,mine,cid 2,", Cids());
    EXPECT_EQ(before, Concepts(devices));
    EXPECT_EQ(builtIn, Concepts(modifiers));
    EXPECT_EQ(own, Concepts(mine));
    EXPECT_EQ(builtIn, Concepts(same)) << "a CID is built in however it is written";
    EXPECT_STREQ("my name for it", same->pszName) << "name, flag and version stay";
    EXPECT_EQ(0U, same->bExtensible + 0U);
    EXPECT_EQ(2024, +same->pVersion->nYear);
    Table::Reset();
    EXPECT_EQ(1U, Table::Default(nullptr));
    EXPECT_EQ(nullptr, Table::GetFirst());
}

TEST_F(ContextGroups, EditedAtRandomAreFoundAsAWalkFindsThem) {
    std::mt19937 random(20250712);
    const char* const cids[] = {"one", "ONE", "two", "Three"};
    const char* const values[] = {"v1", "V1", "v2", "v3", "V3"};
    const auto below = [&random](VDicomULong limit) { return static_cast<VDicomULong>(random() % limit); };
    for (int step = 0; step < 3000; ++step) {
        DICOMCONTEXTGROUP* group = Table::FindIndex(below(Table::GetCount() + 1));
        const VDicomULong count = Table::GetCountCodedConcept(group);
        switch (random() % 5) {
        case 0:
            Table::Insert(cids[random() % 4], "name", 1, &kVersion, random() % 2);
            break;
        case 1:
            if (random() % 4 == 0)
                Table::Delete(group);
            break;
        case 2:
            if (count > 0)
                Table::DeleteCodedConcept(Table::FindIndexCodedConcept(group, below(count)));
            break;
        default:
            Add(group, values[random() % 5], random() % 2);
        }
        const auto sameText = [](std::string a, std::string b) {
            std::transform(a.begin(), a.end(), a.begin(), [](unsigned char c) { return std::tolower(c); });
            std::transform(b.begin(), b.end(), b.begin(), [](unsigned char c) { return std::tolower(c); });
            return a == b;
        };
        for (const char* cid : cids) {
            DICOMCONTEXTGROUP* walk = Table::GetFirst();
            while (walk != nullptr && !sameText(walk->pszContextIdentifier, cid))
                walk = Table::GetNext(walk);
            ASSERT_EQ(walk, Table::Find(cid)) << step;
            for (const char* value : values) {
                DICOMCODEDCONCEPT* at = Table::GetFirstCodedConcept(walk);
                while (at != nullptr && !sameText(at->pszCodeValue, value))
                    at = Table::GetNextCodedConcept(at);
                ASSERT_EQ(at, Table::FindCodedConcept(walk, "99test", value)) << step;
            }
        }
    }
}

TEST_F(ContextGroups, StayWholeWhenMemoryRunsOut) {
    using memory::FailEachTime;
    using memory::g_blocks;
    const long empty = g_blocks;
    const auto noGroup = [] { EXPECT_EQ(nullptr, Table::GetFirst()); };
    EXPECT_EQ(2, FailEachTime([] { return Table::Insert("mine", "name", 1, &kVersion, 0) != nullptr; }, noGroup))
        << "node and index";
    DICOMCONTEXTGROUP* mine = Table::Find("mine");
    EXPECT_LE(1,
              FailEachTime(
                  [&] { return Table::InsertCodedConcept(mine, "d", "1", "v", "m", &kVersion, "1.2", 0) != nullptr; },
                  [&] { EXPECT_EQ(nullptr, Table::GetFirstCodedConcept(mine)); }));
    DICOMCODEDCONCEPT* only = Table::GetFirstCodedConcept(mine);
    EXPECT_EQ(1, FailEachTime([&] { return Table::SetCodeMeaning(only, "new") != 0; },
                              [&] { EXPECT_STREQ("m", only->pszCodeMeaning); }));

    // A group whose concepts, or those of what it includes, cannot all be made is not left half built.
    Table::Reset();
    EXPECT_EQ(empty, g_blocks);
    unsigned int result = 0;
    EXPECT_LE(20, FailEachTime(
                      [&] {
                          result = Table::Load("CID 30");
                          return result == DICOM_OK;
                      },
                      [&] {
                          EXPECT_EQ(DICOM_ERROR_MEMORY, result);
                          EXPECT_EQ(nullptr, Table::GetFirst());
                          EXPECT_EQ(nullptr, Table::Find("CID 30"));
                      },
                      500));
    const VDicomULong whole = Table::GetCountCodedConcept(Table::Find("CID 30"));

    // Restoring keeps the group, and as many concepts as could be made.
    memory::g_failAfter = 12;
    EXPECT_EQ(0U, Table::Default(nullptr));
    EXPECT_EQ(0U, Table::Default(Table::Find("CID 30")));
    memory::g_failAfter = -1;
    ASSERT_NE(nullptr, Table::Find("CID 30"));
    EXPECT_LT(Table::GetCountCodedConcept(Table::Find("CID 30")), whole);
    EXPECT_EQ(1U, Table::Default(nullptr));
    EXPECT_EQ(whole, Table::GetCountCodedConcept(Table::Find("CID 30")));

    // All of them: those before the one that failed stay, whole.
    memory::g_failAfter = 300;
    EXPECT_EQ(DICOM_ERROR_MEMORY, Table::Load(nullptr));
    memory::g_failAfter = -1;
    const auto loaded = Table::GetCount();
    EXPECT_TRUE(loaded > 1 && loaded < 197);
    EXPECT_EQ(DICOM_OK, Table::Load(nullptr));
    EXPECT_EQ(197U, Table::GetCount());
    Table::Reset();
    EXPECT_EQ(empty, g_blocks);
}

} // namespace
