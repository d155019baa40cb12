#include "ObjectMaker.h"

#include "EditValue.h"
#include "Vr.h"

#include "VDicomUID.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <ctime>
#include <new>

namespace program {

namespace {

constexpr VDicomULong kInstanceCreationDate = 0x00080012, kInstanceCreationTime = 0x00080013, kModality = 0x00080060,
                      kQueryLevel = 0x00080052, kDimensionOrganization = 0x00209164, kDirectoryRecords = 0x00041220;

/// What every object has of its own, at the top level: UIDs that are made with it. One in an item names another object.
constexpr std::array<VDicomULong, 6> kOwnUids = {0x00080018,  // SOP Instance
                                                 0x00081195,  // Transaction
                                                 0x0020000D,  // Study Instance
                                                 0x0020000E,  // Series Instance
                                                 0x00200052,  // Frame of Reference
                                                 0x00200200}; // Synchronization Frame of Reference

/// Modalities that follow from the class where its modules leave several (PS3.3 A).
struct ClassModality {
    const char* uid;
    const char* modality;
};
constexpr ClassModality kModalities[] = {
    {"1.2.840.10008.5.1.4.1.1.1", "CR"},           {"1.2.840.10008.5.1.4.1.1.2", "CT"},
    {"1.2.840.10008.5.1.4.1.1.4", "MR"},           {"1.2.840.10008.5.1.4.1.1.4.1", "MR"},
    {"1.2.840.10008.5.1.4.1.1.4.2", "MR"},         {"1.2.840.10008.5.1.4.1.1.20", "NM"},
    {"1.2.840.10008.5.1.4.1.1.5", "NM"},           {"1.2.840.10008.5.1.4.1.1.3", "US"},
    {"1.2.840.10008.5.1.4.1.1.6", "US"},           {"1.2.840.10008.5.1.4.1.1.6.1", "US"},
    {"1.2.840.10008.5.1.4.1.1.3.1", "US"},         {"1.2.840.10008.5.1.4.1.1.12.1", "XA"},
    {"1.2.840.10008.5.1.4.1.1.12.2", "RF"},        {"1.2.840.10008.5.1.4.1.1.128", "PT"},
    {"1.2.840.10008.5.1.4.1.1.481.1", "RTIMAGE"},  {"1.2.840.10008.5.1.4.1.1.481.2", "RTDOSE"},
    {"1.2.840.10008.5.1.4.1.1.481.3", "RTSTRUCT"}, {"1.2.840.10008.5.1.4.1.1.481.4", "RTRECORD"},
    {"1.2.840.10008.5.1.4.1.1.481.5", "RTPLAN"},   {"1.2.840.10008.5.1.4.1.1.481.6", "RTRECORD"},
    {"1.2.840.10008.5.1.4.1.1.481.7", "RTRECORD"}, {"1.2.840.10008.5.1.4.1.1.9.1.1", "ECG"},
    {"1.2.840.10008.5.1.4.1.1.9.1.2", "ECG"},      {"1.2.840.10008.5.1.4.1.1.9.1.3", "ECG"},
    {"1.2.840.10008.5.1.4.1.1.9.2.1", "HD"},       {"1.2.840.10008.5.1.4.1.1.9.3.1", "EPS"},
    {"1.2.840.10008.5.1.4.1.1.9.4.1", "AU"},       {"1.2.840.10008.5.1.4.1.1.77.1.1", "ES"},
    {"1.2.840.10008.5.1.4.1.1.77.1.1.1", "ES"},    {"1.2.840.10008.5.1.4.1.1.77.1.2", "GM"},
    {"1.2.840.10008.5.1.4.1.1.77.1.2.1", "GM"},    {"1.2.840.10008.5.1.4.1.1.77.1.3", "SM"},
    {"1.2.840.10008.5.1.4.1.1.77.1.4", "XC"},      {"1.2.840.10008.5.1.4.1.1.77.1.4.1", "XC"}};

DICOMIOD* Child(DICOMIOD* entry) { return VDicomIOD::GetChild(entry); }
DICOMIOD* Next(DICOMIOD* entry) { return VDicomIOD::GetNext(entry, 1); }
bool IsElement(const DICOMIOD* entry) { return entry->nType == DICOM_IOD_ELEMENT; }

template <class Work> void ForEachElement(DICOMIOD* parent, Work work) {
    for (DICOMIOD* entry = Child(parent); entry != nullptr; entry = Next(entry)) {
        if (IsElement(entry))
            work(entry);
    }
}

/// The value of an element that may have one only: "Enumerated values: 0000H" in its description. Empty: none, several.
std::string OnlyValue(std::string_view description) {
    constexpr std::string_view before = "Enumerated values: ";
    const std::size_t at = description.find(before);
    if (at == std::string_view::npos)
        return {};
    std::string_view value = description.substr(at + before.size());
    value = value.substr(0, value.find(';'));
    if (value.find(',') != std::string_view::npos)
        return {};
    return std::string(value);
}

/// Numbers stand as "0001" or "0000H" in the table.
std::string AsNumber(std::string text) {
    if (text.size() > 1 && text.back() == 'H')
        return "0x" + text.substr(0, text.size() - 1);
    return text;
}

bool IsEmpty(const DICOMELEMENT* e) { return HasChildren(e) ? FirstChild(e) == nullptr : e->nLength == 0; }

} // namespace

ObjectMaker::ObjectMaker(VDicomDS& ds, DICOMIOD* definition, bool withOptional)
    : m_ds(ds), m_definition(definition), m_withOptional(withOptional) {}

bool ObjectMaker::IsQueryLevel() const { return *m_definition->pszDescription == '\0'; }

std::string ObjectMaker::Make(const std::vector<Change>& changes) {
    const bool isDirectory = m_definition->nCode == DICOM_CLASS_BASIC_DIRECTORY;
    // The records of a directory come later; what else it has is made by the library.
    unsigned int code = m_ds.InitDS(isDirectory ? m_definition->nCode : DICOM_NO_CLASS, DICOM_FLAG_NO_OPTIONAL);
    if (code == DICOM_OK)
        code = m_ds.SetClass(m_definition->nCode);
    if (code != DICOM_OK)
        return GetErrorText(code);
    ChooseModules(changes);
    const auto complete = [this] {
        return std::all_of(m_entries.begin(), m_entries.end(),
                           [this](DICOMIOD* entry) { return Complete(entry, nullptr); });
    };
    if (!complete())
        return GetErrorText(DICOM_ERROR_MEMORY);
    const bool isAscii = std::all_of(changes.begin(), changes.end(), [](const Change& change) {
        return std::all_of(change.value.begin(), change.value.end(), [](char c) { return (c & 0x80) == 0; });
    });
    if (!isAscii) {
        if (std::string wrong = SetText(kSpecificCharacterSet, "ISO_IR 192"); !wrong.empty())
            return wrong;
    }
    ElementEditor editor(m_ds);
    for (const Change& change : changes) {
        if (const std::string wrong = editor.Apply(change); !wrong.empty())
            return fmt::format("{}: {}", change.path.text, wrong);
    }
    // The changes may have made items.
    if (!complete())
        return GetErrorText(DICOM_ERROR_MEMORY);
    for (DICOMIOD* entry : m_entries) {
        if (std::string wrong = FillBelow(entry, nullptr); !wrong.empty())
            return wrong;
    }
    return m_withOptional ? SetMakingTime() : std::string();
}

void ObjectMaker::ChooseModules(const std::vector<Change>& changes) {
    if (Child(m_definition) != nullptr && IsElement(Child(m_definition))) {
        m_entries = {m_definition};
        return;
    }
    std::map<VDicomULong, std::vector<DICOMIOD*>> listers;
    for (DICOMIOD* module = Child(m_definition); module != nullptr; module = Next(module))
        ForEachElement(module, [&](const DICOMIOD* entry) { listers[entry->nCode].push_back(module); });
    const auto isChosen = [&](const DICOMIOD* module) {
        // An element that several modules list speaks for none of them.
        return std::any_of(changes.begin(), changes.end(), [&](const Change& change) {
            const auto found = listers.find(change.path.steps.front().tag);
            return found != listers.end() && found->second.size() == 1 && found->second.front() == module;
        });
    };
    for (DICOMIOD* module = Child(m_definition); module != nullptr; module = Next(module)) {
        if (module->nType == DICOM_IOD_MODULE && (module->nUsage == DICOM_MODULE_MANDATORY || isChosen(module)))
            m_entries.push_back(module);
    }
}

bool ObjectMaker::IsMandatory(const DICOMIOD* entry) const {
    if (IsQueryLevel())
        return m_withOptional || entry->nUsage != DICOM_KEY_OPTIONAL;
    return entry->nUsage == DICOM_ELEMENT_1 || entry->nUsage == DICOM_ELEMENT_2;
}

/// Inserts what is mandatory at a level, and in all items there. @return false when memory ran out
bool ObjectMaker::Complete(DICOMIOD* entry, DICOMELEMENT* parent) {
    bool good = true;
    ForEachElement(entry, [&](DICOMIOD* child) {
        DICOMELEMENT* e = m_ds.FindFirstElement(parent, child->nCode, 1);
        if (!e && good && IsMandatory(child)) {
            // A sequence of type 2 may be empty; keys in items are asked for by their item.
            const bool hasItem = IsQueryLevel() || child->nUsage == DICOM_ELEMENT_1;
            const bool isSequence = Child(child) != nullptr;
            e = Insert(child, parent, isSequence, isSequence && hasItem && child->nCode != kDirectoryRecords);
            good = e != nullptr;
        }
        if (!e || !HasChildren(e) || child->nCode == kDirectoryRecords)
            return;
        for (DICOMELEMENT* item = FirstChild(e); item && good; item = NextSibling(item))
            good = Complete(child, item);
    });
    return good;
}

DICOMELEMENT* ObjectMaker::Insert(const DICOMIOD* entry, DICOMELEMENT* parent, bool isSequence, bool withItem) {
    const unsigned short code = isSequence ? vr::SQ : m_ds.GetDefaultVR(parent, entry->nCode, 0);
    DICOMELEMENT* e = m_ds.InsertElement(parent, 1, entry->nCode, code, 0, 0);
    if (e && withItem && !m_ds.InsertElement(e, 1, kItem, 0, 1, 0))
        return nullptr;
    return e;
}

/// Gives values to elements of type 1 that are empty, where they are facts.
std::string ObjectMaker::FillBelow(DICOMIOD* entry, DICOMELEMENT* parent) {
    std::string wrong;
    ForEachElement(entry, [&](DICOMIOD* child) {
        DICOMELEMENT* e = m_ds.FindFirstElement(parent, child->nCode, 1);
        if (!e || !wrong.empty())
            return;
        if (HasChildren(e)) {
            for (DICOMELEMENT* item = FirstChild(e); item && wrong.empty(); item = NextSibling(item))
                wrong = FillBelow(child, item);
        } else if (IsEmpty(e) && (child->nUsage == DICOM_ELEMENT_1 || child->nCode == kQueryLevel)) {
            if (std::string text = FactFor(child, parent == nullptr); !text.empty())
                wrong = SetValueFromText(m_ds, e, NatureOf(e->nVR).kind == Kind::number ? AsNumber(text) : text);
        }
    });
    return wrong;
}

std::string ObjectMaker::FactFor(const DICOMIOD* entry, bool isTopLevel) {
    const VDicomULong tag = entry->nCode;
    if (isTopLevel && IsQueryLevel()) {
        // The level stands in the name of the class: "Study Root Query/Retrieve - Series Level".
        const std::string_view name = m_definition->pszName;
        for (const char* level : {"Patient", "Study", "Series", "Image"}) {
            if (tag == kQueryLevel && name.find(fmt::format("- {} Level", level)) != std::string_view::npos) {
                std::string text = level;
                std::transform(text.begin(), text.end(), text.begin(),
                               [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
                return text;
            }
        }
        return {};
    }
    if (tag == kDimensionOrganization ||
        (isTopLevel && std::find(kOwnUids.begin(), kOwnUids.end(), tag) != kOwnUids.end()))
        return NewUid(tag);
    if (tag == kModality && isTopLevel) {
        const auto found =
            std::find_if(std::begin(kModalities), std::end(kModalities), [this](const ClassModality& one) {
                return std::string_view(one.uid) == m_definition->pszDescription;
            });
        if (found != std::end(kModalities))
            return found->modality;
    }
    return OnlyValue(entry->pszDescription);
}

/// The same UID wherever the object names the same thing.
std::string ObjectMaker::NewUid(VDicomULong tag) {
    std::string& uid = m_uids[tag];
    if (uid.empty()) {
        char text[65];
        if (!VDicomUID::Generate(text))
            throw std::bad_alloc();
        uid = text;
    }
    return uid;
}

std::string ObjectMaker::SetText(VDicomULong tag, const std::string& text) {
    DICOMELEMENT* e = m_ds.FindFirstElement(nullptr, tag, 1);
    if (!e)
        e = m_ds.InsertElement(nullptr, 0, tag, 0, 0, 0);
    return e ? SetValueFromText(m_ds, e, text) : GetErrorText(DICOM_ERROR_MEMORY);
}

std::string ObjectMaker::SetMakingTime() {
    const std::time_t now = std::time(nullptr);
    const std::tm local = fmt::localtime(now);
    for (const VDicomULong tag : {kInstanceCreationDate, kInstanceCreationTime}) {
        const bool isListed = std::any_of(m_entries.begin(), m_entries.end(), [tag](DICOMIOD* entry) {
            return entry->nType == DICOM_IOD_MODULE && VDicomIOD::Find(Child(entry), tag, DICOM_IOD_ELEMENT, 1);
        });
        if (!isListed || m_ds.FindFirstElement(nullptr, tag, 1))
            continue;
        const std::string text =
            tag == kInstanceCreationDate ? fmt::format("{:%Y%m%d}", local) : fmt::format("{:%H%M%S}", local);
        if (std::string wrong = SetText(tag, text); !wrong.empty())
            return wrong;
    }
    return {};
}

std::vector<MissingValue> ObjectMaker::Missing() {
    MissingValues missing;
    for (DICOMIOD* entry : m_entries) {
        if (!IsQueryLevel())
            FindMissing(entry, nullptr, {}, {}, missing);
    }
    std::vector<MissingValue> list;
    list.reserve(missing.size());
    for (auto& [place, value] : missing)
        list.push_back(std::move(value));
    return list;
}

void ObjectMaker::FindMissing(DICOMIOD* entry, DICOMELEMENT* parent, const std::string& path, const Place& place,
                              MissingValues& missing) {
    ForEachElement(entry, [&](DICOMIOD* child) {
        DICOMELEMENT* e = m_ds.FindFirstElement(parent, child->nCode, 1);
        if (!e)
            return;
        const std::string_view keyword = m_ds.GetKeywordElement(e);
        const std::string step =
            path +
            (keyword.empty() ? fmt::format("({:04X},{:04X})", e->nTag >> 16, e->nTag & 0xFFFF) : std::string(keyword));
        Place here = place;
        here.push_back(e->nTag);
        if (IsEmpty(e)) {
            if (child->nUsage == DICOM_ELEMENT_1)
                missing.emplace(std::move(here), MissingValue{step, e->nTag, child->pszName});
            return;
        }
        VDicomULong number = 0;
        for (DICOMELEMENT* item = HasChildren(e) ? FirstChild(e) : nullptr; item; item = NextSibling(item), ++number) {
            Place inItem = here;
            inItem.push_back(number);
            FindMissing(child, item, fmt::format("{}[{}].", step, std::uint32_t{number}), inItem, missing);
        }
    });
}

} // namespace program
