#include "Writing.h"

#include "Input.h"
#include "Message.h"
#include "Progress.h"
#include "ValueText.h"
#include "Vr.h"

#include "VDicomConsole.h"

#include <fmt/format.h>

#include <filesystem>
#include <optional>

namespace program {

namespace {

/// What the platform says of the failed save, else what the result code says.
std::string Reason(VDicomDS& ds, const std::string& path, unsigned int result) {
    if (result == DICOM_ERROR_OPEN && !IsStandard(path)) {
        if (IsFolder(path))
            return "is a folder";
        const std::filesystem::path folder = std::filesystem::u8path(path).parent_path();
        std::error_code ignored;
        if (!folder.empty() && !std::filesystem::exists(folder, ignored))
            return "the folder that it should be in does not exist";
    }
    if (ds.GetError() != 0)
        return fmt::format("{}: {}", GetErrorText(result), SystemText(ds.GetError()));
    // The element that does not fit, for instance.
    DICOMFAULT fault{};
    const VDicomULong count = ds.GetCountFault();
    if (count > 0 && ds.GetFault(count - 1, &fault) && fault.nCode == result)
        return FaultText(fault);
    return GetErrorText(result);
}

/// The progress of one save, for files that take longer than a moment.
class SaveProgress {
public:
    explicit SaveProgress(VDicomDS& ds) : m_ds(ds) { m_ds.SetProgressDS(Told, this); }
    ~SaveProgress() { m_ds.SetProgressDS(nullptr, nullptr); }
    SaveProgress(const SaveProgress&) = delete;
    SaveProgress& operator=(const SaveProgress&) = delete;

private:
    static unsigned int VDICOM_CALLBACK Told(VDicomUInt64 done, VDicomUInt64 total, void* self) {
        constexpr VDicomUInt64 megabyte = 1000000;
        std::optional<Progress>& line = static_cast<SaveProgress*>(self)->m_line;
        if (!line)
            line.emplace("MB", total, megabyte);
        line->Done(done);
        return 1;
    }

    VDicomDS& m_ds;
    std::optional<Progress> m_line;
};

} // namespace

std::string SaveTo(VDicomDS& ds, const std::string& path, unsigned short flags) {
    const SaveProgress progress(ds);
    unsigned int result = DICOM_OK;
    if (IsStandard(path)) {
        VDicomFile out;
        if (!out.SetHandle(VDicomConsole::GetHandle(DICOM_STDOUT), DICOM_FILE_WRITE))
            return SystemText(out.GetError());
        result = ds.SaveDS(&out, flags);
        if (result == DICOM_OK && !out.Close())
            return SystemText(out.GetError());
    } else {
        result = ds.SaveDS(path.c_str(), flags);
    }
    return result == DICOM_OK ? std::string() : Reason(ds, path, result);
}

SyntaxInForce SyntaxOf(VDicomDS& ds) {
    SyntaxInForce syntax;
    if (const char* uid = ds.GetTransferSyntaxUID())
        syntax.uid = uid;
    VDicomLong compression = 0;
    if (!syntax.uid.empty())
        ds.GetTS(nullptr, &compression, syntax.uid.c_str());
    syntax.compressed = compression != 0;
    const std::string_view name = NameOfUid(syntax.uid);
    syntax.name = name.empty() ? syntax.uid : std::string(name);
    return syntax;
}

bool HasEncapsulatedPixelData(VDicomDS& ds) {
    const DICOMELEMENT* pixels = ds.FindFirstElement(nullptr, kPixelData, 1);
    return pixels && HasChildren(pixels);
}

} // namespace program
