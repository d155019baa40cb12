#include "ElementEditor.h"

#include "EditValue.h"
#include "Vr.h"

#include <fmt/format.h>

namespace program {

namespace {

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

} // namespace

std::string ParseChange(bool set, const std::string& text, Change& change) {
    change.set = set;
    std::size_t end = 0;
    if (std::string wrong = ParseTagPath(text, change.path, end); !wrong.empty())
        return wrong;
    if (change.set) {
        if (end >= text.size() || text[end] != '=')
            return "PATH=VALUE is needed";
        change.value = text.substr(end + 1);
    } else if (end != text.size()) {
        return fmt::format("'{}' behind the path is not understood", text.substr(end));
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

std::string ElementEditor::Set(const Change& change, DICOMELEMENT* parent, std::size_t number) {
    const PathStep& step = change.path.steps[number];
    VDicomULong tag = step.tag;
    if (!step.creator.empty()) {
        tag = FindPrivateTag(m_ds, parent, step);
        if (tag == 0 && (tag = MakePrivateBlock(parent, step)) == 0)
            return fmt::format("there is no free private block for '{}' in group {:04X}", step.creator, step.tag >> 16);
    }
    if (number + 1 == change.path.steps.size())
        return SetElement(change, parent, tag);

    DICOMELEMENT* sequence = m_ds.FindFirstElement(parent, tag, 1);
    if (!sequence) {
        if (step.item == kEveryItem)
            return {};
        const unsigned short usual = m_ds.GetDefaultVR(parent, tag, 0);
        if (usual != vr::SQ && usual != vr::UN && usual != 0)
            return fmt::format("{} is no sequence", TagText(tag));
        sequence = m_ds.InsertElement(parent, 1, tag, vr::SQ, 1, 0);
    }
    if (!sequence)
        return fmt::format("{} cannot stand there: sequences are nested too deeply, or memory ran out", TagText(tag));
    if (!HasChildren(sequence) || (FirstChild(sequence) && !HasChildren(FirstChild(sequence))))
        return fmt::format("{} is no sequence", TagText(tag));
    return SetInItems(change, sequence, number);
}

std::string ElementEditor::SetInItems(const Change& change, DICOMELEMENT* sequence, std::size_t number) {
    const PathStep& step = change.path.steps[number];
    if (step.item == kEveryItem) {
        for (DICOMELEMENT* item = FirstChild(sequence); item; item = NextSibling(item)) {
            if (std::string wrong = Set(change, item, number + 1); !wrong.empty())
                return wrong;
        }
        return {};
    }
    const VDicomULong there = m_ds.GetCountElement(sequence);
    if (step.item > there)
        return fmt::format("the sequence has {} items; the next one is [{}]", there, there);
    DICOMELEMENT* item = step.item < there ? m_ds.GetIndexElement(sequence, step.item)
                                           : m_ds.InsertElement(sequence, 1, kItem, 0, 1, DICOM_UNDEFINED);
    if (!item)
        return "the item cannot be made: sequences are nested too deeply, or memory ran out";
    return Set(change, item, number + 1);
}

std::string ElementEditor::SetElement(const Change& change, DICOMELEMENT* parent, VDicomULong tag) {
    if (tag == kSpecificCharacterSet)
        return ChangeCharacterSet(m_ds, parent, &change.value);
    DICOMELEMENT* e = m_ds.FindFirstElement(parent, tag, 1);
    unsigned short code = change.path.vr;
    if (code == 0)
        code = e ? e->nVR : m_ds.GetDefaultVR(parent, tag, 0);
    if (!e && change.path.vr == 0 && (code == vr::UN || code == 0))
        return fmt::format("the value representation of {} is not known; name it: {}:LO=...", TagText(tag),
                           change.path.text);
    if (e && e->nVR != code) {
        m_ds.DeleteElement(e);
        e = nullptr;
    }
    if (!e)
        e = m_ds.InsertElement(parent, 1, tag, code, code == vr::SQ ? 1 : 0, 0);
    if (!e)
        return fmt::format("{} cannot stand there, or memory ran out", TagText(tag));
    return SetValueFromText(m_ds, e, change.value);
}

/// Reserves a block for a private creator (PS3.5 7.8.1). @return the element's tag in it, or 0
VDicomULong ElementEditor::MakePrivateBlock(DICOMELEMENT* parent, const PathStep& step) {
    const VDicomULong group = step.tag & 0xFFFF0000;
    for (VDicomULong block = 0x10; block <= 0xFF; ++block) {
        if (m_ds.FindFirstElement(parent, group | block, 1) || IsBlockUsed(parent, group | (block << 8)))
            continue;
        DICOMELEMENT* creator = m_ds.InsertElement(parent, 1, group | block, vr::LO, 0, 0);
        if (!creator || !m_ds.SetUtf8Value(creator, step.creator.c_str()))
            return 0;
        return (step.tag & 0xFFFF00FF) | (block << 8);
    }
    return 0;
}

bool ElementEditor::IsBlockUsed(DICOMELEMENT* parent, VDicomULong first) {
    for (const DICOMELEMENT* e = parent ? FirstChild(parent) : m_ds.GetFirstElement(nullptr, 1, 1); e;
         e = NextSibling(e)) {
        if ((e->nTag & 0xFFFFFF00) == first)
            return true;
    }
    return false;
}

std::string ElementEditor::Delete(const Change& change) {
    std::vector<DICOMELEMENT*> found;
    CollectElements(m_ds, nullptr, change.path, 0, found);
    // From the last to the first: item numbers of those still to come stay as they are.
    for (auto e = found.rbegin(); e != found.rend(); ++e) {
        if (!RefusedTag((*e)->nTag).empty() && (*e)->nTag != kItem)
            continue;
        if ((*e)->nTag == kSpecificCharacterSet) {
            if (std::string wrong = ChangeCharacterSet(m_ds, Parent(*e), nullptr); !wrong.empty())
                return wrong;
            continue;
        }
        m_ds.DeleteElement(*e);
    }
    return {};
}

} // namespace program
