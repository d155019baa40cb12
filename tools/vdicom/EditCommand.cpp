/// @file EditCommand.cpp
/// vdicom edit: sets and deletes elements.

#include "Commands.h"
#include "ElementEditor.h"
#include "Input.h"
#include "Message.h"
#include "Options.h"
#include "Progress.h"
#include "Writing.h"

#include <fmt/format.h>

#include <algorithm>

namespace program {

namespace {

constexpr const char* kDescription = "Sets and deletes elements, in the order of the command line, and writes the data "
                                     "set in the encoding that it has.\n"
                                     "A file appears whole or not at all; IN and OUT may be the same.";

constexpr const char* kFooter =
    "PATH is a keyword or tag, with item numbers on the way; missing sequences, items and private blocks are made:\n"
    "  PatientName   (0010,0010)   (0029,xx10,\"CREATOR\")\n"
    "  (0040,0275)[0].(0040,0007)   RequestAttributesSequence[0].ScheduledProcedureStepID\n"
    "  [*] means every item that is there. PATH:VR names the value representation of an unknown attribute.\n"
    "  --delete also takes a whole item, Sequence[0], and tags with x for any digit, (50xx,xxxx).\n"
    "VALUE is UTF-8 in DICOM's forms, values divided by backslashes; binary numbers in decimal or as 0x1F; tags as\n"
    "  (gggg,eeee); @FILE takes the bytes of a file; nothing makes the value empty. Setting SpecificCharacterSet\n"
    "  converts all texts.\n\n"
    "Examples:\n"
    "  vdicom edit image.dcm copy.dcm --set PatientName=Doe^Jane --set PatientID=4711\n"
    "  vdicom edit image.dcm copy.dcm --delete '(0009,xxxx)' --set 'SpecificCharacterSet=ISO_IR 192'\n"
    "  vdicom edit image.dcm copy.dcm --set 'RequestAttributesSequence[0].ScheduledProcedureStepID=S1'\n"
    "  vdicom edit --in-place *.dcm --set InstitutionName=\n";

class Editor {
public:
    explicit Editor(std::vector<Change> changes) : m_changes(std::move(changes)) {}

    /// @return false when it failed; it has been said
    bool Edit(const std::string& in, const std::string& out) {
        const Loaded loaded = m_input.Load(in, 0);
        if (loaded == Loaded::part)
            Say(NameOfInput(in), "not edited: the file is damaged, and a copy would look whole");
        if (loaded != Loaded::whole || !m_input.Repair(in))
            return false;
        ElementEditor editor(m_input.DataSet());
        for (const Change& change : m_changes) {
            if (const std::string wrong = editor.Apply(change); !wrong.empty()) {
                Say(NameOfInput(in), fmt::format("{}: {}; nothing was written", change.path.text, wrong));
                return false;
            }
        }
        if (const std::string wrong = SaveTo(m_input.DataSet(), out, 0); !wrong.empty()) {
            Say(IsStandard(out) ? "standard output" : out, wrong);
            return false;
        }
        return true;
    }

private:
    std::vector<Change> m_changes;
    Input m_input;
};

} // namespace

int RunEdit(int count, const char* const* arguments) {
    std::vector<std::string> files, sets, deletes;
    bool inPlace = false;
    Options options("edit", "[OPTIONS] IN OUT\n       vdicom edit [OPTIONS] --in-place FILE...", kDescription, kFooter);
    options.Arguments("FILE", files, 1,
                      "input and output, '-' for standard input and output; with --in-place the files");
    options.Texts("-s,--set", sets, "PATH=VALUE", "set an element; may be given several times");
    options.Texts("-d,--delete", deletes, "PATH", "delete what is there; may be given several times");
    options.Flag("-i,--in-place", inPlace, "write each file in its own place");
    if (const std::optional<int> status = options.Parse(count, arguments))
        return *status;
    if (!inPlace && files.size() != 2)
        return options.Wrong("an input and an output are needed; --in-place takes any number of files");
    if (inPlace && std::any_of(files.begin(), files.end(), IsStandard))
        return options.Wrong("standard input cannot be edited in place");

    std::vector<Change> changes;
    for (const Options::Occurrence& given : options.InOrder()) {
        if (given.name != "--set" && given.name != "--delete")
            continue;
        Change change;
        if (const std::string wrong = ParseChange(given.name == "--set", given.value, change); !wrong.empty())
            return options.Wrong(fmt::format("{} {}: {}", given.name, given.value, wrong));
        changes.push_back(std::move(change));
    }
    if (changes.empty())
        return options.Wrong("there is nothing to do; give --set or --delete");

    Editor editor(std::move(changes));
    if (!inPlace)
        return editor.Edit(files[0], files[1]) ? kDone : kInputFailed;
    Progress progress("files", files.size());
    bool good = true;
    for (std::size_t i = 0; i < files.size(); ++i) {
        good = editor.Edit(files[i], files[i]) && good;
        progress.Done(i + 1);
    }
    return good ? kDone : kInputFailed;
}

} // namespace program
