#include "VDicomTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

#pragma pack(push, 1)
struct Node {
    DICOMLINK link;
    int number;
};
#pragma pack(pop)

int NumberOf(const DICOMLINK* link) { return link == nullptr ? -1 : reinterpret_cast<const Node*>(link)->number; }

/// A tree that counts its blocks and fills them with rubbish, so that Insert must clear them.
template <class Base> class CountingTree : public Base {
public:
    ~CountingTree() override { this->Clear(); }
    int blocks = 0;
    bool full = false;

protected:
    void* Allocate(std::size_t size) override {
        if (full)
            return nullptr;
        void* block = Base::Allocate(size);
        std::fill_n(static_cast<unsigned char*>(block), size, static_cast<unsigned char>(0xA5));
        ++blocks;
        return block;
    }
    void Free(void* block) override {
        --blocks;
        Base::Free(block);
    }
};

template <class Base> class TreeTest : public testing::Test {
protected:
    DICOMLINK* Add(int number, DICOMLINK* reference, unsigned int position) {
        DICOMLINK* node = tree.Insert(reference, sizeof(Node), position);
        if (node != nullptr) {
            EXPECT_EQ(0, NumberOf(node));
            reinterpret_cast<Node*>(node)->number = number;
        }
        return node;
    }
    /// The walk from GetFirst, as text, after checking that the walk back from GetLast is its reverse.
    std::string Walk(DICOMLINK* reference, unsigned int siblingOnly) {
        std::vector<DICOMLINK*> forward;
        for (auto* n = tree.GetFirst(reference, siblingOnly); n != nullptr; n = tree.GetNext(n, siblingOnly))
            forward.push_back(n);
        std::size_t left = forward.size();
        for (auto* n = tree.GetLast(reference, siblingOnly); n != nullptr; n = tree.GetPrev(n, siblingOnly)) {
            if (left == 0 || forward[--left] != n) {
                ADD_FAILURE() << "walking back differs from walking forward";
                break;
            }
        }
        EXPECT_EQ(0U, left);
        EXPECT_EQ(forward.size(), tree.GetCount(reference, siblingOnly));
        std::string text;
        for (std::size_t i = 0; i < forward.size(); ++i) {
            EXPECT_EQ(forward[i], tree.FindIndex(reference, siblingOnly, static_cast<VDicomULong>(i)));
            text += std::to_string(NumberOf(forward[i])) + " ";
        }
        EXPECT_EQ(nullptr, tree.FindIndex(reference, siblingOnly, static_cast<VDicomULong>(forward.size())));
        EXPECT_EQ(nullptr, tree.FindIndex(reference, siblingOnly, 0xFFFFFFFF));
        return text;
    }

    CountingTree<Base> tree;
};

using Trees = testing::Types<VDicomTree, VDicomTreeEx>;
TYPED_TEST_SUITE(TreeTest, Trees);

TYPED_TEST(TreeTest, AllSixPositionsAtTheTopLevelAndBelowANode) {
    auto* two = this->Add(2, nullptr, DICOM_TREE_LAST_SIBLING);
    EXPECT_EQ("2 ", this->Walk(nullptr, 1));
    this->Add(1, nullptr, DICOM_TREE_FIRST_CHILD);
    this->Add(5, nullptr, DICOM_TREE_LAST_CHILD);
    this->Add(3, two, DICOM_TREE_AFTER);
    auto* six = this->Add(6, two, DICOM_TREE_LAST_SIBLING);
    this->Add(0, six, DICOM_TREE_FIRST_SIBLING);
    this->Add(4, this->tree.FindIndex(nullptr, 1, 4), DICOM_TREE_BEFORE);
    EXPECT_EQ("0 1 2 3 4 5 6 ", this->Walk(nullptr, 1));
    this->Add(7, six, DICOM_TREE_AFTER);
    this->Add(-1, this->tree.GetFirst(nullptr, 1), DICOM_TREE_BEFORE);
    EXPECT_EQ("-1 0 1 2 3 4 5 6 7 ", this->Walk(two, 1)) << "the level of a top-level node is the top level";

    auto* b = this->Add(21, two, DICOM_TREE_LAST_CHILD);
    this->Add(20, two, DICOM_TREE_FIRST_CHILD);
    this->Add(24, two, DICOM_TREE_LAST_CHILD);
    this->Add(22, b, DICOM_TREE_AFTER);
    this->Add(25, b, DICOM_TREE_LAST_SIBLING);
    this->Add(19, b, DICOM_TREE_FIRST_SIBLING);
    auto* deep = this->Add(210, b, DICOM_TREE_FIRST_CHILD);
    auto* last = this->tree.GetLast(b, 1);
    this->Add(23, this->tree.GetPrev(last, 1), DICOM_TREE_BEFORE);
    EXPECT_EQ("19 20 21 22 23 24 25 ", this->Walk(b, 1));
    EXPECT_EQ("-1 0 1 2 19 20 21 210 22 23 24 25 3 4 5 6 7 ", this->Walk(nullptr, 0));
    EXPECT_EQ("-1 0 1 2 19 20 21 210 22 23 24 25 3 4 5 6 7 ", this->Walk(b, 0));

    EXPECT_EQ(two, this->tree.GetRoot(deep));
    EXPECT_EQ(two, this->tree.GetRoot(two));
    EXPECT_EQ(b, this->tree.GetParent(deep));
    EXPECT_EQ(nullptr, this->tree.GetParent(two));
    EXPECT_EQ(19, NumberOf(this->tree.GetChild(two)));
    EXPECT_EQ(nullptr, this->tree.GetChild(deep));
    EXPECT_EQ(2U, this->tree.GetLevel(deep));
    EXPECT_EQ(0U, this->tree.GetLevel(two));
    EXPECT_EQ(1U, this->tree.Exists(deep));
}

TYPED_TEST(TreeTest, RefusesWhatIsWrongAndSurvivesNull) {
    EXPECT_EQ(nullptr, this->tree.Insert(nullptr, sizeof(DICOMLINK) - 1, DICOM_TREE_LAST_SIBLING));
    EXPECT_EQ(nullptr, this->Add(1, nullptr, 6));
    this->tree.full = true;
    EXPECT_EQ(nullptr, this->Add(1, nullptr, DICOM_TREE_LAST_SIBLING));
    EXPECT_EQ("", this->Walk(nullptr, 1));
    EXPECT_EQ("", this->Walk(nullptr, 0));
    this->tree.full = false;
    this->tree.Delete(nullptr);
    EXPECT_EQ(nullptr, this->tree.GetNext(nullptr, 0));
    EXPECT_EQ(nullptr, this->tree.GetPrev(nullptr, 1));
    EXPECT_EQ(nullptr, this->tree.GetRoot(nullptr));
    EXPECT_EQ(0U, this->tree.Exists(nullptr));
    EXPECT_EQ(0U, this->tree.GetLevel(nullptr));
    // A null reference with a position beside it is a position at the top level.
    this->Add(2, nullptr, DICOM_TREE_AFTER);
    this->Add(3, nullptr, DICOM_TREE_AFTER);
    this->Add(1, nullptr, DICOM_TREE_BEFORE);
    this->Add(0, nullptr, DICOM_TREE_FIRST_SIBLING);
    EXPECT_EQ("0 1 2 3 ", this->Walk(nullptr, 1));
}

TYPED_TEST(TreeTest, DeletesAnywhereAndFreesEverythingAtTheEnd) {
    auto* a = this->Add(1, nullptr, DICOM_TREE_LAST_SIBLING);
    auto* b = this->Add(2, nullptr, DICOM_TREE_LAST_SIBLING);
    auto* c = this->Add(3, nullptr, DICOM_TREE_LAST_SIBLING);
    auto* x = this->Add(21, b, DICOM_TREE_LAST_CHILD);
    auto* y = this->Add(22, b, DICOM_TREE_LAST_CHILD);
    this->tree.Delete(x);
    EXPECT_EQ("1 2 22 3 ", this->Walk(nullptr, 0));
    EXPECT_EQ(0U, this->tree.Exists(x)) << "asking about a stale pointer must be safe";
    this->tree.Delete(y);
    EXPECT_EQ(nullptr, this->tree.GetChild(b));
    this->tree.Delete(b);
    EXPECT_EQ("1 3 ", this->Walk(nullptr, 0));
    this->tree.Delete(c);
    this->tree.Delete(a);
    EXPECT_EQ("", this->Walk(nullptr, 0));
    EXPECT_EQ(0, this->tree.blocks);
    this->Add(7, nullptr, DICOM_TREE_LAST_SIBLING);
    EXPECT_EQ("7 ", this->Walk(nullptr, 1));
}

TYPED_TEST(TreeTest, AVeryDeepTreeIsWalkedAndFreedWithoutRecursion) {
    DICOMLINK* node = nullptr;
    for (int i = 0; i < 300000; ++i)
        node = this->Add(i, node, DICOM_TREE_LAST_CHILD);
    EXPECT_EQ(299999U, this->tree.GetLevel(node));
    EXPECT_EQ(node, this->tree.GetLast(nullptr, 0));
    EXPECT_EQ(300000U, this->tree.GetCount(nullptr, 0));
    EXPECT_EQ(0, NumberOf(this->tree.GetRoot(node)));
}

TYPED_TEST(TreeTest, RandomInsertionsAgreeWithNestedLists) {
    struct Model {
        int number = 0;
        Model* parent = nullptr;
        std::vector<Model*> children;
    };
    std::mt19937 random(20250301);
    std::vector<std::unique_ptr<Model>> models;
    std::vector<DICOMLINK*> nodes;
    Model top;
    for (int i = 0; i < 400; ++i) {
        const auto position = static_cast<unsigned int>(random() % 6);
        const std::size_t at = random() % (models.size() + 1);
        Model* reference = at == models.size() ? nullptr : models[at].get();
        Model* parent = reference == nullptr ? &top : position < 2 ? reference : reference->parent;
        auto model = std::make_unique<Model>();
        model->number = i;
        model->parent = parent;
        auto where = parent->children.begin();
        if (position == 1 || position == 3)
            where = parent->children.end();
        if (position >= 4)
            where = reference == nullptr
                        ? (position == 4 ? parent->children.end() : where)
                        : std::find(where, parent->children.end(), reference) + (position == 4 ? 1 : 0);
        parent->children.insert(where, model.get());
        nodes.push_back(this->Add(i, reference == nullptr ? nullptr : nodes[at], position));
        models.push_back(std::move(model));
    }
    std::string expected;
    std::vector<const Model*> stack(top.children.rbegin(), top.children.rend());
    while (!stack.empty()) {
        const Model* model = stack.back();
        stack.pop_back();
        expected += std::to_string(model->number) + " ";
        stack.insert(stack.end(), model->children.rbegin(), model->children.rend());
    }
    EXPECT_EQ(expected, this->Walk(nullptr, 0));
}

} // namespace
