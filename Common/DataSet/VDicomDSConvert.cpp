// VDicomDS: values as texts for people, and back.
#include "TypedValue.h"
#include "ValueDates.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <limits>
#include <vector>

using namespace vdicom;

namespace {

// Counts what a text needs and writes it where somebody wants it.
class TextSink {
public:
    explicit TextSink(char* out) : m_out(out) {}

    // False when the text is longer than its size can say.
    bool Add(std::string_view value) {
        if (value.size() + 1 > std::numeric_limits<VDicomULong>::max() - m_size)
            return false;
        if (m_out != nullptr) {
            if (m_size > 0)
                m_out[m_size - 1] = '\\';
            std::memcpy(m_out + m_size, value.data(), value.size());
            m_out[m_size + value.size()] = '\0';
        }
        m_size += value.size() + 1;
        return true;
    }
    VDicomULong Size() const { return static_cast<VDicomULong>(m_size); }

private:
    char* m_out;
    VDicomUInt64 m_size = 0;
};

template <class Number> Number NumberAt(const unsigned char* at) {
    Number number;
    std::memcpy(&number, at, sizeof number);
    return number;
}

template <class Unsigned, class Signed> void PutInteger(const unsigned char* at, bool isSigned, ValueBuffer& out) {
    if (isSigned)
        out.PutSigned(NumberAt<Signed>(at));
    else
        out.PutNumber(NumberAt<Unsigned>(at));
}

// One binary value in host order.
void PutBinary(const ValueForm& form, const unsigned char* at, ValueBuffer& out) {
    switch (form.kind) {
    case ValueKind::Shorts:
        PutInteger<std::uint16_t, std::int16_t>(at, form.isSigned, out);
        break;
    case ValueKind::Longs:
        PutInteger<std::uint32_t, std::int32_t>(at, form.isSigned, out);
        break;
    case ValueKind::Long64s:
        PutInteger<std::uint64_t, std::int64_t>(at, form.isSigned, out);
        break;
    case ValueKind::Tags:
        FormatHex(NumberAt<std::uint16_t>(at), 4, out);
        out.Put(':');
        FormatHex(NumberAt<std::uint16_t>(at + 2), 4, out);
        break;
    case ValueKind::Floats:
        FormatFixed(NumberAt<float>(at), out);
        break;
    case ValueKind::Doubles:
        FormatGeneral(NumberAt<double>(at), out);
        break;
    default:
        FormatHex(*at, 2, out);
        break;
    }
}

VDicomULong BytesPerText(const ValueForm& form) { return form.kind == ValueKind::Bytes ? 1 : form.size; }

bool ConvertBinary(const DataSetState& state, const DICOMELEMENT* e, const ValueForm& form, TextSink& sink) {
    constexpr VDicomULong chunk = 4096; // on the stack; a multiple of every unit
    const PieceList list(e);
    if (!list.Exists())
        return false;
    const unsigned int unit = state.SwapUnitOf(e);
    const VDicomULong size = BytesPerText(form);
    const VDicomULong end = e->nLength - e->nLength % size;
    unsigned char bytes[chunk];
    for (VDicomULong at = 0; at < end;) {
        const VDicomULong part = std::min(end - at, chunk);
        if (!list.ReadHost(unit, at, bytes, part))
            return false;
        for (VDicomULong i = 0; i < part; i += size) {
            ValueBuffer value;
            PutBinary(form, bytes + i, value);
            if (!sink.Add(value.View()))
                return false;
        }
        at += part;
    }
    return true;
}

template <class Value, class Range> bool PutRecord(std::string_view text, ValueBuffer& out) {
    Value value{};
    if (Parse(text, value)) {
        Display(value, out);
        return true;
    }
    Range range{};
    if (!Parse(text, range))
        return false;
    Display(range, out);
    return true;
}

// One value of a text that is parsed; an empty one stays empty.
bool PutText(ValueKind kind, std::string_view text, ValueBuffer& out) {
    if (text.empty())
        return true;
    switch (kind) {
    case ValueKind::Integers: { // also those that need 64 bits
        std::int64_t number = 0;
        const bool good = ParseInteger(text, number);
        out.PutSigned(number);
        return good;
    }
    case ValueKind::Decimals: {
        double number = 0;
        const bool good = ParseDecimal(text, number);
        FormatGeneral(number, out);
        return good;
    }
    case ValueKind::Ages: {
        VALUEAGE age{};
        const bool good = Parse(text, age);
        Display(age, out);
        return good;
    }
    case ValueKind::Dates:
        return PutRecord<VALUEDATE, VALUEDATERANGE>(text, out);
    case ValueKind::Times:
        return PutRecord<VALUETIME, VALUETIMERANGE>(text, out);
    default:
        return PutRecord<VALUEDATETIME, VALUEDATETIMERANGE>(text, out);
    }
}

bool ConvertText(const DataSetState& state, const DICOMELEMENT* e, const ValueForm& form, TextSink& sink) {
    RawText text;
    if (!text.Read(e))
        return false;
    ValueSplitter splitter(text.View(), FindSplitRule(state, e, form, text.View()));
    for (std::string_view value; splitter.Next(value);) {
        if (form.kind == ValueKind::Strings) {
            if (!sink.Add(form.single ? TrimText(value) : TrimValue(value)))
                return false;
            continue;
        }
        ValueBuffer shown;
        if (!PutText(form.kind, TrimValue(value), shown) || !sink.Add(shown.View()))
            return false;
    }
    return true;
}

template <class Number> void PutNumber(Number number, unsigned char* at) { std::memcpy(at, &number, sizeof number); }

template <class Unsigned, class Signed> bool ParseNumber(std::string_view text, bool isSigned, unsigned char* at) {
    if (isSigned) {
        std::int64_t number = 0;
        if (!ParseSigned(text, std::numeric_limits<Signed>::min(), std::numeric_limits<Signed>::max(), number))
            return false;
        PutNumber(static_cast<Signed>(number), at);
        return true;
    }
    std::uint64_t number = 0;
    if (!ParseUnsigned(text, std::numeric_limits<Unsigned>::max(), number))
        return false;
    PutNumber(static_cast<Unsigned>(number), at);
    return true;
}

template <class Real> bool ParseRealNumber(std::string_view text, unsigned char* at) {
    Real number = 0;
    if (!ParseReal(text, number))
        return false;
    PutNumber(number, at);
    return true;
}

// "gggg:eeee", whose halves stand in host order one after the other.
bool ParseTag(std::string_view text, unsigned char* at) {
    std::uint32_t group = 0;
    std::uint32_t element = 0;
    if (text.size() != 9 || text[4] != ':' || !ParseHex(text.substr(0, 4), 4, group) ||
        !ParseHex(text.substr(5), 4, element))
        return false;
    PutNumber(static_cast<std::uint16_t>(group), at);
    PutNumber(static_cast<std::uint16_t>(element), at + 2);
    return true;
}

bool ParseBinary(const ValueForm& form, std::string_view text, unsigned char* at) {
    switch (form.kind) {
    case ValueKind::Shorts:
        return ParseNumber<std::uint16_t, std::int16_t>(text, form.isSigned, at);
    case ValueKind::Longs:
        return ParseNumber<std::uint32_t, std::int32_t>(text, form.isSigned, at);
    case ValueKind::Long64s:
        return ParseNumber<std::uint64_t, std::int64_t>(text, form.isSigned, at);
    case ValueKind::Tags:
        return ParseTag(text, at);
    case ValueKind::Floats:
        return ParseRealNumber<float>(text, at);
    case ValueKind::Doubles:
        return ParseRealNumber<double>(text, at);
    default: {
        std::uint32_t byte = 0;
        if (!ParseHex(text, 2, byte))
            return false;
        *at = static_cast<unsigned char>(byte);
        return true;
    }
    }
}

// What a data set holds of one value of a text VR.
bool EncodeText(ValueKind kind, std::string_view text, ValueBuffer& out) {
    if (text.empty())
        return true;
    switch (kind) {
    case ValueKind::Integers: {
        std::int64_t number = 0;
        const bool good = ParseInteger(text, number);
        out.PutSigned(number);
        return good;
    }
    case ValueKind::Decimals: { // its digits stay as they are
        double number = 0;
        const bool good = text.size() <= kDecimalLimit && ParseDecimal(text, number);
        if (good)
            out.Put(text);
        return good;
    }
    case ValueKind::Ages:
        return EncodeAgeText(text, out);
    case ValueKind::Dates:
        return EncodeDateText(text, out);
    case ValueKind::Times:
        return EncodeTimeText(text, out);
    default:
        return EncodeDateTimeText(text, out);
    }
}

bool SetBinary(DataSetState& state, DICOMELEMENT* e, const ValueForm& form, ValueSplitter& splitter,
               std::size_t count) {
    const std::size_t size = BytesPerText(form);
    if (count > kLongestValue / size)
        return false;
    std::vector<unsigned char> bytes(count * size);
    unsigned char* at = bytes.data();
    for (std::string_view value; splitter.Next(value); at += size) {
        if (!ParseBinary(form, TrimValue(value), at))
            return false;
    }
    return StoreValue(state, e, bytes.data(), static_cast<VDicomULong>(bytes.size())) == DICOM_OK;
}

bool SetTexts(DataSetState& state, DICOMELEMENT* e, const ValueForm& form, ValueSplitter& splitter) {
    TextJoiner joiner;
    for (std::string_view value; splitter.Next(value);) {
        ValueBuffer encoded;
        if (!EncodeText(form.kind, TrimValue(value), encoded) || encoded.Overflown())
            return false;
        joiner.Add(encoded.View());
    }
    return StoreText(state, e, joiner.Text());
}

} // namespace

VDicomULong VDicomDS::GetConvertValue(DICOMELEMENT* e, char* out) {
    if (!m_pState->Check(e) || e == nullptr || IsUndefinedLength(e))
        return 0;
    ElementTree::FreeTypeValue(e);
    if (e->nLength == 0)
        return 0;
    const ValueForm form = FindValueForm(e->nVR);
    const auto convert = [&](TextSink& sink) {
        return IsBinary(form.kind) ? ConvertBinary(*m_pState, e, form, sink) : ConvertText(*m_pState, e, form, sink);
    };
    // Measured first: a value that is none is found before anything has been written to the caller's memory, which
    // is as large as this told him.
    TextSink measure(nullptr);
    if (!convert(measure))
        return 0;
    if (out == nullptr)
        return measure.Size();
    TextSink sink(out);
    return convert(sink) ? sink.Size() : 0;
}

unsigned int VDicomDS::SetConvertValue(DICOMELEMENT* e, const char* text, VDicomULong count) {
    if (!m_pState->Check(e) || e == nullptr || IsUndefinedLength(e) || text == nullptr)
        return 0;
    const std::string_view whole(text);
    if (whole.empty())
        return (count <= 1 || count == DICOM_UNDEFINED) && StoreText(*m_pState, e, whole) ? 1 : 0;
    const ValueForm form = FindValueForm(e->nVR);
    const SplitRule rule = FindSplitRule(*m_pState, e, form, whole);
    const std::size_t values = CountValues(whole, rule);
    if (count != DICOM_UNDEFINED && count != values)
        return 0;
    try {
        ValueSplitter splitter(whole, rule);
        if (form.kind == ValueKind::Strings)
            return StoreText(*m_pState, e, whole) ? 1 : 0;
        return (IsBinary(form.kind) ? SetBinary(*m_pState, e, form, splitter, values)
                                    : SetTexts(*m_pState, e, form, splitter))
                   ? 1
                   : 0;
    } catch (const std::exception&) { // no memory
        return 0;
    }
}
