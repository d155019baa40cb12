#include "Message.h"

#include "Options.h"
#include "Output.h"
#include "Progress.h"
#include "VisibleText.h"

#include <fmt/format.h>

#include <system_error>
#include <utility>

namespace program {

namespace {

const char* prefixText = "vdicom";
Progress* progressLine = nullptr;

void Write(const std::string& line) {
    if (progressLine)
        progressLine->Hide();
    VDicomConsole::Write(DICOM_STDERR, line.data(), line.size(), nullptr);
}

} // namespace

void SetMessagePrefix(const char* prefix) { prefixText = prefix; }

Progress* SetMessageProgress(Progress* progress) { return std::exchange(progressLine, progress); }

void Say(std::string_view sentence) { Write(fmt::format("{}: {}\n", prefixText, VisibleCopy(sentence))); }

void Say(std::string_view name, std::string_view sentence) {
    Write(fmt::format("{}: {}: {}\n", prefixText, VisibleCopy(name), VisibleCopy(sentence)));
}

void SayPlain(std::string_view sentence) { Write(VisibleCopy(sentence) + "\n"); }

std::string SystemText(int error) { return std::system_category().message(error); }

std::string FaultText(const DICOMFAULT& fault) {
    std::string text = fmt::format("at offset 0x{:X}", fault.nOffset);
    if (fault.nTag != 0)
        text += fmt::format(", ({:04X},{:04X})", fault.nTag >> 16, fault.nTag & 0xFFFF);
    return text + ": " + (fault.pszText && *fault.pszText ? fault.pszText : GetErrorText(fault.nCode));
}

int ReportOutputFailure(const Output& out) {
    Say("standard output", SystemText(out.Error()));
    return kInputFailed;
}

} // namespace program
