#include "ModuleElements.h"

#include "DefaultVR.h"
#include "Guarded.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>

namespace vdicom {

namespace {

DICOMIOD* ParentOf(DICOMIOD* entry) { return VDicomIOD::GetParent(entry); }
DICOMIOD* ChildOf(DICOMIOD* entry) { return VDicomIOD::GetChild(entry); }
DICOMIOD* NextOf(DICOMIOD* entry) { return VDicomIOD::GetNext(entry, 1); }
bool IsElement(const DICOMIOD* entry) { return entry->nType == DICOM_IOD_ELEMENT; }

// Only the writer makes these, and items come with their sequences.
bool IsNoAttribute(VDicomULong tag) {
    return IsGroupLength(tag) || IsDelimiter(tag) || tag == kItem || tag == kTrailingPadding;
}

bool IsPresent(const DataSetState& state, const DICOMELEMENT* parent, VDicomULong tag) {
    for (VDicomULong group = 0; group < CountGroups(tag); ++group) {
        if (state.tree.FindChild(parent, InGroup(tag, group)) != nullptr)
            return true;
    }
    return false;
}

} // namespace

VDicomULong EnclosingSequence(DICOMIOD* module) {
    DICOMIOD* entry = ParentOf(module);
    while (entry != nullptr && !IsElement(entry))
        entry = ParentOf(entry);
    return entry == nullptr ? 0 : entry->nCode;
}

VDicomULong SequenceOfLevel(const DICOMELEMENT* parent) {
    while (parent != nullptr && parent->nTag == kItem)
        parent = ParentOf(parent);
    return parent == nullptr ? 0 : parent->nTag;
}

DICOMIOD* FindKeysModule(DICOMIOD* records, const char* type) {
    constexpr std::string_view suffix = " Keys";
    const std::size_t length = std::strlen(type);
    DICOMIOD* module = ChildOf(records);
    const auto isOfType = [&](const DICOMIOD* entry) {
        const std::string_view name = entry->pszName;
        return entry->nType == DICOM_IOD_MODULE && name.size() == length + suffix.size() &&
               name.substr(length) == suffix && std::equal(type, type + length, name.begin(), [](char a, char b) {
                   return std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b));
               });
    };
    while (module != nullptr && !isOfType(module))
        module = NextOf(module);
    return module;
}

bool IsMandatory(const DICOMIOD* entry) {
    return entry->nUsage == DICOM_KEY_UNIQUE || entry->nUsage == DICOM_ELEMENT_1 || entry->nUsage == DICOM_ELEMENT_2;
}

// ---------------------------------------------------------------- inserting

unsigned int ModuleInserter::Insert(DICOMELEMENT* parent, DICOMIOD* entry, bool withOptional) {
    return Run(parent, entry, IsElement(entry), withOptional, true);
}

unsigned int ModuleInserter::InsertRecord(DICOMELEMENT* item, DICOMIOD* sequence, bool withOptional) {
    return Run(item, sequence, false, withOptional, false);
}

unsigned int ModuleInserter::Run(DICOMELEMENT* parent, DICOMIOD* top, bool itself, bool withOptional,
                                 bool withModules) {
    m_base = parent;
    unsigned int code = DICOM_OK;
    // Without recursion: an application's table may be deeper than the stack.
    DICOMELEMENT* level = parent;
    DICOMIOD* at = itself ? top : ChildOf(top);
    while (at != nullptr && code == DICOM_OK) {
        bool down = !IsElement(at) && withModules;
        if (IsElement(at) && (withOptional || IsMandatory(at) || at == top)) {
            DICOMELEMENT* item = nullptr;
            code = Add(level, at, item);
            down = item != nullptr;
            level = down ? item : level;
        }
        if (down && ChildOf(at) != nullptr) {
            at = ChildOf(at);
            continue;
        }
        while (at != top && NextOf(at) == nullptr) {
            at = ParentOf(at);
            if (at != top && IsElement(at))
                level = ParentOf(ParentOf(level)); // from the item to where its sequence stands
        }
        at = at == top ? nullptr : NextOf(at);
    }
    if (code != DICOM_OK) {
        for (DICOMELEMENT* e : m_made)
            m_dataSet.DeleteElement(e);
    }
    m_made.clear();
    return code;
}

unsigned int ModuleInserter::Add(DICOMELEMENT* parent, DICOMIOD* entry, DICOMELEMENT*& item) {
    const VDicomULong tag = entry->nCode;
    if (IsNoAttribute(tag) || m_state.tree.FindChild(parent, tag) != nullptr)
        return DICOM_OK;
    const auto failure = [this](const DICOMELEMENT* above) -> unsigned int {
        const bool tooDeep = above != nullptr && (m_state.tree.GetLevel(&above->Link) + 2) / 2 > m_state.depthLimit;
        return tooDeep ? DICOM_ERROR_DEPTH : DICOM_ERROR_MEMORY;
    };
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&]() -> unsigned int {
        const bool isSequence = ChildOf(entry) != nullptr;
        const unsigned short vr = isSequence ? vr::SQ : DefaultVR(m_state, parent, tag, false, nullptr);
        if (parent == m_base)
            m_made.push_back(nullptr);
        DICOMELEMENT* e = m_dataSet.InsertElement(parent, 1, tag, vr, 0, 0);
        if (e == nullptr)
            return failure(parent);
        if (parent == m_base)
            m_made.back() = e;
        // The items of a directory are its records, and come one by one.
        if (!isSequence || tag == kDirectoryRecords)
            return DICOM_OK;
        item = m_dataSet.InsertElement(e, 1, kItem, 0, 1, 0);
        return item == nullptr ? failure(e) : DICOM_OK;
    });
}

// ---------------------------------------------------------------- finding

ModulesBeside::ModulesBeside(DICOMIOD* parent) {
    for (DICOMIOD* module = ChildOf(parent); module != nullptr; module = NextOf(module)) {
        if (module->nType != DICOM_IOD_MODULE)
            continue;
        for (DICOMIOD* entry = ChildOf(module); entry != nullptr; entry = NextOf(entry)) {
            if (IsElement(entry))
                m_entries.emplace_back(entry->nCode, module);
        }
    }
    std::stable_sort(m_entries.begin(), m_entries.end(),
                     [](const Entry& a, const Entry& b) { return a.first < b.first; });
}

std::pair<ModulesBeside::Position, ModulesBeside::Position> ModulesBeside::ListersOf(VDicomULong tag) const {
    struct ByTag {
        bool operator()(const Entry& a, VDicomULong b) const { return a.first < b; }
        bool operator()(VDicomULong a, const Entry& b) const { return a < b.first; }
    };
    return std::equal_range(m_entries.begin(), m_entries.end(), tag, ByTag());
}

bool ModulesBeside::IsShared(const DICOMIOD* module, VDicomULong tag) const {
    const auto [first, last] = ListersOf(tag);
    return std::any_of(first, last, [module](const Entry& entry) { return entry.second->nCode != module->nCode; });
}

bool ModulesBeside::IsNeeded(const DataSetState& state, const DICOMIOD* module, VDicomULong tag) const {
    const auto [first, last] = ListersOf(tag);
    return std::any_of(first, last, [&](const Entry& entry) {
        DICOMIOD* other = entry.second;
        if (other->nCode == module->nCode)
            return false;
        if (other->nUsage == DICOM_MODULE_MANDATORY && module->nUsage != DICOM_MODULE_MANDATORY)
            return true;
        return LookAt(state, nullptr, other).hasOwn;
    });
}

ModulesBeside::Findings ModulesBeside::LookAt(const DataSetState& state, const DICOMELEMENT* parent,
                                              DICOMIOD* module) const {
    Findings found;
    bool isComplete = true;
    bool mayHaveOwn = false;
    bool hasAny = false;
    bool hasMandatory = false;
    for (DICOMIOD* entry = ChildOf(module); entry != nullptr; entry = NextOf(entry)) {
        if (!IsElement(entry))
            continue;
        const bool isPresent = IsPresent(state, parent, entry->nCode);
        const bool isOwn = !IsShared(module, entry->nCode);
        found.hasOwn = found.hasOwn || (isPresent && isOwn);
        mayHaveOwn = mayHaveOwn || isOwn;
        hasAny = hasAny || isPresent;
        hasMandatory = hasMandatory || IsMandatory(entry);
        isComplete = isComplete && (isPresent || !IsMandatory(entry));
    }
    found.holds = found.hasOwn || (isComplete && hasAny && (hasMandatory || !mayHaveOwn));
    return found;
}

bool ModulesBeside::Holds(VDicomDS& dataSet, const DataSetState& state, DICOMIOD* module) const {
    const VDicomULong tag = EnclosingSequence(module);
    if (tag == 0)
        return LookAt(state, nullptr, module).holds;
    for (DICOMELEMENT* e = dataSet.FindFirstElement(nullptr, tag, 0); e != nullptr; e = dataSet.FindNextElement(e, 0)) {
        for (const DICOMELEMENT* item = FirstChildOf(e); item != nullptr; item = NextOf(item)) {
            if (LookAt(state, item, module).holds)
                return true;
        }
    }
    return false;
}

} // namespace vdicom
