// VDicomDS: typed values.
#include "TypedValue.h"
#include "VDicomVR.h"
#include "ValueDates.h"

#include <cstring>

using namespace vdicom;

namespace {

constexpr unsigned short kChar = 0, kShort = 1, kLong = 2, kFloat = 3, kDouble = 4, kString = 5, kAge = 6, kDate = 7,
                         kTime = 8, kDateTime = 9, kLong64 = 10;

// Whether `e` is of this type and has the values; a count of DICOM_UNDEFINED becomes their number.
bool HasValues(const DataSetState& state, DICOMELEMENT* e, VDicomULong index, VDicomULong& count, unsigned short type) {
    if (e == nullptr || !IsOfType(e->nVR, type) || !ParseTypedValue(state, e) || index > e->nCountValue)
        return false;
    if (count == DICOM_UNDEFINED)
        count = e->nCountValue - index;
    return count <= e->nCountValue - index;
}

// The values from `index` on, all of which are good ones, or null.
unsigned char* FindValues(const DataSetState& state, DICOMELEMENT* e, VDicomULong index, VDicomULong count,
                          unsigned short type) {
    if (!HasValues(state, e, index, count, type) || index == e->nCountValue)
        return nullptr;
    const ValueForm form = FindValueForm(e->nVR);
    if (!AreGoodValues(e, form, index, count))
        return nullptr;
    if (form.kind == ValueKind::Strings)
        return reinterpret_cast<unsigned char*>(StringAt(e, index));
    return static_cast<unsigned char*>(e->pTypeValue) + std::size_t{index} * form.size;
}

template <class Value>
Value* FindTyped(const DataSetState& state, DICOMELEMENT* e, VDicomULong index, VDicomULong count,
                 unsigned short type) {
    return state.Check(e) ? reinterpret_cast<Value*>(FindValues(state, e, index, count, type)) : nullptr;
}

// Dates and times: an empty one is reported like an invalid element.
template <class Value>
Value* FindFilled(const DataSetState& state, DICOMELEMENT* e, VDicomULong index, VDicomULong count,
                  unsigned short type) {
    if (!state.Check(e))
        return nullptr;
    auto* value = reinterpret_cast<Value*>(FindValues(state, e, index, count, type));
    if (value != nullptr && !IsEmpty(*value))
        return value;
    const bool empty = value != nullptr || (e != nullptr && IsOfType(e->nVR, type) && e->nLength == 0 && index == 0);
    if (empty && state.callback != nullptr)
        state.callback(e, DICOM_INVALID_ELEMENT, state.callbackData);
    return nullptr;
}

unsigned int SetValues(DataSetState& state, DICOMELEMENT* e, const void* values, VDicomULong count, unsigned short type,
                       bool range = false) {
    if (!state.Check(e) || e == nullptr || IsUndefinedLength(e) || !IsOfType(e->nVR, type))
        return 0;
    return EncodeTypedValue(state, e, e->nVR, values, count, range) ? 1 : 0;
}

// Hands out value number `index` of a text.
template <class Use> bool WithTextValue(const DataSetState& state, const DICOMELEMENT* e, VDicomULong index, Use use) {
    RawText text;
    if (e->nLength == 0 || IsUndefinedLength(e) || !text.Read(e))
        return false;
    ValueSplitter splitter(text.View(), FindSplitRule(state, e, FindValueForm(e->nVR), text.View()));
    std::string_view value;
    for (VDicomUInt64 i = 0; i <= index; ++i) {
        if (!splitter.Next(value))
            return false;
    }
    return use(TrimValue(value), splitter);
}

template <class Range> bool FindRange(const DataSetState& state, const DICOMELEMENT* e, VDicomULong index, void* out) {
    return WithTextValue(state, e, index, [out](std::string_view value, ValueSplitter&) {
        Range range{};
        if (!Parse(value, range))
            return false;
        std::memcpy(out, &range, sizeof range);
        return true;
    });
}

bool FindIntegers(const DataSetState& state, const DICOMELEMENT* e, VDicomUInt64* out, VDicomULong index,
                  VDicomULong count) {
    if (count == 0)
        return true;
    return WithTextValue(state, e, index, [=](std::string_view value, ValueSplitter& splitter) {
        for (VDicomULong i = 0; i < count; ++i) {
            std::int64_t number = 0;
            if (i > 0 && !splitter.Next(value))
                return false;
            if (!ParseInteger(TrimValue(value), number))
                return false;
            out[i] = static_cast<VDicomUInt64>(number);
        }
        return true;
    });
}

// Bytes of one value of a type in the typed buffer; 0 for texts and types that are none.
std::size_t SizeOfType(unsigned short type) {
    constexpr std::size_t sizes[] = {
        1, 2, 4, 4, 8, 0, sizeof(VALUEAGE), sizeof(VALUEDATE), sizeof(VALUETIME), sizeof(VALUEDATETIME), 8};
    return type < std::size(sizes) ? sizes[type] : 0;
}

} // namespace

VDicomULong VDicomDS::GetCountValue(DICOMELEMENT* e) {
    return m_pState->Check(e) && e != nullptr && ParseTypedValue(*m_pState, e) ? e->nCountValue : 0;
}

unsigned int VDicomDS::VerifyTypeValue(DICOMELEMENT* e, VDicomULong index, VDicomULong* count, unsigned short type) {
    return m_pState->Check(e) && count != nullptr && HasValues(*m_pState, e, index, *count, type) ? 1 : 0;
}

char* VDicomDS::GetCharValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindTyped<char>(*m_pState, e, index, count, kChar);
}

short* VDicomDS::GetShortValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindTyped<short>(*m_pState, e, index, count, kShort);
}

VDicomLong* VDicomDS::GetLongValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindTyped<VDicomLong>(*m_pState, e, index, count, kLong);
}

float* VDicomDS::GetFloatValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindTyped<float>(*m_pState, e, index, count, kFloat);
}

double* VDicomDS::GetDoubleValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindTyped<double>(*m_pState, e, index, count, kDouble);
}

char* VDicomDS::GetStringValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindTyped<char>(*m_pState, e, index, count, kString);
}

VALUEAGE* VDicomDS::GetAgeValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindTyped<VALUEAGE>(*m_pState, e, index, count, kAge);
}

VALUEDATE* VDicomDS::GetDateValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindFilled<VALUEDATE>(*m_pState, e, index, count, kDate);
}

VALUETIME* VDicomDS::GetTimeValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindFilled<VALUETIME>(*m_pState, e, index, count, kTime);
}

VALUEDATETIME* VDicomDS::GetDateTimeValue(DICOMELEMENT* e, VDicomULong index, VDicomULong count) {
    return FindTyped<VALUEDATETIME>(*m_pState, e, index, count, kDateTime);
}

unsigned int VDicomDS::GetDateRangeValue(DICOMELEMENT* e, VDicomULong index, VALUEDATERANGE* range) {
    return GetXRangeValue(e, index, range, kDate);
}

unsigned int VDicomDS::GetTimeRangeValue(DICOMELEMENT* e, VDicomULong index, VALUETIMERANGE* range) {
    return GetXRangeValue(e, index, range, kTime);
}

unsigned int VDicomDS::GetDateTimeRangeValue(DICOMELEMENT* e, VDicomULong index, VALUEDATETIMERANGE* range) {
    return GetXRangeValue(e, index, range, kDateTime);
}

unsigned int VDicomDS::GetXRangeValue(DICOMELEMENT* e, VDicomULong index, void* range, unsigned short type) {
    if (!m_pState->Check(e) || e == nullptr || range == nullptr || type < kDate || type > kDateTime ||
        !IsOfType(e->nVR, type))
        return DICOM_ERROR_PARAMETER;
    const bool found = type == kDate   ? FindRange<VALUEDATERANGE>(*m_pState, e, index, range)
                       : type == kTime ? FindRange<VALUETIMERANGE>(*m_pState, e, index, range)
                                       : FindRange<VALUEDATETIMERANGE>(*m_pState, e, index, range);
    return found ? DICOM_OK : DICOM_ERROR_PARAMETER;
}

unsigned int VDicomDS::GetLong64Value(DICOMELEMENT* e, VDicomUInt64* out, VDicomULong index, VDicomULong count) {
    if (!m_pState->Check(e) || out == nullptr || !HasValues(*m_pState, e, index, count, kLong64))
        return 0;
    if (e->nVR == vr::IS)
        return FindIntegers(*m_pState, e, out, index, count) ? 1 : 0;
    if (count > 0)
        std::memcpy(out, static_cast<const VDicomUInt64*>(e->pTypeValue) + index, std::size_t{count} * sizeof *out);
    return 1;
}

unsigned int VDicomDS::SetCharValue(DICOMELEMENT* e, const char* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kChar);
}

unsigned int VDicomDS::SetShortValue(DICOMELEMENT* e, const short* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kShort);
}

unsigned int VDicomDS::SetLongValue(DICOMELEMENT* e, const VDicomLong* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kLong);
}

unsigned int VDicomDS::SetFloatValue(DICOMELEMENT* e, const float* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kFloat);
}

unsigned int VDicomDS::SetDoubleValue(DICOMELEMENT* e, const double* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kDouble);
}

unsigned int VDicomDS::SetStringValue(DICOMELEMENT* e, const char* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kString);
}

unsigned int VDicomDS::SetAgeValue(DICOMELEMENT* e, const VALUEAGE* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kAge);
}

unsigned int VDicomDS::SetDateValue(DICOMELEMENT* e, const VALUEDATE* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kDate);
}

unsigned int VDicomDS::SetTimeValue(DICOMELEMENT* e, const VALUETIME* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kTime);
}

unsigned int VDicomDS::SetDateTimeValue(DICOMELEMENT* e, const VALUEDATETIME* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kDateTime);
}

unsigned int VDicomDS::SetDateRangeValue(DICOMELEMENT* e, const VALUEDATERANGE* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kDate, true);
}

unsigned int VDicomDS::SetTimeRangeValue(DICOMELEMENT* e, const VALUETIMERANGE* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kTime, true);
}

unsigned int VDicomDS::SetDateTimeRangeValue(DICOMELEMENT* e, const VALUEDATETIMERANGE* values, VDicomULong count) {
    return SetValues(*m_pState, e, values, count, kDateTime, true);
}

unsigned int VDicomDS::SetLong64Value(DICOMELEMENT* e, const VDicomUInt64* values, VDicomULong count) {
    if (!m_pState->Check(e) || e == nullptr || IsUndefinedLength(e) || !IsOfType(e->nVR, kLong64) ||
        (values == nullptr && count != 0) || count == DICOM_UNDEFINED)
        return 0;
    if (e->nVR != vr::IS)
        return EncodeTypedValue(*m_pState, e, e->nVR, values, count, false) ? 1 : 0;
    try {
        TextJoiner joiner;
        for (VDicomULong i = 0; i < count; ++i) {
            ValueBuffer number;
            number.PutSigned(static_cast<std::int64_t>(values[i]));
            joiner.Add(number.View());
        }
        return StoreText(*m_pState, e, joiner.Text()) ? 1 : 0;
    } catch (const std::exception&) { // no memory
        return 0;
    }
}

unsigned int VDicomDS::GetTypeValue(DICOMELEMENT* e) {
    return m_pState->Check(e) && e != nullptr && ParseTypedValue(*m_pState, e) ? 1 : 0;
}

unsigned int VDicomDS::SetTypeValue(DICOMELEMENT* e, const void* values, VDicomULong count, unsigned int range) {
    if (!m_pState->Check(e) || e == nullptr || IsUndefinedLength(e))
        return 0;
    return EncodeTypedValue(*m_pState, e, e->nVR, values, count, range != 0) ? 1 : 0;
}

unsigned int VDicomDS::FindGetValue(DICOMELEMENT* parent, VDicomULong tag, unsigned short type, void* out,
                                    VDicomULong size) {
    if (!m_pState->Check(parent) || out == nullptr)
        return 0;
    DICOMELEMENT* e = m_pState->tree.FindChild(parent, tag);
    if (e == nullptr)
        return 0;
    const void* value = nullptr;
    std::size_t bytes = SizeOfType(type);
    VDicomUInt64 integer = 0;
    if (type == kString) {
        const char* text = GetStringValue(e, 0, 1);
        value = text;
        bytes = text == nullptr ? 0 : std::strlen(text) + 1;
    } else if (type == kDate) {
        value = GetDateValue(e, 0, 1);
    } else if (type == kTime) {
        value = GetTimeValue(e, 0, 1);
    } else if (type == kLong64) {
        value = GetLong64Value(e, &integer, 0, 1) != 0 ? &integer : nullptr;
    } else if (bytes != 0) {
        value = FindValues(*m_pState, e, 0, 1, type);
    }
    if (value == nullptr || bytes > size)
        return 0;
    std::memcpy(out, value, bytes);
    return 1;
}

unsigned int VDicomDS::FindSetValue(DICOMELEMENT* parent, VDicomULong tag, unsigned short vr, const void* values,
                                    VDicomULong count) {
    if (!m_pState->Check(parent))
        return 0;
    DICOMELEMENT* e = m_pState->tree.FindChild(parent, tag);
    if (e != nullptr && vr != 0 && FindValueForm(vr).kind != FindValueForm(e->nVR).kind) {
        // Values of another form would be taken for what they are not; "UN" holds any text.
        if ((e->nVR != vdicom::vr::UN && e->nVR != 0) || IsBinary(FindValueForm(vr).kind) || IsUndefinedLength(e))
            return 0;
        return EncodeTypedValue(*m_pState, e, vr, values, count, false) ? 1 : 0;
    }
    if (e != nullptr)
        return SetTypeValue(e, values, count, 0);
    e = InsertElement(parent, 1, tag, vr, 0, DICOM_UNDEFINED);
    if (e == nullptr)
        return 0;
    if (SetTypeValue(e, values, count, 0) != 0)
        return 1;
    DeleteElement(e);
    return 0;
}

void VDicomDS::DelSpaces(char* s, VDicomULong length) {
    if (s == nullptr)
        return;
    s[length] = '\0';
    std::size_t size = std::strlen(s);
    const std::size_t blanks = std::strspn(s, " ");
    if (blanks != 0 && blanks != size) {
        size -= blanks;
        std::memmove(s, s + blanks, size + 1);
    }
    while (size > 0 && s[size - 1] == ' ')
        s[--size] = '\0';
}

void VDicomDS::DelSpaces(char* s) {
    if (s != nullptr)
        DelSpaces(s, static_cast<VDicomULong>(std::strlen(s)));
}

void VDicomDS::FreeValue(DICOMELEMENT* e) {
    if (m_pState->Check(e) && e != nullptr)
        ElementTree::FreeTypeValue(e);
}

unsigned short VDicomDS::GetSizeVR(unsigned short vr) {
    const DICOMVR* row = VDicomVR::Find(vr);
    if (row != nullptr)
        return row->nUnitSize == 0 ? 1 : row->nUnitSize;
    const ValueForm form = FindValueForm(vr);
    return IsBinary(form.kind) ? form.size : 1;
}

unsigned int VDicomDS::VerifyVR(DICOMELEMENT* e, unsigned short type) {
    return m_pState->Check(e) && e != nullptr && IsOfType(e->nVR, type) ? 1 : 0;
}
