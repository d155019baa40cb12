/// @file CheckCommand.cpp
/// vdicom check: tells where data sets break the rules of the standard.

#include "ClassChoice.h"
#include "Commands.h"
#include "Input.h"
#include "Message.h"
#include "Options.h"
#include "Output.h"
#include "ValueText.h"
#include "VisibleText.h"

#include "VDicomIOD.h"

#include <fmt/format.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <array>
#include <optional>

namespace program {

namespace {

struct CheckOptions {
    std::vector<std::string> files;
    std::string severity = "note";
    std::string className;
    bool json = false;
    bool recursive = false;
};

constexpr const char* kDescription =
    "Tells where files break the rules of the standard: elements that are missing, empty or misplaced by the modules\n"
    "of their class, values outside those allowed, wrong value representations, multiplicities, characters, lengths,\n"
    "dates and UIDs, texts outside the declared character set, file meta information, and what the reader found.\n\n"
    "An error breaks a rule; a warning is harmless or not certain; a note is allowed, but worth knowing.";

constexpr const char* kFooter =
    "CLASS is a number, a SOP Class UID, or a name or part of one that only one class has; 'vdicom dict iod' shows\n"
    "them. Paths are those of 'vdicom edit'.\n\n"
    "Examples:\n"
    "  vdicom check image.dcm\n"
    "  vdicom check --severity error --recursive folder\n"
    "  vdicom check --json *.dcm | jq '.[] | select(.errors > 0) | .file'\n"
    "  vdicom check --class 'CT Image' unnamed.dcm\n";

constexpr std::array<std::string_view, 4> kSeverities = {"", "note", "warning", "error"};

/// How often each severity was met.
using Counts = std::array<std::size_t, kSeverities.size()>;

std::string Counted(std::size_t count, std::string_view what) {
    return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

/// "1C" of a finding's usage; empty where no module speaks.
std::string_view TypeText(const DICOMFINDING& finding) {
    constexpr std::array<std::string_view, 8> types = {"", "", "", "1", "1C", "2", "2C", "3"};
    return *finding.pszModule != '\0' && finding.nUsage < types.size() ? types[finding.nUsage] : std::string_view();
}

class Report {
public:
    virtual ~Report() = default;
    virtual void Begin(const std::string& name, const std::string& className) = 0;
    virtual void Finding(const DICOMFINDING& finding) = 0;
    virtual void End(const Counts& counts) = 0;
    virtual void Close() {}
};

class TextReport final : public Report {
public:
    explicit TextReport(Output& out) : m_out(out) {}

    void Begin(const std::string& name, const std::string& className) override {
        if (m_any)
            m_out.Put('\n');
        m_any = true;
        m_out.Put(VisibleCopy(name));
        m_out.Put(className.empty() ? "" : ": ");
        m_out.Put(VisibleCopy(className));
        m_out.Put('\n');
    }

    void Finding(const DICOMFINDING& finding) override {
        const std::string_view severity = kSeverities[finding.nSeverity];
        std::string line = fmt::format("  {:<8} ", severity);
        if (*finding.pszPath != '\0')
            line += std::string(finding.pszPath) + " ";
        const std::string_view name = finding.pszName;
        const std::string_view text = finding.pszText;
        if (!name.empty() && text.substr(0, name.size()) != name)
            line += std::string(name) + ": ";
        line += text;
        if (*finding.pszSection != '\0')
            line += fmt::format(" [{}]", finding.pszSection);
        m_out.Put(VisibleCopy(line));
        m_out.Put('\n');
        m_out.FlushFull();
    }

    void End(const Counts& counts) override {
        m_out.Put(fmt::format("  {}, {}, {}\n", Counted(counts[DICOM_SEVERITY_ERROR], "error"),
                              Counted(counts[DICOM_SEVERITY_WARNING], "warning"),
                              Counted(counts[DICOM_SEVERITY_NOTE], "note")));
        m_out.FlushFull();
    }

private:
    Output& m_out;
    bool m_any = false;
};

class JsonReport final : public Report {
public:
    JsonReport(Output& out, bool array) : m_out(out), m_writer(m_buffer), m_array(array) {
        m_writer.SetIndent(' ', 2);
        if (m_array)
            m_writer.StartArray();
    }

    void Begin(const std::string& name, const std::string& className) override {
        m_writer.StartObject();
        Member("file", VisibleCopy(name));
        Member("class", className);
        m_writer.Key("findings");
        m_writer.StartArray();
    }

    void Finding(const DICOMFINDING& finding) override {
        m_writer.StartObject();
        Member("severity", kSeverities[finding.nSeverity]);
        m_writer.Key("code");
        m_writer.Uint(finding.nCode);
        Member("path", finding.pszPath);
        Member("name", finding.pszName);
        if (*finding.pszModule != '\0') {
            Member("module", finding.pszModule);
            Member("type", TypeText(finding));
        }
        if (finding.nValue != DICOM_UNDEFINED) {
            m_writer.Key("valueNumber");
            m_writer.Uint(finding.nValue + 1);
        }
        if (*finding.pszValue != '\0')
            Member("value", finding.pszValue);
        if (*finding.pszAllowed != '\0')
            Member("allowed", finding.pszAllowed);
        if (*finding.pszSection != '\0')
            Member("section", finding.pszSection);
        Member("text", finding.pszText);
        m_writer.EndObject();
        Flush();
    }

    void End(const Counts& counts) override {
        m_writer.EndArray();
        for (const unsigned short severity : {DICOM_SEVERITY_ERROR, DICOM_SEVERITY_WARNING, DICOM_SEVERITY_NOTE}) {
            m_writer.Key((std::string(kSeverities[severity]) + "s").c_str());
            m_writer.Uint64(counts[severity]);
        }
        m_writer.EndObject();
        Flush();
    }

    void Close() override {
        if (m_array)
            m_writer.EndArray();
        Flush();
        m_out.Put('\n');
    }

private:
    void Member(const char* name, std::string_view value) {
        m_writer.Key(name);
        m_writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    }
    void Flush() {
        m_out.Put({m_buffer.GetString(), m_buffer.GetSize()});
        m_out.FlushFull();
        m_buffer.Clear();
    }

    Output& m_out;
    rapidjson::StringBuffer m_buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> m_writer;
    bool m_array;
};

class Check {
public:
    Check(const CheckOptions& options, VDicomULong classId)
        : m_options(options), m_out(DICOM_STDOUT), m_classId(classId) {
        for (unsigned short i = DICOM_SEVERITY_NOTE; i <= DICOM_SEVERITY_ERROR; ++i) {
            if (kSeverities[i] == options.severity)
                m_least = i;
        }
        const bool several = options.files.size() > 1 || (options.recursive && IsFolder(options.files.front()));
        if (options.json)
            m_report = std::make_unique<JsonReport>(m_out, several);
        else
            m_report = std::make_unique<TextReport>(m_out);
        m_input.LeaveFaults();
    }

    int Run() {
        const auto report = [this](const std::string& path) { CheckFile(path); };
        if (!ReportEach(m_options.files, m_options.recursive, m_out, report))
            m_failed = true;
        m_report->Close();
        if (!m_out.Flush())
            return ReportOutputFailure(m_out);
        return m_failed ? kInputFailed : kDone;
    }

private:
    void CheckFile(const std::string& path) {
        const Loaded loaded = m_input.Load(path, 0);
        VDicomDS& ds = m_input.DataSet();
        if (loaded == Loaded::none && ds.GetCountFault() == 0) {
            m_failed = true; // it has been said
            return;
        }
        m_counts = {};
        m_report->Begin(NameOfInput(path), ClassText());
        const bool broken = loaded != Loaded::whole;
        DICOMFAULT fault{};
        for (VDicomULong i = 0; ds.GetFault(i, &fault) != 0; ++i)
            TakeFault(fault, broken && i + 1 == ds.GetCountFault());
        if (broken && ds.GetCountFault() == 0)
            TakeFault({DICOM_ERROR_FORMAT, 0, 0, ""}, true);
        const unsigned int result = loaded == Loaded::none ? DICOM_OK : ds.ConformanceDS(&TakeFinding, this, m_classId);
        m_report->End(m_counts);
        if (result != DICOM_OK) {
            Say(NameOfInput(path), GetErrorText(result));
            m_failed = true;
        }
        if (m_counts[DICOM_SEVERITY_ERROR] > 0)
            m_failed = true;
    }

    /// What the data set is called: its class's name, or the UID where that has none.
    std::string ClassText() {
        if (m_classId != DICOM_UNDEFINED)
            return VDicomIOD::FindClass(m_classId)->pszName;
        char uid[65] = {};
        for (const VDicomULong tag : {VDicomTagCode(0x0002, 0x0002), VDicomTagCode(0x0008, 0x0016)}) {
            if (m_input.DataSet().FindGetValue(nullptr, tag, 5, uid, sizeof uid) == 0)
                continue;
            const std::string_view name = NameOfUid(uid);
            return std::string(name.empty() ? uid : name);
        }
        return {};
    }

    void Take(const DICOMFINDING& finding) {
        ++m_counts[finding.nSeverity];
        if (finding.nSeverity >= m_least)
            m_report->Finding(finding);
    }

    void TakeFault(const DICOMFAULT& fault, bool isReason) {
        // Said of the element itself, by the check.
        if (fault.nCode == DICOM_BAD_ELEMENT && !isReason)
            return;
        const std::string path =
            fault.nTag == 0 ? std::string() : fmt::format("({:04X},{:04X})", fault.nTag >> 16, fault.nTag & 0xFFFF);
        const std::string_view words =
            fault.pszText && *fault.pszText ? std::string_view(fault.pszText) : GetErrorText(fault.nCode);
        const std::string text = fmt::format("at offset 0x{:X}: {}", fault.nOffset, words);
        DICOMFINDING finding{};
        finding.nCode = static_cast<unsigned short>(fault.nCode);
        finding.nSeverity = DICOM_SEVERITY_ERROR;
        finding.nTag = fault.nTag;
        finding.nValue = DICOM_UNDEFINED;
        finding.pszPath = path.c_str();
        finding.pszText = text.c_str();
        finding.pszName = finding.pszModule = finding.pszValue = finding.pszAllowed = finding.pszSection = "";
        Take(finding);
    }

    static VDicomULong VDICOM_CALLBACK TakeFinding(const DICOMFINDING* finding, void* self) {
        auto* check = static_cast<Check*>(self);
        check->Take(*finding);
        return check->m_out.Failed() ? 1 : 0;
    }

    const CheckOptions& m_options;
    Input m_input;
    Output m_out;
    std::unique_ptr<Report> m_report;
    VDicomULong m_classId;
    unsigned short m_least = DICOM_SEVERITY_NOTE;
    Counts m_counts{};
    bool m_failed = false;
};

} // namespace

int RunCheck(int count, const char* const* arguments) {
    CheckOptions given;
    Options options("check", "[OPTIONS] FILE...", kDescription, kFooter,
                    "  0  no file has an error; warnings and notes do not count\n"
                    "  1  a file has an error or could not be read; the others were checked\n");
    options.Arguments("FILE", given.files, 1, "files; '-' is standard input");
    options.Flag("-j,--json", given.json, "one JSON object per file; an array of them for several");
    options.Choice("-s,--severity", given.severity, {"error", "warning", "note"},
                   "show this and what is worse; the counts are of all");
    options.Text("-c,--class", given.className, "CLASS", "check against this class, whatever the file says");
    options.Flag("-r,--recursive", given.recursive, "take the files in folders and below");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    VDicomULong classId = DICOM_UNDEFINED;
    if (options.Given("--class")) {
        int status = kDone;
        const DICOMIOD* definition = ChooseClass(given.className, options, status);
        if (definition == nullptr)
            return status;
        classId = definition->nCode;
    }
    return Check(given, classId).Run();
}

} // namespace program
