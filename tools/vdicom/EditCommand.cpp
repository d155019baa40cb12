/// @file EditCommand.cpp
/// vdicom edit: sets and deletes elements.

#include "Commands.h"
#include "EditValue.h"
#include "Input.h"
#include "Message.h"
#include "Options.h"
#include "Progress.h"
#include "TagPath.h"
#include "Vr.h"
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

struct Change {
    bool set;
    TagPath path;
    std::string value;
};

std::string TagText(VDicomULong tag) { return fmt::format("({:04X},{:04X})", tag >> 16, tag & 0xFFFF); }

/// What this command never touches, because a file with it could no longer be read.
std::string RefusedTag(VDicomULong tag) {
    if (IsGroupLength(tag))
        return "group lengths are written by the program itself";
    if ((tag >> 16) == 0xFFFE || (tag >> 16) == 0xFFFC)
        return "items and delimiters are no attributes; name an item by its number: Sequence[0]";
    if (tag == 0x00020010)
        return "the transfer syntax is changed by 'vdicom convert --to'";
    return {};
}

/// @return what is wrong with the usage
std::string ParseChange(const Options::Occurrence& given, Change& change) {
    change.set = given.name == "--set";
    std::size_t end = 0;
    if (std::string wrong = ParseTagPath(given.value, change.path, end); !wrong.empty())
        return wrong;
    if (change.set) {
        if (end >= given.value.size() || given.value[end] != '=')
            return "PATH=VALUE is needed";
        change.value = given.value.substr(end + 1);
    } else if (end != given.value.size()) {
        return fmt::format("'{}' behind the path is not understood", given.value.substr(end));
    }
    for (std::size_t i = 0; i < change.path.steps.size(); ++i) {
        PathStep& step = change.path.steps[i];
        const bool last = i + 1 == change.path.steps.size();
        if (!last && !step.hasItem)
            return "which item is meant? Put [0], [1] and so on, or [*] for all, behind the sequence";
        if (change.set && last && step.hasItem)
            return "an item has no value; name an element in it: Sequence[0].Keyword=VALUE";
        if (change.set && step.isPattern)
            return "an x for any digit goes with --delete only";
        // The keyword of a repeating group means its first one.
        if (change.set && step.creator.empty())
            step.mask = DICOM_UNDEFINED;
        if (std::string refused = RefusedTag(step.tag); !refused.empty() && (change.set || step.IsExact()))
            return refused;
        if (i > 0 && IsMeta(step.tag))
            return "group 0002 stands in no item";
    }
    return {};
}

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
        for (const Change& change : m_changes) {
            const std::string wrong = change.set ? Set(change, nullptr, 0) : Delete(change);
            if (!wrong.empty()) {
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
    VDicomDS& Ds() { return m_input.DataSet(); }

    std::string Set(const Change& change, DICOMELEMENT* parent, std::size_t number) {
        const PathStep& step = change.path.steps[number];
        VDicomULong tag = step.tag;
        if (!step.creator.empty()) {
            tag = FindPrivateTag(Ds(), parent, step);
            if (tag == 0 && (tag = MakePrivateBlock(parent, step)) == 0)
                return fmt::format("there is no free private block for '{}' in group {:04X}", step.creator,
                                   step.tag >> 16);
        }
        if (number + 1 == change.path.steps.size())
            return SetElement(change, parent, tag);

        DICOMELEMENT* sequence = Ds().FindFirstElement(parent, tag, 1);
        if (!sequence) {
            if (step.item == kEveryItem)
                return {};
            const unsigned short usual = Ds().GetDefaultVR(parent, tag, 0);
            if (usual != vr::SQ && usual != vr::UN && usual != 0)
                return fmt::format("{} is no sequence", TagText(tag));
            sequence = Ds().InsertElement(parent, 1, tag, vr::SQ, 1, 0);
        }
        if (!sequence)
            return fmt::format("{} cannot stand there: sequences are nested too deeply, or memory ran out",
                               TagText(tag));
        if (!HasChildren(sequence) || (FirstChild(sequence) && !HasChildren(FirstChild(sequence))))
            return fmt::format("{} is no sequence", TagText(tag));
        return SetInItems(change, sequence, number);
    }

    std::string SetInItems(const Change& change, DICOMELEMENT* sequence, std::size_t number) {
        const PathStep& step = change.path.steps[number];
        if (step.item == kEveryItem) {
            for (DICOMELEMENT* item = FirstChild(sequence); item; item = NextSibling(item)) {
                if (std::string wrong = Set(change, item, number + 1); !wrong.empty())
                    return wrong;
            }
            return {};
        }
        const VDicomULong there = Ds().GetCountElement(sequence);
        if (step.item > there)
            return fmt::format("the sequence has {} items; the next one is [{}]", there, there);
        DICOMELEMENT* item = step.item < there ? Ds().GetIndexElement(sequence, step.item)
                                               : Ds().InsertElement(sequence, 1, kItem, 0, 1, DICOM_UNDEFINED);
        if (!item)
            return "the item cannot be made: sequences are nested too deeply, or memory ran out";
        return Set(change, item, number + 1);
    }

    std::string SetElement(const Change& change, DICOMELEMENT* parent, VDicomULong tag) {
        if (tag == kSpecificCharacterSet)
            return ChangeCharacterSet(Ds(), parent, &change.value);
        DICOMELEMENT* e = Ds().FindFirstElement(parent, tag, 1);
        unsigned short code = change.path.vr;
        if (code == 0)
            code = e ? e->nVR : Ds().GetDefaultVR(parent, tag, 0);
        if (!e && change.path.vr == 0 && (code == vr::UN || code == 0))
            return fmt::format("the value representation of {} is not known; name it: {}:LO=...", TagText(tag),
                               change.path.text);
        if (e && e->nVR != code) {
            Ds().DeleteElement(e);
            e = nullptr;
        }
        if (!e)
            e = Ds().InsertElement(parent, 1, tag, code, code == vr::SQ ? 1 : 0, 0);
        if (!e)
            return fmt::format("{} cannot stand there, or memory ran out", TagText(tag));
        return SetValueFromText(Ds(), e, change.value);
    }

    /// Reserves a block for a private creator (PS3.5 7.8.1). @return the element's tag in it, or 0
    VDicomULong MakePrivateBlock(DICOMELEMENT* parent, const PathStep& step) {
        const VDicomULong group = step.tag & 0xFFFF0000;
        for (VDicomULong block = 0x10; block <= 0xFF; ++block) {
            if (Ds().FindFirstElement(parent, group | block, 1) || IsBlockUsed(parent, group | (block << 8)))
                continue;
            DICOMELEMENT* creator = Ds().InsertElement(parent, 1, group | block, vr::LO, 0, 0);
            if (!creator || !Ds().SetUtf8Value(creator, step.creator.c_str()))
                return 0;
            return (step.tag & 0xFFFF00FF) | (block << 8);
        }
        return 0;
    }

    bool IsBlockUsed(DICOMELEMENT* parent, VDicomULong first) {
        for (const DICOMELEMENT* e = parent ? FirstChild(parent) : Ds().GetFirstElement(nullptr, 1, 1); e;
             e = NextSibling(e)) {
            if ((e->nTag & 0xFFFFFF00) == first)
                return true;
        }
        return false;
    }

    std::string Delete(const Change& change) {
        std::vector<DICOMELEMENT*> found;
        CollectElements(Ds(), nullptr, change.path, 0, found);
        // From the last to the first: item numbers of those still to come stay as they are.
        for (auto e = found.rbegin(); e != found.rend(); ++e) {
            if (!RefusedTag((*e)->nTag).empty() && (*e)->nTag != kItem)
                continue;
            if ((*e)->nTag == kSpecificCharacterSet) {
                if (std::string wrong = ChangeCharacterSet(Ds(), Parent(*e), nullptr); !wrong.empty())
                    return wrong;
                continue;
            }
            Ds().DeleteElement(*e);
        }
        return {};
    }

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
        if (const std::string wrong = ParseChange(given, change); !wrong.empty())
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
