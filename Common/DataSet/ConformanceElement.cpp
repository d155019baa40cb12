// The checks of one element: its place, VR, number of values, and the values themselves.
#include "Conformance.h"

#include "ConformanceValues.h"
#include "CurrentTables.h"
#include "VDicomTag.h"
#include "ValueText.h"

#include <algorithm>
#include <iterator>

namespace vdicom {

namespace {

constexpr VDicomULong kSpecificCharacterSet = 0x00080005, kCodeValue = 0x00080100, kCodeMeaning = 0x00080104,
                      kLUTData = 0x00283006;

std::string VRText(unsigned short code) {
    const auto letter = [](int c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c) : '?'; };
    return {letter(code >> 8), letter(code & 0xFF)};
}

// Values that one edition enumerates and another one does not, or that need more than a comparison.
bool IsEnumerationOfToday(VDicomULong tag, const DICOMIOD* module) {
    constexpr VDicomULong kImagePixel = 7;
    switch (tag) {
    case 0x00081150: // named the retired management classes
    case 0x00041430: // types of directory records: new ones come with every edition
    case 0x00200020: // Patient Orientation: letters that are combined
        return false;
    case 0x00280100: // Image Pixel: 16 bits at most, then
    case 0x00280101:
    case 0x00280102:
        return module->nCode != kImagePixel;
    default:
        return true;
    }
}

// Texts that PS3.3 C.12.1.1.2 defines for (0008,0005).
constexpr std::string_view kCharacterSets[] = {
    "ISO_IR 100",      "ISO_IR 101",      "ISO_IR 109",      "ISO_IR 110",      "ISO_IR 144",
    "ISO_IR 127",      "ISO_IR 126",      "ISO_IR 138",      "ISO_IR 148",      "ISO_IR 203",
    "ISO_IR 13",       "ISO_IR 166",      "ISO_IR 192",      "GB18030",         "GBK",
    "ISO 2022 IR 6",   "ISO 2022 IR 100", "ISO 2022 IR 101", "ISO 2022 IR 109", "ISO 2022 IR 110",
    "ISO 2022 IR 144", "ISO 2022 IR 127", "ISO 2022 IR 126", "ISO 2022 IR 138", "ISO 2022 IR 148",
    "ISO 2022 IR 203", "ISO 2022 IR 13",  "ISO 2022 IR 166", "ISO 2022 IR 87",  "ISO 2022 IR 159",
    "ISO 2022 IR 149", "ISO 2022 IR 58",
};

// Attributes with a choice of VRs that the tables give in part (PS3.6, PS3.5 A).
bool IsPossibleVR(VDicomULong tag, unsigned short code) {
    const VDicomULong repeating = tag & 0xFF00FFFF;
    if (tag == kPixelData || repeating == 0x60003000 || repeating == 0x5000200C || tag == 0x54001010 ||
        tag == 0x5400100A || tag == 0x54000110 || tag == 0x54000112)
        return code == vr::OB || code == vr::OW;
    if (repeating == 0x50003000) // Curve Data
        return code == vr::OB || code == vr::OW || code == vr::US || code == vr::SS || code == vr::SL ||
               code == vr::FL || code == vr::FD;
    if (tag == kLUTData || (tag >= 0x00281101 && tag <= 0x00281203) || tag == 0x00283002)
        return code == vr::US || code == vr::SS || code == vr::OW;
    return false;
}

TextKind KindOf(const VRTraits& traits) {
    if (!traits.multiple)
        return TextKind::text;
    return traits.code == vr::PN ? TextKind::names : TextKind::values;
}

std::size_t CountCharacters(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

bool IsPlain(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '\x1B'; });
}

bool IsNumber(std::string_view term, std::int64_t& number) {
    if (!term.empty() && term.back() == 'H') {
        std::uint32_t hex = 0;
        if (!ParseHex(term.substr(0, term.size() - 1), term.size() - 1, hex))
            return false;
        number = hex;
        return true;
    }
    return ParseInteger(term, number);
}

std::string Joined(const std::vector<std::string_view>& terms) {
    std::string text;
    for (const std::string_view term : terms)
        text += (text.empty() ? "" : ", ") + std::string(term);
    return text;
}

unsigned short CodeOf(ValueFault fault) {
    switch (fault) {
    case ValueFault::character:
        return DICOM_CHECK_CHARACTER;
    case ValueFault::length:
        return DICOM_CHECK_VALUE_LENGTH;
    case ValueFault::uid:
        return DICOM_CHECK_UID;
    default:
        return DICOM_CHECK_FORM;
    }
}

} // namespace

void ConformanceWalk::CheckElement(DICOMELEMENT* e) {
    CheckPlace(e);
    const bool isPrivate = IsPrivate(e->nTag);
    const bool isLength = IsGroupLength(e->nTag);
    if (isPrivate && !isLength)
        CheckPrivate(e);
    const DICOMTAG* row = isPrivate ? nullptr : VDicomTag::Find(e->nTag);
    DICOMCURRENTTAG record;
    const DICOMCURRENTTAG* current = !isPrivate && VDicomTag::FindCurrent(e->nTag, &record) != 0 ? &record : nullptr;
    if (isLength)
        row = nullptr;
    else if (!isPrivate)
        CheckVR(e, row, current);
    if (current != nullptr && current->bRetired != 0 && !isLength)
        Report({DICOM_CHECK_RETIRED, DICOM_SEVERITY_NOTE, e, e->nTag,
                std::string(current->pszName) + " has been retired"});
    if (IsUndefinedLength(e) || FirstChildOf(e) != nullptr || e->nVR == vr::SQ) {
        if (!isPrivate)
            CheckItems(e);
        return;
    }
    if ((e->nLength & 1) != 0)
        Report({DICOM_CHECK_ODD_LENGTH, DICOM_SEVERITY_ERROR, e, e->nTag,
                "the value has " + std::to_string(e->nLength) + " bytes, an odd number"});
    if (e->nLength == 0 || m_stopped)
        return;
    const VRTraits* traits = FindVRTraits(e->nVR);
    if (traits == nullptr || e->nVR == vr::UN)
        return;
    m_malformed = false;
    const std::size_t count = traits->text ? CheckText(e, *traits) : CheckBinary(e);
    if (count == 0 || m_stopped || isLength)
        return;
    CheckMultiplicity(e, count, row, current);
    if (!m_malformed) // which says enough
        CheckTerms(e, count);
}

// ---------------------------------------------------------------- place

void ConformanceWalk::CheckPlace(const DICOMELEMENT* e) {
    const ConformanceLevel& level = m_levels.back();
    const unsigned int group = GroupOf(e->nTag);
    const auto misplaced = [&](unsigned short severity, std::string_view text) {
        Report({DICOM_CHECK_NESTING, severity, e, e->nTag, text});
    };
    if (e->nTag == kItem || IsDelimiter(e->nTag))
        return misplaced(DICOM_SEVERITY_ERROR, "an item or delimiter where an attribute must stand");
    if (group == 0 || (group == 2 && level.item != nullptr))
        return misplaced(DICOM_SEVERITY_ERROR, group == 0 ? "command elements do not belong into a data set"
                                                          : "file meta information does not belong into an item");
    const bool holds = e->nVR == vr::SQ || e->nVR == vr::UN || e->nTag == kPixelData;
    if (FirstChildOf(e) != nullptr && !holds)
        misplaced(DICOM_SEVERITY_ERROR, "has items, though its VR " + VRText(e->nVR) + " is no sequence");
    if (IsGroupLength(e->nTag) && group != 2)
        return Report({DICOM_CHECK_RETIRED, DICOM_SEVERITY_NOTE, e, e->nTag, "group lengths have been retired"});
    // Of what is newer than the tables nobody knows here which modules hold it. Signatures, character sets and padding
    // may stand everywhere; records of directories take any key.
    if (level.rules == nullptr || m_rules->IsPartial() || IsPrivate(e->nTag) || group == 2 ||
        level.rules->Has(e->nTag) || VDicomTag::Find(e->nTag) == nullptr)
        return;
    if (group == 0xFFFA || group == 0x4FFE || group == 0x0400 || e->nTag == kTrailingPadding ||
        e->nTag == kSpecificCharacterSet || level.sequence == kDirectoryRecords)
        return;
    if (level.item == nullptr) {
        const char* sequence = m_rules->SequenceAround(e->nTag);
        const std::string module = m_rules->Node()->pszName;
        if (sequence != nullptr)
            misplaced(DICOM_SEVERITY_WARNING, "in " + module + " it belongs into an item of " + sequence);
        else
            Report({DICOM_CHECK_EXTENDED, DICOM_SEVERITY_NOTE, e, e->nTag,
                    "no module of " + module + " holds it: a standard extended class"});
        return;
    }
    // Deep in the table codes have their basic elements alone.
    const bool isCode = level.rules->Has(kCodeValue) && level.rules->Has(kCodeMeaning);
    if (isCode && group == 8 && (e->nTag & 0xFFFF) >= 0x0100 && (e->nTag & 0xFFFF) <= 0x0124)
        return;
    // A sequence that may contain itself.
    const bool recursive = std::any_of(m_levels.begin(), m_levels.end(),
                                       [e](const ConformanceLevel& above) { return above.sequence == e->nTag; });
    if (!recursive)
        Report({DICOM_CHECK_EXTENDED, DICOM_SEVERITY_NOTE, e, e->nTag,
                "no module of " + std::string(m_rules->Node()->pszName) + " holds it in an item of " +
                    std::string(NameOf(level.sequence))});
}

void ConformanceWalk::CheckPrivate(const DICOMELEMENT* e) {
    ConformanceLevel& level = m_levels.back();
    const unsigned int group = GroupOf(e->nTag);
    const unsigned int element = e->nTag & 0xFFFF;
    const auto report = [&](unsigned short code, unsigned short severity, std::string_view text,
                            std::string_view value = {}) {
        Report({code, severity, e, e->nTag, text, nullptr, value});
    };
    if (group < 8 || group == 0xFFFF)
        return report(DICOM_CHECK_PRIVATE_OWNER, DICOM_SEVERITY_ERROR, "no private element may have this group");
    if (element < 0x10)
        return report(DICOM_CHECK_PRIVATE_OWNER, DICOM_SEVERITY_ERROR,
                      "elements below (gggg,0010) of a private group are not for use");
    if (element <= 0xFF) {
        const std::string creator(TextOf(e));
        if (e->nVR != vr::LO && e->nVR != vr::UN)
            report(DICOM_CHECK_VR, DICOM_SEVERITY_ERROR, "a private creator has the VR LO, not " + VRText(e->nVR));
        else if (creator.empty() && e->nVR == vr::LO)
            report(DICOM_CHECK_PRIVATE_OWNER, DICOM_SEVERITY_WARNING, "a private creator without a text");
        if (!creator.empty() && !IsPrivateCreator(creator.data(), creator.size()))
            report(DICOM_CHECK_PRIVATE_BLOCK, DICOM_SEVERITY_NOTE,
                   "the private creator \"" + creator + "\" is in no table", creator);
        return;
    }
    const VDicomULong block = (e->nTag & 0xFFFF0000) | element >> 8;
    if (level.block != block) {
        level.block = block;
        const DICOMELEMENT* const creator = element < 0x1000 ? nullptr : m_state.tree.FindChild(level.item, block);
        level.blockHasCreator = creator != nullptr && creator->nLength != 0;
    }
    if (!level.blockHasCreator)
        report(DICOM_CHECK_PRIVATE_OWNER, DICOM_SEVERITY_ERROR, "no private creator has reserved this block");
}

// ---------------------------------------------------------------- VR and number of values

void ConformanceWalk::CheckVR(const DICOMELEMENT* e, const DICOMTAG* row, const DICOMCURRENTTAG* current) {
    if ((row == nullptr && current == nullptr) || e->nVR == vr::UN)
        return;
    const auto allows = [e](unsigned short code) { return code == e->nVR; };
    if ((row != nullptr && (allows(row->nVR) || row->nVR == 0)) || IsPossibleVR(e->nTag, e->nVR))
        return;
    if (current != nullptr && (allows(current->nVR) || allows(current->nVROther)))
        return;
    std::string allowed = VRText(current != nullptr ? current->nVR : row->nVR);
    if (current != nullptr && current->nVROther != 0)
        allowed += " or " + VRText(current->nVROther);
    const std::string own = VRText(e->nVR);
    Report({DICOM_CHECK_VR, DICOM_SEVERITY_ERROR, e, e->nTag, "the VR is " + own + ", but must be " + allowed, nullptr,
            own, allowed});
}

void ConformanceWalk::CheckMultiplicity(const DICOMELEMENT* e, std::size_t count, const DICOMTAG* row,
                                        const DICOMCURRENTTAG* current) {
    const auto fits = [count](VDicomULong least, VDicomULong most, VDicomULong divide) {
        return count >= least && (most == DICOM_UNDEFINED || count <= most) && (divide <= 1 || count % divide == 0);
    };
    if ((row == nullptr && current == nullptr) || e->nTag == kLUTData)
        return;
    if (row != nullptr && fits(row->nMinVM, row->nMaxVM, row->nDivideVM))
        return;
    if (current != nullptr && fits(current->nMinVM, current->nMaxVM, current->nDivideVM))
        return;
    const VDicomULong least = current != nullptr ? current->nMinVM : row->nMinVM;
    const VDicomULong most = current != nullptr ? current->nMaxVM : row->nMaxVM;
    const VDicomULong divide = current != nullptr ? current->nDivideVM : row->nDivideVM;
    std::string allowed = std::to_string(least);
    if (most == DICOM_UNDEFINED)
        allowed += divide > 1 ? "-" + std::to_string(divide) + "n" : "-n";
    else if (most != least)
        allowed += "-" + std::to_string(most);
    const std::string text = "there " + std::string(count == 1 ? "is 1 value" : "are ") +
                             (count == 1 ? "" : std::to_string(count) + " values") + ", but the multiplicity is " +
                             allowed;
    Report({DICOM_CHECK_MULTIPLICITY, DICOM_SEVERITY_ERROR, e, e->nTag, text, nullptr, {}, allowed});
}

// ---------------------------------------------------------------- values

const std::string& ConformanceWalk::ToUtf8(const DICOMELEMENT* e, const VRTraits& traits, std::string_view bytes,
                                           std::size_t& bad) {
    m_utf8.clear();
    bad = m_state.characterSets.Of(m_state.tree, e).Decode(bytes, KindOf(traits), m_utf8);
    return m_utf8;
}

void ConformanceWalk::ReportValue(unsigned short code, const DICOMELEMENT* e, std::string_view value,
                                  std::string_view allowed, VDicomULong number) {
    const VRTraits* traits = FindVRTraits(e->nVR);
    std::size_t bad = 0;
    const std::string utf8(traits != nullptr ? ToUtf8(e, *traits, value, bad) : std::string(value));
    std::string shown = utf8.substr(0, 64);
    if (shown.size() < utf8.size()) {
        while (!shown.empty() && (static_cast<unsigned char>(utf8[shown.size()]) & 0xC0) == 0x80)
            shown.pop_back();
        shown += "...";
    }
    const std::string text = "value " + std::to_string(std::uint64_t{number} + 1) + ", \"" + shown + "\", is no " +
                             VRText(e->nVR) + ": " + std::string(allowed);
    Report({code, DICOM_SEVERITY_ERROR, e, e->nTag, text, nullptr, utf8, allowed, number});
}

// The number of values; 0 when they cannot be judged further.
std::size_t ConformanceWalk::CheckText(const DICOMELEMENT* e, const VRTraits& traits) {
    RawText raw;
    if (!raw.Read(e)) {
        Report({DICOM_CHECK_UNREADABLE, DICOM_SEVERITY_ERROR, e, e->nTag, "the value cannot be read"});
        return 0;
    }
    bool zeros = false;
    const std::string_view text = WithoutPadding(e->nVR, raw.View(), zeros);
    if (zeros)
        Report({DICOM_CHECK_PADDING, DICOM_SEVERITY_WARNING, e, e->nTag, "padded with zero bytes instead of blanks"});
    if (e->nVR == vr::UI && !text.empty() && text.back() == ' ')
        Report({DICOM_CHECK_PADDING, DICOM_SEVERITY_WARNING, e, e->nTag, "padded with a blank instead of a zero byte"});
    if (text.empty() || m_stopped)
        return 0;
    const bool plain = IsPlain(text);
    if (traits.charset && !plain) {
        std::size_t bad = 0;
        const std::string& utf8 = ToUtf8(e, traits, text, bad);
        if (bad != 0) {
            const std::string shown = utf8;
            Report({DICOM_CHECK_CHARACTER_SET, DICOM_SEVERITY_ERROR, e, e->nTag,
                    std::to_string(bad) + " bytes are no characters of the character set that (0008,0005) declares",
                    nullptr, shown});
        }
    }
    if (e->nTag == kSpecificCharacterSet)
        CheckCharacterSetTerms(e, text);
    const ValueForm form = FindValueForm(e->nVR);
    ValueSplitter splitter(text, FindSplitRule(m_state, e, form, text));
    std::size_t count = 0;
    for (std::string_view value; splitter.Next(value); ++count) {
        if (m_malformed)
            continue; // the first bad one stands for all
        // UIDs of a blank-padded element: the padding has been said.
        if (e->nVR == vr::UI)
            value = TrimValue(value);
        std::size_t characters = value.size();
        if (traits.charset && !plain) {
            std::size_t bad = 0;
            characters = CountCharacters(ToUtf8(e, traits, value, bad));
        }
        const ValueVerdict verdict = CheckTextValue(e->nVR, value, characters);
        if (verdict.fault != ValueFault::none) {
            ReportValue(CodeOf(verdict.fault), e, value, verdict.reason, static_cast<VDicomULong>(count));
            m_malformed = true;
        }
    }
    return m_stopped ? 0 : count;
}

std::size_t ConformanceWalk::CheckBinary(const DICOMELEMENT* e) {
    const std::size_t count = CountBinaryValues(e->nVR, e->nLength);
    if (count == 0) {
        const std::string size = std::to_string(BinaryValueSize(e->nVR));
        Report({DICOM_CHECK_VALUE_LENGTH, DICOM_SEVERITY_ERROR, e, e->nTag,
                "the value has " + std::to_string(e->nLength) + " bytes, no multiple of the " + size + " bytes of " +
                    VRText(e->nVR)});
    }
    return count;
}

void ConformanceWalk::CheckCharacterSetTerms(const DICOMELEMENT* e, std::string_view text) {
    const bool known = CharacterSet(text).IsKnown();
    ValueSplitter splitter(text, SplitRule::Everywhere);
    VDicomULong number = 0;
    for (std::string_view value; splitter.Next(value) && !m_stopped; ++number) {
        value = TrimValue(value);
        const bool defined =
            std::find(std::begin(kCharacterSets), std::end(kCharacterSets), value) != std::end(kCharacterSets) ||
            (value.empty() && number == 0);
        if (defined)
            continue;
        const std::string words = "value " + std::to_string(number + 1) + ", \"" + std::string(value) +
                                  "\", is no defined term" + (known ? "; it is read as what it seems to mean" : "");
        Report({DICOM_CHECK_UNKNOWN_CHARACTER_SET,
                known ? DICOM_SEVERITY_WARNING : DICOM_SEVERITY_ERROR,
                e,
                e->nTag,
                words,
                nullptr,
                value,
                {},
                number});
    }
}

// ---------------------------------------------------------------- what modules say of values and items

void ConformanceWalk::CheckItems(const DICOMELEMENT* e) {
    const ConformanceLevel& level = m_levels.back();
    if (level.rules == nullptr || FirstChildOf(e) == nullptr || e->nTag == kPixelData)
        return; // an empty sequence is missing its value or may be empty
    const LevelRules::Range range = level.rules->Find(e->nTag);
    for (std::size_t i = range.first; i < range.last; ++i) {
        const ElementRule& rule = level.rules->Rules()[i];
        if (m_rules->BindingOf(rule) != Binding::certain)
            continue;
        const ElementFacts& facts = m_rules->FactsOf(rule.node);
        if (facts.minItems <= 1 && facts.maxItems == ElementFacts().maxItems)
            continue;
        const std::size_t items = m_state.tree.CountChildren(e);
        if (items >= facts.minItems && items <= facts.maxItems)
            continue;
        const bool few = items < facts.minItems;
        const std::string allowed = std::to_string(few ? facts.minItems : facts.maxItems);
        const std::string text = "there are " + std::to_string(items) + " items, but in module " +
                                 m_rules->ModuleOf(rule).node->pszName + " there must be " + allowed +
                                 (few ? " at least" : " at most");
        Report({few ? DICOM_CHECK_FEW_ITEMS : DICOM_CHECK_MANY_ITEMS,
                DICOM_SEVERITY_ERROR,
                e,
                e->nTag,
                text,
                &rule,
                {},
                allowed});
        return;
    }
}

void ConformanceWalk::CheckTerms(const DICOMELEMENT* e, std::size_t count) {
    const ConformanceLevel& level = m_levels.back();
    if (level.rules == nullptr || e->nTag == kSpecificCharacterSet)
        return;
    const LevelRules::Range range = level.rules->Find(e->nTag);
    const auto hasTerms = [&](const ElementRule& rule) {
        const ElementFacts& facts = m_rules->FactsOf(rule.node);
        return !facts.enumerated.empty() || !facts.defined.empty();
    };
    const std::vector<ElementRule>& rules = level.rules->Rules();
    if (std::none_of(rules.begin() + static_cast<std::ptrdiff_t>(range.first),
                     rules.begin() + static_cast<std::ptrdiff_t>(range.last), hasTerms))
        return;
    const VRTraits* traits = FindVRTraits(e->nVR);
    constexpr std::size_t most = 64; // values that are looked at
    if (traits == nullptr || !traits->text) {
        for (std::size_t i = 0; i < std::min(count, most) && !m_stopped; ++i) {
            const auto number = static_cast<VDicomULong>(i);
            const std::optional<std::int64_t> value = NumberOf(e, number);
            if (value)
                CheckTerm(e, range, number, std::to_string(*value), value);
        }
        return;
    }
    RawText raw;
    if (!raw.Read(e))
        return;
    ValueSplitter splitter(raw.View(), traits->multiple ? SplitRule::Everywhere : SplitRule::Never);
    VDicomULong number = 0;
    for (std::string_view value; splitter.Next(value) && number < most && !m_stopped; ++number) {
        value = TrimValue(value);
        if (!value.empty())
            CheckTerm(e, range, number, value, std::nullopt);
    }
}

void ConformanceWalk::CheckTerm(const DICOMELEMENT* e, LevelRules::Range range, VDicomULong number,
                                std::string_view value, std::optional<std::int64_t> binary) {
    const auto holds = [&](const std::vector<std::string_view>& terms) {
        return std::any_of(terms.begin(), terms.end(), [&](std::string_view term) {
            std::int64_t wanted = 0;
            if (binary)
                return IsNumber(term, wanted) && wanted == *binary;
            return term == value;
        });
    };
    const ElementRule* undefined = nullptr;
    const std::vector<ElementRule>& rules = m_levels.back().rules->Rules();
    for (std::size_t i = range.first; i < range.last; ++i) {
        const ElementRule& rule = rules[i];
        if (m_rules->BindingOf(rule) != Binding::certain)
            continue;
        const ElementFacts& facts = m_rules->FactsOf(rule.node);
        const DICOMIOD* const module = m_rules->ModuleOf(rule).node;
        if (!facts.enumerated.empty() && IsEnumerationOfToday(rule.tag, module) && !holds(facts.enumerated)) {
            const std::string allowed = Joined(facts.enumerated);
            const std::string text = "value " + std::to_string(number + 1) + ", \"" + std::string(value) +
                                     "\", is none of those that the module " + module->pszName + " allows: " + allowed;
            Report({DICOM_CHECK_ENUMERATED, DICOM_SEVERITY_ERROR, e, e->nTag, text, &rule, value, allowed, number});
            return;
        }
        // Free texts of other VRs often have recommended values alone.
        if (!facts.defined.empty() && e->nVR == vr::CS && undefined == nullptr && !holds(facts.defined))
            undefined = &rule;
    }
    if (undefined == nullptr)
        return;
    const std::string allowed = Joined(m_rules->FactsOf(undefined->node).defined);
    const std::string text = "value " + std::to_string(number + 1) + ", \"" + std::string(value) +
                             "\", is none of the defined terms of the module " +
                             m_rules->ModuleOf(*undefined).node->pszName + ": " + allowed;
    Report({DICOM_CHECK_DEFINED_TERM, DICOM_SEVERITY_NOTE, e, e->nTag, text, undefined, value, allowed, number});
}

} // namespace vdicom
