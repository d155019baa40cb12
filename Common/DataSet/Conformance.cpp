#include "Conformance.h"

#include "ConformanceConditions.h"
#include "ConformanceValues.h"
#include "VDicomTag.h"
#include "VDicomUID.h"

#include <algorithm>
#include <cctype>

namespace vdicom {

namespace {

constexpr VDicomULong kSOPClass = 0x00080016, kMediaStorageClass = 0x00020002;

bool IsEmpty(const DICOMELEMENT* e) {
    return IsUndefinedLength(e) ? FirstChildOf(e) == nullptr : e->nLength == 0 && FirstChildOf(e) == nullptr;
}

void AppendTag(VDicomULong tag, std::string& path) {
    constexpr char digits[] = "0123456789ABCDEF";
    path += '(';
    for (int shift = 28; shift >= 0; shift -= 4) {
        path += digits[(tag >> shift) & 0xF];
        if (shift == 16)
            path += ',';
    }
    path += ')';
}

const char* SectionOf(const Found& found) {
    switch (found.code) {
    case DICOM_CHECK_MISSING_1:
    case DICOM_CHECK_EMPTY_1:
        return found.rule != nullptr && found.rule->node->nUsage == DICOM_ELEMENT_1C ? "PS3.5 7.4.2" : "PS3.5 7.4.1";
    case DICOM_CHECK_MISSING_2:
        return found.rule != nullptr && found.rule->node->nUsage == DICOM_ELEMENT_2C ? "PS3.5 7.4.4" : "PS3.5 7.4.3";
    case DICOM_CHECK_FORBIDDEN:
    case DICOM_CHECK_ENUMERATED:
    case DICOM_CHECK_DEFINED_TERM:
    case DICOM_CHECK_FEW_ITEMS:
    case DICOM_CHECK_MANY_ITEMS:
    case DICOM_CHECK_INCONSISTENT:
        return "PS3.3 C";
    case DICOM_CHECK_MULTIPLICITY:
        return "PS3.5 6.4";
    case DICOM_CHECK_VR:
    case DICOM_CHECK_CHARACTER:
    case DICOM_CHECK_VALUE_LENGTH:
    case DICOM_CHECK_FORM:
    case DICOM_CHECK_PADDING:
        return "PS3.5 6.2";
    case DICOM_CHECK_UID:
        return "PS3.5 9.1";
    case DICOM_CHECK_ODD_LENGTH:
        return "PS3.5 7.1.1";
    case DICOM_CHECK_EXTENDED:
        return "PS3.2 7.3";
    case DICOM_CHECK_PRIVATE_OWNER:
    case DICOM_CHECK_PRIVATE_BLOCK:
        return "PS3.5 7.8.1";
    case DICOM_CHECK_NESTING:
        return "PS3.5 7.5";
    case DICOM_CHECK_CHARACTER_SET:
        return "PS3.5 6.1";
    case DICOM_CHECK_UNKNOWN_CHARACTER_SET:
        return "PS3.3 C.12.1.1.2";
    case DICOM_CHECK_RETIRED:
        return "PS3.6";
    case DICOM_CHECK_META:
        return "PS3.10 7.1";
    default:
        return "";
    }
}

/// The text itself; bytes that are no UTF-8 become U+FFFD.
std::string Sound(std::string_view utf8) {
    if (std::all_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return std::string(utf8);
    std::string text;
    char32_t c = 0;
    for (std::size_t at = 0; at < utf8.size();)
        AppendUtf8(NextUtf8(utf8, at, c) ? c : 0xFFFD, text);
    return text;
}

/// Ends a text behind 64 characters, marked as cut.
std::string Shortened(std::string_view utf8) {
    constexpr std::size_t most = 64;
    std::size_t at = 0;
    std::size_t characters = 0;
    for (char32_t c = 0; at < utf8.size() && characters < most; ++characters)
        NextUtf8(utf8, at, c);
    std::string text(utf8.substr(0, at));
    if (at < utf8.size())
        text += "...";
    return text;
}

} // namespace

// ---------------------------------------------------------------- the walk

void ConformanceWalk::Run(const DICOMIOD* definition) {
    m_levels.emplace_back(); // for reports before the walk
    if (definition != nullptr)
        m_rules.emplace(definition);
    else
        TellClass();
    if (!m_stopped)
        CheckMeta(*this);
    m_levels.clear();
    ConformanceLevel top;
    top.rules = m_rules ? &m_rules->Top() : nullptr;
    Enter(top);
    if (!m_stopped)
        CheckConsistency(*this);
    while (!m_levels.empty() && !m_stopped) {
        DICOMELEMENT* const e = m_levels.back().next;
        if (e == nullptr) {
            Leave();
            continue;
        }
        m_levels.back().next = NextOf(e);
        CheckElement(e);
        if (!m_stopped && FirstChildOf(e) != nullptr && e->nTag != kPixelData)
            Open(e);
    }
}

// The class is not in the table: why, and what can be checked all the same.
void ConformanceWalk::TellClass() {
    std::string uid(TextOf(m_state.tree.FindChild(nullptr, kMediaStorageClass)));
    const DICOMELEMENT* const element = m_state.tree.FindChild(nullptr, kSOPClass);
    if (uid.empty())
        uid = TextOf(element);
    Found found{DICOM_CHECK_CLASS, DICOM_SEVERITY_NOTE, element, kSOPClass, ""};
    std::string text;
    DICOMCURRENTUID current;
    if (uid.empty()) {
        found.severity = DICOM_SEVERITY_ERROR;
        text = "no SOP Class UID: modules are not checked";
    } else if (VDicomUID::FindCurrent(uid.c_str(), &current) != 0) {
        text = std::string("the class ") + current.pszName + " is newer than the table: its modules are not checked";
        // What is stored of a patient has the modules of the patient, the study and the instance all the same.
        const bool stored = uid.rfind("1.2.840.10008.5.1.4.1.1.", 0) == 0 &&
                            m_state.tree.FindChild(nullptr, VDicomTagCode(0x0020, 0x000D)) != nullptr;
        if (const DICOMIOD* any = VDicomIOD::FindClass(0); stored && any != nullptr) {
            m_rules.emplace(any, true);
            text += " but for those that every class has";
        }
    } else {
        found.severity = DICOM_SEVERITY_WARNING;
        text = "the SOP class " + Shortened(uid) + " is not the standard's: modules are not checked";
    }
    found.text = text;
    found.value = uid;
    Report(found);
}

void ConformanceWalk::Enter(const ConformanceLevel& level) {
    m_levels.push_back(level);
    m_levels.back().next = m_state.tree.FirstChild(level.item);
    if (level.rules == nullptr)
        return;
    const std::vector<ElementRule>& rules = level.rules->Rules();
    m_found.assign(rules.size(), nullptr);
    m_groups.clear();
    // Both are in ascending order, but for the repeating groups.
    for (DICOMELEMENT* e = m_levels.back().next; e != nullptr; e = NextOf(e)) {
        const LevelRules::Range range = level.rules->Find(e->nTag);
        for (std::size_t i = range.first; i < range.last; ++i) {
            if (m_found[i] == nullptr)
                m_found[i] = e;
        }
        const VDicomULong group = e->nTag & 0xFFFF0000;
        if (!range.IsEmpty() && IsRepeating(e->nTag) && (m_groups.empty() || m_groups.back() != group))
            m_groups.push_back(group);
    }
    JudgeModules(level);
    CheckMissing(level);
    if (!m_stopped)
        CheckRepeatingGroups(level);
}

void ConformanceWalk::Leave() {
    ConformanceLevel level = m_levels.back();
    m_levels.pop_back();
    if (level.item == nullptr)
        return;
    level.item = NextOf(level.item);
    while (level.item != nullptr && level.item->nTag != kItem) // said by Open
        level.item = NextOf(level.item);
    ++level.number;
    level.block = 0;
    if (level.item != nullptr)
        Enter(level);
}

void ConformanceWalk::Open(DICOMELEMENT* sequence) {
    const DICOMELEMENT* item = nullptr;
    for (const DICOMELEMENT* child = FirstChildOf(sequence); child != nullptr; child = NextOf(child)) {
        if (child->nTag == kItem && item == nullptr)
            item = child;
        if (child->nTag != kItem) {
            Report({DICOM_CHECK_NESTING, DICOM_SEVERITY_ERROR, child, child->nTag,
                    "stands directly inside a sequence, where items alone may stand"});
            if (m_stopped)
                return;
        }
    }
    if (item == nullptr)
        return;
    const ConformanceLevel& here = m_levels.back();
    ConformanceLevel level;
    level.item = item;
    level.sequence = sequence->nTag;
    if (here.rules != nullptr && !IsPrivate(sequence->nTag)) {
        level.rules = m_rules->Below(*here.rules, sequence->nTag);
        // A sequence that may contain itself (Content Sequence) is in the table once.
        for (std::size_t i = m_levels.size(); i > 0 && level.rules == nullptr; --i) {
            if (m_levels[i - 1].sequence == sequence->nTag)
                level.rules = m_levels[i - 1].rules;
        }
    }
    Enter(level);
}

// ---------------------------------------------------------------- what a level must hold

void ConformanceWalk::JudgeModules(const ConformanceLevel& level) {
    struct Evidence {
        unsigned int ones = 0;  ///< own elements of type 1
        unsigned int there = 0; ///< how many of them are there
        bool other = false;     ///< one of the types 1C, 2 and 2C is there
    };
    std::vector<ModuleState>& modules = m_rules->Modules();
    const auto isOpen = [&](const ElementRule& rule) {
        const ModuleState& module = modules[rule.module];
        return module.node->nUsage != DICOM_MODULE_MANDATORY && module.perItem == (level.item != nullptr);
    };
    if (level.item != nullptr && level.rules->ItemModules().empty())
        return;
    std::vector<Evidence> evidence(modules.size());
    const std::vector<ElementRule>& rules = level.rules->Rules();
    for (std::size_t i = 0; i < rules.size(); ++i) {
        const ElementRule& rule = rules[i];
        if (!rule.own || !isOpen(rule))
            continue;
        Evidence& about = evidence[rule.module];
        const unsigned short usage = rule.node->nUsage;
        const bool isThere = m_found[i] != nullptr;
        if (usage == DICOM_ELEMENT_1) {
            ++about.ones;
            about.there += isThere ? 1U : 0U;
        } else if (usage != DICOM_ELEMENT_3) {
            about.other = about.other || isThere;
        }
    }
    for (std::size_t i = 0; i < modules.size(); ++i) {
        ModuleState& module = modules[i];
        if (module.node->nUsage == DICOM_MODULE_MANDATORY || module.perItem != (level.item != nullptr))
            continue;
        if (level.sequence == kDirectoryRecords)
            module.binding = IsModuleOfRecord(*this, module.node->pszName) ? Binding::certain : Binding::none;
        else if (2 * evidence[i].there > evidence[i].ones || (evidence[i].other && evidence[i].ones == 0))
            module.binding = Binding::certain;
        else
            module.binding = evidence[i].there > 0 || evidence[i].other ? Binding::probable : Binding::none;
    }
}

void ConformanceWalk::CheckMissing(const ConformanceLevel& level) {
    const std::vector<ElementRule>& rules = level.rules->Rules();
    for (std::size_t first = 0; first < rules.size() && !m_stopped;) {
        // Of all modules that hold the tag here, the strictest one counts.
        const ElementRule* strictest = nullptr;
        Need need = Need::nothing;
        Binding binding = Binding::none;
        const ElementRule* filled = nullptr; // demands a value where the element is
        std::size_t last = first;
        for (; last < rules.size() && rules[last].tag == rules[first].tag; ++last) {
            const ElementRule& rule = rules[last];
            const Binding bound = m_rules->BindingOf(rule);
            if (bound == Binding::none || rule.node->nUsage == DICOM_ELEMENT_3)
                continue;
            const Need wanted = JudgeNeed(*this, rule);
            if (rule.node->nUsage == DICOM_ELEMENT_1 || (rule.node->nUsage == DICOM_ELEMENT_1C && filled == nullptr))
                filled = &rule;
            if (strictest == nullptr || wanted > need) {
                strictest = &rule;
                need = wanted;
                binding = bound;
            }
        }
        const bool repeats = !m_groups.empty() && IsRepeating(rules[first].tag);
        const DICOMELEMENT* const e = m_found[first];
        first = last;
        if (strictest == nullptr || repeats)
            continue;
        if (e == nullptr) {
            if (need == Need::value || need == Need::element)
                ReportMissing(*strictest, strictest->tag, need == Need::element, binding);
        } else if (filled != nullptr && IsEmpty(e)) {
            const bool certain = m_rules->BindingOf(*filled) == Binding::certain;
            const std::string text = std::string(filled->node->pszName) + " has no value, but must have one: type " +
                                     (filled->node->nUsage == DICOM_ELEMENT_1 ? "1" : "1C") + " in module " +
                                     m_rules->ModuleOf(*filled).node->pszName;
            Report({DICOM_CHECK_EMPTY_1, certain ? DICOM_SEVERITY_ERROR : DICOM_SEVERITY_WARNING, e, e->nTag, text,
                    filled});
        } else if (need == Need::absence) {
            const std::string text =
                std::string(strictest->node->pszName) + " must not be there: " + WhyAbsent(e->nTag);
            Report({DICOM_CHECK_FORBIDDEN, DICOM_SEVERITY_WARNING, e, e->nTag, text, strictest});
        }
    }
}

// Overlays and curves: each group that is there must hold what its module demands.
void ConformanceWalk::CheckRepeatingGroups(const ConformanceLevel& level) {
    for (const VDicomULong group : m_groups) {
        const VDicomULong repeating = group & 0xFF000000;
        for (const ElementRule& rule : level.rules->Rules()) {
            const Binding binding = m_rules->BindingOf(rule);
            if ((rule.tag & 0xFFFF0000) != repeating || binding == Binding::none || m_stopped)
                continue;
            const VDicomULong tag = group | (rule.tag & 0xFFFF);
            const DICOMELEMENT* const e = Find(tag);
            const unsigned short usage = rule.node->nUsage;
            if (e == nullptr && (usage == DICOM_ELEMENT_1 || usage == DICOM_ELEMENT_2))
                ReportMissing(rule, tag, usage == DICOM_ELEMENT_2, binding);
        }
    }
}

void ConformanceWalk::ReportMissing(const ElementRule& rule, VDicomULong tag, bool mayBeEmpty, Binding binding) {
    const unsigned short usage = rule.node->nUsage;
    const bool conditional = usage == DICOM_ELEMENT_1C || usage == DICOM_ELEMENT_2C;
    std::string text = std::string(rule.node->pszName) + " is missing: type " + (mayBeEmpty ? "2" : "1");
    if (conditional)
        text += "C, and its condition holds,";
    text += std::string(" in module ") + m_rules->ModuleOf(rule).node->pszName;
    if (binding == Binding::probable)
        text += ", which seems to be meant";
    Report({mayBeEmpty ? DICOM_CHECK_MISSING_2 : DICOM_CHECK_MISSING_1,
            binding == Binding::certain ? DICOM_SEVERITY_ERROR : DICOM_SEVERITY_WARNING, nullptr, tag, text, &rule});
}

bool ConformanceWalk::HoldsModule(VDicomULong module) const {
    const DICOMIOD* const node = VDicomIOD::FindModule(m_rules->Node()->nCode, module);
    return node != nullptr && node->nUsage == DICOM_MODULE_MANDATORY;
}

// ---------------------------------------------------------------- reports and values

void ConformanceWalk::Report(const Found& found) {
    if (m_stopped)
        return;
    std::string path;
    for (const ConformanceLevel& level : m_levels) {
        if (level.item == nullptr)
            continue;
        AppendTag(level.sequence, path);
        path += '[';
        path += std::to_string(level.number);
        path += "].";
    }
    AppendTag(found.tag, path);
    const std::string name(found.rule != nullptr ? std::string_view(found.rule->node->pszName) : NameOf(found.tag));
    const std::string value = Sound(Shortened(found.value));
    const std::string allowed(found.allowed);
    const std::string text = Sound(found.text);
    DICOMFINDING finding{};
    finding.nCode = found.code;
    finding.nSeverity = found.severity;
    finding.pElement = const_cast<DICOMELEMENT*>(found.element);
    finding.pParent = m_levels.empty() ? nullptr : const_cast<DICOMELEMENT*>(m_levels.back().item);
    finding.nTag = found.tag;
    finding.nValue = found.number;
    finding.nUsage = found.rule != nullptr ? found.rule->node->nUsage : static_cast<unsigned short>(0);
    finding.pszPath = path.c_str();
    finding.pszName = name.c_str();
    finding.pszModule = found.rule != nullptr ? m_rules->ModuleOf(*found.rule).node->pszName : "";
    finding.pszValue = value.c_str();
    finding.pszAllowed = allowed.c_str();
    finding.pszSection = SectionOf(found);
    finding.pszText = text.c_str();
    m_state.finding = &finding;
    m_stopped = m_callback(&finding, m_userData) != 0;
    m_state.finding = nullptr;
}

std::string_view ConformanceWalk::NameOf(VDicomULong tag) {
    if (const DICOMTAG* row = VDicomTag::Find(tag))
        return row->pszName;
    DICOMCURRENTTAG current;
    return VDicomTag::FindCurrent(tag, &current) != 0 ? std::string_view(current.pszName) : std::string_view();
}

std::string_view ConformanceWalk::TextOf(const DICOMELEMENT* e) {
    constexpr VDicomULong longest = 1024; // all that is asked for is shorter
    if (e == nullptr || IsUndefinedLength(e) || e->nLength > longest)
        return {};
    const VRTraits* traits = FindVRTraits(e->nVR);
    RawText raw;
    if (traits == nullptr || !traits->text || !raw.Read(e))
        return {};
    m_short = TrimValue(raw.View());
    return m_short;
}

std::optional<std::int64_t> ConformanceWalk::NumberOf(const DICOMELEMENT* e, VDicomULong index) {
    if (e == nullptr || IsUndefinedLength(e))
        return std::nullopt;
    if (e->nVR == vr::IS) {
        std::string_view text = TextOf(e);
        for (; index > 0 && !text.empty(); --index)
            text.remove_prefix(std::min(text.find('\\'), text.size() - 1) + 1);
        std::int64_t number = 0;
        return ParseInteger(TrimValue(text.substr(0, text.find('\\'))), number) ? std::optional(number) : std::nullopt;
    }
    unsigned char bytes[4];
    const auto size = static_cast<VDicomULong>(BinaryValueSize(e->nVR));
    const bool integer = e->nVR == vr::US || e->nVR == vr::SS || e->nVR == vr::UL || e->nVR == vr::SL;
    if (!integer || e->nLength / size <= index)
        return std::nullopt;
    const PieceList list(e);
    if (!list.ReadStored(index * size, bytes, size))
        return std::nullopt;
    const bool little = m_state.IsLittleEndian(e);
    if (size == 2)
        return e->nVR == vr::SS ? static_cast<std::int16_t>(Get16(bytes, little)) : std::int64_t{Get16(bytes, little)};
    return e->nVR == vr::SL ? static_cast<std::int32_t>(Get32(bytes, little)) : std::int64_t{Get32(bytes, little)};
}

} // namespace vdicom
