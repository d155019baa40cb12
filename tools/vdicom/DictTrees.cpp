#include "DictTrees.h"

#include "Needle.h"
#include "Output.h"

#include "VDicomContextGroup.h"
#include "VDicomIOD.h"
#include "VDicomTag.h"
#include "VDicomUID.h"

#include <fmt/format.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <array>
#include <new>
#include <vector>

namespace program {

namespace {

using JsonWriter = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void Member(JsonWriter& writer, const char* name, std::string_view value) {
    writer.Key(name);
    writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
}

void PutLine(Output& out, std::size_t level, std::string_view line) {
    out.Repeat(' ', 2 * level);
    out.Put(line.substr(0, line.find_last_not_of(' ') + 1));
    out.Put('\n');
    out.FlushFull();
}

/// Writes a JSON array of what `write` makes of each entry, one entry in memory at a time.
template <class Record, class Write> void WriteArray(const std::vector<Record*>& found, Output& out, Write write) {
    rapidjson::StringBuffer buffer;
    JsonWriter writer(buffer);
    writer.SetIndent(' ', 2);
    const auto flush = [&] {
        out.Put({buffer.GetString(), buffer.GetSize()});
        out.FlushFull();
        buffer.Clear();
    };
    writer.StartArray();
    for (Record* record : found) {
        write(writer, record);
        flush();
    }
    writer.EndArray();
    flush();
    out.Put('\n');
}

// ---------------------------------------------------------------- classes

std::vector<std::string_view> Uids(const DICOMIOD* node) {
    std::vector<std::string_view> uids;
    std::string_view rest = node->pszDescription;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\\'), rest.size());
        uids.push_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return uids;
}

/// What a usage code means: of a module, a key of a query level, or an element.
std::string_view UsageText(const DICOMIOD* node) {
    constexpr std::array<std::string_view, 3> modules = {"M", "C", "U"};
    constexpr std::array<std::string_view, 8> elements = {"unique", "required", "optional", "1", "1C", "2", "2C", "3"};
    if (node->nType == DICOM_IOD_MODULE)
        return node->nUsage < modules.size() ? modules[node->nUsage] : "?";
    return node->nUsage < elements.size() ? elements[node->nUsage] : "?";
}

std::string TagText(const DICOMIOD* node) {
    const VDicomULong tag = node->nCode;
    return fmt::format("({:04X},{:04X})", tag >> 16, tag & 0xFFFF);
}

std::string VrText(const DICOMIOD* node) {
    const DICOMTAG* tag = VDicomTag::Find(node->nCode);
    return tag == nullptr ? "--" : std::string{static_cast<char>(tag->nVR >> 8), static_cast<char>(tag->nVR & 0xFF)};
}

bool IsClass(const Needle& needle, const DICOMIOD* node) {
    for (const std::string_view uid : Uids(node)) {
        DICOMCURRENTUID today{};
        const bool known = VDicomUID::FindCurrent(std::string(uid).c_str(), &today) != 0;
        if (needle.Is(uid) || (known && needle.Is(today.pszKeyword)))
            return true;
    }
    return needle.Is(node->pszName) || needle.Is(std::to_string(node->nCode));
}

bool IsLikeClass(const Needle& needle, const DICOMIOD* node) {
    for (const std::string_view uid : Uids(node)) {
        DICOMCURRENTUID today{};
        const bool known = VDicomUID::FindCurrent(std::string(uid).c_str(), &today) != 0;
        if (needle.In({uid, known ? today.pszKeyword : ""}))
            return true;
    }
    return needle.In({node->pszName});
}

std::string ClassLine(const DICOMIOD* node) {
    std::string line = fmt::format("{:<3}  {}", std::uint32_t{node->nCode}, std::string_view(node->pszName));
    for (const std::string_view uid : Uids(node))
        line += fmt::format("  {}", uid);
    return line;
}

// As deep as the table is: a few levels, and the library allows no more than 128 from rows.
void WriteBelow(DICOMIOD* parent, std::size_t level, Output& out) {
    for (DICOMIOD* node = VDicomIOD::GetChild(parent); node != nullptr; node = VDicomIOD::GetNext(node, 1)) {
        const std::string_view name = node->pszName;
        if (node->nType == DICOM_IOD_MODULE)
            PutLine(out, level, fmt::format("{}  {} module ({})", UsageText(node), name, std::uint32_t{node->nCode}));
        else
            PutLine(out, level,
                    fmt::format("{} {} {:<2} {}  {}", TagText(node), VrText(node), UsageText(node), name,
                                std::string_view(node->pszDescription)));
        WriteBelow(node, level + 1, out);
    }
}

void WriteBelow(JsonWriter& writer, DICOMIOD* parent) {
    for (const signed char type : {DICOM_IOD_MODULE, DICOM_IOD_ELEMENT}) {
        const bool isModule = type == DICOM_IOD_MODULE;
        bool open = false;
        for (DICOMIOD* node = VDicomIOD::GetChild(parent); node != nullptr; node = VDicomIOD::GetNext(node, 1)) {
            if (node->nType != type)
                continue;
            if (!open) {
                writer.Key(isModule ? "modules" : "elements");
                writer.StartArray();
                open = true;
            }
            writer.StartObject();
            if (isModule) {
                writer.Key("module");
                writer.Uint(node->nCode);
            } else {
                Member(writer, "tag", TagText(node));
                Member(writer, "vr", VrText(node));
            }
            Member(writer, "name", node->pszName);
            const bool isKey = !isModule && node->nUsage <= DICOM_KEY_OPTIONAL;
            Member(writer, isModule ? "usage" : isKey ? "key" : "type", UsageText(node));
            if (*node->pszDescription != '\0')
                Member(writer, "description", node->pszDescription);
            WriteBelow(writer, node);
            writer.EndObject();
        }
        if (open)
            writer.EndArray();
    }
}

// ---------------------------------------------------------------- context groups

/// A built-in group and its place among the built-in ones.
struct Group {
    DICOMCONTEXTGROUP* record;
    VDicomULong row;
};

std::vector<Group> Included(const Group& group) {
    std::vector<Group> included;
    for (VDicomULong i = 0; const char* cid = VDicomContextGroup::GetIncluded(group.row, i); ++i) {
        VDicomULong row = 0;
        while (VDicomContextGroup::GetBuiltIn(row) != cid)
            ++row;
        included.push_back({VDicomContextGroup::Find(cid), row});
    }
    return included;
}

/// The concepts that are not included ones; those stand behind them.
std::vector<DICOMCODEDCONCEPT*> OwnConcepts(const Group& group) {
    VDicomULong own = VDicomContextGroup::GetCountCodedConcept(group.record);
    for (const Group& other : Included(group))
        own -= VDicomContextGroup::GetCountCodedConcept(other.record);
    std::vector<DICOMCODEDCONCEPT*> concepts;
    for (DICOMCODEDCONCEPT* at = VDicomContextGroup::GetFirstCodedConcept(group.record);
         at != nullptr && concepts.size() < own; at = VDicomContextGroup::GetNextCodedConcept(at))
        concepts.push_back(at);
    return concepts;
}

std::string VersionText(const DICOMCONTEXTGROUP* record) {
    const VALUEDATETIME version = *record->pVersion;
    return fmt::format("{:04}-{:02}-{:02}", +version.nYear, +version.nMonth, +version.nDay);
}

std::string GroupLine(const DICOMCONTEXTGROUP* record) {
    return fmt::format("{}  {}  ({}, {})", std::string_view(record->pszContextIdentifier),
                       std::string_view(record->pszName), record->bExtensible != 0 ? "extensible" : "not extensible",
                       VersionText(record));
}

void WriteBelow(const Group& group, std::size_t level, Output& out) {
    const auto concepts = OwnConcepts(group);
    std::size_t designatorWidth = 0;
    std::size_t valueWidth = 0;
    for (const DICOMCODEDCONCEPT* codedConcept : concepts) {
        designatorWidth = std::max(designatorWidth, std::string_view(codedConcept->pszCodingSchemeDesignator).size());
        valueWidth = std::max(valueWidth, std::string_view(codedConcept->pszCodeValue).size());
    }
    for (const DICOMCODEDCONCEPT* codedConcept : concepts)
        PutLine(out, level,
                fmt::format("{:<{}}  {:<{}}  {}", std::string_view(codedConcept->pszCodingSchemeDesignator),
                            designatorWidth, std::string_view(codedConcept->pszCodeValue), valueWidth,
                            std::string_view(codedConcept->pszCodeMeaning)));
    for (const Group& other : Included(group)) {
        PutLine(out, level, "includes " + GroupLine(other.record));
        WriteBelow(other, level + 1, out);
    }
}

void WriteGroup(JsonWriter& writer, const Group& group) {
    writer.StartObject();
    Member(writer, "cid", group.record->pszContextIdentifier);
    Member(writer, "name", group.record->pszName);
    writer.Key("extensible");
    writer.Bool(group.record->bExtensible != 0);
    Member(writer, "version", VersionText(group.record));
    writer.Key("concepts");
    writer.StartArray();
    for (const DICOMCODEDCONCEPT* codedConcept : OwnConcepts(group)) {
        writer.StartObject();
        Member(writer, "designator", codedConcept->pszCodingSchemeDesignator);
        Member(writer, "value", codedConcept->pszCodeValue);
        Member(writer, "meaning", codedConcept->pszCodeMeaning);
        writer.EndObject();
    }
    writer.EndArray();
    writer.Key("includes");
    writer.StartArray();
    for (const Group& other : Included(group))
        WriteGroup(writer, other);
    writer.EndArray();
    writer.EndObject();
}

} // namespace

std::vector<DICOMIOD*> FindClasses(const std::string& text) {
    // A whole number, UID, keyword or name means itself, not those that hold it.
    const Needle needle(text);
    std::vector<DICOMIOD*> found;
    std::vector<DICOMIOD*> alike;
    for (DICOMIOD* node = VDicomIOD::GetFirst(nullptr, 1); node != nullptr; node = VDicomIOD::GetNext(node, 1)) {
        if (IsClass(needle, node))
            found.push_back(node);
        else if (IsLikeClass(needle, node))
            alike.push_back(node);
    }
    return found.empty() ? alike : found;
}

bool WriteClasses(const std::string& text, bool json, Output& out) {
    const std::vector<DICOMIOD*> found = FindClasses(text);
    if (json) {
        WriteArray(found, out, [](JsonWriter& writer, DICOMIOD* node) {
            writer.StartObject();
            writer.Key("class");
            writer.Uint(node->nCode);
            Member(writer, "name", node->pszName);
            writer.Key("uids");
            writer.StartArray();
            for (const std::string_view uid : Uids(node))
                writer.String(uid.data(), static_cast<rapidjson::SizeType>(uid.size()));
            writer.EndArray();
            WriteBelow(writer, node);
            writer.EndObject();
        });
        return !found.empty();
    }
    for (const DICOMIOD* node : found)
        PutLine(out, 0, ClassLine(node));
    if (found.size() == 1)
        WriteBelow(found.front(), 1, out);
    return !found.empty();
}

bool WriteContextGroups(const std::string& text, bool json, Output& out) {
    if (VDicomContextGroup::Load(nullptr) != DICOM_OK)
        throw std::bad_alloc();
    const Needle needle(text);
    const Needle number("CID " + text);
    std::vector<Group> found;
    std::vector<Group> alike;
    for (VDicomULong row = 0; const char* cid = VDicomContextGroup::GetBuiltIn(row); ++row) {
        DICOMCONTEXTGROUP* record = VDicomContextGroup::Find(cid);
        if (needle.Is(cid) || number.Is(cid) || needle.Is(record->pszName))
            found.push_back({record, row});
        else if (needle.In({record->pszName}))
            alike.push_back({record, row});
    }
    if (found.empty())
        found.swap(alike);
    if (json) {
        std::vector<const Group*> groups;
        groups.reserve(found.size());
        for (const Group& group : found)
            groups.push_back(&group);
        WriteArray(groups, out, [](JsonWriter& writer, const Group* group) { WriteGroup(writer, *group); });
        return !found.empty();
    }
    for (const Group& group : found)
        PutLine(out, 0, GroupLine(group.record));
    if (found.size() == 1)
        WriteBelow(found.front(), 1, out);
    return !found.empty();
}

} // namespace program
