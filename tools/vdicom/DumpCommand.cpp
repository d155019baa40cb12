/// @file DumpCommand.cpp
/// vdicom dump: shows data sets, for people or as JSON.

#include "Commands.h"
#include "Input.h"
#include "JsonOut.h"
#include "Message.h"
#include "Options.h"
#include "TextDump.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

namespace program {

namespace {

struct DumpOptions {
    std::vector<std::string> files;
    std::vector<std::string> tags;
    std::string colour = "auto";
    std::uint64_t depth = ~std::uint64_t{0};
    std::uint64_t bulkLimit = ~std::uint64_t{0};
    bool json = false;
    bool pretty = false;
    bool meta = false;
    bool noBulk = false;
    bool full = false;
    bool offsets = false;
    bool recursive = false;
};

constexpr const char* kDescription =
    "Shows data sets, one line per element: tag, value representation, length, name, value.\n"
    "Values are cut to the width of the terminal, elsewhere to 80 columns; --full shows them whole.\n"
    "With --tag and several files there is one line per file: its path and the values, divided by tabs; '-' stands\n"
    "for an element that is not there.";

constexpr const char* kFooter =
    "KEY is a keyword, a tag, or a path of them; without an item number all items are meant:\n"
    "  PatientID   0010,0020   (60xx,0010)   (0029,xx10,\"CREATOR\")\n"
    "  RequestAttributesSequence[0].ScheduledProcedureStepID\n\n"
    "Examples:\n"
    "  vdicom dump image.dcm\n"
    "  vdicom dump --tag PatientID --tag Modality *.dcm\n"
    "  vdicom dump --json --no-bulk --recursive folder > all.json\n"
    "  curl ... | vdicom dump -\n";

/// NO_COLOR (any value) turns colours off unless they are asked for.
bool WantsColour(const std::string& choice) {
    if (choice != "auto")
        return choice == "always";
    const char* none = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return VDicomConsole::IsTerminal(DICOM_STDOUT) != 0 && !(none && *none) &&
           !(terminal && std::string_view(terminal) == "dumb");
}

class Dump {
public:
    Dump(const DumpOptions& options, std::vector<TagPath> paths)
        : m_options(options), m_paths(std::move(paths)), m_out(DICOM_STDOUT),
          m_text(m_input.DataSet(), m_out, Lines()) {
        m_several = options.files.size() > 1 || (options.recursive && IsFolder(options.files.front()));
        m_table = m_several && !m_paths.empty() && !options.json;
        m_flags = options.offsets ? DICOM_FLAG_OFFSETS : 0;
        if (options.json)
            m_json.emplace(m_input.DataSet(), m_out, Json(), m_several);
        // Nothing behind the last element that is asked for needs to be read.
        VDicomULong last = 0;
        for (const TagPath& path : m_paths)
            last = std::max(last, path.LastTag());
        if (!m_paths.empty())
            m_input.DataSet().SetLoadLimit(last);
    }

    int Run() {
        const auto report = [this](const std::string& path) { DumpFile(path); };
        if (!ReportEach(m_options.files, m_options.recursive, m_out, report))
            m_failed = true;
        if (m_json)
            m_json->End();
        if (!m_out.Flush())
            return ReportOutputFailure(m_out);
        return m_failed ? kInputFailed : kDone;
    }

private:
    void DumpFile(const std::string& path) {
        const Loaded loaded = m_input.Load(path, m_flags);
        if (loaded != Loaded::whole)
            m_failed = true;
        if (loaded == Loaded::none)
            return;
        if (m_json) {
            if (m_json->Write(m_paths, IsStandard(path) ? std::string() : path) > 0) {
                Say(NameOfInput(path), "a value could not be read and is left out");
                m_failed = true;
            }
        } else if (m_table) {
            WriteRow(path);
        } else {
            WriteLines(path);
        }
        m_out.FlushFull();
    }

    void WriteLines(const std::string& path) {
        if (m_several) {
            if (!m_first)
                m_out.Put('\n');
            m_first = false;
            m_out.Put(VisibleCopy(NameOfInput(path)));
            m_out.Put(":\n");
        }
        m_text.Write(m_paths);
    }

    void WriteRow(const std::string& path) {
        m_text.StartDataSet();
        m_out.Put(VisibleCopy(path));
        for (const TagPath& wanted : m_paths) {
            m_out.Put('\t');
            m_found.clear();
            CollectElements(m_input.DataSet(), nullptr, wanted, 0, m_found);
            if (m_found.empty())
                m_out.Put('-');
            for (std::size_t i = 0; i < m_found.size(); ++i) {
                if (i > 0)
                    m_out.Put(" | ");
                m_text.WriteValue(m_found[i], m_options.full ? kNoLimit : 80);
            }
        }
        m_out.Put('\n');
    }

    std::size_t Depth() const {
        return static_cast<std::size_t>(
            std::min<std::uint64_t>(m_options.depth, std::numeric_limits<std::size_t>::max()));
    }

    TextDumpOptions Lines() const {
        TextDumpOptions lines;
        lines.offsets = m_options.offsets;
        lines.colour = WantsColour(m_options.colour);
        lines.full = m_options.full;
        lines.columns = VDicomConsole::GetColumns(DICOM_STDOUT);
        lines.depth = Depth();
        return lines;
    }

    JsonOptions Json() const {
        JsonOptions json;
        json.pretty = m_options.pretty || VDicomConsole::IsTerminal(DICOM_STDOUT) != 0;
        json.meta = m_options.meta;
        json.bulkLimit = m_options.noBulk ? 0 : m_options.bulkLimit;
        json.depth = Depth();
        return json;
    }

    const DumpOptions& m_options;
    std::vector<TagPath> m_paths;
    Input m_input;
    Output m_out;
    TextDump m_text;
    std::optional<JsonOut> m_json;
    std::vector<DICOMELEMENT*> m_found;
    unsigned short m_flags = 0;
    bool m_several = false;
    bool m_table = false;
    bool m_first = true;
    bool m_failed = false;
};

} // namespace

int RunDump(int count, const char* const* arguments) {
    DumpOptions given;
    Options options("dump", "[OPTIONS] FILE...", kDescription, kFooter);
    options.Arguments("FILE", given.files, 1, "files; '-' is standard input");
    options.Texts("-t,--tag", given.tags, "KEY", "only this element; may be given several times");
    options.Flag("-j,--json", given.json, "the DICOM JSON Model: one object, or an array for several files");
    options.Flag("--pretty", given.pretty, "with --json: indented, as on a terminal");
    options.Flag("--meta", given.meta, "with --json: group 0002 too, which the model leaves out");
    options.Flag("--no-bulk", given.noBulk, "with --json: leave binary values out");
    options.Number("--bulk-limit", given.bulkLimit, "BYTES", "with --json: leave larger binary values out");
    options.Flag("-f,--full", given.full, "whole values, however long");
    options.Flag("-o,--offsets", given.offsets, "where each element stands in its file, in hexadecimal digits");
    options.Number("-d,--depth", given.depth, "N", "open N levels of sequences; 0: none");
    options.Flag("-r,--recursive", given.recursive, "take the files in folders and below");
    options.Choice("--color", given.colour, {"auto", "always", "never"},
                   "colours; auto: on a terminal, without NO_COLOR");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    if (!given.json && (given.pretty || given.meta || given.noBulk || options.Given("--bulk-limit")))
        return options.Wrong("--pretty, --meta, --no-bulk and --bulk-limit go with --json");
    if (given.json && (given.offsets || given.full))
        return options.Wrong("--offsets and --full do not go with --json");

    std::vector<TagPath> paths;
    for (const std::string& tag : given.tags) {
        TagPath path;
        if (const std::string wrong = ParseTagPath(tag, path); !wrong.empty())
            return options.Wrong(fmt::format("--tag {}: {}", tag, wrong));
        paths.push_back(std::move(path));
    }
    return Dump(given, std::move(paths)).Run();
}

} // namespace program
