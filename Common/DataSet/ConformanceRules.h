/// @file ConformanceRules.h
/// What a class of VDicomIOD demands, indexed by tag level by level. Made for one walk; a level is made when the data
/// set has a sequence that leads to it.
#pragma once

#include "VDicomIOD.h"

#include <cstddef>
#include <limits>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vdicom {

/// How far what a module says is binding.
enum class Binding : unsigned char {
    none,     ///< the module is not there: its elements are known, nothing is demanded
    probable, ///< some of its elements are there, but none that only makes sense with it
    certain
};

/// A module of the class.
struct ModuleState {
    const DICOMIOD* node;
    Binding binding;
    bool perItem; ///< stands below a sequence: judged anew for each item
};

/// What the description of an element says, parsed.
struct ElementFacts {
    std::vector<std::string_view> enumerated;
    std::vector<std::string_view> defined;
    std::size_t minItems = 0;
    std::size_t maxItems = std::numeric_limits<std::size_t>::max();
};

/// Parses a description ("Enumerated values: YES, NO; Items: 1-n").
ElementFacts ParseFacts(std::string_view description);

/// Whether a tag is of the repeating groups 50xx and 60xx (PS3.5 7.6).
bool IsRepeating(VDicomULong tag);
/// These groups are looked up as 5000 and 6000.
VDicomULong CanonicalTag(VDicomULong tag);

/// One element that one module holds at a level.
struct ElementRule {
    VDicomULong tag; ///< canonical
    const DICOMIOD* node;
    unsigned int module; ///< index into ClassRules::Modules
    Binding limit;       ///< binding at most: that of the sequence around it
    bool own;            ///< no other module has this tag at this level
};

/// The rules of one level in ascending order of tags, those of one tag in the order of the modules.
class LevelRules {
public:
    /// The rules of a tag: [first, last) in Rules.
    struct Range {
        std::size_t first;
        std::size_t last;
        bool IsEmpty() const { return first == last; }
    };
    const std::vector<ElementRule>& Rules() const { return m_rules; }
    Range Find(VDicomULong tag) const;
    bool Has(VDicomULong tag) const { return !Find(tag).IsEmpty(); }
    /// Whether modules stand at this level that have to be judged for each item.
    const std::vector<unsigned int>& ItemModules() const { return m_itemModules; }

private:
    friend class ClassRules;
    std::vector<ElementRule> m_rules;
    std::vector<unsigned int> m_itemModules;
    std::unordered_map<VDicomULong, LevelRules*> m_below;
};

class ClassRules {
public:
    /// @param node the class
    /// @param partial only the modules that objects of every class about a patient have: the class is newer than the
    ///        table, and `node` any that has them
    explicit ClassRules(const DICOMIOD* node, bool partial = false);
    ~ClassRules();
    ClassRules(const ClassRules&) = delete;
    ClassRules& operator=(const ClassRules&) = delete;

    const DICOMIOD* Node() const { return m_node; }
    bool IsPartial() const { return m_partial; }
    LevelRules& Top() { return *m_top; }
    std::vector<ModuleState>& Modules() { return m_modules; }
    const ModuleState& ModuleOf(const ElementRule& rule) const { return m_modules[rule.module]; }
    /// What binds at the moment.
    Binding BindingOf(const ElementRule& rule) const {
        const Binding module = m_modules[rule.module].binding;
        return module < rule.limit ? module : rule.limit;
    }

    /// The rules inside the items of a sequence; null where the table says nothing of them.
    LevelRules* Below(LevelRules& level, VDicomULong sequence);
    const ElementFacts& FactsOf(const DICOMIOD* element);
    /// Whether the class has the tag anywhere inside a sequence, and if so the name of that sequence; else null.
    const char* SequenceAround(VDicomULong tag);
    bool HasAnywhere(VDicomULong tag);

private:
    void AddChildren(LevelRules& level, const DICOMIOD* parent, unsigned int module, Binding limit);
    static void Sort(LevelRules& level);
    void IndexTags();

    const DICOMIOD* m_node;
    bool m_partial;
    std::vector<ModuleState> m_modules;
    std::vector<std::unique_ptr<LevelRules>> m_levels;
    LevelRules* m_top;
    std::unordered_map<const char*, ElementFacts> m_facts;     ///< by description: equal ones share their text
    std::unordered_map<VDicomULong, const DICOMIOD*> m_inside; ///< tag: a sequence that holds it; null: top level alone
    bool m_indexed = false;
};

} // namespace vdicom
