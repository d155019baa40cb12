/// @file ConvertCommand.cpp
/// vdicom convert: writes files in another transfer syntax, with or without Part 10 header.

#include "Commands.h"
#include "Input.h"
#include "Message.h"
#include "Options.h"
#include "Progress.h"
#include "ValueText.h"
#include "Writing.h"

#include "VDicomUID.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <set>

namespace program {

namespace {

namespace fs = std::filesystem;

constexpr const char* kDescription =
    "Writes files in another transfer syntax. Without --to the encoding stays as it is. Pixel data are neither\n"
    "compressed nor decompressed. A file appears whole or not at all; IN and OUT may be the same.";

constexpr const char* kFooter = "SYNTAX is implicit, explicit, big, deflated, or the UID of a transfer syntax.\n\n"
                                "Examples:\n"
                                "  vdicom convert --to explicit image.dcm copy.dcm\n"
                                "  vdicom convert --to implicit --bare image.dcm dataset.bin\n"
                                "  vdicom convert --to deflated *.dcm --output small\n"
                                "  vdicom convert --to explicit --recursive archive --output copy\n"
                                "  vdicom convert --to implicit - - < image.dcm | ...\n";

struct Target {
    bool keep = true; ///< the encoding stays
    unsigned short flags = 0;
    std::string uid;
    std::string name;
    bool compressed = false;
};

struct Named {
    std::string_view name;
    const char* uid;
    unsigned short flags;
};

constexpr Named kNamed[] = {
    {"implicit", "1.2.840.10008.1.2", DICOM_TS_IMPLICIT_LITTLE},
    {"explicit", "1.2.840.10008.1.2.1", DICOM_TS_EXPLICIT_LITTLE},
    {"big", "1.2.840.10008.1.2.2", DICOM_TS_EXPLICIT_BIG},
    {"deflated", "1.2.840.10008.1.2.1.99", DICOM_TS_EXPLICIT_LITTLE | DICOM_FLAG_DEFLATED},
};

bool IsTransferSyntax(const std::string& uid) {
    if (const DICOMUID* entry = VDicomUID::Find(uid.c_str()))
        return entry->nType == DICOM_UID_TRANSFER_SYNTAX || entry->nType == DICOM_UID_TRANSFER_COMPRESSED;
    DICOMCURRENTUID row;
    return VDicomUID::FindCurrent(uid.c_str(), &row) && std::string_view(row.pszType) == "Transfer Syntax";
}

/// @return false when `text` names no transfer syntax
bool ParseTarget(const std::string& text, Target& target) {
    target.keep = false;
    for (const Named& named : kNamed) {
        if (text != named.name && text != named.uid)
            continue;
        target.flags = named.flags;
        target.uid = named.uid;
        target.name = NameOfUid(target.uid);
        return true;
    }
    if (!IsTransferSyntax(text))
        return false;
    VDicomDS asked;
    VDicomLong compression = 0;
    asked.GetTS(&target.flags, &compression, text.c_str());
    target.uid = text;
    target.name = NameOfUid(text);
    target.compressed = compression != 0;
    return true;
}

class Converter {
public:
    Converter(Target target, bool bare) : m_target(std::move(target)), m_bare(bare) {}

    /// @return false when it failed; it has been said
    bool Convert(const std::string& in, const std::string& out) {
        const Loaded loaded = m_input.Load(in, 0);
        if (loaded == Loaded::part)
            Say(NameOfInput(in), "not converted: the file is damaged, and a copy would look whole");
        if (loaded != Loaded::whole || !m_input.Repair(in))
            return false;
        unsigned short flags = m_bare ? DICOM_FLAG_BARE : DICOM_FLAG_PART10;
        if (!m_target.keep) {
            if (const std::string refused = Prepare(flags); !refused.empty()) {
                Say(NameOfInput(in), refused);
                return false;
            }
        }
        if (const std::string wrong = SaveTo(m_input.DataSet(), out, flags); !wrong.empty()) {
            Say(IsStandard(out) ? "standard output" : out, wrong);
            return false;
        }
        return true;
    }

private:
    /// Adds the encoding to the save flags. @return why it is impossible; empty: it is not
    std::string Prepare(unsigned short& flags) {
        VDicomDS& ds = m_input.DataSet();
        const SyntaxInForce now = SyntaxOf(ds);
        if (now.compressed && now.uid == m_target.uid)
            return {};
        if (m_target.compressed)
            return fmt::format("not converted: {} needs compressed pixel data, and this program does not compress; "
                               "compress the file with another program",
                               m_target.name);
        // Fragments are compressed also where the headers contradict the transfer syntax that the file names.
        if (HasEncapsulatedPixelData(ds))
            return fmt::format("not converted: the pixel data are compressed ({}); decompress the file with another "
                               "program first, or leave --to away to keep the compression",
                               now.compressed ? now.name : "how, the file does not say");
        if (now.compressed) {
            // Without pixel data nothing is compressed, whatever the file calls itself.
            if (const unsigned int result = ds.ChangeTransferSyntax(m_target.uid.c_str(), 0, 0); result != DICOM_OK)
                return fmt::format("not converted: {}", GetErrorText(result));
        }
        flags = static_cast<unsigned short>(flags | m_target.flags);
        return {};
    }

    Target m_target;
    bool m_bare;
    Input m_input;
};

/// Converts every input into a folder.
class IntoFolder {
public:
    IntoFolder(Converter& converter, std::string folder) : m_converter(converter), m_folder(std::move(folder)) {}

    bool Run(const std::vector<std::string>& files, bool recursive) {
        std::error_code error;
        fs::create_directories(fs::u8path(m_folder), error);
        if (error || !IsFolder(m_folder)) {
            Say(m_folder, error ? error.message() : "is no folder");
            return false;
        }
        Progress progress("files", recursive ? 0 : files.size());
        std::size_t done = 0;
        const auto one = [&](const std::string& path, const std::string& below) {
            m_good = ConvertInto(path, below) && m_good;
            progress.Done(++done);
            return true;
        };
        return ForEachInput(files, recursive, one) && m_good;
    }

private:
    bool ConvertInto(const std::string& path, const std::string& below) {
        if (IsStandard(path)) {
            Say("standard input has no name for a file in the folder; name the output instead");
            return false;
        }
        const fs::path out = fs::u8path(m_folder) / fs::u8path(below);
        const std::u8string utf8 = out.u8string();
        const std::string text(utf8.begin(), utf8.end());
        if (!m_written.insert(text).second) {
            Say(path, fmt::format("not converted: {} has been written from another file of this name", text));
            return false;
        }
        std::error_code error;
        fs::create_directories(out.parent_path(), error);
        return m_converter.Convert(path, text);
    }

    Converter& m_converter;
    std::string m_folder;
    std::set<std::string> m_written;
    bool m_good = true;
};

} // namespace

int RunConvert(int count, const char* const* arguments) {
    std::vector<std::string> files;
    std::string to, output;
    bool bare = false, recursive = false;
    Options options("convert", "[OPTIONS] IN OUT\n       vdicom convert [OPTIONS] FILE... --output FOLDER",
                    kDescription, kFooter);
    options.Arguments("FILE", files, 1,
                      "input and output, '-' for standard input and output; with --output inputs only");
    options.Text("-t,--to", to, "SYNTAX", "the transfer syntax to write");
    options.Flag("-b,--bare", bare, "without preamble and group 0002: the data set alone");
    options.Text("-o,--output", output, "FOLDER", "write all inputs into this folder, under their own names");
    options.Flag("-r,--recursive", recursive, "with --output: take the files in folders and below");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    if (!options.Given("--output") && (files.size() != 2 || recursive))
        return options.Wrong(recursive ? "--recursive needs --output"
                                       : "an input and an output are needed; several inputs need --output");
    Target target;
    if (options.Given("--to") && !ParseTarget(to, target))
        return options.Wrong(fmt::format("--to {}: no transfer syntax of this name or UID is known", to));

    Converter converter(std::move(target), bare);
    bool good = false;
    if (options.Given("--output"))
        good = IntoFolder(converter, output).Run(files, recursive);
    else
        good = converter.Convert(files[0], files[1]);
    return good ? kDone : kInputFailed;
}

} // namespace program
