#include "Input.h"

#include "Message.h"
#include "Output.h"
#include "Progress.h"

#include "VDicomConsole.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <new>

namespace program {

namespace fs = std::filesystem;

namespace {

fs::path PathOf(const std::string& text) { return fs::u8path(text); }

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

bool WalkFolder(const fs::path& folder, const fs::path& below,
                const std::function<bool(const std::string&, const std::string&)>& each, bool& goOn) {
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        entries.push_back(*it);
    if (error) {
        Say(TextOf(folder), error.message());
        return false;
    }
    std::sort(entries.begin(), entries.end());
    bool good = true;
    for (const fs::directory_entry& entry : entries) {
        if (!goOn)
            break;
        // Links to folders are not followed: they may lead round in a circle.
        if (entry.is_directory(error) && !entry.is_symlink(error))
            good = WalkFolder(entry.path(), below / entry.path().filename(), each, goOn) && good;
        else if (entry.is_regular_file(error))
            goOn = each(TextOf(entry.path()), TextOf(below / entry.path().filename()));
    }
    return good;
}

} // namespace

std::string NameOfInput(const std::string& path) { return IsStandard(path) ? "standard input" : path; }

bool IsFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(PathOf(path), error);
}

Loaded Input::Load(const std::string& path, unsigned short flags) {
    if (IsStandard(path)) {
        if (!m_stream.SetHandle(VDicomConsole::GetHandle(DICOM_STDIN), DICOM_FILE_READ)) {
            Say(NameOfInput(path),
                m_stream.GetError() ? SystemText(m_stream.GetError()) : GetErrorText(DICOM_ERROR_OPEN));
            return Loaded::none;
        }
    } else if (!m_stream.Open(path.c_str(), DICOM_FILE_MODE_LOAD)) {
        const int error = m_stream.GetError();
        if (IsFolder(path))
            Say(path, "is a folder; give --recursive to take the files in it and below");
        else
            Say(path, error ? SystemText(error) : GetErrorText(DICOM_ERROR_OPEN));
        return Loaded::none;
    }
    if (m_stream.GetSize64() == 0) {
        Say(NameOfInput(path), "is empty");
        return Loaded::none;
    }
    const unsigned int result = m_ds.LoadDS(&m_stream, flags, 0);
    if (m_saysFaults && (m_ds.GetCountFault() > 0 || result != DICOM_OK))
        SayFaults(NameOfInput(path), result);
    if (result == DICOM_OK)
        return Loaded::whole;
    return m_ds.GetFirstElement(nullptr, 1, 1) ? Loaded::part : Loaded::none;
}

void Input::SayFaults(const std::string& name, unsigned int result) const {
    DICOMFAULT fault{};
    const VDicomULong count = m_ds.GetCountFault();
    for (VDicomULong i = 0; i < count; ++i) {
        if (m_ds.GetFault(i, &fault))
            Say(name, FaultText(fault));
    }
    // A failed load has its reason as the last fault.
    if (result != DICOM_OK && (count == 0 || fault.nCode == 0))
        Say(name, GetErrorText(result));
}

bool Input::Repair(const std::string& path) {
    const unsigned int result = m_ds.FixBadElements();
    if (result != DICOM_OK)
        Say(NameOfInput(path), fmt::format("values of odd length could not be made even: {}", GetErrorText(result)));
    return result == DICOM_OK;
}

bool ForEachInput(const std::vector<std::string>& arguments, bool recursive,
                  const std::function<bool(const std::string& path, const std::string& below)>& each) {
    bool good = true;
    bool goOn = true;
    for (const std::string& argument : arguments) {
        if (!goOn)
            break;
        if (recursive && !IsStandard(argument) && IsFolder(argument))
            good = WalkFolder(PathOf(argument), fs::path(), each, goOn) && good;
        else
            goOn = each(argument, IsStandard(argument) ? argument : TextOf(PathOf(argument).filename()));
    }
    return good;
}

bool ReportEach(const std::vector<std::string>& arguments, bool recursive, const Output& out,
                const std::function<void(const std::string& path)>& report) {
    Progress progress("files", recursive ? 0 : arguments.size());
    const bool quiet = VDicomConsole::IsTerminal(DICOM_STDOUT) != 0;
    bool good = true;
    std::size_t done = 0;
    const auto one = [&](const std::string& path, const std::string&) {
        try {
            report(path);
        } catch (const std::bad_alloc&) {
            Say(NameOfInput(path), GetErrorText(DICOM_ERROR_MEMORY));
            good = false;
        }
        ++done;
        if (!quiet)
            progress.Done(done);
        return !out.Failed();
    };
    return ForEachInput(arguments, recursive, one) && good;
}

} // namespace program
