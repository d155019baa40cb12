/// @file NewCommand.cpp
/// vdicom new: makes an object of a class.

#include "ClassChoice.h"
#include "Commands.h"
#include "DictTrees.h"
#include "Input.h"
#include "Message.h"
#include "Needle.h"
#include "ObjectMaker.h"
#include "Options.h"
#include "Output.h"
#include "Writing.h"

#include "VDicomUID.h"

#include <fmt/format.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

namespace program {

namespace {

constexpr const char* kDescription =
    "Makes an object of a class with its mandatory content: elements of type 1 get new UIDs, the values of --set, and\n"
    "what the class leaves no choice about; elements of type 2 are there and empty. What still needs a value is named\n"
    "on standard error. Conditional and optional modules come with the first of their elements that is set.\n"
    "An existing file OUT is replaced, as a whole or not at all. A level of the query/retrieve models makes an\n"
    "identifier without Part 10 header.";

constexpr const char* kFooter =
    "The class is a number of the table, a SOP class UID, a keyword, or a name or its beginning, if no other class "
    "has\n"
    "it; 'vdicom dict iod TEXT' finds classes and shows what they hold. PATH and VALUE are those of 'vdicom edit'.\n\n"
    "Examples:\n"
    "  vdicom new --class 'CT Image Storage' object.dcm --set PatientName=Doe^Jane --set Rows=512\n"
    "  vdicom new --class 1.2.840.10008.5.1.4.1.1.7 --no-optional object.dcm\n"
    "  vdicom new --class SecondaryCaptureImageStorage --set PixelData=@pixels.raw object.dcm\n"
    "  vdicom new --class 'Study Root Query/Retrieve - Study Level' --set PatientID=4711 query.dcm\n";

void WriteReport(const std::string& path, const DICOMIOD* definition, VDicomDS& ds,
                 const std::vector<MissingValue>& missing, Output& out) {
    rapidjson::StringBuffer buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    writer.SetIndent(' ', 2);
    const auto member = [&writer](const char* name, std::string_view value) {
        writer.Key(name);
        writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    };
    const auto text = [&ds](VDicomULong tag) {
        const char* value = ds.GetStringValue(ds.FindFirstElement(nullptr, tag, 1), 0, 1);
        return value ? value : "";
    };
    writer.StartObject();
    member("file", path);
    writer.Key("class");
    writer.Uint(definition->nCode);
    member("name", definition->pszName);
    member("sopClassUID", text(0x00080016));
    member("sopInstanceUID", text(0x00080018));
    writer.Key("missing");
    writer.StartArray();
    for (const MissingValue& value : missing) {
        writer.StartObject();
        member("path", value.path);
        member("tag", fmt::format("({:04X},{:04X})", value.tag >> 16, value.tag & 0xFFFF));
        member("name", value.name);
        writer.EndObject();
    }
    writer.EndArray();
    writer.EndObject();
    out.Put({buffer.GetString(), buffer.GetSize()});
    out.Put('\n');
}

} // namespace

int RunNew(int count, const char* const* arguments) {
    std::string className;
    std::vector<std::string> files, sets;
    bool noOptional = false;
    bool json = false;
    Options options("new", "--class NAME|UID|NUMBER [OPTIONS] OUT", kDescription, kFooter);
    options.Arguments("OUT", files, 1, "the file to write, '-' for standard output");
    options.Text("-c,--class", className, "NAME|UID|NUMBER", "the class of the object");
    options.Texts("-s,--set", sets, "PATH=VALUE", "set an element; may be given several times");
    options.Flag("-n,--no-optional", noOptional,
                 "without date and time of the making; of a query level without optional keys");
    options.Flag("-j,--json", json, "say as JSON what was made and what still needs a value");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    if (files.size() != 1)
        return options.Wrong("one output is needed");
    if (!options.Given("--class"))
        return options.Wrong("the class is missing; give --class");
    const std::string& path = files.front();
    if (json && IsStandard(path))
        return options.Wrong("the object and --json cannot both go to standard output");
    std::vector<Change> changes(sets.size());
    for (std::size_t i = 0; i < sets.size(); ++i) {
        if (const std::string wrong = ParseChange(true, sets[i], changes[i]); !wrong.empty())
            return options.Wrong(fmt::format("--set {}: {}", sets[i], wrong));
    }
    int status = kDone;
    DICOMIOD* definition = ChooseClass(className, options, status);
    if (!definition)
        return status;

    const std::string name = IsStandard(path) ? "standard output" : path;
    VDicomDS ds;
    ObjectMaker maker(ds, definition, !noOptional);
    if (const std::string wrong = maker.Make(changes); !wrong.empty()) {
        Say(name, wrong + "; nothing was written");
        return kInputFailed;
    }
    const unsigned short flags = maker.IsQueryLevel() ? DICOM_FLAG_BARE : DICOM_FLAG_PART10;
    if (const std::string wrong = SaveTo(ds, path, flags | DICOM_TS_EXPLICIT_LITTLE); !wrong.empty()) {
        Say(name, wrong);
        return kInputFailed;
    }
    const std::vector<MissingValue> missing = maker.Missing();
    if (json) {
        Output out(DICOM_STDOUT);
        WriteReport(path, definition, ds, missing, out);
        return out.Flush() ? kDone : ReportOutputFailure(out);
    }
    if (!missing.empty()) {
        Say(name, fmt::format("{} still {} a value (type 1); give {} with --set, here or in 'vdicom edit':",
                              missing.size() == 1 ? "one element" : fmt::format("{} elements", missing.size()),
                              missing.size() == 1 ? "needs" : "need", missing.size() == 1 ? "it" : "them"));
        for (const MissingValue& value : missing)
            SayPlain(fmt::format("  ({:04X},{:04X})  {}", value.tag >> 16, value.tag & 0xFFFF, value.path));
    }
    return kDone;
}

} // namespace program
