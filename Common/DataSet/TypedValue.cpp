#include "TypedValue.h"
#include "VDicomVR.h"
#include "ValueDates.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <limits>
#include <new>

namespace vdicom {

namespace {

constexpr VDicomLong kLargestLong = std::numeric_limits<VDicomLong>::max();
constexpr VDicomLong kSmallestLong = std::numeric_limits<VDicomLong>::min();

// Behind the values of texts that are parsed: one of these for each.
enum ValueState : unsigned char { kGood, kEmpty, kBad };

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
using Memory = std::unique_ptr<unsigned char, FreeMemory>;

Memory Allocate(VDicomUInt64 size) {
    if (size > std::numeric_limits<std::size_t>::max() / 2)
        return nullptr;
    return Memory(static_cast<unsigned char*>(std::malloc(static_cast<std::size_t>(size))));
}

constexpr ValueForm Form(ValueKind kind, std::size_t size, bool isSigned = false) {
    return {kind, static_cast<unsigned short>(size), isSigned, false};
}

ValueForm FindKnownForm(unsigned short code) {
    switch (code) {
    case vr::OW:
    case vr::US:
        return Form(ValueKind::Shorts, 2);
    case vr::SS:
        return Form(ValueKind::Shorts, 2, true);
    case vr::OL:
    case vr::UL:
        return Form(ValueKind::Longs, 4);
    case vr::SL:
        return Form(ValueKind::Longs, 4, true);
    case vr::AT:
        return Form(ValueKind::Tags, 4);
    case vr::OV:
    case vr::UV:
        return Form(ValueKind::Long64s, 8);
    case vr::SV:
        return Form(ValueKind::Long64s, 8, true);
    case vr::FL:
    case vr::OF:
        return Form(ValueKind::Floats, 4);
    case vr::FD:
    case vr::OD:
        return Form(ValueKind::Doubles, 8);
    case vr::IS:
        return Form(ValueKind::Integers, 4);
    case vr::DS:
        return Form(ValueKind::Decimals, 8);
    case vr::AS:
        return Form(ValueKind::Ages, sizeof(VALUEAGE));
    case vr::DA:
        return Form(ValueKind::Dates, sizeof(VALUEDATE));
    case vr::TM:
        return Form(ValueKind::Times, sizeof(VALUETIME));
    case vr::DT:
        return Form(ValueKind::DateTimes, sizeof(VALUEDATETIME));
    default: {
        const VRTraits* traits = FindVRTraits(code);
        return Form(traits != nullptr && traits->text ? ValueKind::Strings : ValueKind::Bytes, 1);
    }
    }
}

template <class Value> ValueState Put(unsigned char* at, ValueState state, const Value& value) {
    std::memcpy(at, &value, sizeof value);
    return state;
}

template <class Value> ValueState ParseRecord(std::string_view text, unsigned char* at, const Value& empty) {
    Value value = empty;
    if (text.empty())
        return Put(at, kEmpty, empty);
    return Put(at, Parse(text, value) ? kGood : kBad, value);
}

ValueState ParseOne(ValueKind kind, std::string_view text, unsigned char* at) {
    switch (kind) {
    case ValueKind::Integers: {
        std::int64_t number = 0;
        const bool good = ParseInteger(text, number);
        number = std::clamp<std::int64_t>(number, kSmallestLong, kLargestLong);
        return Put(at, good ? kGood : text.empty() ? kEmpty : kBad, static_cast<VDicomLong>(number));
    }
    case ValueKind::Decimals: {
        double number = 0;
        const bool good = ParseDecimal(text, number);
        return Put(at, good ? kGood : text.empty() ? kEmpty : kBad, number);
    }
    case ValueKind::Ages:
        return ParseRecord(text, at, VALUEAGE{});
    case ValueKind::Dates:
        return ParseRecord(text, at, kEmptyDate);
    case ValueKind::Times:
        return ParseRecord(text, at, kEmptyTime);
    default:
        return ParseRecord(text, at, VALUEDATETIME{});
    }
}

void SwapHalves(unsigned char* tags, std::size_t size) {
    for (std::size_t at = 0; at + 4 <= size; at += 4) {
        std::uint16_t halves[2];
        std::memcpy(halves, tags + at, 4);
        std::swap(halves[0], halves[1]);
        std::memcpy(tags + at, halves, 4);
    }
}

bool ParseBinary(const DataSetState& state, DICOMELEMENT* e, const ValueForm& form) {
    const PieceList list(e);
    Memory bytes = list.Exists() ? Allocate(VDicomUInt64{e->nLength} + 1) : nullptr;
    if (bytes == nullptr || !list.ReadHost(state.SwapUnitOf(e), 0, bytes.get(), e->nLength))
        return false;
    bytes.get()[e->nLength] = 0;
    // In host order each half of a tag is a number, the group before the element.
    if (form.kind == ValueKind::Tags)
        SwapHalves(bytes.get(), e->nLength);
    e->nCountValue = e->nLength / form.size;
    e->pTypeValue = bytes.release();
    return true;
}

// Behind many strings stands where every 64th of them begins, so that a loop over all takes linear time.
constexpr VDicomULong kStringMark = 64;

std::uint32_t* StringMarks(const DICOMELEMENT* e) {
    const std::size_t size = (std::size_t{e->nLength} + 1 + 3) / 4 * 4;
    return reinterpret_cast<std::uint32_t*>(static_cast<char*>(e->pTypeValue) + size);
}

bool ParseStrings(const DataSetState& state, DICOMELEMENT* e, const ValueForm& form) {
    const PieceList list(e);
    Memory bytes = list.Exists() ? Allocate(VDicomUInt64{e->nLength} + 1) : nullptr;
    if (bytes == nullptr || !list.ReadStored(0, bytes.get(), e->nLength))
        return false;
    char* text = reinterpret_cast<char*>(bytes.get());
    const std::string_view whole(text, e->nLength);
    // A string takes no more room than its value with the backslash behind it, so it can be moved up in place.
    ValueSplitter splitter(whole, FindSplitRule(state, e, form, whole));
    std::size_t used = 0;
    VDicomULong count = 0;
    for (std::string_view value; splitter.Next(value); ++count) {
        value = form.single ? TrimText(value) : TrimValue(value);
        std::memmove(text + used, value.data(), value.size());
        used += value.size();
        text[used++] = '\0';
    }
    const std::size_t marks = count == 0 ? 0 : (count - 1) / kStringMark;
    if (marks != 0) {
        void* grown = std::realloc(bytes.get(), std::size_t{e->nLength} + 4 + marks * 4);
        if (grown == nullptr)
            return false;
        static_cast<void>(bytes.release());
        bytes.reset(static_cast<unsigned char*>(grown));
    }
    e->nCountValue = count;
    e->pTypeValue = bytes.release();
    const char* at = static_cast<const char*>(e->pTypeValue);
    for (std::size_t mark = 0; mark < marks; ++mark) {
        for (VDicomULong i = 0; i < kStringMark; ++i)
            at += std::strlen(at) + 1;
        StringMarks(e)[mark] = static_cast<std::uint32_t>(at - static_cast<const char*>(e->pTypeValue));
    }
    return true;
}

bool ParseTexts(const DataSetState& state, DICOMELEMENT* e, const ValueForm& form) {
    RawText text;
    if (!text.Read(e))
        return false;
    const SplitRule rule = FindSplitRule(state, e, form, text.View());
    const std::size_t count = CountValues(text.View(), rule);
    Memory bytes = Allocate(VDicomUInt64{count} * (form.size + 1U));
    if (bytes == nullptr)
        return false;
    unsigned char* states = bytes.get() + count * form.size;
    bool anyBad = false;
    bool anyOther = false;
    ValueSplitter splitter(text.View(), rule);
    std::size_t index = 0;
    for (std::string_view value; splitter.Next(value); ++index) {
        const ValueState result = ParseOne(form.kind, TrimValue(value), bytes.get() + index * form.size);
        states[index] = result;
        (result == kBad ? anyBad : anyOther) = true;
    }
    if (anyBad && !anyOther)
        return false;
    e->nCountValue = static_cast<VDicomULong>(count);
    e->pTypeValue = bytes.release();
    return true;
}

template <class Value> Value ValueAt(const void* values, std::size_t index) {
    Value value;
    std::memcpy(&value, static_cast<const unsigned char*>(values) + index * sizeof value, sizeof value);
    return value;
}

template <class Value, class Range>
bool EncodeRecord(const void* values, std::size_t index, bool range, ValueBuffer& out) {
    return range ? Encode(ValueAt<Range>(values, index), out) : Encode(ValueAt<Value>(values, index), out);
}

bool EncodeOne(ValueKind kind, const void* values, std::size_t index, bool range, ValueBuffer& out) {
    switch (kind) {
    case ValueKind::Integers:
        out.PutSigned(ValueAt<VDicomLong>(values, index));
        return true;
    case ValueKind::Decimals:
        return FormatDecimal(ValueAt<double>(values, index), out);
    case ValueKind::Ages:
        return Encode(ValueAt<VALUEAGE>(values, index), out);
    case ValueKind::Dates:
        return EncodeRecord<VALUEDATE, VALUEDATERANGE>(values, index, range, out);
    case ValueKind::Times:
        return EncodeRecord<VALUETIME, VALUETIMERANGE>(values, index, range, out);
    default:
        return EncodeRecord<VALUEDATETIME, VALUEDATETIMERANGE>(values, index, range, out);
    }
}

bool EncodeTags(DataSetState& state, DICOMELEMENT* e, const void* values, VDicomULong size) {
    Memory bytes = Allocate(size);
    if (bytes == nullptr)
        return false;
    std::memcpy(bytes.get(), values, size);
    SwapHalves(bytes.get(), size);
    return StoreValue(state, e, bytes.get(), size) == DICOM_OK;
}

} // namespace

ValueForm FindValueForm(unsigned short code) {
    ValueForm form = FindKnownForm(code);
    const VRTraits* traits = FindVRTraits(code);
    const DICOMVR* row = VDicomVR::Find(code);
    if (row == nullptr) {
        form.single = traits != nullptr && traits->text && !traits->multiple;
        return form;
    }
    if (traits == nullptr) { // a VR of the application's own
        if ((row->nRestrict & DICOM_VR_BINARY) == 0 && (row->nRestrict & (DICOM_VR_STRING | DICOM_VR_TEXT)) != 0)
            form = Form(ValueKind::Strings, 1);
        else
            form.size = std::max<unsigned short>(row->nUnitSize, 1);
    }
    form.single = !IsBinary(form.kind) && (row->nRestrict & DICOM_VR_TEXT) != 0;
    return form;
}

bool IsOfType(unsigned short code, unsigned short type) {
    constexpr unsigned short last = 10;
    const auto isOne = [code](auto... codes) { return ((code == codes) || ...); };
    switch (type) {
    case 0:
        return isOne(vr::OB, vr::SQ, vr::UN);
    case 1:
        return isOne(vr::OW, vr::SS, vr::US);
    case 2:
        return isOne(vr::AT, vr::IS, vr::SL, vr::UL, vr::OL);
    case 3:
        return isOne(vr::FL, vr::OF);
    case 4:
        return isOne(vr::DS, vr::FD, vr::OD);
    case 5:
        return isOne(vr::AE, vr::CS, vr::LO, vr::LT, vr::SH, vr::ST, vr::UI, vr::UT, vr::PN, vr::UC, vr::UR);
    case 6:
        return code == vr::AS;
    case 7:
        return code == vr::DA;
    case 8:
        return code == vr::TM;
    case 9:
        return code == vr::DT;
    case last:
        return isOne(vr::IS, vr::SV, vr::UV, vr::OV);
    default:
        return true;
    }
}

bool RawText::Read(const DICOMELEMENT* e) {
    const PieceList list(e);
    m_size = list.Length();
    char* to = m_small;
    if (m_size > sizeof m_small) {
        if (list.Exists())
            m_large.reset(new (std::nothrow) char[m_size]);
        to = m_large.get();
    }
    return to != nullptr && list.ReadStored(0, to, list.Length());
}

SplitRule FindSplitRule(const DataSetState& state, const DICOMELEMENT* e, const ValueForm& form,
                        std::string_view text) {
    if (form.single)
        return SplitRule::Never;
    const VRTraits* traits = FindVRTraits(e->nVR);
    const bool hidden = traits != nullptr && traits->charset && MayHideBackslash(text) &&
                        state.characterSets.Of(state.tree, e).HidesBackslash();
    return hidden ? SplitRule::Chinese : SplitRule::Everywhere;
}

bool ParseTypedValue(const DataSetState& state, DICOMELEMENT* e) {
    if (e->nCountValue != DICOM_UNDEFINED)
        return true;
    if (IsUndefinedLength(e))
        return false;
    if (e->nLength == 0) {
        e->nCountValue = 0;
        return true;
    }
    const ValueForm form = FindValueForm(e->nVR);
    if (IsBinary(form.kind))
        return ParseBinary(state, e, form);
    return form.kind == ValueKind::Strings ? ParseStrings(state, e, form) : ParseTexts(state, e, form);
}

char* StringAt(const DICOMELEMENT* e, VDicomULong index) {
    char* text = static_cast<char*>(e->pTypeValue);
    if (index >= kStringMark)
        text += StringMarks(e)[index / kStringMark - 1];
    for (index %= kStringMark; index > 0; --index)
        text += std::strlen(text) + 1;
    return text;
}

bool AreGoodValues(const DICOMELEMENT* e, const ValueForm& form, VDicomULong index, VDicomULong count) {
    if (form.kind <= ValueKind::Strings)
        return true;
    const bool emptyIsGood = form.kind == ValueKind::Dates || form.kind == ValueKind::Times;
    const unsigned char* states =
        static_cast<const unsigned char*>(e->pTypeValue) + std::size_t{e->nCountValue} * form.size;
    return std::all_of(states + index, states + index + count, [emptyIsGood](unsigned char state) {
        return state == kGood || (state == kEmpty && emptyIsGood);
    });
}

bool StoreText(DataSetState& state, DICOMELEMENT* e, std::string_view bytes) {
    return bytes.size() <= kLongestValue &&
           StoreValue(state, e, bytes.data(), static_cast<VDicomULong>(bytes.size())) == DICOM_OK;
}

bool EncodeTypedValue(DataSetState& state, DICOMELEMENT* e, unsigned short code, const void* values, VDicomULong count,
                      bool range) {
    const ValueForm form = FindValueForm(code);
    const bool hasRanges =
        form.kind == ValueKind::Dates || form.kind == ValueKind::Times || form.kind == ValueKind::DateTimes;
    if ((values == nullptr && count != 0) || count == DICOM_UNDEFINED || (range && !hasRanges))
        return false;
    if (count == 0)
        return StoreValue(state, e, nullptr, 0) == DICOM_OK;
    if (IsBinary(form.kind)) {
        const VDicomUInt64 size = VDicomUInt64{count} * form.size;
        if (size > kLongestValue)
            return false;
        if (form.kind == ValueKind::Tags)
            return EncodeTags(state, e, values, static_cast<VDicomULong>(size));
        return StoreValue(state, e, values, static_cast<VDicomULong>(size)) == DICOM_OK;
    }
    try {
        TextJoiner joiner;
        if (form.kind == ValueKind::Strings) {
            if (form.single && count != 1)
                return false;
            const char* text = static_cast<const char*>(values);
            for (VDicomULong i = 0; i < count; ++i) {
                const std::string_view value(text);
                joiner.Add(value);
                text += value.size() + 1;
            }
        } else {
            for (VDicomULong i = 0; i < count; ++i) {
                ValueBuffer value;
                if (!EncodeOne(form.kind, values, i, range, value))
                    return false;
                joiner.Add(value.View());
            }
        }
        return StoreText(state, e, joiner.Text());
    } catch (const std::exception&) { // no memory
        return false;
    }
}

} // namespace vdicom
