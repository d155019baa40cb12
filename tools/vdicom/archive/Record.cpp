#include "Record.h"

#include "Matching.h"

#include <algorithm>

namespace archive {

namespace vr = vdicom::vr;

namespace {

constexpr VDicomULong kLongestValue = 16 * 1024;

void ReadShorts(VDicomDS& ds, DICOMELEMENT* e, std::string& text) {
    const short* values = ds.GetShortValue(e, 0, DICOM_UNDEFINED);
    for (VDicomULong i = 0; values != nullptr && i < e->nCountValue; ++i) {
        if (i != 0)
            text += '\\';
        text += std::to_string(e->nVR == vr::US ? static_cast<int>(static_cast<unsigned short>(values[i])) : values[i]);
    }
}

void Remove(std::string& text, char c) { text.erase(std::remove(text.begin(), text.end(), c), text.end()); }

// Dates and times of before 1993 become those of today, so that they sort. Padding inside of several values goes.
void Normalise(unsigned short vr, std::string& text) {
    if (text.find('\\') == std::string::npos || vr == vr::LT || vr == vr::ST) {
        const std::string_view trimmed = Trim(text);
        if (trimmed.size() != text.size())
            text = std::string(trimmed);
    } else {
        std::string joined;
        AnyValue(text, [&](std::string_view value) {
            joined += Trim(value);
            joined += '\\';
            return false;
        });
        joined.pop_back();
        text = std::move(joined);
    }
    if (vr == vr::DA && text.size() == 10)
        Remove(text, '.');
    if (vr == vr::TM)
        Remove(text, ':');
}

Outcome Missing(const char* what) { return {status::kUnableToProcess, std::string("the object has no valid ") + what}; }

} // namespace

bool IsUid(std::string_view text) {
    return !text.empty() && text.size() <= 64 &&
           std::all_of(text.begin(), text.end(), [](char c) { return (c >= '0' && c <= '9') || c == '.'; });
}

void ReadText(VDicomDS& ds, DICOMELEMENT* e, unsigned short vr, std::vector<char>& scratch, std::string& text) {
    text.clear();
    if (e->nLength == 0 || e->nLength > kLongestValue) // undefined length as well
        return;
    if (e->nVR == vr::US || e->nVR == vr::SS) {
        ReadShorts(ds, e, text);
        return;
    }
    if (scratch.size() < 1024)
        scratch.resize(1024);
    VDicomULong needed = ds.GetUtf8Value(e, scratch.data(), static_cast<VDicomULong>(scratch.size()));
    if (needed > scratch.size()) {
        scratch.resize(needed);
        needed = ds.GetUtf8Value(e, scratch.data(), needed);
    }
    if (needed == 0)
        return;
    text.assign(scratch.data(), needed - 1);
    // A zero would end the value for some readers and not for others.
    Remove(text, '\0');
    Normalise(vr, text);
}

Outcome ReadRecord(VDicomDS& ds, Record& record) {
    std::vector<char> scratch;
    const Attribute* attribute = kAttributes;
    const Attribute* const end = kAttributes + kAttributeCount;
    // Both are in ascending order of tags.
    DICOMELEMENT* e = ds.GetFirstElement(nullptr, 1, 1);
    std::string syntax = ds.GetTransferSyntaxUID();
    while (e != nullptr && attribute != end) {
        if (e->nTag < attribute->tag) {
            e = reinterpret_cast<DICOMELEMENT*>(e->Link.pNext);
        } else if (e->nTag > attribute->tag) {
            ++attribute;
        } else {
            if (attribute->computed == nullptr)
                ReadText(ds, e, attribute->vr, scratch, record[*attribute]);
            e = reinterpret_cast<DICOMELEMENT*>(e->Link.pNext);
        }
    }
    record[*FindAttribute(tag::kAvailableSyntax)] = std::move(syntax);
    if (!IsUid(record.Get(tag::kClass)))
        return Missing("SOP Class UID");
    if (!IsUid(record.Get(tag::kInstance)))
        return Missing("SOP Instance UID");
    if (!IsUid(record.Get(tag::kStudy)))
        return Missing("Study Instance UID");
    if (!IsUid(record.Get(tag::kSeries)))
        return Missing("Series Instance UID");
    return {};
}

} // namespace archive
