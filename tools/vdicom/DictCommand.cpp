/// @file DictCommand.cpp
/// vdicom dict: looks entries of the dictionaries up, by code or by a part of the name.

#include "Commands.h"
#include "DictTrees.h"
#include "Message.h"
#include "Needle.h"
#include "Options.h"
#include "Output.h"
#include "TagPath.h"
#include "Vr.h"

#include "VDicomTag.h"
#include "VDicomUID.h"
#include "VDicomVR.h"

#include <fmt/format.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <algorithm>
#include <array>
#include <cctype>

namespace program {

namespace {

constexpr const char* kDescription =
    "Looks up attributes (tag), value representations (vr), unique identifiers (uid), classes with their modules and\n"
    "elements (iod) or context groups with their concepts (cid), by their code or by a part of the name or keyword;\n"
    "upper and lower case do not count. Of attributes and UIDs the built-in tables come first, then what only today's\n"
    "edition of the standard has. A class or context group that is found alone is shown as a tree, several as a list.";

constexpr const char* kFooter = "Examples:\n"
                                "  vdicom dict tag 0010,0010\n"
                                "  vdicom dict tag 'patient age'\n"
                                "  vdicom dict tag '(0029,xx10,\"SIEMENS CSA HEADER\")'\n"
                                "  vdicom dict vr DS\n"
                                "  vdicom dict uid 1.2.840.10008.1.2.1\n"
                                "  vdicom dict uid --json 'ct image'\n"
                                "  vdicom dict iod 'CT Image Storage'\n"
                                "  vdicom dict iod --json 1.2.840.10008.5.1.4.1.1.2\n"
                                "  vdicom dict cid 'CID 29'\n"
                                "  vdicom dict cid laterality\n";

/// One entry found: the texts of a line, and the members of a JSON object.
struct Entry {
    std::vector<std::pair<const char*, std::string>> fields;
    bool retired = false;
};

std::string MaskedTag(VDicomULong code, VDicomULong mask) {
    std::string text = "(";
    for (int shift = 28; shift >= 0; shift -= 4) {
        if (shift == 12)
            text += ',';
        text += ((mask >> shift) & 15) == 0 ? 'x' : "0123456789ABCDEF"[(code >> shift) & 15];
    }
    return text + ")";
}

std::string Multiplicity(VDicomULong least, VDicomULong most, VDicomULong divider) {
    if (most == DICOM_UNDEFINED)
        return divider > 1 ? fmt::format("{}-{}n", least, divider) : fmt::format("{}-n", least);
    return least == most ? fmt::format("{}", least) : fmt::format("{}-{}", least, most);
}

std::string VrText(unsigned short code, unsigned short other = 0) {
    const auto letters = [](unsigned short vr) {
        return std::string{static_cast<char>(vr >> 8), static_cast<char>(vr & 0xFF)};
    };
    if (code == 0)
        return "--";
    return other ? letters(code) + " or " + letters(other) : letters(code);
}

Entry TagEntry(std::string code, std::string vr, std::string multiplicity, std::string_view name,
               std::string_view keyword, bool retired) {
    Entry entry;
    entry.fields = {{"tag", std::move(code)},
                    {"vr", std::move(vr)},
                    {"vm", std::move(multiplicity)},
                    {"name", std::string(name)},
                    {"keyword", std::string(keyword)}};
    entry.retired = retired;
    return entry;
}

Entry CurrentTag(const DICOMCURRENTTAG& row) {
    return TagEntry(MaskedTag(row.nCode, row.nMask), VrText(row.nVR, row.nVROther),
                    Multiplicity(row.nMinVM, row.nMaxVM, row.nDivideVM), row.pszName, row.pszKeyword,
                    row.bRetired != 0);
}

Entry BuiltInTag(const DICOMTAG& row) {
    DICOMCURRENTTAG today{};
    const bool known = VDicomTag::FindCurrent(row.nCode, &today) != 0;
    return TagEntry(MaskedTag(row.nCode, row.nMask), VrText(row.nVR),
                    Multiplicity(row.nMinVM, row.nMaxVM, row.nDivideVM), row.pszName, known ? today.pszKeyword : "",
                    known && today.bRetired);
}

/// The step when the text is a tag and nothing else.
bool IsTagCode(const std::string& text, PathStep& step) {
    TagPath path;
    if (text.empty() || (text[0] != '(' && !std::isxdigit(static_cast<unsigned char>(text[0]))))
        return false;
    if (!ParseTagPath(text, path).empty() || path.steps.size() != 1 || path.steps[0].hasItem)
        return false;
    DICOMCURRENTTAG row;
    if (text[0] != '(' && VDicomTag::FindKeyword(text.c_str(), &row))
        return false;
    step = path.steps[0];
    return true;
}

void FindTags(const std::string& text, std::vector<Entry>& found) {
    PathStep step;
    DICOMCURRENTTAG today;
    if (IsTagCode(text, step)) {
        if (!step.creator.empty()) {
            if (VDicomTag::FindPrivate(step.creator.c_str(), static_cast<VDicomULong>(step.creator.size()), step.tag,
                                       &today))
                found.push_back(TagEntry(MaskedTag(step.tag, step.mask), VrText(today.nVR, today.nVROther),
                                         Multiplicity(today.nMinVM, today.nMaxVM, today.nDivideVM), today.pszName, "",
                                         today.bRetired != 0));
            return;
        }
        if (step.mask == DICOM_UNDEFINED) {
            if (const DICOMTAG* row = VDicomTag::Find(step.tag))
                found.push_back(BuiltInTag(*row));
            else if (VDicomTag::FindCurrent(step.tag, &today))
                found.push_back(CurrentTag(today));
            return;
        }
    }
    const bool byCode = step.mask != DICOM_UNDEFINED;
    const Needle needle(text);
    for (DICOMTAG* row = VDicomTag::GetFirst(); row; row = VDicomTag::GetNext(row)) {
        const bool known = VDicomTag::FindCurrent(row->nCode, &today) != 0;
        if (byCode ? (row->nCode & step.mask) == step.tag
                   : needle.In({row->pszName, known ? today.pszName : "", known ? today.pszKeyword : ""}))
            found.push_back(BuiltInTag(*row));
    }
    for (VDicomULong i = 0; VDicomTag::GetCurrent(i, &today); ++i) {
        if (VDicomTag::Find(today.nCode))
            continue;
        if (byCode ? (today.nCode & step.mask) == step.tag : needle.In({today.pszName, today.pszKeyword}))
            found.push_back(CurrentTag(today));
    }
}

/// VRs that are newer than the built-in table.
struct NewerVr {
    const char* name;
    VDicomULong length;
    unsigned short code;
    bool text;
};

constexpr NewerVr kNewerVrs[] = {
    {"Other Double", 0, vr::OD, false},
    {"Other Long", 0, vr::OL, false},
    {"Other 64-bit Very Long", 0, vr::OV, false},
    {"Signed 64-bit Very Long", 8, vr::SV, false},
    {"Unlimited Characters", 0, vr::UC, true},
    {"Universal Resource Identifier or Locator", 0, vr::UR, true},
    {"Unsigned 64-bit Very Long", 8, vr::UV, false},
};

Entry VrEntry(unsigned short code, std::string_view name, VDicomULong length, bool most, std::string_view kind) {
    Entry entry;
    entry.fields = {{"vr", VrText(code)}, {"name", std::string(name)}, {"kind", std::string(kind)}};
    const bool limited = length > 0 && length < 0xFFFFFFF0U;
    entry.fields.emplace_back("length", !limited ? std::string("any length")
                                                 : fmt::format("{}{} bytes", most ? "at most " : "", length));
    return entry;
}

std::string_view KindOf(unsigned short restriction) {
    if (restriction & DICOM_VR_SEQUENCE)
        return "sequence";
    if (restriction & DICOM_VR_TEXT)
        return "text, one value";
    return restriction & DICOM_VR_STRING ? "text, values divided by backslashes" : "binary";
}

void FindVrs(const std::string& text, std::vector<Entry>& found) {
    const bool isCode = text.size() == 2;
    const Needle needle(text);
    const auto matches = [&](unsigned short code, std::string_view name) {
        return isCode ? Lower(VrText(code)) == Lower(text) : needle.In({name});
    };
    for (DICOMVR* row = VDicomVR::GetFirst(); row; row = VDicomVR::GetNext(row)) {
        if (matches(row->nCode, row->pszName))
            found.push_back(VrEntry(row->nCode, row->pszName, row->nLength, (row->nRestrict & DICOM_VR_MAXIMUM) != 0,
                                    KindOf(row->nRestrict)));
    }
    for (const NewerVr& row : kNewerVrs) {
        if (!VDicomVR::Find(row.code) && matches(row.code, row.name))
            found.push_back(VrEntry(row.code, row.name, row.length, false,
                                    !row.text            ? "binary"
                                    : row.code == vr::UR ? "text, one value"
                                                         : "text, values divided by backslashes"));
    }
}

std::string_view UidKind(VDicomLong type) {
    constexpr std::array<std::string_view, 7> kinds = {
        "other",          "transfer syntax", "transfer syntax",    "SOP class",
        "meta SOP class", "SOP instance",    "application context"};
    return type >= 0 && static_cast<std::size_t>(type) < kinds.size() ? kinds[static_cast<std::size_t>(type)] : "other";
}

Entry UidEntry(std::string_view uid, std::string_view kind, std::string_view name, std::string_view keyword,
               bool retired) {
    Entry entry;
    entry.fields = {{"uid", std::string(uid)},
                    {"type", std::string(kind)},
                    {"name", std::string(name)},
                    {"keyword", std::string(keyword)}};
    entry.retired = retired;
    return entry;
}

void FindUids(const std::string& text, std::vector<Entry>& found) {
    // A whole UID means itself, not those that begin with it.
    DICOMCURRENTUID today{};
    const bool exact = VDicomUID::Find(text.c_str()) || VDicomUID::FindCurrent(text.c_str(), &today);
    const Needle needle(text);
    for (DICOMUID* row = VDicomUID::GetFirst(); row; row = VDicomUID::GetNext(row)) {
        const bool known = VDicomUID::FindCurrent(row->pszCode, &today) != 0;
        if (exact ? row->pszCode == text
                  : needle.In({row->pszCode, row->pszName, known ? today.pszName : "", known ? today.pszKeyword : ""}))
            found.push_back(UidEntry(row->pszCode, UidKind(row->nType), row->pszName, known ? today.pszKeyword : "",
                                     known && today.bRetired));
    }
    for (VDicomULong i = 0; VDicomUID::GetCurrent(i, &today); ++i) {
        if (VDicomUID::Find(today.pszCode))
            continue;
        if (exact ? today.pszCode == text : needle.In({today.pszCode, today.pszName, today.pszKeyword}))
            found.push_back(
                UidEntry(today.pszCode, today.pszType, today.pszName, today.pszKeyword, today.bRetired != 0));
    }
}

void WriteLines(const std::vector<Entry>& found, Output& out) {
    // Columns as wide as their widest text, but for the last.
    std::vector<std::size_t> widths;
    for (const Entry& entry : found) {
        widths.resize(std::max(widths.size(), entry.fields.size()));
        for (std::size_t i = 0; i < entry.fields.size(); ++i)
            widths[i] = std::max(widths[i], entry.fields[i].second.size());
    }
    for (const Entry& entry : found) {
        std::string line;
        for (std::size_t i = 0; i < entry.fields.size(); ++i)
            line += fmt::format("{:<{}}  ", entry.fields[i].second, widths[i]);
        if (entry.retired)
            line += "(retired)";
        line.erase(line.find_last_not_of(' ') + 1);
        out.Put(line);
        out.Put('\n');
        out.FlushFull();
    }
}

void WriteJson(const std::vector<Entry>& found, Output& out) {
    rapidjson::StringBuffer buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    writer.SetIndent(' ', 2);
    writer.StartArray();
    for (const Entry& entry : found) {
        writer.StartObject();
        for (const auto& [name, value] : entry.fields) {
            writer.Key(name);
            writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
        }
        writer.Key("retired");
        writer.Bool(entry.retired);
        writer.EndObject();
    }
    writer.EndArray();
    out.Put({buffer.GetString(), buffer.GetSize()});
    out.Put('\n');
}

} // namespace

int RunDict(int count, const char* const* arguments) {
    std::vector<std::string> words;
    bool json = false;
    Options options("dict", "[OPTIONS] tag|vr|uid|iod|cid TEXT", kDescription, kFooter);
    options.Arguments("TEXT", words, 2, "the table, then a code or a part of a name");
    options.Flag("-j,--json", json, "a JSON array of objects");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    // "dict tag patient age" means one text.
    std::string text = words[1];
    for (std::size_t i = 2; i < words.size(); ++i)
        text += " " + words[i];
    Output out(DICOM_STDOUT);
    const auto end = [&](bool anything) {
        if (!out.Flush())
            return ReportOutputFailure(out);
        if (!anything) {
            Say(fmt::format("nothing is known as '{}'", text));
            return static_cast<int>(kInputFailed);
        }
        return static_cast<int>(kDone);
    };
    if (words[0] == "iod")
        return end(WriteClasses(text, json, out));
    if (words[0] == "cid")
        return end(WriteContextGroups(text, json, out));
    std::vector<Entry> found;
    if (words[0] == "tag")
        FindTags(text, found);
    else if (words[0] == "vr")
        FindVrs(text, found);
    else if (words[0] == "uid")
        FindUids(text, found);
    else
        return options.Wrong(fmt::format("'{}' is no table; there are tag, vr, uid, iod and cid", words[0]));

    if (json)
        WriteJson(found, out);
    else
        WriteLines(found, out);
    return end(!found.empty());
}

} // namespace program
