// The table of information object definitions: its figures, its rules for editing, its look-ups against plain walks.
#include "VDicomIOD.h"

#include "CountedMemory.h"
#include "FactRows.h"
#include "IODTree.h"
#include "VDicomTag.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using vdicom::IODTree;

constexpr signed char kClass = DICOM_IOD_CLASS;
constexpr signed char kModule = DICOM_IOD_MODULE;
constexpr signed char kElement = DICOM_IOD_ELEMENT;

// An application's static object may use the table in its constructor and in its destructor.
struct EarlyUser {
    ~EarlyUser() {
        if (VDicomIOD::FindModule(0, 0) == nullptr)
            std::abort();
    }
    const DICOMIOD* patient = VDicomIOD::FindModule(0, 0);
} const earlyUser;

/// The table belongs to the whole process: every test leaves it as it found it.
class IODs : public testing::Test {
protected:
    ~IODs() override {
        VDicomTag::Default();
        VDicomIOD::Default();
    }
};

VDicomULong CountNodes() { return VDicomIOD::m_InfoIOD.GetCount(nullptr, 0); }

/// Everything that a node says, at its level.
std::string Show(const DICOMIOD* node) {
    const VDicomULong level = VDicomIOD::m_InfoIOD.GetLevel(&node->Link);
    return std::string(level, ' ') + std::to_string(node->nType) + " " + std::to_string(node->nCode) + " " +
           node->pszName + " " + std::to_string(node->nUsage) + " " + node->pszDescription;
}

std::vector<std::string> ShowAll() {
    std::vector<std::string> lines;
    for (DICOMIOD* node = VDicomIOD::GetFirst(nullptr, 0); node != nullptr; node = VDicomIOD::GetNext(node, 0))
        lines.push_back(Show(node));
    return lines;
}

/// The first match below a node, by a walk of its own.
DICOMIOD* WalkFor(DICOMIOD* node, VDicomULong code, signed char type) {
    for (DICOMIOD* child = VDicomIOD::GetChild(node); child != nullptr; child = VDicomIOD::GetNext(child, 1)) {
        if (child->nCode == code && child->nType == type)
            return child;
        if (DICOMIOD* found = WalkFor(child, code, type); found != nullptr)
            return found;
    }
    return nullptr;
}

TEST_F(IODs, HaveTheFiguresOfTheirFacts) {
    EXPECT_NE(nullptr, earlyUser.patient);
    std::map<int, int> kinds;
    std::map<int, int> moduleUsages;
    std::map<VDicomULong, int> elementLevels;
    std::map<VDicomULong, std::string> modules;
    int nestedModules = 0;
    VDicomULong classes = 0;
    for (DICOMIOD* node = VDicomIOD::GetFirst(nullptr, 0); node != nullptr; node = VDicomIOD::GetNext(node, 0)) {
        ++kinds[node->nType];
        const VDicomULong level = VDicomIOD::m_InfoIOD.GetLevel(&node->Link);
        ASSERT_EQ(node->nType == kClass, level == 0);
        const DICOMIOD* parent = VDicomIOD::GetParent(node);
        if (node->nType == kClass) {
            EXPECT_EQ(classes++, +node->nCode);
            EXPECT_EQ(2, +node->nUsage);
            EXPECT_EQ(node->nCode >= 72 && node->nCode <= 82, *node->pszDescription == '\0') << node->pszName;
        } else if (node->nType == kModule) {
            ++moduleUsages[node->nUsage];
            nestedModules += parent->nType == kClass ? 0 : 1;
            const auto known = modules.emplace(+node->nCode, std::string(node->pszName));
            ASSERT_STREQ(known.first->second.c_str(), node->pszName) << "a module has one name in all classes";
        } else {
            ++elementLevels[level];
            const DICOMTAG* tag = VDicomTag::Find(node->nCode);
            ASSERT_NE(nullptr, tag);
            ASSERT_STREQ(tag->pszName, node->pszName);
            const bool isKey = VDicomIOD::GetRoot(node)->nCode >= 72 && VDicomIOD::GetRoot(node)->nCode <= 82;
            ASSERT_EQ(isKey, node->nUsage <= 2) << node->pszName;
            ASSERT_LE(+node->nUsage, 7);
        }
    }
    EXPECT_EQ((std::map<int, int>{{0, 112}, {1, 1368}, {2, 44251}}), kinds);
    EXPECT_EQ((std::map<int, int>{{0, 732}, {1, 153}, {2, 483}}), moduleUsages);
    EXPECT_EQ((std::map<VDicomULong, int>{{1, 285}, {2, 13978}, {3, 15680}, {4, 8655}, {5, 3108}, {6, 2545}}),
              elementLevels);
    EXPECT_EQ(4, nestedModules);
    ASSERT_EQ(228U, modules.size());
    EXPECT_EQ("Patient", modules.at(0));
    EXPECT_EQ("General Study", modules.at(1));
    EXPECT_EQ(227U, modules.rbegin()->first);

    EXPECT_STREQ("Computed Radiography Image Storage", VDicomIOD::FindClass(0)->pszName);
    EXPECT_STREQ("1.2.840.10008.5.1.4.1.1.1", VDicomIOD::FindClass(0)->pszDescription);
    EXPECT_NE(std::string::npos, std::string(VDicomIOD::FindClass(71)->pszDescription).find("1.2.840.10008.1.3.10"));
    const DICOMIOD* patient = VDicomIOD::FindModule(0, 0);
    ASSERT_NE(nullptr, patient);
    EXPECT_EQ(VDicomIOD::FindClass(0), VDicomIOD::GetParent(VDicomIOD::FindModule(0, 0)));
    EXPECT_STREQ("Patient's Name", reinterpret_cast<DICOMIOD*>(patient->Link.pFirstChild)->pszName);
}

// Whatever is asked first, it is asked of the whole tree; with the names that the dictionary had at the beginning.
TEST_F(IODs, AreBuiltOnFirstUse) {
    VDicomTag::SetName(VDicomTag::Find(0x00100010), "renamed before the tree was built");
    const auto last = [](const VDicomTreeEx& tree, VDicomULong classes) {
        return IODTree::RecordOf(tree.GetLast(nullptr, 1))->nCode == classes - 1 &&
               tree.GetCount(nullptr, 1) == classes && tree.GetCount(nullptr, 0) >= 45731;
    };
    using Use = bool (*)(IODTree & iods, VDicomTreeEx & tree);
    const Use firstUses[] = {
        [](IODTree&, VDicomTreeEx& tree) { return IODTree::RecordOf(tree.GetFirst(nullptr, 0))->nCode == 0; },
        [](IODTree&, VDicomTreeEx& tree) { return tree.GetLast(nullptr, 0) != nullptr; },
        [](IODTree&, VDicomTreeEx& tree) { return tree.GetCount(nullptr, 0) == 45731; },
        [](IODTree&, VDicomTreeEx& tree) { return tree.GetLevel(tree.FindIndex(nullptr, 0, 3)) == 2; },
        [](IODTree&, VDicomTreeEx& tree) { return tree.Exists(&VDicomIOD::FindClass(0)->Link) == 0; },
        [](IODTree& iods, VDicomTreeEx&) {
            return iods.Add(nullptr, false, {kClass, nullptr, 112, "added", 2, ""}) != nullptr;
        }};
    for (const Use& use : firstUses) {
        IODTree tree;
        EXPECT_TRUE(use(tree, tree)) << &use - firstUses;
        EXPECT_TRUE(last(tree, use == firstUses[5] ? 113 : 112)) << &use - firstUses;
        const DICOMIOD* name = tree.FindBelow(tree.FindClass(0), 0x00100010, kElement);
        EXPECT_STREQ("Patient's Name", name->pszName);
    }
    IODTree emptied;
    emptied.Reset();
    EXPECT_EQ(nullptr, emptied.GetFirst(nullptr, 0)) << "emptied before anything was asked";

    IODTree shared;
    std::atomic<int> whole = 0;
    std::vector<std::thread> threads;
    threads.reserve(8);
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&] { whole += shared.GetCount(nullptr, 0) == 45731 ? 1 : 0; });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(8, whole);
}

// The tree expanded from the facts here, by other code than the one that made the tables.
TEST_F(IODs, AreWhatTheFactsSay) {
    const auto classes = facts::Read("iod/classes.tsv");
    if (classes.empty())
        GTEST_SKIP() << "no facts below " << VDICOM_SHARED;
    const std::map<std::string, int> moduleUsage = {{"M", 0}, {"C", 1}, {"U", 2}};
    const std::map<std::string, int> elementUsage = {{"1", 3}, {"1C", 4},     {"2", 5},        {"2C", 6},
                                                     {"3", 7}, {"unique", 0}, {"required", 1}, {"optional", 2}};
    // array or class -> (depth, line) in order
    using Elements = std::map<std::string, std::vector<std::pair<std::size_t, std::string>>>;
    const auto readElements = [&](const char* file) {
        Elements elements;
        for (const facts::Row& row : facts::Read(file)) {
            const std::string code = std::to_string(std::stoul(row[3], nullptr, 16));
            elements[row[0]].emplace_back(std::stoul(row[2]), "2 " + code + " " + row[4] + " " +
                                                                  std::to_string(elementUsage.at(row[5])) + " " +
                                                                  row[6]);
        }
        return elements;
    };
    const Elements arrays = readElements("iod/elements.tsv");
    const Elements queries = readElements("iod/query_levels.tsv");
    std::map<std::string, facts::Row> modules;
    for (const facts::Row& row : facts::Read("iod/modules.tsv"))
        modules[row[0]] = row;
    const auto classModules = facts::Read("iod/class_modules.tsv");

    std::vector<std::string> expected;
    const auto add = [&expected](const Elements& from, const std::string& key, std::size_t level) {
        for (const auto& [depth, line] : from.at(key))
            expected.push_back(std::string(level + depth, ' ') + line);
    };
    for (const facts::Row& row : classes) {
        expected.push_back("0 " + row[0] + " " + row[1] + " 2 " + row[2]);
        if (queries.count(row[0]) != 0)
            add(queries, row[0], 0);
        for (const facts::Row& held : classModules) {
            if (held[0] != row[0])
                continue;
            // The modules below a sequence of the directory: its record sequence is the last of its module.
            const std::size_t level = held[5].empty() ? 1 : 3;
            const facts::Row& module = modules.at(held[2]);
            expected.push_back(std::string(level, ' ') + "1 " + held[2] + " " + module[1] + " " +
                               std::to_string(moduleUsage.at(held[3])) + " ");
            add(arrays, held[4].empty() ? module[2] : held[4], level);
        }
    }
    const auto found = ShowAll();
    ASSERT_EQ(expected.size(), found.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        ASSERT_EQ(expected[i], found[i]) << "node " << i;
}

TEST_F(IODs, AreFoundAsAWalkFindsThem) {
    for (VDicomULong number = 0; number < 114; ++number) {
        DICOMIOD* node = VDicomIOD::FindClass(number);
        EXPECT_EQ(VDicomIOD::Find(nullptr, number, kClass, 1), node);
        EXPECT_EQ(number < 112, node != nullptr);
        VDicomULong children = 0;
        for (DICOMIOD* child = VDicomIOD::GetChild(node); child != nullptr; child = VDicomIOD::GetNext(child, 1))
            children += child->nType == kModule ? 1 : 0;
        EXPECT_EQ(children, VDicomIOD::GetCountModule(number));
        for (VDicomULong module = 0; module < 230; ++module)
            ASSERT_EQ(WalkFor(node, module, kModule), VDicomIOD::FindModule(number, module)) << number << ' ' << module;
    }
    EXPECT_EQ(nullptr, VDicomIOD::FindModule(4711, 0));
    EXPECT_EQ(0U, VDicomIOD::GetCountModule(4711));
    EXPECT_EQ(nullptr, VDicomIOD::FindIndexModule(4711, 0));

    // By index: among modules alone, and where a class holds elements.
    const VDicomULong count = VDicomIOD::GetCountModule(0);
    ASSERT_GT(count, 3U);
    EXPECT_EQ(VDicomIOD::FindModule(0, 0), VDicomIOD::FindIndexModule(0, 0));
    DICOMIOD* last = VDicomIOD::GetLast(VDicomIOD::FindModule(0, 0), 1);
    EXPECT_EQ(last, VDicomIOD::FindIndexModule(0, count - 1));
    EXPECT_EQ(nullptr, VDicomIOD::FindIndexModule(0, count));
    EXPECT_EQ(0U, VDicomIOD::GetCountModule(72));
    EXPECT_EQ(VDicomIOD::GetChild(VDicomIOD::FindClass(72)), VDicomIOD::FindIndexModule(72, 0))
        << "children that are no modules are stepped over without counting";
    EXPECT_EQ(nullptr, VDicomIOD::FindIndexModule(72, 1));

    // A module below another one is found in its class, but is none of its children.
    const DICOMIOD* nested = VDicomIOD::FindModule(71, 184);
    ASSERT_NE(nullptr, nested);
    EXPECT_EQ(0x00041220U, reinterpret_cast<DICOMIOD*>(nested->Link.pParent)->nCode + 0U);

    // Elements: within a class, within a module, among siblings, anywhere.
    DICOMIOD* computed = VDicomIOD::FindClass(0);
    DICOMIOD* name = VDicomIOD::FindInClass(computed, 0x00100010, kElement);
    ASSERT_NE(nullptr, name);
    EXPECT_EQ(WalkFor(computed, 0x00100010, kElement), name);
    EXPECT_EQ(name, VDicomIOD::Find(nullptr, 0x00100010, kElement, 0));
    EXPECT_EQ(name, VDicomIOD::Find(VDicomIOD::FindClass(90), 0x00100010, kElement, 0)) << "of the whole tree";
    EXPECT_EQ(name, VDicomIOD::Find(VDicomIOD::GetNext(name, 1), 0x00100010, kElement, 1)) << "from the first sibling";
    EXPECT_EQ(nullptr, VDicomIOD::Find(name, 0x7FE00010, kElement, 1));
    EXPECT_EQ(nullptr, VDicomIOD::FindInClass(name, 0x00100010, kElement)) << "a node is not below itself";
    EXPECT_EQ(nullptr, VDicomIOD::FindInClass(VDicomIOD::FindModule(0, 0), 0x7FE00010, kElement));
    EXPECT_EQ(nullptr, VDicomIOD::FindInClass(nullptr, 0, kModule));
    EXPECT_EQ(1U, VDicomIOD::Exists(name));
    EXPECT_EQ(0U, VDicomIOD::Exists(nullptr));
    EXPECT_EQ(nullptr, VDicomIOD::GetRoot(nullptr));
    EXPECT_EQ(nullptr, VDicomIOD::GetParent(computed));
    EXPECT_EQ(VDicomIOD::FindClass(111), VDicomIOD::GetLast(nullptr, 1));
    EXPECT_EQ(nullptr, VDicomIOD::GetNext(VDicomIOD::GetLast(nullptr, 0), 0));
    EXPECT_EQ(VDicomIOD::FindClass(110), VDicomIOD::GetPrev(VDicomIOD::FindClass(111), 1));
}

TEST_F(IODs, AreInsertedByTheirKind) {
    const VDicomULong before = CountNodes();
    DICOMIOD* computed = VDicomIOD::FindClass(0);
    DICOMIOD* patient = VDicomIOD::FindModule(0, 0);

    // Refused, and nothing changes.
    EXPECT_EQ(nullptr, VDicomIOD::Insert(nullptr, 1, 500, "module", kModule, 0, ""));
    EXPECT_EQ(nullptr, VDicomIOD::Insert(nullptr, 0, 0x00100010, "element", kElement, 3, ""));
    EXPECT_EQ(nullptr, VDicomIOD::Insert(nullptr, 0, 500, "something", 9, 3, ""));
    EXPECT_EQ(nullptr, VDicomIOD::Insert(computed, 1, 500, nullptr, kModule, 0, ""));
    EXPECT_EQ(nullptr, VDicomIOD::Insert(computed, 1, 500, "module", kModule, 0, nullptr));
    EXPECT_EQ(nullptr, VDicomIOD::Insert(patient, 1, 0x00091001, nullptr, kElement, 3, "")) << "not in the dictionary";
    EXPECT_EQ(before, CountNodes());

    // A class goes to the end of the top level whatever the reference and the flag say.
    DICOMIOD* added = VDicomIOD::Insert(patient, 1, 0, "second with number 0", kClass, 2, "1.2.3");
    ASSERT_NE(nullptr, added);
    EXPECT_EQ(added, VDicomIOD::GetLast(nullptr, 1));
    EXPECT_EQ(nullptr, VDicomIOD::GetParent(added));
    EXPECT_EQ(computed, VDicomIOD::FindClass(0)) << "the first one stays the one that is found";

    // A module becomes the last child of a class even with the flag clear.
    DICOMIOD* module = VDicomIOD::Insert(computed, 0, 500, "module", kModule, 1, "text");
    ASSERT_NE(nullptr, module);
    EXPECT_EQ(computed, VDicomIOD::GetParent(module));
    EXPECT_EQ(nullptr, VDicomIOD::GetNext(module, 1));
    EXPECT_EQ(module, VDicomIOD::FindModule(0, 500));
    EXPECT_EQ(" 1 500 module 1 text", Show(module));
    DICOMIOD* below = VDicomIOD::Insert(module, 1, 501, "below", kModule, 1, "");
    DICOMIOD* beside = VDicomIOD::Insert(module, 0, 502, "beside", kModule, 1, "");
    EXPECT_EQ(module, VDicomIOD::GetParent(below));
    EXPECT_EQ(computed, VDicomIOD::GetParent(beside));

    // The dictionary's name wins, whatever the caller gave.
    DICOMIOD* known = VDicomIOD::Insert(module, 1, 0x00100010, "my name", kElement, 3, "");
    DICOMIOD* unnamed = VDicomIOD::Insert(known, 0, 0x60020010, nullptr, kElement, 3, "");
    DICOMIOD* unknown = VDicomIOD::Insert(known, 1, 0x00091001, "my name", kElement, 3, "");
    ASSERT_TRUE(known != nullptr && unnamed != nullptr && unknown != nullptr);
    EXPECT_STREQ("Patient's Name", known->pszName);
    EXPECT_STREQ("Overlay Rows", unnamed->pszName);
    EXPECT_STREQ("my name", unknown->pszName);
    EXPECT_EQ(known, VDicomIOD::GetParent(unknown));
    EXPECT_EQ(known, VDicomIOD::GetPrev(unnamed, 1));

    // An element beside a class stands at the top level, and then has its number there.
    DICOMIOD* top = VDicomIOD::Insert(computed, 0, 0x00091002, "at the top", kElement, 3, "");
    ASSERT_NE(nullptr, top);
    EXPECT_EQ(nullptr, VDicomIOD::GetParent(top));
    EXPECT_EQ(top, VDicomIOD::FindClass(0x00091002));
    DICOMIOD* inTop = VDicomIOD::Insert(top, 1, 7, "module", kModule, 0, "");
    EXPECT_EQ(inTop, VDicomIOD::FindModule(0x00091002, 7));
    EXPECT_EQ(before + 9, CountNodes());
}

TEST_F(IODs, AreDeletedWithEverythingBelow) {
    EXPECT_EQ(nullptr, VDicomIOD::Delete(nullptr));
    DICOMIOD* computed = VDicomIOD::FindClass(0);
    DICOMIOD* patient = VDicomIOD::FindModule(0, 0);
    DICOMIOD* second = VDicomIOD::GetNext(patient, 1);
    const VDicomULong below = 1 + static_cast<VDicomULong>([patient] {
                                  int nodes = 0;
                                  for (DICOMIOD* node = VDicomIOD::GetNext(patient, 0);
                                       node != VDicomIOD::GetNext(patient, 1); node = VDicomIOD::GetNext(node, 0))
                                      ++nodes;
                                  return nodes;
                              }());
    const VDicomULong before = CountNodes();
    EXPECT_EQ(second, VDicomIOD::Delete(patient)) << "the next sibling";
    EXPECT_EQ(before - below, CountNodes());
    EXPECT_EQ(0U, VDicomIOD::Exists(patient));
    EXPECT_EQ(nullptr, VDicomIOD::FindModule(0, 0));
    EXPECT_NE(nullptr, VDicomIOD::FindModule(1, 0)) << "other classes keep theirs";
    DICOMIOD* last = VDicomIOD::GetLast(second, 1);
    DICOMIOD* beforeLast = VDicomIOD::GetPrev(last, 1);
    EXPECT_EQ(beforeLast, VDicomIOD::Delete(last)) << "else the previous one";

    // Deleting while walking: whatever Delete returns is the next to go, up to the parent.
    DICOMIOD* at = VDicomIOD::GetChild(computed);
    while (at != nullptr && at != computed)
        at = VDicomIOD::Delete(at);
    EXPECT_EQ(computed, at) << "else the parent";
    EXPECT_EQ(nullptr, VDicomIOD::GetChild(computed));
    EXPECT_EQ(VDicomIOD::FindClass(1), VDicomIOD::Delete(computed));
    EXPECT_EQ(nullptr, VDicomIOD::FindClass(0));
    VDicomULong classes = 111;
    for (at = VDicomIOD::FindClass(1); at != nullptr; --classes)
        at = VDicomIOD::Delete(at);
    EXPECT_EQ(0U, classes);
    EXPECT_EQ(nullptr, VDicomIOD::GetFirst(nullptr, 0));
    for (VDicomULong number = 0; number < 112; ++number)
        ASSERT_EQ(nullptr, VDicomIOD::FindClass(number));
    EXPECT_EQ(1U, VDicomIOD::Default());
    EXPECT_EQ(45731U, CountNodes());
}

TEST_F(IODs, DeletedThroughTheContainerLeaveTheIndexToo) {
    DICOMIOD* empty = VDicomIOD::Insert(VDicomIOD::FindClass(3), 1, 900, "empty", kModule, 0, "");
    EXPECT_EQ(empty, VDicomIOD::FindModule(3, 900));
    VDicomIOD::m_InfoIOD.Delete(&empty->Link);
    EXPECT_EQ(nullptr, VDicomIOD::FindModule(3, 900));
    DICOMLINK* bare = VDicomIOD::m_InfoIOD.Insert(nullptr, sizeof(DICOMLINK), DICOM_TREE_LAST_SIBLING);
    ASSERT_NE(nullptr, bare);
    VDicomIOD::m_InfoIOD.Delete(bare);
}

TEST_F(IODs, HaveTextsOfTheirOwn) {
    DICOMIOD* name = VDicomIOD::FindInClass(VDicomIOD::FindClass(0), 0x00100010, kElement);
    DICOMIOD* other = VDicomIOD::FindInClass(VDicomIOD::FindClass(1), 0x00100010, kElement);
    EXPECT_EQ(1U, VDicomIOD::SetName(name, "renamed"));
    EXPECT_EQ(1U, VDicomIOD::SetName(name, name->pszName)) << "its own name is copied before it is freed";
    EXPECT_EQ(1U, VDicomIOD::SetDescription(name, "described"));
    EXPECT_EQ(1U, VDicomIOD::SetDescription(name, ""));
    EXPECT_EQ(1U, VDicomIOD::SetDescription(name, "described again"));
    EXPECT_EQ(0U, VDicomIOD::SetName(name, nullptr));
    EXPECT_EQ(0U, VDicomIOD::SetName(nullptr, "x"));
    EXPECT_EQ(0U, VDicomIOD::SetDescription(name, nullptr));
    EXPECT_EQ(0U, VDicomIOD::SetDescription(nullptr, "x"));
    EXPECT_STREQ("renamed", name->pszName);
    EXPECT_STREQ("described again", name->pszDescription);
    EXPECT_STREQ("Patient's Name", other->pszName);
    EXPECT_STREQ("", other->pszDescription);
    VDicomIOD::SetName(VDicomIOD::FindModule(0, 0), "a module renamed");
    EXPECT_STREQ("Patient", VDicomIOD::FindModule(1, 0)->pszName);

    // The data dictionary's names are those of the moment when the tree is built.
    VDicomTag::SetName(VDicomTag::Find(0x00100010), "Name of the Patient");
    VDicomTag::Delete(VDicomTag::Find(0x00100020));
    EXPECT_STREQ("Patient's Name", other->pszName);
    VDicomIOD::Default();
    name = VDicomIOD::FindInClass(VDicomIOD::FindClass(0), 0x00100010, kElement);
    EXPECT_STREQ("Name of the Patient", name->pszName);
    EXPECT_STREQ("Patient ID", VDicomIOD::GetNext(name, 1)->pszName);
    VDicomTag::Reset();
    EXPECT_STREQ("Name of the Patient", name->pszName);
    EXPECT_EQ(1U, VDicomIOD::SetName(name, "renamed"));
}

TEST_F(IODs, AreMergedFromRows) {
    static const DICOMIODROW items[] = {{kElement, nullptr, 0x00080100, "", 3, ""}, // ends the array by its name
                                        {kElement, nullptr, 0x00080102, "x", 3, ""}};
    static const DICOMIODROW code[] = {
        {kElement, nullptr, 0x00080100, "value", 3, "first"}, {kElement, items, 0x00080104, "meaning", 3, ""}, {}};
    static const DICOMIODROW elements[] = {{kElement, nullptr, 0x00100010, "patient", 5, "name"},
                                           {kElement, code, 0x00081140, "images", 7, ""},
                                           {kElement, nullptr, 0x00091001, "private", 7, ""},
                                           {kElement, nullptr, 0, "", 0, ""}};
    static const DICOMIODROW modules[] = {{kModule, elements, 0, "Patient", 0, ""},
                                          {kModule, elements, 600, "another", 2, "text"},
                                          {kModule, nullptr, 0, "", 0, ""}};
    static const DICOMIODROW classes[] = {{kClass, modules, 700, "seven hundred", 2, "1.2.3"},
                                          {kModule, elements, 601, "refused at the top", 2, ""},
                                          {kClass, nullptr, 701, "empty", 2, ""},
                                          {kClass, nullptr, 0, "", 0, ""}};
    const VDicomULong before = CountNodes();
    EXPECT_EQ(0U, VDicomIOD::Default(nullptr, classes)) << "a module at the top level is refused, the rest is there";
    DICOMIOD* added = VDicomIOD::FindClass(700);
    ASSERT_NE(nullptr, added);
    EXPECT_EQ(before + 1 + 2 * 6 + 1, CountNodes());
    EXPECT_EQ(added, VDicomIOD::GetParent(VDicomIOD::FindModule(700, 600)));
    const char* const expected[] = {"0 700 seven hundred 2 1.2.3",
                                    " 1 0 Patient 0 ",
                                    "  2 1048592 Patient's Name 5 name",
                                    "  2 528704 Referenced Image Sequence 7 ",
                                    "   2 524544 Code Value 3 first",
                                    "   2 524548 Code Meaning 3 ",
                                    "  2 593921 private 7 "};
    DICOMIOD* node = added;
    for (const char* line : expected) {
        EXPECT_EQ(line, Show(node));
        node = VDicomIOD::GetNext(node, 0);
    }

    // Below a node nothing is added twice; at the top level every row is a class of its own.
    const VDicomULong once = CountNodes();
    EXPECT_EQ(1U, VDicomIOD::Default(added, modules));
    EXPECT_EQ(once, CountNodes());
    VDicomIOD::Delete(VDicomIOD::FindInClass(VDicomIOD::FindModule(700, 600), 0x00080104, kElement));
    EXPECT_EQ(1U, VDicomIOD::Default(added, modules));
    EXPECT_EQ(once, CountNodes()) << "what is missing comes back, however deep";
    EXPECT_EQ(1U, VDicomIOD::Default(VDicomIOD::FindModule(700, 600), elements));
    EXPECT_EQ(once, CountNodes());
    EXPECT_EQ(1U, VDicomIOD::Default(VDicomIOD::FindModule(0, 0), elements));
    EXPECT_EQ(once + 4, CountNodes()) << "the name is there, the sequence and the private element are not";
    VDicomIOD::Default(nullptr, classes);
    EXPECT_EQ(once + 4 + 1 + 2 * 6 + 1, CountNodes());
    EXPECT_EQ(added, VDicomIOD::FindClass(700));

    // Bad arrays.
    EXPECT_EQ(0U, VDicomIOD::Default(added, nullptr));
    EXPECT_EQ(0U, VDicomIOD::Default(nullptr, nullptr));
    DICOMIODROW endless[] = {{kModule, nullptr, 800, "in itself", 0, ""}, {kModule, nullptr, 801, "second", 0, ""}, {}};
    endless[0].pChildren = endless;
    EXPECT_EQ(0U, VDicomIOD::Default(added, endless));
    EXPECT_EQ(nullptr, VDicomIOD::GetChild(VDicomIOD::FindModule(700, 800)));
    EXPECT_NE(nullptr, VDicomIOD::FindModule(700, 801)) << "the rows after it are merged";
    std::vector<DICOMIODROW> deep(2 * 200, DICOMIODROW{});
    for (std::size_t i = 0; i < 200; ++i)
        deep[2 * i] = {kModule, i + 1 < 200 ? &deep[2 * i + 2] : nullptr, 900 + static_cast<VDicomULong>(i), "", 0, ""};
    for (std::size_t i = 0; i < 200; ++i)
        deep[2 * i].pszName = "deep";
    EXPECT_EQ(0U, VDicomIOD::Default(added, deep.data()));
    EXPECT_NE(nullptr, VDicomIOD::FindModule(700, 900 + 127));
    EXPECT_EQ(nullptr, VDicomIOD::FindModule(700, 900 + 128)) << "so many levels and no more";
    DICOMIODROW nameless[] = {{kElement, nullptr, 0x00091003, "no description", 3, nullptr},
                              {kElement, nullptr, 0x00091004, "good", 3, ""},
                              {}};
    EXPECT_EQ(0U, VDicomIOD::Default(added, nameless));
    EXPECT_EQ(nullptr, VDicomIOD::FindInClass(added, 0x00091003, kElement));
    EXPECT_NE(nullptr, VDicomIOD::FindInClass(added, 0x00091004, kElement));
}

// Modules with equal numbers, one below the other, before and behind each other; the first in a walk is the one found.
TEST_F(IODs, EditedAtRandomAgreeWithAModel) {
    struct Model {
        DICOMIOD* node = nullptr;
        signed char type = 0;
        VDicomULong code = 0;
        Model* parent = nullptr;
        std::vector<std::unique_ptr<Model>> children;
    };
    std::mt19937 random(20250711);
    VDicomIOD::Reset();
    Model top;
    std::vector<Model*> all;
    const auto drop = [&all](const Model& model, const auto& self) -> void {
        all.erase(std::find(all.begin(), all.end(), &model));
        for (const auto& child : model.children)
            self(*child, self);
    };
    const auto firstModule = [](const Model& model, VDicomULong code, const auto& self) -> DICOMIOD* {
        for (const auto& child : model.children) {
            if (child->type == kModule && child->code == code)
                return child->node;
            if (DICOMIOD* found = self(*child, code, self); found != nullptr)
                return found;
        }
        return nullptr;
    };
    for (int step = 0; step < 4000; ++step) {
        const bool growing = step / 1000 % 2 == 0;
        if (all.empty() || random() % 10 < (growing ? 7U : 4U)) {
            const auto type = static_cast<signed char>(random() % 7 == 0 ? 0 : 1 + random() % 2);
            const VDicomULong code = random() % 4;
            Model* reference = all.empty() || random() % 20 == 0 ? nullptr : all[random() % all.size()];
            const bool asChild = random() % 2 == 0;
            DICOMIOD* node = VDicomIOD::Insert(reference == nullptr ? nullptr : reference->node, asChild ? 1 : 0,
                                               type == kElement ? 0x00091000 + code : code, "node", type, 0, "");
            if (reference == nullptr && type != kClass) {
                ASSERT_EQ(nullptr, node);
                continue;
            }
            ASSERT_NE(nullptr, node);
            const bool forced = type == kModule && reference->type == kClass;
            Model* parent = type == kClass ? &top : asChild || forced ? reference : reference->parent;
            auto model = std::make_unique<Model>();
            model->node = node;
            model->type = type;
            model->code = +node->nCode;
            model->parent = parent;
            all.push_back(model.get());
            parent->children.push_back(std::move(model));
        } else {
            Model* victim = all[random() % all.size()];
            Model* parent = victim->parent;
            auto at = std::find_if(parent->children.begin(), parent->children.end(),
                                   [victim](const auto& child) { return child.get() == victim; });
            DICOMIOD* expected = std::next(at) != parent->children.end() ? (*std::next(at))->node
                                 : at != parent->children.begin()        ? (*std::prev(at))->node
                                                                         : parent->node;
            DICOMIOD* deleted = victim->node;
            drop(*victim, drop);
            parent->children.erase(at);
            ASSERT_EQ(expected, VDicomIOD::Delete(deleted));
        }
        for (VDicomULong number = 0; number < 4; ++number) {
            const auto found = std::find_if(top.children.begin(), top.children.end(),
                                            [number](const auto& child) { return child->code == number; });
            ASSERT_EQ(found == top.children.end() ? nullptr : (*found)->node, VDicomIOD::FindClass(number)) << step;
            for (VDicomULong module = 0; module < 4; ++module)
                ASSERT_EQ(found == top.children.end() ? nullptr : firstModule(**found, module, firstModule),
                          VDicomIOD::FindModule(number, module))
                    << step;
        }
    }
    ASSERT_EQ(all.size(), CountNodes());
}

TEST_F(IODs, MayBeReadByManyThreads) {
    std::vector<std::thread> threads;
    std::atomic<int> wrong{0};
    for (VDicomULong t = 0; t < 4; ++t) {
        threads.emplace_back([&wrong, t] {
            for (VDicomULong i = 0; i < 20000; ++i) {
                const DICOMIOD* found = VDicomIOD::FindModule((i + t) % 48, 0);
                if (found != nullptr && (found->nCode != 0 || found->nType != kModule))
                    ++wrong;
            }
            if (CountNodes() != 45731)
                ++wrong;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(0, wrong);
}

TEST_F(IODs, GiveTheirMemoryBack) {
    using memory::g_allocations;
    using memory::g_blocks;
    VDicomIOD::Reset();
    const long empty = g_blocks;
    const long before = g_allocations;
    VDicomIOD::Default();
    EXPECT_LE(g_allocations - before, 10) << "nodes come in blocks";
    VDicomIOD::Reset();
    EXPECT_EQ(empty, g_blocks);

    // After edits of every kind, with nodes and texts of both origins left in the tree.
    VDicomTag::SetName(VDicomTag::Find(0x00100010), "every element of this tag then has a copy");
    const long renamed = g_blocks;
    VDicomIOD::Default();
    VDicomIOD::SetName(VDicomIOD::FindClass(5), "renamed");
    VDicomIOD::SetDescription(VDicomIOD::FindModule(0, 0), "described");
    VDicomIOD::SetDescription(VDicomIOD::GetChild(VDicomIOD::FindModule(0, 0)), "described");
    DICOMIOD* added = VDicomIOD::Insert(VDicomIOD::FindModule(1, 0), 1, 0x00091001, "added", kElement, 3, "");
    VDicomIOD::SetName(added, "renamed");
    VDicomIOD::Delete(VDicomIOD::FindModule(2, 0));
    VDicomIOD::Delete(VDicomIOD::GetChild(VDicomIOD::FindModule(3, 0)));
    VDicomIOD::Delete(VDicomIOD::FindClass(100));
    VDicomIOD::Reset();
    EXPECT_EQ(renamed, g_blocks);
    VDicomIOD::Insert(nullptr, 0, 1, "the only one", kClass, 2, "");
    VDicomIOD::Delete(VDicomIOD::FindClass(1));
    EXPECT_EQ(renamed, g_blocks);
}

TEST_F(IODs, StayWholeWhenMemoryRunsOut) {
    using memory::FailEachTime;
    using memory::g_failAfter;
    const VDicomULong before = CountNodes();
    DICOMIOD* computed = VDicomIOD::FindClass(0);
    const auto unchanged = [before] {
        EXPECT_EQ(before, CountNodes());
        EXPECT_EQ(nullptr, VDicomIOD::FindModule(0, 500));
    };
    EXPECT_LE(1, FailEachTime([&] { return VDicomIOD::Insert(computed, 1, 500, "new", kModule, 0, "") != nullptr; },
                              unchanged));
    EXPECT_EQ(1, FailEachTime([&] { return VDicomIOD::SetName(computed, "a much longer name than that") != 0; },
                              [&] { EXPECT_STREQ("Computed Radiography Image Storage", computed->pszName); }));
    EXPECT_EQ(1, FailEachTime([&] { return VDicomIOD::SetDescription(computed, "a much longer text than that") != 0; },
                              [&] { EXPECT_STREQ("1.2.840.10008.5.1.4.1.1.1", computed->pszDescription); }));

    // An index of its own: into the empty tree.
    VDicomIOD::Reset();
    EXPECT_EQ(2, FailEachTime([] { return VDicomIOD::Insert(nullptr, 0, 7, "new", kClass, 2, "") != nullptr; },
                              [] { EXPECT_EQ(nullptr, VDicomIOD::GetFirst(nullptr, 0)); }))
        << "node and index";

    for (const long allocations : {0L, 1L, 2L, 3L, 4L, 5L, 1000L, 30000L}) {
        g_failAfter = allocations;
        const unsigned int complete = VDicomIOD::Default();
        g_failAfter = -1;
        const VDicomULong nodes = CountNodes();
        EXPECT_EQ(complete != 0, nodes == 45731) << allocations;
        EXPECT_LE(nodes, 45731U);
        for (DICOMIOD* node = VDicomIOD::GetFirst(nullptr, 1); node != nullptr; node = VDicomIOD::GetNext(node, 1))
            ASSERT_EQ(node, VDicomIOD::FindClass(node->nCode));
    }
    EXPECT_EQ(1U, VDicomIOD::Default());
    EXPECT_EQ(45731U, CountNodes());
}

} // namespace
