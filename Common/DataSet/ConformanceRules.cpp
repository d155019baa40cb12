#include "ConformanceRules.h"

#include <algorithm>
#include <iterator>

namespace vdicom {

namespace {

std::string_view NextPart(std::string_view& rest, std::string_view divider) {
    const std::size_t end = rest.find(divider);
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + divider.size());
    return part;
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
    if (text.substr(0, prefix.size()) != prefix)
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

std::vector<std::string_view> ParseList(std::string_view text) {
    std::vector<std::string_view> values;
    while (!text.empty())
        values.push_back(NextPart(text, ", "));
    return values;
}

const DICOMIOD* ChildOf(const DICOMIOD* node) { return reinterpret_cast<const DICOMIOD*>(node->Link.pFirstChild); }
const DICOMIOD* NextOf(const DICOMIOD* node) { return reinterpret_cast<const DICOMIOD*>(node->Link.pNext); }
const DICOMIOD* ParentOf(const DICOMIOD* node) { return reinterpret_cast<const DICOMIOD*>(node->Link.pParent); }

} // namespace

ElementFacts ParseFacts(std::string_view description) {
    ElementFacts facts;
    while (!description.empty()) {
        std::string_view part = NextPart(description, "; ");
        if (TakePrefix(part, "Enumerated values: ")) {
            facts.enumerated = ParseList(part);
        } else if (TakePrefix(part, "Defined terms: ")) {
            facts.defined = ParseList(part);
        } else if (TakePrefix(part, "Items: ") && !part.empty()) {
            facts.minItems = static_cast<std::size_t>(part.front() - '0');
            if (part.back() != 'n')
                facts.maxItems = static_cast<std::size_t>(part.back() - '0');
        }
    }
    return facts;
}

bool IsRepeating(VDicomULong tag) {
    const VDicomULong high = tag >> 24;
    return (high == 0x50 || high == 0x60) && (tag & 0x00010000) == 0;
}

VDicomULong CanonicalTag(VDicomULong tag) { return IsRepeating(tag) ? tag & 0xFF00FFFF : tag; }

LevelRules::Range LevelRules::Find(VDicomULong tag) const {
    const VDicomULong canonical = CanonicalTag(tag);
    const auto first = std::lower_bound(m_rules.begin(), m_rules.end(), canonical,
                                        [](const ElementRule& rule, VDicomULong wanted) { return rule.tag < wanted; });
    auto last = first;
    while (last != m_rules.end() && last->tag == canonical)
        ++last;
    return {static_cast<std::size_t>(first - m_rules.begin()), static_cast<std::size_t>(last - m_rules.begin())};
}

ClassRules::ClassRules(const DICOMIOD* node, bool partial) : m_node(node), m_partial(partial) {
    constexpr VDicomULong common[] = {0, 1, 14}; // Patient, General Study, SOP Common
    m_levels.push_back(std::make_unique<LevelRules>());
    m_top = m_levels.back().get();
    for (const DICOMIOD* child = ChildOf(node); child != nullptr; child = NextOf(child)) {
        const VDicomULong code = child->nCode;
        const bool wanted = !partial || std::find(std::begin(common), std::end(common), code) != std::end(common);
        if (child->nType != DICOM_IOD_MODULE || !wanted)
            continue;
        m_modules.push_back({child, child->nUsage == DICOM_MODULE_MANDATORY ? Binding::certain : Binding::none, false});
        AddChildren(*m_top, child, static_cast<unsigned int>(m_modules.size() - 1), Binding::certain);
    }
    Sort(*m_top);
}

ClassRules::~ClassRules() = default;

void ClassRules::AddChildren(LevelRules& level, const DICOMIOD* parent, unsigned int module, Binding limit) {
    for (const DICOMIOD* child = ChildOf(parent); child != nullptr; child = NextOf(child)) {
        if (child->nType == DICOM_IOD_ELEMENT) {
            level.m_rules.push_back({CanonicalTag(child->nCode), child, module, limit, false});
        } else if (child->nType == DICOM_IOD_MODULE) {
            const auto inner = static_cast<unsigned int>(m_modules.size());
            m_modules.push_back(
                {child, child->nUsage == DICOM_MODULE_MANDATORY ? Binding::certain : Binding::none, true});
            level.m_itemModules.push_back(inner);
            AddChildren(level, child, inner, limit);
        }
    }
}

void ClassRules::Sort(LevelRules& level) {
    std::vector<ElementRule>& rules = level.m_rules;
    std::stable_sort(rules.begin(), rules.end(),
                     [](const ElementRule& a, const ElementRule& b) { return a.tag < b.tag; });
    for (std::size_t i = 0; i < rules.size(); ++i) {
        rules[i].own =
            (i == 0 || rules[i - 1].tag != rules[i].tag) && (i + 1 == rules.size() || rules[i + 1].tag != rules[i].tag);
    }
}

LevelRules* ClassRules::Below(LevelRules& level, VDicomULong sequence) {
    const VDicomULong tag = CanonicalTag(sequence);
    const auto known = level.m_below.find(tag);
    if (known != level.m_below.end())
        return known->second;
    const LevelRules::Range range = level.Find(tag);
    // Modules that are not there count where no other one explains the sequence: somebody means them.
    bool explained = false;
    for (std::size_t i = range.first; i < range.last; ++i)
        explained = explained || BindingOf(level.m_rules[i]) != Binding::none;
    auto below = std::make_unique<LevelRules>();
    for (std::size_t i = range.first; i < range.last; ++i) {
        const ElementRule& rule = level.m_rules[i];
        AddChildren(*below, rule.node, rule.module, explained ? BindingOf(rule) : Binding::none);
    }
    LevelRules* result = nullptr;
    if (!below->m_rules.empty()) {
        Sort(*below);
        m_levels.push_back(std::move(below));
        result = m_levels.back().get();
    }
    level.m_below.emplace(tag, result);
    return result;
}

const ElementFacts& ClassRules::FactsOf(const DICOMIOD* element) {
    const char* const description = element->pszDescription; // the record is packed: no references into it
    const auto [place, isNew] = m_facts.try_emplace(description);
    if (isNew)
        place->second = ParseFacts(description);
    return place->second;
}

void ClassRules::IndexTags() {
    m_indexed = true;
    const DICOMIOD* node = ChildOf(m_node);
    while (node != nullptr) {
        if (node->nType == DICOM_IOD_ELEMENT) {
            const DICOMIOD* above = ParentOf(node);
            const DICOMIOD* sequence = above != nullptr && above->nType == DICOM_IOD_ELEMENT ? above : nullptr;
            const auto [place, isNew] = m_inside.try_emplace(CanonicalTag(node->nCode), sequence);
            if (!isNew && place->second == nullptr)
                place->second = sequence;
        }
        if (ChildOf(node) != nullptr) {
            node = ChildOf(node);
            continue;
        }
        while (node != nullptr && node != m_node && NextOf(node) == nullptr)
            node = ParentOf(node);
        node = node == nullptr || node == m_node ? nullptr : NextOf(node);
    }
}

const char* ClassRules::SequenceAround(VDicomULong tag) {
    if (!m_indexed)
        IndexTags();
    const auto place = m_inside.find(CanonicalTag(tag));
    return place == m_inside.end() || place->second == nullptr ? nullptr : place->second->pszName;
}

bool ClassRules::HasAnywhere(VDicomULong tag) {
    if (!m_indexed)
        IndexTags();
    return m_inside.find(CanonicalTag(tag)) != m_inside.end();
}

} // namespace vdicom
