#include "WorklistItem.h"

#include "Attributes.h"
#include "Record.h"

#include <algorithm>
#include <set>

namespace archive {

namespace vr = vdicom::vr;

namespace {

constexpr VDicomULong kStartDate = 0x00400002, kStartTime = 0x00400003;

// Values that ReadText reads and Answer writes; all others are copied as bytes.
bool IsText(unsigned short code) {
    switch (code) {
    case vr::AE:
    case vr::AS:
    case vr::CS:
    case vr::DA:
    case vr::DS:
    case vr::DT:
    case vr::IS:
    case vr::LO:
    case vr::LT:
    case vr::PN:
    case vr::SH:
    case vr::ST:
    case vr::TM:
    case vr::UC:
    case vr::UI:
    case vr::UR:
    case vr::US:
    case vr::SS:
    case vr::UT:
        return true;
    default:
        return false;
    }
}

bool IsSequence(const DICOMELEMENT* e) { return e->nVR == vr::SQ; }

bool MatchesAnyItem(VDicomDS& ds, DICOMELEMENT* sequence, const std::vector<WorklistKey>& keys) {
    for (DICOMELEMENT* item = ds.GetChildElement(sequence, 1); item != nullptr; item = ds.GetNextElement(item, 1, 1))
        if (MatchesItem(ds, item, keys))
            return true;
    return false;
}

bool IsUniversal(const std::vector<WorklistKey>& keys) {
    return std::all_of(keys.begin(), keys.end(), [](const WorklistKey& key) {
        return key.isSequence ? IsUniversal(key.item) : key.key.IsUniversal();
    });
}

const WorklistKey* RangeOf(const std::vector<WorklistKey>& keys, VDicomULong tag) {
    const auto key = std::find_if(keys.begin(), keys.end(), [&](const WorklistKey& each) { return each.tag == tag; });
    return key != keys.end() && !key->isSequence && key->key.IsRange() ? &*key : nullptr;
}

std::string TextOf(VDicomDS& ds, DICOMELEMENT* item, const WorklistKey& key) {
    std::vector<char> scratch;
    std::string text;
    if (DICOMELEMENT* e = ds.FindFirstElement(item, key.tag, 1))
        ReadText(ds, e, key.vr, scratch, text);
    return text;
}

} // namespace

bool MatchesItem(VDicomDS& ds, DICOMELEMENT* item, const std::vector<WorklistKey>& keys) {
    std::vector<char> scratch;
    std::string text;
    const WorklistKey* dates = RangeOf(keys, kStartDate);
    const WorklistKey* times = RangeOf(keys, kStartTime);
    const bool isOneSpan = dates != nullptr && times != nullptr;
    if (isOneSpan && !MatchesDateAndTime(dates->key, times->key, TextOf(ds, item, *dates), TextOf(ds, item, *times)))
        return false;
    for (const WorklistKey& key : keys) {
        if (isOneSpan && (&key == dates || &key == times))
            continue;
        if (key.tag == kScheduledStep || (key.isSequence ? IsUniversal(key.item) : key.key.IsUniversal()))
            continue;
        DICOMELEMENT* e = ds.FindFirstElement(item, key.tag, 1);
        if (e == nullptr)
            return false;
        if (key.isSequence) {
            if (!IsSequence(e) || !MatchesAnyItem(ds, e, key.item))
                return false;
            continue;
        }
        ReadText(ds, e, key.vr, scratch, text);
        if (!key.key.Matches(text))
            return false;
    }
    return true;
}

bool ItemCopy::Value(DICOMELEMENT* from, DICOMELEMENT* to, VDicomULong tag, unsigned short vr) {
    if (from != nullptr && !IsText(from->nVR) && !IsSequence(from)) {
        DICOMELEMENT* e = m_target.InsertElement(to, to == nullptr ? 0 : 1, tag, from->nVR, 0, 0);
        return e != nullptr && m_target.CopyFileBinaryValue(e, &m_source, from) == DICOM_OK;
    }
    std::string& text = m_texts.emplace_back();
    if (from != nullptr && !IsSequence(from))
        ReadText(m_source, from, from->nVR, m_scratch, text);
    m_answer.Add(to, tag, from != nullptr && !IsSequence(from) ? from->nVR : vr, text);
    return true;
}

bool ItemCopy::Item(DICOMELEMENT* from, DICOMELEMENT* sequence, const std::vector<WorklistKey>& keys) {
    DICOMELEMENT* item = m_target.InsertElement(sequence, 1, tag::kItem, 0, 1, DICOM_UNDEFINED);
    if (item == nullptr)
        return false;
    return keys.empty() ? All(from, item) : Asked(from, item, keys);
}

// @param from the sequence, or null where there is none
bool ItemCopy::Sequence(DICOMELEMENT* from, DICOMELEMENT* to, const WorklistKey& key) {
    DICOMELEMENT* sequence = m_target.InsertElement(to, to == nullptr ? 0 : 1, key.tag, vr::SQ, 1, 0);
    if (sequence == nullptr)
        return false;
    if (from == nullptr || !IsSequence(from))
        return true;
    if (key.tag == kScheduledStep)
        return m_step == nullptr || Item(m_step, sequence, key.item);
    for (DICOMELEMENT* item = m_source.GetChildElement(from, 1); item != nullptr;
         item = m_source.GetNextElement(item, 1, 1))
        if (!Item(item, sequence, key.item))
            return false;
    return true;
}

bool ItemCopy::Asked(DICOMELEMENT* from, DICOMELEMENT* to, const std::vector<WorklistKey>& keys) {
    return std::all_of(keys.begin(), keys.end(), [&](const WorklistKey& key) {
        DICOMELEMENT* e = m_source.FindFirstElement(from, key.tag, 1);
        return key.isSequence ? Sequence(e, to, key) : Value(e, to, key.tag, key.vr);
    });
}

// The recursion is as deep as the data set's sequences, which loading has limited.
bool ItemCopy::All(DICOMELEMENT* from, DICOMELEMENT* to) {
    std::set<VDicomULong> known; // of a tag that is there twice the first counts
    for (DICOMELEMENT* e = m_source.GetChildElement(from, 1); e != nullptr; e = m_source.GetNextElement(e, 1, 1)) {
        if (e->nTag == tag::kCharacterSet || (e->nTag & 0xFFFF) == 0 || !known.insert(e->nTag).second)
            continue;
        const WorklistKey whole{e->nTag, e->nVR, true, {}, {}};
        if (!(IsSequence(e) ? Sequence(e, to, whole) : Value(e, to, e->nTag, e->nVR)))
            return false;
    }
    return true;
}

} // namespace archive
