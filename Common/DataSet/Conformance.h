/// @file Conformance.h
/// The walk of VDicomDS::ConformanceDS: through the data set, level by level, beside the rules of its class.
#pragma once

#include "ConformanceRules.h"
#include "DataSetState.h"
#include "TypedValue.h"
#include "VDicomTag.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vdicom {

/// A level on the way of the walk: the top level, or an item.
struct ConformanceLevel {
    const DICOMELEMENT* item = nullptr; ///< null: the top level
    VDicomULong sequence = 0;           ///< tag of the sequence around it
    VDicomULong number = 0;             ///< of the item
    LevelRules* rules = nullptr;        ///< null: nothing is known of this level
    DICOMELEMENT* next = nullptr;       ///< element to be checked next
    VDicomULong block = 0;              ///< the private block seen last, (group, block number)
    bool blockHasCreator = false;
};

/// What is to be reported; what stays empty is filled in where it can be.
struct Found {
    unsigned short code;
    unsigned short severity;
    const DICOMELEMENT* element; ///< null: missing
    VDicomULong tag;
    std::string_view text;             ///< the sentence
    const ElementRule* rule = nullptr; ///< whose demand it is
    std::string_view value = {};       ///< UTF-8
    std::string_view allowed = {};
    VDicomULong number = DICOM_UNDEFINED; ///< of the value
};

class ConformanceWalk {
public:
    ConformanceWalk(DataSetState& state, VDicomFindingCallback callback, void* userData)
        : m_state(state), m_callback(callback), m_userData(userData) {}

    /// @param definition the class to check against; null: the table has it not. Throws std::bad_alloc.
    void Run(const DICOMIOD* definition);

    /// @name For the conditions
    /// @{
    const DataSetState& State() const { return m_state; }
    ClassRules* Rules() { return m_rules ? &*m_rules : nullptr; }
    const ConformanceLevel& Level() const { return m_levels.back(); }
    DICOMELEMENT* Find(VDicomULong tag) const { return m_state.tree.FindChild(Level().item, tag); }
    /// The values of a short text element of this level, trimmed; empty when there is none. Good until the next call.
    std::string_view TextOf(VDicomULong tag) { return TextOf(Find(tag)); }
    std::string_view TextOf(const DICOMELEMENT* e);
    /// The first integer of US, SS, UL, SL or IS.
    std::optional<std::int64_t> NumberOf(VDicomULong tag) { return NumberOf(Find(tag), 0); }
    std::optional<std::int64_t> NumberOf(const DICOMELEMENT* e, VDicomULong index);
    /// Whether the class has this mandatory module.
    bool HoldsModule(VDicomULong module) const;
    void Report(const Found& found);
    /// The name of an attribute; empty when it is not known.
    static std::string_view NameOf(VDicomULong tag);
    /// @}

private:
    void TellClass();
    void Enter(const ConformanceLevel& level);
    void Leave();
    void Open(DICOMELEMENT* sequence);

    // What a level must hold.
    void JudgeModules(const ConformanceLevel& level);
    void CheckMissing(const ConformanceLevel& level);
    void CheckRepeatingGroups(const ConformanceLevel& level);
    void ReportMissing(const ElementRule& rule, VDicomULong tag, bool mayBeEmpty, Binding binding);

    // One element (ConformanceElement.cpp).
    void CheckElement(DICOMELEMENT* e);
    void CheckPlace(const DICOMELEMENT* e);
    void CheckVR(const DICOMELEMENT* e, const DICOMTAG* row, const DICOMCURRENTTAG* current);
    void CheckMultiplicity(const DICOMELEMENT* e, std::size_t count, const DICOMTAG* row,
                           const DICOMCURRENTTAG* current);
    std::size_t CheckText(const DICOMELEMENT* e, const VRTraits& traits);
    std::size_t CheckBinary(const DICOMELEMENT* e);
    void CheckCharacterSetTerms(const DICOMELEMENT* e, std::string_view text);
    void CheckPrivate(const DICOMELEMENT* e);
    void CheckItems(const DICOMELEMENT* e);
    void CheckTerms(const DICOMELEMENT* e, std::size_t count);
    void CheckTerm(const DICOMELEMENT* e, LevelRules::Range range, VDicomULong number, std::string_view value,
                   std::optional<std::int64_t> binary);
    void ReportValue(unsigned short code, const DICOMELEMENT* e, std::string_view value, std::string_view allowed,
                     VDicomULong number);
    const std::string& ToUtf8(const DICOMELEMENT* e, const VRTraits& traits, std::string_view bytes, std::size_t& bad);

    DataSetState& m_state;
    VDicomFindingCallback m_callback;
    void* m_userData;
    bool m_stopped = false;
    bool m_malformed = false; ///< a value of the element being checked is
    std::optional<ClassRules> m_rules;
    std::vector<ConformanceLevel> m_levels;
    std::vector<DICOMELEMENT*> m_found; ///< by rule of the level being entered
    std::vector<VDicomULong> m_groups;  ///< repeating groups of that level, as offsets
    std::string m_utf8;
    std::string m_short; ///< what TextOf gave
};

} // namespace vdicom
